// The parser calls at the begin and the end of each element; what is open is a stack of nodes.

#include "conv/set/markdown.h"

#include <algorithm>

#include <md4c.h>

#include "vlb/gstring.h"

namespace {

constexpr std::size_t deepest = 60;      // elements within each other; more are flat
constexpr std::size_t longest = 1 << 20; // bytes; a README is shorter

class gReader {
public:
  gReader() { open_.emplace_back(); }

  int enter_block(MD_BLOCKTYPE type, void * detail) {
    switch (type) {
    case MD_BLOCK_UL:
      return begin(gNodeKind::enumeration);
    case MD_BLOCK_OL:
      return begin(gNodeKind::numbering);
    case MD_BLOCK_LI:
      return begin(gNodeKind::item);
    case MD_BLOCK_P:
      return begin(gNodeKind::paragraph);
    case MD_BLOCK_CODE:
      return begin(gNodeKind::verbatim);
    case MD_BLOCK_TABLE:
      return begin(gNodeKind::table);
    case MD_BLOCK_TR:
      return begin(gNodeKind::row);
    case MD_BLOCK_TH:
    case MD_BLOCK_TD:
      return begin(gNodeKind::cell);
    case MD_BLOCK_H: {
      begin(gNodeKind::headline);
      unsigned const level = static_cast<MD_BLOCK_H_DETAIL *>(detail)->level;
      open_.back().params = {std::to_string(std::clamp(level, 2u, 4u) - 1), ""};
      first_level_ = level;
      return 0;
    }
    default:
      return 0;
    }
  }
  int leave_block(MD_BLOCKTYPE type) {
    switch (type) {
    case MD_BLOCK_H:
      return end_headline();
    case MD_BLOCK_TABLE:
      return end_table();
    case MD_BLOCK_P:
      return end(!is_blank(open_.back()));
    case MD_BLOCK_UL:
    case MD_BLOCK_OL:
    case MD_BLOCK_LI:
    case MD_BLOCK_CODE:
    case MD_BLOCK_TR:
    case MD_BLOCK_TH:
    case MD_BLOCK_TD:
      return end(true);
    default:
      return 0;
    }
  }
  int enter_span(MD_SPANTYPE type, void * detail) {
    switch (type) {
    case MD_SPAN_A:
      begin(gNodeKind::web_link);
      open_.back().params = {address(static_cast<MD_SPAN_A_DETAIL *>(detail)->href)};
      return 0;
    case MD_SPAN_EM:
      return begin(gNodeKind::em);
    case MD_SPAN_STRONG:
      return begin(gNodeKind::bold);
    case MD_SPAN_CODE:
      return begin(gNodeKind::tt);
    case MD_SPAN_IMG:
      ++pictures_;
      return 0;
    default:
      return 0;
    }
  }
  int leave_span(MD_SPANTYPE type) {
    if (type == MD_SPAN_IMG)
      --pictures_;
    else if (type == MD_SPAN_A)
      end(!is_blank(open_.back()));
    else if (type == MD_SPAN_EM || type == MD_SPAN_STRONG || type == MD_SPAN_CODE)
      end(true);
    return 0;
  }
  int text(MD_TEXTTYPE type, std::string_view text) {
    if (type == MD_TEXT_HTML || pictures_ > 0)
      return 0;
    if (type == MD_TEXT_BR) {
      gNode line;
      line.kind = gNodeKind::line_break;
      open_.back().children.push_back(std::move(line));
      return 0;
    }
    std::string const shown = type == MD_TEXT_SOFTBR     ? " "
                              : type == MD_TEXT_NULLCHAR ? "\xEF\xBF\xBD"
                              : type == MD_TEXT_ENTITY   ? entity(text)
                                                         : std::string(text);
    if (open_.back().kind == gNodeKind::verbatim) {
      open_.back().text += shown;
      return 0;
    }
    gNodeList & nodes = open_.back().children;
    if (nodes.empty() || nodes.back().kind != gNodeKind::text)
      nodes.emplace_back();
    nodes.back().text += shown;
    return 0;
  }
  gMarkdownText take() {
    text_.body = std::move(open_.front().children);
    return std::move(text_);
  }

private:
  static bool is_blank(gNode const & node) { return plain_text(node.children).empty(); }
  static std::string entity(std::string_view text) {
    struct Known {
      std::string_view name, text;
    };
    static constexpr Known known[] = {{"&amp;", "&"},   {"&lt;", "<"},   {"&gt;", ">"},
                                      {"&quot;", "\""}, {"&nbsp;", " "}, {"&copy;", "\u00a9"}};
    for (Known const & one : known)
      if (one.name == text)
        return std::string(one.text);
    return std::string(text);
  }

  static std::string address(MD_ATTRIBUTE const & text) {
    std::string out;
    for (unsigned i = 0; text.size > 0 && text.substr_offsets[i] < text.size; ++i) {
      std::string_view const part(text.text + text.substr_offsets[i],
                                  text.substr_offsets[i + 1] - text.substr_offsets[i]);
      out += text.substr_types[i] == MD_TEXT_ENTITY ? entity(part) : std::string(part);
    }
    return out;
  }

  // What would lie too deep becomes a part of what is around it.
  int begin(gNodeKind kind) {
    gNode node;
    node.kind = kind;
    if (kind == gNodeKind::enumeration || kind == gNodeKind::numbering)
      node.params = {""};
    open_.push_back(std::move(node));
    return 0;
  }
  int end(bool keep) {
    gNode node = std::move(open_.back());
    open_.pop_back();
    gNodeList & around = open_.back().children;
    if (!keep)
      return 0;
    if (open_.size() <= deepest)
      around.push_back(std::move(node));
    else
      std::ranges::move(node.children, std::back_inserter(around));
    return 0;
  }
  int end_headline() {
    std::string const words = plain_text(open_.back().children);
    bool const first = open_.size() == 2 && open_.front().children.empty() && text_.title.empty() &&
                       first_level_ == 1;
    if (first)
      text_.title = words;
    open_.back().params[1] = words;
    return end(!first && !words.empty());
  }
  int end_table() {
    gNode & table = open_.back();
    std::size_t columns = 0;
    for (gNode const & row : table.children)
      columns = std::max(columns, row.children.size());
    std::string widths;
    for (std::size_t i = 0; i < columns; ++i)
      widths += i > 0 ? ",*" : "*";
    table.params = {"", widths, "", "first"};
    return end(columns > 0);
  }

  std::vector<gNode> open_;
  gMarkdownText text_;
  unsigned first_level_ = 0;
  int pictures_ = 0;
};

gReader & reader(void * data) {
  return *static_cast<gReader *>(data);
}

} // namespace

gMarkdownText read_markdown(std::string_view text) {
  gReader result;
  MD_PARSER parser{};
  parser.flags = MD_DIALECT_GITHUB & ~static_cast<unsigned>(MD_FLAG_TASKLISTS);
  parser.enter_block = [](MD_BLOCKTYPE type, void * detail, void * data) {
    return reader(data).enter_block(type, detail);
  };
  parser.leave_block = [](MD_BLOCKTYPE type, void *, void * data) {
    return reader(data).leave_block(type);
  };
  parser.enter_span = [](MD_SPANTYPE type, void * detail, void * data) {
    return reader(data).enter_span(type, detail);
  };
  parser.leave_span = [](MD_SPANTYPE type, void *, void * data) {
    return reader(data).leave_span(type);
  };
  parser.text = [](MD_TEXTTYPE type, MD_CHAR const * begin, MD_SIZE size, void * data) {
    return reader(data).text(type, {begin, size});
  };
  text = text.substr(0, longest);
  md_parse(text.data(), static_cast<MD_SIZE>(text.size()), &parser, &result);
  return result.take();
}
