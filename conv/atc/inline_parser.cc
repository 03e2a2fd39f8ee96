// Texts of paragraphs and braces. The writer ends an inline command with a blank of its own, so the
// blank behind "}" is no text. Inside of braces and in the cells of tables it also drops the blanks
// that its author had put around a command; a reader wants them back, so words are parted there.
#include <algorithm>

#include "conv/atc/node_parser.h"
#include "conv/atc/word_joints.h"
#include "vlb/messages.h"

namespace {

bool is_reference(gNode const & node) {
  return node.kind == gNodeKind::reference || node.kind == gNodeKind::name_ref;
}

// True if the node shows words in the line that are no text of its own.
bool is_command_with_words(gNode const & node) {
  bool const is_format = node.kind > gNodeKind::text && node.kind <= gNodeKind::format;
  return is_format || is_reference(node) || node.kind == gNodeKind::macro ||
         node.kind == gNodeKind::source_link || node.kind == gNodeKind::web_link ||
         node.kind == gNodeKind::formula;
}

gNode text_node(std::string text, int line) {
  gNode node;
  node.line = line;
  node.text = std::move(text);
  return node;
}

// What is shown last, whatever is marked or noted behind it; null if there is nothing. Damaged
// texts have marks without end, so not all are looked at.
gNode * last_shown(gNodeList & run) {
  constexpr std::size_t farthest = 8;
  std::size_t const first = run.size() - std::min(run.size(), farthest);
  for (std::size_t i = run.size(); i-- > first;)
    if (!is_mark(run[i]) && run[i].kind != gNodeKind::margin_note)
      return &run[i];
  return nullptr;
}

// One blank is enough, also where a mark stands between two of them; behind a line's end it is
// none.
void drop_second_blank(gNodeList & run, std::string & text) {
  if (text.front() != ' ')
    return;
  gNode const * last = last_shown(run);
  if (last && (last->kind == gNodeKind::line_break || last->text.ends_with(' ')))
    text.erase(0, 1);
}

bool is_stop(gNode const & node) {
  return node.kind == gNodeKind::line_break ||
         (node.kind >= gNodeKind::left_tab && node.kind <= gNodeKind::right_tab);
}

void add_blank(gNodeList & run, int line) {
  gNode * last = last_shown(run);
  if (!last || is_stop(*last))
    return;
  if (last->kind != gNodeKind::text)
    run.push_back(text_node(" ", line));
  else if (!last->text.ends_with(' '))
    last->text += ' ';
}

// Puts what the author meant in front of a command with words.
void part_from_command(gNodeList & run, gNode const & next, bool part_words) {
  if (!is_command_with_words(next))
    return;
  gNode const * last = last_shown(run);
  if (!last)
    return;
  if (last->kind == gNodeKind::text) {
    if (part_words && !Atc::joins_next(last->text))
      add_blank(run, next.line);
  } else if (is_reference(*last) && is_reference(next)) {
    run.push_back(text_node(", ", next.line));
  } else if (part_words || is_reference(*last) || is_reference(next)) {
    add_blank(run, next.line);
  }
}

// The call of a note belongs to the word in front of it.
void join_note(gNodeList & run, gNode const & next) {
  bool const is_call = next.kind == gNodeKind::footnote || next.kind == gNodeKind::endnote;
  if (is_call && !run.empty() && run.back().text.size() > 1 && run.back().text.ends_with(' '))
    run.back().text.pop_back();
}

} // namespace

gNode gNodeParser::node(gNodeKind kind) const {
  gNode made;
  made.kind = kind;
  made.line = scanner_.line();
  return made;
}

gNode gNodeParser::text_of_token() {
  return text_node(std::move(scanner_.text_value()), scanner_.line());
}

void gNodeParser::add_text(gNodeList & run, bool part_words) {
  std::string & text = scanner_.text_value();
  if (part_words && !exact_ && !run.empty() && run.back().kind != gNodeKind::text &&
      !Atc::joins_last(text))
    add_blank(run, scanner_.line());
  drop_second_blank(run, text);
  if (text.empty())
    return;
  if (!run.empty() && run.back().kind == gNodeKind::text)
    run.back().text += text;
  else
    run.push_back(text_of_token());
}

void gNodeParser::add_inline(gNodeList & run, bool part_words) {
  if (scanner_.info().command == gAtcCommand::xe) {
    index_entry(run);
    return;
  }
  gNode next = inline_node();
  if (!exact_)
    part_from_command(run, next, part_words);
  join_note(run, next);
  run.push_back(std::move(next));
}

gNode gNodeParser::inline_node() {
  gAtcCommandInfo const & info = scanner_.info();
  switch (info.command) {
  case gAtcCommand::cref:
    return reference();
  case gAtcCommand::macro:
    return macro();
  default:
    break;
  }
  gNode made = node(info.kind);
  made.params = std::move(scanner_.params());
  if (info.braces)
    braced_into(made);
  if (made.kind == gNodeKind::bookmark)
    made.params.resize(2);
  return made;
}

gNode gNodeParser::reference() {
  gNode made = node(gNodeKind::reference);
  std::vector<std::string> params = std::move(scanner_.params());
  if (params.size() == 1) {
    made.kind = gNodeKind::name_ref;
    params.push_back(scanner_.bare_target());
  } else if (params.size() > 2) {
    params = {params[0], params[1], params.back()};
  }
  params.resize(made.kind == gNodeKind::name_ref ? 2 : 3);
  made.params = std::move(params);
  braced_into(made);
  return made;
}

gNode gNodeParser::macro() {
  gNode made = node(gNodeKind::macro);
  made.params = std::move(scanner_.params());
  if (made.param(0) == "srclink") {
    made.kind = gNodeKind::source_link;
    made.params.erase(made.params.begin());
    made.params.resize(2);
  }
  braced_into(made);
  if (made.kind == gNodeKind::macro) {
    made.params.resize(1);
    made.children.clear();
  }
  return made;
}

// The bookmark directly in front is the entry's own place.
void gNodeParser::index_entry(gNodeList & run) {
  gNode made = node(gNodeKind::index_entry);
  made.params = std::move(scanner_.params());
  made.params.resize(6);
  if (!run.empty() && run.back().kind == gNodeKind::bookmark &&
      run.back().params == std::vector<std::string>{made.params[0], ""})
    run.pop_back();
  run.push_back(std::move(made));
}

void gNodeParser::braced_into(gNode & node) {
  gAtcCommandInfo const & info = scanner_.info();
  node.children = braces_for(info, node.line);
  scanner_.skip(info.ending);
}

gNodeList gNodeParser::braced_text() {
  gAtcCommandInfo const & info = scanner_.info();
  gNodeList text = braces_for(info, scanner_.line());
  scanner_.skip(info.ending);
  return text;
}

gNodeList gNodeParser::braces_for(gAtcCommandInfo const & command, int line) {
  gNodeList text;
  if (!scanner_.open_brace())
    return text;
  int flat = 0; // open braces of commands that lie too deep
  while (true) {
    gAtcScanner::Token const token = scanner_.next(true);
    if (token == gAtcScanner::text) {
      add_text(text, true);
    } else if (token == gAtcScanner::close) {
      if (flat-- == 0)
        return text;
    } else if (token == gAtcScanner::end || !Atc::is_inline(scanner_.info().command)) {
      scanner_.back();
      scanner_.report(Msg::atc_unclosed, "@" + std::string(command.name) + "{", line);
      return text;
    } else if (enter()) {
      add_inline(text, true);
      --depth_;
    } else {
      flat += scanner_.info().braces && scanner_.open_brace();
    }
  }
}

void gNodeParser::misplaced() {
  scanner_.report(Msg::atc_misplaced, "@" + std::string(scanner_.info().name), scanner_.line());
}

bool gNodeParser::enter() {
  if (depth_ < deepest) {
    ++depth_;
    return true;
  }
  if (!too_deep_)
    scanner_.report(Msg::atc_too_deep, "@" + std::string(scanner_.info().name), scanner_.line());
  too_deep_ = true;
  return false;
}
