// A saved statement keeps what its text decides. Each script here runs as a loop and written out pass by pass: both
// must print the same, but for the records that messages name.
#include <cctype>

#include "script/script_fixture.h"

using namespace qsl;

namespace {

// The text without the numbers behind "in record".
std::string withoutRecords(const std::string& text) {
  const std::string mark = " in record ";
  std::string rest;
  for (std::size_t at = 0; at < text.size(); ++at) {
    rest += text[at];
    if (!rest.ends_with(mark)) continue;
    while (at + 1 < text.size() && std::isdigit(static_cast<unsigned char>(text[at + 1]))) ++at;
  }
  return rest;
}

class Replay : public Script {
protected:
  // The passes of a body with I from 1 to n, as a loop and written out.
  void expectSame(const std::string& body, int n, const std::string& start = "") {
    reset_interpreter();
    const std::string looped = run(start + "DO I = 1, " + std::to_string(n) + "\n" + body + "END DO\nFREE I\nLIST\n");
    reset_interpreter();
    std::string passes = start;
    for (int i = 1; i <= n; ++i) passes += "I = " + std::to_string(i) + "\n" + body;
    const std::string plain = run(passes + "FREE I\nLIST\n");
    EXPECT_EQ(withoutRecords(looped), withoutRecords(plain)) << body;
    EXPECT_NE(looped, "");
  }
};

} // namespace

TEST_F(Replay, VariablesChangeTheirType) {
  expectSame("PRINTL VARTYP(A), A\nIF (I == 1) A = 2.5\nIF (I == 2) A = 'text'\nIF (I == 3) A = COMPLEX(1, 2)\n"
             "IF (I == 4) A = FALLOC(3)\nIF (I == 5) A = BYTE(7)\nB = A\nPRINTL B + 1\n",
             6, "A = 1\n");
  expectSame("INT A[I]\nA[I-1] = I\nPRINTL A\nFLOAT A[2,I]\nA[1,*] = 0.5\nPRINTL A\n", 3);
  expectSame("A[1] = I\nPRINTL A\nA = FLOAT(A) * 1.5\n", 3, "A = {1, 2}\n");
}

TEST_F(Replay, NamesAppearAndDisappear) {
  expectSame("PRINTL X + 1\nIF (I == 2) X = 5\nIF (I == 3) FREE X\nPRINTL VARDEF(X)\n", 4);
  expectSame("Y[0] = 1\nIF (I == 1) Y = {7, 8}\nIF (I == 2) Y = 3\n", 3);
  expectSame("K = I\nFREE K\nK = K\nPRINTL VARDEF(K)\n", 2);
}

TEST_F(Replay, FaultsComeAgain) {
  expectSame("A = 1 +\nB = (1 ? 2)\nC = 1 2\nPRINTL A, B, C\n", 3);
  expectSame("IF (I) PRINTL 'one', NO\nIF (1.5) PRINTL 1\nIF I\nFOO\nBAR(1)\nA[0] = 1\nCALL\nX = SIN('a')\n", 3);
  expectSame("A = 'text' * 2\nPRINTL A\nB = 1 / (I - 2)\nPRINTL B\n", 3, "A = 1\n");
  expectSame("X = A[1,2]\nX = A[5]\nX = A['a']\nA[0:1] = {1}\nA[0:1] = 4\nA[0,0] = 1\nA[9] = 1\nA[0] = 'a'\n", 2,
             "A = {1,2}\n");
  expectSame("SIN = 3\n%H = 'x'\n%NO = 1\nPRINTL VARDEF(%H)\n", 2);
}

TEST_F(Replay, ConstructsInsideALoop) {
  expectSame("SWITCH (I)\nCASE 2:\nPRINTL 'two'\nBREAK\nDEFAULT:\nPRINTL 'other'\nEND SWITCH\n", 3);
  expectSame("IF (I == 1)\nPRINTL 1\nELSEIF (I == 2)\nPRINTL 2\nELSE\nPRINTL 3\nEND IF\n", 4);
  expectSame("K = I\nWHILE (K > 0)\nK = K - 1\nPRINTL K\nEND WHILE\n", 3);
  expectSame("DO J = I, 3\nIF (J == 2) CONTINUE\nPRINTL I, J\nEND DO\n", 3);
}

// A label that is reached twice in one pass is the same label in a replay.
TEST_F(Replay, LabelsReachedTwice) {
  EXPECT_EQ(run("DO I = 1, 2\nN = 0\nL:\nN = N + 1\nPRINTL I, N\nIF (N < 2) GOTO L\nEND DO\n"),
            "1 1 \n1 2 \n2 1 \n2 2 \n");
}

// An array that is read in place for an operator is not changed by what stands beside it.
TEST_F(Replay, BorrowedArraysStayWhole) {
  EXPECT_EQ(run("A = {1, 2}\nB = A + A * A - A\nC = A - 1\nD = 1 - A\nE = A + A\nA[0] = 9\nPRINTL A, B, C, D, E\n"),
            "9 2 1 4 0 1 0 -1 2 4 \n");
  EXPECT_EQ(run("A = {1.5, 2.5}\nB = 2.0 * A\nC = A / A\nD = A * 2.0 + A\nE = A - A * 2.0\nPRINTL A, B, C, D, E\n"),
            "1.500000 2.500000 3.000000 5.000000 1.000000 1.000000 4.500000 7.500000 -1.500000 -2.500000 \n");
  EXPECT_EQ(run("A = {4, 0, 2}\nB = 8 / A\nPRINTL B, A\n"), fault("Divide by zero", 3) + "2 0 2 4 0 2 \n");
  EXPECT_EQ(run("A = {4, 6}\nC = {2, 0}\nB = A / C\nPRINTL B, A, C\n"), fault("Divide by zero", 4) + "2 6 4 6 2 0 \n");
  EXPECT_EQ(run("FLOAT M[2,2]\nM[*,*] = 1.5\nN = M * 2.0\nM2 = N + M\nLIST N M2\n"),
            " Name : N       , Type : FLOAT   , Count: 4, Dim: [2,2]\n"
            " Name : M2      , Type : FLOAT   , Count: 4, Dim: [2,2]\n");
  EXPECT_EQ(run("A = {1, 2}\nA = A + A\nA = A * 2\nPRINTL A\nB = A * (A == A)\nPRINTL B\n"),
            "4 8 \n" + fault("Not allowed array operand '='", 6) + "16 64 \n");
}

// A BYTE array is negated in its own width before it meets the wider one.
TEST_F(Replay, DifferencesOfUnlikeArrays) {
  EXPECT_EQ(run("A = IALLOC(2)\nB = BYTE(IALLOC(2))\nC = A - B\nPRINTL C\n"), "0 256 \n");
}

// A function that writes into a variable is seen by what is read behind it only.
TEST_F(Replay, WritingFunctionsInExpressions) {
  EXPECT_EQ(run("CHAR C[4]\nC[0] = 1\nA = BYTE(C)\nX = A + SPRINTF(C, 'z')\nPRINTL X\n"), "1 0 0 0 \n");
  EXPECT_EQ(run("A = {5, 6}\nB = A * SSCANF('7', '%d', A)\nPRINTL B, A\n"), "5 6 7 \n");
}

// Nesting as deep as a statement can hold it.
TEST_F(Replay, DeepNesting) {
  // A statement over many records.
  const auto continued = [](const std::string& text) {
    std::string records;
    for (std::size_t i = 0; i < text.size(); i += 100) records += (i > 0 ? "@\n" : "") + text.substr(i, 100);
    return records + "\n";
  };
  const auto repeated = [](const char* text, int n) {
    std::string all;
    for (int i = 0; i < n; ++i) all += text;
    return all;
  };
  EXPECT_EQ(run(continued("X = " + repeated("(", 500) + "1" + repeated(")", 500)) + "PRINTL X\n"), "1 \n");
  EXPECT_EQ(run(continued("X = " + repeated("-", 1000) + "1") + "PRINTL X\n"), "1 \n");
  EXPECT_EQ(run(continued("X = " + repeated("INT(", 200) + "7" + repeated(")", 200)) + "PRINTL X\n"), "7 \n");
  EXPECT_EQ(run("A = {1, 0}\n" + continued("X = " + repeated("A[", 300) + "0" + repeated("]", 300)) + "PRINTL X\n"),
            "0 \n");
  EXPECT_NE(run(continued("X = A[" + repeated(",", 900) + "]")), "");
}
