// The tables of a run, in the order of construction, init and reset.
#include "ana/anadat/tables.h"

gInputTable gInput;
gRunFindings gFindings;
gRunCounters gCounters;
gTextPool gTexts;

gGlobalList<gSrcFile> gSrcFiles;
gGlobalList<gSrcFile> gInputFiles;
gGlobalList<gPathstring> gTmpFiles;

gFileObjTable<cRef<gDocUnit>> gNamedUnits;
gFileObjTable<cRef<gDocUnit>> gUnnamedUnits;
gUnitNameTable gUnitNames;
gGlobalHash<cRef<gCitation>> gCitations;
gCitedFileCache gCitedFiles;
gGlobalHash<int> gBookmarks;
gFileObjTable<cRef<gCodeElem>> gCodeElems;
gFileObjTable<cRef<gCmt>> gComments;
gClassTable gCppClasses;
gClassTable gPasClasses;
gGlobalHash<std::vector<cRef<gDocUnit>>> gGeneratedUnits;
gTemplates gVLAttributes;
gDocManagerObj gDocManager;
