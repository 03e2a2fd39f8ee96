// Values as plain JSON, for programs and the command line.
#pragma once

#include <string>

#include "store/cobj.h"

// A list of text is an array of strings, a macro an object; text that isn't UTF-8 is
// {"$bytes": ".."}.
std::string to_json(cObj const & object, bool pretty = false);

// Turns JSON, or a text that is no JSON and so a string, into a value of the type of `like`; any
// type if that is null. False, with the reason, if it can't be converted; `out` stays as it was.
bool from_json(std::string const & text, cRef<cObj> const & like, cRef<cObj> & out,
               std::string & reason);

// The same for a value at hand. The entries of a map take the type of the entry with their key, or
// else of the entry "*"; a key that has neither is refused, unless the map is empty. The elements
// of a vector take the type of its first element.
bool shape_like(cRef<cObj> const & value, cRef<cObj> const & like, cRef<cObj> & out,
                std::string & reason);
