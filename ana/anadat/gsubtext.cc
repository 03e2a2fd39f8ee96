// White space and indentation of a text in pieces. Pieces are shared with other lists, so a changed
// one is replaced.
#include "ana/anadat/gsubtext.h"

#include <algorithm>

#include "ana/anadat/pieces.h"

namespace {

// An absurd number in a project must not cost memory without limit.
constexpr int max_indent = 256;

// What a walk over the characters of a text knows at each of them.
struct LineHead {
  bool at_head;
  int columns;

  void next_line(int start) {
    at_head = true;
    columns = start;
  }
};

// One piece without up to `left` columns at each line's head.
std::string stripped(std::string_view piece, int n, std::string const & tab, LineHead & head) {
  std::string out;
  auto blank = [&] {
    if (head.at_head && head.columns > 0)
      --head.columns;
    else
      out += ' ';
  };
  for (char c : piece) {
    if (c == '\t') {
      for (std::size_t i = 0; i < tab.size(); ++i)
        blank();
    } else if (c == ' ') {
      blank();
    } else {
      out += c;
      if (c == '\n')
        head.next_line(n);
      else
        head.at_head = false;
    }
  }
  return out;
}

} // namespace

void gSubText::wsp_norm() {
  bool verbatim = false;
  bool in_run = true; // the start of the text counts as one: no white space there
  auto const is_left_out = [&](cRef<gString> & piece) {
    if (verbatim ? Vlb::ends_verbatim(*piece) : Vlb::begins_verbatim(*piece))
      verbatim = !verbatim;
    bool const white = !verbatim && piece->wsp_only();
    bool const left_out = white && in_run;
    if (white && !left_out && *piece != " ")
      piece = make_ref<gString>(" ");
    in_run = white;
    return left_out;
  };
  iterator kept = begin();
  for (iterator it = begin(); it != end(); ++it)
    if (!is_left_out(*it))
      std::swap(*kept++, *it);
  erase(kept, end());
}

int gSubText::common_indent(int tab_width) const {
  tab_width = std::clamp(tab_width, 0, max_indent);
  int smallest = -1;
  LineHead head{false, 0};
  bool verbatim = false;
  for (cRef<gString> const & piece : *this) {
    if (verbatim || Vlb::begins_verbatim(*piece)) {
      verbatim = !Vlb::ends_verbatim(*piece);
      continue;
    }
    for (char c : *piece) {
      if (c == '\n') {
        head.next_line(0);
      } else if (head.at_head && c == ' ') {
        ++head.columns;
      } else if (head.at_head && c == '\t') {
        head.columns += tab_width;
      } else if (head.at_head) {
        smallest = smallest < 0 ? head.columns : std::min(smallest, head.columns);
        head.at_head = false;
      }
    }
  }
  return std::max(smallest, 0);
}

void gSubText::strip_indent(int n, int tab_width) {
  std::string const tab(std::clamp(tab_width, 0, max_indent), ' ');
  LineHead head{true, n};
  for (iterator it = begin(); it != end(); ++it) {
    std::string text = stripped(**it, n, tab, head);
    if (text != **it)
      *it = make_ref<gString>(std::move(text));
  }
}

void gSubText::add_indent(int n) {
  std::string const blanks(std::clamp(n, 0, max_indent), ' ');
  if (blanks.empty())
    return;
  for (iterator it = begin(); it != end(); ++it) {
    bool const at_start = it == begin() && ((*it)->empty() || (*it)->front() != '\n');
    if (!at_start && (*it)->find('\n') == gString::npos)
      continue;
    std::string text = at_start ? blanks : std::string();
    for (char c : **it) {
      text += c;
      if (c == '\n')
        text += blanks;
    }
    *it = make_ref<gString>(std::move(text));
  }
}
