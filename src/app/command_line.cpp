#include "app/command_line.h"

#include <cstdio>
#include <cstring>
#include <string_view>

#include "script/script_files.h"
#include "script/tokenizer.h"
#include "script/variables.h"

namespace qsl {
namespace {

// First three characters of an argument, in upper case.
struct OptionKey {
  char text[4];
};

OptionKey key_of_argument(const char* argument) {
  OptionKey key{};
  for (int i = 0; i < 3 && argument[i]; ++i) key.text[i] = upper_case(argument[i]);
  return key;
}

bool starts(const OptionKey& key, std::string_view option) { return std::string_view(key.text).starts_with(option); }

void copy_name(char* target, int limit, const char* name) {
  std::snprintf(target, static_cast<std::size_t>(limit) + 1, "%s", name);
}

void define_text(const char* name, const char* text) {
  ScriptValue value{};
  if (!set_string(value, text)) return;
  const int index = new_variable(name, 0);
  if (index < 0) return free_value(value);
  move_value(variable(index), value);
}

// The long options, which must be written exactly so.
bool take_long_option(const char* argument, CommandLine& line) {
  const std::string_view option(argument);
  if (option == "--help") return line.show_help = true;
  if (option == "--version") return line.show_version = true;
  if (option == "--strict") return interp.driver.strict = true;
  return false;
}

// An option by its first three characters; next is the argument behind it or null. Returns the number of arguments
// taken, 0 if it is no option.
int take_option(const char* argument, const char* next, CommandLine& line) {
  DriverState& d = interp.driver;
  const OptionKey key = key_of_argument(argument);
  if (starts(key, "-V")) {
    line.show_box = true;
  } else if (starts(key, "-O")) {
    return 1; // accepted for old command lines
  } else if (starts(key, "-F=")) {
    line.data_file_given = true;
    copy_name(line.data_file_name, kFileNameLength, argument + 3);
  } else if (starts(key, "-F")) {
    line.plain_name = true;
  } else if (starts(key, "-I=")) {
    d.include_override_given = true;
    copy_name(d.include_override, kFileNameLength, argument + 3);
  } else if (starts(key, "-D=")) {
    d.device_override_given = true;
    copy_name(d.device_override, kDeviceNameLength, argument + 3);
  } else if (starts(key, "-D")) {
    d.device_override_given = next != nullptr;
    copy_name(d.device_override, kDeviceNameLength, next ? next : "");
    return 2;
  } else {
    return 0;
  }
  return 1;
}

} // namespace

CommandLine read_command_line(int count, char** arguments) {
  CommandLine line{};
  int given = 0, script_arguments = 0;
  for (int i = 1; i < count;) {
    const char* argument = arguments[i];
    if (take_long_option(argument, line)) {
      ++i;
      continue;
    }
    ++given;
    if (const int taken = take_option(argument, i + 1 < count ? arguments[i + 1] : nullptr, line)) {
      i += taken;
      continue;
    }
    ++i;
    if (!line.script_given) {
      line.script_given = true;
      copy_name(line.script_name, kFileNameLength, argument);
      continue;
    }
    char name[kNameLength + 1];
    std::snprintf(name, sizeof name, "%%ARG%d", ++script_arguments);
    define_text(name, argument);
  }
  if (const int index = new_variable("%NARGS", 0); index >= 0) set_int(variable(index), script_arguments);
  if (line.script_given && !line.plain_name) add_default_extension(line.script_name, kFileNameLength, ".qsl");
  line.interactive = given == 0;
  return line;
}

} // namespace qsl
