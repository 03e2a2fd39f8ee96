// Nearly all sources pair by counting. Where one doesn't, columns tell: a "}" at the head of a line
// closes the bracket whose statement begins in its column, and a line that begins a declaration in
// an outer column stands in no inner bracket.
#include "ana/decl/cpp_brackets.h"

namespace Decl {

namespace {

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

class Repair {
public:
  Repair(std::vector<gToken> & tokens, gLines const & lines) : tokens_(tokens), lines_(lines) {}

  std::vector<gBracketFault> run() {
    for (gToken & one : tokens_)
      one.link = no_token;
    for (at_ = 0; at_ < tokens_.size(); ++at_)
      token();
    while (!open_.empty())
      give_up(static_cast<std::uint32_t>(tokens_.size() - 1));
    return std::move(faults_);
  }

private:
  struct Open {
    std::uint32_t token;
    std::uint32_t column; // of its statement
    bool flat;            // contents may stand in the same column
  };

  std::vector<gToken> & tokens_;
  gLines const & lines_;
  std::uint32_t at_ = 0;
  std::uint32_t line_column_ = 1;
  std::uint32_t statement_ = 0; // first token of the statement
  std::uint32_t statement_column_ = 1;
  std::vector<Open> open_;
  std::vector<gBracketFault> faults_;

  std::uint8_t type(std::uint32_t at) const { return tokens_[at].type; }
  bool brace_on_top() const { return !open_.empty() && type(open_.back().token) == '{'; }

  void token() {
    gToken const & one = tokens_[at_];
    if (one.line_head)
      line_column_ = lines_.column(one.begin);
    if (at_ == 0 || type(at_ - 1) == ';' || type(at_ - 1) == '{' || type(at_ - 1) == '}') {
      statement_ = at_;
      statement_column_ = line_column_;
    }
    if (one.line_head && one.type == token_word)
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

  void open() {
    bool const own_line = tokens_[at_].line_head;
    open_.push_back({at_, own_line ? line_column_ : statement_column_, is_flat()});
  }

  bool is_flat() const {
    if (type(at_) != '{')
      return false;
    for (std::uint32_t at = statement_; at < at_ && at < statement_ + 4; ++at)
      if (type(at) == token_word &&
          (tokens_[at].word == gWord::namespace_ || tokens_[at].word == gWord::extern_))
        return true;
    return false;
  }

  // The top is closed by nothing; a curly one ends in front of `end`.
  void give_up(std::uint32_t end) {
    std::uint32_t const token = open_.back().token;
    faults_.push_back({token, type(token) == '{'   ? "`{` without `}`"
                              : type(token) == '(' ? "`(` without `)`"
                                                   : "`[` without `]`"});
    if (type(token) == '{')
      tokens_[token].link = end;
    open_.pop_back();
  }

  void pair() {
    std::uint32_t const token = open_.back().token;
    tokens_[token].link = at_;
    tokens_[at_].link = token;
    open_.pop_back();
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
    std::size_t top = open_.size();
    while (top > 0 && type(open_[top - 1].token) != '{')
      --top;
    if (top == 0)
      return stray("`}` without `{`");
    if (tokens_[at_].line_head) {
      std::size_t partner = top;
      while (partner > 0 &&
             (open_[partner - 1].column > line_column_ || type(open_[partner - 1].token) != '{'))
        --partner;
      if (partner > 0 && open_[partner - 1].column == line_column_)
        top = partner;
      else if (open_[top - 1].column < line_column_)
        return stray("`}` without `{`");
    }
    while (open_.size() > top)
      give_up(at_);
    pair();
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

  void stray(std::string_view reason) { faults_.push_back({at_, reason}); }
};

} // namespace

std::vector<gBracketFault> link_brackets(std::vector<gToken> & tokens, gLines const & lines) {
  if (link_plainly(tokens))
    return {};
  return Repair(tokens, lines).run();
}

} // namespace Decl
