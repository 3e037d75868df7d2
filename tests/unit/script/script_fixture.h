// Runs statements in a fresh interpreter and gives what they print.
#pragma once

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <string>

#include "core/levels.h"
#include "script/interpreter.h"
#include "script/operand_stack.h"
#include "script/script_files.h"
#include "script/statements.h"
#include "script/variables.h"

namespace qsl {

class Script : public testing::Test {
protected:
  void SetUp() override { reset_interpreter(); }
  void TearDown() override {
    reset_interpreter();
    quilla::freePlotState();
  }

  // The records of a script without its header, as the file "t".
  std::string run(std::string records) {
    std::FILE* file = fmemopen(records.data(), records.size(), "r");
    start_source(file, "t");
    interp.reader.record_counter = 0;
    interp.reader.continued = false;
    testing::internal::CaptureStdout();
    run_statements();
    std::fflush(stdout);
    std::fclose(file);
    interp.reader.source_count = 0;
    return testing::internal::GetCapturedStdout();
  }

  // The same for a script that ends by the arithmetic signal, which a sanitizer would catch.
  void runUntilFault(const std::string& records) {
    std::signal(SIGFPE, SIG_DFL);
    run(records);
  }

  // The value that an expression leaves in a variable, as PRINTL shows it.
  std::string value(const std::string& expression) {
    std::string text = run("RESULT = " + expression + "\nPRINTL RESULT\n");
    while (!text.empty() && (text.back() == '\n' || text.back() == ' ')) text.pop_back();
    return text;
  }

  // Type of the value of an expression.
  std::string type(const std::string& expression) {
    run("RESULT = " + expression + "\n");
    const int index = find_variable("RESULT");
    return index < 0 ? "none"
                     : type_name(variable(index).type) + std::string(is_array(variable(index).type) ? "[]" : "");
  }
};

// The message of a statement in record n of the file "t".
inline std::string fault(const std::string& text, int n = 2) {
  return " >>>> " + text + " in record " + std::to_string(n) + " (t)\n";
}

} // namespace qsl
