// The reader of one declarator, shared by the files that hold its parts.
#pragma once

#include "ana/decl/cpp_declarators.h"

namespace Decl {

class gDeclaratorReader {
public:
  gDeclaratorReader(gSource const & source, std::uint32_t first, std::uint32_t last,
                    gDeclaratorPlace const & place)
      : source_(source),
        last_(last),
        place_(place),
        at_(first),
        types_(place.type_known ? 1 : 0) {
    result_.first = first;
  }
  gDeclarator run();

private:
  gSource const & source_;
  std::uint32_t const last_;
  gDeclaratorPlace const & place_;
  std::uint32_t at_;
  int types_;            // words in front that may be a type
  bool macros_ = false;  // a call that may stand for a type
  gChain name_, before_; // the last two chains, next to each other
  bool done_ = false;
  gDeclarator result_;

  // cpp_declarators.cc
  std::uint8_t type(std::uint32_t at) const { return at < last_ ? source_.type(at) : 0; }
  gWord word(std::uint32_t at) const { return at < last_ ? source_.word(at) : gWord::name; }
  void token();
  void square();
  void name_is_type();
  void word_or_name();
  void class_type();
  void chain();
  bool is_opener(std::uint32_t at) const;
  void take_name();
  void value();
  void skip_value();
  std::uint32_t next_comma(std::uint32_t at) const;
  void variable(std::uint32_t end_at);
  bool is_reserved(gChain const & name) const;
  bool is_reserved_macro(gChain const & name) const;
  bool is_macro_behind_name() const;
  void end(std::uint32_t at);

  // cpp_declarator_groups.cc
  void group();
  void open_group();
  bool wraps_name(std::uint32_t close) const;
  std::uint32_t first_in_group(std::uint32_t close) const;
  bool is_lone_name(std::uint32_t at) const;
  bool has_pointer_sign(std::uint32_t at, std::uint32_t close, bool list) const;
  void wrapped(std::uint32_t close);
  void finish_function_or_pointer();
  bool is_constructor(gChain const & chain) const;
  void candidate(std::uint32_t close);
  bool is_empty_macro() const;
  bool takes_list_in_two(std::uint32_t close) const;
  void around_list(std::uint32_t close);
  bool is_macro_call(bool typed, std::uint32_t behind) const;
  bool is_initialiser(std::uint32_t close) const;
  void accept(std::uint32_t close, bool constructor);
  void behind_parameters();
};

} // namespace Decl
