// Each part of a declaration is taken to words first. Names of template parameters become numbers,
// counted from the outermost head inwards: a definition outside of its class spells all heads in
// front of it, while the declaration has those of the classes around.
#include "ana/read/signature.h"

#include <algorithm>
#include <span>
#include <unordered_map>

#include "ana/read/type_words.h"
#include "vlb/gstring.h"

namespace {

using namespace Decl;

// One "template <...>" with the constraint behind it.
struct Head {
  std::vector<gTypeWords> params;
  gTypeWords constraint;
};

// The parameters of a head that begins behind its "<"; answers the place behind its ">".
std::size_t read_params(gTypeWords const & words, std::size_t at, Head & head) {
  int depth = 0;
  gTypeWords param;
  for (; at < words.size(); ++at) {
    std::string_view const word = words[at];
    bool const end = depth == 0 && word == ">";
    if (end || (depth == 0 && word == ",")) {
      if (!param.empty())
        head.params.push_back(std::move(param));
      param.clear();
      if (end)
        return at + 1;
      continue;
    }
    depth += (word == "<" || word == "(") - (word == ">" || word == ")");
    param.push_back(word);
  }
  return at;
}

std::vector<Head> heads_of(std::string_view template_head) {
  gTypeWords const words = type_words(template_head);
  std::vector<Head> heads;
  for (std::size_t at = 0; at < words.size();) {
    bool const opens = at + 1 < words.size() && words[at] == "template" && words[at + 1] == "<";
    if (opens)
      at = read_params(words, at + 2, heads.emplace_back());
    else if (heads.empty())
      ++at;
    else
      heads.back().constraint.push_back(words[at++]);
  }
  return heads;
}

// Cuts the default off; takes the name out and gives it back.
std::string_view take_name(gTypeWords & param) {
  int depth = 0;
  auto const equals = std::find_if(param.begin(), param.end(), [&](std::string_view word) {
    depth += (word == "<" || word == "(") - (word == ">" || word == ")");
    return depth == 0 && word == "=";
  });
  param.erase(equals, param.end());
  bool const named = param.size() > 1 && Vlb::is_word(param.back()[0]) &&
                     param[param.size() - 2] != ":" && param.back() != "class" &&
                     param.back() != "typename";
  if (!named)
    return {};
  std::string_view const name = param.back();
  param.pop_back();
  return name;
}

// The numbers of template parameters, by name.
using Numbers = std::unordered_map<std::string_view, std::string>;

// A head longer than this would cost its length again for each scope.
constexpr std::size_t longest_head = 4096;
constexpr std::size_t most_heads = 16;

} // namespace

struct gSignatures::Scope {
  std::int32_t index;
  Numbers numbers; // of all scopes around, too
};

namespace {

// A name that an outer head has, too, keeps that one's number.
void number_params(std::vector<Head> & heads, Numbers const & outer, Numbers & numbers) {
  for (Head & head : heads)
    for (gTypeWords & param : head.params)
      if (std::string_view const name = take_name(param); !name.empty() && !outer.contains(name))
        numbers.emplace(name, "$" + std::to_string(outer.size() + numbers.size()));
}

std::vector<Head> short_heads_of(std::string_view head) {
  return head.size() > longest_head ? std::vector<Head>() : heads_of(head);
}

Numbers numbers_around(std::string_view text, gFileDeclarations const & file, std::int32_t scope) {
  std::vector<std::string_view> all;
  while (scope >= 0 && all.size() + 1 < most_heads) {
    gDeclaration const & outer = file.items[static_cast<std::size_t>(scope)];
    all.push_back(template_head(text, file, outer));
    scope = outer.scope;
  }
  Numbers numbers;
  for (auto head = all.rbegin(); head != all.rend(); ++head) {
    std::vector<Head> heads = short_heads_of(*head);
    number_params(heads, {}, numbers);
  }
  return numbers;
}

class Signature {
public:
  Signature(std::string_view text, gFileDeclarations const & file, gDeclaration const & one,
            Numbers const & outer)
      : text_(text),
        file_(file),
        one_(one),
        outer_(outer) {}

  std::string parameters(bool pascal);
  std::string qualifiers() const;
  std::string of_template() const;
  void read_heads();

private:
  std::size_t heads_of_classes() const;
  gTypeWords numbered(std::string_view text) const { return numbered(type_words(text)); }
  gTypeWords numbered(gTypeWords words) const;

  std::string_view text_;
  gFileDeclarations const & file_;
  gDeclaration const & one_;
  Numbers const & outer_; // of the scopes around
  Numbers numbers_;       // of its own heads
  std::vector<Head> own_; // of the function itself
};

gTypeWords Signature::numbered(gTypeWords words) const {
  for (Numbers const * numbers : {&outer_, &numbers_}) {
    if (numbers->empty())
      continue;
    for (std::string_view & word : words)
      if (auto const number = numbers->find(word); number != numbers->end())
        word = number->second;
  }
  return words;
}

// Parts of the qualifier with arguments have a head each: "template <class T> void A<T>::f()".
std::size_t Signature::heads_of_classes() const {
  int depth = 0;
  std::size_t heads = 0;
  for (char const c : one_.qualifier.of(text_)) {
    heads += c == '<' && depth == 0;
    depth += (c == '<') - (c == '>');
  }
  return heads;
}

void Signature::read_heads() {
  own_ = short_heads_of(template_head(text_, file_, one_));
  number_params(own_, outer_, numbers_);
  own_.erase(own_.begin(),
             own_.begin() + static_cast<std::ptrdiff_t>(std::min(own_.size(), heads_of_classes())));
}

// The types of "(int a, char * b[2])", whose names are known.
std::string old_style_types(std::string_view list, std::string_view text,
                            std::span<gParam const> params) {
  std::string types;
  for (gParam const & param : params) {
    std::string_view const name = param.name.of(text);
    gTypeWords words;
    int depth = 0;
    std::size_t at = std::min<std::size_t>(1, list.size());
    for (; at < list.size() && (depth > 0 || (list[at] != ',' && list[at] != ')')); ++at)
      depth += (list[at] == '(') - (list[at] == ')');
    words = type_words(list.substr(1, at - std::min<std::size_t>(1, at)));
    std::erase(words, name);
    types += (types.empty() ? "" : ",") + parameter_type(std::move(words));
    list.remove_prefix(at);
  }
  return types;
}

// The whole parameter without its name and default.
std::string type_text(std::string_view text, gParam const & param) {
  std::uint32_t const end = param.value.empty() ? param.whole.end : param.value.begin;
  std::string type;
  if (param.name.empty() || param.name.begin < param.whole.begin || param.name.end > end)
    type = gRange{param.whole.begin, end}.of(text);
  else
    type.append(gRange{param.whole.begin, param.name.begin}.of(text))
        .append(" ")
        .append(gRange{param.name.end, end}.of(text));
  std::size_t const last = type.find_last_not_of(" \t\n=:");
  type.resize(last == std::string::npos ? 0 : last + 1);
  return type;
}

std::string Signature::parameters(bool pascal) {
  std::string result = "(";
  if (one_.spelled_list >= 0)
    return result +
           old_style_types(parameter_list(text_, file_, one_), text_,
                           std::span(file_.parameters).subspan(one_.first_param, one_.params)) +
           ')';
  for (std::uint32_t i = 0; i < one_.params; ++i) {
    gParam const & param = file_.parameters[one_.first_param + i];
    std::string const whole = pascal ? std::string() : type_text(text_, param);
    std::string const type = pascal ? Vlb::to_lower(joined_words(type_words(param.type.of(text_))))
                                    : parameter_type(numbered(whole));
    if (type == "void" && one_.params == 1)
      break;
    result += i > 0 ? "," : "";
    result += type;
  }
  return result + ')';
}

std::string Signature::qualifiers() const {
  std::string result;
  for (std::string_view const word : type_words(one_.trailing.of(text_))) {
    if (word != "const" && word != "volatile" && word != "&")
      break;
    result += word;
  }
  return result;
}

// Without defaults, which only the first declaration has.
std::string Signature::of_template() const {
  if (own_.empty())
    return {};
  std::string result = "\n";
  for (Head const & head : own_) {
    result += '<';
    for (gTypeWords const & param : head.params) {
      bool const type = !param.empty() && (param[0] == "class" || param[0] == "typename");
      result += (type ? "class" + joined_words({param.begin() + 1, param.end()})
                      : plain_type(numbered(param))) +
                ',';
    }
    result += '>' + joined_words(numbered(head.constraint));
  }
  gTypeWords const trailing = numbered(one_.trailing.of(text_));
  auto const requires_ = std::find(trailing.begin(), trailing.end(), "requires");
  result += joined_words({requires_, trailing.end()});
  return result + ' ' + plain_type(numbered(one_.result.of(text_)));
}

} // namespace

gSignatures::gSignatures(std::string_view text, gFileDeclarations const & file, bool pascal)
    : text_(text),
      file_(file),
      pascal_(pascal),
      scope_(new Scope{-1, {}}) {}

gSignatures::~gSignatures() = default;

std::string gSignatures::of(gDeclaration const & one) {
  if (one.parameter_list.empty() && one.params == 0)
    return {};
  if (!pascal_ && scope_->index != one.scope)
    *scope_ = {one.scope, numbers_around(text_, file_, one.scope)};
  Signature all(text_, file_, one, scope_->numbers);
  if (pascal_)
    return all.parameters(true);
  all.read_heads();
  return all.parameters(false) + all.qualifiers() + all.of_template();
}
