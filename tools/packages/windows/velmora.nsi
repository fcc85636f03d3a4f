; The installer for Windows. tools/packages/windows.sh compiles it and gives
;   VERSION, OUTPUT (the installer), ROOT (the project), SIZE (of what is installed, in KB),
;   FILES (what is installed), PARTS (made for the installer: lists of files, pictures, programs).
;
; Silent:  velmora-VERSION-win64.exe /S [/AUTOSTART=1|0] [/WAIT=SECONDS] [/D=FOLDER]
;          uninstall.exe /S [/SETTINGS] [/WAIT=SECONDS] [_?=FOLDER]
; Status:  0 done; 1 cancelled; 2 something could not be written; 3 Velmora runs and didn't close,
;          nothing has changed; 4 installed, but the installation in another folder, which it
;          replaces, couldn't be removed. An uninstaller without _?= works in a copy of itself and
;          gives 0.

Target amd64-unicode
ManifestDPIAware true
ManifestSupportedOS all
SetCompressor /SOLID lzma
RequestExecutionLevel admin
AllowSkipFiles off
Name "Velmora"
OutFile "${OUTPUT}"
BrandingText "Velmora ${VERSION}"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Velmora"
VIAddVersionKey "FileDescription" "Velmora disk space watch, installer"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "The Velmora developers"

!include MUI2.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include Sections.nsh

!define APPS_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Velmora"
; The same key and value that the program's "Run on Start Up" writes.
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define RUN_VALUE "Velmora"
!define MENU "$SMPROGRAMS\Velmora"
!define NOT_WRITTEN 2
!define STILL_RUNNING 3
!define FORMER_STAYS 4

Var wait      ; how long a silent run waits for a running program, in seconds
Var former    ; the folder of an installation that is there already, or nothing
Var same      ; whether two files or folders are the same

!define MUI_ICON "${ROOT}\dist\icons\velmora.ico"
!define MUI_UNICON "${ROOT}\dist\icons\velmora.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${PARTS}\welcome.bmp"
!define MUI_HEADERIMAGE
!define MUI_HEADERIMAGE_RIGHT
!define MUI_HEADERIMAGE_BITMAP "${PARTS}\header.bmp"
!define MUI_HEADERIMAGE_UNBITMAP "${PARTS}\header.bmp"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC

!define MUI_WELCOMEPAGE_TITLE "Velmora ${VERSION}"
!define MUI_WELCOMEPAGE_TEXT "Velmora watches the free space of drives, shares and folders, and acts before a disk is full.$\r$\n$\r$\nIt is installed for all users of this computer. Each user has settings and a log of their own; those of an earlier installation are kept.$\r$\n$\r$\nClick Next to continue."
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "Start Velmora"
!define MUI_FINISHPAGE_RUN_FUNCTION startAsUser
!define MUI_FINISHPAGE_TEXT "Velmora is installed. The Start menu has its window, and its console for scripts and remote sessions.$\r$\n$\r$\nClick Finish to close Setup."
!insertmacro MUI_PAGE_FINISH

!insertmacro MUI_UNPAGE_CONFIRM
!define MUI_PAGE_CUSTOMFUNCTION_SHOW un.hideSpace
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; What installer and uninstaller share. `un` is "un." in the latter.
!macro SHARED_FUNCTIONS un

; Asks running programs of the folder $0 to close. When one doesn't, everything ends unchanged.
Function ${un}closePrograms
    InitPluginsDir
    File "/oname=$PLUGINSDIR\velmora-close.exe" "${PARTS}\velmora-close.exe"
    DetailPrint "Looking whether Velmora runs"
    SetDetailsPrint none
    ExecWait '"$PLUGINSDIR\velmora-close.exe" "$0"' $1
    SetDetailsPrint lastused
    ${If} $1 == 0
        Return
    ${EndIf}
    ${If} ${Silent}
        ExecWait '"$PLUGINSDIR\velmora-close.exe" "$0" $wait' $1
    ${Else}
        ; As often as the person likes.
        ${Do}
            MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Velmora is running.$\r$\n$\r$\nRetry asks it to close; please answer its question. End a console with its command exit. Another user of this computer may have it open, too.$\r$\n$\r$\nCancel leaves everything as it is." IDRETRY ask${un}
            ${ExitDo}
            ask${un}:
            DetailPrint "Waiting for Velmora to close"
            SetDetailsPrint none
            ExecWait '"$PLUGINSDIR\velmora-close.exe" "$0" 20' $1
            SetDetailsPrint lastused
        ${LoopUntil} $1 == 0
    ${EndIf}
    ${If} $1 != 0
        SetErrorLevel ${STILL_RUNNING}
        Abort "Velmora is running, and nothing was changed."
    ${EndIf}
FunctionEnd

; Sets $0 to the start with the system, and $1 to "yes" when it starts a program of the folder $2.
Function ${un}readAutostart
    StrCpy $1 "no"
    ReadRegStr $0 HKLM "${RUN_KEY}" "${RUN_VALUE}"
    ; The program writes its path without quotes.
    StrCpy $3 $0 1
    ${If} $3 == '"'
        StrCpy $3 $0 "" 1
    ${Else}
        StrCpy $3 $0
    ${EndIf}
    StrLen $4 "$2\velmora"
    StrCpy $3 $3 $4
    ${If} $3 == "$2\velmora"
        StrCpy $1 "yes"
    ${EndIf}
FunctionEnd

; A folder that was told may end in a back-slash. So does the uninstaller's.
Function ${un}trimFolder
    StrCpy $0 $INSTDIR 1 -1
    ${If} $0 == "\"
        StrCpy $INSTDIR $INSTDIR -1
    ${EndIf}
FunctionEnd

; The seconds of /WAIT, at most 3600.
Function ${un}readWait
    StrCpy $wait 30
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/WAIT=" $1
    ${Unless} ${Errors}
        IntOp $wait $1 + 0
        ${If} $wait > 3600
            StrCpy $wait 3600
        ${ElseIf} $wait < 0
            StrCpy $wait 0
        ${EndIf}
    ${EndUnless}
FunctionEnd

!macroend
!insertmacro SHARED_FUNCTIONS ""
!insertmacro SHARED_FUNCTIONS "un."

; The installer

; Started by the desktop, not by the installer, which has an administrator's rights.
Function startAsUser
    Exec '"$WINDIR\explorer.exe" "${MENU}\Velmora.lnk"'
FunctionEnd

; Files of the former version that this one doesn't have any more. Its list names them; a name that
; leads out of the folder isn't one of ours.
Function removeOldFiles
    ClearErrors
    FileOpen $0 "$PLUGINSDIR\former.installed" r
    ${If} ${Errors}
        Return
    ${EndIf}
    ${Do}
        ClearErrors
        FileRead $0 $1
        ${If} ${Errors}
            ${ExitDo}
        ${EndIf}
        Call removeWhenOld
    ${Loop}
    FileClose $0
FunctionEnd

; The file of the line $1, when the new list hasn't the same line.
Function removeWhenOld
    Push $1
    Call trimLine
    Pop $2
    ${If} $2 == ""
        Return
    ${EndIf}
    StrCpy $3 0
    ${Do}
        StrCpy $4 $2 1 $3
        ${If} $4 == ""
            ${ExitDo}
        ${EndIf}
        StrCpy $5 $2 2 $3
        ${If} $4 == ":"
        ${OrIf} $5 == ".."
        ${OrIf} $4 == "*"
        ${OrIf} $4 == "?"
            Return
        ${EndIf}
        IntOp $3 $3 + 1
    ${Loop}
    FileOpen $6 "$INSTDIR\velmora.installed" r
    ${Do}
        ClearErrors
        FileRead $6 $7
        ${If} ${Errors}
            ${ExitDo}
        ${EndIf}
        ${If} $7 == $1
            FileClose $6
            Return
        ${EndIf}
    ${Loop}
    FileClose $6
    Delete "$INSTDIR\$2"
FunctionEnd

; Takes the end of line off the text on the stack.
Function trimLine
    Exch $R0
    ${Do}
        StrCpy $R1 $R0 1 -1
        ${If} $R1 != "$\r"
        ${AndIf} $R1 != "$\n"
            ${ExitDo}
        ${EndIf}
        StrCpy $R0 $R0 -1
    ${Loop}
    Exch $R0
FunctionEnd

; Two paths can lead to one folder, by a link or a mapped drive: a file laid by the one is seen by the
; other, and gone with it. Then the installation stays where it is known to be.
Function knowFormerFolder
    ${If} $former == ""
    ${OrIf} $former == $INSTDIR
    ${OrIfNot} ${FileExists} "$former\*.*"
    ${OrIfNot} ${FileExists} "$INSTDIR\*.*"
        Return
    ${EndIf}
    ClearErrors
    GetTempFileName $0 $INSTDIR
    ${If} ${Errors}
        SetErrorLevel ${NOT_WRITTEN}
        Abort "Nothing can be written into $INSTDIR, and nothing was changed."
    ${EndIf}
    ${GetFileName} $0 $1
    StrCpy $same "no"
    ${If} ${FileExists} "$former\$1"
        StrCpy $same "yes"
    ${EndIf}
    Delete $0
    ${If} $same == "yes"
    ${AndIfNot} ${FileExists} "$former\$1"
        StrCpy $INSTDIR $former
        StrCpy $former ""
    ${EndIf}
FunctionEnd

; The installation in the folder $former. One that can't be removed keeps its uninstaller, so that
; it can be removed later.
Function removeFormer
    ${IfNot} ${FileExists} "$former\uninstall.exe"
        Return
    ${EndIf}
    ClearErrors
    ExecWait '"$former\uninstall.exe" /S _?=$former' $0
    ${IfNot} ${Errors}
    ${AndIf} $0 == 0
        Delete "$former\uninstall.exe"
        RMDir "$former"
        Return
    ${EndIf}
    SetErrorLevel ${FORMER_STAYS}
    DetailPrint "Not removed: $former"
    MessageBox MB_OK|MB_ICONEXCLAMATION "Velmora is installed in $INSTDIR, but the earlier installation couldn't be removed from $former.$\r$\n$\r$\nOnce Velmora is closed there, $former\uninstall.exe removes it." /SD IDOK
FunctionEnd

Section "Velmora" sectionProgram
    SectionIn RO
    SetShellVarContext all
    Call knowFormerFolder
    StrCpy $0 $INSTDIR
    Call closePrograms
    ${If} $former != ""
    ${AndIf} $former != $INSTDIR
        ; One installation has the place in "Apps": it moves.
        StrCpy $0 $former
        Call closePrograms
    ${EndIf}

    ClearErrors
    CopyFiles /SILENT "$INSTDIR\velmora.installed" "$PLUGINSDIR\former.installed"
    !include "${PARTS}\lay.nsh"
    SetOutPath "$INSTDIR"
    ; Settings that are there already are somebody's.
    SetOverwrite off
    File "${FILES}\set.dat"
    SetOverwrite on
    File "${PARTS}\velmora.installed"
    Call removeOldFiles
    WriteUninstaller "$INSTDIR\uninstall.exe"

    ${If} $former != ""
    ${AndIf} $former != $INSTDIR
        Call removeFormer
    ${EndIf}

    WriteRegStr HKLM "${APPS_KEY}" "DisplayName" "Velmora"
    WriteRegStr HKLM "${APPS_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${APPS_KEY}" "Publisher" "Velmora"
    WriteRegStr HKLM "${APPS_KEY}" "DisplayIcon" "$INSTDIR\velmora.exe,0"
    WriteRegStr HKLM "${APPS_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${APPS_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${APPS_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${APPS_KEY}" "EstimatedSize" ${SIZE}
    WriteRegDWORD HKLM "${APPS_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${APPS_KEY}" "NoRepair" 1

    CreateDirectory "${MENU}"
    CreateShortcut "${MENU}\Velmora.lnk" "$INSTDIR\velmora.exe" "--keep-running --single"
    CreateShortcut "${MENU}\Velmora console.lnk" "$INSTDIR\velmora-console.exe" "--keep-running --single"
    CreateShortcut "${MENU}\Uninstall Velmora.lnk" "$INSTDIR\uninstall.exe"
SectionEnd

Section /o "Start with the system" sectionAutostart
    WriteRegStr HKLM "${RUN_KEY}" "${RUN_VALUE}" '"$INSTDIR\velmora.exe" --keep-running --single --minimized'
SectionEnd

; What was chosen before and isn't any more.
Section "-without the start"
    ${Unless} ${SectionIsSelected} ${sectionAutostart}
        StrCpy $2 $INSTDIR
        Call readAutostart
        ${If} $1 == "yes"
            DeleteRegValue HKLM "${RUN_KEY}" "${RUN_VALUE}"
        ${EndIf}
    ${EndUnless}
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${sectionProgram} "The window, the console, the help page and the alert sound."
    !insertmacro MUI_DESCRIPTION_TEXT ${sectionAutostart} "Starts the watch, minimised, when a user logs on. The program's own 'Run on Start Up' switches the same start."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; The folder of /D wins, then that of an installation that is there.
Function .onInit
    SetRegView 64
    Call readWait
    Call trimFolder
    ReadRegStr $former HKLM "${APPS_KEY}" "InstallLocation"
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR $former
    ${EndIf}
    ${If} $INSTDIR == ""
        StrCpy $INSTDIR "$PROGRAMFILES64\Velmora"
    ${EndIf}
    ; A start with the system stays as it was, unless it is told.
    StrCpy $2 $former
    Call readAutostart
    ${If} $former != ""
    ${AndIf} $1 == "yes"
        !insertmacro SelectSection ${sectionAutostart}
    ${EndIf}
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/AUTOSTART=" $1
    ${Unless} ${Errors}
        ${If} $1 == 1
            !insertmacro SelectSection ${sectionAutostart}
        ${Else}
            !insertmacro UnselectSection ${sectionAutostart}
        ${EndIf}
    ${EndUnless}
FunctionEnd

; The uninstaller

; Sets $same to "yes" when the files $0 and $1 have the same bytes.
Function un.compareFiles
    StrCpy $same "no"
    ClearErrors
    FileOpen $2 $0 r
    FileOpen $3 $1 r
    ${Unless} ${Errors}
        StrCpy $same "yes"
        ${Do}
            ClearErrors
            FileReadByte $2 $4
            ${If} ${Errors}
                StrCpy $4 "end"
            ${EndIf}
            ClearErrors
            FileReadByte $3 $5
            ${If} ${Errors}
                StrCpy $5 "end"
            ${EndIf}
            ${If} $4 != $5
                StrCpy $same "no"
                ${ExitDo}
            ${EndIf}
        ${LoopUntil} $4 == "end"
    ${EndUnless}
    FileClose $2
    FileClose $3
FunctionEnd

; What the program writes for its user into the folder $0, and what it leaves there when it is
; ended meanwhile. By name: the folder may hold files of somebody else.
Function un.removeWritten
    Delete "$0\set.dat"
    Delete "$0\.set.dat.*"
    Delete "$0\log.dat"
    Delete "$0\clen.dat"
    Delete "$0\history.csv"
    Delete "$0\tmpLogNTEvt.vbs"
FunctionEnd

; What it remembers for its user in the folder $0: notes, places of windows, copies of settings. The
; names of the latter have the sum of a path, in 16 digits.
Function un.removeRemembered
    Delete "$0\watched"
    Delete "$0\.watched.*"
    Delete "$0\tray-note-read"
    Delete "$0\.tray-note-read.*"
    Delete "$0\windows"
    Delete "$0\.windows.*"
    Delete "$0\set-????????????????-*.dat"
    Delete "$0\.set-????????????????-*.dat.*"
    Delete "$0\set-????????????????-turns.txt"
    Delete "$0\.set-????????????????-turns.txt.*"
FunctionEnd

; A removal needs no space.
Function un.hideSpace
    FindWindow $0 "#32770" "" $HWNDPARENT
    GetDlgItem $1 $0 1023
    ShowWindow $1 ${SW_HIDE}
FunctionEnd

Section "un.Velmora" unsectionProgram
    SectionIn RO
    StrCpy $0 $INSTDIR
    Call un.closePrograms
    SetShellVarContext all
    Delete "${MENU}\Velmora.lnk"
    Delete "${MENU}\Velmora console.lnk"
    Delete "${MENU}\Uninstall Velmora.lnk"
    RMDir "${MENU}"
    ; The program makes it for each user who starts it.
    SetShellVarContext current
    Delete "$SENDTO\Velmora.lnk"

    StrCpy $2 $INSTDIR
    Call un.readAutostart
    ; The program leaves an empty one when it is switched off.
    ${If} $1 == "yes"
    ${OrIf} $0 == ""
        DeleteRegValue HKLM "${RUN_KEY}" "${RUN_VALUE}"
    ${EndIf}
    ; Settings that differ from those that were installed are somebody's.
    File "/oname=$PLUGINSDIR\set.dat" "${FILES}\set.dat"
    StrCpy $0 "$INSTDIR\set.dat"
    StrCpy $1 "$PLUGINSDIR\set.dat"
    Call un.compareFiles
    ${If} $same == "yes"
        Delete "$INSTDIR\set.dat"
    ${EndIf}
    !include "${PARTS}\remove.nsh"
    Delete "$INSTDIR\velmora.installed"
    Delete "$INSTDIR\uninstall.exe"
    SetOutPath "$TEMP"
    RMDir "$INSTDIR"
    DeleteRegKey HKLM "${APPS_KEY}"
SectionEnd

Section /o "un.My settings and log" unsectionSettings
    SetShellVarContext current
    StrCpy $0 "$LOCALAPPDATA\Velmora"
    Call un.removeWritten
    Call un.removeRemembered
    RMDir $0
    StrCpy $0 $INSTDIR
    Call un.removeWritten
    RMDir $0
SectionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${unsectionProgram} "Everything that was installed."
    !insertmacro MUI_DESCRIPTION_TEXT ${unsectionSettings} "What to watch, the log and the kept copies of the account that removes it. Other accounts keep theirs."
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END

Function un.onInit
    SetRegView 64
    Call un.readWait
    Call un.trimFolder
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/SETTINGS" $1
    ${Unless} ${Errors}
        !insertmacro SelectSection ${unsectionSettings}
    ${EndUnless}
FunctionEnd
