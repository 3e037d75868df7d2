#include "script/script_fixture.h"

using namespace qsl;

namespace {
class Evaluator : public Script {};
} // namespace

TEST_F(Evaluator, IntegersDivideTruncating) {
  EXPECT_EQ(value("1/2"), "0");
  EXPECT_EQ(value("-7/2"), "-3");
  EXPECT_EQ(value("1/2.0"), "0.500000");
  EXPECT_EQ(value("7%3"), "1");
}

TEST_F(Evaluator, PowersKeepTheirTypes) {
  EXPECT_EQ(value("2**3"), "8");
  EXPECT_EQ(type("2**3"), "INT");
  EXPECT_EQ(value("2**-1"), "0");
  EXPECT_EQ(value("2.0**-1"), "0.500000");
  EXPECT_EQ(value("0**0"), "1");
  EXPECT_EQ(value("0.0**0.0"), "1.000000");
  EXPECT_EQ(value("(-2.0)**2"), "4.000000");
  EXPECT_EQ(type("2**2.0"), "DOUBLE");
  EXPECT_EQ(type("2**FLOAT(2)"), "FLOAT");
  EXPECT_EQ(type("FLOAT(2)**2.0"), "FLOAT");
  EXPECT_EQ(type("IALLOC(3)**2.0"), "FLOAT[]");
  EXPECT_EQ(type("DALLOC(3)**2"), "DOUBLE[]");
  EXPECT_EQ(value("3**IALLOC(4)"), "1 3 9 27");
  EXPECT_EQ(value("2**31"), "-2147483648");
  EXPECT_EQ(value("3**2000000000"), value("(3**1000000000)*(3**1000000000)"));
}

TEST_F(Evaluator, PowerFaultsYieldTheBase) {
  EXPECT_EQ(run("X = (-8.0)**(1.0/3.0)\nPRINTL X\n"),
            fault("Negative base with non integer exponent") + "-8.000000 \n");
  EXPECT_EQ(run("X = (-2.0)**2.0\n"), fault("Negative base with non integer exponent"));
  EXPECT_EQ(run("X = 0.0**-1\nPRINTL X\n"), fault("Negative exponent with base zero") + "0.000000 \n");
  EXPECT_EQ(run("X = 'a'**2\n"), fault("Not allowed operands in exponentiation"));
  EXPECT_EQ(run("X = IALLOC(2)**IALLOC(3)\n"), fault("Different dimension in array operands"));
}

TEST_F(Evaluator, Precedence) {
  EXPECT_EQ(value("-2**2"), "-4");
  EXPECT_EQ(value("2**3**2"), "512");
  EXPECT_EQ(value("1+2*3"), "7");
  EXPECT_EQ(value("8/4/2"), "1");
  EXPECT_EQ(value("1 < 2 && 3 > 4"), "0");
  EXPECT_EQ(value("0 && 0 || 1"), "1");
  EXPECT_EQ(value("1 || 0 && 0"), "0"); // one level, from the left
  EXPECT_EQ(value("!1 == 0"), "1");
  EXPECT_EQ(value("(1+2)*3"), "9");
  EXPECT_EQ(value("10-3-2"), "5");
  EXPECT_EQ(value("+-+3"), "-3");
}

TEST_F(Evaluator, Texts) {
  EXPECT_EQ(value("'a' + 'b'"), "ab");
  EXPECT_EQ(value("'abc' < 'abd'"), "1");
  EXPECT_EQ(value("'abc' == \"abc\""), "1");
  EXPECT_EQ(value("'ab' != 'abc'"), "1");
  EXPECT_EQ(run("X = 'a' == 1\nPRINTL 7\n"), fault("Not allowed operands") + "7 \n");
  EXPECT_EQ(run("A = 'x'\nB = -A\n"), fault("Not allowed operands", 3));
  EXPECT_EQ(run("X = 'a' * 'b'\n"), fault("Not allowed operands"));
  EXPECT_EQ(run("CHAR C[2]\nC[0] = 65\nX = C + 'b'\nPRINTL X\n"), "Ab \n");
  EXPECT_EQ(run("CHAR C[1]\nC[0] = 65\nX = C + 'b'\n"), fault("Non terminated character array", 4));
}

TEST_F(Evaluator, NarrowTypesWrap) {
  EXPECT_EQ(value("BYTE(200) + BYTE(100)"), "44");
  EXPECT_EQ(type("BYTE(200) + BYTE(100)"), "BYTE");
  EXPECT_EQ(value("BYTE(1) - BYTE(2)"), "255");
  EXPECT_EQ(value("SHORT(32767) + SHORT(1)"), "-32768");
  EXPECT_EQ(value("2147483647 + 1"), "-2147483648");
  EXPECT_EQ(value("65536 * 65536"), "0");
  EXPECT_EQ(type("BYTE(1) + SHORT(1)"), "SHORT");
  EXPECT_EQ(type("SHORT(1) + 1"), "INT");
  EXPECT_EQ(type("FLOAT(1) + 1"), "FLOAT");
  EXPECT_EQ(type("FLOAT(1) + 1.0"), "DOUBLE");
  EXPECT_EQ(value("BYTE(200) > BYTE(100)"), "1");
}

TEST_F(Evaluator, ComplexNumbers) {
  EXPECT_EQ(value("COMPLEX(1.0,2.0) * COMPLEX(3.0,4.0)"), "-5.000000 10.000000");
  EXPECT_EQ(value("COMPLEX(1.0,2.0) / COMPLEX(3.0,4.0)"), "0.440000 0.080000");
  EXPECT_EQ(value("COMPLEX(1.0,2.0) + 1"), "2.000000 2.000000");
  EXPECT_EQ(value("COMPLEX(1.0,2.0) == COMPLEX(1.0,2.0)"), "1");
  EXPECT_EQ(value("COMPLEX(1.0,2.0) > COMPLEX(0.0,0.0)"), "0");
  EXPECT_EQ(run("X = FLOAT(1) + COMPLEX(1)\n"), fault("Not allowed operands")); // the one pair without a conversion
  EXPECT_EQ(run("X = COMPLEX(1) / COMPLEX(0)\n"), fault("Divide by zero"));
}

TEST_F(Evaluator, DivisionByZeroKeepsTheLeftOperand) {
  EXPECT_EQ(run("A = 5\nX = A / 0\nPRINTL X\n"), fault("Divide by zero", 3) + "5 \n");
  EXPECT_EQ(run("X = 5.0 / 0.0\nPRINTL X\n"), fault("Divide by zero") + "5.000000 \n");
  EXPECT_EQ(run("X = 2.0 % 1\nPRINTL X\n"), fault("Modulo operands must be of type integer") + "2.000000 \n");
  EXPECT_EQ(run("X = 2.0 && 1\nPRINTL X\n"), fault("AND operands must be of type INT") + "2.000000 \n");
  EXPECT_EQ(run("X = 2.0 || 1\n"), fault("AND operands must be of type INT"));
  EXPECT_EQ(run("X = !2.0\n"), fault("NOT operand must be of type integer"));
}

TEST_F(Evaluator, IntegerFaultsEndTheProcess) {
  EXPECT_EXIT(runUntilFault("A = 5\nX = A % 0\n"), testing::KilledBySignal(SIGFPE), "");
  EXPECT_EXIT(runUntilFault("A = -2147483647 - 1\nX = A / -1\n"), testing::KilledBySignal(SIGFPE), "");
  EXPECT_EXIT(runUntilFault("A = -2147483647 - 1\nX = A % -1\n"), testing::KilledBySignal(SIGFPE), "");
}

TEST_F(Evaluator, UndefinedNamesAreToldAndTheRestGoesOn) {
  EXPECT_EQ(run("X = Y\nPRINTL 1\n"), fault("Undefined identifier Y") + "1 \n");
  EXPECT_EQ(run("X = Y + 1\nPRINTL X\n"), fault("Undefined identifier Y") + fault("Too few stack elements") + "1 \n");
  EXPECT_EQ(run("X = 1\nX = NONE\nPRINTL X\n"), fault("Undefined identifier NONE", 3) + "1 \n");
  EXPECT_EQ(run("X = Y[3]\n"), fault("Undefined identifier Y"));
}

TEST_F(Evaluator, SyntaxFaults) {
  EXPECT_EQ(run("X = )\n"), fault("Missing '(' or ')'"));
  EXPECT_EQ(run("X = [(1]\n"), fault("Missing '(' or ')'"));
  EXPECT_EQ(run("X = SIN 3\n"), fault("Syntax error - Expected '('") + fault("Syntax error - Expected end of line"));
  EXPECT_EQ(run("X = 1 2\nPRINTL X\n"), fault("Syntax error - Expected end of line") + "1 \n");
  EXPECT_EQ(run("X = 1.2.3\nPRINTL 1\n"), fault("Syntax error") + "1 \n");
  EXPECT_EQ(run("X = 1 ? 2\nPRINTL 1\n"), fault("Syntax error") + "1 \n");
  EXPECT_EQ(run("X =\nPRINTL 1\n"), "1 \n");
}

TEST_F(Evaluator, AssignmentTakesTheTypeOfTheValue) {
  EXPECT_EQ(run("X = 5\nX = 'text'\nLIST X\n"), " Name : X       , Type : STRING  , Count: 4, Value: text\n");
  EXPECT_EQ(run("X = 1, 2, 3\nPRINTL X\n"), "1 \n");
  EXPECT_EQ(run("FOPEN = 1\n"), fault("Reserved identifier FOPEN"));
  EXPECT_EQ(run("%FOO = 1\n"), fault("Undefined system variable %FOO"));
  EXPECT_EQ(run("PLOT = 3\nPRINTL PLOT\n"), "3 \n");
}

TEST_F(Evaluator, ArraysWithScalars) {
  EXPECT_EQ(value("IALLOC(3) + 1"), "1 2 3");
  EXPECT_EQ(value("1 - IALLOC(3)"), "1 0 -1");
  EXPECT_EQ(value("IALLOC(3) * 0.5"), "0.000000 0.500000 1.000000");
  EXPECT_EQ(type("IALLOC(3) * 0.5"), "FLOAT[]");
  EXPECT_EQ(value("FALLOC(3) / 2"), "0.000000 0.500000 1.000000");
  EXPECT_EQ(value("6 / (IALLOC(3) + 1)"), "6 3 2");
  EXPECT_EQ(value("BYTE(IALLOC(2)) + 255"), "255 0");
  EXPECT_EQ(type("COMPLEX(IALLOC(2)) * 2.0"), "COMPLEX[]");
  EXPECT_EQ(run("X = BYTE(IALLOC(2)) + 1.5\n"), fault("Illegal Operands"));
  EXPECT_EQ(run("X = IALLOC(2) + 'a'\n"), fault("Illegal Operands"));
  EXPECT_EQ(run("X = IALLOC(2) == 1\n"), fault("Not allowed array operand '='"));
  EXPECT_EQ(run("X = IALLOC(2) % 2\n"), fault("Not allowed array operand '%'"));
}

// A DOUBLE on the left of an INT array multiplies as it divides.
TEST_F(Evaluator, ScalarTimesIntArrayDivides) {
  EXPECT_EQ(value("6.0 * (IALLOC(3) + 1)"), "6.000000 3.000000 2.000000");
  EXPECT_EQ(run("X = 6.0 * IALLOC(2)\n"), fault("Divide by zero"));
  EXPECT_EQ(value("(IALLOC(3) + 1) * 6.0"), "6.000000 12.000000 18.000000");
  EXPECT_EQ(value("2.0 * FALLOC(3)"), "0.000000 2.000000 4.000000");
}

TEST_F(Evaluator, ZeroElementsStopADivision) {
  EXPECT_EQ(run("A = {2, 0, 4}\nX = 8 / A\nPRINTL X\n"), fault("Divide by zero", 3) + "4 0 4 \n");
  EXPECT_EQ(run("X = IALLOC(2) / 0\nPRINTL X\n"), fault("Divide by zero") + "0 1 \n");
}

TEST_F(Evaluator, ArraysWithArrays) {
  EXPECT_EQ(value("IALLOC(3) + FALLOC(3)"), "0.000000 2.000000 4.000000");
  EXPECT_EQ(type("BYTE(IALLOC(3)) + DALLOC(3)"), "DOUBLE[]");
  EXPECT_EQ(value("IALLOC(3) - IALLOC(3)"), "0 0 0");
  EXPECT_EQ(run("X = IALLOC(2) + IALLOC(3)\nPRINTL X\n"), fault("Different dimension in array operands") + "0 1 \n");
  EXPECT_EQ(run("CHAR C[2]\nX = IALLOC(2) + C\n"), fault("Not allowed operands", 3));
}

TEST_F(Evaluator, OperandsOverTheLimit) {
  std::string list = "1";
  for (int i = 1; i < 50; ++i) list += ",1";
  EXPECT_EQ(run("X = " + list + "\nPRINTL X\n"), "1 \n");
  EXPECT_EQ(run("X = " + list + ",1\nPRINTL 2\n"), fault("Maximal number of operands is reached") + "2 \n");
}

TEST_F(Evaluator, AliasArgumentsWorkInExpressions) {
  EXPECT_EQ(run("A = {1, 2}\nX = FLOAT(A * 2)\nPRINTL X\n"), "2.000000 4.000000 \n");
  EXPECT_EQ(run("S = 'ab'\nX = STRLEN(S + S)\nPRINTL X\n"), "4 \n");
  EXPECT_EQ(run("X = VARDEF(NOTHING)\nPRINTL X\n"), "0 \n");
  EXPECT_EQ(run("X = INT(NOTHING)\n"), fault("Undefined identifier NOTHING"));
}
