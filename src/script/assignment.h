// name = expression, value routine or array literal.
#pragma once

#include "script/variables.h"

namespace qsl {

// text: the whole statement; the tokeniser stands behind the '='.
void run_assignment(const char* text, const char* name);

// The variable takes the first of n operands.
void assign_operand(const KnownName& name, int n);

} // namespace qsl
