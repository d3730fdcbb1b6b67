// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"

#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkprovider.h"

#include <QDialog>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>
#include <QToolTip>

/// Names come from the account and from other programs; whatever they hold is shown, and nothing more
/// happens.
class TestStrangeNames : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theNameIsShownEverywhereAsItIs_data();
    void theNameIsShownEverywhereAsItIs();

private:
    static void hover(BookmarksPanel &panel, const QModelIndex &index);
};

void TestStrangeNames::theNameIsShownEverywhereAsItIs_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("markup") << QStringLiteral("<b>bold</b> & <img src=\"file:///etc/hostname\">");
    QTest::newRow("nested tables") << QStringLiteral("<table><tr><td>").repeated(6'000);
    QTest::newRow("100,000 characters") << QString(100'000, QLatin1Char('x'));
    QTest::newRow("right to left") << QString::fromUtf8("مجموعات الأخبار alt.binaries עברית");
    QTest::newRow("direction marks") << QString(QChar(0x202E)) + QStringLiteral("evil") + QChar(0x2066);
    QTest::newRow("line ends") << QStringLiteral("one\ntwo\r\n\tthree");
    QTest::newRow("halves of characters") << QStringLiteral("a") + QChar(0xD83D) + QStringLiteral("b");
    QTest::newRow("ampersands") << QStringLiteral("Rock && Roll & more");
}

void TestStrangeNames::hover(BookmarksPanel &panel, const QModelIndex &index)
{
    const QPoint place = panel.place(index);
    QWidget *viewport = panel.view()->viewport();
    QHelpEvent event(QEvent::ToolTip, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &event);
    QVERIFY(!QToolTip::text().isEmpty());
    QVERIFY(QToolTip::text().size() < 20'000);
    QToolTip::hideText();
}

void TestStrangeNames::theNameIsShownEverywhereAsItIs()
{
    QFETCH(QString, name);
    BookmarksPanel panel;
    const QPersistentModelIndex folder = panel.addFolder("folder");
    panel.model().setData(folder, name);
    panel.model().addBookmarks({QStringLiteral("alt.binaries.") + name}, folder);
    panel.view()->expand(folder);
    const QSize size = panel.window().size();
    QVERIFY(!panel.view()->grab().isNull());
    hover(panel, folder);
    hover(panel, panel.model().index(0, 0, folder));

    panel.click(folder);
    const auto *pages = panel.window().findChild<QTabWidget *>(QStringLiteral("halvora.pages"));
    QTRY_COMPARE(pages->count(), 1);
    QCOMPARE(pages->currentWidget()->windowTitle(), name);
    QVERIFY(pages->tabText(0).size() < 1000);
    panel.click(panel.model().index(0, 0, folder));
    QTRY_COMPARE(pages->count(), 2);

    panel.view()->edit(folder);
    QVERIFY(panel.editor());
    QTest::keyClick(panel.editor(), Qt::Key_Escape);
    panel.model().provider()->addBookmarks({name});
    auto *dialog = panel.window().findChild<QDialog *>();
    QVERIFY(dialog && !dialog->grab().isNull());
    dialog->close();

    QVERIFY(!panel.window().grab().isNull());
    QCOMPARE(panel.window().size(), size);
    QCOMPARE(panel.store().names(), QStringList{name});
}

QTEST_MAIN(TestStrangeNames)
#include "tst_strangenames.moc"
