// "<code>" over several lines is a block of its own; in one line it is left for running text. CDATA
// elsewhere is text as it stands.
#include "ana/comments/xml_blocks.h"

#include <algorithm>

#include "ana/comments/html_elements.h"
#include "ana/comments/words.h"

namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view cdata = "<![CDATA[", cdata_end = "]]>", code_end = "</code>";

// Without the blanks that all lines have in front, and without empty lines at both ends.
std::string dedented(std::string_view lines) {
  std::size_t least = npos;
  for (std::size_t at = 0; at < lines.size();) {
    std::size_t const end = std::min(lines.find('\n', at), lines.size());
    std::size_t const blanks = lines.substr(at, end - at).find_first_not_of(" \t\r");
    if (blanks != npos)
      least = std::min(least, blanks);
    at = end + 1;
  }
  std::string result;
  std::size_t shown = 0; // up to the last line that isn't empty
  for (std::size_t at = 0; at < lines.size();) {
    std::size_t const end = std::min(lines.find('\n', at), lines.size());
    std::string_view const line = lines.substr(at, end - at);
    bool const empty = trimmed(line).empty();
    if (!empty || !result.empty())
      (result += line.substr(std::min(least, line.size()))) += '\n';
    if (!empty)
      shown = result.size();
    at = end + 1;
  }
  result.resize(shown);
  return result;
}

class Blocks {
public:
  Blocks(std::string_view text, gTokens & tokens) : text_(text), tokens_(tokens) {}

  std::string run() {
    for (std::size_t at = text_.find('<'); at != npos;
         at = text_.find('<', std::max(at + 1, from_)))
      if (text_.substr(at).starts_with(cdata))
        take_cdata(at);
      else if (text_.substr(at, 5) == "<code")
        take_code(at);
    out_ += text_.substr(from_);
    return std::move(out_);
  }

private:
  void put(gToken token, std::size_t at, std::size_t end, bool alone) {
    token.raw = text_.substr(at, end - at);
    out_ += text_.substr(from_, at - from_);
    std::size_t const line = out_.find_last_not_of(" \t");
    if (alone && line != npos && out_[line] != '\n')
      out_ += '\n';
    out_ += tokens_.add(std::move(token));
    std::size_t const behind = text_.find_first_not_of(" \t", end);
    if (alone && behind != npos && text_[behind] != '\n')
      out_ += '\n';
    from_ = end;
  }

  void take_cdata(std::size_t at) {
    std::size_t const end = at < unclosed_cdata_ ? text_.find(cdata_end, at) : npos;
    if (end == npos) {
      unclosed_cdata_ = std::min(unclosed_cdata_, at);
      return;
    }
    std::size_t const begin = at + cdata.size();
    put({gToken::text, std::string(text_.substr(begin, end - begin)), {}, {}}, at,
        end + cdata_end.size(), false);
  }

  void take_code(std::size_t at) {
    gHtmlTag const tag = Html::tag_at(text_.substr(at));
    std::size_t const begin = at + tag.length;
    bool const may = tag.name == "code" && tag.length > 0 && !tag.alone && at < unclosed_code_;
    std::size_t const end = may ? text_.find(code_end, begin) : npos;
    if (end == npos) {
      unclosed_code_ = may ? std::min(unclosed_code_, at) : unclosed_code_;
      return;
    }
    std::string_view const inner = text_.substr(begin, end - begin);
    bool const in_pre = trimmed(text_.substr(from_, at - from_)).ends_with("<pre>");
    if (inner.find('\n') == npos || in_pre)
      return;
    std::string language = Html::attribute(tag.attributes, "language");
    if (language.empty())
      language = Html::attribute(tag.attributes, "lang");
    put({gToken::block, dedented(Html::program_text(inner)), std::move(language), {}}, at,
        end + code_end.size(), true);
  }

  std::string_view text_;
  gTokens & tokens_;
  std::string out_;
  std::size_t from_ = 0;                                     // what stands in front is put
  std::size_t unclosed_cdata_ = npos, unclosed_code_ = npos; // no end comes behind these
};

} // namespace

std::string without_xml_blocks(std::string_view comment, gTokens & tokens) {
  bool const none = comment.find(cdata) == npos && comment.find(code_end) == npos;
  return none ? std::string(comment) : Blocks(comment, tokens).run();
}
