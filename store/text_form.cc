#include "store/text_form.h"

#include <ostream>

#include "store/cerr.h"
#include "store/json_form.h"
#include "vlb/gfilesystem.h"

namespace {

bool refuse(std::string const & text, std::string * reason) {
  if (reason)
    *reason = text;
  cat::publish_error(1, text);
  return false;
}

bool is_plain_map(cRef<cObj> const & value) {
  return value && value->map() && !value->map()->entries().is_vector();
}

void merge(cMapObj & map, cMapObj const & from) {
  for (int i = 0; i < from.size(); ++i) {
    cAttrNode const & node = from.entries().node(i);
    int const present = map.entries().find(node.key());
    cRef<cObj> const old = present < 0 ? nullptr : map.entries().node(present).value;
    if (is_plain_map(old) && is_plain_map(node.value))
      merge(*old->map(), *node.value->map());
    else
      map.set(node.key(), node.value);
  }
}

} // namespace

bool file2map(char const * path, cMapObj & map, std::string * reason) {
  std::string text;
  if (!gFileSystem::read_file(gPathstring(path), text))
    return refuse(std::string(path) + ": cannot be read", reason);
  return text2map(text, path, map, reason);
}

bool text2map(std::string_view text, std::string const & name, cMapObj & map,
              std::string * reason) {
  constexpr std::string_view mark = "\xEF\xBB\xBF";
  if (text.starts_with(mark))
    text.remove_prefix(mark.size());
  if (text.find_first_not_of(" \t\r\n") == text.npos)
    return true;
  cJsonResult const read = read_json(text, cJsonForm::typed);
  if (!read.value)
    return refuse(name + ":" + std::to_string(read.line) + ": " + read.reason, reason);
  if (!is_plain_map(read.value))
    return refuse(name + ":1: no map of keys and values", reason);
  merge(map, *read.value->map());
  return true;
}

bool write2file(cObj const & object, char const * path, bool readable) {
  std::string text;
  if (!write_json(object, cJsonForm::typed, readable, text))
    return false;
  text += '\n';
  return gFileSystem::write_file_atomic(gPathstring(path), text);
}

bool cObj::writeobj(std::ostream & out) const {
  std::string text;
  bool const whole = write_json(*this, cJsonForm::typed, true, text);
  out << text << '\n';
  return whole && out.good();
}
