<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>CVAddBookmarksDialog</name>
    <message>
        <source>Add Bookmarks</source>
        <translation>Lesezeichen hinzufügen</translation>
    </message>
    <message>
        <source>Select the location for the bookmarks:</source>
        <translation>Wählen Sie den Ort für die Lesezeichen:</translation>
    </message>
</context>
<context>
    <name>CVBookmarkManager</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>New Folder</source>
        <translation>Neuer Ordner</translation>
    </message>
    <message>
        <source>Bookmarks</source>
        <translation>Lesezeichen</translation>
    </message>
    <message>
        <source>All folders and what is in them, their dated copies and files put aside as damaged. While you are logged in, the account&apos;s own bookmarks are loaded again.</source>
        <translation>Alle Ordner und was darin ist, ihre datierten Kopien und als beschädigt beiseitegelegte Dateien. Solange Sie angemeldet sind, werden die Lesezeichen des Kontos wieder geladen.</translation>
    </message>
</context>
<context>
    <name>CVBookmarksToolWidget</name>
    <message>
        <source>Bookmarks</source>
        <translation>Lesezeichen</translation>
    </message>
</context>
<context>
    <name>CVBookmarksToolWidgetPrivate</name>
    <message>
        <source>Yellow</source>
        <translation>Gelb</translation>
    </message>
    <message>
        <source>Orange</source>
        <translation>Orange</translation>
    </message>
    <message>
        <source>Red</source>
        <translation>Rot</translation>
    </message>
    <message>
        <source>Gray</source>
        <translation>Grau</translation>
    </message>
    <message>
        <source>Green</source>
        <translation>Grün</translation>
    </message>
    <message>
        <source>Cyan</source>
        <translation>Türkis</translation>
    </message>
    <message>
        <source>Brown</source>
        <translation>Braun</translation>
    </message>
    <message>
        <source>Blue</source>
        <translation>Blau</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>Add Folder</source>
        <translation>Ordner hinzufügen</translation>
    </message>
    <message>
        <source>Delete Folder</source>
        <translation>Ordner löschen</translation>
    </message>
    <message>
        <source>Add Bookmark</source>
        <translation>Lesezeichen hinzufügen</translation>
    </message>
    <message>
        <source>Delete Bookmark</source>
        <translation>Lesezeichen löschen</translation>
    </message>
    <message>
        <source>Color</source>
        <translation>Farbe</translation>
    </message>
    <message>
        <source>Folder Color</source>
        <translation>Ordnerfarbe</translation>
    </message>
</context>
<context>
    <name>CVConnectorPlugin</name>
    <message>
        <source>About</source>
        <translation>Info</translation>
    </message>
</context>
<context>
    <name>CVInfoToolWidget</name>
    <message>
        <source>Logged in as: %1</source>
        <translation>Angemeldet als: %1</translation>
    </message>
    <message>
        <source>Your Account</source>
        <translation>Ihr Konto</translation>
    </message>
    <message>
        <source>Today</source>
        <translation>Heute</translation>
    </message>
    <message>
        <source>This Month</source>
        <translation>Dieser Monat</translation>
    </message>
    <message>
        <source>&lt;a href=&apos;#stats&apos;&gt;Traffic Stats&lt;/a&gt;</source>
        <translation>&lt;a href=&apos;#stats&apos;&gt;Statistik&lt;/a&gt;</translation>
    </message>
    <message>
        <source>Used bytes (billing cycle):</source>
        <translation>Verbrauch (Abrechnung):</translation>
    </message>
    <message>
        <source>Used bytes (this month):</source>
        <translation>Verbrauch (Monat):</translation>
    </message>
    <message>
        <source>Max connections:</source>
        <translation>Max. Verbindungen:</translation>
    </message>
    <message>
        <source>Plan:</source>
        <translation>Tarif:</translation>
    </message>
    <message>
        <source>&lt;a href=&apos;#cp&apos;&gt;Control Panel&lt;/a&gt;</source>
        <translation>&lt;a href=&apos;#cp&apos;&gt;Kontoverwaltung&lt;/a&gt;</translation>
    </message>
</context>
<context>
    <name>CVMessagesToolWidget</name>
    <message>
        <source>Messages</source>
        <translation>Nachrichten</translation>
    </message>
</context>
</TS>
