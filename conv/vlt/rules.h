// The rules of a transformation script, ready for use.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "conv/vlt/vocabulary.h"
#include "vlb/gpathstring.h"

// The values of one use of a rule. Holds views: what they show must live until the use is over.
class gVltValues {
public:
  gVltValues & set(gVltValue value, std::string_view text) {
    texts_[static_cast<std::size_t>(value)] = text;
    return *this;
  }
  std::string_view operator[](gVltValue value) const {
    return texts_[static_cast<std::size_t>(value)];
  }

private:
  std::array<std::string_view, vlt_value_count> texts_;
};

// A template in parts that need no more parsing.
struct gVltPart {
  enum Kind : unsigned char { literal, value, when, otherwise };
  Kind kind = literal;
  gVltValue what = gVltValue::text; // of a value and of a condition
  std::string text;                 // of a literal; what a condition compares with, if it does
  bool compares = false;
  int jump = 0; // the part to go on with if a condition fails, or behind the first branch
};
using gVltTemplate = std::vector<gVltPart>;

class gVltRules {
public:
  // Reads a script with all that it includes; what a script names twice, the later one decides.
  // Faults are reported with file and line and cost their line or rule alone. False if the script
  // itself can't be read.
  bool load(gPathstring const & script);
  // The same from memory; includes are sought beside `path`, then in the folder of the defaults.
  void parse(std::string_view text, gPathstring const & path);

  // Appends the target text of a rule: that for the selector if there is one, else the general
  // one. Without any rule: the values text, items, title or content, whichever isn't empty.
  void apply(gVltRule rule, std::string_view selector, gVltValues const & values,
             std::string & out) const;
  void apply(gVltRule rule, gVltValues const & values, std::string & out) const {
    apply(rule, {}, values, out);
  }
  // Whether there is a rule for the selector itself or, without one, a general rule.
  bool has(gVltRule rule, std::string_view selector = {}) const;
  // A setting of the script, @set<name> = value.
  std::string setting(std::string_view name, std::string_view fallback = {}) const;

private:
  friend class gVltParser;
  struct gVariants {
    bool defined = false;
    gVltTemplate general;
    std::map<std::string, gVltTemplate, std::less<>> selected;
  };
  std::array<gVariants, vlt_rule_count> rules_;
  std::map<std::string, std::string, std::less<>> settings_;
};
