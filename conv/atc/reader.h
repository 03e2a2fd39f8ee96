// Reads a set of intermediate files.
#pragma once

#include <map>
#include <set>

#include "conv/atc/document.h"
#include "conv/atc/faults.h"
#include "conv/atc/scanner.h"

// Total: whatever is damaged gives a report with file and line, and the rest is still read. Text
// that is no valid UTF-8 is taken as Windows-1252, unit by unit; the log names each source once.
class gAtcReader {
public:
  // False if the file can't be read at all, which is reported, or if there is no unit in it.
  bool read(gPathstring const & atc_file, gDocument & document);
  // The same from memory; the files that @incl_atx names are asked for by `open`, which answers
  // false if there is no such file.
  using gOpen = bool (*)(void * context, std::string const & name, std::string & text);
  bool read(std::string text, gPathstring const & name, gOpen open, void * context,
            gDocument & document);

private:
  // What begins at the head of a line: the rest of a file doesn't depend on what is damaged in one.
  struct Part {
    gAtcCommand command; // verinfo: the head of the file
    std::size_t begin;
    int line;
  };
  // One file while it is read.
  struct File {
    int index; // in the document
    bool included;
    gAtcFaults faults;
    std::vector<Part> parts;
    bool in_section = false; // a unit here has a section
    bool ended = false;
  };

  static std::vector<Part> split(std::string_view text);
  void read_file(std::string text, gPathstring const & path, bool included);
  void make_utf8(std::string & text, std::vector<Part> & parts, gPathstring const & path);
  void make_room(std::string_view text, std::size_t units);
  void read_part(File & file, Part const & part, std::size_t end);
  void read_head(gAtcScanner & scanner);
  bool read_head_command(gAtcScanner & scanner);
  void take_skipped(gAtcScanner & scanner);
  void read_section(File & file, gAtcScanner & scanner);
  void read_running_head(gSectionRecord & section, gAtcScanner & scanner);
  void announce(gPathstring path);
  gPathstring announced_path(gString const & name);
  void include(File & file, gAtcScanner & scanner);
  void read_unit(File & file, gAtcScanner & scanner);
  gUnitRecord unit_record(gAtcScanner & scanner);
  void read_unit_head(gAtcScanner & scanner, gUnitRecord & unit);
  void read_facts(gAtcScanner & scanner, gUnitRecord & unit);
  bool take_further_fact(gAtcScanner & scanner, gKnownFacts & facts);
  void automatic_entry(gAtcScanner & scanner, gUnitRecord & unit);
  void read_content(gAtcScanner & scanner, gUnitRecord & unit);
  void enter_marks(gUnitText const & text, gUnitRecord const & unit);
  void place(gUnitRecord & unit);
  void begin_section(File & file, std::string style);
  void expect_nothing(gAtcScanner & scanner);
  int number(gAtcScanner & scanner, std::string const & text, int least, int most);

  gDocument * document_ = nullptr;
  gOpen open_ = nullptr;
  void * context_ = nullptr;
  int announced_units_ = -1;
  bool incomplete_ = false; // it was reported that something is missing
  std::vector<int> above_;  // the units above the next one, by level
  // The files of the set, relative to the .atc file, by the name that @incl_atx has for them.
  std::multimap<std::string, gPathstring> announced_;
  std::set<std::string> included_, not_utf8_;
};
