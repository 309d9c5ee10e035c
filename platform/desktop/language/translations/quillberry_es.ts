<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Salir de Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Editar</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Deshacer</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Rehacer</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Cortar</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Copiar</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Pegar</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Seleccionar todo</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Mostrar / ocultar la nota</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Mantener encima</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Mostrar al reactivar la pantalla</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Abrir al iniciar sesión</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Buscar actualizaciones…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Atajos</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Mostrar / ocultar la nota</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Mantener encima, en todas las áreas de trabajo</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Ocultar y volver a lo que estaba haciendo</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Encima, en todas las áreas de trabajo</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Ocultar y volver a lo que hacía</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Su nota, siempre a mano 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry está en la bandeja del sistema o, si no la hay, en la barra de título de la nota, y pasa a primer plano cuando el equipo se reactiva. Los atajos:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Entendido</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Nota</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Cerrar</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Novedades</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Abrir la página</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Las actualizaciones de %1 llegan con los paquetes de su sistema.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>La respuesta del servidor no es una lista de versiones (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Buscando actualizaciones…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Cancelar</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 está actualizado.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 está disponible. Tiene instalada la versión %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>No se pudieron buscar actualizaciones.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>No hay ningún programa que pueda abrir %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>El servidor no respondió en %1&#xa0;s.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>La dirección del canal de actualizaciones no es una dirección HTTPS ni una de este equipo.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>El servidor respondió con el código de estado %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>La respuesta ocupa más de 1&#xa0;MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Falló la conexión: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Una nota de texto sin formato, siempre a mano</translation>
    </message>
</context>
</TS>
