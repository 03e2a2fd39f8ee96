// A comment of any system: what becomes of it is whole, whatever it holds, and so is what the
// project's own commands and files put into it.

#include <cstdlib>

#include "ana/comments/condition.h"
#include "ana/comments/translate.h"
#include "quiet_run.h"

namespace {

// Every file that a comment asks for has the same text.
class Files : public gCommentFiles {
public:
  explicit Files(std::string_view text) : text_(text) {}
  std::optional<std::string> read(std::string_view name) override {
    return name.size() % 5 == 0 ? std::nullopt : std::optional(std::string(text_));
  }
  std::string picture(std::string_view name) override {
    return name.size() % 3 == 0 ? std::string() : "/" + std::string(text_.substr(0, 200));
  }

private:
  std::string_view text_;
};

// Braces pair, and what opens blocks closes them.
void expect_whole(gRichPieces const & text) {
  std::string code;
  for (gRichPiece const & one : text)
    code += one.kind == gRichPiece::code ? one.text : "";
  long braces = 0, blocks = 0;
  for (std::size_t at = 0; at < code.size(); ++at) {
    std::string_view const rest = std::string_view(code).substr(at);
    if (rest.starts_with("@b_verbatim")) {
      std::size_t const end = code.find("\n@e_verbatim\n", at);
      if (end == code.npos)
        std::abort();
      at = end + 12;
    } else if (code[at] == '\\') {
      ++at;
    } else {
      braces += (code[at] == '{') - (code[at] == '}');
      blocks += rest.starts_with("@b_") - rest.starts_with("@e_");
    }
  }
  if (braces != 0 || blocks != 0)
    std::abort();
}

// The first byte says how it is read, the first line what the project knows.
void read_comment(std::string_view text) {
  unsigned const bits = text.empty() ? 0 : static_cast<unsigned char>(text[0]);
  std::string_view const rest = text.substr(text.empty() ? 0 : 1);
  std::string_view const line = rest.substr(0, rest.find('\n'));
  Files files(rest.substr(rest.size() / 2));
  gCommentOptions options;
  options.aliases = aliases_of(line);
  options.internal = bits & 1;
  options.sections = {"A", "B"};
  options.files = bits & 2 ? &files : nullptr;
  gCommentHints hints;
  hints.pascal = bits & 4;
  hints.titles = bits & 8;
  hints.declared = bits & 16 ? gCommentHints::routine : gCommentHints::enumeration;
  hints.name = "name";
  hints.parameters = {"a", "b"};
  std::string const comment = with_aliases(std::string(rest), options.aliases);
  for (gCommentPart const & part : translate(comment, bits & 32 ? &hints : nullptr, options).parts)
    expect_whole(part.text);
  comment_subject(comment);
  described_parameters(comment);
  condition_holds(line, options.sections);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  fuzz_one([&] { read_comment(fuzz_text(data, size)); });
  return 0;
}
