// One description of each record serves to write and to read it, see Facts::gWriter. Maps go as
// lists.
#include "app/cli/kept_run.h"

#include <algorithm>

#include "ana/read/facts_archive.h"
#include "vlb/messages.h"

namespace {

using Facts::gReader;
using Facts::gWriter;

// A value that isn't a number of the archive by itself.
template <class As, class T> void put(gWriter & archive, T const & value) {
  archive.bits(static_cast<std::uint64_t>(static_cast<As>(value)));
}
template <class As, class T> void put(gReader & archive, T & value) {
  std::uint64_t bits = 0;
  archive.bits(bits);
  value = static_cast<T>(static_cast<As>(bits));
}

void text(gWriter & archive, std::string const & value) {
  archive.text(value);
}
template <class Text> void text(gReader & archive, Text & value) {
  std::string read;
  archive.text(read);
  value = Text(read);
}

template <class Archive, class Hash> void hash(Archive & archive, Hash & hash) {
  archive.bits(hash.first);
  archive.bits(hash.second);
}

template <class Archive, class State> void state(Archive & archive, State & state) {
  archive.bits(state.device);
  archive.bits(state.inode);
  archive.bits(state.mode);
  archive.bits(state.size);
  put<std::uint64_t>(archive, state.written);
  put<std::uint64_t>(archive, state.changed);
}

template <class Archive, class Place> void sight(Archive & archive, Place & one) {
  put<unsigned>(archive, one.first.first);
  text(archive, one.first.second);
  state(archive, one.second.state);
  archive.flag(one.second.young);
  hash(archive, one.second.hash);
}

void row(gWriter & archive, gReport const & report) {
  auto const rows = Msg::catalogue();
  archive.bits(static_cast<std::size_t>(std::ranges::find(rows, report.message) - rows.begin()));
}
void row(gReader & archive, gReport & report) {
  auto const rows = Msg::catalogue();
  std::size_t number = 0;
  archive.bits(number);
  archive.require(number < rows.size());
  if (archive.good())
    report.message = rows[number];
}

template <class Archive, class Report> void report(Archive & archive, Report & report) {
  row(archive, report);
  archive.text(report.argument);
  archive.text(report.place.path);
  archive.number(report.place.line);
  put<unsigned>(archive, report.stage);
}

template <class Archive, class Result> void conversion(Archive & archive, Result & result) {
  archive.flag(result.success);
  text(archive, result.start);
  for (auto * const count :
       {&result.files, &result.unchanged, &result.bytes, &result.pages, &result.without_text})
    archive.bits(*count);
}

template <class Archive, class Run> void parts(Archive & archive, Run & run) {
  archive.text(run.key);
  archive.flag(run.analysis.success);
  text(archive, run.analysis.atc_file);
  archive.text(run.analysis.read);
  conversion(archive, run.last);
  put<unsigned>(archive, run.worst);
}

// The entries of a map by `item`, and back.
template <class Map, class Item> void entries(gWriter & archive, Map const & map, Item item) {
  archive.many(map, item);
}
template <class Map, class Item> void entries(gReader & archive, Map & map, Item item) {
  using Key = std::remove_const_t<typename Map::key_type>;
  std::vector<std::pair<Key, typename Map::mapped_type>> list;
  archive.many(list, item);
  map.insert(list.begin(), list.end());
}

void paths(gWriter & archive, std::set<gPathstring> const & set) {
  archive.many(set, [&](gPathstring const & path) { archive.text(path); });
}
void paths(gReader & archive, std::set<gPathstring> & set) {
  std::vector<std::string> list;
  archive.many(list, [&](std::string & path) { archive.text(path); });
  for (std::string const & path : list)
    set.insert(gPathstring(path));
}

void reports(gWriter & archive, std::vector<gReport> const & list) {
  archive.many(list, [&](gReport const & one) { report(archive, one); });
}
void reports(gReader & archive, std::vector<gReport> & list) {
  std::size_t n = 0;
  for (archive.bits(n); n > 0 && archive.good(); --n)
    report(archive, list.emplace_back(*Msg::catalogue().front()));
}

template <class Archive, class Run> void all(Archive & archive, Run & run) {
  parts(archive, run);
  entries(archive, run.sights, [&](auto & one) { sight(archive, one); });
  for (auto * const hashes : {&run.left.tops, &run.left.young})
    entries(archive, *hashes, [&](auto & one) {
      archive.text(one.first);
      hash(archive, one.second);
    });
  paths(archive, run.analysis.incomplete);
  entries(archive, run.last.units, [&](auto & one) {
    archive.text(one.first);
    archive.bits(one.second);
  });
  archive.many(run.lines, [&](auto & line) {
    archive.flag(line.is_report);
    text(archive, line.text);
  });
  reports(archive, run.reports);
}

} // namespace

std::string bytes_of_run(gKeptRun const & run) {
  gWriter archive;
  all(archive, run);
  return archive.bytes();
}

std::optional<gKeptRun> run_of_bytes(std::string_view bytes) {
  gReader archive(bytes);
  gKeptRun run;
  all(archive, run);
  if (!archive.good() || !archive.at_end())
    return {};
  return run;
}
