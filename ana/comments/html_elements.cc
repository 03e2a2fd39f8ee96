// Each element is one row: what its tags open and close. Attributes count for links, images and
// references alone.
#include "ana/comments/html_elements.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <md4c-html.h>

#include "vlb/gstring.h"

namespace {

enum class Does : unsigned char {
  nothing, // its text alone
  format,
  paragraph, // ends the paragraph in front and behind
  title,
  line_break,
  rule,
  list,
  numbering,
  item,
  term,
  definition,
  quote,
  table,
  caption,
  row,
  head_cell,
  cell,
  link,
  image,
  see,
  name,
  list_head, // of a list that may be a table
  list_term,
  list_text,
  label, // a paragraph with a word in front of it
};

struct Row {
  std::string_view name;
  Does does;
  std::string_view format = {};
};

constexpr Row rows[] = {
    {"a", Does::link},
    {"abbr", Does::nothing},
    {"acronym", Does::nothing},
    {"address", Does::paragraph},
    {"article", Does::paragraph},
    {"aside", Does::paragraph},
    {"b", Does::format, "b"},
    {"big", Does::nothing},
    {"blockquote", Does::quote},
    {"br", Does::line_break},
    {"c", Does::format, "tt"},
    {"caption", Does::caption},
    {"center", Does::paragraph},
    {"cite", Does::format, "em"},
    {"code", Does::format, "tt"},
    {"col", Does::nothing},
    {"colgroup", Does::nothing},
    {"completionlist", Does::nothing},
    {"dd", Does::definition},
    {"del", Does::format, "del"},
    {"description", Does::list_text},
    {"details", Does::paragraph},
    {"dfn", Does::format, "em"},
    {"div", Does::paragraph},
    {"dl", Does::list},
    {"dt", Does::term},
    {"em", Does::format, "em"},
    {"example", Does::paragraph},
    {"font", Does::nothing},
    {"footer", Does::paragraph},
    {"h1", Does::title},
    {"h2", Does::title},
    {"h3", Does::title},
    {"h4", Does::title},
    {"h5", Does::title},
    {"h6", Does::title},
    {"header", Does::paragraph},
    {"hr", Does::rule},
    {"i", Does::format, "em"},
    {"img", Does::image},
    {"include", Does::nothing},
    {"inheritdoc", Does::nothing},
    {"ins", Does::format, "ul"},
    {"item", Does::item},
    {"kbd", Does::format, "kbd"},
    {"li", Does::item},
    {"list", Does::list},
    {"listheader", Does::list_head},
    {"main", Does::paragraph},
    {"mark", Does::format, "mark"},
    {"nav", Does::paragraph},
    {"nobr", Does::nothing},
    {"note", Does::label, "Note"},
    {"ol", Does::numbering},
    {"p", Does::paragraph},
    {"para", Does::paragraph},
    {"paramref", Does::name},
    {"permission", Does::label, "Permission"},
    {"pre", Does::paragraph},
    {"q", Does::nothing},
    {"remarks", Does::paragraph},
    {"s", Does::format, "del"},
    {"samp", Does::format, "tt"},
    {"section", Does::paragraph},
    {"see", Does::see},
    {"seealso", Does::see},
    {"small", Does::nothing},
    {"span", Does::nothing},
    {"strike", Does::format, "del"},
    {"strong", Does::format, "b"},
    {"sub", Does::format, "sub"},
    {"summary", Does::paragraph},
    {"sup", Does::format, "sup"},
    {"table", Does::table},
    {"tbody", Does::nothing},
    {"td", Does::cell},
    {"term", Does::list_term},
    {"tfoot", Does::nothing},
    {"th", Does::head_cell},
    {"thead", Does::nothing},
    {"tr", Does::row},
    {"tt", Does::format, "tt"},
    {"typeparamref", Does::name},
    {"u", Does::format, "ul"},
    {"ul", Does::list},
    {"value", Does::paragraph},
    {"var", Does::format, "em"},
    {"wbr", Does::nothing},
};

constexpr bool below(Row const & a, Row const & b) {
  return a.name < b.name;
}
static_assert(std::is_sorted(std::begin(rows), std::end(rows), below));

Row const * find(std::string_view name) {
  auto const * const at =
      std::lower_bound(std::begin(rows), std::end(rows), name,
                       [](Row const & row, std::string_view wanted) { return row.name < wanted; });
  return at != std::end(rows) && at->name == name ? at : nullptr;
}

bool is_name(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

bool is_white(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

// A reference of an XML comment may have the kind of its target in front: "M:Name.Space.f(int)".
std::string_view without_kind(std::string_view target) {
  if (target.size() > 2 && target[1] == ':' && target[2] != ':')
    target.remove_prefix(2);
  return target.substr(0, target.find('('));
}

void set_see(gHtmlTag const & tag, gRichText & out) {
  if (tag.closing) {
    out.close_link();
    return;
  }
  std::string const target = Html::attribute(tag.attributes, "cref");
  std::string const address = Html::attribute(tag.attributes, "href");
  std::string const word = Html::attribute(tag.attributes, "langword");
  if (tag.alone && !target.empty())
    out.reference(without_kind(target), without_kind(target));
  else if (tag.alone && !address.empty()) {
    out.open_link(address);
    out.text(address);
    out.close_link();
  } else if (!word.empty())
    out.code(word);
  else if (!target.empty())
    out.open_reference(without_kind(target));
  else
    out.open_link(address);
}

void set_block(Row const & row, gHtmlTag const & tag, gRichText & out) {
  switch (row.does) {
  case Does::paragraph:
    return out.end_paragraph();
  case Does::title:
    return tag.closing ? out.close_heading() : out.open_heading(tag.name[1] - '0');
  case Does::rule:
    return out.rule();
  case Does::list:
  case Does::numbering: {
    std::string const type = Html::attribute(tag.attributes, "type");
    if (tag.closing)
      return row.name == "list" && out.in_table() ? out.close_table() : out.close_list();
    return row.name == "list" && type == "table"
               ? out.open_table()
               : out.open_list(row.does == Does::numbering || type == "number");
  }
  case Does::item:
    if (row.name == "item" && out.in_table())
      return tag.closing ? out.close_cell() : out.open_row(false);
    return tag.closing ? out.close_item() : out.open_item();
  case Does::term:
    if (tag.closing)
      return out.close_format("b");
    out.open_item();
    return out.open_format("b");
  case Does::definition:
    out.close_format("b");
    return tag.closing ? out.end_paragraph() : out.text(" ");
  case Does::quote:
    return tag.closing ? out.close_quote() : out.open_quote();
  case Does::caption:
    return tag.closing ? out.close_caption() : out.open_caption();
  case Does::table:
    return tag.closing ? out.close_table() : out.open_table();
  case Does::row:
    return tag.closing ? void() : out.open_row(false);
  case Does::head_cell:
  case Does::cell:
    return tag.closing ? out.close_cell() : out.open_cell(row.does == Does::head_cell);
  default:
    return;
  }
}

// Lists of XML comments hold terms and their descriptions: cells of a table, or parts of an item.
void set_list_part(Row const & row, bool closing, gRichText & out) {
  bool const cells = out.in_table();
  if (row.does == Does::list_head)
    return cells     ? closing ? out.close_cell() : out.open_row(true)
               : closing ? out.close_item()
                     : out.open_item();
  if (cells)
    return closing ? out.close_cell() : out.open_cell();
  if (row.does == Does::list_term)
    return closing ? out.close_format("b") : out.open_format("b");
  if (!closing)
    out.text(" ");
}

} // namespace

gHtmlTag Html::tag_at(std::string_view text) {
  constexpr std::size_t longest = 4000;
  gHtmlTag tag;
  if (text.size() < 3 || text[0] != '<')
    return tag;
  if (text.starts_with("<!--")) {
    std::size_t const end = text.substr(0, longest).find("-->", 2);
    tag.length = end == text.npos ? 0 : end + 3;
    tag.name = "!--";
    return tag;
  }
  std::size_t at = 1;
  tag.closing = text[1] == '/';
  at += tag.closing;
  std::size_t const name = at;
  while (at < text.size() && is_name(text[at]) && at - name < 20)
    ++at;
  if (at == name || at >= text.size() || std::isdigit(static_cast<unsigned char>(text[name])) ||
      (text[at] != '>' && text[at] != '/' && !is_white(text[at])))
    return tag;
  tag.name = Vlb::to_lower(text.substr(name, at - name));
  std::size_t const attributes = at;
  for (char quote = 0; at < std::min(text.size(), longest); ++at) {
    char const c = text[at];
    if (quote) {
      quote = c == quote ? '\0' : quote;
    } else if (c == '"' || c == '\'') {
      quote = c;
    } else if (c == '<') {
      return tag;
    } else if (c == '>') {
      tag.attributes = text.substr(attributes, at - attributes);
      tag.alone = tag.attributes.ends_with('/');
      tag.length = at + 1;
      return tag;
    }
  }
  return tag;
}

std::string Html::attribute(std::string_view attributes, std::string_view name) {
  for (std::size_t at = 0; at < attributes.size();) {
    while (at < attributes.size() && !is_name(attributes[at]))
      ++at;
    std::size_t const begin = at;
    while (at < attributes.size() && (is_name(attributes[at]) || attributes[at] == '-'))
      ++at;
    bool const wanted = Vlb::to_lower(attributes.substr(begin, at - begin)) == name;
    while (at < attributes.size() && is_white(attributes[at]))
      ++at;
    if (at == attributes.size() || attributes[at] != '=')
      continue;
    for (++at; at < attributes.size() && is_white(attributes[at]);)
      ++at;
    if (at == attributes.size())
      break;
    char const quote = attributes[at];
    bool const quoted = quote == '"' || quote == '\'';
    std::size_t const first = at + quoted;
    std::size_t const end = std::min(quoted ? attributes.find(quote, first)
                                            : attributes.find_first_of(" \t\r\n/", first),
                                     attributes.size());
    if (wanted) {
      std::string value;
      for (std::size_t i = first; i < end; ++i) {
        std::size_t length = 0;
        std::string const character =
            attributes[i] == '&' ? entity_at(attributes.substr(i, end - i), length) : "";
        value += length ? character : std::string(1, attributes[i]);
        i += length ? length - 1 : 0;
      }
      return value;
    }
    at = end + quoted;
  }
  return {};
}

bool Html::is_known(std::string_view name) {
  return find(name) != nullptr;
}

bool Html::is_block(std::string_view name) {
  Row const * const row = find(name);
  return row && row->does >= Does::paragraph && row->does <= Does::cell &&
         row->does != Does::line_break;
}

bool Html::set(gHtmlTag const & tag, gRichText & out) {
  if (tag.name == "!--")
    return true;
  Row const * const row = find(tag.name);
  if (!row)
    return false;
  switch (row->does) {
  case Does::format:
    tag.closing ? out.close_format(row->format) : out.open_format(row->format);
    break;
  case Does::line_break:
    out.line_break();
    break;
  case Does::link:
    tag.closing ? out.close_link() : out.open_link(attribute(tag.attributes, "href"));
    break;
  case Does::image:
    out.image(attribute(tag.attributes, "src"), attribute(tag.attributes, "alt"));
    break;
  case Does::see:
    set_see(tag, out);
    break;
  case Does::name:
    out.code(attribute(tag.attributes, "name"));
    break;
  case Does::label:
    out.end_paragraph();
    if (!tag.closing) {
      out.open_format("b");
      out.text(row->format);
      out.close_format("b");
      out.text(": ");
    }
    break;
  case Does::list_head:
  case Does::list_term:
  case Does::list_text:
    set_list_part(*row, tag.closing, out);
    break;
  case Does::nothing:
    break;
  default:
    set_block(*row, tag, out);
    break;
  }
  return true;
}

std::string Html::entity_at(std::string_view text, std::size_t & length) {
  length = 0;
  std::size_t end = 1;
  while (end < text.size() && end < 40 && (is_name(text[end]) || (end == 1 && text[1] == '#')))
    ++end;
  if (end < 3 || end >= text.size() || text[end] != ';' || text[0] != '&')
    return {};
  // The renderer of the Markdown library knows all names.
  std::string shown;
  auto const collect = [](MD_CHAR const * part, MD_SIZE size, void * to) {
    static_cast<std::string *>(to)->append(part, size);
  };
  if (md_html(text.data(), static_cast<MD_SIZE>(end + 1), collect, &shown,
              MD_FLAG_NOHTML | MD_FLAG_NOINDENTEDCODEBLOCKS, 0) != 0)
    return {};
  std::string_view character = shown;
  if (!character.starts_with("<p>"))
    return {};
  character = character.substr(3, character.find("</p>") - 3);
  static constexpr std::pair<std::string_view, std::string_view> escaped[] = {
      {"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}, {"&quot;", "\""}};
  for (auto const & [name, plain] : escaped)
    if (character == name)
      character = plain;
  if (character.size() > 2 && character.starts_with('&'))
    return {}; // no name of one
  length = end + 1;
  return std::string(character);
}
