// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"

#include "newsgrouptablebuilder.h"

NewsgroupTable tableOf(const QByteArrayList &groups, const QByteArrayList &descriptions)
{
    NewsgroupTableBuilder builder;
    for (const QByteArray &line : groups)
        builder.addGroup(line.constData(), line.size());
    for (const QByteArray &line : descriptions)
        builder.addDescription(line.constData(), line.size());
    return builder.take();
}

QStringList namesIn(const NewsgroupTable &table)
{
    QStringList names;
    for (int row = 0; row < table.count(); ++row)
        names.append(table.name(row));
    return names;
}

NewsgroupTable largeTable(int groups)
{
    static const char *const roots[] = {"alt.binaries.", "alt.fan.", "comp.os.linux.", "de.rec.",
                                        "fr.comp.",      "it.",      "misc.",          "soc.culture."};
    static const char *const subjects[] = {"images.iso", "pictures", "sounds.lossless", "television",
                                           "hardware",   "advocacy", "announce",        "talk"};
    NewsgroupTableBuilder builder;
    for (int i = 0; i < groups; ++i) {
        const QByteArray name = QByteArray(roots[i % 8]) + subjects[i / 8 % 8] + ".n" + QByteArray::number(i);
        const QByteArray line = name + " 0000123456 0000000001 y";
        builder.addGroup(line.constData(), line.size());
        const QByteArray description =
            name + "\tPostings of kind " + QByteArray::number(i % 977) + " and talk";
        builder.addDescription(description.constData(), description.size());
    }
    return builder.take();
}
