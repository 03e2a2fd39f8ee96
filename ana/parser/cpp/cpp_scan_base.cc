// What the rules of the C/C++ scanner do.
#include "ana/parser/cpp/cpp_scan_base.h"

#include <algorithm>

#include "ana/cmdpar/keywords.h"
#include "ana/parser/pre/cpp_long_words.h"

namespace {

bool is_builtin_type(std::string_view word) {
  static constexpr std::string_view words[] = {"bool",   "char",     "double", "float",
                                               "int",    "long",     "short",  "void",
                                               "signed", "unsigned", "wchar_t"};
  return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

} // namespace

void cpp_scan_base::reset() {
  gScanBase::reset();
  macros_.load();
  value_ = cpp_value();
  collect_ = false;
  macro_code_ = 0;
  macro_name_.clear();
  comment_line_ = 0;
  comments_ = nullptr;
  begin(code());
}

void cpp_scan_base::begin_collect(Skip skip) {
  static constexpr int conditions[] = {SKIP_BRACES, SKIP_PARENS, SKIP_BRACKETS, SKIP_ANGLES,
                                       SKIP_VALUE};
  collect_ = true;
  if (macros_.empty())
    begin(conditions[static_cast<int>(skip)]);
}

void cpp_scan_base::end_collect() {
  collect_ = false;
  begin(code());
}

int cpp_scan_base::token_with_text(int token) {
  if (!collect_)
    value_.set(gString(this->token()));
  return token;
}

int cpp_scan_base::classify(int otherwise) {
  int const * keyword = gCppKeywords.lookup(token());
  if (keyword)
    return *keyword;
  // "void ::f()" declares a global name; a built-in type holds no names.
  if (otherwise == SCOPE_NAME && is_builtin_type(token()))
    otherwise = IDENTIFIER;
  return token_with_text(otherwise);
}

int cpp_scan_base::scope_name() {
  return classify(SCOPE_NAME);
}

int cpp_scan_base::identifier() {
  keep_words_whole(*this);
  return classify(IDENTIFIER);
}

int cpp_scan_base::macro_token(int code, gString && text) {
  if (code != gCppMacroTable::identifier && code != gCppMacroTable::declaration) {
    VLB_UNEXPECTED(" Unknown macro code type: ", code);
    return scan_go_on;
  }
  value_.set(std::move(text));
  return code == gCppMacroTable::identifier ? IDENTIFIER : DECL_MACRO;
}

int cpp_scan_base::piece() {
  keep_words_whole(*this);
  return PIECE;
}

int cpp_scan_base::macro_name(int otherwise) {
  keep_words_whole(*this);
  gCppMacro const * macro = macros_.find(token());
  if (macro && !macro->parameterized)
    return macro_token(macro->interpretation, gString(token()));
  return classify(otherwise);
}

int cpp_scan_base::macro_call() {
  gCppMacro const * macro = macros_.find(token());
  if (!macro || !macro->parameterized)
    return scan_reject;
  macro_name_ = gString(token());
  macro_code_ = macro->interpretation;
  begin(MACROARGS);
  return collect_ ? int(PIECE) : scan_go_on;
}

int cpp_scan_base::macro_arguments() {
  begin(code());
  gString text = std::move(macro_name_);
  macro_name_.clear();
  text += token();
  return macro_token(macro_code_, std::move(text));
}

int cpp_scan_base::begin_comment() {
  comment_line_ = line();
  after_comment_ = condition();
  begin(COMMENT);
  return scan_go_on;
}

int cpp_scan_base::end_comment() {
  begin(after_comment_);
  if (comments_)
    comments_->push_back({{comment_line_}, line()});
  return scan_go_on;
}
