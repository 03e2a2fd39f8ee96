// Forms that stand above many routines of Pascal: the routine's own heading, its parameters, its
// result, each behind a label and often with "None".
#include "ana/comments/translator.h"

#include <algorithm>
#include <array>

#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;

// Takes one of the words off the head of a text, in any case.
template <class Words> bool take_one(std::string_view & text, Words const & words) {
  for (std::string_view const word : words)
    if (text.size() > word.size() && Vlb::to_lower(text.substr(0, word.size())) == word) {
      text = trimmed(text.substr(word.size()));
      return true;
    }
  return false;
}

std::size_t path_length(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && (Vlb::is_word(text[end]) || text[end] == '.'))
    ++end;
  return end;
}

bool same_name(std::string_view a, std::string_view b) {
  return Vlb::to_lower(a) == Vlb::to_lower(b);
}

// "Method: TForm.Show", "procedure TForm.Show(Sender: TObject);", "TForm.Show", "TForm Show".
bool names_itself(std::string_view line, std::string_view own) {
  static constexpr std::array<std::string_view, 6> labels = {
      "method:", "function:", "procedure:", "constructor:", "destructor:", "name:"};
  static constexpr std::array<std::string_view, 7> words = {
      "class ", "procedure ", "function ", "constructor ", "destructor ", "property ", "operator "};
  bool told = take_one(line, labels);
  while (take_one(line, words))
    told = true;
  std::size_t const end = path_length(line);
  std::string_view const path = line.substr(0, end), behind = trimmed(line.substr(end));
  std::string_view const name = path.substr(path.rfind('.') + 1);
  bool const ends = behind.empty() || is_one_of(behind[0], "(:;");
  if (same_name(name, own))
    return ends && (told || name.size() < path.size());
  return !told && path.starts_with('T') && same_name(behind, own);
}

bool is_none(std::string_view words) {
  static constexpr std::array<std::string_view, 4> none = {"none", "nothing", "-", ""};
  while (words.ends_with('.'))
    words.remove_suffix(1);
  std::string const lower = Vlb::to_lower(words);
  return std::ranges::find(none, lower) != none.end();
}

} // namespace

// The first line of a form may go on in those below it.
bool gCommentTranslator::read_form_head(std::string_view text) {
  if (form_ == gForm::heading) {
    form_ = text.find(')') == npos ? gForm::heading : gForm::parts;
    return true;
  }
  if (form_ == gForm::parts || part_ != 0 || has_text() || !names_itself(text, hints_->name))
    return false;
  bool const goes_on = text.find('(') != npos && text.find(')') == npos;
  form_ = goes_on ? gForm::heading : gForm::parts;
  return true;
}

// "Buffer: text", "Buffer - text", where there is such a parameter.
bool gCommentTranslator::read_form_parameter(std::string_view text, std::size_t indent) {
  std::size_t const end = path_length(text);
  std::string_view const name = text.substr(0, end);
  std::string_view words = trimmed(text.substr(end));
  bool const parted = words.starts_with(':') || words.starts_with("- ") || words.starts_with("= ");
  if (!parted || !hints_->parameters.contains(name))
    return false;
  open_named("@parameter", std::string(name) + " " + std::string(trimmed(words.substr(1))), indent);
  return true;
}

bool gCommentTranslator::read_form(std::string_view text, std::size_t indent) {
  static constexpr std::array<std::string_view, 3> parameters = {
      "params:", "parameters:", "param:"};
  static constexpr std::array<std::string_view, 3> results = {"returns:", "result:", "return:"};
  if (!hints_ || !hints_->pascal || hints_->name.empty())
    return false;
  if (read_form_head(text))
    return true;
  if (form_ == gForm::none)
    return false;
  std::string_view rest = text;
  if (take_one(rest, parameters) || same_name(trimmed(text), "params:"))
    return is_none(rest) || rest == text || read_form_parameter(rest, indent);
  if (take_one(rest, results)) {
    if (!is_none(rest)) {
      open_part("@return", indent);
      body_ = rest;
    }
    return true;
  }
  return read_form_parameter(text, indent);
}
