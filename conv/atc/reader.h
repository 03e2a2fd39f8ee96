// Reads a set of intermediate files.
#pragma once

#include <map>
#include <set>

#include "conv/atc/document.h"
#include "conv/atc/faults.h"
#include "conv/atc/scanner.h"
#include "conv/atc/unit_reader.h"

// Total: whatever is damaged gives a report with file and line, and the rest is still read. Text
// that is no valid UTF-8 is taken as Windows-1252, unit by unit; the log names each source once.
class gAtcReader {
public:
  // `threads`: how many read units at the same time; reports and result are the same with any.
  explicit gAtcReader(unsigned threads = 1) : threads_(threads) {}

  // Once for each reader. False if the file can't be read at all, which is reported, or if there is
  // no unit in it.
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
    gPathstring path;
    bool included;
    gAtcFaults faults;
    std::vector<Part> parts;
    bool in_section = false; // a unit here has a section
    bool ended = false;
  };

  static std::vector<Part> split(std::string_view text);
  void read_parts(File & file);
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
  void enter_unit(File & file, Part const & part, gReadUnit read);
  void enter_marks(gReadUnit & read);
  void place(gUnitRecord & unit);
  void begin_section(File & file, std::string style);

  unsigned const threads_;
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
