// What the search shows of units and values: the files of names, signatures and blocks
// (search_index.h tells their form).
#pragma once

#include <map>

#include "conv/htm/search_index.h"

struct gSearchEntry {
  int unit = -1;
  std::string_view name;
  std::string scope; // with its separator
  std::size_t kind = 0;
  std::string href, summary;
};

// Takes the entries in their order and writes a file whenever one is full.
class gSearchEntries {
public:
  static constexpr std::size_t block_size = 512;

  gSearchEntries(gConversion & conversion, gSite const & site)
      : conversion_(conversion),
        site_(site) {}

  void add(gSearchEntry const & entry);
  void finish();
  std::size_t size() const { return entries_; }
  std::size_t parts() const { return parts_; }

private:
  // Texts that get numbers as they come.
  class gNumbered {
  public:
    std::uint32_t number_of(std::string_view text);
    std::string const & lines() const { return lines_; }
    void clear();

  private:
    std::map<std::string, std::uint32_t, std::less<>> numbers_;
    std::string lines_;
  };
  // "3.a,1b": how often a number came.
  class gRuns {
  public:
    void add(std::uint32_t number);
    std::string take();

  private:
    void end_run();

    std::string text_;
    std::uint32_t number_ = 0, count_ = 0;
  };

  void add_name(gSearchEntry const & entry);
  void add_signature(gUnitRecord const & record);
  void add_to_block(gSearchEntry const & entry);
  std::string short_href(gSearchEntry const & entry);
  std::string place_of(gUnitRecord const & record);
  void write_part();
  void write_block();

  gConversion & conversion_;
  gSite const & site_;
  std::size_t entries_ = 0, parts_ = 0, first_ = 0; // first_: of the part at work
  std::string names_, last_name_, signatures_;
  gNumbered scopes_, types_, paths_;
  gRuns scope_runs_, kind_runs_;
  std::string block_, last_file_;
  std::uint32_t last_path_ = 0;
};
