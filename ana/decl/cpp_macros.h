// What is known of the macros of all inputs before any declaration is read.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Decl {

// What a macro stands for, as far as a reader of declarations cares.
enum class gMacroSense : unsigned char {
  unknown,     // no #define was seen: its shape and place must tell
  nothing,     // empty
  attribute,   // attributes, storage words, calling conventions: looked through
  type,        // a type or the begin of one
  declaration, // whole declarations
  opens,       // more "{" than "}", such as the begin of a namespace
  closes,      // the other way round
  value,       // an expression
  mixed,       // defined in senses that disagree
};

struct gMacroFact {
  gMacroSense sense = gMacroSense::unknown;
  bool with_parameters = false;
  std::string
      body; // of the first definition that isn't empty, on one line; empty beyond 4096 bytes
};

// The body of a macro is "template <...>", and short enough to be shown in its place.
bool is_template_head(std::string_view body);

// A table that all inputs fill before the reading, and that no reading changes. Merging in file
// order gives the same table for any number of threads.
class gMacroTable {
public:
  // Enters the definitions of one source.
  void collect(std::string_view text);
  void merge(gMacroTable const & other);
  // A definition; what a name was known for stays where the two agree.
  void enter(std::string const & name, gMacroFact const & fact);
  // By name, in byte order.
  std::map<std::string_view, gMacroFact const *> sorted() const;
  // Null for a name that no input defines.
  gMacroFact const * find(std::string_view name) const;
  // What a name stands for in the end, through macros that stand for others.
  gMacroSense sense(std::string_view name) const;

private:
  gMacroSense sense(std::string_view name, int depth, int & steps) const;

  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  std::unordered_map<std::string, gMacroFact, Hash, std::equal_to<>> macros_;
};

} // namespace Decl
