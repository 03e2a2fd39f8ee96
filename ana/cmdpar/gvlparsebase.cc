// Parameters are checked as a whole before a command looks at them, so that the actions of the
// grammars may take what they need by position.
#include "ana/cmdpar/gvlparsebase.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <sstream>

#include "ana/anadat/input_table.h"
#include "vlb/gexception.h"
#include "vlb/messages.h"

void gVLParseBase::set_input(gSrcFile const & file) {
  gPathstring const before = scanner().cur_infile().path();
  if (scanner().close_infile() != 0)
    error(Msg::cannot_close, before);
  scanner().open_infile(file);
}

// A hint continues the report in front of it, which has told the position.
void gVLParseBase::error(gMessage const & message, gString const & argument) const {
  reports()(message, argument, message.is_hint() ? gReportPlace() : gReportPlace(cur_loc()));
}

void gVLParseBase::reset() {
  table_columns_ = 0;
  row_cells_ = 0;
  clearin();
}

bool gVLParseBase::check_params(gString const & name, gParamList & actual) const {
  auto const * formal = gCmdDefs.lookup(name);
  VLB_ASSERT(formal != nullptr);
  return check_positions(**formal, actual) && check_options(**formal, actual);
}

bool gVLParseBase::check_positions(gFParList const & formal, gParamList & actual) const {
  std::size_t n = 0;
  for (; n < formal.params.size() && n < actual.params.size(); ++n) {
    gParam & param = actual.params[n];
    gParamKind const wanted = formal.params[n].kind;
    if (wanted == gParamKind::list && param.kind == gParamKind::simple) {
      param = gParam::make_list(param.text);
    } else if (wanted != param.kind) {
      error(Msg::wrong_param_type, param_kind_name(param.kind));
      error(Msg::expected_type, param_kind_name(wanted));
      return false;
    }
  }
  if (n < formal.params.size() && !formal.params[n].optional) {
    error(Msg::too_few_params);
    return false;
  }
  if (n < actual.params.size()) {
    error(Msg::too_many_params);
    return false;
  }
  return true;
}

// Only the first option by name is looked at: others may be wrong without harm.
bool gVLParseBase::check_options(gFParList const & formal, gParamList const & actual) const {
  if (actual.options.empty())
    return true;
  auto const & [name, option] = *actual.options.begin();
  auto const known = formal.options.find(name);
  if (known == formal.options.end()) {
    error(Msg::invalid_option, name);
    return false;
  }
  if (!known->second.empty() && !known->second.contains(option.value)) {
    error(Msg::invalid_option_value, option.value);
    return false;
  }
  return true;
}

namespace {

// A number in the default format of streams, without the zeros that carry nothing.
gString printed(double number) {
  std::ostringstream out;
  out << number;
  return out.str();
}

bool read_number_and_unit(gString const & text, double & number, std::string & unit) {
  std::istringstream in(text);
  if (!(in >> number >> unit))
    return false;
  return unit == "cm" || unit == "mm" || unit == "pt" || unit == "%";
}

} // namespace

std::pair<gString, gString> gVLParseBase::read_measure(gString const & text) {
  double number;
  std::string unit;
  if (!read_number_and_unit(text, number, unit) || number < 0)
    return {};
  return {printed(number), unit};
}

bool gVLParseBase::read_font_size(gString & text) {
  std::istringstream in(text);
  double number;
  if (!(in >> number) || number <= 0)
    return false;
  text = printed(number) + "%";
  return true;
}

bool gVLParseBase::read_int(std::string_view text, int & value) {
  if (text.size() > 1 && text[0] == '+' && text[1] != '-')
    text.remove_prefix(1);
  auto const [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || end != text.data() + text.size())
    return false;
  if (fault == std::errc::result_out_of_range)
    value = text[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
  return fault != std::errc::invalid_argument;
}

bool gVLParseBase::check_columns(gStrList const & list) const {
  bool good = true;
  for (cRef<gString> const & column : list) {
    double number;
    std::string unit;
    if (*column == "*" || (read_number_and_unit(*column, number, unit) && number > 0))
      continue;
    error(Msg::invalid_column, *column);
    good = false;
  }
  return good;
}

bool gVLParseBase::check_marks(gStrList const & list) const {
  bool good = true;
  for (cRef<gString> const & mark : list) {
    if (*mark == "first" || *mark == "last" || std::strtol(mark->c_str(), nullptr, 10) >= 1)
      continue;
    error(Msg::invalid_mark, *mark);
    good = false;
  }
  return good;
}

gStrList gVLParseBase::option_pair(gString name, gString value) {
  gStrList pair;
  pair.push_back(std::move(name));
  pair.push_back(std::move(value));
  return pair;
}

void gVLParseBase::add_option(gParamList & params, gStrList const & name_and_value) const {
  params.add_option(*name_and_value.front(), *name_and_value.back(), cur_loc(), reports());
}

bool gVLParseBase::check_attribute(gString const & name) const {
  if (gInput->attributes.contains(name))
    return true;
  error(Msg::undefined_attribute, name);
  return false;
}

gPredicate gVLParseBase::make_predicate(gString const & attribute, gStrList const & values,
                                        bool equal) const {
  if (!check_attribute(attribute))
    return {};
  gAttrTest test;
  test.equal = equal;
  bool good = true;
  for (cRef<gString> const & value : values) {
    if (!gInput->has_value(attribute, *value)) {
      error(Msg::undefined_attribute_value, *value);
      good = false;
    }
    test.values.insert(*value);
  }
  return good ? gPredicate{{attribute, test}} : gPredicate();
}
