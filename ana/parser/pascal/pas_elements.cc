// Code elements of constants, variables, properties and routines, and the texts of parts of them.
#include "ana/parser/pascal/pas_parse_base.h"

gCodeElemRef pas_parse_base::make_element(int type, gStrList && names, int line, gString && decl) {
  auto element = make_ref<gCodeElem>(gStrList(), cur_file(), line, type, gString(), visibility_, 0);
  element->names = std::move(names);
  element->decl = std::move(decl);
  return element;
}

gStrList pas_parse_base::in_scope(gString const & name) const {
  gStrList names;
  for (gString const * part : {&unit_name_, &class_name_, &name})
    if (!part->empty())
      names.push_back(*part);
  return names;
}

void pas_parse_base::record_element(gCodeElemRef const & element) {
  if (routine_depth_ > 0)
    return;
  element->decl.wsp_norm();
  facts_->elements.push_back(element);
}

void pas_parse_base::constant(gString const & name, int line, gString const & type,
                              gString const & value) {
  gString decl = "const " + name + type + " = " + value + ";";
  record_element(make_element(ut_var, in_scope(name), line, std::move(decl)));
}

// All names of a declaration have its line, so the last one alone stays in the table.
void pas_parse_base::variables(int type, gStrList const & names, int line, gString const & text) {
  gString const & name = *names.back();
  record_element(make_element(type, in_scope(name), line, "var " + name + ": " + text + ";"));
}

void pas_parse_base::property(gString const & name, int line, gString const & text) {
  record_element(make_element(ut_property, in_scope(name), line, "property " + name + text + ";"));
}

gCodeElemRef pas_parse_base::routine(gString const & word, int line, gStrList & names,
                                     gString const & rest) {
  bool const method = !class_name_.empty() || names.size() == 2;
  gString decl = word + names.make_string(".") + rest;
  gStrList whole = in_scope("");
  whole.append(std::move(names));
  return make_element(method ? ut_method : ut_function, std::move(whole), line, std::move(decl));
}

void pas_parse_base::declare_routine(gCodeElemRef const & element, gString const & end) {
  element->decl += end;
  record_element(element);
}

void pas_parse_base::end_routine(gCodeElemRef const & element, gString const & tail) {
  --routine_depth_;
  declare_routine(element, tail + ";");
}

gString pas_parse_base::parameters(std::string_view kind, gStrList const & names,
                                   std::string_view type) {
  count_text(names.size() * type.size());
  gString text;
  for (cRef<gString> const & name : names) {
    if (!text.empty())
      text += "; ";
    text += kind;
    text += *name;
    text += ": ";
    text += type;
  }
  return text;
}

// The scanner has gone one token further: blanks between the two are part of the text.
gString pas_parse_base::low_name(gString & name) const {
  if (Vlb::is_space(static_cast<char>(scanner_.previous())))
    name += ' ';
  return std::move(name);
}

// What isn't a subrange at all ends with its declaration, so that it is a fault there.
gString pas_parse_base::low_constant(gString const & name) {
  gString text = name;
  text += scanner_.token();
  text += skip_until({Pas::DOTS, ';'});
  return text;
}

gString pas_parse_base::subrange(gString const & low) {
  gString text = low + ".." + skip_until({'=', ';', Pas::KW_ABSOLUTE});
  text.wsp_norm();
  return text;
}
