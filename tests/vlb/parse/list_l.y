/* A small language that uses every corner of the frame. */
%define lr.default-reduction consistent
%define api.parser.class {ListParse}
%code { #include "vlb/parse/list_parse.h" }
%token <Counted> WORD 300
%type <Counted> name sum
%%
start: items { note("end"); } ;
items: %empty | items item ;
item: name ';' { note("word", $1); }
    | name scope '{' items '}' { note("leave", $1); }
    | name '[' { note("in", $1); } items ']' { note("out", $1); }
    | '(' nest ')' { note("nest"); }
    | '#' sum ';' { note("sum", $2); }
    | fault ';' { note("recovered"); } ;
name: WORD ;
scope: %empty { note("enter", $<Counted>0); } ;
nest: %empty | '(' nest ')' ;
fault: error { note("fault"); } ;
@include list_sum.yi
%%
