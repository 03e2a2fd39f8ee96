/* The grammar of the text units. A comment holds units one behind the other; what stands between
   them is dropped by the scanner. All text becomes pieces of intermediate code. */

%define lr.default-reduction consistent
%define api.parser.class {doc_parse}
/* In each of them the shift is right, in 5 states: the next item of a run of text joins the run;
   what can go on with an item of an enumeration or of a numbering does; a further name in the head
   of a function belongs to it; a fault behind the keyword of a unit is one of its identifier. */
%expect 113

%code { #include "ana/parser/doc/doc_parse.h" }

@include ../commands.yi
%token CODE_OPEN 334
%token CODE_CLOSE 335
%token XREF_QUOTE 336
%token BCOM 337
%token KW_CLASS 338
%token SCOPE 339
%token KW_CONSTRUCTOR 340
%token KW_DESTRUCTOR 341
%token ECOM 342 "end of the comment"
%token OP_EQ 343
%token KW_EXPORT 344
%token KW_FUNCTION 345
%token OP_NE 346
%token KW_PROCEDURE 347
%token SUBJECT_BEGIN 348 "subject line"
%token SUBJECT_END 349 "end of the subject line"
%token KW_STRUCT 350
%token KW_TEMPLATE 351
%token KW_UNION 352
%token HEAD_END 353 "end of the head"
%token PARENS 354
%token TEMPLATE_END 355
%token <gString> ID 356
%token <gString> WORD 357
%token <Doc::Text> TEXT 358 "text"
%token <gString> PLAIN_ID 359
%token <Doc::Keyword> SUBJECT_KW 360
%token <Doc::Keyword> SUBENTRY_KW 361
%token <Doc::Keyword> UNIT_KW 362
%token <Doc::Keyword> TEXTUNIT_KW 363

%type <gStrList> name_seq qualified_name
%type <gStrList> entry_text entry_item element subject_text subject_item
%type <gStrList> body body_run body_item block_item side_item
%type <gStrList> inline code_items code_item break para_break list_item item_text item_element
%type <gStrList> note headline section_head para_head verbatim verbatim_text
%type <gStrList> table rows cells
%type <gStrList> index_or_ref ref refs crefll bookmark_item nobookmark index_entry index_text noxe
%type <gStrList> cite attr_item attr_set outattr unit_style
%type <gString> opt_name
%type <Doc::Levels> class_hierarchy
%type <bool> table_open

%%

start: comments ;
comments: %empty
        | comments comment
        ;
comment: BCOM comment_items ECOM ;
comment_items: %empty
             | comment_items comment_item
             ;
comment_item: unit
            | text_unit
            | cite_begin
            | cite_end
            ;

/* Units that document something. */

unit: unit_head subentries opt_end { enter_unit(); } ;
unit_head: UNIT_KW new_unit identifier first_part ;
new_unit: %empty { begin_unit($<Doc::Keyword>0); } ;
identifier: PLAIN_ID { name_unit(gString(), gStrList($1)); }
          | declaration
          | %empty
          ;
declaration: error { leave_unnamed(); }
           | class_head
           | function_head
           | pascal_head
           ;
class_head: template_head class_key qualified_name opt_head_end { name_unit(std::move($3)); } ;
function_head: template_head name_seq opt_parens opt_names { name_unit(std::move($2)); } ;
pascal_head: pascal_key qualified_name opt_parens opt_result { name_unit(std::move($2)); } ;
template_head: KW_TEMPLATE TEMPLATE_END
             | KW_EXPORT KW_TEMPLATE TEMPLATE_END
             | %empty
             ;
class_key: KW_CLASS
         | KW_STRUCT
         | KW_UNION
         ;
opt_head_end: HEAD_END
            | PARENS
            | %empty
            ;
opt_parens: PARENS
          | %empty
          ;
opt_result: HEAD_END
          | %empty
          ;
opt_names: name_seq {}
         | %empty
         ;
pascal_key: KW_PROCEDURE
          | KW_FUNCTION
          | KW_CONSTRUCTOR
          | KW_DESTRUCTOR
          ;
name_seq: qualified_name
        | name_seq qualified_name { $$ = std::move($2); }
        ;
qualified_name: ID { $$ = first_name(std::move($1)); }
              | qualified_name SCOPE ID { $$ = scoped_name(std::move($1), "::", std::move($3)); }
              | qualified_name '.' ID { $$ = scoped_name(std::move($1), ".", std::move($3)); }
              ;

first_part: entry_text { add_text("@description", std::move($1)); }
          | SUBJECT_BEGIN subject_text { add_text("@sline", std::move($2)); }
          | SUBJECT_BEGIN subject_text SUBJECT_END entry_text {
              add_text("@sline", std::move($2));
              add_text("@description", std::move($4));
            }
          ;
subentries: %empty
          | subentries subentry
          ;
subentry: SUBJECT_KW subject_text { add_text("@sline", std::move($2)); }
        | SUBENTRY_KW entry_text { add_text($1->subentry, std::move($2)); }
        ;
opt_end: END
       | %empty
       ;

entry_text: %empty { $$.clear(); }
          | entry_text entry_item { $$ = joined($1, $2); }
          | entry_text TEXT { $$ = joined_text($1, $2); }
          ;
entry_item: error { illegal(Msg::illegal_in_subentry); $$.clear(); }
          | element
          ;
element: headline { set_headline($1); $$.clear(); }
       | class_hierarchy { set_hierarchy($1); $$.clear(); }
       | crefll { add_link(std::move($1)); $$.clear(); }
       | inline
       | break
       | para_break
       | list_item
       | index_or_ref
       | cite
       | note
       | attr_item
       | unit_style
       | table
       ;

/* Subject lines and parameters between braces. */

subject_text: %empty { $$.clear(); }
            | subject_text subject_item { $$ = joined($1, $2); }
            | subject_text TEXT { $$ = joined_text($1, $2); }
            ;
subject_item: error { illegal(Msg::illegal_in_text); $$.clear(); }
            | inline
            | break
            | para_break
            | index_or_ref
            | outattr
            | note
            ;
param_text: subject_text ;
param_word: WORD ;

/* Continuous texts. */

text_unit: TEXTUNIT_KW opt_name new_text_unit body opt_end { enter_text_unit(std::move($4)); } ;
opt_name: %empty { $$.clear(); }
        | ID
        ;
new_text_unit: %empty { begin_text_unit($<gString>0); } ;
body: %empty { $$.clear(); }
    | body body_run { $$ = joined($1, $2); }
    | body section_head { $$ = joined_head(std::move($1), std::move($2)); }
    | body headline { $$ = joined_head(std::move($1), std::move($2)); }
    ;
body_run: body_item
        | body_run body_item { $$ = joined($1, $2); }
        ;
body_item: error { illegal(Msg::illegal_in_text_unit); $$.clear(); }
         | TEXT { $$ = running_text(std::move($1)); }
         | block_item { $$ = running_element(std::move($1)); }
         | side_item
         ;
block_item: inline
          | break
          | para_break
          | list_item
          | ref
          | cite
          | para_head
          | note
          | table
          | outattr
          ;
side_item: crefll { add_link(std::move($1)); $$.clear(); }
         | bookmark_item
         | nobookmark
         | index_entry
         | noxe
         | attr_set
         | unit_style
         ;

/* Formats, breaks, tabs. */

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
          | code_items code_item { $$ = joined($1, $2); }
          ;
code_item: TEXT { $$.push_back(std::move($1)); }
         | error { illegal(Msg::illegal_in_code_text); $$.clear(); }
         ;
break: ENDL { $$ = gStrList(piece("@endl\n")); }
     | LTAB params { $$ = tab("ltab", $2); }
     | CTAB params { $$ = tab("ctab", $2); }
     | RTAB params { $$ = tab("rtab", $2); }
     ;
para_break: ENDP { $$ = gStrList(piece("@endp\n")); } ;

/* A list is a run of items; the token behind an item tells whether it goes on. */

list_item: ENUMSTYLE params { set_list_style(enum_, $2); $$.clear(); }
         | NUMSTYLE params { set_list_style(num_, $2); $$.clear(); }
         | ENUM item_text { $$ = item(enum_, std::move($2)); }
         | NUM item_text { $$ = item(num_, std::move($2)); }
         | verbatim
         ;
item_text: %empty { $$.clear(); }
         | item_text item_element { $$ = joined($1, $2); }
         | item_text TEXT { $$ = joined_text($1, $2); }
         ;
item_element: error { illegal(Msg::illegal_in_item); $$.clear(); }
            | crefll { add_link(std::move($1)); $$.clear(); }
            | inline
            | break
            | verbatim
            | index_or_ref
            | cite
            | note
            | attr_item
            | unit_style
            ;

note: MARNOTE params { $$ = note("marnote", $2); }
    | FOOTNOTE params { $$ = note("footnote", $2); }
    | ENDNOTE params { $$ = note("endnote", $2); }
    ;

headline: HDLINE params { $$ = headline($2); } ;
section_head: SUB1 params { $$ = section_head(1, $2); }
            | SUB2 params { $$ = section_head(2, $2); }
            | SUB3 params { $$ = section_head(3, $2); }
            ;
para_head: SUBTITLE1 params { $$ = subtitle(1, $2); }
         | SUBTITLE2 params { $$ = subtitle(2, $2); }
         | NORMALTEXT { $$ = gStrList(piece("@text\n")); }
         ;

verbatim: B_VERBATIM verbatim_text E_VERBATIM { $$ = verbatim(std::move($2)); } ;
verbatim_text: %empty { $$.clear(); }
             | verbatim_text TEXT { $$ = joined_text($1, $2); }
             ;

/* Tables. */

table: B_TABLE error E_TABLE { faulty_table(); $$.clear(); }
     | B_TABLE params table_open columns table_opts rows E_TABLE {
         $$ = table($3, std::move($6));
       }
     ;
table_open: %empty { $$ = open_table($<gParamList>0); } ;
columns: %empty { missing_columns(); }
       | COLUMNS params { set_columns($2); }
       ;
table_opts: %empty
          | table_opts STYLE params { set_table_style($3); }
          | table_opts MARKROWS params { set_marks("markrows", table_.markrows, $3); }
          | table_opts MARKCOLUMNS params { set_marks("markcolumns", table_.markcolumns, $3); }
          ;
rows: %empty { $$.clear(); }
    | rows ROW cells { $$ = joined_row(std::move($1), std::move($3)); }
    ;
cells: %empty { begin_row(); $$.clear(); }
     | cells CELL params { $$ = joined_cell(std::move($1), $3); }
     ;

/* References, bookmarks, index entries. */

index_or_ref: bookmark_item
            | nobookmark
            | index_entry
            | noxe
            | ref
            ;
ref: CREF params { $$ = cross_reference($2); }
   | XREF_QUOTE refs XREF_QUOTE { $$ = short_references($2); }
   ;
refs: WORD { $$ = gStrList($1); }
    | error { invalid_target(); $$.clear(); }
    | refs ',' WORD { $$ = std::move($1); $$.push_back(std::move($3)); }
    | refs ',' error { $$ = std::move($1); invalid_target(); }
    ;
crefll: CREFLL params { $$ = link_reference($2); } ;
bookmark_item: BOOKMARK params { $$ = bookmark("bookmark", "", $2); }
             | HID params { $$ = bookmark("hid", "hid", $2); }
             | HIDALIAS params { $$ = help_alias($2); }
             ;
nobookmark: NOBOOKMARK { clear_flag(gDocUnit::bookmark); $$.clear(); } ;
index_entry: XE '<' index_text '{' index_text '}' index_text '>' {
               $$ = index_entry({&$3, &$5, &$7});
             }
           | XE '<' index_text '{' index_text '}' index_text '{' index_text '}' index_text '>' {
               $$ = index_entry({&$3, &$5, &$7, &$9, &$11});
             }
           ;
index_text: %empty { $$.clear(); }
          | index_text TEXT { $$ = joined_text($1, $2); }
          ;
noxe: NOXE { clear_flag(gDocUnit::index_entry); $$.clear(); } ;

/* Citations and attributes. */

cite_begin: B_CITE cite_mark params { begin_citation($3); } ;
cite_mark: %empty { mark_citation(); } ;
cite_end: E_CITE { end_citation(); } ;
cite: CITE params { $$ = citation($2); } ;
attr_item: attr_set
         | outattr
         ;
attr_set: SET params { set_attribute($2); $$.clear(); } ;
outattr: OUTATTR params { $$ = attribute_value($2); } ;
unit_style: STYLE params { set_style($2); $$.clear(); } ;
class_hierarchy: CLASSHIERARCHY params { $$ = class_levels($2); } ;

@include ../params.yi
