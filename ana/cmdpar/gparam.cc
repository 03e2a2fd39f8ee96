// Actual parameters are a plain record; the one rule here is that an option given twice is told.
#include "ana/cmdpar/gparam.h"

#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

gString param_kind_name(gParamKind kind) {
  switch (kind) {
  case gParamKind::simple:
    return "simple";
  case gParamKind::list:
    return "list";
  case gParamKind::predicate:
    return "predicate";
  case gParamKind::text:
    return "text";
  }
  return "";
}

gParam gParam::make_simple(gString text) {
  gParam param;
  param.text = std::move(text);
  return param;
}

gParam gParam::make_list(gStrList list) {
  gParam param;
  param.kind = gParamKind::list;
  param.list = std::move(list);
  return param;
}

gParam gParam::make_predicate(gPredicate predicate) {
  gParam param;
  param.kind = gParamKind::predicate;
  param.predicate = std::move(predicate);
  return param;
}

gParam gParam::make_text(gStrList pieces) {
  gParam param = make_list(std::move(pieces));
  param.kind = gParamKind::text;
  return param;
}

void gParamList::add_option(gString const & name, gString const & value, gLoc const & loc,
                            gReportSink & reports) {
  auto [place, is_new] = options.try_emplace(name, Option{value, loc});
  if (is_new)
    return;
  reports(Msg::redefining_option, name, place->second.loc);
  place->second = {value, loc};
}

gString gParamList::option(std::string_view name) const {
  auto const place = options.find(gString(name));
  return place == options.end() ? gString() : place->second.value;
}

bool gParamList::has_option(std::string_view name) const {
  return options.contains(gString(name));
}

gStrList const & gParamList::pieces(std::size_t n) const {
  static gStrList const none;
  return n < params.size() ? params[n].list : none;
}

gString const & gParamList::word(std::size_t n) const {
  static gString const none;
  return n < params.size() ? params[n].text : none;
}
