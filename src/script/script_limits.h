// Fixed limits of the interpreter. Each has a diagnostic when it is hit.
#pragma once

namespace qsl {

inline constexpr int kNameLength = 15;        // characters of a name that count
inline constexpr int kFileNameLength = 256;   // characters of a file name
inline constexpr int kRecordSize = 132;       // bytes of a record with its end mark
inline constexpr int kMainHeaderLength = 81;  // characters read of the main script's header
inline constexpr int kStatementLength = 1024; // characters of a statement
inline constexpr int kSavedStatements = 3000; // texts in the statement buffer
inline constexpr int kOpenSources = 8;        // scripts on the input stack
inline constexpr int kVariables = 500;        // variables of all levels
inline constexpr int kLabels = 100;           // labels of all levels
inline constexpr int kOperands = 50;          // entries of the operand stack
inline constexpr int kSubscripts = 8;         // dimensions of an array
inline constexpr int kStringConstantLength = 132;
inline constexpr int kRoutineLevels = 8;
inline constexpr int kNestedIfs = 8;
inline constexpr int kNestedLoops = 8;
inline constexpr int kNestedSwitches = 8;
inline constexpr int kScriptFiles = 8;         // files that a script has open
inline constexpr int kFileModeLength = 4;      // characters of a mode that count
inline constexpr int kWidestField = 4096;      // width and decimals of a format
inline constexpr int kWidgetCallbacks = 200;   // widgets whose routine is kept, by their numbers from 1
inline constexpr int kCallbackNameLength = 40; // characters of a callback's routine
inline constexpr int kDeviceNameLength = 6;
inline constexpr int kDataRecordSize = 512;  // bytes of a data file's record with its end mark
inline constexpr int kListedTextLength = 26; // LIST shows shorter texts only

} // namespace qsl
