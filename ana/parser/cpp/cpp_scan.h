// The rules of the C/C++ scanner.
#pragma once

#include "ana/parser/cpp/cpp_scan_base.h"

class cpp_scan : public cpp_scan_base {
public:
  using cpp_scan_base::cpp_scan_base;
  int scan() override;
};
