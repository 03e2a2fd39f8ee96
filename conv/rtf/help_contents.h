// The contents of a help file, and how lines of help projects are written.
#pragma once

#include <string>
#include <vector>

#include "conv/rtf/help_topics.h"

namespace Help {

// One line of text for a help compiler: Windows-1252, without control characters.
std::string line(std::string_view text);
// The contents file: a book for a topic that others stand below, with the topic as its first page.
std::string contents(std::vector<gHelpTopic> const & topics, std::string const & help_file,
                     std::string const & title);

} // namespace Help
