// Text goes where its group says that it stands: into the topic, a footnote or the hidden operand
// of a link.

#include "conv/rtf/help_reader.h"

#include <sstream>

#include "conv/rtf/rtf_words.h"

namespace {

struct Group {
  bool skipped = false, footnote = false, hidden = false;
  char link = 0; // 'j' jump, 'p' pop-up
};

class Reader {
public:
  std::vector<HelpTopic> read(std::string const & rtf) {
    for (Rtf::gWordReader words(rtf); words.next();) {
      std::string const token(words.token());
      if (words.kind() == Rtf::gWordReader::open_group)
        groups_.push_back(groups_.back());
      else if (words.kind() == Rtf::gWordReader::close_group)
        close();
      else if (words.kind() == Rtf::gWordReader::control)
        apply(token == "\\*" ? token : std::string(words.word()));
      else if (token.starts_with("\\'"))
        add(std::string(1, static_cast<char>(std::stoi(token.substr(2), nullptr, 16))));
      else
        add(token == "\\~" ? " " : token[0] == '\\' ? token.substr(1) : token);
    }
    if (topic_.text.find_first_not_of(' ') != std::string::npos)
      topics_.push_back(topic_); // text behind the last page
    return topics_;
  }

private:
  // Compilers of help files don't know \u, so what stands behind its number counts.
  void apply(std::string const & word) {
    Group & group = groups_.back();
    if (word == "\\*" || word == "fonttbl" || word == "colortbl" || word == "stylesheet")
      group.skipped = true;
    else if (word == "footnote")
      begin_footnote();
    else if (word == "v")
      group.hidden = true;
    else if (word == "uldb" || word == "ul")
      group.link = word == "ul" ? 'p' : 'j';
    else if (word == "page")
      end_topic();
    else if (word == "pard" || word == "keepn")
      fixed_ = word == "keepn";
    else if (word == "par")
      end_paragraph();
    else if (word == "line" || word == "cell" || word == "tab")
      add(" ");
  }

  void end_paragraph() {
    topic_.late_head = topic_.late_head || (fixed_ && scrolls_);
    scrolls_ = scrolls_ || !fixed_;
    add(" ");
  }

  void begin_footnote() {
    groups_.back().footnote = true;
    mark_ = topic_.text.empty() ? '?' : topic_.text.back();
    topic_.text.resize(topic_.text.size() - !topic_.text.empty());
    note_.clear();
  }

  void add(std::string const & text) {
    Group const & group = groups_.back();
    if (group.skipped)
      return;
    (group.footnote ? note_ : group.hidden ? operand_ : topic_.text) += text;
    if (!group.link || group.footnote)
      return;
    link_ += text;
    kind_ = group.link;
  }

  void close() {
    Group const group = groups_.back();
    groups_.pop_back();
    if (group.footnote && !groups_.back().footnote)
      end_footnote();
    if (group.hidden && !groups_.back().hidden)
      end_link();
  }

  void end_footnote() {
    std::istringstream words(mark_ == 'K' ? note_ : "");
    for (std::string word; std::getline(words, word, ';');)
      topic_.keywords[word] = topic_.here();
    if (mark_ == '#')
      topic_.contexts.emplace_back(note_, topic_.text.size());
    else
      topic_.notes[mark_] += note_;
  }

  void end_link() {
    std::size_t const end = operand_.find('>');
    std::string const window = end == std::string::npos ? "" : operand_.substr(end + 1);
    topic_.links.push_back({link_, operand_.substr(0, end), window, kind_ == 'p'});
    link_.clear();
    operand_.clear();
    kind_ = 0;
  }

  void end_topic() {
    topics_.push_back(topic_);
    topic_ = {};
    scrolls_ = false;
  }

  std::vector<Group> groups_ = {{}};
  std::vector<HelpTopic> topics_;
  HelpTopic topic_;
  std::string note_, operand_, link_;
  char mark_ = 0, kind_ = 0;
  bool fixed_ = false, scrolls_ = false;
};

} // namespace

std::string HelpTopic::brief() const {
  std::string all = notes.contains('$') ? notes.at('$') : "-";
  for (HelpLink const & link : links) {
    std::string const shown = link.text + ">" + link.context + ">" + link.window;
    all += link.pops_up ? " [" + shown + "]" : " " + shown;
  }
  return all;
}

// Of several context strings at the same place the first one.
std::string HelpTopic::here() const {
  std::size_t i = contexts.size();
  while (i > 1 && contexts[i - 2].second == contexts[i - 1].second)
    --i;
  return i == 0 ? "" : contexts[i - 1].first;
}

std::vector<HelpTopic> read_help_topics(std::string const & rtf) {
  return Reader().read(rtf);
}

std::map<std::string, std::string> read_help_project(std::string const & text) {
  std::map<std::string, std::string> sections;
  std::string section;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line) && line.ends_with('\r');) {
    line.back() = '\n';
    if (line.starts_with('['))
      section = line.substr(0, line.size() - 1);
    else if (line.size() > 1 && line[0] != ';')
      sections[section] += line;
  }
  return sections;
}
