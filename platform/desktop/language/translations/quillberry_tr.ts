<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quillberry’den Çık</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Düzenle</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Geri Al</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Yinele</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Kes</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Kopyala</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Yapıştır</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Tümünü Seç</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Notu Göster / Gizle</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Üstte Tut</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Ekran Uyanınca Göster</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Oturum Açılınca Başlat</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Güncellemeleri Denetle…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Kısayollar</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Notu göster / gizle</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Her çalışma alanında üstte tut</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Gizle ve önceki işinize dön</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Her çalışma alanında üstte</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Gizle ve önceki işe dön</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Notunuz hep elinizin altında 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry sistem tepsisinde, tepsi yoksa notun başlık çubuğunda durur; bilgisayarınız uyandığında not öne gelir. Kısayollar:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Anladım</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Not</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Kapat</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Yenilikler</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Sayfayı Aç</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>%1 güncellemeleri sisteminizin paketleriyle gelir.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>Sunucunun yanıtı bir sürüm listesi (appcast) değil.</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Güncellemeler denetleniyor…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>İptal</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 güncel.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>Yeni sürüm: %1 %2. Sizdeki sürüm: %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Güncellemeler denetlenemedi.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>%1 adresini açabilecek bir program yok</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Sunucu %1 sn içinde yanıt vermedi.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>Güncelleme akışının adresi ne bir HTTPS adresi ne de bu bilgisayardaki bir adres.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Sunucu %1 durum koduyla yanıt verdi.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>Yanıt 1 MB’tan büyük.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Bağlantı başarısız oldu: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Tek bir düz metin notu, her zaman elinizin altında</translation>
    </message>
</context>
</TS>
