// Tokens of a statement.
#pragma once

#include "script/interpreter.h"

namespace qsl {

// Kinds of tokens. Single characters have their own code.
enum TokenKind : int {
  kEnd = -1,
  kIdentifier = 256,
  kIntConstant = 259,
  kFloatConstant = 260,
  kStringConstant = 262,
  kUnaryMinus = 263,
  kUnaryPlus = 264,
  kPower = 265,
  kEqual = 301,
  kNotEqual = 302,
  kGreaterEqual = 303,
  kLessEqual = 304,
  kGreater = 305,
  kLess = 306,
  kAnd = 307,
  kOr = 308,
  kExclusiveOr = 309, // known to the operators; no token produces it
  kErrorToken = 999
};

// Points the tokeniser at a text, which must stay as it is while tokens are read.
void set_token_source(const char* text);

// Reads a token and returns its kind. Names go to interp.token.current.name, constants to its type and value.
int next_token();

// Kind of the last token.
inline int token() { return interp.token.kind; }
inline const char* token_name() { return interp.token.current.name; }

// Next character that is not blank, or 0 at the end, without consuming it.
char peek_character();

// The text behind the last token.
inline const char* rest_of_text() { return interp.token.text + interp.token.position; }

char upper_case(char c);

} // namespace qsl
