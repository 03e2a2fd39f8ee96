// Nearly all sources pair by counting. Where curly brackets do and others don't, the others are
// mended within them. Where curly ones don't, columns tell: a "}" at the head of a line closes the
// bracket whose statement begins in its column, and a line that begins a declaration in an outer
// column stands in no inner bracket. Which "}" is one too many is doubtful where contents aren't
// indented, so several readings are tried, and the one that blames the fewest brackets counts.
#include "ana/decl/cpp_brackets.h"

#include <algorithm>

namespace Decl {

namespace {

constexpr std::size_t most_faults = 1000;    // reported of one source
constexpr std::size_t most_levels = 64;      // looked through for the column of a "}"
constexpr std::uint32_t most_head_words = 8; // of a namespace, in front of its "{"

bool is_opener(std::uint8_t type) {
  return type == '(' || type == '[' || type == '{';
}

bool is_closer(std::uint8_t type) {
  return type == ')' || type == ']' || type == '}';
}

std::uint8_t opener_of(std::uint8_t closer) {
  return closer == ')' ? '(' : closer == ']' ? '[' : '{';
}

// True if all brackets pair.
bool link_plainly(std::vector<gToken> & tokens) {
  std::vector<std::uint32_t> open;
  for (std::uint32_t at = 0; at < tokens.size(); ++at) {
    gToken & one = tokens[at];
    if (is_opener(one.type))
      open.push_back(at);
    else if (is_closer(one.type)) {
      if (open.empty() || tokens[open.back()].type != opener_of(one.type))
        return false;
      tokens[open.back()].link = at;
      one.link = open.back();
      open.pop_back();
    }
  }
  return open.empty();
}

// Of curly brackets alone: more "{" than "}", 0 if they pair.
int link_curly(std::vector<gToken> & tokens) {
  std::vector<std::uint32_t> open;
  int surplus = 0;
  bool paired = true;
  for (std::uint32_t at = 0; at < tokens.size(); ++at) {
    gToken & one = tokens[at];
    one.link = no_token;
    surplus += one.type == '{' ? 1 : one.type == '}' ? -1 : 0;
    if (one.type == '{')
      open.push_back(at);
    else if (one.type == '}' && open.empty())
      paired = false;
    else if (one.type == '}') {
      tokens[open.back()].link = at;
      one.link = open.back();
      open.pop_back();
    }
  }
  if (paired && open.empty())
    return 0;
  for (gToken & one : tokens)
    one.link = no_token;
  return surplus == 0 ? 1 : surplus;
}

// Where there are more "}" than "{": which of those that could close something are surplus.
struct Reading {
  bool flat = false; // one in the column of a namespace, unless the namespace could end there
  bool tail = false; // "return a; }" behind the line that its "{" would stand on
};

class Repair {
public:
  Repair(std::vector<gToken> & tokens, gLines const & lines, std::string_view text, Reading reading)
      : tokens_(tokens),
        lines_(lines),
        text_(text),
        reading_(reading),
        surplus_(link_curly(tokens)),
        curly_known_(surplus_ == 0) {}

  std::vector<gBracketFault> run() {
    for (at_ = 0; at_ < tokens_.size(); ++at_)
      token();
    while (!open_.empty())
      give_up(static_cast<std::uint32_t>(tokens_.size() - 1));
    return std::move(faults_);
  }
  bool lacks_opener() const { return lacks_opener_; }
  // How much has to be wrong for this reading to be right: comments say what a bracket closes, too.
  std::size_t blame() const { return blame_; }

private:
  struct Open {
    std::uint32_t token;
    std::uint32_t column; // of its statement
    bool flat;            // contents may stand in the same column
    bool members;         // of a namespace or class, each of which ends with a sign
  };

  std::vector<gToken> & tokens_;
  gLines const & lines_;
  std::string_view text_;
  Reading const reading_;
  int surplus_; // of "{" without "}" that aren't found yet, below 0 of "}"
  bool const curly_known_;
  bool const lacks_opener_ = surplus_ < 0;
  std::size_t blame_ = 0;
  std::uint32_t at_ = 0;
  std::uint32_t line_column_ = 1;
  std::uint32_t statement_ = 0; // first token of the statement
  std::uint32_t statement_column_ = 1;
  std::vector<Open> open_;
  std::size_t open_curly_ = 0;
  std::vector<gBracketFault> faults_;

  std::uint8_t type(std::uint32_t at) const { return tokens_[at].type; }
  bool brace_on_top() const { return !open_.empty() && type(open_.back().token) == '{'; }

  void token() {
    gToken const & one = tokens_[at_];
    if (one.line_head)
      line_column_ = column_of(one.begin);
    if (at_ == 0 || type(at_ - 1) == ';' || type(at_ - 1) == '{' || type(at_ - 1) == '}' ||
        is_behind_section()) {
      statement_ = at_;
      statement_column_ = line_column_;
    }
    if (one.line_head && one.type == token_word && !curly_known_)
      head_of_line();
    if (is_opener(one.type))
      open();
    else if (one.type == '}')
      close_brace();
    else if (is_closer(one.type))
      close_other();
    else if (one.type == ';')
      statement_end();
  }

  // Of the first token of its line. Tabs reach to every eighth column, since those who mix them
  // with blanks have them so.
  std::uint32_t column_of(std::uint32_t position) const {
    std::uint32_t column = 0;
    for (std::uint32_t at = position - (lines_.column(position) - 1); at < position; ++at)
      column += text_[at] == '\t' ? 8 - column % 8 : 1;
    return column + 1;
  }

  bool is_behind_section() const { // "public:"
    gWord const word = at_ > 1 ? tokens_[at_ - 2].word : gWord::name;
    return type(at_ - 1) == ':' && word >= gWord::public_ && word <= gWord::slots;
  }

  void open() {
    if (is_doubled()) {
      --surplus_;
      return stray("`{` twice");
    }
    bool const own_line = tokens_[at_].line_head;
    open_curly_ += type(at_) == '{' ? 1 : 0;
    bool const flat = is_flat();
    open_.push_back(
        {at_, own_line ? line_column_ : statement_column_, flat, flat || is_class_head()});
  }

  bool is_class_head() const {
    constexpr std::uint32_t most = 64;
    if (type(at_) != '{' || at_ - statement_ > most)
      return false;
    for (std::uint32_t at = statement_; at < at_; ++at)
      if (type(at) == '=' || (type(at) == token_word && tokens_[at].word == gWord::enum_))
        return false;
      else if (type(at) == token_word && is_class_key(tokens_[at].word) && type(at + 1) != '>')
        return type(at_ - 1) != ')';
    return false;
  }

  bool is_flat() const {
    if (type(at_) != '{')
      return false;
    // "namespace a::b {", "extern \"C\" {", "namespace std VISIBLE(x) {"; what stands in front may
    // be a macro without ";".
    for (std::uint32_t back = 1; back <= most_head_words && at_ - back + 1 > statement_; ++back) {
      gToken const & one = tokens_[at_ - back];
      if (one.type != token_word && one.type != token_scope && one.type != token_string &&
          one.type != '(' && one.type != ')')
        return false;
      if (one.type == token_word && (one.word == gWord::namespace_ || one.word == gWord::extern_))
        return true;
    }
    return false;
  }

  // "{{" where the first one opens a body or contents.
  bool is_doubled() const {
    if (type(at_) != '{' || surplus_ <= 0 || at_ < 2 || type(at_ - 1) != '{' ||
        tokens_[at_ - 1].end != tokens_[at_].begin || !tokens_[at_ + 1].line_head)
      return false;
    std::uint8_t const head = type(at_ - 2);
    return head == token_word || head == ')' || head == '>';
  }

  // The top is closed by nothing; a curly one ends in front of `end`.
  void give_up(std::uint32_t end) {
    std::uint32_t const token = open_.back().token;
    report({token, type(token) == '{'   ? "`{` without `}`"
                   : type(token) == '(' ? "`(` without `)`"
                                        : "`[` without `]`"});
    if (type(token) == '{') {
      tokens_[token].link = end;
      --surplus_;
    }
    pop();
  }

  void pop() {
    open_curly_ -= type(open_.back().token) == '{' ? 1 : 0;
    open_.pop_back();
  }

  // "} // namespace x"
  bool says_namespace() const {
    std::size_t const end = std::min(text_.find('\n', tokens_[at_].end), text_.size());
    std::string_view const behind = text_.substr(tokens_[at_].end, end - tokens_[at_].end);
    return behind.find("namespace") != behind.npos && behind.find('/') != behind.npos;
  }

  void pair() {
    std::uint32_t const token = open_.back().token;
    blame_ += type(at_) == '}' && !open_.back().flat && says_namespace() ? 1 : 0;
    tokens_[token].link = at_;
    tokens_[at_].link = token;
    pop();
  }

  void give_up_round() {
    while (!open_.empty() && !brace_on_top())
      give_up(at_);
  }

  void statement_end() {
    if (open_.empty() || brace_on_top())
      return;
    std::uint32_t const token = open_.back().token;
    bool const loop = token > 0 && tokens_[token - 1].word == gWord::statement;
    if (!loop)
      give_up_round();
  }

  void head_of_line() {
    gWord const word = tokens_[at_].word;
    bool const fresh = at_ > 0 && (type(at_ - 1) == ';' || type(at_ - 1) == '}');
    if (!begins_declaration(word) && !is_type_word(word) &&
        !(fresh && line_column_ == 1 && type(at_ + 1) == token_word))
      return;
    if (word >= gWord::public_ && word <= gWord::slots)
      return;
    while (!open_.empty()) {
      Open const & top = open_.back();
      bool const inside = line_column_ > top.column || (top.flat && line_column_ == top.column);
      if (inside || (type(top.token) != '{' && !fresh))
        return;
      give_up(at_);
    }
  }

  void close_brace() {
    if (open_curly_ == 0) {
      ++blame_; // something in front of it is wrong
      return stray_brace();
    }
    std::size_t top = open_.size();
    while (top > 0 && type(open_[top - 1].token) != '{')
      --top;
    if (!curly_known_ && is_surplus(open_[top - 1])) {
      blame_ += open_[top - 1].flat && tokens_[at_].line_head ? 1 : 0; // it could as well be right
      return stray_brace();
    }
    if (tokens_[at_].line_head && !curly_known_) {
      std::size_t partner = top;
      std::size_t const least = top - std::min(top, most_levels);
      while (partner > least &&
             (open_[partner - 1].column > line_column_ || type(open_[partner - 1].token) != '{'))
        --partner;
      if (partner > least && open_[partner - 1].column == line_column_)
        top = partner;
      else if (open_[top - 1].column < line_column_)
        return stray_brace();
    }
    while (open_.size() > top)
      give_up(at_);
    pair();
  }

  void stray_brace() {
    ++surplus_;
    blame_ += says_namespace() ? 1 : 0;
    stray("`}` without `{`");
  }

  // Where there are more "}" than "{": one that ends contents in the same column ends them only in
  // front of another end, and one behind another on its line ends nothing that began on a line
  // before.
  bool is_surplus(Open const & top) const {
    if (surplus_ >= 0)
      return false;
    if (!tokens_[at_].line_head) {
      if (at_ == 0)
        return false;
      bool const doubled = type(at_ - 1) == '}' && tokens_[at_ - 1].end == tokens_[at_].begin;
      bool const tail = reading_.tail && (top.members || type(at_ - 1) == ';');
      return (doubled || tail) &&
             lines_.line(tokens_[top.token].begin) != lines_.line(tokens_[at_].begin);
    }
    std::uint8_t const next = type(at_ + 1);
    return reading_.flat && top.flat && line_column_ == top.column && next != '}' &&
           next != token_end && tokens_[at_ + 1].word != gWord::namespace_;
  }

  void close_other() {
    if (!open_.empty() && type(open_.back().token) == opener_of(type(at_)))
      return pair();
    // One of the other shape was forgotten: "(a[1)".
    if (open_.size() > 1 && !brace_on_top() &&
        type(open_[open_.size() - 2].token) == opener_of(type(at_))) {
      give_up(at_);
      return pair();
    }
    stray(type(at_) == ')' ? "`)` without `(`" : "`]` without `[`");
  }

  void stray(std::string_view reason) { report({at_, reason}); }

  void report(gBracketFault fault) {
    ++blame_;
    if (faults_.size() < most_faults)
      faults_.push_back(fault);
  }
};

} // namespace

std::vector<gBracketFault> link_brackets(std::vector<gToken> & tokens, gLines const & lines,
                                         std::string_view text) {
  if (link_plainly(tokens))
    return {};
  constexpr Reading readings[] = {{true, false}, {false, false}, {true, true}, {false, true}};
  Reading best = readings[0], last = best;
  std::size_t least = std::string_view::npos;
  std::vector<gBracketFault> faults;
  for (Reading const & reading : readings) {
    Repair repair(tokens, lines, text, reading);
    std::vector<gBracketFault> found = repair.run();
    last = reading;
    if (repair.blame() < least) {
      least = repair.blame();
      best = reading;
      faults = std::move(found);
    }
    if (!repair.lacks_opener() || least <= 1)
      break;
  }
  if (last.flat != best.flat || last.tail != best.tail)
    Repair(tokens, lines, text, best).run();
  return faults;
}

} // namespace Decl
