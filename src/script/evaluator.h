// Expressions: compiled to operations, which work on the operand stack.
#pragma once

#include "script/expression_code.h"
#include "script/operand_stack.h"
#include "script/tokenizer.h"

namespace qsl {

struct SubscriptList;

inline constexpr int kNothing = -1;

// Clears the stack and evaluates a comma-separated list from the next token on; it ends at ')', ']', ':' or the end
// of the statement. With alias_mode an identifier that stands alone is pushed as an alias. Returns the number of
// operands, or kNothing if there were no more tokens; 0 only after a diagnostic.
int evaluate(bool alias_mode);

// Runs the subscripts of an element assignment. False after a message.
bool run_subscripts(const Code& code, SubscriptList& list);

} // namespace qsl
