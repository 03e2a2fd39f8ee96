// The state of a parse: the unit, the type and the class around the declaration at hand.
#include "ana/parser/pascal/pas_parse_base.h"

#include "vlb/gexception.h"
#include "vlb/messages.h"

pas_parse_base::pas_parse_base(int stack_size)
    : scanner_(gScanBase::standard_size),
      visibility_("undefined") {
  set_stack_size(stack_size);
}

void pas_parse_base::reset() {
  gVLParseBase::reset();
  scanner_.reset();
  unit_name_.clear();
  type_name_.clear();
  class_name_.clear();
  type_is_class_ = false;
  class_bases_ = gBasesRef();
  routine_depth_ = 0;
  visibility_ = "undefined";
  text_bytes_ = 0;
}

void pas_parse_base::read_into(gCodeFacts & facts) {
  facts_ = &facts;
  scanner_.record_comments(&facts.comments);
}

int pas_parse_base::begin_unit(gString const & name) {
  unit_name_ = name;
  return cur_line();
}

void pas_parse_base::end_unit(gString const & name, int line, gStrList const & used) {
  gString decl = "unit " + name;
  if (!used.empty())
    decl += " interface uses " + used.make_string(", ") + ";";
  record_element(make_element(ut_unit, name, line, std::move(decl)));
  unit_name_.clear();
}

int pas_parse_base::begin_type(gString const & name) {
  type_name_ = name;
  type_is_class_ = false;
  return cur_line();
}

void pas_parse_base::end_type(gString const & name, int line, gString const & text) {
  gCodeElemRef const element = make_element(type_is_class_ ? ut_class : ut_type, in_scope(name),
                                            line, "type " + name + " = " + text + ";");
  if (type_is_class_ && class_bases_)
    element->heritage = class_bases_->make_string();
  record_element(element);
  type_name_.clear();
}

void pas_parse_base::begin_class(gBasesRef const & bases) {
  class_name_ = type_name_;
  visibility_ = "public";
  if (bases)
    facts_->classes.push_back({class_name_, bases});
}

// The body stays out of the text: its members are elements of their own.
gString pas_parse_base::end_class(gBasesRef & bases) {
  gString text = "class";
  if (bases)
    text += "(" + bases->make_string() + ")";
  class_bases_ = std::move(bases);
  type_is_class_ = true;
  visibility_ = "undefined";
  class_name_.clear();
  return text;
}

void pas_parse_base::check_length(std::size_t parts) const {
  constexpr std::size_t most = 100000;
  if (parts > most)
    throw gExcFatalErr(Msg::too_many_parts, "", scanner_.place());
}

// Each parameter shows its type, so a long type behind many names would cost its length times their
// number.
void pas_parse_base::count_text(std::size_t bytes) {
  constexpr std::size_t free = 4'000'000, of_each_byte_read = 100;
  text_bytes_ += bytes;
  if (text_bytes_ > free + of_each_byte_read * static_cast<std::size_t>(scanner_.position()))
    throw gExcFatalErr(Msg::too_much_text, "", scanner_.place());
}
