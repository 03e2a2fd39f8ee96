// One source while it is read in the modern dialect: the inside of gModernReader.
//
// read_modern.cc has the way through a source, modern_comments.cc takes its comments to what they
// are about, modern_units.cc makes text units of what they say.
#pragma once

#include <map>
#include <optional>

#include "ana/read/attach.h"
#include "ana/read/code_elements.h"
#include "ana/read/comment_regions.h"
#include "ana/read/read_modern.h"

// Around a comment for the parser of own mark-up.
constexpr std::string_view comment_opening = "@_vlbcom ";
constexpr std::string_view comment_closing = " @_vlecom ";

class gModernReader::File : private gCommentFiles {
public:
  File(gModernReader & reader, gSrcFile const & file, std::string_view text)
      : reader_(reader),
        text_(text),
        pascal_(file.language() == gLanguage::pascal),
        options_(reader.input_.comments) {
    result_.facts.file = file;
    options_.files = this;
  }

  gModernFile read(gStrList const & scope, Decl::gPascalContext const & context);
  gModernFile read_comment();

private:
  // What the comments say about one declaration.
  struct Words {
    std::string text;
    gLinePlace place;   // of the first of them
    bool titles = true; // may stand in it
    bool documenting = false;
    std::vector<std::pair<std::string, std::string>> parameters; // of a routine, with their words
    std::string values;                                          // of an enumeration, as items
  };

  std::optional<std::string> read(std::string_view name) override;
  std::string picture(std::string_view name) override;

  void read_declarations(Decl::gPascalContext const & context);
  void take_comments();
  void take_block(gCommentBlock const & block, gAttachment const & attachment);
  void leave_out(gCommentBlock const & block, gLeftOut reason);
  void take_words(std::int32_t declaration, std::string const & words, gCommentBlock const & block);
  void take_parameter(gAttachment const & attachment, std::string const & words,
                      gCommentBlock const & block);
  void take_value(std::int32_t enumerator, std::string const & words);
  gLinePlace place_of(gCommentBlock const & block) const;
  bool is_own(std::string_view words, gCommentBlock const & block, std::int32_t declaration) const;
  bool is_foreign(std::string_view keyword, std::string_view rest, gString const & type,
                  std::int32_t declaration) const;
  void parse_own(gCommentBlock const & block, std::string const & words);
  void hand_down_fields();
  bool is_excluded(std::int32_t declaration) const;
  void make_units();
  void note_unknown(gTranslated const & text, int line);
  static void note(std::vector<gUnknownWord> & list,
                   std::map<std::string, std::size_t> const & words, int line);
  std::vector<std::int32_t> sharing(std::int32_t declaration, std::size_t length) const;
  void make_unit(std::int32_t declaration, gTranslated text, gLinePlace place);
  void make_topic(gTranslated text, gCommentBlock const & block);
  bool declares_namespace(std::string_view name) const;
  void make_about(gTranslated text, gCommentBlock const & block);
  void note_topic(gTranslated const & text, gCommentBlock const & block, gUnitFacts & unit) const;
  void add_parts(int unit, gTranslated text);
  void bind(std::int32_t declaration, int unit);
  static void add_paragraph(std::string & text, std::string_view words);
  static void add_parameters(Words & words);
  gCommentHints hints_for(std::int32_t declaration, Words const & words) const;
  int parse_unit(std::string const & text, gLinePlace place, bool own = false);
  int add_plain_unit(gLinePlace place);
  int parse_plain_unit(gLinePlace place);
  std::int32_t scope_at(std::uint32_t place) const;
  void report_skipped();
  void add_includes(gStrList const & scope);
  gCodeElem const * class_of(Decl::gInclude const & file) const;
  gStrList scope_names(std::int32_t scope) const;
  Decl::gDeclaration const & item(std::int32_t i) const {
    return found_.items[static_cast<std::size_t>(i)];
  }

  gModernReader & reader_;
  std::string_view text_;
  bool pascal_;
  Decl::gFileDeclarations found_;
  gReadElements elements_;
  std::vector<std::int32_t> next_;      // by declaration: of the same statement
  std::map<std::int32_t, Words> words_; // by declaration
  std::set<std::int32_t> excluded_;     // declarations that comments keep from being shown
  gCommentOptions options_;
  std::pair<std::string, std::string> example_; // the last one: its name and text
  std::size_t example_bytes_ = 0;               // that were looked at
  std::optional<gCommentRegions> regions_;
  gModernFile result_;
};
