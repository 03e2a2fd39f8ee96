// Markdown as text with formats, links and blocks.
#pragma once

#include <functional>
#include <string_view>

#include "ana/comments/rich_text.h"

struct gMarkdownOptions {
  bool html = true;        // tags are HTML; else they are text, for someone else to know
  bool bare_links = false; // an address is a link without any mark
  // Sets running text; without it text is set as it stands.
  std::function<void(std::string_view, gRichText &)> set_text;
  // Where the file of a picture lies; empty if there is none.
  std::function<std::string(std::string_view)> picture;
  // Program text is shown as this makes it of what stands there.
  std::function<std::string(std::string_view)> plain;
};

// CommonMark with tables, task lists and strike-through.
void set_markdown(std::string_view text, gMarkdownOptions const & options, gRichText & out);

// A whole document, such as a README, as the text of a page of its own: headlines are sections.
gRichPieces markdown_page(std::string_view text);
