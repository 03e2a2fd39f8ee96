// Sets the text of units by the rules of a script. What the targets do differently are the
// operations that they override.
#pragma once

#include <set>
#include <string>
#include <utility>

#include "conv/atc/document.h"
#include "conv/set/formula.h"
#include "conv/vlt/rules.h"
#include "vlb/gmsghandler.h"

struct gHierarchyItem;
struct gTableShape;

// Where a reference leads, as target text.
struct gLinkEnd {
  std::string href;  // empty: nowhere
  std::string title; // of the place
  std::string kind;
  std::string context; // the context string of a help topic
};

class gSetter {
public:
  gSetter(gDocument const & document, gVltRules const & rules)
      : document_(document),
        rules_(rules) {}
  virtual ~gSetter() = default;
  gSetter(gSetter const &) = delete;
  gSetter & operator=(gSetter const &) = delete;

  // Where faults are reported; the log without it. The sink has to outlive the setter.
  void report_to(gReportSink & sink) { reports_ = &sink; }
  // Appends the nodes as target text.
  void set(gNodeList const & nodes, std::string & out);
  void set(gNode const & node, std::string & out) { set_node(node, out); }
  std::string set(gNodeList const & nodes);
  // Appends plain text with the target's special characters escaped.
  virtual void escape(std::string_view text, std::string & out) const = 0;
  std::string escaped(std::string_view text) const;

protected:
  // The unit that the nodes belong to; -1 for running heads.
  int unit() const { return unit_; }
  void set_unit(int unit) {
    unit_ = unit;
    notes_ = 0;
  }
  gDocument const & document() const { return document_; }
  gVltRules const & rules() const { return rules_; }
  gReportSink & reports() const { return *reports_; }

  // What a reference leads to, and the anchor of a bookmark or a headline.
  virtual gLinkEnd link_end(gTarget const & target) = 0;
  // Where a name leads that the document has not; nowhere if it isn't known either.
  virtual gLinkEnd outer_link_end(std::string_view) { return {}; }
  virtual std::string anchor(std::string_view bookmark) = 0;
  // Anchor of a headline inside the text; empty if the target has none.
  virtual std::string headline_anchor(gNode const & node);
  // Its depth as the target counts it: in its text, if nothing else is said.
  virtual std::string headline_level(gNode const & node) const;
  // Link to a place in a source and the one that opens the editor there.
  virtual std::string source_href(std::string_view path, std::string_view line);
  virtual std::string editor_href(std::string_view path, std::string_view line);
  // What a macro stands for, as plain text: cur_file the document, cur_date and cur_time those of
  // SOURCE_DATE_EPOCH or else of now. A target that has fields gives them in its script.
  virtual std::string macro_text(std::string_view name);

  // Nodes that a target sets in another way than by their rule alone.
  virtual void set_verbatim(gNode const & node, bool declaration, std::string & out);
  virtual void set_note(gNode const & node, std::string & out);
  virtual void set_table(gNode const & node, std::string & out);
  void set_picture(gNode const & node, std::string & out);
  // Where the file of a picture is in the result; empty if the target shows none.
  virtual std::string picture_href(std::string const &) { return {}; }
  void set_formula(gNode const & node, std::string & out);
  // A formula that is understood, as finished text of the target.
  virtual std::string formula_text(gFormula const & formula) const {
    return escaped(Formula::plain(formula));
  }
  virtual void set_hierarchy(gNode const & node, std::string & out);
  // The address of a page with more of a large hierarchy than fits among other things; empty if the
  // target has no such pages.
  virtual std::string hierarchy_place(gNode const & node);
  // Where the class of the unit stands among all others; empty if the target has no such place.
  virtual std::string class_tree_place() { return {}; }
  // The same steps as a picture; empty if the target has none.
  virtual std::string hierarchy_drawing(gNodeList const & steps);
  virtual void set_index_entry(gNode const & node, std::string & out);
  virtual void set_block(gNode const & node, std::string & out);
  // An item of a list: its text, and what has to stand below it. HTML has items with all in them.
  virtual void set_item(gNode const & item, std::string & text, std::string & below);
  // What a target calls the indentation of the current list; empty if the target does it itself.
  virtual std::string indentation() const;
  // The same of a class that stands so deep in a tree, from 1.
  virtual std::string step_indentation(int depth) const;
  // The width of a tab or the size of a font as the target writes it.
  virtual std::string measure(gNode const & node) const;

  // Classes that a hierarchy shows among other things if it has a page of its own, and on that page
  // or without one.
  static constexpr std::size_t short_hierarchy = 60, long_hierarchy = 500;
  // From so many on a reader asks for it.
  static constexpr std::size_t folded_hierarchy = 12;
  // The tree of a hierarchy, or what is nearest to its class if there are more steps than `most`.
  std::string set_steps(gNodeList const & steps, std::size_t most);
  void set_node(gNode const & node, std::string & out);
  void set_reference(gNode const & node, gTarget const & target, std::string & out);
  // The same to an end that is found already; it may lead nowhere.
  void set_link(gNode const & node, gLinkEnd const & end, std::string & out);
  // The number of the next note of the unit, from 1.
  int next_note() { return ++notes_; }
  // How many lists are open.
  int list_level() const { return list_level_; }
  // A word for class names of style sheets: "See also" is "see-also".
  static std::string class_word(std::string_view text);
  // Whether a link may lead there: none that runs a script.
  static bool is_safe_address(std::string_view address);

private:
  void set_inline(gNode const & node, std::string & out);
  void set_format(gVltRule rule, gNode const & node, std::string & out);
  void set_tab(gVltRule rule, gNode const & node, std::string & out);
  void set_web_link(gVltRule rule, gNode const & node, std::string & out);
  void set_name_ref(gNode const & node, std::string & out);
  void set_bookmark(gVltRule rule, gNode const & node, std::string & out);
  void set_macro(gNode const & node, std::string & out);
  void set_source_link(gNode const & node, std::string & out);
  void set_paragraph(gVltRule rule, gNode const & node, std::string & out);
  void set_headline(gNode const & node, std::string & out);
  void set_link_line(gNode const & node, std::string & out);
  void set_list(gNode const & node, std::string & out);
  void set_subentry(gNode const & node, std::string & out);
  void set_cells(gTableShape const & shape, gNode const & row, bool marked, std::string & out);
  void set_step(gHierarchyItem const & item, std::string & out);

  gDocument const & document_;
  gVltRules const & rules_;
  gReportSink * reports_ = &Msg::log;
  int unit_ = -1;
  int notes_ = 0;
  int list_level_ = 0;
  bool in_link_ = false;
  std::set<std::pair<int, std::string>> missing_; // reported: unit and name
};
