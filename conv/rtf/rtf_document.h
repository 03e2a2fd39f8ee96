// A document in one file.
#pragma once

#include <string>
#include <vector>

#include "conv/conversion.h"
#include "conv/rtf/rtf_setter.h"
#include "conv/rtf/rtf_template.h"
#include "conv/set/index_lines.h"
#include "conv/set/relation_text.h"
#include "conv/set/sources.h"

class gRtfDocument {
public:
  gRtfDocument(gConversion & conversion, gRtfTemplate & style);

  // The whole document. Throws gExcUserBreak if the user asked for a stop.
  std::string text();

private:
  // What stands in front of and behind the content of a frame.
  struct gFrame {
    std::string before, behind;
  };
  gFrame frame(gVltRule rule, std::string_view selector, gVltValues & values);
  std::string sections();
  void add_unit(int unit, std::string & out);
  void add_places(int unit, bool titled);
  void mark_unit(int unit, gUnitText & text);
  std::string contents() const;
  std::string index() const;
  std::string index_places(std::vector<gIndexPlace> const & places) const;
  bool running_heads_differ();

  gConversion & conversion_;
  gDocument const & document_;
  gVltRules const & rules_;
  gRtfTemplate & style_;
  gKinds const kinds_;
  gSources const sources_;
  gBookRelations const relations_;
  gRtfSetter setter_;
  bool heads_differ_;
  int contents_levels_;
  std::vector<gRtfHeadline> places_; // lines of the contents
  std::size_t next_entry_ = 0;       // of the document's index entries
};
