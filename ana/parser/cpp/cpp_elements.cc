// Code elements of declarations, functions, classes and enumerations.
#include "ana/parser/cpp/cpp_parse_base.h"

gCodeElem & cpp_parse_base::add_element(gStrList && names, int line, int type, gString && decl,
                                        int flags) {
  auto element =
      make_ref<gCodeElem>(gStrList(), cur_file(), line, type, gString(), visibility_, flags);
  element->names = std::move(names);
  element->decl = std::move(decl);
  count_text(scope_bytes_ + element->decl.size());
  facts_->elements.push_back(std::move(element));
  return *facts_->elements.back();
}

int cpp_parse_base::type_of(gCppDecl const & decl, gCppDcltor const & declarator) const {
  if (decl.flags & spec_typedef)
    return ut_type;
  bool const in_class = class_depth_ > 0;
  if (declarator.is_function)
    return in_class ? ut_method : ut_function;
  return in_class ? ut_member : ut_var;
}

// All declarators of a declaration have its line, so the last one alone stays in the table.
gString cpp_parse_base::declare(gCppDecl & decl, int line, bool with_body) {
  decl.finish();
  if (!decl.dcltors.empty()) {
    gString const prefix = take_template_prefix();
    gCppDcltor & declarator = *decl.dcltors.back();
    int const function = class_depth_ > 0 ? ut_method : ut_function;
    int const type = with_body ? function : type_of(decl, declarator);
    gString text = (decl.dcltors.size() == 1 ? prefix : gString()) + linkage_prefix();
    text += decl.spec_text;
    text += declarator.text();
    text.wsp_norm();
    text += ';';
    add_element(declarator.take_qualified_name(scope_), line, type, std::move(text), decl.flags);
  }
  return decl.spec_text + ";\n";
}

gString cpp_parse_base::simple_declaration(gCppDecl & decl, int line) {
  return declare(decl, line, false);
}

gString cpp_parse_base::function_definition(gCppDecl & decl, int line) {
  return declare(decl, line, true);
}

gString cpp_parse_base::class_head(gStrList & key_and_names, int line, gBasesRef const & bases) {
  gString head = key_and_name(key_and_names);
  gString const heritage = bases->make_string();
  if (!heritage.empty())
    head += " : " + heritage;
  head.wsp_norm();

  cRef<gString> const key = key_and_names.front();
  key_and_names.pop_front();
  gStrList names = scope_;
  names.append(key_and_names);
  gString decl = take_template_prefix() + linkage_prefix() + head;
  decl.wsp_norm();
  count_text((scope_bytes_ + head.size()) * (1 + bases->entries.size()));
  facts_->classes.push_back({names.make_string("::"), bases});
  add_element(std::move(names), line, ut_class, std::move(decl), 0).heritage = heritage;
  enter_class(*key, key_and_names);
  return head;
}

// Its members don't take the prefix of a template that the class itself has no use for.
gString cpp_parse_base::unnamed_class_head(gString const & key, gBasesRef const & bases) {
  template_prefix_.clear();
  enter_class(key, {});
  return key + bases->make_string();
}

gString cpp_parse_base::class_specifier(gString const & head, gString const & members) {
  leave_class();
  return head + "{\n\n" + members + "\n}";
}

gString cpp_parse_base::access_label(gString const & word) {
  visibility_ = word;
  return "\n" + word + ":\n";
}

gString cpp_parse_base::enumeration(gStrList & names, int line, gString const & enumerators) {
  gString const text = "enum " + names.make_string("::") + " { " + enumerators + " }";
  gStrList whole = scope_;
  whole.append(std::move(names));
  gString decl = linkage_prefix() + text;
  decl.wsp_norm();
  decl += ';';
  add_element(std::move(whole), line, ut_type, std::move(decl), 0);
  return text;
}
