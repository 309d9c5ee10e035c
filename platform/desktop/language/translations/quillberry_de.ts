<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quillberry beenden</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Bearbeiten</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Rückgängig</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Wiederherstellen</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Ausschneiden</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Kopieren</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Einfügen</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Alles auswählen</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Notiz ein-/ausblenden</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Im Vordergrund halten</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Nach dem Aufwachen anzeigen</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Beim Anmelden starten</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Nach Aktualisierungen suchen&#xa0;…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Tastenkürzel</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Notiz ein-/ausblenden</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Im Vordergrund halten, auf allen Arbeitsflächen</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Ausblenden und zurück zur vorherigen Arbeit</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Im Vordergrund, auf allen Arbeitsflächen</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Ausblenden und weiterarbeiten</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Ihre Notiz ist immer zur Hand 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry sitzt im Benachrichtigungsfeld oder, wo es keines gibt, in der Titelleiste der Notiz und kommt nach vorn, wenn Ihr Rechner aufwacht. Die Tastenkürzel:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Verstanden</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Notiz</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Schließen</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Neuerungen</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Seite öffnen</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Aktualisierungen für %1 kommen mit den Paketen Ihres Systems.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>Die Antwort des Servers ist keine Versionsliste (Appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Es wird nach Aktualisierungen gesucht&#xa0;…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Abbrechen</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 ist aktuell.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 ist verfügbar. Installiert ist Version %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Die Suche nach Aktualisierungen ist fehlgeschlagen.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Es gibt kein Programm, mit dem sich %1 öffnen lässt</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Der Server hat nicht innerhalb von %1&#xa0;s geantwortet.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>Die Adresse der Versionsliste ist weder eine HTTPS-Adresse noch eine Adresse dieses Rechners.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Der Server hat mit Status %1 geantwortet.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>Die Antwort ist größer als 1&#xa0;MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Die Verbindung ist fehlgeschlagen: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Eine Textnotiz, immer zur Hand</translation>
    </message>
</context>
</TS>
