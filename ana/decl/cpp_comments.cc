// One sweep over comments, tokens and declarations together, all in the text's order. Declarations
// that the place of reading stands within lie on a stack.
#include "ana/decl/cpp_comments.h"

#include <algorithm>

namespace Decl {

namespace {

class Sweep {
public:
  Sweep(gSource const & source, gTokens & tokens, gBranches const & branches,
        gFileDeclarations & out)
      : source_(source),
        branches_(branches),
        out_(out) {
    out_.comments = std::move(tokens.comments);
    for (gDirective const & one : tokens.directives) {
      bool const code = one.kind == gDirective::define || one.kind == gDirective::include;
      if (code && !branches.is_left_out(one.whole.begin))
        lines_.push_back(one.whole);
    }
    for (std::size_t at = 0; at < out_.items.size(); ++at)
      if (out_.items[at].statement == static_cast<std::int32_t>(at))
        order_.push_back(static_cast<std::int32_t>(at));
    auto const begin = [&](std::int32_t at) { return item(at).whole.begin; };
    if (!std::ranges::is_sorted(order_, {}, begin))
      std::ranges::stable_sort(order_, {}, begin);
  }

  void run() {
    for (gComment & one : out_.comments) {
      neighbours(one);
      declarations_to(one.whole.begin);
      place(one);
    }
  }

private:
  gSource const & source_;
  gBranches const & branches_;
  gFileDeclarations & out_;
  std::vector<gRange> lines_;        // directives that count as code
  std::vector<std::int32_t> order_;  // declarations by their begin
  std::vector<std::int32_t> around_; // those that are open
  std::size_t token_ = 0, line_ = 0, next_ = 0;

  gDeclaration const & item(std::int32_t at) const {
    return out_.items[static_cast<std::size_t>(at)];
  }

  void neighbours(gComment & one) {
    std::uint32_t const begin = one.whole.begin;
    while (source_.tokens[token_].type != token_end && source_.tokens[token_].begin < begin)
      ++token_;
    while (line_ < lines_.size() && lines_[line_].begin < begin)
      ++line_;
    one.code_behind = source_.tokens[token_].begin;
    if (token_ > 0)
      one.code_before = source_.tokens[token_ - 1].end;
    if (line_ < lines_.size())
      one.code_behind = std::min(one.code_behind, lines_[line_].begin);
    if (line_ > 0) {
      gRange const & before = lines_[line_ - 1];
      // A comment may stand in the middle of a directive.
      one.code_before = std::max(one.code_before, std::min(before.end, begin));
    }
  }

  void declarations_to(std::uint32_t position) {
    for (; next_ < order_.size() && item(order_[next_]).whole.begin <= position; ++next_) {
      leave(item(order_[next_]).whole.begin);
      around_.push_back(order_[next_]);
    }
    leave(position);
  }

  void leave(std::uint32_t position) {
    while (!around_.empty() && item(around_.back()).whole.end <= position)
      around_.pop_back();
  }

  static bool within(gRange const & range, std::uint32_t position) {
    return range.begin <= position && position < range.end;
  }

  void place(gComment & one) {
    std::uint32_t const position = one.whole.begin;
    if (around_.empty()) {
      one.place = gComment::between;
    } else {
      gDeclaration const & inner = item(around_.back());
      bool const function = !inner.parameter_list.empty() && inner.kind != gKind::function_macro;
      if (within(inner.body, position) && !function) {
        one.scope = around_.back();
        bool const values = inner.kind == gKind::enum_ || inner.kind == gKind::enum_class;
        one.place = values ? gComment::values : gComment::between;
      } else {
        one.scope = inner.scope;
        one.declaration = around_.back();
        one.place = within(inner.body, position)             ? gComment::body
                    : within(inner.parameter_list, position) ? gComment::parameters
                                                             : gComment::within;
      }
    }
    if (branches_.is_left_out(position))
      one.place = gComment::outside;
  }
};

} // namespace

void place_comments(gSource const & source, gTokens & tokens, gBranches const & branches,
                    gFileDeclarations & out) {
  Sweep(source, tokens, branches, out).run();
}

} // namespace Decl
