// Which units an output command places, and in which order.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>

#include "ana/anadat/gdocunit.h"
#include "ana/anadat/goutstate.h"

// Selects units for the commands of one script. The tables don't change while its commands run, so
// what is worked out once is kept: all units in table order, the units of each class, and the
// verdict on each file. A block for every class then costs no walk over all units each time.
class gUnitSelector : public cShared {
public:
  // All units that pass the filters of the state, sorted.
  std::vector<cRef<gDocUnit>> select(gOutState & state);
  // To be called when the path filter or the file filter of the state got new entries.
  void filters_changed();

  // While the members of one class after the other are placed: which class is meant by its name.
  // Units that tell their kind belong to it by their whole scope then and, if several sources have
  // a class of that name, by the place between its brackets. Null: names alone decide. Answers what
  // was set before.
  gDocUnit const * choose_class(gDocUnit const * unit) {
    class_name_ = unit ? unit->name() : gString();
    return std::exchange(class_, unit);
  }

  // True if the unit belongs to the class: the class is its name without the last part, or the
  // second-to-last part alone. So "A::B" and "B" both stand for the class of "A::B::f".
  static bool belongs_to(gDocUnit const & unit, std::string_view class_name);

private:
  // A unit under the hash of a class that it belongs to.
  struct ClassEntry {
    std::uint64_t hash;
    std::uint32_t unit; // index in units_
    bool operator<(ClassEntry const & other) const {
      return hash != other.hash ? hash < other.hash : unit < other.unit;
    }
  };
  struct FileFilter {
    std::vector<gString> names;                  // patterns for the file's name
    std::unordered_set<std::string> paths;       // whole paths, in lower case
    std::unordered_set<std::string> drive_tails; // paths behind a drive letter, in lower case
  };

  bool is_of_chosen(gDocUnit const & unit) const;
  void collect_units();
  void build_index();
  void compile_filters(gOutState const & state);
  std::vector<std::uint32_t> members_of(std::string_view class_name);
  bool passes(gDocUnit const & unit, gOutState const & state);
  bool passes_files(gDocUnit const & unit, gOutState const & state);
  bool test_path(gPathstring const & path) const;
  bool test_file(gPathstring const & path) const;

  bool collected_ = false, indexed_ = false, compiled_ = false;
  std::vector<gDocUnit *> units_;   // in table order; the tables own them
  std::vector<ClassEntry> classes_; // sorted
  // The files that have a class of one whole name, for names that several classes have.
  std::unordered_map<std::string, std::unordered_set<std::string>> namesakes_;
  gDocUnit const * class_ = nullptr;
  gString class_name_;
  std::vector<gString> folders_; // the path filter, absolute
  FileFilter files_;
  std::unordered_map<gPathstring const *, bool> verdicts_; // by the record of the unit's file
};

// Sorts by name or location; units with equal keys keep their order.
void sort_units(std::vector<cRef<gDocUnit>> & units, gSortMode mode);
