// Sorted by name; the order is tested at compile time.
#include "conv/set/formula_words.h"

#include <algorithm>
#include <iterator>

namespace {

using Formula::gWord;

// clang-format off
constexpr gWord words[] = {
    {"Box", gFormula::sign, "□"},
    {"Delta", gFormula::identifier, "Δ"},
    {"Diamond", gFormula::sign, "◇"},
    {"Gamma", gFormula::identifier, "Γ"},
    {"Im", gFormula::identifier, "ℑ"},
    {"Lambda", gFormula::identifier, "Λ"},
    {"Leftarrow", gFormula::sign, "⇐"},
    {"Leftrightarrow", gFormula::sign, "⇔"},
    {"Longleftrightarrow", gFormula::sign, "⟺"},
    {"Longrightarrow", gFormula::sign, "⟹"},
    {"Omega", gFormula::identifier, "Ω"},
    {"Phi", gFormula::identifier, "Φ"},
    {"Pi", gFormula::identifier, "Π"},
    {"Pr", gFormula::identifier, "Pr"},
    {"Psi", gFormula::identifier, "Ψ"},
    {"Re", gFormula::identifier, "ℜ"},
    {"Rightarrow", gFormula::sign, "⇒"},
    {"Sigma", gFormula::identifier, "Σ"},
    {"Theta", gFormula::identifier, "Θ"},
    {"Upsilon", gFormula::identifier, "Υ"},
    {"Vert", gFormula::sign, "∥"},
    {"Xi", gFormula::identifier, "Ξ"},
    {"acute", gFormula::over, "´"},
    {"aleph", gFormula::identifier, "ℵ"},
    {"alpha", gFormula::identifier, "α"},
    {"amalg", gFormula::sign, "⨿"},
    {"angle", gFormula::sign, "∠"},
    {"approx", gFormula::sign, "≈"},
    {"arccos", gFormula::identifier, "arccos"},
    {"arccot", gFormula::identifier, "arccot"},
    {"arcsin", gFormula::identifier, "arcsin"},
    {"arctan", gFormula::identifier, "arctan"},
    {"arg", gFormula::identifier, "arg"},
    {"ast", gFormula::sign, "∗"},
    {"asymp", gFormula::sign, "≍"},
    {"backslash", gFormula::sign, "\\"},
    {"bar", gFormula::over, "¯"},
    {"because", gFormula::sign, "∵"},
    {"beta", gFormula::identifier, "β"},
    {"bigcap", gFormula::sign, "⋂"},
    {"bigcirc", gFormula::sign, "○"},
    {"bigcup", gFormula::sign, "⋃"},
    {"bigoplus", gFormula::sign, "⨁"},
    {"bigotimes", gFormula::sign, "⨂"},
    {"bigsqcup", gFormula::sign, "⨆"},
    {"bigstar", gFormula::sign, "★"},
    {"bigvee", gFormula::sign, "⋁"},
    {"bigwedge", gFormula::sign, "⋀"},
    {"blacksquare", gFormula::sign, "■"},
    {"bmod", gFormula::sign, "mod"},
    {"bot", gFormula::sign, "⊥"},
    {"bowtie", gFormula::sign, "⋈"},
    {"box", gFormula::sign, "□"},
    {"breve", gFormula::over, "˘"},
    {"bullet", gFormula::sign, "•"},
    {"cap", gFormula::sign, "∩"},
    {"cdot", gFormula::sign, "⋅"},
    {"cdotp", gFormula::sign, "·"},
    {"cdots", gFormula::sign, "⋯"},
    {"centerdot", gFormula::sign, "·"},
    {"check", gFormula::over, "ˇ"},
    {"chi", gFormula::identifier, "χ"},
    {"circ", gFormula::sign, "∘"},
    {"circledast", gFormula::sign, "⊛"},
    {"clubsuit", gFormula::sign, "♣"},
    {"colon", gFormula::sign, ":"},
    {"complement", gFormula::sign, "∁"},
    {"cong", gFormula::sign, "≅"},
    {"coprod", gFormula::sign, "∐"},
    {"cos", gFormula::identifier, "cos"},
    {"cosh", gFormula::identifier, "cosh"},
    {"cot", gFormula::identifier, "cot"},
    {"coth", gFormula::identifier, "coth"},
    {"csc", gFormula::identifier, "csc"},
    {"cup", gFormula::sign, "∪"},
    {"dagger", gFormula::sign, "†"},
    {"dashv", gFormula::sign, "⊣"},
    {"ddagger", gFormula::sign, "‡"},
    {"ddot", gFormula::over, "¨"},
    {"ddots", gFormula::sign, "⋱"},
    {"deg", gFormula::identifier, "deg"},
    {"degree", gFormula::identifier, "°"},
    {"delta", gFormula::identifier, "δ"},
    {"det", gFormula::identifier, "det"},
    {"diamond", gFormula::sign, "⋄"},
    {"digamma", gFormula::identifier, "ϝ"},
    {"dim", gFormula::identifier, "dim"},
    {"div", gFormula::sign, "÷"},
    {"dot", gFormula::over, "˙"},
    {"doteq", gFormula::sign, "≐"},
    {"dots", gFormula::sign, "…"},
    {"dotsb", gFormula::sign, "⋯"},
    {"dotsc", gFormula::sign, "…"},
    {"dotsi", gFormula::sign, "⋯"},
    {"dotsm", gFormula::sign, "⋯"},
    {"dotso", gFormula::sign, "…"},
    {"downarrow", gFormula::sign, "↓"},
    {"ell", gFormula::identifier, "ℓ"},
    {"emptyset", gFormula::identifier, "∅"},
    {"epsilon", gFormula::identifier, "ϵ"},
    {"equiv", gFormula::sign, "≡"},
    {"eta", gFormula::identifier, "η"},
    {"eth", gFormula::identifier, "ð"},
    {"exists", gFormula::sign, "∃"},
    {"exp", gFormula::identifier, "exp"},
    {"flat", gFormula::sign, "♭"},
    {"forall", gFormula::sign, "∀"},
    {"frown", gFormula::sign, "⌢"},
    {"gamma", gFormula::identifier, "γ"},
    {"gcd", gFormula::identifier, "gcd"},
    {"ge", gFormula::sign, "≥"},
    {"geq", gFormula::sign, "≥"},
    {"geqslant", gFormula::sign, "⩾"},
    {"gets", gFormula::sign, "←"},
    {"gg", gFormula::sign, "≫"},
    {"grave", gFormula::over, "`"},
    {"gtreqless", gFormula::sign, "⋛"},
    {"gtrsim", gFormula::sign, "≳"},
    {"hat", gFormula::over, "^"},
    {"hbar", gFormula::identifier, "ℏ"},
    {"hdots", gFormula::sign, "…"},
    {"hom", gFormula::identifier, "hom"},
    {"hookrightarrow", gFormula::sign, "↪"},
    {"hslash", gFormula::identifier, "ℏ"},
    {"iff", gFormula::sign, "⇔"},
    {"iiint", gFormula::sign, "∭"},
    {"iint", gFormula::sign, "∬"},
    {"imath", gFormula::identifier, "ı"},
    {"implies", gFormula::sign, "⟹"},
    {"in", gFormula::sign, "∈"},
    {"inf", gFormula::identifier, "inf"},
    {"infty", gFormula::identifier, "∞"},
    {"int", gFormula::sign, "∫"},
    {"intercal", gFormula::sign, "⊺"},
    {"iota", gFormula::identifier, "ι"},
    {"jmath", gFormula::identifier, "ȷ"},
    {"kappa", gFormula::identifier, "κ"},
    {"ker", gFormula::identifier, "ker"},
    {"lVert", gFormula::sign, "∥"},
    {"lambda", gFormula::identifier, "λ"},
    {"land", gFormula::sign, "∧"},
    {"langle", gFormula::sign, "⟨"},
    {"lbrace", gFormula::sign, "{"},
    {"lbrack", gFormula::sign, "["},
    {"lceil", gFormula::sign, "⌈"},
    {"ldots", gFormula::sign, "…"},
    {"le", gFormula::sign, "≤"},
    {"leftarrow", gFormula::sign, "←"},
    {"leftrightarrow", gFormula::sign, "↔"},
    {"leq", gFormula::sign, "≤"},
    {"leqslant", gFormula::sign, "⩽"},
    {"lessgtr", gFormula::sign, "≶"},
    {"lesssim", gFormula::sign, "≲"},
    {"lfloor", gFormula::sign, "⌊"},
    {"lg", gFormula::identifier, "lg"},
    {"lim", gFormula::identifier, "lim"},
    {"liminf", gFormula::identifier, "lim inf"},
    {"limsup", gFormula::identifier, "lim sup"},
    {"ll", gFormula::sign, "≪"},
    {"ln", gFormula::identifier, "ln"},
    {"lnot", gFormula::sign, "¬"},
    {"log", gFormula::identifier, "log"},
    {"longleftarrow", gFormula::sign, "⟵"},
    {"longleftrightarrow", gFormula::sign, "⟷"},
    {"longmapsto", gFormula::sign, "⟼"},
    {"longrightarrow", gFormula::sign, "⟶"},
    {"lor", gFormula::sign, "∨"},
    {"ltimes", gFormula::sign, "⋉"},
    {"lvert", gFormula::sign, "|"},
    {"mapsto", gFormula::sign, "↦"},
    {"mathring", gFormula::over, "˚"},
    {"max", gFormula::identifier, "max"},
    {"mho", gFormula::identifier, "℧"},
    {"mid", gFormula::sign, "∣"},
    {"min", gFormula::identifier, "min"},
    {"mod", gFormula::identifier, "mod"},
    {"models", gFormula::sign, "⊨"},
    {"mp", gFormula::sign, "∓"},
    {"mu", gFormula::identifier, "μ"},
    {"nabla", gFormula::sign, "∇"},
    {"natural", gFormula::sign, "♮"},
    {"ne", gFormula::sign, "≠"},
    {"nearrow", gFormula::sign, "↗"},
    {"neg", gFormula::sign, "¬"},
    {"neq", gFormula::sign, "≠"},
    {"nexists", gFormula::sign, "∄"},
    {"ngeq", gFormula::sign, "≱"},
    {"ni", gFormula::sign, "∋"},
    {"nleq", gFormula::sign, "≰"},
    {"nmid", gFormula::sign, "∤"},
    {"not", gFormula::sign, "̸"},
    {"notin", gFormula::sign, "∉"},
    {"nsubseteq", gFormula::sign, "⊈"},
    {"nu", gFormula::identifier, "ν"},
    {"nwarrow", gFormula::sign, "↖"},
    {"odot", gFormula::sign, "⊙"},
    {"oint", gFormula::sign, "∮"},
    {"omega", gFormula::identifier, "ω"},
    {"omicron", gFormula::identifier, "ο"},
    {"ominus", gFormula::sign, "⊖"},
    {"oplus", gFormula::sign, "⊕"},
    {"oslash", gFormula::sign, "⊘"},
    {"otimes", gFormula::sign, "⊗"},
    {"overline", gFormula::over, "‾"},
    {"overrightarrow", gFormula::over, "→"},
    {"owns", gFormula::sign, "∋"},
    {"parallel", gFormula::sign, "∥"},
    {"partial", gFormula::identifier, "∂"},
    {"perp", gFormula::sign, "⊥"},
    {"phi", gFormula::identifier, "ϕ"},
    {"pi", gFormula::identifier, "π"},
    {"pm", gFormula::sign, "±"},
    {"prec", gFormula::sign, "≺"},
    {"preceq", gFormula::sign, "⪯"},
    {"prime", gFormula::sign, "′"},
    {"prod", gFormula::sign, "∏"},
    {"propto", gFormula::sign, "∝"},
    {"psi", gFormula::identifier, "ψ"},
    {"rVert", gFormula::sign, "∥"},
    {"rangle", gFormula::sign, "⟩"},
    {"rbrace", gFormula::sign, "}"},
    {"rbrack", gFormula::sign, "]"},
    {"rceil", gFormula::sign, "⌉"},
    {"rfloor", gFormula::sign, "⌋"},
    {"rho", gFormula::identifier, "ρ"},
    {"rightarrow", gFormula::sign, "→"},
    {"rightharpoonup", gFormula::sign, "⇀"},
    {"rightleftharpoons", gFormula::sign, "⇌"},
    {"rtimes", gFormula::sign, "⋊"},
    {"rvert", gFormula::sign, "|"},
    {"searrow", gFormula::sign, "↘"},
    {"sec", gFormula::identifier, "sec"},
    {"setminus", gFormula::sign, "∖"},
    {"sharp", gFormula::sign, "♯"},
    {"sigma", gFormula::identifier, "σ"},
    {"sim", gFormula::sign, "∼"},
    {"simeq", gFormula::sign, "≃"},
    {"sin", gFormula::identifier, "sin"},
    {"sinh", gFormula::identifier, "sinh"},
    {"smile", gFormula::sign, "⌣"},
    {"sqcap", gFormula::sign, "⊓"},
    {"sqcup", gFormula::sign, "⊔"},
    {"sqsubseteq", gFormula::sign, "⊑"},
    {"sqsupseteq", gFormula::sign, "⊒"},
    {"square", gFormula::sign, "□"},
    {"star", gFormula::sign, "⋆"},
    {"subset", gFormula::sign, "⊂"},
    {"subseteq", gFormula::sign, "⊆"},
    {"subsetneq", gFormula::sign, "⊊"},
    {"succ", gFormula::sign, "≻"},
    {"succeq", gFormula::sign, "⪰"},
    {"sum", gFormula::sign, "∑"},
    {"sup", gFormula::identifier, "sup"},
    {"supset", gFormula::sign, "⊃"},
    {"supseteq", gFormula::sign, "⊇"},
    {"supsetneq", gFormula::sign, "⊋"},
    {"surd", gFormula::sign, "√"},
    {"swarrow", gFormula::sign, "↙"},
    {"tan", gFormula::identifier, "tan"},
    {"tanh", gFormula::identifier, "tanh"},
    {"tau", gFormula::identifier, "τ"},
    {"therefore", gFormula::sign, "∴"},
    {"theta", gFormula::identifier, "θ"},
    {"tilde", gFormula::over, "~"},
    {"times", gFormula::sign, "×"},
    {"to", gFormula::sign, "→"},
    {"top", gFormula::sign, "⊤"},
    {"triangle", gFormula::sign, "△"},
    {"triangleleft", gFormula::sign, "◃"},
    {"triangleq", gFormula::sign, "≜"},
    {"triangleright", gFormula::sign, "▹"},
    {"uparrow", gFormula::sign, "↑"},
    {"updownarrow", gFormula::sign, "↕"},
    {"uplus", gFormula::sign, "⊎"},
    {"upsilon", gFormula::identifier, "υ"},
    {"varepsilon", gFormula::identifier, "ε"},
    {"varkappa", gFormula::identifier, "ϰ"},
    {"varnothing", gFormula::identifier, "∅"},
    {"varphi", gFormula::identifier, "φ"},
    {"varpi", gFormula::identifier, "ϖ"},
    {"varrho", gFormula::identifier, "ϱ"},
    {"varsigma", gFormula::identifier, "ς"},
    {"vartheta", gFormula::identifier, "ϑ"},
    {"vdash", gFormula::sign, "⊢"},
    {"vdots", gFormula::sign, "⋮"},
    {"vec", gFormula::over, "→"},
    {"vee", gFormula::sign, "∨"},
    {"vert", gFormula::sign, "|"},
    {"wedge", gFormula::sign, "∧"},
    {"widehat", gFormula::over, "^"},
    {"widetilde", gFormula::over, "~"},
    {"wp", gFormula::identifier, "℘"},
    {"wr", gFormula::sign, "≀"},
    {"xi", gFormula::identifier, "ξ"},
    {"zeta", gFormula::identifier, "ζ"},
};
// clang-format on

constexpr bool below(gWord const & a, gWord const & b) {
  return a.name < b.name;
}
static_assert(std::is_sorted(std::begin(words), std::end(words), below));

std::string utf8(char32_t c) {
  std::string out;
  if (c >= 0x10000) {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
  }
  out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
  out += static_cast<char>(0x80 | (c & 0x3F));
  return out;
}

// Where the capitals of a style begin, small letters 26 behind them, and its digits; 0 for none.
struct Style {
  std::string_view command;
  char32_t letters, digits;
};
constexpr Style styles[] = {
    {"mathbf", 0x1D400, 0x1D7CE},     {"bf", 0x1D400, 0x1D7CE},     {"textbf", 0x1D400, 0x1D7CE},
    {"boldsymbol", 0x1D468, 0x1D7CE}, {"bm", 0x1D468, 0x1D7CE},     {"vect", 0x1D468, 0x1D7CE},
    {"mathbb", 0x1D538, 0x1D7D8},     {"mathcal", 0x1D49C, 0},      {"mathscr", 0x1D49C, 0},
    {"mathfrak", 0x1D504, 0},         {"mathtt", 0x1D670, 0x1D7F6}, {"mathsf", 0x1D5A0, 0x1D7E2}};

// Letters that were there before the styles.
struct Early {
  char32_t styled, letter;
};
constexpr Early early[] = {
    {0x1D53A, 0x2102}, {0x1D53F, 0x210D}, {0x1D545, 0x2115}, {0x1D547, 0x2119}, {0x1D548, 0x211A},
    {0x1D549, 0x211D}, {0x1D551, 0x2124}, {0x1D49D, 0x212C}, {0x1D4A0, 0x2130}, {0x1D4A1, 0x2131},
    {0x1D4A3, 0x210B}, {0x1D4A4, 0x2110}, {0x1D4A7, 0x2112}, {0x1D4A8, 0x2133}, {0x1D4AD, 0x211B},
    {0x1D4BA, 0x212F}, {0x1D4BC, 0x210A}, {0x1D4C4, 0x2134}, {0x1D506, 0x212D}, {0x1D50B, 0x210C},
    {0x1D50C, 0x2111}, {0x1D515, 0x211C}, {0x1D51D, 0x2128}};

} // namespace

Formula::gWord const * Formula::find_word(std::string_view name) {
  auto const * const at = std::lower_bound(
      std::begin(words), std::end(words), name,
      [](gWord const & word, std::string_view wanted) { return word.name < wanted; });
  return at != std::end(words) && at->name == name ? at : nullptr;
}

std::string Formula::in_style(char letter, std::string_view command) {
  auto const * const style = std::ranges::find(styles, command, &Style::command);
  char32_t code = 0;
  if (style == std::end(styles))
    return std::string(1, letter);
  if (letter >= 'A' && letter <= 'Z')
    code = style->letters + static_cast<char32_t>(letter - 'A');
  else if (letter >= 'a' && letter <= 'z')
    code = style->letters + 26 + static_cast<char32_t>(letter - 'a');
  else if (letter >= '0' && letter <= '9' && style->digits != 0)
    code = style->digits + static_cast<char32_t>(letter - '0');
  if (code == 0)
    return std::string(1, letter);
  auto const * const known = std::ranges::find(early, code, &Early::styled);
  return utf8(known == std::end(early) ? code : known->letter);
}

bool Formula::has_limits(std::string_view text) {
  static constexpr std::string_view all[] = {
      "∑",   "∏",   "∐",       "⋂",       "⋃",   "⨁",   "⨂",   "⋁",   "⋀", "lim",
      "max", "min", "lim inf", "lim sup", "inf", "sup", "det", "gcd", "Pr"};
  return std::ranges::find(all, text) != std::end(all);
}
