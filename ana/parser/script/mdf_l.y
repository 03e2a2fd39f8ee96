/* The script: definitions of templates, then the document. Reading "@document" runs the analysis,
   so that everything behind it is read against the finished units. */

%define lr.default-reduction consistent
%define api.parser.class {mdf_parse}
%expect 0
%code {
#include "ana/anadat/pieces.h"
#include "ana/parser/script/mdf_parse.h"
}

@include ../commands.yi
%token CODE_OPEN 334
%token REF_QUOTE 335
%token CODE_CLOSE 336
%token OUTFILES 337
%token OUTTREE 338
%token OP_EQ 339
%token OP_NE 340
%token SUBENTRY 341
%token TEXT 342
%type <gString> SUBENTRY TEXT

%type <gStrList> text_items text_item text_param inline break line_break code_items code_item
%type <gStrList> note headline index_or_ref index_text ref refs crefll cite outattr
%type <gStrList> unit_items unit_item rows cells
%type <cRef<gCmdSeq>> commands
%type <cRef<gCmd>> command
%type <gLoc> place block

%start script

%%

script: defs document ;

defs: %empty
    | defs def
    ;
def: unit_def
   | sect_def
   | table_def
   ;

document: DOCUMENT stages params commands { finish_document($3, *$4); } ;
stages: %empty { run_stages(); } ;

/* Unit templates. */

unit_def: BDEF_UNITTPL name unit_open unit_items unit_close EDEF { close_unit_template(); } ;
unit_open: %empty { open_unit_template($<gParam>0.text); } ;
unit_close: %empty { store("contents", cat::make($<gStrList>0)); } ;
unit_items: %empty { $$ = gStrList(); }
          | unit_items unit_item { $$ = std::move($1); $$.append(std::move($2)); }
          ;
unit_item: STYLE params { store_style($2); }
         | NOBOOKMARK { store("nobook", cat::make(true)); }
         | NOXE { store("noxe", cat::make(true)); }
         | headline { $$ = template_headline($1); }
         | LINKLINE { $$ = gStrList(Vlb::placeholder(gPiece::link_line)); }
         | crefll { add_to_link_line(std::move($1)); }
         | CLASSHIERARCHY params { $$ = template_hierarchy($2); }
         | SUBENTRY text_param { $$ = subentry_place($1, $2); }
         | error { error(Msg::illegal_in_unit_template); }
         | note
         | index_or_ref
         | cite
         | outattr
         | inline
         | line_break
         ;
text_param: '{' text_items '}' { $$ = std::move($2); } ;

/* Section templates. */

sect_def: BDEF_SECTTPL name sect_open sect_items EDEF ;
sect_open: %empty { open_definition("secttpl", $<gParam>0.text); } ;
sect_items: %empty
          | sect_items sect_item
          ;
sect_item: STYLE params { store_style($2); }
         | HEADPRINT params { print_text("headprint", "head", $2); }
         | FOOTPRINT params { print_text("footprint", "foot", $2); }
         | UNITTPL params { unit_templates($2); }
         | SRCLINK params { source_links($2); }
         | error { error(Msg::illegal_in_section_template); }
         ;

/* Table templates. */

table_def: BDEF_TABLE name table_open COLUMNS params columns table_opts rows EDEF
           { store("rows", cat::make($8)); } ;
table_open: %empty { open_definition("table", $<gParam>0.text); } ;
columns: %empty { define_columns($<gParamList>0); } ;
table_opts: %empty
          | table_opts STYLE params { store_style($3); }
          | table_opts MARKROWS params { mark_lines("markrows", "markrow", $3); }
          | table_opts MARKCOLUMNS params { mark_lines("markcolumns", "markcol", $3); }
          ;
rows: %empty { $$ = gStrList(); }
    | rows ROW cells { $$ = std::move($1); $$.push_back(Vlb::placeholder(gPiece::table_row)); $$.append(std::move($3)); }
    ;
cells: %empty { $$ = open_row(); }
     | cells CELL params { $$ = std::move($1); $$.append(table_cell($3)); }
     ;

/* The commands of the document. */

commands: command { append_command($$, $1); }
        | commands command { $$ = std::move($1); append_command($$, $2); }
        ;
command: error { error(Msg::illegal_command); }
       | SECTION params { $$ = section($2); }
       | HDLEVEL params { $$ = headline_level($2); }
       | FILTER params { $$ = filter($2); }
       | NOFILTER params { $$ = no_filter($2); }
       | FILTERSORT params { $$ = filter_sort($2); }
       | PATHFILTER params { $$ = path_filter($2); }
       | FILEFILTER place params { $$ = file_filter($3, $2); }
       | OUTUNIT place params { $$ = output_unit($3, $2); }
       | OUTFILTER { $$ = output_all(cur_loc()); }
       | OUTFILES { $$ = output_files(cur_loc()); }
       | OUTTREE { $$ = output_tree(cur_loc()); }
       | HDLINE place params { $$ = output_headline($3, $2); }
       | B_OUTCLASS block params commands E_OUTCLASS { $$ = class_block($3, $4, $2); }
       | B_OUTCLASSFILTER block commands E_OUTCLASSFILTER { $$ = class_filter_block($3, $2); }
       ;
place: %empty { $$ = cur_loc(); } ;
block: %empty { $$ = open_block(); } ;

/* Text elements. */

param_word: TEXT ;
param_text: text_items ;

text_items: %empty { $$ = gStrList(); }
          | text_items text_item { $$ = std::move($1); $$.append(std::move($2)); }
          ;
text_item: TEXT { $$ = gStrList($1); }
         | error { error(Msg::illegal_in_text); }
         | inline
         | break
         | index_or_ref
         | outattr
         | note
         ;
inline: EM params { $$ = format("em", $2); }
      | KBD params { $$ = format("kbd", $2); }
      | B params { $$ = format("b", $2); }
      | I params { $$ = format("i", $2); }
      | TT params { $$ = format("tt", $2); }
      | PLAIN params { $$ = format("plain", $2); }
      | DFN params { $$ = definition($2); }
      | UL params { $$ = underline($2); }
      | FONTSIZE params { $$ = font_size($2); }
      | FMT params { $$ = named_format($2); }
      | CODE_OPEN code_items CODE_CLOSE { $$ = code_text(std::move($2)); }
      ;
code_items: code_item
          | code_items code_item { $$ = std::move($1); $$.append(std::move($2)); }
          ;
code_item: TEXT { $$ = gStrList($1); }
         | error { error(Msg::illegal_in_code_text); }
         | inline
         | ref
         ;
note: MARNOTE params { $$ = note("marnote", $2); }
    | FOOTNOTE params { $$ = note("footnote", $2); }
    | ENDNOTE params { $$ = note("endnote", $2); }
    ;
break: line_break
     | LTAB params { $$ = tab("ltab", $2); }
     | CTAB params { $$ = tab("ctab", $2); }
     | RTAB params { $$ = tab("rtab", $2); }
     ;
line_break: ENDL { $$ = gStrList(gString("@endl\n")); }
          | ENDP { $$ = gStrList(gString("@endp\n")); }
          ;
headline: HDLINE params { $$ = headline($2); } ;

index_or_ref: XE '<' index_text '{' index_text '}' index_text '>'
              { $$ = index_entry({&$3, &$5, &$7}); }
            | XE '<' index_text '{' index_text '}' index_text '{' index_text '}' index_text '>'
              { $$ = index_entry({&$3, &$5, &$7, &$9, &$11}); }
            | ref
            ;
index_text: %empty { $$ = gStrList(); }
          | TEXT { $$ = gStrList($1); }
          ;
ref: CREF params { $$ = cross_reference($2); }
   | REF_QUOTE refs REF_QUOTE { $$ = short_references($2); }
   ;
refs: TEXT { $$ = gStrList($1); }
    | error { invalid_target(); }
    | refs ',' TEXT { $$ = std::move($1); $$.push_back(std::move($3)); }
    | refs ',' error { invalid_target(); $$ = std::move($1); }
    ;
crefll: CREFLL params { $$ = link_reference($2); } ;
cite: CITE params { $$ = citation($2); } ;
outattr: OUTATTR params { $$ = attribute_value($2); } ;

@include ../params.yi
