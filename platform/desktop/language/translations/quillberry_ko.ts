<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quillberry 끝내기</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>편집</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>실행 취소</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>다시 실행</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>잘라내기</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>복사</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>붙여넣기</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>모두 선택</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>메모 보이기 / 숨기기</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>항상 위에 표시</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>화면이 켜질 때 보이기</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>로그인할 때 시작</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>업데이트 확인…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>단축키</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>메모 보이기 / 숨기기</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>모든 작업 공간에서 항상 위에 표시</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>숨기고 하던 일로 돌아가기</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>모든 작업 공간에서 위에 표시</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>숨기고 하던 일로 돌아가기</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>메모는 언제나 가까이에 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry는 시스템 트레이에 있으며, 트레이가 없으면 메모의 제목 표시줄에 있습니다. 컴퓨터가 절전 모드에서 깨어나면 메모가 맨 앞에 나타납니다. 단축키:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>확인</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>메모</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>닫기</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>새로운 내용</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>페이지 열기</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>%1 업데이트는 시스템 패키지로 제공됩니다.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>서버가 보낸 응답이 릴리스 목록(appcast)이 아닙니다.</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>업데이트를 확인하는 중…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>취소</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>최신 버전(%1 %2)을 사용하고 있습니다.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 버전을 사용할 수 있습니다. 현재 버전은 %3입니다.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>업데이트를 확인하지 못했습니다.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>%1 주소를 열 수 있는 프로그램이 없습니다</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>서버가 %1초 안에 응답하지 않았습니다.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>피드 주소가 HTTPS 주소도 아니고 이 컴퓨터의 주소도 아닙니다.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>서버에서 상태 코드 %1 응답을 받았습니다.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>응답이 1 MB보다 큽니다.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>연결하지 못했습니다: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>언제나 가까이에 있는 일반 텍스트 메모 하나</translation>
    </message>
</context>
</TS>
