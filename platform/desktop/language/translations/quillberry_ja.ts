<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quillberry を終了</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>編集</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>元に戻す</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>やり直す</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>切り取り</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>コピー</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>貼り付け</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>すべて選択</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>メモの表示／非表示</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>常に手前に表示</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>スリープ解除時に表示</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>ログイン時に起動</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>アップデートを確認…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>ショートカット</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>メモの表示／非表示</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>常に手前に表示（すべてのワークスペース）</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>隠して元の作業に戻る</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>全ワークスペースで手前に表示</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>隠して元の作業に戻る</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>メモはいつも手元に 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry はシステムトレイ（トレイがない場合はメモのタイトルバー）から使えます。コンピューターがスリープから復帰すると、メモが手前に表示されます。ショートカット:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>わかりました</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>メモ</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>閉じる</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>変更点</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>ページを開く</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>%1 のアップデートは、システムのパッケージとして提供されます。</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>サーバーの応答はリリース一覧（appcast）ではありません。</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>アップデートを確認しています…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>キャンセル</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 は最新です。</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 が利用できます。お使いのバージョンは %3 です。</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>アップデートを確認できませんでした。</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>%1 を開けるプログラムがありません</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>サーバーが %1 秒以内に応答しませんでした。</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>フィードのアドレスが、HTTPS のアドレスでもこのコンピューター上のアドレスでもありません。</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>サーバーがステータス %1 を返しました。</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>応答が 1 MB を超えています。</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>接続に失敗しました: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>いつも手元にある、プレーンテキストのメモ</translation>
    </message>
</context>
</TS>
