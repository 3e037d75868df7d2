#include "platform/fltk/widget_parts.h"

#include <FL/Fl_Box.H>
#include <FL/Fl_Button.H>
#include <FL/Fl_Return_Button.H>
#include <FL/fl_draw.H>

#include <algorithm>

namespace quilla::fltk {

namespace {

constexpr int kThousandths = 1000;
constexpr int kRowHeight = 24, kDefaultColumn = 80;
constexpr int kBlock = 10, kBlockGap = 2; // of a gauge that is not smooth
enum LineStyle : int { kLineStandard, kLineSingle, kLineDouble, kLineDashed, kLineDoubleDashed };

Fl_Align alignmentOf(int justification) {
  return justification == kJustifyRight    ? FL_ALIGN_RIGHT
         : justification == kJustifyCenter ? FL_ALIGN_CENTER
                                           : FL_ALIGN_LEFT;
}

} // namespace

DialogFont& dialogFont() {
  static DialogFont font;
  return font;
}

ScaleBar::ScaleBar(int widget, const WidgetBox& b, int range, bool vertical)
    : Fl_Slider(b.x, b.y, b.width, b.height), number(widget) {
  type(static_cast<uchar>(vertical ? FL_VERT_NICE_SLIDER : FL_HOR_NICE_SLIDER));
  box(FL_FLAT_BOX);
  // The lower end of a vertical scale is its start.
  if (vertical) {
    bounds(range, 0);
  } else {
    bounds(0, range);
  }
  step(1);
  when(FL_WHEN_CHANGED);
  callback([](Fl_Widget* self, void*) { static_cast<ScaleBar*>(self)->tell(kScrollTrack); });
}

void ScaleBar::tell(ScrollAction action) {
  putWidgetEvent(
      {.kind = WidgetEventKind::kScroll, .widget = number, .value = action, .place = static_cast<int>(value())});
}

int ScaleBar::handle(int event) {
  if (event == FL_MOUSEWHEEL) {
    tell(Fl::event_dy() < 0 ? kScrollLineUp : kScrollLineDown);
    return 1;
  }
  const int used = Fl_Slider::handle(event);
  if (event == FL_RELEASE) {
    tell(kScrollThumb);
    tell(kScrollEnd);
  }
  return used;
}

Gauge::Gauge(const WidgetBox& b, bool isVertical, bool isSmooth)
    : Fl_Widget(b.x, b.y, b.width, b.height), vertical(isVertical), smooth(isSmooth) {
  selection_color(FL_DARK_BLUE);
  color(FL_BACKGROUND2_COLOR);
}

void Gauge::draw() {
  draw_box();
  const int left = x() + Fl::box_dx(box()) + 1, top = y() + Fl::box_dy(box()) + 1;
  const int width = w() - Fl::box_dw(box()) - 2, height = h() - Fl::box_dh(box()) - 2;
  const int length = vertical ? height : width, filled = length * part / kThousandths;
  fl_color(active_r() ? selection_color() : fl_inactive(selection_color()));
  const int block = smooth ? std::max(filled, 1) : kBlock;
  for (int at = 0; at < filled; at += block + (smooth ? 0 : kBlockGap)) {
    const int size = std::min(block, filled - at);
    if (vertical) {
      fl_rectf(left, top + height - at - size, width, size);
    } else {
      fl_rectf(left + at, top, size, height);
    }
  }
}

Rule::Rule(const WidgetBox& b, int lineStyle, bool isVertical)
    : Fl_Widget(b.x, b.y, b.width, b.height), style(lineStyle), vertical(isVertical) {}

void Rule::draw() {
  const auto line = [this](int shift, Fl_Color color, int pattern) {
    fl_color(color);
    fl_line_style(pattern);
    if (vertical) {
      fl_line(x() + w() / 2 + shift, y(), x() + w() / 2 + shift, y() + h() - 1);
    } else {
      fl_line(x(), y() + h() / 2 + shift, x() + w() - 1, y() + h() / 2 + shift);
    }
    fl_line_style(FL_SOLID);
  };
  const int pattern = style == kLineDashed || style == kLineDoubleDashed ? FL_DASH : FL_SOLID;
  switch (style) {
  case kLineStandard:
    line(0, fl_darker(FL_BACKGROUND_COLOR), pattern);
    line(1, FL_LIGHT3, pattern);
    break;
  case kLineDouble:
  case kLineDoubleDashed:
    line(-1, FL_FOREGROUND_COLOR, pattern);
    line(1, FL_FOREGROUND_COLOR, pattern);
    break;
  default: line(0, FL_FOREGROUND_COLOR, pattern);
  }
}

DrawArea::DrawArea(int widget, const WidgetBox& b) : Fl_Window(b.x, b.y, b.width, b.height), number(widget) {
  box(FL_THIN_DOWN_BOX);
  color(FL_WHITE);
  end();
}

void DrawArea::release() {
  while (children() > 0) {
    child(0)->hide();
    remove(child(0));
  }
}

int DrawArea::handle(int event) {
  if (event != FL_PUSH) return Fl_Window::handle(event);
  Fl_Window::handle(event); // a plot takes what a cursor routine waits for
  putWidgetEvent(
      {.kind = WidgetEventKind::kMouse, .widget = number, .value = Fl::event_button() == FL_LEFT_MOUSE ? 1 : 2});
  return 1;
}

Sheet::Sheet(const ControlWish& wish)
    : Fl_Table(wish.place.x, wish.place.y, wish.place.width, wish.place.height), number(wish.widget),
      rowLines(wish.rowLines), columnLines(wish.columnLines) {
  rows(wish.rows);
  cols(wish.columns);
  cells.resize(static_cast<std::size_t>(wish.rows + 1) * static_cast<std::size_t>(wish.columns + 1));
  row_header(wish.headColumn);
  col_header(wish.headRow);
  const int rowHeight = std::max(kRowHeight, dialogFont().size * 3 / 2);
  row_height_all(rowHeight);
  col_header_height(rowHeight);
  col_resize(1);
  for (int i = 0; i <= wish.columns; ++i) {
    const std::size_t k = static_cast<std::size_t>(i);
    const int width = k < wish.columnWidths.size() ? std::max(wish.columnWidths[k], 1) : kDefaultColumn;
    if (i == 0) {
      row_header_width(width);
    } else {
      col_width(i - 1, width);
    }
  }
  editor = new Fl_Input(0, 0, 0, 0);
  editor->hide();
  editor->box(FL_BORDER_BOX);
  editor->when(FL_WHEN_ENTER_KEY_ALWAYS);
  editor->callback([](Fl_Widget*, void* self) { static_cast<Sheet*>(self)->finishEditing(); }, this);
  end();
  color(FL_BACKGROUND2_COLOR);
  when(FL_WHEN_RELEASE);
  callback([](Fl_Widget* self, void*) {
    auto* sheet = static_cast<Sheet*>(self);
    sheet->finishEditing();
    if (sheet->callback_context() == CONTEXT_CELL)
      sheet->startEditing(sheet->callback_row() + 1, sheet->callback_col() + 1);
  });
}

void Sheet::startEditing(int row, int column) {
  if (row < 1 || column < 1 || row > rows() || column > cols() || !cell(row, column).style.editable) return;
  editRow = row;
  editColumn = column;
  int x1 = 0, y1 = 0, w1 = 0, h1 = 0;
  find_cell(CONTEXT_CELL, row - 1, column - 1, x1, y1, w1, h1);
  editor->resize(x1, y1, w1, h1);
  editor->textfont(dialogFont().face);
  editor->textsize(dialogFont().size);
  editor->value(cell(row, column).text.c_str());
  editor->position(0, editor->size());
  editor->show();
  editor->take_focus();
}

void Sheet::finishEditing() {
  if (!editRow) return;
  const int row = editRow, column = editColumn;
  editRow = 0;
  editor->hide();
  if (cell(row, column).text != editor->value())
    putWidgetEvent(
        {.kind = WidgetEventKind::kCell, .widget = number, .row = row, .column = column, .text = editor->value()});
  redraw();
}

int Sheet::handle(int event) {
  const int used = Fl_Table::handle(event);
  if (editRow && event == FL_UNFOCUS && Fl::focus() != editor) finishEditing();
  return used;
}

void Sheet::draw_cell(TableContext context, int row, int column, int x, int y, int w, int h) {
  const bool head = context == CONTEXT_ROW_HEADER || context == CONTEXT_COL_HEADER;
  if (!head && context != CONTEXT_CELL) return;
  const Cell& shown = cell(context == CONTEXT_COL_HEADER ? 0 : row + 1, context == CONTEXT_ROW_HEADER ? 0 : column + 1);
  if (!head && row + 1 == editRow && column + 1 == editColumn) return;
  fl_push_clip(x, y, w, h);
  if (head) {
    fl_draw_box(FL_THIN_UP_BOX, x, y, w, h, FL_BACKGROUND_COLOR);
  } else {
    fl_color(color());
    fl_rectf(x, y, w, h);
    fl_color(FL_LIGHT1);
    if (rowLines) fl_line(x, y + h - 1, x + w - 1, y + h - 1);
    if (columnLines) fl_line(x + w - 1, y, x + w - 1, y + h - 1);
  }
  constexpr int kMargin = 4;
  fl_font(dialogFont().face, dialogFont().size);
  fl_color(active_r() ? labelcolor() : fl_inactive(labelcolor()));
  const Fl_Align place = head ? FL_ALIGN_CENTER : alignmentOf(shown.style.justification);
  fl_draw(shown.text.c_str(), x + kMargin, y, w - 2 * kMargin, h, place, nullptr, 0);
  fl_pop_clip();
}

bool askYesNo(const char* title, const char* text, bool yesFirst) {
  constexpr int kWidth = 380, kHeight = 130, kButton = 90, kGap = 15, kLine = 28;
  Fl_Window window((Fl::w() - kWidth) / 2, (Fl::h() - kHeight) / 3, kWidth, kHeight, title);
  Fl_Box label(kGap, kGap, kWidth - 2 * kGap, kHeight - kLine - 3 * kGap);
  label.copy_label(text);
  label.align(FL_ALIGN_INSIDE | FL_ALIGN_WRAP | FL_ALIGN_LEFT);
  int answer = -1;
  struct Answer {
    int* place;
    int value;
    Fl_Window* window;
  } yes{&answer, 1, &window}, no{&answer, 0, &window};
  const int y = kHeight - kLine - kGap, right = kWidth - kGap - kButton;
  const auto make = [&](int x, const char* name, bool first, Answer* data) {
    Fl_Button* button =
        first ? new Fl_Return_Button(x, y, kButton, kLine, name) : new Fl_Button(x, y, kButton, kLine, name);
    button->callback(
        [](Fl_Widget*, void* a) {
          auto* chosen = static_cast<Answer*>(a);
          *chosen->place = chosen->value;
          chosen->window->hide();
        },
        data);
    return button;
  };
  Fl_Button* yesButton = make(right - kButton - kGap, "&Yes", yesFirst, &yes);
  Fl_Button* noButton = make(right, "&No", !yesFirst, &no);
  window.end();
  window.set_modal();
  window.show();
  (yesFirst ? yesButton : noButton)->take_focus();
  while (window.shown()) Fl::wait();
  return answer == 1;
}

} // namespace quilla::fltk
