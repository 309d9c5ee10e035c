<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr">
<context>
    <name></name>
    <message id="Quit Quillberry">
        <source></source>
        <translation>Quitter Quillberry</translation>
    </message>
    <message id="Edit">
        <source></source>
        <translation>Édition</translation>
    </message>
    <message id="Undo">
        <source></source>
        <translation>Annuler</translation>
    </message>
    <message id="Redo">
        <source></source>
        <translation>Rétablir</translation>
    </message>
    <message id="Cut">
        <source></source>
        <translation>Couper</translation>
    </message>
    <message id="Copy">
        <source></source>
        <translation>Copier</translation>
    </message>
    <message id="Paste">
        <source></source>
        <translation>Coller</translation>
    </message>
    <message id="Select All">
        <source></source>
        <translation>Tout sélectionner</translation>
    </message>
    <message id="Show / Hide Note">
        <source></source>
        <translation>Afficher / masquer la note</translation>
    </message>
    <message id="Keep on Top">
        <source></source>
        <translation>Garder au premier plan</translation>
    </message>
    <message id="Show on Screen Wake">
        <source></source>
        <translation>Afficher à la sortie de veille</translation>
    </message>
    <message id="Start at Login">
        <source></source>
        <translation>Lancer à l’ouverture de session</translation>
    </message>
    <message id="Check for Updates…">
        <source></source>
        <translation>Rechercher des mises à jour…</translation>
    </message>
    <message id="Shortcuts">
        <source></source>
        <translation>Raccourcis</translation>
    </message>
    <message id="Show / hide from anywhere">
        <source></source>
        <translation>Afficher / masquer la note</translation>
    </message>
    <message id="Keep on top (follows every Space)">
        <source></source>
        <translation>Garder au premier plan, sur tous les espaces de travail</translation>
    </message>
    <message id="Hide and go back to what you did">
        <source></source>
        <translation>Masquer et revenir à ce que vous faisiez</translation>
    </message>
    <message id="Keep on top (every Space)">
        <source></source>
        <translation>Au premier plan, sur tous les espaces de travail</translation>
    </message>
    <message id="Hide, back to what you did">
        <source></source>
        <translation>Masquer et reprendre votre travail</translation>
    </message>
    <message id="You'll find it up here 📝">
        <source></source>
        <translation>Votre note reste à portée de main 📝</translation>
    </message>
    <message id="Quillberry lives in the menu bar — no Dock icon — and greets you every time your Mac wakes. Summon it from anywhere with these:">
        <source></source>
        <translation>Quillberry se trouve dans la zone de notification ou, à défaut, dans la barre de titre de la note, et revient au premier plan quand votre ordinateur sort de veille. Les raccourcis&#xa0;:</translation>
    </message>
    <message id="Got it">
        <source></source>
        <translation>Compris</translation>
    </message>
    <message id="Note">
        <source></source>
        <translation>Note</translation>
    </message>
    <message id="Close">
        <source></source>
        <translation>Fermer</translation>
    </message>
    <message id="What is new">
        <source></source>
        <translation>Nouveautés</translation>
    </message>
    <message id="Open Page">
        <source></source>
        <translation>Ouvrir la page</translation>
    </message>
    <message id="Updates of %1 come with your system's packages.">
        <source></source>
        <translation>Les mises à jour de %1 sont fournies avec les paquets de votre système.</translation>
    </message>
    <message id="What the server sent is not an appcast.">
        <source></source>
        <translation>La réponse du serveur n’est pas une liste de versions (appcast).</translation>
    </message>
    <message id="Checking for updates…">
        <source></source>
        <translation>Recherche de mises à jour…</translation>
    </message>
    <message id="Cancel">
        <source></source>
        <translation>Annuler</translation>
    </message>
    <message id="%1 %2 is up to date.">
        <source></source>
        <translation>%1 %2 est à jour.</translation>
    </message>
    <message id="%1 %2 is available. You have %3.">
        <source></source>
        <translation>%1 %2 est disponible. Vous avez la version %3.</translation>
    </message>
    <message id="Could not check for updates.">
        <source></source>
        <translation>La recherche de mises à jour a échoué.</translation>
    </message>
    <message id="There is no program that opens %1">
        <source></source>
        <translation>Aucun programme ne peut ouvrir %1</translation>
    </message>
    <message id="The server did not answer within %1 s.">
        <source></source>
        <translation>Le serveur n’a pas répondu dans un délai de %1&#xa0;s.</translation>
    </message>
    <message id="The address of the feed is neither an HTTPS address nor one on this computer.">
        <source></source>
        <translation>L’adresse du flux n’est ni une adresse HTTPS ni une adresse de cet ordinateur.</translation>
    </message>
    <message id="The server answered with status %1.">
        <source></source>
        <translation>Le serveur a répondu avec le code d’état %1.</translation>
    </message>
    <message id="The answer is larger than 1 MB.">
        <source></source>
        <translation>La réponse dépasse 1&#xa0;Mo.</translation>
    </message>
    <message id="The connection failed: %1">
        <source></source>
        <translation>La connexion a échoué&#xa0;: %1</translation>
    </message>
    <message id="One plain-text note, always at hand">
        <source></source>
        <translation>Une note en texte brut, toujours à portée de main</translation>
    </message>
</context>
</TS>
