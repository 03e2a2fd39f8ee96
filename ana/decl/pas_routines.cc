// Heads of routines: name, parameters, result, directives.
#include "ana/decl/pas_parts.h"

namespace Decl {

namespace {

std::uint32_t mark_of(gPasWord word) {
  switch (word) {
  case gPasWord::abstract:
    return mark_pure;
  case gPasWord::dynamic:
    return mark_dynamic | mark_virtual;
  case gPasWord::virtual_:
    return mark_virtual;
  case gPasWord::override_:
    return mark_override;
  case gPasWord::final:
    return mark_final;
  case gPasWord::static_:
    return mark_static;
  case gPasWord::inline_:
    return mark_inline;
  case gPasWord::overload:
    return mark_overload;
  case gPasWord::reintroduce:
    return mark_reintroduce;
  case gPasWord::message:
    return mark_message;
  case gPasWord::deprecated:
    return mark_deprecated;
  case gPasWord::forward:
    return mark_forward;
  case gPasWord::external:
  case gPasWord::weakexternal:
    return mark_extern;
  default:
    return 0;
  }
}

// Behind ";" a word of context may name the next declaration.
bool names_declaration(gPasView const & view, std::uint32_t at) {
  char const sign = view.sign(at + 1);
  bool const colon =
      sign == ':' && view.word(at) != gPasWord::alias && view.word(at) != gPasWord::internproc &&
      view.word(at) != gPasWord::internconst && view.word(at) != gPasWord::compilerproc;
  return colon || sign == ',' || sign == '=' || sign == '<';
}

// A directive behind ";": one of the known words, "[...];", or a word that stands alone, which can
// only be a macro.
bool is_directive(gPasView const & view, std::uint32_t at, std::uint32_t limit, bool in_class) {
  if (at >= limit)
    return false;
  if (view.sign(at) == '[')
    return view.sign(view.behind(at)) == ';' && view.is_name(at + 1);
  std::uint8_t const marks = view.marks(at);
  if (!view.is_name(at) && (marks & pas_directive) == 0)
    return false;
  if (in_class && (marks & pas_access) != 0)
    return false;
  if ((marks & pas_directive) != 0) {
    bool const head = view.word(at) == gPasWord::library && view.is_name(at + 1) && !in_class;
    return !names_declaration(view, at) && !head;
  }
  return view.sign(at + 1) == ';' ||
         ((view.marks(at + 1) & pas_directive) != 0 && (view.marks(at + 1) & pas_access) == 0 &&
          !view[at + 1].line_start);
}

class HeadReader {
public:
  HeadReader(gPasView const & view, std::uint32_t at, std::uint32_t limit, bool in_class)
      : view_(view),
        at_(at),
        limit_(limit),
        in_class_(in_class) {}

  gPasHead made() {
    for (; view_.word(at_) == gPasWord::class_ || view_.word(at_) == gPasWord::generic; ++at_)
      head_.class_member |= view_.word(at_) == gPasWord::class_;
    head_.word_at = at_;
    head_.word = view_.word(at_++);
    path();
    if (!head_.found)
      return head_;
    if (view_.sign(at_) == '(') {
      head_.params = at_;
      at_ = view_.behind(at_);
    }
    result();
    if (view_.sign(at_) == '=' && in_class_)
      target();
    gPasDirectives const directives = pas_directives(view_, at_, limit_, in_class_);
    head_.end = directives.end;
    head_.text_end = directives.text_end;
    head_.marks = directives.marks;
    head_.semicolon = directives.semicolon;
    head_.trailing = view_.range(directives.begin, directives.text_end);
    return head_;
  }

private:
  gPasView const & view_;
  gPasHead head_;
  std::uint32_t at_, limit_;
  bool in_class_;

  // "A", "TFoo.Bar", "TFoo<T>.TBar.Baz<U>", "operator +", "TFoo.+".
  void path() {
    std::uint32_t const begin = at_;
    std::uint32_t last = at_;
    while (view_.sign(at_) == pas_word_sign && at_ < limit_) {
      last = at_++;
      bool const symbol = head_.word == gPasWord::operator_ && view_.sign(at_) == '<' &&
                          view_.behind_angles(at_, limit_) == at_;
      if (view_.sign(at_) == '<' && !symbol)
        at_ = view_.behind_angles(at_, limit_);
      if (view_.sign(at_) != '.')
        break;
      last = ++at_;
    }
    if (last >= limit_)
      return;
    if (head_.word == gPasWord::operator_ && view_.sign(last) != pas_word_sign)
      symbol_name(last);
    else if (view_.sign(last) != pas_word_sign)
      return;
    else
      head_.name = view_.range(last, last + 1);
    head_.found = !head_.name.empty();
    if (at_ > last + 1 && head_.template_head.empty() && view_.sign(last + 1) == '<')
      head_.template_head = view_.range(last + 1, at_);
    if (last > begin)
      head_.qualifier = view_.range(begin, last - 1);
    bool const global = head_.word == gPasWord::operator_ && !head_.class_member && last == begin;
    if (global)
      head_.name.begin = view_[head_.word_at].begin;
  }

  void symbol_name(std::uint32_t first) {
    at_ = first;
    while (at_ < limit_ && view_.sign(at_) != '(' && view_.sign(at_) != ';' &&
           view_.sign(at_) != pas_word_sign && at_ < first + 3)
      ++at_;
    head_.name = view_.range(first, at_);
  }

  void result() {
    // An operator's result may have a name.
    if (head_.word == gPasWord::operator_ && view_.is_name(at_) && view_.sign(at_ + 1) == ':')
      ++at_;
    if (view_.sign(at_) != ':')
      return;
    std::uint32_t const begin = ++at_;
    at_ = pas_type(view_, at_, limit_).end;
    head_.result = view_.range(begin, at_);
  }

  // Of an interface's method the one that implements it.
  void target() {
    std::uint32_t const begin = ++at_;
    while (at_ < limit_ && view_.sign(at_) != ';')
      ++at_;
    head_.target = view_.range(begin, at_);
  }
};

} // namespace

gPasDirectives pas_directives(gPasView const & view, std::uint32_t at, std::uint32_t limit,
                              bool in_class) {
  gPasDirectives found;
  found.begin = view.sign(at) == ';' ? at + 1 : at;
  found.text_end = at;
  while (at < limit) {
    if (view.sign(at) == ';') {
      found.semicolon = true;
      found.text_end = at;
      if (!is_directive(view, at + 1, limit, in_class)) {
        found.end = at + 1;
        return found;
      }
    } else if (view.begins_other(at) || view.word(at) == gPasWord::end) {
      break;
    } else {
      found.semicolon = false;
      found.marks |= mark_of(view.word(at));
    }
    at = view.behind(at);
  }
  if (!found.semicolon)
    found.text_end = at;
  found.end = at;
  return found;
}

gPasHead pas_head_of(gPasView const & view, std::uint32_t at, std::uint32_t limit, bool in_class) {
  return HeadReader(view, at, limit, in_class).made();
}

// Parameters

namespace {

bool is_modifier(gPasView const & view, std::uint32_t at) {
  switch (view.word(at)) {
  case gPasWord::const_:
  case gPasWord::var:
    return true;
  case gPasWord::out:
  case gPasWord::constref:
    return view.sign(at + 1) == pas_word_sign;
  default:
    return false;
  }
}

// One group of names with a type: "const a, b: T = 1".
std::uint32_t group(gPasView const & view, std::uint32_t begin, std::uint32_t end,
                    std::vector<gParam> & params) {
  std::uint32_t at = begin;
  while (at < end && view.sign(at) == '[')
    at = view.behind(at);
  while (at < end && is_modifier(view, at))
    ++at;
  while (at < end && view.sign(at) == '[')
    at = view.behind(at);
  std::uint32_t const names = at;
  while (at < end && view.sign(at) != ':' && view.sign(at) != '=')
    at = view.behind(at);
  std::uint32_t const names_end = at;
  gParam one;
  one.whole = view.range(begin, end);
  if (at < end && view.sign(at) == ':') {
    std::uint32_t const type = ++at;
    while (at < end && view.sign(at) != '=')
      at = view.behind(at);
    one.type = view.range(type, std::min(at, end));
  }
  if (at < end && view.sign(at) == '=')
    one.value = view.range(at + 1, end);
  std::uint32_t count = 0;
  for (at = names; at < names_end; ++at) {
    if (view.sign(at) != pas_word_sign)
      continue;
    one.name = view.range(at, at + 1);
    params.push_back(one);
    ++count;
    while (at < names_end && view.sign(at) != ',')
      ++at;
  }
  return count;
}

} // namespace

std::uint32_t pas_parameters(gPasView const & view, std::uint32_t open,
                             std::vector<gParam> & params) {
  std::uint32_t const close = std::min(view[open].partner, view.size());
  std::uint32_t count = 0;
  for (std::uint32_t at = open + 1; at < close;) {
    std::uint32_t const begin = at;
    while (at < close && view.sign(at) != ';')
      at = view.behind(at);
    count += group(view, begin, std::min(at, close), params);
    ++at;
  }
  return count;
}

} // namespace Decl
