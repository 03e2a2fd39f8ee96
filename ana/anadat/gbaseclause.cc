// A base clause as the text of a heritage.
#include "ana/anadat/gbaseclause.h"

gString gBaseClause::make_string() const {
  gString text;
  for (gBaseEntry const & entry : entries) {
    if (!text.empty())
      text += ", ";
    if (entry.access & access_public)
      text += "public ";
    if (entry.access & access_protected)
      text += "protected ";
    if (entry.access & access_private)
      text += "private ";
    if (entry.access & access_virtual)
      text += "virtual ";
    text += entry.name;
  }
  return text;
}
