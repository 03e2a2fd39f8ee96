// Lists and verbatim blocks. A list has no brackets in the mark-up: its first item opens it, and
// the last item that isn't followed by another one closes it.
#include "ana/parser/doc/doc_parse_base.h"

#include "ana/anadat/input_table.h"

void doc_parse_base::set_list_style(List & list, gParamList & params) {
  if (!check_params(&list == &enum_ ? "enumstyle" : "numstyle", params))
    return;
  list.is_new = true;
  if (!params.params.empty())
    list.style = params.word(0);
}

gStrList doc_parse_base::item(List & list, gStrList text) {
  gString head;
  if (list.is_new) {
    head = list.begin;
    head += list.style;
    head += ">\n";
  }
  head += list.item;
  text.push_front(piece(head));
  list.is_new = lookahead() != list.token;
  if (list.is_new)
    text.push_back(piece(list.end));
  return text;
}

gStrList doc_parse_base::verbatim(gStrList text) {
  int const tab_width = gInput->text.tab_width;
  gSubText lines(std::move(text));
  lines.strip_indent(lines.common_indent(tab_width), tab_width);
  lines.add_indent(gInput->text.verb_indent);
  gStrList pieces(piece("@b_verbatim\n"));
  pieces.append(std::move(lines));
  pieces.push_back(piece("\n@e_verbatim\n"));
  return pieces;
}
