// The operators of expressions on the operand stack. All take their operands from the top and leave one.
#pragma once

#include "script/script_value.h"

namespace qsl {

// Unary operators: '!' and the negation.
void logical_not();
void negate_operand();
// Negates in place; false if the type has no negation.
bool negate_value(ScriptValue& v);

// Binary operator by the kind of its token, except the power.
void binary_operation(int kind);
// Its part for operands of which one is an array of numbers.
void array_operation(int kind);
void power_operation();

// The quotient of complex numbers, computed in double precision. The divisor is not zero.
Complex divide_complex(Complex a, Complex b);
inline Complex multiply_complex(Complex a, Complex b) { return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re}; }

// Drops the top entry; the left operand stays.
void drop_top();

} // namespace qsl
