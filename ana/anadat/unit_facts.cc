// One line that spares the readers of the intermediate code from guessing what a unit is, how it is
// called, and where the parts of its declaration lie.
#include <span>
#include <sstream>

#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"

namespace {

struct gWord {
  std::uint32_t bit;
  std::string_view word;
};

constexpr gWord mark_words[] = {
    {Decl::mark_static, "static"},
    {Decl::mark_extern, "extern"},
    {Decl::mark_inline, "inline"},
    {Decl::mark_virtual, "virtual"},
    {Decl::mark_pure, "pure"},
    {Decl::mark_override, "override"},
    {Decl::mark_final, "final"},
    {Decl::mark_const, "const"},
    {Decl::mark_volatile, "volatile"},
    {Decl::mark_constexpr, "constexpr"},
    {Decl::mark_explicit, "explicit"},
    {Decl::mark_mutable, "mutable"},
    {Decl::mark_thread_local, "thread_local"},
    {Decl::mark_noexcept, "noexcept"},
    {Decl::mark_defaulted, "defaulted"},
    {Decl::mark_deleted, "deleted"},
    {Decl::mark_friend, "friend"},
    {Decl::mark_typedef, "typedef"},
    {Decl::mark_definition, "definition"},
    {Decl::mark_forward, "forward"},
    {Decl::mark_specialisation, "specialisation"},
    {Decl::mark_unnamed, "unnamed"},
    {Decl::mark_linkage_c, "linkage_c"},
    {Decl::mark_abstract_class, "abstract"},
    {Decl::mark_overload, "overload"},
    {Decl::mark_reintroduce, "reintroduce"},
    {Decl::mark_dynamic, "dynamic"},
    {Decl::mark_message, "message"},
    {Decl::mark_deprecated, "deprecated"},
    {Decl::mark_class_member, "class_member"},
    {Decl::mark_implementation, "implementation"},
    {Decl::mark_out_of_class, "out_of_class"},
};

// What the grammars note.
constexpr gWord specifier_words[] = {
    {spec_static, "static"},   {spec_extern, "extern"},   {spec_mutable, "mutable"},
    {spec_inline, "inline"},   {spec_virtual, "virtual"}, {spec_explicit, "explicit"},
    {spec_typedef, "typedef"}, {spec_friend, "friend"},
};

void put_words(std::ostream & stream, std::span<gWord const> words, std::uint32_t bits) {
  bool first = true;
  for (gWord const & word : words) {
    if (!(bits & word.bit))
      continue;
    Vlb::put(stream, first ? "" : ",");
    Vlb::put(stream, word.word);
    first = false;
  }
}

void put_range(std::ostream & stream, Decl::gRange const & range) {
  if (range.empty())
    return;
  Vlb::put_number(stream, range.begin);
  Vlb::put(stream, "-");
  Vlb::put_number(stream, range.end);
}

// The ranges hold for the code's own text alone, and not for what an author wrote in its place.
bool shows_own_text(gDocUnit const & unit, gString const & text) {
  gSubText const * const shown = unit.subentries().find("@declaration");
  bool const may_be = shown && shown->size() == 1 && shown->front()->size() >= text.size();
  return may_be && *shown->front() == Vlb::escape_atc(text);
}

void put_number_or_nothing(std::ostream & stream, int number) {
  if (number > 0)
    Vlb::put_number(stream, number);
}

void put_code(std::ostream & stream, gDocUnit const & unit, gCodeElem const & code) {
  gDeclParts const none;
  gDeclParts const & parts = code.parts ? *code.parts : none;
  Vlb::put(stream, code.visibility == "undefined" ? "" : code.visibility);
  Vlb::put(stream, "><");
  if (code.parts)
    put_words(stream, mark_words, parts.marks);
  else
    put_words(stream, specifier_words, static_cast<std::uint32_t>(code.flags));
  Vlb::put(stream, "><");
  if (parts.condition)
    Vlb::put_escaped(stream, *parts.condition);
  Vlb::put(stream, "><");
  put_number_or_nothing(stream, code.column);
  Vlb::put(stream, "><");
  put_number_or_nothing(stream, code.end_line);
  Vlb::put(stream, "><");
  bool const own = shows_own_text(unit, code.decl);
  Vlb::put_number(stream, own ? static_cast<long>(code.decl.size()) : 0);
  Vlb::put(stream, "><");
  bool first = true;
  for (Decl::gRange const & range :
       {parts.name, parts.template_head, parts.parameters, parts.bases, parts.result}) {
    Vlb::put(stream, first ? "" : ",");
    if (own)
      put_range(stream, range);
    first = false;
  }
}

// What tells whether a method replaces one of a base. Templates never do.
void put_signature(std::ostream & stream, gCodeElem const & code) {
  bool const told = code.type == ut_method && code.parts->signature;
  if (!told || code.parts->signature->find('\n') != gString::npos)
    return;
  Vlb::put(stream, "@_signature<");
  Vlb::put_escaped(stream, *code.parts->signature);
  Vlb::put(stream, ">\n");
}

void put_values(std::ostream & stream, gDeclParts const & parts) {
  for (Decl::gEnumValue const & value : parts.values) {
    Vlb::put(stream, "@_value<");
    Vlb::put_escaped(stream, value.name);
    Vlb::put(stream, "><");
    Vlb::put_escaped(stream, value.written);
    Vlb::put(stream, "><");
    Vlb::put(stream, value.number);
    Vlb::put(stream, ">\n");
  }
}

void put_lists(std::ostream & stream, gDeclLists const & lists) {
  for (gString const & one : lists.friends) {
    Vlb::put(stream, "@_friend<");
    Vlb::put_escaped(stream, one);
    Vlb::put(stream, ">\n");
  }
  for (gMacroVariant const & one : lists.variants) {
    Vlb::put(stream, "@_variant<");
    Vlb::put_escaped(stream, one.condition);
    Vlb::put(stream, "><");
    Vlb::put_escaped(stream, one.text);
    Vlb::put(stream, ">\n");
  }
}

void put_topic(std::ostream & stream, gString const & topic) {
  int const * const placed = gBookmarks.lookup(topic);
  if (!placed || *placed == 0)
    return;
  Vlb::put(stream, "@_topic<");
  Vlb::put(stream, topic);
  Vlb::put(stream, ">\n");
}

// What the unit belongs to beside its scope. Topics that aren't in the document lead nowhere.
void put_groups(std::ostream & stream, gDocUnit const & unit) {
  gElemGroups const * const groups = unit.code_elem() ? unit.code_elem()->groups.get() : nullptr;
  if (groups)
    for (gString const & topic : groups->topics)
      put_topic(stream, topic);
  if (gString const & topics = unit.get_attr("TOPICS"); topics != "undefined") {
    std::istringstream named(topics);
    for (gString topic; named >> topic && topic != "undefined";)
      put_topic(stream, topic);
  }
  if (!groups || groups->heading.empty())
    return;
  Vlb::put(stream, "@_heading<");
  Vlb::put_escaped(stream, groups->heading);
  Vlb::put(stream, ">\n");
}

// The kind of what no code declares.
gString kind_of_text(gDocUnit const & unit) {
  gString const & kind = unit.get_attr("KIND");
  return kind == "undefined" ? gString() : kind;
}

} // namespace

void gDocUnit::write_facts(std::ostream & stream) const {
  Vlb::put(stream, "@_facts<");
  if (code_elem_)
    Vlb::put(stream, Decl::kind_word(code_elem_->kind));
  else
    Vlb::put(stream, kind_of_text(*this));
  Vlb::put(stream, "><");
  Vlb::put_escaped(stream, name());
  Vlb::put(stream, "><");
  Vlb::put_escaped(stream, first_name());
  Vlb::put(stream, "><");
  if (code_elem_)
    put_code(stream, *this, *code_elem_);
  else
    Vlb::put(stream, "><><><><><><");
  Vlb::put(stream, ">\n");
  if (code_elem_ && code_elem_->parts) {
    put_signature(stream, *code_elem_);
    put_values(stream, *code_elem_->parts);
    if (code_elem_->parts->lists)
      put_lists(stream, *code_elem_->parts->lists);
  }
  put_groups(stream, *this);
}
