// Everything here depends on options and bytes alone.
#include "ana/modern_input.h"

#include <algorithm>

#include "ana/anadat/tables.h"
#include "ana/cmdpar/keywords.h"
#include "ana/kind_attribute.h"
#include "app/options/run_flags.h"
#include "vlb/ordered.h"
#include "vlb/source_bytes.h"

namespace {

gString unit_type_of(gPatternInput const & pattern) {
  for (auto const & [name, value] : pattern.attributes)
    if (name == "UNITTYPE")
      return value;
  return {};
}

// As if a source defined them.
Decl::gMacroTable predefined_macros() {
  std::string text;
  for (auto const & [name, value] : aliases_of(gInput->comments.predefined, "1")) {
    std::string line = "#define " + name + " " + value + "\n";
    std::replace(line.begin(), line.end() - 1, '\n', ' ');
    text += line;
  }
  Decl::gMacroTable table;
  table.collect(text);
  return table;
}

} // namespace

std::map<std::string, gString, std::less<>> unit_words() {
  std::map<std::string, gString, std::less<>> words;
  if (gInput->comments.foreign)
    return words; // all comments are those of other systems
  for (gPatternInput const & pattern : gInput->patterns)
    for (gKeywordInput const & keyword : pattern.keywords)
      words.emplace(keyword.first, unit_type_of(pattern));
  return words;
}

gCommentOptions comment_options() {
  gCommentInput const & input = gInput->comments;
  gCommentOptions options;
  options.internal = input.internal;
  options.aliases = aliases_of(input.aliases);
  std::string_view names = input.sections;
  while (!names.empty()) {
    std::size_t const end = std::min(names.find_first_of("; ,\t\n"), names.size());
    if (end > 0)
      options.sections.emplace(names.substr(0, end));
    names.remove_prefix(std::min(end + 1, names.size()));
  }
  return options;
}

Decl::gMacroTable collect_all_macros(std::list<gSrcFile> const & files, unsigned threads) {
  std::vector<gPathstring> sources;
  for (gSrcFile const & file : files)
    if (file.language() == gLanguage::cpp)
      sources.push_back(file.path());
  Vlb::gOrdered<Decl::gMacroTable> tables(threads, sources.size(), [&](unsigned, std::size_t i) {
    Vapp::poll_break();
    Decl::gMacroTable table;
    if (std::string text; Vlb::read_source(sources[i], text))
      table.collect(text);
    return table;
  });
  Decl::gMacroTable all = predefined_macros();
  for (std::size_t i = 0; i < sources.size(); ++i)
    all.merge(tables.next());
  return all;
}

// What stands in a file of text is one comment.
gModernFile read_whole(gModernReader & reader, gSrcFile const & file, std::string const & text) {
  return file.language() == gLanguage::text ? reader.read_comment(file, text)
                                            : reader.read(file, text);
}

void ana_take_input(gRunInput input) {
  if (input.modern)
    add_kind_attribute(input);
  gInput.set(std::move(input));
  gVLAttributes.reset(); // a run that ended without memory has left none of its defaults
  gUEKeywords.build_keywords(*gInput);
  for (auto const & [name, title] : gInput->shown_subentries)
    gVLAttributes.add_subentry(name, title);
}
