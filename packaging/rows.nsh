; The rows of registration, in the tree of classes of the users that are chosen. rows_generated.nsh
; has them; here is what is done with each. A library's path is empty where its bitness takes no part.

!define CLASSES "Software\Classes\"

Var Library64
Var Library32

!macro WRITE_VALUE BITS KEY NAME TEXT
  SetRegView ${BITS}
  WriteRegStr SHCTX "${CLASSES}${KEY}" "${NAME}" "${TEXT}"
!macroend

; A key without any value.
!macro WRITE_KEY BITS KEY
  SetRegView ${BITS}
  WriteRegStr SHCTX "${CLASSES}${KEY}" "-" ""
  DeleteRegValue SHCTX "${CLASSES}${KEY}" "-"
!macroend

!macro TAKE_VALUE BITS KEY NAME
  SetRegView ${BITS}
  DeleteRegValue SHCTX "${CLASSES}${KEY}" "${NAME}"
  DeleteRegKey /ifempty SHCTX "${CLASSES}${KEY}"
!macroend

!macro TAKE_KEY BITS KEY
  SetRegView ${BITS}
  DeleteRegKey /ifempty SHCTX "${CLASSES}${KEY}"
!macroend

!macro READ_FILE BITS KEY RESULT
  SetRegView ${BITS}
  ReadRegStr ${RESULT} SHCTX "${CLASSES}${KEY}" ""
!macroend

; Rows that name no file at all are what an incomplete removal left.
!macro TAKE_OWN BITS KEY ROWS
  !insertmacro READ_FILE ${BITS} "${KEY}" $0
  ${If} $0 == ""
  ${OrIf} $0 == $Library${BITS}
    !insertmacro ${ROWS}
  ${EndIf}
!macroend

; Shared rows stay while a library of either bitness, anyone's, is named.
!macro TAKE_SHARED KEY64 KEY32 ROWS
  !insertmacro READ_FILE 64 "${KEY64}" $0
  !insertmacro READ_FILE 32 "${KEY32}" $1
  ${If} "$0$1" == ""
    !insertmacro ${ROWS}
  ${EndIf}
!macroend

!include "rows_generated.nsh"

; Writes every row with the paths in $Library64 and $Library32; sets the error flag on failure.
Function WriteRows
  ${If} $Library64 != ""
    !insertmacro WRITE_ROWS_64
  ${EndIf}
  ${If} $Library32 != ""
    !insertmacro WRITE_ROWS_32
  ${EndIf}
FunctionEnd

; Removes the rows that name $Library64 and $Library32, and no others.
!macro ROWS_FUNCTIONS UN
Function ${UN}TakeRows
  !insertmacro TAKE_ROWS
FunctionEnd
!macroend
!insertmacro ROWS_FUNCTIONS ""
!insertmacro ROWS_FUNCTIONS "un."

; The paths that are registered now, for what has to be restored.
Function ReadLibraries
  !insertmacro READ_FILE 64 "${FIRST_FILE_64}" $Library64
  !insertmacro READ_FILE 32 "${FIRST_FILE_32}" $Library32
FunctionEnd
