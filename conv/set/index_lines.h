// The index of a document: what stands where, for targets that write it themselves.
#pragma once

#include <string>
#include <vector>

#include "conv/atc/document.h"

struct gIndexPlace {
  int unit = -1;
  std::string label; // of the entry's bookmark; empty if the unit itself is the place
};

// A line below a key.
struct gIndexPhrase {
  std::string text;
  std::vector<gIndexPlace> places;
};

struct gIndexKey {
  std::string text;
  std::string letter;              // that it is sorted under: "A" to "Z", or "#"
  std::vector<gIndexPlace> places; // of entries that are nothing but the key
  std::vector<gIndexPhrase> phrases;
};

namespace Index {

// A key, and the phrase below it that an entry makes there; no phrase if the key says it all.
struct gWording {
  std::string key, phrase;
};

// What the fields of an entry (text, key, text, second key, text) come to: a phrase of all of them,
// where `place_holder` stands for the key that it is listed under. Once for each key.
std::vector<gWording> wordings_of(std::string const (&fields)[5], std::string_view place_holder);

// All keys in their order, without regard to case. A unit is a place of a line once.
std::vector<gIndexKey> keys_of(gDocument const & document, std::string_view place_holder);

} // namespace Index
