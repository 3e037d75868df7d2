// What the user does, in the records and as calls of the program's routines.
#pragma once

#include "widget/widget_table.h"

namespace quilla {

void handleWidgetEvent(WidgetContext* c, const WidgetEvent& event);

// Position of a scale after an action of its bar; thumb: where the user has put it.
int scrolledPosition(int action, int position, int range, int thumb);

// Calls the routines of a widget; row and column for the third form.
void callWidgetRoutines(WidgetContext* c, int id, int row, int column);

// Takes over what was typed into a line, or restores it after a message.
void commitText(WidgetContext* c, int id);

// OK of the dialog with this root: texts are taken over, the dialog ends, the program goes on.
void pressOk(WidgetContext* c, int root);

// Waits until the dialog at this depth has ended. False: a routine of the program has taken away the table.
bool waitForDialog(WidgetContext* c, int depth);
// Handles what has happened, without waiting.
void handlePendingEvents(WidgetContext* c);

} // namespace quilla
