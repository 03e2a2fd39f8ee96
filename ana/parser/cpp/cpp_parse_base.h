// The parser of C/C++ declarations: leaves a code element for each thing that a file declares.
#pragma once

#include <vector>

#include "ana/anadat/gfilefacts.h"
#include "ana/cmdpar/gvlparsebase.h"
#include "ana/parser/cpp/cpp_scan.h"

class cpp_parse_base : public gVLParseBase {
public:
  using Value = cpp_value;

  explicit cpp_parse_base(int stack_size);

  // Prepares parser and scanner for the next file.
  void reset() override;
  // To be called behind reset(): where elements, classes and all comments of the file go.
  void read_into(gCodeFacts & facts);
  cpp_scan & scanner() override { return scanner_; }
  cpp_scan const & scanner() const override { return scanner_; }

protected:
  // Skips (cpp_skip.cc). The opening bracket has just been shifted; the text goes up to the closing
  // one and includes it. The end of the file raises gExcFatalErr.
  gString skip_balanced(char open, char close);
  // The same without a text, for the bodies of functions.
  void skip_body();
  // Up to the first of `set` (",;" or ",}") outside all brackets, which stays the look-ahead.
  gString skip_until(std::string_view set);
  // The same, as they stand in a declaration.
  gString skipped(char open, char close);
  gString value_until(std::string_view set);

  // Scopes and linkage (cpp_parse_base.cc).
  void enter_scope(gStrList const & names);
  void leave_scope();
  void enter_class(std::string_view key, gStrList const & names);
  void leave_class();
  // A name, a base clause, the left side of a declaration: gExcFatalErr beyond any sensible length.
  void check_length(std::size_t parts) const;
  void push_linkage(gString const & literal) { linkage_stack_.push_back(literal); }
  void pop_linkage() { linkage_stack_.pop_back(); }
  gString linkage_prefix() const;
  gString leave_namespace(gString const & name);
  gString leave_linkage(gString const & body);
  void template_head(gString const & export_word);
  gString end_template(gString & declaration);

  // Names and texts (cpp_names.cc). A mark is "::" or empty.
  static gString full_name(gString const & mark, gStrList const & scope, std::string_view name);
  static gString statement(gString const & words, gString const & rest);
  static gString asm_definition(gString const & text);
  static gStrList named_key(gString const & key, gStrList & scope, gString & name);
  static gString key_and_name(gStrList const & key_and_names);
  static gString bit_width(gString & initialisers);
  static gString conversion(gString const & type, gStrList const & operators);
  gCppDcltorRef declarator(gString const & mark, gString & name) const;
  gStrList qualified(gString const & mark, gStrList & scope, gString const & name) const;
  static void add_parameters(gCppDcltor & declarator, gString const & params, gString const & cv,
                             gString const & exceptions);
  static gCppElemRef specifier(int spec) { return make_ref<gCppSFDSpec>(spec); }

  // Declarations, which make the code elements (cpp_elements.cc). They answer their text.
  gString simple_declaration(gCppDecl & decl, int line);
  gString function_definition(gCppDecl & decl, int line);
  gString class_head(gStrList & key_and_names, int line, gBasesRef const & bases);
  gString unnamed_class_head(gString const & key, gBasesRef const & bases);
  gString class_specifier(gString const & head, gString const & members);
  gString access_label(gString const & word);
  gString enumeration(gStrList & names, int line, gString const & enumerators);

private:
  class Collecting;
  int next_skipped();
  void count_text(std::size_t bytes);

  gString take_template_prefix() { return std::exchange(template_prefix_, gString()); }
  int type_of(gCppDecl const & decl, gCppDcltor const & declarator) const;
  gString declare(gCppDecl & decl, int line, bool with_body);
  gCodeElem & add_element(gStrList && names, int line, int type, gString && decl, int flags);

  cpp_scan scanner_;
  gCodeFacts * facts_ = nullptr;
  cRef<gString> const no_mark_, global_mark_;

  int class_depth_ = 0;                   // open class bodies
  gString visibility_;                    // of what is declared now
  std::vector<gString> visibility_stack_; // of what is around the open class bodies
  gStrList scope_;                        // names of all open namespaces and classes
  std::vector<int> scope_added_;          // how many of them each one has added
  std::size_t scope_bytes_ = 0;           // memory of these names
  std::size_t text_bytes_ = 0;            // made so far for the elements of the file
  std::vector<gString> linkage_stack_;    // string literals of the open linkage specifications
  gString template_prefix_;               // waits for the declaration behind its head
};
