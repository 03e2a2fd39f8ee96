#include "vlb/messages.h"

namespace Msg {

// Numbers fall into bands: 10 to 23 scanner, parser and file faults; 100 to 104 failure of a
// stage; 110 to 207 faults in the input; 301 to 342 documentation errors; 401 to 461 warnings;
// 500 to 509 intermediate code; 510 to 519 transformation scripts and references; from 520
// conversions.
gMessage const lexical_error(10, "Lexical error with character: ");
gMessage const syntax_error(11, "Syntax error with token: ");
gMessage const cannot_read(20, "Cannot read from file: ");
gMessage const cannot_write(21, "Cannot write to file: ");
gMessage const cannot_close(22, "Cannot close file: ");
gMessage const cannot_remove(23, "Cannot remove file: ");
gMessage const script_failed(100, "Error parsing the VLS file");
gMessage const text_units_failed(101, "Error analyzing the text units");
gMessage const preprocessing_failed(103, "Error preprocessing source files");
gMessage const code_failed(104, "Error analyzing program code");
gMessage const no_citation_open(110, "No source citation open");
gMessage const citation_unreadable(111, "Couldn't read source citation: ");
gMessage const comment_unreadable(112, "Couldn't read comment");
gMessage const empty_identifier(130, "Empty identifier");
gMessage const too_many_params(131, "Too many parameters");
gMessage const too_few_params(132, "Too few parameters");
gMessage const wrong_param_type(133, "Wrong parameter type: ");
gMessage const invalid_param(134, "Invalid parameter: ");
gMessage const invalid_option(135, "Invalid option: ");
gMessage const invalid_option_value(136, "Invalid option value: ");
gMessage const undefined_attribute(140, "Undefined attribute: ");
gMessage const undefined_attribute_value(141, "Undefined attribute value: ");
gMessage const invalid_target(160, "Invalid reference target: ");
gMessage const invalid_bookmark(161, "Invalid bookmark name: ");
gMessage const nested_cref(162, "@cref commands must not be nested.");
gMessage const undefined_table_template(170, "Undefined table template: ");
gMessage const missing_columns(171, "Missing column definition");
gMessage const invalid_column(172, "Invalid column definition: ");
gMessage const invalid_mark(173, "Invalid markup specification: ");
gMessage const too_many_cells(174, "Too many cells in table row");
gMessage const table_syntax_error(175, "Syntax error in table");
gMessage const undefined_section_template(184, "Undefined section template: ");
gMessage const undefined_unit_template(185, "Undefined unit template: ");
gMessage const invalid_font_size(190, "Invalid font size: ");
gMessage const invalid_tab_width(191, "Invalid tab width: ");
gMessage const invalid_headline_level(192, "Invalid headline level: ");
gMessage const illegal_headline_level(193, "Illegal headline level (1 <= n <= 6)");
gMessage const invalid_hierarchy_level(194, "Invalid class hierarchy level: ");
gMessage const illegal_in_subentry(200, "Illegal element in subentry");
gMessage const illegal_in_text_unit(201, "Illegal element in text unit");
gMessage const illegal_in_unit_template(202, "Illegal element in unit template");
gMessage const illegal_in_section_template(203, "Illegal element in section template");
gMessage const illegal_command(204, "Illegal command in output script");
gMessage const illegal_in_item(205, "Illegal element in enumeration item");
gMessage const illegal_in_code_text(206, "Illegal component in code text");
gMessage const illegal_in_text(207, "Illegal element in text parameter or subject line");
gMessage const unit_not_found(301, "Text unit not found: ");
gMessage const undefined_citation(310, "Undefined source citation: ");
gMessage const repeated_citation(311, "Repeatedly defined source citation: ");
gMessage const target_not_found(320, "Reference target not found: ");
gMessage const repeated_bookmark(321, "Repeatedly defined bookmark: ");
gMessage const empty_subentry(330, "Subentry is empty: ");
gMessage const subentry_not_permitted(331, "Subentry not permitted for this unit type: ");
gMessage const
    unittype_differs(340, "UNITTYPE of text unit differs from that of associated code element: ");
gMessage const
    virtuality_differs(341,
                       "VIRTUALITY of text unit differs from that of associated code element: ");
gMessage const
    visibility_differs(342,
                       "VISIBILITY of text unit differs from that of associated code element: ");
gMessage const citation_end_of_file(401, "Unexpected end of file in source citation: ");
gMessage const code_line_break(402, "Line break in code text (forgotten closing '´'?)");
gMessage const index_line_break(403, "Line break in index entry (forgotten closing '>'?)");
gMessage const not_a_unit_keyword(410, "@-identifier is not a text unit keyword: ");
gMessage const not_a_command(411, "@-identifier is not a command: ");
gMessage const unknown_identifier(412, "Unknown @-identifier: ");
gMessage const not_a_variable(413, "$-identifier is not a variable name: ");
gMessage const missing_identifier(420, "Missing identifier of text unit.");
gMessage const unparsed_identifier(421, "Identifier of text unit could not be parsed.");
gMessage const no_code_element(430, "There is no code element associated with this text unit: ");
gMessage const empty_filter(440, "Current filter is empty.");
gMessage const illegal_print_variable(450, "Illegal type of variable in head-/footprint: ");
gMessage const empty_curclass(451, "$curclass is empty.");
gMessage const empty_unit_variable(452, "Unit variable has empty value: ");
gMessage const no_hierarchy_for_unit(460, "No class hierarchy for this unit type: ");
gMessage const no_hierarchy_for_file(461, "No class hierarchy for this file type: ");
gMessage const atc_unknown_command(500, "Unknown command in the intermediate code: ");
gMessage const atc_misplaced(501, "Out of place in the intermediate code: ");
gMessage const atc_parameters(502, "Wrong parameters in the intermediate code: ");
gMessage const atc_unclosed(503, "Never closed in the intermediate code: ");
gMessage const atc_too_deep(504, "Nested too deeply in the intermediate code: ");
gMessage const atc_number(505, "Invalid number in the intermediate code: ");
gMessage const atc_text_outside(506, "Text outside of units in the intermediate code: ");
gMessage const atc_version(507, "Unknown version of the intermediate code: ");
gMessage const atc_truncated(508, "The intermediate code ends too early: ");
gMessage const atc_more_faults(509,
                               "More faults in this unit of the intermediate code are not shown.");
gMessage const vlt_syntax(510, "Syntax error in transformation script: ");
gMessage const vlt_unknown_rule(511, "Unknown rule: ");
gMessage const vlt_no_selector(512, "Rule can't be written for a single value: ");
gMessage const vlt_unknown_value(513, "Unknown value: ");
gMessage const vlt_value_elsewhere(514, "Value isn't available in this rule: ");
gMessage const vlt_open_condition(515, "Condition without $]: ");
gMessage const vlt_open_rule(516, "Rule without @end: ");
gMessage const vlt_include_cycle(517, "Transformation script includes itself: ");
gMessage const vlt_include_depth(518, "Too many nested or repeated includes: ");
gMessage const named_target_not_found(519, "Reference target not found: ");
gMessage const no_text_unit(520, "No text unit in the intermediate code: ");
gMessage const source_unreadable(530, "Source cannot be read, no links lead to it: ");
gMessage const source_changed(531, "Source has changed since the analysis, no links lead to it: ");
gMessage const no_rtf_template(540, "No RTF document template: ");
gMessage const no_such_style(541, "Style not found in the document template: ");
gMessage const no_map_name(542, "No name for the map file of help identifiers");
gMessage const unknown_placeholder(543, "Unknown placeholder in the help project: ");

// Without a number: information, progress, hints.
gMessage const redefining_option("Redefining option: ");
gMessage const undefined_file_group("Undefined file group: ");
gMessage const overwriting_headline("Overwriting the unit's headline.");
gMessage const overwriting_columns("Overwriting column definition of table template.");
gMessage const analyzing_script("Analyzing script file...");
gMessage const preprocessing("Preprocessing input files...");
gMessage const analyzing_input("Analyzing input files...");
gMessage const analyzing_text_units("Analyzing text units...");
gMessage const analyzing_code("Analyzing program code...");
gMessage const associating("Associating code elements and text units...");
gMessage const updating("Updating text units...");
gMessage const checking("Checking documentation...");
gMessage const compiling("Compiling documentation...");
gMessage const generating("Generating intermediate code...");
gMessage const deleting_temp("Deleting temporary files...");
gMessage const converting("Writing documentation: ");
gMessage const script_unreadable("Could not read Vellumar script: ");
gMessage const treating_as_unnamed("Treating text unit as unnamed.");
gMessage const aborting("Aborting analysis.");
gMessage const next_file("Continuing analysis with next file.");
gMessage const ignoring_command("Ignoring command.");
gMessage const ignoring_definition("Ignoring definition.");
gMessage const ignoring_cells("Ignoring surplus cells.");
gMessage const ignoring_table_template("Ignoring reference to table template.");
gMessage const expected_type("Expected type: ");
gMessage const adopting_code_value("Adopting the value of the code element: ");
gMessage const retaining_unit_value("Retaining the value of the text unit.");
gMessage const using_default_section("Using section template STPL_Default.");
gMessage const using_default_unit("Using unit template UTPL_Default.");
gMessage const not_utf8("Not UTF-8, read as Windows-1252: ");

} // namespace Msg
