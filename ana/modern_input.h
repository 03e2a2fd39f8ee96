// What the reading of a source by itself takes from the run: for the run, and for whoever reads
// some sources ahead of it.
#pragma once

#include <list>

#include "ana/read/read_modern.h"

// The keywords that say that a comment is in the project's own mark-up.
std::map<std::string, gString, std::less<>> unit_words();

// What the project says about comments; it reads no file by itself.
gCommentOptions comment_options();

// Of all sources of C and C++ among the files, in their order.
Decl::gMacroTable collect_all_macros(std::list<gSrcFile> const & files, unsigned threads);

// A source that is no part of another one.
gModernFile read_whole(gModernReader & reader, gSrcFile const & file, std::string const & text);

// Takes the input of a run into the tables that reading asks.
void ana_take_input(gRunInput input);
