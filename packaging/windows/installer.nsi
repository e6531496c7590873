; Installs for the current user alone: the program writes two tables into its own folder, and no
; administrator is asked for.
Target amd64-unicode
ManifestDPIAware true
ManifestLongPathAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
!include MUI2.nsh

!define PROGRAM "Kestrel Aligner"
!define VERSION "1.53rc"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PROGRAM}"

Name "${PROGRAM} ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\${PROGRAM}"
InstallDirRegKey HKCU "Software\${PROGRAM}" "Folder"
VIProductVersion 1.53.0.0
VIAddVersionKey ProductName "${PROGRAM}"
VIAddVersionKey FileDescription "${PROGRAM} setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "Kestrel"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\kestrel-aligner.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Section
  SetOutPath "$INSTDIR"
  File /r "${FOLDER}/*"
  ; The folder set by SetOutPath becomes the shortcut's working directory, where the program finds
  ; its document and ffmpeg.exe.
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMPROGRAMS\${PROGRAM}.lnk" "$INSTDIR\kestrel-aligner.exe"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "Software\${PROGRAM}" "Folder" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${PROGRAM}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\kestrel-aligner.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section Uninstall
  SetOutPath "$TEMP"
  !include "${UNINSTALL}"
  Delete "$INSTDIR\csvtabela.csv"
  Delete "$INSTDIR\csvtabela-clean.csv"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${PROGRAM}.lnk"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\${PROGRAM}"
SectionEnd
