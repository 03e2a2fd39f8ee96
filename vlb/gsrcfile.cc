// Input files. The language is told once, when the record is made, by the extension of the user's
// file.
#include "vlb/gsrcfile.h"

#include <array>
#include <list>
#include <vector>

#include "vlb/gexception.h"
#include "vlb/gfilesystem.h"

namespace {

using Extensions = std::vector<std::string>;

struct Languages {
  Extensions cpp;
  Extensions pascal;
};

Languages & languages() {
  static Languages both;
  return both;
}

// "c; .cpp; *.h" gives c, cpp, h.
Extensions extensions_of(gString const & list) {
  std::list<gPathstring> parts;
  gFileSystem::split_path_list(list, parts, true);
  Extensions extensions;
  for (gPathstring const & part : parts) {
    std::size_t const start = part.find_first_not_of("*.");
    if (start != part.npos)
      extensions.push_back(part.substr(start));
  }
  return extensions;
}

bool contains(Extensions const & extensions, std::string_view extension) {
  for (std::string const & one : extensions)
    if (Vlb::compare_i(one, extension) == 0)
      return true;
  return false;
}

gLanguage language_of(gPathstring const & path) {
  gString const extension = path.extension();
  if (contains(languages().cpp, extension))
    return gLanguage::cpp;
  return contains(languages().pascal, extension) ? gLanguage::pascal : gLanguage::text;
}

} // namespace

gSrcFile::gSrcFile(gPathstring const & path, gPathstring const & opath, int number) {
  auto * record = new Record;
  record_ = cRef<Record const>(record);
  record->path = path;
  record->opath = opath;
  record->number = number;
  record->language = language_of(this->opath());
}

gSrcFile::gSrcFile(gPathstring const & path, gSrcFile const & by) {
  auto * record = new Record;
  record_ = cRef<Record const>(record);
  record->path = path;
  record->number = by.number();
  record->language = by.language();
}

gSrcFile::Record const & gSrcFile::no_record() {
  static Record const none;
  return none;
}

gString const & gSrcFile::name_sep() const {
  static std::array<gString, 2> const separators = {"::", "."};
  return separators[language() == gLanguage::pascal ? 1 : 0];
}

gString gSrcFile::type_string() const {
  switch (language()) {
  case gLanguage::cpp:
    return "C/C++";
  case gLanguage::pascal:
    return "Pascal/Delphi";
  case gLanguage::text:
    break;
  }
  return "Text";
}

bool gSrcFile::operator<(gSrcFile const & other) const {
  if (record_ == other.record_)
    return false;
  int const order = opath().compare_i(other.opath());
  return order != 0 ? order < 0 : opath().compare(other.opath()) < 0;
}

void gSrcFile::set_cpp_ext(gString const & list) {
  languages().cpp = extensions_of(list);
}

void gSrcFile::set_pas_ext(gString const & list) {
  languages().pascal = extensions_of(list);
}

gLoc::gLoc(gSrcFile const & file, int line) : file_(file), line_(line) {
  VLB_ASSERT(line >= 0);
}

gString gLoc::make_string() const {
  return file_.opath() + ":" + std::to_string(line_);
}
