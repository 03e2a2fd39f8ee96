// Words and the signs around them tell which are names of parameters, which must not become links
// to things that happen to have the same name.

#include "conv/htm/declaration_text.h"

#include "vlb/gstring.h"

namespace {

// What stands around a word decides whether it can be a type.
struct gNeighbours {
  std::string_view word_before; // if a word stands directly in front
  char before = 0, behind = 0;  // signs; 0 at the ends
};

bool leads_to_type(std::string_view word) {
  for (std::string_view const known :
       {"public", "protected", "private", "virtual", "class", "struct", "union", "enum", "typename",
        "friend", "using", "of", "inherited"})
    if (word == known)
      return true;
  return false;
}

bool is_declared_name(gNeighbours const & around) {
  bool const ends = around.behind == ',' || around.behind == ')' || around.behind == '=' ||
                    around.behind == ';' || around.behind == '[' || around.behind == 0;
  if (!ends)
    return false;
  if (!around.word_before.empty())
    return !leads_to_type(around.word_before);
  return around.before == '&' || around.before == '*' || around.before == '>';
}

char sign_at(std::string_view text, std::size_t pos) {
  pos = text.find_first_not_of(" \n\t", pos);
  return pos == std::string_view::npos ? '\0' : text[pos];
}

struct gSetOff {
  gStretch place;
  gColour colour;
};

// One pass over the stretches of a declaration.
class gWriter {
public:
  gWriter(std::string_view text, gColours const & colours, DeclarationText::gLinker const & link,
          std::string & out)
      : text_(text),
        colours_(colours),
        link_(link),
        out_(out) {}

  // Stretches of the text that are set off, in their order.
  void set_off(std::vector<gSetOff> stretches) { set_off_ = std::move(stretches); }

  // True if the own name, should there be one, was found.
  bool write(std::vector<gColoured> const & stretches, DeclarationText::gOwnName const * own = {}) {
    bool found = own == nullptr;
    for (std::size_t i = 0; i < stretches.size();) {
      bound(offset_of(stretches[i]));
      if (!found && offset_of(stretches[i]) == own->place.begin) {
        found = true;
        out_ += own->shown;
        for (; i < stretches.size() && offset_of(stretches[i]) < own->place.end; ++i)
          remember(stretches[i]);
        continue;
      }
      bool const is_word = stretches[i].colour == gColour::word;
      std::size_t const stop = found ? text_.size() : own->place.begin;
      std::size_t const end = is_word ? name_end(stretches, i, stop) : i + 1;
      std::string_view const name(stretches[i].text.data(),
                                  static_cast<std::size_t>(stretches[end - 1].text.data() +
                                                           stretches[end - 1].text.size() -
                                                           stretches[i].text.data()));
      if (!is_word || !is_type(name) || !link_(name, out_))
        for (std::size_t k = i; k < end; ++k)
          colours_.set(stretches[k], out_);
      remember(stretches[end - 1]);
      i = end;
    }
    bound(text_.size());
    return found;
  }

private:
  // Ends what is set off up to here, and begins what is from here on.
  void bound(std::size_t offset) {
    if (open_ && set_off_[next_].place.end <= offset) {
      out_ += colours_.behind(set_off_[next_++].colour);
      open_ = false;
    }
    if (!open_ && next_ < set_off_.size() && set_off_[next_].place.begin <= offset &&
        offset < text_.size()) {
      out_ += colours_.before(set_off_[next_].colour);
      open_ = true;
    }
  }
  std::size_t offset_of(gColoured const & stretch) const {
    return static_cast<std::size_t>(stretch.text.data() - text_.data());
  }
  // Behind a qualified name that begins here, as far as it stands in front of `stop`.
  std::size_t name_end(std::vector<gColoured> const & stretches, std::size_t i,
                       std::size_t stop) const {
    while (i + 2 < stretches.size() && stretches[i + 1].text == "::" &&
           stretches[i + 2].colour == gColour::word && offset_of(stretches[i + 2]) != stop)
      i += 2;
    return i + 1;
  }
  bool is_type(std::string_view name) const {
    gNeighbours around = before_;
    auto const end = static_cast<std::size_t>(name.data() + name.size() - text_.data());
    around.behind = sign_at(text_, end);
    // Behind "Type::" of a type with arguments: a name in a scope that isn't known.
    return !is_declared_name(around) && around.before != ':' && around.before != '~';
  }
  void remember(gColoured const & stretch) {
    std::size_t const last = stretch.text.find_last_not_of(" \t");
    if (last == std::string_view::npos)
      return;
    bool const word = stretch.colour == gColour::word || stretch.colour == gColour::keyword;
    before_.word_before = word ? stretch.text : std::string_view();
    // A single colon stands in front of bases, and behind names in Pascal.
    bool const scope = stretch.text.substr(0, last + 1).ends_with("::");
    before_.before = stretch.text[last] == ':' && !scope ? ' ' : stretch.text[last];
  }

  std::string_view text_;
  gColours const & colours_;
  DeclarationText::gLinker const & link_;
  std::string & out_;
  gNeighbours before_;
  std::vector<gSetOff> set_off_;
  std::size_t next_ = 0; // of set_off_
  bool open_ = false;
};

// Those that are asked for, and each "->" between them.
std::vector<gSetOff> all_set_off(std::string_view text, std::span<gStretch const> differing) {
  std::vector<gSetOff> all;
  std::size_t at = 0;
  auto const add_arrows = [&](std::size_t end) {
    while ((at = text.find("->", at)) < end) {
      auto const begin = static_cast<std::uint32_t>(at);
      all.push_back({{begin, begin + 2}, gColour::arrow});
      at += 2;
    }
  };
  for (gStretch const & one : differing) {
    add_arrows(one.begin);
    all.push_back({one, gColour::differing});
    at = one.end;
  }
  add_arrows(text.size());
  return all;
}

// Signs in a row are one stretch, but names such as "operator=" and "~X" have their own borders.
void split_at(std::size_t offset, std::string_view text, std::vector<gColoured> & stretches) {
  char const * const border = text.data() + offset;
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    std::string_view const whole = stretches[i].text;
    if (border <= whole.data() || border >= whole.data() + whole.size())
      continue;
    gColoured behind = stretches[i];
    auto const cut = static_cast<std::size_t>(border - whole.data());
    stretches[i].text = whole.substr(0, cut);
    behind.text = whole.substr(cut);
    stretches.insert(stretches.begin() + static_cast<std::ptrdiff_t>(i) + 1, behind);
    return;
  }
}

} // namespace

void DeclarationText::set(std::string_view text, gLanguage language, gColours const & colours,
                          gLinker const & link, std::string & out) {
  gWriter writer(text, colours, link, out);
  std::vector<gColoured> stretches;
  gColours::gState state = 0;
  for (std::size_t at = 0; at <= text.size();) {
    std::size_t const end = std::min(text.find('\n', at), text.size());
    colours.split(language, text.substr(at, end - at), state, stretches);
    writer.write(stretches);
    if (end < text.size())
      out += '\n';
    at = end + 1;
  }
}

bool DeclarationText::set_with_name(std::string_view text, gLanguage language,
                                    gColours const & colours, gLinker const & link,
                                    gOwnName const & own, std::span<gStretch const> differing,
                                    std::string & out) {
  std::size_t const before = out.size();
  std::vector<gColoured> stretches;
  gColours::gState state = 0;
  colours.split(language, text, state, stretches);
  split_at(own.place.begin, text, stretches);
  split_at(own.place.end, text, stretches);
  gWriter writer(text, colours, link, out);
  std::vector<gSetOff> set_off = all_set_off(text, differing);
  for (gSetOff const & one : set_off) {
    split_at(one.place.begin, text, stretches);
    split_at(one.place.end, text, stretches);
  }
  writer.set_off(std::move(set_off));
  if (writer.write(stretches, &own))
    return true;
  out.resize(before);
  return false;
}
