#include "script/keywords.h"

#include "script/arrays.h"
#include "script/control_structures.h"
#include "script/list_statement.h"
#include "script/name_index.h"
#include "script/print_statements.h"
#include "script/quick_plots.h"
#include "script/report.h"
#include "script/user_routines.h"
#include "script/user_statements.h"

namespace qsl {

constexpr const char* const kKeywordNames[kKeywords] = {
    "BREAK",  "BYTE",   "CALL",   "CHAR",  "COMPLEX",    "CONTINUE", "CONSHADE", "CONTOUR",
    "DOUBLE", "EXIT",   "EXTERN", "FLOAT", "FREE",       "FUNCTION", "GOTO",     "HELP",
    "INT",    "LIST",   "LOGOFF", "LOGON", "PLOT",       "PLOT3",    "PLOT3R",   "PRINT",
    "PRINTL", "RETURN", "SCATTR", "SHORT", "SUBROUTINE", "SURF3",    "SURFACE",  "SURSHADE"};

namespace {

constexpr NameIndex<kKeywords> kIndex([](int i) { return std::string_view(kKeywordNames[i]); });

// Numbers of the keywords, for the dispatch.
enum Keyword : int {
  kBreak,
  kByteType,
  kCall,
  kCharType,
  kComplexType,
  kContinue,
  kConshade,
  kContour,
  kDoubleType,
  kExit,
  kExtern,
  kFloatType,
  kFreeNames,
  kFunction,
  kGoto,
  kHelp,
  kIntType,
  kList,
  kLogoff,
  kLogon,
  kPlot,
  kPlot3,
  kPlot3r,
  kPrint,
  kPrintl,
  kReturn,
  kScattr,
  kShortType,
  kSubroutine,
  kSurf3,
  kSurface,
  kSurshade
};

} // namespace

int find_keyword(const char* name) { return kIndex.find(name); }

void run_keyword(int keyword, const char* text) {
  switch (static_cast<Keyword>(keyword)) {
  case kByteType: return declare_arrays(kByte);
  case kCharType: return declare_arrays(kChar);
  case kComplexType: return declare_arrays(kComplex);
  case kDoubleType: return declare_arrays(kDouble);
  case kFloatType: return declare_arrays(kFloat);
  case kIntType: return declare_arrays(kInt);
  case kShortType: return declare_arrays(kShort);
  case kFreeNames: return free_names();
  case kPrint: return run_print();
  case kPrintl: return run_print_line();
  case kList: return run_list();
  case kHelp: return run_help();
  case kLogon: return run_logon();
  case kLogoff: return run_logoff();
  case kExit: return run_exit();
  case kPlot: return run_plot(false);
  case kScattr: return run_plot(true);
  case kContour: return run_contour();
  case kConshade: return run_conshade();
  case kPlot3: return run_plot3();
  case kPlot3r: return run_plot3r();
  case kSurf3: return run_surf3();
  case kSurface: return run_surface();
  case kSurshade: return run_surshade();
  case kBreak: return run_break();
  case kCall: return run_call(text);
  case kContinue: return run_continue();
  case kExtern: return run_extern();
  case kFunction: return run_header(true);
  case kGoto: return run_goto();
  case kReturn: return run_return();
  case kSubroutine: return run_header(false);
  }
}

} // namespace qsl
