<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quillberry afsluiten</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Bewerken</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Ongedaan maken</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Opnieuw</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Knippen</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Kopiëren</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Plakken</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Alles selecteren</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Notitie tonen/verbergen</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Op de voorgrond houden</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Tonen na de slaapstand</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Starten bij aanmelden</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Controleren op updates…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Sneltoetsen</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Notitie tonen/verbergen</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Op de voorgrond houden, op elk werkblad</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Verbergen en terug naar waar u mee bezig was</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Op de voorgrond, op elk werkblad</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Verbergen en verderwerken</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Uw notitie, altijd bij de hand 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry zit in het systeemvak of, als dat er niet is, in de titelbalk van de notitie, en komt naar voren wanneer uw computer uit de slaapstand komt. De sneltoetsen:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Begrepen</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Notitie</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Sluiten</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Nieuw in deze versie</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Pagina openen</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Updates van %1 krijgt u via de pakketten van uw systeem.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>Het antwoord van de server is geen versielijst (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Controleren op updates…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Annuleren</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 is de nieuwste versie.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 is beschikbaar. U hebt versie %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Controleren op updates is mislukt.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Er is geen programma dat %1 kan openen</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>De server heeft niet binnen %1&#xa0;s geantwoord.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>Het adres van de feed is geen HTTPS-adres en ook geen adres op deze computer.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>De server heeft geantwoord met status %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>Het antwoord is groter dan 1&#xa0;MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>De verbinding is mislukt: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Eén notitie in platte tekst, altijd bij de hand</translation>
    </message>
</context>
</TS>
