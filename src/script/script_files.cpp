#include "script/script_files.h"

#include <sys/stat.h>

#include <cstdlib>
#include <cstring>

#include "script/evaluator.h"
#include "script/report.h"

namespace qsl {
namespace {

constexpr char kSeparator = '/';
constexpr const char* kScriptExtension = ".qsl";
constexpr const char* kScriptFolder = "/qsl/";

void copy_name(char* target, const char* name) { std::snprintf(target, kFileNameLength + 1, "%s", name); }

// Searches a script: as named, in QSL_PATH, in the library's script folder. The name becomes what was opened.
std::FILE* search_script(char* name) {
  std::FILE* file = open_file(name, "r");
  if (file) return file;
  char path[kFileNameLength + 1];
  if (const char* directory = std::getenv("QSL_PATH")) {
    join_path(path, kFileNameLength, directory, name);
    file = open_file(path, "r");
  }
  if (!file) {
    const char* library = std::getenv("QUILLA");
    char folder[kFileNameLength + 1];
    copy_name(folder, library ? library : QUILLA_SHARE_DIR);
    const std::size_t length = std::strlen(folder);
    if (length > 0 && folder[length - 1] == kSeparator) folder[length - 1] = 0;
    std::strncat(folder, kScriptFolder, kFileNameLength - std::strlen(folder));
    join_path(path, kFileNameLength, folder, name);
    file = open_file(path, "r");
  }
  if (file) {
    copy_name(name, path);
  } else {
    report_file_error(" >>>> Open error in file %s\n", name);
  }
  return file;
}

bool is_header(const char* record) {
  constexpr const char* kHeader = "%QSL";
  for (int i = 0; i < 4; ++i)
    if (upper_case(record[i]) != kHeader[i]) return false;
  return record[4] != '-';
}

std::FILE* refuse_format(std::FILE* file, const char* name) {
  report_file_error(" >>>> Not allowed file format in %s\n", name);
  std::fclose(file);
  return nullptr;
}

// A comment of any length in front of the main script's header.
void skip_line_rest(std::FILE* file, const char* record) {
  if (std::strchr(record, '\n')) return;
  for (int c = std::fgetc(file); c != EOF && c != '\n';) c = std::fgetc(file);
}

} // namespace

std::FILE* open_file(const char* name, const char* mode) {
  struct stat info;
  if (stat(name, &info) == 0 && S_ISDIR(info.st_mode)) return nullptr;
  return std::fopen(name, mode);
}

void add_default_extension(char* name, int limit, const char* extension) {
  const char* mark = std::strchr(name, ']');
  if (!mark) mark = std::strchr(name, '/');
  if (std::strchr(mark ? mark : name, '.')) return;
  const int length = static_cast<int>(std::strlen(name));
  if (length < limit) std::strncat(name, extension, static_cast<std::size_t>(limit - length));
}

void join_path(char* path, int limit, const char* directory, const char* name) {
  const std::size_t length = std::strlen(directory);
  const bool separated = length > 0 && directory[length - 1] == kSeparator;
  std::snprintf(path, static_cast<std::size_t>(limit) + 1, "%s%s%s", directory, separated ? "" : "/", name);
}

std::FILE* open_script(char* name) {
  std::FILE* file = search_script(name);
  if (!file) return nullptr;
  interp.reader.record_counter = 0;
  char record[kMainHeaderLength + 1];
  while (std::fgets(record, sizeof record, file)) {
    const bool comment = record[0] == '#' || (record[0] == '/' && record[1] == '/');
    if (!comment) return is_header(record) ? file : refuse_format(file, name);
    ++interp.reader.record_counter;
    skip_line_rest(file, record);
  }
  return refuse_format(file, name);
}

void start_source(std::FILE* stream, const char* name) {
  ReaderState& r = interp.reader;
  r.sources[0].stream = stream;
  r.sources[0].saved_record = 0;
  copy_name(r.sources[0].name, name);
  r.source_count = 1;
}

bool push_source(const char* name) {
  ReaderState& r = interp.reader;
  if (r.source_count == kOpenSources) {
    report_error("Too many opened files");
    return false;
  }
  Source& source = r.sources[r.source_count];
  copy_name(source.name, name);
  std::FILE* file = search_script(source.name);
  if (!file) return false;
  char header[kRecordSize] = "";
  if (!std::fgets(header, sizeof header, file) || !is_header(header)) {
    refuse_format(file, source.name);
    return false;
  }
  source.stream = file;
  source.saved_record = r.record_counter;
  r.record_counter = 0;
  ++r.source_count;
  return true;
}

bool pop_source() {
  ReaderState& r = interp.reader;
  if (r.source_count < 2) return false;
  const Source& source = r.sources[--r.source_count];
  std::fclose(source.stream);
  r.record_counter = source.saved_record;
  if (r.source_count == 1) interp.driver.interactive_mode = interp.driver.interactive_start;
  return true;
}

std::FILE* current_stream() { return interp.reader.sources[interp.reader.source_count - 1].stream; }

void include_file(char name[kFileNameLength + 1]) {
  add_default_extension(name, kFileNameLength, kScriptExtension);
  interp.reader.include_pending = true;
  push_source(name);
  interp.driver.interactive_mode = false;
}

void run_include() {
  DriverState& d = interp.driver;
  char name[kFileNameLength + 1];
  if (d.include_override_given && !d.include_override_used) {
    d.include_override_used = true;
    copy_name(name, d.include_override);
  } else {
    const int n = evaluate(false);
    if (n == kNothing) return report_error("Missing parameter in INCLUDE statement");
    if (n == 0 || operand(0).type == kFree) return clear_stack(0);
    if (operand(0).type != kString) {
      report_error("Parameter of INCLUDE must be a string");
      return clear_stack(0);
    }
    if (n > 1) report_error("Too many parameters in INCLUDE statement");
    if (token() != kEnd && token() != kErrorToken) report_error("Expected end of statement in INCLUDE");
    copy_name(name, text_of(operand(0)));
    clear_stack(0);
  }
  include_file(name);
}

} // namespace qsl
