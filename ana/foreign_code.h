// What the code around a comment is: just enough of it to tell the documentation of a declaration
// from a remark in a body.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class gForeignCode {
public:
  enum Scope { declarations, enumerators, body };

  // Code that isn't to make an element, as offsets of the text: what is defined outside its class,
  // and assertions.
  struct Hidden {
    std::size_t begin = 0, end = 0;
    std::string name; // of what is declared elsewhere, with its namespaces
  };
  // An enumeration with a body: where its brace stands, and whether it has a name.
  struct Enumeration {
    std::size_t brace = 0;
    bool named = false;
  };

  // Reads on up to `end`; comments are left out by skip().
  void read(std::string_view text, std::size_t begin, std::size_t end);
  void skip(std::string_view comment);

  Scope scope() const { return scopes_.empty() ? declarations : scopes_.back().kind; }
  bool in_parentheses() const { return parentheses_ > 0; }
  bool on_line() const { return !line_.empty(); }
  std::string const & line() const { return line_; }     // code of the line so far
  char last() const { return last_; }                    // last character of code, 0 for none
  int feeds() const { return feeds_; }                   // line feeds behind it
  std::size_t last_begin() const { return last_begin_; } // of the last whole declaration
  std::string const & enumerator() const { return enumerator_; }
  Enumeration const & enumeration() const { return enumeration_; }
  std::vector<Hidden> const & hidden() const { return hidden_; }

private:
  struct Level {
    Scope kind;
    std::string name; // of a namespace or class
    bool defines = false;
  };

  void take(char c, std::size_t at);
  void open(std::size_t at);
  void close(std::size_t at);
  void end_head();
  std::string scoped(std::string const & name) const;

  std::vector<Level> scopes_;
  std::size_t inner_ = 0; // braces open within the innermost body
  std::string head_, line_, enumerator_;
  std::size_t head_begin_ = 0, last_begin_ = 0;
  int parentheses_ = 0;
  char last_ = 0;
  char quote_ = 0;
  bool escaped_ = false;
  bool enumerator_open_ = true;
  int feeds_ = 0;
  Enumeration enumeration_;
  std::vector<Hidden> hidden_;
};

// Whether what begins here declares something that a comment in front of it may describe.
bool declares_something(std::string_view code);
