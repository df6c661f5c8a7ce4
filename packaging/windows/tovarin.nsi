; Makes the installer. It installs for the user who runs it, without the rights of an administrator,
; into a folder that this user can write to, since the names that are ticked are kept in it.
;
; makensis -DVERSION=1.2.3 -DCONTENT=folder -DFILES=file -DICON=file -DOUTPUT=file tovarin.nsi
; FILES holds the commands that delete what was installed.

Target amd64-unicode ; as the program itself
RequestExecutionLevel user
SetCompressor /SOLID lzma
ManifestDPIAware true

!include MUI2.nsh

Name "Tovarin"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\Tovarin"
InstallDirRegKey HKCU "Software\Tovarin" "Folder"
BrandingText "Tovarin ${VERSION}"

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "Tovarin"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "Installs Tovarin, the names dictionary"
VIAddVersionKey CompanyName "The Tovarin developers"
VIAddVersionKey LegalCopyright "Copyright 2026 The Tovarin developers"

!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tovarin"
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tovarin.exe"
!define MUI_FINISHPAGE_RUN_TEXT "Start Tovarin"

!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A program that runs can't be replaced or removed.
!macro WaitUntilClosed
    ${Do}
        ClearErrors
        ${IfNot} ${FileExists} "$INSTDIR\tovarin.exe"
            ${ExitDo}
        ${EndIf}
        FileOpen $0 "$INSTDIR\tovarin.exe" a
        ${IfNot} ${Errors}
            FileClose $0
            ${ExitDo}
        ${EndIf}
        MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION \
            "Tovarin is open, or its folder can't be written to.$\n$\nPlease close Tovarin and click Retry." \
            /SD IDCANCEL IDRETRY +2
        Abort "Nothing was changed."
    ${Loop}
!macroend

Section
    !insertmacro WaitUntilClosed
    SetOutPath "$INSTDIR"
    ClearErrors
    File /r "${CONTENT}/*"
    WriteUninstaller "$INSTDIR\uninstall.exe"
    ${If} ${Errors}
        Abort "Tovarin could not be installed into $INSTDIR: its files can't be written there."
    ${EndIf}
    CreateShortcut "$SMPROGRAMS\Tovarin.lnk" "$INSTDIR\tovarin.exe"
    WriteRegStr HKCU "Software\Tovarin" "Folder" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Tovarin"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\tovarin.exe"
    WriteRegStr HKCU "${UNINSTALL}" "Publisher" "The Tovarin developers"
    WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
    WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
SectionEnd

Section Uninstall
    !insertmacro WaitUntilClosed
    ; Asked before anything is removed. Without anybody to ask, names stay.
    StrCpy $1 keep
    ${If} ${FileExists} "$INSTDIR\Tovarin.mdb"
        MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 \
            "Do you want to remove your names as well: the ticks, the shortlist, the ranking and the full names?$\n$\nNo keeps them in $INSTDIR, where Tovarin finds them if you install it again." \
            /SD IDNO IDNO +2
        StrCpy $1 remove
    ${EndIf}
    !include "${FILES}"
    ${If} $1 == remove
        Delete "$INSTDIR\Tovarin.mdb"
        Delete "$INSTDIR\Tovarin.mdb-journal"
        Delete "$INSTDIR\Tovarin-backup-*.mdb"
        Delete "$INSTDIR\Tovarin-backup-*.txt"
        Delete "$INSTDIR\Tovarin-put-aside-*.mdb"
        Delete "$INSTDIR\Tovarin-put-aside-*.mdb-journal"
    ${EndIf}
    ; The key that opens the database stays with it.
    ${IfNot} ${FileExists} "$INSTDIR\Tovarin.mdb"
        Delete "$INSTDIR\tovarin.dll"
    ${EndIf}
    Delete "$INSTDIR\Tovarin.lock"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR" ; only if it is empty
    Delete "$SMPROGRAMS\Tovarin.lnk"
    DeleteRegKey HKCU "${UNINSTALL}"
    DeleteRegKey HKCU "Software\Tovarin"
SectionEnd
