// The parts of a declaration, and the rule that finds its declarators among them.
#include "ana/parser/cpp/cpp_decl.h"

std::string_view gCppSFDSpec::text() const {
  switch (spec_) {
  case spec_register:
    return "register ";
  case spec_static:
    return "static ";
  case spec_extern:
    return "extern ";
  case spec_mutable:
    return "mutable ";
  case spec_inline:
    return "inline ";
  case spec_virtual:
    return "virtual ";
  case spec_explicit:
    return "explicit ";
  case spec_typedef:
    return "typedef ";
  case spec_friend:
    return "friend ";
  default: // "auto" says nothing that a reader of the declaration needs
    return {};
  }
}

gCppDcltor::gCppDcltor(gStrList && names) : names_(std::move(names)) {
  is_dcltor = true;
  auto name = names_.begin();
  text_ = **name;
  for (bool first = true; ++name != names_.end(); first = false) {
    if (!first)
      text_ += "::";
    text_ += **name;
  }
}

gStrList gCppDcltor::take_qualified_name(gStrList const & scope) {
  gStrList name = std::move(names_);
  bool const is_global = !name.front()->empty();
  name.pop_front();
  if (!is_global)
    name.insert(name.begin(), scope.begin(), scope.end());
  return name;
}

void gCppDcltor::enclose() {
  text_.prepend('(');
  text_ += ')';
}

void gCppDecl::append(cRef<gCppDeclElem> elem) {
  flags |= elem->flags();
  elems.push_back(std::move(elem));
}

void gCppDecl::finish() {
  bool take = true;
  for (auto elem = elems.rbegin(); elem != elems.rend(); ++elem) {
    if ((*elem)->is_dcltor) {
      (*elem)->is_dcltor = take;
      take = false;
    } else if ((*elem)->is_separator()) {
      take = true;
    }
  }
  for (cRef<gCppDeclElem> const & elem : elems) {
    if (elem->is_dcltor) {
      dcltors.push_back(cRef<gCppDcltor>::share(static_cast<gCppDcltor *>(elem.get())));
    } else if (!elem->is_separator()) {
      spec_text += elem->text();
      spec_text += ' ';
    }
  }
}
