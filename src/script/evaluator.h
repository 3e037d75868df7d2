// Expressions: a recursive descent over the tokens that works on the operand stack at once.
#pragma once

#include "script/operand_stack.h"
#include "script/tokenizer.h"

namespace qsl {

// How an identifier is pushed as an argument of a built-in function.
enum ArgumentMode : int {
  kByValue = 0,     // a copy; an unknown name is an error
  kAliasArrays = 1, // an alias of strings and arrays, a copy of others; an unknown name as an alias without target
  kAliasAlways = 2
};

inline constexpr int kNothing = -1;

// Clears the stack and evaluates a comma-separated list from the next token on; it ends at ')', ']', ':' or the end
// of the statement. With alias_mode an identifier that stands alone is pushed as an alias. Returns the number of
// operands, or kNothing if there were no more tokens; 0 only after a diagnostic.
int evaluate(bool alias_mode);

// One expression from the current token on, its value on top of the stack.
void parse_expression();

// The current token must be this character; reads the next one. Else "Syntax error - Expected" and the character.
bool expect(char character);

} // namespace qsl
