// Commands, references and elements in running text become tokens; what is left is Markdown.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "ana/comments/commands.h"
#include "ana/comments/picture_command.h"
#include "ana/comments/tokens.h"
#include "ana/comments/translate.h"

class gInlineCommands {
public:
  gInlineCommands(gTokens & tokens, gCommentHints const * hints,
                  std::map<std::string, std::size_t> & unknown)
      : tokens_(tokens),
        hints_(hints),
        unknown_(unknown) {}

  // `find` answers where the file of a picture lies; empty if there is none.
  void find_pictures(std::function<std::string(std::string_view)> find) {
    find_picture_ = std::move(find);
  }
  // The picture, or the words that stand for it.
  gToken picture_token(gPictureCommand const & image) const;
  // Markdown with tokens.
  std::string read(std::string_view text);
  // The pages that were said to stand below this one.
  std::vector<std::string> const & pages_below() const { return pages_below_; }

private:
  static constexpr std::size_t farthest = 4000; // a closing word is looked for

  char at(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }
  bool behind_word() const;
  bool behind_blank() const;
  std::string_view take_word();
  std::string_view braced();
  bool at_braces(gCommand const & command) const;
  std::string_view braced_words();
  void put(gToken token, std::size_t from);
  bool step();
  bool program_text();
  bool address();
  bool command();
  bool symbol();
  bool known(gCommand const & command, std::size_t end);
  bool word_format(gCommand const & command, std::size_t end);
  bool closed(gCommand const & command, std::size_t end);
  bool reference(gCommand const & command, std::size_t end);
  bool copy(gCommand const & command, std::size_t end);
  bool picture(gCommand const & command, std::size_t end);
  bool parameter();
  bool braced_command();
  bool element();
  bool hash_name();
  bool name();
  bool star() const;

  std::function<std::string(std::string_view)> find_picture_;
  gTokens & tokens_;
  gCommentHints const * hints_;
  std::map<std::string, std::size_t> & unknown_;
  std::string_view text_;
  std::size_t at_ = 0;
  std::string out_;
  std::vector<std::string> pages_below_;
  std::size_t no_close_[4] = {}; // places behind which a closing command is missing
};
