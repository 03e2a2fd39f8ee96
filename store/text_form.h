// The text form of the store: how project and settings files look.
//
// JSON, one entry a line, in the order of the map, so that a change of one value is a change of
// one line. Bool, int, string, map and vector are JSON's own; the forms of the other types stand
// in json_writer.cc.
#pragma once

#include <string>
#include <string_view>

#include "store/cmapobj.h"

// Reads a file and merges it over the map: a map of the file goes into the map of that key, any
// other entry replaces the map's entry, all others stay. An empty file changes nothing. A file
// that can't be read or is damaged changes nothing and answers false; the reason, "path:line:
// text", goes out as a cErr, and to `reason` if it isn't null.
bool file2map(char const * path, cMapObj & map, std::string * reason = nullptr);
// The same with the text at hand; `name` stands for the path.
bool text2map(std::string_view text, std::string const & name, cMapObj & map,
              std::string * reason = nullptr);
// Writes an object; a failure costs nothing of an existing file. `readable`: one entry a line.
bool write2file(cObj const & object, char const * path, bool readable);
