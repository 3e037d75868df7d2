// PRINT and PRINTL: the tokeniser stands behind the keyword.
#pragma once

namespace qsl {

void run_print();
void run_print_line();

} // namespace qsl
