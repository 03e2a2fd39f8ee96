// Its head first, then its content as nodes, of which only what all need to know is kept.
#include "conv/atc/unit_reader.h"

#include <charconv>

#include "conv/atc/node_parser.h"
#include "vlb/messages.h"

namespace {

bool is_command(gAtcScanner & scanner, gAtcCommand command) {
  return scanner.next(false) == gAtcScanner::command && scanner.info().command == command;
}

class UnitReader {
public:
  UnitReader(std::string_view text, std::size_t begin, std::size_t end, int line,
             std::string const & path)
      : faults_(path, read_.reports),
        scanner_(text, begin, end, line, &faults_) {}

  gReadUnit run() {
    scanner_.next(false);
    read_params();
    read_head();
    read_.unit.begin = scanner_.position();
    read_.unit.content_line = scanner_.position_line();
    read_content();
    Atc::expect_nothing(scanner_);
    return std::move(read_);
  }

private:
  void read_params();
  void read_facts();
  bool take_further_fact();
  void read_head();
  void automatic_entry();
  void read_content();

  gReadUnit read_;
  gAtcFaults faults_;
  gAtcScanner scanner_;
};

void UnitReader::read_params() {
  constexpr int deepest = 255;
  constexpr int last_line = 1 << 30;
  std::vector<std::string> params = std::move(scanner_.params());
  read_.unit.line = scanner_.line();
  read_.unit.level = Atc::number(scanner_, params[0], 1, deepest);
  read_.unit.wintype = std::move(params[1]);
  read_.unit.style = std::move(params[2]);
  read_.unit.path = std::move(params[4]);
  read_.unit.source_line = Atc::number(scanner_, params[5], 0, last_line);
  read_.unit.label = std::move(params[6]);
}

// Lines that begin with "@_" are for readers that know them.
void UnitReader::read_facts() {
  while (scanner_.skip_unknown_line())
    ;
  if (!is_command(scanner_, gAtcCommand::facts)) {
    scanner_.back();
    return;
  }
  if (!Atc::read_facts(scanner_.params(), read_.unit.facts))
    scanner_.report(Msg::atc_parameters, "@_facts", scanner_.line());
  read_.unit.name = std::move(scanner_.params()[1]);
  do
    while (scanner_.skip_unknown_line())
      ;
  while (take_further_fact());
}

// Lines behind that of the facts, in any order.
bool UnitReader::take_further_fact() {
  bool const is_known = scanner_.next(false) == gAtcScanner::command;
  gAtcCommand const command = is_known ? scanner_.info().command : gAtcCommand::unit;
  std::vector<std::string> & params = scanner_.params();
  if (command == gAtcCommand::signature) {
    read_.unit.facts.signature = std::move(params[0]);
    return true;
  }
  if (command == gAtcCommand::heading) {
    read_.unit.facts.heading = std::move(params[0]);
    return true;
  }
  if (command == gAtcCommand::friend_type) {
    read_.unit.facts.friends.push_back(std::move(params[0]));
    return true;
  }
  if (command == gAtcCommand::variant) {
    read_.unit.facts.variants.push_back({std::move(params[0]), std::move(params[1])});
    return true;
  }
  if (command == gAtcCommand::topic) {
    read_.unit.facts.topics.push_back(std::move(params[0]));
    return true;
  }
  if (command == gAtcCommand::value) {
    read_.unit.facts.values.push_back(
        {std::move(params[0]), std::move(params[1]), std::move(params[2])});
    return true;
  }
  scanner_.back();
  return false;
}

// What the reader of the source knew, the unit's own bookmark and its one or two automatic index
// entries.
void UnitReader::read_head() {
  read_facts();
  if (!is_command(scanner_, gAtcCommand::bkmk) || scanner_.params()[0] != read_.unit.label) {
    scanner_.back();
    return;
  }
  scanner_.skip('\n');
  while (is_command(scanner_, gAtcCommand::xe) && scanner_.params()[0] == read_.unit.label) {
    automatic_entry();
    scanner_.skip('\n');
  }
  scanner_.back();
}

void UnitReader::automatic_entry() {
  gIndexEntry entry;
  for (std::size_t i = 0; i < 5; ++i)
    entry.fields[i] = scanner_.params()[i + 1];
  if (read_.unit.name.empty() && !read_.unit.facts.known)
    read_.unit.name = entry.fields[1];
  read_.marks.entries.push_back(std::move(entry));
}

void UnitReader::read_content() {
  gNodeParser parser(scanner_);
  gUnitText const text = parser.unit_text();
  read_.unit.end = parser.end_position();
  if (!parser.ended() && !text.body.empty() && text.body.back().kind != gNodeKind::link_line) {
    read_.whole = false;
    scanner_.report(Msg::atc_unclosed, "@unit", read_.unit.line);
  }
  Atc::take_facts(text, read_.unit);
  Atc::take_marks(text, read_.marks);
}

} // namespace

gReadUnit Atc::read_unit(std::string_view text, std::size_t begin, std::size_t end, int line,
                         std::string const & path) {
  return UnitReader(text, begin, end, line, path).run();
}

int Atc::number(gAtcScanner & scanner, std::string const & text, int least, int most) {
  int value = 0;
  auto const [last, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc() && last == text.data() + text.size() && value >= least && value <= most)
    return value;
  scanner.report(Msg::atc_number, text, scanner.line());
  return 1;
}

void Atc::expect_nothing(gAtcScanner & scanner) {
  scanner.skip_white();
  switch (scanner.next(false)) {
  case gAtcScanner::command:
    scanner.report(Msg::atc_misplaced, "@" + std::string(scanner.info().name), scanner.line());
    break;
  case gAtcScanner::text:
    scanner.report(Msg::atc_text_outside, gString(scanner.text_value()).wsp_trim(), scanner.line());
    break;
  default:
    break;
  }
}
