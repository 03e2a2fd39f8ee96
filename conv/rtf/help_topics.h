// The topics of a help file.
#pragma once

#include "conv/conversion.h"
#include "conv/rtf/help_setter.h"
#include "conv/rtf/rtf_template.h"
#include "conv/set/sources.h"

// A topic of a unit, with the topics that its text gave away.
struct gHelpTopic {
  std::string context, title; // plain text
  std::string wintype;        // "main", "subwin" or "popup"
  int parent = -1;            // the topic it stands below in the contents
  std::vector<int> units;     // in their order; the first one is what the topic is about
  std::vector<gHelpAside> hierarchies;
};

class gHelpTopics {
public:
  // A unit begins a topic if its level is at most that of the split or if it opens in a window of
  // its own; others are part of the topic of the unit above them.
  gHelpTopics(gConversion & conversion, gRtfTemplate & style, gHelpKeywords const & keywords);

  // All topics as RTF. Throws gExcUserBreak if the user asked for a stop.
  std::string text();
  // What text() made of the document.
  std::vector<gHelpTopic> const & topics() const { return topics_; }
  // Help identifiers that lead to a place, in their order, and further names for places.
  std::vector<std::string> help_ids();
  std::map<std::string, std::string> const & aliases() const { return setter_.aliases(); }

private:
  // What stands around the text of a topic; finished but for the title.
  struct gFrame {
    std::string context, title, aliases, wintype, style;
    std::vector<std::string> keywords; // plain text
    bool browsed = false;
    int section = 0;
  };

  void plan(int split_level);
  gHelpTopic const & topic_at(int unit) const {
    return topics_[static_cast<std::size_t>(topic_of_[static_cast<std::size_t>(unit)])];
  }
  void put_topic(std::size_t index, std::string & out);
  std::string put_unit(gHelpTopic const & topic, int unit, gFrame & frame);
  std::string unit_text(int unit, gVltValues & values);
  void put_hierarchy(gHelpAside const & aside, gFrame const & above, std::string & out);
  void put_frame(gFrame const & frame, std::string const & content, std::string & out);
  std::string overview(int unit);
  std::string shown_aliases(std::vector<std::string> const & contexts) const;

  gConversion & conversion_;
  gDocument const & document_;
  gVltRules const & rules_;
  gRtfTemplate & style_;
  gKinds const kinds_;
  gSources const sources_;
  gHelpContexts contexts_;
  gHelpLooks const looks_;
  gHelpSetter setter_;
  std::vector<gHelpTopic> topics_;
  std::vector<int> topic_of_; // by unit
  int browsed_ = 0;           // topics in browse sequences so far
  std::size_t units_done_ = 0;
};
