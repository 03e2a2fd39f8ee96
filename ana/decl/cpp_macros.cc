// Definitions are found by a walk over lines; the body of each is judged by its tokens.
#include "ana/decl/cpp_macros.h"

#include "ana/decl/cpp_tokens.h"

#include <algorithm>

namespace Decl {

namespace {

constexpr std::size_t longest_body = 4096;
constexpr int longest_chain = 6; // macros that stand for macros
constexpr std::size_t longest_chain_body = 200;
constexpr int most_steps = 64; // macros looked at for one

bool is_blank(char c) {
  return c == ' ' || c == '\t';
}

// Behind what says nothing of a type: attributes, specifiers, their arguments.
std::size_t behind_attribute(std::vector<gToken> const & tokens, std::size_t at) {
  gToken const & one = tokens[at];
  bool const square = one.type == '[' && tokens[at + 1].type == '[';
  if (!square && one.type != token_word)
    return at;
  bool const with_arguments = one.word == gWord::attribute || one.word == gWord::noexcept_ ||
                              one.word == gWord::throw_ || one.word == gWord::explicit_;
  bool const alone = is_specifier(one.word) || one.word == gWord::override_ ||
                     one.word == gWord::final_ || one.word == gWord::const_ ||
                     one.word == gWord::volatile_;
  if (!square && !with_arguments && !alone)
    return at;
  if (!square)
    ++at;
  if (one.word == gWord::extern_ && tokens[at].type == token_string)
    ++at;
  if (!square && (!with_arguments || tokens[at].type != '('))
    return at;
  int depth = 0;
  do {
    std::uint8_t const type = tokens[at].type;
    depth += type == '(' || type == '[' ? 1 : type == ')' || type == ']' ? -1 : 0;
    ++at;
  } while (depth > 0 && tokens[at].type != token_end);
  return at;
}

// A definition that only speaks to the compiler counts as empty.
bool is_pragma(std::vector<gToken> const & tokens, std::string_view text) {
  std::string_view const first = text.substr(tokens[0].begin, tokens[0].end - tokens[0].begin);
  return first == "_Pragma" || first == "__pragma";
}

bool all_attributes(std::vector<gToken> const & tokens) {
  std::size_t at = 0;
  while (tokens[at].type != token_end) {
    std::size_t const behind = behind_attribute(tokens, at);
    if (behind == at)
      return false;
    at = behind;
  }
  return true;
}

bool is_type(std::vector<gToken> const & tokens) {
  bool sure = false;
  for (gToken const & one : tokens) {
    if (one.type == token_end)
      break;
    bool const word =
        one.type == token_word &&
        (one.word == gWord::name || is_type_word(one.word) || is_class_key(one.word) ||
         one.word == gWord::const_ || one.word == gWord::volatile_ ||
         one.word == gWord::typename_ || is_specifier(one.word));
    bool const sign = one.type == '*' || one.type == '&' || one.type == token_scope ||
                      one.type == '<' || one.type == '>' || one.type == ',';
    if (!word && !sign)
      return false;
    sure = sure || is_type_word(one.word) || is_class_key(one.word);
  }
  return sure;
}

// "EXPORT TYPE" of a macro that takes a type.
bool takes_type(std::vector<gToken> const & tokens, std::string_view text,
                std::string_view parameters) {
  std::size_t const last = tokens.size() - 2;
  if (tokens.size() < 3)
    return false;
  for (std::size_t at = 0; at < last;) {
    std::size_t const behind = behind_attribute(tokens, at);
    if (behind == at && tokens[at].type != token_word)
      return false;
    at = std::max(behind, at + 1);
  }
  gToken const & one = tokens[last];
  std::string_view const name = text.substr(one.begin, one.end - one.begin);
  return one.type == token_word && one.word == gWord::name && !parameters.empty() &&
         parameters.substr(1, parameters.size() - 2) == name;
}

gMacroSense sense_of(std::vector<gToken> const & tokens, std::string_view text,
                     std::string_view parameters) {
  if (tokens.front().type == token_end || is_pragma(tokens, text))
    return gMacroSense::nothing;
  int depth = 0;
  bool semicolon = false;
  for (gToken const & one : tokens) {
    depth += one.type == '{' ? 1 : one.type == '}' ? -1 : 0;
    semicolon = semicolon || one.type == ';';
  }
  if (depth != 0)
    return depth > 0 ? gMacroSense::opens : gMacroSense::closes;
  if (all_attributes(tokens) || is_template_head(text.substr(tokens.front().begin)))
    return gMacroSense::attribute;
  if (is_type(tokens) || takes_type(tokens, text, parameters))
    return gMacroSense::type;
  gWord const first = tokens.front().word;
  if (tokens.front().type == token_word && (semicolon || begins_declaration(first)) &&
      first != gWord::statement)
    return gMacroSense::declaration;
  return gMacroSense::value;
}

gMacroSense merged(gMacroSense a, gMacroSense b) {
  if (a == b || b == gMacroSense::unknown)
    return a;
  if (a == gMacroSense::unknown)
    return b;
  // An empty definition is the way to switch the other one off.
  if (a == gMacroSense::nothing)
    return b;
  if (b == gMacroSense::nothing)
    return a;
  return gMacroSense::mixed;
}

// The logical line behind "#define", comments and continuations gone.
class Definition {
public:
  Definition(std::string_view text, std::size_t at) : text_(text), at_(at) {}

  std::size_t read(std::string & name, gMacroFact & fact) {
    while (at_ < text_.size() && is_blank(text_[at_]))
      ++at_;
    std::size_t const begin = at_;
    while (at_ < text_.size() && is_word_char(text_[at_]))
      ++at_;
    name = text_.substr(begin, at_ - begin);
    std::size_t const end = line_end();
    fact.with_parameters = at_ < end && text_[at_] == '(';
    std::size_t const open = at_;
    if (fact.with_parameters)
      at_ = std::min(text_.find(')', at_), end - 1) + 1;
    std::string_view const parameters = text_.substr(open, at_ - open);
    gRange const rest{static_cast<std::uint32_t>(at_), static_cast<std::uint32_t>(end)};
    if (end - at_ <= longest_body)
      fact.body = one_line(text_, rest);
    gTokens const tokens = read_tokens(rest.of(text_));
    // A body that begins with "#" makes a string of a parameter.
    fact.sense = tokens.directives.empty() ? sense_of(tokens.tokens, rest.of(text_), parameters)
                                           : gMacroSense::value;
    return end;
  }

private:
  std::string_view text_;
  std::size_t at_;

  std::size_t line_end() const {
    std::size_t end = text_.find('\n', at_);
    while (end != text_.npos && end > at_ &&
           (text_[end - 1] == '\\' || (text_[end - 1] == '\r' && text_[end - 2] == '\\')))
      end = text_.find('\n', end + 1);
    return std::min(end, text_.size());
  }
};

// Behind "define" if a "#" at `at` begins a definition.
std::size_t behind_define(std::string_view text, std::size_t at) {
  for (std::size_t before = at; before > 0 && text[before - 1] != '\n';)
    if (!is_blank(text[--before]))
      return 0;
  ++at;
  while (at < text.size() && is_blank(text[at]))
    ++at;
  std::string_view const word = "define";
  bool const fits = text.substr(at).starts_with(word) && at + word.size() < text.size() &&
                    is_blank(text[at + word.size()]);
  return fits ? at + word.size() : 0;
}

// The next name of a body of names and calls of macros alone; empty at its end. Sets `fits` to
// false where anything else stands.
std::string_view next_name(std::string_view & body, bool & fits) {
  std::size_t at = std::min(body.find_first_not_of(' '), body.size());
  std::size_t end = at;
  while (end < body.size() && is_word_char(body[end]))
    ++end;
  std::string_view const name = body.substr(at, end - at);
  fits = at == body.size() || (!name.empty() && !(name.front() >= '0' && name.front() <= '9'));
  if (end < body.size() && body[end] == ' ' && end + 1 < body.size() && body[end + 1] == '(')
    ++end;
  if (end < body.size() && body[end] == '(') {
    int depth = 0;
    do
      depth += body[end] == '(' ? 1 : body[end] == ')' ? -1 : 0;
    while (++end < body.size() && depth > 0);
  }
  body.remove_prefix(end);
  return name;
}

} // namespace

bool is_template_head(std::string_view body) {
  constexpr std::size_t longest = 1000;
  constexpr std::string_view word = "template";
  if (body.size() > longest || !body.starts_with(word))
    return false;
  body.remove_prefix(word.size());
  body.remove_prefix(std::min(body.find_first_not_of(' '), body.size()));
  body = body.substr(0, body.find_last_not_of(" \t\r\n") + 1);
  int depth = 0;
  for (std::size_t at = 0; at < body.size(); ++at) {
    depth += (body[at] == '<') - (body[at] == '>');
    if (depth <= 0)
      return depth == 0 && at + 1 == body.size();
  }
  return false;
}

void gMacroTable::collect(std::string_view text) {
  for (std::size_t at = text.find('#'); at != text.npos; at = text.find('#', at)) {
    std::size_t const behind = behind_define(text, at);
    if (behind == 0) {
      ++at;
      continue;
    }
    std::string name;
    gMacroFact fact;
    at = Definition(text, behind).read(name, fact);
    if (name.empty())
      continue;
    enter(name, fact);
  }
}

void gMacroTable::enter(std::string const & name, gMacroFact const & fact) {
  auto const [known, fresh] = macros_.try_emplace(name, fact);
  if (fresh)
    return;
  gMacroSense const sense = merged(known->second.sense, fact.sense);
  if (known->second.sense == gMacroSense::nothing && sense != gMacroSense::nothing)
    known->second = fact;
  known->second.sense = sense;
}

void gMacroTable::merge(gMacroTable const & other) {
  for (auto const & [name, fact] : other.macros_)
    enter(name, fact);
}

std::map<std::string_view, gMacroFact const *> gMacroTable::sorted() const {
  std::map<std::string_view, gMacroFact const *> found;
  for (auto const & [name, fact] : macros_)
    found.emplace(name, &fact);
  return found;
}

gMacroFact const * gMacroTable::find(std::string_view name) const {
  auto const found = macros_.find(name);
  return found == macros_.end() ? nullptr : &found->second;
}

gMacroSense gMacroTable::sense(std::string_view name) const {
  int steps = most_steps;
  return sense(name, longest_chain, steps);
}

// A macro that stands for macros which are all attributes is one, too; one that stands for a single
// other is what that is.
gMacroSense gMacroTable::sense(std::string_view name, int depth, int & steps) const {
  gMacroFact const * fact = find(name);
  if (!fact)
    return gMacroSense::unknown;
  if (fact->sense != gMacroSense::value || depth == 0 || --steps < 0 ||
      fact->body.size() > longest_chain_body)
    return fact->sense;
  std::string_view body = fact->body;
  gMacroSense all = gMacroSense::unknown;
  for (bool first = true, fits = true;; first = false) {
    std::string_view const part = next_name(body, fits);
    if (!fits)
      return fact->sense;
    if (part.empty())
      return all;
    gMacroSense one = sense(part, depth - 1, steps);
    if (one == gMacroSense::nothing && !first && all != gMacroSense::nothing)
      one = gMacroSense::attribute;
    if (one == gMacroSense::unknown && is_specifier(word_of(part)))
      one = gMacroSense::attribute;
    bool const follows = one == gMacroSense::attribute || one == gMacroSense::nothing;
    if (one == gMacroSense::unknown || (!first && !follows))
      return fact->sense;
    all = one;
  }
}

} // namespace Decl
