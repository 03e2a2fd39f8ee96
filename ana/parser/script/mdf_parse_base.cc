// The document of a script: its stages, its commands, and the run at its end.
#include "ana/parser/script/mdf_parse_base.h"

#include "ana/anadat/tables.h"

mdf_parse_base::mdf_parse_base(gScriptStages & stages)
    : stages_(stages),
      scanner_(gScanBase::standard_size),
      selector_(make_ref<gUnitSelector>()) {}

void mdf_parse_base::reset() {
  gTextParseBase::reset();
  scanner_.reset();
  definition_ = nullptr;
  link_line_.clear();
  outputs_.clear();
  selector_ = make_ref<gUnitSelector>();
  no_section_yet_ = true;
  open_blocks_ = 0;
}

void mdf_parse_base::run_stages() {
  stages_.run();
  no_section_yet_ = true;
}

void mdf_parse_base::finish_document(gParamList & params, gCmdSeq & commands) {
  if (check_params("document", params))
    stages_.generate(commands, outputs_, params.option("output"));
  else
    stages_.refused();
}

// The section that a document without one begins with stands in front of a block, never inside it.
void mdf_parse_base::append_command(cRef<gCmdSeq> & commands, cRef<gCmd> const & command) {
  if (!commands)
    commands = make_ref<gCmdSeq>();
  if (open_blocks_ == 0 && std::exchange(no_section_yet_, false))
    commands->append(make_ref<gSectionCmd>(gString(), gString()));
  if (command)
    commands->append(command);
}

cRef<gCmd> mdf_parse_base::section(gParamList & params) {
  if (open_blocks_ > 0) {
    error(Msg::illegal_command);
    return nullptr;
  }
  if (!check_params("section", params))
    return nullptr;
  gString const output = params.option("output");
  if (!output.empty())
    outputs_.insert(output);
  gString section_template = params.option("template");
  if (!section_template.empty() && !gVLAttributes.has({"secttpl", section_template})) {
    error(Msg::undefined_section_template, section_template);
    error(Msg::using_default_section);
    section_template = "STPL_Default";
  }
  no_section_yet_ = false;
  return make_ref<gSectionCmd>(output, section_template);
}

cRef<gCmd> mdf_parse_base::headline_level(gParamList & params) {
  if (!check_params("hdlevel", params))
    return nullptr;
  gString const & text = params.word(0);
  int level;
  if (!read_int(text, level)) {
    error(Msg::invalid_headline_level, text);
    return nullptr;
  }
  if (level < 1 || level > 6) {
    error(Msg::illegal_headline_level, text);
    return nullptr;
  }
  return make_ref<gHdlLevelCmd>(level);
}

cRef<gCmd> mdf_parse_base::filter(gParamList & params) {
  if (!check_params("filter", params))
    return nullptr;
  return make_ref<gFilterCmd>(params.params[0].predicate);
}

cRef<gCmd> mdf_parse_base::no_filter(gParamList & params) {
  if (!check_params("nofilter", params))
    return nullptr;
  gString const & name = params.word(0);
  if (name != "all" && !check_attribute(name))
    return nullptr;
  return make_ref<gNoFilterCmd>(name);
}

cRef<gCmd> mdf_parse_base::filter_sort(gParamList & params) {
  if (!check_params("filtersort", params))
    return nullptr;
  gString const & word = params.word(0);
  constexpr std::pair<char const *, gSortMode> modes[] = {{"name", gSortMode::name},
                                                          {"ci_name", gSortMode::ci_name},
                                                          {"unit_loc", gSortMode::unit_loc},
                                                          {"ce_loc", gSortMode::ce_loc}};
  for (auto const & [name, mode] : modes)
    if (word == name)
      return make_ref<gFilterSortCmd>(mode);
  error(Msg::invalid_param, word);
  return nullptr;
}

cRef<gCmd> mdf_parse_base::path_filter(gParamList & params) {
  if (!check_params("pathfilter", params))
    return nullptr;
  return make_ref<gPathFilterCmd>(params.word(0), selector_);
}

cRef<gCmd> mdf_parse_base::file_filter(gParamList & params, gLoc const & loc) {
  if (!check_params("filefilter", params))
    return nullptr;
  return make_ref<gFileFilterCmd>(params.word(0), loc, selector_);
}

cRef<gCmd> mdf_parse_base::output_unit(gParamList & params, gLoc const & loc) {
  if (!check_params("outunit", params))
    return nullptr;
  return make_ref<gOutUnitCmd>(params.word(0), loc);
}

cRef<gCmd> mdf_parse_base::output_all(gLoc const & loc) {
  return make_ref<gOutFilterCmd>(gOutFilterCmd::flat, loc, selector_);
}

cRef<gCmd> mdf_parse_base::output_files(gLoc const & loc) {
  return make_ref<gOutFilterCmd>(gOutFilterCmd::by_files, loc, selector_);
}

cRef<gCmd> mdf_parse_base::output_tree(gLoc const & loc) {
  return make_ref<gOutFilterCmd>(gOutFilterCmd::as_tree, loc, selector_);
}

cRef<gCmd> mdf_parse_base::output_headline(gParamList & params, gLoc const & loc) {
  if (!check_params("hdline", params))
    return nullptr;
  gStrList const & text = params.pieces(0);
  return make_ref<gOutHdlCmd>(text, params.params.size() > 1 ? params.pieces(1) : text, loc);
}

gLoc mdf_parse_base::open_block() {
  ++open_blocks_;
  return cur_loc();
}

cRef<gCmd> mdf_parse_base::class_block(gParamList & params, cRef<gCmdSeq> const & commands,
                                       gLoc const & loc) {
  --open_blocks_;
  if (!check_params("b_outclass", params))
    return nullptr;
  return make_ref<gOutClassCmd>(params.word(0), commands, loc);
}

cRef<gCmd> mdf_parse_base::class_filter_block(cRef<gCmdSeq> const & commands, gLoc const & loc) {
  --open_blocks_;
  return make_ref<gOutClassFilterCmd>(commands, loc, selector_);
}
