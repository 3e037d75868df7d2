// The tables against the lists of their rows, kept as text beside the tests.
#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "script/binding.h"
#include "script/builtin_functions.h"
#include "script/keywords.h"
#include "script/system_variables.h"

using namespace qsl;

namespace {

std::vector<std::string> listOf(const char* name) {
  std::ifstream file(std::string(SOURCE_DIR "/tests/unit/script/data/") + name);
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);) lines.push_back(line);
  return lines;
}

std::string rowText(const RoutineRow& row) {
  return row.signature[0] ? std::string(row.name) + " " + row.signature : row.name;
}

} // namespace

TEST(Tables, RoutinesAreThoseOfTheList) {
  const auto list = listOf("routines.txt");
  ASSERT_EQ(list.size(), 658U);
  for (std::size_t i = 0; i < list.size(); ++i) {
    EXPECT_EQ(rowText(kRoutines[i]), list[i]);
    EXPECT_EQ(find_routine(kRoutines[i].name), static_cast<int>(i));
  }
  EXPECT_EQ(find_routine("CLPMOD"), -1);
  EXPECT_EQ(find_routine(""), -1);
}

TEST(Tables, ValueRoutinesAreThoseOfTheList) {
  const auto list = listOf("value_routines.txt");
  ASSERT_EQ(list.size(), 129U);
  for (std::size_t i = 0; i < list.size(); ++i) {
    EXPECT_EQ(rowText(kValueRoutines[i]), list[i].substr(list[i].find(' ') + 1));
    EXPECT_EQ(find_value_routine(kValueRoutines[i].name), static_cast<int>(i));
  }
}

TEST(Tables, FunctionsAreThoseOfTheList) {
  const auto list = listOf("functions.txt");
  ASSERT_EQ(list.size(), 94U);
  for (std::size_t i = 0; i < list.size(); ++i) {
    const FunctionRow& row = kFunctions[i];
    const std::string signature = row.signature[0] ? row.signature : "-";
    EXPECT_EQ(std::string(row.name) + " " + signature + " " + std::to_string(row.mode), list[i]);
    EXPECT_EQ(find_function(row.name), static_cast<int>(i));
  }
}

TEST(Tables, SystemVariablesAreThoseOfTheList) {
  const auto list = listOf("system_variables.txt");
  ASSERT_EQ(list.size(), 66U);
  for (std::size_t i = 0; i < list.size(); ++i) {
    const SystemVariableRow& row = kSystemVariables[i];
    EXPECT_EQ(std::string(row.name) + " " + type_name(row.type), list[i]);
    EXPECT_EQ(find_system_variable((std::string("%") + row.name).c_str()), static_cast<int>(i));
  }
}

TEST(Tables, KeywordsAreFound) {
  for (int i = 0; i < kKeywords; ++i) EXPECT_EQ(find_keyword(kKeywordNames[i]), i);
  EXPECT_EQ(find_keyword("IF"), -1);
  EXPECT_EQ(find_keyword("PLOT33"), -1);
}

TEST(Tables, SignaturesAreCutIntoFields) {
  EXPECT_EQ(signature_length(""), 0);
  EXPECT_EQ(signature_length("FR,FR,I"), 3);
  EXPECT_EQ(signature_field("FR,X,I", 0), "FR");
  EXPECT_EQ(signature_field("FR,X,I", 2), "I");
  EXPECT_EQ(signature_field("FR,X,I", 3), "");
}

TEST(Tables, CountsNameArraysAndIntegers) {
  for (const RoutineRow& row : kRoutines)
    for (const ArrayCount& c : row.counts) {
      if (c.array == 0) break;
      EXPECT_EQ(signature_field(row.signature, c.array - 1).back(), 'R') << row.name;
      if (c.count != 0) {
        EXPECT_EQ(signature_field(row.signature, c.count - 1), "I") << row.name;
      }
    }
}

// Every array operand is counted, also those of routines to come: none may be handed over unchecked.
TEST(Tables, ArraysAreCounted) {
  // These look at their arrays themselves, where they are more than a block of pixels.
  const std::set<std::string> own = {"CSRMOV", "CSRPTS", "CSRPOL", "RPIXLS", "RPXROW"};
  const std::set<std::string> later = {"WPIXLS", "WPXROW", "RBFPNG", "LDIMG", "SPLINE", "CONTUR2"};
  const auto check = [&](const RoutineRow& row) {
    if (own.contains(row.name) || (!row.run && later.contains(row.name))) return;
    for (int k = 0; k < signature_length(row.signature); ++k) {
      if (!signature_field(row.signature, k).ends_with('R')) continue;
      bool counted = false;
      for (const ArrayCount& c : row.counts) counted |= c.array == k + 1;
      EXPECT_TRUE(counted) << row.name << " operand " << k + 1;
    }
  };
  for (const RoutineRow& row : kRoutines) check(row);
  for (const RoutineRow& row : kValueRoutines) check(row);
}
