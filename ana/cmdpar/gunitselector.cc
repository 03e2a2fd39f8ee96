// A selection walks all units, or those of one class, and keeps what passes every filter.
#include "ana/cmdpar/gunitselector.h"

#include "ana/anadat/tables.h"
#include "vlb/gfilesystem.h"

namespace {

// Walks the name of a unit's scope, the parts of its name in front of the last one. Stops where
// `take` answers false, and answers that itself then.
template <class Take> bool walk_scope(gDocUnit const & unit, Take take) {
  auto const & names = unit.names();
  if (names.empty())
    return true;
  auto const last = std::prev(names.end());
  for (auto it = names.begin(); it != last; ++it)
    if ((it != names.begin() && !take(std::string_view(unit.name_sep()))) ||
        !take(std::string_view(**it)))
      return false;
  return true;
}

// Without a text of its own: most members are asked for theirs several times.
bool has_scope(gDocUnit const & unit, std::string_view scope) {
  bool const fits = walk_scope(unit, [&](std::string_view part) {
    bool const begins = scope.starts_with(part);
    if (begins)
      scope.remove_prefix(part.size());
    return begins;
  });
  return fits && scope.empty();
}

constexpr std::uint64_t hash_start = 0xCBF29CE484222325u;

std::uint64_t add_to_hash(std::uint64_t hash, std::string_view text) {
  for (char const c : text)
    hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
  return hash;
}

std::uint64_t scope_hash(gDocUnit const & unit) {
  std::uint64_t hash = hash_start;
  walk_scope(unit, [&](std::string_view part) {
    hash = add_to_hash(hash, part);
    return true;
  });
  return hash;
}

bool is_known_class(gDocUnit const & unit) {
  cRef<gCodeElem> const & element = unit.code_elem();
  return element && element->kind != Decl::gKind::none && element->type == ut_class;
}

std::uint64_t hash_of(std::string_view text) {
  return add_to_hash(hash_start, text);
}

bool has_drive(std::string_view path) {
  return path.size() > 1 && Vlb::is_letter(path[0]) && path[1] == ':';
}

} // namespace

bool gUnitSelector::belongs_to(gDocUnit const & unit, std::string_view class_name) {
  auto const & names = unit.names();
  return names.size() > 1 &&
         (**std::prev(names.end(), 2) == class_name || has_scope(unit, class_name));
}

void gUnitSelector::collect_units() {
  if (std::exchange(collected_, true))
    return;
  auto add = [this](cRef<gDocUnit> const & unit) { units_.push_back(unit.get()); };
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & entry : *file.value)
        add(entry.object);
  for (auto const & named : gGeneratedUnits)
    for (cRef<gDocUnit> const & unit : named.value)
      add(unit);
}

void gUnitSelector::build_index() {
  if (std::exchange(indexed_, true))
    return;
  for (std::uint32_t n = 0; n < units_.size(); ++n) {
    auto const & names = units_[n]->names();
    if (names.size() < 2)
      continue;
    classes_.push_back({hash_of(**std::prev(names.end(), 2)), n});
    if (names.size() > 2)
      classes_.push_back({scope_hash(*units_[n]), n});
  }
  std::sort(classes_.begin(), classes_.end());
  std::unordered_map<std::string, std::vector<gDocUnit const *>> known;
  for (gDocUnit const * unit : units_)
    if (is_known_class(*unit))
      known[unit->name()].push_back(unit);
  for (auto const & [name, classes] : known)
    if (classes.size() > 1)
      for (gDocUnit const * unit : classes)
        namesakes_[name].insert(unit->code_loc().file().opath());
}

// Members between the brackets of a namesake are that one's alone; what is defined elsewhere may
// belong to each.
bool gUnitSelector::is_of_chosen(gDocUnit const & unit) const {
  cRef<gCodeElem> const & element = unit.code_elem();
  if (!class_ || !is_known_class(*class_) || !element || element->kind == Decl::gKind::none)
    return true;
  if (!has_scope(unit, class_name_))
    return false;
  auto const files = namesakes_.find(class_name_);
  bool const inside = element->parts && (element->parts->marks & Decl::mark_out_of_class) == 0;
  if (files == namesakes_.end() || !inside)
    return true;
  gCodeElem const & own = *class_->code_elem();
  std::string const & file = element->loc.file().opath();
  if (file != own.loc.file().opath())
    return !files->second.contains(file);
  return element->loc.line() >= own.loc.line() && element->loc.line() <= own.end_line;
}

std::vector<std::uint32_t> gUnitSelector::members_of(std::string_view class_name) {
  build_index();
  std::vector<std::uint32_t> members;
  std::uint64_t const hash = hash_of(class_name);
  auto it = std::lower_bound(classes_.begin(), classes_.end(), ClassEntry{hash, 0});
  for (; it != classes_.end() && it->hash == hash; ++it)
    if ((members.empty() || members.back() != it->unit) &&
        belongs_to(*units_[it->unit], class_name) && is_of_chosen(*units_[it->unit]))
      members.push_back(it->unit);
  return members;
}

void gUnitSelector::filters_changed() {
  compiled_ = false;
  verdicts_.clear();
}

void gUnitSelector::compile_filters(gOutState const & state) {
  if (std::exchange(compiled_, true))
    return;
  folders_.clear();
  files_ = FileFilter();
  for (gPathstring folder : state.path_filter)
    folders_.push_back(folder.make_absolute(state.cur_dir).normalize(true));
  for (gPathstring const & entry : state.file_filter) {
    if (!entry.is_absolute()) {
      files_.names.push_back(entry);
      continue;
    }
    files_.paths.insert(Vlb::to_lower(entry));
    if (has_drive(entry))
      files_.drive_tails.insert(Vlb::to_lower(std::string_view(entry).substr(2)));
  }
}

bool gUnitSelector::test_path(gPathstring const & path) const {
  gString const folder = path.dir_name();
  return std::any_of(folders_.begin(), folders_.end(), [&](gString const & entry) {
    return gFileSystem::matches(folder, entry) != 0;
  });
}

bool gUnitSelector::test_file(gPathstring const & path) const {
  std::string const whole = Vlb::to_lower(path);
  if (files_.paths.contains(whole))
    return true;
  if (whole.size() > 1 && files_.drive_tails.contains(whole.substr(2)))
    return true;
  gString const name = path.file_name();
  return std::any_of(files_.names.begin(), files_.names.end(), [&](gString const & pattern) {
    return gFileSystem::matches(name, pattern) != 0;
  });
}

bool gUnitSelector::passes_files(gDocUnit const & unit, gOutState const & state) {
  if (state.path_filter.empty() && state.file_filter.empty())
    return true;
  gPathstring const & path = unit.loc().file().opath();
  auto const [verdict, is_new] = verdicts_.try_emplace(&path);
  if (is_new)
    verdict->second = (state.path_filter.empty() || test_path(path)) &&
                      (state.file_filter.empty() || test_file(path));
  return verdict->second;
}

bool gUnitSelector::passes(gDocUnit const & unit, gOutState const & state) {
  for (auto const & [name, test] : state.attr_filter)
    if (test.values.contains(unit.get_attr(name)) != test.equal)
      return false;
  return (state.miss_output || !is_missing(unit)) && passes_files(unit, state);
}

std::vector<cRef<gDocUnit>> gUnitSelector::select(gOutState & state) {
  state.miss_output = gInput->association.miss_output;
  collect_units();
  compile_filters(state);
  std::vector<cRef<gDocUnit>> selected;
  auto test = [&](gDocUnit * unit) {
    if (passes(*unit, state))
      selected.push_back(cRef<gDocUnit>::share(unit));
  };
  if (state.class_filter.empty())
    std::for_each(units_.begin(), units_.end(), test);
  else
    for (std::uint32_t n : members_of(state.class_filter))
      test(units_[n]);
  sort_units(selected, state.sort_mode);
  return selected;
}
