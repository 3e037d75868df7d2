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
  bool device_chosen;                         // METAFL or -D has chosen; a quick plot leaves the device alone
  int spline_points;                          // of SPLMOD, 0 before the first call
  bool strict;                                // --strict
  bool ended;                                 // EXIT has run
  bool color;                                 // messages and the prompt are coloured
  int exit_status;                            // of a run that was interrupted
  bool (*read_typed)(char* record, int size); // reads a record from a line editor that shows the prompt; null: none
  bool harmless;    // no outside command runs and no file is changed: for tests of arbitrary input
  int replays_left; // such a run ends after so many saved statements
  long diagnostics; // messages printed so far
};

// A statement that may run again.
struct Decision;
struct SavedStatement {
  char* text;         // owned
  int expansion;      // saved statements behind it that are the text of the routine which it calls
  Decision* decision; // what the text has decided, null before the first replay; owned
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
  SavedStatement saved[kSavedStatements]; // the statement buffer
  int saved_count;
  int saved_cursor;
  bool recording;
  const char* running; // the statement that runs
  bool last_saved;     // it has just been saved
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
struct PinnedOperands;
struct VariableState {
  PinnedOperands* pinned; // operands of statements that wait for a callback
  ScriptValue slots[kVariables];
  std::int16_t chain_head[kNameBuckets]; // slot plus 1, 0 for none
  std::int16_t chain_next[kVariables];
  std::uint16_t bucket[kVariables]; // of the slot's name
  std::uint64_t used[kSlotWords];
  int level; // current routine level
};

// labels.cpp
struct Label {
  std::int32_t position; // in the statement buffer, -1 if the label could not be saved
  std::int8_t level, in_use, if_depth, loop_depth, switch_depth, skip_sum;
  char name[kNameLength + 1];
};
struct ForwardGoto {
  char name[kNameLength + 1];
  int if_depth, loop_depth, switch_depth;
};

// if_family.cpp: one record for each open IF.
struct IfRecord {
  int branch_taken, branch_active;
  int loop_depth, switch_depth; // at the opening
};

// loop_family.cpp: one record for each open loop.
enum LoopKind : std::int8_t { kDoLoop, kWhileLoop };
struct LoopRecord {
  LoopKind kind;
  bool opened_skipping;
  int if_depth, switch_depth; // at the opening
  int start;                  // where a pass begins in the statement buffer, -1: the loop cannot go back
  int variable;               // its slot
  char name[kNameLength + 1]; // of the variable
  Tag type;                   // of the loop: INT or DOUBLE
  std::int32_t int_limit, int_step;
  double double_limit, double_step;
};

// switch_family.cpp: one record for each open SWITCH.
struct SwitchRecord {
  std::int32_t selector;
  int if_depth, loop_depth; // at the opening
};

// user_routines.cpp: one record for each routine level from 1 on.
enum FrameKind : std::int8_t { kSubroutineFrame, kFunctionFrame, kCallbackFrame, kValueCallbackFrame };
struct RoutineFrame {
  FrameKind kind;
  bool from_file;       // its statements are read from a source of its own, not replayed
  int passed, keywords; // arguments given, and how many of them by keyword
  int result;           // slot that takes the value of a FUNCTION
  int start;            // saved statements at the call
  int call;             // position of the saved statement that called, -1 if it was not saved
  // Saved statements behind the call that wait until the routine's text has been read in front of them.
  SavedStatement* waiting;
  int waiting_count;
};

// What the next pass over a loop or the rest of it does.
enum Jump : int { kNoJump, kContinueJump, kBreakJump };

// Why statements are passed over.
struct SkipFlags {
  bool branch, forward_goto, loop, no_case, rest_of_switch, rest_of_routine;
};

struct ControlState {
  SkipFlags skip;
  int skip_sum; // of the flags: statements are read and thrown away while it is not 0
  int if_depth, loop_depth, switch_depth;
  IfRecord ifs[kNestedIfs];
  LoopRecord loops[kNestedLoops];
  SwitchRecord switches[kNestedSwitches];
  int pending_jump;       // Jump
  int jump_level;         // loop depth that a skip belongs to
  int break_switch_level; // SWITCH depth that a BREAK belongs to
  bool last_is_switch;    // the construct last opened is a SWITCH
  Label labels[kLabels];
  bool labels_in_use[kRoutineLevels + 1];
  ForwardGoto forward;
  RoutineFrame frames[kRoutineLevels + 1]; // by level, 0 is the main script
  char routine_name[kNameLength + 1];      // called last
  std::int16_t arguments[kVariables];      // slots of that call's arguments
  int argument_count;
  bool call_made;         // the statement that runs has opened a frame
  bool callback_ended;    // the innermost statement loop returns to the library
  double callback_result; // value of the callback that ended last
  int nesting;            // statement loops that run
};

// operand_stack.cpp, evaluator.cpp
struct StackState {
  ScriptValue entries[kOperands];
  int count;
  bool overflow; // an operand did not fit: the statement is given up
};

// callbacks.cpp: routines of the script that the library calls.
struct CallbackState {
  char widget[kWidgetCallbacks][kCallbackNameLength + 1]; // by the number of the widget, from 0
  char array[kWidgetCallbacks][kNameLength + 1];          // variable of SWGCB
  char surface[kCallbackNameLength + 1];
  char parametric[kCallbackNameLength + 1];
  char projection[kCallbackNameLength + 1];
  char pie[kCallbackNameLength + 1];
  char window[kCallbackNameLength + 1];
  int drawing; // callbacks that run in the middle of a drawing routine
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

// file_functions.cpp: the files of FOPEN.
enum FileClass : std::int8_t { kReadText, kWriteText, kReadBinary, kWriteBinary, kUpdateText, kUpdateBinary };
struct ScriptFile {
  std::FILE* stream;
  FileClass file_class;
  bool in_use;
  bool console; // the standard input or output, which stays open
};

// system_variables.cpp, quick_plots.cpp
struct QuickPlotState {
  float axis[3][4];     // start, end, first label, step
  float box[3];         // %X3LEN and its kin; 0 not assigned
  float eye[3];         // %X3VIEW and its kin
  bool eye_assigned[3]; // the default holds for the others
};

// other_functions.cpp
struct FunctionState {
  bool clock_called;
  double clock_last;    // milliseconds of processor time
  std::uint32_t random; // state of RAND
};

struct Interpreter {
  DriverState driver;
  ReaderState reader;
  TokenState token;
  VariableState variables;
  ControlState control;
  StackState stack;
  CallbackState callbacks;
  DataState data;
  ScriptFile files[kScriptFiles];
  QuickPlotState quick;
  FunctionState functions;
};

extern Interpreter interp;

// Frees everything and starts anew, as at the start of the program.
void reset_interpreter();

} // namespace qsl
