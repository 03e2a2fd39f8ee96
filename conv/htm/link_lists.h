// Lists of a site's names and addresses, by which other documentation can link to it: a tag file
// for Doxygen, and an inventory for Sphinx.
#pragma once

#include "conv/conversion.h"
#include "conv/htm/site.h"

namespace LinkLists {

// `name`: of the file in the result.
void write_tags(gConversion & conversion, gSite const & site, std::string const & name);
void write_inventory(gConversion & conversion, gSite const & site);

} // namespace LinkLists
