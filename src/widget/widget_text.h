// Texts of widgets: their codings, and the masks that tell what may stand in a line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "widget/widget_table.h"

namespace quilla {

// A text of the program in UTF-8. False after "Syntax error in UTF string".
bool decodeWidgetText(const WidgetContext* c, int coding, const char* text, std::string* decoded);
// Back to the coding of a widget; signs that it lacks become question marks.
std::string encodeWidgetText(int coding, std::string_view text);
// The first so many characters of UTF-8.
std::string firstCharacters(std::string_view text, int count);

// Whether each character of a text in UTF-8 is one of the mask's.
bool fitsMask(int mask, std::string_view text);

// The items of a list, with the separator of SWGMIX; none of an empty text.
std::vector<std::string> itemsOf(const WidgetContext* c, std::string_view list);

} // namespace quilla
