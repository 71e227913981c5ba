" Vim syntax file
" Language: macros (*.mcr)
" Written by scripts/editors; changes belong there.

if exists("b:current_syntax")
  finish
endif

syn case ignore
syn iskeyword a-z,A-Z,48-57,_

syn keyword mcrStatement access append as binary call case close do each else elseif end exit for goto if
syn keyword mcrStatement in input let lock loop next open output print random randomize read select set
syn keyword mcrStatement shared spc step tab then to until wend while width with withdlg write
syn keyword mcrWordOperator and eqv imp is mod not or xor
syn keyword mcrLiteral empty false nothing null true
syn keyword mcrDeclaration const dim erase function option redim sub
syn keyword mcrModifier byref byval default preserve private public
syn keyword mcrConstant mbAbort mbAbortRetryIgnore mbCancel mbCritical mbDefaultButton1 mbDefaultButton2
syn keyword mcrConstant mbDefaultButton3 mbExclamation mbIgnore mbInformation mbNo mbOK mbOKCancel
syn keyword mcrConstant mbOKOnly mbQuestion mbRegExp mbRetry mbRetryCancel mbWildcard mbYes mbYesNo
syn keyword mcrConstant mbYesNoCancel mcComboBoxDropdown mcComboBoxDropdownList mcComboBoxSimple
syn keyword mcrConstant vbAbortRetryIgnore vbApplicationModal vbArray vbBinaryCompare vbBlack vbBlue
syn keyword mcrConstant vbBoolean vbByte vbCritical vbCurrency vbCyan vbDataObject vbDate vbDecimal
syn keyword mcrConstant vbDefaultButton1 vbDefaultButton2 vbDefaultButton3 vbDefaultButton4 vbDouble
syn keyword mcrConstant vbEmpty vbError vbExclamation vbFalse vbFirstFourDays vbFirstFullWeek
syn keyword mcrConstant vbFirstJan1 vbFriday vbGeneralDate vbGreen vbInformation vbInteger vbLong
syn keyword mcrConstant vbLongDate vbLongTime vbMagenta vbMonday vbNull vbObject vbObjectError
syn keyword mcrConstant vbOKCancel vbOKOnly vbQuestion vbRed vbRetryCancel vbSaturday vbShortDate
syn keyword mcrConstant vbShortTime vbSimple vbString vbSunday vbSystemModal vbTextCompare vbThursday
syn keyword mcrConstant vbTrue vbTuesday vbUseDefault vbUseSystem vbUseSystemDayOfWeek vbVariant
syn keyword mcrConstant vbWednesday vbWhite vbYellow vbYesNo vbYesNoCancel
syn keyword mcrStringConstant vbCr vbCrLf vbDirSeparator vbFormFeed vbLf vbNewLine vbNullChar vbNullString
syn keyword mcrStringConstant vbTab vbVerticalTab
syn keyword mcrFunction Abs Array Asc Atn CBool CByte CDbl Chr CInt CLng Command Cos CreateObject CSng
syn keyword mcrFunction CStr CurDir Dir DoEvents Environ EOF Exp Filter Fix FormatNumber FormatPercent
syn keyword mcrFunction GetObject GetRef GetTmpFileName Hex InStr InStrRev Int IsArray IsEmpty IsNull
syn keyword mcrFunction IsNumeric IsObject Join LBound LCase Left Len LoadImage Log LTrim Max Mid Min
syn keyword mcrFunction MkDir MoveFile MsgBox Oct Replace Rgb Right Rnd Round RTrim ScriptEngine
syn keyword mcrFunction ScriptEngineBuildVersion ScriptEngineMajorVersion ScriptEngineMinorVersion Sgn
syn keyword mcrFunction Sin Space Split Sqr Str StrComp String StrReverse Tan Trim TypeName UBound UCase
syn keyword mcrFunction Val VarType
syn keyword mcrObject Console Err WScript

syn match mcrName /\a\w*/
syn match mcrOperator @[<>=\-*&\^+/]@
syn match mcrInteger /\%(&h\x*\|\d\+\)\@>&\?\a*/ contains=mcrUnit
syn match mcrReal /\%(&h\x*\|\d\+\)\@>&\?\%(\.\d*\%([de]-\?\d\+\)\?\|[de]-\?\d\+\)\a*/ contains=mcrUnit
syn match mcrUnit /\C\d&\?\zs\%(mil\|mm\|in\|mk\)\a\@!/ contained
syn match mcrMember ;\.\s*\%(\a\w*\|\%(&h\)\@![<>=\-*&\^+/]\);
syn match mcrPlain /\.\s*\./
syn match mcrString /"\%([^"\r]\|""\)*"\?/
syn match mcrComment /'.*/ contains=mcrTodo
syn match mcrComment /rem\%(\s.*\|$\)/ contains=mcrTodo
syn match mcrMemberComment /\.\s*\zerem\%(\s\|$\)/
syn keyword mcrTodo contained TODO FIXME XXX

hi def link mcrStatement Statement
hi def link mcrWordOperator Operator
hi def link mcrLiteral Boolean
hi def link mcrDeclaration StorageClass
hi def link mcrModifier StorageClass
hi def link mcrConstant Constant
hi def link mcrStringConstant Constant
hi def link mcrFunction Function
hi def link mcrObject Type
hi def link mcrOperator Operator
hi def link mcrInteger Number
hi def link mcrReal Float
hi def link mcrUnit Special
hi def link mcrString String
hi def link mcrComment Comment
hi def link mcrTodo Todo

let b:current_syntax = "mcr"
