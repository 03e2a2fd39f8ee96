// One element a node; a row of one needs none.
#include "conv/htm/mathml.h"

#include "conv/htm/html_text.h"

namespace {

using Kind = gFormula::Kind;

void put(gFormula const & formula, std::string & out);

void put_in(std::string_view element, std::vector<gFormula> const & parts, std::string & out) {
  (out += '<') += element;
  out += '>';
  for (gFormula const & one : parts)
    put(one, out);
  (out += "</") += element.substr(0, element.find(' '));
  out += '>';
}

void put_leaf(std::string_view element, std::string_view text, std::string & out) {
  if (text.empty())
    return;
  (out += '<') += element;
  out += '>';
  Html::escape(text, out);
  (out += "</") += element.substr(0, element.find(' '));
  out += '>';
}

void put_scripts(gFormula const & formula, std::string & out) {
  bool const limits = formula.kind == Kind::limits;
  bool const foot = !formula.parts[1].parts.empty(), head = !formula.parts[2].parts.empty();
  std::vector<gFormula> parts{formula.parts[0]};
  if (foot)
    parts.push_back(formula.parts[1]);
  if (head)
    parts.push_back(formula.parts[2]);
  put_in(limits ? (foot && head ? "munderover"
                   : foot       ? "munder"
                                : "mover")
                : (foot && head ? "msubsup"
                   : foot       ? "msub"
                                : "msup"),
         parts, out);
}

void put_table(gFormula const & table, std::string & out) {
  out += "<mtable>";
  for (gFormula const & line : table.parts) {
    out += "<mtr>";
    for (gFormula const & cell : line.parts)
      put_in("mtd", {cell}, out);
    out += "</mtr>";
  }
  out += "</mtable>";
}

void put(gFormula const & formula, std::string & out) {
  switch (formula.kind) {
  case Kind::identifier:
    return put_leaf(formula.text.size() > 1 && static_cast<unsigned char>(formula.text[0]) < 0x80
                        ? "mi mathvariant=\"normal\""
                        : "mi",
                    formula.text, out);
  case Kind::number:
    return put_leaf("mn", formula.text, out);
  case Kind::sign:
    return put_leaf("mo", formula.text, out);
  case Kind::words:
    return put_leaf("mtext", formula.text, out);
  case Kind::space:
    out += formula.text.empty() ? "<mspace width=\"0.2em\"></mspace>"
                                : "<mspace width=\"1em\"></mspace>";
    return;
  case Kind::fraction:
    return put_in(formula.text.empty() ? "mfrac" : "mfrac linethickness=\"0\"", formula.parts, out);
  case Kind::root:
    return put_in(formula.parts.size() > 1 ? "mroot" : "msqrt", formula.parts, out);
  case Kind::scripts:
  case Kind::limits:
    return put_scripts(formula, out);
  case Kind::over:
    return put_in("mover", formula.parts, out);
  case Kind::under:
    return put_in("munder", formula.parts, out);
  case Kind::table:
    return put_table(formula, out);
  case Kind::row:
    if (formula.parts.size() == 1)
      return put(formula.parts[0], out);
    return put_in("mrow", formula.parts, out);
  }
}

} // namespace

std::string Html::mathml(gFormula const & formula) {
  std::string out;
  put(formula, out);
  return out;
}
