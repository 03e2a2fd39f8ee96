// Line by line. A literal block follows a paragraph that ends with "::", or a directive, and goes
// as far as its lines are indented more than that.
#include "ana/comments/restructured.h"

#include <algorithm>

#include "ana/comments/words.h"

namespace {

constexpr auto npos = std::string_view::npos;

struct Directive {
  std::string_view name, command;
};
constexpr Directive directives[] = {{"note", "@note"},
                                    {"tip", "@note"},
                                    {"hint", "@note"},
                                    {"important", "@attention"},
                                    {"attention", "@attention"},
                                    {"caution", "@warning"},
                                    {"warning", "@warning"},
                                    {"danger", "@warning"},
                                    {"seealso", "@see"},
                                    {"versionadded", "@since"},
                                    {"deprecated", "@deprecated"}};
constexpr std::string_view literal_directives[] = {"code-block", "code", "sourcecode",
                                                   "parsed-literal"};
constexpr std::string_view no_languages[] = {"none", "text", "console"};

bool is_command(std::string_view line, std::string_view name) {
  return line.size() == name.size() + 1 && (line[0] == '\\' || line[0] == '@') &&
         line.ends_with(name);
}

// Where a role such as ":class:`" at this place has its text; npos if there is none.
std::size_t text_of_role(std::string_view line, std::size_t at) {
  std::size_t end = at + 1;
  while (end < line.size() && (is_letter(line[end]) || line[end] == ':' || line[end] == '-'))
    ++end;
  bool const role = end > at + 2 && end < line.size() && line[end - 1] == ':' && line[end] == '`';
  return role ? end + 1 : npos;
}

// "name" and "~scope.name" as code; "words <target>" names the words.
void put_role(std::string_view text, std::string & out) {
  if (std::size_t const target = text.rfind(" <"); target != npos && text.ends_with('>'))
    text = text.substr(0, target);
  if (text.starts_with('~') || text.starts_with('!'))
    text.remove_prefix(1);
  ((out += '`') += text) += '`';
}

// `words <address>`_ is a link, `words`_ leads to a title.
void put_reference(std::string_view text, std::string & out) {
  std::size_t const address = text.rfind(" <");
  if (address != npos && text.ends_with('>'))
    (((out += '[') += text.substr(0, address)) += "](") +=
        std::string(text.substr(address + 2, text.size() - address - 3)) + ")";
  else
    out += text;
}

class Passages {
public:
  explicit Passages(std::string_view comment) : comment_(comment) {}

  std::string run() {
    for (std::size_t begin = 0; begin <= comment_.size();) {
      std::size_t const end = std::min(comment_.find('\n', begin), comment_.size());
      take(comment_.substr(begin, end - begin));
      begin = end + 1;
    }
    close();
    out_.pop_back(); // behind the last line nothing follows
    return std::move(out_);
  }

private:
  void take(std::string_view whole) {
    std::string_view const line = trimmed(whole);
    if (!inside_ || is_command(line, "endrst")) {
      close();
      inside_ = is_command(line, "rst");
      put(whole);
      return;
    }
    std::size_t const indent = std::min(whole.find_first_not_of(" \t"), whole.size());
    if (literal_ && take_literal(whole, indent, line.empty()))
      return;
    if (!take_directive(line, indent))
      take_text(whole, line, indent);
  }

  bool take_literal(std::string_view whole, std::size_t indent, bool blank) {
    if (blank) {
      ++blanks_;
      return true;
    }
    if (indent <= base_) {
      close();
      return false;
    }
    if (!open_)
      put(verbatim_ ? "@verbatim" : language_.empty() ? "@code" : "@code{." + language_ + "}");
    else
      out_.append(blanks_, '\n');
    open_ = true;
    blanks_ = 0;
    put(whole);
    return true;
  }

  void close() {
    if (open_)
      put(verbatim_ ? "@endverbatim" : "@endcode");
    if (blanks_ > 0)
      put("");
    literal_ = open_ = verbatim_ = false;
    language_.clear();
    blanks_ = 0;
  }

  void expect_literal(std::size_t indent) {
    literal_ = true;
    base_ = indent;
  }

  bool take_directive(std::string_view line, std::size_t indent) {
    std::size_t const colons = line.find("::");
    if (!line.starts_with(".. ") || colons == npos)
      return false;
    std::string_view const name = trimmed(line.substr(3, colons - 3));
    std::string_view const rest = trimmed(line.substr(colons + 2));
    if (std::ranges::find(literal_directives, name) != std::end(literal_directives)) {
      expect_literal(indent);
      verbatim_ = std::ranges::find(no_languages, rest) != std::end(no_languages);
      language_ = rest == "c++" ? "cpp" : rest;
      return true;
    }
    auto const known = std::ranges::find(directives, name, &Directive::name);
    if (known == std::end(directives))
      return false;
    put(std::string(known->command) + " " + with_marks(rest));
    return true;
  }

  void take_text(std::string_view whole, std::string_view line, std::size_t indent) {
    if (!line.ends_with("::")) {
      put(with_marks(whole));
      return;
    }
    expect_literal(indent);
    std::string_view words = whole.substr(0, whole.rfind("::"));
    if (!trimmed(words).empty())
      put(with_marks(words) + (words.ends_with(' ') ? "" : ":"));
  }

  static std::string with_marks(std::string_view line) {
    std::string out;
    for (std::size_t at = 0; at < line.size();) {
      std::size_t const text = line[at] == ':' ? text_of_role(line, at) : npos;
      std::size_t const begin = text != npos ? text : at + 1;
      std::size_t const end = text != npos || line[at] == '`' ? line.find('`', begin) : npos;
      bool const reference = end != npos && text == npos && line.substr(end + 1).starts_with('_');
      if (end == npos) {
        out += line[at++];
      } else if (end == begin && text == npos) { // "``code``"
        std::size_t const close = line.find("``", end + 1);
        std::size_t const behind = close == npos ? end + 1 : close + 2;
        out += line.substr(at, behind - at);
        at = behind;
      } else if (text != npos || reference) {
        std::string_view const words = line.substr(begin, end - begin);
        text != npos ? put_role(words, out) : put_reference(words, out);
        at = end + 1 + (reference ? line.substr(end + 1).starts_with("__") ? 2 : 1 : 0);
      } else {
        out += line.substr(at, end + 1 - at);
        at = end + 1;
      }
    }
    return out;
  }

  void put(std::string_view line) { (out_ += line) += '\n'; }

  std::string_view comment_;
  std::string out_, language_;
  bool inside_ = false, literal_ = false, open_ = false, verbatim_ = false;
  std::size_t base_ = 0, blanks_ = 0;
};

} // namespace

std::string without_restructured(std::string_view comment) {
  bool const none = comment.find("\\rst") == npos && comment.find("@rst") == npos;
  return none ? std::string(comment) : Passages(comment).run();
}
