// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nzbtext.h"

QByteArray nzbtext::document(const QByteArray &content)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE nzb PUBLIC \"-//newzBin//DTD NZB 1.1//EN\" "
           "\"http://www.newzbin.com/DTD/nzb/nzb-1.1.dtd\">\n"
           "<nzb xmlns=\"http://www.newzbin.com/DTD/2003/nzb\">" +
           content + "</nzb>\n";
}

QByteArray nzbtext::file(const QByteArray &subject, qint64 bytes, qint64 date)
{
    return "<file poster=\"Ada &lt;ada@x.example&gt;\" date=\"" + QByteArray::number(date) + "\" subject=\"" +
           subject + "\"><groups><group>misc.test</group></groups><segments><segment bytes=\"" +
           QByteArray::number(bytes) + "\" number=\"1\">one@x.example</segment></segments></file>\n";
}

QByteArray nzbtext::many(int files, int segments)
{
    QByteArray content;
    for (int i = 1; i <= files; ++i) {
        content += "<file poster=\"Ada &lt;ada@x.example&gt;\" date=\"" +
                   QByteArray::number(1'700'000'000 + i) + "\" subject=\"Part " + QByteArray::number(i) +
                   "\"><groups><group>alt.binaries.test</group></groups><segments>";
        for (int j = 1; j <= segments; ++j)
            content += "<segment bytes=\"700000\" number=\"" + QByteArray::number(j) + "\">part" +
                       QByteArray::number(i) + '.' + QByteArray::number(j) + "@x.example</segment>\n";
        content += "</segments></file>\n";
    }
    return document(content);
}
