<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>退出 Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>编辑</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>撤销</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>重做</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>剪切</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>复制</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>粘贴</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>全选</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>显示/隐藏便笺</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>保持置顶</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>屏幕唤醒时显示</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>登录时启动</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>检查更新…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>快捷键</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>显示/隐藏便笺</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>在所有工作区保持置顶</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>隐藏并返回之前的工作</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>在所有工作区置顶</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>隐藏并返回之前的工作</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>您的便笺，触手可及 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry 位于系统托盘中；没有托盘时，则位于便笺的标题栏中。电脑唤醒后，便笺会显示在最前面。快捷键：</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>知道了</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>便笺</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>关闭</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>更新内容</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>打开页面</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>%1 的更新随系统软件包提供。</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>服务器的响应不是版本列表（appcast）。</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>正在检查更新…</translation>
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
        <translation>有新版本可用：%1 %2。您当前的版本是 %3。</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>无法检查更新。</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>没有可以打开 %1 的程序</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>服务器未在 %1 秒内响应。</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>更新源的地址既不是 HTTPS 地址，也不是本机地址。</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>服务器返回了状态码 %1。</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>响应超过 1 MB。</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>连接失败：%1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>一张纯文本便笺，随时在手边</translation>
    </message>
</context>
</TS>
