<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ZelControlCenter</name>
    <message>
        <source>Could not use the 3D database cache, folder &quot;%1&quot; could not be created</source>
        <translation >Impossible d’utiliser le cache de la base 3D : le dossier &quot;%1&quot; n’a pas pu être créé</translation>
    </message>
    <message>
        <source>Could not use the Torvane log file, file &quot;%1&quot; could not be created</source>
        <translation >Impossible d’utiliser le journal de Torvane : le fichier &quot;%1&quot; n’a pas pu être créé</translation>
    </message>
    <message>
        <source>Could not create compulsory folder &quot;%1&quot;</source>
        <translation >Impossible de créer le dossier obligatoire &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Settings Modification</source>
        <translation >Modification des paramètres</translation>
    </message>
    <message>
        <source>Application Settings</source>
        <translation >Paramètres de l’application</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation >Réinitialiser</translation>
    </message>
    <message>
        <source>Resets all parameters</source>
        <translation >Rétablit tous les paramètres</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation >Appliquer</translation>
    </message>
    <message>
        <source>Applies your changes</source>
        <translation >Applique vos modifications</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation >Paramètres</translation>
    </message>
    <message>
        <source>Changes the settings of the application</source>
        <translation >Modifie les paramètres de l’application</translation>
    </message>
    <message>
        <source>You need to restart your application to turn settings modification effective.</source>
        <translation >Redémarrez l’application pour que les nouveaux paramètres prennent effet.</translation>
    </message>
    <message>
        <source>You have pending modifications. Continue and discard your changes ?</source>
        <translation >Des modifications n’ont pas été appliquées. Continuer et les abandonner ?</translation>
    </message>
</context>
</TS>
