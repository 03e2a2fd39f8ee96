// Sections and units of the set.
#include "conv/atc/node_parser.h"
#include "conv/atc/reader.h"
#include "conv/atc/unit_facts.h"
#include "vlb/messages.h"

namespace {

bool is_command(gAtcScanner & scanner, gAtcCommand command) {
  return scanner.next(false) == gAtcScanner::command && scanner.info().command == command;
}

} // namespace

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

void gAtcReader::read_unit(File & file, gAtcScanner & scanner) {
  if (!file.in_section) {
    scanner.report(Msg::atc_misplaced, "@unit", scanner.line());
    begin_section(file, {});
  }
  gUnitRecord unit = unit_record(scanner);
  unit.file = file.index;
  read_unit_head(scanner, unit);
  unit.begin = scanner.position();
  unit.content_line = scanner.position_line();
  read_content(scanner, unit);
  place(unit);
}

gUnitRecord gAtcReader::unit_record(gAtcScanner & scanner) {
  constexpr int deepest = 255;
  constexpr int last_line = 1 << 30;
  gUnitRecord unit;
  std::vector<std::string> params = std::move(scanner.params());
  unit.line = scanner.line();
  unit.level = number(scanner, params[0], 1, deepest);
  unit.wintype = std::move(params[1]);
  unit.style = std::move(params[2]);
  unit.path = std::move(params[4]);
  unit.source_line = number(scanner, params[5], 0, last_line);
  unit.label = std::move(params[6]);
  return unit;
}

// Lines that begin with "@_" are for readers that know them.
void gAtcReader::read_facts(gAtcScanner & scanner, gUnitRecord & unit) {
  while (scanner.skip_unknown_line())
    ;
  if (!is_command(scanner, gAtcCommand::facts)) {
    scanner.back();
    return;
  }
  if (!Atc::read_facts(scanner.params(), unit.facts))
    scanner.report(Msg::atc_parameters, "@_facts", scanner.line());
  unit.name = std::move(scanner.params()[1]);
  do
    while (scanner.skip_unknown_line())
      ;
  while (take_further_fact(scanner, unit.facts));
}

// Lines behind that of the facts, in any order.
bool gAtcReader::take_further_fact(gAtcScanner & scanner, gKnownFacts & facts) {
  bool const is_known = scanner.next(false) == gAtcScanner::command;
  gAtcCommand const command = is_known ? scanner.info().command : gAtcCommand::unit;
  std::vector<std::string> & params = scanner.params();
  if (command == gAtcCommand::signature) {
    facts.signature = std::move(params[0]);
    return true;
  }
  if (command == gAtcCommand::heading) {
    facts.heading = std::move(params[0]);
    return true;
  }
  if (command == gAtcCommand::topic) {
    facts.topics.push_back(std::move(params[0]));
    return true;
  }
  if (command == gAtcCommand::value) {
    facts.values.push_back({std::move(params[0]), std::move(params[1]), std::move(params[2])});
    return true;
  }
  scanner.back();
  return false;
}

// What the reader of the source knew, the unit's own bookmark and its one or two automatic index
// entries.
void gAtcReader::read_unit_head(gAtcScanner & scanner, gUnitRecord & unit) {
  read_facts(scanner, unit);
  if (!is_command(scanner, gAtcCommand::bkmk) || scanner.params()[0] != unit.label) {
    scanner.back();
    return;
  }
  scanner.skip('\n');
  while (is_command(scanner, gAtcCommand::xe) && scanner.params()[0] == unit.label) {
    automatic_entry(scanner, unit);
    scanner.skip('\n');
  }
  scanner.back();
}

void gAtcReader::automatic_entry(gAtcScanner & scanner, gUnitRecord & unit) {
  gIndexEntry entry;
  entry.unit = static_cast<int>(document_->units.size());
  for (std::size_t i = 0; i < 5; ++i)
    entry.fields[i] = scanner.params()[i + 1];
  if (unit.name.empty() && !unit.facts.known)
    unit.name = entry.fields[1];
  document_->index_entries.push_back(std::move(entry));
}

void gAtcReader::read_content(gAtcScanner & scanner, gUnitRecord & unit) {
  gNodeParser parser(scanner);
  gUnitText const text = parser.unit_text();
  unit.end = parser.end_position();
  if (!parser.ended() && !text.body.empty() && text.body.back().kind != gNodeKind::link_line) {
    incomplete_ = true;
    scanner.report(Msg::atc_unclosed, "@unit", unit.line);
  }
  Atc::take_facts(text, unit);
  enter_marks(text, unit);
}

void gAtcReader::enter_marks(gUnitText const & text, gUnitRecord const & unit) {
  int const number = static_cast<int>(document_->units.size());
  Atc::gMarks marks;
  Atc::take_marks(text, marks);
  for (std::string & name : marks.bookmarks)
    if (name != unit.label)
      document_->bookmarks_.push_back({number, std::move(name)});
  for (std::string & name : marks.help_ids)
    document_->help_ids.push_back(std::move(name));
  for (std::string & name : marks.help_aliases)
    document_->help_aliases.emplace_back(std::move(name), gTarget{number, {}});
  for (gIndexEntry & entry : marks.entries) {
    entry.unit = number;
    if (entry.label == unit.label)
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
