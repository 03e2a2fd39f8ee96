// The methods of the type "cppmacro".
#pragma once

class cTypeObj;

namespace cat {
void init_cppmacro_type(cTypeObj & type);
} // namespace cat
