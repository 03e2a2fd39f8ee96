// The contents of the message window: all lines, those that the filter lets through, search, copy.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "app/shell/window/message_queue.h"

// What a line is to the eye: its colour, its picture, its place in the filter.
enum class gMessageKind : unsigned char { error, doc_error, warning, note, text };

struct gMessageFilter {
  static constexpr std::size_t kinds = 5;
  std::array<bool, kinds> show = {true, true, true, true, true}; // by gMessageKind
  std::set<int> numbers; // only reports with these; empty for all lines
  std::string file;      // only lines about files whose path holds this, in any case; empty for all

  bool shows(gMessageKind kind) const { return show[static_cast<std::size_t>(kind)]; }
  bool operator==(gMessageFilter const &) const = default;
};

// Belongs to the window's thread. Lines are counted from 0: "row" is a place among those shown.
// A hint goes with the report in front of it: it is shown, and opens the same place, if that does.
// Adding a line costs the same however many there are.
class gMessageList {
public:
  static constexpr std::size_t capacity = 500000;

  // The rows that become visible are the last ones; the others keep their places.
  void append(std::vector<gMessageRow> rows);
  // Lines that found no room; told in a last line of its own.
  void left_out(std::size_t count);
  void clear();

  std::size_t size() const { return lines_.size(); }
  std::size_t count(gMessageKind kind) const { return counts_[static_cast<std::size_t>(kind)]; }

  gMessageFilter const & filter() const { return filter_; }
  void set_filter(gMessageFilter const & filter);
  // What occurs, for the choices of the filter: numbers with their counts, and files by their path.
  std::map<int, std::size_t> const & numbers() const { return numbers_; }
  std::vector<std::string> files() const;

  std::size_t rows() const { return shown_.size(); }
  gMessageKind kind(std::size_t row) const { return at(row).kind; }
  Msg::type severity(std::size_t row) const { return at(row).severity; }
  bool is_hint(std::size_t row) const;
  // "Error", "Warning" and so on; empty for free text and hints.
  std::string_view severity_name(std::size_t row) const;
  int number(std::size_t row) const { return at(row).number; } // 0 without one
  std::string_view file(std::size_t row) const;                // empty without one
  int line(std::size_t row) const { return at(row).line; }     // gReportPlace::no_line without one
  std::string_view text(std::size_t row) const { return at(row).text; }
  // As the log has it.
  std::string whole_line(std::size_t row) const;
  // What a double click opens; empty if the line is about no file.
  gReportPlace place(std::size_t row) const;

  static constexpr std::size_t none = static_cast<std::size_t>(-1);
  // The next row from `from` on, in any case, whose line holds the text; behind the end it goes on
  // at the other end. `none` if there is no such row.
  std::size_t find(std::string_view text, std::size_t from, bool backward = false) const;
  // Whole lines in the order of the window, each with its end.
  std::string copy(std::set<std::size_t> const & rows) const;

private:
  struct Line {
    std::string text;
    std::uint32_t file;
    int line;
    int number;
    Msg::type severity;
    gMessageKind kind;
    bool is_report, bare;
    std::uint32_t head; // the line itself, or that of the report which it continues
  };

  Line const & at(std::size_t row) const { return lines_[shown_[row]]; }
  void add(gMessageRow row);
  std::uint32_t file_number(std::string const & path);
  bool passes(Line const & line) const;
  void file_passes();

  std::vector<Line> lines_;
  std::vector<std::uint32_t> shown_; // numbers of lines
  std::vector<std::string> files_ = {""};
  std::vector<bool> files_shown_ = {true}; // by the filter
  std::unordered_map<std::string, std::uint32_t> file_numbers_;
  std::array<std::size_t, gMessageFilter::kinds> counts_ = {};
  std::map<int, std::size_t> numbers_;
  std::size_t left_out_ = 0;
  bool left_out_line_ = false; // the last line tells how many
  gMessageFilter filter_;
};
