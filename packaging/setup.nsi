; Tarvik's setup program. packaging/make-packages compiles it and defines
;   VERSION    the version number with four parts
;   OUTPUT     the setup program to write
;   FILES      a folder with two lists made from the files to install: install.nsh and remove.nsh
;   LANGUAGE   the folder with the language files
;   SIGN       only with a certificate: the command that signs the uninstaller
;
; Arguments, all optional:
;   /S              without windows
;   /ALLUSERS       for everybody; needs an administrator. The default when setup was started elevated
;   /CURRENTUSER    for this user only, although setup was started elevated
;   /FIREWALL=1     for everybody only: lets controllers open FTP data connections to Tarvik
;   /FIREWALL=0     removes the rule of the older version, which an upgrade otherwise keeps
;   /D=folder       must be the last one and without quotation marks
;
; Exit codes: 0 installed, 1 cancelled, 2 a file could not be written, 3 a running Tarvik did not close,
; 4 not an administrator, 5 installed without the firewall rule.

Unicode true
SetCompressor /SOLID lzma
SetDateSave off       ; no file times, so that the same files give the same setup program
AllowSkipFiles off
; Never shows the prompt for an administrator: only someone who starts setup elevated wants it for everybody.
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all

!include LogicLib.nsh
!include FileFunc.nsh
!include WinMessages.nsh
!include MUI2.nsh

Name "Tarvik"
OutFile "${OUTPUT}"
BrandingText "Tarvik ${VERSION}"
!define MUI_ICON "resources/icon/tarvik.ico"
!define MUI_UNICON "resources/icon/tarvik.ico"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tarvik"
!define RULE 'name="Tarvik FTP" program="$INSTDIR\Tarvik.exe"'
; Windows may have created one that blocks, which would win over ours.
!define OLD_RULES 'name=all dir=in program="$INSTDIR\Tarvik.exe"'

!define MUI_COMPONENTSPAGE_NODESC
!define MUI_PAGE_CUSTOMFUNCTION_PRE SkipUnlessForEverybody
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_INSTFILESPAGE_FINISHHEADER_SUBTEXT "$(Finished)"
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "Japanese"
!include "packaging/setup-texts.nsh"

VIProductVersion "${VERSION}"
!macro DESCRIBE language description
  VIAddVersionKey /LANG=${language} "CompanyName" "Tarvik"
  VIAddVersionKey /LANG=${language} "FileDescription" "${description}"
  VIAddVersionKey /LANG=${language} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${language} "LegalCopyright" "Copyright © 2026 Tarvik"
  VIAddVersionKey /LANG=${language} "ProductName" "Tarvik"
  VIAddVersionKey /LANG=${language} "ProductVersion" "${VERSION}"
!macroend
!insertmacro DESCRIBE ${LANG_ENGLISH} "Tarvik Setup"
!insertmacro DESCRIBE ${LANG_JAPANESE} "Tarvik セットアップ"

!ifdef SIGN
  !uninstfinalize '${SIGN} "%1"'
!endif

Var forEverybody  ; 1 or 0

; The same for the setup program and, with the prefix "un.", for the uninstaller. "text" says what to do.
!macro CLOSE_RUNNING_COPY un text
; Asks a Tarvik that runs from $INSTDIR to close, and ends with exit code 3 when it does not, as during a test.
Function ${un}CloseRunningCopy
  StrCpy $0 0
  ${Do}
    FindWindow $0 "Form1" "" 0 $0
    ${If} $0 = 0
      ${ExitDo}
    ${EndIf}
    ; Other programs may use the name of the window class, too.
    System::Call 'user32::GetWindowThreadProcessId(p r0, *i .r1)'
    System::Call 'kernel32::OpenProcess(i 0x1000, i 0, i r1) p .r2'  ; PROCESS_QUERY_LIMITED_INFORMATION
    StrCpy $3 ""
    System::Call 'kernel32::QueryFullProcessImageNameW(p r2, i 0, w .r3, *i ${NSIS_MAX_STRLEN})'
    System::Call 'kernel32::CloseHandle(p r2)'
    ${If} $3 == "$INSTDIR\Tarvik.exe"
      System::Call 'user32::PostMessageW(p r0, i ${WM_CLOSE}, p 0, p 0)'
    ${EndIf}
  ${Loop}
  ${For} $0 1 30
    ; Nobody can open a running program for writing: GENERIC_WRITE, shared, OPEN_EXISTING.
    System::Call 'kernel32::CreateFileW(w "$INSTDIR\Tarvik.exe", i 0x40000000, i 7, p 0, i 3, i 0, p 0) p .r1 ?e'
    Pop $2
    ${If} $2 <> 32  ; ERROR_SHARING_VIOLATION
      System::Call 'kernel32::CloseHandle(p r1)'
      Return
    ${EndIf}
    Sleep 100
  ${Next}
  MessageBox MB_OK|MB_ICONEXCLAMATION "${text}" /SD IDOK
  SetErrorLevel 3
  Quit
FunctionEnd
!macroend
!insertmacro CLOSE_RUNNING_COPY "" "$(StillRunning)"
!insertmacro CLOSE_RUNNING_COPY "un." "$(StillRunningAtRemoval)"

!macro END_WITHOUT_ADMINISTRATOR
  MessageBox MB_OK|MB_ICONEXCLAMATION "$(NeedsAdministrator)" /SD IDOK
  SetErrorLevel 4
  Quit
!macroend

Function .onInit
  ${GetParameters} $0
  UserInfo::GetAccountType
  Pop $1
  StrCpy $forEverybody 0
  ${If} $1 == "Admin"
    ClearErrors
    ${GetOptions} $0 "/CURRENTUSER" $2
    ${If} ${Errors}
      StrCpy $forEverybody 1
    ${EndIf}
  ${EndIf}
  ClearErrors
  ${GetOptions} $0 "/ALLUSERS" $2
  ${IfNot} ${Errors}
    StrCpy $forEverybody 1
    ${If} $1 != "Admin"
      !insertmacro END_WITHOUT_ADMINISTRATOR
    ${EndIf}
  ${EndIf}

  StrCpy $3 "$LOCALAPPDATA\Programs\Tarvik"
  ${If} $forEverybody = 1
    SetShellVarContext all
    StrCpy $3 "$PROGRAMFILES32\Tarvik"
    ; An upgrade keeps the rule of the older version.
    ReadRegDWORD $1 SHCTX "${UNINSTALL_KEY}" "FirewallRule"
    ${GetOptions} $0 "/FIREWALL=" $2
    ${If} $1 = 1
    ${OrIf} $2 == "1"
    ${AndIf} $2 != "0"
      SectionSetFlags 1 ${SF_SELECTED}
    ${EndIf}
  ${EndIf}
  ${If} $INSTDIR == ""
    ReadRegStr $INSTDIR SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${EndIf}
  ${If} $INSTDIR == ""
    StrCpy $INSTDIR $3
  ${EndIf}
FunctionEnd

Function SkipUnlessForEverybody
  ${If} $forEverybody = 0
    Abort
  ${EndIf}
FunctionEnd

Section "Tarvik" programSection
  SectionIn RO
  Call CloseRunningCopy
  !include "${FILES}/install.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Tarvik.lnk" "$INSTDIR\Tarvik.exe"

  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "Tarvik"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Tarvik.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "Publisher" "Tarvik"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
  SectionGetSize ${programSection} $0
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "EstimatedSize" $0
  Call CopyLanguageFiles
SectionEnd

Section /o "$(FirewallRule)" firewallSection
  nsExec::Exec '"$SYSDIR\netsh.exe" advfirewall firewall delete rule ${OLD_RULES}'
  Pop $0  ; fails if there is no old rule
  nsExec::Exec '"$SYSDIR\netsh.exe" advfirewall firewall add rule ${RULE} dir=in action=allow protocol=TCP'
  Pop $0
  ${If} $0 == 0
    WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "FirewallRule" 1
  ${Else}
    MessageBox MB_OK|MB_ICONEXCLAMATION "$(NoFirewallRule)" /SD IDOK
    SetErrorLevel 5
  ${EndIf}
SectionEnd

; An upgrade without the rule of the older version.
Section "-"
  ReadRegDWORD $0 SHCTX "${UNINSTALL_KEY}" "FirewallRule"
  ${If} $0 = 1
  ${AndIfNot} ${SectionIsSelected} ${firewallSection}
    nsExec::Exec '"$SYSDIR\netsh.exe" advfirewall firewall delete rule ${RULE}'
    Pop $0
    DeleteRegValue SHCTX "${UNINSTALL_KEY}" "FirewallRule"
  ${EndIf}
SectionEnd

; $5 = 1 if the path in $2 is below the folder.
!macro IS_BELOW folder
  StrCpy $3 "${folder}\"
  StrLen $4 $3
  StrCpy $4 $2 $4
  ${If} $4 == $3
    StrCpy $5 1
  ${EndIf}
!macroend

; Where the maker's configuration library is installed, Tarvik looks for its language files in the folder that
; the library names, and not beside the program.
Function CopyLanguageFiles
  ; Only the machine's own PATH: whoever can write to a folder of the user's could otherwise run code in an elevated
  ; setup. The buffer has room for any PATH, a variable of this language for 1,024 characters.
  System::Alloc 65536
  Pop $0
  System::Call 'advapi32::RegGetValueW(p 0x80000002, w "SYSTEM\CurrentControlSet\Control\Session Manager\Environment", \
    w "Path", i 2, p 0, p r0, *i 65536) i .r1'  ; HKEY_LOCAL_MACHINE, RRF_RT_REG_SZ
  StrCpy $2 ""
  ${If} $1 = 0
    System::Call 'kernel32::SearchPathW(p r0, w "ObryConfIO.dll", p 0, i ${NSIS_MAX_STRLEN}, w .r2, p 0) i .r1'
  ${EndIf}
  System::Free $0
  ${If} $2 == ""
    Return
  ${EndIf}
  ; Only folders that nobody but an administrator can write to, for the same reason.
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    GetFullPathName $2 $2
    StrCpy $5 0
    !insertmacro IS_BELOW "$PROGRAMFILES32"
    !insertmacro IS_BELOW "$PROGRAMFILES64"
    !insertmacro IS_BELOW "$WINDIR"
    ${If} $5 = 0
      Return
    ${EndIf}
  ${EndIf}
  System::Call 'kernel32::LoadLibraryExW(w r2, p 0, i 8) p .r0'  ; LOAD_WITH_ALTERED_SEARCH_PATH
  ${If} $0 P= 0
    Return
  ${EndIf}
  StrCpy $1 -1
  ; By its name, which now means the loaded library: a path with a "(", as in "Program Files (x86)", would end there.
  System::Call 'ObryConfIO::Initialize() i'
  System::Call 'ObryConfIO::GetCommonDataFolder2(m .r3, i 511) i .r1'
  System::Call 'ObryConfIO::Terminate() i'
  ${If} $1 == 0
  ${AndIf} $3 != ""
    WriteRegStr SHCTX "${UNINSTALL_KEY}" "LanguageFolder" "$3\Language"
    SetOverwrite try  ; a user's setup may not be allowed to write there
    SetOutPath "$3\Language"
    File "${LANGUAGE}/Tarvik.exe_1033.ini" "${LANGUAGE}/Tarvik.exe_1041.ini"
    SetOverwrite lastused
  ${EndIf}
FunctionEnd

Function un.onInit
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != $INSTDIR
    Return
  ${EndIf}
  SetShellVarContext all
  UserInfo::GetAccountType
  Pop $0
  ${If} $0 == "Admin"
    Return
  ${EndIf}
  ${GetParameters} $0
  ClearErrors
  ${GetOptions} $0 "/ELEVATED" $1
  ${IfNot} ${Errors}
  ${OrIf} ${Silent}
    !insertmacro END_WITHOUT_ADMINISTRATOR
  ${EndIf}
  ; "Apps & features" starts the uninstaller without elevation.
  ExecShell "runas" "$INSTDIR\uninstall.exe" "/ELEVATED"
  Quit
FunctionEnd

; Removes what setup made. The address history and saved reports stay.
Section "Uninstall"
  Call un.CloseRunningCopy
  ReadRegDWORD $0 SHCTX "${UNINSTALL_KEY}" "FirewallRule"
  ${If} $0 = 1
    nsExec::Exec '"$SYSDIR\netsh.exe" advfirewall firewall delete rule ${RULE}'
    Pop $0
  ${EndIf}
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "LanguageFolder"
  ReadRegStr $1 HKLM "${UNINSTALL_KEY}" "LanguageFolder"
  ReadRegStr $2 HKCU "${UNINSTALL_KEY}" "LanguageFolder"
  ; Tarvik may be installed for everybody and for this user; both then use the same files.
  ${If} $0 != ""
  ${AndIf} $1 != $2
    Delete "$0\Tarvik.exe_1033.ini"
    Delete "$0\Tarvik.exe_1041.ini"
    RMDir "$0"
  ${EndIf}
  Delete "$SMPROGRAMS\Tarvik.lnk"
  !include "${FILES}/remove.nsh"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"  ; unless something of the user's is in it
SectionEnd
