// Turns the text of a template into parts.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "conv/vlt/rules.h"
#include "vlb/gmessage.h"

class gVltTemplateParser {
public:
  // Told of each fault with its line.
  using gReport =
      std::function<void(gMessage const & message, std::string const & argument, int line)>;

  gVltTemplateParser(Vlt::gRuleInfo const & rule, gReport report)
      : rule_(rule),
        report_(std::move(report)) {}

  // `line` is that of the first character. False if conditions don't fit together, so that the
  // template can't be used.
  bool parse(std::string_view text, int line, gVltTemplate & parts);

private:
  struct Open {
    std::size_t branch; // the part that jumps behind the branch that is being read
    bool alternative;   // it is the second one
    int line;
  };

  void dollar();
  void value();
  void condition();
  void alternative();
  void close();
  void add_value(std::string_view name);
  bool known(std::string_view name, gVltValue & value);
  void add_jump(gVltPart::Kind kind);
  void end_literal();
  void skip_blank();
  void give_up(std::string_view reason);
  std::string_view word();
  char peek() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  void fault(gMessage const & message, std::string_view argument);

  Vlt::gRuleInfo const & rule_;
  gReport report_;
  std::string_view text_;
  std::size_t at_ = 0;
  int line_ = 1;
  bool usable_ = true;
  std::string literal_;
  std::vector<Open> open_;
  gVltTemplate parts_;
};
