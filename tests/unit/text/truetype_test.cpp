#include "text/truetype.h"

#include <cmath>
#include <fstream>
#include <iterator>
#include <random>

#include "plot_fixture.h"
#include "text/text.h"

using namespace quilla;

namespace {

constexpr char kSans[] = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr char kSerifItalic[] = "/usr/share/fonts/truetype/liberation/LiberationSerif-Italic.ttf";

using Bytes = std::vector<std::uint8_t>;

Bytes fileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return Bytes(std::istreambuf_iterator<char>(file), {});
}

void word(Bytes& b, int value) {
  b.push_back(static_cast<std::uint8_t>(value >> 8));
  b.push_back(static_cast<std::uint8_t>(value));
}
void longWord(Bytes& b, std::size_t value) {
  word(b, static_cast<int>(value >> 16));
  word(b, static_cast<int>(value & 0xFFFF));
}

// A font of three glyphs made by hand: 0 nothing, 1 (the letter A) a triangle 1000 high, 2 (the letter B) made of two
// A.
struct HandFont {
  Bytes head = Bytes(54, 0), maxp = Bytes(32, 0), loca, cmap, glyf;
  std::string leftOut; // tags of tables that are missing
  int platform = 3, encoding = 1, format = 4;

  HandFont() {
    maxp[5] = 3;
    Bytes a;
    for (int w : {1, 0, 0, 600, 1000, 2, 0}) word(a, w); // contours, box, end point, no instructions
    for (int flag : {1, 1, 1}) a.push_back(static_cast<std::uint8_t>(flag));
    for (int x : {0, 600, -300}) word(a, x);
    for (int y : {0, 0, 1000}) word(a, y);
    a.push_back(0);
    Bytes b;
    for (int w : {-1, 0, 0, 1200, 1000}) word(b, w);
    for (int w : {32, 1}) word(b, w); // more follow, glyph 1, byte arguments
    b.push_back(0);
    b.push_back(0);
    for (int w : {1 + 8, 1, 700, 0, 8192}) word(b, w); // word arguments, half size
    for (std::size_t at : {std::size_t{0}, std::size_t{0}, a.size(), a.size() + b.size()})
      word(loca, static_cast<int>(at / 2));
    glyf = a;
    glyf.insert(glyf.end(), b.begin(), b.end());
  }

  void makeCmap() {
    for (int w : {0, 1, platform, encoding}) word(cmap, w);
    longWord(cmap, 12);
    // Segments 65..66 by delta -64 and the last one.
    for (int w : {format, 32, 0, 4, 0, 0, 0, 66, 0xFFFF, 0, 65, 0xFFFF, 65536 - 64, 1, 0, 0}) word(cmap, w);
  }

  Bytes file() {
    if (cmap.empty()) makeCmap();
    const std::pair<const char*, const Bytes*> tables[] = {
        {"cmap", &cmap}, {"glyf", &glyf}, {"head", &head}, {"loca", &loca}, {"maxp", &maxp}};
    Bytes out, body;
    longWord(out, 0x10000);
    int count = 0;
    for (const auto& t : tables) count += leftOut.find(t.first) == std::string::npos;
    word(out, count);
    out.resize(12);
    for (const auto& [tag, bytes] : tables) {
      if (leftOut.find(tag) != std::string::npos) continue;
      out.insert(out.end(), tag, tag + 4);
      longWord(out, 0);
      longWord(out, 12 + 16 * static_cast<std::size_t>(count) + body.size());
      longWord(out, bytes->size());
      body.insert(body.end(), bytes->begin(), bytes->end());
    }
    out.insert(out.end(), body.begin(), body.end());
    return out;
  }
};

class TrueType : public PlotTest {
protected:
  void writeFont(const Bytes& bytes) {
    std::ofstream file("font.ttf", std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  }
  std::string loading(HandFont font) {
    writeFont(font.file());
    return outputOf([] { TTFONT("font.ttf"); });
  }
};

TEST_F(TrueType, HandMadeLettersOnThePage) {
  open();
  EXPECT_EQ(loading(HandFont()), "");
  EXPECT_EQ(state()->font.fontKind, kFontTrueType);
  EXPECT_STREQ(state()->font.fontName, "font.ttf");
  HEIGHT(100);
  // A is 60 wide, the gap 18; the B 60 and its half-sized part up to (700 + 300) / 10.
  EXPECT_EQ(NLMESS("A"), 60);
  EXPECT_EQ(NLMESS("B"), 100);
  EXPECT_EQ(NLMESS("AB"), 178);
  EXPECT_EQ(NLMESS(" A"), 25 + 18 + 60);
  MESSAG("A", 300, 400);
  const std::vector<std::string> moves = traced("move"), draws = traced("draw");
  ASSERT_EQ(moves.size(), 1U);
  EXPECT_EQ(moves[0], "300.00 499.00");
  EXPECT_EQ(draws[0], "360.00 499.00");
  EXPECT_EQ(draws[1], "330.00 399.00");
  EXPECT_EQ(draws[2], "300.00 499.00");
  EXPECT_EQ(traced("fill").size(), 1U);
}

TEST_F(TrueType, FixedSpacing) {
  open();
  loading(HandFont());
  HEIGHT(101);
  FIXSPC(1.0F); // cells of 140
  EXPECT_EQ(NLMESS("AAA"), 420);
  MESSAG("A", 300, 400);
  // (140 - 60.6 + 1) / 2 before the letter
  EXPECT_EQ(traced("move")[0], "340.20 500.00");
}

TEST_F(TrueType, Messages) {
  open();
  const auto says = [this](HandFont font, const char* text) {
    const std::string output = loading(std::move(font));
    EXPECT_NE(output.find(text), std::string::npos) << output;
  };
  HandFont font;
  font.encoding = 0; // symbol
  says(font, "Warning 183: No Microsoft encoding found in table cmap in tffont!");
  font = HandFont();
  font.format = 6;
  says(font, "Warning 184: Format should be 4 in table cmap");
  const std::pair<const char*, const char*> missing[] = {{"cmap", "Warning 185: Missing table cmap"},
                                                         {"loca", "Warning 185: Missing table loca"},
                                                         {"head", "Warning 185: Missing table head"},
                                                         {"maxp", "Warning 185: Missing table maxp"},
                                                         {"cmap head", "Warning 185: Missing table head"}};
  for (const auto& [tags, text] : missing) {
    font = HandFont();
    font.leftOut = tags;
    says(font, text);
  }
  font = HandFont();
  font.head.resize(53);
  says(font, "Warning 186: Bad size in table head");
  font.maxp.resize(6);
  says(font, "Warning 186: Bad size in table maxp");
  font = HandFont();
  font.loca.resize(4);
  says(font, "Warning 186: Bad size in table loca");
  EXPECT_NE(outputOf([] { TTFONT("nowhere.ttf"); }).find("Warning 36"), std::string::npos);
  writeFont({0, 1, 0, 0, 0, 9});
  EXPECT_NE(outputOf([] { TTFONT("font.ttf"); }).find("Warning 119: Read error"), std::string::npos);
  EXPECT_EQ(state()->font.fontKind, kFontStroke);
  EXPECT_GT(NLMESS("abc"), 0);
}

TEST_F(TrueType, WithoutGlyphsEveryLetterIsABlank) {
  open();
  HandFont font;
  font.leftOut = "glyf";
  EXPECT_EQ(loading(font), "");
  EXPECT_EQ(state()->font.fontKind, kFontTrueType);
  HEIGHT(100);
  EXPECT_EQ(NLMESS("AA"), 25 + 18 + 25);
}

TEST_F(TrueType, DamagedGlyphs) {
  open();
  HEIGHT(100);
  HandFont font;
  font.glyf[10] = 0xFF; // the contour ends behind all data
  font.glyf[11] = 0xF0;
  loading(font);
  EXPECT_NE(outputOf([] { MESSAG("A", 300, 400); }).find("Warning 187: Overflow for contour points in messag!"),
            std::string::npos);
  font = HandFont();
  const std::size_t b = font.glyf.size() - 26;
  font.glyf[b + 12] = 0; // a component that is the empty glyph
  font.glyf[b + 13] = 0;
  loading(font);
  EXPECT_NE(outputOf([] { MESSAG("B", 300, 400); }).find("Warning 188: Bad number of contours"), std::string::npos);
  font.glyf[b + 13] = 9;
  loading(font);
  EXPECT_NE(outputOf([] { MESSAG("B", 300, 400); }).find("Warning 189: Bad glyph index"), std::string::npos);
}

TEST_F(TrueType, LibraryDirectory) {
  open();
  std::filesystem::create_directories("lib/fonts");
  writeFont(HandFont().file());
  std::filesystem::rename("font.ttf", "lib/fonts/hand.ttf");
  EXPECT_NE(outputOf([] { TTFONT("hand.ttf"); }).find("Warning 36"), std::string::npos);
  QUIENV("lib");
  EXPECT_EQ(outputOf([] { TTFONT("hand.ttf"); }), "");
  QUIENV("NONE");
  EXPECT_NE(outputOf([] { TTFONT("hand.ttf"); }).find("Warning 36"), std::string::npos);
  setenv("QUILLA", "lib", 1);
  EXPECT_EQ(outputOf([] { TTFONT("hand.ttf"); }), "");
  unsetenv("QUILLA");
}

// A curve has height / 5 - 1 lines, at least 4.
TEST_F(TrueType, LinesOfACurve) {
  auto font = std::make_unique<TrueTypeFont>();
  font->points[0] = {0, 0, true};
  font->points[1] = {50, 100, false};
  font->points[2] = {100, 0, true};
  font->pointCount = 3;
  font->contourCount = 1;
  font->contourEnds[0] = 3;
  std::vector<std::pair<float, float>> seen;
  const auto keep = [&](int, float x, float y) { seen.emplace_back(x, y); };
  EXPECT_EQ(flattenGlyph(font.get(), 5, keep), 6); // start, four points of the curve, the start again
  EXPECT_EQ(seen[2], (std::pair<float, float>{50.0F, 50.0F}));
  EXPECT_EQ(seen[4], (std::pair<float, float>{100.0F, 0.0F}));
  EXPECT_EQ(seen[5], (std::pair<float, float>{0.0F, 0.0F}));
  EXPECT_EQ(flattenGlyph(font.get(), 20, keep), 21);
  // Nothing but points off the curve: the path runs through the middles.
  for (int i = 0; i < 3; ++i) font->points[i].onCurve = false;
  seen.clear();
  EXPECT_EQ(flattenGlyph(font.get(), 5, keep), 14);
  EXPECT_EQ(seen[0], (std::pair<float, float>{50.0F, 0.0F}));
  EXPECT_EQ(seen[4], (std::pair<float, float>{25.0F, 50.0F}));
}

TEST_F(TrueType, DebianFonts) {
  if (!std::filesystem::exists(kSans) || !std::filesystem::exists(kSerifItalic)) GTEST_SKIP() << "no fonts";
  open();
  CHACOD("UTF8");
  for (const char* name : {kSans, kSerifItalic}) {
    EXPECT_EQ(outputOf([&] { TTFONT(name); }), "");
    HEIGHT(100);
    EXPECT_GT(NLMESS("A"), 60);
    EXPECT_LT(NLMESS("A"), 110);
    EXPECT_GT(NLMESS("\xC3\x84\xCE\xA9\xD0\x96"), 180); // composites, Greek, Cyrillic
    EXPECT_EQ(outputOf([] { MESSAG("\xC3\x84\xC5\x82\xCE\xA9\xD0\x96 %&@", 300, 400); }), "");
    CHACOD("ISO5");
    const int zhe = NLMESS("\xB6");
    CHACOD("UTF8");
    EXPECT_EQ(NLMESS("\xD0\x96"), zhe);
  }
  CHACOD("STAN");
  const char dieresis[] = {127, 0};
  EXPECT_NEAR(NLMESS(dieresis), NLMESS("A"), 1);
}

// Damaged files give a message or letters, and never anything else.
TEST_F(TrueType, DamagedFiles) {
  open();
  HEIGHT(50);
  std::mt19937 random(7);
  const Bytes whole = std::filesystem::exists(kSerifItalic) ? fileBytes(kSerifItalic) : HandFont().file();
  Bytes small = HandFont().file();
  auto font = std::make_unique<TrueTypeFont>();
  for (int round = 0; round < 400; ++round) {
    Bytes bytes = round % 20 == 0 ? whole : small;
    const int hits = 1 + static_cast<int>(random() % 12);
    for (int i = 0; i < hits; ++i)
      bytes[random() % std::min<std::size_t>(bytes.size(), 3000)] = static_cast<std::uint8_t>(random());
    if (round % 7 == 0) bytes.resize(random() % bytes.size());
    font = std::make_unique<TrueTypeFont>();
    if (readTrueType(bytes.data(), bytes.size(), font.get()) != kTrueTypeGood) continue;
    for (int code = 32; code < 128; ++code) {
      int fault = 0;
      const int glyph = trueTypeGlyph(font.get(), code, &fault);
      if (fault != 0 || readGlyph(font.get(), glyph) != kTrueTypeGood) continue;
      EXPECT_LE(font->pointCount, kGlyphPointLimit);
      flattenGlyph(font.get(), 5, [](int, float, float) {});
    }
  }
}

} // namespace
