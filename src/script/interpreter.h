// What the interpreter keeps for the whole run, one record in groups, each group read and changed by the sources that
// its comment names.
#pragma once

#include <cstdio>

#include "script/script_value.h"

namespace qsl {

// The driver: mode, command line, log.
struct DriverState {
  bool interactive_mode;
  bool interactive_start;
  bool log_active;
  std::FILE* log_file;
  char log_file_name[kFileNameLength + 1];
  char include_override[kFileNameLength + 1]; // -I=
  bool include_override_given;
  bool include_override_used;
  char device_override[kDeviceNameLength + 1]; // -D
  bool device_override_given;
  bool device_chosen; // METAFL or -D has chosen; a quick plot leaves the device alone
  bool strict;        // --strict
  bool ended;         // EXIT has run
  bool harmless;      // no outside command runs and no file is changed: for tests of arbitrary input
  long diagnostics;   // messages printed so far
};

struct Source {
  std::FILE* stream;
  char name[kFileNameLength + 1];
  int saved_record; // record counter of the source below
};

// statement_reader.cpp, script_files.cpp
struct ReaderState {
  Source sources[kOpenSources]; // the input stack
  int source_count;
  int record_counter;
  bool include_pending; // the source on top was opened by INCLUDE
  char record[kRecordSize];
  char statement[kStatementLength + 1];
  int statement_length;
  int parenthesis_depth;
  bool continued;
  bool overflow;
  char* saved[kSavedStatements]; // the statement buffer
  int saved_count;
  int saved_cursor;
  bool recording;
};

// tokenizer.cpp
struct TokenState {
  const char* text;
  int position;
  int kind;     // kind of the last token
  int previous; // kind of the token before it
  bool quiet;   // faults are not reported: the text is no statement
  ScriptValue current;
  char string_text[kStringConstantLength + 1];
};

// variables.cpp. Slots chained by a hash of their names, each chain in slot order.
inline constexpr int kNameBuckets = 512;
inline constexpr int kSlotWords = (kVariables + 63) / 64;
struct VariableState {
  ScriptValue slots[kVariables];
  std::int16_t chain_head[kNameBuckets]; // slot plus 1, 0 for none
  std::int16_t chain_next[kVariables];
  std::uint64_t used[kSlotWords];
  int level; // current routine level
};

struct Label {
  std::int32_t position; // in the statement buffer
  std::int8_t level, in_use, if_depth, loop_depth, switch_depth, skip_sum;
  char name[kNameLength + 1];
};

struct ControlState {
  int skip_sum; // statements are read and thrown away while it is not 0
  Label labels[kLabels];
  bool labels_in_use[kRoutineLevels + 1];
};

// operand_stack.cpp, evaluator.cpp
struct StackState {
  ScriptValue entries[kOperands];
  int count;
  bool overflow; // an operand did not fit: the statement is given up
  int argument_mode;
};

// data_file.cpp
struct DataState {
  std::FILE* file;
  char path[kFileNameLength + 1];
  char record[kDataRecordSize];
  int record_number;
  int block; // from 1
  int rows, columns, full;
};

// system_variables.cpp, quick_plots.cpp
struct QuickPlotState {
  float axis[3][4]; // start, end, first label, step
};

// other_functions.cpp
struct FunctionState {
  bool clock_called;
  double clock_last; // milliseconds of processor time
};

struct Interpreter {
  DriverState driver;
  ReaderState reader;
  TokenState token;
  VariableState variables;
  ControlState control;
  StackState stack;
  DataState data;
  QuickPlotState quick;
  FunctionState functions;
};

extern Interpreter interp;

// Frees everything and starts anew, as at the start of the program.
void reset_interpreter();

} // namespace qsl
