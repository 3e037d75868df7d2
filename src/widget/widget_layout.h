// Where widgets stand: computed as each is made, and never moved afterwards.
#pragma once

#include "widget/widget_table.h"

namespace quilla {

// Width of a child of a row: characters, or percent of the screen (SWGWTH).
int widthWanted(const WidgetContext* c);

// Place and pen of a new root, and of a new parent inside of one, by the settings in force.
void placeRoot(WidgetContext* c, int id, int outer);
void placeBase(WidgetContext* c, int id);

// Place of a new child of height h, not yet in the table. Moves the pen of the parent and lets it grow.
WidgetBox placeChild(WidgetContext* c, int parent, int h);

// Size and place of a root whose size grew with its children, before it is shown.
void finishRoot(WidgetContext* c, int id);

} // namespace quilla
