// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"
#include "hostilenntpserver.h"
#include "newswindow.h"

#include "newsgroupcache.h"

#include <halvora/newsgroup.h>

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QtTest>

/// Keeps pictures of the panels beside the build, in a light and a dark palette and at the scale of this run,
/// and sees that nothing in them is cut off that has to be read whole.
class TestNewsgroupsLook : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void thePanelsLookRight_data();
    void thePanelsLookRight();
    void aProblemLooksRight_data();
    void aProblemLooksRight();
    void aStrangeNameDoesNotMakeTheWindowWider();

private:
    static void keep(QWidget *widget, const QString &name);
};

namespace {

QPalette darkPalette()
{
    QPalette palette(QColor(0x2A, 0x2E, 0x32), QColor(0x31, 0x36, 0x3B));
    palette.setColor(QPalette::Base, QColor(0x20, 0x23, 0x26));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x2A, 0x2E));
    palette.setColor(QPalette::Highlight, QColor(0x33, 0x99, 0xFF));
    palette.setColor(QPalette::Link, QColor(0x66, 0xB2, 0xFF));
    return palette;
}

void addPalettes()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::style()->standardPalette();
    QTest::newRow("dark") << darkPalette();
}

} // namespace

void TestNewsgroupsLook::initTestCase()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

void TestNewsgroupsLook::keep(QWidget *widget, const QString &name)
{
    QCoreApplication::processEvents(); // the layouts follow the texts
    const QList<QLabel *> labels = widget->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible() && label->wordWrap())
            QTRY_VERIFY2(label->height() >= label->heightForWidth(label->width()), qPrintable(label->text()));
    }
    const QString folder = QStringLiteral(PICTURE_FOLDER);
    QDir().mkpath(folder);
    const QString file = QStringLiteral("%1/%2-%3-x%4.png")
                             .arg(folder, name, QString::fromLatin1(QTest::currentDataTag()))
                             .arg(widget->devicePixelRatioF());
    QVERIFY2(widget->grab().save(file), qPrintable(file));
}

void TestNewsgroupsLook::thePanelsLookRight_data()
{
    addPalettes();
}

void TestNewsgroupsLook::thePanelsLookRight()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    NewsWindow news;
    news.window().resize(1200, 700);
    QTRY_COMPARE(news.summary(), QStringLiteral("Log in to load the newsgroups."));
    keep(&news.window(), QStringLiteral("newsgroups-logged-out"));
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
    news.account().plugin().showNewsgroupPanel(
        Newsgroup(QStringLiteral("alt.binaries.pictures.public-domain")), HIndex::ListView,
        HIndex::FileFacet);
    const QList<Newsgroup> several{Newsgroup(QStringLiteral("comp.lang.c++")),
                                   Newsgroup(QStringLiteral("comp.os.linux.misc")),
                                   Newsgroup(QStringLiteral("misc.test"))};
    QTRY_VERIFY(news.find<QAbstractItemView>("articleList")->model()->rowCount() > 0);
    keep(&news.window(), QStringLiteral("newsgroup"));
    news.find<QLineEdit>("newsgroupFilter")->setText(QStringLiteral("linux"));
    news.list()->setCurrentIndex(news.list()->model()->index(1, 0));
    news.account().plugin().showNewsgroupPanel(QStringLiteral("Reading"), several, HIndex::ListView,
                                               HIndex::AnyFacet);
    const auto views = news.window().findChildren<QAbstractItemView *>(QStringLiteral("articleList"));
    QTRY_VERIFY(views.constLast()->model()->rowCount() > 0 && views.constFirst()->model()->rowCount() > 0);
    keep(&news.window(), QStringLiteral("newsgroups-together"));
    auto *dock = qobject_cast<QDockWidget *>(news.panel());
    dock->setFloating(true);
    dock->resize(700, 500);
    keep(dock, QStringLiteral("newsgroups-floating"));
}

void TestNewsgroupsLook::aProblemLooksRight_data()
{
    addPalettes();
}

void TestNewsgroupsLook::aProblemLooksRight()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    HostileNntpServer server(
        Scripts::answering({"381 Go on\r\n", "281 Welcome\r\n",
                            "503 The list of newsgroups is being rebuilt, come back later\r\n",
                            "411 There is no such newsgroup here\r\n"}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    QVERIFY(news.logIn());
    QTRY_VERIFY(!news.problem().isEmpty());
    news.account().plugin().showNewsgroupPanel(Newsgroup(QStringLiteral("a.b")), HIndex::ListView,
                                               HIndex::AnyFacet);
    auto *page = news.find<QAbstractItemView>("articleList")->parentWidget();
    QTRY_VERIFY(!NewsWindow::label(page, "problem").isEmpty());
    keep(&news.window(), QStringLiteral("newsgroups-problem"));
    for (const QWidget *part : {news.panel(), page}) {
        const auto *again = NewsWindow::find<QPushButton>(part, "tryAgain");
        QVERIFY(again->width() >= again->sizeHint().width());
    }
}

void TestNewsgroupsLook::aStrangeNameDoesNotMakeTheWindowWider()
{
    NewsWindow news;
    const int width = news.window().minimumSizeHint().width();
    const QByteArray name(497, 'w');
    QVERIFY(newsgroupcache::write(news.cacheFile(),
                                  {tableOf({name}, {name + "\t" + name}), QDateTime::currentDateTimeUtc(),
                                   QString(), QStringLiteral("demo")}));
    news.restart();
    QTRY_COMPARE(news.names().size(), 1);
    news.account().plugin().showNewsgroupPanel(Newsgroup(QString::fromLatin1(name)), HIndex::ListView,
                                               HIndex::AnyFacet);
    QCoreApplication::processEvents();
    QVERIFY(news.window().minimumSizeHint().width() <= width + 150);
}

QTEST_MAIN(TestNewsgroupsLook)
#include "tst_newsgroupslook.moc"
