// A bound unit has two accounts of the same thing: what its author wrote and what the source
// declares. Here they are merged, and differences and gaps reported.
#include "ana/anadat/tables.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// A free function is a method, and a variable a member, once the code shows a class around it.
bool is_refined(gString const & own, gString const & code) {
  return (own == "function" && code == "method") || (own == "var" && code == "member");
}

} // namespace

// True if the code's value counts.
bool gDocUnit::report_difference(gMessage const & message, gString const & own,
                                 gString const & code) {
  bool const adopt = gInput->association.diffattr_code;
  if (!gInput->association.diffattr_err)
    return adopt;
  Msg::log(message, own, loc_);
  if (adopt)
    Msg::log(Msg::adopting_code_value, code);
  else
    Msg::log(Msg::retaining_unit_value);
  return adopt;
}

void gDocUnit::merge_attr(gString const & name, gString const & code, gMessage const & message) {
  gString const & own = get_attr(name);
  bool const silent = own == "undefined" || own == code || is_refined(own, code);
  bool const adopt = silent || report_difference(message, own, code);
  set_attr(name, adopt ? code : gString(own));
}

void gDocUnit::merge_text(gString const & subentry, gString const & code) {
  if (Vapp::config_automatic(gInput->digits(get_attr("UNITTYPE"), subentry)))
    set_subentry(subentry, gStrList(make_ref<gString>(Vlb::escape_atc(code))));
}

void gDocUnit::update_from_code() {
  if (!code_elem_)
    return;
  gCodeElem const & ce = *code_elem_;
  names_ = Names(code_elem_);
  take_label();
  set_name_sep(ce.loc.file().name_sep());
  merge_attr("UNITTYPE", unit_type_name(ce.type), Msg::unittype_differs);
  merge_attr("VISIBILITY", ce.visibility, Msg::visibility_differs);
  merge_attr("VIRTUALITY", ce.flags & spec_virtual ? "virtual" : "nonvirtual",
             Msg::virtuality_differs);
  if (gInput->has_kinds && ce.kind != Decl::gKind::none)
    merge_attr("KIND", gString(Decl::kind_word(ce.kind)), Msg::kind_differs);
  merge_text("@declaration", ce.decl);
  merge_text("@heritage", ce.heritage);
}

void gSyntUnit::check() const {
  gLoc const where = loc();
  if (!code_elem() && gInput->association.miss_warn)
    Msg::log(Msg::no_code_element, name(), where);
  gString const & type = get_attr("UNITTYPE");
  for (gSubEntries::Entry const & entry : subentries())
    if (gInput->digits(type, *entry.name) < 0)
      Msg::log(Msg::subentry_not_permitted, *entry.name, where);
  auto const config = gInput->unit_config.find(type);
  if (config == gInput->unit_config.end())
    return;
  for (auto const & [subentry, digits] : config->second.entries()) {
    if (!Vapp::config_fill_out(digits))
      continue;
    gSubText const * text = subentries().find(subentry);
    if (!text || text->is_wsp())
      Msg::log(Msg::empty_subentry, subentry, where);
  }
}

bool is_missing(gDocUnit const & unit) {
  return !unit.code_elem() && (unit_type_value(unit.get_attr("UNITTYPE")) & 0x1FF) != 0;
}
