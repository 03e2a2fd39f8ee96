#include "conv/htm/relation_list.h"

#include "conv/htm/html_text.h"

using V = gVltValue;

void gRelationList::add(int unit, std::string_view name) {
  if (++count_ > most_)
    return;
  std::string const href = unit >= 0 ? site_.addresses.href(unit, page_) : std::string();
  std::string const title = Html::escaped(name);
  site_.rules.apply(gVltRule::relation_item, gVltValues().set(V::href, href).set(V::title, title),
                    items_);
}

void gRelationList::put(std::string_view what, std::string & out) const {
  std::string const more = count_ > most_ ? site_.number(count_ - most_) : std::string();
  site_.rules.apply(gVltRule::relation, what,
                    gVltValues().set(V::items, items_).set(V::count, more), out);
}
