// Where the things that sources declare belong, by the names of all of them.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "ana/anadat/gcodeelem.h"
#include "ana/anadat/gscopenames.h"

// The owner adds all elements before it asks.
class gJoinScopes {
public:
  // `name`: the whole one of the element.
  void add(gCodeElem const & element, std::string const & name);

  // Of what is defined outside of its class: gives it the whole name of that class, and makes it a
  // function or a variable if it belongs to a namespace.
  void resolve(gCodeElem & element) const;

  gScopeNames const & names_of(gSrcFile const & file) const { return of(file).types; }

private:
  struct Language {
    explicit Language(std::string_view separator) : types(separator), members(separator) {}
    gScopeNames types;   // and namespaces
    gScopeNames members; // what is declared within them
    std::unordered_set<std::string> classes;
    // Whole names of specialisations, by the same without blanks.
    std::unordered_map<std::string, std::string> specialisations;
  };
  Language const & of(gSrcFile const & file) const {
    return file.language() == gLanguage::pascal ? pascal_ : cpp_;
  }
  Language & of(gSrcFile const & file) {
    return file.language() == gLanguage::pascal ? pascal_ : cpp_;
  }
  bool take_specialisation(gCodeElem & element) const;

  Language cpp_{"::"}, pascal_{"."};
};
