// Script routines that the library calls in the middle of a statement.
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "script/script_fixture.h"
#include "script/user_routines.h"

using namespace qsl;

namespace {

class Callbacks : public Script {
protected:
  void SetUp() override {
    Script::SetUp();
    std::string pattern = testing::TempDir() + "quilla_callback_XXXXXX"; // tests run side by side
    folder_ = std::string(mkdtemp(pattern.data())) + "/";
    setenv("QSL_PATH", folder_.c_str(), 1);
    write("cb_double", "FUNCTION CB_DOUBLE(X)\nDO I = 1, 2\nY = X * I\nEND DO\nRETURN Y\nEND\n");
    write("cb_change",
          "SUBROUTINE CB_CHANGE(DOUBLE : X, N)\nX = X + N\nAGAIN:\nN = N - 1\nIF (N > 0) GOTO AGAIN\nEND\n");
    write("cb_text", "FUNCTION CB_TEXT()\nRETURN 'x'\nEND\n");
  }
  void TearDown() override {
    unsetenv("QSL_PATH");
    std::filesystem::remove_all(folder_);
    Script::TearDown();
  }
  void write(const std::string& name, const std::string& text) {
    std::ofstream(folder_ + name + ".qsl") << "%QSL\n" << text;
  }
  std::string folder_;

  // A place for the library's call: the stack of the statement that runs must survive it.
  static double doubled(double x) {
    ScriptValue value{};
    set_double(value, x);
    push_int(77);
    const bool good = call_back("cb_double", &value, 1, true);
    EXPECT_TRUE(good);
    EXPECT_EQ(top_operand().value.i, 77);
    clear_stack(operand_count() - 1);
    return interp.control.callback_result;
  }
  void begin() {
    start_source(std::fopen("/dev/null", "r"), "t");
    interp.reader.saved_count = 0;
  }
  void TearDownSource() { std::fclose(interp.reader.sources[0].stream); }
};

} // namespace

TEST_F(Callbacks, GiveAValue) {
  begin();
  EXPECT_EQ(doubled(2.5), 5.0);
  EXPECT_EQ(doubled(-1.0), -2.0);
  EXPECT_EQ(interp.variables.level, 0);
  EXPECT_EQ(interp.reader.source_count, 1);
  EXPECT_EQ(interp.reader.saved_count, 0);
  EXPECT_EQ(find_variable("Y"), -1);
  TearDownSource();
}

TEST_F(Callbacks, ValuesComeBack) {
  begin();
  ScriptValue values[2] = {};
  set_double(values[0], 1.5);
  set_int(values[1], 3);
  EXPECT_TRUE(call_back("cb_change", values, 2, false));
  EXPECT_EQ(values[0].value.d, 4.5);
  EXPECT_EQ(values[1].value.i, 0);
  EXPECT_EQ(interp.reader.saved_count, 0); // its labels leave nothing behind
  TearDownSource();
}

// In the middle of a loop the statements that follow wait.
TEST_F(Callbacks, InAReplay) {
  begin();
  ReaderState& r = interp.reader;
  for (const char* text : {"FIRST", "SECOND", "THIRD"}) r.saved[r.saved_count++] = {strdup(text), 0, nullptr};
  r.saved_cursor = 1;
  r.recording = true;
  interp.control.loop_depth = 1;
  EXPECT_EQ(doubled(4.0), 8.0);
  EXPECT_EQ(r.saved_count, 3);
  EXPECT_EQ(r.saved_cursor, 1);
  EXPECT_STREQ(r.saved[1].text, "SECOND");
  EXPECT_STREQ(r.saved[2].text, "THIRD");
  TearDownSource();
}

TEST_F(Callbacks, Faults) {
  begin();
  testing::internal::CaptureStdout();
  EXPECT_FALSE(call_back("cb_missing", nullptr, 0, false));
  EXPECT_TRUE(call_back("cb_text", nullptr, 0, true));
  std::fflush(stdout);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            " >>>> Open error in file cb_missing.qsl\n"
            " >>>> RETURN statement must return a floatingpoint value in record 3 (" +
                folder_ + "cb_text.qsl)\n");
  TearDownSource();
}

// A call that is first made in a later pass: the statements that waited belong to the buffer again, once.
TEST_F(Callbacks, WaitingStatementsAreGivenBack) {
  write("cb_call", "SUBROUTINE CB_CALL(N)\nPRINTL N\nEND\n");
  EXPECT_EQ(run("L:\nDO I = 1, 3\nIF (I > 1) CALL CB_CALL(I)\nX = I\nEND DO\n"), "2 \n3 \n");
  EXPECT_EQ(interp.reader.saved_count, 8); // the label, DO to END DO, and the routine's three statements
  for (const RoutineFrame& frame : interp.control.frames) EXPECT_EQ(frame.waiting, nullptr);
}
