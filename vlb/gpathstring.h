// A path as text.
#pragma once

#include "vlb/gstring.h"

// Paths are joined, normalised and compared as text; nothing here asks the file system.
class gPathstring : public gString {
public:
  static constexpr char Dir_sep = '/';

  using gString::gString;
  gPathstring() = default;
  gPathstring(gString const & text) : gString(text) {}

  // Adds a path component, with one separator between the two.
  gPathstring & append(gString const & part);
  // A relative path becomes `base` plus the path; an absolute one stays.
  gPathstring & make_absolute(gString const & base);
  // Removes "." and ".." components and doubled separators.
  gPathstring & normalize(bool);
  // Replaces or adds the extension, given without a point.
  gPathstring & set_extension(gString const & ext);
  // Adds the extension, given with its point, if the name has none.
  gPathstring & set_extension_default(gString const & ext);

  bool is_absolute() const;
  // The part before the last separator; the root keeps its separator.
  gString dir_name() const;
  // The part behind the last separator.
  gString file_name() const;
  // file_name() without its extension.
  gString base_name() const;
  // The extension without the point; empty if there is none.
  gString extension() const;
};
