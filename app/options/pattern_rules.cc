#include "app/options/pattern_rules.h"

#include "app/options/defaults.h"

namespace Vapp {

namespace {

std::string keyword_at(cObj const & keywords, int position) {
  return cat::as_string(keywords.at(position) / "0");
}

// The first position of a keyword in a record; -1 if it isn't there.
int position_in(cObj const & record, std::string const & keyword, int left_out) {
  cRef<cObj> const keywords = record.at("kwd");
  for (int i = 0; keywords && i < keywords->size(); ++i)
    if (i != left_out && keyword_at(*keywords, i) == keyword)
      return i;
  return -1;
}

gCheck check_unused(cRef<cObj> const & map, std::string const & name, char const * text) {
  if (map / name)
    return gRefusal{field_none, fill_text(text, {name})};
  return std::nullopt;
}

} // namespace

gKeywordPlace find_keyword(cObj const & options, std::string const & keyword,
                           gKeywordPlace const & left_out) {
  for (char const * kind : {"srcpat_unit", "srcpat_subentry"}) {
    cRef<cObj> const records = options.at("ana") / kind;
    for (cIterObj it = records ? records->begin() : cIterObj(nullptr); it.valid(); it++) {
      bool const same = it.key_as_string() == left_out.holder;
      int const position = position_in(*it, keyword, same ? left_out.position : -1);
      if (position >= 0)
        return {it.key_as_string(), position};
    }
  }
  return {};
}

gCheck check_new_keyword(cObj const & options, std::string const & keyword,
                         std::string const & separators, gKeywordPlace const & place) {
  if (gCheck const refusal = check_keyword(keyword, separators))
    return refusal;
  gKeywordPlace const found = find_keyword(options, keyword, place);
  if (found.position >= 0)
    return gRefusal{field_keyword, fill_text("Keyword already exists for %s.", {found.holder})};
  return std::nullopt;
}

gCheck check_new_attribute(cObj const & options, std::string const & name) {
  gCheck const refusal = check_identifier(name);
  return refusal ? refusal
                 : check_unused(options.at("attr"), name, "Attribute %s already defined.");
}

gCheck check_new_pattern(cObj const & options, std::string const & name) {
  gCheck const refusal = check_identifier(name);
  return refusal ? refusal
                 : check_unused(options.at("ana") / "srcpat_unit", name,
                                "Source pattern %s already exists.");
}

gCheck check_new_subentry(cObj const & options, std::string const & name) {
  gCheck const refusal = check_subentry_name(name);
  return refusal ? refusal
                 : check_unused(options.at("ana") / "srcpat_subentry", name,
                                "Subentry %s already esists.");
}

bool is_optional_pattern(std::string const & name) {
  return name == "spt_2star" || name == "spt_3slash";
}

std::string optional_pattern_text(std::string const & name) {
  return name == "spt_2star" ? "/** - no keywords" : "/// - no keywords";
}

namespace {

struct AddedKeyword {
  char const * subentry;
  char const * keyword;
};

std::vector<AddedKeyword> keywords_of(gSubentrySet set) {
  std::vector<AddedKeyword> keywords = {{"@parameter", "@param"}, {"@return", "@return"}};
  if (set == gSubentrySet::docpp)
    keywords = {{"@parameter", "@param"},
                {"@parameter", "@args"},
                {"@return", "@return"},
                {"@description", "@doc"},
                {"@sline", "@memo"}};
  return keywords;
}

void add_keyword(cMapObj & options, std::string const & subentry, std::string const & keyword) {
  cRef<cObj> const record = options.at("ana") / "srcpat_subentry" / subentry;
  if (record && find_keyword(options, keyword).position < 0)
    (*record)["kwd"].force_type(cat::type_vector())->append(make_keyword(keyword, ""));
}

void remove_keyword(cMapObj & options, std::string const & subentry, std::string const & keyword) {
  cRef<cObj> const record = options.at("ana") / "srcpat_subentry" / subentry;
  int const position = record ? position_in(*record, keyword, -1) : -1;
  if (position >= 0)
    record->at("kwd")->erase(std::to_string(position));
}

} // namespace

std::vector<std::string> subentries_of(gSubentrySet set) {
  if (set == gSubentrySet::javadoc)
    return {"@author", "@exception", "@see", "@version", "@deprecated", "@since"};
  return {"@author", "@exception", "@see", "@version", "@name", "@type"};
}

std::vector<std::string> add_subentry_set(cMapObj & options, gSubentrySet set) {
  cMapObj & subentries = options.submap("ana").submap("srcpat_subentry");
  std::vector<std::string> added;
  for (std::string const & name : subentries_of(set)) {
    if (subentries.at(name))
      continue;
    subentries.set(name, new_subentry());
    add_keyword(options, name, name);
    added.push_back(name);
  }
  for (AddedKeyword const & row : keywords_of(set))
    add_keyword(options, row.subentry, row.keyword);
  return added;
}

std::vector<std::string> remove_subentry_set(cMapObj & options, gSubentrySet set) {
  cMapObj & subentries = options.submap("ana").submap("srcpat_subentry");
  std::vector<std::string> removed;
  for (std::string const & name : subentries_of(set))
    if (subentries.erase(name))
      removed.push_back(name);
  for (AddedKeyword const & row : keywords_of(set))
    if (row.subentry != std::string(row.keyword))
      remove_keyword(options, row.subentry, row.keyword);
  return removed;
}

} // namespace Vapp
