// The rules of the Pascal scanner.
#pragma once

#include "ana/parser/pascal/pas_scan_base.h"

class pas_scan : public pas_scan_base {
public:
  using pas_scan_base::pas_scan_base;
  int scan() override;
};
