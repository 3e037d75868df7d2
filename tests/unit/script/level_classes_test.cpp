// Every routine against its level class: which levels it takes, whether it refuses or only warns, and by which name.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "quilla/quilla.h"
#include "script/binding.h"
#include "script/script_fixture.h"

using namespace qsl;

namespace {

struct LevelClass {
  bool strict;
  int low, high;
};

// A few routines choose their check by an argument and stand in the list more than once.
std::multimap<std::string, LevelClass> levelClasses() {
  std::multimap<std::string, LevelClass> classes;
  std::ifstream file(SOURCE_DIR "/tests/unit/script/data/level_classes.txt");
  std::string name, kind;
  for (int low = 0, high = 0; file >> name >> kind >> low >> high;)
    classes.insert({name, {kind == "strict", low, high}});
  return classes;
}

std::string dummyOperand(std::string_view field, int position) {
  if (field == "I" || field == "B" || field == "H" || field == "*") return "1";
  if (field == "X") return "1.0";
  if (field == "F") return "FLOAT(1.0)";
  if (field == "S") return "'X'";
  if (field == "FR") return "FALLOC(8)";
  if (field == "IR") return "IALLOC(8)";
  if (field == "BR" && position == 0) return "PIXELS";
  if (field == "BR" || field == "AR") return "BYTE(IALLOC(8))";
  if (field == "V") return "VAR";
  return "OUT" + std::to_string(position);
}

std::string callOf(const RoutineRow& row, bool hasValue) {
  std::string text = hasValue ? std::string("RESULT = ") + row.name + "(" : std::string(row.name) + "(";
  // Arrays that a routine fills in place are variables.
  const std::string_view signature(row.signature);
  const bool marks = signature == "IR,IR,I,U,U";
  for (int k = 0; k < signature_length(row.signature); ++k)
    text += marks && k < 2 ? (k > 0 ? ",MARKS" : "MARKS")
                           : (k > 0 ? "," : "") + dummyOperand(signature_field(row.signature, k), k);
  const char* variable = marks                         ? "MARKS = IALLOC(8)\n"
                         : signature.starts_with("V")  ? "VAR = 'text'\n"
                         : signature.starts_with("BR") ? "PIXELS = BYTE(IALLOC(8))\n"
                                                       : "";
  return variable + text + ")\n";
}

// The name by which a routine reports: its own in lower case, cut at eight characters. TTFONT has always had another.
std::string reportedName(const std::string& routine) {
  if (routine == "TTFONT") return "tffont";
  std::string name = routine.substr(0, 8);
  for (char& c : name) c = static_cast<char>(tolower(c));
  return name;
}

class LevelClasses : public Script {
protected:
  std::filesystem::path before = std::filesystem::current_path(), folder;

  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "quilla_levels_XXXXXX").string();
    folder = mkdtemp(pattern.data());
    std::filesystem::current_path(folder);
    Script::SetUp();
  }
  void TearDown() override {
    Script::TearDown();
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
  }

  void enterLevel(int level) {
    reset_interpreter();
    quilla::freePlotState();
    if (level == 0) return;
    testing::internal::CaptureStdout();
    METAFL("PDF");
    SETFIL("/dev/null");
    QUIINI();
    if (level > 1) GRAF(0, 1, 0, 1, 0, 1, 0, 1);
    quilla::plotState()->level.plotLevel = level;
    testing::internal::GetCapturedStdout();
  }

  void check(const RoutineRow& row, bool hasValue) {
    const std::string name = reportedName(row.name);
    const LevelClass wanted = classes.find(row.name)->second;
    for (int level = 0; level <= 3; level++) {
      enterLevel(level);
      const int warnings = quilla::plotState()->counters.warningCount;
      const std::string printed = run(callOf(row, hasValue));
      const std::string refusal =
          " <<<< Warning 3: Incorrect level in " + name + "!   (" + std::to_string(level) + ")\n";
      if (level >= wanted.low && level <= wanted.high) {
        EXPECT_EQ(printed.find("Incorrect level in " + name + "!"), std::string::npos) << row.name << " " << level;
      } else if (wanted.strict) {
        EXPECT_EQ(printed, refusal) << row.name << " " << level;
        EXPECT_EQ(quilla::plotState()->counters.warningCount, warnings + 1) << row.name;
        EXPECT_EQ(quilla::plotState()->level.plotLevel, level) << row.name;
      } else {
        EXPECT_EQ(printed.rfind(refusal, 0), 0U) << row.name << " " << level << ": " << printed;
      }
    }
    checked++;
  }

  std::multimap<std::string, LevelClass> classes = levelClasses();
  int checked = 0;
};

TEST_F(LevelClasses, EveryRoutineThatExists) {
  ASSERT_EQ(classes.size(), 677U);
  for (const RoutineRow& row : kRoutines)
    if (row.run && classes.count(row.name) == 1) check(row, false);
  for (const RoutineRow& row : kValueRoutines)
    if (row.run && classes.count(row.name) == 1) check(row, true);
  EXPECT_GT(checked, 200);
}

} // namespace
