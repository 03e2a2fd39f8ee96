// A text file in Markdown, such as a README, as nodes.
#pragma once

#include <string>
#include <string_view>

#include "conv/atc/node.h"

struct gMarkdownText {
  std::string title; // of the first headline, if the text begins with one
  gNodeList body;    // without that headline
};

// Total on any bytes. Pictures are left out; HTML counts as far as comments have it. Links that
// lead to files beside the text, or to places in it, keep their addresses as they are written.
gMarkdownText read_markdown(std::string_view text);
