// The scanner of the text-unit language: it finds units in the marked comments of a temporary file
// and hands their parts to doc_parse.
#pragma once

#include "ana/parser/doc/doc_scan_base.h"

class doc_scan : public doc_scan_base {
public:
  using doc_scan_base::doc_scan_base;
  // The next token; 0 at the end of the input.
  int scan() override;
};
