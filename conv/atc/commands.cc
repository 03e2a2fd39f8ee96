// A sorted table; the order is tested at compile time.
#include "conv/atc/commands.h"

#include <algorithm>
#include <array>

namespace {

using C = gAtcCommand;
using K = gNodeKind;

constexpr gAtcCommandInfo commands[] = {
    {"_facts", C::facts, 10, 10, false, '\n'},
    {"_friend", C::friend_type, 1, 1, false, '\n'},
    {"_heading", C::heading, 1, 1, false, '\n'},
    {"_signature", C::signature, 1, 1, false, '\n'},
    {"_skipped", C::skipped, 5, 5, false, '\n'},
    {"_topic", C::topic, 1, 1, false, '\n'},
    {"_value", C::value, 3, 3, false, '\n'},
    {"_variant", C::variant, 2, 2, false, '\n'},
    {"atxfile", C::atxfile, 1, 1, false, '\n'},
    {"b", C::format, 0, 0, true, ' ', K::bold},
    {"b_atxfiles", C::b_atxfiles, 0, 0, false, '\n'},
    {"b_base", C::b_base, 0, 0, false, '\n'},
    {"b_child", C::b_child, 0, 0, false, '\n'},
    {"b_enum", C::b_list, 1, 1, false, '\n', K::enumeration},
    {"b_hierarchy", C::b_hierarchy, 0, 0, false, '\n'},
    {"b_ll", C::b_ll, 0, 0, false, '\n'},
    {"b_numbering", C::b_list, 1, 1, false, '\n', K::numbering},
    {"b_quote", C::b_quote, 0, 0, false, '\n', K::quote},
    {"b_secthead", C::b_secthead, 0, 0, false, '\n'},
    {"b_section", C::b_section, 1, 1, false, '\n'},
    {"b_table", C::b_table, 4, 4, false, '\n', K::table},
    {"b_verbatim", C::b_verbatim, 0, 1, false, '\n'},
    {"b_wintype", C::b_wintype, 0, 0, false, '\n'},
    {"bkmk", C::bkmk, 1, 2, false, ' ', K::bookmark},
    {"cell", C::cell, 0, 0, false, ' '},
    {"code", C::format, 0, 0, true, ' ', K::code},
    {"cref", C::cref, 1, 4, true, ' ', K::reference},
    {"ctab", C::tab, 1, 1, false, ' ', K::centre_tab},
    {"dfn", C::format, 0, 0, true, ' ', K::dfn},
    {"e_atc", C::e_atc, 0, 0, false, '\n'},
    {"e_atx", C::e_atx, 0, 0, false, '\n'},
    {"e_atxfiles", C::e_atxfiles, 0, 0, false, '\n'},
    {"e_base", C::e_base, 0, 0, false, '\n'},
    {"e_child", C::e_child, 0, 0, false, '\n'},
    {"e_enum", C::e_list, 0, 0, false, '\n', K::enumeration},
    {"e_hierarchy", C::e_hierarchy, 0, 0, false, '\n'},
    {"e_ll", C::e_ll, 0, 0, false, '\n'},
    {"e_numbering", C::e_list, 0, 0, false, '\n', K::numbering},
    {"e_quote", C::e_quote, 0, 0, false, '\n'},
    {"e_secthead", C::e_secthead, 0, 0, false, '\n'},
    {"e_table", C::e_table, 0, 0, false, '\n'},
    {"e_verbatim", C::e_verbatim, 0, 0, false, '\n'},
    {"e_wintype", C::e_wintype, 0, 0, false, '\n'},
    {"em", C::format, 0, 0, true, ' ', K::em},
    {"end", C::end, 0, 0, false, '\n'},
    {"endl", C::endl, 0, 0, false, '\n', K::line_break},
    {"endnote", C::note, 0, 0, true, '\n', K::endnote},
    {"endp", C::endp, 0, 0, false, '\n'},
    {"enum", C::item, 0, 0, false, ' ', K::enumeration},
    {"exact", C::exact, 0, 0, false, '\n'},
    {"fmt", C::format, 1, 1, true, ' ', K::format},
    {"fontsize", C::format, 1, 1, true, ' ', K::font_size},
    {"footnote", C::note, 0, 0, true, '\n', K::footnote},
    {"footprint", C::footprint, 1, 1, true, '\n'},
    {"formula", C::formula, 2, 2, false, ' ', K::formula},
    {"hdline", C::hdline, 0, 0, true, '\n'},
    {"hdltoc", C::hdltoc, 0, 0, true, '\n'},
    {"headprint", C::headprint, 1, 1, true, '\n'},
    {"hidalias", C::hidalias, 1, 1, false, ' ', K::hid_alias},
    {"hieraprop", C::hieraprop, 3, 3, true, '\n'},
    {"href", C::format, 1, 1, true, ' ', K::web_link},
    {"i", C::format, 0, 0, true, ' ', K::italic},
    {"image", C::format, 1, 1, true, ' ', K::image},
    {"incl_atx", C::incl_atx, 1, 1, false, '\n'},
    {"kbd", C::format, 0, 0, true, ' ', K::kbd},
    {"ltab", C::tab, 1, 1, false, ' ', K::left_tab},
    {"macro", C::macro, 1, 3, true, ' ', K::macro},
    {"marnote", C::note, 0, 0, true, '\n', K::margin_note},
    {"numbering", C::item, 0, 0, false, ' ', K::numbering},
    {"outfile", C::outfile, 1, 1, false, '\n'},
    {"picture", C::format, 3, 3, true, ' ', K::picture},
    {"plain", C::format, 0, 0, true, ' ', K::plain},
    {"row", C::row, 0, 0, false, ' '},
    {"rtab", C::tab, 1, 1, false, ' ', K::right_tab},
    {"rule", C::rule, 0, 0, false, '\n', K::rule},
    {"sline", C::sline, 0, 0, true, '\n'},
    {"sub", C::sub, 1, 1, true, '\n', K::headline},
    {"subentry", C::subentry, 1, 1, false, ' ', K::subentry},
    {"subtitle", C::subtitle, 0, 0, true, '\n', K::subtitle},
    {"subtoc", C::subtoc, 1, 1, true, '\n'},
    {"text", C::text, 0, 0, false, '\n'},
    {"thisclass", C::thisclass, 0, 0, false, '\n'},
    {"tt", C::format, 0, 0, true, ' ', K::tt},
    {"ul", C::format, 1, 1, true, ' ', K::underline},
    {"unit", C::unit, 7, 7, false, '\n'},
    {"unitcount", C::unitcount, 1, 1, false, '\n'},
    {"verinfo", C::verinfo, 1, 1, false, '\n'},
    {"wintype", C::wintype, 2, 2, false, '\n'},
    {"xe", C::xe, 6, 6, false, ' ', K::index_entry},
};

constexpr bool below(gAtcCommandInfo const & a, gAtcCommandInfo const & b) {
  return a.name < b.name;
}
static_assert(std::is_sorted(std::begin(commands), std::end(commands), below));

} // namespace

namespace Atc {

gAtcCommandInfo const * find_command(std::string_view name) {
  auto const * at = std::lower_bound(
      std::begin(commands), std::end(commands), name,
      [](gAtcCommandInfo const & one, std::string_view wanted) { return one.name < wanted; });
  return at != std::end(commands) && at->name == name ? at : nullptr;
}

} // namespace Atc
