<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="he">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>יציאה מ־Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>עריכה</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>ביטול פעולה</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>ביצוע חוזר</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>גזירה</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>העתקה</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>הדבקה</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>בחירת הכול</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>הצגת / הסתרת הפתק</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>תמיד למעלה</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>הצגה כשהמסך מתעורר</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>הפעלה בכניסה למערכת</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>בדיקת עדכונים…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>קיצורי מקשים</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>הצגת / הסתרת הפתק</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>תמיד למעלה, בכל מרחבי העבודה</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>הסתרה וחזרה לעיסוק הקודם</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>תמיד למעלה, בכל מרחבי העבודה</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>הסתרה וחזרה לעבודה</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>הפתק תמיד בהישג יד 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>היישום Quillberry נמצא במגש המערכת, או בשורת הכותרת של הפתק אם אין מגש, והפתק עולה לחזית כשהמחשב מתעורר. קיצורי המקשים:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>הבנתי</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>פתק</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>סגירה</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>מה חדש</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>פתיחת הדף</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>העדכונים של %1 מגיעים עם חבילות המערכת.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>תשובת השרת אינה רשימת גרסאות (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>מתבצעת בדיקת עדכונים…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>ביטול</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>הגרסה העדכנית ביותר מותקנת: %1 %2.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>גרסה חדשה זמינה: %1 %2. הגרסה המותקנת: %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>בדיקת העדכונים נכשלה.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>אין יישום שיכול לפתוח את %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>השרת לא השיב בתוך %1 שניות.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>כתובת ערוץ העדכונים אינה כתובת HTTPS וגם לא כתובת במחשב הזה.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>השרת השיב בקוד מצב %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>התשובה גדולה מ־1 מ״ב.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>ההתחברות נכשלה: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>פתק אחד של טקסט פשוט, תמיד בהישג יד</translation>
    </message>
</context>
</TS>
