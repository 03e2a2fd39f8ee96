// Source that is taken in runs, which end anywhere, all the same has tokens with a limit.
#pragma once

#include "vlb/parse/scan_base.h"

// For the actions of run rules: a run that was cut at the limit for tokens gives a word at its end
// back. gExcFatalErr if a word or a literal fills it whole.
void keep_words_whole(gScanBase & scanner);
