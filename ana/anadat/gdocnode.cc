// The walk over the document: nodes pass it on, sections divide it between files, and units write.
#include "ana/anadat/gdocnode.h"

#include "ana/anadat/gatcfile.h"
#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "app/options/run_flags.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

// A running head belongs to no unit: an attribute has the text of its undefined value.
gStrList settled(gStrList const & list) {
  gStrList pieces;
  for (auto it = list.begin(); it != list.end(); ++it) {
    gPiece const kind = Vlb::piece_kind(**it);
    auto const next = std::next(it);
    if (kind == gPiece::index) {
      pieces.push_back(Vlb::index_mark("xetplbkmk"));
    } else if (kind == gPiece::attribute && next != list.end()) {
      pieces.push_back(Vlb::attribute_text(**next, "undefined"));
      it = next;
    } else {
      pieces.push_back(*it);
    }
  }
  return pieces;
}

} // namespace

void gDocNode::emit(std::ostream & stream) {
  Vapp::poll_break();
  for (cRef<gDocNode> const & child : children())
    child->emit(stream);
}

gSectHeader::gSectHeader(gString const & output, gString const & section_template)
    : output_(output),
      template_(section_template.empty() ? "STPL_Default" : section_template) {}

void gSectHeader::emit(std::ostream & stream) {
  Vapp::poll_break();
  if (output_.empty()) {
    write_head(stream);
    gDocNode::emit(stream);
    return;
  }
  gPathstring const path = Vlb::atx_path(output_);
  if (path.empty()) {
    Msg::log(Msg::cannot_write, output_);
    return;
  }
  gLogStream & log = Msg::log;
  log(Msg::status) << "  " << path << std::endl;
  gFileSystem::mk_dirs(path.dir_name()); // a failure shows when the file is opened
  gAtcFile file(path);
  if (file.is_open())
    write_file(file);
  else
    return;
  Vlb::put(stream, "\n@incl_atx<");
  Vlb::put_escaped(stream, path.file_name());
  Vlb::put(stream, ">\n");
}

void gSectHeader::write_file(gAtcFile & file) {
  std::ostream & stream = file.stream();
  Vlb::put(stream, "@verinfo<VL_10>\n@outfile<");
  Vlb::put_escaped(stream, output_);
  Vlb::put(stream, ">\n");
  write_head(stream);
  gDocNode::emit(stream);
  Vlb::put(stream, "@e_atx\n");
  file.close();
}

void gSectHeader::write_head(std::ostream & stream) {
  static constexpr std::pair<char const *, char const *> prints[] = {
      {"headleft", "@headprint<left>{"},
      {"headright", "@headprint<right>{"},
      {"footleft", "@footprint<left>{"},
      {"footright", "@footprint<right>{"},
  };
  Vapp::poll_break();
  Vlb::put(stream, "\n@b_section<");
  Vlb::put(stream, gVLAttributes.text({"secttpl", template_, "style"}));
  Vlb::put(stream, ">\n@b_secthead\n");
  for (auto const & [key, opening] : prints) {
    Vlb::put(stream, opening);
    Vlb::put_pieces(stream, settled(gVLAttributes.list({"secttpl", template_, key})));
    Vlb::put(stream, "}\n");
  }
  Vlb::put(stream, "@e_secthead\n");
}

gPathstring Vlb::atx_path(gString const & output) {
  gPathstring folder = gInput->out_dir;
  folder.normalize(true);
  gPathstring path = output;
  path.make_absolute(folder).normalize(true).set_extension("atx");
  if (!folder.ends_with(gPathstring::Dir_sep))
    folder += gPathstring::Dir_sep;
  bool const inside = path.size() > folder.size() && path.starts_with(folder);
  return inside && path.find('\0') == path.npos ? path : gPathstring();
}
