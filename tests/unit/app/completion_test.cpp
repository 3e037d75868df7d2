#include "app/completion.h"

#include <gtest/gtest.h>

#include <string>

#include "script/interpreter.h"
#include "script/variables.h"

using namespace qsl;

namespace {

std::string completed(const std::string& letters) {
  static Completions found;
  find_completions(letters.c_str(), letters.size(), found);
  std::string names;
  for (int i = 0; i < found.count; ++i) names += std::string(i > 0 ? " " : "") + found.names[i];
  return names + "|" + std::to_string(found.common);
}

std::string described(const char* name, std::size_t size = 200) {
  std::string text(size, 0);
  return describe_routine(name, text.data(), size) ? text.c_str() : "none";
}

} // namespace

TEST(Completion, NamesOfAllKinds) {
  reset_interpreter();
  EXPECT_EQ(completed("print"), "PRINT PRINTF PRINTL|5");
  EXPECT_EQ(completed("SUBS"), "SUBSTR|6");
  EXPECT_EQ(completed("swit"), "SWITCH|6");
  EXPECT_EQ(completed("QQQ"), "|0");
  new_variable("SUBSET", 0);
  new_variable("SUBLOCAL", 1); // of another level
  EXPECT_EQ(completed("SUBS"), "SUBSET SUBSTR|4");
  EXPECT_EQ(completed("SUBL"), "|0");
  new_variable("%XMIN", 0);
  EXPECT_EQ(completed("%x"), "%XMIN|5");
  reset_interpreter();
}

TEST(Completion, Parameters) {
  EXPECT_EQ(described("CURVE"), "CURVE(FLOAT array, FLOAT array, INT)");
  EXPECT_EQ(described("GETPID"), "GETPID()");
  EXPECT_EQ(described("FPRINTF"), "FPRINTF(...)");
  EXPECT_EQ(described("GETPAG"), "GETPAG(variable, variable)");
  EXPECT_EQ(described("NOTHING"), "none");
  EXPECT_EQ(described("CURVE", 12), "CURVE(FLOAT"); // cut to the room
}
