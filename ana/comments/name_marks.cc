// A mark counts at the begin of a word, and nothing within backquotes.

#include "ana/comments/name_marks.h"

#include "vlb/gstring.h"

namespace {

std::size_t word_end(std::string_view text, std::size_t at) {
  while (at < text.size() && Vlb::is_word(text[at]))
    ++at;
  return at;
}

struct Name { // none: ends where it begins
  std::size_t begin, end;
};

// "struct ring", "ring->head.next".
Name named_type(std::string_view text, std::size_t at) {
  for (std::string_view const kind : {"struct ", "union ", "enum ", "typedef "})
    if (text.substr(at).starts_with(kind)) {
      at += kind.size();
      break;
    }
  Name name{at, word_end(text, at)};
  while (name.end > name.begin) {
    std::string_view const rest = text.substr(name.end);
    std::size_t const sign = rest.starts_with("->") ? 2 : rest.starts_with('.') ? 1 : 0;
    std::size_t const end = word_end(text, name.end + sign);
    if (sign == 0 || end == name.end + sign)
      break;
    name.end = end;
  }
  bool const entity = name.end < text.size() && text[name.end] == ';'; // "&lt;"
  return entity ? Name{at, at} : name;
}

// Not a format, such as "%ld".
Name constant(std::string_view text, std::size_t at) {
  std::size_t const first = at + (text.substr(at).starts_with('-') ? 1 : 0);
  std::size_t const end = word_end(text, first);
  std::string_view const word = text.substr(first, end - first);
  bool const capital = word.size() > 1 && word[0] >= 'A' && word[0] <= 'Z';
  return {at, capital || word == "true" || word == "false" ? end : at};
}

} // namespace

std::string_view Comments::name_described_in(std::string_view line) {
  std::size_t const end = line.starts_with('@') ? word_end(line, 1) : 0;
  std::string_view const behind = line.substr(end);
  bool const described = end > 1 && behind.starts_with(':') && !behind.starts_with("::");
  return described ? line.substr(1, end - 1) : std::string_view();
}

std::string Comments::from_name_marks(std::string_view line,
                                      std::function<bool(std::string_view)> const & is_command) {
  std::string out;
  bool code = false;
  for (std::size_t at = 0; at < line.size();) {
    code = code != (line[at] == '`');
    bool const begins = !code && (at == 0 || (!Vlb::is_word(line[at - 1]) && line[at - 1] != '\\'));
    Name name{at + 1, at + 1};
    if (begins && line[at] == '%')
      name = constant(line, at + 1);
    else if (begins && line[at] == '&')
      name = named_type(line, at + 1);
    else if (begins && line[at] == '@') {
      name.end = word_end(line, at + 1);
      bool const described = line.substr(name.end).starts_with(':') && at == 0;
      if (described || is_command(line.substr(name.begin, name.end - name.begin)))
        name.end = name.begin;
    }
    if (name.end > name.begin) {
      std::string const word(line.substr(name.begin, name.end - name.begin));
      bool const type = line[at] == '&' && word.find_first_of(".-") == word.npos;
      out += type ? "<see cref=\"" + word + "\"/>" : "`" + word + "`";
      at = name.end;
    } else
      out += line[at++];
  }
  return out;
}
