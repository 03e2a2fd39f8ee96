// Changes are made in a copy of the tree, which becomes the project when all rules hold behind the
// last of them.
#include "app/options/set_option.h"

#include <algorithm>

#include "app/options/attributes.h"
#include "app/options/completion.h"
#include "app/options/defaults.h"
#include "app/options/option_change.h"
#include "app/options/option_rows.h"
#include "app/options/option_schema.h"
#include "app/options/options.h"
#include "store/cerr.h"
#include "store/json_text.h"
#include "vlb/nearest.h"

namespace Vapp {

namespace {

using Path = std::vector<std::string>;

Path split_path(std::string_view text) {
  Path path(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i, 2) == "\\/")
      path.back() += text[++i];
    else if (text[i] == '/')
      path.emplace_back();
    else
      path.back() += text[i];
  }
  for (std::string & key : path)
    cat::wsp_normalize(key);
  return path;
}

cRef<cObj> value_at(cObj const & tree, Path const & path, std::size_t keys) {
  cRef<cObj> at;
  for (std::size_t i = 0; i < keys; ++i) {
    at = at ? at->at(path[i]) : tree.at(path[i]);
    if (!at)
      return nullptr;
  }
  return at;
}

std::string key_names(cObj const & map) {
  std::vector<std::string> names;
  for (cIterObj it = map.begin(); it.valid(); it++)
    names.push_back(it.key_as_string());
  return join(names);
}

std::string joined(Path const & path) {
  std::string text;
  for (std::string const & key : path)
    text += (text.empty() ? "" : "/") + key;
  return text;
}

// What may have been meant: another key beside it, or an option elsewhere that ends in such a key.
std::string near_path(cObj const & map, Path const & known, std::string const & key) {
  std::vector<std::string> names;
  for (cIterObj it = map.begin(); it.valid(); it++)
    names.push_back(it.key_as_string());
  if (std::string const near = Vlb::nearest(key, names); !near.empty()) {
    Path path = known;
    path.push_back(near);
    return joined(path);
  }
  names.clear();
  for (gOptionRow const & row : option_rows())
    names.emplace_back(row.tree == gOptionTree::project ? key_of(row) : "");
  std::string const near = Vlb::nearest(key, names);
  auto const found = std::ranges::find(names, near);
  return near.empty() ? "" : std::string(option_rows()[found - names.begin()].path);
}

// Tells how far the path is known, and what could follow.
std::string unknown_key(cObj const & schema, Path const & path) {
  Path known;
  for (std::string const & key : path) {
    known.push_back(key);
    if (!schema_at(schema, known))
      break;
  }
  std::string const key = known.back();
  known.pop_back();
  cRef<cObj> const parent = schema_at(schema, known);
  cObj const & map = parent ? *parent : schema;
  std::string const text = "unknown key \"" + key + "\"";
  if (std::string const near = near_path(map, known, key); !near.empty())
    return text + "; did you mean \"" + near + "\"?";
  return text +
         (map.size() > 0 ? "; known keys are " + key_names(map) : "; there is nothing below it");
}

bool is_derived(Path const & path) {
  return path.size() >= 3 && path[0] == "attr" && path[2] == "val";
}

cMapObj & parent_of(cMapObj & tree, Path const & path) {
  cMapObj * at = &tree;
  for (std::size_t i = 0; i + 1 < path.size(); ++i) {
    cRef<cObj> const next = at->at(path[i]);
    at = next && next->map() ? next->map() : &at->submap(path[i]);
  }
  return *at;
}

bool remove(cMapObj & tree, Path const & path, std::string & reason) {
  if (!value_at(tree, path, path.size())) {
    reason = "there is no such entry";
    return false;
  }
  cMapObj defaults;
  build_defaults(defaults);
  // An attribute is deleted or kept, never put back: the rules tell which.
  defaults.erase("attr");
  cRef<cObj> const standard = value_at(defaults, path, path.size());
  cMapObj & parent = parent_of(tree, path);
  if (standard)
    parent.set(path.back(), standard);
  else
    parent.erase(path.back());
  return true;
}

// A vector has no holes, so an element is changed or added at the end.
bool store(cMapObj & tree, Path const & path, cRef<cObj> const & value, std::string & reason) {
  cMapObj & parent = parent_of(tree, path);
  if (!parent.entries().is_vector()) {
    int const present = parent.entries().find(path.back());
    parent.set(present < 0 ? cKey(path.back()) : parent.entries().node(present).key(), value);
    return true;
  }
  int index = -1;
  cat::read(cat::make(path.back()), index);
  if (index < 0 || index > parent.size()) {
    reason = "no such element; the vector has " + std::to_string(parent.size());
    return false;
  }
  parent.set(cKey(index), value);
  return true;
}

// Names and separators of subject lines are stored without needless blanks, however they were
// typed.
cRef<cObj> tidied(std::string const & key, cRef<cObj> const & value) {
  if (key == "slsep") {
    std::string text = cat::as_string(value);
    cat::wsp_normalize(text);
    return cat::make(text);
  }
  if (&value->type() != &cat::type_map())
    return value;
  auto map = make_ref<cMapObj>();
  for (cIterObj it = value->begin(); it.valid(); it++) {
    std::string name = it.key_as_string();
    cat::wsp_normalize(name);
    map->set(name, tidied(name, it.valref()));
  }
  return map;
}

bool change(cMapObj & tree, std::string_view assignment, std::string & reason) {
  std::size_t const equals = assignment.find('=');
  if (equals == assignment.npos || equals == 0) {
    reason = "KEY=VALUE is wanted";
    return false;
  }
  Path const path = split_path(assignment.substr(0, equals));
  std::string const text(assignment.substr(equals + 1));
  if (is_derived(path)) {
    reason = "val is made from valpre and valusr; set valusr";
    return false;
  }
  if (gString(text).wsp_trim() == "null")
    return remove(tree, path, reason);
  cRef<cMapObj> const schema = option_schema();
  cRef<cObj> const known = schema_at(*schema, path);
  cRef<cObj> const like = known ? known : value_at(tree, path, path.size());
  if (!like) {
    reason = unknown_key(*schema, path);
    return false;
  }
  cRef<cObj> value;
  return from_json(text, like, value, reason) &&
         store(tree, path, tidied(path.back(), value), reason);
}

// The rules, and what depends on the changes. Empty if all is well, else the reason.
std::string settle(cMapObj & tree) {
  fill_records(tree);
  if (gCheck const refusal = check_change(options, tree))
    return refusal->message.empty() ? "a name is empty" : refusal->message;
  try {
    complete_options(tree);
    rebuild_values(tree);
  } catch (cException const & e) {
    return e.as_string();
  }
  return "";
}

// The rules tell a reason, but not whose fault it is: that of the assignment since which they have
// told this one.
gSetFault blame(std::vector<std::string> const & assignments) {
  gSetFault fault;
  cMapObj tree;
  tree.assign(options);
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    std::string ignored;
    change(tree, assignments[i], ignored);
    cMapObj judged;
    judged.assign(tree);
    if (std::string const reason = settle(judged); reason != fault.reason)
      fault = {i, reason};
  }
  return fault;
}

} // namespace

gSetRefusal set_options(std::vector<std::string> const & assignments) {
  cMapObj tree;
  tree.assign(options);
  for (std::size_t i = 0; i < assignments.size(); ++i)
    if (std::string reason; !change(tree, assignments[i], reason))
      return gSetFault{i, reason};
  if (!settle(tree).empty())
    return blame(assignments);
  options = tree;
  return std::nullopt;
}

bool get_option_json(std::string_view key, std::string & out) {
  Path const path = split_path(key);
  cRef<cObj> const value =
      key.empty() ? cRef<cObj>::share(&options) : value_at(options, path, path.size());
  if (value)
    out = to_json(*value, true);
  return static_cast<bool>(value);
}

} // namespace Vapp
