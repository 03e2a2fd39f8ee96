// The declarations of a file by their places, for look-ups from a comment. Offsets are bytes of the
// text; -1 stands for no declaration.
#pragma once

#include <vector>

#include "ana/decl/cpp_tokens.h"

class gAttachPlaces {
public:
  // Text and declarations have to outlive this.
  gAttachPlaces(std::string_view text, Decl::gFileDeclarations const & file, bool pascal);

  std::size_t size() const { return file_.items.size(); } // of declarations
  // The first declaration that begins at an offset. Of those that share their begin it is the
  // outermost. Pascal's "const" or "type" in front of it on its line belongs to it.
  std::int32_t beginning_at(std::uint32_t offset) const;
  // The first declaration behind lines such as "UPROPERTY(x)" that begin at an offset: calls of
  // macros that annotate it.
  std::int32_t behind_annotations(std::uint32_t offset) const;
  // The first of the statement that ends at an offset, but for signs, within the same scope.
  std::int32_t ending_at(std::uint32_t offset, std::int32_t scope) const;
  // The first macro that is defined in a stretch of text, and the last one that ends in it.
  // Directives aren't code: nothing else tells that they are there.
  std::int32_t first_macro(std::uint32_t begin, std::uint32_t end) const;
  std::int32_t last_macro(std::uint32_t begin, std::uint32_t end) const;
  bool has_include(std::uint32_t begin, std::uint32_t end) const;

  std::int32_t first_of_statement(std::int32_t i) const;
  // What one statement declares besides, such as "b" in "int a, b;".
  std::int32_t next_of_statement(std::int32_t i) const { return next_[index(i)]; }
  // Of a statement the last name in front of an offset, and the first one behind it.
  std::int32_t declarator_before(std::int32_t first, std::uint32_t offset) const;
  std::int32_t declarator_behind(std::int32_t first, std::uint32_t offset) const;
  // The first of the statement that follows in the same scope.
  std::int32_t next_sibling(std::int32_t i) const { return siblings_[index(i)]; }

  static bool is_macro(Decl::gDeclaration const & one);
  Decl::gDeclaration const & item(std::int32_t i) const { return file_.items[index(i)]; }
  std::uint32_t line_of(std::uint32_t offset) const { return lines_.line(offset); }
  // Ends of lines between two offsets.
  std::uint32_t line_feeds(std::uint32_t begin, std::uint32_t end) const;

private:
  static std::size_t index(std::int32_t i) { return static_cast<std::size_t>(i); }
  std::int32_t behind_section_word(std::uint32_t offset) const;
  void sort();
  void link();

  std::string_view text_;
  Decl::gFileDeclarations const & file_;
  bool pascal_;
  Decl::gLines lines_;
  std::vector<std::int32_t> by_begin_, by_end_, by_name_;
  std::vector<std::int32_t> next_, siblings_; // by declaration
};

// By declaration: the next one that its statement declares, -1 for none.
std::vector<std::int32_t> next_of_statement(Decl::gFileDeclarations const & file);
