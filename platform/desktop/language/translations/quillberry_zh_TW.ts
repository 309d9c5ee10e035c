<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>結束 Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>編輯</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>復原</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>重做</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>剪下</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>複製</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>貼上</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>全選</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>顯示／隱藏便條</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>保持在最上層</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>螢幕喚醒時顯示</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>登入時啟動</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>檢查更新…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>快捷鍵</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>顯示／隱藏便條</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>在所有工作區保持在最上層</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>隱藏並回到先前的工作</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>在所有工作區保持在最上層</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>隱藏並回到先前的工作</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>您的便條，觸手可及 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry 位於系統匣中；沒有系統匣時，則位於便條的標題列中。電腦喚醒後，便條會顯示在最前面。快捷鍵：</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>知道了</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>便條</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>關閉</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>更新內容</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>開啟頁面</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>%1 的更新隨系統套件提供。</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>伺服器的回應不是版本清單（appcast）。</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>正在檢查更新…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>取消</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 已是最新版本。</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>有可用的新版本：%1 %2。您目前的版本是 %3。</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>無法檢查更新。</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>沒有可以開啟 %1 的程式</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>伺服器未在 %1 秒內回應。</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>更新來源的位址既不是 HTTPS 位址，也不是本機位址。</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>伺服器傳回狀態碼 %1。</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>回應超過 1 MB。</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>連線失敗：%1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>一張純文字便條，隨時在手邊</translation>
    </message>
</context>
</TS>
