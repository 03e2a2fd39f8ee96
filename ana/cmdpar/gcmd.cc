// Commands place copies of units in the document; the units in the tables stay as they are.
#include "ana/cmdpar/gcmd.h"

#include "ana/anadat/tables.h"
#include "ana/cmdpar/units_as_tree.h"
#include "ana/cmdpar/units_by_files.h"
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

gStrList headline(gStrList const & text, gStrList const & toc_text) {
  gStrList whole(gString("@hdltoc{"));
  whole.append(toc_text);
  whole.push_back(gString("}\n"));
  whole.push_back(gString("@hdline{"));
  whole.append(text);
  whole.push_back(gString("}\n"));
  return whole;
}

cRef<gDocUnit> headline_unit(gStrList const & text, gStrList const & toc_text, gLoc const & loc,
                             cRef<gOutState> & state) {
  auto unit = make_ref<gTextUnit>(gString(), loc.file(), loc.line());
  unit->set_attr("UNITTYPE", "text");
  clear_automatic_marks(*unit);
  unit->add_subentry("text", headline(text, toc_text));
  unit->expand_table(state);
  return unit;
}

// What a file or a source calls something is no mark-up.
cRef<gDocUnit> plain_headline(std::string_view text, gLoc const & loc, cRef<gOutState> & state) {
  gStrList const title(Vlb::escape_atc(text));
  return headline_unit(title, title, loc, state);
}

// The page of a file: its text, if there is one, under its path.
cRef<gDocUnit> file_unit(gUnitsOfFile const & file, std::string_view title, gLoc const & loc,
                         cRef<gOutState> & state) {
  if (!file.text)
    return plain_headline(title, loc, state);
  cRef<gDocUnit> const unit = placed_copy(*file.text, state);
  gStrList const name(Vlb::escape_atc(title));
  gStrList last(gString("\n"));
  last.append(headline(name, name)); // of several the last one counts
  unit->add_subentry("text", last);
  return unit;
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
  gUnitRefs const units = selector_->select(*state);
  if (order_ == by_files)
    place_by_files(units, state);
  else if (order_ == as_tree)
    place_as_tree(units, state);
  else
    place(units, state);
}

// What would stand too deep stands beside what it belongs to.
void gOutFilterCmd::place_as_tree(gUnitRefs const & units, cRef<gOutState> & state) {
  auto const deepest = static_cast<std::size_t>(gDocManager.levels_left());
  std::size_t open = 0;
  std::vector<gPlacedUnit> const order = units_as_tree(units);
  for (std::size_t i = 0; i < order.size(); ++i) {
    for (; open > std::min(order[i].depth, deepest); --open)
      gDocManager.pop_unit();
    cRef<gDocUnit> const copy = placed_copy(*units[order[i].unit], state);
    bool const parent = i + 1 < order.size() && order[i + 1].depth > order[i].depth;
    if (parent && open < deepest) {
      open_block(copy, loc_);
      ++open;
    } else {
      gDocManager.add_unit(copy);
    }
  }
  for (; open > 0; --open)
    gDocManager.pop_unit();
}

void gOutFilterCmd::place(std::span<cRef<gDocUnit> const> units, cRef<gOutState> & state) {
  for (cRef<gDocUnit> const & unit : units)
    gDocManager.add_unit(placed_copy(*unit, state));
}

void gOutFilterCmd::place_by_files(gUnitRefs const & units, cRef<gOutState> & state) {
  std::vector<gUnitsOfFile> files = units_by_files(units);
  gPredicate const filter = std::exchange(
      state->attr_filter, {{"UNITTYPE", {{"text"}, true}}, {"KIND", {{"file"}, true}}});
  add_file_texts(selector_->select(*state), files);
  state->attr_filter = filter;
  std::size_t const common = common_folders(files);
  for (gUnitsOfFile & file : files) {
    open_block(file_unit(file, std::string_view(file.path).substr(common), loc_, state), loc_);
    for (gFilePart const & part : parts_of_file(file.units)) {
      if (!part.title.empty())
        open_block(plain_headline(part.title, loc_, state), loc_);
      place(part.units, state);
      if (!part.title.empty())
        gDocManager.pop_unit();
    }
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
