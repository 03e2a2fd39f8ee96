// The options, a row each, in the order of a new project's tree. Use option_rows.h.
#pragma once

#include "app/options/option_row.h"

namespace Vapp {

constexpr gOptionRow flag(std::string_view path, bool standard, std::string_view label,
                          std::string_view help) {
  return {.path = path,
          .type = gOptionType::flag,
          .number = standard ? 1 : 0,
          .label = label,
          .help = help};
}

constexpr gOptionRow number(std::string_view path, int standard, gLimits limits,
                            std::string_view label, std::string_view help,
                            std::span<gChoice const> choices = {}) {
  return {.path = path,
          .type = gOptionType::number,
          .limits = limits,
          .number = standard,
          .choices = choices,
          .label = label,
          .help = help};
}

constexpr gOptionRow numbers(std::string_view path, std::span<int const> standard, gLimits limits,
                             std::string_view label, std::string_view help,
                             std::span<gChoice const> choices = {}) {
  return {.path = path,
          .type = gOptionType::numbers,
          .limits = limits,
          .numbers = standard,
          .choices = choices,
          .label = label,
          .help = help};
}

constexpr gOptionRow text(std::string_view path, std::string_view standard, std::string_view label,
                          std::string_view help, gTextRule rule = gTextRule::any) {
  return {.path = path,
          .type = gOptionType::text,
          .rule = rule,
          .text = standard,
          .label = label,
          .help = help};
}

constexpr gOptionRow choice(std::string_view path, std::span<gChoice const> choices,
                            std::string_view label, std::string_view help) {
  return {
      .path = path, .type = gOptionType::text, .choices = choices, .label = label, .help = help};
}

constexpr gOptionRow shipped(std::string_view path, std::string_view file, std::string_view label,
                             std::string_view help) {
  return {.path = path, .type = gOptionType::shipped, .text = file, .label = label, .help = help};
}

// The flag beside the path of a shipped file.
constexpr gOptionRow use_default(std::string_view path) {
  return flag(path, true, "Use default", "whether the file that comes with the program is used");
}

constexpr gOptionRow container(std::string_view path, gOptionType type, std::string_view label,
                               std::string_view help) {
  return {.path = path, .type = type, .label = label, .help = help};
}

constexpr gOptionRow from(gOptionOrigin origin, gOptionRow row) {
  row.origin = origin;
  return row;
}

constexpr gOptionRow setting(gOptionRow row) {
  row.tree = gOptionTree::settings;
  return row;
}

inline constexpr int search_order[] = {5, 6, 3, 4, 7, 8, 1, 2};
inline constexpr int search_ranks[] = {4, 4, 3, 3, 2, 1, 0, 0};

inline constexpr gChoice search_methods[] = {
    {"1", "Comment immediately BEFORE code element"},
    {"2", "Comment immediately AFTER code element"},
    {"3", "Unnamed text unit BEFORE code element"},
    {"4", "Unnamed text unit AFTER code element"},
    {"5", "Named text unit BEFORE code element"},
    {"6", "Named text unit AFTER code element"},
    {"7", "Text unit with fully qualified name in different file"},
    {"8", "Text unit with fully qualified name in different folder"},
};

// Each is a bit of the sum.
inline constexpr gChoice generated_types[] = {
    {"1", "class"},     {"2", "function"}, {"4", "member"}, {"8", "method"}, {"16", "event"},
    {"32", "property"}, {"64", "type"},    {"128", "var"},  {"256", "unit"},
};

inline constexpr gChoice report_levels[] = {
    {"0", "All Messages"}, {"1", "Informations"},         {"2", "State Messages"},
    {"4", "Warnings"},     {"6", "Documentation Errors"}, {"7", "Errors"},
};

inline constexpr gChoice dialects[] = {
    {"", "Classic"},
    {"classic", "Classic"},
    {"modern", "Modern"},
};

inline constexpr std::string_view line_label = "Remove if a line consists of these characters only";
inline constexpr std::string_view frame_label = "Remove at beginning and end of line";
inline constexpr std::string_view extension_label = "Associated file name extensions";
inline constexpr std::string_view split_label = "Page break before text units up to this level";
inline constexpr std::string_view separator_label =
    "Separator for primary and secondary entries in index";
inline constexpr std::string_view script_label = "Transformation script";
inline constexpr std::string_view out_dir_help = "output folder of the last conversion";
inline constexpr std::string_view script_in_use = "transformation script of the last conversion";
inline constexpr std::string_view style_in_use = "document template of the last conversion";
inline constexpr std::string_view window_help = "place of the window";

inline constexpr gOptionRow option_table[] = {
    text("inputcurdir", "", "Root folder", "folder that input paths are relative to"),
    container(
        "inputfiles", gOptionType::map, "Input Files",
        "file groups: `path` (folders, separated by `;`), `files` (names with `*` and `?`, "
        "separated by `;`), `outgrp` (name by which scripts select the group), `count` (files "
        "when last expanded)"),
    text("vls_file", "", "Script file", "the output script"),
    text("out_dir", "", "Root folder for output files", "the output folder"),
    text("indexsubst", "~", "Place holder in index", "place holder in the index"),
    container("cppmacros", gOptionType::map, "C/C++ Macros", "macros, below"),
    from(gOptionOrigin::user,
         text("atc_title", "", "Title of Documentation", "title of the documentation")),
    from(gOptionOrigin::run,
         text("atc_file", "", "", "intermediate file of the last run; set by the analysis")),
    from(gOptionOrigin::run, text("target", "", "", "target of the last conversion")),

    flag("ana/auto_enum", true, R"(Enumerated item by "- " at line beginning)",
         "`- ` at the head of a line begins an item"),
    flag("ana/auto_num", true, R"(Numbered item by "-. " at line beginning)",
         "`-. ` at the head of a line begins a numbered item"),
    flag("ana/start_on_par", true,
         "Recognize text unit keywords without '@' after an empty line, too",
         "keywords without `@` begin a unit behind an empty line, too"),
    number("ana/tab_width", 4, {1, 16}, "Number of spaces replacing a tabulator",
           "blanks that replace a tabulator"),
    number("ana/verb_indent", 4, {0, 32}, "Number of spaces for indentation of verbatim blocks",
           "blanks for the indentation of verbatim blocks"),
    text("ana/cpp_line", "/*-+=", line_label,
         "C/C++: comment lines of these characters only are removed", gTextRule::frame_characters),
    text("ana/cpp_frame", "/*|", frame_label,
         "C/C++: these characters are removed at both ends of a comment line",
         gTextRule::frame_characters),
    text("ana/cpp_ext", "c; cpp; cxx; h; hpp; hxx", extension_label,
         "extensions of C/C++ files. Files of other extensions are read as one comment",
         gTextRule::extensions),
    text("ana/pas_line", "*-+=", line_label,
         "Pascal: comment lines of these characters only are removed", gTextRule::frame_characters),
    text("ana/pas_frame", "/*|", frame_label,
         "Pascal: these characters are removed at both ends of a comment line",
         gTextRule::frame_characters),
    text("ana/pas_ext", "p; pas", extension_label, "extensions of Pascal files",
         gTextRule::extensions),
    flag("ana/spt_2star", false,
         "Recognize comments starting with /** or (** as source pattern 'spt_2star'",
         "comments that begin with `/**` (in Pascal `(**`) are units of the source pattern "
         "`spt_2star`"),
    flag("ana/spt_3slash", false,
         "Recognize comments starting with /// as source pattern 'spt_3slash'",
         "comments that begin with `///` are units of the source pattern `spt_3slash`"),
    from(gOptionOrigin::user,
         flag("ana/foreign_tags", false, "Comments for other documentation systems",
              "comments are written for other documentation systems or for none, see "
              "[quick.md](quick.md). Needs `ana/spt_2star` and the patterns and subentries of "
              "`ini/quick.vlp`")),
    from(gOptionOrigin::user,
         flag("ana/facts_line", false, "Facts about units in the intermediate code",
              "each unit of the intermediate code has a line that tells kind, whole name and the "
              "parts of the declaration, see [intermediate.md](intermediate.md). `build` and "
              "`quick` switch it on")),
    from(gOptionOrigin::user, choice("ana/dialect", dialects, "Dialect of the sources",
                                     "how sources are read. Empty is the same as `classic`")),
    from(gOptionOrigin::user,
         text("ana/example_path", "", "Folders of examples",
              "folders and files that `\\include`, `\\snippet` and the like may show, separated by "
              "`;`. Nothing else is read for them")),
    from(gOptionOrigin::user,
         text("ana/image_path", "", "Folders of pictures",
              "folders and files whose pictures comments may show, separated by `;`. Those that "
              "they name are copied beside the pages")),
    from(
        gOptionOrigin::user,
        text("ana/aliases", "", "Own commands",
             "commands of comments that stand for a text: `name=text`, or `name{2}=text` where "
             "`\\1` and `\\2` are arguments; with `;` between several, and `\\;` for a semicolon")),
    from(gOptionOrigin::user, text("ana/sections", "", "Sections that are shown",
                                   "names that `@if` and `@cond` take for set, separated by `;`")),
    from(gOptionOrigin::user, flag("ana/internal_docs", false, "Private text, too",
                                   "whether text behind `@internal` and the like is shown")),
    from(
        gOptionOrigin::user,
        text("ana/predefined", "", "Macros that are known",
             "macros that no source defines, or that stand for something else than it says: `NAME` "
             "or `NAME=text`, with `;` between several; in the modern dialect")),
    from(gOptionOrigin::completed, container("ana/srcpat_unit", gOptionType::map, "Source Patterns",
                                             "source patterns of text units, below")),
    from(gOptionOrigin::completed, container("ana/srcpat_subentry", gOptionType::map, "Subentries",
                                             "keywords of subentries, below")),

    numbers("ana/alloc/order", search_order, {1, 8}, "Search order per code element",
            "search methods in the order of trial, see [association.md](association.md)",
            search_methods),
    numbers("ana/alloc/prio", search_ranks, {0, 8}, "Rank",
            "rank of the method at the same place; 0 switches it off"),
    flag("ana/alloc/miss_warn", true, "emit warning message",
         "warn about a unit without a code element"),
    flag("ana/alloc/miss_output", true, "admit unit to the documentation nevertheless",
         "show a unit without a code element"),
    flag("ana/alloc/diffattr_code", true, "adopt value of code element",
         "adopt the code's value where attributes differ"),
    flag("ana/alloc/diffattr_err", true, "emit error message", "report attributes that differ"),
    number("ana/alloc/gen_unit", 11, {0, 511}, "Automatically generate text unit for unit types:",
           "unit types that get a text unit from code alone, as a sum", generated_types),
    flag("ana/alloc/gen_private", false, "also for privates", "also for private elements"),
    flag("ana/alloc/gen_static", false, "also for statics (var, function)",
         "also for static functions and variables"),
    flag("ana/alloc/gen_extern", false, "also for extern declarations (var)",
         "also for extern variables"),

    number("msg/err_max", 0, {0, INT_MAX}, "Maximum number of errors",
           "errors after which a run ends; 0 for no limit"),
    number("msg/lvl_disp", 0, {0, 7}, "Message window", "lowest severity for the display",
           report_levels),
    number("msg/lvl_file", 0, {0, 7}, "Log file", "lowest severity for the log", report_levels),
    text("msg/suppress", "", "Suppressed messages",
         "numbers of messages that are switched off, separated by commas",
         gTextRule::report_numbers),

    container("attr", gOptionType::map, "Attributes", "attributes and their values, below"),
    from(gOptionOrigin::completed,
         container("unitconfig", gOptionType::map, "Subentries",
                   "which subentries a type of unit has, and how each is filled, below")),

    text("rtf/indexsep", "\\:", separator_label, "separator of the levels of an index entry"),
    shipped("rtf/vlt", "rtf.vlt", script_label, "transformation script"),
    use_default("rtf/vlt_default"),
    shipped("rtf/style", "rtfstyle.rtf", "Document template", "document template"),
    use_default("rtf/style_default"),
    from(gOptionOrigin::run, text("rtf/out_dir", "", "", out_dir_help)),
    from(gOptionOrigin::run, text("rtf/cur_vlt", "", "", script_in_use)),
    from(gOptionOrigin::run, text("rtf/cur_style", "", "", style_in_use)),

    number("hlp/splitlevel", 2, {1, 9}, split_label, "page break before units up to this level"),
    flag("hlp/simpleindex", false, "References from index target beginning of page",
         "references from the index lead to the beginning of the page"),
    text("hlp/indexsep", ":", separator_label, "separator of the levels of an index entry"),
    flag("hlp/hieratounit", false, "Show class hierarchies in separate units",
         "class hierarchies in separate units"),
    shipped("hlp/vlt", "hlp.vlt", script_label, "transformation script"),
    use_default("hlp/vlt_default"),
    shipped("hlp/style", "hlpstyle.rtf", "Document template", "document template"),
    use_default("hlp/style_default"),
    shipped("hlp/hpj", "hlp.hpj", "Help project file", "help project file"),
    use_default("hlp/hpj_default"),
    flag("hlp/hm_create", false, "Automatically generate map file",
         "whether a help map file is written"),
    text("hlp/hm_newfile", "", "Name", "the help map file that is written"),
    number("hlp/hid_base", 0x80000, {0, INT_MAX}, "Base value for help identifiers",
           "base number of the help map"),
    container("hlp/hm_files", gOptionType::texts, "Include map files",
              "map files that are included"),
    from(gOptionOrigin::run, text("hlp/out_dir", "", "", out_dir_help)),
    from(gOptionOrigin::run, text("hlp/cur_vlt", "", "", script_in_use)),
    from(gOptionOrigin::run, text("hlp/cur_style", "", "", style_in_use)),
    from(gOptionOrigin::run,
         text("hlp/cur_hpj", "", "", "help project file of the last conversion")),

    number("htm/splitlevel", 2, {1, 9}, split_label, "page break before units up to this level"),
    shipped("htm/vlt", "htm.vlt", script_label, "transformation script"),
    use_default("htm/vlt_default"),
    shipped("htm/helpers_dir", "htm_helpers", "Directory of HTML auxiliary files",
            "folder of auxiliary files"),
    use_default("htm/helpers_dir_default"),
    from(gOptionOrigin::user, text("htm/start_text", "", "Text of the start page",
                                   "a text file in Markdown, such as a README, that the start page "
                                   "shows")),
    from(gOptionOrigin::user,
         text("htm/version", "", "Version", "version of what is documented, beside the title")),
    from(gOptionOrigin::user, text("htm/description", "", "Description",
                                   "one sentence about the whole, for search engines")),
    from(gOptionOrigin::user,
         text("htm/site_url", "", "Address of the site",
              "address at which the pages will stand, such as `https://example.org/api/`. With it "
              "they name their own address, and `sitemap.xml` and `404.html` are made")),
    from(
        gOptionOrigin::user,
        text("htm/repository", "", "",
             "address of a source where the project keeps it, with `$file`, `$line` and `$commit`, "
             "see [html.md](html.md)")),
    from(gOptionOrigin::user,
         text("htm/commit", "", "", "what `$commit` is; without it that of the working copy")),
    from(
        gOptionOrigin::user,
        text("htm/external", "", "",
             "documentation that links may lead to: `address, file`, with `;` between several, see "
             "[html.md](html.md)")),
    from(
        gOptionOrigin::user,
        text(
            "htm/addresses", "", "",
            "file that keeps where everything is, so that the next run leaves pages that lead on")),
    from(gOptionOrigin::user,
         text("htm/tagfile", "", "", "name of a tag file that the site gets, for Doxygen")),
    from(gOptionOrigin::user,
         flag("htm/inventory", false, "", "whether the site gets an `objects.inv`, for Sphinx")),
    from(gOptionOrigin::run, text("htm/out_dir", "", "", out_dir_help)),
    from(gOptionOrigin::run, text("htm/cur_vlt", "", "", script_in_use)),
    from(gOptionOrigin::run,
         text("htm/cur_helpers_dir", "", "", "auxiliary files of the last conversion")),

    setting(from(gOptionOrigin::run,
                 text("vlp_dir", "", "", "folder of the last project; else the program's folder"))),
    setting(from(gOptionOrigin::run, text("vlp_file", "", "", "path of the last project"))),
    setting(flag("vlp_last", true, "Reload last project at startup",
                 "reload the last project at the start")),
    setting(flag("warn_outdir", true, "Warn before overwriting output folder",
                 "ask before an output folder is emptied")),
    setting(flag("htmhelp", false, "Online-Help as HTML", "help as HTML")),
    setting(text("srclink_editor_cmd", "notepad.exe", "Program", "editor for links to sources")),
    setting(text("srclink_editor_args", "$file", "Arguments, use $file and $line as placeholder",
                 "the editor's arguments, with `$file` and `$line`")),
    setting(
        from(gOptionOrigin::user,
             text("srclink_editor_scheme", "", "Address of a source in the editor",
                  "address by which pages open a source in an editor, with `$file` and `$line`, "
                  "see [html.md](html.md)"))),
    setting(from(gOptionOrigin::user,
                 number("jobs", 0, {0, 256}, "", "threads of a run; 0: one for each core"))),
    setting(from(gOptionOrigin::run, number("wnd_left", -1, {INT_MIN, INT_MAX}, "", window_help))),
    setting(from(gOptionOrigin::run, number("wnd_top", -1, {INT_MIN, INT_MAX}, "", window_help))),
    setting(from(gOptionOrigin::run, number("wnd_right", -1, {INT_MIN, INT_MAX}, "", window_help))),
    setting(
        from(gOptionOrigin::run, number("wnd_bottom", -1, {INT_MIN, INT_MAX}, "", window_help))),
};

} // namespace Vapp
