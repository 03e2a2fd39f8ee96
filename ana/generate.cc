// Reads all tables. Fills gDocManager by the commands of the script, and then the output folder.

#include "ana/ana_thread.h"
#include "ana/anadat/gatcfile.h"
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "ana/cmdpar/gcmd.h"
#include "ana/stages.h"
#include "vlb/folder_record.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

void compile(gCmdSeq & commands) {
  Msg::log(Msg::compiling);
  auto state = make_ref<gOutState>();
  state->cur_dir = gFileSystem::get_curdir();
  gPathstring const input_dir = gInput->root;
  if (gFileSystem::dir_exists(input_dir))
    state->cur_dir = input_dir;
  state->miss_output = gInput->association.miss_output;
  commands.execute(state);
}

// Enters all files of the set in the record of the output folder. False, after a report, if a file
// of the user stands in the place of one.
bool claim_files(gPathstring const & document, std::set<gString> const & outputs) {
  gPathstring folder = gInput->out_dir;
  folder.normalize(true);
  std::set<std::string> names = {document.substr(std::min(folder.size() + 1, document.size()))};
  for (gString const & output : outputs) {
    gPathstring const path = Vlb::atx_path(output);
    if (path.size() > folder.size())
      names.insert(path.substr(folder.size() + 1));
  }
  std::string const taken = gFolderRecord(folder).claim(names);
  if (!taken.empty())
    Msg::log(Msg::cannot_write, folder.append(taken), "no run has left it there");
  return taken.empty();
}

bool write_document(gPathstring const & path, std::set<gString> const & outputs) {
  Msg::log(Msg::status) << "  " << path << std::endl;
  gFileSystem::mk_dirs(path.dir_name());
  gAtcFile file(path);
  if (!file.is_open())
    return false;
  ana_atc_header(file.stream(), outputs);
  gDocManager.root().emit(file.stream());
  file.stream() << "\n@e_atc\n";
  return file.close() && !gDocManager.write_failed();
}

void write_skipped(std::ostream & stream) {
  for (gSkippedLines const & one : gFindings.skipped) {
    stream << "@_skipped<";
    Vlb::put_escaped(stream, one.path);
    stream << "><" << one.first << "><" << one.last << "><";
    Vlb::put_escaped(stream, one.reason);
    stream << "><";
    Vlb::put_escaped(stream, one.scope);
    stream << ">\n";
  }
}

void log_summary() {
  if (gInput->modern)
    Msg::log(Msg::status) << "  "
                          << ana_read_words(gFindings.declarations, gFindings.skipped.size())
                          << std::endl;
  gPathstring const script = gInput->script_name;
  Msg::log() << std::endl << script.file_name() << " - ";
  Msg::log.put_summary();
  Msg::log() << std::endl;
}

} // namespace

gPathstring ana_atc_path(gString const & output) {
  gPathstring name = output;
  name.normalize(true);
  if (name.empty())
    name = gPathstring(gInput->script_name).base_name();
  gPathstring path = Vlb::atx_path(name);
  return path.empty() ? path : path.set_extension("atc");
}

void ana_atc_header(std::ostream & stream, std::set<gString> const & outputs) {
  stream << "@verinfo<VL_10>\n@outfile<" << gFindings.atc_file.base_name() << ">\n"
         << "@b_wintype\n"
            "@wintype<main><Main Window>\n"
            "@wintype<subwin><Subwindow>\n"
            "@wintype<popup><Popup>\n"
            "@e_wintype\n"
            "@b_atxfiles\n";
  for (gString const & output : outputs)
    stream << "@atxfile<" << Vlb::escape_atc(output) << ".atx>\n";
  stream << "@e_atxfiles\n@unitcount<" << gDocManager.unit_count() << ">\n";
  if (gInput->facts_line)
    write_skipped(stream);
}

bool ana_generate(gCmdSeq & commands, std::set<gString> const & outputs, gString const & output) {
  compile(commands);
  Msg::log(Msg::generating);
  gPathstring const path = ana_atc_path(output);
  bool written = false;
  if (path.empty()) {
    Msg::log(Msg::cannot_write, output);
  } else {
    gFindings.atc_file = path;
    written = claim_files(path, outputs) && write_document(path, outputs);
  }
  log_summary();
  return written;
}
