// A contents file knows books, which have no text, and pages; nine levels of them.

#include "conv/rtf/help_contents.h"

#include <algorithm>

#include "conv/rtf/rtf_codepage.h"

namespace {

constexpr int deepest = 9;
constexpr std::string_view line_end = "\r\n";

// What stands behind "=" is where a line leads, so a title's own has to be marked.
std::string shown(std::string const & title) {
  std::string text;
  for (char const c : Help::line(title)) {
    if (c == '=')
      text += '\\';
    text += c;
  }
  return text;
}

class gContentsWriter {
public:
  explicit gContentsWriter(std::vector<gHelpTopic> const & topics)
      : topics_(topics),
        levels_(topics.size(), 1),
        is_book_(topics.size(), false) {
    for (gHelpTopic const & topic : topics) {
      if (topic.wintype != "popup" && topic.parent >= 0)
        is_book_[static_cast<std::size_t>(topic.parent)] = true;
    }
  }

  std::string lines() {
    for (std::size_t i = 0; i < topics_.size(); ++i)
      if (topics_[i].wintype != "popup")
        put(i);
    return std::move(out_);
  }

private:
  void put(std::size_t index) {
    gHelpTopic const & topic = topics_[index];
    int level = topic.parent < 0 ? 1 : levels_[static_cast<std::size_t>(topic.parent)] + 1;
    level = std::min(level, deepest);
    levels_[index] = level;
    bool const book = (is_book_[index] || !topic.hierarchies.empty()) && level < deepest;
    if (book)
      out_ += std::to_string(level++) + " " + shown(topic.title) + std::string(line_end);
    put_page(level, topic.title, topic.context, topic.wintype);
    for (gHelpAside const & hierarchy : topic.hierarchies)
      put_page(level, hierarchy.title, hierarchy.context, topic.wintype);
  }
  void put_page(int level, std::string const & title, std::string const & context,
                std::string const & wintype) {
    out_ += std::to_string(level) + " " + shown(title) + "=" + context;
    if (wintype == "subwin")
      out_ += ">subwin";
    out_ += line_end;
  }

  std::vector<gHelpTopic> const & topics_;
  std::vector<int> levels_;
  std::vector<bool> is_book_;
  std::string out_;
};

} // namespace

std::string Help::line(std::string_view text) {
  std::string line = Rtf::to_windows_1252(text);
  for (char & c : line)
    if (static_cast<unsigned char>(c) < ' ')
      c = ' ';
  return line;
}

std::string Help::contents(std::vector<gHelpTopic> const & topics, std::string const & help_file,
                           std::string const & title) {
  std::string out = ":Base " + line(help_file) + std::string(line_end);
  out += ":Title " + line(title) + std::string(line_end);
  return out + gContentsWriter(topics).lines();
}
