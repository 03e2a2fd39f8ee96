// The scanner of the script, over what mpre_scan leaves of it.
#pragma once

#include "ana/parser/script/mdf_scan_base.h"

class mdf_scan : public mdf_scan_base {
public:
  using mdf_scan_base::mdf_scan_base;
  int scan() override;
};
