// Sets the text of units for help topics.
#pragma once

#include "conv/rtf/help_contexts.h"
#include "conv/rtf/help_keywords.h"
#include "conv/rtf/rtf_setter.h"
#include "conv/set/relation_text.h"

// A topic that a text gives away: a note as a pop-up, or a class hierarchy.
struct gHelpAside {
  bool popup = false;
  std::string context, title, body; // finished text, but for the title
};

struct gHelpLooks {
  bool simple_index = false;         // all keywords lead to the topic's beginning
  bool hierarchies_apart = false;    // class hierarchies are topics of their own
  std::string hierarchy_word;        // what such a topic is, in words
  int text_width = 0, font_size = 0; // twips; half points
};

class gHelpSetter : public gRtfSetter {
public:
  gHelpSetter(gDocument const & document, gVltRules const & rules, gKinds const & kinds,
              gHelpContexts & contexts, gHelpKeywords const & keywords, gHelpLooks const & looks);

  // The content of a unit. References to what opens in another window are given its window type,
  // and aliases are taken out.
  gUnitText begin(int unit);
  // The headline. What is marked in it has its place where the unit begins.
  std::string set_headline(gNodeList const & nodes);
  // Context strings and keywords for the beginning of the unit: of what is marked in it and has got
  // no place in its text.
  std::vector<std::string> left_contexts(gUnitText const & text);
  std::vector<std::string> left_keywords() const;
  std::vector<gHelpAside> take_asides() { return std::exchange(asides_, {}); }

  std::set<std::string, std::less<>> const & placed() const { return placed_; }
  // Further names of places: name and context string.
  std::map<std::string, std::string> const & aliases() const { return aliases_; }

protected:
  gLinkEnd link_end(gTarget const & target) override;
  std::string anchor(std::string_view bookmark) override;
  std::string headline_anchor(gNode const &) override { return {}; }
  void set_note(gNode const & node, std::string & out) override;
  void set_hierarchy(gNode const & node, std::string & out) override;
  void set_index_entry(gNode const & node, std::string & out) override;

private:
  void settle(gNodeList & nodes);
  void settle_window(gNode & reference) const;
  void settle_help_id(gNode & node);

  gBookRelations const relations_;
  gHelpContexts & contexts_;
  gHelpKeywords const & keywords_;
  gHelpLooks const & looks_;
  bool in_headline_ = false;
  std::string last_place_;                     // the context string in front of an alias
  std::set<std::string, std::less<>> placed_;  // context strings that stand in the text
  std::set<std::string, std::less<>> entries_; // of the unit: labels of those with a place
  std::map<std::string, std::string> aliases_;
  std::vector<gHelpAside> asides_;
};
