<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Zakończ Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Edycja</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Cofnij</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Ponów</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Wytnij</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Kopiuj</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Wklej</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Zaznacz wszystko</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Pokaż / ukryj notatkę</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Zawsze na wierzchu</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Pokazuj po wybudzeniu ekranu</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Uruchamiaj po zalogowaniu</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Sprawdź aktualizacje…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Skróty</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Pokaż / ukryj notatkę</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Zawsze na wierzchu, na każdym obszarze roboczym</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Ukryj i wróć do przerwanej pracy</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Na wierzchu, na każdym obszarze roboczym</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Ukryj i wróć do pracy</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Notatka zawsze pod ręką 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry znajduje się w zasobniku systemowym, a gdy go nie ma – na pasku tytułowym notatki. Po wybudzeniu komputera notatka pojawia się na wierzchu. Skróty:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Rozumiem</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Notatka</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Zamknij</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Co nowego</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Otwórz stronę</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Aktualizacje programu %1 są dostarczane w pakietach systemu.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>Odpowiedź serwera nie jest listą wydań (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Sprawdzanie aktualizacji…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Anuluj</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>Program %1 %2 jest aktualny.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>Dostępna jest nowa wersja: %1 %2. Zainstalowana wersja to %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Nie udało się sprawdzić aktualizacji.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Brak programu, który może otworzyć %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Serwer nie odpowiedział w ciągu %1 s.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>Adres kanału aktualizacji nie jest ani adresem HTTPS, ani adresem na tym komputerze.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Serwer zwrócił kod stanu %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>Odpowiedź jest większa niż 1 MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Połączenie nie powiodło się: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Jedna notatka tekstowa, zawsze pod ręką</translation>
    </message>
</context>
</TS>
