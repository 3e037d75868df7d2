// The dialog that chooses a file.
#pragma once

#include "widget/widget_table.h"

namespace quilla {

// mask: as the program gave it; name: in, the file or, with a separator at its end, the folder to begin with; out, the
// chosen file. False: the user has given up, or there is no display.
bool chooseWidgetFile(const WidgetContext* c, const char* title, const char* mask, bool save, std::string* name);

} // namespace quilla
