// Every system variable: its type, when it is applied, and what it does to the plot.
#include "core/plot_state.h"
#include "quilla/quilla.h"
#include "script/script_fixture.h"
#include "script/system_variables.h"

using namespace qsl;

namespace {

class SystemVariables : public Script {
protected:
  static std::string name(const SystemVariableRow& row) { return std::string("%") + row.name; }
  std::string open() { return run("METAFL('PDF')\nSETFIL('/dev/null')\nQUIINI()\nERRMOD('PROTOCOL','OFF')\n"); }
  static const quilla::PlotState& plot() { return *quilla::plotState(); }

  // Assigns, with the plot open, and expects no message.
  void set(const std::string& statements) { EXPECT_EQ(run(statements + "\n"), "") << statements; }
};

const char* rightValue(Tag type) { return type == kString ? "'NONE'" : type == kInt ? "3" : "2.5"; }
const char* wrongValue(Tag type) { return type == kString ? "3" : "'text'"; }

} // namespace

// Without a plot any value is taken; the opening of a plot looks at all of them.
TEST_F(SystemVariables, WrongTypesAreToldWhenThePlotOpens) {
  for (const SystemVariableRow& row : kSystemVariables) {
    reset_interpreter();
    EXPECT_EQ(run(name(row) + " = " + wrongValue(row.type) + "\n"), "") << row.name;
    const std::string told = fault("Variable " + name(row) + " must be of type " + type_name(row.type), 4);
    EXPECT_EQ(open(), told);
    EXPECT_EQ(run(name(row) + " = " + wrongValue(row.type) + "\n"),
              fault("Variable " + name(row) + " must be of type " + type_name(row.type)));
    testing::internal::CaptureStdout();
    QUIFIN();
    testing::internal::GetCapturedStdout();
  }
}

TEST_F(SystemVariables, RightTypesAreTaken) {
  open();
  for (const SystemVariableRow& row : kSystemVariables) {
    const std::string printed = run(name(row) + " = " + rightValue(row.type) + "\n");
    EXPECT_EQ(printed.find(" >>>> "), std::string::npos) << row.name << ": " << printed;
    EXPECT_EQ(variable(find_variable(name(row).c_str())).type, row.type) << row.name;
  }
}

TEST_F(SystemVariables, WholeNumbersAndFloatsBecomeDouble) {
  open();
  for (const char* value : {"7", "FLOAT(7)"}) {
    set(std::string("%XMIN = ") + value);
    const ScriptValue& v = variable(find_variable("%XMIN"));
    EXPECT_EQ(v.type, kDouble);
    EXPECT_EQ(v.value.d, 7.0);
  }
  EXPECT_EQ(run("%H = 2.5\n"), fault("Variable %H must be of type INT"));
  EXPECT_EQ(plot().text.textHeight, 36);
}

TEST_F(SystemVariables, UnknownNames) {
  EXPECT_EQ(run("%NOSUCH = 1\n"), fault("Undefined system variable %NOSUCH"));
  EXPECT_EQ(open(), "");
  EXPECT_EQ(run("%OTHER = 'x'\n"), fault("Undefined system variable %OTHER"));
}

TEST_F(SystemVariables, HeightsSymbolsAndModes) {
  open();
  set("%H = 41\n%HNAME = 42\n%HSYMBL = 43\n%HTITLE = 44\n%INCMRK = -2\n%MARKER = 5\n%POLCRV = 'STEP'\n%VTITLE = 45");
  EXPECT_EQ(plot().text.textHeight, 41);
  EXPECT_EQ(plot().axis.nameHeight, 42);
  EXPECT_EQ(plot().curve.markerHeight, 43);
  EXPECT_EQ(plot().axis.titleHeight, 44);
  EXPECT_EQ(plot().curve.markerStep, -2);
  EXPECT_EQ(plot().curve.markerKind, 5);
  EXPECT_EQ(plot().curve.curveMode, quilla::kCurveStep);
  EXPECT_EQ(plot().axis.titleDistance, 45);
}

TEST_F(SystemVariables, TitlesAndNames) {
  open();
  set("%T1 = 'one'\n%T2 = 'two'\n%T3 = 'three'\n%T4 = 'four'\n%X = 'across'\n%Y = 'up'\n%Z = 'depth'");
  const char* titles[] = {"one", "two", "three", "four"};
  for (int i = 0; i < 4; i++) EXPECT_STREQ(plot().axis.titleLine[i], titles[i]);
  const char* names[] = {"across", "up", "depth"};
  for (int i = 0; i < 3; i++) EXPECT_STREQ(plot().axis.axisName[i], names[i]);
}

TEST_F(SystemVariables, AxesOneByOne) {
  open();
  int index = 0;
  for (const char axis : {'X', 'Y', 'Z'}) {
    const std::string p = std::string("%") + axis;
    set(p + "DIG = 4\n" + p + "LAB = 'EXP'\n" + p + "SCL = 'LOG'\n" + p + "TIC = 7");
    for (int other = 0; other < 3; other++) {
      const bool done = other <= index;
      EXPECT_EQ(plot().axis.labelDigits[other], done ? 4 : 1);
      EXPECT_EQ(plot().axis.labelKind[other], done ? quilla::kLabelExp : quilla::kLabelFloat);
      EXPECT_EQ(plot().axis.axisLogScale[other], done ? 1 : 0);
      EXPECT_EQ(plot().axis.tickCount[other], done ? 7 : 2);
    }
    index++;
  }
}

// The other one of a pair keeps its value.
TEST_F(SystemVariables, LengthsAndPositionsComeInPairs) {
  open();
  const int y_length = plot().axis.axisLength[1], y_position = plot().axis.axisPosY;
  set("%XLEN = 1234\n%XPOS = 321");
  EXPECT_EQ(plot().axis.axisLength[0], 1234);
  EXPECT_EQ(plot().axis.axisLength[1], y_length);
  EXPECT_EQ(plot().axis.axisPosX, 321);
  EXPECT_EQ(plot().axis.axisPosY, y_position);
  set("%YLEN = 567\n%YPOS = 890");
  EXPECT_EQ(plot().axis.axisLength[0], 1234);
  EXPECT_EQ(plot().axis.axisLength[1], 567);
  EXPECT_EQ(plot().axis.axisPosX, 321);
  EXPECT_EQ(plot().axis.axisPosY, 890);
}

// The library's own checks hold.
TEST_F(SystemVariables, TheLibraryChecksValuesAndLevels) {
  open();
  EXPECT_EQ(run("%H = 0\n"), " <<<< Warning 2: Incorrect parameter in height!   (0)\n");
  EXPECT_EQ(plot().text.textHeight, 36);
  run("GRAF(0,1,0,1,0,1,0,1)\n");
  EXPECT_EQ(run("%XLEN = 1000\n"), " <<<< Warning 3: Incorrect level in axslen!   (2)\n");
}

// What was set before the plot is applied when it opens, and again when the next one does.
TEST_F(SystemVariables, AppliedAtEachOpening) {
  set("%H = 50\n%XLEN = 1000\n%T1 = 'title'");
  for (int i = 0; i < 2; i++) {
    open();
    EXPECT_EQ(plot().text.textHeight, 50);
    EXPECT_EQ(plot().axis.axisLength[0], 1000);
    EXPECT_STREQ(plot().axis.titleLine[0], "title");
    testing::internal::CaptureStdout();
    QUIFIN();
    testing::internal::GetCapturedStdout();
  }
}

// Two of three values keep what they are; a length that is none is told to the library, and not kept.
TEST_F(SystemVariables, BoxAndEye) {
  open();
  set("%Y3LEN = 3.5\n%X3VIEW = -6\n%Z3VIEW = 2.5");
  const quilla::ViewGroup& view = plot().view;
  EXPECT_EQ(view.boxLength[0], 2.0F);
  EXPECT_EQ(view.boxLength[1], 3.5F);
  EXPECT_EQ(view.eyeMode, quilla::kViewAbsolute);
  EXPECT_EQ(view.eye[0], -6.0F);
  EXPECT_EQ(view.eye[1], -5.0F);
  EXPECT_EQ(view.eye[2], 2.5F);
  EXPECT_NE(run("%Y3LEN = -1\n").find("Warning 2: Incorrect parameter in axis3d!"), std::string::npos);
  EXPECT_EQ(view.boxLength[1], 3.5F);
  set("%X3LEN = 4");
  EXPECT_EQ(view.boxLength[0], 4.0F);
  EXPECT_EQ(view.boxLength[1], 3.5F);
  set("%ZLEN = 700");
  EXPECT_EQ(plot().axis.axisLength[2], 700);
}
