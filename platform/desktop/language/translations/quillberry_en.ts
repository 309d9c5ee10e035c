<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quit Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Edit</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Undo</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Redo</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Cut</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Copy</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Paste</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Select All</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Show / Hide Note</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Keep on Top</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Show on Screen Wake</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Start at Login</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Check for Updates…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Shortcuts</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Show / hide the note</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Keep on top, on every workspace</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Hide and go back to what you did</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>On top, on every workspace</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Hide, back to what you did</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Your note is always at hand 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry lives in the tray, or in the note&apos;s title bar where there is none, and comes forward when your computer wakes up. Its keys:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Got it</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Note</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Close</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>What is new</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Open Page</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Updates of %1 come with your system&apos;s packages.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>What the server sent is not an appcast.</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Checking for updates…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Cancel</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 is up to date.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 is available. You have %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Could not check for updates.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>There is no program that opens %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>The server did not answer within %1 s.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>The address of the feed is neither an HTTPS address nor one on this computer.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>The server answered with status %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>The answer is larger than 1 MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>The connection failed: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>One plain-text note, always at hand</translation>
    </message>
</context>
</TS>
