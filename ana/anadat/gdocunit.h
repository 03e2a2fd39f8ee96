// Text units: what the authors wrote, what was generated, and the copies placed in the document.
#pragma once

#include <array>
#include <cstdint>

#include "ana/anadat/gattributes.h"
#include "ana/anadat/gcodeelem.h"
#include "ana/anadat/gdocnode.h"
#include "ana/anadat/goutstate.h"
#include "ana/anadat/gsubentries.h"
#include "ana/anadat/gsubtext.h"
#include "vlb/gmessage.h"

// Position in the document: the counts at the depths 0 to 7.
using gOutline = std::array<int, 8>;

// Levels of a class hierarchy.
constexpr int hier_unset = -2;
constexpr int hier_all = -1;

// The running numbers of a unit.
struct gUnitNumbers {
  // The next ones of the run.
  static gUnitNumbers next();

  std::uint32_t unit;
  int label;
};

// A run holds about two units for each thing that a source declares, so a unit is small: everything
// that a copy or a code element holds as well is shared with them.
class gDocUnit : public gDocNode {
public:
  enum Flag : int { bookmark = 1, index_entry = 2, flag_p = 4, flag_o = 8, flag_s = 16 };

  // Tables and the document hold units by cRef.
  gDocUnit(gStrList const & names, gString const & name_sep, gSrcFile const & file, int line,
           gUnitNumbers numbers);

  // names, joined with name_sep.
  gString name() const;
  // The last part of the name; empty if there is none.
  gString const & first_name() const;
  // The second-to-last part; empty if there are fewer than two.
  gString const & second_name() const;
  gStrList const & names() const { return *names_; }
  gString const & name_sep() const { return *name_sep_; }
  void set_name_sep(gString const & sep);
  // All parts of the name joined with no separator: what the label is made from.
  gString sort_key() const;

  // Appends to a subentry, or makes it.
  void add_subentry(gString const & name, gStrList text);
  // Replaces a subentry, or makes it.
  void set_subentry(gString const & name, gStrList text);
  gSubEntries & subentries() { return subentries_; }
  gSubEntries const & subentries() const { return subentries_; }

  // "undefined" if the unit has no such attribute.
  gString const & get_attr(std::string_view name) const;
  void set_attr(gString const & name, gString const & value);

  // Ties the unit to a code element; a rank below 1 counts as 1.
  void bind(cRef<gCodeElem> const & ce, int rank);
  cRef<gCodeElem> const & code_elem() const { return code_elem_; }
  int rank() const { return rank_; }

  gLoc const & loc() const { return loc_; }
  // The location of the code element or, without one, of the unit.
  gLoc const & code_loc() const { return code_elem_ ? code_elem_->loc : loc_; }
  int flags() const { return flags_; }
  void clear_flag(Flag flag) { flags_ &= ~flag; }
  std::uint32_t number() const { return number_; }
  // The style of the unit's own; empty for none.
  gString const & style() const;
  void set_style(gString const & style);
  gStrList const & link_line() const;
  // For changes: makes the list if there is none.
  gStrList & link_line();
  // The source link's text, empty for none; known from compile on.
  gStrList const & srclink_text() const;
  gOutline const & outline() const { return outline_; }
  void set_outline(gOutline const & outline) { outline_ = outline; }

  // Merges what the code says into the unit; does nothing without a code element. The unit uses the
  // code element's name list from then on.
  void update_from_code();

  // A copy for the document, with a label of its own and its bookmarks and index entries settled.
  virtual void clone(cRef<gDocUnit> & out) const = 0;
  // "VL_A", up to 23 characters of the name, "_" and a running number.
  virtual gString label() const;
  // Reports what is missing or not permitted in the unit.
  virtual void check() const {}
  // Ties a placed copy to the templates of the current section.
  virtual void compile(cRef<gOutState> & state);
  virtual gString style_name() const;
  // Settles tables and $curclass.
  virtual void expand_table(cRef<gOutState> & state);
  virtual void expand_subentries();
  virtual void write_head(std::ostream & stream) const;

protected:
  gDocUnit(gDocUnit const &) = default;

  // Ends every clone: the label, bookmarks and index entries of the copy.
  void finish_copy();
  // Settles "@_vlbkmk" and "@_vlxe" in a list that may be shared; null stays null.
  static void settle_marks(cRef<gTextList> & list);
  // Settles a whole list. With `keep_references` they stay as they were written.
  void expand(gStrList & list, bool keep_references = false) const;
  // Settles a list that may be shared.
  void expand(cRef<gTextList> & list, bool keep_references) const;
  // Settles everything that is written with the head.
  void expand_links();
  void write_link_block(std::ostream & stream) const;
  // Writes a text with its white space normalised, in a frame with a title; false, and nothing is
  // written, if it is empty or white space alone.
  static bool write_text(std::ostream & stream, std::string_view before, gStrList const & title,
                         std::string_view middle, gSubText const & text, std::string_view behind);
  // Lets the texts go: a placed copy is written once, and quoted sources can be long.
  void release_texts();
  // True if unitconfig has "Verbatim" for this subentry of the unit's type.
  bool is_verbatim(std::string_view subentry) const;
  cRef<gUnitLook const> const & look() const { return look_; } // null before compile
  void add_to_front_of_link_line(cRef<gTextList> const & list);

private:
  // A name list inside an object that others may hold too.
  class Names {
  public:
    explicit Names(gStrList const & names);
    explicit Names(cRef<gCodeElem> const & ce) : owner_(ce), list_(&ce->names) {}
    gStrList const & operator*() const { return *list_; }
    gStrList const * operator->() const { return list_; }

  private:
    Names(cRef<gTextList> const & made) : owner_(made), list_(&made->list) {}
    cRef<cShared> owner_;
    gStrList const * list_;
  };

  void take_label();
  bool report_difference(gMessage const & message, gString const & own, gString const & code);
  void merge_attr(gString const & name, gString const & code, gMessage const & message);
  void merge_text(gString const & subentry, gString const & code);
  void expand_tables(gSubText & text) const;
  // Each settles the piece that a walk stands at, perhaps with the pieces behind it.
  struct Walk;
  void expand_piece(Walk & walk) const;
  void expand_reference(Walk & walk) const;
  void expand_alias(Walk & walk) const;
  void expand_guess(Walk & walk) const;
  gString label_in_scope(std::string_view name) const;
  void expand_attribute(Walk & walk) const;
  void expand_citation(Walk & walk) const;
  gString citation_text(gString const & name) const;
  // The plain value of a unit variable or $curclass.
  gString variable(std::string_view name) const;
  void write_facts(std::ostream & stream) const;
  void write_index(std::ostream & stream, std::string_view label) const;

  gSubEntries subentries_;
  gAttributes attributes_;
  Names names_;
  cRef<gTextList> link_line_;    // null for none
  cRef<gTextList> srclink_text_; // the same
  gLoc loc_;
  cRef<gString const> name_sep_;
  cRef<gString const> style_;    // null for none
  cRef<gString const> curclass_; // the class block that the copy stands in; null for none
  cRef<gCodeElem> code_elem_;
  cRef<gUnitLook const> look_;
  gOutline outline_{};
  int flags_ = 31;
  int rank_ = 0;
  std::uint32_t number_;
  int label_number_; // the running number in the label
};

// A continuous text: free text under the subentry "text", with headlines of its own.
class gTextUnit : public gDocUnit {
public:
  // The name is the one member of names(), even if it is empty.
  gTextUnit(gString const & name, gSrcFile const & file, int line,
            gUnitNumbers numbers = gUnitNumbers::next());

  void clone(cRef<gDocUnit> & out) const override;
  void emit(std::ostream & stream) override;
  void write_head(std::ostream & stream) const override;
};

// A unit that documents a program element.
class gSyntUnit : public gDocUnit {
public:
  gSyntUnit(gStrList const & names, gString const & name_sep, gSrcFile const & file, int line,
            gUnitNumbers numbers = gUnitNumbers::next());

  // The unit's own or, from compile on, that of its template.
  gStrList const & headline() const;
  void set_headline(gStrList const & text);
  void set_hierarchy(int up, int down);
  int hier_up() const { return hier_up_; }
  int hier_down() const { return hier_down_; }
  // The name of its unit template; empty before compile.
  gString const & unit_template() const;

  void clone(cRef<gDocUnit> & out) const override;
  void emit(std::ostream & stream) override;
  void check() const override;
  void compile(cRef<gOutState> & state) override;
  gString style_name() const override;

private:
  void compile_hierarchy(gUnitLook const & look);
  void write_item(std::ostream & stream, gContentsItem const & item, gStrList const & headline);
  void write_subentry(std::ostream & stream, gContentsItem const & item);
  void write_verbatim(std::ostream & stream, gStrList const & title, gSubText const & text) const;
  // The pieces of an item; they are put into `copy` if they must be settled.
  gStrList const & settled(gContentsItem const & item, gStrList & copy);
  void write_hierarchy(std::ostream & stream) const;

  cRef<gTextList> headline_; // null for none of its own
  int hier_up_ = hier_unset;
  int hier_down_ = hier_unset;
};

// True if the unit has no code element though its type is one that code can have.
bool is_missing(gDocUnit const & unit);

// The label of a name: "VL_A", up to 23 characters of it in upper case with "_" for all but
// letters, digits and "_", then "_" and the number.
gString make_label(std::string_view name, std::string_view number);
