// The keyword test. A match is tried at ever shorter lengths until it is a keyword with the right
// separator behind it, so most tries fail; an index of first characters sorts them out.
#include <algorithm>

#include "ana/parser/doc/doc_scan_base.h"

#include "ana/anadat/input_table.h"

using namespace Doc;

// What a match says: a word, and the separator behind it (0 for none).
struct doc_scan_base::Candidate {
  gString word;
  std::size_t length = 0; // of the match, as far as it belongs to the word and its separator
  char separator = 0;
};

namespace {

// A place in the index of beginnings. White space counts as the blank that it becomes.
std::size_t beginning(char first, char second) {
  auto const a = static_cast<unsigned char>(first);
  auto const b = static_cast<unsigned char>(Vlb::is_space(second) ? ' ' : second);
  return (a * 37u + b) % 1024;
}

// Such a match says the same as the one that is shorter by a blank, which is tried next. Looking at
// each of them would cost the square of their number.
bool ends_in_blanks(std::string_view text) {
  auto const is_blank = [](char c) { return c == ' ' || c == '\t'; };
  return text.size() > 1 && is_blank(text.back()) && is_blank(text[text.size() - 2]);
}

bool ends_word(char c) {
  return Vlb::is_word(c) || c == '-' || Vlb::is_space(c);
}

} // namespace

void doc_scan_base::index_keywords() {
  keywords_ = {};
  for (auto const & entry : gUEKeywords) {
    gString const & key = entry.key;
    auto const kind = static_cast<unsigned char>(1u << entry.value->kind);
    keywords_.longest = std::max(keywords_.longest, key.size());
    if (key.size() > 1)
      keywords_.kinds[beginning(key[0], key[1])] |= kind;
    for (int second = 0; key.size() == 1 && second < 256; ++second)
      keywords_.kinds[beginning(key[0], static_cast<char>(second))] |= kind;
  }
}

bool doc_scan_base::may_be_keyword(std::string_view text, unsigned kinds) const {
  return (keywords_.kinds[beginning(text[0], text.size() > 1 ? text[1] : ' ')] & kinds) != 0;
}

doc_scan_base::Candidate doc_scan_base::candidate() const {
  std::string_view text = token();
  Candidate result;
  if (!ends_word(text.back()))
    result.separator = text.back();
  result.length = text.size();
  while (result.length > 0 && Vlb::is_space(text[result.length - 1]))
    --result.length;
  text = text.substr(0, result.separator ? result.length - 1 : result.length);
  // A word with one blank for each run of white space, as far as it can be a keyword.
  bool blank = false;
  for (char c : text) {
    if (Vlb::is_space(c)) {
      blank = !result.word.empty();
      continue;
    }
    if (blank)
      result.word += ' ';
    blank = false;
    result.word += c;
    if (result.word.size() > keywords_.longest)
      break;
  }
  return result;
}

// Null if there is no such keyword of these kinds, or if its separators say otherwise.
gKwd const * doc_scan_base::find_keyword(Candidate const & candidate, unsigned kinds) const {
  if (candidate.word.empty() || candidate.word.size() > keywords_.longest ||
      (translated_ && candidate.word[0] != '@'))
    return nullptr;
  auto const * found = gUEKeywords.lookup(candidate.word);
  if (!found || !(kinds & 1u << (*found)->kind))
    return nullptr;
  gString const & separators = (*found)->separators;
  bool const fits = candidate.separator ? separators.find(candidate.separator) != gString::npos
                                        : separators.empty();
  return fits ? found->get() : nullptr;
}

int doc_scan_base::keyword_or_reject(unsigned kinds, bool separator_in_token) {
  std::size_t const first = token().find_first_not_of(" \t\n");
  if (!may_be_keyword(token().substr(first), kinds) || ends_in_blanks(token()))
    return scan_reject;
  Candidate const found = candidate();
  gKwd const * const keyword = find_keyword(found, kinds);
  return keyword ? take_keyword(keyword, found, separator_in_token) : scan_reject;
}

// A shorter match would be another word: the text of a paragraph may begin with any command.
int doc_scan_base::keyword_or_text() {
  Candidate const found = candidate();
  if (gKwd const * const keyword = find_keyword(found, units | subentries))
    return take_keyword(keyword, found, false);
  at_entry_ = false;
  return leave_for(BODY);
}

int doc_scan_base::take_keyword(gKwd const * keyword, Candidate const & found,
                                bool separator_in_token) {
  bool const give_separator_back = found.separator && !separator_in_token;
  cut_to(static_cast<int>(found.length - (give_separator_back ? 1 : 0)));
  if (keyword->kind == gKwd::subentry_kwd)
    return open_subentry({keyword, nullptr});
  return open_unit({keyword, keyword->pattern.get()});
}

int doc_scan_base::plain_keyword_or_reject(bool separator_in_token) {
  return keyword_or_reject(start_on_par_ ? units | subentries : subentries, separator_in_token);
}

// The next unit begins with a clean slate: what the last one was reading ends with it.
int doc_scan_base::open_unit(Keyword keyword) {
  at_entry_ = in_subject_ = verbatim_ = false;
  keyword_line_ = line() + static_cast<int>(std::count(token().begin(), token().end(), '\n'));
  bool const is_syntactic = keyword->kind == gKwd::synt_unit;
  if (is_syntactic)
    cur_pattern_ = keyword.pattern;
  value_.set(keyword);
  begin(is_syntactic ? IDSPEC : TEXTNAME);
  return is_syntactic ? UNIT_KW : TEXTUNIT_KW;
}

int doc_scan_base::open_subentry(Keyword keyword) {
  at_entry_ = true;
  in_subject_ = false;
  verbatim_ = Vapp::config_verbatim(gInput->digits(unit_type_, keyword->subentry));
  Token const token = keyword->subentry == "@sline" ? SUBJECT_KW : SUBENTRY_KW;
  value_.set(keyword);
  begin(BODY);
  return token;
}
