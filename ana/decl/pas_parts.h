// Parts of Pascal declarations, understood from a stretch of tokens: pure functions, none reads
// beyond `limit`.
#pragma once

#include <cstdint>
#include <vector>

#include "ana/decl/declaration.h"
#include "ana/decl/pas_source.h"

namespace Decl {

// Tokens of one source by number; numbers beyond the end give an empty token.
class gPasView {
public:
  explicit gPasView(gPasSource const & source) : source_(source) {}

  gPasToken const & operator[](std::uint32_t at) const {
    static constexpr gPasToken nothing;
    return at < source_.tokens.size() ? source_.tokens[at] : nothing;
  }
  std::uint32_t size() const { return static_cast<std::uint32_t>(source_.tokens.size()); }
  gPasSource const & source() const { return source_; }
  std::string_view text(std::uint32_t at) const { return source_.text_of((*this)[at]); }

  char sign(std::uint32_t at) const { return (*this)[at].sign; }
  gPasWord word(std::uint32_t at) const { return (*this)[at].word; }
  std::uint8_t marks(std::uint32_t at) const { return pas_word_marks(word(at)); }
  bool is_name(std::uint32_t at) const {
    return sign(at) == pas_word_sign && (marks(at) & pas_reserved) == 0;
  }
  // Behind the token, or behind what it opens.
  std::uint32_t behind(std::uint32_t at) const;
  // From the begin of one token to the end of the one in front of another.
  gRange range(std::uint32_t from, std::uint32_t to) const;
  // A word at a line's head that no declaration goes on with.
  bool begins_other(std::uint32_t at) const;
  // Behind the ">" that closes the "<" at `at`; `at` itself if none does.
  std::uint32_t behind_angles(std::uint32_t at, std::uint32_t limit) const;

private:
  gPasSource const & source_;
};

// What stands behind "=" or ":".
struct gPasType {
  enum Contents : std::uint8_t { nothing, members, values };
  gKind kind = gKind::type;
  Contents contents = nothing;
  bool forward = false;                         // "class;"
  bool procedural = false;                      // goes on with directives behind ";"
  bool method = false;                          // "of object", "reference to"
  std::uint32_t opener = 0;                     // of the contents
  std::uint32_t head_end = 0;                   // the first token of the contents, behind bases
  std::uint32_t end = 0;                        // the first token behind; without contents alone
  std::uint32_t params = gPasToken::no_partner; // the "(" of a procedural type
  gRange bases, result, guid;
};
gPasType pas_type(gPasView const & view, std::uint32_t at, std::uint32_t limit);

// The head of a routine with its directives.
struct gPasHead {
  gPasWord word = gPasWord::none; // procedure, function ...
  bool class_member = false;
  bool found = false; // a name was there
  std::uint32_t word_at = 0;
  std::uint32_t end = 0;                        // the first token behind the last ";"
  std::uint32_t text_end = 0;                   // the ";", or `end` where it is missing
  std::uint32_t params = gPasToken::no_partner; // "("
  std::uint32_t marks = 0;
  bool semicolon = false;
  gRange qualifier, name, template_head, result, target, trailing;
};
gPasHead pas_head_of(gPasView const & view, std::uint32_t at, std::uint32_t limit, bool in_class);

// Directives at `at`, which is a ";" or the first token behind a signature; to behind the last ";".
struct gPasDirectives {
  std::uint32_t end = 0, text_end = 0, begin = 0;
  std::uint32_t marks = 0;
  bool semicolon = false;
};
gPasDirectives pas_directives(gPasView const & view, std::uint32_t at, std::uint32_t limit,
                              bool in_class);

// The parameters between the bracket at `open` and its partner, appended to `params`; how many.
std::uint32_t pas_parameters(gPasView const & view, std::uint32_t open,
                             std::vector<gParam> & params);

} // namespace Decl
