<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="eo">
<context>
    <name>CVInfoToolWidget</name>
    <message><source>Your Account</source><translation>Via konto</translation></message>
</context>
<context>
    <name>CVBookmarksToolWidget</name>
    <message><source>Bookmarks</source><translation>Legosignoj</translation></message>
</context>
<context>
    <name>CVBookmarksToolWidgetPrivate</name>
    <message><source>Add Folder</source><translation>Aldoni dosierujon</translation></message>
    <message><source>Delete Folder</source><translation>Forigi dosierujon</translation></message>
    <message><source>Folder Color</source><translation>Koloro de dosierujo</translation></message>
    <message><source>Add Bookmark</source><translation>Aldoni legosignon</translation></message>
    <message><source>Delete Bookmark</source><translation>Forigi legosignon</translation></message>
    <message><source>Color</source><translation>Koloro</translation></message>
    <message><source>None</source><translation>Neniu</translation></message>
    <message><source>Yellow</source><translation>Flava</translation></message>
    <message><source>Orange</source><translation>Oranĝa</translation></message>
    <message><source>Red</source><translation>Ruĝa</translation></message>
    <message><source>Gray</source><translation>Griza</translation></message>
    <message><source>Green</source><translation>Verda</translation></message>
    <message><source>Cyan</source><translation>Cejana</translation></message>
    <message><source>Brown</source><translation>Bruna</translation></message>
    <message><source>Blue</source><translation>Blua</translation></message>
</context>
<context>
    <name>CVAddBookmarksDialog</name>
    <message><source>Add Bookmarks</source><translation>Aldoni legosignojn</translation></message>
    <message>
        <source>Select the location for the bookmarks:</source>
        <translation>Elektu lokon por la legosignoj:</translation>
    </message>
</context>
<context>
    <name>HNewsgroupsPanel</name>
    <message><source>Newsgroups</source><translation>Novaĵgrupoj</translation></message>
    <message><source>Filter by words</source><translation>Filtri per vortoj</translation></message>
    <message><source>Add to bookmarks…</source><translation>Aldoni al la legosignoj…</translation></message>
    <message><source>%1 of %2 newsgroups</source><translation>%1 el %2 novaĵgrupoj</translation></message>
</context>
<context>
    <name>HNewsgroupPanel</name>
    <message><source>All articles</source><translation>Ĉiuj artikoloj</translation></message>
    <message><source>%1 of %2 articles shown</source><translation>%1 el %2 artikoloj videblas</translation></message>
</context>
<context>
    <name>PageArea</name>
    <message><source>Home</source><translation>Hejmo</translation></message>
</context>
<context>
    <name>MainMenu</name>
    <message><source>&amp;Account</source><translation>&amp;Konto</translation></message>
    <message><source>&amp;View</source><translation>&amp;Vido</translation></message>
</context>
<context>
    <name>ViewMenu</name>
    <message><source>&amp;View</source><translation>&amp;Vido</translation></message>
</context>
</TS>
