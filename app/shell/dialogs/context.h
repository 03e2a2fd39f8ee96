// The numbers of dialogs and pages in the help map. The pages of the help name them, so a number
// never changes its meaning.
#pragma once

namespace gContext {

enum Number {
  none = 0,
  // Dialogs of a project.
  new_project = 100,
  output_folder = 101,
  input_files = 102,
  file_group = 103,
  title = 104,
  map_files = 105,
  // Small dialogs.
  name = 110,
  attribute = 111,
  attribute_value = 112,
  keyword = 113,
  about = 114,
  // Option dialogs and the pages of sheets.
  pre_cpp = 200,
  pre_pascal = 201,
  pre_macros = 202,
  analysis = 210,
  association_order = 220,
  association_options = 221,
  association_units = 222,
  pattern_definition = 230,
  pattern_properties = 231,
  pattern_subentries = 232,
  pattern_special = 233,
  out_html = 240,
  out_rtf = 241,
  out_help = 242,
  out_other = 243,
  messages = 250,
  general = 260,
  attributes = 270
};

} // namespace gContext
