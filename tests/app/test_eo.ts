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
</TS>
