; The installer. Silent: rovena-VERSION-setup.exe /S [options], see docs/operations.md.
;
; The programs lie in one folder. rovena-install, from there, makes or renews the company's tree and puts copies of them into
; it, and from the tree they are started. The uninstaller takes the folder away, and no tree.

Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true

!include MUI2.nsh
!include nsDialogs.nsh
!include LogicLib.nsh
!include FileFunc.nsh
!include WinMessages.nsh

!define TITLE "就業録"
!define KEY "Software\Rovena"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Rovena"
!define SERVICE "rovena-jyunban"
!define TREE "Program Files\meridan\qn"

; What the installer ends with.
!define BROKEN_OFF 1
!define FAILED 2
!define STILL_OPEN 3
!define NO_SHARE 4
!define NO_MAIN_PC 5

Name "${TITLE}"
OutFile "${OUT}"
BrandingText "${TITLE} ${VERSION}"
ShowInstDetails nevershow
ShowUninstDetails nevershow
VIProductVersion "${VERSION}.0"
VIAddVersionKey /LANG=1041 "ProductName" "${TITLE}"
VIAddVersionKey /LANG=1041 "FileDescription" "${TITLE} セットアップ"
VIAddVersionKey /LANG=1041 "CompanyName" "Rovena"
VIAddVersionKey /LANG=1041 "LegalCopyright" "Rovena"
VIAddVersionKey /LANG=1041 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1041 "ProductVersion" "${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_ABORTWARNING
!define MUI_WELCOMEPAGE_TEXT "このパソコンに${TITLE} ${VERSION}を入れます。$\r$\n$\r$\nすでに入っているときは新しい版になり、会社のデータはそのまま残ります。先に${TITLE}の画面を閉じてください。$\r$\n$\r$\n[次へ] を押すと続けます。"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "${TITLE}を始める"
!define MUI_FINISHPAGE_RUN_FUNCTION StartProgram
!define MUI_UNCONFIRMPAGE_TEXT_TOP "プログラムを取り除きます。会社のデータはそのまま残ります。"

Var Scope      ; machine or person
Var Role       ; main or other
Var Root       ; the folder that holds the tree, without a separator at its end
Var Share
Var MainPc
Var User
Var Password
Var PasswordFile
Var Present    ; 1 where an installation of the scope is renewed
Var Administrator
Var Dialog
Var One
Var Two
Var ShareBox
Var MainPcBox
Var UserBox
Var PasswordBox

!insertmacro MUI_PAGE_WELCOME
Page custom AskScope TakeScope
Page custom AskRole TakeRole
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "Japanese"

; --- What is asked for -------------------------------------------------------------------------------------------------

!macro TellAndEnd TEXT STATUS
  MessageBox MB_OK|MB_ICONEXCLAMATION "${TEXT}" /SD IDOK
  SetErrorLevel ${STATUS}
  Quit
!macroend

; The folders of a scope, and what was chosen there before.
!macro SettleScope
  ${If} $Scope == machine
    SetShellVarContext all
    StrCpy $INSTDIR "$PROGRAMFILES64\Rovena"
    StrCpy $0 $WINDIR 2
  ${Else}
    SetShellVarContext current
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\Rovena"
    StrCpy $0 "$LOCALAPPDATA\Rovena"
  ${EndIf}
  StrCpy $Present 0
  ReadRegStr $1 SHCTX "${KEY}" "Root"
  ${If} $1 != ""
    StrCpy $Present 1
    StrCpy $Root $1
    ReadRegStr $Role SHCTX "${KEY}" "Role"
  ${ElseIf} $Root == ""
    StrCpy $Root $0
  ${EndIf}
!macroend

Function ReadOptions
  ${GetParameters} $0
  ${GetOptions} $0 "/SCOPE=" $Scope
  ${GetOptions} $0 "/ROLE=" $Role
  ${GetOptions} $0 "/ROOT=" $Root
  ${GetOptions} $0 "/SHARE=" $Share
  ${GetOptions} $0 "/MAINPC=" $MainPc
  ${GetOptions} $0 "/USER=" $User
  ${GetOptions} $0 "/PASSWORDFILE=" $PasswordFile
FunctionEnd

Function .onInit
  SetRegView 64
  UserInfo::GetAccountType
  Pop $0
  StrCpy $Administrator 0
  ${If} $0 == "Admin"
    StrCpy $Administrator 1
  ${EndIf}
  Call ReadOptions
  ${If} $Scope == ""
    StrCpy $Scope person
    ReadRegStr $0 HKLM "${KEY}" "Root"
    ${If} $0 != ""
      StrCpy $Scope machine
    ${ElseIf} $Administrator == 1
    ${AndIf} ${Silent}
      StrCpy $Scope machine
    ${EndIf}
  ${EndIf}
  ${If} $Role == ""
    StrCpy $Role main
  ${EndIf}
  ${If} $Scope != machine
  ${AndIf} $Scope != person
    !insertmacro TellAndEnd "/SCOPE= は machine か person です。" ${FAILED}
  ${EndIf}
  ${If} $Role != main
  ${AndIf} $Role != other
    !insertmacro TellAndEnd "/ROLE= は main か other です。" ${FAILED}
  ${EndIf}
  ${If} ${Silent}
    !insertmacro SettleScope
    ${If} $Role == other
    ${AndIf} $Present == 0
    ${AndIf} $Share == ""
      !insertmacro TellAndEnd "/SHARE= がありません。" ${NO_SHARE}
    ${EndIf}
  ${EndIf}
FunctionEnd

Function AskScope
  !insertmacro MUI_HEADER_TEXT "だれが使いますか" "このパソコンのだれが${TITLE}を使うかを選びます。"
  nsDialogs::Create 1018
  Pop $Dialog
  ${NSD_CreateRadioButton} 0 0 100% 12u "このパソコンを使う全員 (管理者の権限が要ります)"
  Pop $One
  ${NSD_CreateLabel} 12u 14u 95% 20u "数台で一つの会社を使うときのメインPCは、こちらを選びます。順番を渡すサービスも動きます。"
  Pop $0
  ${NSD_CreateRadioButton} 0 44u 100% 12u "自分だけ (管理者の権限は要りません)"
  Pop $Two
  ${NSD_CreateLabel} 12u 58u 95% 20u "このパソコン一台で使うとき、または、ほかのPCの会社につなぐときに選べます。"
  Pop $0
  ${If} $Scope == machine
    ${NSD_Check} $One
  ${Else}
    ${NSD_Check} $Two
  ${EndIf}
  nsDialogs::Show
FunctionEnd

Function TakeScope
  ${NSD_GetState} $One $0
  StrCpy $Scope person
  ${If} $0 == ${BST_CHECKED}
    StrCpy $Scope machine
  ${EndIf}
  ${If} $Scope == machine
  ${AndIf} $Administrator == 0
    ClearErrors
    ExecShell "runas" "$EXEPATH" "/SCOPE=machine"
    ${IfNot} ${Errors}
      Quit
    ${EndIf}
    MessageBox MB_OK|MB_ICONEXCLAMATION "管理者の権限がないため、全員のためには入れられません。"
    Abort
  ${EndIf}
  !insertmacro SettleScope
FunctionEnd

Function AskRole
  ${If} $Present == 1
    Abort ; it was told when it was first installed
  ${EndIf}
  !insertmacro MUI_HEADER_TEXT "会社のデータ" "会社のデータがどこにあるかを選びます。"
  nsDialogs::Create 1018
  Pop $Dialog
  ${NSD_CreateRadioButton} 0 0 100% 12u "このパソコン (メインPC、または一台だけで使う)"
  Pop $One
  ${NSD_OnClick} $One ShowRole
  ${NSD_CreateRadioButton} 0 18u 100% 12u "ほかのパソコン (メインPCの共有フォルダ)"
  Pop $Two
  ${NSD_OnClick} $Two ShowRole
  ${NSD_CreateLabel} 12u 36u 34% 12u "共有フォルダ"
  Pop $0
  ${NSD_CreateText} 40% 34u 60% 12u "$Share"
  Pop $ShareBox
  ${NSD_CreateLabel} 12u 54u 34% 12u "メインPCの名前"
  Pop $0
  ${NSD_CreateText} 40% 52u 60% 12u "$MainPc"
  Pop $MainPcBox
  ${NSD_CreateLabel} 12u 72u 34% 12u "アカウント (必要なとき)"
  Pop $0
  ${NSD_CreateText} 40% 70u 60% 12u "$User"
  Pop $UserBox
  ${NSD_CreateLabel} 12u 90u 34% 12u "パスワード"
  Pop $0
  ${NSD_CreatePassword} 40% 88u 60% 12u ""
  Pop $PasswordBox
  ${NSD_CreateLabel} 12u 108u 95% 24u "共有フォルダは \\メインPCの名前\qn の形です。終わる前に、共有フォルダとメインPCにつながるかを試します。"
  Pop $0
  ${If} $Role == other
    ${NSD_Check} $Two
  ${Else}
    ${NSD_Check} $One
  ${EndIf}
  Push 0
  Call ShowRole
  nsDialogs::Show
FunctionEnd

Function ShowRole
  Pop $0
  ${NSD_GetState} $Two $1
  EnableWindow $ShareBox $1
  EnableWindow $MainPcBox $1
  EnableWindow $UserBox $1
  EnableWindow $PasswordBox $1
FunctionEnd

Function TakeRole
  ${NSD_GetState} $Two $0
  StrCpy $Role main
  ${If} $0 == ${BST_CHECKED}
    StrCpy $Role other
    ${NSD_GetText} $ShareBox $Share
    ${NSD_GetText} $MainPcBox $MainPc
    ${NSD_GetText} $UserBox $User
    ${NSD_GetText} $PasswordBox $Password
    ${If} $Share == ""
    ${OrIf} $MainPc == ""
      MessageBox MB_OK|MB_ICONEXCLAMATION "共有フォルダとメインPCの名前を入れてください。"
      Abort
    ${EndIf}
  ${EndIf}
FunctionEnd

; --- Programs that run -------------------------------------------------------------------------------------------------

; Waits until the file can be written, which is to say that no program runs from it. Leaves "open" or "" in $0.
!macro SeeOpen FILE
  StrCpy $0 ""
  ${If} ${FileExists} "${FILE}"
    ClearErrors
    FileOpen $1 "${FILE}" a
    ${If} ${Errors}
      StrCpy $0 open
    ${Else}
      FileClose $1
    ${EndIf}
  ${EndIf}
!macroend

; The screen is a person's to close. The service, which only its own installation stops, goes on where that isn't done.
!macro Closing UN
Function ${UN}WaitUntilClosed
  ${Do}
    !insertmacro SeeOpen "$Root\${TREE}\rovena100\system\exe\exe\rovena.exe"
    ${If} $0 == ""
      ${Break}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${TITLE}が動いています。閉じてから [再試行] を押してください。" /SD IDCANCEL IDRETRY look_again
    SetErrorLevel ${STILL_OPEN}
    Quit
    look_again:
  ${Loop}
  ${If} $Scope == machine
    nsExec::Exec 'sc stop ${SERVICE}'
    Pop $0
  ${EndIf}
  StrCpy $2 0
  ${Do}
    !insertmacro SeeOpen "$INSTDIR\jyunban.exe"
    ${If} $0 == ""
      !insertmacro SeeOpen "$Root\${TREE}\comdata\exe\exe\jyusinkanri.exe"
    ${EndIf}
    ${If} $0 == ""
      !insertmacro SeeOpen "$INSTDIR\jyusinkanri.exe"
    ${EndIf}
    ${If} $0 == ""
      ${Break}
    ${EndIf}
    IntOp $2 $2 + 1
    ${If} $2 < 60
      Sleep 500
      ${Continue}
    ${EndIf}
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "保存した内容を反映するプログラムがまだ動いています。少し待ってから [再試行] を押してください。" /SD IDCANCEL IDRETRY wait_again
    ${If} $Scope == machine
      nsExec::Exec 'sc start ${SERVICE}'
      Pop $0
    ${EndIf}
    SetErrorLevel ${STILL_OPEN}
    Quit
    wait_again:
  ${Loop}
FunctionEnd
!macroend
!insertmacro Closing ""
!insertmacro Closing "un."

; --- The installation --------------------------------------------------------------------------------------------------

Function MakeTree
  StrCpy $2 '"$INSTDIR\rovena-install.exe" "$Root/"'
  ${If} $Present == 0
  ${AndIf} $Role == other
    StrCpy $2 '$2 --use-class 2 --server-root "$Share"'
    ${If} $MainPc != ""
      StrCpy $2 '$2 --server-name "$MainPc"'
    ${EndIf}
    ${If} $User != ""
      StrCpy $2 '$2 --share-user "$User"'
    ${EndIf}
    ${If} $Password != ""
      StrCpy $PasswordFile "$PLUGINSDIR\word"
      FileOpen $0 $PasswordFile w
      FileWriteUTF16LE /BOM $0 $Password
      FileClose $0
    ${EndIf}
    ${If} $PasswordFile != ""
      StrCpy $2 '$2 --share-password-file "$PasswordFile"'
    ${EndIf}
  ${EndIf}
  nsExec::ExecToStack $2
  Pop $0
  Pop $1
  ${If} $Password != ""
    Delete $PasswordFile
  ${EndIf}
  ${If} $0 != 0
    ${If} $Role == other
    ${AndIf} $Present == 0
      !insertmacro TellAndEnd "共有フォルダ $Share を使えません。名前、アカウント、書き込みの許可を確かめてください。$\r$\n$\r$\n$1" ${NO_SHARE}
    ${EndIf}
    !insertmacro TellAndEnd "会社のデータを用意できませんでした。$\r$\n$\r$\n$1" ${FAILED}
  ${EndIf}
FunctionEnd

; The turn service has to answer, or nothing could be saved from here.
Function TryMainPc
  ${If} $Present == 1
  ${OrIf} $Role == main
  ${OrIf} $MainPc == ""
    Return
  ${EndIf}
  ${Do}
    nsExec::ExecToStack '"$INSTDIR\jyunban.exe" --status --bind "$MainPc"'
    Pop $0
    Pop $1
    ${If} $0 == 0
      Return
    ${EndIf}
    MessageBox MB_ABORTRETRYIGNORE|MB_ICONEXCLAMATION "メインPC $MainPc の順番サービスから答えがありません。$\r$\n$\r$\n名前が正しいか、メインPCでサービスが動いているか、ファイアウォールが1001番ポートを通すかを確かめてください。$\r$\n[無視] を押すとこのまま終わりますが、つながるまで登録はできません。" /SD IDABORT IDRETRY again IDIGNORE done
    SetErrorLevel ${NO_MAIN_PC}
    Quit
    again:
  ${Loop}
  done:
FunctionEnd

; All people of the PC, and the service, work with the same data. The programs stay the administrator's.
!macro Open FOLDER
  nsExec::Exec 'icacls "$Root\${TREE}\${FOLDER}" /grant *S-1-5-32-545:(OI)(CI)M *S-1-5-19:(OI)(CI)M /Q'
  Pop $0
!macroend

Function OpenTree
  ${If} $Scope == machine
    !insertmacro Open "rovena100\data"
    ${If} $Role == main
      !insertmacro Open "comdata\data"
      !insertmacro Open "comdata\mst"
    ${EndIf}
  ${EndIf}
FunctionEnd

Function MakeService
  ${If} $Scope != machine
  ${OrIf} $Role != main
    Return
  ${EndIf}
  ; Never the programs of the tree: what runs as a service is what only the administrator can exchange.
  StrCpy $1 "$INSTDIR\jyunban.exe"
  StrCpy $2 "$Root\${TREE}"
  StrCpy $3 '\"$1\" --root \"$2\" --manager \"$INSTDIR\jyusinkanri.exe\" --log \"$2\rovena100\data\trn\jyunban.log\"'
  nsExec::Exec 'sc create ${SERVICE} binPath= "$3" obj= "NT AUTHORITY\LocalService" start= auto DisplayName= "${TITLE} 順番サービス"'
  Pop $0
  nsExec::Exec 'sc failure ${SERVICE} reset= 86400 actions= restart/5000/restart/5000/restart/60000'
  Pop $0
  nsExec::Exec 'netsh advfirewall firewall delete rule name="${SERVICE}"'
  Pop $0
  nsExec::Exec 'netsh advfirewall firewall add rule name="${SERVICE}" dir=in action=allow protocol=TCP localport=1001 profile=private,domain program="$1"'
  Pop $0
  nsExec::Exec 'sc start ${SERVICE}'
  Pop $0
FunctionEnd

Function StartProgram
  Exec '"$Root\${TREE}\rovena100\system\exe\exe\rovena.exe"'
FunctionEnd

Section
  SetRegView 64
  Call WaitUntilClosed
  SetOutPath $INSTDIR
  File /r "${STAGED}\*.*"
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteINIStr "$INSTDIR\uninstall.ini" "installed" "Scope" $Scope
  Call MakeTree
  Call TryMainPc
  Call OpenTree
  Call MakeService

  WriteRegStr SHCTX "${KEY}" "Root" $Root
  WriteRegStr SHCTX "${KEY}" "Role" $Role
  WriteRegStr SHCTX "${KEY}" "Scope" $Scope
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayName" "${TITLE}"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL}" "Publisher" "Rovena"
  WriteRegStr SHCTX "${UNINSTALL}" "DisplayIcon" "$INSTDIR\rovena.exe"
  WriteRegStr SHCTX "${UNINSTALL}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL}" "UninstallString" '"$INSTDIR\uninstall.exe"'
  WriteRegStr SHCTX "${UNINSTALL}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL}" "NoRepair" 1
  SetOutPath "$Root\${TREE}\rovena100\system\exe\exe"
  CreateShortcut "$SMPROGRAMS\${TITLE}.lnk" "$Root\${TREE}\rovena100\system\exe\exe\rovena.exe"
SectionEnd

; --- Taking it away ----------------------------------------------------------------------------------------------------

Function un.onInit
  SetRegView 64
  ReadINIStr $Scope "$INSTDIR\uninstall.ini" "installed" "Scope"
  ${If} $Scope == machine
    SetShellVarContext all
  ${Else}
    SetShellVarContext current
  ${EndIf}
  ReadRegStr $Root SHCTX "${KEY}" "Root"
  UserInfo::GetAccountType
  Pop $0
  ${If} $Scope == machine
  ${AndIf} $0 != "Admin"
    ExecShell "runas" "$INSTDIR\uninstall.exe"
    Quit
  ${EndIf}
FunctionEnd

Section Uninstall
  SetRegView 64
  Call un.WaitUntilClosed
  ${If} $Scope == machine
    nsExec::Exec 'sc delete ${SERVICE}'
    Pop $0
    nsExec::Exec 'netsh advfirewall firewall delete rule name="${SERVICE}"'
    Pop $0
  ${EndIf}
  Delete "$SMPROGRAMS\${TITLE}.lnk"
  ${If} ${FileExists} "$INSTDIR\rovena-install.exe"
    RMDir /r "$INSTDIR"
  ${EndIf}
  DeleteRegKey SHCTX "${UNINSTALL}"
  DeleteRegKey SHCTX "${KEY}"
SectionEnd
