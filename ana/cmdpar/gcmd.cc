// Commands place copies of units in the document; the units in the tables stay as they are.
#include "ana/cmdpar/gcmd.h"

#include "ana/anadat/tables.h"
#include "vlb/gexception.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

void gCmdSeq::execute(cRef<gOutState> & state) {
  for (cRef<gCmd> const & command : commands_)
    command->execute(state);
}

gSectionCmd::gSectionCmd(gString const & output, gString const & section_template)
    : output_(output),
      template_(section_template.empty() ? "STPL_Default" : section_template) {}

void gSectionCmd::execute(cRef<gOutState> & state) {
  state->section_template = template_;
  gDocManager.open_section(make_ref<gSectHeader>(output_, template_));
  state->path_filter.clear();
  state->file_filter.clear();
  state->attr_filter.clear();
  state->class_filter.clear();
  state->sort_mode = gSortMode::unit_loc;
}

void gHdlLevelCmd::execute(cRef<gOutState> &) {
  gDocManager.set_level(level_);
}

void gFilterCmd::execute(cRef<gOutState> & state) {
  for (auto const & [attribute, test] : predicate_)
    state->attr_filter[attribute] = test;
}

void gNoFilterCmd::execute(cRef<gOutState> & state) {
  if (name_ == "all")
    state->attr_filter.clear();
  else
    state->attr_filter.erase(name_);
}

void gFilterSortCmd::execute(cRef<gOutState> & state) {
  state->sort_mode = mode_;
}

void gPathFilterCmd::execute(cRef<gOutState> & state) {
  state->path_filter.clear();
  gFileSystem::split_path_list(text_, state->path_filter, true);
  selector_->filters_changed();
}

namespace {

// Adds the files of all groups with this output name; false if there is no such group.
bool add_group(gString const & name, std::list<gPathstring> & files) {
  bool found = false;
  for (gFileGroup const & group : gInput->groups) {
    if (group.output.compare_i(name) != 0)
      continue;
    found = true;
    gFileList list(0);
    list.cur_dir(gInput->root);
    list.add(group.paths, group.files, 0);
    for (gSrcFile const & file : list.files())
      files.push_back(file.path());
  }
  return found;
}

} // namespace

void gFileFilterCmd::expand() {
  std::list<gPathstring> written;
  gFileSystem::split_path_list(text_, written, true);
  for (gPathstring const & entry : written)
    if (!cat::is_ident(entry))
      entries_.push_back(entry);
    else if (!add_group(entry, entries_))
      Msg::log(Msg::undefined_file_group, entry, loc_);
}

void gFileFilterCmd::execute(cRef<gOutState> & state) {
  if (!std::exchange(expanded_, true))
    expand();
  state->file_filter = entries_;
  selector_->filters_changed();
}

namespace {

void clear_automatic_marks(gDocUnit & unit) {
  unit.clear_flag(gDocUnit::bookmark);
  unit.clear_flag(gDocUnit::index_entry);
}

// A copy of the unit for the current section.
cRef<gDocUnit> placed_copy(gDocUnit const & unit, cRef<gOutState> & state) {
  cRef<gDocUnit> copy;
  unit.clone(copy);
  copy->compile(state);
  return copy;
}

// The name that a command means by its parameter.
gString resolved_name(gString const & name, gOutState const & state, gLoc const & loc) {
  if (name != "$curclass")
    return name;
  if (!state.class_stack.empty())
    return state.class_stack.back();
  Msg::log(Msg::empty_curclass, "", loc);
  return {};
}

bool find_unit(gString const & name, cRef<gDocUnit> & unit, gLoc const & loc) {
  if (gUnitNames.find(name, unit, gString()))
    return true;
  Msg::log(Msg::unit_not_found, name, loc);
  return false;
}

// An outline that gets too deep ends the run; the block tells where.
void open_block(cRef<gDocUnit> const & unit, gLoc const & loc) {
  try {
    gDocManager.push_unit(unit);
  } catch (gExcRange const &) {
    throw gExcFatalErr(Msg::class_blocks_too_deep, loc.make_string(), loc);
  }
}

cRef<gDocUnit> headline_unit(gStrList const & text, gStrList const & toc_text, gLoc const & loc,
                             cRef<gOutState> & state) {
  auto unit = make_ref<gTextUnit>(gString(), loc.file(), loc.line());
  unit->set_attr("UNITTYPE", "text");
  clear_automatic_marks(*unit);
  gStrList whole(gString("@hdltoc{"));
  whole.append(toc_text);
  whole.push_back(gString("}\n"));
  whole.push_back(gString("@hdline{"));
  whole.append(text);
  whole.push_back(gString("}\n"));
  unit->add_subentry("text", whole);
  unit->expand_table(state);
  return unit;
}

// Units by the files that declare them, in the order in which the files come first.
struct gUnitsOfFile {
  gPathstring path;
  std::vector<cRef<gDocUnit>> units;
};
std::vector<gUnitsOfFile> by_files(std::vector<cRef<gDocUnit>> const & units) {
  std::vector<gUnitsOfFile> files;
  std::map<gPathstring, std::size_t> index;
  for (cRef<gDocUnit> const & unit : units) {
    gPathstring const & path = unit->code_loc().file().opath();
    auto const [at, is_new] = index.try_emplace(path, files.size());
    if (is_new)
      files.push_back({path, {}});
    files[at->second].units.push_back(unit);
  }
  return files;
}

// How much of the paths says nothing, since all begin with the same folders.
std::size_t common_folders(std::vector<gUnitsOfFile> const & files) {
  if (files.empty())
    return 0;
  std::string_view const first = files[0].path;
  std::size_t common = first.rfind('/') + 1;
  for (gUnitsOfFile const & file : files)
    while (common > 0 && !std::string_view(file.path).starts_with(first.substr(0, common)))
      common = first.substr(0, common - 1).rfind('/') + 1;
  return common;
}

// Runs the commands of a block inside the unit of its class.
void run_block(cRef<gDocUnit> const & unit, gString const & name, gCmdSeq & inner,
               cRef<gOutState> & state, gLoc const & loc) {
  open_block(unit, loc);
  state->class_stack.push_back(name);
  inner.execute(state);
  gDocManager.pop_unit();
  state->class_stack.pop_back();
}

// The filter for what belongs to a class. A class without a name is nobody's scope, and an empty
// filter would let everything pass: no name holds a line feed.
gString members_filter(gString const & class_name) {
  return class_name.empty() ? gString("\n") : class_name;
}

void restore_class_filter(gOutState & state) {
  bool const in_class = !state.class_stack.empty();
  state.class_filter = in_class ? members_filter(state.class_stack.back()) : gString();
}

} // namespace

void gOutHdlCmd::execute(cRef<gOutState> & state) {
  gDocManager.add_unit(headline_unit(text_, toc_text_, loc_, state));
}

void gOutUnitCmd::execute(cRef<gOutState> & state) {
  gString const name = resolved_name(name_, *state, loc_);
  cRef<gDocUnit> unit;
  if (find_unit(name, unit, loc_))
    gDocManager.add_unit(placed_copy(*unit, state));
}

void gOutFilterCmd::execute(cRef<gOutState> & state) {
  std::vector<cRef<gDocUnit>> const units = selector_->select(*state);
  if (!by_file_) {
    for (cRef<gDocUnit> const & unit : units)
      gDocManager.add_unit(placed_copy(*unit, state));
    return;
  }
  std::vector<gUnitsOfFile> const files = by_files(units);
  std::size_t const common = common_folders(files);
  for (gUnitsOfFile const & file : files) {
    gStrList const title(gString(file.path.substr(common)));
    open_block(headline_unit(title, title, loc_, state), loc_);
    for (cRef<gDocUnit> const & unit : file.units)
      gDocManager.add_unit(placed_copy(*unit, state));
    gDocManager.pop_unit();
  }
}

void gOutClassCmd::execute(cRef<gOutState> & state) {
  gString const name = resolved_name(name_, *state, loc_);
  state->class_filter = state->class_stack.empty() ? name : members_filter(name);
  cRef<gDocUnit> unit;
  if (find_unit(name, unit, loc_))
    run_block(placed_copy(*unit, state), name, *inner_, state, loc_);
  else
    inner_->execute(state);
  restore_class_filter(*state);
}

void gOutClassFilterCmd::execute(cRef<gOutState> & state) {
  state->attr_filter.try_emplace("UNITTYPE", gAttrTest{{"class"}, true});
  std::vector<cRef<gDocUnit>> const classes = selector_->select(*state);
  state->attr_filter.erase("UNITTYPE");
  for (cRef<gDocUnit> const & unit : classes) {
    gString const name = unit->name();
    state->class_filter = members_filter(name);
    gDocUnit const * const outer = selector_->choose_class(unit.get());
    run_block(placed_copy(*unit, state), name, *inner_, state, loc_);
    selector_->choose_class(outer);
  }
  if (!classes.empty())
    restore_class_filter(*state);
}
