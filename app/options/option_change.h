// Whether a changed project tree keeps the rules, told by what differs from the tree before.
#pragma once

#include "app/options/text_rules.h"
#include "store/cmapobj.h"

namespace Vapp {

// The first rule that the change breaks. What stood in the tree before isn't tested again.
gCheck check_change(cObj const & before, cObj const & after);

} // namespace Vapp
