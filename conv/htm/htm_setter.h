// Sets the text of units as HTML.
#pragma once

#include <unordered_map>

#include "conv/htm/colours.h"
#include "conv/htm/declaration_text.h"
#include "conv/htm/hierarchy_drawing.h"
#include "conv/htm/mathml.h"
#include "conv/htm/overview.h"
#include "conv/set/setter.h"

// A headline inside the text of a unit, for the list of places on the page.
struct gHeadline {
  std::string anchor, title; // finished text
  int level = 1;
};

// A class hierarchy with a page of its own. Finished texts.
struct gHierarchyPage {
  std::string file;
  std::string items;
  std::size_t shown = 0, all = 0; // classes
};

class gHtmSetter final : public gSetter {
public:
  gHtmSetter(gSite & site, gColours const & colours);

  // Texts that follow stand on this page; anchors are unique on each.
  void begin_page(int page);
  // Texts that follow stand on a further page, which has those of these units alone; null for the
  // page itself again. The anchors of all of them stay different.
  void begin_part(std::set<int> const * units) { part_ = units; }
  // The page that addresses are seen from; -1, as from the start page, on a further page.
  int link_page() const { return part_ ? -1 : page_; }
  // Texts that follow belong to this unit, whose heading has this level; -1 for running heads.
  void begin_unit(int unit, int level);
  // The notes of the unit as finished text, empty without any.
  std::string take_notes();
  std::vector<gHeadline> take_headlines() { return std::move(headlines_); }
  std::vector<gHierarchyPage> take_hierarchies() { return std::exchange(hierarchies_, {}); }
  // The declaration of a unit in one line, its name as a link to it; empty if it isn't known or too
  // long. Links lead from the current unit's page. `is_all` tells that nothing was left out.
  // The name may lead elsewhere, if `to` tells where.
  gMemberRow row_of(int unit, gRowPlace const & place, std::string const & to = {});
  // Words of another unit than the current one, as they are set in its own text.
  std::string words_of(int unit, gNodeList const & words);
  using gSetter::escape;
  void escape(std::string_view text, std::string & out) const override;

  // Where a bookmark of the unit stands on the page; empty for one that wasn't set.
  std::string const & made_anchor(std::string const & bookmark) { return made_[bookmark]; }
  // A link from the current page to a unit, or to an anchor on its page.
  gLinkEnd link_to(int unit, std::string_view place) const;
  std::string source_href(std::string_view path, std::string_view line) override;
  std::string editor_href(std::string_view path, std::string_view line) override;
  // Of a source where its project keeps it for all; empty if that isn't known.
  std::string repository_href(std::string const & path, std::string_view line);

protected:
  gLinkEnd link_end(gTarget const & target) override;
  gLinkEnd outer_link_end(std::string_view name) override;
  std::string anchor(std::string_view bookmark) override;
  std::string formula_text(gFormula const & formula) const override {
    return Html::mathml(formula);
  }
  std::string picture_href(std::string const & path) override;
  std::string headline_anchor(gNode const & node) override;
  std::string headline_level(gNode const & node) const override;
  std::string macro_text(std::string_view name) override;
  void set_verbatim(gNode const & node, bool declaration, std::string & out) override;
  void set_note(gNode const & node, std::string & out) override;
  std::string hierarchy_place(gNode const & node) override;
  std::string class_tree_place() override;
  std::string hierarchy_drawing(gNodeList const & steps) override;

private:
  std::string claim(std::string const & id);
  void set_declaration(std::string_view text, std::string & out);
  void draw_line(gDrawing const & drawing, gHierarchyEdge const & edge, std::string & out) const;
  void draw_box(gDrawnBox const & box, gNode const & step, std::string & out);
  // Not of a name that the declaration or a template around it binds.
  bool link_name(int from, std::string_view name, std::string & out);
  std::string linked_signature(int unit, std::string_view text,
                               DeclarationText::gOwnName const & own,
                               std::span<gStretch const> differing);
  std::string linked_head(int unit, std::string_view head);
  int inherited_type(int from, std::string_view name) const;
  bool link_outside(int from, std::string_view name, std::string & out);
  void find_bound_names(int unit, std::string_view declaration, gKnownFacts const & facts);

  gSite & site_;
  gColours const & colours_;
  std::string editor_;
  std::vector<std::string> bound_; // by the declaration at work
  int page_ = -1;
  std::set<int> const * part_ = nullptr;
  std::string_view root_; // from where links lead to the folder of the pages
  std::vector<gHierarchyPage> hierarchies_;
  // Anchors on the page that texts have made, and how often each was asked for.
  std::unordered_map<std::string, int> taken_;
  std::unordered_map<std::string, std::string> made_; // anchors of the unit, by their bookmarks
  int unit_level_ = 1, headline_level_ = 0;           // of headings; the latter counts in the unit
  int notes_done_ = 0;                                // on the page
  std::string notes_;
  std::vector<gHeadline> headlines_;
};
