// The anchors of index entries.
#pragma once

#include <string>
#include <unordered_map>

#include "conv/htm/pages.h"

// An entry's bookmark is made anew in each run, its key stays: anchors are made of the key.
class gEntryAnchors {
public:
  gEntryAnchors(gDocument const & document, gPages const & pages);

  // The anchor of an entry by its bookmark; empty for what is none.
  std::string const & of(std::string const & label) const;

private:
  std::unordered_map<std::string, std::string> anchors_;
  std::string const none_;
};
