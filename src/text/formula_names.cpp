// The names of the formula mode.
#include <cstring>

#include "text/formula.h"

namespace quilla {
namespace {

struct GreekName {
  const char* name;
  char key;
};
constexpr GreekName kGreekNames[] = {
    {"alpha", 'a'}, {"beta", 'b'},  {"gamma", 'c'},   {"delta", 'd'},  {"epsilon", 'e'}, {"zeta", 'z'},   {"eta", 'h'},
    {"theta", 'q'}, {"iota", 'i'},  {"kappa", 'k'},   {"lambda", 'l'}, {"mu", 'm'},      {"nu", 'n'},     {"xi", 'x'},
    {"pi", 'p'},    {"rho", 'r'},   {"sigma", 's'},   {"tau", 't'},    {"upsilon", 'y'}, {"phi", 'f'},    {"chi", 'g'},
    {"psi", 'u'},   {"omega", 'w'}, {"Gamma", 'C'},   {"Delta", 'D'},  {"Theta", 'Q'},   {"Lambda", 'L'}, {"Xi", 'X'},
    {"Pi", 'P'},    {"Sigma", 'S'}, {"Upsilon", 'Y'}, {"Phi", 'F'},    {"Psi", 'U'},     {"Omega", 'W'},
};

// Codes of the mathematical alphabet.
struct SymbolName {
  const char* name;
  int code;
  Atom atom;
};
constexpr SymbolName kSymbolNames[] = {
    {"pm", 70, Atom::Binary},
    {"mp", 65, Atom::Binary},
    {"times", 68, Atom::Binary},
    {"div", 66, Atom::Binary},
    {"cdot", 67, Atom::Binary},
    {"ast", 69, Atom::Binary},
    {"star", 71, Atom::Binary},
    {"cap", 73, Atom::Binary},
    {"cup", 74, Atom::Binary},
    {"vee", 75, Atom::Binary},
    {"wedge", 76, Atom::Binary},
    {"setminus", 77, Atom::Binary},
    {"odot", 78, Atom::Binary},
    {"oplus", 79, Atom::Binary},
    {"ominus", 80, Atom::Binary},
    {"le", 72, Atom::Relation},
    {"leq", 72, Atom::Relation},
    {"subset", 81, Atom::Relation},
    {"subseteq", 82, Atom::Relation},
    {"in", 87, Atom::Relation},
    {"ge", 83, Atom::Relation},
    {"geq", 83, Atom::Relation},
    {"supset", 84, Atom::Relation},
    {"supseteq", 85, Atom::Relation},
    {"ni", 86, Atom::Relation},
    {"neq", 88, Atom::Relation},
    {"cong", 89, Atom::Relation},
    {"equiv", 90, Atom::Relation},
    {"parallel", 97, Atom::Relation},
    {"sim", 98, Atom::Relation},
    {"mid", 99, Atom::Relation},
    {"notin", 100, Atom::Relation},
    {"not=", 88, Atom::Relation},
    {"leftarrow", 101, Atom::Relation},
    {"Leftarrow", 102, Atom::Relation},
    {"rightarrow", 103, Atom::Relation},
    {"to", 103, Atom::Relation},
    {"Rightarrow", 104, Atom::Relation},
    {"Leftrightarrow", 105, Atom::Relation},
    {"uparrow", 106, Atom::Relation},
    {"downarrow", 107, Atom::Relation},
    {"emptyset", 109, Atom::Ordinary},
    {"nabla", 110, Atom::Ordinary},
    {"surd", 111, Atom::Ordinary},
    {"partial", 112, Atom::Ordinary},
    {"forall", 113, Atom::Ordinary},
    {"exists", 114, Atom::Ordinary},
    {"backslash", 115, Atom::Ordinary},
    {"infty", 108, Atom::Ordinary},
    {"perp", 116, Atom::Relation},
    {"approx", 117, Atom::Relation},
    {"leqslant", 118, Atom::Relation},
    {"geqslant", 119, Atom::Relation},
    {"nless", 120, Atom::Relation},
    {"ngtr", 121, Atom::Relation},
    {"nleq", 122, Atom::Relation},
    {"ngeq", 127, Atom::Relation},
    {"prec", 128, Atom::Relation},
    {"succ", 129, Atom::Relation},
    {"nprec", 130, Atom::Relation},
    {"nsucc", 131, Atom::Relation},
    {"preceq", 132, Atom::Relation},
    {"succeq", 133, Atom::Relation},
    {"npreceq", 134, Atom::Relation},
    {"nsucceq", 135, Atom::Relation},
    {"ll", 136, Atom::Relation},
    {"gg", 137, Atom::Relation},
    {"lll", 138, Atom::Relation},
    {"ggg", 139, Atom::Relation},
    {"not", 140, Atom::Ordinary},
    {"sqsubset", 141, Atom::Relation},
    {"sqsupset", 142, Atom::Relation},
    {"doteq", 143, Atom::Relation},
    {"simeq", 144, Atom::Relation},
    {"propto", 145, Atom::Relation},
    {"angle", 146, Atom::Ordinary},
    {"nleqslant", 147, Atom::Relation},
    {"ngeqslant", 148, Atom::Relation},
    {"nsubseteq", 149, Atom::Relation},
    {"nsupseteq", 150, Atom::Relation},
    {"sqsubseteq", 151, Atom::Relation},
    {"sqsupseteq", 152, Atom::Relation},
    {"measuredangle", 153, Atom::Ordinary},
    {"sphericalangle", 154, Atom::Ordinary},
    {"circ", 162, Atom::Binary},
};
constexpr int kSumCode = 155, kProductCode = 156, kIntegralCode = 157, kContourIntegralCode = 158;

struct CommandName {
  const char* name;
  CommandKind kind;
  int value;
};
constexpr int accent(AccentKind kind) { return static_cast<int>(kind); }
constexpr CommandName kCommandNames[] = {
    {"quad", CommandKind::Space, 18},
    {"qquad", CommandKind::Space, 36},
    {",", CommandKind::Space, 3},
    {":", CommandKind::Space, 4},
    {";", CommandKind::Space, 5},
    {"!", CommandKind::Space, -3},
    {"sum", CommandKind::BigOperator, kSumCode},
    {"int", CommandKind::BigOperator, kIntegralCode},
    {"oint", CommandKind::BigOperator, kContourIntegralCode},
    {"prod", CommandKind::BigOperator, kProductCode},
    {"sqrt", CommandKind::Root, 0},
    {"frac", CommandKind::Fraction, 0},
    {"lim", CommandKind::Limit, 0},
    {"overline", CommandKind::Accent, accent(AccentKind::Overline)},
    {"underline", CommandKind::Accent, accent(AccentKind::Underline)},
    {"vec", CommandKind::Accent, accent(AccentKind::Vector)},
    {"hat", CommandKind::Accent, accent(AccentKind::Hat)},
    {"tilde", CommandKind::Accent, accent(AccentKind::Tilde)},
    {"dot", CommandKind::Accent, accent(AccentKind::Dot)},
    {"limits", CommandKind::Limits, 1},
    {"nolimits", CommandKind::Limits, -1},
    {"rm", CommandKind::Alphabet, kAlphabetStandard},
    {"gr", CommandKind::Alphabet, kAlphabetGreek},
    {"it", CommandKind::Alphabet, kAlphabetItalic},
    {"cal", CommandKind::Alphabet, kAlphabetScript},
    {"ru", CommandKind::Alphabet, kAlphabetCyrillic},
    {"displaystyle", CommandKind::Style, kStyleDisplay},
    {"textstyle", CommandKind::Style, kStyleText},
    {"scriptstyle", CommandKind::Style, kStyleScript},
    {"scriptscriptstyle", CommandKind::Style, kStyleScriptScript},
    {"D", CommandKind::Style, kStyleDisplay},
    {"T", CommandKind::Style, kStyleText},
    {"S", CommandKind::Style, kStyleScript},
    {"SS", CommandKind::Style, kStyleScriptScript},
    {"tiny", CommandKind::Size, 4820},
    {"scriptsize", CommandKind::Size, 5780},
    {"footnotesize", CommandKind::Size, 6950},
    {"small", CommandKind::Size, 8300},
    {"normalsize", CommandKind::Size, 10000},
    {"large", CommandKind::Size, 12000},
    {"Large", CommandKind::Size, 14400},
    {"LARGE", CommandKind::Size, 17280},
    {"huge", CommandKind::Size, 20736},
    {"Huge", CommandKind::Size, 24880},
    {"black", CommandKind::Color, 8},
    {"red", CommandKind::Color, 1},
    {"green", CommandKind::Color, 2},
    {"blue", CommandKind::Color, 4},
    {"cyan", CommandKind::Color, 6},
    {"yellow", CommandKind::Color, 3},
    {"orange", CommandKind::Color, 5},
    {"magenta", CommandKind::Color, 7},
    {"white", CommandKind::Color, 0},
    {"fore", CommandKind::Color, kForegroundName},
    {"back", CommandKind::Color, kBackgroundName},
    {"left", CommandKind::Left, 0},
    {"right", CommandKind::Right, 0},
    {"big", CommandKind::Big, 125},
    {"Big", CommandKind::Big, 150},
    {"bigg", CommandKind::Big, 175},
    {"Bigg", CommandKind::Big, 200},
    {"low", CommandKind::Big, 80},
    {"copyright", CommandKind::Copyright, 0},
};
constexpr int kDiameterCode = 109;

constexpr const char* kFunctionNames[] = {"arccos", "arcsin", "arctan", "arg", "cos",  "cosh", "cot",
                                          "coth",   "csc",    "dec",    "deg", "dim",  "exp",  "hom",
                                          "ln",     "log",    "sec",    "sin", "sinh", "tan",  "tanh"};

bool same(const char* a, const char* b) { return std::strcmp(a, b) == 0; }

} // namespace

Command findCommand(const char* name) {
  for (const GreekName& g : kGreekNames) {
    if (same(g.name, name)) return {CommandKind::Greek, g.key, Atom::Ordinary};
  }
  for (const SymbolName& n : kSymbolNames) {
    if (same(n.name, name)) return {CommandKind::Symbol, n.code, n.atom};
  }
  for (const CommandName& n : kCommandNames) {
    if (same(n.name, name)) return {n.kind, n.value, Atom::Ordinary};
  }
  for (const char* word : kFunctionNames) {
    if (same(word, name)) return {CommandKind::Word, 0, Atom::Operator};
  }
  if (same(name, "diameter")) return {CommandKind::Symbol, kDiameterCode, Atom::Ordinary};
  return {CommandKind::Unknown, 0, Atom::Ordinary};
}

} // namespace quilla
