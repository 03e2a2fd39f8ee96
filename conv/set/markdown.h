// A text file in Markdown, such as a README, as nodes.
#pragma once

#include <string>
#include <string_view>

#include "conv/atc/node.h"

struct gMarkdownText {
  std::string title; // of the first headline, if the text begins with one
  gNodeList body;    // without that headline
};

// Total on any bytes. HTML and pictures in the text are left out; of links the words stay where
// they lead to files beside the text.
gMarkdownText read_markdown(std::string_view text);
