// What the reader of the source has told about a unit, on the line "@_facts". Without that line, as
// in older files, all of it is unknown and has to be guessed from names and declarations.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// A stretch of bytes, half open; empty where there is no such part.
struct gStretch {
  std::uint32_t begin = 0, end = 0;

  bool empty() const { return begin >= end; }
  std::string_view of(std::string_view text) const {
    return empty() || end > text.size() ? std::string_view() : text.substr(begin, end - begin);
  }
};

// A value of an enumeration.
struct gValueFact {
  std::string name;
  std::string written; // as in the source; empty if nothing is
  std::string number;  // decimal; empty if it isn't sure
};

// A definition of a macro, and when it holds: the condition may be empty.
struct gVariantFact {
  std::string condition, text;
};

struct gKnownFacts {
  bool known = false;           // the line was there
  std::uint32_t last_part = 0;  // bytes of the last part of the unit's name
  std::string kind;             // such as "class" or "enum class"; empty if no reader told it
  std::string access, marks;    // marks: words joined with ","
  std::string condition;        // of the preprocessor
  std::string signature;        // of a method, spelled alike wherever it is declared; may be empty
  int column = 0, end_line = 0; // 0: not known
  // Of the declaration: its size where it was written, and its parts. Once the text is found, they
  // are stretches of gUnitRecord::declaration; the size is 0 if it wasn't.
  std::uint32_t size = 0;
  gStretch name, template_head, parameters, bases, result;

  std::vector<gValueFact> values;     // of an enumeration
  std::vector<std::string> topics;    // places of the topics that the unit belongs to
  std::vector<std::string> friends;   // of a class: the types that it lets in, as they are written
  std::vector<gVariantFact> variants; // of a macro that has several definitions: all of them
  std::string heading;                // over the unit and its neighbours

  bool has_mark(std::string_view word) const;
};

namespace Atc {
// From the parameters of the line, as many as it has. False if they say two things.
bool read_facts(std::vector<std::string> const & params, gKnownFacts & facts);
// True if the text is the declaration that the stretches are of; they are then stretches of it also
// where the writer's text was in another encoding. False, and nothing changes, if it isn't.
bool fit_to(std::string_view text, gKnownFacts & facts);
} // namespace Atc
