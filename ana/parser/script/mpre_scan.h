// The first pass over a script: comments go, included files come in.
#pragma once

#include "vlb/parse/scan_base.h"

class mpre_scan : public gScanBase {
public:
  enum Condition { INITIAL = 0, INCLUDE = 2, ENDLINE = 4, COMMENT = 6 };

  explicit mpre_scan(int size) : gScanBase(size) {}

  // Writes the whole script to the output and returns 0.
  int scan() override;
  int wrap() override;

  // For the actions: pastes the file that the token names, between two directives that say where
  // its lines and those behind it come from.
  void include_file();
};
