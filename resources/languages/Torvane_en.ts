<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>ControlCenterStandAlone</name>
    <message>
        <source>Torvane - Control Center</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Control Center</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Minimize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Maximize</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelAboutSettingsPanel</name>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Identify the Torvane version and all the third party components used while developping this software.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Copyright © 2012-%1 The Torvane team. All rights reserved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Plugin name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;This software uses the following libraries :&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelControlCenter</name>
    <message>
        <source>Settings Modification</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Application Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resets all parameters</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Apply</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applies your changes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Settings</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Changes the settings of the application</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You need to restart your application to turn settings modification effective.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You have pending modifications. Continue and discard your changes ?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not use the 3D database cache, folder &quot;%1&quot; could not be created</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not use the Torvane log file, file &quot;%1&quot; could not be created</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Could not create compulsory folder &quot;%1&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your current changes will be discarded.
Continue and close the application ?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some values differ from their defaults</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No setting matches</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Find a setting</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No setting in sight matches. The %2 page shows &quot;%1&quot; only after another choice on that page.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelControlCenterStandAloneWidget</name>
    <message>
        <source>Torvane - Fatal Error</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; could not be put back as it was: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The display type you chose could not be saved. %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelFieldMarks</name>
    <message>
        <source>Default: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>on</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>off</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset to default</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelGeneralSettingsPanel</name>
    <message>
        <source>Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resets your folders to their default values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Torvane allows to load large models thanks to a fine handling of the available memory. To achieve such a goal, it uses a cache folder which you can set here its maximum size and its location.
You may also change the location for your screenshots album.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screenshot folder :</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cache folder :</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cache size</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Mo</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Screenshot folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cache folder</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelImportSettingsPanel</name>
    <message>
        <source>Tessellation</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resets your tessellation parameters to their default values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>When importing native CAD files, Torvane chooses automatically the tesselation parameters that will output triangles. 
You may manually choose the parameters that will best fit your needs.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tessellation Quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Default</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low Quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max Face Sag</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max Face Length</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max Face Angle</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> °</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelRendererSelector</name>
    <message>
        <source>Torvane - Please select your display type</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select your display type - Torvane</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please select your rendering engine :</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:11pt;&quot;&gt;Low&lt;/span&gt;&lt;/p&gt;&lt;p&gt;&lt;span style=&quot; font-size:10pt; font-style:italic;&quot;&gt;(Run everywhere)&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>or</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;&lt;span style=&quot; font-size:11pt;&quot;&gt;High&lt;/span&gt;&lt;/p&gt;&lt;p&gt;&lt;span style=&quot; font-size:10pt; font-style:italic;&quot;&gt;(Discrete &lt;br/&gt;Graphic Card)&lt;/span&gt;&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ok</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelRendererSettingsPanel</name>
    <message>
        <source>Display</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resets the display parameters to their default values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Adapt the quality and performances of your display to your needs and your material.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Mode (Discrete Graphic Card)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low Mode (Run everywhere)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Antialiasing </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>use SSAO</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SSAO Units</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kilometer (km)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hectometer (hm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decameter (dam)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Meter (m)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Decimeter (dm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Centimeter (cm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Millimeter (mm)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>use Edge Detect</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Quality</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Processing power</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD resolution</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HD resolution</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD Antialiasing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HD Antialiasing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max CPU memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> Mo</source>
        <translation> MB</translation>
    </message>
    <message>
        <source>Max CPU Memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max GPU Memory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Max triangles nb</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Medium</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ultra</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 core</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 cores</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>SD resolution height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HD resolution height</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelSettingsFile</name>
    <message>
        <source>A copy of &quot;%1&quot; could not be kept as &quot;%2&quot;: %3</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A copy of &quot;%1&quot; could not be kept: too many copies beside it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be read: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be removed: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a folder, not a settings file. Rename or move that folder so that the settings can be saved there.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; does not exist.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; is read-only. Allow writing to it to save your settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings folder &quot;%1&quot; is read-only. Allow writing to it to save your settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The disk that holds &quot;%1&quot; is full. Free some space on it to save your settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a regular file, and only a regular file can hold the settings.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Not a regular file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&quot;%1&quot; is a link to &quot;%2&quot;, which does not exist. Restore that file, or remove the link, so that the settings can be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings folder &quot;%1&quot; cannot be made, because &quot;%2&quot; is a file. Rename or move that file so that the settings can be saved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings folder &quot;%1&quot; cannot be made, because &quot;%2&quot; is read-only. Allow writing to it to save your settings.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelSettingsNotice</name>
    <message>
        <source>Settings notice</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Close this notice</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelSettingsStart</name>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Torvane cannot create its settings file. %1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; cannot be read (%2).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The file as it was is kept as &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your settings are open read-only: %1 (%2)
Every page shows the stored values, but changes cannot be applied.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This settings file comes from an older version of Torvane. It is shown as it is; it will be set aside at a start that can write it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your settings file came from an older version of Torvane that this one cannot read. It was set aside as &quot;%1&quot; and Torvane starts from its default settings, keeping your language.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This settings file comes from an older version of Torvane. It is shown as it is; it will be upgraded at a start that can write it.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your settings file was upgraded from an older version of Torvane: the display engine is now the GPU renderer. %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These settings hold values Torvane cannot use. The pages show them repaired, but the repairs are not written:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Torvane repaired these settings, which held values it cannot use:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These settings are missing from the file; the pages show their default values:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>These settings were missing from the file and were added with their default values:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>• %1: &quot;%2&quot; → &quot;%3&quot;</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelSettingsWatch</name>
    <message>
        <source>The settings file &quot;%1&quot; could not be written.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file &quot;%1&quot; could not be written (%2).</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ZelSimplificationSettingsPanel</name>
    <message>
        <source>Compression / Simplification</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Resets the simplification ratios to their original values</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The simplification process is used when exporting your scene to reduce the size of your files.
You can set here the resulting percentage of triangles from the source model you will obtain when using a given quality, with the exception of level 5 that has no compression (thus 100 % of the triangles of the source model).</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No
compression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source> %</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Low compression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Medium Compression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>High Compression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Best compression</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reset this page</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zel::ZelAboutSettingsPanel</name>
    <message>
        <source>&lt;p&gt;&lt;b&gt;Qt %1&lt;/b&gt;, the application framework, under the GNU Lesser General Public License version 3.&lt;br/&gt;&lt;a href=&quot;https://www.qt.io/&quot;&gt;www.qt.io&lt;/a&gt; &amp;middot; &lt;a href=&quot;https://www.gnu.org/licenses/lgpl-3.0.html&quot;&gt;GNU LGPL v3&lt;/a&gt;&lt;/p&gt;&lt;p&gt;&lt;b&gt;Open Sans&lt;/b&gt;, the typeface of the interface, under the SIL Open Font License 1.1.&lt;br/&gt;&lt;a href=&quot;https://fonts.google.com/specimen/Open+Sans&quot;&gt;Open Sans&lt;/a&gt; &amp;middot; &lt;a href=&quot;https://openfontlicense.org/&quot;&gt;SIL OFL 1.1&lt;/a&gt;&lt;/p&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zel::ZelControlCenterStandAloneWidget</name>
    <message>
        <source>Your changes could not be saved. %1
They are still on the pages: press Apply again once this is solved.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is now &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was removed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program changed the settings file: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>You are editing %1 as well: your values stay on the pages and replace the other program&apos;s when you apply.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was &quot;%2&quot;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your values replaced what another program had stored: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program removed the settings file, or left no setting in it that Torvane can read: the pages show the default values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Another program left the settings file without its settings version, so the next start would have set it aside. Apply wrote the version back with your changes.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The settings file had been removed, or held no setting Torvane can read. Apply wrote it again with your changes and its settings version; the settings you did not change take their default values.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 was removed, so its default &quot;%2&quot; applies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Your changes are saved.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zel::ZelGeneralSettingsPanel</name>
    <message>
        <source>Folders</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please set your database cache folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Please set your screenshot folder</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Choose a folder...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zel::ZelImportSettingsPanel</name>
    <message>
        <source>Tessellation</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>zel::ZelSimplificationSettingsPanel</name>
    <message>
        <source>Simplification</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
