; The installer: x86 stub, so that it runs on every Windows. scripts/package defines VERSION, STAGE
; (the folder with the files), OUTPUT and SIZE (KB). Each version goes to a folder of its own below
; $Root; registration is what makes it the one in use.
Unicode true
!include LogicLib.nsh
!include MUI2.nsh
!include nsDialogs.nsh
!include FileFunc.nsh
!include TextFunc.nsh
!include WordFunc.nsh
!include x64.nsh

Name "CorvidAPI"
OutFile "${OUTPUT}"
RequestExecutionLevel highest
SetCompressor lzma
CRCCheck force
ShowInstDetails hide
ShowUninstDetails hide
ManifestDPIAware true
ManifestSupportedOS all
BrandingText "CorvidAPI ${VERSION}"
!ifdef SIGN
  !uninstfinalize '${SIGN}'
!endif

!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\CorvidAPI"
!define MSI_MARK "Software\CorvidAPI"

Var Root     ; what the user chose; $INSTDIR on its page
Var Given    ; the folder of /D=
Var Stage    ; the new folder
Var Old      ; the folder in use until now, or nothing
Var Users    ; AllUsers or CurrentUser
Var Chosen   ; nonempty: the command line chose the users
Var Version  ; the one in use until now
Var Shown    ; the version that the entry names
Var Log      ; the file of /LOG=
Var Code     ; of the failure
Var Words    ; of the failure
Var Old64
Var Old32
Var AllButton
Var CurrentButton

!define MUI_ABORTWARNING
!define MUI_UNABORTWARNING
; A blank, which the other pages add to the title as well.
Page custom ShowUsers LeaveUsers " "
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_NOAUTOCLOSE
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "$(OpenFolder)"
!define MUI_FINISHPAGE_RUN_FUNCTION OpenStage
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!include "texts.nsh"
!include "listed.nsh"
!include "rows.nsh"
!include "files_generated.nsh"

VIProductVersion "${VERSION}.0"
!macro VERSION_TEXTS LANGUAGE DESCRIPTION
  VIAddVersionKey /LANG=${LANGUAGE} "ProductName" "CorvidAPI"
  VIAddVersionKey /LANG=${LANGUAGE} "CompanyName" "The CorvidAPI developers"
  VIAddVersionKey /LANG=${LANGUAGE} "LegalCopyright" "Copyright (C) The CorvidAPI developers"
  VIAddVersionKey /LANG=${LANGUAGE} "FileDescription" "${DESCRIPTION}"
  VIAddVersionKey /LANG=${LANGUAGE} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} "ProductVersion" "${VERSION}"
!macroend
!insertmacro VERSION_TEXTS ${LANG_SPANISH} "Instalador de CorvidAPI"
!insertmacro VERSION_TEXTS ${LANG_ENGLISH} "Setup of CorvidAPI"

; Exit codes are the system's error numbers.
!macro FAIL CODE WORDS
  StrCpy $Code ${CODE}
  StrCpy $Words "${WORDS}"
  Call ${UN}Fail
!macroend

!macro COMMON_FUNCTIONS UNINSTALLER_PREFIX
!define UN "${UNINSTALLER_PREFIX}"
Function ${UN}Report
  ${If} $Log != ""
    FileOpen $R9 $Log w
    FileWriteUTF16LE /BOM $R9 "$Code $Words$\r$\n"
    FileClose $R9
  ${EndIf}
FunctionEnd

Function ${UN}Fail
  Call ${UN}Report
  MessageBox MB_OK|MB_ICONSTOP "$Words" /SD IDOK
  SetErrorLevel $Code
  Quit
FunctionEnd

Function ${UN}ReadOptions
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/LOG=" $Log
  ClearErrors
FunctionEnd

; The system frees it when this process ends. Where another user holds it, access is denied.
Function ${UN}TakeTurn
  System::Call 'kernel32::CreateMutexW(p 0, i 1, w "Global\CorvidAPI-setup") p .r0 ?e'
  Pop $1
  ${If} $0 = 0
  ${OrIf} $1 = 183
    !insertmacro FAIL 1618 "$(Running)"
  ${EndIf}
FunctionEnd

Function ${UN}TakeUsers
  SetRegView 64
  ${If} $Users == "AllUsers"
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
FunctionEnd

Function ${UN}CheckRights
  UserInfo::GetAccountType
  Pop $0
  ${If} $Users == "AllUsers"
  ${AndIf} $0 != "Admin"
    !insertmacro FAIL 5 "$(NoRights)"
  ${EndIf}
FunctionEnd

Function ${UN}CheckBusy
  Call ${UN}FindBusy
  ${If} $Busy != ""
    !insertmacro FAIL 32 "$(InUse)"
  ${EndIf}
FunctionEnd
!undef UN
!macroend
!insertmacro COMMON_FUNCTIONS ""
!insertmacro COMMON_FUNCTIONS "un."
!define UN ""

; ---- which users, which folder

Function .onInit
  StrCpy $Given $INSTDIR
  Call ReadOptions
  Call TakeTurn
  Call ChooseUsers
  Call CheckRights
  Call TakeUsers
  Call ChooseRoot
FunctionEnd

; The command line chooses; otherwise an installation that is there; otherwise rights do.
Function ChooseUsers
  ${GetParameters} $R0
  ClearErrors
  ${GetOptions} $R0 "/CurrentUser" $R1
  ${IfNot} ${Errors}
    StrCpy $Users CurrentUser
    StrCpy $Chosen 1
  ${EndIf}
  ClearErrors
  ${GetOptions} $R0 "/AllUsers" $R1
  ${IfNot} ${Errors}
    StrCpy $Users AllUsers
    StrCpy $Chosen 1
  ${EndIf}
  ${If} $Users == ""
    Call ProposeUsers
  ${EndIf}
FunctionEnd

Function ProposeUsers
  UserInfo::GetAccountType
  Pop $0
  SetRegView 64
  ReadRegStr $1 HKLM "${ENTRY}" "InstallLocation"
  ReadRegStr $2 HKCU "${ENTRY}" "InstallLocation"
  StrCpy $Users CurrentUser
  ${If} $0 == "Admin"
    ${If} $1 != ""
    ${OrIf} $2 == ""
      StrCpy $Users AllUsers
    ${EndIf}
  ${EndIf}
FunctionEnd

Function ChooseRoot
  ReadRegStr $Old SHCTX "${ENTRY}" "InstallLocation"
  ReadRegStr $Version SHCTX "${ENTRY}" "DisplayVersion"
  ${If} $Given != ""
    StrCpy $INSTDIR $Given
  ${ElseIf} $Old != ""
    ${GetParent} $Old $INSTDIR
  ${ElseIf} $Users == "CurrentUser"
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\CorvidAPI"
  ${ElseIf} ${RunningX64}
    StrCpy $INSTDIR "$PROGRAMFILES64\CorvidAPI"
  ${Else}
    StrCpy $INSTDIR "$PROGRAMFILES32\CorvidAPI"
  ${EndIf}
FunctionEnd

Function ShowUsers
  UserInfo::GetAccountType
  Pop $0
  ${If} $Chosen != ""
  ${OrIf} $0 != "Admin"
    Abort
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "$(UsersTitle)" "$(UsersSubtitle)"
  nsDialogs::Create 1018
  Pop $0
  ${NSD_CreateRadioButton} 0 10u 100% 12u "$(UsersAll)"
  Pop $AllButton
  ${NSD_CreateRadioButton} 0 28u 100% 12u "$(UsersCurrent)"
  Pop $CurrentButton
  ${NSD_CreateLabel} 0 52u 100% 30u "$(UsersNote)"
  Pop $0
  ${If} $Users == "AllUsers"
    ${NSD_Check} $AllButton
  ${Else}
    ${NSD_Check} $CurrentButton
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function LeaveUsers
  ${NSD_GetState} $AllButton $0
  StrCpy $Users CurrentUser
  ${If} $0 = ${BST_CHECKED}
    StrCpy $Users AllUsers
  ${EndIf}
  Call TakeUsers
  Call ChooseRoot
FunctionEnd

; ---- before anything is written

; By its long name, so that one folder has one spelling.
Function NameRoot
  StrCpy $Root $INSTDIR
  System::Call 'kernel32::GetLongPathNameW(w "$INSTDIR", w .r0, i ${NSIS_MAX_STRLEN}) i .r1'
  ${If} $1 <> 0
    StrCpy $Root $0
  ${EndIf}
FunctionEnd

Function CheckVersion
  ${If} $Version != ""
    ${VersionCompare} "$Version" "${VERSION}" $0
    ${If} $0 = 1
      !insertmacro FAIL 1638 "$(Newer)"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function CheckMsi
  SetRegView 64
  ReadRegStr $0 HKLM "${MSI_MARK}" "Msi"
  ${If} $0 != ""
  ${AndIf} $Users == "AllUsers"
    !insertmacro FAIL 1638 "$(ByMsi)"
  ${EndIf}
FunctionEnd

Function CheckOldFiles
  ${If} $Old != ""
    StrCpy $Folder $Old
    Call CheckBusy
  ${EndIf}
FunctionEnd

; Folders that a run left which was cut off, or whose files were in use until now.
Function RemoveLeftovers
  StrCpy $Keep ""
  SetRegView 64
  ReadRegStr $R5 HKLM "${ENTRY}" "InstallLocation"
  ReadRegStr $R6 HKCU "${ENTRY}" "InstallLocation"
  FindFirst $R7 $R8 "$Root\*"
  ${DoWhile} $R8 != ""
    StrCpy $Folder "$Root\$R8"
    ${If} $R8 != "."
    ${AndIf} $R8 != ".."
    ${AndIf} ${FileExists} "$Folder\${LIST}"
    ${AndIf} $Folder != $R5
    ${AndIf} $Folder != $R6
      Call RemoveListed
    ${EndIf}
    FindNext $R7 $R8
  ${Loop}
  FindClose $R7
FunctionEnd

; ---- the stage

Function RemoveStage
  SetOutPath $TEMP
  StrCpy $Keep ""
  StrCpy $Folder $Stage
  Call RemoveListed
  RMDir $Root
FunctionEnd

Function MakeStage
  StrCpy $Stage "$Root\${VERSION}"
  StrCpy $0 1
  ${DoWhile} ${FileExists} "$Stage"
    IntOp $0 $0 + 1
    StrCpy $Stage "$Root\${VERSION}-$0"
  ${Loop}
  ClearErrors
  CreateDirectory $Stage
  ${If} ${Errors}
    RMDir $Root
    !insertmacro FAIL 5 "$(NotWritten)"
  ${EndIf}
FunctionEnd

; By the folder itself: another disk may be mounted there.
Function CheckRoom
  System::Call 'kernel32::GetDiskFreeSpaceExW(w "$Stage", *l .r0, p 0, p 0) i .r1'
  System::Int64Op $0 / 1024
  Pop $0
  System::Int64Op $0 < ${SIZE}
  Pop $0
  ${If} $1 <> 0
  ${AndIf} $0 <> 0
    Call RemoveStage
    !insertmacro FAIL 112 "$(NoRoom)"
  ${EndIf}
FunctionEnd

Function WriteStage
  SetOverwrite try
  ClearErrors
  !insertmacro STAGE_FILES
  WriteUninstaller "$Stage\${UNINSTALLER}"
  SetOutPath $TEMP
  ${If} ${Errors}
    Call RemoveStage
    !insertmacro FAIL 29 "$(NotWritten)"
  ${EndIf}
FunctionEnd

; The system stops the run where a file can be made but not filled.
Function .onInstFailed
  Call RemoveStage
  StrCpy $Code 29
  StrCpy $Words "$(NotWritten)"
  Call Report
  SetErrorLevel $Code
FunctionEnd

; ---- registration

Function NameNewLibraries
  StrCpy $Library64 ""
  ${If} ${RunningX64}
    StrCpy $Library64 "$Stage\x64\CorvidAPI.dll"
  ${EndIf}
  StrCpy $Library32 "$Stage\x86\CorvidAPI.dll"
FunctionEnd

; What was registered before, by this installer or by hand, is registered again.
Function GiveUpRegistration
  Call NameNewLibraries
  Call TakeRows
  StrCpy $Library64 $Old64
  StrCpy $Library32 $Old32
  Call WriteRows
  Call RemoveStage
  !insertmacro FAIL 1013 "$(NotRegistered)"
FunctionEnd

Function RestoreEntry
  ${If} $Old == ""
    SetRegView 64
    DeleteRegKey SHCTX "${ENTRY}"
  ${Else}
    StrCpy $Folder $Old
    StrCpy $Shown $Version
    Call WriteEntry
  ${EndIf}
FunctionEnd

Function RegisterStage
  Call ReadLibraries
  StrCpy $Old64 $Library64
  StrCpy $Old32 $Library32
  Call NameNewLibraries
  ClearErrors
  Call WriteRows
  ${If} ${Errors}
    Call GiveUpRegistration
  ${EndIf}
  StrCpy $Folder $Stage
  StrCpy $Shown "${VERSION}"
  Call WriteEntry
  ${If} ${Errors}
    Call RestoreEntry
    Call GiveUpRegistration
  ${EndIf}
FunctionEnd

!macro ENTRY_TEXT NAME TEXT
  WriteRegStr SHCTX "${ENTRY}" "${NAME}" `${TEXT}`
!macroend

; For the installation in $Folder, of the version $Shown. The folder comes last: it is what names the
; installation in use.
Function WriteEntry
  SetRegView 64
  !insertmacro ENTRY_TEXT "DisplayName" "CorvidAPI"
  !insertmacro ENTRY_TEXT "Publisher" "The CorvidAPI developers"
  !insertmacro ENTRY_TEXT "DisplayIcon" "$Folder\${UNINSTALLER}"
  WriteRegDWORD SHCTX "${ENTRY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD SHCTX "${ENTRY}" "NoModify" 1
  WriteRegDWORD SHCTX "${ENTRY}" "NoRepair" 1
  !insertmacro ENTRY_TEXT "UninstallString" '"$Folder\${UNINSTALLER}"'
  !insertmacro ENTRY_TEXT "QuietUninstallString" '"$Folder\${UNINSTALLER}" /S'
  !insertmacro ENTRY_TEXT "DisplayVersion" "$Shown"
  !insertmacro ENTRY_TEXT "InstallLocation" "$Folder"
FunctionEnd

Section
  AddSize ${SIZE}
  Call NameRoot
  Call CheckMsi
  Call CheckVersion
  Call CheckOldFiles
  Call RemoveLeftovers
  Call MakeStage
  Call CheckRoom
  Call WriteStage
  Call RegisterStage
  CreateShortcut "$SMPROGRAMS\CorvidAPI.lnk" "$Stage"
  ${If} $Old != ""
    StrCpy $Keep $Stage
    StrCpy $Folder $Old
    Call RemoveListed
    ${GetParent} $Old $0
    RMDir $0
  ${EndIf}
  StrCpy $Code 0
  StrCpy $Words "$(Done)"
  Call Report
SectionEnd

Function OpenStage
  ExecShell open $Stage
FunctionEnd

; ---- removal

!undef UN
!define UN "un."

Function un.onInit
  Call un.ReadOptions
  Call un.TakeTurn
  SetRegView 64
  ReadRegStr $0 HKCU "${ENTRY}" "InstallLocation"
  StrCpy $Users AllUsers
  ${If} $0 == $INSTDIR
    StrCpy $Users CurrentUser
  ${EndIf}
  Call un.CheckRights
  Call un.TakeUsers
FunctionEnd

Section un.CorvidAPI
  SetOutPath $TEMP
  StrCpy $Folder $INSTDIR
  Call un.CheckBusy
  StrCpy $Library64 "$INSTDIR\x64\CorvidAPI.dll"
  StrCpy $Library32 "$INSTDIR\x86\CorvidAPI.dll"
  Call un.TakeRows
  SetRegView 64
  ReadRegStr $0 SHCTX "${ENTRY}" "InstallLocation"
  ${If} $0 == $INSTDIR
    DeleteRegKey SHCTX "${ENTRY}"
    Delete "$SMPROGRAMS\CorvidAPI.lnk"
  ${EndIf}
  Call un.RemoveListed
  ${GetParent} $INSTDIR $0
  RMDir $0
  StrCpy $Code 0
  StrCpy $Words "$(Done)"
  Call un.Report
SectionEnd
