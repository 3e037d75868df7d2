// From the codes of a text to a tree of boxes. Heights, alphabets and colours are settled here.
#include <algorithm>
#include <cmath>
#include <cstring>

#include "core/messages.h"
#include "text/coding.h"
#include "text/formula.h"

namespace quilla {
namespace {

enum FormulaFault : int {
  kFractionSyntax = 137,
  kManyFractions = 138,
  kAccentSyntax = 139,
  kVectorSyntax = 140,
  kUnderlineSyntax = 141,
  kUnknownName = 142,
  kManyScripts = 143,
  kBadBigBracket = 143,
  kScriptSyntax = 144,
  kMissingRadicand = 145,
  kManyRoots = 136,
  kManyGroups = 146,
  kUnbalanced = 147,
  kMissingDenominator = 148,
  kBadBracket = 176,
  kManyBrackets = 177
};

constexpr float kStyleFactors[] = {1.0F, 1.0F, 0.6F, 0.5F};
constexpr int kNone = -1;

enum TokenKind { kTokenEnd, kTokenCharacter, kTokenCommand, kTokenOpen, kTokenClose, kTokenExponent, kTokenIndex };
struct Token {
  TokenKind kind = kTokenEnd;
  int code = 0;
  bool literal = false; // a control character taken as it stands
  char name[kCommandNameLength + 1] = "";
};

// What holds for the boxes that follow, to the end of the group.
struct Setting {
  int style;
  float base;   // height of style 1
  int alphabet; // 0: none was chosen
  int color;
};

// Where a row ends.
enum class RowEnd { Text, Brace, Bracket, Right };

struct Reader {
  PlotState* s;
  const int* codes;
  int count;
  Formula* formula;
  int at = 0;
  bool math = false;
  bool failed = false;
  int fractions = 0, fractionDepth = 0, rootDepth = 0, scriptDepth = 0, groupDepth = 0, leftDepth = 0;
};

int fail(Reader& r, int number, const char* text) {
  if (!r.failed) warnWithText(r.s, number, text);
  r.failed = true;
  return kNone;
}

bool isLetter(int c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// Reads a command behind its control character.
void readCommand(Reader& r, Token& token) {
  token.kind = kTokenCommand;
  const int control = static_cast<unsigned char>(r.s->text.mixTex);
  const int c = r.at < r.count ? r.codes[r.at] : 0;
  if (c != 0 && (c == control || (c < kFirstPrivateCode && std::strchr("{}^_$[]", c)))) {
    token.kind = kTokenCharacter;
    token.literal = true;
    token.code = c;
    ++r.at;
    return;
  }
  int length = 0;
  if (c == ',' || c == ':' || c == ';' || c == '!') {
    token.name[length++] = static_cast<char>(c);
    ++r.at;
  }
  if (length == 0) {
    while (r.at < r.count && isLetter(r.codes[r.at])) {
      if (length < kCommandNameLength) token.name[length] = static_cast<char>(r.codes[r.at]);
      ++length;
      ++r.at;
    }
    if (length > kCommandNameLength) length = 0; // no command has so long a name
  }
  token.name[length] = '\0';
  if (std::strcmp(token.name, "not") == 0 && r.at < r.count && r.codes[r.at] == '=') {
    std::strcat(token.name, "=");
    ++r.at;
  }
  if (r.at < r.count && r.codes[r.at] == ' ') ++r.at;
}

Token nextToken(Reader& r) {
  Token token;
  while (r.at < r.count) {
    const int c = r.codes[r.at++];
    if (c == '$') {
      r.math = !r.math;
      continue;
    }
    if (c == ' ' && r.math) continue;
    token.code = c;
    token.kind = kTokenCharacter;
    if (c == static_cast<unsigned char>(r.s->text.mixTex)) {
      readCommand(r, token);
    } else if (c == '{') {
      token.kind = kTokenOpen;
    } else if (c == '}') {
      token.kind = kTokenClose;
    } else if (r.math && c == '^') {
      token.kind = kTokenExponent;
    } else if (r.math && c == '_') {
      token.kind = kTokenIndex;
    }
    return token;
  }
  return token;
}

int heightOf(const Reader& r, const Setting& set) {
  float h = set.base * kStyleFactors[set.style];
  if (set.style >= kStyleScript) h *= r.s->text.texExpFactor;
  if (!(h >= 1.0F)) return 1;
  return h > static_cast<float>(kHighestHeight) ? kHighestHeight : static_cast<int>(std::lround(h));
}

int newBox(Reader& r, BoxKind kind, const Setting& set) {
  Formula& f = *r.formula;
  if (f.count == kFormulaBoxLimit) return fail(r, kManyGroups, "Too many nested parenthesis");
  FormulaBox& box = f.boxes[f.count];
  box = FormulaBox();
  box.kind = kind;
  box.style = static_cast<std::int8_t>(set.style);
  box.height = heightOf(r, set);
  box.color = set.color;
  return f.count++;
}

FormulaBox& boxAt(Reader& r, int index) { return r.formula->boxes[index]; }

Atom atomOf(int code) {
  switch (code) {
  case '+':
  case '-':
  case '*': return Atom::Binary;
  case '=':
  case '<':
  case '>': return Atom::Relation;
  case '(':
  case '[':
  case '{': return Atom::Open;
  case ')':
  case ']':
  case '}':
  case '!': return Atom::Close;
  case ',':
  case ';': return Atom::Punctuation;
  default: return Atom::Ordinary;
  }
}

int character(Reader& r, const Setting& set, int code, int alphabet, Atom atom) {
  const int index = newBox(r, BoxKind::Character, set);
  if (index == kNone) return kNone;
  FormulaBox& box = boxAt(r, index);
  box.code = code;
  box.alphabet = static_cast<std::int8_t>(alphabet);
  box.atom = r.math ? atom : Atom::Ordinary;
  return index;
}

int plainCharacter(Reader& r, const Setting& set, int code, bool literal) {
  int alphabet = set.alphabet;
  if (alphabet == 0) {
    const bool italic = r.math && r.s->text.texItalic && isLetter(code);
    alphabet = italic ? static_cast<int>(kAlphabetItalic) : r.s->font.baseAlphabet;
  }
  return character(r, set, code, alphabet, literal && code == '\\' ? Atom::Ordinary : atomOf(code));
}

int parseRow(Reader& r, Setting set, RowEnd end);

// A group in braces, or kNone without a message if there is none.
int parseGroup(Reader& r, const Setting& set) {
  const int before = r.at;
  const bool math = r.math;
  if (nextToken(r).kind != kTokenOpen) {
    r.at = before;
    r.math = math;
    return kNone;
  }
  if (++r.groupDepth > kGroupNesting) return fail(r, kManyGroups, "Too many nested parenthesis");
  const int row = parseRow(r, set, RowEnd::Brace);
  --r.groupDepth;
  return row;
}

int parseFraction(Reader& r, const Setting& set) {
  if (++r.fractions > kFractionLimit || ++r.fractionDepth > kFractionNesting)
    return fail(r, kManyFractions, "Too many fractions");
  const int index = newBox(r, BoxKind::Fraction, set);
  if (index == kNone) return kNone;
  Setting part = set;
  if (set.style <= kStyleText) part.style = set.style + 1;
  const int numerator = parseGroup(r, part);
  if (numerator == kNone) return fail(r, kFractionSyntax, "Syntax error for fractions");
  const int denominator = parseGroup(r, part);
  if (denominator == kNone) return fail(r, kMissingDenominator, "Missing denominator for fractions");
  boxAt(r, index).first = static_cast<std::int16_t>(numerator);
  boxAt(r, index).second = static_cast<std::int16_t>(denominator);
  --r.fractionDepth;
  return index;
}

int parseRoot(Reader& r, const Setting& set) {
  if (++r.rootDepth > kRootNesting) return fail(r, kManyRoots, "Too many nested roots");
  const int index = newBox(r, BoxKind::Root, set);
  if (index == kNone) return kNone;
  const int before = r.at;
  const bool math = r.math;
  const Token token = nextToken(r);
  if (token.kind == kTokenCharacter && token.code == '[' && !token.literal) {
    Setting part = set;
    part.style = kStyleScriptScript;
    const int row = parseRow(r, part, RowEnd::Bracket);
    if (row == kNone) return kNone;
    boxAt(r, index).second = static_cast<std::int16_t>(row);
  } else {
    r.at = before;
    r.math = math;
  }
  const int radicand = parseGroup(r, set);
  if (radicand == kNone) return fail(r, kMissingRadicand, "Syntax error - missing root");
  boxAt(r, index).first = static_cast<std::int16_t>(radicand);
  --r.rootDepth;
  return index;
}

int parseAccent(Reader& r, const Setting& set, int kind) {
  struct Fault {
    int number;
    const char* text;
  };
  constexpr Fault kFaults[] = {
      {kAccentSyntax, "Syntax error for overstrike"}, {kUnderlineSyntax, "Syntax error for understrike"},
      {kVectorSyntax, "Syntax error for vec"},        {kAccentSyntax, "Syntax error for hat"},
      {kAccentSyntax, "Syntax error for tilde"},      {kAccentSyntax, "Syntax error for dot"}};
  const int index = newBox(r, BoxKind::Accent, set);
  if (index == kNone) return kNone;
  const int group = parseGroup(r, set);
  if (group == kNone) return fail(r, kFaults[kind].number, kFaults[kind].text);
  boxAt(r, index).first = static_cast<std::int16_t>(group);
  boxAt(r, index).code = kind;
  return index;
}

// The bracket behind left, right and big; 0 after a message. A full stop stands for none.
int bracketSymbol(Reader& r, int number, bool empty) {
  const Token token = nextToken(r);
  if (token.kind == kTokenCharacter && token.code < 128) {
    if (token.code != 0 && std::strchr("()[]|<>/", token.code)) return token.code;
    if (token.literal && (token.code == '{' || token.code == '}')) return token.code;
    if (empty && token.code == '.') return token.code;
  }
  fail(r, number, "Not allowed bracket symbol");
  return 0;
}

int parseFence(Reader& r, const Setting& set) {
  if (++r.leftDepth > kLeftBracketLimit) return fail(r, kManyBrackets, "Too many brackets");
  const int left = bracketSymbol(r, kBadBracket, true);
  if (left == 0) return kNone;
  const int index = newBox(r, BoxKind::Fence, set);
  if (index == kNone) return kNone;
  const int row = parseRow(r, set, RowEnd::Right);
  if (row == kNone) return kNone;
  const int right = bracketSymbol(r, kBadBracket, true);
  if (right == 0) return kNone;
  FormulaBox& box = boxAt(r, index);
  box.first = static_cast<std::int16_t>(row);
  box.code = left;
  box.amount = static_cast<float>(right);
  --r.leftDepth;
  return index;
}

int parseBig(Reader& r, const Setting& set, int hundredths) {
  const int symbol = bracketSymbol(r, kBadBigBracket, false);
  if (symbol == 0) return kNone;
  const int index = newBox(r, BoxKind::Bracket, set);
  if (index == kNone) return kNone;
  FormulaBox& box = boxAt(r, index);
  box.code = symbol;
  box.amount = static_cast<float>(hundredths) / 100.0F;
  box.atom = atomOf(symbol);
  return index;
}

// The letters of a function name, upright, as one box.
int parseWord(Reader& r, const Setting& set, const char* word) {
  const int row = newBox(r, BoxKind::Row, set);
  if (row == kNone) return kNone;
  boxAt(r, row).atom = Atom::Operator;
  int last = kNone;
  for (; *word; ++word) {
    const int letter = character(r, set, *word, kAlphabetStandard, Atom::Ordinary);
    if (letter == kNone) return kNone;
    (last == kNone ? boxAt(r, row).first : boxAt(r, last).next) = static_cast<std::int16_t>(letter);
    last = letter;
  }
  return row;
}

int namedColor(const PlotState* s, int value) {
  if (value == kForegroundName) return s->color.foregroundColor;
  if (value == kBackgroundName) return s->color.backgroundColor;
  return s->color.namedColors[value];
}

// Commands that hold for what follows; true if the command is one.
bool changeSetting(Reader& r, const Command& command, Setting& set) {
  switch (command.kind) {
  case CommandKind::Alphabet: set.alphabet = command.value; return true;
  case CommandKind::Style: set.style = command.value; return true;
  case CommandKind::Size:
    set.base = static_cast<float>(r.s->text.textHeight) * static_cast<float>(command.value) / 10000.0F;
    return true;
  case CommandKind::Color: set.color = namedColor(r.s, command.value); return true;
  default: return false;
  }
}

// The box of a command that makes one; kNone after a message.
int parseCommand(Reader& r, const Setting& set, const Token& token, const Command& command) {
  int index;
  switch (command.kind) {
  case CommandKind::Greek: return character(r, set, command.value, kAlphabetGreek, Atom::Ordinary);
  case CommandKind::Symbol: return character(r, set, command.value, kAlphabetMath, command.atom);
  case CommandKind::Space:
    index = newBox(r, BoxKind::Space, set);
    if (index != kNone) boxAt(r, index).amount = static_cast<float>(command.value);
    return index;
  case CommandKind::BigOperator:
    index = newBox(r, BoxKind::Operator, set);
    if (index == kNone) return kNone;
    boxAt(r, index).code = command.value;
    boxAt(r, index).atom = Atom::Operator;
    return index;
  case CommandKind::Fraction: return parseFraction(r, set);
  case CommandKind::Root: return parseRoot(r, set);
  case CommandKind::Accent: return parseAccent(r, set, command.value);
  case CommandKind::Limit: return parseWord(r, set, "lim");
  case CommandKind::Word: return parseWord(r, set, token.name);
  case CommandKind::Left: return parseFence(r, set);
  case CommandKind::Big: return parseBig(r, set, command.value);
  case CommandKind::Copyright: return newBox(r, BoxKind::Copyright, set);
  default: return fail(r, kUnknownName, "Unknown TeX command");
  }
}

// One group, character or command as an exponent or index.
int parseScript(Reader& r, const Setting& set) {
  if (++r.scriptDepth > kScriptNesting) return fail(r, kManyScripts, "Too many nested exponents/indices");
  Setting part = set;
  part.style = std::clamp(set.style + 1, static_cast<int>(kStyleScript), static_cast<int>(kStyleScriptScript));
  int index = parseGroup(r, part);
  if (index == kNone && !r.failed) {
    const Token token = nextToken(r);
    if (token.kind == kTokenCharacter) {
      index = plainCharacter(r, part, token.code, token.literal);
    } else if (token.kind == kTokenCommand) {
      const Command command = findCommand(token.name);
      if (command.kind == CommandKind::Right || command.kind == CommandKind::Limits || changeSetting(r, command, part))
        return fail(r, kScriptSyntax, "Syntax error for Indices/Exponents");
      index = parseCommand(r, part, token, command);
    } else {
      return fail(r, kScriptSyntax, "Syntax error for Indices/Exponents");
    }
  }
  --r.scriptDepth;
  return index;
}

// Makes the box `last` the base of an exponent or index, keeping its place in the row.
bool attachScript(Reader& r, const Setting& set, int last, bool exponent) {
  if (boxAt(r, last).kind != BoxKind::Scripts) {
    const int base = newBox(r, BoxKind::Row, set);
    if (base == kNone) return false;
    boxAt(r, base) = boxAt(r, last);
    boxAt(r, base).next = kNone;
    FormulaBox& scripts = boxAt(r, last);
    scripts = FormulaBox();
    scripts.kind = BoxKind::Scripts;
    scripts.first = static_cast<std::int16_t>(base);
    scripts.atom = boxAt(r, base).atom;
    scripts.style = boxAt(r, base).style;
    scripts.height = boxAt(r, base).height;
    scripts.color = boxAt(r, base).color;
  }
  if ((exponent ? boxAt(r, last).second : boxAt(r, last).third) != kNone) {
    fail(r, kScriptSyntax, "Syntax error for Indices/Exponents");
    return false;
  }
  const int script = parseScript(r, set);
  if (script == kNone) return false;
  FormulaBox& scripts = boxAt(r, last);
  if (exponent) {
    scripts.indexFirst = scripts.third != kNone;
    scripts.second = static_cast<std::int16_t>(script);
  } else {
    scripts.third = static_cast<std::int16_t>(script);
  }
  return true;
}

void setLimits(Reader& r, int last, int value) {
  if (last == kNone) return;
  const int base = boxAt(r, last).kind == BoxKind::Scripts ? boxAt(r, last).first : last;
  boxAt(r, base).limits = static_cast<std::int8_t>(value);
}

// True if the token closes the row; a closing sign that does not belong to it is a fault.
bool closesRow(Reader& r, const Token& token, RowEnd end) {
  if (token.kind == kTokenEnd) {
    if (end != RowEnd::Text) fail(r, kUnbalanced, "Unbalanced parenthesis");
    return true;
  }
  if (token.kind == kTokenClose) {
    if (end != RowEnd::Brace) fail(r, kUnbalanced, "Unbalanced parenthesis");
    return true;
  }
  if (token.kind == kTokenCommand && std::strcmp(token.name, "right") == 0) {
    if (end != RowEnd::Right) fail(r, kBadBracket, "Missing left bracket symbol");
    return true;
  }
  return end == RowEnd::Bracket && token.kind == kTokenCharacter && token.code == ']' && !token.literal;
}

int parseRow(Reader& r, Setting set, RowEnd end) {
  const int row = newBox(r, BoxKind::Row, set);
  if (row == kNone) return kNone;
  int last = kNone;
  for (;;) {
    const int before = r.at;
    const bool math = r.math;
    const Token token = nextToken(r);
    if (closesRow(r, token, end)) return r.failed ? kNone : row;
    int index = kNone;
    bool script = false;
    switch (token.kind) {
    case kTokenOpen:
      r.at = before;
      r.math = math;
      index = parseGroup(r, set);
      break;
    case kTokenCharacter: index = plainCharacter(r, set, token.code, token.literal); break;
    case kTokenCommand: {
      const Command command = findCommand(token.name);
      if (changeSetting(r, command, set)) continue;
      if (command.kind == CommandKind::Limits) {
        setLimits(r, last, command.value);
        continue;
      }
      index = parseCommand(r, set, token, command);
      break;
    }
    default:
      script = true;
      index = last == kNone ? newBox(r, BoxKind::Row, set) : last;
      break;
    }
    if (r.failed || index == kNone) return kNone;
    if (index != last) {
      (last == kNone ? boxAt(r, row).first : boxAt(r, last).next) = static_cast<std::int16_t>(index);
      last = index;
    }
    if (script && !attachScript(r, set, last, token.kind == kTokenExponent)) return kNone;
  }
}

} // namespace

bool parseFormula(PlotState* s, int count, Formula* formula) {
  Reader r{s, s->textState.textCodes, count, formula};
  const Setting set = {kStyleText, static_cast<float>(s->text.textHeight), 0, s->color.currentColor};
  formula->count = 0;
  formula->root = parseRow(r, set, RowEnd::Text);
  return !r.failed;
}

} // namespace quilla
