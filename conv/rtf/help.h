// The sources of a help file.
#pragma once

class gConversion;

// Topics, contents file, help project and map file. False after a report.
bool make_help(gConversion & conversion);
