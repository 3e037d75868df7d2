// Settings for the widgets that are made next.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>

#include "quilla/quilla.h"
#include "widget/widget_text.h"

using namespace quilla;

namespace {

constexpr int kPercent = 100;
constexpr float kLeastSpacing = 0.001F;
constexpr int kKeyLetters = 3; // of the keys of SWGOPT and SWGTYP

// A key with the words of its values, and where the number of the word is kept.
struct OptionRow {
  char key[kKeyLetters + 1];
  const char* words;
  int WidgetOptions::*place;
};
constexpr OptionRow kOptionRows[] = {
    {"POS", "STAN+CENT", &WidgetOptions::centered},
    {"FIL", "NOFI+FIEL", &WidgetOptions::fileField},
    {"BAC", "STAN+USER", &WidgetOptions::userBackground},
    {"MAS", "STAN+USER", &WidgetOptions::userMask},
    {"DWG", "STAN+TOP ", &WidgetOptions::fileOnTop},
    {"DIA", "STAN+TOP ", &WidgetOptions::dialogOnTop},
    {"CAL", "RETU+CHAN+BOTH", &WidgetOptions::callText},
    {"SCR", "BUTT+TRAC+END ", &WidgetOptions::callScale},
    {"CLO", "QUIT+OK  ", &WidgetOptions::closeIsOk},
    {"EDI", "OFF +ON  ", &WidgetOptions::tableEdit},
    {"FRA", "OFF +ON  ", &WidgetOptions::frame},
    {"HEA", "NONE+COLU+ROWS+BOTH", &WidgetOptions::head},
    {"BOR", "NONE+BOTH+ROWS+COLU", &WidgetOptions::border},
    {"VER", kMaskWords, &WidgetOptions::verify},
    {"SEP", "STAN+SING+DOUB+DASH+DDAS", &WidgetOptions::separator},
    {"SLI", "VALU+NOVA", &WidgetOptions::noValue},
    {"COD", "ANSI+UTF8+RUSS+GREE", &WidgetOptions::coding},
};
constexpr OptionRow kTypeRows[] = {
    {"LIS", "AUTO+SCRO+NOSC+VSCR", &WidgetOptions::listScroll},
    {"BOX", "VERT+HORI+GRID", &WidgetOptions::boxOrder},
    {"SCA", "HORI+VERT", &WidgetOptions::scaleUpright},
    {"DRA", "NOSC+SCRO", &WidgetOptions::drawScroll},
    {"PBA", "HORI+VERT", &WidgetOptions::progressUpright},
    {"TAB", "AUTO+SCRO+NOSC", &WidgetOptions::tableScroll},
    {"FIL", "OPEN+SAVE", &WidgetOptions::fileSave},
    {"SEP", "HORI+VERT", &WidgetOptions::separatorUpright},
    {"POP", "MENU+STRI", &WidgetOptions::popupRow},
    {"TEX", "EDIT+NOED+PASS", &WidgetOptions::textKind},
};

// First letters of a key, upper-cased.
std::string keyLetters(const char* key) {
  std::string letters(key ? key : "", key ? strnlen(key, kKeyLetters) : 0);
  for (char& l : letters) l = static_cast<char>(std::toupper(static_cast<unsigned char>(l)));
  return letters;
}

void tellUnknown(const WidgetContext* c, const char* word) {
  widgetFault(c, (std::string("Not allowed parameter ") + (word ? word : "")).c_str());
}

template <std::size_t n>
void setOption(WidgetContext* c, const OptionRow (&rows)[n], const char* word, const char* key) {
  const std::string letters = keyLetters(key);
  for (const OptionRow& row : rows) {
    if (letters != row.key) continue;
    const int found = widgetKeyword(c, row.words, word);
    if (found >= 0) c->settings.options.*row.place = found;
    return;
  }
  tellUnknown(c, key);
}

// Four pairs of off and on.
void setProgressLook(WidgetContext* c, const char* word) {
  const int found = widgetKeyword(c, "NOSM+SMOO+NOBA+BACK+NOFR+FRAM+NOLA+LABE", word);
  if (found < 0) return;
  WidgetOptions& o = c->settings.options;
  bool* const looks[] = {&o.progressSmooth, &o.progressBack, &o.progressFrame, &o.progressLabel};
  *looks[found / 2] = found % 2 == 1;
}

void fillScreen(WidgetContext* c) {
  WidgetSettings& s = c->settings;
  s.x = s.y = 0;
  s.width = c->metrics.screenWidth;
  s.height = c->metrics.screenHeight;
  s.positionSet = s.sizeSet = true;
}

// Pixels of a gap: so many characters, or percent of the screen. False after "Bad value".
bool spacingOf(const WidgetContext* c, float wanted, int character, int screen, int* pixels) {
  const bool percent = wanted >= -kPercent && wanted <= -kLeastSpacing;
  if (!percent && !(wanted > 0.0F && wanted <= static_cast<float>(screen))) {
    widgetFault(c, "Bad value");
    return false;
  }
  *pixels = static_cast<int>(percent ? -wanted * static_cast<float>(screen) / kPercent
                                     : wanted * static_cast<float>(character));
  return true;
}

bool isPositive(const WidgetContext* c, float value) {
  if (value > 0.0F && std::isfinite(value)) return true;
  widgetFault(c, "Non positive paramter");
  return false;
}

constexpr int kLargestSize = 32767; // pixels; the widest window that X knows

int pixelsOf(int value) { return std::clamp(value, -kLargestSize, kLargestSize); }

} // namespace

void SWGPOS(int x, int y) {
  WidgetContext* c = widgetCheck("swgpos");
  if (!c) return;
  c->settings.x = pixelsOf(x);
  c->settings.y = pixelsOf(y);
  c->settings.positionSet = true;
}

void SWGSIZ(int width, int height) {
  WidgetContext* c = widgetCheck("swgsiz");
  if (!c) return;
  if (width < 1 || height < 1) return widgetFault(c, "Bad value");
  c->settings.width = pixelsOf(width);
  c->settings.height = pixelsOf(height);
  c->settings.sizeSet = true;
}

void SWGWIN(int x, int y, int width, int height) {
  WidgetContext* c = widgetCheck("swgwin");
  if (!c) return;
  if (width < 1 || height < 1) return widgetFault(c, "Bad value");
  c->settings.x = pixelsOf(x);
  c->settings.y = pixelsOf(y);
  c->settings.width = pixelsOf(width);
  c->settings.height = pixelsOf(height);
  c->settings.positionSet = c->settings.sizeSet = true;
}

void SWGOFF(int n, int side) {
  WidgetContext* c = widgetCheck("swgoff");
  if (!c) return;
  if (side < 0 || side >= kAtSides) return widgetFault(c, "Bad value");
  c->settings.offsets[side] = pixelsOf(n);
}

void SWGWTH(int n) {
  WidgetContext* c = widgetCheck("swgwth");
  if (!c) return;
  if (n == 0 || n < -kPercent || n > kLargestSize / c->metrics.characterWidth) return widgetFault(c, "Bad value");
  c->settings.widthWanted = n;
}

void SWGSPC(float x, float y) {
  WidgetContext* c = widgetCheck("swgspc");
  if (!c) return;
  int across = 0, down = 0;
  if (!spacingOf(c, x, c->metrics.characterWidth, c->metrics.screenWidth, &across)) return;
  if (!spacingOf(c, y, c->metrics.characterHeight, c->metrics.screenHeight, &down)) return;
  c->settings.spacingX = across;
  c->settings.spacingY = down;
}

void SWGSTP(float step) {
  WidgetContext* c = widgetCheck("swgstp");
  if (c && isPositive(c, step)) c->settings.step = step;
}

void SWGDRW(float ratio) {
  WidgetContext* c = widgetCheck("swgdrw");
  if (c && isPositive(c, ratio)) c->settings.drawRatio = ratio;
}

void SWGTIT(const char* title) {
  WidgetContext* c = widgetCheck("swgtit");
  std::string text;
  if (!c || !decodeWidgetText(c, c->settings.options.coding, title, &text)) return;
  c->settings.title = firstCharacters(text, kWidgetTitleLength);
  c->settings.titleSet = true;
}

void SWGHLP(const char* help) {
  WidgetContext* c = widgetCheck("swghlp");
  std::string text;
  if (!c || !decodeWidgetText(c, c->settings.options.coding, help, &text)) return;
  std::replace(text.begin(), text.end(), c->state->widgetSetup.itemSeparator, '\n');
  c->settings.help = text;
}

void SWGPOP(const char* option) {
  WidgetContext* c = widgetCheck("swgpop");
  const int found = c ? widgetKeyword(c, "NOOK+NOQU+NOHE+OK  +QUIT+HELP", option) : -1;
  if (found < 0) return;
  constexpr int kMenuItems = 3;
  bool* const items[kMenuItems] = {&c->settings.menuOk, &c->settings.menuQuit, &c->settings.menuHelp};
  *items[found % kMenuItems] = found >= kMenuItems;
}

void SWGMOD(const char* option) {
  WidgetContext* c = widgetCheck("swgmod");
  const int found = c ? widgetKeyword(c, "AUTO+XWIN+ASCI", option) : -1;
  if (found >= 0) c->settings.mode = found;
}

void SWGOPT(const char* value, const char* key) {
  WidgetContext* c = widgetCheck("swgopt");
  if (!c) return;
  const std::string letters = keyLetters(key);
  if (letters == "PBA") return setProgressLook(c, value);
  if (letters == "FUL") return fillScreen(c);
  if (letters == "MAI") return;
  setOption(c, kOptionRows, value, key);
}

void SWGTYP(const char* value, const char* key) {
  WidgetContext* c = widgetCheck("swgtyp");
  if (!c) return;
  if (keyLetters(key) != "MAI") return setOption(c, kTypeRows, value, key);
  const int found = widgetKeyword(c, "NOSC+SCRO+RESI+NORE", value);
  if (found < 0) return;
  int& place = found < 2 ? c->settings.options.rootScroll : c->settings.options.rootFixed;
  place = found % 2;
}

void SWGIOP(int n, const char* option) {
  WidgetContext* c = widgetCheck("swgiop");
  const int found = c ? widgetKeyword(c, "LIST+TABL+DLIS+VMAR+HMAR+ICON", option) : -1;
  if (found < 0) return;
  if (n <= 0) return widgetFault(c, "Non positive parameter");
  WidgetSettings& s = c->settings;
  int* const places[] = {&s.listRows, &s.tableRows, &s.dropRows, &s.verticalMargin, &s.horizontalMargin, &s.iconSize};
  *places[found] = std::min(n, kLargestSize / c->metrics.characterHeight);
}

void SWGJUS(const char* value, const char* key) {
  WidgetContext* c = widgetCheck("swgjus");
  const int found = c ? widgetKeyword(c, "LEFT+CENT+RIGH", value) : -1;
  const int what = found >= 0 ? widgetKeyword(c, "LABE+BUTT+TABL", key) : -1;
  if (what < 0) return;
  int* const places[] = {&c->settings.justifyLabel, &c->settings.justifyButton, &c->settings.justifyTable};
  *places[what] = found;
}

void SWGMRG(int n, const char* option) {
  WidgetContext* c = widgetCheck("swgmrg");
  const int found = c ? widgetKeyword(c, "LEFT+TOP +RIGH+BOTT", option) : -1;
  if (found < 0) return;
  if (n < 0) return widgetFault(c, "Bad value");
  c->settings.drawMargin[found] = pixelsOf(n);
}

void SWGCLR(float r, float g, float b, const char* option) {
  WidgetContext* c = widgetCheck("swgclr");
  const int found = c ? widgetKeyword(c, "BACK+FORE+SCRO+LTEX+PBAR+RESE", option) : -1;
  if (found < 0) return;
  int color = kNoWidgetColor;
  if (found == kWidgetColorUses) {
    std::fill_n(c->settings.colors, kWidgetColorUses, color);
  } else if (widgetColor(c, r, g, b, &color)) {
    c->settings.colors[found] = color;
  }
}

void SWGFNT(const char* font, int points) {
  WidgetContext* c = widgetCheck("swgfnt");
  if (!c) return;
  if (points <= 0) return widgetFault(c, "Non positive parameter");
  std::string name = font ? font : "";
  // Words at the end tell the cut of the font.
  bool bold = false, italic = false;
  const auto takeWord = [&name](const char* word) {
    const std::size_t length = std::strlen(word);
    if (name.size() < length || strcasecmp(name.c_str() + name.size() - length, word) != 0) return false;
    name.resize(name.size() - length);
    while (!name.empty() && name.back() == ' ') name.pop_back();
    return true;
  };
  while (takeWord("bold") ? (bold = true) : takeWord("italic") ? (italic = true) : takeWord("unicode")) {
  }
  if (strcasecmp(name.c_str(), "standard") == 0) name.clear();
  constexpr int kLargestFont = 500;
  const WidgetSystem* system = widgetSystem();
  if (system && !system->setFont(name.c_str(), std::min(points, kLargestFont), bold, italic))
    return widgetFault(c, "Font cannot be loaded");
  readMetrics(c);
}

void SWGRAY(const float* widths, int n, const char* option) {
  WidgetContext* c = widgetCheck("swgray");
  if (!c || widgetKeyword(c, "TABL", option) < 0) return;
  if (!widths || n < 1) return widgetFault(c, "Non positive parameter");
  for (int i = 0; i < n; ++i)
    if (!(std::fabs(widths[i]) <= static_cast<float>(kLargestSize)) || widths[i] < -kPercent)
      return widgetFault(c, "Bad value");
  c->settings.columnWidths.assign(widths, widths + n);
}
