// Declarations, array literals, element assignment and FREE.
#pragma once

#include "script/expression_code.h"

namespace qsl {

// TYPE name[extents], name[extents], ...: the tokeniser stands behind the keyword.
void declare_arrays(Tag element);

// name = { constants }: the tokeniser stands behind the brace.
void assign_array_literal(const char* name);

// name[subscripts] = expression: the tokeniser stands behind the bracket.
void assign_elements(const char* name);

// The same with subscripts and expression compiled.
void assign_selected(const KnownName& name, const Code& subscripts, const Code& expression);

// FREE name, name, ...
void free_names();

} // namespace qsl
