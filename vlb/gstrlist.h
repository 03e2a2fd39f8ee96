// Text in several parts: the components of a name, the pieces of a marked-up text.
#pragma once

#include <vector>

#include "vlb/gstring.h"

// A list of shared strings in text order. Copying a list shares its elements, so an element is
// never changed in place once the list may have been copied: replace it with set().
// An empty string in the list is a real element. The elements lie side by side: who changes the
// middle of a long list makes a new one.
class gStrList : public std::vector<cRef<gString>> {
public:
  gStrList() = default;
  gStrList(gString const & text);
  gStrList(cRef<gString> const & text);
  gStrList(gStrList const &) = default;
  gStrList(gStrList &&) noexcept = default;
  gStrList & operator=(gStrList const &) = default;
  gStrList & operator=(gStrList &&) noexcept = default;
  virtual ~gStrList() = default;

  // Normalises the white space of each element.
  virtual void wsp_norm();

  gStrList & operator<<(gString const & text);
  gStrList & operator<<(cRef<gString> text);
  gStrList & operator<<(gStrList const & list);
  void push_back(gString const & text);
  void push_back(gString && text);
  void push_back(cRef<gString> text);
  void push_front(cRef<gString> text);
  void pop_front();
  void append(gStrList const & list);
  // Moves all elements of `list` to the end of this one, without a copy.
  void append(gStrList && list);
  // Replaces an element; whoever shares the old one keeps it.
  void set(iterator position, gString const & text);
  // The first element equal to `text`, or end().
  iterator find(std::string_view text);
  const_iterator find(std::string_view text) const;

  // All elements, with `sep` between two neighbours.
  gString make_string(std::string_view sep) const;
  // The same, in place of what `joined` holds: its memory is used again.
  void join(std::string_view sep, std::string & joined) const;
  // True if every element is empty or white space; also for an empty list.
  bool is_wsp() const;

  friend bool operator==(gStrList const & a, gStrList const & b);
};
