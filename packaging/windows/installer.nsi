; Installs for the current user alone: the program writes two tables into its own folder, and no
; administrator is asked for. Settings of the user stay when a newer version takes the place of an
; older one, and go with the program.
Target amd64-unicode
ManifestDPIAware true
ManifestLongPathAware true
RequestExecutionLevel user
SetCompressor /SOLID lzma
!include MUI2.nsh
!include FileFunc.nsh
!include LogicLib.nsh

!define PROGRAM "Kestrel Aligner"
!define VERSION "1.53rc"
!define PUBLISHER "Kestrel"
!define ORGANISATION "Kestrel -  tools for digital artists" ; under which settings and caches lie
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${PROGRAM}"
!define PROJECT_TYPE "KestrelAligner.Project"
!define PROJECT_ENDING ".kestrel"
!define IN_USE "${PROGRAM} is running. Please finish your work in it and close it, then try again."

Name "${PROGRAM} ${VERSION}"
OutFile "${OUT}"
InstallDir "$LOCALAPPDATA\Programs\${PROGRAM}"
InstallDirRegKey HKCU "Software\${PROGRAM}" "Folder"
VIProductVersion 1.53.0.0
VIAddVersionKey ProductName "${PROGRAM}"
VIAddVersionKey CompanyName "${PUBLISHER}"
VIAddVersionKey FileDescription "${PROGRAM} setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey LegalCopyright "${PUBLISHER}"
!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"' = 0
  !finalize '${SIGN} "%1"' = 0
!endif

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\kestrel-aligner.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

; A program that runs cannot be written to. Without anyone to ask, the end is error level 2.
!macro WAIT_UNTIL_CLOSED FOLDER FILE
  ${DoWhile} ${FileExists} "${FOLDER}\${FILE}"
    ClearErrors
    FileOpen $0 "${FOLDER}\${FILE}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${ExitDo}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${IN_USE}" /SD IDCANCEL IDRETRY +3
    SetErrorLevel 2
    Abort "${IN_USE}"
  ${Loop}
!macroend
!macro WAIT_UNTIL_ALL_CLOSED FOLDER
  !insertmacro WAIT_UNTIL_CLOSED "${FOLDER}" kestrel-aligner.exe
  !insertmacro WAIT_UNTIL_CLOSED "${FOLDER}" kestrel-align.exe
  !insertmacro WAIT_UNTIL_CLOSED "${FOLDER}" ffmpeg.exe
!macroend

; An older version takes away what it brought, wherever it is: its own list says what that was.
Function removeOlderVersion
  ReadRegStr $1 HKCU "Software\${PROGRAM}" "Folder"
  ${If} $1 == ""
  ${OrIfNot} ${FileExists} "$1\uninstall.exe"
    Return
  ${EndIf}
  !insertmacro WAIT_UNTIL_ALL_CLOSED $1
  ClearErrors
  ExecWait '"$1\uninstall.exe" /S /KEEP _?=$1' $0
  ${If} ${Errors}
  ${OrIf} $0 <> 0
    SetErrorLevel 2
    Abort "The older version in $1 could not be removed."
  ${EndIf}
  Delete "$1\uninstall.exe"
  RMDir $1
FunctionEnd

Section
  Call removeOlderVersion
  !insertmacro WAIT_UNTIL_ALL_CLOSED $INSTDIR
  SetOutPath "$INSTDIR"
  ClearErrors
  File /r "${FOLDER}/*"
  ${If} ${Errors}
    SetErrorLevel 2
    Abort "Not every file could be written to $INSTDIR."
  ${EndIf}
  ; The folder set by SetOutPath becomes the shortcut's working directory.
  SetOutPath "$INSTDIR"
  CreateShortcut "$SMPROGRAMS\${PROGRAM}.lnk" "$INSTDIR\kestrel-aligner.exe"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr HKCU "Software\${PROGRAM}" "Folder" "$INSTDIR"

  WriteRegStr HKCU "Software\Classes\${PROJECT_TYPE}" "" "${PROGRAM} project"
  WriteRegStr HKCU "Software\Classes\${PROJECT_TYPE}\DefaultIcon" "" "$INSTDIR\kestrel-aligner.exe,0"
  WriteRegStr HKCU "Software\Classes\${PROJECT_TYPE}\shell\open\command" "" \
    '"$INSTDIR\kestrel-aligner.exe" "%1"'
  WriteRegStr HKCU "Software\Classes\${PROJECT_ENDING}" "" "${PROJECT_TYPE}"
  ${RefreshShellIcons}

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "${PROGRAM}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\kestrel-aligner.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

; What the system and the user keep besides the program's files.
Function un.forget
  Delete "$INSTDIR\csvtabela.csv"
  Delete "$INSTDIR\csvtabela-clean.csv"
  RMDir /r "$LOCALAPPDATA\${ORGANISATION}\${PROGRAM}"
  RMDir "$LOCALAPPDATA\${ORGANISATION}"
  DeleteRegKey HKCU "Software\${ORGANISATION}\${PROGRAM}"
  DeleteRegKey /ifempty HKCU "Software\${ORGANISATION}"
  ReadRegStr $0 HKCU "Software\Classes\${PROJECT_ENDING}" ""
  ${If} $0 == "${PROJECT_TYPE}"
    DeleteRegKey HKCU "Software\Classes\${PROJECT_ENDING}"
  ${EndIf}
  DeleteRegKey HKCU "Software\Classes\${PROJECT_TYPE}"
  ${RefreshShellIcons}
  Delete "$SMPROGRAMS\${PROGRAM}.lnk"
  DeleteRegKey HKCU "${UNINSTALL_KEY}"
  DeleteRegKey HKCU "Software\${PROGRAM}"
FunctionEnd

Section Uninstall
  !insertmacro WAIT_UNTIL_ALL_CLOSED $INSTDIR
  SetOutPath "$TEMP"
  !include "${UNINSTALL}"
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/KEEP" $1
  ${If} ${Errors}
    Call un.forget
  ${EndIf}
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
