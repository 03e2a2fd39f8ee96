// The subentries that comments of other documentation systems are translated to. The modern dialect
// reads such comments in every project, so it knows them without an entry of the user's.
#pragma once

struct gRunInput;
class cMapObj;

namespace Vapp {

// Adds what is missing: these subentries with their keywords, to each type of unit, and the source
// patterns that translated comments begin with. What the project says stays as it is. Where no
// script says how a unit looks, they are shown behind what every project has.
void permit_comments(gRunInput & input);

// What a new project says besides the defaults: today's sources, each declaration with a unit.
void choose_modern(cMapObj & options);

} // namespace Vapp
