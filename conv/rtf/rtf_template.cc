// Only the tables at the head of the template are taken over: groups that begin with one of a few
// control words, and the control words of the page. What the template shows as text is a sample.

#include "conv/rtf/rtf_template.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

#include "conv/rtf/rtf_words.h"
#include "vlb/gfilesystem.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::string_view plain_head =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss Arial;}}"
    "\\paperw11906\\paperh16838\\margl1418\\margr1418\\margt1418\\margb1418\n";

constexpr std::string_view tables[] = {"fonttbl", "colortbl", "stylesheet", "listtable",
                                       "listoverridetable"};
// Words that stand once in a document's head, and those whose numbers set its page.
constexpr std::string_view document_words[] = {
    "rtf",     "ansi",    "mac",       "pc",       "pca",       "ansicpg",  "deff",  "adeff",
    "deflang", "paperw",  "paperh",    "margl",    "margr",     "margt",    "margb", "gutter",
    "deftab",  "facingp", "landscape", "viewkind", "widowctrl", "hyphauto", "ftnbj", "aenddoc"};
// Word processors save these styles under names of their own.
struct SavedName {
  std::string_view saved, name;
};
constexpr SavedName other_names[] = {{"text body", "body text"},
                                     {"contents heading", "toc heading"},
                                     {"footnote", "footnote text"},
                                     {"endnote", "endnote text"}};

constexpr int automatic = -1; // a colour
// Bytes of a style's own look, since each style based on it has them again.
constexpr std::size_t most_words = 2000;
constexpr int longest = 100000; // twips of a page; some seventy inches

// Words of a style that say how styles hang together, and not how text looks.
constexpr std::string_view style_relations[] = {
    "snext", "sbasedon", "additive",    "sautoupd",    "spriority", "sqformat",
    "slink", "shidden",  "sunhideused", "ssemihidden", "slocked",   "styrsid"};

template <std::size_t N> bool holds(std::string_view const (&words)[N], std::string_view word) {
  return std::ranges::find(words, word) != std::end(words);
}

struct Style {
  std::string name, mark, own; // mark: "\\s1" or "\\cs1"; own: what it says about the look
  int number = 0, based_on = -1;
};

std::string usual_name(std::string name) {
  for (auto const & other : other_names)
    if (name == other.saved)
      return std::string(other.name);
  return name.starts_with("contents ") ? "toc " + name.substr(9) : name;
}

// A group such as {\s1\sbasedon0\b heading 1;}.
std::optional<Style> read_style(std::string_view group) {
  Style style;
  std::string relation;
  for (Rtf::gWordReader reader(group); reader.next();) {
    if (reader.depth() > 1)
      continue;
    if (reader.kind() == Rtf::gWordReader::plain) {
      style.name += reader.token();
    } else if (reader.kind() == Rtf::gWordReader::control) {
      std::string_view const word = reader.word();
      if (word == "s" || word == "cs" || word == "ds" || word == "ts") {
        style.number = reader.number(0);
        style.mark = reader.token();
      } else if (word == "sbasedon") {
        style.based_on = reader.number(-1);
      } else if (!holds(style_relations, word) && reader.token() != "\\*" &&
                 style.own.size() < most_words) {
        style.own += reader.token();
      }
    }
  }
  std::size_t const end = style.name.find(';');
  if (end == std::string::npos)
    return std::nullopt;
  style.name = usual_name(Vlb::to_lower(style.name.substr(0, end)));
  return style;
}

// Each colour ends with a semicolon; one without parts is left to the reader of the document.
std::vector<int> read_colours(std::string_view table) {
  std::vector<int> colours;
  int colour = automatic;
  auto const put = [&](int shift, int part) {
    colour = (std::max(colour, 0) & ~(255 << shift)) | (part & 255) << shift;
  };
  for (Rtf::gWordReader reader(table); reader.next();) {
    if (reader.word() == "red" || reader.word() == "green" || reader.word() == "blue")
      put(reader.word() == "red" ? 16 : reader.word() == "green" ? 8 : 0, reader.number(0));
    else if (reader.kind() == Rtf::gWordReader::plain)
      for (auto ends = std::ranges::count(reader.token(), ';'); ends > 0; --ends)
        colours.push_back(std::exchange(colour, automatic));
  }
  return colours;
}

std::vector<Style> read_styles(std::string_view sheet) {
  std::vector<Style> styles;
  for (Rtf::gWordReader reader(sheet); reader.next();) {
    if (reader.kind() != Rtf::gWordReader::open_group || reader.depth() != 2)
      continue;
    if (auto style = read_style(reader.skip_group()))
      styles.push_back(std::move(*style));
  }
  return styles;
}

// The words without those that `later` replaces. The words of a border hang together, and stay.
std::string without_replaced(std::string const & words, std::string const & later) {
  std::set<std::string_view> replaced;
  for (Rtf::gWordReader reader(later); reader.next();)
    replaced.insert(reader.word());
  std::string kept;
  for (Rtf::gWordReader reader(words); reader.next();)
    if (reader.word().starts_with("br") || !replaced.contains(reader.word()))
      kept += reader.token();
  return kept;
}

using gNumberedStyles = std::map<int, Style const *>;

// What a style inherits stands in front of its own words, which replace it. Steps are counted,
// since styles of a damaged file may be based on each other in a circle.
std::string look_of(gNumberedStyles const & styles, Style const & style, int steps = 0) {
  constexpr int nothing = 222;
  if (style.based_on < 0 || style.based_on == nothing || steps > 20)
    return style.own;
  auto const base = styles.find(style.based_on);
  if (base == styles.end())
    return style.own;
  return without_replaced(look_of(styles, *base->second, steps + 1), style.own) + style.own;
}

} // namespace

gRtfTemplate::gRtfTemplate() {
  parse(plain_head);
}

bool gRtfTemplate::load(gPathstring const & path) {
  path_ = path;
  std::string text;
  if (!gFileSystem::read_file(path, text)) {
    Msg::log(Msg::cannot_read, path);
    return false;
  }
  if (!text.starts_with("{\\rtf1")) {
    Msg::log(Msg::no_rtf_template, path);
    return false;
  }
  parse(text);
  return true;
}

void gRtfTemplate::parse(std::string_view text) {
  std::map<std::string, int, std::less<>> numbers;
  words_ = fonts_ = groups_ = "";
  colours_ = {automatic};
  styles_.clear();
  for (Rtf::gWordReader reader(text); reader.next();) {
    if (reader.kind() == Rtf::gWordReader::open_group && reader.depth() == 2) {
      take_group(reader);
    } else if (reader.kind() == Rtf::gWordReader::control && holds(document_words, reader.word())) {
      words_ += reader.token();
      numbers[std::string(reader.word())] = std::clamp(reader.number(0), -longest, longest);
    } else if ((reader.kind() == Rtf::gWordReader::plain &&
                reader.token().find_first_not_of(' ') != std::string_view::npos) ||
               (reader.kind() == Rtf::gWordReader::control && reader.word() == "pard")) {
      break; // the sample text begins
    }
  }
  auto const number = [&](std::string_view word, int fallback) {
    auto const found = numbers.find(word);
    return found == numbers.end() ? fallback : found->second;
  };
  text_width_ =
      std::max(1000, number("paperw", 11906) - number("margl", 1800) - number("margr", 1800));
  std::string const normal = styles_.contains("normal") ? styles_["normal"] : std::string();
  font_size_ = 24;
  for (Rtf::gWordReader reader(normal); reader.next();)
    font_size_ = reader.word() == "fs" ? std::clamp(reader.number(24), 2, 400) : font_size_;
}

void gRtfTemplate::take_group(Rtf::gWordReader & reader) {
  std::string_view const group = reader.skip_group();
  std::string_view const name = Rtf::destination(group);
  // Where the file breaks off, the document behind its head must not become part of a group.
  if (reader.depth() > 1)
    Msg::log(Msg::no_rtf_template, path_);
  else if (name == "colortbl")
    colours_ = read_colours(group);
  else if (holds(tables, name))
    ((name == "fonttbl" ? fonts_ : groups_) += group) += '\n';
  if (name != "stylesheet" || reader.depth() > 1)
    return;
  std::vector<Style> const styles = read_styles(group);
  gNumberedStyles numbered;
  for (Style const & style : styles)
    numbered.emplace(style.number, &style);
  for (Style const & style : styles)
    styles_.emplace(style.name, style.mark + look_of(numbered, style));
}

std::string gRtfTemplate::head() const {
  std::string colours;
  for (int const colour : colours_) {
    if (colour != automatic)
      colours += "\\red" + std::to_string(colour >> 16) + "\\green" +
                 std::to_string(colour >> 8 & 255) + "\\blue" + std::to_string(colour & 255);
    colours += ';';
  }
  // The texts show one character for those who don't know Unicode.
  return "{" + words_ + "\\uc1\n" + fonts_ + "{\\colortbl" + colours + "}\n" + groups_;
}

std::string gRtfTemplate::style_words(std::string_view name) {
  auto style = styles_.find(Vlb::to_lower(name));
  if (style == styles_.end() && missing_.emplace(name).second)
    Msg::log(Msg::no_such_style, gString(name), path_);
  if (style == styles_.end())
    style = styles_.find("normal");
  return style == styles_.end() ? std::string() : style->second;
}

std::string gRtfTemplate::colour_number(std::string_view hex) {
  int colour = 0;
  std::from_chars(hex.data(), hex.data() + hex.size(), colour, 16);
  colour &= 0xFFFFFF;
  auto found = std::ranges::find(colours_, colour);
  if (found == colours_.end())
    found = colours_.insert(found, colour);
  return std::to_string(found - colours_.begin());
}

std::string gRtfTemplate::resolve_styles(std::string_view text) {
  constexpr std::string_view opening[] = {"\\style{", "\\colour{"};
  std::string out;
  out.reserve(text.size());
  std::size_t done = 0;
  for (std::size_t at = 0; (at = text.find('\\', at)) != text.npos;) {
    std::string_view const rest = text.substr(at);
    bool const is_colour = rest.starts_with(opening[1]);
    std::size_t const end = is_colour || rest.starts_with(opening[0]) ? rest.find('}') : rest.npos;
    if (end == rest.npos) {
      at += 2; // what stands behind it may be escaped
      continue;
    }
    std::size_t const begin = opening[is_colour].size();
    std::string_view const name = rest.substr(begin, end - begin);
    std::string const words = is_colour ? colour_number(name) : style_words(name);
    (out += text.substr(done, at - done)) += words;
    done = at = at + end + 1;
    // A control word must not run into the text behind it; without one, a blank would be text.
    char const next = at < text.size() ? text[at] : ' ';
    if (!words.empty() && next != '\\' && next != '{' && next != ' ')
      out += ' ';
    else if (words.empty() && next == ' ')
      done = std::min(done + 1, text.size());
  }
  return out += text.substr(done);
}
