#include "script/script_fixture.h"

using namespace qsl;

namespace {
class Arrays : public Script {};
} // namespace

TEST_F(Arrays, DeclarationsAreZeroed) {
  EXPECT_EQ(run("INT A[3]\nPRINTL A\n"), "0 0 0 \n");
  EXPECT_EQ(run("FLOAT A[2], B[2,2]\nPRINTL A\nLIST B\n"),
            "0.000000 0.000000 \n Name : B       , Type : FLOAT   , Count: 4, Dim: [2,2]\n");
  EXPECT_EQ(run("DOUBLE D[1]\nBYTE B[1]\nSHORT S[1]\nCHAR C[1]\nCOMPLEX Z[1]\nPRINTL D, B, S, C, Z\n"),
            "0.000000 0 0  0.000000 0.000000 \n");
}

TEST_F(Arrays, DeclarationFaults) {
  EXPECT_EQ(run("INT 3[3]\n"), fault("Syntax error"));
  EXPECT_EQ(run("INT A\n"), fault("Syntax error"));
  EXPECT_EQ(run("INT A[]\n"), fault("Missing parameters"));
  EXPECT_EQ(run("INT A[2.5]\n"), fault("Dimension parameter must be of type integer"));
  EXPECT_EQ(run("INT A[-1]\n"), fault("Dimension parameter must not be negative"));
  EXPECT_EQ(run("INT A[65536,65536]\n"), fault("Not enough memory"));
  EXPECT_EQ(run("INT A[2] B[2]\nLIST B\n"), fault("Syntax error") + fault("Undefined variable B", 3));
  EXPECT_EQ(run("INT A[2\nLIST A\n"), fault("Syntax error - Expected ']'") + fault("Undefined variable A", 3));
  EXPECT_EQ(run("INT A[1,1,1,1,1,1,1,1]\nPRINTL A\n"), "0 \n");
  EXPECT_EQ(run("INT A[1,1,1,1,1,1,1,1,1]\n"), fault("Too many subscripts in A"));
}

// A redeclared variable is freed before the extents are looked at.
TEST_F(Arrays, FailedRedeclarationLosesTheVariable) {
  EXPECT_EQ(run("A = 1\nINT A[2.5]\nLIST A\n"),
            fault("Dimension parameter must be of type integer", 3) + fault("Undefined variable A", 4));
  EXPECT_EQ(run("A = 1\nINT A[A]\n"), fault("Undefined identifier A", 3));
}

TEST_F(Arrays, Literals) {
  EXPECT_EQ(run("A = {1, -2, 3.5}\nLIST A\nPRINTL A\n"),
            " Name : A       , Type : FLOAT   , Count: 3\n1.000000 -2.000000 3.500000 \n");
  EXPECT_EQ(run("A = {1, -2}\nLIST A\n"), " Name : A       , Type : INT     , Count: 2\n");
  EXPECT_EQ(run("A = {0.1}\nPRINTL A == 0\n"), fault("Not allowed array operand '='", 3) + "0.100000 \n");
  EXPECT_EQ(run("B = {1}\nB = {}\nPRINTL B\n"), fault("Integer or floatingpoint number expected", 3) + "1 \n");
  EXPECT_EQ(run("A = {1, 'a'}\n"), fault("Integer or floatingpoint number expected"));
  EXPECT_EQ(run("A = {1 2}\n"), fault("'}' is missing"));
  EXPECT_EQ(run("A = {1} 2\n"), fault("End of statement expected"));
  EXPECT_EQ(run("SIN = {1}\n"), fault("Reserved identifier SIN"));
  EXPECT_EQ(run("B = {1,2}\nB = 2.5\nPRINTL B\n"), "2.500000 \n");
}

TEST_F(Arrays, Elements) {
  EXPECT_EQ(run("INT A[2,3]\nA[1,2] = 7\nPRINTL A\nPRINTL A[1,2], A[1,*], A[*,2]\n"), "0 0 0 0 0 7 \n7 0 0 7 0 7 \n");
  EXPECT_EQ(run("INT A[2,3]\nX = A[2,0]\n"), fault("Subscript out of range in A", 3));
  EXPECT_EQ(run("A = {1,2,3,4}\nPRINTL A[1:2], A[:1], A[2:], A[:], A[*]\n"), "2 3 1 2 3 4 1 2 3 4 1 2 3 4 \n");
  EXPECT_EQ(run("A = {1,2}\nB = A[*]\nB[0] = 9\nPRINTL A, B\n"), "1 2 9 2 \n");
  EXPECT_EQ(run("INT A[2,2,2]\nA[1,0,1] = 5\nPRINTL A[*,0,*]\n"), "0 0 0 5 \n");
}

TEST_F(Arrays, SubscriptFaults) {
  EXPECT_EQ(run("A = {1,2,3}\nX = A[3]\n"), fault("Subscript out of range in A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[-1]\n"), fault("Subscript out of range in A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[2:1]\n"), fault("Bad subscript range in A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[1:3]\n"), fault("Subscript out of range in A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[3:]\n"), fault("Subscript out of range in A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[0,0]\n"), fault("Mismatch of subscripts in A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[1.0]\n"), fault("Subscripts must be of type integer", 3));
  EXPECT_EQ(run("A = 5\nX = A[0]\n"), fault("Non array variable A", 3));
  EXPECT_EQ(run("A = {1,2,3}\nX = A[0\n"), fault("Syntax error - Expected ']'", 3));
  EXPECT_EQ(run("A = {1}\nX = A[0,0,0,0,0,0,0,0,0]\n"), fault("Too many subscripts in A", 3));
  EXPECT_EQ(run("INT A[0]\nX = A[*]\n"), fault("Bad subscript range in A", 3));
}

// The lower bound of an open range of a matrix is held against the whole count; an empty range is refused all the same.
TEST_F(Arrays, OpenRangesOfMatrices) {
  EXPECT_EQ(run("INT A[2,3]\nX = A[5:,0]\n"), fault("Bad subscript range in A", 3));
  EXPECT_EQ(run("INT A[2,3]\nX = A[6:,0]\n"), fault("Subscript out of range in A", 3));
  EXPECT_EQ(run("INT A[2,3]\nPRINTL A[1:,:1]\n"), "0 0 \n");
}

TEST_F(Arrays, Texts) {
  EXPECT_EQ(run("S = 'abc'\nPRINTL S[0], S[3], S[1:2]\n"), "97 0 bc \n");
  EXPECT_EQ(run("S = 'abc'\nX = S[4]\n"), fault("Subscript out of range in S", 3));
  EXPECT_EQ(run("S = 'abcdef'\nX = S[2:4]\nLIST X\n"), " Name : X       , Type : STRING  , Count: 3, Value: cde\n");
  EXPECT_EQ(run("S = 'abc'\nS[1] = 88\nPRINTL S\n"), "aXc \n");
  EXPECT_EQ(run("S = 'abc'\nS[0:1] = 88\n"), fault("Non array variable S", 3));
  EXPECT_EQ(run("S = 'abc'\nS[3] = 88\nPRINTL S\n"), fault("Subscript out of range in S", 3) + "abc \n");
  EXPECT_EQ(run("S = 'abc'\nS[0] = 'x'\n"), fault("Illegal expression value - use conversion function", 3));
}

TEST_F(Arrays, ElementAssignment) {
  EXPECT_EQ(run("A[0] = 1\n"), fault("Undefined variable A"));
  EXPECT_EQ(run("INT A[3]\nA[*] = 4\nA[0] = 2.9\nA[1] = -2.9\nPRINTL A\n"), "2 -2 4 \n");
  EXPECT_EQ(run("INT A[3]\nA[1:2] = 8\nA[*] = IALLOC(3)\nPRINTL A\n"), "0 1 2 \n");
  EXPECT_EQ(run("INT A[3]\nA[*] = IALLOC(2)\n"), fault("Mismatch of arrays", 3));
  EXPECT_EQ(run("INT A[3]\nA[0] 3\n"), fault("Syntax error - Expected '='", 3));
  EXPECT_EQ(run("INT A[3]\nA[0 = 3\n"), fault("Syntax error - Expected ']'", 3));
  EXPECT_EQ(run("INT A[3]\nA[0] =\nA[5] = 1\n"), fault("Subscript out of range in A", 4));
  EXPECT_EQ(run("BYTE B[2]\nB[0] = 300\nPRINTL B\n"), "44 0 \n");
  EXPECT_EQ(run("SHORT B[1]\nB[0] = 40000\nPRINTL B\n"), "-25536 \n");
}

// Which element types may be stored in which.
TEST_F(Arrays, ConversionTable) {
  const char* targets[] = {"CHAR", "BYTE", "SHORT", "INT", "FLOAT", "DOUBLE", "COMPLEX"};
  const char* sources[] = {"BYTE(1)", "SHORT(1)", "1", "FLOAT(1)", "1.0", "COMPLEX(1)", "CHAR(1)", "'ab'"};
  const char* allowed[] = {"YYYYYYN", "YYYYYYN", "YYYYYYN", "NNNYYYN", "NNNYYYN", "NNNNNNY", "NNNNNNN", "NNNNNNN"};
  for (int s = 0; s < 8; ++s)
    for (int t = 0; t < 7; ++t) {
      const bool plain = t >= 3 && t <= 5;
      const std::string text =
          plain ? "Illegal expression value" : "Illegal expression value - use conversion function";
      const std::string wanted = allowed[s][t] == 'Y' ? "" : fault(text, 3);
      EXPECT_EQ(run(std::string(targets[t]) + " A[2]\nA[0] = " + sources[s] + "\n"), wanted)
          << targets[t] << " from " << sources[s];
    }
}

TEST_F(Arrays, FreeAndTheTable) {
  EXPECT_EQ(run("A = 1\nB = 2\nFREE A, B\nLIST A B\n"),
            fault("Undefined variable A", 5) + fault("Undefined variable B", 5));
  EXPECT_EQ(run("A = 1\nFREE NO A\nLIST A\n"), fault("Undefined variable NO", 3) + fault("Undefined variable A", 4));
  EXPECT_EQ(run("FREE\nFREE 3\n"), fault("Syntax error - Expected identifier", 3));
}

TEST_F(Arrays, VariablesHaveALimit) {
  std::string script;
  for (int i = 0; i < 500; ++i) script += "V" + std::to_string(i) + " = 1\n";
  EXPECT_EQ(run(script), "");
  EXPECT_EQ(run("W = 1\nV7 = 2\nFREE V3\nW = 5\nPRINTL W, V7\n"),
            fault("Maximal number of variables is reached") + "5 2 \n");
  EXPECT_EQ(find_variable("W"), 3); // the lowest free slot
}

TEST_F(Arrays, IndexFindsTheFirstSlotOfItsLevel) {
  const int outer = new_variable("X", 0);
  const int inner = new_variable("X", 1);
  const int system = new_variable("%X", 1);
  EXPECT_EQ(find_variable("X"), outer);
  EXPECT_EQ(find_variable("%X"), system);
  interp.variables.level = 1;
  EXPECT_EQ(find_variable("X"), inner);
  free_variable(inner);
  EXPECT_EQ(find_variable("X"), -1);
  interp.variables.level = 0;
  EXPECT_EQ(find_variable("X"), outer);
  rename_variable(outer, "Y");
  EXPECT_EQ(find_variable("X"), -1);
  EXPECT_EQ(find_variable("Y"), outer);
}

// Two aliases of one variable change the same data; an alias goes without its target.
TEST_F(Arrays, Aliases) {
  run("A = {1,2}\n");
  for (const char* name : {"P", "Q"}) {
    const int slot = new_variable(name, 1);
    variable(slot).type = kAlias;
    variable(slot).value.index = find_slot("A", 0);
  }
  interp.variables.level = 1;
  EXPECT_EQ(run("P[0] = 5\nQ[1] = 6\nPRINTL P\nLIST Q\nFREE P\nLOCAL = 3\n"),
            "5 6 \n Name : Q       , Type : INT     , Count: 2\n" + fault("Missing END statement", 7));
  EXPECT_EQ(interp.variables.level, 0); // the end of the source has ended the level
  EXPECT_EQ(run("PRINTL A\nLIST LOCAL\n"), "5 6 \n" + fault("Undefined variable LOCAL", 3));
}
