// Making scales, progress bars, file names, draw widgets, tables, pictures and popups.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "quilla/quilla.h"
#include "widget/widget_maker.h"

using namespace quilla;

namespace {

constexpr int kValueCharacters = 9;   // room for the value beside a scale
constexpr int kUprightScaleLines = 8; // length of a vertical scale
constexpr double kMostSteps = 1e9;
constexpr float kDrawRatio = 0.707F; // of the standard page
constexpr int kThousandths = 1000;
constexpr int kMostCells = 1000000;
constexpr int kHeadCharacters = 5, kColumnCharacters = 10;
constexpr int kLargestPicture = 8192; // pixels a side
constexpr int kColorBytes = 3;

// Parts of the place of a scale: its label, itself, its value.
struct ScaleParts {
  WidgetBox label, bar, value;
};

ScaleParts scaleParts(const WidgetContext* c, const WidgetBox& box) {
  const int line = lineHeight(c);
  const bool shown = c->settings.options.noValue == 0;
  ScaleParts parts = {{box.x, box.y, box.width, line}, {box.x, box.y + line, box.width, box.height - line}, {}};
  if (c->settings.options.scaleUpright) {
    if (shown) parts.bar.height -= line;
    parts.bar.width = std::min(box.width, 2 * line);
    parts.value = {box.x, parts.bar.y + parts.bar.height, box.width, line};
  } else {
    const int width = shown ? std::min(kValueCharacters * c->metrics.characterWidth, box.width / 2) : 0;
    parts.bar.width -= width;
    parts.value = {box.x + parts.bar.width, parts.bar.y, width, parts.bar.height};
  }
  return parts;
}

// The bytes of a picture are numbers of colours; grey without a colour table.
std::vector<unsigned char> colorsOf(const WidgetContext* c, const unsigned char* bytes, int nw, int nh) {
  const int* table = c->state->color.colorTable;
  const bool known = std::any_of(table, table + kColorTableSize, [](int color) { return color != 0; });
  const std::size_t count = static_cast<std::size_t>(nw) * static_cast<std::size_t>(nh);
  std::vector<unsigned char> colors;
  colors.reserve(count * kColorBytes);
  for (std::size_t i = 0; i < count; ++i) {
    const int color = known ? table[bytes[i]] : bytes[i] * 0x010101;
    for (int shift : {16, 8, 0}) colors.push_back(static_cast<unsigned char>(color >> shift));
  }
  return colors;
}

bool isPictureSize(const WidgetContext* c, int nw, int nh) {
  if (nw >= 1 && nh >= 1 && nw <= kLargestPicture && nh <= kLargestPicture) return true;
  widgetFault(c, nw < 1 || nh < 1 ? "Non positive parameter" : "Value is out of range");
  return false;
}

bool isFile(const char* name) {
  std::FILE* file = name ? std::fopen(name, "rb") : nullptr;
  if (file) std::fclose(file);
  return file != nullptr;
}

// The parent that was made last, for scripts, whose call tells none.
int newestParent(const char* routine) {
  const WidgetContext* c = makerCheck(routine);
  if (!c) return 0;
  int id = static_cast<int>(c->records.size());
  while (id > 0 && !isParentKind(c->records[static_cast<std::size_t>(id) - 1].kind)) --id;
  return id;
}

// A label or button with a picture from memory or, if there are no bytes, from a file.
int makePicture(const char* routine, int parent, const char* label, int nw, int nh, const unsigned char* bytes,
                const char* file, WidgetKind kind) {
  if (parent == 0) parent = newestParent(routine);
  WidgetContext* c = makerFor(routine, parent);
  std::string text;
  if (!c || !decodeText(c, label, &text) || !isPictureSize(c, nw, nh)) return kNoWidget;
  if (!bytes && !isFile(file)) {
    widgetFault(c, "Icon file could not be loaded");
    return kNoWidget;
  }
  constexpr int kEdge = 8; // of a button around its picture
  const bool button = kind == kWidgetPush;
  const int id = newChild(c, parent, kind, std::max(nh + (button ? kEdge : 0), lineHeight(c)), text);
  ControlWish wish = controlOf(c, id, button ? ControlShape::kPush : ControlShape::kLabel);
  const std::vector<unsigned char> colors = bytes ? colorsOf(c, bytes, nw, nh) : std::vector<unsigned char>();
  wish.picture = bytes ? colors.data() : nullptr;
  wish.pictureFile = bytes ? nullptr : file;
  wish.pictureWidth = nw;
  wish.pictureHeight = nh;
  wish.takesFocus = button;
  wish.hint = button ? wish.text : nullptr;
  openControl(c, wish);
  return id;
}

int rootOfWidget(WidgetContext* c, int id) {
  while (widgetRecord(c, id)->parent) id = widgetRecord(c, id)->parent;
  return id;
}

int addMenuWidget(WidgetContext* c, int parent, WidgetKind kind, const std::string& text, const unsigned char* bytes,
                  int nw, int nh) {
  const int id = newWidget(c, parent, kind);
  c->records.back().text = text;
  const std::vector<unsigned char> colors = bytes ? colorsOf(c, bytes, nw, nh) : std::vector<unsigned char>();
  if (const WidgetSystem* system = widgetSystem())
    system->addMenu({rootOfWidget(c, id), id, kind == kWidgetItem ? parent : 0, text.c_str(), 0, kind == kWidgetPopup,
                     bytes ? colors.data() : nullptr, nw, nh});
  return id;
}

// The context for an item of a popup, or null after a message.
WidgetContext* itemMaker(const char* routine, int parent) {
  WidgetContext* c = makerCheck(routine);
  if (!c) return nullptr;
  const WidgetRecord* w = widgetRecord(c, parent);
  if (w && w->kind == kWidgetPopup) return reserveWidgets(c, 1) ? c : nullptr;
  widgetFault(c, "Not allowed parent ID");
  return nullptr;
}

int childWidth(WidgetContext* c, int parent) {
  const WidgetRecord& w = *widgetRecord(c, parent);
  return w.layout == kLayoutColumn ? w.place.width : w.layout == kLayoutForm ? c->settings.width : widthWanted(c);
}

std::vector<int> columnPixels(const WidgetContext* c, const CellBlock& block, int width) {
  constexpr float kPercent = 100.0F;
  std::vector<int> pixels = {block.headColumn ? kHeadCharacters * c->metrics.characterWidth : 0};
  for (int i = 0; i < block.columns; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    const float wanted = k < c->settings.columnWidths.size() ? c->settings.columnWidths[k] : 0.0F;
    const float across = wanted > 0.0F   ? wanted * static_cast<float>(c->metrics.characterWidth)
                         : wanted < 0.0F ? -wanted * static_cast<float>(width) / kPercent
                                         : static_cast<float>(kColumnCharacters * c->metrics.characterWidth);
    pixels.push_back(static_cast<int>(across));
  }
  return pixels;
}

std::unique_ptr<CellBlock> makeCells(const WidgetContext* c, int rows, int columns) {
  auto block = std::make_unique<CellBlock>();
  const WidgetSettings& s = c->settings;
  block->rows = rows;
  block->columns = columns;
  block->headRow = s.options.head == 1 || s.options.head == 3;
  block->headColumn = s.options.head == 2 || s.options.head == 3;
  TableCell cell;
  cell.editable = s.options.tableEdit != 0;
  cell.justification = static_cast<unsigned char>(s.justifyTable);
  cell.mask = static_cast<unsigned char>(s.options.verify);
  block->cells.assign(static_cast<std::size_t>(rows + 1) * static_cast<std::size_t>(columns + 1), cell);
  return block;
}

} // namespace

int WGSCL(int parent, const char* label, float low, float high, float value, int decimals) {
  WidgetContext* c = makerFor("wgscl", parent, 3);
  std::string text;
  if (!c || !decodeText(c, label, &text)) return kNoWidget;
  const float step = c->settings.step;
  const double steps = (static_cast<double>(high) - static_cast<double>(low)) / static_cast<double>(step);
  if (!(low < high) || !(value >= low && value <= high) || !(steps < kMostSteps)) {
    widgetFault(c, "Value is out of range");
    return kNoWidget;
  }
  const bool upright = c->settings.options.scaleUpright != 0;
  const int h = upright ? (kUprightScaleLines + 2) * lineHeight(c) : lineHeight(c) + controlHeight(c);
  const ScaleParts parts = scaleParts(c, placeChild(c, parent, h));
  newLabel(c, parent, parts.label, text);
  const int id = newPart(c, parent, upright ? kWidgetUprightScale : kWidgetScale, parts.bar, "");
  WidgetRecord& w = c->records.back();
  w.start = low;
  w.end = high;
  w.step = step;
  w.decimals = decimals;
  w.limit = static_cast<int>(std::floor(steps + 0.5));
  w.value = static_cast<int>((static_cast<double>(value) - static_cast<double>(low)) / static_cast<double>(step) + 0.5);
  w.value = std::min(w.value, w.limit);
  if (c->settings.colors[kColorScroll] != kNoWidgetColor) w.background = c->settings.colors[kColorScroll];
  ControlWish wish = controlOf(c, id, ControlShape::kScale);
  wish.vertical = upright;
  openControl(c, wish);
  if (c->settings.options.noValue) return id;
  const int display = newLabel(c, parent, parts.value, "");
  widgetRecord(c, id)->display = display;
  showNumber(c, id);
  return id;
}

int WGPBAR(int parent, float low, float high, float step) {
  WidgetContext* c = makerFor("wgpbar", parent, 2);
  if (!c) return kNoWidget;
  if (!(low < high) || !(step > 0.0F)) {
    widgetFault(c, "Value is out of range");
    return kNoWidget;
  }
  const WidgetOptions& o = c->settings.options;
  const bool upright = o.progressUpright != 0;
  WidgetBox box = placeChild(c, parent, upright ? kUprightScaleLines * lineHeight(c) : controlHeight(c));
  WidgetBox label = box;
  if (upright) box.width = std::min(box.width, 2 * lineHeight(c));
  if (o.progressLabel) {
    label.width = std::min(kHeadCharacters * c->metrics.characterWidth, box.width / 2);
    if (!upright) box.width -= label.width;
    label.x = box.x + box.width;
  }
  const int id = newPart(c, parent, kWidgetProgress, box, "");
  WidgetRecord& w = c->records.back();
  w.start = w.number = low;
  w.end = high;
  w.step = step;
  if (c->settings.colors[kColorProgress] != kNoWidgetColor) w.foreground = c->settings.colors[kColorProgress];
  ControlWish wish = controlOf(c, id, ControlShape::kProgress);
  wish.range = kThousandths;
  wish.vertical = upright;
  wish.smooth = o.progressSmooth;
  wish.framed = o.progressFrame;
  openControl(c, wish);
  if (!o.progressLabel) return id;
  const int display = newLabel(c, parent, label, "");
  widgetRecord(c, id)->display = display;
  showNumber(c, id);
  return id;
}

int WGFIL(int parent, const char* label, const char* file, const char* mask) {
  WidgetContext* c = makerFor("wgfil", parent, 3);
  std::string text, name;
  if (!c || !decodeText(c, label, &text) || !decodeText(c, file, &name)) return kNoWidget;
  const bool field = c->settings.options.fileField != 0;
  WidgetBox button = placeChild(c, parent, field ? lineHeight(c) + controlHeight(c) : controlHeight(c)), line = button;
  if (field) {
    newLabel(c, parent, {button.x, button.y, button.width, lineHeight(c)}, text);
    button.y += lineHeight(c);
    button.height -= lineHeight(c);
    line = button;
    button.width = std::min(controlHeight(c), button.width);
    line.width -= button.width;
    button.x += line.width;
  }
  const int opener = newPart(c, parent, kWidgetFileButton, button, field ? "..." : text);
  c->records.back().group = opener + 1;
  openControl(c, controlOf(c, opener, ControlShape::kPush));
  const int id = field ? newLine(c, parent, kWidgetFileName, line, name)
                       : newPart(c, parent, kWidgetFileName, {}, firstCharacters(name, kWidgetTextLength));
  WidgetRecord& w = c->records.back();
  w.mask = kMaskNone;
  w.items = {mask ? mask : ""};
  w.limit = c->settings.options.fileSave;
  return id;
}

int WGDRAW(int parent) {
  WidgetContext* c = makerFor("wgdraw", parent);
  if (!c) return kNoWidget;
  const float ratio = c->settings.drawRatio > 0.0F ? c->settings.drawRatio : kDrawRatio;
  const float h = std::min(static_cast<float>(childWidth(c, parent)) * ratio, static_cast<float>(kLargestPicture));
  const int id = newChild(c, parent, kWidgetDraw, static_cast<int>(h + 0.5F), "");
  WidgetBox& place = c->records.back().place;
  const int* margin = c->settings.drawMargin;
  place.x += margin[kAtLeft];
  place.y += margin[kAtTop];
  place.width = std::max(place.width - margin[kAtLeft] - margin[kAtRight], 1);
  place.height = std::max(place.height - margin[kAtTop] - margin[kAtBottom], 1);
  openControl(c, controlOf(c, id, ControlShape::kDraw));
  return id;
}

int WGTBL(int parent, int rows, int columns) {
  WidgetContext* c = makerFor("wgtbl", parent);
  if (!c) return kNoWidget;
  const char* fault = rows < 1 || columns < 1                            ? "Non positive parameter"
                      : rows > kMostCells || columns > kMostCells / rows ? "Not enough memory"
                                                                         : nullptr;
  if (fault) {
    widgetFault(c, fault);
    return kNoWidget;
  }
  auto block = makeCells(c, rows, columns);
  const int lines = std::min(rows, c->settings.tableRows) + (block->headRow ? 1 : 0);
  const int id = newChild(c, parent, kWidgetTable, lines * controlHeight(c) + kListBorder, "");
  ControlWish wish = controlOf(c, id, ControlShape::kTable);
  const std::vector<int> widths = columnPixels(c, *block, wish.place.width);
  wish.rows = rows;
  wish.columns = columns;
  wish.headRow = block->headRow;
  wish.headColumn = block->headColumn;
  wish.rowLines = c->settings.options.border == 1 || c->settings.options.border == 2;
  wish.columnLines = c->settings.options.border == 1 || c->settings.options.border == 3;
  wish.columnWidths = widths;
  openControl(c, wish);
  c->records.back().table = std::move(block);
  if (!widgetSystem()) return id;
  for (int row = 1; row <= rows; ++row)
    for (int column = 1; column <= columns; ++column) showCell(c, id, row, column);
  return id;
}

int WGICON(int parent, const char* label, int nw, int nh, const char* file) {
  return makePicture("wgicon", parent, label, nw, nh, nullptr, file, kWidgetLabel);
}
int WGPICON(int parent, const char* label, int nw, int nh, const char* file) {
  return makePicture("wgpicon", parent, label, nw, nh, nullptr, file, kWidgetPush);
}
int WGIMG(int parent, const char* label, const unsigned char* bytes, int nw, int nh) {
  return makePicture("wgimg", parent, label, nw, nh, bytes, nullptr, kWidgetLabel);
}
int WGPIMG(int parent, const char* label, const unsigned char* bytes, int nw, int nh) {
  return makePicture("wgpimg", parent, label, nw, nh, bytes, nullptr, kWidgetPush);
}

int WGPOP(int parent, const char* label) {
  WidgetContext* c = makerFor("wgpop", parent);
  std::string text;
  if (!c || !decodeText(c, label, &text)) return kNoWidget;
  return addMenuWidget(c, parent, kWidgetPopup, text, nullptr, 0, 0);
}

int WGPOPB(int parent, const unsigned char* bytes, int nw, int nh) {
  WidgetContext* c = makerFor("wgpopb", parent);
  if (!c || !isPictureSize(c, nw, nh)) return kNoWidget;
  return addMenuWidget(c, parent, kWidgetPopup, "", bytes, nw, nh);
}

int WGAPP(int parent, const char* label) {
  WidgetContext* c = itemMaker("wgapp", parent);
  std::string text;
  if (!c || !decodeText(c, label, &text)) return kNoWidget;
  return addMenuWidget(c, parent, kWidgetItem, text, nullptr, 0, 0);
}

int WGAPPB(int parent, const unsigned char* bytes, int nw, int nh) {
  WidgetContext* c = itemMaker("wgappb", parent);
  if (!c || !isPictureSize(c, nw, nh)) return kNoWidget;
  return addMenuWidget(c, parent, kWidgetItem, "", bytes, nw, nh);
}
