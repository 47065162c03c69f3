; The installer for one user, which needs no administrator: tools/windows gives it
;   VERSION, FILES (the folder with what is installed), LIST (what the uninstaller removes), OUT (the file to make).
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel user

!include "MUI2.nsh"
!include "FileFunc.nsh"

!define CLASSES "Software\Classes"
!define TYPE "Strutwright.File"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Strutwright"
!define SHORTCUT "$SMPROGRAMS\Strutwright.lnk"
!define SHORTCUT_BRACEFOLD "$SMPROGRAMS\Bracefold.lnk"
; Who opened such files before Strutwright came; given back when it goes.
!define EARLIER "OpenedBeforeStrutwright"

Name "Strutwright ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\Strutwright"
InstallDirRegKey HKCU "${UNINSTALL}" "InstallLocation"
VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "Strutwright"
VIAddVersionKey "FileDescription" "Installs Strutwright"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "2026 the Strutwright contributors; GPL 3 or later"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\strutwright.exe"
!define MUI_FINISHPAGE_NOAUTOCLOSE
!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; Explorer shows icons and opens files as the registry says from now on.
!macro AnnounceFileTypes
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

; Ends the section where a program runs: its file cannot be written then.
!macro RefuseWhileRunning PROGRAM
  IfFileExists "$INSTDIR\${PROGRAM}" 0 +7
  ClearErrors
  FileOpen $0 "$INSTDIR\${PROGRAM}" a
  IfErrors 0 +3
    MessageBox MB_OK|MB_ICONEXCLAMATION "${PROGRAM} is running. Close it and try again." /SD IDOK
    Abort
  FileClose $0
!macroend
!macro RefuseWhileAnyRuns
  !insertmacro RefuseWhileRunning "strutwright.exe"
  !insertmacro RefuseWhileRunning "Bracefold.exe"
  !insertmacro RefuseWhileRunning "strutwright-cli.exe"
  !insertmacro RefuseWhileRunning "strutwright-cli-whole.exe"
!macroend

Section "Strutwright"
  !insertmacro RefuseWhileAnyRuns
  ; What an earlier version brought and this one does not goes with its own uninstaller.
  IfFileExists "$INSTDIR\uninstall.exe" 0 +2
    ExecWait '"$INSTDIR\uninstall.exe" /S _?=$INSTDIR'
  SetOutPath "$INSTDIR"
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  SetOutPath "$PROFILE" ; the shortcuts start the programs there
  CreateShortcut "${SHORTCUT}" "$INSTDIR\strutwright.exe"
  CreateShortcut "${SHORTCUT_BRACEFOLD}" "$INSTDIR\Bracefold.exe"

  ReadRegStr $0 HKCU "${CLASSES}\.stw" ""
  StrCmp $0 "${TYPE}" ours
  StrCmp $0 "" ours
    WriteRegStr HKCU "${CLASSES}\.stw" "${EARLIER}" $0
  ours:
  WriteRegStr HKCU "${CLASSES}\.stw" "" "${TYPE}"
  WriteRegStr HKCU "${CLASSES}\${TYPE}" "" "Strutwright File"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\DefaultIcon" "" "$INSTDIR\strutwright.exe,0"
  WriteRegStr HKCU "${CLASSES}\${TYPE}\shell\open\command" "" '"$INSTDIR\strutwright.exe" --open "%1"'
  !insertmacro AnnounceFileTypes

  WriteRegStr HKCU "${UNINSTALL}" "DisplayName" "Strutwright"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" "DisplayIcon" "$INSTDIR\strutwright.exe,0"
  WriteRegStr HKCU "${UNINSTALL}" "Publisher" "Strutwright contributors"
  WriteRegStr HKCU "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  IntFmt $0 "0x%08X" $0
  WriteRegDWORD HKCU "${UNINSTALL}" "EstimatedSize" "$0"
SectionEnd

; Removes what the installer put there, file by file: models and settings stay, wherever they lie.
Section "Uninstall"
  ; Nothing is taken away while a program runs: what is left then could not be removed any more.
  !insertmacro RefuseWhileAnyRuns
  SetOutPath "$TEMP" ; a folder that is in use can't be removed
  !include "${LIST}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "${SHORTCUT}"
  Delete "${SHORTCUT_BRACEFOLD}"

  ReadRegStr $0 HKCU "${CLASSES}\.stw" ""
  StrCmp $0 "${TYPE}" 0 theirs
    ReadRegStr $1 HKCU "${CLASSES}\.stw" "${EARLIER}"
    DeleteRegValue HKCU "${CLASSES}\.stw" ""
    StrCmp $1 "" theirs
      WriteRegStr HKCU "${CLASSES}\.stw" "" $1
  theirs:
  DeleteRegValue HKCU "${CLASSES}\.stw" "${EARLIER}"
  DeleteRegKey /ifempty HKCU "${CLASSES}\.stw"
  DeleteRegKey HKCU "${CLASSES}\${TYPE}"
  DeleteRegKey HKCU "${UNINSTALL}"
  !insertmacro AnnounceFileTypes
SectionEnd
