// The commands of the intermediate code.
#pragma once

#include <string_view>

#include "conv/atc/node.h"

enum class gAtcCommand : unsigned char {
  // Inline: formats with one to one node kinds, then the others
  format,
  tab,
  cref,
  bkmk,
  hidalias,
  xe,
  macro,
  note,
  formula,
  endl,
  // Text of a unit
  hdltoc,
  hdline,
  sline,
  subentry,
  subtitle,
  text,
  sub,
  subtoc,
  endp,
  end,
  b_ll,
  e_ll,
  b_verbatim,
  e_verbatim,
  b_list,
  e_list,
  item,
  b_quote,
  e_quote,
  rule,
  exact,
  b_table,
  e_table,
  row,
  cell,
  b_hierarchy,
  e_hierarchy,
  b_base,
  e_base,
  thisclass,
  b_child,
  e_child,
  hieraprop,
  // Frame of the files
  verinfo,
  outfile,
  b_wintype,
  wintype,
  e_wintype,
  b_atxfiles,
  atxfile,
  e_atxfiles,
  unitcount,
  incl_atx,
  e_atc,
  e_atx,
  b_section,
  b_secthead,
  headprint,
  footprint,
  e_secthead,
  unit,
  facts,
  signature,
  heading,
  friend_type,
  variant,
  topic,
  skipped,
  value,
};

struct gAtcCommandInfo {
  std::string_view name;
  gAtcCommand command;
  unsigned char least, most;        // parameters in angle brackets
  bool braces;                      // has a parameter in braces
  char ending;                      // the character that ends it and is no text; 0: none
  gNodeKind kind = gNodeKind::text; // of formats, tabs, notes and lists
};

namespace Atc {
// Null if there is no such command.
gAtcCommandInfo const * find_command(std::string_view name);

inline bool is_inline(gAtcCommand command) {
  return command <= gAtcCommand::endl;
}
} // namespace Atc
