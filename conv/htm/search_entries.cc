// Entries that stand together have scopes, kinds, paths and files in common, so that each file says
// them once.

#include "conv/htm/search_entries.h"

#include <utility>

#include "conv/htm/search_code.h"
#include "conv/set/signature.h"

namespace {

constexpr std::size_t part_bytes = 60000; // of names, and of the rest
constexpr std::size_t name_bytes = 160, summary_bytes = 110;

// A list in backquotes.
std::string list(std::string_view lines) {
  return '`' + std::string(lines) + '`';
}

std::string with_points(std::string text) {
  for (std::size_t at = 0; (at = text.find("::", at)) != text.npos;)
    text.replace(at, 2, ".");
  return text;
}

// Without the separator.
std::string page_of_scope(std::string const & scope) {
  std::string page = with_points(scope);
  if (page.ends_with('.'))
    page.pop_back();
  return page;
}

// Anchors are mostly made of the name, alone or with its scope.
std::string short_anchor(std::string const & anchor, gSearchEntry const & entry) {
  for (auto const & [made, sign] :
       {std::pair(std::string(entry.name), ""),
        std::pair(with_points(entry.scope) + std::string(entry.name), ".")})
    if (anchor.starts_with(made) && (anchor.size() == made.size() || anchor[made.size()] == '-'))
      return sign + anchor.substr(made.size());
  return anchor;
}

} // namespace

std::uint32_t gSearchEntries::gNumbered::number_of(std::string_view text) {
  if (auto const found = numbers_.find(text); found != numbers_.end())
    return found->second;
  auto const number = static_cast<std::uint32_t>(numbers_.size());
  numbers_.emplace(text, number);
  lines_ += number > 0 ? "\n" : "";
  SearchCode::add_line(text, lines_);
  return number;
}

void gSearchEntries::gNumbered::clear() {
  numbers_.clear();
  lines_.clear();
}

void gSearchEntries::gRuns::end_run() {
  if (count_ == 0)
    return;
  text_ += text_.empty() ? "" : ",";
  if (count_ > 1) {
    SearchCode::add_number(count_, text_);
    text_ += '.';
  }
  SearchCode::add_number(number_, text_);
  count_ = 0;
}

void gSearchEntries::gRuns::add(std::uint32_t number) {
  if (number != number_)
    end_run();
  number_ = number;
  ++count_;
}

std::string gSearchEntries::gRuns::take() {
  end_run();
  return std::exchange(text_, {});
}

void gSearchEntries::add(gSearchEntry const & entry) {
  add_name(entry);
  add_signature(site_.unit(entry.unit));
  add_to_block(entry);
  ++entries_;
  if (names_.size() + scopes_.lines().size() > part_bytes ||
      signatures_.size() + types_.lines().size() > part_bytes)
    write_part();
  if (entries_ % block_size == 0)
    write_block();
}

void gSearchEntries::finish() {
  if (first_ < entries_)
    write_part();
  if (entries_ % block_size != 0)
    write_block();
}

void gSearchEntries::add_name(gSearchEntry const & entry) {
  std::string name;
  SearchCode::add_line(SearchCode::cut(entry.name, name_bytes), name);
  names_ += entries_ > first_ ? "\n" : "";
  if (entries_ == first_ || name != last_name_)
    names_ += name;
  last_name_ = name;
  scope_runs_.add(scopes_.number_of(SearchCode::cut(entry.scope, name_bytes)));
  kind_runs_.add(static_cast<std::uint32_t>(entry.kind));
}

void gSearchEntries::add_signature(gUnitRecord const & record) {
  signatures_ += entries_ > first_ ? ";" : "";
  gSignature const signature = Declaration::signature_of(record);
  if (!signature.is_routine)
    return;
  for (std::size_t i = 0; i < signature.parameters.size(); ++i) {
    signatures_ += i > 0 ? "," : "";
    SearchCode::add_number(types_.number_of(signature.parameters[i]), signatures_);
  }
  signatures_ += '>';
  if (!signature.result.empty())
    SearchCode::add_number(types_.number_of(signature.result), signatures_);
}

std::string gSearchEntries::short_href(gSearchEntry const & entry) {
  std::size_t const sign = entry.href.find('#');
  std::string const file = entry.href.substr(0, sign);
  std::string const anchor = sign == entry.href.npos ? "" : entry.href.substr(sign + 1);
  if (anchor.empty() && file == with_points(entry.scope) + std::string(entry.name) + ".htm")
    return {};
  if (file == page_of_scope(entry.scope) + ".htm" && !anchor.empty())
    return '#' + short_anchor(anchor, entry);
  bool const same = std::exchange(last_file_, file) == file;
  return '=' + (same ? "" : file) + (anchor.empty() ? "" : '#' + short_anchor(anchor, entry));
}

std::string gSearchEntries::place_of(gUnitRecord const & record) {
  std::string place;
  std::string_view const path = site_.sources.shown(record.path);
  std::uint32_t const number = paths_.number_of(path);
  if (entries_ % block_size == 0 || number != last_path_)
    SearchCode::add_number(number, place);
  last_path_ = number;
  if (!path.empty())
    place += ':' + std::to_string(record.source_line);
  return place;
}

void gSearchEntries::add_to_block(gSearchEntry const & entry) {
  if (entries_ % block_size == 0)
    last_file_.clear();
  else
    block_ += '\n';
  SearchCode::add_line(short_href(entry), block_);
  (block_ += '\t') += place_of(site_.unit(entry.unit));
  block_ += '\t';
  SearchCode::add_line(SearchCode::cut(entry.summary, summary_bytes), block_);
}

void gSearchEntries::write_part() {
  std::string const number = std::to_string(parts_++);
  conversion_.write("_search/n-" + number + ".js",
                    "vlSearch.names(" + number + ',' + std::to_string(first_) + ',' + list(names_) +
                        ",\n" + list(scopes_.lines()) + ",\n\"" + scope_runs_.take() + "\",\n\"" +
                        kind_runs_.take() + "\");\n");
  conversion_.write("_search/s-" + number + ".js", "vlSearch.types(" + number + ',' +
                                                       list(types_.lines()) + ",\n\"" +
                                                       signatures_ + "\");\n");
  first_ = entries_;
  for (std::string * text : {&names_, &last_name_, &signatures_})
    text->clear();
  scopes_.clear();
  types_.clear();
}

void gSearchEntries::write_block() {
  std::string const number = std::to_string((entries_ - 1) / block_size);
  conversion_.write("_search/b-" + number + ".js", "vlSearch.block(" + number + ',' +
                                                       list(paths_.lines()) + ",\n" + list(block_) +
                                                       ");\n");
  paths_.clear();
  block_.clear();
}
