// A list of shared strings. What looks like a change of an element makes a new one, unless the
// list is the only holder.
#include "vlb/gstrlist.h"

#include <algorithm>
#include <iterator>

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
  vector::push_back(make_ref<gString>(text));
}

void gStrList::push_back(gString && text) {
  vector::push_back(make_ref<gString>(std::move(text)));
}

void gStrList::push_back(cRef<gString> text) {
  vector::push_back(std::move(text));
}

void gStrList::push_front(cRef<gString> text) {
  insert(begin(), std::move(text));
}

void gStrList::pop_front() {
  erase(begin());
}

void gStrList::append(gStrList const & list) {
  if (&list == this)
    append(gStrList(list));
  else
    insert(end(), list.begin(), list.end());
}

void gStrList::append(gStrList && list) {
  if (&list == this)
    return;
  if (empty())
    swap(list);
  else
    insert(end(), std::move_iterator(list.begin()), std::move_iterator(list.end()));
  list.clear();
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
  gString joined;
  join(sep, joined);
  return joined;
}

void gStrList::join(std::string_view sep, std::string & joined) const {
  std::size_t length = 0;
  for (cRef<gString> const & element : *this)
    length += element->size() + sep.size();
  joined.clear();
  joined.reserve(length);
  for (cRef<gString> const & element : *this) {
    if (&element != data())
      joined += sep;
    joined += static_cast<std::string const &>(*element);
  }
}

bool gStrList::is_wsp() const {
  return std::all_of(begin(), end(), [](auto const & element) { return element->wsp_only(); });
}

bool operator==(gStrList const & a, gStrList const & b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](auto const & x, auto const & y) {
    return x == y || static_cast<std::string const &>(*x) == *y;
  });
}
