// The table of widgets: one plain record each, known by its place in the table plus one.
//
// The records hold what the program has set and what the user has done so far; the toolkit, where there is one, only
// shows them. Places are in pixels inside the frame of the dialog, those of roots on the screen.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "core/plot_state.h"
#include "platform/widget_system.h"

namespace quilla {

inline constexpr int kWidgetsAtFirst = 100;
inline constexpr int kMostWidgets = 20000; // more than a screen shows; a loop that never ends stops here
inline constexpr int kMostDepth = 8;       // dialogs within dialogs
inline constexpr int kWidgetTitleLength = 132;
inline constexpr int kWidgetTextLength = 255; // characters of a line that the user types
inline constexpr int kNoWidget = -1;          // what a maker gives back after a message

enum WidgetKind : unsigned char {
  kWidgetRoot = 1,
  kWidgetBase = 2,
  kWidgetLabel = 3,
  kWidgetCheck = 4,
  kWidgetPush = 5,
  kWidgetCommand = 6,
  kWidgetList = 7,
  kWidgetDropList = 8,
  kWidgetChoices = 9, // a box, and each of its rows
  kWidgetText = 10,
  kWidgetLines = 11,
  kWidgetLabelText = 12,
  kWidgetDialogText = 13,
  kWidgetFileButton = 14,
  kWidgetFileName = 15,
  kWidgetScale = 18,
  kWidgetUprightScale = 19,
  kWidgetOk = 20,
  kWidgetDialogOk = 21,
  kWidgetQuit = 22,
  kWidgetPopup = 23,
  kWidgetItem = 24,
  kWidgetDraw = 25,
  kWidgetProgress = 26,
  kWidgetTable = 27,
  kWidgetDialogButton = 31,
  kWidgetSeparator = 32,
  kWidgetUprightSeparator = 33
};
enum WidgetLayout : unsigned char { kLayoutRow = 0, kLayoutColumn = 1, kLayoutForm = 2 };
enum WidgetSide : int { kAtLeft = 0, kAtTop = 1, kAtRight = 2, kAtBottom = 3, kAtSides = 4 };
enum WidgetCoding : unsigned char { kBytesAnsi = 0, kBytesUtf8 = 1, kBytesRussian = 2, kBytesGreek = 3 };
enum CallbackForm : unsigned char { kFormAny = 0, kFormFirst = 1, kFormCell = 2 };

// Check of what may stand in a text (SWGOPT "VERI").
enum VerifyMask : unsigned char {
  kMaskNone,
  kMaskInteger,
  kMaskFloat,
  kMaskDoubleFloat,
  kMaskExponent,
  kMaskDigits,
  kMaskLetters,
  kMaskAlphanumeric,
  kMaskMail,
  kMaskTime,
  kMaskDate,
  kMaskPhone,
  kMaskHexadecimal,
  kMaskOctal
};
inline constexpr const char* kMaskWords = "NONE+INTE+FLOA+DLOA+EFLO+DIGI+ALPH+NALP+EMAI+TIME+DATE+PHON+HEXA+OCT ";

struct TableCell {
  std::string text;
  bool editable = false;
  unsigned char justification = kJustifyLeft, mask = kMaskNone;
};

// Cells of a table, row by row; row 0 and column 0 are those of the head.
struct CellBlock {
  int rows = 0, columns = 0; // without the head
  bool headRow = false, headColumn = false;
  std::vector<TableCell> cells;
};

struct WidgetRecord {
  unsigned char kind = 0;
  unsigned char layout = kLayoutRow; // of parents
  bool fixed = false;                // a root of a size that was set
  unsigned char depth = 0;
  int parent = 0; // id, 0 of a root
  int group = 0;  // of the row of a box: its id; of a file button: that of its name
  WidgetBox place = {};
  int penX = 0, penY = 0; // of parents
  // Text of labels, buttons and lines, the command of kind 6; and what the user has typed since it was checked.
  std::string text, typed;
  std::vector<std::string> items; // of lists; the lines of kind 11; of kind 15: the mask
  int value = 0;                  // selection from 1, state of a button, position of a scale
  int limit = 0;                  // last position of a scale; lines that are kept; the display of a scale
  int display = 0;                // id of the label that shows the value
  float start = 0.0F, end = 0.0F, step = 1.0F, number = 0.0F;
  int decimals = -1;
  std::unique_ptr<CellBlock> table;
  void (*callbackA)(int) = nullptr;
  void (*callbackB)(int, int*) = nullptr;
  void (*callbackC)(int, int, int) = nullptr;
  void (*callbackD)(int, int) = nullptr;
  int* userArray = nullptr; // of the program
  int background = kNoWidgetColor, foreground = kNoWidgetColor;
  unsigned char coding = kBytesAnsi, mask = kMaskNone, state = kWidgetActive;
  bool saved = false; // the frame's close button acts as OK
};

// Keyword numbers of SWGOPT and SWGTYP, from 0.
struct WidgetOptions {
  int centered = 0, fileField = 0, userBackground = 0, userMask = 0, fileOnTop = 0, dialogOnTop = 0, callText = 0,
      callScale = 0, closeIsOk = 0, tableEdit = 0, frame = 0, head = 0, border = 1, verify = 0, separator = 0,
      noValue = 0, coding = 0;
  bool progressSmooth = false, progressBack = true, progressFrame = true, progressLabel = true;
  int listScroll = 0, boxOrder = 0, scaleUpright = 0, drawScroll = 0, progressUpright = 0, tableScroll = 0,
      rootScroll = 0, rootFixed = 0, fileSave = 0, separatorUpright = 0, popupRow = 0, textKind = 0;
};
enum TextCalls : int { kCallReturn = 0, kCallChange = 1, kCallBoth = 2 };
enum ScaleCalls : int { kCallButtons = 0, kCallTrack = 1, kCallEnd = 2 };
enum TextEditing : int { kTextEdited = 0, kTextRead = 1, kTextPassword = 2 };

enum WidgetColorUse : int { kColorBack, kColorFore, kColorScroll, kColorLists, kColorProgress, kWidgetColorUses };

enum DialogStatus : int { kStatusOk = 0, kStatusCancel = 1, kStatusNone = -1 }; // DWGERR

struct WidgetSettings {
  bool positionSet = false, sizeSet = false;
  int x = 0, y = 0, width = 0, height = 0;
  int offsets[kAtSides] = {};
  int widthWanted = 20;                 // SWGWTH
  int spacingX = 0, spacingY = 0;       // pixels
  float step = 1.0F, drawRatio = -1.0F; // below 0: as high as wide
  std::string title, help;
  bool titleSet = false;
  bool menuOk = true, menuQuit = true, menuHelp = true;
  int mode = 0; // SWGMOD
  WidgetOptions options;
  int listRows = 6, tableRows = 6, dropRows = 6, verticalMargin = 0, horizontalMargin = 0, iconSize = 0;
  int drawMargin[kAtSides] = {};
  int justifyLabel = kJustifyLeft, justifyButton = kJustifyCenter, justifyTable = kJustifyLeft;
  int colors[kWidgetColorUses] = {kNoWidgetColor, kNoWidgetColor, kNoWidgetColor, kNoWidgetColor, kNoWidgetColor};
  std::vector<float> columnWidths; // SWGRAY
  bool hasClose = true, hasMinimize = true, hasMaximize = true;
};

// A dialog that is open, by its depth.
struct DialogLevel {
  int root = 0;         // id
  int count = 0;        // widgets when WGFIN began to wait
  bool running = false; // WGFIN waits
  bool shown = false, closed = false;
  int totalWidth = 0, totalHeight = 0;
  std::string title, help;
};

struct WidgetContext {
  PlotState* state = nullptr;
  std::vector<WidgetRecord> records;
  int depth = 0;
  DialogLevel levels[kMostDepth + 1]; // from 1
  bool active = false, finished = false;
  int root = 0; // id of the current root
  WidgetSettings settings;
  bool exitOnClose = true, endedByOk = false;
  int dialogStatus = 0; // DWGERR
  bool displayMissed = false;
  WidgetMetrics metrics = {};
  std::string result; // text given out last
};

// The context for a routine of the name, made at the first call; null after a message.
WidgetContext* widgetCheck(const char* name);
// The same inside of a pass, for makers.
WidgetContext* makerCheck(const char* name);

// Tells a fault in a box with the routine's name as title, or on the standard output without a display.
void widgetFault(const WidgetContext* c, const char* text);
void tellWidgetFault(const PlotState* s, const char* text);

// Number from 0 of the keyword in the list, whose words of four characters are joined by '+'; -1 after a message.
int widgetKeyword(const WidgetContext* c, const char* list, const char* word);

// A colour from its parts 0..1. False after "Value is out of range".
bool widgetColor(const WidgetContext* c, float r, float g, float b, int* color);

// Record of an id, or null. The pointer holds until the next record is made.
WidgetRecord* widgetRecord(WidgetContext* c, int id);
bool isParentKind(int kind);
// False after a message: no root or parent, or none of the dialog that is open.
bool checkParent(WidgetContext* c, int id);
// Room for n more records. False after "Too many widgets": the table is then empty.
bool reserveWidgets(WidgetContext* c, int n);
// A record with the colours and coding in force; its id.
int newWidget(WidgetContext* c, int parent, WidgetKind kind);
// Takes away the records behind the first count ones.
void dropWidgets(WidgetContext* c, int count);

// Reads the sizes of characters and screen again.
void readMetrics(WidgetContext* c);

} // namespace quilla
