// A formula is a row of atoms, each with what stands at its foot and head. Whatever isn't known
// ends the attempt: half a formula would be wrong, while TeX can be read.
#include "conv/set/formula.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "conv/set/formula_words.h"

namespace {

using Kind = gFormula::Kind;
constexpr auto npos = std::string_view::npos;
constexpr int deepest = 60;
constexpr std::size_t longest = 20'000;

bool is_one_of(std::string_view word, std::initializer_list<std::string_view> words) {
  return std::ranges::find(words, word) != words.end();
}

gFormula leaf(Kind kind, std::string text) {
  return {kind, std::move(text), {}};
}

gFormula with(Kind kind, gFormula one, gFormula other) {
  gFormula made{kind, {}, {}};
  made.parts.push_back(std::move(one));
  made.parts.push_back(std::move(other));
  return made;
}

class Parser {
public:
  Parser(std::string_view source, std::string & unknown) : source_(source), unknown_(unknown) {}
  std::optional<gFormula> all();

private:
  char peek();
  bool at(std::string_view text) const { return rest().starts_with(text); }
  std::string_view rest() const { return source_.substr(std::min(at_, source_.size())); }
  std::string command_name();
  gFormula row(std::string_view ends);
  bool ends_row(std::string_view ends);
  gFormula atom();
  gFormula guarded_atom();
  gFormula character();
  gFormula command();
  std::optional<gFormula> structure(std::string const & name);
  std::optional<gFormula> text(std::string const & name);
  bool says_nothing(std::string const & name);
  gFormula argument();
  gFormula bracketed(std::string_view ends);
  gFormula delimiter();
  gFormula fence();
  gFormula table();
  gFormula rows_up_to(std::string_view end);
  std::string words();
  gFormula with_scripts(gFormula base);
  gFormula fail(std::string const & what = {}) {
    if (known_)
      unknown_ = what;
    known_ = false;
    at_ = source_.size();
    return {};
  }

  std::string_view source_;
  std::string & unknown_;
  std::size_t at_ = 0;
  int depth_ = 0;
  bool known_ = true;
  std::string style_; // the command that styles letters
};

// The next character behind blanks; 0 at the end.
char Parser::peek() {
  while (at_ < source_.size() && std::isspace(static_cast<unsigned char>(source_[at_])) != 0)
    ++at_;
  return at_ < source_.size() ? source_[at_] : '\0';
}

// Behind the backslash: letters, or one other character.
std::string Parser::command_name() {
  std::size_t const begin = ++at_;
  while (at_ < source_.size() && std::isalpha(static_cast<unsigned char>(source_[at_])) != 0)
    ++at_;
  if (at_ == begin && at_ < source_.size())
    ++at_;
  return std::string(source_.substr(begin, at_ - begin));
}

gFormula Parser::bracketed(std::string_view ends) {
  if (++depth_ > deepest)
    return fail();
  std::string const outer = style_; // "\bf" ends with its braces
  gFormula inner = row(ends);
  style_ = outer;
  --depth_;
  if (peek() == '\0')
    return fail();
  ++at_;
  return inner;
}

// One atom, or all that stands in braces.
gFormula Parser::argument() {
  if (peek() != '{')
    return peek() == '\0' ? fail() : guarded_atom();
  ++at_;
  return bracketed("}");
}

// The text in braces as it stands.
std::string Parser::words() {
  std::size_t const end = peek() == '{' ? source_.find('}', at_) : npos;
  if (end == npos) {
    fail();
    return {};
  }
  std::string_view const text = source_.substr(at_ + 1, end - at_ - 1);
  at_ = end + 1;
  return std::string(text);
}

gFormula Parser::delimiter() {
  char const c = peek();
  if (c == '\0')
    return fail();
  if (c != '\\') {
    ++at_;
    return leaf(Kind::sign, c == '.' ? "" : std::string(1, c));
  }
  std::string const name = command_name();
  if (is_one_of(name, {"{", "}", "|"}))
    return leaf(Kind::sign, name == "|" ? "∥" : name);
  Formula::gWord const * const word = Formula::find_word(name);
  return word ? leaf(Kind::sign, std::string(word->text)) : fail("\\" + name);
}

// "\left( ... \right)"
gFormula Parser::fence() {
  gFormula whole{Kind::row, {}, {}};
  whole.parts.push_back(delimiter());
  if (++depth_ > deepest)
    return fail();
  whole.parts.push_back(row("\\right"));
  --depth_;
  if (!at("\\right"))
    return fail();
  at_ += 6;
  whole.parts.push_back(delimiter());
  return whole;
}

gFormula Parser::rows_up_to(std::string_view end) {
  gFormula whole{Kind::table, {}, {}};
  gFormula line;
  while (known_) {
    line.parts.push_back(row("&"));
    if (peek() == '&') {
      ++at_;
      continue;
    }
    whole.parts.push_back(std::exchange(line, gFormula()));
    if (at("\\\\")) {
      at_ += 2;
      if (peek() != '\0' && !(!end.empty() && at(end)))
        continue;
    }
    break;
  }
  return whole;
}

// "\begin{matrix} a & b \\ c & d \end{matrix}"
gFormula Parser::table() {
  static constexpr struct {
    std::string_view name, open, close;
  } kinds[] = {
      {"matrix", "", ""},    {"pmatrix", "(", ")"}, {"bmatrix", "[", "]"},   {"vmatrix", "|", "|"},
      {"cases", "{", ""},    {"align", "", ""},     {"aligned", "", ""},     {"array", "", ""},
      {"eqnarray", "", ""},  {"equation", "", ""},  {"gather", "", ""},      {"split", "", ""},
      {"multline", "", ""},  {"gathered", "", ""},  {"smallmatrix", "", ""}, {"Vmatrix", "∥", "∥"},
      {"Bmatrix", "{", "}"}, {"alignat", "", ""},   {"displaymath", "", ""}, {"math", "", ""}};
  std::string const name = words();
  std::string_view const plain = std::string_view(name).substr(0, name.find('*'));
  auto const * const kind =
      std::ranges::find(kinds, plain, [](auto const & one) { return one.name; });
  if (kind == std::end(kinds))
    return fail("\\begin{" + name + "}");
  if (++depth_ > deepest)
    return fail();
  if ((plain == "array" || plain == "alignat") && peek() == '{')
    words();
  gFormula whole{Kind::row, {}, {}};
  whole.parts.push_back(leaf(Kind::sign, std::string(kind->open)));
  whole.parts.push_back(rows_up_to("\\end"));
  whole.parts.push_back(leaf(Kind::sign, std::string(kind->close)));
  --depth_;
  if (!at("\\end"))
    return fail();
  at_ += 4;
  return words() == name ? whole : fail();
}

std::optional<gFormula> Parser::structure(std::string const & name) {
  if (is_one_of(name, {"frac", "dfrac", "tfrac", "cfrac", "binom"})) {
    gFormula above = argument();
    gFormula made = with(Kind::fraction, std::move(above), argument());
    if (name != "binom")
      return made;
    made.text = "without a line";
    gFormula whole = with(Kind::row, leaf(Kind::sign, "("), std::move(made));
    whole.parts.push_back(leaf(Kind::sign, ")"));
    return whole;
  }
  if (name == "sqrt") {
    std::optional<gFormula> degree;
    if (peek() == '[') {
      ++at_;
      degree = bracketed("]");
    }
    gFormula made{Kind::root, {}, {}};
    made.parts.push_back(argument());
    if (degree)
      made.parts.push_back(std::move(*degree));
    return made;
  }
  if (is_one_of(name, {"overset", "stackrel", "underset"})) {
    gFormula mark = argument();
    return with(name == "underset" ? Kind::under : Kind::over, argument(), std::move(mark));
  }
  if (name == "underline" || name == "underbrace")
    return with(Kind::under, argument(), leaf(Kind::sign, name == "underline" ? "_" : "⏟"));
  if (name == "overbrace")
    return with(Kind::over, argument(), leaf(Kind::sign, "⏞"));
  if (name == "left")
    return fence();
  if (name == "begin")
    return table();
  if (name == "pmod") {
    gFormula whole = with(Kind::row, leaf(Kind::sign, "("), leaf(Kind::words, "mod "));
    whole.parts.push_back(argument());
    whole.parts.push_back(leaf(Kind::sign, ")"));
    return whole;
  }
  return std::nullopt;
}

std::optional<gFormula> Parser::text(std::string const & name) {
  if (is_one_of(name, {"text", "mbox", "hbox", "textrm", "textit", "textsf", "texttt", "mathtt",
                       "textsc", "textup", "intertext"}))
    return leaf(Kind::words, words());
  if (is_one_of(name, {"mathrm", "operatorname", "mathit", "mathop", "mathsf"})) {
    if (name == "operatorname" && at("*"))
      ++at_;
    std::size_t const from = at_;
    std::string const text = words();
    if (text.find_first_of("\\{_^$") == npos)
      return leaf(Kind::identifier, text);
    at_ = from;
    return argument();
  }
  bool const styled =
      Formula::in_style('A', name) != "A" || is_one_of(name, {"rm", "it", "cal", "mathnormal"});
  if (!styled)
    return std::nullopt;
  bool const switches = name == "bf" || name == "rm" || name == "it" || name == "cal";
  std::string const outer = std::exchange(style_, name == "cal" ? "mathcal" : name);
  if (switches)
    return gFormula();
  gFormula inner = argument();
  style_ = outer;
  return inner;
}

// It changes sizes, breaks or numbers alone.
bool Parser::says_nothing(std::string const & name) {
  if (is_one_of(name, {"label", "tag", "hspace", "vspace", "phantom", "color"})) {
    if (at("*"))
      ++at_;
    words();
    return true;
  }
  return is_one_of(name,
                   {"!",       "limits",   "nolimits",   "displaystyle", "textstyle", "scriptstyle",
                    "big",     "Big",      "bigg",       "Bigg",         "bigl",      "bigr",
                    "Bigl",    "Bigr",     "biggl",      "biggr",        "Biggl",     "Biggr",
                    "bigm",    "nonumber", "notag",      "mathstrut",    "mathbin",   "mathrel",
                    "mathord", "/",        "allowbreak", "noindent"});
}

gFormula Parser::command() {
  std::string const name = command_name();
  if (std::optional<gFormula> made = structure(name))
    return std::move(*made);
  if (std::optional<gFormula> made = text(name))
    return std::move(*made);
  if (says_nothing(name))
    return {};
  if (is_one_of(name, {",", ";", ":", " ", "quad", "qquad", "enspace", "thinspace", ">", "\n"}))
    return leaf(Kind::space, name.starts_with('q') || name == "enspace" ? " " : "");
  if (is_one_of(name, {"{", "}", "%", "_", "#", "&", "$"}))
    return leaf(Kind::sign, name);
  if (name == "|")
    return leaf(Kind::sign, "∥");
  Formula::gWord const * const word = Formula::find_word(name);
  if (!word)
    return fail("\\" + name);
  if (word->kind == Kind::over)
    return with(Kind::over, argument(), leaf(Kind::sign, std::string(word->text)));
  return leaf(word->kind, std::string(word->text));
}

gFormula Parser::character() {
  std::size_t const begin = at_;
  auto const byte = static_cast<unsigned char>(source_[at_]);
  auto const is_digit = [&](std::size_t i) {
    return i < source_.size() && std::isdigit(static_cast<unsigned char>(source_[i])) != 0;
  };
  if (is_digit(at_)) {
    while (is_digit(at_) || (source_.substr(at_, 1) == "." && is_digit(at_ + 1)))
      ++at_;
    std::string number;
    for (char const c : source_.substr(begin, at_ - begin))
      number += Formula::in_style(c, style_);
    return leaf(Kind::number, number);
  }
  ++at_;
  while (byte >= 0x80 && at_ < source_.size() &&
         (static_cast<unsigned char>(source_[at_]) & 0xC0) == 0x80)
    ++at_; // a character of several bytes
  std::string const text(source_.substr(begin, at_ - begin));
  if (std::string_view("}&^_$#").find(text) != npos)
    return fail();
  if (text == "~")
    return leaf(Kind::space, "");
  bool const letter = std::isalpha(byte) != 0;
  if (letter || byte >= 0x80)
    return leaf(Kind::identifier, letter ? Formula::in_style(text[0], style_) : text);
  return leaf(Kind::sign, text == "-" ? "−" : text);
}

gFormula Parser::atom() {
  switch (peek()) {
  case '\\':
    return command();
  case '{':
    ++at_;
    return bracketed("}");
  default:
    return character();
  }
}

// Commands whose arguments are commands go deep without a brace.
gFormula Parser::guarded_atom() {
  if (++depth_ > deepest)
    return fail();
  gFormula made = atom();
  --depth_;
  return made;
}

gFormula Parser::with_scripts(gFormula base) {
  bool const limits = Formula::has_limits(base.text);
  gFormula foot, head;
  bool has_foot = false, has_head = false;
  for (char c = peek(); known_ && (c == '_' || c == '^' || c == '\''); c = peek()) {
    ++at_;
    gFormula & script = c == '_' ? foot : head;
    bool & has = c == '_' ? has_foot : has_head;
    if (c != '\'' && has && !(c == '^' && script.parts.back().text == "′"))
      return fail();
    script.parts.push_back(c == '\'' ? leaf(Kind::sign, "′") : argument());
    has = true;
  }
  if (!has_foot && !has_head)
    return base;
  gFormula made{limits ? Kind::limits : Kind::scripts, {}, {}};
  made.parts.push_back(std::move(base));
  made.parts.push_back(std::move(foot));
  made.parts.push_back(std::move(head));
  return made;
}

bool Parser::ends_row(std::string_view ends) {
  if (ends == "&")
    return peek() == '&' || at("\\\\") || at("\\end");
  return !ends.empty() && at(ends);
}

// Up to the end of what it stands in, which stays. "a \over b" parts it in two.
gFormula Parser::row(std::string_view ends) {
  gFormula whole;
  std::optional<gFormula> above;
  while (known_ && peek() != '\0' && !ends_row(ends)) {
    if (at("\\over") && !at("\\overl") && !at("\\overs") && !at("\\overb") && !at("\\overr")) {
      at_ += 5;
      above = std::exchange(whole, gFormula());
      continue;
    }
    bool const bare = peek() == '_' || peek() == '^';
    gFormula one = with_scripts(bare ? gFormula() : atom());
    if (one.kind != Kind::row || !one.parts.empty())
      whole.parts.push_back(std::move(one));
  }
  if (!above)
    return whole;
  gFormula parted;
  parted.parts.push_back(with(Kind::fraction, std::move(*above), std::move(whole)));
  return parted;
}

std::optional<gFormula> Parser::all() {
  gFormula whole = rows_up_to({});
  if (!known_ || peek() != '\0')
    return std::nullopt;
  if (whole.parts.size() == 1 && whole.parts[0].parts.size() == 1)
    whole = gFormula(std::move(whole.parts[0].parts[0]));
  return whole;
}

} // namespace

std::optional<gFormula> Formula::parse(std::string_view source, std::string & unknown) {
  unknown.clear();
  if (source.size() > longest)
    return std::nullopt;
  return Parser(source, unknown).all();
}
