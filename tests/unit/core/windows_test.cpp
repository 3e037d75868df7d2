// Plot windows and cursor routines, on a window system of paper: what is asked of it becomes lines of text, what the
// user does comes from a list.
#include <deque>
#include <string>
#include <vector>

#include "device/device_point.h"
#include "device/screen.h"
#include "platform/window_system.h"
#include "plot_fixture.h"
#include "raster/canvas.h"

using namespace quilla;

namespace {

constexpr unsigned long kHolder = 77; // number of a draw widget

struct Desk {
  std::vector<std::string> lines;
  std::deque<WindowEvent> events;
  int opened = 0;
  bool refuses = false;
  unsigned long holder = 0; // of all windows
  int waits = 0;
} desk;

void note(const std::string& line) { desk.lines.push_back(line); }

WindowEvent button(WindowEventKind kind, int window, int x, int y, int which) { return {kind, window, x, y, which, 0}; }
WindowEvent key(int window, int code) { return {WindowEventKind::kKey, window, 0, 0, 0, code}; }
WindowEvent closing(int window) { return {WindowEventKind::kClose, window, 0, 0, 0, 0}; }
void click(int window, int x, int y, int which) {
  desk.events.push_back(button(WindowEventKind::kButtonDown, window, x, y, which));
  desk.events.push_back(button(WindowEventKind::kButtonUp, window, x, y, which));
}
void drag(int window, int x1, int y1, int x2, int y2) {
  desk.events.push_back(button(WindowEventKind::kButtonDown, window, x1, y1, kButtonLeft));
  desk.events.push_back(button(WindowEventKind::kMove, window, x2, y2, kButtonLeft));
  desk.events.push_back(button(WindowEventKind::kButtonUp, window, x2, y2, kButtonLeft));
}

const WindowSystem kPaper = {
    .screenSize = [](int* w, int* h) { *w = 1600, *h = 1200; },
    .openWindow =
        [](const WindowWish& wish) {
          if (desk.refuses) return 0;
          note("open " + std::to_string(wish.width) + "x" + std::to_string(wish.height) + " at " +
               (wish.placed ? std::to_string(wish.x) + "," + std::to_string(wish.y) : std::string("will")) + " for " +
               std::to_string(wish.pictureWidth) + "x" + std::to_string(wish.pictureHeight) + ": " + wish.title);
          return ++desk.opened;
        },
    .closeWindow = [](int window) { note("close " + std::to_string(window)); },
    .showWindow = [](int window, bool shown) { note((shown ? "show " : "hide ") + std::to_string(window)); },
    .setTitle = [](int window, const char* title) { note("title " + std::to_string(window) + " " + title); },
    .setIcon = [](int, const char* file) { return std::string(file) == "fine.png"; },
    .setCursor = [](int, int cursor) { note("cursor " + std::to_string(cursor)); },
    .showPicture =
        [](int window, const unsigned char*, int w, int h) {
          note("picture " + std::to_string(window) + " " + std::to_string(w) + "x" + std::to_string(h));
        },
    .showBand =
        [](int, const int* points, int n) {
          std::string line = "band";
          for (int i = 0; i < n; i++)
            line += " " + std::to_string(points[2 * i]) + "," + std::to_string(points[2 * i + 1]);
          note(line);
        },
    .placeMouse = [](int, int x, int y) { note("mouse " + std::to_string(x) + "," + std::to_string(y)); },
    .askMouse = [](int, int* x, int* y) { return *x = 11, *y = 22, true; },
    .nextEvent =
        [](double) {
          desk.waits++;
          if (desk.events.empty())
            return desk.waits > 1000 ? closing(1) : WindowEvent{WindowEventKind::kNone, 0, 0, 0, 0, 0};
          const WindowEvent e = desk.events.front();
          desk.events.pop_front();
          return e;
        },
    .messageBox = [](const char*, const char*) {},
    .nativeId = [](int window) { return 4000UL + static_cast<unsigned long>(window); },
    .holderSize =
        [](unsigned long holder, int* w, int* h) {
          if (holder != kHolder) return false;
          *w = 300;
          *h = 200;
          return true;
        },
    .isHeldBy = [](int, unsigned long holder) { return desk.holder == holder; },
};

class Windows : public PlotTest {
protected:
  void SetUp() override {
    PlotTest::SetUp();
    desk = {};
    useWindowSystem(&kPaper);
  }
  void TearDown() override {
    PlotTest::TearDown();
    useWindowSystem(nullptr);
  }
  void openWindow(const char* device = "XWIN") {
    METAFL(device);
    QUIINI();
    ERRMOD("PROT", "OFF");
  }
  static std::vector<std::string> take(const std::string& word) {
    std::vector<std::string> found;
    for (const std::string& line : desk.lines)
      if (line.rfind(word, 0) == 0) found.push_back(line);
    return found;
  }
  using Lines = std::vector<std::string>;
};

} // namespace

TEST_F(Windows, APlotOpensWorksAndWaitsForTheRightButton) {
  openWindow();
  click(1, 5, 5, kButtonLeft);
  click(1, 5, 5, kButtonRight);
  QUIFIN();
  EXPECT_EQ(desk.lines, (Lines{"open 853x603 at will for 853x603: QUILLA / Working", "picture 1 853x603",
                               "title 1 QUILLA 1 / Click MB2 to continue ...", "close 1"}));
  EXPECT_TRUE(desk.events.empty());
  EXPECT_EQ(state()->raster.canvas, nullptr);
}

TEST_F(Windows, APlotInADrawWidgetHasItsSizeAndDoesNotWait) {
  SETXID(kHolder, "WIDGET");
  openWindow();
  desk.holder = kHolder;
  EXPECT_EQ(take("open"), Lines{"open 300x200 at will for 300x200: QUILLA / Working"});
  QUIFIN();
  EXPECT_EQ(take("title"), Lines{});
  EXPECT_EQ(take("close"), Lines{});
  QUIINI(); // the same window again
  QUIFIN();
  EXPECT_EQ(take("open").size(), 1u);
  SETXID(0, "NONE");
  click(2, 5, 5, kButtonRight);
  QUIINI(); // a window of its own
  desk.holder = 0;
  QUIFIN();
  EXPECT_EQ(take("open").size(), 2u);
}

TEST_F(Windows, TheNumberIsThatOfTheDevice) {
  openWindow("XWI3");
  EXPECT_EQ(WINID(), 3);
  closing(1);
  WINMOD("NOHOLD");
  QUIFIN();
  EXPECT_EQ(take("title"), Lines{"title 1 QUILLA 3 / Click MB2 to continue ..."});
}

TEST_F(Windows, TitlesTellHowToGoOn) {
  struct Case {
    const char *mode, *key, *title;
  };
  const Case cases[] = {
      {"FULL", "NONE", " / Click MB2 to continue ..."},
      {"FULL", "RETURN", " / Click MB2 or RETURN to continue ..."},
      {"NOERASE", "ESCAPE", " / Click MB2 or ESC to continue ..."},
      {"NOMB", "NONE", ""},
      {"NOMB", "RETURN", " / Press RETURN to continue ..."},
      {"NOMB", "ESCAPE", " / Press ESC to continue ..."},
      {"NONE", "RETURN", ""},
  };
  for (const Case& c : cases) {
    freePlotState();
    desk = {};
    openWindow();
    WINMOD(c.mode);
    WINKEY(c.key);
    desk.events.push_back(closing(1));
    QUIFIN();
    EXPECT_EQ(take("title"), Lines{std::string("title 1 QUILLA 1") + c.title}) << c.mode << c.key;
  }
}

TEST_F(Windows, ADelayIsToldInWholeSeconds) {
  openWindow();
  WINMOD("DELAY");
  WINOPT(2500, "DELAY");
  desk.events.push_back(closing(1)); // the user does not wait
  QUIFIN();
  EXPECT_EQ(take("title"), Lines{"title 1 QUILLA 1 / Delay time 2 seconds"});
}

TEST_F(Windows, AShortDelayEnds) {
  openWindow();
  WINMOD("DELAY");
  WINOPT(1, "DELAY");
  QUIFIN();
  EXPECT_EQ(take("close"), Lines{"close 1"});
}

TEST_F(Windows, KeysEndTheWaitWhenAsked) {
  openWindow();
  WINMOD("NOMB");
  WINKEY("RETURN");
  click(1, 5, 5, kButtonRight);
  desk.events.push_back(key(1, kKeyEscape));
  desk.events.push_back(key(1, kKeyReturn));
  desk.events.push_back(key(1, kKeyLeft));
  QUIFIN();
  EXPECT_EQ(desk.events.size(), 1U); // it ended at RETURN, not at the button or ESC
}

TEST_F(Windows, TheSameWindowStaysForTheNextPlot) {
  openWindow();
  WINMOD("NONE");
  QUIFIN();
  EXPECT_EQ(take("close"), Lines{});
  EXPECT_EQ(desk.waits, 0);
  openWindow();
  EXPECT_EQ(take("open").size(), 1U);
  desk.events.push_back(closing(1));
  QUIFIN();
}

TEST_F(Windows, SizeAndPlace) {
  WINDOW(30, 40, 500, 400);
  openWindow();
  WINMOD("NOHOLD");
  QUIFIN();
  WINSIZ(600, 300);
  WINJUS("RBOT");
  openWindow();
  WINMOD("NOHOLD");
  QUIFIN();
  EXPECT_EQ(take("open"), (Lines{"open 500x400 at 30,40 for 500x400: QUILLA / Working",
                                 "open 600x300 at 1000,900 for 600x300: QUILLA / Working"}));
}

TEST_F(Windows, ALargePictureScrolls) {
  METAFL("XWIN");
  testing::internal::CaptureStdout();
  PAGWIN(2000, 1500);
  testing::internal::GetCapturedStdout();
  openWindow();
  EXPECT_EQ(state()->raster.canvas->width, 2000);
  WINMOD("NOHOLD");
  QUIFIN();
  EXPECT_EQ(take("open"), Lines{"open 853x603 at will for 2000x1500: QUILLA / Working"});
}

TEST_F(Windows, SeveralWindowsKeepTheirPictures) {
  openWindow();
  const float scale = state()->device.deviceScale;
  WINSIZ(400, 300);
  OPNWIN(2);
  EXPECT_EQ(WINID(), 2);
  EXPECT_EQ(state()->raster.canvas->width, 400);
  const float small = state()->device.deviceScale;
  EXPECT_NEAR(small, 399.0 / 2969.0, 1e-4); // (400 - 1) pixels on a page of 2969 units, the tighter side
  SELWIN(1);
  EXPECT_EQ(state()->device.deviceScale, scale);
  EXPECT_EQ(state()->raster.canvas->width, 853);
  LINE(100, 100, 2000, 100);
  SELWIN(2);
  const int y = static_cast<int>(100 * small + 0.5F);
  EXPECT_EQ(readRgb(*state()->raster.canvas, 200, y), (Rgb{0, 0, 0})); // nothing was drawn here
  HIDWIN(1, "YES");
  WINMOD("NOHOLD");
  QUIFIN();
  EXPECT_EQ(take("hide"), Lines{"hide 1"});
  EXPECT_EQ(take("picture"), (Lines{"picture 1 853x603", "picture 2 400x300"}));
  EXPECT_EQ(take("close").size(), 2U);
}

TEST_F(Windows, WrongNumbersAreTold) {
  openWindow();
  EXPECT_EQ(outputOf([] { CLSWIN(1); }), " <<<< Warning 134: The Main Window 1 cannot be closed in clswin!\n");
  EXPECT_EQ(outputOf([] { OPNWIN(1); }), " <<<< Warning 133: Window 1 is already open in opnwin!\n");
  EXPECT_EQ(outputOf([] { SELWIN(2); }), " <<<< Warning 135: Window 2 is not open in selwin!\n");
  EXPECT_EQ(outputOf([] { CLSWIN(8); }), " <<<< Warning 135: Window 8 is not open in clswin!\n");
  EXPECT_EQ(outputOf([] { HIDWIN(3, "YES"); }), " <<<< Warning 135: Window 3 is not open in hidwin!\n");
  EXPECT_NE(outputOf([] { OPNWIN(9); }), "");
  OPNWIN(4);
  CLSWIN(4);
  EXPECT_EQ(WINID(), 1);
  EXPECT_EQ(outputOf([] { WINICO("none.png"); }), " <<<< Warning 56: Icon file could not be loaded in winico!\n");
  EXPECT_EQ(outputOf([] { WINICO("fine.png"); }), "");
  WINMOD("NOHOLD");
  QUIFIN();
  METAFL("VIRT");
  QUIINI();
  EXPECT_EQ(outputOf([] { OPNWIN(1); }).substr(0, 17), " <<<< Warning 56:");
  int x = 0, y = 0;
  EXPECT_EQ(outputOf([&] { CSRPT1(&x, &y); }), " <<<< Warning 161: Bad output device in csrpt1!\n");
}

TEST_F(Windows, AWindowThatCannotOpenEndsThePlot) {
  desk.refuses = true;
  METAFL("XWIN");
  EXPECT_EQ(outputOf([] { QUIINI(); }), " <<<< Warning 161: Window cannot be created in quiini!\n");
  EXPECT_EQ(state()->level.plotLevel, 0);
}

TEST_F(Windows, AClosedWindowLeavesThePlotInMemory) {
  openWindow();
  desk.events.push_back(closing(1));
  int x = 5, y = 5;
  CSRPT1(&x, &y);
  LINE(100, 100, 200, 200);
  QUIFIN(); // no wait: there is nobody to ask
  EXPECT_EQ(take("close"), Lines{"close 1"});
}

TEST_F(Windows, PagesWait) {
  openWindow();
  click(1, 1, 1, kButtonRight);
  NEWPAG();
  EXPECT_EQ(take("title"), (Lines{"title 1 QUILLA 1 / Click MB2 for next page ...", "title 1 QUILLA 1 / Working"}));
  WINMOD("NOHOLD");
  NEWPAG();
  EXPECT_EQ(take("title").size(), 2U);
  QUIFIN();
}

TEST_F(Windows, OwnTitlesStay) {
  openWindow();
  WINTIT("Mine");
  desk.events.push_back(closing(1));
  QUIFIN();
  EXPECT_EQ(take("title"), Lines{"title 1 Mine"});
}

// 602 pixels stand for 2099 plot units, the tighter side of the page.
TEST_F(Windows, ClicksArePlotUnits) {
  openWindow();
  click(1, 100, 200, kButtonLeft);
  int x = 0, y = 0;
  CSRPT1(&x, &y);
  EXPECT_EQ(x, 349); // 100 * 2099 / 602 = 348.67
  EXPECT_EQ(y, 697); // 697.34
  CSRUNI("PIXEL");
  click(1, 100, 200, kButtonLeft);
  CSRPT1(&x, &y);
  EXPECT_EQ(x, 100);
  EXPECT_EQ(y, 200);
  CSRUNI("PLOT");
  PAGORG("BOTTOM");
  click(1, 100, 200, kButtonLeft);
  CSRPT1(&x, &y);
  EXPECT_EQ(y, 2099 - 697);
  WINMOD("NOHOLD");
}

TEST_F(Windows, TurnedPagesAreTurnedBack) {
  PAGMOD("PORT");
  openWindow();
  const bool turned = pageTurned(state());
  EXPECT_TRUE(turned);
  click(1, 100, 200, kButtonLeft);
  int x = 0, y = 0;
  CSRPT1(&x, &y);
  LINE(x, y, x, y);
  const float scale = state()->device.deviceScale;
  const double u = 100 / static_cast<double>(scale), v = 200 / static_cast<double>(scale);
  EXPECT_NEAR(x, turned ? state()->geometry.pageWidth - v : u, 1.0);
  EXPECT_NEAR(y, turned ? u : v, 1.0);
  WINMOD("NOHOLD");
}

TEST_F(Windows, PointsAreCollectedUntilTheRightButton) {
  openWindow();
  CSRUNI("PIXEL");
  for (int i = 1; i <= 3; i++) click(1, 10 * i, 20 * i, kButtonLeft);
  click(1, 90, 90, kButtonRight);
  int xs[5] = {}, ys[5] = {}, n = 0, iret = -1;
  CSRPTS(xs, ys, 5, &n, &iret);
  EXPECT_EQ(n, 3);
  EXPECT_EQ(iret, 0);
  EXPECT_EQ(xs[2], 30);
  EXPECT_EQ(ys[2], 60);
  for (int i = 1; i <= 3; i++) click(1, 10 * i, 20 * i, kButtonLeft);
  CSRPTS(xs, ys, 2, &n, &iret);
  EXPECT_EQ(n, 2);
  EXPECT_EQ(iret, 1);
  EXPECT_EQ(desk.events.size(), 2U); // the third click is left
  WINMOD("NOHOLD");
}

TEST_F(Windows, MovesAreCollectedWhileTheButtonIsHeld) {
  openWindow();
  CSRUNI("PIXEL");
  desk.events.push_back(button(WindowEventKind::kMove, 1, 1, 1, kButtonLeft));
  drag(1, 10, 10, 12, 14);
  desk.events.push_back(button(WindowEventKind::kMove, 1, 3, 3, kButtonLeft));
  click(1, 90, 90, kButtonRight);
  int xs[5] = {}, ys[5] = {}, n = 0, iret = 0;
  CSRMOV(xs, ys, 5, &n, &iret);
  ASSERT_EQ(n, 1);
  EXPECT_EQ(xs[0], 12);
  EXPECT_EQ(ys[0], 14);
  WINMOD("NOHOLD");
}

TEST_F(Windows, RectanglesAndLinesHaveBands) {
  openWindow();
  CSRUNI("PIXEL");
  CSRTYP("CROSS");
  drag(1, 10, 20, 2000, 60);
  int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  CSRREC(&x1, &y1, &x2, &y2);
  EXPECT_EQ((Lines{std::to_string(x1), std::to_string(y1), std::to_string(x2), std::to_string(y2)}),
            (Lines{"10", "20", "852", "60"})); // cut at the window
  drag(1, 10, 20, 30, 60);
  CSRLIN(&x1, &y1, &x2, &y2);
  EXPECT_EQ(take("band"), (Lines{"band 10,20 2000,20 2000,60 10,60 10,20", "band", "band 10,20 30,60", "band"}));
  EXPECT_EQ(take("cursor"), (Lines{"cursor 1", "cursor 0", "cursor 1", "cursor 0"}));
  WINMOD("NOHOLD");
}

TEST_F(Windows, PolygonsGrowSideBySide) {
  openWindow();
  CSRUNI("PIXEL");
  drag(1, 10, 10, 50, 10);
  drag(1, 50, 10, 50, 70);
  click(1, 0, 0, kButtonRight);
  int xs[8] = {}, ys[8] = {}, n = 0, iret = 0;
  CSRPOL(xs, ys, 8, &n, &iret);
  ASSERT_EQ(n, 3);
  EXPECT_EQ((Lines{std::to_string(xs[0]), std::to_string(xs[1]), std::to_string(ys[2])}), (Lines{"10", "50", "70"}));
  EXPECT_EQ(take("band"), (Lines{"band 10,10 50,10", "band 10,10 50,10 50,70", "band"}));
  WINMOD("NOHOLD");
}

TEST_F(Windows, ThePositionComesWithItsKey) {
  openWindow();
  CSRUNI("PIXEL");
  click(1, 70, 80, kButtonLeft);
  int x = 5, y = 6;
  EXPECT_EQ(CSRPOS(&x, &y), 5);
  EXPECT_EQ(take("mouse"), Lines{"mouse 5,6"});
  EXPECT_EQ(x, 70);
  EXPECT_EQ(y, 80);
  desk.events = {key(1, kKeyUp)};
  EXPECT_EQ(CSRPOS(&x, &y), kKeyUp);
  EXPECT_EQ(x, 11); // where the mouse stands
  desk.events = {{WindowEventKind::kCharacter, 1, 0, 0, 0, 'q'}};
  EXPECT_EQ(CSRPOS(&x, &y), 'q');
  EXPECT_EQ(CSRKEY(), 'q');
  CSRMOD("GET", "POS");
  x = y = 0;
  CSRPOS(&x, &y);
  EXPECT_EQ(x, 11);
  EXPECT_EQ(y, 22);
  WINMOD("NOHOLD");
}

TEST_F(Windows, AResizedWindowIsTold) {
  static std::vector<int> told;
  openWindow();
  WINCBK([](int n, int nxp, int nyp, int nw, int nh) { told = {n, nxp, nyp, nw, nh}; }, "SIZE");
  desk.events = {{WindowEventKind::kResize, 1, 700, 500, 0, 0}, closing(1)};
  QUIFIN();
  EXPECT_EQ(told, (std::vector<int>{1, 2970, 2100, 700, 500}));
}

TEST_F(Windows, TheScreenIsAsked) {
  EXPECT_STREQ(GETDSP(), "XWIN");
  int w = 0, h = 0;
  GETSCR(&w, &h);
  EXPECT_EQ(w, 1600);
  EXPECT_EQ(h, 1200);
  openWindow();
  EXPECT_EQ(GETXID("WINDOW"), 4001);
  WINMOD("NOHOLD");
}
