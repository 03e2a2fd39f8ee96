// One pass over the text: the scanner cuts, the map pairs, the conditions decide. Comments and
// includes remember how many tokens stood in front of them; behind a branch that went they stand
// where it began.
#include "ana/decl/pas_source.h"

#include <algorithm>

#include "ana/decl/pas_conditions.h"

namespace Decl {

namespace {

std::uint32_t size_of(std::string_view text) {
  return static_cast<std::uint32_t>(text.size());
}

std::vector<std::uint32_t> line_begins(std::string_view text) {
  std::vector<std::uint32_t> lines{0};
  lines.reserve(text.size() / 24 + 2);
  for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1))
    lines.push_back(static_cast<std::uint32_t>(at + 1));
  return lines;
}

// Routines have bodies in a text of unknown place if a line begins with one.
bool has_bodies(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    while (at < text.size() && (text[at] == ' ' || text[at] == '\t'))
      ++at;
    std::string_view const head = text.substr(at, 6);
    std::size_t const length = head.size() >= 5 && same_word(head.substr(0, 5), "begin") ? 5
                               : same_word(head.substr(0, 3), "asm")                     ? 3
                                                                                         : 0;
    bool const whole = length > 0 && (head.size() == length || head[length] <= ' ');
    if (whole)
      return true;
    std::size_t const line = text.find('\n', at);
    at = line == text.npos ? text.size() : line + 1;
  }
  return false;
}

class Preparation {
public:
  Preparation(std::string_view text, gPascalContext const & context, gFileDeclarations & out)
      : out_(out),
        map_(text, source_.tokens, source_.faults, context, has_bodies(text)),
        conditions_(map_, source_.tokens, out.conditions),
        scanner_(text) {
    source_.text = text;
    source_.lines = line_begins(text);
    source_.tokens.reserve(text.size() / 8 + 16);
  }

  gPasSource made() {
    gPasLexeme lexeme;
    while (scanner_.next(in_assembler(), lexeme)) {
      if (lexeme.kind == gPasLexeme::token)
        token(lexeme.token_made);
      else if (lexeme.kind == gPasLexeme::directive)
        directive(lexeme);
      else
        comment(lexeme);
    }
    conditions_.finish(size_of(source_.text));
    if (!ended_)
      map_.finish();
    mark_left_out();
    source_.conditions = conditions_.changes();
    return std::move(source_);
  }

private:
  gFileDeclarations & out_;
  gPasSource source_;
  gPasMap map_;
  gPasConditions conditions_;
  gPasScanner scanner_;
  bool ended_ = false;

  bool in_assembler() const {
    return conditions_.skipping() ? conditions_.skipped_assembler() : map_.in_assembler();
  }

  std::uint32_t token_count() const { return static_cast<std::uint32_t>(source_.tokens.size()); }

  void token(gPasToken const & token) {
    if (ended_ || conditions_.skipping())
      return;
    source_.tokens.push_back(token);
    map_.take();
    ended_ = map_.ended() && !conditions_.open();
  }

  void directive(gPasLexeme const & lexeme) {
    gRange const where{lexeme.begin, lexeme.end};
    gPasDirective const directive = read_directive(where.of(source_.text));
    if (ended_)
      return;
    if (directive.kind == gPasDirective::include)
      include(directive, where);
    else if (directive.kind != gPasDirective::other)
      conditions_.take(directive, where);
  }

  void include(gPasDirective const & directive, gRange where) {
    if (conditions_.skipping())
      return;
    source_.include_places.push_back(
        {static_cast<std::uint32_t>(out_.includes.size()), token_count()});
    gInclude include;
    include.name.begin =
        static_cast<std::uint32_t>(directive.argument.data() - source_.text.data());
    include.name.end = include.name.begin + size_of(directive.argument);
    include.line = source_.line_of(where.begin);
    out_.includes.push_back(include);
  }

  void comment(gPasLexeme const & lexeme) {
    gComment comment;
    comment.whole = {lexeme.begin, lexeme.end};
    comment.line = source_.line_of(lexeme.begin);
    comment.end_line = source_.line_of(std::max(lexeme.end, 1u) - 1);
    comment.column = lexeme.begin - source_.lines[comment.line - 1] + 1;
    comment.line_start = lexeme.line_start;
    if (ended_)
      comment.place = gComment::outside;
    source_.comment_places.push_back(
        {static_cast<std::uint32_t>(out_.comments.size()), token_count()});
    out_.comments.push_back(comment);
  }

  // Comments of branches that went.
  void mark_left_out() {
    std::vector<gRange> const & left_out = conditions_.left_out();
    auto range = left_out.begin();
    for (gPasPlace & place : source_.comment_places) {
      gComment & comment = out_.comments[place.index];
      while (range != left_out.end() && range->end <= comment.whole.begin)
        ++range;
      if (range != left_out.end() && range->begin <= comment.whole.begin)
        comment.place = gComment::outside;
    }
    std::uint32_t limit = token_count();
    for (std::size_t at = source_.comment_places.size(); at-- > 0;) {
      limit = std::min(limit, source_.comment_places[at].token);
      source_.comment_places[at].token = limit;
    }
    drop_left_out_includes();
  }

  void drop_left_out_includes() {
    std::vector<gRange> const & left_out = conditions_.left_out();
    auto const gone = [&](gInclude const & include) {
      auto const behind =
          std::ranges::upper_bound(left_out, include.name.begin, {}, &gRange::begin);
      return behind != left_out.begin() && include.name.begin < std::prev(behind)->end;
    };
    std::vector<gInclude> kept;
    std::vector<gPasPlace> places;
    for (gPasPlace const & place : source_.include_places) {
      gInclude const & include = out_.includes[place.index];
      if (gone(include))
        continue;
      places.push_back({static_cast<std::uint32_t>(kept.size()), place.token});
      kept.push_back(include);
    }
    out_.includes = std::move(kept);
    source_.include_places = std::move(places);
  }
};

} // namespace

std::uint32_t gPasSource::line_of(std::uint32_t offset) const {
  return static_cast<std::uint32_t>(std::ranges::upper_bound(lines, offset) - lines.begin());
}

std::int32_t gPasSource::condition_at(std::uint32_t offset) const {
  auto const behind =
      std::ranges::upper_bound(conditions, offset, {}, &gPasConditionChange::offset);
  return behind == conditions.begin() ? -1 : std::prev(behind)->condition;
}

gPasSource prepare_pascal(std::string_view text, gPascalContext const & context,
                          gFileDeclarations & out) {
  return Preparation(text, context, out).made();
}

} // namespace Decl
