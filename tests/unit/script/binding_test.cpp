#include <cstring>
#include <vector>

#include "quilla/quilla.h"
#include "script/binding.h"
#include "script/bound_routine.h"
#include "script/script_fixture.h"

using namespace qsl;

namespace {

class Binding : public Script {};

std::string mismatch(const std::string& name, const std::string& user, const std::string& correct, int n = 2) {
  return fault("Parameter mismatch", n) + "      User   : " + name + " (" + user + ")\n      Correct: " + name + " (" +
         correct + ")\n";
}

// A plot whose file goes nowhere and whose messages are off.
const char* kOpenPlot = "METAFL('PDF')\nSETFIL('/dev/null')\nQUIINI()\nUNIT(0)\n";

// Stands in for a library routine: keeps what it was given.
struct Seen {
  float x;
  int i;
  std::string text;
  std::vector<float> reals;
} seen;

extern "C" void takesAll(float x, int i, const char* s, const float* a, int n) {
  seen = {x, i, s, std::vector<float>(a, a + n)};
}
extern "C" void givesAll(int* i, float* x, int n, int* a) {
  *i = 7;
  *x = 2.5F;
  if (n > 0) a[n - 1] = 9;
}
extern "C" int givesNumber(int i) { return i + 1; }
extern "C" const char* givesText(void) { return "text"; }

constexpr RoutineRow kTakesAll = bound<"TAKES", "X,I,S,FR,I", takesAll>(counted(4, 5));
constexpr RoutineRow kGivesAll = bound<"GIVES", "U,U,I,IR", givesAll>();
constexpr RoutineRow kGivesNumber = bound<"NUMBER", "I", givesNumber>();
constexpr RoutineRow kGivesText = bound<"TEXT", "", givesText>();

void push_text(const char* text) { set_string(*push_operand(), text); }

void push_array(Tag type, int count) {
  ScriptValue& v = *push_operand();
  v.type = type;
  v.ndim = 1;
  v.count = count;
  v.value.data = allocate_zeroed(count, element_size(type));
}

} // namespace

TEST_F(Binding, OperandsAreUnpacked) {
  push_int(3);
  push_int(-4);
  push_text("abc");
  push_array(kFloatArray, 2);
  elements<float>(operand(3))[1] = 1.5F;
  push_int(2);
  ASSERT_TRUE(match_operands("TAKES", kTakesAll.signature, 0));
  kTakesAll.run({"TAKES", nullptr});
  EXPECT_EQ(seen.x, 3.0F); // an INT where a real is wanted
  EXPECT_EQ(seen.i, -4);
  EXPECT_EQ(seen.text, "abc");
  EXPECT_EQ(seen.reals, (std::vector<float>{0.0F, 1.5F}));
}

TEST_F(Binding, CharArraysWithoutEndAreCopied) {
  push_double(0.5);
  push_int(0);
  push_array(kCharArray, 2);
  elements<char>(operand(2))[0] = 'O';
  elements<char>(operand(2))[1] = 'K';
  push_array(kFloatArray, 1);
  push_int(0);
  ASSERT_TRUE(match_operands("TAKES", kTakesAll.signature, 0));
  kTakesAll.run({"TAKES", nullptr});
  EXPECT_EQ(seen.text, "OK");
  EXPECT_EQ(seen.x, 0.5F);
}

TEST_F(Binding, OutputsOfAllKinds) {
  const int i = new_variable("I", 0), x = new_variable("X", 0), a = new_variable("A", 0);
  set_string(variable(x), "old");
  variable(a).type = kIntArray;
  variable(a).ndim = 1;
  variable(a).count = 2;
  variable(a).value.data = allocate_zeroed(2, 4);
  push_alias(i, "I");
  push_alias(x, "X");
  push_int(2);
  push_alias(a, "A");
  ASSERT_TRUE(match_operands("GIVES", kGivesAll.signature, 0));
  kGivesAll.run({"GIVES", nullptr});
  EXPECT_EQ(variable(i).value.i, 7);
  EXPECT_EQ(variable(x).type, kDouble);
  EXPECT_EQ(variable(x).value.d, 2.5);
  EXPECT_EQ(elements<std::int32_t>(variable(a))[1], 9); // the script's own array
}

TEST_F(Binding, Results) {
  ScriptValue result{};
  push_int(41);
  kGivesNumber.run({"NUMBER", &result});
  EXPECT_EQ(result.type, kInt);
  EXPECT_EQ(result.value.i, 42);
  kGivesText.run({"TEXT", &result});
  EXPECT_EQ(result.type, kString);
  EXPECT_STREQ(text_of(result), "text");
  free_value(result);
}

TEST_F(Binding, SignaturesDecide) {
  EXPECT_EQ(run("SETCLR(1.0)\n"), mismatch("SETCLR", "D", "I"));
  EXPECT_EQ(run("HEIGHT(2.5)\n"), mismatch("HEIGHT", "D", "I"));
  EXPECT_EQ(run("CURVE(DALLOC(2), DALLOC(2), 2)\n"), mismatch("CURVE", "DR,DR,I", "FR,FR,I"));
  EXPECT_EQ(run("PENWID('a')\nPENWID()\n"), mismatch("PENWID", "S", "X") + mismatch("PENWID", "", "X", 3));
  EXPECT_EQ(run("GETPAG(1, 2)\n"), mismatch("GETPAG", "I,I", "U,U"));
  EXPECT_EQ(run("LINE(BYTE(1), SHORT(2), COMPLEX(3), NAME4)\n"), mismatch("LINE", "B,H,?,U", "I,I,I,I"));
  EXPECT_EQ(run("C = CHAR(65)\nHEIGHT(C)\n"), mismatch("HEIGHT", "C", "I", 3));
}

// Rows whose signature no operands can fit.
TEST_F(Binding, RowsThatNeverFit) {
  EXPECT_EQ(run("CONTUR2(FALLOC(1),FALLOC(1),FALLOC(1),1,1,1.0)\n"),
            mismatch("CONTUR2", "FR,FR,FR,I,I,D", "FR,FT,FR,I,I,X"));
  EXPECT_EQ(run("X = X3DABS(1,2,3)\n"), mismatch("X3DABS", "I,I,I", "X,Y,Z"));
  EXPECT_EQ(run("X = LDIMG('a',SHORT(IALLOC(1)),1,1)\n"), mismatch("LDIMG", "S,HR,I,I", "S,HR,I,I)"));
}

TEST_F(Binding, RowsWithoutARoutine) {
  EXPECT_EQ(run("X11FNT('a','b')\n"), fault("Routine X11FNT is not available"));
  EXPECT_EQ(run("LEGPOS(1)\n"), mismatch("LEGPOS", "I", "I,I")); // the operands come first
}

TEST_F(Binding, UndefinedOutputsBecomeInt) {
  EXPECT_EQ(run(kOpenPlot), "");
  EXPECT_EQ(run("GETPAG(NX,NY)\nLIST NX NY\n"), " Name : NX      , Type : INT     , Count: 1, Value: 2970\n"
                                                " Name : NY      , Type : INT     , Count: 1, Value: 2100\n");
  EXPECT_EQ(run("GETPAG(N,N)\nPRINTL N\n"), "2100 \n");
  EXPECT_EQ(run("S = 'text'\nGETPAG(S,NY)\nPRINTL S\n"), "2970 \n"); // a variable that owned memory becomes INT
  EXPECT_EQ(run("HSVRGB(0.0,1.0,1.0,R,G,B)\nPRINTL R, G, B\n"), "1.000000 0.000000 0.000000 \n");
  EXPECT_EQ(run("QUIFIN()\n"), "");
}

// The bits of the integer are put into a variable of another type, whose tag stays.
TEST_F(Binding, IntegerOutputKeepsTheTag) {
  run("X = 0.0\n");
  const int index = find_variable("X");
  write_int_output(index, 5);
  EXPECT_EQ(variable(index).type, kDouble);
  std::int32_t bits;
  std::memcpy(&bits, &variable(index).value, 4);
  EXPECT_EQ(bits, 5);
}

TEST_F(Binding, CountsBeyondAnArrayAreRefused) {
  EXPECT_EQ(run("X = FALLOC(3)\nCURVE(X, X, 4)\n"), fault("Not enough array elements in CURVE", 3));
  EXPECT_EQ(run("X = FALLOC(3)\nY = FALLOC(2)\nCURVE(X, Y, 3)\n"), fault("Not enough array elements in CURVE", 4));
  EXPECT_EQ(run("X = IALLOC(2)\nMYLINE(X,3)\n"), fault("Not enough array elements in MYLINE", 3));
}

// In a loop a call is decided once and does the same in each pass.
TEST_F(Binding, CallsInLoops) {
  const std::string printed = run("X = 'old'\nDO I = 1, 3\nHSVRGB(0.0, 1.0, I / 4.0, R, G, B)\nPRINTL R\n"
                                  "SETCLR(1.0)\nGETPLV()\nCURVE(FALLOC(2), FALLOC(2), 3)\nSORTR1(Q, 1, 'A')\nEND DO\n");
  std::string wanted;
  const char* red[] = {"0.250000", "0.500000", "0.750000"};
  for (int i = 0; i < 3; ++i) {
    wanted += std::string(red[i]) + " \n" + mismatch("SETCLR", "D", "I", i == 0 ? 6 : 10) +
              fault("Undefined routine GETPLV", i == 0 ? 7 : 10) +
              fault("Not enough array elements in CURVE", i == 0 ? 8 : 10) +
              mismatch("SORTR1", "U,I,S", "FR,I,S", i == 0 ? 9 : 10);
  }
  EXPECT_EQ(printed, wanted);
  EXPECT_EQ(run("BASDAT(1, 1, 2000)\nDO I = 1, 2\nN = I - 1\nTRFDAT(N, D, M, Y)\nEND DO\nPRINTL D, M, Y\n"),
            "2 1 2000 \n");
}

TEST_F(Binding, OperandsBeyondTheSignatureAreIgnored) {
  EXPECT_EQ(run("HSVRGB(0.0,1.0,1.0,R,G,B,EXTRA)\nLIST EXTRA\n"),
            " Name : EXTRA   , Type : INT     , Count: 1, Value: 0\n");
}

TEST_F(Binding, ValueRoutinesStandAloneOnly) {
  EXPECT_EQ(run("V = GETVER()\nLIST V\n").substr(0, 37), " Name : V       , Type : DOUBLE  , Co");
  EXPECT_EQ(run("L = GETLEV()\nLIST L\n"), " Name : L       , Type : INT     , Count: 1, Value: 0\n");
  EXPECT_EQ(run("GETLEV()\n"), fault("Undefined routine GETLEV"));
  EXPECT_EQ(run("SIN = GETLEV()\n"), fault("Reserved identifier SIN"));
}

// An array that is passed by its name is not copied: the operand is an alias.
TEST_F(Binding, VariablesArePassedByAlias) {
  EXPECT_EQ(run("X = FALLOC(3)\nX[0] = X[1]\nCURVE(X, X, 99)\nPRINTL X\n"),
            fault("Not enough array elements in CURVE", 4) + "1.000000 1.000000 2.000000 \n");
}

TEST_F(Binding, SystemVariables) {
  EXPECT_EQ(run("%XMIN = 0\n%FOO = 1\nLIST %XMIN\n"),
            fault("Undefined system variable %FOO", 3) + " Name : %XMIN   , Type : INT     , Count: 1, Value: 0\n");
  EXPECT_EQ(run(std::string(kOpenPlot) + "LIST %XMIN\n"),
            " Name : %XMIN   , Type : DOUBLE  , Count: 1, Value: 0.000000\n");
  EXPECT_EQ(run("%H = 50\nH = GETHGT()\nPRINTL H\n"), "50 \n");
  EXPECT_EQ(run("%H = 'big'\n"), fault("Variable %H must be of type INT"));
  EXPECT_EQ(run("%XLEN = 1000\nGETLEN(NX,NY,NZ)\nPRINTL NX\n"), "1000 \n");
  EXPECT_EQ(run("%YPOS = 900\nGETPOS(NX,NY)\nPRINTL NY\n"), "900 \n");
}

TEST_F(Binding, PlotFaults) {
  EXPECT_EQ(run("PLOT\n"), fault("Missing parameters in PLOT"));
  EXPECT_EQ(run("X = FALLOC(3)\nPLOT X\nSCATTR X, X, X\n"),
            fault("Missing parameters in PLOT", 3) + fault("Missing parameters in PLOT", 4));
  EXPECT_EQ(run("X = FALLOC(3)\nPLOT X, Y\n"), fault("Undefined identifier Y", 3));
  EXPECT_EQ(run("X = DALLOC(3)\nPLOT X, X\n"), fault("Parameters in PLOT must be floatingpoint arrays", 3));
  EXPECT_EQ(run("X = FALLOC(3)\nPLOT X, FALLOC(2)\n"), fault("Mismatch of arry sizes in PLOT", 3));
  EXPECT_EQ(interp.stack.count, 0);
}
