// A line of text has no room above and below: brackets, "/", "^" and "_" stand for it.
#include "conv/set/formula.h"

namespace {

using Kind = gFormula::Kind;

void put(gFormula const & formula, std::string & out);

bool is_single(gFormula const & formula) {
  if (formula.kind == Kind::row)
    return formula.parts.empty() || (formula.parts.size() == 1 && is_single(formula.parts[0]));
  return formula.kind == Kind::identifier || formula.kind == Kind::number ||
         formula.kind == Kind::sign || formula.kind == Kind::words;
}

void put_bracketed(gFormula const & formula, std::string & out) {
  bool const single = is_single(formula);
  out += single ? "" : "(";
  put(formula, out);
  out += single ? "" : ")";
}

void put_script(char mark, gFormula const & script, std::string & out) {
  if (script.parts.empty())
    return;
  bool const primes = script.parts.front().text == "′";
  if (!primes)
    out += mark;
  if (primes)
    put(script, out);
  else
    put_bracketed(script, out);
}

void put_table(gFormula const & table, std::string & out) {
  for (std::size_t line = 0; line < table.parts.size(); ++line) {
    out += line > 0 ? "; " : "";
    bool first = true;
    for (gFormula const & cell : table.parts[line].parts) {
      out += first ? "" : " ";
      put(cell, out);
      first = false;
    }
  }
}

bool is_relation(std::string const & sign) {
  static constexpr std::string_view close = "()[]{}|∥.,;:!/′";
  return !sign.empty() && close.find(sign) == close.npos;
}

void put(gFormula const & formula, std::string & out) {
  std::vector<gFormula> const & parts = formula.parts;
  switch (formula.kind) {
  case Kind::sign:
    out += is_relation(formula.text) ? " " + formula.text + " " : formula.text;
    break;
  case Kind::space:
    out += ' ';
    break;
  case Kind::identifier: // names of functions stand apart
    out += formula.text.size() > 1 && static_cast<unsigned char>(formula.text[0]) < 0x80
               ? " " + formula.text + " "
               : formula.text;
    break;
  case Kind::fraction:
    put_bracketed(parts[0], out);
    out += formula.text.empty() ? "/" : " over ";
    put_bracketed(parts[1], out);
    break;
  case Kind::root:
    if (parts.size() > 1)
      put_bracketed(parts[1], out);
    out += "√";
    put_bracketed(parts[0], out);
    break;
  case Kind::scripts:
  case Kind::limits:
    put(parts[0], out);
    put_script('_', parts[1], out);
    put_script('^', parts[2], out);
    break;
  case Kind::over:
  case Kind::under:
    put_bracketed(parts[0], out);
    out += parts[1].text;
    break;
  case Kind::table:
    put_table(formula, out);
    break;
  default:
    out += formula.text;
    for (gFormula const & one : parts)
      put(one, out);
    break;
  }
}

} // namespace

std::string Formula::plain(gFormula const & formula) {
  std::string text;
  put(formula, text);
  std::string result;
  for (char const c : text)
    if (c != ' ' || (!result.empty() && result.back() != ' '))
      result += c;
  while (result.ends_with(' '))
    result.pop_back();
  return result;
}
