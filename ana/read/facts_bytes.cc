// One function a record, for both directions. What comes back is checked against what the rest of
// the program takes for granted, since bytes of a cache may be anything.
#include "ana/read/facts_bytes.h"

#include <algorithm>

#include "ana/read/facts_archive.h"
#include "vlb/messages.h"

namespace {

using Facts::gReader;
using Facts::gWriter;

constexpr std::string_view form = "VLF5";
constexpr int most = 100'000'000; // lines, columns and numbers within a file

std::uint64_t sum_of(std::string_view text, std::uint64_t sum = 0xCBF29CE484222325u) {
  for (unsigned char c : text)
    sum = (sum ^ c) * 0x100000001B3u;
  return sum;
}

// Reports stand in the bytes as the numbers of their rows.
std::uint64_t sum_of_catalogue() {
  std::uint64_t sum = sum_of(form);
  for (gMessage const * row : Msg::catalogue())
    sum = sum_of(row->text, sum);
  return sum;
}

template <class Archive, class T> void bounded(Archive & archive, T & value, int low, int high) {
  archive.number(value);
  archive.require(value >= low && value <= high);
}

template <class Archive, class Place> void place(Archive & archive, Place & place) {
  bounded(archive, place.line, 0, most);
  bounded(archive, place.column, 0, most);
}

void row(gWriter & archive, gReport const & report) {
  auto const rows = Msg::catalogue();
  archive.bits(static_cast<std::size_t>(std::ranges::find(rows, report.message) - rows.begin()));
}

gMessage const & row(gReader & archive) {
  auto const rows = Msg::catalogue();
  std::size_t number = 0;
  archive.bits(number);
  archive.require(number < rows.size());
  return *rows[archive.good() ? number : 0];
}

// The name of the file itself isn't written: the facts hold wherever it lies.
void report(gWriter & archive, gReport const & report, gSrcFile const & file) {
  row(archive, report);
  archive.text(report.argument);
  archive.number(report.place.line);
  bool const is_own = report.place.path == file.opath();
  archive.flag(is_own);
  if (!is_own)
    archive.text(report.place.path);
}

gReport report(gReader & archive, gSrcFile const & file) {
  gReport report(row(archive));
  archive.text(report.argument);
  bounded(archive, report.place.line, gReportPlace::no_line, most);
  bool is_own = false;
  archive.flag(is_own);
  if (is_own)
    report.place.path = file.opath();
  else
    archive.text(report.place.path);
  return report;
}

void reports(gWriter & archive, gReportList const & list, gSrcFile const & file) {
  archive.many(list.reports(), [&](gReport const & one) { report(archive, one, file); });
}

void reports(gReader & archive, gReportList & list, gSrcFile const & file) {
  std::size_t n = 0;
  archive.bits(n);
  archive.require(n <= gReportList::capacity);
  for (; n > 0 && archive.good(); --n)
    list.take(report(archive, file));
}

void end(gWriter & archive, gReadEnd const & end, gSrcFile const & file) {
  archive.flag(end.failed);
  archive.flag(end.fatal.has_value());
  if (end.fatal)
    report(archive, *end.fatal, file);
}

void end(gReader & archive, gReadEnd & end, gSrcFile const & file) {
  bool is_fatal = false;
  archive.flag(end.failed);
  archive.flag(is_fatal);
  if (is_fatal)
    end.fatal = report(archive, file);
}

template <class Archive, class Unit> void unit(Archive & archive, Unit & unit) {
  archive.flag(unit.is_text);
  archive.flag(unit.is_named);
  place(archive, unit.place);
  archive.pieces(unit.names);
  archive.require(!unit.is_text || unit.names.size() == 1);
  archive.text(unit.name_sep);
  archive.text(unit.style);
  archive.many(unit.attributes, [&](auto & one) {
    archive.text(one.name);
    archive.text(one.value);
  });
  archive.many(unit.subentries, [&](auto & one) {
    archive.text(one.name);
    archive.pieces(one.text);
  });
  archive.pieces(unit.headline);
  archive.pieces(unit.link_line);
  archive.number(unit.flags);
  archive.number(unit.hier_up);
  archive.number(unit.hier_down);
  bounded(archive, unit.number, 0, most);
  bounded(archive, unit.label, 0, most);
}

template <class Archive, class Text>
void text_facts(Archive & archive, Text & text, gSrcFile const & file) {
  archive.many(text.units, [&](auto & one) { unit(archive, one); });
  archive.many(text.bookmarks, [&](auto & one) { archive.text(one); });
  archive.many(text.citations, [&](auto & one) {
    archive.text(one.name);
    bounded(archive, one.first_line, 0, most);
    bounded(archive, one.last_line, -1, most);
  });
  bounded(archive, text.units_made, 0, most);
  bounded(archive, text.labels_made, 0, most);
  reports(archive, text.reports, file);
  end(archive, text.end, file);
}

template <class Archive, class Range>
void range(Archive & archive, Range & range, gCodeElem const & element) {
  archive.bits(range.begin);
  archive.bits(range.end);
  archive.require(range.begin <= range.end && range.end <= element.decl.size());
}

template <class Archive, class Parts>
void parts(Archive & archive, Parts & parts, gCodeElem const & element) {
  for (auto * one :
       {&parts.name, &parts.template_head, &parts.parameters, &parts.bases, &parts.result})
    range(archive, *one, element);
  archive.bits(parts.marks);
  archive.many(parts.values, [&](auto & one) {
    archive.text(one.name);
    archive.text(one.written);
    archive.text(one.number);
  });
}

void shared(gWriter & archive, cRef<gString const> const & text) {
  archive.flag(static_cast<bool>(text));
  if (text)
    archive.text(*text);
}

void shared(gReader & archive, cRef<gString const> & text) {
  bool has_text = false;
  archive.flag(has_text);
  if (has_text)
    text = archive.shared_text();
}

// What else may stand in the lists, a run finds out.
void friends(gWriter & archive, gDeclParts const & parts) {
  archive.many(parts.lists ? parts.lists->friends : std::vector<gString>(),
               [&](gString const & one) { archive.text(one); });
}

void friends(gReader & archive, gDeclParts & parts) {
  auto lists = make_ref<gDeclLists>();
  archive.many(lists->friends, [&](gString & one) { archive.text(one); });
  if (!lists->friends.empty())
    parts.lists = std::move(lists);
}

void known_parts(gWriter & archive, gCodeElem const & element) {
  archive.flag(element.parts != nullptr);
  if (!element.parts)
    return;
  parts(archive, *element.parts, element);
  archive.number(static_cast<int>(element.parts->seclusion));
  shared(archive, element.parts->signature);
  shared(archive, element.parts->condition);
  friends(archive, *element.parts);
}

void known_parts(gReader & archive, gCodeElem & element) {
  bool has_parts = false;
  archive.flag(has_parts);
  if (!has_parts)
    return;
  auto known = std::make_unique<gDeclParts>();
  parts(archive, *known, element);
  int seclusion = 0;
  bounded(archive, seclusion, 0, static_cast<int>(gSeclusion::unnamed));
  known->seclusion = static_cast<gSeclusion>(archive.good() ? seclusion : 0);
  shared(archive, known->signature);
  shared(archive, known->condition);
  friends(archive, *known);
  element.parts = std::move(known);
}

void groups(gWriter & archive, gCodeElem const & element) {
  archive.flag(static_cast<bool>(element.groups));
  if (!element.groups)
    return;
  archive.many(element.groups->topics, [&](gString const & topic) { archive.text(topic); });
  archive.text(element.groups->heading);
}

void groups(gReader & archive, gCodeElem & element) {
  bool has_groups = false;
  archive.flag(has_groups);
  if (!has_groups)
    return;
  auto known = make_ref<gElemGroups>();
  archive.many(known->topics, [&](gString & topic) { archive.text(topic); });
  archive.text(known->heading);
  element.groups = std::move(known);
}

template <class Archive, class Element> void element(Archive & archive, Element & element) {
  archive.pieces(element.names);
  bounded(archive, element.column, 0, most);
  bounded(archive, element.end_line, 0, most);
  archive.number(element.text);
  archive.number(element.type);
  archive.require(!unit_type_name(element.type).empty());
  archive.number(element.flags);
  archive.text(element.decl);
  archive.text(element.visibility);
  archive.text(element.heritage);
  archive.flag(element.documented);
  known_parts(archive, element);
  groups(archive, element);
}

void elements(gWriter & archive, gFileFacts const & facts) {
  archive.many(facts.code.elements, [&](cRef<gCodeElem> const & one) {
    archive.number(one->loc.line());
    archive.number(static_cast<int>(one->kind));
    element(archive, *one);
  });
}

void elements(gReader & archive, gFileFacts & facts) {
  archive.many(facts.code.elements, [&](cRef<gCodeElem> & one) {
    int line = 0, kind = 0;
    bounded(archive, line, 0, most);
    bounded(archive, kind, 0, static_cast<int>(Decl::gKind::type));
    one = make_ref<gCodeElem>(gStrList(), facts.file, archive.good() ? line : 0, 0, gString(),
                              gString(), 0);
    one->kind = static_cast<Decl::gKind>(archive.good() ? kind : 0);
    element(archive, *one);
    archive.require(one->text >= -1 && one->text < static_cast<int>(facts.text.units.size()));
  });
}

template <class Archive> void base_entries(Archive & archive, auto & bases) {
  archive.many(bases.entries, [&](auto & one) {
    archive.text(one.name);
    archive.number(one.access);
  });
}

void classes(gWriter & archive, gCodeFacts const & code) {
  archive.many(code.classes, [&](gClassFacts const & one) {
    archive.text(one.name);
    base_entries(archive, *one.bases);
  });
}

void classes(gReader & archive, gCodeFacts & code) {
  archive.many(code.classes, [&](gClassFacts & one) {
    archive.text(one.name);
    one.bases = make_ref<gBaseClause>();
    base_entries(archive, *one.bases);
  });
}

void left_out(gWriter & archive, gLeftOut reason) {
  archive.number(static_cast<int>(reason));
}

void left_out(gReader & archive, gLeftOut & reason) {
  int number = 0;
  bounded(archive, number, 0, static_cast<int>(gLeftOut::heading));
  reason = static_cast<gLeftOut>(archive.good() ? number : 0);
}

template <class Archive, class Whole> void file_facts(Archive & archive, Whole & facts) {
  text_facts(archive, facts.text, facts.file);
  elements(archive, facts);
  classes(archive, facts.code);
  archive.many(facts.code.comments, [&](auto & one) {
    place(archive, one.place);
    bounded(archive, one.last_line, 0, most);
    left_out(archive, one.left_out);
  });
  reports(archive, facts.code.reports, facts.file);
  end(archive, facts.code.end, facts.file);
}

} // namespace

std::string Facts::sealed(std::string_view body) {
  std::string bytes(form);
  std::uint64_t sum = sum_of(body, sum_of_catalogue());
  for (int i = 0; i < 8; ++i, sum >>= 8)
    bytes += static_cast<char>(sum);
  return bytes.append(body);
}

std::string facts_to_bytes(gFileFacts const & facts) {
  if (facts.text.reports.left_out() > 0 || facts.code.reports.left_out() > 0)
    return {};
  gWriter archive;
  file_facts(archive, facts);
  return Facts::sealed(archive.bytes());
}

std::optional<gFileFacts> facts_from_bytes(std::string_view bytes, gSrcFile const & file) {
  std::size_t const head = form.size() + 8;
  if (bytes.size() < head || Facts::sealed(bytes.substr(head)) != bytes)
    return std::nullopt;
  gReader archive(bytes.substr(head));
  gFileFacts facts;
  facts.file = file;
  file_facts(archive, facts);
  if (!archive.good() || !archive.at_end())
    return std::nullopt;
  facts.text.note_lines();
  return facts;
}
