; Installs the library with its class, and the reference host, for all users.
; Made by ./make-installer, which gives TARGET, BUILD, HOST, VERSION and OUT.

; A program of the library's own kind, which sees the registry and the system's folders as its hosts
; do.
!if "${TARGET}" == "x86_64"
    Target amd64-unicode
    !define BITS 64
!else
    Target x86-unicode
    !define BITS 32
!endif
ManifestDPIAware true
SetCompressor /SOLID lzma
RequestExecutionLevel admin

!include LogicLib.nsh

!define NAME "TradeForms"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\${NAME}"

Name "${NAME} ${VERSION}"
OutFile "${OUT}"
InstallDir "$PROGRAMFILES${BITS}\${NAME}"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"
ShowInstDetails show
ShowUninstDetails show

VIProductVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${NAME}"
VIAddVersionKey "ProductVersion" "${VERSION}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "FileDescription" "Installs ${NAME}"
VIAddVersionKey "LegalCopyright" ""

Page directory
Page instfiles
UninstPage uninstConfirm
UninstPage instfiles

Function .onInit
    SetRegView ${BITS}
    SetShellVarContext all
FunctionEnd

Function un.onInit
    SetRegView ${BITS}
    SetShellVarContext all
FunctionEnd

!macro Regsvr32 switches
    ExecWait '"$SYSDIR\regsvr32.exe" /s ${switches} "$INSTDIR\TradeForms.dll"' $0
!macroend

Section
    SetOutPath "$INSTDIR"
    ; A host that has it loaded keeps the file that is there.
    ClearErrors
    SetOverwrite try
    File "${BUILD}/TradeForms.dll"
    File "${HOST}"
    ${If} ${Errors}
        MessageBox MB_OK|MB_ICONSTOP "Close all programs that use ${NAME}, and try again." /SD IDOK
        SetErrorLevel 2
        Abort
    ${EndIf}
    !insertmacro Regsvr32 ""
    ${If} $0 != 0
        MessageBox MB_OK|MB_ICONSTOP "The class could not be registered (error $0)." /SD IDOK
        SetErrorLevel 3
        Abort
    ${EndIf}

    WriteUninstaller "$INSTDIR\uninstall.exe"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${NAME}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    !insertmacro Regsvr32 "/u"
    Delete "$INSTDIR\TradeForms.dll"
    Delete "$INSTDIR\tradeforms-host.exe"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR" ; stays where it holds what is not ours
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
