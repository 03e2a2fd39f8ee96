// A context string may stand in a help file once, and only where text is; so what is marked in a
// headline, or in something that isn't shown, moves to the beginning of its unit.

#include "conv/rtf/help_setter.h"

#include <algorithm>

#include "conv/atc/unit_facts.h"
#include "conv/rtf/rtf_marks.h"
#include "conv/set/enum_table.h"
#include "conv/set/macro_variants.h"
#include "conv/set/relation_text.h"

using V = gVltValue;

gHelpSetter::gHelpSetter(gDocument const & document, gVltRules const & rules, gKinds const & kinds,
                         gHelpContexts & contexts, gHelpKeywords const & keywords,
                         gHelpLooks const & looks)
    : gRtfSetter(document, rules, kinds, looks.text_width, looks.font_size),
      relations_(document),
      contexts_(contexts),
      keywords_(keywords),
      looks_(looks) {}

gUnitText gHelpSetter::begin(int unit) {
  begin_unit(unit);
  entries_.clear();
  last_place_ = contexts_.of_unit(unit);
  gUnitText text = document().text_of(unit);
  gUnitRecord const & record = document().units[static_cast<std::size_t>(unit)];
  EnumTable::set_into(record, rules(), false, text.body);
  MacroVariants::set_into(record, rules(), text.body);
  RelationText::set_into(document(), relations_, rules(), unit, text.body);
  for (gNodeList * const nodes : {&text.toc_title, &text.title, &text.subject, &text.body})
    settle(*nodes);
  Rtf::sink_marks(text.body);
  return text;
}

void gHelpSetter::settle(gNodeList & nodes) {
  using enum gNodeKind;
  for (gNode & node : nodes) {
    if (node.kind == reference || node.kind == name_ref)
      settle_window(node);
    else if (node.kind == bookmark || node.kind == hid_alias)
      settle_help_id(node);
    settle(node.children);
  }
}

// A reference tells how its author wanted the target to open; that the target is a pop-up or has a
// window of its own counts where he said nothing.
void gHelpSetter::settle_window(gNode & reference) const {
  if (reference.param(0) != "main")
    return;
  gTarget const target = reference.kind == gNodeKind::name_ref
                             ? document().find_name(unit(), reference.param(1))
                             : document().find_label(reference.param(1));
  if (target)
    reference.params[0] = document().units[static_cast<std::size_t>(target.unit)].wintype;
}

// An alias names a place without marking it: often it is the name of a bookmark elsewhere.
void gHelpSetter::settle_help_id(gNode & node) {
  if (node.kind == gNodeKind::hid_alias) {
    if (std::string const * const alias = contexts_.of_alias(node.param(0)))
      aliases_.try_emplace(*alias, last_place_);
    node.kind = gNodeKind::text;
    node.text.clear();
  } else if (node.param(1) == "hid") {
    gTarget const place = document().find_label(node.param(0));
    if (place && !place.bookmark.empty())
      last_place_ = contexts_.of(node.param(0));
  }
}

std::string gHelpSetter::set_headline(gNodeList const & nodes) {
  in_headline_ = true;
  std::string headline = set_line(nodes);
  in_headline_ = false;
  return headline;
}

gLinkEnd gHelpSetter::link_end(gTarget const & target) {
  gLinkEnd end = gRtfSetter::link_end(target);
  end.context =
      target.bookmark.empty() ? contexts_.of_unit(target.unit) : contexts_.of(target.bookmark);
  end.href = end.context;
  return end;
}

std::string gHelpSetter::anchor(std::string_view bookmark) {
  if (in_headline_)
    return {};
  gTarget const place = document().find_label(bookmark);
  if (!place || place.bookmark.empty())
    return {};
  std::string const & context = contexts_.of(bookmark);
  return placed_.insert(context).second ? context : std::string();
}

std::vector<std::string> gHelpSetter::left_contexts(gUnitText const & text) {
  Atc::gMarks marks;
  Atc::take_marks(text, marks);
  std::vector<std::string> left;
  for (std::string const & bookmark : marks.bookmarks)
    if (std::string context = anchor(bookmark); !context.empty())
      left.push_back(std::move(context));
  return left;
}

std::vector<std::string> gHelpSetter::left_keywords() const {
  std::vector<std::string> left;
  std::vector<gIndexEntry> const & all = document().index_entries;
  auto at = std::ranges::lower_bound(all, unit(), {}, &gIndexEntry::unit);
  for (; at != all.end() && at->unit == unit(); ++at) {
    gIndexEntry const & entry = *at;
    if (!entry.label.empty() && entries_.contains(entry.label))
      continue;
    std::vector<std::string> const keywords = keywords_.of(entry.fields);
    left.insert(left.end(), keywords.begin(), keywords.end());
  }
  return left;
}

void gHelpSetter::set_index_entry(gNode const & node, std::string & out) {
  std::string const & label = node.param(0);
  gTarget const place = document().find_label(label);
  bool const has_place = place && !place.bookmark.empty();
  if (in_headline_ || looks_.simple_index || !has_place)
    return;
  entries_.insert(label);
  std::string fields[5];
  for (std::size_t i = 0; i < 5; ++i)
    fields[i] = node.param(i + 1);
  std::string const words = escaped(gHelpKeywords::joined(keywords_.of(fields)));
  std::string const context = anchor(label);
  rules().apply(gVltRule::xe, gVltValues().set(V::id, context).set(V::text, words), out);
}

// What is a foot of the page elsewhere pops up here.
void gHelpSetter::set_note(gNode const & node, std::string & out) {
  if (node.kind == gNodeKind::margin_note)
    return gRtfSetter::set_note(node, out);
  bool const at_end = node.kind == gNodeKind::endnote;
  std::string const number = std::to_string(next_note());
  gHelpAside aside;
  aside.popup = true;
  aside.context = contexts_.fresh(contexts_.of_unit(unit()) + "_N" + number);
  std::string const text = set(node.children);
  rules().apply(gVltRule::note, at_end ? "endnote" : "footnote",
                gVltValues().set(V::text, text).set(V::number, number), aside.body);
  gVltValues values;
  values.set(V::number, number).set(V::href, aside.context);
  rules().apply(at_end ? gVltRule::endnote : gVltRule::footnote, values, out);
  asides_.push_back(std::move(aside));
}

void gHelpSetter::set_hierarchy(gNode const & node, std::string & out) {
  if (!looks_.hierarchies_apart)
    return gRtfSetter::set_hierarchy(node, out);
  gUnitRecord const & record = document().units[static_cast<std::size_t>(unit())];
  gHelpAside aside;
  aside.context = contexts_.fresh(contexts_.of_unit(unit()) + "_H");
  aside.title = (record.toc.empty() ? record.title : record.toc) + ": " + looks_.hierarchy_word;
  gRtfSetter::set_hierarchy(node, aside.body);
  std::string const word = escaped(looks_.hierarchy_word);
  rules().apply(gVltRule::hierarchy, gVltValues().set(V::text, word).set(V::context, aside.context),
                out);
  asides_.push_back(std::move(aside));
}
