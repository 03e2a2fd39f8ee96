// The rules of the C/C++ comment preprocessor.
#pragma once

#include "ana/parser/pre/cpre_scan_base.h"

class cpre_scan : public cpre_scan_base {
public:
  using cpre_scan_base::cpre_scan_base;
  // Reads the whole input; 0 at its end.
  int scan() override;
};
