// Selections of array elements: parsing, checking, and walking over the selected elements.
#pragma once

#include "script/interpreter.h"

namespace qsl {

enum SubscriptKind : std::int8_t { kWholeExtent = 2, kRange = 3, kOpenRange = 4, kIndex = 8 };

struct SubscriptList {
  SubscriptKind kinds[kSubscripts];
  int number;         // of subscripts
  std::int32_t count; // selected elements
  std::int32_t lower[kSubscripts], upper[kSubscripts];
};

// Checks a selection against a variable and fills bounds and count. False after a message.
bool check_selection(const ScriptValue& v, const char* name, SubscriptList& list);

// Checks a selection and pushes the selected elements of a variable.
void push_selection(int index, const char* name, SubscriptList& list);

// Steps through the flat indices of a checked selection in row-major order.
struct SelectionWalk {
  const SubscriptList* list;
  std::int64_t stride[kSubscripts];
  std::int32_t at[kSubscripts];
  std::int64_t flat;
};
SelectionWalk begin_walk(const ScriptValue& v, const SubscriptList& list);
void step(SelectionWalk& walk);

} // namespace qsl
