// A list of shared strings. What looks like a change of an element makes a new one, unless the
// list is the only holder.
#include "vlb/gstrlist.h"

#include <algorithm>

gStrList::gStrList(gString const & text) {
  push_back(text);
}

gStrList::gStrList(cRef<gString> const & text) {
  push_back(text);
}

void gStrList::wsp_norm() {
  for (cRef<gString> & element : *this) {
    if (element->refcount() == 1) {
      element->wsp_norm();
      continue;
    }
    gString normal(*element);
    normal.wsp_norm();
    if (normal.size() != element->size() || normal != *element)
      element = make_ref<gString>(std::move(normal));
  }
}

gStrList & gStrList::operator<<(gString const & text) {
  push_back(text);
  return *this;
}

gStrList & gStrList::operator<<(cRef<gString> text) {
  push_back(std::move(text));
  return *this;
}

gStrList & gStrList::operator<<(gStrList const & list) {
  append(list);
  return *this;
}

void gStrList::push_back(gString const & text) {
  list::push_back(make_ref<gString>(text));
}

void gStrList::push_back(gString && text) {
  list::push_back(make_ref<gString>(std::move(text)));
}

void gStrList::push_back(cRef<gString> text) {
  list::push_back(std::move(text));
}

void gStrList::push_front(gString const & text) {
  list::push_front(make_ref<gString>(text));
}

void gStrList::append(gStrList const & list) {
  insert(end(), list.begin(), list.end());
}

void gStrList::append(gStrList && list) {
  if (&list != this)
    splice(end(), list);
}

gStrList::iterator gStrList::insert(const_iterator position, gString const & text) {
  return list::insert(position, make_ref<gString>(text));
}

void gStrList::insert(const_iterator position, const_iterator first, const_iterator last) {
  list::insert(position, first, last);
}

void gStrList::set(iterator position, gString const & text) {
  *position = make_ref<gString>(text);
}

gStrList::iterator gStrList::find(std::string_view text) {
  return std::find_if(begin(), end(), [text](auto const & element) { return *element == text; });
}

gStrList::const_iterator gStrList::find(std::string_view text) const {
  return std::find_if(begin(), end(), [text](auto const & element) { return *element == text; });
}

gString gStrList::make_string(std::string_view sep) const {
  std::size_t length = 0;
  for (cRef<gString> const & element : *this)
    length += element->size() + sep.size();
  gString joined;
  joined.reserve(length);
  for (auto element = begin(); element != end(); ++element) {
    if (element != begin())
      joined += sep;
    joined += static_cast<std::string const &>(**element);
  }
  return joined;
}

bool gStrList::is_wsp() const {
  return std::all_of(begin(), end(), [](auto const & element) { return element->wsp_only(); });
}

bool operator==(gStrList const & a, gStrList const & b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](auto const & x, auto const & y) {
    return x == y || static_cast<std::string const &>(*x) == *y;
  });
}
