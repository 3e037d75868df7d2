#include <cstdlib>
#include <fstream>

#include "script/script_fixture.h"

using namespace qsl;

namespace {
class Functions : public Script {};

std::string overflow(const char* name) { return fault(std::string("Overflow in routine ") + name); }
} // namespace

TEST_F(Functions, Conversions) {
  EXPECT_EQ(value("INT(3.9)"), "3");
  EXPECT_EQ(value("INT(-3.9)"), "-3");
  EXPECT_EQ(run("X = INT(1e10)\nPRINTL 1\n"), overflow("INT") + "1 \n");
  EXPECT_EQ(value("INT(2147483647.0)"), "2147483647");
  EXPECT_EQ(run("X = INT(2147483647.5)\n"), overflow("INT"));
  EXPECT_EQ(value("INT(-2147483648.0)"), "-2147483648");
  EXPECT_EQ(run("X = FLOAT(3.5e38)\n"), overflow("FLOAT"));
  EXPECT_EQ(value("SHORT(32767)"), "32767");
  EXPECT_EQ(run("X = SHORT(32768)\n"), overflow("SHORT"));
  EXPECT_EQ(value("BYTE(255)"), "255");
  EXPECT_EQ(run("X = BYTE(256)\n"), overflow("BYTE"));
  EXPECT_EQ(run("X = BYTE(-1)\n"), overflow("BYTE"));
  EXPECT_EQ(type("CHAR(65)"), "CHAR");
  EXPECT_EQ(run("X = CHAR(128)\n"), overflow("CHAR"));
  EXPECT_EQ(value("STRING(65)"), "A");
  EXPECT_EQ(run("X = STRING(200)\n"), overflow("STRING"));
  EXPECT_EQ(value("INT('A')"), "65");
  EXPECT_EQ(value("INT('abc')"), "97 98 99");
  EXPECT_EQ(type("DOUBLE('abc')"), "DOUBLE[]");
  EXPECT_EQ(value("STRING(INT('abc'))"), "abc");
  EXPECT_EQ(value("STRING('abc')"), "abc");
  EXPECT_EQ(value("INT(COMPLEX(2.5,9.0))"), "2");
  EXPECT_EQ(type("INT(5)"), "INT");
}

TEST_F(Functions, ConversionsOfArraysKeepShapeAndVariable) {
  EXPECT_EQ(run("INT A[2,2]\nA[*,*] = 3\nB = FLOAT(A)\nLIST A B\n"),
            " Name : A       , Type : INT     , Count: 4, Dim: [2,2]\n"
            " Name : B       , Type : FLOAT   , Count: 4, Dim: [2,2]\n");
  EXPECT_EQ(run("A = {1,2}\nB = INT(A)\nB[0] = 9\nPRINTL A, B\n"), "1 2 9 2 \n");
  EXPECT_EQ(run("A = {1, 300, 3}\nB = BYTE(A)\nPRINTL B\n"), fault("Overflow in routine BYTE", 3) + "1 0 3 \n");
}

TEST_F(Functions, ComplexOfParts) {
  EXPECT_EQ(value("COMPLEX(2)"), "2.000000 0.000000");
  EXPECT_EQ(value("COMPLEX(2,3)"), "2.000000 3.000000");
  EXPECT_EQ(value("COMPLEX(IALLOC(2),IALLOC(2))"), "0.000000 0.000000 1.000000 1.000000");
  EXPECT_EQ(run("X = COMPLEX(1, 2.0)\n"), fault("Parameters in COMPLEX must have identical types"));
  EXPECT_EQ(run("X = COMPLEX(1,2,3)\n"), fault("Bad number of parameters in COMPLEX"));
  EXPECT_EQ(run("X = COMPLEX()\n"), fault("Bad number of parameters in COMPLEX"));
  EXPECT_EQ(run("X = COMPLEX(1e39)\n"), overflow("COMPLEX"));
  EXPECT_EQ(run("X = COMPLEX(1e39, 1.0)\n"), fault("Overflow in parameter 1 of routine COMPLEX"));
  EXPECT_EQ(run("X = COMPLEX(1.0, 1e39)\n"), fault("Overflow in parameter 2 of routine COMPLEX"));
}

TEST_F(Functions, PartsOfComplexNumbers) {
  EXPECT_EQ(value("ABS(COMPLEX(3.0,4.0))"), "5.000000");
  EXPECT_EQ(value("ARG(COMPLEX(0.0,1.0))"), "1.570796");
  EXPECT_EQ(value("ARG(COMPLEX(-1.0,0.0))"), "3.141593");
  EXPECT_EQ(value("ARG(COMPLEX(0.0,0.0))"), "0.000000");
  EXPECT_EQ(value("IMAG(COMPLEX(3.0,4.0))"), "4.000000");
  EXPECT_EQ(type("IMAG(COMPLEX(3.0,4.0))"), "FLOAT");
  EXPECT_EQ(type("ARG(COMPLEX(IALLOC(2)))"), "DOUBLE[]");
  EXPECT_EQ(value("CONJG(COMPLEX(3.0,4.0))"), "3.000000 -4.000000");
  EXPECT_EQ(run("X = IMAG(1)\n"), fault("Parameter in IMAG must be of type COMPLEX"));
  EXPECT_EQ(run("X = ARG(1)\n"), fault("Parameter in ARG must be of type COMPLEX"));
  EXPECT_EQ(run("X = CONJG(1)\n"), fault("Parameter in CONJG must be of type COMPLEX"));
}

TEST_F(Functions, Magnitudes) {
  EXPECT_EQ(value("ABS(-5)"), "5");
  EXPECT_EQ(value("ABS(-2.5)"), "2.500000");
  EXPECT_EQ(type("ABS(FLOAT(-1))"), "FLOAT");
  EXPECT_EQ(value("ABS(0 - IALLOC(3))"), "0 1 2");
  EXPECT_EQ(run("X = ABS('a')\n"), fault("Not allowed parameter in ABS"));
}

TEST_F(Functions, Mathematics) {
  EXPECT_EQ(value("SIN(0)"), "0.000000");
  EXPECT_EQ(type("SIN(1)"), "DOUBLE");
  EXPECT_EQ(type("SIN(IALLOC(2))"), "FLOAT[]");
  EXPECT_EQ(type("SIN(DALLOC(2))"), "DOUBLE[]");
  EXPECT_EQ(value("COS(0.0)"), "1.000000");
  EXPECT_EQ(value("TAN(0.5)"), "0.546302");
  EXPECT_EQ(value("ACOS(1.0)"), "0.000000");
  EXPECT_EQ(value("ASIN(1)"), "1.570796");
  EXPECT_EQ(value("ATAN(1)"), "0.785398");
  EXPECT_EQ(value("ATAN2(1, -1)"), "2.356194");
  EXPECT_EQ(value("CEIL(1.2)"), "2.000000");
  EXPECT_EQ(value("FLOOR(-1.2)"), "-2.000000");
  EXPECT_EQ(value("FMOD(7, 2.5)"), "2.000000");
  EXPECT_EQ(value("EXP(1)"), "2.718282");
  EXPECT_EQ(value("LOG(10)"), "2.302585");
  EXPECT_EQ(value("LOG10(1000)"), "3.000000");
  EXPECT_EQ(value("SQRT(2)"), "1.414214");
  EXPECT_EQ(value("SINH(1)"), "1.175201");
  EXPECT_EQ(value("COSH(1)"), "1.543081");
  EXPECT_EQ(value("TANH(1)"), "0.761594");
}

TEST_F(Functions, MathematicsOutsideTheDomain) {
  EXPECT_EQ(run("X = LOG(0.0)\n"), fault("Non positive operand in LOG"));
  EXPECT_EQ(run("X = LOG10(-1)\n"), fault("Non positive operand in LOG10"));
  EXPECT_EQ(run("X = SQRT(-1)\n"), fault("Negative operand in SQRT"));
  EXPECT_EQ(run("X = ACOS(1.5)\n"), fault("Operand out of range in ACOS"));
  EXPECT_EQ(run("X = ASIN(-1.5)\n"), fault("Operand out of range in ASIN"));
  EXPECT_EQ(run("X = LOG({1})\n"), fault("Syntax error") + fault("Syntax error - Expected ')'") +
                                       fault("Syntax error - Expected end of line"));
  EXPECT_EQ(run("A = {1, 0, 1}\nX = LOG(A)\nPRINTL X\n"),
            fault("Non positive operand in LOG", 3) + "0.000000 0.000000 0.000000 \n");
  EXPECT_EQ(run("A = {4.0, -1.0, 9.0}\nX = SQRT(A)\nPRINTL X\n"),
            fault("Negative operand in SQRT", 3) + "2.000000 -1.000000 3.000000 \n");
  EXPECT_EQ(run("X = ATAN2(1, FALLOC(1))\n"), fault("Different data types in ATAN2"));
  EXPECT_EQ(run("X = SIN('a')\n"), fault("Not allowed data type in SIN"));
  EXPECT_EQ(run("X = ACOS(COMPLEX(1))\n"), fault("Not allowed data type in ACOS"));
  EXPECT_EQ(run("X = FMOD(COMPLEX(1),COMPLEX(1))\n"), fault("Not allowed data types in FMOD"));
  EXPECT_EQ(run("X = ATAN2(COMPLEX(1),COMPLEX(1))\n"), fault("Not allowed data type in ATAN2"));
}

// Complex forms, from the real ones by identities.
TEST_F(Functions, ComplexMathematics) {
  EXPECT_EQ(value("SQRT(COMPLEX(-4.0,0.0))"), "0.000000 2.000000");
  EXPECT_EQ(value("SQRT(COMPLEX(3.0,4.0))"), "2.000000 1.000000");
  EXPECT_EQ(value("SQRT(COMPLEX(3.0,-4.0))"), "2.000000 -1.000000");
  EXPECT_EQ(value("SQRT(COMPLEX(0.0,0.0))"), "0.000000 0.000000");
  EXPECT_EQ(value("EXP(COMPLEX(0.0,0.0))"), "1.000000 0.000000");
  EXPECT_EQ(value("LOG(COMPLEX(-1.0,0.0))"), "0.000000 3.141593");
  EXPECT_EQ(value("SIN(COMPLEX(0.0,1.0))"), "0.000000 1.175201");
  EXPECT_EQ(value("COS(COMPLEX(0.0,1.0))"), "1.543081 -0.000000");
  EXPECT_EQ(value("TAN(COMPLEX(0.0,1.0))"), "0.000000 0.761594");
  EXPECT_EQ(value("TANH(COMPLEX(1.0,0.0))"), "0.761594 0.000000");
}

TEST_F(Functions, ArrayBuilders) {
  EXPECT_EQ(value("IALLOC(3)"), "0 1 2");
  EXPECT_EQ(type("FALLOC(3)"), "FLOAT[]");
  EXPECT_EQ(type("DALLOC(3)"), "DOUBLE[]");
  EXPECT_EQ(run("X = IALLOC(-1)\n"), fault("Not enough memory"));
  EXPECT_EQ(value("MINARR(FALLOC(3) - 1)"), "-1.000000");
  EXPECT_EQ(value("MAXARR(IALLOC(5))"), "4");
  EXPECT_EQ(type("MAXARR(BYTE(IALLOC(5)))"), "INT");
  EXPECT_EQ(run("X = MINARR(COMPLEX(IALLOC(2)))\n"), fault("Illegal parameter in MINARR"));
  EXPECT_EQ(value("CATARR(IALLOC(2),IALLOC(3))"), "0 1 0 1 2");
  EXPECT_EQ(run("X = CATARR(IALLOC(2),FALLOC(3))\n"), fault("Arrays must have identical types in CATARR"));
  EXPECT_EQ(run("X = CATARR(SHORT(IALLOC(2)),IALLOC(2))\n"), fault("Parameters in CATARR must be arrays"));
  EXPECT_EQ(value("SUBARR(IALLOC(5),1,2)"), "1 2");
  EXPECT_EQ(run("A = {5,6,7}\nX = SUBARR(A, 0, 3)\nPRINTL X\n"), "5 6 \n"); // a part up to the end loses its last
  EXPECT_EQ(run("X = SUBARR(IALLOC(3),3,1)\n"), fault("Parameter 2 is out of range in SUBARR"));
  EXPECT_EQ(run("X = SUBARR(IALLOC(3),0,-1)\n"), fault("Parameter 3 is negative in SUBARR"));
  EXPECT_EQ(run("INT A[2,3]\nA[0,*] = IALLOC(3)\nB = TRPMAT(A)\nPRINTL B, VARDIM(B,1), VARDIM(B,2)\n"),
            "0 0 1 0 2 0 3 2 \n");
  EXPECT_EQ(run("INT A[2,3]\nA[0,*] = IALLOC(3)\nC = {2,0}\nPRINTL SUBMAT(A, C)\n"), "2 0 0 0 \n");
  EXPECT_EQ(run("INT A[2,3]\nC = {3}\nX = SUBMAT(A, C)\n"), fault("Undefined column numbers in SUBMAT", 4));
  EXPECT_EQ(run("X = TRPMAT(IALLOC(3))\n"), fault("Parameter in TRPMAT must be a two-dimensional array"));
}

TEST_F(Functions, Texts) {
  EXPECT_EQ(value("STRLEN('abc')"), "3");
  EXPECT_EQ(value("STRLEN('')"), "0");
  EXPECT_EQ(value("TRMLEN('ab  ')"), "2");
  EXPECT_EQ(value("TRMLEN('  ')"), "0");
  EXPECT_EQ(value("STRUPR('aBc1')"), "ABC1");
  EXPECT_EQ(value("STRLWR('aBc1')"), "abc1");
  EXPECT_EQ(value("STRREP('ab',3)"), "ababab");
  EXPECT_EQ(value("STRLEN(STRREP('ab',0))"), "0");
  EXPECT_EQ(value("STRSTR('abcd','cd')"), "2");
  EXPECT_EQ(value("STRSTR('abcd','x')"), "-1");
  EXPECT_EQ(value("SUBSTR('abcd',1,2)"), "bc");
  EXPECT_EQ(value("SUBSTR('abcd',1,99)"), "bcd");
  EXPECT_EQ(run("X = SUBSTR('abc',3,1)\n"), fault("Parameter 2 out of range SUBSTR"));
  EXPECT_EQ(run("X = SUBSTR('abc',1,0)\n"), fault("Non positive value of parameter 3 SUBSTR"));
  EXPECT_EQ(value("ATONUM('12')"), "12");
  EXPECT_EQ(value("ATONUM('1.5')"), "1.500000");
  EXPECT_EQ(value("NUMTOA(2.567,2)"), "2.57");
  EXPECT_EQ(run("S = 'Ab'\nT = STRUPR(S)\nPRINTL S, T\n"), "Ab AB \n");
}

TEST_F(Functions, Inquiry) {
  EXPECT_EQ(value("VARDEF(X)"), "0");
  EXPECT_EQ(run("X = 1\nPRINTL VARDEF(X), VARCNT(X), VARTYP(X), VARDIM(X,1)\n"), "1 1 INT 0 \n");
  EXPECT_EQ(run("PRINTL VARCNT(Y), VARTYP(Y), VARDIM(Y,1)\n"), "-1 NONE -1 \n");
  EXPECT_EQ(run("INT A[2,3]\nPRINTL VARDIM(A,1), VARDIM(A,2), VARDIM(A,3)\n"), "2 3 0 \n");
  EXPECT_EQ(run("A = 1\nX = VARDIM(A,0)\n"), fault("Parameter 2 in vardim must be greater than 0", 3));
  EXPECT_EQ(run("X = VARDEF(3)\n"),
            fault("Parameter mismatch") + "      User   : VARDEF (I)\n      Correct: VARDEF (U)\n");
}

TEST_F(Functions, SignaturesAreChecked) {
  EXPECT_EQ(run("X = STRLEN(3)\n"),
            fault("Parameter mismatch") + "      User   : STRLEN (I)\n      Correct: STRLEN (S)\n");
  EXPECT_EQ(run("X = SUBSTR('a',1)\n"),
            fault("Parameter mismatch") + "      User   : SUBSTR (S,I)\n      Correct: SUBSTR (S,I,I)\n");
  EXPECT_EQ(run("X = STRLEN('ab', 7)\nPRINTL X\n"), "2 \n"); // more operands are not noticed
}

TEST_F(Functions, Environment) {
  setenv("QSL_TEST_VARIABLE", "seen", 1);
  EXPECT_EQ(value("GETENV('QSL_TEST_VARIABLE')"), "seen");
  EXPECT_EQ(value("STRLEN(GETENV('QSL_NO_SUCH_VARIABLE'))"), "0");
  EXPECT_EQ(value("SYSTEM('exit 0')"), "0");
  EXPECT_EQ(value("STRLEN(GETARG(1))"), "0");
  EXPECT_EQ(run("X = GETARG(0)\n"), fault("Non positive parameter in GETARG"));
  EXPECT_EQ(value("INQUIRE('/dev/null')"), "1");
  EXPECT_EQ(value("INQUIRE('/no/such/file')"), "0");
  EXPECT_EQ(run("X = REMOVE('/no/such/file')\nPRINTL X\n"), fault("Cannot remove file /no/such/file") + "-1 \n");
  EXPECT_EQ(value("CLOCK()"), "0.000000");
  EXPECT_EQ(run("T = CLOCK()\nDO I = 1, 300000\nEND DO\nT = CLOCK()\nPRINTL T > 0.0, T < 60.0\n"), "1 1 \n");
  EXPECT_EQ(run("SRAND(3)\nA = RAND()\nSRAND(3)\nB = RAND()\nPRINTL A == B, A >= 0.0 && A <= 1.0\n"), "1 1 \n");
}

TEST_F(Functions, DateAndTime) {
  setenv("SOURCE_DATE_EPOCH", "86399", 1); // the last second of 1 January 1970
  EXPECT_EQ(value("DATE()"), "01.01.1970");
  EXPECT_EQ(value("TIME()"), "23:59:59");
  unsetenv("SOURCE_DATE_EPOCH");
}

TEST_F(Functions, StatementDropsTheValue) {
  EXPECT_EQ(run("STRLEN('a')\nSQRT(-1)\n"), fault("Negative operand in SQRT", 3));
}
