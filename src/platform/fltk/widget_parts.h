// Controls of dialogs on FLTK that its own widgets do not give: each tells what the user does with it.
#pragma once

#include <FL/Fl.H>
#include <FL/Fl_Group.H>
#include <FL/Fl_Input.H>
#include <FL/Fl_Multiline_Input.H>
#include <FL/Fl_Slider.H>
#include <FL/Fl_Table.H>
#include <FL/Fl_Window.H>

#include <string>
#include <vector>

#include "platform/widget_system.h"

namespace quilla::fltk {

// Appends to what nextEvent gives out.
void putWidgetEvent(WidgetEvent event);

// Font of what is made next.
struct DialogFont {
  Fl_Font face = FL_HELVETICA;
  Fl_Fontsize size = 14;
};
DialogFont& dialogFont();

// A line or lines of text.
template <typename Input> struct TextField : Input {
  int number;
  TextField(int widget, const WidgetBox& b) : Input(b.x, b.y, b.width, b.height), number(widget) {
    this->when(FL_WHEN_CHANGED | FL_WHEN_ENTER_KEY_ALWAYS);
    this->callback(changed);
  }
  static void changed(Fl_Widget* widget, void*) {
    auto* field = static_cast<TextField*>(widget);
    const bool key = Fl::event() == FL_KEYBOARD && (Fl::event_key() == FL_Enter || Fl::event_key() == FL_KP_Enter);
    putWidgetEvent({.kind = WidgetEventKind::kText, .widget = field->number, .text = field->value()});
    if (key) putWidgetEvent({.kind = WidgetEventKind::kReturn, .widget = field->number});
  }
  int handle(int event) override {
    if (event == FL_UNFOCUS) putWidgetEvent({.kind = WidgetEventKind::kLeave, .widget = number});
    return Input::handle(event);
  }
};

// A scale of whole positions.
struct ScaleBar : Fl_Slider {
  int number;
  ScaleBar(int widget, const WidgetBox& place, int range, bool vertical);
  void tell(ScrollAction action);
  int handle(int event) override;
};

// How far something has come, in thousandths.
struct Gauge : Fl_Widget {
  int part = 0;
  bool vertical, smooth;
  Gauge(const WidgetBox& place, bool isVertical, bool isSmooth);
  void draw() override;
};

// A line between widgets, in the styles of WidgetLine.
struct Rule : Fl_Widget {
  int style;
  bool vertical;
  Rule(const WidgetBox& place, int lineStyle, bool isVertical);
  void draw() override;
};

// A window for drawing.
struct DrawArea : Fl_Window {
  int number;
  DrawArea(int widget, const WidgetBox& place);
  void release(); // the plots that it holds, before its end: they belong to others
  int handle(int event) override;
};

// A table of texts; one cell at a time can be edited.
struct Sheet : Fl_Table {
  struct Cell {
    std::string text;
    CellStyle style = {false, kJustifyLeft};
  };
  int number;
  std::vector<Cell> cells; // row by row, row 0 and column 0 of the head
  int editRow = 0, editColumn = 0;
  bool rowLines, columnLines;
  Fl_Input* editor;

  explicit Sheet(const ControlWish& wish);
  Cell& cell(int row, int column) { return cells[static_cast<std::size_t>(row * (cols() + 1) + column)]; }
  void startEditing(int row, int column);
  void finishEditing();
  void draw_cell(TableContext context, int row, int column, int x, int y, int w, int h) override;
  int handle(int event) override;
};

// A question with two answers. True for yes.
bool askYesNo(const char* title, const char* text, bool yesFirst);

} // namespace quilla::fltk
