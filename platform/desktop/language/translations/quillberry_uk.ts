<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="uk">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Вийти з Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Зміни</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Вернути</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Повторити</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Вирізати</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Копіювати</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Вставити</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Вибрати все</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Показати / сховати нотатку</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Тримати поверх інших</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Показувати після пробудження</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Запускати під час входу до системи</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Перевірити оновлення…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Комбінації клавіш</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Показати / сховати нотатку</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Тримати поверх інших, на всіх робочих просторах</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Сховати й повернутися до своїх справ</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Поверх інших, на всіх робочих просторах</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Сховати й повернутися до справ</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Нотатка завжди під рукою 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry міститься в системному лотку, а якщо його немає — у заголовку вікна нотатки. Коли комп’ютер прокидається, нотатка з’являється поверх інших вікон. Комбінації клавіш:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Зрозуміло</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Нотатка</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Закрити</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Що нового</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Відкрити сторінку</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Оновлення %1 надходять разом із пакунками вашої системи.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>Відповідь сервера не є списком випусків (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Перевірка оновлень…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Скасувати</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>У вас найновіша версія: %1 %2.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>Доступна версія %1 %2. У вас %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Не вдалося перевірити оновлення.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Немає програми, яка може відкрити %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Сервер не відповів за %1 с.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>Адреса каналу оновлень не є ні адресою HTTPS, ні адресою на цьому комп’ютері.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Сервер відповів кодом стану %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>Відповідь перевищує 1 МБ.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Помилка з’єднання: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Одна текстова нотатка, завжди під рукою</translation>
    </message>
</context>
</TS>
