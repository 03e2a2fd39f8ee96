// Units are set one behind the other, and each at once gets the words of its styles: so the text,
// which can be large, is never copied as a whole but to put its frame around it.

#include "conv/rtf/rtf_document.h"

#include <algorithm>
#include <cstdio>

#include "conv/rtf/rtf_marks.h"
#include "conv/rtf/rtf_text.h"
#include "conv/set/enum_table.h"
#include "conv/set/macro_variants.h"
#include "conv/set/relation_text.h"

namespace {

using V = gVltValue;

// Stands for the content while a frame is made; no text holds it.
constexpr char content_mark[] = "\x01";

// When the document was made, for the fields that show it.
std::string time_words(gRtfSetter & setter) {
  int year = 0, month = 0, day = 0, hour = 0, minute = 0;
  std::sscanf(setter.macro_text("cur_date").c_str(), "%d-%d-%d", &year, &month, &day);
  std::sscanf(setter.macro_text("cur_time").c_str(), "%d:%d", &hour, &minute);
  char words[100];
  std::snprintf(words, sizeof words, "\\yr%d\\mo%d\\dy%d\\hr%d\\min%d", year, month, day, hour,
                minute);
  return words;
}

} // namespace

gRtfDocument::gRtfDocument(gConversion & conversion, gRtfTemplate & style)
    : conversion_(conversion),
      document_(conversion.document()),
      rules_(conversion.rules()),
      style_(style),
      kinds_(document_, rules_),
      sources_(document_),
      relations_(document_),
      setter_(document_, rules_, kinds_, style.text_width(), style.font_size(),
              conversion.input().index_separator, conversion.input().index_place_holder),
      heads_differ_(running_heads_differ()),
      contents_levels_(Rtf::number_in(rules_.setting("contents_levels"), 3)) {}

gRtfDocument::gFrame gRtfDocument::frame(gVltRule rule, std::string_view selector,
                                         gVltValues & values) {
  std::string text;
  rules_.apply(rule, selector, values.set(V::content, content_mark), text);
  text = style_.resolve_styles(text);
  std::size_t const at = std::min(text.find(content_mark), text.size());
  return {text.substr(0, at), text.substr(std::min(at + 1, text.size()))};
}

std::string gRtfDocument::text() {
  std::string text = sections();
  std::string const toc = contents(), keys = index();
  std::string const title = setter_.escaped(conversion_.title());
  std::string const name = setter_.escaped(document_.name), time = time_words(setter_);
  std::string const date = setter_.escaped(setter_.macro_text("cur_date"));
  gVltValues values;
  values.set(V::doc_title, title).set(V::name, name).set(V::contents, toc).set(V::items, keys);
  values.set(V::text, time).set(V::subject, date).set(V::mark, heads_differ_ ? "1" : "");
  gFrame const whole = frame(gVltRule::document, {}, values);
  text.insert(0, style_.head() + whole.before);
  text += whole.behind;
  text += "}\n";
  return text;
}

std::string gRtfDocument::sections() {
  std::string out;
  int index = 0;
  for (gSectionRecord const & section : document_.sections) {
    if (section.first_unit >= section.end_unit)
      continue;
    setter_.begin_unit(-1);
    std::string const head_left = setter_.set_line(section.head_left);
    std::string const head_right = setter_.set_line(section.head_right);
    std::string const foot_left = setter_.set_line(section.foot_left);
    std::string const foot_right = setter_.set_line(section.foot_right);
    std::string const style = setter_.escaped(section.style), number = std::to_string(++index);
    gVltValues values;
    values.set(V::head_left, head_left).set(V::head_right, head_right).set(V::number, number);
    values.set(V::foot_left, foot_left).set(V::foot_right, foot_right).set(V::style, style);
    gFrame const around =
        frame(gVltRule::section, section.style, values.set(V::mark, heads_differ_ ? "1" : ""));
    out += around.before;
    for (int unit = section.first_unit; unit < section.end_unit; ++unit)
      add_unit(unit, out);
    out += around.behind;
  }
  return out;
}

bool gRtfDocument::running_heads_differ() {
  setter_.begin_unit(-1);
  return std::ranges::any_of(document_.sections, [&](gSectionRecord const & section) {
    return setter_.set_line(section.head_left) != setter_.set_line(section.head_right) ||
           setter_.set_line(section.foot_left) != setter_.set_line(section.foot_right);
  });
}

void gRtfDocument::add_unit(int unit, std::string & out) {
  conversion_.progress(static_cast<std::size_t>(unit), document_.units.size());
  gUnitRecord const & record = document_.units[static_cast<std::size_t>(unit)];
  gUnitText text = document_.text_of(unit);
  EnumTable::set_into(record, rules_, false, text.body);
  MacroVariants::set_into(record, rules_, text.body);
  RelationText::set_into(document_, relations_, rules_, unit, text.body);
  bool const titled = !text.title.empty();
  mark_unit(unit, text);
  setter_.begin_unit(unit, titled ? record.level : record.level - 1);
  std::string const title = setter_.set_line(text.title);
  std::string const subject = setter_.set_line(text.subject);
  std::string body, links;
  setter_.set_body(text.body, body, links);
  add_places(unit, titled);
  std::string const id = Rtf::bookmark(record.label);
  std::string const depth = std::to_string(std::clamp(record.level, 1, Rtf::deepest_headline));
  std::string const name = setter_.escaped(record.name);
  std::string const summary = setter_.escaped(record.summary);
  std::string const path = setter_.escaped(sources_.shown(record.path));
  std::string const line = record.source_line > 0 ? std::to_string(record.source_line) : "";
  std::string const style = setter_.escaped(record.style);
  gKind const & kind = kinds_.of(unit);
  gVltValues values;
  values.set(V::id, id).set(V::level, depth).set(V::kind, kind.word).set(V::style, style);
  values.set(V::kind_class, kind.css).set(V::name, name).set(V::title, title);
  values.set(V::subject, subject).set(V::links, links).set(V::body, body);
  values.set(V::summary, summary).set(V::path, path).set(V::line, line);
  std::string shown;
  rules_.apply(gVltRule::unit, record.style, values, shown);
  out += style_.resolve_styles(shown);
}

// The unit's place and index entries stand in its headline, or else in the text itself.
void gRtfDocument::mark_unit(int unit, gUnitText & text) {
  gNodeList marks;
  if (text.title.empty())
    marks.push_back(
        {gNodeKind::bookmark, 0, {}, {document_.units[static_cast<std::size_t>(unit)].label}, {}});
  std::vector<gIndexEntry> const & entries = document_.index_entries;
  for (; next_entry_ < entries.size() && entries[next_entry_].unit <= unit; ++next_entry_) {
    gIndexEntry const & entry = entries[next_entry_];
    if (entry.unit != unit || !entry.label.empty())
      continue;
    gNode & mark = marks.emplace_back();
    mark.kind = gNodeKind::index_entry;
    mark.params = {entry.label};
    mark.params.insert(mark.params.end(), std::begin(entry.fields), std::end(entry.fields));
  }
  gNodeList & home = text.title.empty() ? text.body : text.title;
  home.insert(text.title.empty() ? home.begin() : home.end(), marks.begin(), marks.end());
  Rtf::sink_marks(text.body);
}

void gRtfDocument::add_places(int unit, bool titled) {
  gUnitRecord const & record = document_.units[static_cast<std::size_t>(unit)];
  if (titled && record.level <= contents_levels_) {
    std::string const & title = record.toc.empty() ? record.title : record.toc;
    places_.push_back({record.level, Rtf::bookmark(record.label), setter_.escaped(title)});
  }
  for (gRtfHeadline & headline : setter_.take_headlines())
    if (headline.level <= contents_levels_)
      places_.push_back(std::move(headline));
}

std::string gRtfDocument::contents() const {
  std::string items;
  for (gRtfHeadline const & place : places_) {
    std::string const depth = std::to_string(std::clamp(place.level, 1, Rtf::deepest_headline));
    gVltValues values;
    values.set(V::href, place.bookmark).set(V::title, place.title).set(V::level, depth);
    rules_.apply(gVltRule::contents_item, depth, values, items);
  }
  std::string const levels = std::to_string(std::clamp(contents_levels_, 1, Rtf::deepest_headline));
  gVltValues values;
  std::string out;
  values.set(V::items, items).set(V::level, levels).set(V::mark, heads_differ_ ? "1" : "");
  rules_.apply(gVltRule::document_contents, values, out);
  return items.empty() ? std::string() : out;
}
