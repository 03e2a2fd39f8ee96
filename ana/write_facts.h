// Reading ahead of a run: what sources say goes into files, for runs that name their folder.
#pragma once

#include <list>
#include <string>

#include "app/options/run_input.h"
#include "vlb/gsrcfile.h"

// The sources that the groups of an input name, in the order of a run.
std::list<gSrcFile> input_files_of(gRunInput const & input);

// Writes the macros of all sources of the input into its facts folder. An older file that holds the
// same stays as it is. The file that can't be written, or nothing.
std::string write_macros(gRunInput const & input);

// Writes what some sources say, a file for each. The macros come from the folder; where they
// aren't, they are collected and written, too. The file that can't be read or written, or nothing.
std::string write_facts(gRunInput input, std::list<gSrcFile> const & sources);
