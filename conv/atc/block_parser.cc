// Blocks. What stands between them is collected as a run of inline nodes, and becomes a paragraph
// where a block or an @endp ends it.
#include "conv/atc/node_parser.h"

#include "vlb/gstring.h"
#include "vlb/messages.h"

namespace {

// Drops the blank at one end of a run, in front of or behind its marks.
template <class It, class Trim> void trim_end(It at, It end, Trim trim) {
  for (; at != end; ++at) {
    if (at->kind == gNodeKind::text) {
      trim(at->text);
      if (!at->text.empty())
        return;
    } else if (!is_mark(*at)) {
      return;
    }
  }
}

// These end whatever stands in a unit, because the writer puts them nowhere else.
bool is_unit_part(gAtcCommand command) {
  switch (command) {
  case gAtcCommand::hdltoc:
  case gAtcCommand::hdline:
  case gAtcCommand::sline:
  case gAtcCommand::subentry:
  case gAtcCommand::text:
  case gAtcCommand::sub:
  case gAtcCommand::subtoc:
  case gAtcCommand::end:
  case gAtcCommand::b_ll:
  case gAtcCommand::b_hierarchy:
    return true;
  default:
    return false;
  }
}

bool is_list_part(gAtcCommand command) {
  return command == gAtcCommand::item || command == gAtcCommand::e_list ||
         command == gAtcCommand::row || command == gAtcCommand::cell ||
         command == gAtcCommand::e_table || command == gAtcCommand::e_quote;
}

void trim(gNodeList & run) {
  trim_end(run.begin(), run.end(), [](std::string & text) { text.erase(0, text[0] == ' '); });
  trim_end(run.rbegin(), run.rend(), [](std::string & text) {
    if (text.ends_with(' '))
      text.pop_back();
  });
  std::erase_if(
      run, [](gNode const & node) { return node.kind == gNodeKind::text && node.text.empty(); });
}

} // namespace

gUnitText gNodeParser::unit_text() {
  blocks(unit_.body, In::unit);
  if (!ended_)
    end_ = scanner_.position();
  return std::move(unit_);
}

void gNodeParser::blocks(gNodeList & out, In in) {
  Flow flow{out, in};
  while (true) {
    gAtcScanner::Token const token = scanner_.next(false);
    if (token == gAtcScanner::text)
      add_text(flow.run, in == In::cell);
    else if (token == gAtcScanner::command && Atc::is_inline(scanner_.info().command))
      add_inline(flow.run, in == In::cell);
    else if (token == gAtcScanner::end || !block_command(flow))
      break;
  }
  flush(flow);
}

// A run that shows nothing is no paragraph; what it marks stays where it is.
void gNodeParser::flush(Flow & flow) {
  if (flow.run.empty())
    return;
  trim(flow.run);
  bool shows = false;
  for (gNode const & one : flow.run)
    shows = shows || !is_mark(one);
  if (shows) {
    gNode paragraph;
    paragraph.kind = gNodeKind::paragraph;
    paragraph.line = flow.run.front().line;
    paragraph.children = std::move(flow.run);
    flow.blocks.push_back(std::move(paragraph));
  } else {
    std::move(flow.run.begin(), flow.run.end(), std::back_inserter(flow.blocks));
  }
  flow.run.clear();
}

bool gNodeParser::block_command(Flow & flow) {
  gAtcCommand const command = scanner_.info().command;
  bool const second_title = command == gAtcCommand::subentry && scanner_.params()[0] == "2";
  bool const ends = flow.in == In::subentry ? is_unit_part(command) && !second_title
                    : flow.in == In::unit   ? false
                                            : is_unit_part(command) || is_list_part(command);
  if (ends) {
    scanner_.back();
    return false;
  }
  flush(flow);
  return is_unit_part(command) ? unit_part(flow) : text_part(flow);
}

// What can stand in a unit alone; also the title inside of a subentry.
bool gNodeParser::unit_part(Flow & flow) {
  switch (scanner_.info().command) {
  case gAtcCommand::hdltoc:
    unit_.toc_title = braced_text();
    break;
  case gAtcCommand::hdline:
    unit_.title = braced_text();
    break;
  case gAtcCommand::sline:
    unit_.subject = braced_text();
    break;
  case gAtcCommand::subentry:
    subentry(flow);
    break;
  case gAtcCommand::subtoc:
    toc_of_headline_ = braced_text();
    break;
  case gAtcCommand::sub:
    headline(flow.blocks);
    break;
  case gAtcCommand::b_ll:
    link_line(flow.blocks);
    break;
  case gAtcCommand::b_hierarchy:
    hierarchy(flow.blocks);
    break;
  case gAtcCommand::end:
    ended_ = true;
    end_ = scanner_.begin();
    return false;
  default:
    break; // @text ends a title, and so did reading it
  }
  return true;
}

bool gNodeParser::text_part(Flow & flow) {
  switch (scanner_.info().command) {
  case gAtcCommand::endp:
    break;
  case gAtcCommand::b_verbatim:
    verbatim(flow.blocks);
    break;
  case gAtcCommand::b_list:
    list(flow.blocks);
    break;
  case gAtcCommand::b_table:
    table(flow.blocks);
    break;
  case gAtcCommand::b_quote:
    quote(flow.blocks);
    break;
  case gAtcCommand::rule:
    flow.blocks.push_back(node(gNodeKind::rule));
    break;
  case gAtcCommand::exact:
    exact_ = true;
    break;
  default:
    misplaced();
    break;
  }
  return true;
}

void gNodeParser::subentry(Flow & flow) {
  gNode made = node(gNodeKind::subentry);
  bool const second = scanner_.params()[0] == "2";
  gNode title = title_of_subentry();
  if (second) {
    title.kind = gNodeKind::subtitle;
    flow.blocks.push_back(std::move(title));
    return;
  }
  made.children.push_back(std::move(title));
  if (flow.in == In::unit)
    blocks(made.children, In::subentry);
  flow.blocks.push_back(std::move(made));
}

gNode gNodeParser::title_of_subentry() {
  gNode title = node(gNodeKind::title);
  gAtcScanner::Token const token = scanner_.next(false);
  if (token == gAtcScanner::command && scanner_.info().command == gAtcCommand::subtitle) {
    braced_into(title);
    return title;
  }
  scanner_.back();
  scanner_.report(Msg::atc_parameters, "@subentry", title.line);
  return title;
}

void gNodeParser::headline(gNodeList & out) {
  gNode made = node(gNodeKind::headline);
  made.params = std::move(scanner_.params());
  made.params.resize(1);
  braced_into(made);
  made.params.push_back(plain_text(toc_of_headline_));
  toc_of_headline_.clear();
  out.push_back(std::move(made));
}

void gNodeParser::verbatim(gNodeList & out) {
  gNode made = node(gNodeKind::verbatim);
  made.params = std::move(scanner_.params());
  bool closed = false;
  made.text = scanner_.verbatim(closed);
  if (!closed)
    scanner_.report(Msg::atc_unclosed, "@b_verbatim", made.line);
  if (made.text.find_first_not_of(" \t\n") != made.text.npos)
    out.push_back(std::move(made));
}

void gNodeParser::link_line(gNodeList & out) {
  gNode made = node(gNodeKind::link_line);
  while (true) {
    gAtcScanner::Token const token = scanner_.next(false);
    if (token == gAtcScanner::text) {
      if (scanner_.text_value() != " ")
        made.children.push_back(text_of_token());
    } else if (token == gAtcScanner::command && Atc::is_inline(scanner_.info().command)) {
      made.children.push_back(inline_node());
    } else {
      if (token == gAtcScanner::end || scanner_.info().command != gAtcCommand::e_ll) {
        scanner_.back();
        scanner_.report(Msg::atc_unclosed, "@b_ll", made.line);
      }
      break;
    }
  }
  if (!made.children.empty())
    out.push_back(std::move(made));
}
