<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>إنهاء Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>تحرير</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>تراجع</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>إعادة</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>قص</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>نسخ</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>لصق</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>تحديد الكل</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>إظهار / إخفاء الملاحظة</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>الإبقاء في المقدمة</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>الإظهار عند استيقاظ الشاشة</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>التشغيل عند تسجيل الدخول</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>التحقق من وجود تحديثات…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>الاختصارات</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>إظهار / إخفاء الملاحظة</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>الإبقاء في المقدمة على كل مساحات العمل</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>الإخفاء والعودة إلى ما كنت تفعله</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>في المقدمة على كل مساحات العمل</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>الإخفاء والعودة إلى العمل</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>ملاحظتك في متناول يدك دائمًا 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>يوجد Quillberry في صينية النظام، أو في شريط عنوان الملاحظة إن لم تكن هناك صينية، وتظهر الملاحظة في المقدمة عند استيقاظ الحاسوب. الاختصارات:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>فهمت</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>ملاحظة</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>إغلاق</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>ما الجديد</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>فتح الصفحة</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>تأتي تحديثات %1 مع حزم نظامك.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>ما أرسله الخادم ليس قائمة إصدارات (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>جارٍ التحقق من وجود تحديثات…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>إلغاء</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>لديك أحدث إصدار: %1 %2.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>يتوفر إصدار جديد: %1 %2. الإصدار المثبت لديك: %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>تعذر التحقق من وجود تحديثات.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>لا يوجد برنامج لفتح %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>لم يستجب الخادم خلال %1 ث.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>عنوان مصدر التحديثات ليس عنوان HTTPS ولا عنوانًا على هذا الحاسوب.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>ردّ الخادم برمز الحالة %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>حجم الرد أكبر من 1 ميغابايت.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>فشل الاتصال: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>ملاحظة نصية واحدة، في متناول يدك دائمًا</translation>
    </message>
</context>
</TS>
