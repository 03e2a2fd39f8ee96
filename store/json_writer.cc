// Walks the value and appends to one string. In the typed form an object whose first key begins
// with a single "$" is no map: {"$list": [..]}, {"$macro": {..}} and {"$bytes": ".."}; a map's own
// key that begins with "$" gets a second one. Keys that are numbers are written "$i:7", keys that
// aren't UTF-8 "$b:..", their bytes as characters up to U+00FF.
#include <nlohmann/json.hpp>

#include "store/cmapobj.h"
#include "store/json_bytes.h"
#include "store/json_form.h"

namespace {

class Writer {
public:
  Writer(cJsonForm form, bool pretty, std::string & out)
      : form_(form),
        pretty_(pretty),
        out_(out) {}

  bool value(cObj const & object, int depth);
  // As many as a reader of the text would count.
  int values() const { return values_; }

private:
  bool container(cMapObj const & map, int depth);
  void key(cKey const & key);
  void text(std::string const & text);
  void list(gStrList const & list);
  void macro(gCppMacro const & macro);
  void field(char const * name);
  void new_line(int depth);
  void quoted(std::string const & utf8) { out_ += nlohmann::json(utf8).dump(); }
  char const * comma() const { return pretty_ ? ", " : ","; }
  char const * colon() const { return pretty_ ? ": " : ":"; }
  bool typed() const { return form_ == cJsonForm::typed; }

  cJsonForm form_;
  bool pretty_;
  std::string & out_;
  int values_ = 0;
};

bool Writer::value(cObj const & object, int depth) {
  ++values_;
  if (cMapObj const * map = object.map())
    return depth < json_max_depth && container(*map, depth);
  if (auto const * flag = cat::value_of<bool>(object))
    out_ += *flag ? "true" : "false";
  else if (auto const * number = cat::value_of<int>(object))
    out_ += std::to_string(*number);
  else if (auto const * string = cat::value_of<std::string>(object))
    text(*string);
  else if (auto const * strings = cat::value_of<gStrList>(object))
    list(*strings);
  else if (auto const * record = cat::value_of<gCppMacro>(object))
    macro(*record);
  else
    out_ += "null";
  return true;
}

bool has_containers(cMapObj const & map) {
  for (cIterObj it = map.begin(); it.valid(); it++)
    if ((*it).map())
      return true;
  return false;
}

// A vector of plain values stands on one line.
bool Writer::container(cMapObj const & map, int depth) {
  bool const vector = map.entries().is_vector();
  bool const spread = pretty_ && map.size() > 0 && (!vector || has_containers(map));
  out_ += vector ? '[' : '{';
  bool good = true;
  for (int i = 0; i < map.size(); ++i) {
    if (i > 0)
      out_ += spread ? "," : comma();
    if (spread)
      new_line(depth + 1);
    if (!vector)
      key(map.entries().node(i).key());
    good = value(*map.entries().node(i).value, depth + 1) && good;
  }
  if (spread)
    new_line(depth);
  out_ += vector ? ']' : '}';
  return good;
}

void Writer::key(cKey const & key) {
  bool const utf8 = is_utf8(key.text);
  if (!utf8)
    quoted("$b:" + bytes_to_utf8(key.text));
  else if (!typed())
    quoted(key.as_string());
  else if (key.is_number)
    quoted("$i:" + key.as_string());
  else
    quoted(key.text.starts_with('$') ? "$" + key.text : key.text);
  out_ += colon();
}

void Writer::text(std::string const & text) {
  if (is_utf8(text)) {
    quoted(text);
    return;
  }
  ++values_;
  out_ += '{';
  field("$bytes");
  quoted(bytes_to_utf8(text));
  out_ += '}';
}

void Writer::list(gStrList const & list) {
  values_ += 1 + static_cast<int>(list.size());
  if (typed()) {
    out_ += '{';
    field("$list");
  }
  out_ += '[';
  bool first = true;
  for (cRef<gString> const & element : list) {
    if (!std::exchange(first, false))
      out_ += comma();
    text(element ? *element : std::string());
  }
  out_ += typed() ? "]}" : "]";
}

void Writer::macro(gCppMacro const & macro) {
  values_ += 5; // the record and its fields
  if (typed()) {
    out_ += '{';
    field("$macro");
  }
  out_ += '{';
  field("name");
  text(macro.name);
  out_ += comma();
  field("parameterized");
  out_ += macro.parameterized ? "true" : "false";
  out_ += comma();
  field("action");
  out_ += std::to_string(macro.action);
  out_ += comma();
  field("interpretation");
  out_ += std::to_string(macro.interpretation);
  out_ += typed() ? "}}" : "}";
}

void Writer::field(char const * name) {
  quoted(name);
  out_ += colon();
}

void Writer::new_line(int depth) {
  out_ += '\n';
  out_.append(static_cast<std::size_t>(depth) * 2, ' ');
}

} // namespace

bool write_json(cObj const & object, cJsonForm form, bool pretty, std::string & out) {
  Writer writer(form, pretty, out);
  return writer.value(object, 0) && writer.values() <= json_max_values;
}
