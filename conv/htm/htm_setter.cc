// What HTML does in its own way: anchors that stay and are unique on their page, links between
// pages, notes at the end of their unit, and coloured program text.

#include "conv/htm/htm_setter.h"

#include <algorithm>
#include <charconv>

#include "conv/atc/qualified_name.h"
#include "conv/htm/html_text.h"
#include "conv/htm/pictures.h"
#include "conv/htm/slug.h"
#include "conv/set/block_text.h"
#include "conv/set/declaration.h"

namespace {

// Program text has lines that end as statements do; other verbatim text stays without colours.
bool looks_like_code(std::string_view text) {
  for (std::string_view const end : {";\n", "{\n", "}\n", "*/\n"})
    if (text.find(end) != std::string_view::npos)
      return true;
  return text.ends_with(';') || text.ends_with('}') || text.starts_with("#include");
}

void replace_all(std::string & text, std::string_view what, std::string_view by) {
  for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
    text.replace(at, what.size(), by);
}

// A path or number as part of a URL.
std::string url_escaped(std::string_view text) {
  static constexpr char digits[] = "0123456789ABCDEF";
  std::string out;
  for (char const c : text)
    if (Vlb::is_word(c) || c == '/' || c == '.' || c == '-' || c == '~' || c == ':') {
      out += c;
    } else {
      auto const byte = static_cast<unsigned char>(c);
      ((out += '%') += digits[byte >> 4]) += digits[byte & 15];
    }
  return out;
}

} // namespace

gHtmSetter::gHtmSetter(gSite & site, gColours const & colours)
    : gSetter(site.document, site.rules),
      site_(site),
      colours_(colours) {
  editor_ = site.editor_scheme;
}

void gHtmSetter::begin_page(int page) {
  page_ = page;
  part_ = nullptr;
  taken_.clear();
  notes_done_ = 0;
}

void gHtmSetter::begin_unit(int unit, int level) {
  set_unit(unit);
  unit_level_ = level;
  headline_level_ = 0;
  notes_.clear();
  headlines_.clear();
  made_.clear();
}

std::string gHtmSetter::take_notes() {
  std::string out;
  if (!notes_.empty())
    rules().apply(gVltRule::notes, gVltValues().set(gVltValue::items, notes_), out);
  notes_.clear();
  return out;
}

void gHtmSetter::escape(std::string_view text, std::string & out) const {
  Html::escape(text, out);
}

std::string gHtmSetter::claim(std::string const & id) {
  int & asked = taken_[id];
  if (asked++ == 0)
    return id;
  for (;; ++asked) {
    std::string result = id + '-' + std::to_string(asked);
    if (taken_.try_emplace(result, 1).second)
      return result;
  }
}

std::string gHtmSetter::anchor(std::string_view bookmark) {
  std::string const & entry = site_.entries.of(std::string(bookmark));
  std::string id = claim(!entry.empty() ? entry : "b-" + Vlb::to_lower(Slug::of(bookmark)));
  made_.try_emplace(std::string(bookmark), id);
  return id;
}

std::string gHtmSetter::headline_anchor(gNode const & node) {
  std::string const words = plain_text(node.children);
  gHeadline headline;
  headline.anchor = claim("s-" + Vlb::to_lower(Slug::of(words)));
  headline.title = escaped(node.param(1).empty() ? words : node.param(1));
  std::string const & level = node.param(0);
  std::from_chars(level.data(), level.data() + level.size(), headline.level);
  // A text may begin with a deep headline; headings of a page must not leave out levels.
  headline_level_ = std::clamp(headline.level, 1, headline_level_ + 1);
  headlines_.push_back(headline);
  return headline.anchor;
}

std::string gHtmSetter::headline_level(gNode const &) const {
  return std::to_string(std::min(unit_level_ + headline_level_, 6));
}

gLinkEnd gHtmSetter::link_to(int unit, std::string_view place) const {
  gLinkEnd end;
  int const from = part_ && !part_->contains(unit) ? -1 : page_;
  (end.href = root_) +=
      place.empty() ? site_.addresses.href(unit, from) : site_.addresses.href(unit, place, from);
  end.title = escaped(site_.unit(unit).title);
  end.kind = site_.kinds.of(unit).word;
  return end;
}

gLinkEnd gHtmSetter::link_end(gTarget const & target) {
  if (target.bookmark.empty())
    return link_to(target.unit, {});
  std::string const & entry = site_.entries.of(target.bookmark);
  return link_to(target.unit,
                 !entry.empty() ? entry : "b-" + Vlb::to_lower(Slug::of(target.bookmark)));
}

std::string gHtmSetter::source_href(std::string_view path, std::string_view line) {
  return site_.source_addresses.href(path, line, reports());
}

std::string gHtmSetter::editor_href(std::string_view path, std::string_view line) {
  if (editor_.empty())
    return {};
  std::string href = editor_;
  replace_all(href, "$line", url_escaped(line));
  replace_all(href, "$file", url_escaped(path));
  return escaped(href);
}

std::string gHtmSetter::macro_text(std::string_view name) {
  if (name == "cur_file" && page_ >= 0)
    return site_.addresses.file(page_);
  if (name == "cur_page")
    return page_ >= 0 ? site_.head(page_).title : site_.title;
  return gSetter::macro_text(name);
}

void gHtmSetter::set_verbatim(gNode const & node, bool declaration, std::string & out) {
  std::string const text = block_text(node.text);
  // Some templates set the declaration together with other text.
  if (!text.empty() && unit() >= 0 && text == block_text(site_.unit(unit()).declaration))
    declaration = true;
  std::string shown;
  if (declaration)
    set_declaration(text, shown);
  else if (looks_like_code(text))
    colours_.set(gColours::language_of(unit() < 0 ? "" : site_.unit(unit()).path), text, shown);
  else
    escape(text, shown);
  rules().apply(declaration ? gVltRule::declaration : gVltRule::verbatim,
                gVltValues().set(gVltValue::text, shown), out);
}

void gHtmSetter::set_declaration(std::string_view text, std::string & out) {
  gLanguage const language = gColours::language_of(unit() < 0 ? "" : site_.unit(unit()).path);
  static gKnownFacts const none;
  gKnownFacts const & facts =
      unit() < 0 || text != site_.unit(unit()).declaration ? none : site_.unit(unit()).facts;
  find_bound_names(unit(), text, facts);
  std::string broken = Declaration::broken(text, facts);
  std::size_t const all = broken.size();
  Declaration::cut(broken);
  DeclarationText::set(
      broken, language, colours_,
      [this](std::string_view name, std::string & link) { return link_name(unit(), name, link); },
      out);
  if (broken.size() == all)
    return;
  std::string const left = site_.number(all - broken.size());
  rules().apply(gVltRule::cut, gVltValues().set(gVltValue::count, left), out);
}

// The parameters of a template mean nothing outside, and within its members nothing else.
void gHtmSetter::find_bound_names(int unit, std::string_view declaration,
                                  gKnownFacts const & facts) {
  bound_.clear();
  for (std::string_view const name : Declaration::bound_names(declaration, facts))
    bound_.emplace_back(name);
  if (unit < 0)
    return;
  for (std::string_view scope = Atc::scope_of(site_.unit(unit)); !scope.empty();
       scope = Atc::scope_of(scope))
    if (int const type = document().find_type(scope); type >= 0) {
      gUnitRecord const & record = site_.unit(type);
      for (std::string_view const name : Declaration::bound_names(record.declaration, record.facts))
        bound_.emplace_back(name);
    }
}

// What stands right here needs no link.
bool gHtmSetter::link_name(int from, std::string_view name, std::string & out) {
  if (std::ranges::find(bound_, name.substr(0, name.find("::"))) != bound_.end())
    return false;
  int found = document().find_word(from, name);
  if (found < 0)
    found = inherited_type(from, name);
  if (found < 0)
    return link_outside(from, name, out);
  if (found == from || found == unit() || (page_ >= 0 && found == site_.pages[page_].first))
    return false;
  gLinkEnd const end = link_to(found, {});
  std::string const text = escaped(name);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::href, end.href);
  values.set(gVltValue::target, end.title).set(gVltValue::kind, end.kind);
  rules().apply(gVltRule::name_link, values, out);
  return true;
}

// A type that the class around has from its bases, all of which on the way are known; -1 for none.
int gHtmSetter::inherited_type(int from, std::string_view name) const {
  constexpr std::size_t most_bases = 64;
  std::string_view const scope = from < 0 ? std::string_view() : Atc::scope_of(site_.unit(from));
  int const around = scope.empty() ? -1 : document().find_type(scope);
  if (around < 0)
    return -1;
  std::vector<int> bases = {around};
  for (std::size_t i = 0; i < bases.size() && bases.size() < most_bases; ++i) {
    if (i > 0)
      if (int const type =
              document().find_type(site_.unit(bases[i]).name + "::" + std::string(name));
          type >= 0)
        return type;
    for (int const base : site_.inheritance.bases(bases[i]))
      bases.push_back(base);
  }
  return -1;
}

bool gHtmSetter::link_outside(int from, std::string_view name, std::string & out) {
  if (!site_.externals || from < 0)
    return false;
  std::string const to = site_.externals->href_from(site_.unit(from).name, name, true);
  if (to.empty())
    return false;
  std::string const text = escaped(name);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::href, to).set(gVltValue::target, text);
  rules().apply(gVltRule::name_link, values, out);
  return true;
}

gLinkEnd gHtmSetter::outer_link_end(std::string_view name) {
  gLinkEnd end;
  if (!site_.externals)
    return end;
  std::string_view const scope = unit() < 0 ? std::string_view() : site_.unit(unit()).name;
  name = name.substr(0, name.find('('));
  end.href = site_.externals->href_from(scope, name, false);
  end.title = escaped(name);
  return end;
}

std::string gHtmSetter::repository_href(std::string const & path, std::string_view line) {
  return site_.repository ? Html::escaped(site_.repository->href(path, line)) : std::string();
}

void gHtmSetter::set_note(gNode const & node, std::string & out) {
  if (node.kind == gNodeKind::margin_note)
    return gSetter::set_note(node, out);
  std::string const number = std::to_string(++notes_done_);
  std::string const id = "n-" + number;
  std::string const text = set(node.children);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::number, number).set(gVltValue::id, id);
  bool const foot = node.kind == gNodeKind::footnote;
  rules().apply(foot ? gVltRule::footnote : gVltRule::endnote, values, out);
  rules().apply(gVltRule::note, foot ? "footnote" : "endnote", values, notes_);
}

std::string gHtmSetter::picture_href(std::string const & path) {
  std::string const href = site_.pictures ? site_.pictures->href_of(path) : std::string();
  return href.empty() ? href : std::string(root_) + href;
}
