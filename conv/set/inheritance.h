// What classes have from each other, as their declarations tell it: which class is derived from
// which, what it inherits, and which methods replace those of a base.
#pragma once

#include <span>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "conv/atc/document.h"

// What a class has from one of the classes above it.
struct gInherited {
  int from = -1;            // the class
  std::vector<int> members; // in the order of the document
};

class gInheritance {
public:
  // Reads the records alone. The document outlives this.
  explicit gInheritance(gDocument const & document);

  // Units of the classes right above and below one, as far as the document has them.
  std::span<int const> bases(int unit) const;
  std::span<int const> derived(int unit) const;

  // The names of the others right above it: those of classes that the document hasn't got.
  std::span<std::string const> foreign_bases(int unit) const;

  // The methods that a method replaces, in the nearest class above on each way; and those that
  // replace it in the classes below.
  std::span<int const> overridden(int method) const;
  std::span<int const> overriders(int method) const;
  // The nearest of the methods that it replaces, and those that these replace, which has a text;
  // -1 for none.
  int explained_by(int method) const;
  // Nothing but a declaration: what replaces it implements it.
  bool is_abstract(int method) const;

  // What is within reach of a class's users or of classes derived from it, the nearest bases first.
  // A name that a nearer class declares hides the others.
  std::vector<gInherited> inherited(int unit) const;

private:
  struct Class {
    std::vector<int> bases, derived; // units
    std::vector<int> shown_bases;    // those whose members the class passes on
    std::vector<std::string> foreign_bases;
    bool complete = true; // all of its bases are known
    // Methods with a signature, by their names with it and by their names alone.
    std::unordered_multimap<std::string, int> methods, namesakes;
  };
  using Methods = std::unordered_map<int, std::vector<int>>;

  void add_bases(int unit, Class & one);
  void add_method(int method, Class & one);
  void relate(Class const & one);
  bool replaces(int method, int other) const;
  int namesake_in(Class const & base, int method) const;
  bool is_virtual(int method) const;
  std::string key_of(int method) const;
  std::string name_of(int unit) const;
  gUnitRecord const & unit(int number) const {
    return document_.units[static_cast<std::size_t>(number)];
  }
  Class const * find(int unit) const;

  gDocument const & document_;
  std::unordered_map<int, Class> classes_;
  Methods overridden_, overriders_;
};
