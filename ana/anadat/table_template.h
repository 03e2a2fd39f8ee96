// The table templates of the script, as the text units use them: plain values.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "vlb/gstring.h"

struct gTableTemplate {
  std::string style;
  std::vector<gString> columns, markrows, markcolumns;
  std::vector<gString> rows; // pieces that stand in front of the table's own rows
};

// By name.
using gTableTemplates = std::map<std::string, gTableTemplate, std::less<>>;
