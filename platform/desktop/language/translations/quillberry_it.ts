<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Esci da Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Modifica</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Annulla</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Ripeti</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Taglia</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Copia</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Incolla</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Seleziona tutto</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Mostra / nascondi la nota</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Mantieni in primo piano</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Mostra al risveglio dello schermo</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Avvia all’accesso</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Controlla aggiornamenti…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Scorciatoie</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Mostra / nascondi la nota</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Mantieni in primo piano, in ogni spazio di lavoro</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Nascondi e torna a ciò che stavi facendo</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>In primo piano, in ogni spazio di lavoro</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Nascondi e torna al lavoro</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>La tua nota, a portata di mano 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry si trova nell’area di notifica o, se non c’è, nella barra del titolo della nota, e torna in primo piano al risveglio del computer. Le scorciatoie:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Ho capito</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Nota</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Chiudi</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Novità</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Apri la pagina</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Gli aggiornamenti di %1 arrivano con i pacchetti del sistema.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>La risposta del server non è un elenco di versioni (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Controllo degli aggiornamenti…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Annulla</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 è aggiornato.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>È disponibile %1 %2. La versione installata è %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Impossibile controllare gli aggiornamenti.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Nessun programma può aprire %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Il server non ha risposto entro %1&#xa0;s.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>L’indirizzo del feed non è né un indirizzo HTTPS né uno di questo computer.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Il server ha risposto con il codice di stato %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>La risposta supera 1&#xa0;MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Connessione non riuscita: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Una nota di testo semplice, sempre a portata di mano</translation>
    </message>
</context>
</TS>
