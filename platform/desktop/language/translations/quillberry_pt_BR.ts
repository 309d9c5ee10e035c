<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Sair do Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Editar</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Desfazer</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Refazer</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Recortar</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Copiar</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Colar</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Selecionar tudo</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Mostrar / ocultar a nota</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Manter no topo</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Mostrar quando a tela acordar</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Abrir ao iniciar a sessão</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Verificar atualizações…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Atalhos</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Mostrar / ocultar a nota</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Manter no topo, em todos os espaços de trabalho</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Ocultar e voltar ao que estava fazendo</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>No topo, em todos os espaços de trabalho</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Ocultar e voltar ao que fazia</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Sua nota, sempre à mão 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>O Quillberry fica na área de notificação ou, se não houver uma, na barra de título da nota, e vem para a frente quando o computador acorda. Os atalhos:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Entendi</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Nota</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Fechar</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Novidades</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Abrir página</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>As atualizações do %1 vêm com os pacotes do seu sistema.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>A resposta do servidor não é uma lista de versões (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Verificando atualizações…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Cancelar</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>O %1 %2 está atualizado.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>O %1 %2 está disponível. Você tem a versão %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>Não foi possível verificar se há atualizações.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Nenhum programa consegue abrir %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>O servidor não respondeu em %1&#xa0;s.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>O endereço do feed não é um endereço HTTPS nem um endereço deste computador.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>O servidor respondeu com o código de status %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>A resposta tem mais de 1&#xa0;MB.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>Falha na conexão: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Uma nota em texto simples, sempre à mão</translation>
    </message>
</context>
</TS>
