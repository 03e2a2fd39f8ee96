// A file is first cut at the heads of units and sections, so that damage ends with the unit it
// stands in. Each part is read on its own.
#include "conv/atc/reader.h"

#include <algorithm>

#include "conv/atc/encoding.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"
#include "vlb/ordered.h"

namespace {

struct Head {
  std::string_view mark;
  gAtcCommand command;
};

constexpr Head heads[] = {{"@unit<", gAtcCommand::unit},
                          {"@b_section<", gAtcCommand::b_section},
                          {"@incl_atx<", gAtcCommand::incl_atx},
                          {"@e_atc", gAtcCommand::e_atc},
                          {"@e_atx", gAtcCommand::e_atx}};

bool is_end(gAtcCommand command) {
  return command == gAtcCommand::e_atc || command == gAtcCommand::e_atx;
}

// "@e_atxfiles" stands in the head of a file.
bool begins_with(std::string_view line, Head const & head) {
  if (!line.starts_with(head.mark))
    return false;
  return !is_end(head.command) || line.size() == head.mark.size() ||
         !(Vlb::is_word(line[head.mark.size()]));
}

// The source that a part was made from.
std::string source_of(std::string_view part, gPathstring const & file) {
  gAtcScanner scanner(part, 0, part.size(), 1, nullptr);
  bool const unit =
      scanner.next(false) == gAtcScanner::command && scanner.info().command == gAtcCommand::unit;
  return unit && !scanner.params()[4].empty() ? scanner.params()[4] : std::string(file);
}

bool open_beside(void * context, std::string const & name, std::string & text) {
  gPathstring path(static_cast<gPathstring const *>(context)->dir_name());
  return gFileSystem::read_file(path.append(name), text);
}

} // namespace

bool gAtcReader::read(gPathstring const & atc_file, gDocument & document) {
  std::string text;
  if (!gFileSystem::read_file(atc_file, text)) {
    Msg::log(Msg::cannot_read, atc_file);
    return false;
  }
  gPathstring path = atc_file;
  return read(std::move(text), atc_file, open_beside, &path, document);
}

bool gAtcReader::read(std::string text, gPathstring const & name, gOpen open, void * context,
                      gDocument & document) {
  document_ = &document;
  open_ = open;
  context_ = context;
  document.name = name.base_name();
  read_file(std::move(text), name, false);
  if (!document.sections.empty())
    document.sections.back().end_unit = static_cast<int>(document.units.size());
  if (announced_units_ > static_cast<int>(document.units.size()) && !incomplete_)
    Msg::log(Msg::atc_truncated, mString(announced_units_ - document.units.size()), {name, 1});
  document.make_tables();
  return !document.units.empty();
}

std::vector<gAtcReader::Part> gAtcReader::split(std::string_view text) {
  std::vector<Part> parts = {{gAtcCommand::verinfo, 0, 1}};
  int line = 1;
  for (std::size_t at = 0; at < text.size(); ++line) {
    std::size_t const line_end = std::min(text.find('\n', at), text.size());
    if (text[at] == '@')
      for (Head const & head : heads)
        if (begins_with(text.substr(at, line_end - at), head)) {
          parts.push_back({head.command, at, line});
          break;
        }
    at = line_end + 1;
  }
  return parts;
}

void gAtcReader::read_file(std::string text, gPathstring const & path, bool included) {
  File file{static_cast<int>(document_->files.size()), path, included, {path, Msg::log}, {}};
  file.parts = split(text);
  make_utf8(text, file.parts, path);
  make_room(text, file.parts.size());
  auto stored = std::make_unique<gAtcText>();
  stored->path = path;
  stored->text = std::move(text);
  document_->files.push_back(std::move(stored));
  read_parts(file);
  if (!file.ended) {
    incomplete_ = true;
    Msg::log(Msg::atc_truncated, path, {path, file.parts.back().line});
  }
}

// Units are read in batches, since one is too little work for a turn of a thread. All else is read
// when it is its turn.
void gAtcReader::read_parts(File & file) {
  constexpr std::size_t batch = 64;
  std::string_view const text = document_->files[file.index]->text;
  auto const end_of = [&](std::size_t part) {
    return part + 1 < file.parts.size() ? file.parts[part + 1].begin : text.size();
  };
  std::vector<std::size_t> units;
  for (std::size_t i = 0; i < file.parts.size(); ++i)
    if (file.parts[i].command == gAtcCommand::unit)
      units.push_back(i);
  Vlb::gOrdered<std::vector<gReadUnit>> batches(
      threads_, (units.size() + batch - 1) / batch, [&](unsigned, std::size_t item) {
        std::vector<gReadUnit> read;
        for (std::size_t i = item * batch; i < std::min(units.size(), (item + 1) * batch); ++i) {
          Part const & part = file.parts[units[i]];
          read.push_back(Atc::read_unit(text, part.begin, end_of(units[i]), part.line, file.path));
        }
        return read;
      });
  std::vector<gReadUnit> read;
  std::size_t done = 0;
  for (std::size_t i = 0; i < file.parts.size(); ++i) {
    if (file.parts[i].command != gAtcCommand::unit) {
      read_part(file, file.parts[i], end_of(i));
      continue;
    }
    if (done % batch == 0)
      read = batches.next();
    enter_unit(file, file.parts[i], std::move(read[done++ % batch]));
  }
}

// A document is put together from sources of any encoding, so each unit is looked at by itself.
void gAtcReader::make_utf8(std::string & text, std::vector<Part> & parts,
                           gPathstring const & path) {
  if (Atc::is_clean(text))
    return;
  std::string made;
  made.reserve(text.size() + text.size() / 16);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Part & part = parts[i];
    std::size_t const end = i + 1 < parts.size() ? parts[i + 1].begin : text.size();
    std::string_view const raw = std::string_view(text).substr(part.begin, end - part.begin);
    std::size_t const begin = made.size();
    if (Atc::is_clean(raw)) {
      made += raw;
    } else if (!Atc::append_utf8(raw, made)) {
      std::string const source = source_of(std::string_view(made).substr(begin), path);
      if (not_utf8_.insert(source).second)
        Msg::log(Msg::not_utf8, source);
    }
    part.begin = begin;
  }
  text = std::move(made);
}

// Records are large, and a document can have a hundred thousand: growing would double their memory.
void gAtcReader::make_room(std::string_view text, std::size_t units) {
  std::size_t entries = 0;
  for (std::size_t at = text.find("@xe<"); at != text.npos; at = text.find("@xe<", at + 1))
    ++entries;
  document_->units.reserve(document_->units.size() + units);
  document_->index_entries.reserve(document_->index_entries.size() + entries);
}

void gAtcReader::read_part(File & file, Part const & part, std::size_t end) {
  gAtcScanner scanner(document_->files[file.index]->text, part.begin, end, part.line, &file.faults);
  file.faults.begin_unit();
  if (part.command == gAtcCommand::verinfo) {
    read_head(scanner);
    return;
  }
  scanner.next(false);
  // In a file that is cut off the other end command can be the rest of a word of the head.
  bool const ends = part.command == (file.included ? gAtcCommand::e_atx : gAtcCommand::e_atc);
  if (file.ended || (is_end(part.command) && !ends))
    scanner.report(Msg::atc_misplaced, "@" + std::string(scanner.info().name), scanner.line());
  switch (part.command) {
  case gAtcCommand::b_section:
    read_section(file, scanner);
    break;
  case gAtcCommand::incl_atx:
    include(file, scanner);
    break;
  default:
    file.ended = file.ended || ends;
    break;
  }
  Atc::expect_nothing(scanner);
}

void gAtcReader::read_head(gAtcScanner & scanner) {
  bool version = false;
  while (true) {
    scanner.skip_white();
    gAtcScanner::Token const token = scanner.next(false);
    if (token == gAtcScanner::end)
      break;
    if (token == gAtcScanner::text)
      scanner.report(Msg::atc_text_outside, gString(scanner.text_value()).wsp_trim(),
                     scanner.line());
    else
      version = read_head_command(scanner) || version;
  }
  if (!version)
    scanner.report(Msg::atc_version, "(none)", 1);
}

// True if it tells the version.
bool gAtcReader::read_head_command(gAtcScanner & scanner) {
  std::vector<std::string> const & params = scanner.params();
  switch (scanner.info().command) {
  case gAtcCommand::verinfo:
    return params[0] == "VL_10";
  case gAtcCommand::outfile:
    if (document_->files.size() == 1)
      document_->name = params[0];
    break;
  case gAtcCommand::wintype:
    document_->wintypes[params[0]] = params[1];
    break;
  case gAtcCommand::unitcount:
    announced_units_ = Atc::number(scanner, params[0], 0, 1 << 30);
    break;
  case gAtcCommand::atxfile:
    announce(params[0]);
    break;
  case gAtcCommand::skipped:
    take_skipped(scanner);
    break;
  case gAtcCommand::b_wintype:
  case gAtcCommand::e_wintype:
  case gAtcCommand::b_atxfiles:
  case gAtcCommand::e_atxfiles:
    break;
  default:
    scanner.report(Msg::atc_misplaced, "@" + std::string(scanner.info().name), scanner.line());
  }
  return false;
}

void gAtcReader::take_skipped(gAtcScanner & scanner) {
  std::vector<std::string> const params = scanner.params();
  int const first = Atc::number(scanner, params[1], 1, 1 << 30);
  int const last = Atc::number(scanner, params[2], 1, 1 << 30);
  document_->skipped.push_back({params[0], first, std::max(first, last), params[3], params[4]});
}

// The line has the output as the script wrote it, with an extension that the file hasn't.
void gAtcReader::announce(gPathstring path) {
  constexpr std::string_view ending = ".atx";
  if (!path.ends_with(ending))
    return;
  path.resize(path.size() - ending.size());
  path.set_extension("atx").normalize(false);
  if (!path.is_absolute() && !path.starts_with(".."))
    announced_.emplace(path.file_name(), path);
}

// Files of one name in several folders are taken one after the other.
gPathstring gAtcReader::announced_path(gString const & name) {
  auto const [first, last] = announced_.equal_range(name);
  if (first == last)
    return gPathstring(name).file_name();
  gPathstring path = first->second;
  if (std::next(first) != last)
    announced_.erase(first);
  return path;
}

// Two sections of a script can have one file, which then holds the second: it is read once.
void gAtcReader::include(File & file, gAtcScanner & scanner) {
  gPathstring const name = announced_path(scanner.params()[0]);
  int const line = scanner.line();
  if (file.included || !included_.insert(name).second) {
    incomplete_ = true;
    scanner.report(Msg::atc_misplaced, "@incl_atx<" + name + ">", line);
    return;
  }
  std::string text;
  gPathstring path(document_->files[file.index]->path.dir_name());
  path.append(name);
  file.in_section = false;
  if (open_(context_, name, text)) {
    read_file(std::move(text), path, true);
  } else {
    incomplete_ = true;
    scanner.report(Msg::cannot_read, path, line);
  }
}
