// Reads gGeneratedUnits, gCppClasses and gPasClasses. Changes gNamedUnits and gUnnamedUnits.
// A comment may say that the text of another element holds for its own, too. Each placeholder for
// such a text is replaced; the text that is copied is settled before, so chains are followed, and
// what comes round to itself is seen while it is open.

#include <map>
#include <set>
#include <unordered_map>

#include "ana/anadat/pieces.h"
#include "ana/anadat/tables.h"
#include "ana/copy_names.h"
#include "ana/stages.h"
#include "app/options/run_flags.h"
#include "vlb/gmsghandler.h"
#include "vlb/messages.h"

namespace {

constexpr std::string_view description = "@description";
constexpr std::string_view exact = "@exact\n";
constexpr int longest_chain = 200;
// Copies of copies grow with each step, so all together are bounded.
constexpr std::size_t most_bytes = 64u << 20;
constexpr std::size_t pieces_of_copy = 3;

enum class How { all, brief, details };

// "@_vlcopy" and the two pieces behind it.
struct Order {
  How how = How::all;
  std::string name;
};

// What the code says stands in no comment.
bool is_of_code(std::string_view subentry) {
  return subentry == "@declaration" || subentry == "@heritage" || subentry == "@sline";
}

// Where the first paragraph ends in one piece of intermediate code.
std::size_t end_of_paragraph(std::string_view code) {
  for (std::size_t at = code.find('@'); at != code.npos; at = code.find('@', at + 1)) {
    if (at > 0 && code[at - 1] == '\\')
      continue;
    for (std::string_view const word : {"@endp", "@b_", "@subentry", "@rule", "@sub<", "@text"})
      if (code.substr(at).starts_with(word))
        return at;
  }
  return code.npos;
}

void push_code(gStrList & list, std::string_view code) {
  if (!code.empty())
    list.push_back(gString(code));
}

// The first paragraph, or all but that.
gStrList part_of(gStrList const & text, How how) {
  if (how == How::all)
    return text;
  gStrList brief, details;
  bool behind = false;
  for (cRef<gString> const & piece : text) {
    bool const plain = Vlb::piece_kind(*piece) == gPiece::plain;
    std::size_t const end = behind || !plain ? std::string::npos : end_of_paragraph(*piece);
    if (end == std::string::npos) {
      (behind ? details : brief).push_back(piece);
      continue;
    }
    behind = true;
    push_code(brief, std::string_view(*piece).substr(0, end));
    std::string_view rest = std::string_view(*piece).substr(end);
    if (rest.starts_with("@endp\n"))
      rest.remove_prefix(std::string_view("@endp\n").size());
    push_code(details, rest);
  }
  return how == How::brief ? brief : details;
}

// Headlines of a text of its own as titles within the text of a unit.
std::string with_titles(std::string_view code) {
  std::string result(code);
  constexpr std::string_view headline = "@sub<", text = "@text\n";
  for (std::size_t at = 0; (at = result.find('@', at)) != result.npos; ++at) {
    if (at > 0 && result[at - 1] == '\\')
      continue;
    if (result.compare(at, headline.size(), headline) == 0)
      result.replace(at, headline.size() + 2, "@subentry<2> @subtitle");
    else if (result.compare(at, text.size(), text) == 0)
      result.erase(at, text.size());
  }
  return result;
}

// A topic begins with its headline and its place.
gStrList behind_headline(gStrList const & text) {
  gStrList rest;
  bool behind = false;
  for (cRef<gString> const & piece : text) {
    behind = behind || Vlb::piece_kind(*piece) == gPiece::bookmark;
    if (behind)
      rest.push_back(piece);
  }
  return rest;
}

gSubText const * text_of(gDocUnit const & unit) {
  gSubText const * const text = unit.subentries().find(description);
  return text ? text : unit.subentries().find("text");
}

bool has_copy(gDocUnit const & unit) {
  for (gSubEntries::Entry const & entry : unit.subentries())
    if (Vlb::has_piece(entry.text, gPiece::copy))
      return true;
  return false;
}

class TextCopies {
public:
  void run();

private:
  enum class State { open, settled };

  void settle(gDocUnit & unit, int depth);
  void settle_entry(gDocUnit & unit, gString const & subentry, int depth);
  void insert(gDocUnit & unit, std::string_view subentry, Order const & order, int depth,
              gStrList & out);
  gDocUnit * source_of(gDocUnit const & unit, Order const & order, int depth);
  void insert_text(gDocUnit const & source, gSubText const & text, How how, gStrList & out);
  void add_entries(gDocUnit & unit, gDocUnit const & source);
  bool take_room(gDocUnit const & unit, gStrList const & text);
  void report(gMessage const & message, std::string const & argument, gDocUnit const & unit);

  gCopyNames names_;
  std::vector<cRef<gDocUnit>> copying_;
  std::unordered_map<gDocUnit const *, State> states_;
  std::set<std::tuple<gMessage const *, std::string, gDocUnit const *>> reported_;
  std::size_t bytes_ = 0;
};

void TextCopies::report(gMessage const & message, std::string const & argument,
                        gDocUnit const & unit) {
  if (reported_.emplace(&message, argument, &unit).second)
    Msg::log(message, gString(argument), unit.loc());
}

bool TextCopies::take_room(gDocUnit const & unit, gStrList const & text) {
  for (cRef<gString> const & piece : text)
    bytes_ += piece->size() + 1;
  if (bytes_ <= most_bytes)
    return true;
  report(Msg::copy_too_long, unit.name(), unit);
  return false;
}

// Null if there is none; that is reported.
gDocUnit * TextCopies::source_of(gDocUnit const & unit, Order const & order, int depth) {
  gDocUnit * const source = names_.find(unit, order.name);
  if (!source || (!text_of(*source) && source->subentries().empty())) {
    if (!order.name.empty() || !names_.has_bases(unit))
      report(Msg::copy_not_found, order.name.empty() ? "the base" : order.name, unit);
    return nullptr;
  }
  auto const state = states_.find(source);
  if (depth >= longest_chain || (state != states_.end() && state->second == State::open)) {
    report(Msg::copy_circle, order.name.empty() ? std::string(source->name()) : order.name, unit);
    return nullptr;
  }
  settle(*source, depth + 1);
  return source;
}

// Names mean what they meant where they were written, and a place is there once.
void TextCopies::insert_text(gDocUnit const & source, gSubText const & text, How how,
                             gStrList & out) {
  bool const is_topic = !source.subentries().find(description);
  gStrList const part = part_of(is_topic ? behind_headline(text) : gStrList(text), how);
  for (auto it = part.begin(); it != part.end(); ++it) {
    gPiece const kind = Vlb::piece_kind(**it);
    if (kind == gPiece::bookmark) {
      std::advance(it, std::min<std::ptrdiff_t>(2, std::distance(it, std::prev(part.end()))));
    } else if (kind == gPiece::guess && std::next(it) != part.end()) {
      out.push_back(*it);
      ++it;
      std::string const whole = names_.whole_name(source, **it);
      whole.empty() ? out.push_back(*it) : out.push_back(gString(whole));
    } else if (kind == gPiece::plain) {
      std::string_view code = **it;
      if (it == part.begin() && code.starts_with(exact))
        code.remove_prefix(exact.size());
      push_code(out, is_topic ? with_titles(code) : std::string(code));
    } else {
      out.push_back(*it);
    }
  }
}

// What the unit doesn't say itself.
void TextCopies::add_entries(gDocUnit & unit, gDocUnit const & source) {
  for (gSubEntries::Entry const & entry : source.subentries()) {
    if (*entry.name == description || *entry.name == "text" || is_of_code(*entry.name))
      continue;
    gSubText const * const own = std::as_const(unit).subentries().find(*entry.name);
    if (own && !own->is_wsp())
      continue;
    gStrList text;
    insert_text(source, entry.text, How::all, text);
    if (!take_room(unit, text))
      return;
    if (!entry.text.empty() && entry.text.front()->starts_with(exact))
      text.push_front(make_ref<gString>(exact));
    unit.set_subentry(*entry.name, text);
  }
}

void TextCopies::insert(gDocUnit & unit, std::string_view subentry, Order const & order, int depth,
                        gStrList & out) {
  gDocUnit const * const source = bytes_ > most_bytes ? nullptr : source_of(unit, order, depth);
  if (!source) {
    if (!order.name.empty())
      out.push_back(gString("@tt{" + std::string(Vlb::escape_atc(gString(order.name))) + "} "));
    return;
  }
  bool const whole = subentry == description || subentry == "text";
  gSubText const * const text = whole ? text_of(*source) : source->subentries().find(subentry);
  gStrList copied;
  if (text && (whole || order.name.empty()))
    insert_text(*source, *text, order.how, copied);
  else if (!whole && text_of(*source))
    insert_text(*source, *text_of(*source), How::brief, copied);
  if (!take_room(unit, copied))
    return;
  out.append(std::move(copied));
  if (subentry == description && order.how != How::brief)
    add_entries(unit, *source);
}

void TextCopies::settle_entry(gDocUnit & unit, gString const & subentry, int depth) {
  gStrList const text = *std::as_const(unit).subentries().find(subentry);
  gStrList settled;
  for (auto it = text.begin(); it != text.end(); ++it) {
    if (Vlb::piece_kind(**it) != gPiece::copy) {
      settled.push_back(*it);
      continue;
    }
    if (static_cast<std::size_t>(std::distance(it, text.end())) < pieces_of_copy)
      break;
    gString const & how = **++it;
    Order const order{how == "brief"     ? How::brief
                      : how == "details" ? How::details
                                         : How::all,
                      **++it};
    insert(unit, subentry, order, depth, settled);
  }
  unit.set_subentry(subentry, settled);
}

void TextCopies::settle(gDocUnit & unit, int depth) {
  if (!states_.try_emplace(&unit, State::open).second)
    return;
  std::vector<gString> entries;
  for (gSubEntries::Entry const & entry : std::as_const(unit).subentries())
    if (Vlb::has_piece(entry.text, gPiece::copy))
      entries.push_back(*entry.name);
  for (gString const & entry : entries)
    settle_entry(unit, entry, depth);
  states_[&unit] = State::settled;
}

void TextCopies::run() {
  for (auto const * table : {&gNamedUnits, &gUnnamedUnits})
    for (auto const & file : *table)
      for (auto const & [place, unit] : *file.value)
        if (has_copy(*unit))
          copying_.push_back(unit);
  if (copying_.empty())
    return;
  names_.collect();
  for (cRef<gDocUnit> const & unit : copying_) {
    Vapp::poll_break();
    settle(*unit, 0);
  }
}

} // namespace

void ana_copy_texts() {
  TextCopies().run();
}
