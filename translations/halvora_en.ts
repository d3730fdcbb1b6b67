<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
<context>
    <name>GeneralPage</name>
    <message numerus="yes">
        <source>every %n minutes</source>
        <translation>
            <numerusform>every minute</numerusform>
            <numerusform>every %n minutes</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HNewsgroupPanel</name>
    <message numerus="yes">
        <source>%Ln articles loaded…</source>
        <translation>
            <numerusform>%Ln article loaded…</numerusform>
            <numerusform>%Ln articles loaded…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln articles shown</source>
        <translation>
            <numerusform>%1 of %Ln article shown</numerusform>
            <numerusform>%1 of %Ln articles shown</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HNewsgroupsPanel</name>
    <message numerus="yes">
        <source>%Ln newsgroups loaded…</source>
        <translation>
            <numerusform>%Ln newsgroup loaded…</numerusform>
            <numerusform>%Ln newsgroups loaded…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 of %Ln newsgroups</source>
        <translation>
            <numerusform>%1 of %Ln newsgroup</numerusform>
            <numerusform>%1 of %Ln newsgroups</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MessageNotifier</name>
    <message numerus="yes">
        <source>%Ln new messages</source>
        <translation>
            <numerusform>New message</numerusform>
            <numerusform>%Ln new messages</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StringFormat</name>
    <message numerus="yes">
        <source>%1 byte</source>
        <comment>exactly one</comment>
        <translation>
            <numerusform>%1 byte</numerusform>
            <numerusform>%1 byte</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 bytes</source>
        <comment>any number but one</comment>
        <translation>
            <numerusform>%1 bytes</numerusform>
            <numerusform>%1 bytes</numerusform>
        </translation>
    </message>
</context>
</TS>
