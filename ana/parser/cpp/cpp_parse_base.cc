// The state of a parse: what is open around the declaration in hand.
#include "ana/parser/cpp/cpp_parse_base.h"

#include "vlb/gexception.h"
#include "vlb/messages.h"

namespace {

// A name in the list of a qualified name.
std::size_t name_bytes(gString const & name) {
  return 4 * sizeof(void *) + name.size();
}

} // namespace

cpp_parse_base::cpp_parse_base(int stack_size)
    : scanner_(gScanBase::standard_size),
      no_mark_(make_ref<gString>()),
      global_mark_(make_ref<gString>("::")),
      visibility_("undefined") {
  set_stack_size(stack_size);
}

void cpp_parse_base::reset() {
  gVLParseBase::reset();
  scanner_.reset();
  class_depth_ = 0;
  visibility_ = "undefined";
  visibility_stack_.clear();
  scope_.clear();
  scope_added_.clear();
  scope_bytes_ = text_bytes_ = 0;
  linkage_stack_.clear();
  template_prefix_.clear();
}

void cpp_parse_base::read_into(gCodeFacts & facts) {
  facts_ = &facts;
  scanner_.record_comments(&facts.comments);
}

void cpp_parse_base::enter_scope(gStrList const & names) {
  for (cRef<gString> const & name : names)
    scope_bytes_ += name_bytes(*name);
  scope_.append(names);
  scope_added_.push_back(static_cast<int>(names.size()));
}

void cpp_parse_base::leave_scope() {
  for (int n = scope_added_.back(); n > 0; --n) {
    scope_bytes_ -= name_bytes(*scope_.back());
    scope_.pop_back();
  }
  scope_added_.pop_back();
}

void cpp_parse_base::check_length(std::size_t parts) const {
  constexpr std::size_t most = 100000;
  if (parts > most)
    throw gExcFatalErr(Msg::too_many_parts, "", scanner_.place());
}

// Each element has the names of its scope and the prefix of its linkage, so a long name around many
// members would cost its length times their number.
void cpp_parse_base::count_text(std::size_t bytes) {
  constexpr std::size_t free = 4'000'000, of_each_byte_read = 100;
  text_bytes_ += bytes;
  if (text_bytes_ > free + of_each_byte_read * static_cast<std::size_t>(scanner_.position()))
    throw gExcFatalErr(Msg::too_much_text, "", scanner_.place());
}

void cpp_parse_base::enter_class(std::string_view key, gStrList const & names) {
  ++class_depth_;
  visibility_stack_.push_back(std::move(visibility_));
  visibility_ = key == "class " ? "private" : "public";
  enter_scope(names);
}

void cpp_parse_base::leave_class() {
  --class_depth_;
  visibility_ = std::move(visibility_stack_.back());
  visibility_stack_.pop_back();
  leave_scope();
}

gString cpp_parse_base::linkage_prefix() const {
  return linkage_stack_.empty() ? gString() : gString("extern " + linkage_stack_.back() + " ");
}

// What a namespace or a linkage specification holds is told by its elements; no declaration shows
// the text of its body.
gString cpp_parse_base::leave_namespace(gString const & name) {
  leave_scope();
  return "namespace " + (name.empty() ? name : gString(name + " ")) + "{\n\n\n}\n";
}

gString cpp_parse_base::leave_linkage(gString const & body) {
  pop_linkage();
  return body;
}

void cpp_parse_base::template_head(gString const & export_word) {
  template_prefix_ = export_word + "template<" + skipped('<', '>') + " ";
}

// The prefix is used up by the declaration behind the head, even if that made no element.
gString cpp_parse_base::end_template(gString & declaration) {
  template_prefix_.clear();
  return std::move(declaration);
}
