// The rules of the Pascal comment preprocessor.
#pragma once

#include "ana/parser/pre/ppre_scan_base.h"

class ppre_scan : public ppre_scan_base {
public:
  using ppre_scan_base::ppre_scan_base;
  // Reads the whole input; 0 at its end.
  int scan() override;
};
