<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="eo">
<context>
    <name>CVInfoToolWidget</name>
    <message><source>Your Account</source><translation>Via konto</translation></message>
</context>
<context>
    <name>CVConnectorPlugin</name>
    <message><source>About</source><translation>Pri</translation></message>
</context>
<context>
    <name>MainMenu</name>
    <message><source>&amp;Help</source><translation>&amp;Helpo</translation></message>
    <message><source>&amp;Settings…</source><translation>&amp;Agordoj…</translation></message>
</context>
<context>
    <name>ConnectorPlugin</name>
    <message><source>Logged in as %1</source><translation>Ensalutinta kiel %1</translation></message>
</context>
<context>
    <name>Application</name>
    <message><source>account service %1</source><translation>kontoservo %1</translation></message>
</context>
<context>
    <name>HHomeWidget</name>
    <message>
        <source>News servers: %1  ·  Connections: %2  ·  Since: %3</source>
        <translation>Novaĵserviloj: %1  ·  Konektoj: %2  ·  Ekde: %3</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message><source>Settings</source><translation>Agordoj</translation></message>
</context>
<context>
    <name>PrivacyPage</name>
    <message>
        <source>What is deleted when private data is cleared:</source>
        <translation>Kio foriras, kiam privataj datumoj estas viŝataj:</translation>
    </message>
</context>
<context>
    <name>RecordingPrivateData</name>
    <message><source>Words searched for</source><translation>Serĉitaj vortoj</translation></message>
</context>
<context>
    <name>LoginDialog</name>
    <message><source>Log In</source><translation>Ensaluti</translation></message>
</context>
</TS>
