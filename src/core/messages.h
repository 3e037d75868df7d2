// Numbered warnings, keyword matching and parameter checks.
#pragma once

#include "core/plot_state.h"

namespace quilla {

// Report forms. Each adds 1 to warningCount and prints one line of at most 132 characters unless warnings are off.
// Texts: 1 to 58 from the table, 59 to 100 a blank, above 100 customMessage.
void warnWithNumber(PlotState* s, int number, int value);
void warnWithString(PlotState* s, int number, const char* text);
void warnPlain(PlotState* s, int number);
// The text is given. A negative number prints without a number, is not counted, and ignores ERRMOD("WARN").
void warnWithText(PlotState* s, int number, const char* text);

// Reports of all plots since the start of the process.
int totalWarnings();

// Text for the next report with a number above 100.
void setCustomMessage(PlotState* s, const char* text);

// Number from 1 of the keyword in the list that equals the first four characters of text, upper-cased and padded
// with blanks; 0 after warning 2 with the whole text. The list holds count keywords of four characters joined by '+'.
int matchKeyword(PlotState* s, const char* list, int count, const char* text);

// The same without a warning.
int findKeyword(const char* list, int count, const char* text);

// 0 if low <= value <= high, else 1 after warning 2 with the value. high below low: no upper bound.
int checkRange(PlotState* s, int value, int low, int high);

// 0 if the date exists (day 1..31, month 1..12, year 1000 or later, leap years), else 1 after warning 2.
int checkDate(PlotState* s, int day, int month, int year);

// Copies at most limit characters and ends the copy with a zero byte; a null pointer copies as an empty text.
void copyText(char* target, const char* source, int limit);

// First four characters of text, upper-cased and padded with blanks, and a zero byte.
void keyOf(const char* text, char key[5]);

// Opens the error file if one is wanted and not open.
void openErrorFile(PlotState* s);

// The protocol at the end of a run, on the message stream. mode: 1 for a plot file, plus 10 when the error file is
// open.
void printProtocol(PlotState* s, int mode);

// The protocol of a windows application: shown in a message box if there is one, else printed.
void showProtocol(PlotState* s, int mode);

} // namespace quilla
