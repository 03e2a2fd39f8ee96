// What sources say, read ahead of the run that makes a document of it, on this machine or another.
#pragma once

#include <optional>
#include <string>

#include "ana/read/read_modern.h"

// A folder with a file for each source, by its path. A file holds for the bytes that were read, the
// macros of all inputs and the key of what was asked; what doesn't fit is as if it weren't there.
class gFactsFolder {
public:
  gFactsFolder(gPathstring folder, std::string key, Decl::gMacroTable const & macros);

  // The name of a source's file; it depends on the path alone.
  static std::string name_of(std::string const & path);
  // The name of the file with the macros of all inputs.
  static constexpr char const * macros_name = "macros";

  std::optional<gModernFile> find(gSrcFile const & file, std::string_view text) const;
  // False if it can't be written; a file whose facts aren't worth keeping is empty.
  bool keep(gModernFile const & file, std::string_view text) const;

  // The macros that another run has collected; nothing if there are none.
  static std::optional<Decl::gMacroTable> read_macros(gPathstring const & folder);
  // Leaves a file alone that has them already.
  static bool write_macros(gPathstring const & folder, Decl::gMacroTable const & macros);

private:
  std::string key_of(std::string const & path, std::string_view text) const;

  gPathstring folder_;
  std::string key_; // of what was asked, and of the macros
};
