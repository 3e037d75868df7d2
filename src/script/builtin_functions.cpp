// The table of built-in functions and their call.
#include "script/builtin_functions.h"

#include "script/binding.h"
#include "script/builtin_rows.h"
#include "script/evaluator.h"
#include "script/name_index.h"
#include "script/report.h"

namespace qsl {

constexpr FunctionRow kFunctions[kFunctionCount] = {
    {"ABS", "*", kByValue, fn_abs},
    {"ARG", "*", kByValue, fn_arg},
    {"ARGCNT", "", kByValue, fn_argcnt},
    {"ATONUM", "S", kByValue, fn_atonum},
    {"BYTE", "*", kAliasArrays, fn_byte},
    {"CATARR", "AR,AR", kByValue, fn_catarr},
    {"CHAR", "*", kAliasArrays, fn_char},
    {"CLOCK", "", kByValue, fn_clock},
    {"COMPLEX", ".", kAliasArrays, fn_complex},
    {"CONJG", "*", kByValue, fn_conjg},
    {"DALLOC", "I", kByValue, fn_dalloc},
    {"DATBLK", "I", kByValue, fn_datblk},
    {"DATCNT", "S", kByValue, fn_datcnt},
    {"DATE", "", kByValue, fn_date},
    {"DATCLS", "", kByValue, fn_datcls},
    {"DATFIL", "S", kByValue, fn_datfil},
    {"DATHDR", "", kByValue, fn_dathdr},
    {"DATMAT", "", kByValue, fn_datmat},
    {"DATRAY", "I", kByValue, fn_datray},
    {"DATVAR", "S", kByValue, fn_datvar},
    {"DOUBLE", "*", kAliasArrays, fn_double},
    {"FALLOC", "I", kByValue, fn_falloc},
    {"FCLOSE", "I", kByValue, fn_fclose},
    {"FEOF", "I", kByValue, fn_feof},
    {"FGETC", "I", kByValue, fn_fgetc},
    {"FGETS", "S,I,I", kAliasArrays, fn_fgets},
    {"FFLUSH", "I", kByValue, fn_fflush},
    {"FLOAT", "*", kAliasArrays, fn_float},
    {"FOPEN", "S,S", kByValue, fn_fopen},
    {"FPRINTF", ".", kAliasArrays, fn_fprintf},
    {"FPUTC", "I,I", kByValue, fn_fputc},
    {"FPUTS", "S,I", kAliasArrays, fn_fputs},
    {"FREAD", "AR,I,I", kAliasArrays, fn_fread},
    {"FSCANF", ".", kAliasAlways, fn_fscanf},
    {"FSEEK", "I,I", kByValue, fn_fseek},
    {"FTELL", "I", kByValue, fn_ftell},
    {"FWRITE", "AR,I,I", kAliasArrays, fn_fwrite},
    {"GETARG", "I", kByValue, fn_getarg},
    {"GETENV", "S", kAliasArrays, fn_getenv},
    {"GETPID", "", kByValue, fn_getpid},
    {"GETS", "S", kAliasArrays, fn_gets},
    {"IALLOC", "I", kByValue, fn_ialloc},
    {"IMAG", "*", kAliasArrays, fn_imag},
    {"INQUIRE", "S", kAliasArrays, fn_inquire},
    {"INT", "*", kAliasArrays, fn_int},
    {"KEYCNT", "", kByValue, fn_keycnt},
    {"MAXARR", "AR", kAliasArrays, fn_maxarr},
    {"MINARR", "AR", kAliasArrays, fn_minarr},
    {"NUMTOA", "X,I", kByValue, fn_numtoa},
    {"PRINTF", ".", kAliasArrays, fn_printf},
    {"PUTS", "S", kAliasArrays, fn_puts},
    {"RAND", "", kByValue, fn_rand},
    {"REMOVE", "S", kAliasArrays, fn_remove},
    {"RENAME", "S,S", kAliasArrays, fn_rename},
    {"REWIND", "I", kByValue, fn_rewind},
    {"SCANF", ".", kAliasAlways, fn_scanf},
    {"SHORT", "*", kAliasArrays, fn_short},
    {"SPRINTF", ".", kAliasArrays, fn_sprintf},
    {"SRAND", "I", kByValue, fn_srand},
    {"SSCANF", ".", kAliasAlways, fn_sscanf},
    {"STRING", "*", kAliasArrays, fn_string},
    {"STRLEN", "S", kAliasArrays, fn_strlen},
    {"STRLWR", "S", kByValue, fn_strlwr},
    {"STRREP", "S,I", kAliasArrays, fn_strrep},
    {"STRSTR", "S,S", kByValue, fn_strstr},
    {"STRUPR", "S", kByValue, fn_strupr},
    {"SUBARR", "AR,I,I", kByValue, fn_subarr},
    {"SUBMAT", "AR,IR", kByValue, fn_submat},
    {"SUBSTR", "S,I,I", kByValue, fn_substr},
    {"SYSTEM", "S", kByValue, fn_system},
    {"TIME", "", kByValue, fn_time},
    {"TRMLEN", "S", kAliasArrays, fn_trmlen},
    {"TRPMAT", "AR", kByValue, fn_trpmat},
    {"VARCNT", "U", kAliasAlways, fn_varcnt},
    {"VARDEF", "U", kAliasAlways, fn_vardef},
    {"VARDIM", "U,I", kAliasAlways, fn_vardim},
    {"VARTYP", "U", kAliasAlways, fn_vartyp},
    {"ACOS", "*", kByValue, fn_acos},
    {"ASIN", "*", kByValue, fn_asin},
    {"ATAN", "*", kByValue, fn_atan},
    {"ATAN2", "*,*", kByValue, fn_atan2},
    {"CEIL", "*", kByValue, fn_ceil},
    {"COS", "*", kByValue, fn_cos},
    {"COSH", "*", kByValue, fn_cosh},
    {"EXP", "*", kByValue, fn_exp},
    {"FLOOR", "*", kByValue, fn_floor},
    {"FMOD", "*,*", kByValue, fn_fmod},
    {"LOG", "*", kByValue, fn_log},
    {"LOG10", "*", kByValue, fn_log10},
    {"SIN", "*", kByValue, fn_sin},
    {"SINH", "*", kByValue, fn_sinh},
    {"SQRT", "*", kByValue, fn_sqrt},
    {"TAN", "*", kByValue, fn_tan},
    {"TANH", "*", kByValue, fn_tanh},
};

namespace {

constexpr NameIndex<kFunctionCount> kIndex([](int i) { return std::string_view(kFunctions[i].name); });

} // namespace

int find_function(const char* name) { return kIndex.find(name); }

int function_mode(int row) { return kFunctions[row].mode; }

void exec_builtin(int row, int first) {
  const FunctionRow& f = kFunctions[row];
  if (!match_operands(f.name, f.signature, first)) return;
  f.run(first);
}

} // namespace qsl
