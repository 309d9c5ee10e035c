<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Выйти из Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Правка</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Отменить</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Повторить</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Вырезать</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Копировать</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Вставить</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Выделить всё</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Показать / скрыть заметку</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Поверх других окон</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Показывать после пробуждения</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Запускать при входе в систему</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Проверить обновления…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Комбинации клавиш</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Показать / скрыть заметку</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Поверх других окон, на всех рабочих столах</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Скрыть и вернуться к своим делам</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Поверх окон, на всех рабочих столах</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Скрыть и вернуться к делам</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Заметка всегда под рукой 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry находится в системном лотке, а если его нет — в заголовке окна заметки. После пробуждения компьютера заметка появляется поверх других окон. Комбинации клавиш:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Понятно</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Заметка</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Закрыть</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Что нового</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Открыть страницу</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Обновления %1 поставляются с пакетами вашей системы.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>Ответ сервера не является списком выпусков (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Проверка обновлений…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Отмена</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>У вас последняя версия: %1 %2.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>Доступна версия %1 %2. У вас %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Не удалось проверить обновления.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Нет программы, способной открыть %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Сервер не ответил за %1 с.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>Адрес списка выпусков не является ни адресом HTTPS, ни адресом на этом компьютере.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Сервер ответил кодом состояния %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>Размер ответа превышает 1 МБ.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Ошибка соединения: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Одна текстовая заметка, всегда под рукой</translation>
    </message>
</context>
</TS>
