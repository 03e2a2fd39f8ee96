// The state of a parse: what is open around the declaration in hand.
#include "ana/parser/cpp_parse_base.h"

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
  linkage_stack_.clear();
  template_prefix_.clear();
}

void cpp_parse_base::enter_scope(gStrList const & names) {
  scope_.append(names);
  scope_added_.push_back(static_cast<int>(names.size()));
}

void cpp_parse_base::leave_scope() {
  for (int n = scope_added_.back(); n > 0; --n)
    scope_.pop_back();
  scope_added_.pop_back();
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
