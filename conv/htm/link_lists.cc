// Both lists know classes, namespaces and what is in them. A tag file has them in each other, so
// units are gathered by their scopes; what stands in none belongs to its source.

#include "conv/htm/link_lists.h"

#include <algorithm>

#include <zlib.h>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/set/enumerators.h"

namespace {

// What both lists call a kind; `role` is empty for what Sphinx knows nothing of.
struct gKindNames {
  std::string_view kind, compound, member, role;
};
constexpr gKindNames kind_names[] = {
    {"class", "class", "", "cpp:class"},
    {"struct", "struct", "", "cpp:class"},
    {"union", "union", "", "cpp:union"},
    {"namespace", "namespace", "", "cpp:type"},
    {"concept", "concept", "", "cpp:concept"},
    {"interface", "interface", "", "cpp:class"},
    {"record", "struct", "", "cpp:class"},
    {"object", "class", "", "cpp:class"},
    {"unit", "namespace", "", "cpp:type"},
    {"enum", "", "enumeration", "cpp:enum"},
    {"enum class", "", "enumeration", "cpp:enum"},
    {"enumeration", "", "enumeration", "cpp:enum"},
    {"enumerator", "", "enumvalue", "cpp:enumerator"},
    {"typedef", "", "typedef", "cpp:type"},
    {"alias", "", "typedef", "cpp:type"},
    {"alias template", "", "typedef", "cpp:type"},
    {"variable", "", "variable", "cpp:member"},
    {"constant", "", "variable", "cpp:member"},
    {"member", "", "variable", "cpp:member"},
    {"bit field", "", "variable", "cpp:member"},
    {"property", "", "property", "cpp:member"},
    {"macro", "", "define", "c:macro"},
    {"function macro", "", "define", "c:macro"},
    {"function", "", "function", "cpp:function"},
    {"procedure", "", "function", "cpp:function"},
    {"method", "", "function", "cpp:function"},
    {"class method", "", "function", "cpp:function"},
    {"constructor", "", "function", "cpp:function"},
    {"destructor", "", "function", "cpp:function"},
    {"operator", "", "function", "cpp:function"},
    {"conversion", "", "function", "cpp:function"},
    {"friend", "", "friend", "cpp:function"},
    {"signal", "", "signal", "cpp:function"},
    {"slot", "", "slot", "cpp:function"},
};

gKindNames const * names_of(gUnitRecord const & unit) {
  auto const * const found = std::ranges::find(kind_names, unit.facts.kind, &gKindNames::kind);
  return found == std::end(kind_names) ? nullptr : found;
}

bool is_listed(gSite const & site, int unit) {
  return site.pages.of(unit) >= 0 && !site.unit(unit).name.empty() && names_of(site.unit(unit));
}

class gTagText {
public:
  gTagText(gSite const & site, std::string & out) : site_(site), out_(out) {}

  void begin_compound(std::string_view kind, std::string_view name, std::string const & href) {
    out_ += "  <compound kind=\"" + std::string(kind) + "\">\n";
    add("    ", "name", name);
    add("    ", "filename", href.substr(0, href.find('#')));
    if (std::size_t const sign = href.find('#'); sign != href.npos)
      add("    ", "anchor", href.substr(sign + 1));
  }
  void end_compound() { out_ += "  </compound>\n"; }
  void add_member(int unit) {
    gUnitRecord const & record = site_.unit(unit);
    gKindNames const & names = *names_of(record);
    std::string const href = site_.addresses.href(unit);
    if (names.member.empty()) {
      std::string const name = Html::escaped(record.name);
      out_ += "    <class kind=\"" + std::string(names.compound) + "\">" + name + "</class>\n";
      return;
    }
    out_ += "    <member kind=\"" + std::string(names.member) + "\">\n";
    add("      ", "type",
        record.facts.size == record.declaration.size() ? record.facts.result.of(record.declaration)
                                                       : std::string_view());
    add("      ", "name", Atc::last_component(record));
    add_place(href);
    add("      ", "arglist",
        record.facts.size == record.declaration.size()
            ? record.facts.parameters.of(record.declaration)
            : std::string_view());
    for (gEnumerator const & value : Declaration::enumerators_of(record))
      out_ += "      <enumvalue file=\"" + Html::escaped(href.substr(0, href.find('#'))) +
              "\" anchor=\"" + anchor_of(href) + "\">" + Html::escaped(value.name) +
              "</enumvalue>\n";
    out_ += "    </member>\n";
  }

private:
  static std::string anchor_of(std::string const & href) {
    std::size_t const sign = href.find('#');
    return sign == href.npos ? std::string() : Html::escaped(href.substr(sign + 1));
  }
  void add_place(std::string const & href) {
    add("      ", "anchorfile", href.substr(0, href.find('#')));
    (((out_ += "      <anchor>") += anchor_of(href)) += "</anchor>\n");
  }
  void add(std::string_view indent, std::string_view tag, std::string_view text) {
    ((out_ += indent) += '<') += tag;
    out_ += '>';
    for (char const c : Html::escaped(text))
      out_ += static_cast<unsigned char>(c) < 32 ? ' ' : c;
    ((out_ += "</") += tag) += ">\n";
  }

  gSite const & site_;
  std::string & out_;
};

using gGroups = std::map<std::string, std::vector<int>>;

void add_groups(gGroups const & groups, std::string_view kind, gSite const & site,
                gTagText & text) {
  for (auto const & [name, members] : groups) {
    std::string const href = site.addresses.href(members.front());
    text.begin_compound(kind, name, href.substr(0, href.find('#')));
    for (int const member : members)
      text.add_member(member);
    text.end_compound();
  }
}

std::string packed(std::string const & text) {
  uLongf size = compressBound(static_cast<uLong>(text.size()));
  std::string out(size, '\0');
  compress2(reinterpret_cast<Bytef *>(out.data()), &size,
            reinterpret_cast<Bytef const *>(text.data()), static_cast<uLong>(text.size()),
            Z_BEST_COMPRESSION);
  out.resize(size);
  return out;
}

// A line feed would end an entry, and so would it a line of the head.
std::string on_one_line(std::string text) {
  for (char & c : text)
    if (static_cast<unsigned char>(c) < 32)
      c = ' ';
  return text;
}

} // namespace

void LinkLists::write_tags(gConversion & conversion, gSite const & site, std::string const & name) {
  auto const count = static_cast<int>(site.document.units.size());
  gGroups by_scope, by_source;
  for (int unit = 0; unit < count; ++unit)
    if (is_listed(site, unit)) {
      std::string scope(Atc::scope_of(site.unit(unit)));
      if (!scope.empty())
        by_scope[scope].push_back(unit);
      else if (!names_of(site.unit(unit))->member.empty())
        by_source[std::string(site.sources.shown(site.unit(unit).path))].push_back(unit);
    }
  std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n<tagfile>\n";
  gTagText text(site, out);
  for (int unit = 0; unit < count; ++unit) {
    if (!is_listed(site, unit) || !names_of(site.unit(unit))->member.empty())
      continue;
    text.begin_compound(names_of(site.unit(unit))->compound, site.unit(unit).name,
                        site.addresses.href(unit));
    // The first of several with one name has the members.
    if (auto const found = by_scope.find(site.unit(unit).name); found != by_scope.end()) {
      for (int const member : found->second)
        text.add_member(member);
      by_scope.erase(found);
    }
    text.end_compound();
  }
  add_groups(by_scope, "namespace", site, text);
  add_groups(by_source, "file", site, text);
  conversion.write(name, out + "</tagfile>\n");
}

void LinkLists::write_inventory(gConversion & conversion, gSite const & site) {
  std::set<std::pair<std::string, std::string_view>> known; // overloads lead to the first
  std::string lines;
  auto const add = [&](std::string const & name, std::string_view role, std::string const & href) {
    if (known.emplace(name, role).second)
      lines += name + ' ' + std::string(role) + " 1 " + href + " -\n";
  };
  for (int unit = 0; unit < static_cast<int>(site.document.units.size()); ++unit) {
    if (!is_listed(site, unit))
      continue;
    gUnitRecord const & record = site.unit(unit);
    std::string const name = on_one_line(record.name), href = site.addresses.href(unit);
    add(name, names_of(record)->role, href);
    for (gEnumerator const & value : Declaration::enumerators_of(record))
      add(name + "::" + value.name, "cpp:enumerator", href);
  }
  conversion.write("objects.inv",
                   "# Sphinx inventory version 2\n# Project: " + on_one_line(site.title) +
                       "\n# Version: \n# The remainder of this file is compressed "
                       "using zlib.\n" +
                       packed(lines));
}
