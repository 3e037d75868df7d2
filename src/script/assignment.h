// name = expression, value routine or array literal.
#pragma once

namespace qsl {

// text: the whole statement; the tokeniser stands behind the '='.
void run_assignment(const char* text, const char* name);

} // namespace qsl
