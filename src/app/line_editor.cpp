#include "app/line_editor.h"

#ifdef QUILLA_LINE_EDITOR
#include <histedit.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "app/completion.h"
#include "script/interpreter.h"
#include "script/interrupt.h"
#include "script/script_files.h"
#include "script/tokenizer.h"

namespace qsl {
namespace {

constexpr int kHistoryLines = 1000;
constexpr int kHintLength = 400;
constexpr int kShownWidth = 80; // columns of a list of names

struct LineEditor {
  EditLine* edit;
  History* history;
  char history_name[kFileNameLength + 1];
  const char* rest; // of the line that was typed last, as yet not given to the reader
};
LineEditor editor;

// The prompt with marks around what does not move the cursor.
char* prompt_text(EditLine*) {
  static char plain[] = "QSL> ";
  static char colored[] = "\1\033[1;32m\1QSL>\1\033[0m\1 ";
  return interp.driver.color ? colored : plain;
}

// $XDG_STATE_HOME/qslrun/history, else .qslrun_history at home. False: there is no such place.
bool find_history(char* name) {
  const char* state = std::getenv("XDG_STATE_HOME");
  const char* home = std::getenv("HOME");
  if (state && state[0] == '/') {
    char folder[kFileNameLength + 1];
    join_path(folder, kFileNameLength, state, "qslrun");
    mkdir(folder, 0700);
    join_path(name, kFileNameLength, folder, "history");
    return true;
  }
  if (!home) return false;
  join_path(name, kFileNameLength, home, ".qslrun_history");
  return true;
}

// One byte of the terminal, as read() tells it. The signal is let in only while ppoll() waits, so that an interrupt
// between the look at the flag and the wait is not lost. -1: interrupted, or the terminal is gone.
ssize_t read_byte(char* byte) {
  sigset_t interrupt;
  sigset_t before;
  sigemptyset(&interrupt);
  sigaddset(&interrupt, SIGINT);
  sigprocmask(SIG_BLOCK, &interrupt, &before);
  pollfd terminal{STDIN_FILENO, POLLIN, 0};
  bool ready = false;
  while (!ready && !interrupted()) {
    ready = ppoll(&terminal, 1, nullptr, &before) > 0;
    if (!ready && errno != EINTR) break;
  }
  sigprocmask(SIG_SETMASK, &before, nullptr);
  return ready ? read(STDIN_FILENO, byte, 1) : -1;
}

// One character of the terminal. An interrupt gives up the line.
int read_character(EditLine*, wchar_t* character) {
  std::mbstate_t state{};
  for (;;) {
    char byte;
    const ssize_t n = read_byte(&byte);
    if (n <= 0) return static_cast<int>(n);
    const std::size_t used = std::mbrtowc(character, &byte, 1, &state);
    if (used == static_cast<std::size_t>(-2)) continue; // more bytes belong to it
    if (used == static_cast<std::size_t>(-1)) {
      *character = static_cast<unsigned char>(byte);
      return 1;
    }
    return 1;
  }
}

bool is_name_character(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '%'; }

void show_names(const Completions& found) {
  std::putchar('\n');
  std::size_t width = 0;
  for (int i = 0; i < found.count; ++i) width = std::max(width, std::strlen(found.names[i]) + 2);
  const int columns = std::max(1, kShownWidth / static_cast<int>(width));
  for (int i = 0; i < found.count; ++i)
    std::printf("%-*s%s", static_cast<int>(width), found.names[i],
                (i + 1) % columns == 0 || i + 1 == found.count ? "\n" : "");
  std::fflush(stdout);
}

// The parameters of the routine that is named before the cursor.
bool show_hint(const char* word, std::size_t length) {
  char name[kNameLength + 1], hint[kHintLength];
  if (length > kNameLength) return false;
  for (std::size_t i = 0; i < length; ++i) name[i] = upper_case(word[i]);
  name[length] = 0;
  if (!describe_routine(name, hint, sizeof hint)) return false;
  std::printf("\n%s\n", hint);
  std::fflush(stdout);
  return true;
}

// Tab: completes the word before the cursor, shows what it may be, or the parameters of a routine.
unsigned char complete_word(EditLine* edit, int) {
  const LineInfo* line = el_line(edit);
  const char* word = line->cursor;
  const bool opened = word > line->buffer && word[-1] == '(';
  if (opened) --word;
  const char* end = word;
  while (word > line->buffer && is_name_character(word[-1])) --word;
  const std::size_t length = static_cast<std::size_t>(end - word);
  if (length == 0) return CC_ERROR;
  if (opened) return show_hint(word, length) ? CC_REDISPLAY : CC_ERROR;
  static Completions found;
  find_completions(word, length, found);
  if (found.count == 0) return CC_ERROR;
  if (found.common > length) {
    char rest[kNameLength + 1];
    const std::size_t more = std::min<std::size_t>(found.common - length, kNameLength);
    std::memcpy(rest, found.names[0] + length, more);
    rest[more] = 0;
    // What is typed in small letters goes on in small letters.
    if (word[0] >= 'a' && word[0] <= 'z')
      for (char* p = rest; *p; ++p) *p = static_cast<char>(std::tolower(static_cast<unsigned char>(*p)));
    el_insertstr(edit, rest);
    return CC_REFRESH;
  }
  if (found.count > 1) {
    show_names(found);
    return CC_REDISPLAY;
  }
  return show_hint(word, length) ? CC_REDISPLAY : CC_ERROR;
}

// Types a line. False at the end of the input.
bool type_line() {
  int length = 0;
  const char* line = el_gets(editor.edit, &length);
  if (!line || length <= 0) {
    if (!interrupted()) return false;
    std::fputs("^C\n", stdout);
    clear_interrupt();
    interp.reader.continued = false;
    editor.rest = "\n";
    return true;
  }
  HistEvent event;
  if (line[0] != '\n') {
    history(editor.history, &event, H_ENTER, line);
    if (editor.history_name[0]) history(editor.history, &event, H_SAVE, editor.history_name);
  }
  editor.rest = line;
  return true;
}

// A record as fgets would read it.
bool read_typed_record(char* record, int size) {
  std::fflush(stdout);
  if ((!editor.rest || !*editor.rest) && !type_line()) return false;
  int n = 0;
  while (*editor.rest && n < size - 1) {
    record[n++] = *editor.rest;
    if (*editor.rest++ == '\n') break;
  }
  record[n] = 0;
  return true;
}

} // namespace

void start_line_editor() {
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) return;
  std::setlocale(LC_CTYPE, "");
  editor.edit = el_init("QSLRUN", stdin, stdout, stderr);
  editor.history = history_init();
  if (!editor.edit || !editor.history) return;
  HistEvent event;
  history(editor.history, &event, H_SETSIZE, kHistoryLines);
  history(editor.history, &event, H_SETUNIQUE, 1);
  if (find_history(editor.history_name)) history(editor.history, &event, H_LOAD, editor.history_name);
  el_set(editor.edit, EL_EDITOR, "emacs");
  el_set(editor.edit, EL_PROMPT_ESC, prompt_text, '\1');
  el_set(editor.edit, EL_HIST, history, editor.history);
  el_set(editor.edit, EL_GETCFN, read_character);
  el_set(editor.edit, EL_ADDFN, "complete-word", "Completes a name", complete_word);
  el_set(editor.edit, EL_BIND, "^I", "complete-word", nullptr);
  el_source(editor.edit, nullptr);
  interp.driver.read_typed = read_typed_record;
}

void end_line_editor() {
  interp.driver.read_typed = nullptr;
  if (editor.history) history_end(editor.history);
  if (editor.edit) el_end(editor.edit);
  editor = {};
}

} // namespace qsl

#else

namespace qsl {

void start_line_editor() {}
void end_line_editor() {}

} // namespace qsl

#endif
