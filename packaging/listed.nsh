; The files of an installation, by the list that lies in its folder: paths, and folders with a
; backslash at their end after what they hold.

!define LIST "CorvidAPI-files.txt"
!define UNINSTALLER "uninstall.exe"

Var Folder  ; which installation
Var Keep    ; where settings of hosts that ran in the folder go; empty: they stay
Var Busy    ; a file that is in use
Var Place   ; one line of the list

!macro FOR_EACH_LISTED
  ClearErrors
  FileOpen $R3 "$Folder\${LIST}" r
  ${IfNot} ${Errors}
    ${Do}
      ClearErrors
      FileRead $R3 $Place
      ${If} ${Errors}
        ${Break}
      ${EndIf}
      ${TrimNewLines} "$Place" $Place
!macroend
!macro NEXT_LISTED
    ${Loop}
    FileClose $R3
  ${EndIf}
  ClearErrors
!macroend

; A library or program that runs cannot be opened for writing.
!macro FIND_BUSY
  StrCpy $R4 $Place "" -4
  ${If} $R4 == ".dll"
  ${OrIf} $R4 == ".exe"
    ${If} ${FileExists} "$Folder\$Place"
      ClearErrors
      FileOpen $R4 "$Folder\$Place" a
      ${If} ${Errors}
        StrCpy $Busy "$Folder\$Place"
      ${Else}
        FileClose $R4
      ${EndIf}
    ${EndIf}
  ${EndIf}
!macroend

; The settings file of a host whose current folder is one of the package's own.
!macro KEEP_SETTINGS
  StrCpy $R4 "ORV.ini"
  ${If} $Keep != ""
  ${AndIf} ${FileExists} "$Folder\$Place$R4"
    CreateDirectory "$Keep\$Place"
    Rename "$Folder\$Place$R4" "$Keep\$Place$R4"
  ${EndIf}
!macroend

!macro REMOVE_PLACE
  StrCpy $R4 $Place 1 -1
  ${If} $R4 == "\"
    !insertmacro KEEP_SETTINGS
    RMDir "$Folder\$Place"
  ${Else}
    Delete /REBOOTOK "$Folder\$Place"
  ${EndIf}
!macroend

!macro LISTED_FUNCTIONS UN
; Sets $Busy to a file of $Folder that is in use, or to nothing.
Function ${UN}FindBusy
  StrCpy $Busy ""
  !insertmacro FOR_EACH_LISTED
    !insertmacro FIND_BUSY
  !insertmacro NEXT_LISTED
FunctionEnd

; Removes what was installed in $Folder, and the folder when nothing else is in it.
Function ${UN}RemoveListed
  !insertmacro FOR_EACH_LISTED
    !insertmacro REMOVE_PLACE
  !insertmacro NEXT_LISTED
  StrCpy $Place ""
  !insertmacro KEEP_SETTINGS
  Delete /REBOOTOK "$Folder\${UNINSTALLER}"
  Delete "$Folder\${LIST}"
  RMDir "$Folder"
FunctionEnd
!macroend
!insertmacro LISTED_FUNCTIONS ""
!insertmacro LISTED_FUNCTIONS "un."
