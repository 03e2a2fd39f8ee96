// Reads the sources of a help file back, as a help compiler would.
#pragma once

#include <map>
#include <string>
#include <vector>

struct HelpLink {
  std::string text, context, window;
  bool pops_up = false;
};

struct HelpTopic {
  // Context strings, and how much text stands in front of them.
  std::vector<std::pair<std::string, std::size_t>> contexts;
  std::map<char, std::string> notes;           // other footnotes, by their marks
  std::map<std::string, std::string> keywords; // with the context string that they lead to
  std::vector<HelpLink> links;
  std::string text;       // Windows-1252
  bool late_head = false; // a paragraph that doesn't scroll stands below one that does

  // The title, and the links as "text>context>window", in brackets if they pop up.
  std::string brief() const;
  // The context string of the end of the text so far.
  std::string here() const;
};

std::vector<HelpTopic> read_help_topics(std::string const & rtf);
// The sections of a help project, by names such as "[MAP]"; without comments and empty lines.
std::map<std::string, std::string> read_help_project(std::string const & text);
