// Showing records with the toolkit. Without one all this does nothing.
#pragma once

#include "widget/widget_table.h"

namespace quilla {

// What is common to all controls: number, frame, place, text, value, colours.
ControlWish controlOf(WidgetContext* c, int id, ControlShape shape);
// False after a message: a picture cannot be loaded.
bool openControl(WidgetContext* c, const ControlWish& wish);

void showText(WidgetContext* c, int id);
void showValue(WidgetContext* c, int id);
// The rows of a box as its value tells.
void showRows(WidgetContext* c, int box);
void showState(WidgetContext* c, int id);
void showColors(WidgetContext* c, int id);
void showCell(WidgetContext* c, int id, int row, int column);

// Value of a scale or progress bar, as its label shows it; the label follows.
float scaleValue(const WidgetRecord& w);
void showNumber(WidgetContext* c, int id);
// A number that the user has written, within the range of a float.
float floatOf(double value);
// A number with so many decimals, -1 for an integer.
std::string numberText(float value, int decimals);

} // namespace quilla
