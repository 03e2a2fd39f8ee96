// One walk over the nodes. The text inside a node is made first and then handed to the node's rule
// as a value, so that a script decides about everything around it.

#include "conv/set/setter.h"

#include <utility>

#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

void gSetter::set(gNodeList const & nodes, std::string & out) {
  for (gNode const & node : nodes)
    set_node(node, out);
}

std::string gSetter::set(gNodeList const & nodes) {
  std::string out;
  set(nodes, out);
  return out;
}

std::string gSetter::escaped(std::string_view text) const {
  std::string out;
  escape(text, out);
  return out;
}

std::string gSetter::class_word(std::string_view text) {
  std::string word;
  for (char const c : text)
    if (Vlb::is_letter(c))
      word += Vlb::lower(c);
    else if (!word.empty() && word.back() != '-')
      word += '-';
  if (word.ends_with('-'))
    word.pop_back();
  return word;
}

void gSetter::set_node(gNode const & node, std::string & out) {
  if (node.kind == gNodeKind::text)
    escape(node.text, out);
  else if (node.kind < gNodeKind::paragraph)
    set_inline(node, out);
  else
    set_block(node, out);
}

void gSetter::set_inline(gNode const & node, std::string & out) {
  using enum gNodeKind;
  switch (node.kind) {
  case em:
    return set_format(gVltRule::em, node, out);
  case kbd:
    return set_format(gVltRule::kbd, node, out);
  case bold:
    return set_format(gVltRule::b, node, out);
  case italic:
    return set_format(gVltRule::i, node, out);
  case tt:
    return set_format(gVltRule::tt, node, out);
  case plain:
    return set_format(gVltRule::plain, node, out);
  case dfn:
    return set_format(gVltRule::dfn, node, out);
  case code:
    return set_format(gVltRule::code, node, out);
  case underline:
    return set_format(gVltRule::ul, node, out);
  case font_size:
    return set_format(gVltRule::fontsize, node, out);
  case format:
    return set_format(gVltRule::fmt, node, out);
  case left_tab:
    return set_tab(gVltRule::ltab, node, out);
  case centre_tab:
    return set_tab(gVltRule::ctab, node, out);
  case right_tab:
    return set_tab(gVltRule::rtab, node, out);
  case reference:
    return set_reference(node, document_.find_label(node.param(1)), out);
  case name_ref:
    return set_name_ref(node, out);
  case web_link:
    return set_web_link(gVltRule::weblink, node, out);
  case image:
    return set_web_link(gVltRule::image, node, out);
  case picture:
    return set_picture(node, out);
  case formula:
    return set_formula(node, out);
  case bookmark:
    // A script without a rule for help identifiers has one for bookmarks.
    return set_bookmark(node.param(1) == "hid" && rules_.has(gVltRule::hid) ? gVltRule::hid
                                                                            : gVltRule::bkmk,
                        node, out);
  case hid_alias:
    return set_bookmark(gVltRule::hidalias, node, out);
  case index_entry:
    return set_index_entry(node, out);
  case macro:
    return set_macro(node, out);
  case source_link:
    return set_source_link(node, out);
  case margin_note:
  case footnote:
  case endnote:
    return set_note(node, out);
  case line_break:
    return rules_.apply(gVltRule::endl, gVltValues().set(gVltValue::text, "\n"), out);
  default:
    return set(node.children, out);
  }
}

// Formats with a parameter are told apart by it; the rules of the others have no selector.
void gSetter::set_format(gVltRule rule, gNode const & node, std::string & out) {
  std::string const & parameter = node.param(0);
  std::string const text = set(node.children);
  bool const is_size = rule == gVltRule::fontsize;
  std::string const shown = is_size ? measure(node) : escaped(parameter);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::name, shown);
  values.set(is_size ? gVltValue::width : gVltValue::style, shown);
  rules_.apply(rule, parameter, values, out);
}

void gSetter::set_tab(gVltRule rule, gNode const & node, std::string & out) {
  std::string const width = measure(node);
  rules_.apply(rule, gVltValues().set(gVltValue::width, width), out);
}

// What other addresses do when they are followed is nobody's wish.
bool gSetter::is_safe_address(std::string_view address) {
  for (std::string_view const scheme : {"http://", "https://", "ftp://", "mailto:"})
    if (Vlb::to_lower(address.substr(0, scheme.size())) == scheme)
      return true;
  return false;
}

void gSetter::set_web_link(gVltRule rule, gNode const & node, std::string & out) {
  bool const here = node.param(1) == "here" && node.param(0).starts_with('#');
  bool const links = !in_link_ && (here || is_safe_address(node.param(0)));
  bool const outer = std::exchange(in_link_, in_link_ || links);
  std::string const text = set(node.children);
  in_link_ = outer;
  if (!links) {
    out += text;
    return;
  }
  std::string const href = escaped(node.param(0));
  rules_.apply(rule, gVltValues().set(gVltValue::text, text).set(gVltValue::href, href), out);
}

// Without a place for the file, or without a rule, its words stand for it.
void gSetter::set_picture(gNode const & node, std::string & out) {
  std::string const text = set(node.children);
  std::string const href =
      rules_.has(gVltRule::picture) ? picture_href(node.param(0)) : std::string();
  if (href.empty()) {
    out += text;
    return;
  }
  std::string const file = node.param(0).substr(node.param(0).rfind('/') + 1);
  std::string const name = escaped(file.substr(0, file.rfind('.'))), address = escaped(href);
  std::string const width = escaped(node.param(2));
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::href, address);
  values.set(gVltValue::name, name).set(gVltValue::width, width);
  rules_.apply(gVltRule::picture, node.param(1), values, out);
}

void gSetter::set_formula(gNode const & node, std::string & out) {
  std::string const source = escaped(node.param(1));
  std::string unknown;
  std::optional<gFormula> const formula = Formula::parse(node.param(1), unknown);
  if (!unknown.empty())
    reports()(Msg::unknown_formula, unknown);
  std::string const text = formula ? formula_text(*formula) : source;
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::name, source);
  values.set(gVltValue::mark, formula ? "1" : "");
  rules_.apply(gVltRule::formula, node.param(0), values, out);
}

void gSetter::set_name_ref(gNode const & node, std::string & out) {
  std::string const & name = node.param(1);
  gTarget const target = document_.find_name(unit_, name);
  if (!target)
    if (gLinkEnd const end = outer_link_end(name); !end.href.empty())
      return set_link(node, in_link_ ? gLinkEnd() : end, out);
  if (!target && missing_.emplace(unit_, name).second) {
    gReportPlace place(document_.name);
    if (unit_ >= 0) {
      gUnitRecord const & record = document_.units[static_cast<std::size_t>(unit_)];
      place = {record.path, record.source_line};
    }
    reports()(Msg::named_target_not_found, name, place);
  }
  set_reference(node, target, out);
}

// No target knows links inside links: the inner ones of a damaged text are text alone.
void gSetter::set_reference(gNode const & node, gTarget const & target, std::string & out) {
  gLinkEnd end;
  if (target && !in_link_)
    end = link_end(target);
  set_link(node, end, out);
}

void gSetter::set_link(gNode const & node, gLinkEnd const & end, std::string & out) {
  bool const outer = std::exchange(in_link_, in_link_ || !end.href.empty());
  std::string const text = set(node.children);
  in_link_ = outer;
  std::string const & wintype = node.param(0);
  std::string const shown = escaped(wintype);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::wintype, shown);
  if (end.href.empty())
    return rules_.apply(gVltRule::noref, values, out);
  values.set(gVltValue::href, end.href).set(gVltValue::target, end.title);
  values.set(gVltValue::kind, end.kind).set(gVltValue::context, end.context);
  rules_.apply(gVltRule::cref, wintype, values, out);
}

void gSetter::set_bookmark(gVltRule rule, gNode const & node, std::string & out) {
  std::string const id = anchor(node.param(0));
  if (!id.empty())
    rules_.apply(rule, gVltValues().set(gVltValue::id, id), out);
}

void gSetter::set_index_entry(gNode const & node, std::string & out) {
  using enum gVltValue;
  std::string const place = node.param(0).empty() ? std::string() : anchor(node.param(0));
  std::string texts[5];
  for (std::size_t i = 0; i < 5; ++i)
    texts[i] = escaped(node.param(i + 1));
  gVltValues values;
  values.set(id, place).set(before, texts[0]).set(key, texts[1]);
  values.set(between, texts[2]).set(second_key, texts[3]).set(after, texts[4]);
  rules_.apply(gVltRule::xe, values, out);
}

void gSetter::set_macro(gNode const & node, std::string & out) {
  std::string const & name = node.param(0);
  std::string const text = escaped(macro_text(name));
  std::string const shown = escaped(name);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::name, shown);
  rules_.apply(gVltRule::macro, name, values, out);
}

void gSetter::set_source_link(gNode const & node, std::string & out) {
  using enum gVltValue;
  std::string const & file = node.param(0);
  std::string const & position = node.param(1);
  std::string const inner = set(node.children);
  std::string const to = in_link_ ? std::string() : source_href(file, position);
  std::string const edit = in_link_ ? std::string() : editor_href(file, position);
  std::string const shown_file = escaped(file), shown_number = escaped(position);
  gVltValues values;
  values.set(text, inner).set(href, to).set(editor, edit);
  values.set(path, shown_file).set(line, shown_number);
  rules_.apply(gVltRule::srclink, values, out);
}

void gSetter::set_note(gNode const & node, std::string & out) {
  gVltRule const rule = node.kind == gNodeKind::margin_note ? gVltRule::marnote
                        : node.kind == gNodeKind::footnote  ? gVltRule::footnote
                                                            : gVltRule::endnote;
  std::string const number = std::to_string(next_note());
  std::string const text = set(node.children);
  gVltValues values;
  values.set(gVltValue::text, text).set(gVltValue::number, number);
  rules_.apply(rule, values, out);
}

std::string gSetter::headline_anchor(gNode const &) {
  return {};
}

std::string gSetter::headline_level(gNode const & node) const {
  return escaped(node.param(0));
}

std::string gSetter::indentation() const {
  return {};
}

std::string gSetter::measure(gNode const & node) const {
  return escaped(node.param(0));
}

std::string gSetter::source_href(std::string_view, std::string_view) {
  return {};
}

std::string gSetter::editor_href(std::string_view, std::string_view) {
  return {};
}
