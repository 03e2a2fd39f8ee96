#include "ana/comments/picture_command.h"

#include <algorithm>
#include <iterator>

#include "ana/comments/words.h"
#include "vlb/gstring.h"

namespace {

constexpr auto npos = std::string_view::npos;

class Words {
public:
  explicit Words(std::string_view text) : text_(text) {}

  void skip_blanks() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t'))
      ++at_;
  }
  // A word, or what stands between these marks.
  std::string_view next() {
    skip_blanks();
    std::size_t const end = std::min(text_.find_first_of(" \t\n", at_), text_.size());
    return take(end, end);
  }
  std::string_view enclosed(char open, char close) {
    std::size_t const from = at_;
    skip_blanks();
    std::string_view const line = text_.substr(0, text_.find('\n', at_));
    std::size_t const end =
        at_ < line.size() && line[at_] == open ? line.find(close, at_ + 1) : npos;
    if (end == npos) { // the blanks belong to what follows
      at_ = from;
      return {};
    }
    ++at_;
    return take(end, end + 1);
  }
  std::string_view rest() { return trimmed(text_.substr(at_, text_.find('\n', at_) - at_)); }
  std::size_t place() const { return at_; }
  void go_back(std::size_t place) { at_ = place; }

private:
  std::string_view take(std::size_t end, std::size_t behind) {
    std::string_view const word = text_.substr(at_, end - at_);
    at_ = behind;
    return word;
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

} // namespace

std::string_view picture_width(std::string_view text) {
  static constexpr std::string_view units[] = {"px", "cm", "mm", "in", "em", "ex", "pt", "pc", "%"};
  std::size_t const digits = std::min(text.find_first_not_of("0123456789."), text.size());
  bool const known = std::ranges::find(units, text.substr(digits)) != std::end(units);
  return digits > 0 && digits < 8 && known ? text : std::string_view();
}

gPictureCommand picture_command(std::string_view rest, bool open_text) {
  static constexpr std::string_view formats[] = {"html", "latex", "rtf", "docbook", "xml"};
  gPictureCommand made;
  Words words(rest);
  std::string_view const options = words.enclosed('{', '}');
  made.in_line = options.find("inline") != npos;
  bool const braced = !options.empty() && options.find('.') != npos; // the file itself
  made.file = braced ? options : words.next();
  if (std::ranges::find(formats, made.file) != std::end(formats)) {
    made.elsewhere = made.file != "html";
    made.file = words.enclosed('"', '"');
    if (made.file.empty())
      made.file = words.next();
  }
  made.shown = words.enclosed('"', '"');
  bool const quoted = !made.shown.empty();
  for (std::size_t place = words.place();; place = words.place()) {
    std::string_view const word = words.next();
    std::size_t const equals = word.find('=');
    if (equals == npos ||
        (word.substr(0, equals) != "width" && word.substr(0, equals) != "height")) {
      words.go_back(place);
      break;
    }
    if (word.starts_with("width"))
      made.width = picture_width(word.substr(equals + 1));
  }
  if (open_text && !quoted) {
    made.shown = words.rest();
    made.length = rest.size();
  } else {
    made.length = words.place();
  }
  return made;
}
