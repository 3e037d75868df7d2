// Windows on FLTK: a picture in a window that scrolls, and a queue of what the user does with it.
#include <FL/Fl.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_PNG_Image.H>
#include <FL/Fl_RGB_Image.H>
#include <FL/Fl_Scroll.H>
#include <FL/Fl_Shared_Image.H>
#include <FL/fl_ask.H>
#include <FL/fl_draw.H>
#include <FL/x.H>

#include <cstring>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "platform/window_system.h"

namespace {

using namespace quilla;

constexpr int kMostWindows = 32;
constexpr std::size_t kMostEvents = 1000; // a program that does not ask loses moves, not memory
constexpr int kBytesPerPixel = 4;

struct PlotWindow;

struct Desk {
  std::unique_ptr<PlotWindow> windows[kMostWindows];
  std::deque<WindowEvent> events;
};
Desk& desk() {
  static Desk d;
  return d;
}

void put(const WindowEvent& event) {
  if (desk().events.size() < kMostEvents) desk().events.push_back(event);
}

int keyCode() {
  switch (Fl::event_key()) {
  case FL_Left: return kKeyLeft;
  case FL_Up: return kKeyUp;
  case FL_Right: return kKeyRight;
  case FL_Down: return kKeyDown;
  case FL_Enter:
  case FL_KP_Enter: return kKeyReturn;
  case FL_Escape: return kKeyEscape;
  default: return 0;
  }
}

// The picture of a plot, in its own size.
struct Picture : Fl_Widget {
  int number; // handle of the window
  std::vector<unsigned char> pixels;
  std::vector<int> band;

  Picture(int windowNumber, int width, int height)
      : Fl_Widget(0, 0, width, height), number(windowNumber),
        pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kBytesPerPixel) {}

  void drawBand() {
    for (std::size_t i = 2; i + 1 < band.size(); i += 2) {
      const int x1 = x() + band[i - 2], y1 = y() + band[i - 1], x2 = x() + band[i], y2 = y() + band[i + 1];
      // Dark under bright dashes: seen on every picture.
      fl_color(FL_BLACK);
      fl_line_style(FL_SOLID);
      fl_line(x1, y1, x2, y2);
      fl_color(FL_WHITE);
      fl_line_style(FL_DASH);
      fl_line(x1, y1, x2, y2);
    }
    fl_line_style(FL_SOLID);
  }

  void draw() override {
    fl_draw_image(pixels.data(), x(), y(), w(), h(), kBytesPerPixel);
    drawBand();
  }

  void mouse(WindowEventKind kind) {
    const int button = Fl::event_button() == FL_LEFT_MOUSE ? kButtonLeft : kButtonRight;
    put({kind, number, Fl::event_x() - x(), Fl::event_y() - y(), button, 0});
  }

  int pressKey() {
    if (const int code = keyCode()) {
      put({WindowEventKind::kKey, number, 0, 0, 0, code});
      return 1;
    }
    const char* text = Fl::event_text();
    if (!text || !text[0]) return 0;
    put({WindowEventKind::kCharacter, number, 0, 0, 0, static_cast<unsigned char>(text[0])});
    return 1;
  }

  int take(int event) {
    switch (event) {
    case FL_PUSH: mouse(WindowEventKind::kButtonDown); return 1;
    case FL_RELEASE: mouse(WindowEventKind::kButtonUp); return 1;
    case FL_ENTER: return 1;
    case FL_MOVE:
    case FL_DRAG: mouse(WindowEventKind::kMove); return 1;
    case FL_FOCUS: return 1;
    case FL_KEYDOWN:
    case FL_SHORTCUT: return pressKey();
    default: return 0;
    }
  }
  int handle(int event) override { return take(event) ? 1 : Fl_Widget::handle(event); }
};

// A frame that tells its new size.
struct Frame : Fl_Double_Window {
  int number;
  Frame(int windowNumber, const WindowWish& wish)
      : Fl_Double_Window(wish.x, wish.y, wish.width, wish.height), number(windowNumber) {}
  void resize(int nx, int ny, int nw, int nh) override {
    const bool other = nw != w() || nh != h();
    Fl_Double_Window::resize(nx, ny, nw, nh);
    if (other && shown()) put({WindowEventKind::kResize, number, nw, nh, 0, 0});
  }
};

struct PlotWindow {
  Frame frame;
  Fl_Scroll scroll;
  Picture picture;
  std::string title;

  PlotWindow(int handle, const WindowWish& wish)
      : frame(handle, wish), scroll(0, 0, wish.width, wish.height),
        picture(handle, wish.pictureWidth, wish.pictureHeight), title(wish.title) {
    scroll.add(picture);
    scroll.box(FL_FLAT_BOX);
    scroll.end();
    frame.end();
    frame.resizable(scroll);
    frame.label(title.c_str());
    if (wish.popup) frame.border(0);
    if (!wish.placed) {
      // A window without a place is left to the window manager.
      frame.size_range(64, 64);
    }
  }
};

PlotWindow* windowOf(int handle) {
  return handle >= 1 && handle <= kMostWindows ? desk().windows[handle - 1].get() : nullptr;
}

void closed(Fl_Widget*, void* data) {
  const int handle = static_cast<int>(reinterpret_cast<long>(data));
  put({WindowEventKind::kClose, handle, 0, 0, 0, 0});
}

void screenSize(int* width, int* height) {
  *width = Fl::w();
  *height = Fl::h();
}

// A window of this program that holds plots, or null.
Fl_Window* holderOf(unsigned long number) { return number ? fl_find(number) : nullptr; }

bool holderSize(unsigned long number, int* width, int* height) {
  const Fl_Window* holder = holderOf(number);
  if (!holder) return false;
  *width = holder->w();
  *height = holder->h();
  return true;
}

bool isHeldBy(int handle, unsigned long number) {
  const PlotWindow* w = windowOf(handle);
  return w && w->frame.parent() == holderOf(number);
}

int openWindow(const WindowWish& wish) {
  for (int i = 0; i < kMostWindows; ++i) {
    std::unique_ptr<PlotWindow>& place = desk().windows[i];
    if (place) continue;
    place = std::make_unique<PlotWindow>(i + 1, wish);
    place->frame.callback(closed, reinterpret_cast<void*>(static_cast<long>(i + 1)));
    if (wish.placed) place->frame.position(wish.x, wish.y);
    Fl_Window* holder = holderOf(wish.parent);
    if (holder) {
      place->frame.position(0, 0);
      holder->add(place->frame);
    }
    place->frame.show();
    place->frame.wait_for_expose();
    if (wish.parent && !holder) XReparentWindow(fl_display, fl_xid(&place->frame), wish.parent, 0, 0);
    place->picture.take_focus();
    return i + 1;
  }
  return 0;
}

void closeWindow(int handle) {
  if (!windowOf(handle)) return;
  Fl_Window& frame = windowOf(handle)->frame;
  frame.hide();
  if (frame.parent()) frame.parent()->remove(frame);
  desk().windows[handle - 1].reset();
  std::erase_if(desk().events, [handle](const WindowEvent& e) { return e.window == handle; });
  Fl::check();
}

void showWindow(int handle, bool shown) {
  PlotWindow* w = windowOf(handle);
  if (!w) return;
  if (shown) {
    w->frame.show();
  } else {
    w->frame.hide();
  }
  Fl::check();
}

void setTitle(int handle, const char* title) {
  PlotWindow* w = windowOf(handle);
  if (!w) return;
  w->title = title;
  w->frame.label(w->title.c_str());
  Fl::check();
}

bool setIcon(int handle, const char* file) {
  PlotWindow* w = windowOf(handle);
  if (!w) return false;
  Fl_PNG_Image image(file);
  if (image.fail() || image.w() <= 0) return false;
  w->frame.icon(&image);
  return true;
}

void setCursor(int handle, int cursor) {
  constexpr Fl_Cursor kShapes[] = {FL_CURSOR_DEFAULT, FL_CURSOR_CROSS, FL_CURSOR_ARROW, FL_CURSOR_N};
  PlotWindow* w = windowOf(handle);
  if (w && cursor >= 0 && cursor <= kCursorUpArrow) w->frame.cursor(kShapes[cursor]);
}

void showPicture(int handle, const unsigned char* pixels, int width, int height) {
  PlotWindow* w = windowOf(handle);
  if (!w || w->picture.w() != width || w->picture.h() != height) return;
  std::memcpy(w->picture.pixels.data(), pixels, w->picture.pixels.size());
  w->picture.redraw();
  Fl::check();
}

void showBand(int handle, const int* points, int n) {
  PlotWindow* w = windowOf(handle);
  if (!w) return;
  w->picture.band.assign(points, points + 2 * static_cast<std::size_t>(n));
  w->picture.redraw();
  Fl::check();
}

// FLTK reads the place of the mouse; to move it is left to the window system below.
void placeMouse(int handle, int x, int y) {
  PlotWindow* w = windowOf(handle);
  if (!w || !w->frame.shown()) return;
  XWarpPointer(fl_display, None, fl_xid(&w->frame), 0, 0, 0, 0, w->picture.x() + x, w->picture.y() + y);
  Fl::check();
}

bool askMouse(int handle, int* x, int* y) {
  PlotWindow* w = windowOf(handle);
  if (!w) return false;
  int screenX = 0, screenY = 0;
  Fl::get_mouse(screenX, screenY);
  *x = screenX - w->frame.x_root() - w->picture.x();
  *y = screenY - w->frame.y_root() - w->picture.y();
  return *x >= 0 && *y >= 0 && *x < w->picture.w() && *y < w->picture.h();
}

WindowEvent nextEvent(double seconds) {
  std::deque<WindowEvent>& events = desk().events;
  if (events.empty()) Fl::wait(seconds);
  if (events.empty()) return {WindowEventKind::kNone, 0, 0, 0, 0, 0};
  const WindowEvent event = events.front();
  events.pop_front();
  return event;
}

void messageBox(const char* title, const char* text) {
  fl_message_title(title);
  fl_message("%s", text);
}

unsigned long nativeId(int handle) {
  PlotWindow* w = windowOf(handle);
  return w && w->frame.shown() ? static_cast<unsigned long>(fl_xid(&w->frame)) : 0;
}

constexpr WindowSystem kSystem = {screenSize, openWindow,  closeWindow, showWindow, setTitle, setIcon,
                                  setCursor,  showPicture, showBand,    placeMouse, askMouse, nextEvent,
                                  messageBox, nativeId,    holderSize,  isHeldBy};

} // namespace

extern "C" const quilla::WindowSystem* quillaWindowSystem() {
  static bool opened = false;
  if (opened) return &kSystem;
  // Without a display fl_open_display would end the program.
  Display* display = XOpenDisplay(nullptr);
  if (!display) return nullptr;
  fl_open_display(display);
  Fl::visual(FL_RGB);
  fl_register_images();
  opened = true;
  return &kSystem;
}
