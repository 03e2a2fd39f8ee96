// The fields of a unit and the small operations on them.
#include <algorithm>

#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::size_t label_length = 23;

gStrList const & no_pieces() {
  static gStrList const none;
  return none;
}

gString const & no_text() {
  static gString const none;
  return none;
}

gStrList const & list_of(cRef<gTextList> const & list) {
  return list ? list->list : no_pieces();
}

} // namespace

gString make_label(std::string_view name, std::string_view number) {
  gString label("VL_A");
  label.reserve(4 + label_length + 1 + number.size());
  for (char c : name.substr(0, label_length))
    label += Vlb::is_word(c) ? c : '_';
  label.toupper();
  label += '_';
  label += number;
  return label;
}

gDocUnit::Names::Names(gStrList const & names) : Names(make_ref<gTextList>(names)) {}

gUnitNumbers gUnitNumbers::next() {
  return {gCounters.units++, gCounters.labels.next()};
}

gDocUnit::gDocUnit(gStrList const & names, gString const & name_sep, gSrcFile const & file,
                   int line, gUnitNumbers numbers)
    : names_(names),
      loc_(file, line),
      name_sep_(Vlb::intern(name_sep)),
      number_(numbers.unit),
      label_number_(numbers.label) {}

void gDocUnit::take_label() {
  label_number_ = gCounters.labels.next();
}

gString gDocUnit::name() const {
  return names_->make_string(*name_sep_);
}

gString const & gDocUnit::first_name() const {
  return names_->empty() ? no_text() : *names_->back();
}

gString const & gDocUnit::second_name() const {
  return names_->size() < 2 ? no_text() : **std::prev(names_->end(), 2);
}

void gDocUnit::set_name_sep(gString const & sep) {
  name_sep_ = Vlb::intern(sep);
}

gString gDocUnit::sort_key() const {
  return names_->make_string("");
}

gString gDocUnit::label() const {
  std::string stem;
  for (auto it = names_->begin(); it != names_->end() && stem.size() < label_length; ++it)
    stem.append(**it, 0, label_length);
  return make_label(stem, std::to_string(label_number_));
}

void gDocUnit::add_subentry(gString const & name, gStrList text) {
  subentries_[name].append(std::move(text));
}

void gDocUnit::set_subentry(gString const & name, gStrList text) {
  subentries_[name] = std::move(text);
}

gString const & gDocUnit::get_attr(std::string_view name) const {
  static gString const undefined = "undefined";
  gString const * value = attributes_.find(name);
  return value ? *value : undefined;
}

void gDocUnit::set_attr(gString const & name, gString const & value) {
  attributes_.set(name, value);
}

void gDocUnit::bind(cRef<gCodeElem> const & ce, int rank) {
  code_elem_ = ce;
  rank_ = std::max(rank, 1);
}

gString const & gDocUnit::style() const {
  return style_ ? *style_ : no_text();
}

void gDocUnit::set_style(gString const & style) {
  style_ = style.empty() ? nullptr : Vlb::intern(style);
}

gString gDocUnit::style_name() const {
  return style_ ? *style_ : get_attr("UNITTYPE");
}

gStrList const & gDocUnit::link_line() const {
  return list_of(link_line_);
}

gStrList & gDocUnit::link_line() {
  if (!link_line_ || link_line_->refcount() > 1)
    link_line_ = make_ref<gTextList>(list_of(link_line_));
  return link_line_->list;
}

gStrList const & gDocUnit::srclink_text() const {
  return list_of(srclink_text_);
}

bool gDocUnit::is_verbatim(std::string_view subentry) const {
  return look_ ? look_->is_verbatim(subentry)
               : Vapp::config_verbatim(gInput->digits(get_attr("UNITTYPE"), subentry));
}

gTextUnit::gTextUnit(gString const & name, gSrcFile const & file, int line, gUnitNumbers numbers)
    : gDocUnit(gStrList(name), "", file, line, numbers) {}

gSyntUnit::gSyntUnit(gStrList const & names, gString const & name_sep, gSrcFile const & file,
                     int line, gUnitNumbers numbers)
    : gDocUnit(names, name_sep, file, line, numbers) {}

gStrList const & gSyntUnit::headline() const {
  bool const from_template = (!headline_ || headline_->list.empty()) && look();
  return list_of(from_template ? look()->headline : headline_);
}

void gSyntUnit::set_headline(gStrList const & text) {
  headline_ = make_ref<gTextList>(text);
}

void gSyntUnit::set_hierarchy(int up, int down) {
  hier_up_ = up;
  hier_down_ = down;
}

gString const & gSyntUnit::unit_template() const {
  return look() ? look()->unit_template : no_text();
}

gString gSyntUnit::style_name() const {
  if (style().empty() && look() && !look()->style.empty())
    return look()->style;
  return gDocUnit::style_name();
}
