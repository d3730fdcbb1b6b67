<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>LocaleTest</name>
    <message>
        <source>Newsgroup</source>
        <translation>Diskussionsgruppe</translation>
    </message>
</context>
<context>
    <name>StringFormat</name>
    <message numerus="yes">
        <source>%1 bytes</source>
        <comment>any number but one</comment>
        <translation>
            <numerusform>%1 Zeichen einzeln</numerusform>
            <numerusform>%1 Zeichen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>StatsDialog</name>
    <message>
        <source>Traffic Statistics</source>
        <translation>Verkehrsstatistik</translation>
    </message>
</context>
</TS>
