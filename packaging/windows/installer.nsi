; The installer. makensis -DVERSION=... -DFILES=<folder of install.nsh and remove.nsh> -DICON=... -DOUTPUT=...
; For administrators: /S without questions, /AllUsers or /CurrentUser, /D=<folder> as the last word.
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true

!define PRODUCT "TSMS문자메시지"
!define KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\tsms"

!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_MUI
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "tsms"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallMode"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_USE_PROGRAMFILES64
; Texts that the language file has not.
!define MULTIUSER_TEXT_INSTALLMODE_TITLE "사용자 선택"
!define MULTIUSER_TEXT_INSTALLMODE_SUBTITLE "$(^NameDA)을(를) 설치할 사용자를 선택하십시오."
!define MULTIUSER_INNERTEXT_INSTALLMODE_TOP "이 컴퓨터의 모든 사용자가 쓰도록 설치할지, 지금 사용자만 쓰도록 설치할지 선택하십시오. $(^ClickNext)"
!define MULTIUSER_INNERTEXT_INSTALLMODE_ALLUSERS "이 컴퓨터의 모든 사용자"
!define MULTIUSER_INNERTEXT_INSTALLMODE_CURRENTUSER "지금 사용자만"
!define MULTIUSER_INIT_TEXT_ADMINREQUIRED "관리자 권한이 필요합니다."
!define MULTIUSER_INIT_TEXT_ALLUSERSNOTPOSSIBLE "모든 사용자가 쓰도록 설치하려면 관리자 권한이 필요합니다."
!include MultiUser.nsh
!include MUI2.nsh
!include FileFunc.nsh

Name "${PRODUCT}"
OutFile "${OUTPUT}"
BrandingText "${PRODUCT} ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Korean"

VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=${LANG_KOREAN} "ProductName" "${PRODUCT}"
VIAddVersionKey /LANG=${LANG_KOREAN} "FileDescription" "${PRODUCT} 설치"
VIAddVersionKey /LANG=${LANG_KOREAN} "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=${LANG_KOREAN} "LegalCopyright" ""

Function .onInit
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section
  !include "${FILES}/install.nsh"
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\문자메시지.lnk" "$INSTDIR\tsms-start.exe"
  CreateShortcut "$SMPROGRAMS\문자메시지 체험하기.lnk" "$INSTDIR\tsms-demo.exe"
  WriteRegStr SHCTX "${KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr SHCTX "${KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${KEY}" "DisplayIcon" "$INSTDIR\tsms.exe"
  WriteRegStr SHCTX "${KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${KEY}" "InstallMode" "$MultiUser.InstallMode"
  WriteRegStr SHCTX "${KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode /S'
  WriteRegDWORD SHCTX "${KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${KEY}" "NoRepair" 1
  ${GetSize} "$INSTDIR" "/S=0K" $0 $1 $2
  WriteRegDWORD SHCTX "${KEY}" "EstimatedSize" $0
SectionEnd

; Removes what it has installed and no more: the folder may hold the recipient file and the log of an import.
Section Uninstall
  Delete "$SMPROGRAMS\문자메시지.lnk"
  Delete "$SMPROGRAMS\문자메시지 체험하기.lnk"
  !include "${FILES}/remove.nsh"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  DeleteRegKey SHCTX "${KEY}"
SectionEnd
