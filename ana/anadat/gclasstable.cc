// The hierarchy of a class is found by walking names, upwards by class and downwards by base. A
// class that is reached on several ways stands in the block once for each, so the size of a block
// has a limit. In the modern dialect a block beyond it says what is near: there a plan, made level
// by level, tells which classes show their bases, or what derives from them, and once each.
#include "ana/anadat/gclasstable.h"

#include <algorithm>
#include <deque>
#include <map>
#include <unordered_map>

#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"

namespace {

constexpr int max_levels = 256;
constexpr int max_classes = 10000;
constexpr int max_near = 1000; // of the modern dialect

std::string_view cut_arguments(std::string_view name) {
  return name.substr(0, name.find('<'));
}

// "All" and "not set" as plain numbers of levels.
int level_count(int limit) {
  if (limit == hier_all)
    return max_levels;
  return std::clamp(limit, 0, max_levels);
}

char const * access_word(int access) {
  return access & access_public      ? "public"
         : access & access_protected ? "protected"
         : access & access_private   ? "private"
                                     : "";
}

// The text of an inheritance step by its access bits; a block has few different ones.
gString relation_label(int access) {
  gString label;
  if (*access_word(access))
    label = Vlb::attribute_text("VISIBILITY", access_word(access));
  label += ' ';
  label += Vlb::attribute_text("VIRTUALITY", access & access_virtual ? "virtual" : "nonvirtual");
  return label.wsp_norm();
}

} // namespace

struct gClassTable::Walk {
  explicit Walk(gOutline const & from) : from(from) {}

  // Puts a class on the path for the life of the object, unless it stands there.
  struct Step {
    Step(Walk & walk, void const * node)
        : walk(walk),
          ok(std::find(walk.path.begin(), walk.path.end(), node) == walk.path.end()) {
      walk.path.push_back(node);
    }
    ~Step() { walk.path.pop_back(); }
    Walk & walk;
    bool ok;
  };

  bool full() const { return classes >= most; }
  // The plan lets a class show what is behind it at one place.
  bool may_open(void const * node, int level) {
    auto const planned = plan.find(node);
    return !has_plan || (planned != plan.end() && planned->second == level && plan.erase(node) > 0);
  }
  gString reference(std::string_view key, gString const & name, int level) const;
  gString relation(int access, int level);
  // One class of the block.
  void put(gStrList & out, gBaseEntry const & entry, std::string_view key, int level) {
    out << gString("@cref") << reference(key, entry.name, level) + " "
        << relation(entry.access, level);
    ++classes;
  }

  // The height of a class, and how many levels were looked at to find it.
  struct Height {
    int limit, level;
  };

  gOutline const & from;
  std::vector<void const *> path;
  std::unordered_map<void const *, Height> heights;
  std::map<int, gString> labels;              // by access
  std::unordered_map<void const *, int> plan; // levels of those that may be opened
  bool has_plan = false;
  int most = gInput->modern ? max_near : max_classes;
  int classes = 0;
};

gString gClassTable::Walk::reference(std::string_view key, gString const & name, int level) const {
  gString target;
  bool const found = gDocManager.resolve_reference(from, gString(key), target);
  gString text = found ? "<main><" + target : "<void><";
  // As written, but for what would end the text in braces.
  gString shown = name;
  shown.escape("}@\\", '\\');
  text += "><><" + std::to_string(level) + ">{" + shown + "}";
  return text;
}

gString gClassTable::Walk::relation(int access, int level) {
  auto label = labels.find(access);
  if (label == labels.end())
    label = labels.emplace(access, relation_label(access)).first;
  gString text = "@hieraprop<" + std::to_string(level) + "><";
  text += access_word(access);
  text += "><";
  text += access & access_virtual ? "virtual" : "";
  text += ">{" + label->second + "}\n";
  return text;
}

void gClassTable::insert_class(gString const & name, cRef<gBaseClause> const & bases) {
  insert(name, bases);
  for (gBaseEntry const & base : bases->entries) {
    std::string_view const key = cut_arguments(base.name);
    cRef<gDerivedList> * list = derived_.lookup(key);
    if (!list) {
      derived_.insert(key, make_ref<gDerivedList>());
      list = derived_.lookup(key);
    }
    (*list)->entries.push_back({name, base.access});
  }
}

int gClassTable::class_level(gString const & name, int limit) const {
  gOutline const nowhere{};
  Walk walk(nowhere);
  return class_level(name, level_count(limit), walk);
}

int gClassTable::class_level(gString const & name, int limit, Walk & walk) const {
  cRef<gBaseClause> const * clause = limit == 0 ? nullptr : lookup(name);
  if (!clause)
    return 0;
  auto const known = walk.heights.find(clause);
  if (known != walk.heights.end()) {
    auto const [looked_at, level] = known->second;
    if (level < looked_at || limit <= looked_at)
      return std::min(level, limit);
  }
  Walk::Step step(walk, clause);
  if (!step.ok)
    return 0;
  int highest = 0;
  for (gBaseEntry const & base : (*clause)->entries)
    highest = std::max(highest, class_level(base.name, limit - 1, walk));
  walk.heights[clause] = {limit, 1 + highest};
  return 1 + highest;
}

void gClassTable::base_list(gStrList & out, gString const & name, int level, Walk & walk) const {
  cRef<gBaseClause> const * clause = level < 0 ? nullptr : lookup(name);
  if (!clause)
    return;
  Walk::Step step(walk, clause);
  if (!step.ok || !walk.may_open(clause, level))
    return;
  for (gBaseEntry const & base : (*clause)->entries) {
    if (walk.full())
      return;
    base_list(out, base.name, level - 1, walk);
    walk.put(out, base, cut_arguments(base.name), level);
  }
}

void gClassTable::derived_list(gStrList & out, gString const & name, int limit, int level,
                               Walk & walk) const {
  cRef<gDerivedList> const * list = limit == 0 ? nullptr : derived_.lookup(name);
  if (!list)
    return;
  Walk::Step step(walk, list);
  if (!step.ok || !walk.may_open(list, level))
    return;
  for (gBaseEntry const & entry : (*list)->entries) {
    if (walk.full())
      return;
    walk.put(out, entry, entry.name, level);
    derived_list(out, entry.name, limit - 1, level + 1, walk);
  }
}

// Takes the classes level by level, as long as there is room for what each has behind it; the first
// is always taken. `step` is what is added to the level from one class to the next.
template <class Find>
void gClassTable::make_plan(Walk & walk, gString const & name, int level, int step, int levels,
                            Find const & find) {
  struct Place {
    gString name;
    int level, levels;
  };
  walk.plan.clear();
  walk.has_plan = true;
  std::size_t room = static_cast<std::size_t>(walk.most);
  std::deque<Place> places = {{name, level, levels}};
  for (; !places.empty(); places.pop_front()) {
    auto const [at, height, left] = places.front();
    auto const * const node = left > 0 ? find(at) : nullptr;
    if (!node || walk.plan.contains(node))
      continue;
    auto const & entries = (*node)->entries;
    if (entries.size() > room && !walk.plan.empty())
      return;
    room -= std::min(room, entries.size());
    walk.plan.emplace(node, height);
    for (gBaseEntry const & entry : entries)
      places.push_back({entry.name, height + step, left - 1});
  }
}

gStrList gClassTable::bases_of(gString const & name, int level, Walk & walk) const {
  gStrList bases;
  base_list(bases, name, level, walk);
  if (!walk.full() || !gInput->modern)
    return bases;
  make_plan(walk, name, level, -1, level + 1, [this](gString const & of) { return lookup(of); });
  gStrList near;
  walk.classes = 0;
  base_list(near, name, level, walk);
  return near;
}

gStrList gClassTable::derived_of(gString const & name, int limit, int level, Walk & walk) const {
  gStrList derived;
  walk.has_plan = false;
  walk.classes = 0; // a deep tree of bases must not hide the derived classes
  derived_list(derived, name, limit, level, walk);
  if (!walk.full() || !gInput->modern)
    return derived;
  make_plan(walk, name, level, 1, limit,
            [this](gString const & of) { return derived_.lookup(of); });
  gStrList near;
  walk.classes = 0;
  derived_list(near, name, limit, level, walk);
  return near;
}

gStrList gClassTable::hierarchy(gString const & name, gOutline const & from, int up,
                                int down) const {
  gStrList block;
  up = level_count(up);
  down = level_count(down);
  if (up == 0 && down == 0)
    return block;
  Walk walk(from);
  int const level = class_level(name, up, walk);
  gStrList bases = bases_of(name, level - 1, walk);
  gStrList derived = derived_of(name, down, level + 1, walk);

  block << gString("@b_hierarchy\n");
  if (!bases.empty()) {
    block << gString("@b_base\n");
    block.append(std::move(bases));
    block << gString("@e_base\n");
  }
  block << gString("@thisclass\n@cref") << walk.reference(name, name, level) << gString("\n");
  if (!derived.empty()) {
    block << gString("@b_child\n");
    block.append(std::move(derived));
    block << gString("@e_child\n");
  }
  block << gString("@e_hierarchy\n");
  return block;
}

void gClassTable::reset() {
  derived_.clear();
  clear();
}
