; What the setup program says, besides the texts of NSIS.

LangString Finished ${LANG_ENGLISH} "Tarvik is in the Start menu."
LangString Finished ${LANG_JAPANESE} "Tarvik はスタート メニューから起動できます。"

LangString FirewallRule ${LANG_ENGLISH} "Allow FTP listings through Windows Firewall"
LangString FirewallRule ${LANG_JAPANESE} "FTP の一覧取得を Windows ファイアウォールで許可する"

LangString NoFirewallRule ${LANG_ENGLISH} "Tarvik is installed, but the firewall rule could not be added."
LangString NoFirewallRule ${LANG_JAPANESE} "Tarvik はインストールされましたが、ファイアウォールの規則を追加できませんでした。"

LangString StillRunning ${LANG_ENGLISH} "Tarvik is still running, perhaps with a test or an open message.$\n$\nEnd the test, close Tarvik, and start this program again."
LangString StillRunning ${LANG_JAPANESE} "Tarvik が実行中です。テスト中か、メッセージが表示されている可能性があります。$\n$\nテストを終了して Tarvik を閉じてから、この操作をやり直してください。"

LangString StillRunningAtRemoval ${LANG_ENGLISH} "Tarvik is still running, perhaps with a test or an open message.$\n$\nEnd the test, close Tarvik, and remove it again."
LangString StillRunningAtRemoval ${LANG_JAPANESE} "Tarvik が実行中です。テスト中か、メッセージが表示されている可能性があります。$\n$\nテストを終了して Tarvik を閉じてから、もう一度アンインストールしてください。"

LangString NeedsAdministrator ${LANG_ENGLISH} "Only an administrator can do this for all users.$\n$\nRight-click this program and choose $\"Run as administrator$\"."
LangString NeedsAdministrator ${LANG_JAPANESE} "すべてのユーザーを対象に行うには、管理者権限が必要です。$\n$\nこのプログラムを右クリックし、「管理者として実行」を選択してください。"
