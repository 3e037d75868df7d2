// FOPEN to FCLOSE, and reading and writing of characters, lines and blocks.
#include "script/file_functions.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>

#include "script/builtin_rows.h"
#include "script/operand_stack.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

constexpr int kFault = -1;

struct FileMode {
  std::string_view written;
  FileClass file_class;
  const char* opened;
};
constexpr FileMode kModes[] = {{"r", kReadText, "r"},      {"w", kWriteText, "w"},       {"w+", kWriteText, "w+"},
                               {"a", kWriteText, "a"},     {"a+", kWriteText, "a+"},     {"rb", kReadBinary, "rb"},
                               {"br", kReadBinary, "rb"},  {"wb", kWriteBinary, "wb"},   {"bw", kWriteBinary, "wb"},
                               {"ab", kWriteBinary, "ab"}, {"ba", kWriteBinary, "ab"},   {"a+b", kWriteBinary, "a+b"},
                               {"r+", kUpdateText, "r+"},  {"r+b", kUpdateBinary, "r+b"}};

// Text of an argument, up to its first zero byte.
std::string_view text_at(int position) {
  const ScriptValue* v = resolve_operand(position);
  if (!v || !v->value.data) return {};
  const std::string_view all(text_of(*v), static_cast<std::size_t>(v->count));
  return all.substr(0, all.find('\0'));
}

std::int32_t int_at(int position) {
  const ScriptValue* v = resolve_operand(position);
  return v ? v->value.i : 0;
}

// A name or mode with an end mark, cut to the size.
template <std::size_t N> void copy_text(char (&target)[N], std::string_view text) {
  const std::size_t n = std::min(text.size(), N - 1);
  std::memcpy(target, text.data(), n);
  target[n] = 0;
}

const FileMode* find_mode(std::string_view text) {
  char mode[kFileModeLength + 1];
  copy_text(mode, text);
  for (char* p = mode; *p; ++p)
    if (*p >= 'A' && *p <= 'Z') *p = static_cast<char>(*p - 'A' + 'a');
  for (const FileMode& m : kModes)
    if (m.written == mode) return &m;
  return nullptr;
}

bool is_console(std::string_view name) {
  constexpr std::string_view kConsole = "CON:";
  return std::equal(name.begin(), name.end(), kConsole.begin(), kConsole.end(),
                    [](char a, char b) { return upper_case(a) == b; });
}

// A text that may not fit goes to a file of its own when nothing may be changed.
std::FILE* open_stream(const char* name, const char* mode) {
  return interp.driver.harmless ? std::tmpfile() : open_file(name, mode);
}

// Opens the entry; false after a message.
bool open_entry(ScriptFile& file, std::string_view name, const FileMode& mode) {
  file.file_class = mode.file_class;
  file.console = is_console(name);
  if (file.console) {
    if (interp.driver.interactive_mode && mode.file_class != kWriteText) {
      report_error("Not allowed file mode in FOPEN");
      return false;
    }
    const bool reads = mode.file_class == kReadText || mode.file_class == kReadBinary;
    file.stream = reads ? stdin : stdout;
    return true;
  }
  char path[kFileNameLength + 1];
  copy_text(path, name);
  file.stream = open_stream(path, mode.opened);
  if (!file.stream) report_error_text("Open error in", path);
  return file.stream != nullptr;
}

int open_script_file(std::string_view name, std::string_view mode_text) {
  ScriptFile* files = interp.files;
  ScriptFile* free = std::find_if(files, files + kScriptFiles, [](const ScriptFile& f) { return !f.in_use; });
  if (free == files + kScriptFiles) {
    report_error("Maximal number of open files is reachend");
    return kFault;
  }
  const FileMode* mode = find_mode(mode_text);
  if (!mode) {
    report_error("Undefined file mode in FOPEN");
    return kFault;
  }
  free->in_use = open_entry(*free, name, *mode);
  return free->in_use ? static_cast<int>(free - files) : kFault;
}

int close_entry(ScriptFile& file) {
  const int result = file.console ? 0 : std::fclose(file.stream);
  file = {};
  return result == 0 ? 0 : kFault;
}

int clamp_position(long position) {
  return static_cast<int>(std::min<long>(position, std::numeric_limits<std::int32_t>::max()));
}

// The CHAR array variable that a text is read into; null after a message.
ScriptValue* text_target(int position, const char* message) {
  ScriptValue* v = resolve_operand(position);
  if (!v) return nullptr;
  if (v->type == kCharArray && operand(position).type == kAlias) return v;
  report_error(message);
  return nullptr;
}

// Reads a line with its line feed, up to limit characters; their number, or -1 at the end of the file.
int read_line(std::FILE* stream, char* text, int limit) {
  int length = 0;
  while (length < limit) {
    const int c = std::getc(stream);
    if (c == EOF) break;
    text[length++] = static_cast<char>(c);
    if (c == '\n') break;
  }
  return length == 0 && limit > 0 ? kFault : length;
}

int read_text_line(int first) {
  ScriptFile* file = find_file_for(int_at(first + 2), "FGETS", {kReadText});
  if (!file) return kFault;
  ScriptValue* target = text_target(first, "A CHAR array must be passed to FGETS");
  if (!target) return kFault;
  const int size = int_at(first + 1);
  if (size < 1) {
    report_error("Non positive value in FGETS paramter 2");
    return kFault;
  }
  if (size > target->count) {
    report_error("Not enough array elements in FGETS");
    return kFault;
  }
  const int length = read_line(file->stream, elements<char>(*target), size - 1);
  if (length >= 0) elements<char>(*target)[length] = 0;
  return length;
}

int read_console_line(int first) {
  if (interp.driver.interactive_mode) {
    report_error("GETS cannot be used in interactive mode");
    return kFault;
  }
  ScriptValue* target = text_target(first, "A CHAR array must be passed to GETS");
  if (!target) return kFault;
  char line[kRecordSize];
  int length = read_line(stdin, line, kRecordSize - 1);
  if (length < 0) return kFault;
  if (length > 0 && line[length - 1] == '\n') --length;
  if (length >= target->count) {
    report_error("Not enough array elements in GETS");
    return kFault;
  }
  std::memcpy(target->value.data, line, static_cast<std::size_t>(length));
  elements<char>(*target)[length] = 0;
  return length;
}

// The array of FREAD or FWRITE; null after a message.
ScriptValue* block_at(int first, const char* function) {
  ScriptValue* v = resolve_operand(first);
  if (!v) return nullptr;
  char message[80];
  if (!is_array(v->type) || v->type == kComplexArray) {
    std::snprintf(message, sizeof message, "Parameter 1 in %s must be an array", function);
  } else if (int_at(first + 1) < 1) {
    std::snprintf(message, sizeof message, "Non positive value in %s paramter 2", function);
  } else if (int_at(first + 1) > v->count) {
    std::snprintf(message, sizeof message, "Not enough array elements in %s", function);
  } else {
    return v;
  }
  report_error(message);
  return nullptr;
}

int move_block(int first, const char* function, bool write) {
  ScriptFile* file = find_file_for(int_at(first + 2), function, {write ? kWriteBinary : kReadBinary});
  if (!file) return kFault;
  const ScriptValue* v = block_at(first, function);
  if (!v) return kFault;
  const std::size_t size = static_cast<std::size_t>(element_size(v->type));
  const std::size_t count = static_cast<std::size_t>(int_at(first + 1));
  void* data = v->value.data;
  return static_cast<int>(write ? std::fwrite(data, size, count, file->stream)
                                : std::fread(data, size, count, file->stream));
}

// Moves to a position from the start of the file.
int seek_position(int first) {
  ScriptFile* file = find_file(int_at(first), "FSEEK");
  if (!file) return kFault;
  const int offset = int_at(first + 1);
  if (offset < 0) {
    report_error("Negative offset in FSEEK");
    return kFault;
  }
  return std::fseek(file->stream, offset, SEEK_SET) == 0 ? 0 : kFault;
}

int put_character(int first) {
  ScriptFile* file = find_file_for(int_at(first + 1), "FPUTC", {kWriteText, kUpdateText});
  return file ? std::fputc(int_at(first), file->stream) : kFault;
}

int put_text(std::FILE* stream, std::string_view text) {
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() ? 0 : kFault;
}

// A plain function of a file: its result by the stream, or -1.
template <typename Act> void with_file(int first, const char* function, Act act) {
  ScriptFile* file = find_file(int_at(first), function);
  replace_by_int(first, file ? act(*file) : kFault);
}

} // namespace

ScriptFile* find_file(std::int32_t number, const char* function) {
  if (number < 0 || number >= kScriptFiles) {
    report_error_text("Undefined file number in", function);
    return nullptr;
  }
  ScriptFile& file = interp.files[number];
  if (file.in_use) return &file;
  report_error_text("File is not open in", function);
  return nullptr;
}

ScriptFile* find_file_for(std::int32_t number, const char* function, std::initializer_list<FileClass> classes) {
  ScriptFile* file = find_file(number, function);
  if (!file || std::find(classes.begin(), classes.end(), file->file_class) != classes.end()) return file;
  report_error_text("Illegal file access in", function);
  return nullptr;
}

void close_script_files() {
  for (ScriptFile& file : interp.files)
    if (file.in_use) close_entry(file);
}

void fn_fopen(int first) { replace_by_int(first, open_script_file(text_at(first), text_at(first + 1))); }

void fn_fclose(int first) { with_file(first, "FCLOSE", close_entry); }

void fn_fflush(int first) {
  with_file(first, "FFLUSH", [](ScriptFile& f) { return std::fflush(f.stream) == 0 ? 0 : kFault; });
}

void fn_feof(int first) {
  with_file(first, "FEOF", [](ScriptFile& f) { return std::feof(f.stream) != 0 ? 1 : 0; });
}

void fn_ftell(int first) {
  with_file(first, "FTELL", [](ScriptFile& f) { return clamp_position(std::ftell(f.stream)); });
}

void fn_rewind(int first) {
  with_file(first, "REWIND", [](ScriptFile& f) {
    std::rewind(f.stream);
    return 0;
  });
}

void fn_fseek(int first) { replace_by_int(first, seek_position(first)); }

void fn_fgetc(int first) {
  ScriptFile* file = find_file_for(int_at(first), "FGETC", {kReadText});
  replace_by_int(first, file ? std::getc(file->stream) : kFault);
}

void fn_fgets(int first) { replace_by_int(first, read_text_line(first)); }
void fn_gets(int first) { replace_by_int(first, read_console_line(first)); }
void fn_fputc(int first) { replace_by_int(first, put_character(first)); }

void fn_fputs(int first) {
  ScriptFile* file = find_file_for(int_at(first + 1), "FPUTS", {kWriteText, kUpdateText});
  replace_by_int(first, file ? put_text(file->stream, text_at(first)) : kFault);
}

void fn_puts(int first) {
  const int result = put_text(stdout, text_at(first));
  replace_by_int(first, std::putchar('\n') == EOF ? kFault : result);
}

void fn_fread(int first) { replace_by_int(first, move_block(first, "FREAD", false)); }
void fn_fwrite(int first) { replace_by_int(first, move_block(first, "FWRITE", true)); }

} // namespace qsl
