// The walk over the scopes of one source.
#pragma once

#include "ana/decl/cpp_branches.h"
#include "ana/decl/cpp_declarators.h"
#include "ana/decl/cpp_extents.h"
#include "ana/decl/cpp_heads.h"

#include <map>
#include <unordered_map>

namespace Decl {

class gCppReader {
public:
  gCppReader(gSource const & source, std::vector<gDirective> const & directives,
             gBranches const & branches, gFileDeclarations & out);
  void run();

private:
  // What is open around the place of reading.
  struct Scope {
    enum Kind : std::uint8_t { file, name_space, class_, enumeration } kind = file;
    gAccess access = gAccess::none;
    gKind section = gKind::none; // signal or slot
    bool linkage_c = false;
    std::int32_t item = -1;   // that members belong to
    std::int32_t opener = -1; // the declaration whose contents these are
    bool by_macro = false;    // another macro closes it
    std::uint32_t end = 0;    // token
    std::uint32_t resume = 0; // behind it, and behind what follows the contents
    std::string_view name;    // of a class
    gExtent extent;           // with the declarators that follow a class
    gHead head;
  };
  struct Statement { // what several declarations of one statement share
    gExtent const & extent;
    gHead const & head;
    std::int32_t first = -1; // the first of them
  };

  gSource const & source_;
  std::vector<gDirective> const & directives_;
  gBranches const & branches_;
  gFileDeclarations & out_;
  std::vector<Scope> scopes_;
  std::uint32_t at_ = 0;
  std::size_t directive_ = 0;
  std::uint32_t passed_ = 0;        // the end of the last extent that wasn't entered
  std::uint32_t angles_linked_ = 0; // of the enumeration that is read, up to this token
  std::unordered_map<std::string_view, std::int32_t> heads_; // of macros: places in `spelled`
  std::unordered_map<std::size_t, std::int32_t> seen_;       // declarations in branches, by hash
  std::map<std::pair<std::int32_t, std::int32_t>, std::int32_t> either_; // of conditions
  std::unordered_map<std::int32_t, std::vector<std::string>> disjuncts_; // of joined conditions

  Scope & scope() { return scopes_.back(); }
  Scope const & scope() const { return scopes_.back(); }
  gPlace place() const;
  bool in_class() const { return scopes_.back().kind == Scope::class_; }

  // cpp_reader.cc
  void close_scope();
  void member();
  bool section();
  bool macro_section();
  bool macro_scope();
  void open_by_macro(std::string_view body);
  std::string_view named_by(std::string_view name) const;
  void qt_statement();
  void qt_property();
  void objective_c();
  void skip(std::uint32_t first, std::uint32_t last, std::string reason);
  void directives_to(std::uint32_t position);
  void macro(gDirective const & one);

  // cpp_declare.cc
  void declare(gExtent const & extent);
  void open_block(gExtent const & extent, gHead const & head);
  void name_space(gExtent const & extent, gHead const & head);
  void using_(gExtent const & extent, gHead const & head);
  void concept_(gExtent const & extent, gHead const & head);
  void module_(gExtent const & extent);
  bool is_forward(std::uint32_t at, std::uint32_t last) const;
  void forward(gExtent const & extent, gHead const & head);
  void simple(gExtent const & extent, gHead const & head);
  bool bindings(Statement & statement, std::uint32_t at, std::uint32_t last);
  void mark_pure_method(gDeclaration & item);
  void simple_from(Statement & statement, std::uint32_t at, std::uint32_t last, bool type_known);
  bool declarator(Statement & statement, gDeclarator const & one, std::uint32_t type_first);
  bool is_macros_alone(gExtent const & extent, gDeclarator const & one) const;
  gKind kind_of(gDeclarator const & one, gHead const & head) const;
  void function_parts(gDeclaration & item, gDeclarator const & one, gExtent const & extent);
  void trailing_marks(gDeclaration & item, std::uint32_t first, std::uint32_t last);
  void value_marks(gDeclaration & item, gDeclarator const & one);

  // cpp_old_style.cc
  void old_style_parameters(gDeclaration & item, std::uint32_t first, std::uint32_t last);

  // cpp_contents.cc
  void contents(gExtent const & extent, gHead const & head);
  void class_contents(gExtent const & extent, gHead const & head);
  void open_scope(Scope inner, gExtent const & extent);
  gChain class_name(std::uint32_t first, std::uint32_t last, std::uint32_t & name_end) const;
  gChain name_in_tail(gExtent const & extent) const;
  gChain name_in_call(gExtent const & extent, std::uint32_t & bases) const;
  bool is_reserved_tail(gExtent const & extent) const;
  void tail(Scope const & closed);
  void enumerator();
  bool names_value(std::uint32_t angle) const;

  // A new item of the current scope, its name and place set.
  gDeclaration make(gKind kind, gExtent const & extent, gHead const & head);
  void set_name(gDeclaration & item, gChain const & name);
  std::int32_t head_of_macro(std::uint32_t at);

  // cpp_twins.cc
  std::int32_t add(gDeclaration & item);
  // The same declaration in another branch of the same "#if", -1 for none.
  std::int32_t twin(gDeclaration const & item, std::int32_t next);
  std::int32_t either(std::int32_t a, std::int32_t b);
};

} // namespace Decl
