; Installs KELD section for one user, without rights of an administrator. package.sh says what VERSION, AUTHORS,
; COPYRIGHT, SIGN, STAGE, LISTS, ICON, KILOBYTES and OUTPUT are, and makes files.nsh.
;
; Nothing is overwritten or removed but what an installer of this program has put there: engines, documents and
; deployment.ini beside the program stay, and so do the folders of examples that the user has worked in, whole.
;   /S        asks nothing. Exit codes stand below
;   /FORCE    replaces a newer version without a question
;   /D=PATH   the folder; comes last, without quotation marks
Target amd64-unicode
Unicode true
ManifestLongPathAware true
ManifestDPIAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
CRCCheck force
AllowSkipFiles off

!include MUI2.nsh
!include LogicLib.nsh
!include WinVer.nsh
!include WordFunc.nsh
!include FileFunc.nsh
!include StrFunc.nsh
${Using:StrFunc} StrLoc
${Using:StrFunc} StrTrimNewLines
!include "${LISTS}/files.nsh"

!define NAME "KELD section"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"
!define CLASSES "Software\Classes"
!define FILE_TYPE "sbd.Document"
!define FILE_LIST "uninstall.lst"
!define RUNS_TWICE 2 ; exit codes of a silent installation: NSIS's own for one that was given up
!define OLD_WINDOWS 3
!define NEWER_STANDS 4

Name "${NAME}"
OutFile "${OUTPUT}"
!finalize '"${SIGN}" "%1"' = 0
!uninstfinalize '"${SIGN}" "%1"' = 0
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation
BrandingText "${NAME} ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1041 ProductName "${NAME}"
VIAddVersionKey /LANG=1041 FileDescription "${NAME} インストーラー"
VIAddVersionKey /LANG=1041 FileVersion "${VERSION}"
VIAddVersionKey /LANG=1041 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=1041 CompanyName "${AUTHORS}"
VIAddVersionKey /LANG=1041 LegalCopyright "${COPYRIGHT}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${LISTS}/welcome.bmp"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TITLE_3LINES
!define MUI_WELCOMEPAGE_TEXT "$(WelcomeText)"
!define MUI_FINISHPAGE_TITLE_3LINES
!define MUI_FINISHPAGE_RUN "$INSTDIR\sbdstation.exe"
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\README.ja.txt"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME_TEXT "$(ShowReadme)"
!define MUI_UNCONFIRMPAGE_TEXT_TOP "$(UninstallText)"
!define MUI_UNCONFIRMPAGE_TEXT_LOCATION "$(UninstallFrom)"
!insertmacro MUI_PAGE_WELCOME
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipWhenInstalled
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Japanese" ; the first one is what users of other languages get
!insertmacro MUI_LANGUAGE "English"

LangString WelcomeText ${LANG_JAPANESE} "${NAME} ${VERSION} を、この利用者のフォルダにインストールします。\
管理者の権限は要りません。$\r$\n$\r$\n\
すでにインストールされているときは、その場所のプログラムを新しい版に入れ替えます。プロジェクト、設定、回復用コピー、\
プログラムと同じフォルダに置いた計算プログラムは、そのまま残ります。$\r$\n$\r$\n\
始める前に、起動中の ${NAME} を終了してください。$\r$\n$\r$\n[次へ] を押すと続けます。"
LangString WelcomeText ${LANG_ENGLISH} "Installs ${NAME} ${VERSION} for this user. No administrator's rights are \
needed.$\r$\n$\r$\n\
A version that is installed already is replaced where it is. Projects, settings, recovery copies, and calculation \
programs beside the program stay as they are.$\r$\n$\r$\n\
Close ${NAME} before you begin.$\r$\n$\r$\nPress [Next] to continue."
LangString ShowReadme ${LANG_JAPANESE} "説明書（README.ja.txt）を開く"
LangString ShowReadme ${LANG_ENGLISH} "Open README.ja.txt (Japanese)"
LangString UninstallText ${LANG_JAPANESE} "${NAME} を取り除きます。プロジェクト、設定、回復用コピー、\
同じフォルダに置いた計算プログラムなど、インストーラーが入れたのではないファイルは残ります。"
LangString UninstallText ${LANG_ENGLISH} "Removes ${NAME}. Projects, settings, recovery copies, calculation programs \
and all other files that the installer has not brought stay."
LangString UninstallFrom ${LANG_JAPANESE} "場所:"
LangString UninstallFrom ${LANG_ENGLISH} "Folder:"
LangString Running ${LANG_JAPANESE} "$R7 が使用中です。$\r$\n$\r$\n\
${NAME} の入力内容を保存して終了してから、[再試行] を押してください。[キャンセル] を押すと、何も変えずに中止します。$\r$\n$\r$\n\
${NAME} を起動していないときは、ほかのプログラムがこのファイルを開いているか、書き込む権限がありません。"
LangString Running ${LANG_ENGLISH} "$R7 is in use.$\r$\n$\r$\n\
Save what is open in ${NAME}, close it, and press [Retry]. [Cancel] gives up and changes nothing.$\r$\n$\r$\n\
If ${NAME} is not running, another program holds this file open, or you may not write to it."
LangString AlreadyStarted ${LANG_JAPANESE} "${NAME} のインストーラーは、すでに起動しています。"
LangString AlreadyStarted ${LANG_ENGLISH} "The installer of ${NAME} is running already."
LangString WindowsTooOld ${LANG_JAPANESE} "${NAME} は Windows 10 以降で動きます。インストールは行いません。"
LangString WindowsTooOld ${LANG_ENGLISH} "${NAME} needs Windows 10 or newer. Nothing is installed."
LangString NewerStands ${LANG_JAPANESE} "新しい版の ${NAME} $R0 がインストールされています。$\r$\n$\r$\n\
古い版 ${VERSION} に入れ替えますか？ プロジェクトと設定はそのまま残りますが、新しい版で保存したプロジェクトの一部が、\
古い版では表示されないことがあります。$\r$\n$\r$\n[いいえ] を押すと、何も変えずに中止します。"
LangString NewerStands ${LANG_ENGLISH} "A newer version, ${NAME} $R0, is installed.$\r$\n$\r$\n\
Replace it by the older version ${VERSION}? Projects and settings stay, but parts of projects that the newer version \
has saved may not be shown by the older one.$\r$\n$\r$\n[No] gives up and changes nothing."
LangString FilesLeft ${LANG_JAPANESE} "${NAME} を取り除きました。$\r$\n$\r$\n\
次のフォルダには、インストーラーが入れたのではないファイルか、ファイルを書き換えたり加えたりした例題が残っています。\
そのような例題は、計算結果なども含めてフォルダごと残してあります。要らなければ、フォルダごと削除してください。$\r$\n$\r$\n$INSTDIR"
LangString FilesLeft ${LANG_ENGLISH} "${NAME} was removed.$\r$\n$\r$\n\
This folder still holds files that the installer has not brought, or examples in which you have changed or added \
files; those stay whole, results included. Delete it if you do not need them.$\r$\n$\r$\n$INSTDIR"

Var folder   ; the one that is worked on
Var listHigh ; time of the list of files in it, which is that of every file that came with it
Var listLow
Var newHigh  ; the same of the list that this installer brings
Var newLow

; FolderUnused, un.FolderUnused: waits until no program of $folder runs; gives up if the user wants it so.
!macro FolderUnused un
Function ${un}FolderUnused
  again:
    !insertmacro TestUnused "sbdstation.exe"
    !insertmacro TestUnused "sbdtool.exe"
    !insertmacro TestUnused "sbdpage.exe"
    Return
  busy:
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(Running)" /SD IDCANCEL IDRETRY again
    SetErrorLevel ${RUNS_TWICE}
    Abort
FunctionEnd
!macroend
; A program that runs cannot be opened for writing. Opening changes nothing.
!macro TestUnused program
  ${If} ${FileExists} "$folder\${program}"
    ClearErrors
    FileOpen $R6 "$folder\${program}" a
    ${If} ${Errors}
      StrCpy $R7 "$folder\${program}"
      Goto busy
    ${EndIf}
    FileClose $R6
  ${EndIf}
!macroend
!insertmacro FolderUnused ""
!insertmacro FolderUnused "un."

; ReadListTime, un.ReadListTime
!macro ReadListTime un
Function ${un}ReadListTime
  StrCpy $listHigh ""
  StrCpy $listLow ""
  ${If} ${FileExists} "$folder\${FILE_LIST}"
    GetFileTime "$folder\${FILE_LIST}" $listHigh $listLow
  ${EndIf}
FunctionEnd
!macroend
!insertmacro ReadListTime ""
!insertmacro ReadListTime "un."

; LookForChanges, un.LookForChanges: sets $R9 if the file $R8, or any file in the folder $R8 and below, is not as it came
; with the program. Asked for examples only: they are projects, which users change, save and calculate; and a project is
; worth little without its results and the files beside it.
!macro LookForChanges un
Function ${un}LookForChanges
  Push $R4
  Push $R5
  ${If} ${FileExists} "$R8\*.*"
    FindFirst $R4 $R5 "$R8\*.*"
    ${DoWhile} $R5 != ""
      ${If} $R5 != "."
      ${AndIf} $R5 != ".."
        Push $R8
        StrCpy $R8 "$R8\$R5"
        Call ${un}LookForChanges
        Pop $R8
      ${EndIf}
      FindNext $R4 $R5
    ${Loop}
    FindClose $R4
  ${ElseIf} ${FileExists} "$R8"
    GetFileTime "$R8" $R4 $R5
    ${If} "$R4:$R5" != "$listHigh:$listLow"
    ${AndIf} "$R4:$R5" != "$newHigh:$newLow" ; brought by an installation that was broken off
      StrCpy $R9 changed
    ${EndIf}
  ${EndIf}
  Pop $R5
  Pop $R4
  ClearErrors
FunctionEnd
!macroend
!insertmacro LookForChanges ""
!insertmacro LookForChanges "un."

; IfAsShipped UN EXAMPLE: an example is all that stands in one folder of examples, or a file beside these folders.
!macro IfAsShipped un example
  StrCpy $R9 ""
  StrCpy $R8 "${example}"
  Call ${un}LookForChanges
  ${If} $R9 == ""
!macroend
!macro InstallExample example source
  !insertmacro IfAsShipped "" "$INSTDIR\${example}"
    File "${STAGE}/${source}"
  ${EndIf}
!macroend
!macro RemoveExample example path
  !insertmacro IfAsShipped "un." "$INSTDIR\${example}"
    Delete "$INSTDIR\${path}"
  ${EndIf}
!macroend

; Removes what the list in $folder names and this version does not bring to $INSTDIR.
!macro TestShipped path
  ${If} $R1 == "${path}"
    StrCpy $R2 shipped
  ${EndIf}
!macroend
Function RemoveOldFiles
  ClearErrors
  FileOpen $R0 "$folder\${FILE_LIST}" r
  ${If} ${Errors}
    Return
  ${EndIf}
  ${Do}
    ClearErrors
    FileReadUTF16LE $R0 $R1
    ${If} ${Errors}
      ${ExitDo}
    ${EndIf}
    Call RemoveOldFile
  ${Loop}
  FileClose $R0
FunctionEnd
Function RemoveOldFile
  ${StrTrimNewLines} $R1 $R1
  ${StrLoc} $R2 $R1 ".." ">"
  ${StrLoc} $R3 $R1 ":" ">"
  ${If} $R1 == ""
  ${OrIf} "$R2$R3" != "" ; nothing outside the folder
    Return
  ${EndIf}
  StrCpy $R2 $R1 1 -1
  ${If} $R2 == "\"
    RMDir "$folder\$R1" ; stays if there is something in it
    Return
  ${EndIf}
  StrCpy $R2 ""
  ${If} $folder == $INSTDIR
    !insertmacro ForEachFile TestShipped
  ${EndIf}
  StrCpy $R3 $R1 9
  ${If} $R2 == shipped
    Return
  ${ElseIf} $R3 == "examples\"
    ${WordFind} "$R1" "\" "+2" $R2
    !insertmacro IfAsShipped "" "$folder\examples\$R2"
    ${Else}
      Return
    ${EndIf}
  ${EndIf}
  Delete "$folder\$R1"
FunctionEnd

; A value that another program may have set before, or sets later: what stood there is kept, and given back if the value
; is still ours then.
!macro TakeDefault key value slot
  ReadRegStr $R0 HKCU "${CLASSES}\${key}" ""
  ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" "Own${slot}"
  ${If} $R0 != $R1
    WriteRegStr HKCU "${UNINSTALL_KEY}" "Previous${slot}" "$R0"
  ${EndIf}
  WriteRegStr HKCU "${CLASSES}\${key}" "" '${value}'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Own${slot}" '${value}'
!macroend
!macro GiveBackDefault key slot
  ReadRegStr $R0 HKCU "${CLASSES}\${key}" ""
  ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" "Own${slot}"
  ReadRegStr $R2 HKCU "${UNINSTALL_KEY}" "Previous${slot}"
  ${If} $R0 == $R1
    ${If} $R2 == ""
      DeleteRegValue HKCU "${CLASSES}\${key}" ""
    ${Else}
      WriteRegStr HKCU "${CLASSES}\${key}" "" "$R2"
    ${EndIf}
  ${EndIf}
  DeleteRegKey /ifempty HKCU "${CLASSES}\${key}"
!macroend
!macro TellShell
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)' ; SHCNE_ASSOCCHANGED
!macroend

Function .onInit
  System::Call 'kernel32::CreateMutex(p 0, i 0, t "${NAME} setup") p .R0 ?e'
  Pop $R1
  ${If} $R1 = 183 ; ERROR_ALREADY_EXISTS
    MessageBox MB_OK|MB_ICONINFORMATION "$(AlreadyStarted)" /SD IDOK
    SetErrorLevel ${RUNS_TWICE}
    Quit
  ${EndIf}
  ${IfNot} ${AtLeastWin10}
    MessageBox MB_OK|MB_ICONSTOP "$(WindowsTooOld)" /SD IDOK
    SetErrorLevel ${OLD_WINDOWS}
    Quit
  ${EndIf}
  ReadRegStr $R0 HKCU "${UNINSTALL_KEY}" DisplayVersion
  ReadRegStr $R1 HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $R0 != ""
  ${AndIf} ${FileExists} "$R1\sbdstation.exe"
    ${VersionCompare} "$R0" "${VERSION}" $R1
    ${GetParameters} $R2
    ClearErrors
    ${GetOptions} $R2 "/FORCE" $R3
    ${If} ${Errors} ; not given
    ${AndIf} $R1 == 1 ; the one that stands there is newer
      MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(NewerStands)" /SD IDNO IDYES replace
      SetErrorLevel ${NEWER_STANDS}
      Quit
      replace:
    ${EndIf}
  ${EndIf}
FunctionEnd

; A new version goes where the old one is.
Function SkipWhenInstalled
  ReadRegStr $R0 HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $R0 == $INSTDIR
  ${AndIf} ${FileExists} "$INSTDIR\sbdstation.exe"
    Abort
  ${EndIf}
FunctionEnd

Section
  Var /GLOBAL before ; where the program stood until now
  ReadRegStr $before HKCU "${UNINSTALL_KEY}" InstallLocation
  ${If} $before != ""
    StrCpy $folder $before
    Call FolderUnused
  ${EndIf}
  StrCpy $folder $INSTDIR
  Call FolderUnused

  ; The new list comes last: what is broken off is done again by the next start.
  Call ReadListTime
  InitPluginsDir
  File "/oname=$PLUGINSDIR\${FILE_LIST}" "${LISTS}/${FILE_LIST}"
  GetFileTime "$PLUGINSDIR\${FILE_LIST}" $newHigh $newLow
  !insertmacro InstallFiles
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  Call RemoveOldFiles
  File "${LISTS}/${FILE_LIST}"

  ${If} $before != ""
  ${AndIf} $before != $INSTDIR
    StrCpy $folder $before
    Call ReadListTime
    Call RemoveOldFiles
    Delete "$before\uninstall.exe"
    Delete "$before\${FILE_LIST}"
    RMDir "$before"
  ${EndIf}

  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "${NAME}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon '"$INSTDIR\sbdstation.exe",0'
  WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "${AUTHORS}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1

  !insertmacro TakeDefault ".sbd" "${FILE_TYPE}" Type
  !insertmacro TakeDefault "${FILE_TYPE}" "sbd Document" Name
  !insertmacro TakeDefault "${FILE_TYPE}\DefaultIcon" '"$INSTDIR\sbdstation.exe",1' Icon
  !insertmacro TakeDefault "${FILE_TYPE}\shell\open\command" '"$INSTDIR\sbdstation.exe" "%1"' Command
  WriteRegNone HKCU "${CLASSES}\.sbd\OpenWithProgids" "${FILE_TYPE}"
  !insertmacro TellShell

  SetOutPath "$DOCUMENTS" ; where the program starts, and offers to save
  CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\sbdstation.exe"
SectionEnd

Section Uninstall
  StrCpy $folder $INSTDIR
  Call un.FolderUnused
  Call un.ReadListTime
  !insertmacro RemoveFiles
  Delete "$INSTDIR\${FILE_LIST}"
  Delete "$INSTDIR\uninstall.exe"
  SetOutPath "$TEMP" ; a folder somebody stands in cannot be removed
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${NAME}.lnk"

  !insertmacro GiveBackDefault "${FILE_TYPE}\shell\open\command" Command
  DeleteRegKey /ifempty HKCU "${CLASSES}\${FILE_TYPE}\shell\open"
  DeleteRegKey /ifempty HKCU "${CLASSES}\${FILE_TYPE}\shell"
  !insertmacro GiveBackDefault "${FILE_TYPE}\DefaultIcon" Icon
  !insertmacro GiveBackDefault "${FILE_TYPE}" Name
  ReadRegStr $R0 HKCU "${CLASSES}\${FILE_TYPE}\shell\open\command" ""
  ${If} $R0 == ""
    DeleteRegValue HKCU "${CLASSES}\.sbd\OpenWithProgids" "${FILE_TYPE}"
    DeleteRegKey /ifempty HKCU "${CLASSES}\.sbd\OpenWithProgids"
  ${EndIf}
  !insertmacro GiveBackDefault ".sbd" Type
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  !insertmacro TellShell

  ${If} ${FileExists} "$INSTDIR\*.*"
    MessageBox MB_OK|MB_ICONINFORMATION "$(FilesLeft)" /SD IDOK
  ${EndIf}
SectionEnd
