#include "script/data_file.h"

#include <charconv>
#include <cstdlib>
#include <cstring>

#include "script/interrupt.h"
#include "script/numbers.h"
#include "script/report.h"
#include "script/script_files.h"
#include "script/tokenizer.h"
#include "script/variables.h"

namespace qsl {
namespace {

constexpr const char* kFirstRecord = "%QSL-ASC";
constexpr const char* kHeaderMark = "%HEADER";
constexpr const char* kDataMark = "%DATA";
constexpr const char* kEndMark = "%END";
constexpr const char* kDataExtension = ".qdf";

struct BlockSize {
  int rows, columns, full;
};

bool begins_with(const char* record, const char* mark) {
  for (; *mark; ++mark, ++record)
    if (upper_case(*record) != *mark) return false;
  return true;
}

bool is_number_character(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == '-' || c == '+' || c == 'E' || c == 'e';
}
bool is_separator(char c) { return c == ' ' || c == ',' || c == '\r' || c == '\n'; }
bool is_comment(const char* p) { return p[0] == '/' && p[1] == '/'; }

bool next_record() {
  DataState& d = interp.data;
  if (!std::fgets(d.record, kDataRecordSize, d.file)) return false;
  ++d.record_number;
  return true;
}

// Behind the first record.
void rewind_file() {
  std::rewind(interp.data.file);
  interp.data.record_number = 0;
  next_record();
}

// Walks to the record behind the n-th data mark; the number of marks seen. The block was found if that equals n.
int find_block(int n) {
  rewind_file();
  int seen = 0;
  while (seen < n && !interrupted() && next_record()) seen += begins_with(interp.data.record, kDataMark);
  return seen;
}

int read_column_count() {
  char* record = interp.data.record;
  if (!next_record()) return 0;
  if (char* comment = std::strstr(record, "//")) *comment = 0;
  const long columns = std::strtol(record, nullptr, 10);
  return to_int(static_cast<double>(columns));
}

bool ends_block() { return begins_with(interp.data.record, kEndMark) || begins_with(interp.data.record, kDataMark); }

// Number of values in a record, or -1 for a character that does not belong there.
int count_values(const char* record) {
  if (record[0] == '%') return -1;
  int values = 0;
  bool inside = false;
  for (const char* p = record; *p && !is_comment(p); ++p) {
    const bool number = is_number_character(*p);
    if (!number && !is_separator(*p)) return -1;
    values += number && !inside;
    inside = number;
  }
  return values;
}

// Counts the values of block n. False after a message.
bool measure_block(int n, BlockSize& size) {
  const DataState& d = interp.data;
  const int seen = find_block(n);
  if (seen == 0) {
    report_file_error(" >>>> Missing '%s' in data file %s\n", kDataMark, d.path);
    return false;
  }
  if (seen < n) {
    report_file_error(" >>>> Cannot find block %d in data file %s\n", n, d.path);
    return false;
  }
  size = {0, read_column_count(), 0};
  while (!interrupted() && next_record() && !ends_block()) {
    const int values = count_values(d.record);
    if (values < 0) {
      report_file_error(" >>>> Syntax error in data file %s in record %d\n", d.path, d.record_number);
      return false;
    }
    size.full += values;
  }
  if (size.columns < 0 || remainder(size.full, size.columns) != 0) {
    report_file_error(" >>>> Count error\n");
    return false;
  }
  size.rows = size.full / size.columns;
  return true;
}

void keep_size(const BlockSize& size) {
  DataState& d = interp.data;
  d.rows = size.rows;
  d.columns = size.columns;
  d.full = size.full;
}

bool file_is_open() {
  if (interp.data.file) return true;
  report_file_error(" >>>> Missing routine DATFIL\n");
  return false;
}

std::FILE* search_data_file(const char* name) {
  char* path = interp.data.path;
  std::snprintf(path, kFileNameLength + 1, "%s", name);
  add_default_extension(path, kFileNameLength, kDataExtension);
  if (std::FILE* file = open_file(path, "r")) return file;
  if (const char* directory = std::getenv("QSL_DATA")) {
    char other[kFileNameLength + 1];
    join_path(other, kFileNameLength, directory, name);
    add_default_extension(other, kFileNameLength, kDataExtension);
    if (std::FILE* file = open_file(other, "r")) {
      std::memcpy(path, other, sizeof other);
      return file;
    }
  }
  report_file_error(" >>>> Open error in file %s\n", path);
  return nullptr;
}

} // namespace

int open_data_file(const char* name) {
  DataState& d = interp.data;
  close_data_file();
  keep_size({0, 0, 0});
  std::FILE* file = search_data_file(name);
  if (!file) return -1;
  d.file = file;
  d.record_number = 0;
  if (!next_record() || !begins_with(d.record, kFirstRecord)) {
    report_file_error(" >>>> Not allowed file format in %s\n", d.path);
    close_data_file();
    return -1;
  }
  BlockSize size{};
  if (!measure_block(interp.data.block, size)) return -1;
  keep_size(size);
  return 0;
}

int close_data_file() {
  DataState& d = interp.data;
  if (!d.file) return -1;
  std::fclose(d.file);
  d.file = nullptr;
  return 0;
}

int select_data_block(int number) {
  if (number == interp.data.block) return 0;
  if (number < 1) {
    report_file_error(" >>>> Not allowed parameter %d in DATBLK\n", number);
    return -1;
  }
  BlockSize size{};
  if (interp.data.file) {
    if (!measure_block(number, size)) return -1;
    keep_size(size);
  }
  interp.data.block = number;
  return 0;
}

int count_data(const char* keyword) {
  if (!file_is_open()) return 0;
  // Three letters are taken; the keyword FULL has four and so is never met.
  char key[4] = "";
  for (int i = 0; i < 3 && keyword[i]; ++i) key[i] = upper_case(keyword[i]);
  if (std::strcmp(key, "ROW") == 0) return interp.data.rows;
  if (std::strcmp(key, "COL") == 0) return interp.data.columns;
  if (std::strcmp(key, "BLO") == 0) return find_block(INT32_MAX);
  report_file_error(" >>>> Undefined parameter %s in datcnt\n", keyword);
  return 0;
}

namespace {

// Walks to the record behind the header mark; false after a message.
bool find_header() {
  if (!file_is_open()) return false;
  rewind_file();
  while (next_record() && !begins_with(interp.data.record, kDataMark))
    if (begins_with(interp.data.record, kHeaderMark)) return true;
  report_file_error(" >>>> No header found in %s\n", interp.data.path);
  return false;
}

// Next record of the header; false at its end.
bool next_header_record() { return next_record() && !ends_block(); }

// Leaves out blanks and line ends outside quotes and what follows "//". False: quotes are not balanced.
bool squeeze_record(const char* record, char* text) {
  char quote = 0;
  for (const char* p = record; *p; ++p) {
    if (!quote) {
      if (is_comment(p)) break;
      if (*p == ' ' || *p == '\t' || *p == '\r' || *p == '\n') continue;
      if (*p == '\'' || *p == '"') quote = *p;
    } else if (*p == quote) {
      quote = 0;
    }
    *text++ = *p;
  }
  *text = 0;
  return quote == 0;
}

enum ItemFault { kGoodItem, kBadSyntax, kMissingEqual };

// Takes name = value from a squeezed record.
ItemFault take_item(char* name, ScriptValue& value) {
  if (next_token() != kIdentifier) return kBadSyntax;
  set_name(name, token_name());
  if (next_token() != '=') return kMissingEqual;
  const int sign = next_token();
  const bool has_sign = sign == kUnaryMinus || sign == kUnaryPlus;
  if (has_sign) next_token();
  const int kind = token();
  if (kind != kIntConstant && kind != kFloatConstant && (kind != kStringConstant || has_sign)) return kBadSyntax;
  value = interp.token.current;
  if (sign == kUnaryMinus && kind == kIntConstant) value.value.i = wrap_negate(value.value.i);
  if (sign == kUnaryMinus && kind == kFloatConstant) value.value.d = -value.value.d;
  return next_token() == kEnd ? kGoodItem : kBadSyntax;
}

void report_record(ItemFault fault) {
  const DataState& d = interp.data;
  if (fault == kMissingEqual) {
    report_file_error(" >>>> Expected '=' in record %d (%s)\n", d.record_number, d.path);
  } else {
    report_file_error(" >>>> Syntax error in record %d (%s)\n", d.record_number, d.path);
  }
}

// Looks for an item record by record. The value's text lies in the tokeniser.
bool find_item(const char* wanted, ScriptValue& value) {
  while (next_header_record()) {
    char text[kDataRecordSize], name[kNameLength + 1];
    if (is_comment(interp.data.record)) continue;
    if (!squeeze_record(interp.data.record, text)) {
      report_record(kBadSyntax);
      continue;
    }
    if (text[0] == 0) continue;
    set_token_source(text);
    interp.token.quiet = true;
    if (const ItemFault fault = take_item(name, value); fault != kGoodItem) {
      report_record(fault);
      continue;
    }
    if (std::strcmp(name, wanted) == 0) return true;
  }
  return false;
}

} // namespace

int print_data_header() {
  if (!find_header()) return -1;
  while (next_header_record()) std::fputs(interp.data.record, stdout);
  return 0;
}

bool read_data_variable(const char* name, ScriptValue& result) {
  if (!find_header()) return false;
  char wanted[kNameLength + 1];
  set_name(wanted, name);
  for (char* p = wanted; *p; ++p) *p = upper_case(*p);
  const TokenState statement = interp.token; // the function stands in an expression whose tokens go on afterwards
  ScriptValue value{};
  bool found = find_item(wanted, value);
  if (!found) report_file_error(" >>>> %s is not defined in %s\n", name, interp.data.path);
  if (found) found = copy_value(result, value);
  interp.token = statement;
  return found;
}

namespace {

// Number of a text by the rules of the C library, faster where they are plain.
float parse_number(const char* text, int length) {
  const char* first = text + (text[0] == '+' && text[1] != '-');
  double number;
  const auto [end, fault] = std::from_chars(first, text + length, number);
  const bool whole = fault == std::errc() && end == text + length;
  return to_float(whole ? number : std::strtod(text, nullptr));
}

// Hands the values of the current block, in their order, to a column filter. column 0 takes all.
void read_values(float* target, int count, int column) {
  const int columns = interp.data.columns;
  char number[kDataRecordSize];
  int stored = 0, value = 0;
  find_block(interp.data.block);
  next_record();
  while (stored < count && !interrupted() && next_record() && !ends_block()) {
    int length = 0;
    for (const char* p = interp.data.record;; ++p) {
      const bool ends = *p == 0 || is_comment(p);
      if (is_number_character(*p)) number[length++] = *p;
      if (length > 0 && (ends || is_separator(*p))) {
        number[length] = 0;
        const bool wanted = column == 0 || value % columns == column - 1;
        ++value;
        if (wanted && stored < count) target[stored++] = parse_number(number, length);
        length = 0;
      }
      if (ends) break;
    }
  }
}

bool read_block(ScriptValue& result, int count, int column) {
  float* values = static_cast<float*>(allocate_zeroed(count, static_cast<int>(sizeof(float))));
  if (!values) return false;
  read_values(values, count, column);
  result.type = kFloatArray;
  result.ndim = 1;
  result.count = count;
  result.dims = nullptr;
  result.value.data = values;
  return true;
}

} // namespace

bool read_data_matrix(ScriptValue& result) {
  if (!file_is_open() || !read_block(result, interp.data.full, 0)) return false;
  result.dims = static_cast<std::int32_t*>(allocate(2 * static_cast<int>(sizeof(std::int32_t))));
  if (!result.dims) {
    free_value(result);
    return false;
  }
  result.ndim = 2;
  result.dims[0] = interp.data.rows;
  result.dims[1] = interp.data.columns;
  return true;
}

bool read_data_column(int column, ScriptValue& result) {
  if (!file_is_open()) return false;
  if (column < 1 || column > interp.data.columns) {
    report_file_error(" >>>> Not allowed parameter %d in DATRAY\n", column);
    return false;
  }
  return read_block(result, interp.data.rows, column);
}

} // namespace qsl
