; What the installer does before it brings its files, and the uninstaller before it takes them away.
!include FileFunc.nsh
!include LogicLib.nsh

; A file of a running program cannot be replaced or removed, and half of the others would be: so
; nothing is touched as long as the panel in FOLDER runs. A silent run ends with status 2.
!macro AskToCloseThePanel FOLDER
  ${Do}
    ${IfNot} ${FileExists} "${FOLDER}\tarvik.exe"
      ${ExitDo}
    ${EndIf}
    ClearErrors
    FileOpen $R0 "${FOLDER}\tarvik.exe" a
    ${IfNot} ${Errors}
      FileClose $R0
      ${ExitDo}
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "Please close Vexa Tarvik first." /SD IDCANCEL IDCANCEL`
      SetErrorLevel 2
      Abort
    ${EndIf}
  ${Loop}
!macroend

; Removes the version that is installed, wherever it is, so that none of its files stay beside the
; new ones. Where its folder was deleted by hand there is nothing left to remove.
!macro ReplaceInstalledVersion
  !insertmacro AskToCloseThePanel "$INSTDIR"
  ReadRegStr $R1 SHCTX "Software\Microsoft\Windows\CurrentVersion\Uninstall\Vexa Tarvik" "UninstallString"
  StrCpy $R1 $R1 -1 1 ; without its quotation marks
  ${If} ${FileExists} "$R1"
    ${GetParent} "$R1" $R2
    SetOutPath "$TEMP" ; a folder that somebody works in cannot be removed
    ClearErrors
    ; Not from a copy, which nobody could wait for.
    ExecWait '"$R1" /S _?=$R2' $R3
    ${If} ${Errors}
    ${OrIf} $R3 != 0
      MessageBox MB_OK|MB_ICONSTOP "The installed version in $R2 could not be removed." /SD IDOK
      SetErrorLevel 2
      Abort
    ${EndIf}
    Delete "$R1"
    RMDir "$R2"
    SetOutPath "$INSTDIR"
  ${EndIf}
!macroend
