// What the actions of the script's grammar do: templates, the commands of the document, the run.
#pragma once

#include <set>

#include "ana/cmdpar/gcmd.h"
#include "ana/cmdpar/gtextparsebase.h"
#include "ana/cmdpar/script_stages.h"
#include "ana/parser/script/mdf_scan.h"
#include "store/cmapobj.h"

class mdf_parse_base : public gTextParseBase {
public:
  using Value = mdf_value;

  // `stages` must outlive the parser.
  explicit mdf_parse_base(gScriptStages & stages);

  mdf_scan & scanner() override { return scanner_; }
  mdf_scan const & scanner() const override { return scanner_; }
  void reset() override;

protected:
  bool expands_words() const override { return true; }

  // The document.
  void run_stages();
  void finish_document(gParamList & params, gCmdSeq & commands);

  // Definitions: `kind` is "unittpl", "secttpl" or "table". Without a name a definition is read
  // and stored nowhere.
  void open_definition(char const * kind, gString const & name);
  void open_unit_template(gString const & name);
  void store(std::string_view key, cRef<cObj> const & value);
  void store_style(gParamList & params);

  // Items of unit templates. They answer the pieces that the item leaves in the template's body.
  gStrList template_headline(gStrList const & pieces);
  gStrList template_hierarchy(gParamList & params);
  gStrList subentry_place(gString const & subentry, gStrList const & title);
  void add_to_link_line(gStrList && pieces) { link_line_.append(std::move(pieces)); }
  void close_unit_template() { store("linkline", cat::make(link_line_)); }

  // Items of section templates.
  // `name`: "headprint" with `key` "head", or "footprint" with "foot".
  void print_text(gString const & name, std::string const & key, gParamList & params);
  void unit_templates(gParamList & params);
  void source_links(gParamList & params);

  // Tables.
  void define_columns(gParamList & params);
  void mark_lines(gString const & command, std::string_view key, gParamList & params);
  gStrList open_row();
  gStrList table_cell(gParamList & params);

  // Commands; null for one that is refused.
  void append_command(cRef<gCmdSeq> & commands, cRef<gCmd> const & command);
  cRef<gCmd> section(gParamList & params);
  cRef<gCmd> headline_level(gParamList & params);
  cRef<gCmd> filter(gParamList & params);
  cRef<gCmd> no_filter(gParamList & params);
  cRef<gCmd> filter_sort(gParamList & params);
  cRef<gCmd> path_filter(gParamList & params);
  cRef<gCmd> file_filter(gParamList & params, gLoc const & loc);
  cRef<gCmd> output_unit(gParamList & params, gLoc const & loc);
  cRef<gCmd> output_all(gLoc const & loc);
  cRef<gCmd> output_files(gLoc const & loc);
  cRef<gCmd> output_tree(gLoc const & loc);
  cRef<gCmd> output_headline(gParamList & params, gLoc const & loc);
  gLoc open_block();
  cRef<gCmd> class_block(gParamList & params, cRef<gCmdSeq> const & commands, gLoc const & loc);
  cRef<gCmd> class_filter_block(cRef<gCmdSeq> const & commands, gLoc const & loc);

private:
  gStrList printed_variables(gStrList const & pieces) const;

  gScriptStages & stages_;
  mdf_scan scanner_;
  cRef<cMapObj> definition_; // null while a definition is ignored
  gStrList link_line_;
  std::set<gString> outputs_;
  cRef<gUnitSelector> selector_;
  bool no_section_yet_ = true;
  int open_blocks_ = 0; // class blocks around the command being read
};
