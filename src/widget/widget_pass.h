// Dialogs from their root to their end.
#pragma once

#include "widget/widget_table.h"

namespace quilla {

// A root one depth below the dialog that is open, or the first one; its id, or kNoWidget after a message.
int beginDialog(WidgetContext* c, int layout);
// Shows the dialog.
void showDialog(WidgetContext* c);
// Takes the dialog from the screen; the one around it is current again.
void endDialog(WidgetContext* c);
// Tells once that there is no display.
void tellMissingDisplay(WidgetContext* c);

} // namespace quilla
