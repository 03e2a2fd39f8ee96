// The catalogue of all reports, one a line; definitions in messages.cc.
#pragma once

#include "vlb/gmessage.h"

namespace Msg {

extern gMessage const lexical_error;               // 10
extern gMessage const syntax_error;                // 11
extern gMessage const cannot_read;                 // 20
extern gMessage const cannot_write;                // 21
extern gMessage const cannot_close;                // 22
extern gMessage const cannot_remove;               // 23
extern gMessage const script_failed;               // 100
extern gMessage const text_units_failed;           // 101
extern gMessage const preprocessing_failed;        // 103
extern gMessage const code_failed;                 // 104
extern gMessage const no_citation_open;            // 110
extern gMessage const citation_unreadable;         // 111
extern gMessage const comment_unreadable;          // 112
extern gMessage const empty_identifier;            // 130
extern gMessage const too_many_params;             // 131
extern gMessage const too_few_params;              // 132
extern gMessage const wrong_param_type;            // 133
extern gMessage const invalid_param;               // 134
extern gMessage const invalid_option;              // 135
extern gMessage const invalid_option_value;        // 136
extern gMessage const undefined_attribute;         // 140
extern gMessage const undefined_attribute_value;   // 141
extern gMessage const invalid_target;              // 160
extern gMessage const invalid_bookmark;            // 161
extern gMessage const nested_cref;                 // 162
extern gMessage const undefined_table_template;    // 170
extern gMessage const missing_columns;             // 171
extern gMessage const invalid_column;              // 172
extern gMessage const invalid_mark;                // 173
extern gMessage const too_many_cells;              // 174
extern gMessage const table_syntax_error;          // 175
extern gMessage const undefined_section_template;  // 184
extern gMessage const undefined_unit_template;     // 185
extern gMessage const invalid_font_size;           // 190
extern gMessage const invalid_tab_width;           // 191
extern gMessage const invalid_headline_level;      // 192
extern gMessage const illegal_headline_level;      // 193
extern gMessage const invalid_hierarchy_level;     // 194
extern gMessage const illegal_in_subentry;         // 200
extern gMessage const illegal_in_text_unit;        // 201
extern gMessage const illegal_in_unit_template;    // 202
extern gMessage const illegal_in_section_template; // 203
extern gMessage const illegal_command;             // 204
extern gMessage const illegal_in_item;             // 205
extern gMessage const illegal_in_code_text;        // 206
extern gMessage const illegal_in_text;             // 207
extern gMessage const unit_not_found;              // 301
extern gMessage const undefined_citation;          // 310
extern gMessage const repeated_citation;           // 311
extern gMessage const target_not_found;            // 320
extern gMessage const repeated_bookmark;           // 321
extern gMessage const empty_subentry;              // 330
extern gMessage const subentry_not_permitted;      // 331
extern gMessage const unittype_differs;            // 340
extern gMessage const virtuality_differs;          // 341
extern gMessage const visibility_differs;          // 342
extern gMessage const citation_end_of_file;        // 401
extern gMessage const code_line_break;             // 402
extern gMessage const index_line_break;            // 403
extern gMessage const not_a_unit_keyword;          // 410
extern gMessage const not_a_command;               // 411
extern gMessage const unknown_identifier;          // 412
extern gMessage const not_a_variable;              // 413
extern gMessage const missing_identifier;          // 420
extern gMessage const unparsed_identifier;         // 421
extern gMessage const no_code_element;             // 430
extern gMessage const empty_filter;                // 440
extern gMessage const illegal_print_variable;      // 450
extern gMessage const empty_curclass;              // 451
extern gMessage const empty_unit_variable;         // 452
extern gMessage const no_hierarchy_for_unit;       // 460
extern gMessage const no_hierarchy_for_file;       // 461
extern gMessage const atc_unknown_command;         // 500
extern gMessage const atc_misplaced;               // 501
extern gMessage const atc_parameters;              // 502
extern gMessage const atc_unclosed;                // 503
extern gMessage const atc_too_deep;                // 504
extern gMessage const atc_number;                  // 505
extern gMessage const atc_text_outside;            // 506
extern gMessage const atc_version;                 // 507
extern gMessage const atc_truncated;               // 508
extern gMessage const atc_more_faults;             // 509
extern gMessage const vlt_syntax;                  // 510
extern gMessage const vlt_unknown_rule;            // 511
extern gMessage const vlt_no_selector;             // 512
extern gMessage const vlt_unknown_value;           // 513
extern gMessage const vlt_value_elsewhere;         // 514
extern gMessage const vlt_open_condition;          // 515
extern gMessage const vlt_open_rule;               // 516
extern gMessage const vlt_include_cycle;           // 517
extern gMessage const vlt_include_depth;           // 518
extern gMessage const named_target_not_found;      // 519
extern gMessage const no_text_unit;                // 520
extern gMessage const source_unreadable;           // 530
extern gMessage const source_changed;              // 531
extern gMessage const no_rtf_template;             // 540
extern gMessage const no_such_style;               // 541
extern gMessage const no_map_name;                 // 542
extern gMessage const unknown_placeholder;         // 543

// Without a number: information, progress, hints.
extern gMessage const redefining_option;
extern gMessage const undefined_file_group;
extern gMessage const overwriting_headline;
extern gMessage const overwriting_columns;
extern gMessage const analyzing_script;
extern gMessage const preprocessing;
extern gMessage const analyzing_input;
extern gMessage const analyzing_text_units;
extern gMessage const analyzing_code;
extern gMessage const associating;
extern gMessage const updating;
extern gMessage const checking;
extern gMessage const compiling;
extern gMessage const generating;
extern gMessage const deleting_temp;
extern gMessage const converting;
extern gMessage const script_unreadable;
extern gMessage const treating_as_unnamed;
extern gMessage const aborting;
extern gMessage const next_file;
extern gMessage const ignoring_command;
extern gMessage const ignoring_definition;
extern gMessage const ignoring_cells;
extern gMessage const ignoring_table_template;
extern gMessage const expected_type;
extern gMessage const adopting_code_value;
extern gMessage const retaining_unit_value;
extern gMessage const using_default_section;
extern gMessage const using_default_unit;
extern gMessage const not_utf8;

} // namespace Msg
