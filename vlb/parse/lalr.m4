m4_divert_push([KILL])dnl
# The skeleton of our parsers: a grammar's tables and its actions, for the driver in lalr.h. The
# class that the grammar names gets its members `tables` and `reduce` from here.

# The numbers of the left symbols reach the generated actions as positions from the last symbol of
# the rule, so that an action in the midst of a rule counts like one at its end.

m4_define([b4_comment], [// m4_bpatsubst([$1], [
], [
// ])])
m4_define([b4_sync_start], [[#]line $1 $2])

# b4_lalr_typed(VALUE, SYMBOL, [TYPE]): the value as its symbol's type, or as the one given.
m4_define([b4_lalr_typed],
[m4_ifval([$3], [$1.as<$3>()],
          [m4_ifval([$2], [b4_symbol_if([$2], [has_type], [$1.as<b4_symbol([$2], [type])>()], [$1])],
                    [$1])])])

# What $$ and $N stand for.
m4_define([b4_lhs_value], [b4_lalr_typed([result], [$1], [$2])])
m4_define([b4_rhs_value], [b4_lalr_typed([last@{b4_subtract([$2], [$1])@}], [$3], [$4])])
m4_define([b4_lhs_location], [b4_fatal([[positions of symbols aren't kept]])])
m4_define([b4_rhs_location], [b4_fatal([[positions of symbols aren't kept]])])

# What ends Bison's list of names.
m4_define([b4_null], [nullptr])

# b4_case(RULE, ACTION, [COMMENT])
m4_define([b4_case], [  case $1: // $3
$2
b4_syncline([@oline@], [@ofile@])dnl
    break;
])

# b4_lalr_table(NAME, NUMBERS)
m4_define([b4_lalr_table], [gLalrTables::Number const $1@{@} = {
  $2
};
])

m4_divert_pop([KILL])dnl
b4_output_begin([b4_parser_file_name])
b4_comment([Made of ]b4_file_name[; do not change.])
b4_user_pre_prologue
b4_user_post_prologue
#include "vlb/parse/lalr.h"

b4_percent_code_get
b4_syncline([@oline@], [@ofile@])dnl

namespace {

b4_lalr_table([offsets], b4_pact)
b4_lalr_table([reductions], b4_defact)
b4_lalr_table([goto_offsets], b4_pgoto)
b4_lalr_table([goto_defaults], b4_defgoto)
b4_lalr_table([table], b4_table)
b4_lalr_table([check], b4_check)
b4_lalr_table([left_sides], b4_r1)
b4_lalr_table([lengths], b4_r2)
b4_lalr_table([symbols], b4_translate)
char const * const symbol_names@{@} = {
  b4_tname
};
gLalrTables const all_tables = {
    offsets, reductions, goto_offsets, goto_defaults, table, check, left_sides, lengths, symbols,
    symbol_names,
    b4_last, b4_pact_ninf, b4_table_ninf, b4_final_state_number, b4_tokens_number, b4_code_max};

} // namespace

gLalrTables const & b4_percent_define_get([[api.parser.class]])::tables() { return all_tables; }

bool b4_percent_define_get([[api.parser.class]])::reduce(int rule, Value * rhs, Value & result) {
  @{@{maybe_unused@}@} Value * const last = rhs + lengths@{rule@} - 1;
  switch (rule) {
b4_user_actions
  default:
    return false;
  }
  return true;
}
b4_epilogue[]dnl
b4_output_end
