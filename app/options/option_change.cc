// One function for each part of the tree that has rules; each goes through the entries that are
// new or changed, and then through those that are gone.
#include "app/options/option_change.h"

#include <unordered_set>

#include "app/options/attributes.h"
#include "app/options/option_limits.h"
#include "app/options/pattern_rules.h"
#include "app/options/unitconfig_rules.h"
#include "store/json_text.h"

namespace Vapp {

namespace {

gCheck refuse(std::string message) {
  return gRefusal{field_none, std::move(message)};
}

gCheck refusal_of(gDeletion const & deletion) {
  return deletion.allowed ? std::nullopt : refuse(deletion.text);
}

// Calls check(key, value, value before) for each entry that differs, until one is refused.
template <class Check>
gCheck for_changes(cRef<cObj> const & before, cRef<cObj> const & after, Check const & check) {
  for (cIterObj it = after ? after->begin() : cIterObj(nullptr); it.valid(); it++) {
    std::string const key = it.key_as_string();
    cRef<cObj> const old = before / key;
    if (old && old->equal(*it))
      continue;
    if (gCheck const refusal = check(key, it.valref(), old))
      return refusal;
  }
  return std::nullopt;
}

template <class Check>
gCheck for_removed(cRef<cObj> const & before, cRef<cObj> const & after, Check const & check) {
  for (cIterObj it = before ? before->begin() : cIterObj(nullptr); it.valid(); it++)
    if (!(after / it.key_as_string()))
      if (gCheck const refusal = check(it.key_as_string()))
        return refusal;
  return std::nullopt;
}

gCheck check_values(cObj const & record, cRef<cObj> const & old) {
  for (char const * kind : {"valpre", "valusr"}) {
    auto const check = [&](std::string const & value, cRef<cObj> const &,
                           cRef<cObj> const & before) {
      if (before)
        return gCheck();
      cRef<cMapObj> others = make_ref<cMapObj>();
      if (std::string_view(kind) == "valusr" && record.at("valpre"))
        others->set("valpre", record.at("valpre"));
      return check_attribute_value(value, *others);
    };
    if (gCheck const refusal = for_changes(old / kind, record.at(kind), check))
      return refusal;
  }
  cRef<cObj> const predefined = old / "valpre";
  if (predefined && !(record.at("valpre") && predefined->equal(*record.at("valpre"))))
    return refuse("Cannot change predefined attribute values.");
  return std::nullopt;
}

gCheck check_attributes(cObj const & before, cObj const & after) {
  auto const check = [](std::string const & name, cRef<cObj> const & record,
                        cRef<cObj> const & old) {
    gCheck const refusal = old ? std::nullopt : check_identifier(name);
    return refusal ? refusal : check_values(*record, old);
  };
  if (gCheck const refusal = for_changes(before.at("attr"), after.at("attr"), check))
    return refusal;
  return for_removed(before.at("attr"), after.at("attr"), [&](std::string const & name) {
    return refusal_of(check_delete_attribute(after, name));
  });
}

gCheck check_removed_values(cObj const & before, cObj const & after) {
  cRef<cObj> const attributes = before.at("attr");
  for (cIterObj it = attributes ? attributes->begin() : cIterObj(nullptr); it.valid(); it++) {
    std::string const name = it.key_as_string();
    cRef<cObj> const now = after.at("attr") / name;
    auto const check = [&](std::string const & value) {
      return refusal_of(check_delete_value(after, name, value));
    };
    if (gCheck const refusal =
            now ? for_removed((*it).at("valusr"), now / "valusr", check) : gCheck())
      return refusal;
  }
  return std::nullopt;
}

gCheck check_keyword_pair(cObj const & after, cObj const & pair, gKeywordPlace const & place) {
  if (pair.size() != 2)
    return refuse("a keyword is a pair of texts: the keyword and its separators");
  return check_new_keyword(after, cat::as_string(pair.at(0)), cat::as_string(pair.at(1)), place);
}

// A keyword that stood there before keeps its right, as often as it stood there.
gCheck check_keywords(cObj const & after, std::string const & holder, cObj const & record,
                      cRef<cObj> const & old) {
  std::unordered_multiset<std::string> known;
  cRef<cObj> const old_keywords = old / "kwd";
  for (cIterObj it = old_keywords ? old_keywords->begin() : cIterObj(nullptr); it.valid(); it++)
    known.insert(to_json(*it));
  cRef<cObj> const keywords = record.at("kwd");
  for (cIterObj it = keywords ? keywords->begin() : cIterObj(nullptr); it.valid(); it++) {
    if (auto const same = known.find(to_json(*it)); same != known.end()) {
      known.erase(same);
      continue;
    }
    if (gCheck const refusal = check_keyword_pair(after, *it, {holder, it.pos()}))
      return refusal;
  }
  return std::nullopt;
}

gCheck check_pattern_attributes(cObj const & after, cObj const & record, cRef<cObj> const & old) {
  auto const check = [&](std::string const & name, cRef<cObj> const & value, cRef<cObj> const &) {
    cRef<cObj> const attribute = after.at("attr") / name;
    std::string const text = cat::as_string(value);
    if (attribute / "valpre" / text || attribute / "valusr" / text)
      return gCheck();
    return refuse("the attribute " + name + " has no value '" + text + "'");
  };
  return for_changes(old / "attr", record.at("attr"), check);
}

gCheck check_subject(cObj const & record) {
  int idspec = 0, slspec = 0;
  std::string slsep;
  cat::read(record.at("idspec"), idspec);
  cat::read(record.at("slspec"), slspec);
  cat::read(record.at("slsep"), slsep);
  if (idspec < 0 || idspec > 2)
    return refuse("idspec is 0, 1 or 2");
  if (slspec < 0)
    return refuse("slspec is 0 or a number of lines");
  gCheck const refusal = check_subject_separator(slsep);
  return refusal ? refusal : check_subject_line(idspec, slspec, slsep);
}

// The two optional patterns have no keywords, and their options make them.
gCheck check_optional(cObj const & after, std::string const & name, cObj const & record) {
  bool on = false;
  cat::read(after.at("ana") / name, on);
  if (!on)
    return refuse(name + " exists only while ana/" + name + " is true");
  if (record.at("kwd") && record.at("kwd")->size() > 0)
    return refuse(optional_pattern_text(name));
  return std::nullopt;
}

gCheck check_unit_patterns(cObj const & before, cObj const & after) {
  auto const check = [&](std::string const & name, cRef<cObj> const & record,
                         cRef<cObj> const & old) {
    gCheck refusal = old ? std::nullopt : check_identifier(name);
    if (!refusal && is_optional_pattern(name))
      refusal = check_optional(after, name, *record);
    if (!refusal)
      refusal = check_keywords(after, name, *record, old);
    if (!refusal)
      refusal = check_pattern_attributes(after, *record, old);
    return refusal ? refusal : check_subject(*record);
  };
  return for_changes(before.at("ana") / "srcpat_unit", after.at("ana") / "srcpat_unit", check);
}

gCheck check_subentries(cObj const & before, cObj const & after) {
  auto const check = [&](std::string const & name, cRef<cObj> const & record,
                         cRef<cObj> const & old) {
    gCheck const refusal = old ? std::nullopt : check_subentry_name(name);
    return refusal ? refusal : check_keywords(after, name, *record, old);
  };
  cRef<cObj> const old = before.at("ana") / "srcpat_subentry";
  cRef<cObj> const now = after.at("ana") / "srcpat_subentry";
  if (gCheck const refusal = for_changes(old, now, check))
    return refusal;
  return for_removed(
      old, now, [](std::string const & name) { return refusal_of(check_delete_subentry(name)); });
}

gCheck check_cell(std::string const & type, std::string const & subentry, int old, int now) {
  bool const digits = now >= 0 && now / 100 <= 1 && now / 10 % 10 <= 1 && now % 10 <= 1;
  if (!digits)
    return refuse("the digits of a subentry are 0 or 1 each: " + std::to_string(now));
  for (gConfigDigit digit : {config_fill_digit, config_automatic_digit, config_verbatim_digit})
    if (has_digit(old, digit) != has_digit(now, digit))
      if (gCheck const refusal = check_toggle(type, subentry, old, digit))
        return refusal;
  // A new default subentry has to be automatic from the start.
  if (subentry == "@description" && !has_digit(now, config_automatic_digit))
    return check_toggle(type, subentry, config_automatic_digit, config_automatic_digit);
  return std::nullopt;
}

gCheck check_unit_type(cObj const & after, std::string const & type) {
  cRef<cObj> const types = after.at("attr") / "UNITTYPE";
  if (!(types / "valpre" / type) && !(types / "valusr" / type))
    return refuse("no unit type '" + type + "'");
  return type == "undefined" ? refuse("the unit type 'undefined' has no subentries")
                             : check_configurable(type);
}

gCheck check_config(cObj const & before, cObj const & after) {
  cRef<cObj> const subentries = after.at("ana") / "srcpat_subentry";
  auto const check = [&](std::string const & type, cRef<cObj> const & config,
                         cRef<cObj> const & old) {
    auto const check_one = [&](std::string const & subentry, cRef<cObj> const & value,
                               cRef<cObj> const & old_value) {
      int now = 0, was = -1;
      cat::read(old_value, was);
      cat::read(value, now);
      return subentries / subentry ? check_cell(type, subentry, was, now)
                                   : refuse("no subentry '" + subentry + "'");
    };
    gCheck const refusal = check_unit_type(after, type);
    return refusal ? refusal : for_changes(old, config, check_one);
  };
  return for_changes(before.at("unitconfig"), after.at("unitconfig"), check);
}

gCheck check_macro(std::string const & name, gCppMacro const & macro) {
  if (gCheck const refusal = check_macro_name(name))
    return refusal;
  if (macro.name != name)
    return refuse("the name of a macro is its key");
  bool const action = macro.action >= 0 && macro.action <= 2;
  if (!action || macro.interpretation < 0 || macro.interpretation > 1)
    return refuse("action is 0, 1 or 2, interpretation is 0 or 1");
  if (macro.action == 2 && !macro.parameterized)
    return refuse("Only for parameterized macros.");
  return std::nullopt;
}

gCheck check_macros(cObj const & before, cObj const & after) {
  auto const check = [](std::string const & name, cRef<cObj> const & value, cRef<cObj> const &) {
    gCppMacro const * macro = cat::value_of<gCppMacro>(*value);
    return macro ? check_macro(name, *macro) : refuse("no record of a macro");
  };
  return for_changes(before.at("cppmacros"), after.at("cppmacros"), check);
}

gCheck check_groups(cObj const & before, cObj const & after) {
  auto const check = [](std::string const &, cRef<cObj> const & group, cRef<cObj> const &) {
    std::string const name = cat::as_string(group / "outgrp");
    return name.empty() ? gCheck() : check_identifier(name);
  };
  return for_changes(before.at("inputfiles"), after.at("inputfiles"), check);
}

} // namespace

gCheck check_change(cObj const & before, cObj const & after) {
  using Rules = gCheck (*)(cObj const &, cObj const &);
  constexpr Rules rules[] = {check_attributes, check_removed_values, check_unit_patterns,
                             check_subentries, check_config,         check_macros,
                             check_groups,     check_limits};
  for (Rules rule : rules)
    if (gCheck const refusal = rule(before, after))
      return refusal;
  return std::nullopt;
}

} // namespace Vapp
