// The grammar of the macro language. Rules, nonterminals and states are counted at the end: the
// order of the rules and the places of the mid-rule actions decide when nodes are made, so a
// change of those figures must be meant.
//
// The stack holds 200 states and never grows. Values are trivial and own nothing, so an action
// may throw through the parser.

%define api.pure full
%define api.prefix {macroyy}
%define api.token.prefix {TK_}
%define api.value.type {MacroToken}
%define parse.trace
%param {TreeBuilder& build}

// All eight are shifts that are wanted: the "(" behind a name, TAB or SPC (3), the minus behind a
// Print item (1), and what may follow in a line If: Else, End If and ":" (4).
%expect 8

%code requires {
#include "language/Scanner.h"
class TreeBuilder;
}

%code {
#include "language/TreeBuilder.h"

#define YYINITDEPTH 200
#define YYMAXDEPTH 200

static int macroyylex(MacroToken* value, TreeBuilder& build) {
    return build.NextToken(*value);
}

static void macroyyerror(TreeBuilder& build, const char*) {
    build.SyntaxError();
}

#if defined(__GNUC__)
#pragma GCC diagnostic ignored "-Wold-style-cast"
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wzero-as-null-pointer-constant"
#endif
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wuseless-cast"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
}

%token RANDOM 257 BINARY 258 NOT 259 STOP 260 END 261 DO 262 IF 263 THEN 264 ELSE 265 ELSEIF 266
%token GOTO 267 GOSUB 268 RETURN 270 LET 271 EXIT 272 SUB 273 WHILE 274 FUNCTION 275 PRINT 276
%token INPUT 277 OUTPUT 278 FOR 279 IMP 280 TO 281 STEP 282 NEXT 283 OPEN 284 ACCESS 285 EACH 286
%token DIM 287 LEN 288 LOOP 289 UNTIL 290 WEND 291 WIDTH 292 M_IN 293 MOD 294 XOR 295 WRITE 296
%token AS 297 CLOSE 298 READ 299 SET 300 SHARED 302 LOCK 303 APPEND 304 OR 305 AND 306 REDIM 307
%token PRESERVE 308 OP_AMP 309 OP_LT 310 OP_GT 311 OP_EQ 312 IS 313 SLASH 314 MINUS 315 OP_CR 316
%token PLUS 317 OP_AS 318 TAB 319 BY_VAL 320 BY_REF 321 CALL 322 SPC 323 CONSTDEF 324 OPTION 325
%token SELECT 326 CASE 327 NAME 328 SCONST 329 MTRUE 330 MFALSE 331 INTEGER 333 REAL 334 LOWEST 335
%token EQV 336 ERASE 337 RANDOMIZE 338 WITH 339 NL 342 LDOT 343 RDOT 344 WITHDLG 345 PUBLIC 346
%token PRIVATE 347 DEFAULT 348 NOTHING 349 TKNULL 350 EMPTY 351 UMINUS 353
%token '#' '(' ')' ',' ';'
%start script

// ':' stands lowest so that the statements behind Then take what they can before a further ':'.
%left ':'
%left IMP
%left EQV
%left XOR
%left OR
%left AND
%precedence NOT
%left OP_EQ OP_LT OP_GT
%left OP_AMP
%left PLUS MINUS
%left MOD
%left '\\'
%left OP_AS SLASH
%left OP_CR
%precedence UMINUS

%%

separator: NL
    | ':'
    ;

separator_list: separator
    | separator_list separator
    ;

select_case: SELECT CASE expr { build.OpenSelect($3); } separator_list
    ;

case_else_opt: %empty
    | CASE ELSE { build.CaseElse(); } separator statement_list_nl
    ;

case: CASE expr_list { build.Case($2); } separator statement_list_nl
    ;

cases: case
    | cases case
    ;

select_case_statement: select_case cases case_else_opt END SELECT { build.EndSelect(); }
    | select_case case_else_opt END SELECT { build.EndSelect(); }
    ;

if_statement: IF expr THEN { build.OpenIf($2); }
    ;

else_ifs_opt: %empty
    | else_ifs
    ;

else_ifs: else_if
    | else_ifs else_if
    ;

else_if: ELSEIF expr THEN NL { build.ElseIf($2); } statement_list_nl
    ;

else_nl_opt: %empty
    | ELSE NL { build.Else(); } statement_list_nl
    ;

else_opt: %empty
    | ELSE { build.Else(); } statement_list
    ;

end_if_opt: %empty { build.EndLineIf(); }
    | end_if
    ;

end_if: END IF { build.EndIf(); }
    ;

block_if_statement: if_statement NL statement_list_nl else_ifs_opt else_nl_opt end_if
    ;

statement_list_notempty: statement_notempty
    | ':' statement_list
    | statement_notempty ':' statement_list
    ;

line_if_statement: if_statement statement_list_notempty else_opt end_if_opt
    ;

do: DO { build.OpenDo(); } separator
    ;

do_while: DO WHILE expr { build.OpenDoWhile($3); }
    ;

do_until: DO UNTIL expr { build.OpenDoUntil($3); }
    ;

while: WHILE expr { build.OpenWhile($2); }
    ;

while_statement: while statement_list_nl WEND { build.Wend(); }
    ;

with: WITH expr { build.OpenWith($2, false); }
    | WITHDLG expr { build.OpenWith($2, true); }
    ;

with_end: END WITH { build.EndWith(false); }
    | END WITHDLG { build.EndWith(true); }
    ;

with_statement: with statement_list_nl with_end
    ;

var_access_flag: %empty { $$.flag = 0; }
    | PUBLIC { $$.flag = 1; }
    | PRIVATE { $$.flag = 3; }
    ;

access_flag: var_access_flag
    | PUBLIC DEFAULT { $$.flag = 2; }
    ;

function_header: access_flag FUNCTION NAME { build.OpenProcedure($3, $1.flag, true); }
    ;

function: function_header
    | function_header '(' function_arg_list ')'
    ;

function_statement: function statement_list_nl END FUNCTION { build.CloseProcedure(true); }
    ;

sub_header: access_flag SUB NAME { build.OpenProcedure($3, $1.flag, false); }
    ;

sub: sub_header
    | sub_header '(' function_arg_list ')'
    ;

sub_statement: sub statement_list_nl END SUB { build.CloseProcedure(false); }
    ;

script: statement_list_nl
    ;

statement_list_nl: statement_list
    | statement_list_nl NL statement_list
    ;

statement_list: statement
    | statement_list ':' statement
    ;

statement: %empty
    | statement_notempty { build.EndStatement(); }
    ;

statement_notempty: object_statement
    | line_if_statement
    | block_if_statement
    | select_case_statement
    | CALL object { build.Call($2); }
    | OPTION NAME { build.Option($2); }
    | const_stm
    | LET let_xpr
    | SET object OP_EQ expr { build.Set($2, $4); }
    | let_xpr
    | dim var_decl_list { build.CloseDim(); }
    | REDIM arr_redecl_list { build.Redim($2, false); }
    | REDIM PRESERVE arr_redecl_list { build.Redim($3, true); }
    | RETURN
    | STOP
    | FOR NAME OP_EQ expr TO expr for_step { build.OpenFor($2, $4, $6, $7); }
    | FOR EACH NAME M_IN object { build.OpenForEach($3, $5); }
    | EXIT FOR { build.ExitFor(); }
    | NEXT NAME { build.NextNamed($2); }
    | NEXT { build.Next(); }
    | do statement_list_nl LOOP { build.Loop(); }
    | do_while statement_list_nl LOOP { build.Loop(); }
    | do_until statement_list_nl LOOP { build.Loop(); }
    | do statement_list_nl LOOP WHILE expr { build.LoopWhile($5); }
    | do statement_list_nl LOOP UNTIL expr { build.LoopUntil($5); }
    | EXIT DO { build.ExitDo(); }
    | while_statement
    | with_statement
    | OPEN expr FOR open_mode file_access file_lock AS streamnum file_reclen
      { build.Open($2, $4, $5, $6, $8, $9); }
    | PRINT '#' expr ',' print_arg_list { build.Print($5, $3); }
    | INPUT '#' expr ',' var_list { build.Input($5, $3); }
    | CLOSE streamnum_list { build.Close($2); }
    | WIDTH '#' expr ',' expr { build.Width($3, $5); }
    | ERASE object { build.Erase($2); }
    | RANDOMIZE { build.Randomize(); }
    | RANDOMIZE expr { build.Randomize($2); }
    | function_statement
    | sub_statement
    | EXIT SUB { build.ExitSub(); }
    | EXIT FUNCTION { build.ExitFunction(); }
    ;

streamnum_list: %empty { $$ = build.List(); }
    | streamnum { $$ = build.List($1); }
    | streamnum_list ',' streamnum { $$ = build.Append($1, $3); }
    ;

streamnum: '#' expr { $$ = $2; }
    | expr
    ;

open_mode: INPUT { $$.flag = ParserTree::FileInput; }
    | OUTPUT { $$.flag = ParserTree::FileOutput; }
    | APPEND { $$.flag = ParserTree::FileAppend; }
    | BINARY { $$.flag = ParserTree::FileBinary; }
    | RANDOM { $$.flag = ParserTree::FileRandom; }
    ;

file_access: %empty { $$.flag = ParserTree::AccessReadWrite; }
    | ACCESS READ { $$.flag = ParserTree::AccessRead; }
    | ACCESS WRITE { $$.flag = ParserTree::AccessWrite; }
    | ACCESS READ WRITE { $$.flag = ParserTree::AccessReadWrite; }
    ;

file_lock: %empty { $$.flag = ParserTree::LockShared; }
    | SHARED { $$.flag = ParserTree::LockShared; }
    | LOCK READ { $$.flag = ParserTree::LockRead; }
    | LOCK WRITE { $$.flag = ParserTree::LockWrite; }
    | LOCK READ WRITE { $$.flag = ParserTree::LockReadWrite; }
    ;

file_reclen: %empty { $$ = build.Long(0); }
    | NAME OP_EQ expr { $$ = build.RecordLength($1, $3); }
    ;

for_step: %empty { $$ = build.Double(1.0); }
    | STEP expr { $$ = $2; }
    ;

let_xpr: object OP_EQ expr { build.Let($1, $3); }
    ;

const_stm: var_access_flag CONSTDEF { build.OpenConst($1.flag); } const_decl_list
      { build.CloseConst(); }
    ;

literal_exp: cvalue
    | MINUS cnumber { $$ = build.Unary(0, $2); }
    | boolean
    | reserved_name { $$ = build.Object($1, false); }
    ;

const_decl: NAME OP_EQ literal_exp { build.ConstItem($1, $3); }
    ;

const_decl_list: const_decl
    | const_decl_list ',' const_decl
    ;

expr: object { $$ = build.Exec($1); }
    | cvalue
    | '(' expr ')' { $$ = $2; }
    | expr PLUS expr { $$ = build.Binary(0, $1, $3); }
    | expr OP_AMP expr { $$ = build.Binary(1, $1, $3); }
    | expr MINUS expr { $$ = build.Binary(2, $1, $3); }
    | expr OP_AS expr { $$ = build.Binary(3, $1, $3); }
    | expr SLASH expr { $$ = build.Binary(4, $1, $3); }
    | expr OP_CR expr { $$ = build.Binary(5, $1, $3); }
    | expr MOD expr { $$ = build.Binary(6, $1, $3); }
    | expr '\\' expr { $$ = build.Binary(7, $1, $3); }
    | MINUS expr %prec UMINUS { $$ = build.Unary(0, $2); }
    | boolean
    | expr OP_EQ expr { $$ = build.Binary(8, $1, $3); }
    | object IS object { $$ = build.Binary(29, build.Exec($1), build.Exec($3)); }
    | expr OP_LT OP_GT expr { $$ = build.Binary(9, $1, $4); }
    | expr OP_LT OP_EQ expr { $$ = build.Binary(10, $1, $4); }
    | expr OP_LT expr { $$ = build.Binary(11, $1, $3); }
    | expr OP_GT OP_EQ expr { $$ = build.Binary(12, $1, $4); }
    | expr OP_GT expr { $$ = build.Binary(13, $1, $3); }
    | NOT expr { $$ = build.Unary(1, $2); }
    | expr OR expr { $$ = build.Binary(16, $1, $3); }
    | expr AND expr { $$ = build.Binary(19, $1, $3); }
    | expr XOR expr { $$ = build.Binary(22, $1, $3); }
    | expr IMP expr { $$ = build.Binary(25, $1, $3); }
    | expr EQV expr { $$ = build.Binary(28, $1, $3); }
    ;

cnumber: INTEGER { $$ = build.Long($1.integer); }
    | REAL { $$ = build.Double($1.real); }
    ;

cvalue: cnumber
    | SCONST { $$ = build.String($1); }
    ;

boolean: MTRUE { $$ = build.Bool(true); }
    | MFALSE { $$ = build.Bool(false); }
    ;

reserved_name: NOTHING
    | TKNULL
    | EMPTY
    ;

name: NAME
    | reserved_name
    ;

object_statement: object { build.ObjectStatement($1); }
    | object arg_list_notempty { build.ObjectStatement($1, $2); }
    ;

ldot_or_empty: %empty { $$.flag = 0; }
    | LDOT { $$.flag = 1; }
    ;

method_call: ldot_or_empty name { $$ = build.Object($2, $1.flag != 0); }
    | method_call RDOT name { $$ = build.Member($1, $3); }
    | method_call '(' arg_list ')' { $$ = build.Apply($1, $3); }
    ;

object: method_call
    ;

argument: %empty { $$ = build.Missing(); }
    | expr
    ;

arg_list_notempty: expr { $$ = build.List($1); }
    | argument ',' arg_list_notempty { $$ = build.Prepend($3, $1); }
    ;

expr_list: expr { $$ = build.List($1); }
    | expr_list ',' expr { $$ = build.Append($1, $3); }
    ;

arg_list: %empty { $$ = build.List(); }
    | arg_list_notempty
    ;

print_arg_list: %empty { $$ = build.List(); }
    | print_arg_list print_arg { $$ = build.Append($1, $2); }
    ;

print_arg: expr
    | TAB { $$ = build.Tab(); }
    | TAB '(' expr ')' { $$ = build.Tab($3); }
    | SPC { $$ = build.Spc(); }
    | SPC '(' expr ')' { $$ = build.Spc($3); }
    | ';' { $$ = build.Semicolon(); }
    ;

var_decl_list: var_decl
    | var_decl_list ',' var_decl
    ;

arr_redecl_list: arr_redecl { $$ = build.RedeclList($1); }
    | arr_redecl_list ',' arr_redecl { $$ = build.Append($1, $3); }
    ;

dim: DIM { build.OpenDim(); }
    ;

var_decl: NAME { build.Variable($1); }
    | NAME '(' subscript_list_or_empty ')' { build.Array($1, $3); }
    ;

arr_redecl: NAME '(' subscript_list ')' { $$ = build.Redeclaration($1, $3); }
    ;

var_list: object { $$ = build.List($1); }
    | var_list ',' object { $$ = build.Append($1, $3); }
    ;

subscript_list_or_empty: %empty { $$ = build.SubscriptList(); }
    | subscript_list
    ;

subscript_list: subscript { $$ = build.SubscriptList($1); }
    | subscript_list ',' subscript { $$ = build.Append($1, $3); }
    ;

subscript: expr { $$ = build.Subscript($1); }
    | expr TO expr { $$ = build.Subscript($1, $3); }
    ;

function_arg_list_not_empty: function_arg_decl
    | function_arg_list_not_empty ',' function_arg_decl
    ;

function_arg_list: %empty
    | function_arg_list_not_empty
    ;

function_arg_decl: function_arg_reftype NAME { build.Argument($2, $1.flag, false); }
    | function_arg_reftype NAME '(' ')' { build.Argument($2, $1.flag, true); }
    ;

function_arg_reftype: %empty { $$.flag = 1; }
    | BY_VAL { $$.flag = 2; }
    | BY_REF { $$.flag = 1; }
    ;

%%

static_assert(YYNRULES == 227, "the number of grammar rules changed");
static_assert(YYNNTS == 89, "the number of nonterminals changed");
static_assert(YYNSTATES == 379, "the number of parser states changed");
static_assert(YYFINAL == 127, "the final parser state changed");

int ParseMacroText(TreeBuilder& build) {
    return yyparse(build);
}

void TraceMacroGrammar(bool on) {
    yydebug = on ? 1 : 0;
}
