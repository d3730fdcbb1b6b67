// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"

#include <QTest>

class TestCVBookmarkManager : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void smoke();
};

void TestCVBookmarkManager::smoke()
{
    BookmarkStore store;
    store.check();
    store.addFolder(QStringLiteral("one"));
    QCOMPARE(store.orders(QStringLiteral("NULL")), QStringList{QStringLiteral("one 0")});
}

QTEST_MAIN(TestCVBookmarkManager)
#include "tst_cvbookmarkmanager.moc"
