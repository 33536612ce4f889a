<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR">
<context>
    <name>ControlCenterStandAlone</name>
    <message>
        <source>Torvane - Control Center</source>
        <translation>Torvane - Centre de contrôle</translation>
    </message>
    <message>
        <source>Control Center</source>
        <translation>Centre de contrôle</translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation>Réduire</translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation>Agrandir</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
</context>
<context>
    <name>ZelAboutSettingsPanel</name>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
    <message>
        <source>Identify the Torvane version and all the third party components used while developping this software.</source>
        <translation>Identifiez la version de Torvane et tous les composants tiers utilisés pour développer ce logiciel.</translation>
    </message>
    <message>
        <source>Copyright © 2012-%1 The Torvane team. All rights reserved.</source>
        <translation>Copyright © 2012-%1 L’équipe Torvane. Tous droits réservés.</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Modules</translation>
    </message>
    <message>
        <source>Plugin name</source>
        <translation>Nom du module</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Version</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;This software uses the following libraries :&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Ce logiciel utilise les bibliothèques suivantes :&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>ZelControlCenter</name>
    <message>
        <source>Could not use the 3D database cache, folder &quot;%1&quot; could not be created</source>
        <translation>Impossible d’utiliser le cache de la base 3D : le dossier &quot;%1&quot; n’a pas pu être créé</translation>
    </message>
    <message>
        <source>Could not use the Torvane log file, file &quot;%1&quot; could not be created</source>
        <translation>Impossible d’utiliser le journal de Torvane : le fichier &quot;%1&quot; n’a pas pu être créé</translation>
    </message>
    <message>
        <source>Could not create compulsory folder &quot;%1&quot;</source>
        <translation>Impossible de créer le dossier obligatoire &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Settings Modification</source>
        <translation>Modification des paramètres</translation>
    </message>
    <message>
        <source>Application Settings</source>
        <translation>Paramètres de l’application</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Réinitialiser</translation>
    </message>
    <message>
        <source>Resets all parameters</source>
        <translation>Rétablit tous les paramètres</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message>
        <source>Applies your changes</source>
        <translation>Applique vos modifications</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Paramètres</translation>
    </message>
    <message>
        <source>Changes the settings of the application</source>
        <translation>Modifie les paramètres de l’application</translation>
    </message>
    <message>
        <source>You need to restart your application to turn settings modification effective.</source>
        <translation>Redémarrez l’application pour que les nouveaux paramètres prennent effet.</translation>
    </message>
    <message>
        <source>You have pending modifications. Continue and discard your changes ?</source>
        <translation>Des modifications n’ont pas été appliquées. Continuer et les abandonner ?</translation>
    </message>
    <message>
        <source>Your current changes will be discarded.
Continue and close the application ?</source>
        <translation>Vos modifications en cours seront perdues.
Continuer et fermer l’application ?</translation>
    </message>
    <message>
        <source>Some values differ from their defaults</source>
        <translation>Certaines valeurs diffèrent de leur valeur par défaut</translation>
    </message>
    <message>
        <source>No setting matches</source>
        <translation>Aucun réglage ne correspond</translation>
    </message>
    <message>
        <source>Find a setting</source>
        <translation>Chercher un réglage</translation>
    </message>
    <message>
        <source>No setting in sight matches. The %2 page shows &quot;%1&quot; only after another choice on that page.</source>
        <translation>Aucun réglage affiché ne correspond. La page %2 n’affiche « %1 » qu’après un autre choix sur cette page.</translation>
    </message>
</context>
<context>
    <name>ZelControlCenterStandAloneWidget</name>
    <message>
        <source>Torvane - Fatal Error</source>
        <translation>Torvane - Erreur fatale</translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; could not be put back as it was: %2</source>
        <translation>Le fichier de paramètres « %1 » n’a pas pu être remis dans son état d’origine : %2</translation>
    </message>
    <message>
        <source>The display type you chose could not be saved. %1</source>
        <translation>Le type d’affichage choisi n’a pas pu être enregistré. %1</translation>
    </message>
</context>
<context>
    <name>ZelFieldMarks</name>
    <message>
        <source>Default: %1</source>
        <translation>Par défaut : %1</translation>
    </message>
    <message>
        <source>on</source>
        <translation>activé</translation>
    </message>
    <message>
        <source>off</source>
        <translation>désactivé</translation>
    </message>
    <message>
        <source>Reset to default</source>
        <translation>Revenir à la valeur par défaut</translation>
    </message>
</context>
<context>
    <name>ZelGeneralSettingsPanel</name>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Resets your folders to their default values</source>
        <translation>Rétablit les valeurs par défaut de vos dossiers</translation>
    </message>
    <message>
        <source>Torvane allows to load large models thanks to a fine handling of the available memory. To achieve such a goal, it uses a cache folder which you can set here its maximum size and its location.
You may also change the location for your screenshots album.</source>
        <translation>Torvane charge de très gros modèles grâce à une gestion fine de la mémoire disponible. Pour cela, il utilise un dossier de cache dont vous pouvez régler ici la taille maximale et l’emplacement.
Vous pouvez aussi changer l’emplacement de vos captures d’écran.</translation>
    </message>
    <message>
        <source>Screenshot folder :</source>
        <translation>Dossier des captures :</translation>
    </message>
    <message>
        <source>Cache folder :</source>
        <translation>Dossier du cache :</translation>
    </message>
    <message>
        <source>Cache size</source>
        <translation>Taille du cache</translation>
    </message>
    <message>
        <source> Mo</source>
        <translation> Mo</translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation>Rétablir cette page</translation>
    </message>
    <message>
        <source>Screenshot folder</source>
        <translation>Dossier des captures</translation>
    </message>
    <message>
        <source>Cache folder</source>
        <translation>Dossier du cache</translation>
    </message>
</context>
<context>
    <name>ZelImportSettingsPanel</name>
    <message>
        <source>Tessellation</source>
        <translation>Tessellation</translation>
    </message>
    <message>
        <source>Resets your tessellation parameters to their default values</source>
        <translation>Rétablit les valeurs par défaut de vos paramètres de tessellation</translation>
    </message>
    <message>
        <source>When importing native CAD files, Torvane chooses automatically the tesselation parameters that will output triangles. 
You may manually choose the parameters that will best fit your needs.</source>
        <translation>À l’import de fichiers CAO natifs, Torvane choisit automatiquement les paramètres de tessellation qui produiront les triangles.
Vous pouvez choisir vous-même les paramètres les mieux adaptés à vos besoins.</translation>
    </message>
    <message>
        <source>Tessellation Quality</source>
        <translation>Qualité de tessellation</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>High Quality</source>
        <translation>Haute qualité</translation>
    </message>
    <message>
        <source>Low Quality</source>
        <translation>Basse qualité</translation>
    </message>
    <message>
        <source>Max Face Sag</source>
        <translation>Flèche max. des faces</translation>
    </message>
    <message>
        <source>Max Face Length</source>
        <translation>Longueur max. des faces</translation>
    </message>
    <message>
        <source>Max Face Angle</source>
        <translation>Angle max. des faces</translation>
    </message>
    <message>
        <source> °</source>
        <translation> °</translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation>Rétablir cette page</translation>
    </message>
</context>
<context>
    <name>ZelRendererSelector</name>
    <message>
        <source>Torvane - Please select your display type</source>
        <translation>Torvane - Veuillez choisir votre type d’affichage</translation>
    </message>
    <message>
        <source>Select your display type - Torvane</source>
        <translation>Choisissez votre type d’affichage - Torvane</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Please select your rendering engine :</source>
        <translation>Veuillez choisir votre moteur de rendu :</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:11pt;&quot;&gt;Low&lt;/span&gt;&lt;/p&gt;&lt;p&gt;&lt;span style=&quot; font-size:10pt; font-style:italic;&quot;&gt;(Run everywhere)&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:11pt;&quot;&gt;Faible&lt;/span&gt;&lt;/p&gt;&lt;p&gt;&lt;span style=&quot; font-size:10pt; font-style:italic;&quot;&gt;(Fonctionne partout)&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>or</source>
        <translation>ou</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:11pt;&quot;&gt;High&lt;/span&gt;&lt;/p&gt;&lt;p&gt;&lt;span style=&quot; font-size:10pt; font-style:italic;&quot;&gt;(Discrete &lt;br/&gt;Graphic Card)&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:11pt;&quot;&gt;Élevé&lt;/span&gt;&lt;/p&gt;&lt;p&gt;&lt;span style=&quot; font-size:10pt; font-style:italic;&quot;&gt;(Carte graphique &lt;br/&gt;dédiée)&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>Ok</source>
        <translation>Ok</translation>
    </message>
</context>
<context>
    <name>ZelRendererSettingsPanel</name>
    <message>
        <source>Display</source>
        <translation>Affichage</translation>
    </message>
    <message>
        <source>Resets the display parameters to their default values</source>
        <translation>Rétablit les valeurs par défaut des paramètres d’affichage</translation>
    </message>
    <message>
        <source>Adapt the quality and performances of your display to your needs and your material.</source>
        <translation>Adaptez la qualité et les performances de l’affichage à vos besoins et à votre matériel.</translation>
    </message>
    <message>
        <source>High Mode (Discrete Graphic Card)</source>
        <translation>Mode élevé (carte graphique dédiée)</translation>
    </message>
    <message>
        <source>Low Mode (Run everywhere)</source>
        <translation>Mode léger (fonctionne partout)</translation>
    </message>
    <message>
        <source>Antialiasing </source>
        <translation>Anticrénelage </translation>
    </message>
    <message>
        <source>use SSAO</source>
        <translation>utiliser le SSAO</translation>
    </message>
    <message>
        <source>SSAO Units</source>
        <translation>Unités du SSAO</translation>
    </message>
    <message>
        <source>Kilometer (km)</source>
        <translation>Kilomètre (km)</translation>
    </message>
    <message>
        <source>Hectometer (hm)</source>
        <translation>Hectomètre (hm)</translation>
    </message>
    <message>
        <source>Decameter (dam)</source>
        <translation>Décamètre (dam)</translation>
    </message>
    <message>
        <source>Meter (m)</source>
        <translation>Mètre (m)</translation>
    </message>
    <message>
        <source>Decimeter (dm)</source>
        <translation>Décimètre (dm)</translation>
    </message>
    <message>
        <source>Centimeter (cm)</source>
        <translation>Centimètre (cm)</translation>
    </message>
    <message>
        <source>Millimeter (mm)</source>
        <translation>Millimètre (mm)</translation>
    </message>
    <message>
        <source>use Edge Detect</source>
        <translation>utiliser la détection des arêtes</translation>
    </message>
    <message>
        <source>Quality</source>
        <translation>Qualité</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Basse</translation>
    </message>
    <message>
        <source>Processing power</source>
        <translation>Puissance de calcul</translation>
    </message>
    <message>
        <source>SD resolution</source>
        <translation>Résolution SD</translation>
    </message>
    <message>
        <source>HD resolution</source>
        <translation>Résolution HD</translation>
    </message>
    <message>
        <source>SD Antialiasing</source>
        <translation>Anticrénelage SD</translation>
    </message>
    <message>
        <source>HD Antialiasing</source>
        <translation>Anticrénelage HD</translation>
    </message>
    <message>
        <source>Max CPU memory</source>
        <translation>Mémoire CPU max.</translation>
    </message>
    <message>
        <source> Mo</source>
        <translation> Mo</translation>
    </message>
    <message>
        <source>Max CPU Memory</source>
        <translation>Mémoire CPU max.</translation>
    </message>
    <message>
        <source>Max GPU Memory</source>
        <translation>Mémoire GPU max.</translation>
    </message>
    <message>
        <source>Max triangles nb</source>
        <translation>Nombre max. de triangles</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Moyenne</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Haute</translation>
    </message>
    <message>
        <source>Ultra</source>
        <translation>Ultra</translation>
    </message>
    <message>
        <source>%1 core</source>
        <translation>%1 cœur</translation>
    </message>
    <message>
        <source>%1 cores</source>
        <translation>%1 cœurs</translation>
    </message>
    <message>
        <source>SD resolution height</source>
        <translation>Hauteur de la résolution SD</translation>
    </message>
    <message>
        <source>HD resolution height</source>
        <translation>Hauteur de la résolution HD</translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation>Rétablir cette page</translation>
    </message>
</context>
<context>
    <name>ZelSettingsFile</name>
    <message>
        <source>A copy of &quot;%1&quot; could not be kept as &quot;%2&quot;: %3</source>
        <translation>Impossible de conserver une copie de « %1 » sous « %2 » : %3</translation>
    </message>
    <message>
        <source>A copy of &quot;%1&quot; could not be kept: too many copies beside it.</source>
        <translation>Impossible de conserver une copie de « %1 » : trop de copies à côté.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be read: %2</source>
        <translation>Impossible de lire « %1 » : %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be removed: %2</source>
        <translation>Impossible de supprimer « %1 » : %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder, not a settings file. Rename or move that folder so that the settings can be saved there.</source>
        <translation>« %1 » est un dossier, pas un fichier de paramètres. Renommez ou déplacez ce dossier pour que les paramètres puissent y être enregistrés.</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; does not exist.</source>
        <translation>Le dossier « %1 » n’existe pas.</translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; is read-only. Allow writing to it to save your settings.</source>
        <translation>Le fichier de paramètres « %1 » est en lecture seule. Autorisez l’écriture pour enregistrer vos paramètres.</translation>
    </message>
    <message>
        <source>The settings folder &quot;%1&quot; is read-only. Allow writing to it to save your settings.</source>
        <translation>Le dossier des paramètres « %1 » est en lecture seule. Autorisez l’écriture pour enregistrer vos paramètres.</translation>
    </message>
    <message>
        <source>The disk that holds &quot;%1&quot; is full. Free some space on it to save your settings.</source>
        <translation>Le disque qui contient « %1 » est plein. Libérez-y de la place pour enregistrer vos paramètres.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a regular file, and only a regular file can hold the settings.</source>
        <translation>« %1 » n’est pas un fichier ordinaire, et seul un fichier ordinaire peut contenir les paramètres.</translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation>Pas un fichier ordinaire</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a link to &quot;%2&quot;, which does not exist. Restore that file, or remove the link, so that the settings can be saved.</source>
        <translation>« %1 » est un lien vers « %2 », qui n’existe pas. Rétablissez ce fichier, ou supprimez le lien, pour que les paramètres puissent être enregistrés.</translation>
    </message>
    <message>
        <source>The settings folder &quot;%1&quot; cannot be made, because &quot;%2&quot; is a file. Rename or move that file so that the settings can be saved.</source>
        <translation>Le dossier des paramètres « %1 » ne peut pas être créé, car « %2 » est un fichier. Renommez ou déplacez ce fichier pour que les paramètres puissent être enregistrés.</translation>
    </message>
    <message>
        <source>The settings folder &quot;%1&quot; cannot be made, because &quot;%2&quot; is read-only. Allow writing to it to save your settings.</source>
        <translation>Le dossier des paramètres « %1 » ne peut pas être créé, car « %2 » est en lecture seule. Autorisez l’écriture dans ce dossier pour enregistrer vos paramètres.</translation>
    </message>
</context>
<context>
    <name>ZelSettingsNotice</name>
    <message>
        <source>Settings notice</source>
        <translation>Avis sur les paramètres</translation>
    </message>
    <message>
        <source>Close this notice</source>
        <translation>Fermer cet avis</translation>
    </message>
</context>
<context>
    <name>ZelSettingsStart</name>
    <message>
        <source>and %1 more</source>
        <translation>et %1 de plus</translation>
    </message>
    <message>
        <source>Torvane cannot create its settings file. %1 (%2)</source>
        <translation>Torvane ne peut pas créer son fichier de paramètres. %1 (%2)</translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; cannot be read (%2).</source>
        <translation>Le fichier de paramètres « %1 » ne peut pas être lu (%2).</translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; could not be written.</source>
        <translation>Le fichier de paramètres « %1 » n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>The file as it was is kept as &quot;%1&quot;.</source>
        <translation>Le fichier tel qu’il était est conservé sous « %1 ».</translation>
    </message>
    <message>
        <source>Your settings are open read-only: %1 (%2)
Every page shows the stored values, but changes cannot be applied.</source>
        <translation>Vos paramètres sont ouverts en lecture seule : %1 (%2)
Chaque page montre les valeurs enregistrées, mais les modifications ne peuvent pas être appliquées.</translation>
    </message>
    <message>
        <source>This settings file comes from an older version of Torvane. It is shown as it is; it will be set aside at a start that can write it.</source>
        <translation>Ce fichier de paramètres vient d’une version plus ancienne de Torvane. Il est affiché tel quel ; il sera mis de côté lors d’un démarrage qui peut l’écrire.</translation>
    </message>
    <message>
        <source>Your settings file came from an older version of Torvane that this one cannot read. It was set aside as &quot;%1&quot; and Torvane starts from its default settings, keeping your language.</source>
        <translation>Votre fichier de paramètres venait d’une version plus ancienne de Torvane que celle-ci ne sait pas lire. Il a été mis de côté sous « %1 » et Torvane repart de ses paramètres par défaut, en gardant votre langue.</translation>
    </message>
    <message>
        <source>This settings file comes from an older version of Torvane. It is shown as it is; it will be upgraded at a start that can write it.</source>
        <translation>Ce fichier de paramètres vient d’une version plus ancienne de Torvane. Il est affiché tel quel ; il sera mis à jour lors d’un démarrage qui peut l’écrire.</translation>
    </message>
    <message>
        <source>Your settings file was upgraded from an older version of Torvane: the display engine is now the GPU renderer. %1</source>
        <translation>Votre fichier de paramètres a été mis à jour depuis une version plus ancienne de Torvane : le moteur d’affichage est désormais le rendu GPU. %1</translation>
    </message>
    <message>
        <source>These settings hold values Torvane cannot use. The pages show them repaired, but the repairs are not written:</source>
        <translation>Ces paramètres contiennent des valeurs que Torvane ne peut pas utiliser. Les pages les montrent réparées, mais les réparations ne sont pas écrites :</translation>
    </message>
    <message>
        <source>Torvane repaired these settings, which held values it cannot use:</source>
        <translation>Torvane a réparé ces paramètres, qui contenaient des valeurs inutilisables :</translation>
    </message>
    <message>
        <source>These settings are missing from the file; the pages show their default values:</source>
        <translation>Ces paramètres manquent dans le fichier ; les pages montrent leurs valeurs par défaut :</translation>
    </message>
    <message>
        <source>These settings were missing from the file and were added with their default values:</source>
        <translation>Ces paramètres manquaient dans le fichier et ont été ajoutés avec leurs valeurs par défaut :</translation>
    </message>
    <message>
        <source>• %1: &quot;%2&quot; → &quot;%3&quot;</source>
        <translation>• %1 : « %2 » → « %3 »</translation>
    </message>
</context>
<context>
    <name>ZelSettingsWatch</name>
    <message>
        <source>The settings file &quot;%1&quot; could not be written.</source>
        <translation>Le fichier de paramètres « %1 » n’a pas pu être écrit.</translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; could not be written (%2).</source>
        <translation>Le fichier de paramètres « %1 » n’a pas pu être écrit (%2).</translation>
    </message>
</context>
<context>
    <name>ZelSimplificationSettingsPanel</name>
    <message>
        <source>Compression / Simplification</source>
        <translation>Compression / Simplification</translation>
    </message>
    <message>
        <source>Resets the simplification ratios to their original values</source>
        <translation>Rétablit les taux de simplification d’origine</translation>
    </message>
    <message>
        <source>The simplification process is used when exporting your scene to reduce the size of your files.
You can set here the resulting percentage of triangles from the source model you will obtain when using a given quality, with the exception of level 5 that has no compression (thus 100 % of the triangles of the source model).</source>
        <translation>La simplification sert à l’export de votre scène, pour réduire la taille de vos fichiers.
Vous pouvez régler ici le pourcentage de triangles du modèle source que vous obtiendrez pour chaque qualité, à l’exception du niveau 5 qui n’est pas compressé (soit 100 % des triangles du modèle source).</translation>
    </message>
    <message>
        <source>No
compression</source>
        <translation>Sans
compression</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Low compression</source>
        <translation>Compression faible</translation>
    </message>
    <message>
        <source>Medium Compression</source>
        <translation>Compression moyenne</translation>
    </message>
    <message>
        <source>High Compression</source>
        <translation>Compression forte</translation>
    </message>
    <message>
        <source>Best compression</source>
        <translation>Compression maximale</translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation>Rétablir cette page</translation>
    </message>
</context>
<context>
    <name>zel::ZelAboutSettingsPanel</name>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Qt %1&lt;/b&gt;, the application framework, under the GNU Lesser General Public License version 3.&lt;br/&gt;&lt;a href=&quot;https://www.qt.io/&quot;&gt;www.qt.io&lt;/a&gt; &amp;middot; &lt;a href=&quot;https://www.gnu.org/licenses/lgpl-3.0.html&quot;&gt;GNU LGPL v3&lt;/a&gt;&lt;/p&gt;&lt;p&gt;&lt;b&gt;Open Sans&lt;/b&gt;, the typeface of the interface, under the SIL Open Font License 1.1.&lt;br/&gt;&lt;a href=&quot;https://fonts.google.com/specimen/Open+Sans&quot;&gt;Open Sans&lt;/a&gt; &amp;middot; &lt;a href=&quot;https://openfontlicense.org/&quot;&gt;SIL OFL 1.1&lt;/a&gt;&lt;/p&gt;</source>
        <translation>&lt;p&gt;&lt;b&gt;Qt %1&lt;/b&gt;, le cadre d’application, sous la licence publique générale limitée GNU version 3.&lt;br/&gt;&lt;a href=&quot;https://www.qt.io/&quot;&gt;www.qt.io&lt;/a&gt; &amp;middot; &lt;a href=&quot;https://www.gnu.org/licenses/lgpl-3.0.html&quot;&gt;GNU LGPL v3&lt;/a&gt;&lt;/p&gt;&lt;p&gt;&lt;b&gt;Open Sans&lt;/b&gt;, la police de l’interface, sous la licence SIL Open Font License 1.1.&lt;br/&gt;&lt;a href=&quot;https://fonts.google.com/specimen/Open+Sans&quot;&gt;Open Sans&lt;/a&gt; &amp;middot; &lt;a href=&quot;https://openfontlicense.org/&quot;&gt;SIL OFL 1.1&lt;/a&gt;&lt;/p&gt;</translation>
    </message>
    <message>
        <source>About</source>
        <translation>À propos</translation>
    </message>
</context>
<context>
    <name>zel::ZelControlCenterStandAloneWidget</name>
    <message>
        <source>Your changes could not be saved. %1
They are still on the pages: press Apply again once this is solved.</source>
        <translation>Vos modifications n’ont pas pu être enregistrées. %1
Elles sont toujours sur les pages : appuyez de nouveau sur Appliquer une fois le problème résolu.</translation>
    </message>
    <message>
        <source>%1 is now &quot;%2&quot;</source>
        <translation>%1 vaut maintenant « %2 »</translation>
    </message>
    <message>
        <source>%1 was removed</source>
        <translation>%1 a été supprimé</translation>
    </message>
    <message>
        <source>Another program changed the settings file: %1.</source>
        <translation>Un autre programme a modifié le fichier de paramètres : %1.</translation>
    </message>
    <message>
        <source>You are editing %1 as well: your values stay on the pages and replace the other program&apos;s when you apply.</source>
        <translation>Vous modifiez aussi %1 : vos valeurs restent sur les pages et remplacent celles de l’autre programme quand vous appliquez.</translation>
    </message>
    <message>
        <source>%1 was &quot;%2&quot;</source>
        <translation>%1 valait « %2 »</translation>
    </message>
    <message>
        <source>Your values replaced what another program had stored: %1.</source>
        <translation>Vos valeurs ont remplacé celles qu’un autre programme avait enregistrées : %1.</translation>
    </message>
    <message>
        <source>Another program removed the settings file, or left no setting in it that Torvane can read: the pages show the default values.</source>
        <translation>Un autre programme a supprimé le fichier de paramètres, ou n’y a laissé aucun paramètre que Torvane sache lire : les pages affichent les valeurs par défaut.</translation>
    </message>
    <message>
        <source>Another program left the settings file without its settings version, so the next start would have set it aside. Apply wrote the version back with your changes.</source>
        <translation>Un autre programme a laissé le fichier de paramètres sans sa version, si bien que le prochain démarrage l’aurait mis de côté. Appliquer a réécrit la version avec vos modifications.</translation>
    </message>
    <message>
        <source>The settings file had been removed, or held no setting Torvane can read. Apply wrote it again with your changes and its settings version; the settings you did not change take their default values.</source>
        <translation>Le fichier de paramètres avait été supprimé, ou ne contenait aucun paramètre que Torvane sache lire. Appliquer l’a réécrit avec vos modifications et sa version ; les paramètres que vous n’avez pas modifiés prennent leur valeur par défaut.</translation>
    </message>
    <message>
        <source>%1 was removed, so its default &quot;%2&quot; applies</source>
        <translation>%1 a été supprimé : sa valeur par défaut « %2 » s’applique</translation>
    </message>
    <message>
        <source>Your changes are saved.</source>
        <translation>Vos modifications sont enregistrées.</translation>
    </message>
</context>
<context>
    <name>zel::ZelGeneralSettingsPanel</name>
    <message>
        <source>Folders</source>
        <translation>Dossiers</translation>
    </message>
    <message>
        <source>Please set your database cache folder</source>
        <translation>Choisissez le dossier du cache de la base 3D</translation>
    </message>
    <message>
        <source>Please set your screenshot folder</source>
        <translation>Choisissez le dossier de vos captures d’écran</translation>
    </message>
    <message>
        <source>Choose a folder...</source>
        <translation>Choisir un dossier…</translation>
    </message>
</context>
<context>
    <name>zel::ZelImportSettingsPanel</name>
    <message>
        <source>Tessellation</source>
        <translation>Tessellation</translation>
    </message>
</context>
<context>
    <name>zel::ZelSimplificationSettingsPanel</name>
    <message>
        <source>Simplification</source>
        <translation>Simplification</translation>
    </message>
</context>
</TS>
