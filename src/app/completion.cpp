#include "app/completion.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "script/binding.h"
#include "script/builtin_functions.h"
#include "script/keywords.h"
#include "script/tokenizer.h"
#include "script/variables.h"

namespace qsl {
namespace {

constexpr const char* kConstructWords[] = {"CASE",  "DEFAULT", "DO",      "ELSE",       "ELSEIF",
                                           "END",   "END DO",  "END IF",  "END SWITCH", "END WHILE",
                                           "ENDIF", "IF",      "INCLUDE", "SWITCH",     "WHILE"};

bool begins_with(const char* name, const char* letters, std::size_t length) {
  for (std::size_t i = 0; i < length; ++i)
    if (name[i] != upper_case(letters[i])) return false;
  return true;
}

std::size_t common_length(const char* a, const char* b, std::size_t most) {
  std::size_t n = 0;
  while (n < most && a[n] && a[n] == b[n]) ++n;
  return n;
}

struct FieldWord {
  std::string_view field;
  const char* word;
};
constexpr FieldWord kFieldWords[] = {
    {"I", "INT"},    {"H", "SHORT"},        {"B", "BYTE"},       {"F", "FLOAT"},       {"X", "number"},
    {"S", "text"},   {"FR", "FLOAT array"}, {"IR", "INT array"}, {"BR", "BYTE array"}, {"HR", "SHORT array"},
    {"AR", "array"}, {"U", "variable"},     {"V", "variable"},   {"*", "value"},       {".", "..."}};

const char* word_of(std::string_view field) {
  for (const FieldWord& f : kFieldWords)
    if (f.field == field) return f.word;
  return "?";
}

} // namespace

void find_completions(const char* letters, std::size_t length, Completions& found) {
  found.count = 0;
  const auto add = [&](const char* name) {
    if (found.count < kCompletions && begins_with(name, letters, length)) found.names[found.count++] = name;
  };
  for (const char* word : kConstructWords) add(word);
  for (const char* word : kKeywordNames) add(word);
  for (const RoutineRow& row : kRoutines) add(row.name);
  for (const RoutineRow& row : kValueRoutines) add(row.name);
  for (const FunctionRow& row : kFunctions) add(row.name);
  for (const ScriptValue& v : interp.variables.slots)
    if (v.type != kFree && (v.level == interp.variables.level || is_system_name(v.name))) add(v.name);
  const char** end = found.names + found.count;
  std::sort(found.names, end, [](const char* a, const char* b) { return std::strcmp(a, b) < 0; });
  end = std::unique(found.names, end, [](const char* a, const char* b) { return std::strcmp(a, b) == 0; });
  found.count = static_cast<int>(end - found.names);
  found.common = found.count > 0 ? std::strlen(found.names[0]) : 0;
  for (int i = 1; i < found.count; ++i) found.common = common_length(found.names[0], found.names[i], found.common);
}

bool describe_routine(const char* name, char* text, std::size_t size) {
  const char* signature = nullptr;
  if (const int row = find_routine(name); row >= 0) signature = kRoutines[row].signature;
  if (const int row = find_value_routine(name); row >= 0) signature = kValueRoutines[row].signature;
  if (const int row = find_function(name); row >= 0) signature = kFunctions[row].signature;
  if (!signature) return false;
  const std::string_view fields(signature);
  int length = std::snprintf(text, size, "%s(", name);
  for (int i = 0; i < signature_length(fields); ++i)
    if (length < static_cast<int>(size))
      length += std::snprintf(text + length, size - static_cast<std::size_t>(length), "%s%s", i > 0 ? ", " : "",
                              word_of(signature_field(fields, i)));
  if (length < static_cast<int>(size)) std::snprintf(text + length, size - static_cast<std::size_t>(length), ")");
  return true;
}

} // namespace qsl
