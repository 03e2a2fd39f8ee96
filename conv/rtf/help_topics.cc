// Topics come in the order of the units that they begin with. A topic's text gathers the units that
// belong to it; pop-ups that stand between them in the document follow as topics of their own.

#include "conv/rtf/help_topics.h"

#include <algorithm>
#include <cstdio>

namespace {

using V = gVltValue;

constexpr char popup[] = "popup";
constexpr char main_window[] = "main";
// Looks of headlines below that of a topic.
constexpr int deepest = 4;
constexpr std::size_t longest_title = 127;

gHelpLooks looks_of(gConversion const & conversion, gRtfTemplate const & style) {
  gHelpLooks looks;
  looks.simple_index = conversion.input().simple_index;
  looks.hierarchies_apart = conversion.input().hierarchies_apart;
  looks.hierarchy_word = conversion.rules().setting("hierarchy_title", "Class hierarchy");
  looks.text_width = style.text_width();
  looks.font_size = style.font_size();
  return looks;
}

// At most so many bytes, whole characters.
std::string cut(std::string text, std::size_t size) {
  if (text.size() <= size)
    return text;
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80)
    --size;
  return text.substr(0, size);
}

std::string known_window(std::string const & wintype) {
  return wintype == popup || wintype == "subwin" ? wintype : main_window;
}

} // namespace

gHelpTopics::gHelpTopics(gConversion & conversion, gRtfTemplate & style,
                         gHelpKeywords const & keywords)
    : conversion_(conversion),
      document_(conversion.document()),
      rules_(conversion.rules()),
      style_(style),
      kinds_(document_, rules_),
      sources_(document_),
      contexts_(document_),
      looks_(looks_of(conversion, style)),
      setter_(document_, rules_, kinds_, contexts_, keywords, looks_) {
  plan(conversion.input().split_level);
}

void gHelpTopics::plan(int split_level) {
  topic_of_.reserve(document_.units.size());
  for (std::size_t i = 0; i < document_.units.size(); ++i) {
    gUnitRecord const & unit = document_.units[i];
    std::string const wintype = known_window(unit.wintype);
    int const above = unit.parent < 0 ? -1 : topic_of_[static_cast<std::size_t>(unit.parent)];
    bool const begins = above < 0 || unit.level <= split_level || wintype != main_window;
    if (begins) {
      gHelpTopic topic;
      topic.context = contexts_.of_unit(static_cast<int>(i));
      topic.title = unit.toc.empty() ? unit.title : unit.toc;
      topic.wintype = wintype;
      // Pop-ups aren't in the contents, so nothing stands below them.
      for (topic.parent = above; topic.parent >= 0;) {
        gHelpTopic const & upper = topics_[static_cast<std::size_t>(topic.parent)];
        if (upper.wintype != popup)
          break;
        topic.parent = upper.parent;
      }
      topics_.push_back(std::move(topic));
    }
    int const topic = begins ? static_cast<int>(topics_.size()) - 1 : above;
    topics_[static_cast<std::size_t>(topic)].units.push_back(static_cast<int>(i));
    topic_of_.push_back(topic);
  }
}

std::string gHelpTopics::text() {
  std::string out;
  for (std::size_t i = 0; i < topics_.size(); ++i)
    put_topic(i, out);
  out.insert(0, style_.head()); // with the colours that the topics asked for
  return out += "}\n";
}

void gHelpTopics::put_topic(std::size_t index, std::string & out) {
  gHelpTopic & topic = topics_[index];
  gUnitRecord const & first = document_.units[static_cast<std::size_t>(topic.units[0])];
  gFrame frame;
  frame.context = topic.context;
  frame.title = first.title;
  frame.wintype = topic.wintype;
  frame.style = first.style;
  frame.section = first.section;
  frame.browsed = topic.wintype != popup;
  std::string content;
  std::vector<gHelpAside> asides;
  for (int const unit : topic.units) {
    content += put_unit(topic, unit, frame);
    std::ranges::move(setter_.take_asides(), std::back_inserter(asides));
  }
  put_frame(frame, content, out);
  for (gHelpAside & aside : asides) {
    if (aside.popup) {
      gFrame note;
      note.context = aside.context;
      note.wintype = popup;
      put_frame(note, aside.body, out);
    } else {
      put_hierarchy(aside, frame, out);
      aside.body.clear();
      topic.hierarchies.push_back(std::move(aside));
    }
  }
}

std::string gHelpTopics::put_unit(gHelpTopic const & topic, int unit, gFrame & frame) {
  conversion_.progress(units_done_++, document_.units.size());
  gUnitRecord const & record = document_.units[static_cast<std::size_t>(unit)];
  gUnitText const text = setter_.begin(unit);
  std::string const title = setter_.set_headline(text.title);
  std::string const subject = setter_.set_line(text.subject);
  std::string body, links;
  setter_.set_body(text.body, body, links);
  gVltValues values;
  values.set(V::title, title).set(V::subject, subject).set(V::body, body).set(V::links, links);
  // The topic itself shows the marks of its first unit, and all keywords if the index leads there.
  bool const member = unit != topic.units[0];
  std::string aliases = shown_aliases(setter_.left_contexts(text)), words;
  std::vector<std::string> const keywords = setter_.left_keywords();
  if (member && !looks_.simple_index)
    words = setter_.escaped(gHelpKeywords::joined(keywords));
  else
    frame.keywords.insert(frame.keywords.end(), keywords.begin(), keywords.end());
  if (member) {
    values.set(V::context, contexts_.of_unit(unit)).set(V::member, "1");
    values.set(V::aliases, aliases).set(V::keywords, words);
  } else {
    frame.aliases = std::move(aliases);
  }
  int const first_level = document_.units[static_cast<std::size_t>(topic.units[0])].level;
  std::string const level = std::to_string(std::clamp(record.level - first_level + 1, 1, deepest));
  std::string const below = overview(unit);
  values.set(V::level, level).set(V::overview, below).set(V::wintype, topic.wintype);
  return unit_text(unit, values);
}

std::string gHelpTopics::unit_text(int unit, gVltValues & values) {
  gUnitRecord const & record = document_.units[static_cast<std::size_t>(unit)];
  gKind const & kind = kinds_.of(unit);
  std::string const style = setter_.escaped(record.style), name = setter_.escaped(record.name);
  std::string const summary = setter_.escaped(record.summary);
  std::string const path = setter_.escaped(sources_.shown(record.path));
  std::string const line = record.source_line > 0 ? std::to_string(record.source_line) : "";
  values.set(V::kind, kind.word).set(V::kind_class, kind.css).set(V::style, style);
  values.set(V::name, name).set(V::summary, summary).set(V::path, path).set(V::line, line);
  std::string out;
  rules_.apply(gVltRule::unit, record.style, values, out);
  return out;
}

std::string gHelpTopics::shown_aliases(std::vector<std::string> const & contexts) const {
  std::string out;
  for (std::string const & context : contexts)
    rules_.apply(gVltRule::bkmk, gVltValues().set(V::id, context), out);
  return out;
}

// The topics right below a unit, as links.
std::string gHelpTopics::overview(int unit) {
  std::string items;
  for (int const child : document_.children_of(unit)) {
    gHelpTopic const & topic = topic_at(child);
    if (topic.units[0] != child)
      continue;
    gUnitRecord const & record = document_.units[static_cast<std::size_t>(child)];
    std::string const title = setter_.escaped(record.title);
    std::string const summary = setter_.escaped(record.summary);
    gVltValues values;
    values.set(V::context, topic.context).set(V::title, title).set(V::summary, summary);
    values.set(V::kind, kinds_.of(child).word);
    rules_.apply(gVltRule::overview_item, topic.wintype, values, items);
  }
  std::string out;
  if (!items.empty())
    rules_.apply(gVltRule::overview, gVltValues().set(V::items, items), out);
  return out;
}

void gHelpTopics::put_hierarchy(gHelpAside const & aside, gFrame const & above, std::string & out) {
  gFrame frame;
  frame.context = aside.context;
  frame.title = aside.title;
  frame.wintype = above.wintype;
  frame.browsed = above.browsed;
  frame.section = above.section;
  std::string const title = setter_.escaped(aside.title);
  gVltValues values;
  values.set(V::title, title).set(V::body, aside.body).set(V::level, "1");
  std::string content;
  rules_.apply(gVltRule::unit, "hierarchy", values.set(V::wintype, frame.wintype), content);
  put_frame(frame, content, out);
}

void gHelpTopics::put_frame(gFrame const & frame, std::string const & content, std::string & out) {
  std::string const title = setter_.escaped(cut(frame.title, longest_title));
  std::string const words = setter_.escaped(gHelpKeywords::joined(frame.keywords));
  char browse[40] = "";
  if (frame.browsed) // in the order of the alphabet
    std::snprintf(browse, sizeof browse, "S%04d:%07d", frame.section + 1, ++browsed_);
  gVltValues values;
  values.set(V::context, frame.context).set(V::title, title).set(V::aliases, frame.aliases);
  values.set(V::keywords, words).set(V::browse, browse).set(V::wintype, frame.wintype);
  values.set(V::content, content);
  std::string shown;
  if (frame.wintype == popup)
    rules_.apply(gVltRule::popup, values, shown);
  else
    rules_.apply(gVltRule::topic, frame.style, values, shown);
  out += style_.resolve_styles(shown);
}

std::vector<std::string> gHelpTopics::help_ids() {
  std::vector<std::string> ids;
  for (std::string const & name : document_.help_ids)
    if (std::string const & context = contexts_.of(name); setter_.placed().contains(context))
      ids.push_back(context);
  return ids;
}
