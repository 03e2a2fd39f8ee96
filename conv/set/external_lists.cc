// The two forms of lists. An inventory is a few lines and then lines in compressed form, a tag file
// is plain XML of which only the names of elements and their texts count.

#include "conv/set/externals.h"

#include <algorithm>
#include <charconv>

#include <zlib.h>

namespace {

constexpr std::size_t most_bytes = 256UL << 20; // of an inventory when it is unpacked

// False if the bytes are damaged or become too many.
bool unpack(std::string_view packed, std::string & out) {
  z_stream stream = {};
  if (inflateInit(&stream) != Z_OK)
    return false;
  stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.data()));
  stream.avail_in = static_cast<uInt>(std::min<std::size_t>(packed.size(), most_bytes));
  std::string piece(65536, '\0');
  int state = Z_OK;
  while (state == Z_OK && out.size() < most_bytes) {
    stream.next_out = reinterpret_cast<Bytef *>(piece.data());
    stream.avail_out = static_cast<uInt>(piece.size());
    state = inflate(&stream, Z_NO_FLUSH);
    out.append(piece, 0, piece.size() - stream.avail_out);
  }
  inflateEnd(&stream);
  return state == Z_STREAM_END;
}

std::string_view next_line(std::string_view & text) {
  std::size_t const end = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

bool is_type_role(std::string_view role) {
  for (std::string_view const type :
       {"cpp:class", "cpp:struct", "cpp:union", "cpp:enum", "cpp:type", "cpp:concept", "c:struct",
        "c:union", "c:enum", "c:type"})
    if (role == type)
      return true;
  return false;
}

// "name domain:role priority address text"; the name may have blanks.
void read_line(std::string_view line, std::string_view base, gExternals & out) {
  constexpr std::size_t most_words = 64;
  std::size_t end = line.find(' ');
  for (std::size_t words = 0; end != line.npos && words < most_words;
       ++words, end = line.find(' ', end + 1)) {
    std::string_view rest = line.substr(end + 1);
    std::string_view const role = rest.substr(0, rest.find(' '));
    if (!role.starts_with("cpp:") && !role.starts_with("c:"))
      continue;
    rest.remove_prefix(std::min(role.size() + 1, rest.size()));
    std::string_view const priority = rest.substr(0, rest.find(' '));
    int number = 0;
    if (std::from_chars(priority.data(), priority.data() + priority.size(), number).ptr !=
        priority.data() + priority.size())
      continue;
    rest.remove_prefix(std::min(priority.size() + 1, rest.size()));
    std::string const name(line.substr(0, end));
    std::string address(rest.substr(0, rest.find(' ')));
    if (address.ends_with('$'))
      address.replace(address.size() - 1, 1, name);
    return out.add(name, base, address, is_type_role(role));
  }
}

std::string plain(std::string_view text) {
  static constexpr std::pair<std::string_view, char> entities[] = {
      {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}, {"&apos;", '\''}};
  std::string out;
  for (std::size_t at = 0; at < text.size(); ++at) {
    auto const * const entity = std::ranges::find_if(
        entities, [&](auto const & one) { return text.substr(at).starts_with(one.first); });
    out += entity == std::end(entities) ? text[at] : entity->second;
    at += entity == std::end(entities) ? 0 : entity->first.size() - 1;
  }
  return out;
}

std::string_view attribute(std::string_view tag, std::string_view name) {
  std::size_t const at = tag.find(std::string(name) + "=\"");
  if (at == tag.npos)
    return {};
  std::string_view const value = tag.substr(at + name.size() + 2);
  return value.substr(0, value.find('"'));
}

bool is_type_kind(std::string_view kind) {
  for (std::string_view const type : {"class", "struct", "union", "interface", "concept",
                                      "enumeration", "typedef", "protocol", "exception"})
    if (kind == type)
      return true;
  return false;
}

// A compound or a member of it.
struct gTagged {
  std::string kind, name, file, anchor;
};

class gTagReader {
public:
  gTagReader(std::string_view base, gExternals & out) : base_(base), out_(out) {}

  void begin(std::string_view tag) {
    if (tag.starts_with("compound")) {
      compound_ = {plain(attribute(tag, "kind")), {}, {}, {}};
      entered_ = false;
      in_member_ = false;
    } else if (tag.starts_with("member")) {
      enter_compound();
      member_ = {plain(attribute(tag, "kind")), {}, {}, {}};
      in_member_ = true;
    }
  }
  void end(std::string_view tag, std::string_view text) {
    gTagged & one = in_member_ ? member_ : compound_;
    if (tag == "name")
      one.name = plain(text);
    else if (tag == "filename" || tag == "anchorfile")
      one.file = plain(text);
    else if (tag == "anchor")
      one.anchor = plain(text);
    else if (tag == "member")
      enter_member();
    else if (tag == "compound")
      enter_compound();
  }

private:
  bool is_scope() const { return compound_.kind == "namespace" || is_type_kind(compound_.kind); }
  static std::string address_of(gTagged const & one) {
    return one.anchor.empty() ? one.file : one.file + '#' + one.anchor;
  }
  void enter_compound() {
    if (!entered_ && is_scope())
      out_.add(compound_.name, base_, address_of(compound_), is_type_kind(compound_.kind));
    entered_ = true;
  }
  void enter_member() {
    in_member_ = false;
    if (member_.file.empty())
      return;
    std::string const name = is_scope() ? compound_.name + "::" + member_.name : member_.name;
    out_.add(name, base_, address_of(member_), is_type_kind(member_.kind));
  }

  std::string_view base_;
  gExternals & out_;
  gTagged compound_, member_;
  bool in_member_ = false, entered_ = false;
};

} // namespace

bool Externals::read_inventory(std::string_view text, std::string_view base, gExternals & out) {
  if (!text.starts_with("# Sphinx inventory version 2"))
    return false;
  for (int i = 0; i < 4; ++i)
    next_line(text);
  std::string lines;
  if (!unpack(text, lines))
    return false;
  for (std::string_view rest = lines; !rest.empty();)
    read_line(next_line(rest), base, out);
  return true;
}

bool Externals::read_tags(std::string_view text, std::string_view base, gExternals & out) {
  if (text.substr(0, 1000).find("<tagfile") == text.npos)
    return false;
  gTagReader reader(base, out);
  std::size_t begin = 0; // of the text in front of a tag
  for (std::size_t at = text.find('<'); at < text.size(); at = text.find('<', at)) {
    std::size_t const end = text.find('>', at);
    if (end == text.npos)
      break;
    std::string_view const tag = text.substr(at + 1, end - at - 1);
    if (tag.starts_with('/'))
      reader.end(tag.substr(1), text.substr(begin, at - begin));
    else
      reader.begin(tag);
    begin = at = end + 1;
  }
  return true;
}
