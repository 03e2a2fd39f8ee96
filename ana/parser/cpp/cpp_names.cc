// Names and the texts around them.
#include "ana/parser/cpp/cpp_parse_base.h"

gString cpp_parse_base::full_name(gString const & mark, gStrList const & scope,
                                  std::string_view name) {
  gString text = mark;
  bool first = true;
  for (cRef<gString> const & part : scope) {
    if (!first)
      text += "::";
    text += *part;
    first = false;
  }
  if (!first && !name.starts_with("::"))
    text += "::";
  text += name;
  return text;
}

gString cpp_parse_base::statement(gString const & words, gString const & rest) {
  return words + rest + ";\n";
}

gString cpp_parse_base::asm_definition(gString const & text) {
  return "\nasm(" + text + ");\n";
}

gStrList cpp_parse_base::named_key(gString const & key, gStrList & scope, gString & name) {
  gStrList list = std::move(scope);
  list.push_front(make_ref<gString>(key));
  list.push_back(std::move(name));
  return list;
}

gString cpp_parse_base::key_and_name(gStrList const & key_and_names) {
  gString text = *key_and_names.front();
  for (auto name = std::next(key_and_names.begin()); name != key_and_names.end(); ++name) {
    if (name != std::next(key_and_names.begin()))
      text += "::";
    text += **name;
  }
  return text;
}

// A list that ends in a parenthesis initialises members and bases, which is no part of a
// declaration. Anything else is the width of a bit-field.
gString cpp_parse_base::bit_width(gString & initialisers) {
  return initialisers.ends_with(')') ? gString() : gString(" : " + initialisers);
}

gString cpp_parse_base::conversion(gString const & type, gStrList const & operators) {
  gString text = "operator " + type + " " + operators.make_string("");
  text.wsp_norm();
  return text;
}

gCppDcltorRef cpp_parse_base::declarator(gString const & mark, gString & name) const {
  gStrList names;
  names.push_back(mark.empty() ? no_mark_ : global_mark_);
  names.push_back(std::move(name));
  return make_ref<gCppDcltor>(std::move(names));
}

gStrList cpp_parse_base::qualified(gString const & mark, gStrList & scope,
                                   gString const & name) const {
  gStrList names;
  names.push_back(mark.empty() ? no_mark_ : global_mark_);
  names.append(std::move(scope));
  names.push_back(name);
  return names;
}

void cpp_parse_base::add_parameters(gCppDcltor & declarator, gString const & params,
                                    gString const & cv, gString const & exceptions) {
  declarator.is_function = true;
  declarator.append(params);
  for (gString const * words : {&cv, &exceptions})
    if (!words->empty())
      declarator.append(" " + *words);
}
