// Declarations of C and C++. Types aren't known: every name of a declaration may be what it
// declares, and bodies, parameters, bounds, values and template arguments are skipped by counting
// brackets. The order of the rules decides the conflicts between reductions: the earlier rule wins.

%define lr.default-reduction consistent
%define api.parser.class {cpp_parse}
%code { #include "ana/parser/cpp/cpp_parse.h" }

%token KW_ASM 257 "asm"
%token KW_AUTO 258 "auto"
%token KW_CATCH 259 "catch"
%token KW_CLASS 260 "class"
%token KW_CONST 261 "const"
%token KW_DELETE 262 "delete"
%token KW_ENUM 263 "enum"
%token KW_EXPLICIT 264 "explicit"
%token KW_EXPORT 265 "export"
%token KW_EXTERN 266 "extern"
%token KW_FRIEND 267 "friend"
%token KW_INLINE 268 "inline"
%token KW_MUTABLE 269 "mutable"
%token KW_NAMESPACE 270 "namespace"
%token KW_NEW 271 "new"
%token KW_OPERATOR 272 "operator"
%token KW_PRIVATE 273 "private"
%token KW_PROTECTED 274 "protected"
%token KW_PUBLIC 275 "public"
%token KW_REGISTER 276 "register"
%token KW_STATIC 277 "static"
%token KW_STRUCT 278 "struct"
%token KW_TEMPLATE 279 "template"
%token KW_THROW 280 "throw"
%token KW_TRY 281 "try"
%token KW_TYPEDEF 282 "typedef"
%token KW_TYPENAME 283 "typename"
%token KW_UNION 284 "union"
%token KW_USING 285 "using"
%token KW_VIRTUAL 286 "virtual"
%token KW_VOLATILE 287 "volatile"
%token SCOPE 288 "::"
%token PTR_PAREN 289
%token <gString> DECL_MACRO 290 IDENTIFIER 291 INTEGER 292 SCOPE_NAME 293 STRING 294
%token <gString> AND_AND 295 "&&"
%token <gString> AND_ASSIGN 296 "&="
%token <gString> ARROW 297 "->"
%token <gString> ARROW_STAR 298 "->*"
%token <gString> MINUS_MINUS 299 "--"
%token <gString> DIV_ASSIGN 300 "/="
%token <gString> EQUAL 301 "=="
%token <gString> GREATER_EQUAL 302 ">="
%token <gString> PLUS_PLUS 303 "++"
%token <gString> LESS_EQUAL 304 "<="
%token <gString> SHIFT_LEFT 305 "<<"
%token <gString> SHIFT_LEFT_ASSIGN 306 "<<="
%token <gString> MINUS_ASSIGN 307 "-="
%token <gString> MOD_ASSIGN 308 "%="
%token <gString> TIMES_ASSIGN 309 "*="
%token <gString> NOT_EQUAL 310 "!="
%token <gString> OR_ASSIGN 311 "|="
%token <gString> OR_OR 312 "||"
%token <gString> PLUS_ASSIGN 313 "+="
%token <gString> SHIFT_RIGHT 314 ">>"
%token <gString> SHIFT_RIGHT_ASSIGN 315 ">>="
%token <gString> XOR_ASSIGN 316 "^="

%type <gString> declaration block_declaration simple_declaration asm_definition namespace_alias
%type <gString> using_declaration using_directive namespace_definition linkage_specification
%type <int> line_mark
%type <gCppDecl> decl_elements_opt decl_elements
%type <gCppElemRef> decl_element storage_specifier function_specifier
%type <gString> type_specifier cv_qualifier cv_seq
%type <gString> class_key class_head class_specifier member_seq access_label member
%type <gStrList> class_key_named enum_key_named
%type <gBasesRef> bases_opt base_list
%type <gBaseEntry> base_spec
%type <int> base_access access_word
%type <gString> enum_specifier enumerators_opt enumerator_list enumerator
%type <gString> elaborated_type elaborated_enum elaborated_class
%type <gCppDcltorRef> declarator_elem declarator direct_declarator declarator_id
%type <gString> params_skip array_suffix exception_opt
%type <gStrList> qualified_id nested_opt nested
%type <gString> unqualified_id name global_opt ptr_op ctor_init_opt mem_init_list mem_init
%type <gString> operator_id op_symbol conversion_id conv_type conv_word
%type <gStrList> ptr_ops
%type <gString> function_definition
%type <gString> export_opt template_declaration explicit_specialization explicit_instantiation

%%

translation_unit: declaration_seq ;

declaration_seq:
    %empty
  | declaration_seq declaration
  ;

declaration:
    block_declaration
  | namespace_definition
  | linkage_specification
  | function_definition
  | template_declaration
  | explicit_instantiation
  | explicit_specialization
  ;

block_declaration:
    simple_declaration
  | asm_definition
  | namespace_alias
  | using_declaration
  | using_directive
  | DECL_MACRO ';' { $$ = statement("", $1); }
  ;

simple_declaration: decl_elements_opt line_mark ';' { $$ = simple_declaration($1, $2); } ;

decl_elements_opt:
    %empty
  | decl_elements
  ;

line_mark: %empty { $$ = cur_line(); } ;

asm_definition: "asm" '(' STRING ')' ';' { $$ = asm_definition($3); } ;

namespace_alias:
    "namespace" IDENTIFIER '=' global_opt nested_opt IDENTIFIER ';'
      { $$ = statement("namespace " + $2 + " = ", full_name($4, $5, $6)); }
  ;

using_declaration:
    "using" global_opt nested_opt unqualified_id ';'
      { $$ = statement("using ", full_name($2, $3, $4)); }
  | "using" "typename" global_opt nested unqualified_id ';'
      { $$ = statement("using typename ", full_name($3, $4, $5)); }
  ;

using_directive:
    "using" "namespace" global_opt nested_opt IDENTIFIER ';'
      { $$ = statement("using namespace ", full_name($3, $4, $5)); }
  ;

namespace_definition:
    "namespace" '{' anon_enter declaration_seq '}' { $$ = leave_namespace(""); }
  | "namespace" IDENTIFIER '{' name_enter declaration_seq '}' { $$ = leave_namespace($2); }
  ;

anon_enter: %empty { enter_scope({}); } ;

name_enter: %empty { enter_scope($<gString>-1); } ;

linkage_specification:
    "extern" STRING '{' linkage_enter declaration_seq '}' { $$ = leave_linkage(""); }
  | "extern" STRING linkage_mark declaration { $$ = leave_linkage($4); }
  ;

linkage_enter: %empty { push_linkage($<gString>-1); } ;

linkage_mark: %empty { push_linkage($<gString>0); } ;

// Declaration elements

decl_elements:
    decl_element { $$.append(std::move($1)); }
  | decl_elements decl_element
      { $$ = std::move($1); $$.append(std::move($2)); check_length($$.elems.size()); }
  ;

decl_element:
    declarator_elem { $$ = std::move($1); }
  | ',' { $$ = make_ref<gCppDcltorSep>(); }
  | "typedef" { $$ = specifier(spec_typedef); }
  | "friend" { $$ = specifier(spec_friend); }
  | type_specifier { $$ = make_ref<gCppTypeSpec>(std::move($1)); }
  | storage_specifier
  | function_specifier
  ;

storage_specifier:
    "mutable" { $$ = specifier(spec_mutable); }
  | "extern" { $$ = specifier(spec_extern); }
  | "static" { $$ = specifier(spec_static); }
  | "register" { $$ = specifier(spec_register); }
  | "auto" { $$ = specifier(spec_auto); }
  ;

function_specifier:
    "explicit" { $$ = specifier(spec_explicit); }
  | "virtual" { $$ = specifier(spec_virtual); }
  | "inline" { $$ = specifier(spec_inline); }
  ;

type_specifier:
    class_specifier
  | enum_specifier
  | elaborated_type
  | cv_qualifier
  ;

cv_qualifier:
    "const" { $$ = "const "; }
  | "volatile" { $$ = "volatile "; }
  ;

cv_seq:
    %empty
  | cv_seq cv_qualifier { $$ = std::move($1) + $2; }
  ;

// Classes

class_key:
    "class" { $$ = "class "; }
  | "struct" { $$ = "struct "; }
  | "union" { $$ = "union "; }
  ;

class_key_named: class_key nested_opt name { $$ = named_key($1, $2, $3); } ;

class_head:
    class_key_named line_mark bases_opt { $$ = class_head($1, $2, $3); }
  | class_key bases_opt { $$ = unnamed_class_head($1, $2); }
  ;

class_specifier: class_head '{' member_seq '}' { $$ = class_specifier($1, $3); } ;

bases_opt:
    %empty { $$ = make_ref<gBaseClause>(); }
  | ':' base_list { $$ = std::move($2); }
  ;

base_list:
    base_spec { $$ = make_ref<gBaseClause>(); $$->append($1); }
  | base_list ',' base_spec
      { $$ = std::move($1); $$->append($3); check_length($$->entries.size()); }
  ;

base_spec:
    base_access global_opt nested_opt name { $$ = {full_name($2, $3, $4), $1}; }
  ;

base_access:
    %empty { $$ = access_private; }
  | "virtual" { $$ = access_virtual; }
  | access_word "virtual" { $$ = $1 + access_virtual; }
  | "virtual" access_word { $$ = $2 + access_virtual; }
  | access_word
  ;

access_word:
    "private" { $$ = access_private; }
  | "protected" { $$ = access_protected; }
  | "public" { $$ = access_public; }
  ;

member_seq:
    %empty
  | member_seq member { $$ = std::move($1); $$ += $2; }
  | member_seq access_label ':' { $$ = std::move($1); $$ += $2; }
  ;

access_label:
    "public" { $$ = access_label("public"); }
  | "protected" { $$ = access_label("protected"); }
  | "private" { $$ = access_label("private"); }
  ;

member:
    simple_declaration
  | function_definition ';'
  | function_definition
  | using_declaration
  | template_declaration
  ;

// Enumerations and elaborated names

enum_key_named: "enum" nested_opt IDENTIFIER { $$ = std::move($2); $$.push_back(std::move($3)); } ;

enum_specifier:
    enum_key_named line_mark '{' enumerators_opt '}' { $$ = enumeration($1, $2, $4); }
  | "enum" '{' enumerators_opt '}' { $$ = "enum { " + $3 + " }"; }
  ;

enumerators_opt:
    %empty
  | enumerator_list
  | enumerator_list ','
  ;

enumerator_list:
    enumerator
  | enumerator_list ',' enumerator { $$ = std::move($1); $$ += ", "; $$ += $3; }
  ;

enumerator:
    IDENTIFIER
  | IDENTIFIER '=' { $$ = std::move($1) + " = " + value_until(",}"); }
  ;

elaborated_type:
    elaborated_class
  | elaborated_enum
  | "typename" global_opt nested name { $$ = "typename " + full_name($2, $3, $4); }
  ;

elaborated_enum:
    enum_key_named { $$ = "enum " + $1.make_string("::"); }
  | "enum" "::" nested_opt IDENTIFIER { $$ = "enum " + full_name("::", $3, $4); }
  ;

elaborated_class:
    class_key_named { $$ = key_and_name($1); }
  | class_key "::" nested_opt IDENTIFIER { $$ = std::move($1) + full_name("::", $3, $4); }
  ;

// Declarators

declarator_elem:
    declarator '=' { $$ = std::move($1); $$->append(" = " + value_until(",;")); }
  | declarator ctor_init_opt { $$ = std::move($1); $$->append($2); }
  ;

declarator:
    direct_declarator
  | ptr_op declarator { $$ = std::move($2); $$->prepend($1); }
  ;

direct_declarator:
    declarator_id
  | PTR_PAREN declarator ')' { $$ = std::move($2); $$->enclose(); }
  | direct_declarator array_suffix { $$ = std::move($1); $$->append($2); }
  | direct_declarator '(' params_skip cv_seq exception_opt
      { $$ = std::move($1); add_parameters(*$$, $3, $4, $5); }
  ;

params_skip: %empty { $$ = "(" + skipped('(', ')'); } ;

array_suffix: '[' { $$ = "[" + skipped('[', ']'); } ;

exception_opt:
    %empty
  | "throw" open_paren { $$ = "throw (" + skipped('(', ')'); }
  ;

open_paren:
    '('
  | PTR_PAREN
  ;

declarator_id:
    global_opt unqualified_id { $$ = declarator($1, $2); }
  | qualified_id { $$ = make_ref<gCppDcltor>(std::move($1)); }
  ;

qualified_id:
    global_opt nested unqualified_id { $$ = qualified($1, $2, $3); }
  | global_opt nested "template" unqualified_id { $$ = qualified($1, $2, "template " + $4); }
  ;

unqualified_id:
    name
  | operator_id
  | conversion_id
  | '~' IDENTIFIER { $$ = "~" + $2; }
  ;

name:
    IDENTIFIER
  | IDENTIFIER '<' { $$ = std::move($1) + "<" + skipped('<', '>'); }
  ;

global_opt:
    %empty
  | "::" { $$ = "::"; }
  ;

nested_opt:
    %empty
  | nested
  ;

nested:
    SCOPE_NAME "::" { $$.push_back(std::move($1)); }
  | nested SCOPE_NAME "::"
      { $$ = std::move($1); $$.push_back(std::move($2)); check_length($$.size()); }
  ;

ptr_op:
    '*' cv_seq { $$ = "*" + $2; }
  | '&' { $$ = "&"; }
  | global_opt nested '*' cv_seq { $$ = full_name($1, $2, ":: *") + $4; }
  ;

ctor_init_opt:
    %empty
  | ':' INTEGER { $$ = " : " + $2; }
  | ':' mem_init_list { $$ = bit_width($2); }
  ;

mem_init_list:
    mem_init
  | mem_init_list ',' mem_init { $$ = std::move($1); $$ += ", "; $$ += $3; }
  ;

mem_init:
    global_opt nested_opt IDENTIFIER { $$ = full_name($1, $2, $3); }
  | global_opt nested_opt name open_paren { $$ = std::move($3) + "(" + skipped('(', ')'); }
  ;

// Operators

operator_id: "operator" op_symbol { $$ = "operator" + $2; } ;

op_symbol:
    "new" { $$ = " new"; }
  | "delete" { $$ = " delete"; }
  | "new" '[' ']' { $$ = " new[]"; }
  | "delete" '[' ']' { $$ = " delete[]"; }
  | '[' ']' { $$ = "[]"; }
  | '(' ')' { $$ = "()"; }
  | ',' { $$ = ","; }
  | '>' { $$ = ">"; }
  | '<' { $$ = "<"; }
  | '^' { $$ = "^"; }
  | '|' { $$ = "|"; }
  | '%' { $$ = "%"; }
  | '/' { $$ = "/"; }
  | '~' { $$ = "~"; }
  | '!' { $$ = "!"; }
  | '-' { $$ = "-"; }
  | '+' { $$ = "+"; }
  | '&' { $$ = "&"; }
  | '*' { $$ = "*"; }
  | '=' { $$ = "="; }
  | "&&"
  | "&="
  | "->"
  | "->*"
  | "--"
  | "/="
  | "=="
  | ">="
  | "++"
  | "<="
  | "<<"
  | "<<="
  | "-="
  | "%="
  | "*="
  | "!="
  | "|="
  | "||"
  | "+="
  | ">>"
  | ">>="
  | "^="
  ;

conversion_id: "operator" conv_type ptr_ops { $$ = conversion($2, $3); } ;

conv_type:
    type_specifier
  | conv_word
  | conv_type conv_word { $$ = std::move($1) + " " + $2; }
  ;

conv_word: global_opt nested_opt name { $$ = full_name($1, $2, $3); } ;

ptr_ops:
    %empty
  | ptr_ops ptr_op { $$ = std::move($1); $$.push_front(make_ref<gString>($2)); check_length($$.size()); }
  ;

// Functions

function_definition:
    decl_elements line_mark '{' { skip_body(); $$ = function_definition($1, $2); }
  | decl_elements line_mark function_try { $$ = function_definition($1, $2); }
  ;

function_try: "try" ctor_init_opt '{' try_skip handler_seq ;

try_skip: %empty { skip_body(); } ;

handler_seq:
    handler
  | handler_seq handler
  ;

handler: "catch" '(' handler_skip '{' { skip_body(); } ;

handler_skip: %empty { skip_balanced('(', ')'); } ;

// Templates

export_opt:
    %empty
  | "export" { $$ = "export "; }
  ;

template_head: export_opt "template" '<' { template_head($1); } ;

template_declaration: template_head declaration { $$ = end_template($2); } ;

explicit_specialization:
    export_opt "template" '<' '>' declaration { $$ = "template<> " + $5; }
  ;

explicit_instantiation: export_opt "template" declaration { $$ = "template " + $3; } ;

%%
