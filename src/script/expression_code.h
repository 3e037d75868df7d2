// An expression list as operations on the operand stack, in the order in which its text makes them. The text alone
// decides them, so they can be kept and run again; faults of the text are operations that print.
#pragma once

#include "script/variables.h"

namespace qsl {

enum Action : std::uint8_t {
  kPushInt,      // integer
  kPushReal,     // real
  kPushText,     // integer: place among the texts
  kPushVariable, // name, by mode
  kPushName,     // name, as an alias that is not looked at further
  kSelect,       // name[...]: the subscripts up to end; count: their number; complete: nothing is missing
  kLowerBound,   // of a subscript: the expression up to end
  kUpperBound,
  kCloseSubscript, // count: its SubscriptKind
  kRunFunction,    // row; the arguments up to end; complete: the ')' stands
  kLogicalNot,
  kNegate,
  kCombine, // kind of the operator
  kRaise,
  kSay,     // message
  kSayChar, // message and count: the character
  kSayName  // message and name
};

// How a variable is pushed. The first three are those of the function table.
enum PushMode : std::uint8_t {
  kByValue = 0,     // a copy; an unknown name is an error
  kAliasArrays = 1, // an alias of strings and arrays, a copy of others; an unknown name as an alias without target
  kAliasAlways = 2,
  kBorrow = 3 // by value, but an array is not copied: the operation that takes it follows at once
};

struct Operation {
  Action action;
  std::uint8_t mode; // PushMode
  bool complete;
  std::uint8_t count;
  std::int16_t index; // of a name; row; kind of an operator
  std::int16_t end;   // behind the operations that belong to this one
  union {
    std::int32_t integer;
    double real;
    const char* message;
  };
};

struct Code {
  const Operation* operations;
  const KnownName* names;
  const char* texts;
  int count;
  bool alias_mode;
  bool empty; // there was nothing but the end of the statement
  bool clean; // no fault of the text
  // The tokeniser behind the list.
  int end_kind, end_previous;
  int end_position; // relative to where the list began
};

// Compiles the expression list from the next token on, or the subscripts of an element assignment from the token
// behind '['. The tokeniser stands behind it afterwards. Null after a message. The caller frees the code.
Code* compile_list(bool alias_mode);
Code* compile_subscripts(const char* name);
void free_code(Code* code);

// Runs a list; what evaluate() returns.
int run_list(const Code& code);

} // namespace qsl
