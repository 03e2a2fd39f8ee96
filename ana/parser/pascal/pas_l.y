// Declarations of Pascal units and programs. Statements, values, bounds and the fields of records
// are skipped; every declaration has a keyword or its place to be known by, so nothing has to be
// guessed.

%define lr.default-reduction consistent
%define api.parser.class {pas_parse}
%code { #include "ana/parser/pascal/pas_parse.h" }

%token KW_ABSOLUTE 257 "absolute"
%token KW_ABSTRACT 258 "abstract"
%token KW_ARRAY 259 "array"
%token KW_ASM 260 "asm"
%token KW_ASSEMBLER 261 "assembler"
%token KW_BEGIN 262 "begin"
%token KW_CDECL 263 "cdecl"
%token KW_CLASS 264 "class"
%token KW_CONST 265 "const"
%token KW_CONSTRUCTOR 266 "constructor"
%token KW_DEFAULT 267 "default"
%token KW_DESTRUCTOR 268 "destructor"
%token KW_DYNAMIC 269 "dynamic"
%token KW_END 270 "end"
%token KW_EXPORT 271 "export"
%token KW_EXPORTS 272 "exports"
%token KW_EXTERNAL 273 "external"
%token KW_FAR 274 "far"
%token KW_FILE 275 "file"
%token KW_FORWARD 276 "forward"
%token KW_FUNCTION 277 "function"
%token KW_IMPLEMENTATION 278 "implementation"
%token KW_INDEX 279 "index"
%token KW_INITIALIZATION 280 "initialization"
%token KW_INLINE 281 "inline"
%token KW_INTERFACE 282 "interface"
%token KW_LABEL 283 "label"
%token KW_MESSAGE 284 "message"
%token KW_NAME 285 "name"
%token KW_NEAR 286 "near"
%token KW_NODEFAULT 287 "nodefault"
%token KW_OBJECT 288 "object"
%token KW_OF 289 "of"
%token KW_OVERRIDE 290 "override"
%token KW_PACKED 291 "packed"
%token KW_PRIVATE 292 "private"
%token KW_PROCEDURE 293 "procedure"
%token KW_PROGRAM 294 "program"
%token KW_PROPERTY 295 "property"
%token KW_PROTECTED 296 "protected"
%token KW_PUBLIC 297 "public"
%token KW_PUBLISHED 298 "published"
%token KW_READ 299 "read"
%token KW_RECORD 300 "record"
%token KW_RESIDENT 301 "resident"
%token KW_SET 302 "set"
%token KW_STORED 303 "stored"
%token KW_TYPE 304 "type"
%token KW_USES 305 "uses"
%token KW_UNIT 306 "unit"
%token KW_VAR 307 "var"
%token KW_VIRTUAL 308 "virtual"
%token KW_WRITE 309 "write"
%token DOTS 310 ".."
%token <gString> IDENTIFIER 311 NUMBER 312 STRING 314

%type <int> unit_mark const_mark type_mark var_mark field_mark property_mark routine_line
%type <gStrList> interface_part uses_opt name_list routine_name
%type <gString> list_name dotted_name const_type_opt const_value absolute_opt index_opt
%type <gString> type structured_type array_type array_bounds record_type set_type file_type
%type <gString> ordinal_type range_low pointer_type routine_type routine_signature
%type <gString> class_ref_type class_type
%type <gBasesRef> base_opt
%type <gCodeElemRef> method_heading routine_heading
%type <gString> directive_seq directive property_type_opt property_index_opt property_specs
%type <gString> property_spec routine_word params_opt param_groups param_group param_kind
%type <gString> param_type result_opt routine_tail calling_opt routine_body external_clause
%type <gString> external_spec

%%

source_file:
    program_file
  | unit_file
  | %empty
  ;

program_file: program_head uses_opt block '.' ;

program_head:
    "program" IDENTIFIER '(' name_list ')' ';'
  | "program" IDENTIFIER ';'
  | %empty
  ;

unit_file:
    "unit" IDENTIFIER unit_mark ';' interface_part implementation_part unit_end '.'
      { end_unit($2, $3, $5); }
  ;

unit_mark: %empty { $$ = begin_unit($<gString>0); } ;

interface_part: "interface" uses_opt interface_decls { $$ = std::move($2); } ;

implementation_part: "implementation" uses_opt block_decls ;

unit_end:
    "begin" { drop_block(); }
  | "initialization" { drop_block(); }
  | "end"
  ;

uses_opt:
    %empty
  | "uses" name_list ';' { $$ = std::move($2); }
  ;

name_list:
    list_name { $$.push_back(std::move($1)); }
  | name_list ',' list_name
      { $$ = std::move($1); $$.push_back(std::move($3)); check_length($$.size()); }
  ;

list_name:
    IDENTIFIER
  | "name" { $$ = "name"; }
  | "message" { $$ = "message"; }
  | "index" { $$ = "index"; }
  | "default" { $$ = "default"; }
  ;

dotted_name:
    IDENTIFIER
  | dotted_name '.' IDENTIFIER { $$ = std::move($1); $$ += "." + $3; }
  ;

// Parts of declarations

interface_decls:
    interface_decl
  | interface_decls interface_decl
  ;

interface_decl:
    const_section
  | type_section
  | var_section
  | routine_decl_head
  ;

block_decls:
    %empty
  | block_decls block_decl
  ;

block_decl:
    label_section
  | const_section
  | type_section
  | var_section
  | routine_decl
  | exports_clause
  ;

block: block_decls "begin" { drop_block(); } ;

label_section: "label" label_list ';' ;

label_list:
    label_name
  | label_list ',' label_name
  ;

label_name:
    IDENTIFIER
  | NUMBER
  ;

const_section: "const" const_decls ;

const_decls:
    const_decl
  | const_decls const_decl
  ;

const_decl:
    IDENTIFIER const_mark const_type_opt '=' const_value ';' { constant($1, $2, $3, $5); }
  ;

const_mark: %empty { $$ = cur_line(); } ;

const_type_opt:
    %empty
  | ':' type { $$ = ": " + $2; }
  ;

const_value: %empty { $$ = skip_until_outside(';'); } ;

type_section: "type" type_decls ;

type_decls:
    type_decl
  | type_decls type_decl
  ;

type_decl: IDENTIFIER type_mark '=' type ';' { end_type($1, $2, $4); } ;

type_mark: %empty { $$ = begin_type($<gString>0); } ;

var_section: "var" var_decls ;

var_decls:
    var_decl
  | var_decls var_decl
  ;

var_decl:
    name_list ':' var_mark type absolute_opt ';' { variables(ut_var, $1, $3, $4 + $5); }
  ;

var_mark: %empty { $$ = cur_line(); } ;

absolute_opt:
    %empty
  | "absolute" IDENTIFIER { $$ = " absolute " + $2; }
  | "absolute" NUMBER ':' NUMBER { $$ = " absolute " + $2 + ":" + $4; }
  ;

exports_clause: "exports" export_list ';' ;

export_list:
    export_item
  | export_list ',' export_item
  ;

export_item:
    IDENTIFIER index_opt export_name_opt
  | IDENTIFIER index_opt export_name_opt "resident"
  ;

export_name_opt:
    %empty
  | "name" STRING
  ;

index_opt:
    %empty
  | "index" IDENTIFIER { $$ = " index " + $2; }
  | "index" NUMBER { $$ = " index " + $2; }
  ;

// Types

type:
    dotted_name
  | "packed" structured_type { $$ = "packed " + $2; }
  | IDENTIFIER '[' NUMBER ']' { $$ = std::move($1) + "[" + $3 + "]"; }
  | ordinal_type
  | structured_type
  | pointer_type
  | routine_type
  ;

structured_type:
    array_type
  | record_type
  | class_type
  | class_ref_type
  | set_type
  | file_type
  ;

array_type: "array" '[' array_bounds "of" type { $$ = std::move($3) + " of " + $5; } ;

array_bounds: %empty { $$ = "array [" + skip_balanced('[', ']'); } ;

record_type: "record" { $$ = "record " + skip_block(); } ;

set_type:
    "set" "of" ordinal_type { $$ = "set of " + $3; }
  | "set" "of" dotted_name { $$ = "set of " + $3; }
  ;

file_type:
    "file" { $$ = "file"; }
  | "file" "of" type { $$ = "file of " + $3; }
  ;

ordinal_type:
    range_low ".." { $$ = subrange($1); }
  | '(' name_list ')' { $$ = "(" + $2.make_string(", ") + ")"; }
  ;

range_low:
    %empty
  | dotted_name { $$ = low_name($1); }
  | dotted_name low_operator { $$ = low_constant(low_name($1)); }
  | low_begin { $$ = low_constant(""); }
  ;

low_operator: '(' | '+' | '-' | '*' | NUMBER ;

low_begin: '+' | '-' | NUMBER | STRING ;

pointer_type: '^' dotted_name { $$ = "^" + $2; } ;

routine_type:
    routine_signature
  | routine_signature "of" "object" { $$ = std::move($1) + " of object"; }
  ;

routine_signature:
    "procedure" params_opt { $$ = "procedure" + $2; }
  | "function" params_opt ':' dotted_name { $$ = "function" + $2 + ": " + $4; }
  ;

class_ref_type: "class" "of" dotted_name { $$ = "class of " + $3; } ;

class_type: "class" base_opt class_enter class_body_opt { $$ = end_class($2); } ;

base_opt:
    %empty
  | '(' dotted_name ')' { $$ = make_ref<gBaseClause>(); $$->append({std::move($2), 0}); }
  ;

class_enter: %empty { begin_class($<gBasesRef>0); } ;

// Without a body it is a forward declaration.
class_body_opt:
    %empty
  | class_sections "end"
  ;

// Class bodies

class_sections:
    class_section
  | class_sections visibility_word class_section
  ;

class_section: field_decls method_decls ;

visibility_word:
    "private" { set_visibility("private"); }
  | "protected" { set_visibility("protected"); }
  | "published" { set_visibility("published"); }
  | "public" { set_visibility("public"); }
  ;

field_decls:
    %empty
  | field_decls field_decl
  ;

field_decl: name_list field_mark ':' type ';' { variables(ut_member, $1, $2, $4); } ;

field_mark: %empty { $$ = cur_line(); } ;

method_decls:
    %empty
  | method_decls method_decl
  | method_decls property_decl
  ;

method_decl: method_heading ';' directive_seq { declare_routine($1, ";" + $3); } ;

method_heading:
    routine_heading
  | "class" routine_heading { $$ = std::move($2); $$->decl.prepend("class "); }
  ;

directive_seq:
    %empty
  | directive_seq directive ';' { $$ = std::move($1); $$ += $2 + ";"; }
  ;

directive:
    "virtual" { $$ = " virtual"; }
  | "override" { $$ = " override"; }
  | "dynamic" { $$ = " dynamic"; }
  | "abstract" { $$ = " abstract"; }
  | "message" { $$ = text_until_end("message "); }
  | "cdecl" { $$ = "cdecl"; }
  | "export" { $$ = "export"; }
  ;

property_decl:
    "property" IDENTIFIER property_mark property_type_opt property_specs ';'
      { property($2, $3, $4 + $5); }
  ;

property_mark: %empty { $$ = cur_line(); } ;

property_type_opt:
    %empty
  | property_index_opt ':' dotted_name index_opt { $$ = std::move($1) + ": " + $3 + $4; }
  ;

property_index_opt:
    %empty
  | '[' param_groups ']' { $$ = "[" + $2 + "]"; }
  ;

property_specs:
    %empty
  | property_specs property_spec { $$ = std::move($1); $$ += " " + $2; }
  ;

property_spec:
    "read" IDENTIFIER { $$ = "read " + $2; }
  | "write" IDENTIFIER { $$ = "write " + $2; }
  | "stored" IDENTIFIER { $$ = "stored " + $2; }
  | "default" { $$ = text_until_end("default "); }
  | "nodefault" { $$ = "nodefault"; }
  ;

// Routines

routine_decl_head:
    routine_heading ';' { declare_routine($1, ";"); }
  | routine_heading ';' inline_clause ';' { declare_routine($1, ";"); }
  ;

routine_decl: routine_heading ';' routine_open routine_tail ';' { end_routine($1, $4); } ;

routine_open: %empty { open_routine(); } ;

routine_heading:
    routine_word routine_line routine_name params_opt result_opt
      { $$ = routine($1, $2, $3, $4 + $5); }
  ;

routine_word:
    "destructor" { $$ = "destructor "; }
  | "constructor" { $$ = "constructor "; }
  | "procedure" { $$ = "procedure "; }
  | "function" { $$ = "function "; }
  ;

routine_line: %empty { $$ = cur_line(); } ;

routine_name:
    IDENTIFIER { $$.push_back(std::move($1)); }
  | IDENTIFIER '.' IDENTIFIER { $$ << $1 << $3; }
  ;

params_opt:
    %empty
  | '(' param_groups ')' { $$ = "(" + $2 + ")"; }
  ;

param_groups:
    param_group
  | param_groups ';' param_group { $$ = std::move($1); $$ += "; " + $3; }
  ;

param_group:
    param_kind name_list { $$ = parameters($1, $2, ""); }
  | param_kind name_list ':' param_type { $$ = parameters($1, $2, $4); }
  ;

param_kind:
    %empty
  | "const" { $$ = "const "; }
  | "var" { $$ = "var "; }
  ;

param_type:
    dotted_name
  | "array" "of" dotted_name { $$ = "array of " + $3; }
  ;

result_opt:
    %empty
  | ':' dotted_name { $$ = ": " + $2; }
  ;

routine_tail:
    inline_clause
  | calling_opt routine_body { $$ = std::move($1) + $2; }
  ;

inline_clause: "inline" '(' { skip_balanced('(', ')'); } ;

calling_opt:
    %empty
  | "cdecl" ';' { $$ = " cdecl;"; }
  | "export" ';' { $$ = " export;"; }
  | "far" ';' { $$ = " far;"; }
  | "near" ';' { $$ = " near;"; }
  ;

routine_body:
    "forward" { $$ = " forward"; }
  | assembler_block { $$ = ""; }
  | block { $$ = ""; }
  | external_clause
  ;

assembler_block: "assembler" ';' block_decls "asm" asm_skip ;

asm_skip: %empty { drop_block(); } ;

external_clause:
    "external" { $$ = " external"; }
  | "external" external_spec { $$ = " external " + $2; }
  ;

external_spec:
    STRING
  | STRING "index" { $$ = text_until_end($1 + " index "); }
  | STRING "name" STRING { $$ = std::move($1) + " name " + $3; }
  ;

%%
