// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
// Changes the bookmarks of a profile until somebody kills it: killedwriter profile seed
// Every change that has returned is told with one line on standard output.
#include "bookmarkchanges.h"
#include "bookmarkstore.h"

#include "connector/cvconnectorplugin.h"

#include <QApplication>

#include <cstdio>
#include <unistd.h>

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3)
        return 2;
    Core core(arguments.at(1));
    CVConnectorPlugin plugin(&core);
    OpenBookmarkManager model(&plugin);
    QCoreApplication::sendPostedEvents();
    model.load();
    BookmarkChanges changes(model, arguments.at(2).toUInt());
    for (int count = 1;; ++count) {
        const QByteArray line = QByteArray::number(count) + ' ' + changes.next() + '\n';
        // Nothing stays in a buffer of this process, and a line is written whole or not at all.
        if (::write(STDOUT_FILENO, line.constData(), size_t(line.size())) != line.size())
            return 1;
    }
}
