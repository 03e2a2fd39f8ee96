// Sections of the set, and the places of units in it.
#include "conv/atc/node_parser.h"
#include "conv/atc/reader.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

void gAtcReader::begin_section(File & file, std::string style) {
  int const first = static_cast<int>(document_->units.size());
  if (!document_->sections.empty())
    document_->sections.back().end_unit = first;
  gSectionRecord section;
  section.style = std::move(style);
  if (file.included)
    section.output = document_->files[file.index]->path.base_name();
  section.first_unit = section.end_unit = first;
  document_->sections.push_back(std::move(section));
  above_.clear();
  file.in_section = true;
}

void gAtcReader::read_section(File & file, gAtcScanner & scanner) {
  begin_section(file, scanner.params()[0]);
  gSectionRecord & section = document_->sections.back();
  int const line = scanner.line();
  while (true) {
    scanner.skip_white();
    if (scanner.next(false) != gAtcScanner::command)
      break;
    switch (scanner.info().command) {
    case gAtcCommand::b_secthead:
      continue;
    case gAtcCommand::headprint:
    case gAtcCommand::footprint:
      read_running_head(section, scanner);
      continue;
    case gAtcCommand::e_secthead:
      return;
    default:
      break;
    }
    break;
  }
  scanner.back();
  scanner.report(Msg::atc_unclosed, "@b_secthead", line);
}

void gAtcReader::read_running_head(gSectionRecord & section, gAtcScanner & scanner) {
  bool const head = scanner.info().command == gAtcCommand::headprint;
  std::string const side = scanner.params()[0];
  if (side != "left" && side != "right")
    scanner.report(Msg::atc_parameters, "@" + std::string(scanner.info().name), scanner.line());
  gNodeList & place = side == "right" ? (head ? section.head_right : section.foot_right)
                                      : (head ? section.head_left : section.foot_left);
  place = gNodeParser(scanner).braced_text();
}

void gAtcReader::enter_unit(File & file, Part const & part, gReadUnit read) {
  if (file.ended || !file.in_section) {
    file.faults.begin_unit();
    file.faults.report(Msg::atc_misplaced, "@unit", part.line);
  }
  if (!file.in_section)
    begin_section(file, {});
  read.reports.hand_on(Msg::log);
  incomplete_ = incomplete_ || !read.whole;
  read.unit.file = file.index;
  enter_marks(read);
  place(read.unit);
}

void gAtcReader::enter_marks(gReadUnit & read) {
  int const number = static_cast<int>(document_->units.size());
  for (std::string & name : read.marks.bookmarks)
    if (name != read.unit.label)
      document_->bookmarks_.push_back({number, std::move(name)});
  for (std::string & name : read.marks.help_ids)
    document_->help_ids.push_back(std::move(name));
  for (std::string & name : read.marks.help_aliases)
    document_->help_aliases.emplace_back(std::move(name), gTarget{number, {}});
  for (gIndexEntry & entry : read.marks.entries) {
    entry.unit = number;
    if (entry.label == read.unit.label)
      entry.label.clear();
    document_->index_entries.push_back(std::move(entry));
  }
}

// A unit stands below the nearest one in front of it that has a lesser level.
void gAtcReader::place(gUnitRecord & unit) {
  while (!above_.empty() && document_->units[above_.back()].level >= unit.level)
    above_.pop_back();
  unit.parent = above_.empty() ? -1 : above_.back();
  unit.section = static_cast<int>(document_->sections.size()) - 1;
  above_.push_back(static_cast<int>(document_->units.size()));
  document_->units.push_back(std::move(unit));
}
