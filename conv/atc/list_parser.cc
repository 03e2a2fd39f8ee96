// Lists, tables and class hierarchies: each reads its own parts, and gives back what is none of
// them.
#include "conv/atc/node_parser.h"

#include "vlb/messages.h"

// The next command of a list, table or hierarchy; blanks and ends of paragraphs between the parts
// mean nothing. False at a text or at the end of the stretch, which is given back.
bool gNodeParser::next_part() {
  while (true) {
    gAtcScanner::Token const token = scanner_.next(false);
    if (token == gAtcScanner::command && scanner_.info().command != gAtcCommand::endp)
      return true;
    if (token == gAtcScanner::end || (token == gAtcScanner::text && scanner_.text_value() != " ")) {
      scanner_.back();
      return false;
    }
  }
}

void gNodeParser::list(gNodeList & out) {
  gNode made = node(scanner_.info().kind);
  std::string const name = "@" + std::string(scanner_.info().name);
  made.params = std::move(scanner_.params());
  if (!enter())
    return;
  while (true) {
    bool const part = next_part();
    gAtcCommandInfo const & info = scanner_.info();
    if (part && info.command == gAtcCommand::item) {
      content_into(made.children, gNodeKind::item, In::item);
    } else if (part && info.command == gAtcCommand::e_list) {
      break;
    } else if (made.children.empty() && part && Atc::is_inline(info.command)) {
      scanner_.back();
      content_into(made.children, gNodeKind::item, In::item);
    } else {
      if (part)
        scanner_.back();
      scanner_.report(Msg::atc_unclosed, name, made.line);
      break;
    }
  }
  --depth_;
  if (!made.children.empty())
    out.push_back(std::move(made));
}

void gNodeParser::quote(gNodeList & out) {
  gNode made = node(gNodeKind::quote);
  if (!enter())
    return;
  blocks(made.children, In::quote);
  bool const closed = scanner_.next(false) == gAtcScanner::command &&
                      scanner_.info().command == gAtcCommand::e_quote;
  if (!closed) {
    scanner_.back();
    scanner_.report(Msg::atc_unclosed, "@b_quote", made.line);
  }
  --depth_;
  if (!made.children.empty())
    out.push_back(std::move(made));
}

// An item or a cell that is one paragraph holds its text directly.
void gNodeParser::content_into(gNodeList & out, gNodeKind kind, In in) {
  gNode made = node(kind);
  blocks(made.children, in);
  if (made.children.size() == 1 && made.children.front().kind == gNodeKind::paragraph) {
    gNodeList text = std::move(made.children.front().children);
    made.children = std::move(text);
  }
  out.push_back(std::move(made));
}

void gNodeParser::table(gNodeList & out) {
  gNode made = node(gNodeKind::table);
  made.params = std::move(scanner_.params());
  if (!enter())
    return;
  while (true) {
    bool const part = next_part();
    if (part && scanner_.info().command == gAtcCommand::row) {
      made.children.push_back(node(gNodeKind::row));
    } else if (part && scanner_.info().command == gAtcCommand::cell) {
      if (made.children.empty()) {
        misplaced();
        made.children.push_back(node(gNodeKind::row));
      }
      content_into(made.children.back().children, gNodeKind::cell, In::cell);
    } else if (part && scanner_.info().command == gAtcCommand::e_table) {
      break;
    } else {
      if (part)
        scanner_.back();
      scanner_.report(Msg::atc_unclosed, "@b_table", made.line);
      break;
    }
  }
  --depth_;
  if (!made.children.empty())
    out.push_back(std::move(made));
}

void gNodeParser::hierarchy(gNodeList & out) {
  gNode made = node(gNodeKind::hierarchy);
  std::string role = "this";
  while (true) {
    bool const part = next_part();
    if (part && scanner_.info().command == gAtcCommand::e_hierarchy)
      break;
    if (!part || !hierarchy_part(made, role)) {
      if (part)
        scanner_.back();
      scanner_.report(Msg::atc_unclosed, "@b_hierarchy", made.line);
      break;
    }
  }
  if (!made.children.empty())
    out.push_back(std::move(made));
}

bool gNodeParser::hierarchy_part(gNode & node, std::string & role) {
  switch (scanner_.info().command) {
  case gAtcCommand::b_base:
    role = "base";
    return true;
  case gAtcCommand::thisclass:
    role = "this";
    return true;
  case gAtcCommand::b_child:
    role = "child";
    return true;
  case gAtcCommand::e_base:
  case gAtcCommand::e_child:
    return true;
  case gAtcCommand::cref:
    step(node, role);
    return true;
  case gAtcCommand::hieraprop:
    step_property(node);
    return true;
  default:
    return false;
  }
}

void gNodeParser::step(gNode & node, std::string const & role) {
  gNode made = reference();
  made.kind = gNodeKind::step;
  made.params.resize(3);
  made.params = {role, std::move(made.params[1]), std::move(made.params[2]), "", "", ""};
  node.children.push_back(std::move(made));
}

void gNodeParser::step_property(gNode & node) {
  int const line = scanner_.line();
  std::vector<std::string> params = std::move(scanner_.params());
  std::string label = plain_text(braced_text());
  if (node.children.empty()) {
    scanner_.report(Msg::atc_misplaced, "@hieraprop", line);
    return;
  }
  std::vector<std::string> & step = node.children.back().params;
  step[3] = std::move(params[1]);
  step[4] = std::move(params[2]);
  step[5] = std::move(label);
}
