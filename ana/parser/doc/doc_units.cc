// Units: made at their keyword, named by their head, filled by their text, facts at their end.
#include <charconv>
#include <tuple>

#include "ana/anadat/input_table.h"
#include "ana/parser/doc/doc_parse_base.h"

// Units and labels are counted here, because those of a unit that a fault loses are lost with it.
void doc_parse_base::begin(bool is_text) {
  cur_unit_ = {};
  cur_unit_.is_text = is_text;
  cur_unit_.place = {scanner_.keyword_line()};
  cur_unit_.number = facts_->units_made++;
  cur_unit_.label = facts_->labels_made++;
}

void doc_parse_base::begin_unit(Doc::Keyword const & keyword) {
  begin(false);
  for (auto const & entry : keyword.pattern->attr)
    cur_unit_.set_attribute(*entry.name, *entry.value);
  scanner_.set_unit_type(cur_unit_.attribute("UNITTYPE"));
}

void doc_parse_base::end_unit(bool is_named) {
  cur_unit_.is_named = is_named;
  facts_->units.push_back(std::move(cur_unit_));
  cur_unit_ = {};
}

void doc_parse_base::enter_unit() {
  end_unit(!cur_unit_.names.empty());
}

// The label is made of the name, so a named unit has a new one.
void doc_parse_base::name_unit(gString const & separator, gStrList const & names) {
  cur_unit_.name_sep = separator;
  cur_unit_.names = names;
  cur_unit_.label = facts_->labels_made++;
}

void doc_parse_base::name_unit(gStrList name) {
  gString const separator = *name.front();
  name.pop_front();
  name_unit(separator, name);
}

void doc_parse_base::leave_unnamed() const {
  error(Msg::unparsed_identifier);
  error(Msg::treating_as_unnamed);
}

gStrList doc_parse_base::first_name(gString part) {
  gStrList name{gString()};
  name.push_back(std::move(part));
  return name;
}

gStrList doc_parse_base::scoped_name(gStrList name, gString const & separator, gString part) {
  name.set(name.begin(), separator);
  name.push_back(std::move(part));
  return name;
}

void doc_parse_base::add_text(gString const & subentry, gStrList text) {
  if (!text.is_wsp())
    cur_unit_.add_subentry(subentry, std::move(text));
}

// A command that failed gives no pieces and costs nothing else.
void doc_parse_base::set_headline(gStrList const & text) {
  if (text.empty())
    return;
  if (!cur_unit_.headline.empty())
    reports()(Msg::overwriting_headline, {}, gLoc(cur_file(), cur_unit_.place.line));
  cur_unit_.headline = text;
}

void doc_parse_base::set_hierarchy(Doc::Levels levels) {
  std::tie(cur_unit_.hier_up, cur_unit_.hier_down) = levels;
}

Doc::Levels doc_parse_base::class_levels(gParamList & params) const {
  if (!check_params("classhierarchy", params))
    return {0, 0};
  int const up = class_level(params, "up");
  return {up, class_level(params, "down")};
}

// The number at the front of the option's text.
int doc_parse_base::class_level(gParamList const & params, std::string_view option) const {
  if (!params.has_option(option))
    return hier_all;
  gString const text = params.option(option);
  char const * const digits = text.data() + (text.starts_with('+') && !text.starts_with("+-"));
  int level = 0;
  auto const [end, fault] = std::from_chars(digits, text.data() + text.size(), level);
  if (fault == std::errc() && level >= 0)
    return level;
  error(Msg::invalid_hierarchy_level, text);
  return 0;
}

void doc_parse_base::add_link(gStrList references) {
  cur_unit_.link_line.append(std::move(references));
}

void doc_parse_base::set_style(gParamList & params) {
  if (check_params("style", params))
    cur_unit_.style = params.word(0);
}

void doc_parse_base::set_attribute(gParamList & params) {
  if (!check_params("set", params) || !check_attribute(params.word(0)))
    return;
  gString const & name = params.word(0);
  gString const & value = params.word(1);
  if (gInput->has_value(name, value))
    cur_unit_.set_attribute(name, value);
  else
    error(Msg::undefined_attribute_value, value);
}

void doc_parse_base::clear_flag(gDocUnit::Flag flag) {
  cur_unit_.flags &= ~flag;
}

void doc_parse_base::begin_text_unit(gString const & name) {
  begin(true);
  cur_unit_.names.push_back(name);
  cur_unit_.set_attribute("UNITTYPE", "text");
  text_pending_ = true;
}

void doc_parse_base::enter_text_unit(gStrList body) {
  cur_unit_.add_subentry("text", std::move(body));
  end_unit(!cur_unit_.names.front()->empty());
}

void doc_parse_base::add_running_text(gStrList & pieces, Doc::Text text) {
  if (text_pending_ && !text->wsp_only()) {
    pieces.push_back(piece("@text\n"));
    text_pending_ = false;
  }
  pieces.push_back(std::move(text));
}

gStrList doc_parse_base::running_text(Doc::Text text) {
  gStrList pieces;
  add_running_text(pieces, std::move(text));
  take_texts([&](Doc::Text & next) { add_running_text(pieces, std::move(next)); });
  return pieces;
}

// Breaks right behind a headline vanish.
gStrList doc_parse_base::running_element(gStrList element) {
  if (!text_pending_ || element.empty())
    return element;
  if (*element.front() == "@endl\n" || *element.front() == "@endp\n") {
    element.pop_front();
    return element;
  }
  text_pending_ = false;
  element.push_front(piece("@text\n"));
  return element;
}

gStrList doc_parse_base::joined_head(gStrList body, gStrList head) {
  text_pending_ = true;
  return joined(body, head);
}

gStrList doc_parse_base::section_head(int level, gParamList & params) {
  std::string const digit = std::to_string(level);
  if (!check_params("sub" + digit, params))
    return {};
  gStrList const & text = params.pieces(0);
  gStrList pieces(gString("@subtoc<" + digit + ">{"));
  pieces.append(params.params.size() > 1 ? params.pieces(1) : text);
  pieces.push_back(piece("}\n"));
  pieces.push_back(gString("@sub<" + digit + ">{"));
  pieces.append(text);
  pieces.push_back(piece("}\n"));
  return pieces;
}

gStrList doc_parse_base::subtitle(int level, gParamList & params) {
  std::string const digit = std::to_string(level);
  if (!check_params("subtitle" + digit, params))
    return {};
  gStrList pieces(gString("@subentry<" + digit + "> @subtitle{"));
  pieces.append(params.pieces(0));
  pieces.push_back(piece("}\n"));
  return pieces;
}
