// Calls rows of the tables with a function of the test in the library's place.
#pragma once

#include "quilla/quilla.h"
#include "script/array_rows.h"
#include "script/bound_routine.h"
#include "script/callbacks.h"
#include "script/evaluator.h"
#include "script/script_fixture.h"
#include "script/tokenizer.h"

namespace qsl {

class Rows : public Script {
protected:
  void SetUp() override {
    Script::SetUp();
    empty_ = std::fopen("/dev/null", "r");
    start_source(empty_, "t");
    interp.reader.saved_count = 0;
  }
  void TearDown() override {
    std::fclose(empty_);
    interp.reader.source_count = 0;
    Script::TearDown();
  }

  // A row of the table with a routine of the test; what the call prints.
  static std::string call(const std::string& name, void (*routine)(const Call&), const std::string& operands,
                          ScriptValue* result = nullptr) {
    const int number = find_routine(name.c_str());
    RoutineRow row = number >= 0 ? kRoutines[number] : kValueRoutines[find_value_routine(name.c_str())];
    row.run = routine;
    const std::string text = operands + ")";
    testing::internal::CaptureStdout();
    set_token_source(text.c_str());
    call_row(row, result);
    clear_stack(0);
    std::fflush(stdout);
    return testing::internal::GetCapturedStdout();
  }

  // Statements, without a message.
  static void prepare(const std::string& text) {
    std::size_t begin = 0;
    for (std::size_t end; (end = text.find('\n', begin)) != std::string::npos; begin = end + 1)
      execute_statement(text.substr(begin, end - begin).c_str());
  }
  static const ScriptValue& named(const char* name) { return variable(find_variable(name)); }

  std::FILE* empty_ = nullptr;
};

} // namespace qsl
