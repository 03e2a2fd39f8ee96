// Brackets and words tell where the parameters are, and which words are names of parameters, which
// must not become links to things that happen to have the same name.

#include "conv/htm/declaration.h"

#include <algorithm>

#include "vlb/gstring.h"

namespace {

constexpr std::size_t wide = 80;

// Words with brackets of their own in front of the parameters.
bool has_own_brackets(std::string_view before) {
  for (std::string_view const word :
       {"decltype", "noexcept", "alignas", "__attribute__", "__declspec", "requires", "explicit"})
    if (before.ends_with(word))
      return true;
  return false;
}

// The bracket that closes the one at `open`, or npos.
std::size_t closing(std::string_view text, std::size_t open) {
  int depth = 0;
  for (std::size_t i = open; i < text.size(); ++i)
    if (text[i] == '(' || text[i] == '[' || text[i] == '{')
      ++depth;
    else if ((text[i] == ')' || text[i] == ']' || text[i] == '}') && --depth == 0)
      return i;
  return std::string_view::npos;
}

// Where "template <...>" ends; 0 without one.
std::size_t template_end(std::string_view text) {
  if (!text.starts_with("template"))
    return 0;
  int angles = 0, brackets = 0;
  for (std::size_t i = 8; i < text.size(); ++i) {
    char const c = text[i];
    brackets += c == '(' ? 1 : c == ')' ? -1 : 0;
    if (brackets > 0)
      continue;
    angles += c == '<' ? 1 : c == '>' ? -1 : 0;
    if (c == '>' && angles == 0)
      return i + 1;
  }
  return 0;
}

std::size_t parameters_begin(std::string_view text, std::size_t from) {
  int angles = 0;
  for (std::size_t i = from; i < text.size(); ++i) {
    std::string_view before = text.substr(from, i - from);
    before = before.substr(0, before.find_last_not_of(' ') + 1);
    if (text[i] == '<' && !before.ends_with("operator") && !before.ends_with("operator<"))
      ++angles;
    else if (text[i] == '>' && angles > 0)
      --angles;
    else if (text[i] == '(') {
      bool const own =
          angles > 0 || before.empty() || has_own_brackets(before) || before.ends_with("operator");
      if (!own)
        return i;
      i = closing(text, i);
      if (i == std::string_view::npos)
        break;
    }
  }
  return std::string_view::npos;
}

// The text with a line feed behind each separator that stands in no brackets.
void add_parameters(std::string_view list, std::string & out) {
  int depth = 0;
  std::size_t begin = 0;
  auto const add = [&](std::size_t end) {
    std::size_t const first = std::min(list.find_first_not_of(' ', begin), end);
    out += "\n    ";
    out += list.substr(first, end - first);
    begin = end;
  };
  for (std::size_t i = 0; i < list.size(); ++i) {
    char const c = list[i];
    if (c == '(' || c == '[' || c == '{' || c == '<')
      ++depth;
    else if (c == ')' || c == ']' || c == '}' || (c == '>' && i > 0 && list[i - 1] != '-'))
      --depth;
    else if ((c == ',' || c == ';') && depth <= 0)
      add(i + 1);
  }
  add(list.size());
}

// What stands around a word decides whether it can be a type.
struct gNeighbours {
  std::string_view word_before; // if a word stands directly in front
  char before = 0, behind = 0;  // signs; 0 at the ends
};

bool leads_to_type(std::string_view word) {
  for (std::string_view const known :
       {"public", "protected", "private", "virtual", "class", "struct", "union", "enum", "typename",
        "friend", "using", "of", "inherited"})
    if (word == known)
      return true;
  return false;
}

bool is_declared_name(gNeighbours const & around) {
  bool const ends = around.behind == ',' || around.behind == ')' || around.behind == '=' ||
                    around.behind == ';' || around.behind == '[' || around.behind == 0;
  if (!ends)
    return false;
  if (!around.word_before.empty())
    return !leads_to_type(around.word_before);
  return around.before == '&' || around.before == '*' || around.before == '>';
}

char sign_at(std::string_view text, std::size_t pos) {
  pos = text.find_first_not_of(" \n\t", pos);
  return pos == std::string_view::npos ? '\0' : text[pos];
}

// One pass over the stretches of a declaration.
class gWriter {
public:
  gWriter(std::string_view text, gColours const & colours, Declaration::gLinker const & link,
          std::string & out)
      : text_(text),
        colours_(colours),
        link_(link),
        out_(out) {}

  void write(std::vector<gColoured> const & stretches) {
    for (std::size_t i = 0; i < stretches.size();) {
      bool const is_word = stretches[i].colour == gColour::word;
      std::size_t const end = is_word ? name_end(stretches, i) : i + 1;
      std::string_view const name(stretches[i].text.data(),
                                  static_cast<std::size_t>(stretches[end - 1].text.data() +
                                                           stretches[end - 1].text.size() -
                                                           stretches[i].text.data()));
      if (!is_word || !is_type(name) || !link_(name, out_))
        for (std::size_t k = i; k < end; ++k)
          colours_.set(stretches[k], out_);
      remember(stretches[end - 1]);
      i = end;
    }
  }

private:
  // Behind a qualified name that begins here.
  static std::size_t name_end(std::vector<gColoured> const & stretches, std::size_t i) {
    while (i + 2 < stretches.size() && stretches[i + 1].text == "::" &&
           stretches[i + 2].colour == gColour::word)
      i += 2;
    return i + 1;
  }
  bool is_type(std::string_view name) const {
    gNeighbours around = before_;
    auto const end = static_cast<std::size_t>(name.data() + name.size() - text_.data());
    around.behind = sign_at(text_, end);
    // Behind "Type::" of a type with arguments: a name in a scope that isn't known.
    return !is_declared_name(around) && around.before != ':' && around.before != '~';
  }
  void remember(gColoured const & stretch) {
    std::size_t const last = stretch.text.find_last_not_of(" \t");
    if (last == std::string_view::npos)
      return;
    bool const word = stretch.colour == gColour::word || stretch.colour == gColour::keyword;
    before_.word_before = word ? stretch.text : std::string_view();
    // A single colon stands in front of bases, and behind names in Pascal.
    bool const scope = stretch.text.substr(0, last + 1).ends_with("::");
    before_.before = stretch.text[last] == ':' && !scope ? ' ' : stretch.text[last];
  }

  std::string_view text_;
  gColours const & colours_;
  Declaration::gLinker const & link_;
  std::string & out_;
  gNeighbours before_;
};

} // namespace

std::string Declaration::broken(std::string_view text) {
  if (text.size() <= wide || text.find('\n') != std::string_view::npos || text.starts_with('#'))
    return std::string(text);
  std::string out;
  if (std::size_t const head = template_end(text); head > 0) {
    (out += text.substr(0, head)) += '\n';
    text.remove_prefix(std::min(text.find_first_not_of(' ', head), text.size()));
  }
  std::size_t const open = text.size() > wide ? parameters_begin(text, 0) : std::string_view::npos;
  std::size_t const close = open == std::string_view::npos ? open : closing(text, open);
  if (close == std::string_view::npos || close == open + 1)
    return out.append(text);
  out += text.substr(0, open + 1);
  add_parameters(text.substr(open + 1, close - open - 1), out);
  return out.append(text.substr(close));
}

void Declaration::set(std::string_view text, gLanguage language, gColours const & colours,
                      gLinker const & link, std::string & out) {
  gWriter writer(text, colours, link, out);
  std::vector<gColoured> stretches;
  gColours::gState state = 0;
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    colours.split(language, text.substr(at, end - at), state, stretches);
    writer.write(stretches);
    if (end < text.size())
      out += '\n';
    at = end + 1;
  }
}
