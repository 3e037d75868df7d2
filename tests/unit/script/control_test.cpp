#include "script/script_fixture.h"

using namespace qsl;

namespace {

class Control : public Script {};

std::string repeated(const std::string& text, int n) {
  std::string all;
  for (int i = 0; i < n; ++i) all += text;
  return all;
}

} // namespace

TEST_F(Control, IfChoosesOneBranch) {
  const std::string script =
      "IF (X == 1)\nPRINTL 'one'\nELSEIF (X == 2)\nPRINTL 'two'\nELSE IF (X == 3)\nPRINTL 'three'\n"
      "ELSE\nPRINTL 'other'\nENDIF\n";
  EXPECT_EQ(run("X = 1\n" + script), "one \n");
  EXPECT_EQ(run("X = 2\n" + script), "two \n");
  EXPECT_EQ(run("X = 3\n" + script), "three \n");
  EXPECT_EQ(run("X = 4\n" + script), "other \n");
  EXPECT_EQ(interp.control.if_depth, 0);
}

TEST_F(Control, OneLineIfRunsAnythingButConstructs) {
  EXPECT_EQ(run("IF (1) X = 3\nIF (0) X = 4\nPRINTL X\n"), "3 \n");
  EXPECT_EQ(run("INT A[2]\nIF (1 == 1) A[1] = 5\nIF (1) PRINTL A\n"), "0 5 \n");
  EXPECT_EQ(run("IF (1) IF (1) X = 1\n"), fault("Undefined routine IF"));
  EXPECT_EQ(run("IF (1) DO I = 1, 2\n"), fault("Undefined command DO"));
  EXPECT_EQ(run("IF (1) = 3\n"), fault("Undefined command ="));
  EXPECT_EQ(run("IF (0) NONSENSE HERE\n"), "");
}

TEST_F(Control, FalseIfLeavesNoTraceOfInnerConstructs) {
  EXPECT_EQ(run("IF (0)\nIF (NO_SUCH == 1)\nX = 1\nELSE\nX = 2\nEND IF\nWHILE (NOTHING)\nEND WHILE\n"
                "DO NEVER = 1, 2\nEND DO\nSWITCH (NO)\nEND SWITCH\nEND IF\nPRINTL VARDEF(X), VARDEF(NEVER)\n"),
            "0 0 \n");
  EXPECT_EQ(interp.control.loop_depth, 0);
  EXPECT_EQ(interp.control.switch_depth, 0);
  EXPECT_EQ(interp.control.skip_sum, 0);
}

TEST_F(Control, IfMessages) {
  EXPECT_EQ(run("END IF\nPRINTL 1\n"), fault("Missing IF statement before END IF") + "1 \n");
  EXPECT_EQ(run("IF (1.5)\n"), fault("Non integer value of logical expression"));
  EXPECT_EQ(run("IF 'x'\n"), fault("Syntax error"));
  EXPECT_EQ(run("IF\n"), fault("Syntax error"));
  EXPECT_EQ(run("IF (1)\n"), fault("Missing END IF", 2));
}

TEST_F(Control, ElseMessages) {
  EXPECT_EQ(run("IF (0)\nELSE THEN\nEND IF\n"), fault("Expected IF or End of Line", 3));
  EXPECT_EQ(run("IF (0)\nELSEIF (1) X = 2\nEND IF\nPRINTL VARDEF(X)\n"), fault("Expected end of line", 3) + "0 \n");
  EXPECT_EQ(run("ELSE\n"), fault("Missing IF statement before ELSE"));
  EXPECT_EQ(run("ELSEIF (1)\n"), fault("Missing IF statement before ELSEIF"));
}

// ELSE leaves the mark of a taken branch alone, so a second ELSE is active as the first one was.
TEST_F(Control, TwoElseBranches) {
  EXPECT_EQ(run("IF (0)\nELSE\nPRINTL 1\nELSE\nPRINTL 2\nEND IF\n"), "1 \n2 \n");
  EXPECT_EQ(run("IF (1)\nELSE\nPRINTL 1\nELSE\nPRINTL 2\nEND IF\n"), "");
}

TEST_F(Control, NestedIfLimit) {
  EXPECT_EQ(run(repeated("IF (1)\n", 8) + "PRINTL 1\n" + repeated("END IF\n", 8)), "1 \n");
  EXPECT_EQ(run(repeated("IF (1)\n", 9) + repeated("END IF\n", 9)),
            fault("Max. number of nested IF statements is reached", 10) +
                fault("Missing IF statement before END IF", 19));
}

TEST_F(Control, DoCounts) {
  EXPECT_EQ(run("DO I = 1, 3\nPRINTL I\nEND DO\nPRINTL I\n"), "1 \n2 \n3 \n4 \n");
  EXPECT_EQ(run("DO I = 3, 1, -1\nPRINTL I\nEND DO\nPRINTL I\n"), "3 \n2 \n1 \n0 \n");
  EXPECT_EQ(run("DO I = 1, 0\nPRINTL I\nEND DO\nPRINTL I\n"), "1 \n");
  EXPECT_EQ(run("DO I = 1, 3, 0\nPRINTL I\nEND DO\nPRINTL I\n"), "1 \n");
  EXPECT_EQ(run("DO X = 0.0, 1.0, 0.5\nPRINTL X\nEND DO\nPRINTL X\n"), "0.000000 \n0.500000 \n1.000000 \n1.500000 \n");
  EXPECT_EQ(run("DO X = 1.0, 2.0\nPRINTL X\nEND DO\n"), "1.000000 \n2.000000 \n");
  EXPECT_EQ(run("DO I = 1, 7, 3\nPRINTL I\nEND DO\n"), "1 \n4 \n7 \n");
  EXPECT_EQ(interp.reader.saved_count, 0);
  EXPECT_FALSE(interp.reader.recording);
}

// Bounds of one loop in two types are not converted: the INT 1 read as a DOUBLE is next to nothing.
TEST_F(Control, DoWithMixedTypesReadsTheBits) {
  EXPECT_EQ(run("DO X = 0.0, 1, 0.5\nPRINTL X\nEND DO\nPRINTL X\n"), "0.000000 \n0.500000 \n");
}

TEST_F(Control, NestedLoops) {
  EXPECT_EQ(run("DO I = 1, 2\nDO J = 1, 2\nPRINTL I, J\nEND DO\nEND DO\n"), "1 1 \n1 2 \n2 1 \n2 2 \n");
  EXPECT_EQ(run("DO I = 2, 1\nDO J = NO_SUCH, 2\nPRINTL J\nEND DO\nEND DO\nPRINTL 'end'\n"), "end \n");
  EXPECT_EQ(run("DO I = 1, 2\nK = 0\nWHILE (K < I)\nK = K + 1\nPRINTL I, K\nEND WHILE\nEND DO\n"),
            "1 1 \n2 1 \n2 2 \n");
  EXPECT_EQ(interp.reader.saved_count, 0);
}

TEST_F(Control, NestedLoopLimit) {
  std::string open, close;
  for (int i = 0; i < 8; ++i) {
    open += "DO I" + std::to_string(i) + " = 1, 1\n";
    close += "END DO\n";
  }
  EXPECT_EQ(run(open + "PRINTL 1\n" + close), "1 \n");
  EXPECT_EQ(run(open + "DO J = 1, 1\nPRINTL 2\nEND DO\n" + close), fault("Max. number of nested loops is reached", 10) +
                                                                       "2 \n" +
                                                                       fault("Missing DO statement before END DO", 20));
}

TEST_F(Control, WhileTestsBeforeEachPass) {
  EXPECT_EQ(run("K = 0\nWHILE (K < 3)\nK = K + 1\nEND WHILE\nPRINTL K\n"), "3 \n");
  EXPECT_EQ(run("WHILE (0)\nPRINTL 1\nEND WHILE\nPRINTL 2\n"), "2 \n");
  EXPECT_EQ(interp.reader.saved_count, 0);
}

TEST_F(Control, LoopMessages) {
  EXPECT_EQ(run("DO 3\n"), fault("Syntax error - expected loop variable"));
  EXPECT_EQ(run("I = 7\nDO I\nPRINTL VARDEF(I)\n"), fault("Missing '=' in DO loop", 3) + "0 \n");
  EXPECT_EQ(run("DO I = 1\n"), fault("Syntax error in DO statement"));
  EXPECT_EQ(run("DO I = 1, 2, 3, 4\n"), fault("Syntax error in DO statement"));
  EXPECT_EQ(run("DO I = 'a', 'b'\n"), fault("DO expressions must be of type INT or DOUBLE"));
  EXPECT_EQ(run("DO I =\nPRINTL 1\n"), "1 \n");
  EXPECT_EQ(run("END DO\n"), fault("Missing DO statement before END DO"));
  EXPECT_EQ(run("END WHILE\n"), fault("Missing WHILE statement before END WHILE"));
  EXPECT_EQ(run("WHILE 1\n"), fault("Syntax error - expected '('"));
  EXPECT_EQ(run("WHILE (1, 2)\n"), fault("Syntax error in WHILE statement"));
  EXPECT_EQ(run("WHILE (1.5)\n"), fault("Expression in WHILE statement must be of type INT"));
}

TEST_F(Control, BreakAndContinue) {
  EXPECT_EQ(run("DO I = 1, 9\nIF (I == 3) BREAK\nPRINTL I\nEND DO\nPRINTL I\n"), "1 \n2 \n3 \n");
  EXPECT_EQ(run("DO I = 1, 9\nIF (I == 2)\nBREAK\nEND IF\nPRINTL I\nEND DO\nPRINTL 'end'\n"), "1 \nend \n");
  EXPECT_EQ(run("DO I = 1, 4\nIF (I % 2 == 0) CONTINUE\nPRINTL I\nEND DO\n"), "1 \n3 \n");
  EXPECT_EQ(run("DO I = 1, 2\nDO J = 1, 5\nIF (J == 2) BREAK\nPRINTL I, J\nEND DO\nEND DO\n"), "1 1 \n2 1 \n");
  EXPECT_EQ(run("DO I = 1, 2\nIF (I == 1) CONTINUE\nDO J = 1, 2\nPRINTL I, J\nEND DO\nEND DO\n"), "2 1 \n2 2 \n");
  EXPECT_EQ(run("K = 0\nWHILE (1)\nK = K + 1\nIF (K == 4) BREAK\nEND WHILE\nPRINTL K\n"), "4 \n");
  EXPECT_EQ(run("K = 0\nWHILE (K < 3)\nK = K + 1\nIF (K == 2) CONTINUE\nPRINTL K\nEND WHILE\n"), "1 \n3 \n");
  EXPECT_EQ(run("BREAK\n"), fault("BREAK must be used in a loop or SWITCH construct"));
  EXPECT_EQ(run("CONTINUE\n"), fault("CONTINUE must be used in a loop construct"));
  EXPECT_EQ(interp.control.skip_sum, 0);
}

TEST_F(Control, LoopVariableKeepsTheLoopAlive) {
  EXPECT_EQ(run("DO I = 1, 3\nI = I + 0.5\nPRINTL I\nEND DO\n"), "1.500000 \n2.500000 \n3.500000 \n");
  EXPECT_EQ(run("DO I = 1, 3\nFREE I\nEND DO\nPRINTL 'end'\n"), fault("Loop variable is not a number I", 4) + "end \n");
  EXPECT_EQ(run("DO I = 1, 3\nI = 'x'\nEND DO\nPRINTL I\n"), fault("Loop variable is not a number I", 4) + "x \n");
}

TEST_F(Control, OverlappingConstructs) {
  EXPECT_EQ(run("DO I = 1, 1\nIF (1)\nEND DO\nEND IF\n"),
            fault("Overlapping IF and Loop contructs", 4) + fault("Overlapping IF and Loop constructs", 5));
  EXPECT_EQ(run("SWITCH (1)\nCASE 1:\nDO I = 1, 1\nEND SWITCH\nEND DO\n"),
            fault("Overlapping SWITCH and Loop contructs", 5) + fault("Overlapping SWITCH and Loop contructs", 6));
  EXPECT_EQ(run("IF (1)\nSWITCH (1)\nCASE 1:\nEND IF\nEND SWITCH\n"),
            fault("Overlapping IF and SWITCH constructs", 5) + fault("Overlapping SWITCH and IF contructs", 6));
  EXPECT_EQ(run("DO I = 1, 1\nEND WHILE\nEND DO\n"), fault("Missing WHILE statement before END WHILE", 3));
}

TEST_F(Control, SwitchFallsThrough) {
  const std::string body = "CASE 1:\nCASE 2:\nPRINTL 'low'\nBREAK\nCASE -3:\nPRINTL 'minus'\nCASE 4:\nPRINTL 'four'\n"
                           "BREAK\nDEFAULT:\nPRINTL 'other'\nEND SWITCH\nPRINTL 'end'\n";
  EXPECT_EQ(run("SWITCH (1)\n" + body), "low \nend \n");
  EXPECT_EQ(run("SWITCH (2)\n" + body), "low \nend \n");
  EXPECT_EQ(run("SWITCH (-3)\n" + body), "minus \nfour \nend \n");
  EXPECT_EQ(run("SWITCH (9)\n" + body), "other \nend \n");
  EXPECT_EQ(run("SWITCH (2)\nPRINTL 'never'\nEND SWITCH\nPRINTL 1\n"), "1 \n");
}

TEST_F(Control, SwitchMessages) {
  EXPECT_EQ(run("SWITCH 1\n"), fault("Syntax error - expected '('"));
  EXPECT_EQ(run("SWITCH (1, 2)\n"), fault("Syntax error in SWITCH statement"));
  EXPECT_EQ(run("SWITCH (1.5)\n"), fault("Expression in SWITCH statement must be of type INT"));
  EXPECT_EQ(run("CASE 1:\n"), fault("CASE must be used in a SWITCH construct"));
  EXPECT_EQ(run("DEFAULT:\n"), fault("DEFAULT must be used in a SWITCH construct"));
  EXPECT_EQ(run("END SWITCH\n"), fault("Missing SWITCH statement before END SWITCH"));
  EXPECT_EQ(run("SWITCH (1)\nCASE X:\nCASE 1.5:\nCASE 1\nCASE 1: PRINTL 1\nDEFAULT\nDEFAULT: PRINTL 1\nEND SWITCH\n"),
            fault("The CASE parameter must be an INT constant", 3) +
                fault("The CASE parameter must be an INT constant", 4) + fault("Expected ':' in CASE statement", 5) +
                fault("Expected end of line in CASE statement", 6) + fault("Expected ':' in DEFAULT statement", 7) +
                fault("Expected end of line in DEFAULT statement", 8));
  std::string open;
  for (int i = 0; i < 9; ++i) open += "SWITCH (1)\nCASE 1:\n";
  EXPECT_EQ(run(open + repeated("END SWITCH\n", 9)), fault("Max. number of nested SWITCH statements is reached", 18) +
                                                         fault("Missing SWITCH statement before END SWITCH", 28));
}

// The kind of the construct that was opened last decides what a BREAK leaves.
TEST_F(Control, BreakGoesByTheLastConstruct) {
  // Behind the complete inner loop the BREAK passes over everything up to the next END DO of its level: there is none.
  EXPECT_EQ(
      run("SWITCH (1)\nCASE 1:\nDO I = 1, 2\nEND DO\nPRINTL 'case'\nBREAK\nPRINTL 'not'\nEND SWITCH\nPRINTL 'no'\n"),
      "case \n");
  interp.control = {};
  EXPECT_EQ(run("DO I = 1, 2\nSWITCH (I)\nCASE 1:\nPRINTL 'one'\nBREAK\nCASE 2:\nPRINTL 'two'\nEND SWITCH\nEND DO\n"),
            "one \ntwo \n");
}

// END SWITCH ends the search for a CASE, also that of the SWITCH around it.
TEST_F(Control, InnerEndSwitchEndsTheOuterSearch) {
  EXPECT_EQ(run("SWITCH (5)\nCASE 1:\nSWITCH (2)\nEND SWITCH\nPRINTL 'odd'\nEND SWITCH\n"), "odd \n");
}

TEST_F(Control, GotoBackward) {
  EXPECT_EQ(run("N = 0\nAGAIN:\nN = N + 1\nIF (N < 3) GOTO AGAIN\nPRINTL N\n"), "3 \n");
  EXPECT_TRUE(interp.reader.recording); // saving stays on to the end of the level
}

TEST_F(Control, GotoForward) {
  EXPECT_EQ(run("GOTO OUT\nPRINTL 1\nIF (0)\nELSE\nPRINTL 2\nEND IF\nout: PRINTL 3\nPRINTL 4\n"), "4 \n");
  EXPECT_EQ(run("GOTO NOWHERE\nPRINTL 1\n"), "");
}

TEST_F(Control, GotoOutOfConstructsSetsTheDepthsBack) {
  EXPECT_EQ(run("N = 0\nTOP:\nN = N + 1\nDO I = 1, 5\nIF (I == 2)\nIF (N < 3) GOTO TOP\nEND IF\nEND DO\nPRINTL N, I\n"),
            "3 6 \n");
  EXPECT_EQ(interp.control.loop_depth, 0);
  EXPECT_EQ(interp.control.if_depth, 0);
  EXPECT_EQ(run("DO I = 1, 5\nIF (I == 2) GOTO DONE\nEND DO\nDONE:\nPRINTL I\n"), "2 \n");
}

TEST_F(Control, GotoMessages) {
  EXPECT_EQ(run("GOTO 3\n"), fault("Expected label"));
  EXPECT_EQ(run("L:\nL:\n"), fault("Multiple defined label L", 3));
  EXPECT_EQ(run("GOTO M N\nM:\nPRINTL 1\n"), fault("Expected end of statement") + "1 \n");
}

TEST_F(Control, IllegalJumps) {
  EXPECT_EQ(run("GOTO A\nIF (1)\nA:\nPRINTL 1\nEND IF\n"), fault("Illegal jump into an IF construct", 4) + "1 \n");
  EXPECT_EQ(run("GOTO B\nDO I = 1, 2\nB:\nPRINTL 2\nEND DO\n"),
            fault("Illegal jump into a Loop construct", 4) + "2 \n");
  EXPECT_EQ(run("GOTO C\nSWITCH (1)\nC:\nPRINTL 3\nEND SWITCH\n"),
            fault("Illegal jump into a SWITCH construct", 4) + "3 \n");
  EXPECT_EQ(run("IF (1)\nD:\nEND IF\nGOTO D\nPRINTL 4\n"), fault("Illegal jump into an IF construct", 5) + "4 \n");
  EXPECT_EQ(run("DO I = 1, 1\nE:\nEND DO\nGOTO E\nPRINTL 5\n"),
            fault("Illegal jump into a Loop construct", 5) + "5 \n");
}

TEST_F(Control, LabelReachedAgainInALoop) {
  EXPECT_EQ(run("DO I = 1, 3\nIF (I == 2) GOTO SKIP\nPRINTL I\nSKIP:\nEND DO\nPRINTL 'end'\n"), "1 \n3 \nend \n");
  EXPECT_EQ(run("DO I = 1, 2\nN = 0\nMORE:\nN = N + 1\nIF (N < 2) GOTO MORE\nPRINTL I, N\nEND DO\n"), "1 2 \n2 2 \n");
}

TEST_F(Control, LabelLimit) {
  std::string labels;
  for (int i = 0; i < 100; ++i) labels += "L" + std::to_string(i) + ":\n";
  EXPECT_EQ(run(labels), "");
  interp.control = {};
  EXPECT_EQ(run(labels + "ONE_MORE:\n"), fault("Maximal number of labels is reached", 102));
}

TEST_F(Control, SavedStatementLimit) {
  // The label is the first of the saved statements.
  EXPECT_EQ(run("L:\n" + repeated("X = 1\n", 2999)), "");
  EXPECT_EQ(interp.reader.saved_count, 3000);
  reset_interpreter();
  EXPECT_EQ(run("L:\n" + repeated("X = 1\n", 3000)), fault("Too many statements in the statement buffer", 3002));
  // A loop that cannot be saved runs once.
  EXPECT_EQ(run("K = 0\nWHILE (K < 2)\nK = K + 1\nEND WHILE\nPRINTL K\n"),
            fault("Too many statements in the statement buffer", 2) +
                fault("Too many statements in the statement buffer", 3) +
                fault("Too many statements in the statement buffer", 4) +
                fault("Too many statements in the statement buffer", 5) +
                fault("Too many statements in the statement buffer", 6) + "1 \n");
}

TEST_F(Control, ConstructWordsAreNotVariables) {
  EXPECT_EQ(run("DO = 3\n"), fault("Syntax error - expected loop variable"));
  EXPECT_EQ(run("END = 3\nPRINTL END\n"), "3 \n");
}

TEST_F(Control, RoutineStatementsOutsideARoutine) {
  EXPECT_EQ(run("RETURN\n"), fault("RETURN statement outside of subroutine or function"));
  EXPECT_EQ(run("EXTERN A\n"), fault("EXTERN statement must be used in a subroutine of function"));
  EXPECT_EQ(run("CALL 3\n"), fault("Routine name expected after CALL"));
  EXPECT_EQ(run("CALL NO_SUCH_ROUTINE(1)\nPRINTL 1\n"), " >>>> Open error in file no_such_routine.qsl\n1 \n");
  EXPECT_EQ(value("ARGCNT()"), "0");
}
