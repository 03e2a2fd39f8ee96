// Units by the files that declare them, and those of a large file in parts that a reader can
// survey.
#pragma once

#include <span>
#include <vector>

#include "ana/anadat/gdocunit.h"

using gUnitRefs = std::vector<cRef<gDocUnit>>;

struct gUnitsOfFile {
  gPathstring path;
  gUnitRefs units;
  cRef<gDocUnit> text; // what the file's comment says of it; null for nothing
};

// Functions, types and so on of one file: a stretch of them where there are very many.
struct gFilePart {
  gString title; // empty for all of a file
  std::span<cRef<gDocUnit> const> units;
};

// In the order in which the files come first.
std::vector<gUnitsOfFile> units_by_files(gUnitRefs const & units);

// Each text goes to its file; one without units of its own stands where its path belongs.
void add_file_texts(gUnitRefs const & texts, std::vector<gUnitsOfFile> & files);

// How much of the paths says nothing, since all begin with the same folders; in bytes.
std::size_t common_folders(std::vector<gUnitsOfFile> const & files);

// One part for a file of few units. Otherwise the units are ordered by their kinds, and no part has
// more than `most_units_of_part`. The parts point into `units`.
constexpr std::size_t most_units_of_part = 250;
std::vector<gFilePart> parts_of_file(gUnitRefs & units);
