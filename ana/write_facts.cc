// The same reading as that of a run, without a table being filled.
#include "ana/write_facts.h"

#include "ana/anadat/tables.h"
#include "ana/modern_input.h"
#include "ana/read/facts_folder.h"
#include "vlb/gfilelist.h"
#include "vlb/gfilesystem.h"
#include "vlb/ordered.h"
#include "vlb/source_bytes.h"

namespace {

// The name of what can't be read or written; empty if all went well. A part of a Pascal unit has a
// file of nothing: what it says depends on who includes it.
std::string write_one(gModernReader & reader, gFactsFolder const & folder,
                      gSrcFile const & source) {
  std::string text;
  if (!Vlb::read_source(source.path(), text))
    return source.path();
  gModernFile file;
  file.facts.file = source;
  bool const part = source.language() == gLanguage::pascal && !Decl::has_pascal_head(text);
  if (!part)
    file = read_whole(reader, source, text);
  return folder.keep(file, part ? std::string_view() : text)
             ? std::string()
             : gPathstring(gInput->facts).append(gFactsFolder::name_of(source.path()));
}

} // namespace

std::list<gSrcFile> input_files_of(gRunInput const & input) {
  gSrcFile::set_cpp_ext(input.cpp_ext);
  gSrcFile::set_pas_ext(input.pas_ext);
  gFileList found(0);
  found.cur_dir(input.root);
  for (gFileGroup const & group : input.groups)
    found.add(group.paths, group.files, 1);
  std::list<gSrcFile> sources;
  for (gSrcFile const & file : found.files())
    sources.emplace_back(file.path(), "", 0);
  return sources;
}

std::string write_macros(gRunInput const & input) {
  Decl::gMacroTable const macros =
      collect_all_macros(input_files_of(input), Vlb::thread_count(input.jobs));
  return gFactsFolder::write_macros(input.facts, macros)
             ? std::string()
             : gPathstring(input.facts).append(gFactsFolder::macros_name);
}

std::string write_facts(gRunInput input, std::list<gSrcFile> const & sources) {
  std::optional<Decl::gMacroTable> macros = gFactsFolder::read_macros(input.facts);
  if (!macros) {
    if (std::string const fault = write_macros(input); !fault.empty())
      return fault;
    macros = gFactsFolder::read_macros(input.facts);
  }
  ana_take_input(std::move(input));
  gModernInput const modern = {macros ? std::move(*macros) : Decl::gMacroTable(), unit_words(),
                               comment_options(), gExampleFiles(gInput->comments.examples),
                               gExampleFiles(gInput->comments.pictures)};
  gTableTemplates const tables = gVLAttributes.tables();
  gFactsFolder const folder(gInput->facts, gInput->facts_key, modern.macros);
  std::vector<gSrcFile const *> wanted;
  for (gSrcFile const & source : sources)
    wanted.push_back(&source);
  unsigned const threads = Vlb::thread_count(gInput->jobs);
  Vlb::gPerWorker<gModernReader> readers(
      threads, [&] { return std::make_unique<gModernReader>(modern, tables); });
  Vlb::gOrdered<std::string> faults(threads, wanted.size(), [&](unsigned worker, std::size_t i) {
    return write_one(readers[worker], folder, *wanted[i]);
  });
  std::string fault;
  for (std::size_t i = 0; i < wanted.size(); ++i)
    if (std::string const one = faults.next(); fault.empty())
      fault = one;
  Global::objects().reset_all();
  return fault;
}
