// The rules with the values that their templates may show, in the order of the enumeration.

#include "conv/vlt/vocabulary.h"

#include <algorithm>
#include <array>

namespace {

using enum gVltValue;
using Values = std::span<gVltValue const>;

constexpr std::string_view value_names[] = {
    "text",          "title",      "items",      "name",
    "style",         "href",       "target",     "id",
    "aliases",       "path",       "line",       "editor",
    "level",         "number",     "count",      "width",
    "columns",       "mark",       "current",    "open",
    "member",        "named",      "virtual",    "access",
    "label",         "kind",       "kind_class", "subject",
    "links",         "body",       "notes",      "overview",
    "summary",       "signature",  "relations",  "scope",
    "source",        "include",    "condition",  "deprecated",
    "since",         "x",          "y",          "height",
    "to_x",          "to_y",       "middle",     "drawing",
    "doc_title",     "page_title", "root",       "crumbs",
    "contents",      "on_page",    "previous",   "previous_title",
    "next",          "next_title", "content",    "head_left",
    "head_right",    "foot_left",  "foot_right", "version",
    "address",       "share",      "key",        "second_key",
    "before",        "between",    "after",      "context",
    "keywords",      "browse",     "wintype",    "repository",
    "template_head", "class_tree"};
static_assert(std::size(value_names) == vlt_value_count);

constexpr gVltValue inline_values[] = {text, name, style, width};
constexpr gVltValue formula_values[] = {text, name, mark};
constexpr gVltValue picture_values[] = {text, href, name, width};
constexpr gVltValue tab_values[] = {width};
constexpr gVltValue reference_values[] = {text, href, target, kind, wintype, context};
constexpr gVltValue anchor_values[] = {id};
constexpr gVltValue entry_values[] = {id, key, second_key, before, between, after, text};
constexpr gVltValue macro_values[] = {text, name};
constexpr gVltValue source_values[] = {text, href, editor, path, line};
constexpr gVltValue note_values[] = {text, number, id, href};
constexpr gVltValue no_values[] = {text};
constexpr gVltValue block_values[] = {text, id, level, title, name, kind_class, items, width};
constexpr gVltValue list_values[] = {items, style, level};
constexpr gVltValue item_values[] = {text, items, number, style, level, width};
constexpr gVltValue table_values[] = {items, style, columns, count};
constexpr gVltValue row_values[] = {items, mark, number, columns, count};
constexpr gVltValue cell_values[] = {text, mark, width, number, count};
constexpr gVltValue step_values[] = {
    text, href, level, access, gVltValue::is_virtual, label, target, context, number, items, width};
constexpr gVltValue drawing_values[] = {x,
                                        y,
                                        width,
                                        height,
                                        to_x,
                                        to_y,
                                        middle,
                                        id,
                                        title,
                                        links,
                                        items,
                                        count,
                                        text,
                                        name,
                                        href,
                                        access,
                                        gVltValue::is_virtual};
constexpr gVltValue hierarchy_values[] = {
    items, href, number, count, drawing, mark, text, context, gVltValue::class_tree};
constexpr gVltValue unit_values[] = {
    relations,  include, condition, deprecated, since,   id,    aliases, level,     kind,
    kind_class, style,   name,      title,      subject, links, body,    notes,     overview,
    source,     member,  path,      line,       href,    scope, summary, editor,    wintype,
    number,     context, keywords,  browse,     content, named, target,  repository};
constexpr gVltValue page_values[] = {
    doc_title,  page_title,     root,       crumbs,     contents, on_page,
    previous,   previous_title, next,       next_title, content,  head_left,
    head_right, foot_left,      foot_right, title,      kind,     kind_class,
    id,         style,          number,     count,      text,     items,
    name,       path,           href,       columns,    mark,     subject,
    version,    address,        share,      summary,    body,     gVltValue::class_tree};
constexpr gVltValue place_values[] = {
    href,    title, text,   items,     kind,   kind_class, level,   current,      open,    count,
    summary, scope, number, id,        path,   line,       name,    source,       context, target,
    member,  mark,  named,  signature, access, deprecated, aliases, template_head};
constexpr gVltValue index_values[] = {id,     title,   items, key,   second_key,
                                      before, between, after, href,  number,
                                      text,   target,  kind,  count, mark};

struct Row {
  std::string_view name;
  bool selectable;
  Values values;
};

// In the order of gVltRule.
constexpr Row rows[] = {
    {"em", false, inline_values},
    {"kbd", false, inline_values},
    {"b", false, inline_values},
    {"i", false, inline_values},
    {"tt", false, inline_values},
    {"plain", false, inline_values},
    {"dfn", false, inline_values},
    {"code", false, inline_values},
    {"ul", true, inline_values},
    {"fontsize", true, inline_values},
    {"fmt", true, inline_values},
    {"ltab", false, tab_values},
    {"ctab", false, tab_values},
    {"rtab", false, tab_values},
    {"cref", true, reference_values},
    {"noref", false, reference_values},
    {"bkmk", false, anchor_values},
    {"hid", false, anchor_values},
    {"hidalias", false, anchor_values},
    {"xe", false, entry_values},
    {"macro", true, macro_values},
    {"srclink", false, source_values},
    {"marnote", false, note_values},
    {"footnote", false, note_values},
    {"endnote", false, note_values},
    {"endl", false, no_values},
    {"weblink", false, reference_values},
    {"image", false, reference_values},
    {"picture", true, picture_values},
    {"formula", true, formula_values},
    {"p", true, block_values},
    {"sub", true, block_values},
    {"subentry", true, block_values},
    {"subtitle", false, block_values},
    {"linkline", false, block_values},
    {"link", false, block_values},
    {"verbatim", false, block_values},
    {"quote", false, block_values},
    {"rule", false, no_values},
    {"declaration", false, block_values},
    {"cut", false, place_values},
    {"enum", true, list_values},
    {"item", true, item_values},
    {"numbering", true, list_values},
    {"step_item", true, item_values},
    {"table", true, table_values},
    {"row", true, row_values},
    {"cell", true, cell_values},
    {"hierarchy", false, hierarchy_values},
    {"hierarchy_page", false, page_values},
    {"drawing", false, drawing_values},
    {"drawn_line", false, drawing_values},
    {"drawn_box", true, drawing_values},
    {"step", true, step_values},
    {"notes", false, list_values},
    {"note", true, note_values},
    {"unit", true, unit_values},
    {"include", true, place_values},
    {"kind", true, inline_values},
    {"kinds", true, place_values},
    {"group", true, place_values},
    {"overview", true, place_values},
    {"overview_item", true, place_values},
    {"inherited", false, place_values},
    {"relation", true, place_values},
    {"relation_item", true, place_values},
    {"borrowed", false, place_values},
    {"page", false, page_values},
    {"crumb", false, place_values},
    {"crumb_here", false, place_values},
    {"tree", false, place_values},
    {"tree_item", true, place_values},
    {"tree_more", false, place_values},
    {"toc", false, place_values},
    {"toc_item", true, place_values},
    {"start_page", false, page_values},
    {"chapter", false, place_values},
    {"contents_page", false, page_values},
    {"index_page", false, index_values},
    {"index_link", false, place_values},
    {"index_letter", false, index_values},
    {"index_key", false, index_values},
    {"index_second", false, index_values},
    {"index_place", false, index_values},
    {"index_more", false, index_values},
    {"source_page", false, page_values},
    {"source_line", false, place_values},
    {"colour", true, inline_values},
    {"name_link", false, reference_values},
    {"own_name", false, place_values},
    {"sitemap", false, page_values},
    {"sitemap_item", false, place_values},
    {"class_page", false, page_values},
    {"class_item", false, place_values},
    {"lost_page", false, page_values},
    {"part_page", false, page_values},
    {"similar_page", false, page_values},
    {"similar_item", false, place_values},
    {"moved_page", false, page_values},
    {"skipped_page", false, page_values},
    {"skipped_item", false, place_values},
    {"skipped_note", false, place_values},
    {"document", false, page_values},
    {"section", true, page_values},
    {"document_contents", false, place_values},
    {"contents_item", true, place_values},
    {"document_index", false, index_values},
    {"topic", true, unit_values},
    {"popup", false, unit_values},
    {"project_line", true, place_values},
    {"map_line", false, place_values},
};
static_assert(std::size(rows) == vlt_rule_count);

std::array<Vlt::gRuleInfo, vlt_rule_count> make_infos() {
  std::array<Vlt::gRuleInfo, vlt_rule_count> infos{};
  for (std::size_t i = 0; i < vlt_rule_count; ++i)
    infos[i] = {static_cast<gVltRule>(i), rows[i].name, rows[i].selectable, rows[i].values};
  return infos;
}

} // namespace

Vlt::gRuleInfo const & Vlt::info(gVltRule rule) {
  static auto const infos = make_infos();
  return infos[static_cast<std::size_t>(rule)];
}

std::optional<gVltRule> Vlt::rule_named(std::string_view name) {
  auto const row = std::ranges::find(rows, name, &Row::name);
  if (row == std::end(rows))
    return std::nullopt;
  return static_cast<gVltRule>(row - rows);
}

std::string_view Vlt::name_of(gVltValue value) {
  return value_names[static_cast<std::size_t>(value)];
}

std::optional<gVltValue> Vlt::value_named(std::string_view name) {
  auto const found = std::ranges::find(value_names, name);
  if (found == std::end(value_names))
    return std::nullopt;
  return static_cast<gVltValue>(found - value_names);
}
