// The reader of Pascal declarations: walks the extents of a prepared source, scope by scope.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "ana/decl/declaration.h"
#include "ana/decl/pas_parts.h"
#include "ana/decl/pas_source.h"

namespace Decl {

// The section that holds from a token on.
struct gPasState {
  std::uint32_t token;
  gPascalContext context;
};

// Contents of types are read with a stack of its own, so depth costs memory alone.
class gPasReader {
public:
  gPasReader(gPasSource const & source, gFileDeclarations & out);

  void read(gPascalContext const & context);
  std::vector<gPasState> const & states() const { return states_; }
  std::vector<gPasFault> const & faults() const { return faults_; }

private:
  using Block = gPascalContext::Block;

  // The names before ":" or "=", which have one type, and what is known of their statement.
  struct Statement {
    std::uint32_t first_item = 0, names = 0;
    std::uint32_t begin = 0;    // token
    std::uint32_t head_end = 0; // of a type with contents: the first token of these
    bool is_type = false;
    bool members = false; // the contents are those of a class or record, not values
    bool procedural = false;
    bool complete = false; // a fault ended it: nothing behind belongs to it
    gRange attributes;
  };
  struct Frame {
    enum Kind : std::uint8_t { file, members, variants };
    Kind kind = file;
    Block block = Block::none;
    gAccess access = gAccess::none;
    bool class_part = false; // behind "class var"
    bool labels = false;     // behind "case": fields stand in brackets behind labels
    bool in_uses = false;    // the last declaration was a list of units
    bool protocol = false;   // its sections are "required" and "optional"
    std::uint32_t end = 0;   // token
    std::int32_t scope = -1;
    Statement statement; // whose type the contents are
  };

  gPasView view_;
  gFileDeclarations & out_;
  std::vector<Frame> frames_;
  std::vector<gPasState> states_;
  std::vector<gPasFault> faults_;
  std::unordered_set<std::string> event_types_; // in small letters
  gPascalContext::Section section_ = gPascalContext::any;
  std::uint32_t at_ = 0;
  std::uint32_t fault_end_ = 0; // of the last fault, so that one stretch is one fault
  gRange attributes_;           // that stand in front of the next declaration
  bool has_head_ = false;       // "unit x;" was read

  Frame & frame() { return frames_.back(); }
  std::uint32_t limit() const { return frames_.back().end; }
  bool in_class() const { return frames_.back().kind != Frame::file; }

  // pas_guess.cc
  gPascalContext guess() const;
  Block guess_of_name(std::uint32_t name) const;
  bool fits(Block block) const;
  bool lists_units() const;
  bool begins_statement() const;

  // pas_sections.cc
  void note_state();
  void file_step();
  bool section_head(gPasWord word);
  void other_step();
  void skip_statements();
  void open_block(Block block);
  void unit_head(gKind kind);
  void unit_end();
  void enter_section(gPascalContext::Section section);
  void skip_rest();
  void uses_clause();
  bool ends_uses(std::uint32_t at) const;
  bool goes_on_with_units() const;
  void missing_semicolon();
  bool taken_in(std::uint32_t at);
  void skip_to_semicolon();
  void statements();
  void attribute();
  void fault(char const * reason);
  void report(std::uint32_t from, std::uint32_t to, char const * reason);

  // pas_entries.cc
  void entry(Block block);
  bool names(Statement & statement, gKind kind);
  void type_of(Statement & statement, std::uint32_t at);
  void apply_type(Statement & statement, gPasType const & type);
  void open_members(Statement const & statement, gPasType const & type);
  void finish_statement(Statement const & statement);
  std::uint32_t value_end(Statement const & statement, std::uint32_t at, gRange & value,
                          gRange & trailing, bool & semicolon);
  bool goes_on(Statement const & statement, std::uint32_t at) const;
  bool next_entry(Statement const & statement, std::uint32_t at) const;
  void values(std::uint32_t open, std::uint32_t close, std::int32_t scope);
  void enumerator(std::uint32_t begin, std::uint32_t end, std::int32_t scope);

  // pas_members.cc
  void member_step();
  bool access_word(gPasWord word);
  void member_block(Block block, bool class_part);
  void variant_part();
  void label();
  void leave_frame();
  void property();
  void property_parts(gDeclaration & item, std::uint32_t at);
  bool is_event(gDeclaration const & item) const;
  void routine();
  gKind routine_kind(gPasHead const & head) const;
  bool is_routine(std::uint32_t at) const;

  gDeclaration & add(gKind kind, std::uint32_t name);
};

// Places of comments, includes and faults among the declarations.
void pas_places(gPasSource const & source, std::vector<gPasState> const & states,
                std::vector<gPasFault> const & faults, gFileDeclarations & out);

} // namespace Decl
