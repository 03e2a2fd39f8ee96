// Lines are kept small: paths are numbers, and what is shown is a list of numbers of lines.

#include "app/shell/window/message_list.h"

#include <algorithm>

#include "vlb/gmsghandler.h"

namespace {

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool holds(std::string_view text, std::string_view part) {
  auto const same = [](char a, char b) { return lower(a) == lower(b); };
  return std::search(text.begin(), text.end(), part.begin(), part.end(), same) != text.end() ||
         part.empty();
}

bool hint(Msg::type severity) {
  return severity == Msg::warn_hint || severity == Msg::err_hint;
}

// Of a line that is no hint.
gMessageKind kind_of(gMessageRow const & row) {
  if (!row.is_report)
    return gMessageKind::text;
  switch (row.severity) {
  case Msg::error:
  case Msg::err_hint:
    return gMessageKind::error;
  case Msg::doc_error:
    return gMessageKind::doc_error;
  case Msg::warning:
  case Msg::warn_hint:
    return gMessageKind::warning;
  default:
    return gMessageKind::note;
  }
}

} // namespace

std::uint32_t gMessageList::file_number(std::string const & path) {
  if (path.empty())
    return 0;
  auto const [found, fresh] =
      file_numbers_.try_emplace(path, static_cast<std::uint32_t>(files_.size()));
  if (fresh) {
    files_.push_back(path);
    files_shown_.push_back(holds(path, filter_.file));
  }
  return found->second;
}

void gMessageList::add(gMessageRow row) {
  auto const number = static_cast<std::uint32_t>(lines_.size());
  bool const continues = row.is_report && hint(row.severity) && number > 0;
  std::uint32_t const head = continues ? lines_.back().head : number;
  gMessageKind const kind = continues ? lines_[head].kind : kind_of(row);
  lines_.push_back({std::move(row.text), file_number(row.place.path), row.place.line, row.number,
                    row.severity, kind, row.is_report, row.bare, head});
  if (!continues) {
    ++counts_[static_cast<std::size_t>(kind)];
    if (row.number != 0)
      ++numbers_[row.number];
  }
  if (passes(lines_[head]))
    shown_.push_back(number);
}

void gMessageList::append(std::vector<gMessageRow> rows) {
  std::size_t const room = left_out_line_ ? 0 : capacity - lines_.size();
  std::size_t const taken = std::min(room, rows.size());
  for (std::size_t i = 0; i < taken; ++i)
    add(std::move(rows[i]));
  left_out(rows.size() - taken);
}

void gMessageList::clear() {
  gMessageFilter filter = std::move(filter_);
  *this = gMessageList();
  filter_ = std::move(filter);
  file_passes();
}

void gMessageList::file_passes() {
  for (std::size_t i = 0; i < files_.size(); ++i)
    files_shown_[i] = holds(files_[i], filter_.file);
}

void gMessageList::left_out(std::size_t count) {
  if (count == 0)
    return;
  left_out_ += count;
  std::string const text = std::to_string(left_out_) + " more lines. The log has all of them.";
  if (!left_out_line_) {
    left_out_line_ = true;
    add({.text = text});
  } else {
    lines_.back().text = text;
  }
}

bool gMessageList::passes(Line const & line) const {
  return filter_.shows(line.kind) &&
         (filter_.numbers.empty() || filter_.numbers.contains(line.number)) &&
         (filter_.file.empty() || files_shown_[line.file]);
}

void gMessageList::set_filter(gMessageFilter const & filter) {
  filter_ = filter;
  file_passes();
  shown_.clear();
  for (std::uint32_t i = 0; i < lines_.size(); ++i)
    if (passes(lines_[lines_[i].head]))
      shown_.push_back(i);
}

std::vector<std::string> gMessageList::files() const {
  std::vector<std::string> files(files_.begin() + 1, files_.end());
  std::ranges::sort(files);
  return files;
}

bool gMessageList::is_hint(std::size_t row) const {
  return at(row).is_report && hint(at(row).severity);
}

std::string_view gMessageList::severity_name(std::size_t row) const {
  if (!at(row).is_report)
    return "";
  switch (at(row).severity) {
  case Msg::error:
    return "Error";
  case Msg::doc_error:
    return "Documentation error";
  case Msg::warning:
    return "Warning";
  case Msg::status:
    return "State";
  case Msg::info:
    return "Information";
  default:
    return "";
  }
}

std::string_view gMessageList::file(std::size_t row) const {
  return files_[at(row).file];
}

gReportPlace gMessageList::place(std::size_t row) const {
  Line const & own = at(row);
  Line const & line = own.file == 0 ? lines_[own.head] : own;
  return line.file == 0 ? gReportPlace() : gReportPlace(files_[line.file], line.line);
}

std::string gMessageList::whole_line(std::size_t row) const {
  Line const & line = at(row);
  if (!line.is_report)
    return line.text;
  gString head;
  if (!line.bare)
    head = Vlb::report_head(line.severity, line.number);
  // In the log an empty line stands in front of each stage.
  head.erase(0, head.starts_with('\n'));
  gString place;
  Vlb::add_shown(place, gReportPlace(files_[line.file], line.line).text());
  bool const told = line.file == 0 || line.text.ends_with(place);
  return head + line.text + (told ? "" : " (" + place + ")");
}

std::size_t gMessageList::find(std::string_view text, std::size_t from, bool backward) const {
  std::size_t const count = rows();
  if (count == 0 || text.empty())
    return none;
  std::size_t row = std::min(from, count - 1);
  for (std::size_t tried = 0; tried < count; ++tried) {
    if (holds(whole_line(row), text))
      return row;
    row = backward ? (row == 0 ? count - 1 : row - 1) : (row + 1 == count ? 0 : row + 1);
  }
  return none;
}

std::string gMessageList::copy(std::set<std::size_t> const & rows) const {
  std::string text;
  for (std::size_t const row : rows)
    if (row < this->rows())
      text += whole_line(row) + "\n";
  return text;
}
