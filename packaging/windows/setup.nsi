; The installer for Windows; scripts/package-windows defines VERSION, PROGRAM (a folder with all that
; is installed), SIZE (its size in KB), OUTPUT, and makes files.nsh, which lists the files.
;
; For the current user, without an administrator. /S installs silently, /D=FOLDER (last, unquoted)
; says where. Exit status: 0 installed, 1 cancelled, 2 nothing was done, or not all, and why is told.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
SetDateSave off
ManifestDPIAware true
RequestExecutionLevel user

!include MUI2.nsh
!include LogicLib.nsh
!include "${FILES}"

!define NAME "Dealer Gauge 2"
!define ENTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\DealerGauge"
; What the suite's menu passes too.
!define TOKEN "7Q809R21T"
!define FAILED 2

Name "${NAME}"
BrandingText "${NAME} ${VERSION}"
OutFile "${OUTPUT}"
InstallDir "$LOCALAPPDATA\Programs\${NAME}"
InstallDirRegKey HKCU "${ENTRY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileDescription "${NAME} setup"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey CompanyName "Dealer Gauge maintainers"
VIAddVersionKey LegalCopyright "MIT license"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
!define MUI_FINISHPAGE_RUN "$INSTDIR\DealerGauge.exe"
!define MUI_FINISHPAGE_RUN_PARAMETERS "${TOKEN}"
!define MUI_FINISHPAGE_RUN_TEXT "Start ${NAME}"
!define MUI_FINISHPAGE_RUN_NOTCHECKED
!define MUI_FINISHPAGE_SHOWREADME "$INSTDIR\guide\index.html"
!define MUI_FINISHPAGE_SHOWREADME_TEXT "Open the guide"
!define MUI_FINISHPAGE_SHOWREADME_NOTCHECKED

!insertmacro MUI_PAGE_WELCOME
!insertmacro MUI_PAGE_LICENSE "${PROGRAM}/licenses/Dealer Gauge.txt"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; Tells why nothing more is done, and ends. Silently there is only the status.
!macro fail text
  MessageBox MB_OK|MB_ICONSTOP "${text}" /SD IDOK
  SetErrorLevel ${FAILED}
  Quit
!macroend

; A place that /D= names and that cannot be one (quoted, or below a file) is left aside without a word
; by NSIS, which would install elsewhere.
Function .onInit
  System::Call "kernel32::GetCommandLineW() t .R0"
  StrLen $R2 $R0
  ${For} $R1 0 $R2
    StrCpy $R3 $R0 3 $R1
    ${If} $R3 == "/D="
      IntOp $R1 $R1 + 3
      StrCpy $R3 $R0 "" $R1
      StrCpy $R4 $R3 1 -1
      ${If} $R4 == "\"
        StrCpy $R3 $R3 -1
      ${EndIf}
      ${If} $R3 != $INSTDIR
        !insertmacro fail "$R3 is no folder to install into. /D= comes last, with an absolute path and without quotes."
      ${EndIf}
      ${Break}
    ${EndIf}
  ${Next}
FunctionEnd

; A program's file cannot be opened for writing while it runs. Before anything is touched, so that a
; user who works on keeps a whole installation.
!macro wait_until_closed folder program
  ${Do}
    ${IfNot} ${FileExists} "${folder}\${program}"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "${folder}\${program}" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${program} in ${folder} is in use, or may not be changed. Close ${NAME}, then try again." /SD IDCANCEL IDCANCEL`
      SetErrorLevel ${FAILED}
      Quit
    ${EndIf}
  ${Loop}
!macroend

Section "${NAME}"
  ReadRegStr $R1 HKCU "${ENTRY}" "InstallLocation"
  ${If} $R1 != ""
    !insertmacro wait_until_closed $R1 DealerGauge.exe
    !insertmacro wait_until_closed $R1 dgtool.exe
  ${EndIf}
  !insertmacro wait_until_closed $INSTDIR DealerGauge.exe
  !insertmacro wait_until_closed $INSTDIR dgtool.exe

  ClearErrors
  CreateDirectory "$INSTDIR"
  FileOpen $0 "$INSTDIR\uninstall.exe" a
  ${If} ${Errors}
    !insertmacro fail "Nothing can be written into $INSTDIR. Choose another folder."
  ${EndIf}
  FileClose $0

  ; The files of an older version, some of which the new one may not have.
  ${If} $R1 != ""
  ${AndIf} ${FileExists} "$R1\DealerGauge.exe"
  ${AndIf} ${FileExists} "$R1\uninstall.exe"
    ExecWait '"$R1\uninstall.exe" /S _?=$R1'
    ${If} $R1 != $INSTDIR
      Delete "$R1\uninstall.exe"
      RMDir "$R1"
    ${EndIf}
  ${EndIf}

  ClearErrors
  SetOverwrite try
  !insertmacro install_files
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  ${If} ${Errors}
    !insertmacro fail "Not all files could be written into $INSTDIR."
  ${EndIf}

  CreateDirectory "$SMPROGRAMS\${NAME}"
  CreateShortcut "$SMPROGRAMS\${NAME}\${NAME}.lnk" "$INSTDIR\DealerGauge.exe" "${TOKEN}"
  CreateShortcut "$SMPROGRAMS\${NAME}\Guide.lnk" "$INSTDIR\guide\index.html"
  WriteRegStr HKCU "${ENTRY}" "DisplayName" "${NAME}"
  WriteRegStr HKCU "${ENTRY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${ENTRY}" "DisplayIcon" "$INSTDIR\DealerGauge.exe"
  WriteRegStr HKCU "${ENTRY}" "Publisher" "Dealer Gauge maintainers"
  WriteRegStr HKCU "${ENTRY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${ENTRY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${ENTRY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${ENTRY}" "EstimatedSize" ${SIZE}
  WriteRegDWORD HKCU "${ENTRY}" "NoModify" 1
  WriteRegDWORD HKCU "${ENTRY}" "NoRepair" 1
SectionEnd

; Only what was installed goes: settings, log and history are the user's, and so is any file that
; somebody else has put into the folder.
Section Uninstall
  !insertmacro wait_until_closed $INSTDIR DealerGauge.exe
  !insertmacro wait_until_closed $INSTDIR dgtool.exe
  !insertmacro remove_files
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\${NAME}\${NAME}.lnk"
  Delete "$SMPROGRAMS\${NAME}\Guide.lnk"
  RMDir "$SMPROGRAMS\${NAME}"
  DeleteRegKey HKCU "${ENTRY}"
SectionEnd
