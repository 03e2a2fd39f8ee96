// A value of another type counts as different, whatever it converts to.

#include "app/shell/dialogs/put.h"

bool Shell::put(cMapObj & tree, std::string_view key, cRef<cObj> const & value) {
  cRef<cObj> const before = tree.at(key);
  if (before && &before->type() == &value->type() && before->equal(*value))
    return false;
  tree.set(key, value);
  tree.changed();
  return true;
}
