// All tables of a run. They live as long as the process; a run fills them, and the reset of
// Global::objects() at its end empties them. tables.cc defines them in this order, which is the
// order of construction, init and reset. Only the worker thread of a run touches them.
#pragma once

#include <list>

#include "ana/anadat/gcitation.h"
#include "ana/anadat/gcitedfile.h"
#include "ana/anadat/gclasstable.h"
#include "ana/anadat/gcmt.h"
#include "ana/anadat/gdocmanager.h"
#include "ana/anadat/gfileobjtable.h"
#include "ana/anadat/gunitnames.h"
#include "ana/anadat/gvlattributes.h"
#include "ana/anadat/input_table.h"
#include "ana/anadat/text_pool.h"
#include "vlb/gcounter.h"

// A list that a run fills.
template <class T> struct gGlobalList : gGlobalObj, std::list<T> {
  void reset() override { this->clear(); }
};

// The two running numbers of a run.
struct gRunCounters : gGlobalObj {
  std::uint32_t units = 0; // number of the next gDocUnit
  gCounter labels;
  void reset() override {
    units = 0;
    labels.reset();
  }
};

extern gRunCounters gCounters;
extern gTextPool gTexts; // words and attributes that units share

extern gGlobalList<gSrcFile> gSrcFiles;    // expanded input files
extern gGlobalList<gSrcFile> gInputFiles;  // preprocessed ones: temporary path, user's path, number
extern gGlobalList<gPathstring> gTmpFiles; // all temporary files of the sources

extern gFileObjTable<cRef<gDocUnit>> gNamedUnits;
extern gFileObjTable<cRef<gDocUnit>> gUnnamedUnits;
extern gUnitNameTable gUnitNames;
extern gGlobalHash<cRef<gCitation>> gCitations;
extern gCitedFileCache gCitedFiles;
extern gGlobalHash<int> gBookmarks; // name in upper case: 0 defined, 1 taken by a copy
extern gFileObjTable<cRef<gCodeElem>> gCodeElems;
extern gFileObjTable<cRef<gCmt>> gComments; // comments without a text unit, by first line
extern gClassTable gCppClasses;
extern gClassTable gPasClasses;
extern gGlobalHash<std::vector<cRef<gDocUnit>>> gGeneratedUnits;
extern gTemplates gVLAttributes;
extern gDocManagerObj gDocManager;
