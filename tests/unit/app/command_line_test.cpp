#include "app/command_line.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "script/interpreter.h"
#include "script/variables.h"

using namespace qsl;

namespace {

CommandLine read(std::vector<std::string> arguments) {
  reset_interpreter();
  arguments.insert(arguments.begin(), "QSLRUN");
  std::vector<char*> pointers;
  for (std::string& a : arguments) pointers.push_back(a.data());
  return read_command_line(static_cast<int>(pointers.size()), pointers.data());
}

int argumentCount() { return variable(find_variable("%NARGS")).value.i; }

std::string argument(const char* name) {
  const int index = find_variable(name);
  return index < 0 ? "(none)" : text_of(variable(index));
}

} // namespace

TEST(CommandLine, NothingIsThePrompt) {
  EXPECT_TRUE(read({}).interactive);
  EXPECT_EQ(argumentCount(), 0);
  EXPECT_FALSE(read({"-V"}).interactive);
  EXPECT_TRUE(read({"--strict"}).interactive); // our own options are looked at before
}

TEST(CommandLine, ScriptAndArguments) {
  const CommandLine line = read({"a", "b", "c"});
  EXPECT_STREQ(line.script_name, "a.qsl");
  EXPECT_EQ(argument("%ARG1"), "b");
  EXPECT_EQ(argument("%ARG2"), "c");
  EXPECT_EQ(argument("%ARG3"), "(none)");
  EXPECT_EQ(argumentCount(), 2);
}

TEST(CommandLine, OptionsAreTestedForEveryArgument) {
  const CommandLine line = read({"a", "-Version", "b"});
  EXPECT_TRUE(line.show_box);
  EXPECT_EQ(argumentCount(), 1);
  EXPECT_TRUE(read({"-v"}).show_box);
  EXPECT_FALSE(read({"-Output"}).script_given);
  EXPECT_TRUE(read({"-I"}).script_given); // no option without its sign of equality
  EXPECT_TRUE(read({"-"}).script_given);
}

TEST(CommandLine, DataFileAndPlainName) {
  EXPECT_STREQ(read({"-f=data", "s"}).data_file_name, "data");
  EXPECT_FALSE(read({"-F=data"}).plain_name);
  EXPECT_STREQ(read({"-Fdata", "s"}).script_name, "s");
  EXPECT_STREQ(read({"s", "-F"}).script_name, "s");
}

TEST(CommandLine, DeviceForms) {
  read({"-D=console", "s"});
  EXPECT_STREQ(interp.driver.device_override, "consol"); // six characters
  read({"-D", "pdf", "s"});
  EXPECT_STREQ(interp.driver.device_override, "pdf");
  const CommandLine line = read({"-Dcons", "s"});
  EXPECT_STREQ(interp.driver.device_override, "s");
  EXPECT_FALSE(line.script_given);
  read({"s", "-D"});
  EXPECT_FALSE(interp.driver.device_override_given);
}

TEST(CommandLine, IncludeOverride) {
  read({"-i=part", "s"});
  EXPECT_TRUE(interp.driver.include_override_given);
  EXPECT_STREQ(interp.driver.include_override, "part");
}

TEST(CommandLine, LongOptionsAreExact) {
  EXPECT_TRUE(read({"--help"}).show_help);
  EXPECT_TRUE(read({"--version"}).show_version);
  EXPECT_TRUE(read({"--helper"}).script_given);
  EXPECT_TRUE(read({"--HELP"}).script_given);
  read({"s", "--strict"});
  EXPECT_TRUE(interp.driver.strict);
  EXPECT_EQ(argumentCount(), 0);
}

TEST(CommandLine, LongNamesAreCut) {
  EXPECT_EQ(std::string(read({std::string(300, 'n')}).script_name).size(), 256U);
  EXPECT_EQ(std::string(read({"-F=" + std::string(300, 'n')}).data_file_name).size(), 256U);
}

TEST(CommandLine, MoreArgumentsThanVariables) {
  std::vector<std::string> many(502, "x");
  testing::internal::CaptureStdout();
  read(many);
  const std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_NE(printed.find("Maximal number of variables is reached"), std::string::npos);
  EXPECT_EQ(argument("%ARG500"), "x");
  reset_interpreter();
}
