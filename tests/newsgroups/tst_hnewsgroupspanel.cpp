// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "grouplines.h"
#include "hostilenntpserver.h"
#include "newswindow.h"

#include "newsgroupcache.h"

#include <halvora/connector.h>

#include <halvora/hmessagemanager.h>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTranslator>
#include <QtTest>

/// The panel as a person uses it, beside a loopback service or a server that misbehaves.
class TestHNewsgroupsPanel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void withoutALoginThePanelAsksForOne();
    void theListComesWithTheLogin();
    void typingNarrowsTheList();
    void theSelectionSurvivesTheFilter();
    void theKeptListIsThereBeforeTheLogin();
    void aFreshListIsNotAskedForAgain_data();
    void aFreshListIsNotAskedForAgain();
    void refreshAsksAgain();
    void aPanelThatIsNotShownAsksNobody();
    void aDamagedKeptListIsAskedForAgain();
    void aListThatCanNotBeKeptIsShownAllTheSame();
    void aRefusalIsToldInTheServersWords();
    void aServerWithoutDescriptionsHasNewsgroupsAllTheSame();
    void aListThatBreaksOffIsNotTaken();
    void loggingOutLeavesTheList();
    void anotherUserDoesNotSeeTheList();
    void aClearedListIsInNoFileAndComesWithTheNextLogin();
    void theReturnKeyOpensANewsgroup();
    void aDoubleClickOpensANewsgroup();
    void theMenuOffersWhatCanBeDone();
    void keysLeadFromTheFieldToTheList();
    void everyPartHasANameForEverybody();
    void theTextsFollowTheLanguage();
    void thePanelCanNotBeClosedButFloats();
    void quittingWhileTheListComesIsQuick();
    void aPanelThatGoesLeavesItsConnection();

private:
    static void keep(NewsWindow &news, const QByteArrayList &groups, const QDateTime &fetched,
                     const QString &server = QStringLiteral("127.0.0.1"),
                     const QString &user = QStringLiteral("demo"));
};

namespace {

/// Every text in capitals.
class Shouting : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        const QString loud =
            QString::fromUtf8(text).toUpper().replace(QLatin1String("%LN"), QLatin1String("%Ln"));
        return QByteArray(context).startsWith('Q') ? QString() : loud;
    }
};

const QByteArray greeting = "200 Welcome\r\n";
const QByteArray wantsPassword = "381 Go on\r\n";
const QByteArray letsIn = "281 Welcome\r\n";

/// A server whose list of newsgroups never comes to an end.
HostileNntpServer::Script endlessList()
{
    return [](Conversation &client) {
        client.say(greeting);
        for (const QByteArray &answer : {wantsPassword, letsIn}) {
            client.hear();
            client.say(answer);
        }
        client.hear();
        client.reached();
        client.drip("215 Here\r\n");
    };
}

QStringList two()
{
    return {QStringLiteral("a.a"), QStringLiteral("b.b")};
}

} // namespace

void TestHNewsgroupsPanel::keep(NewsWindow &news, const QByteArrayList &groups, const QDateTime &fetched,
                                const QString &server, const QString &user)
{
    QVERIFY(newsgroupcache::write(news.cacheFile(), {tableOf(groups), fetched, server, user}));
    news.restart();
}

void TestHNewsgroupsPanel::withoutALoginThePanelAsksForOne()
{
    NewsWindow news;
    QTRY_COMPARE(news.summary(), QStringLiteral("Log in to load the newsgroups."));
    QCOMPARE(news.problem(), QString());
    QVERIFY(!news.find<QAction>("refreshNewsgroups")->isEnabled());
}

void TestHNewsgroupsPanel::theListComesWithTheLogin()
{
    NewsWindow news;
    const QAbstractItemModelTester tester(news.list()->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("comp.lang.c++")));
    const int count = news.names().size();
    QTRY_COMPARE(news.summary(), QStringLiteral("%1 of %1 newsgroups").arg(count));
    const int row = news.names().indexOf(QStringLiteral("misc.rural"));
    QCOMPARE(NewsWindow::texts(news.list(), 1).at(row), QStringLiteral("Country living."));
    QStringList sorted = news.names();
    std::sort(sorted.begin(), sorted.end());
    QCOMPARE(news.names(), sorted);
}

void TestHNewsgroupsPanel::typingNarrowsTheList()
{
    NewsWindow news;
    keep(news, {"a.linux", "b.linux.iso", "c.bsd"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.summary(), QStringLiteral("3 of 3 newsgroups"));
    QTest::keyClicks(news.find<QLineEdit>("newsgroupFilter"), QStringLiteral("Linux is"));
    QCOMPARE(news.names(), QStringList{QStringLiteral("b.linux.iso")});
    QCOMPARE(news.summary(), QStringLiteral("1 of 3 newsgroups"));
    news.find<QLineEdit>("newsgroupFilter")->clear();
    QCOMPARE(news.names().size(), 3);
}

void TestHNewsgroupsPanel::theSelectionSurvivesTheFilter()
{
    NewsWindow news;
    keep(news, {"a.linux", "b.bsd", "c.linux", "d.linux"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 4);
    QItemSelectionModel *selection = news.list()->selectionModel();
    const auto flags = QItemSelectionModel::Select | QItemSelectionModel::Rows;
    selection->setCurrentIndex(news.list()->model()->index(3, 0), flags);
    selection->select(news.list()->model()->index(0, 0), flags);
    selection->select(news.list()->model()->index(1, 0), flags);
    news.find<QLineEdit>("newsgroupFilter")->setText(QStringLiteral("linux"));
    QCOMPARE(news.names().size(), 3);
    QCOMPARE(selection->currentIndex().row(), 2);
    QCOMPARE(selection->selectedRows().size(), 2);
    QVERIFY(selection->isRowSelected(0, {}) && !selection->isRowSelected(1, {}) &&
            selection->isRowSelected(2, {}));
}

void TestHNewsgroupsPanel::theKeptListIsThereBeforeTheLogin()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
    const QStringList names = news.names();
    news.restart();
    QTRY_COMPARE(news.names(), names);
    QVERIFY(news.find<QWidget>("summary")->parentWidget()->toolTip().startsWith(QStringLiteral("As of ")));
}

void TestHNewsgroupsPanel::aFreshListIsNotAskedForAgain_data()
{
    QTest::addColumn<int>("hours");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("user");
    QTest::addColumn<bool>("isAsked");
    const QString here = QStringLiteral("127.0.0.1");
    const QString demo = QStringLiteral("demo");
    QTest::newRow("fresh") << -23 << here << demo << false;
    QTest::newRow("a day old") << -25 << here << demo << true;
    QTest::newRow("from a clock that was wrong") << 5 << here << demo << true;
    QTest::newRow("from another news server") << -1 << QStringLiteral("news.example") << demo << true;
    QTest::newRow("of another user") << -1 << here << QStringLiteral("reseller") << true;
}

void TestHNewsgroupsPanel::aFreshListIsNotAskedForAgain()
{
    QFETCH(int, hours);
    QFETCH(QString, from);
    QFETCH(QString, user);
    QFETCH(bool, isAsked);
    const auto script = Scripts::answering(
        {wantsPassword, letsIn, "215 Here\r\na.a 1 1 y\r\nb.b 1 1 y\r\n.\r\n", "503 No descriptions\r\n"});
    HostileNntpServer server(script);
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    keep(news, {"kept.group"}, QDateTime::currentDateTimeUtc().addSecs(qint64(hours) * 3600), from, user);
    QTRY_COMPARE(news.names(), QStringList{QStringLiteral("kept.group")});
    QVERIFY(news.logIn());
    if (isAsked) {
        QTRY_COMPARE(news.names(), two());
        return;
    }
    QCOMPARE(news.summary(), QStringLiteral("1 of 1 newsgroups"));
    QVERIFY(news.find<QWidget>("progress")->isHidden());
}

void TestHNewsgroupsPanel::refreshAsksAgain()
{
    NewsWindow news;
    keep(news, {"kept.group"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 1);
    QVERIFY(news.logIn());
    news.find<QAction>("refreshNewsgroups")->trigger();
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
}

void TestHNewsgroupsPanel::aPanelThatIsNotShownAsksNobody()
{
    ServiceAccount account;
    MainWindow window(&account.core());
    account.plugin().polish(&window);
    QVERIFY(account.logIn());
    QVERIFY(NewsWindow::find<QWidget>(&window, "progress")->isHidden());
    window.show();
    QVERIFY(!NewsWindow::find<QWidget>(&window, "progress")->isHidden());
    auto *list = NewsWindow::find<QAbstractItemView>(&window, "newsgroupList");
    QTRY_VERIFY(list->model()->rowCount() > 0);
}

void TestHNewsgroupsPanel::aDamagedKeptListIsAskedForAgain()
{
    NewsWindow news;
    keep(news, {"kept.group"}, QDateTime::currentDateTimeUtc());
    QFile file(news.cacheFile());
    QVERIFY(file.open(QIODevice::ReadWrite) && file.resize(file.size() - 1));
    file.close();
    news.restart();
    QTRY_COMPARE(news.summary(), QStringLiteral("Log in to load the newsgroups."));
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
}

void TestHNewsgroupsPanel::aListThatCanNotBeKeptIsShownAllTheSame()
{
    NewsWindow news;
    QVERIFY(QDir().mkpath(news.cacheFile())); // a folder stands where the file belongs
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
    QCOMPARE(news.problem(), QString());
}

void TestHNewsgroupsPanel::aRefusalIsToldInTheServersWords()
{
    HostileNntpServer server(Scripts::answering(
        {wantsPassword, letsIn, "503 The list is being <b>made</b>\r\n",
         "215 Here\r\na.a 1 1 y\r\nb.b 1 1 y\r\n.\r\n", "215 Here\r\nb.b\tSecond\r\n.\r\n"}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.problem(), QStringLiteral("The news server said: 503 The list is being <b>made</b>"));
    auto *again = news.find<QPushButton>("tryAgain");
    QVERIFY(again->isVisible());
    again->click();
    QTRY_COMPARE(news.names(), two());
    QCOMPARE(news.problem(), QString());
    QVERIFY(again->isHidden());
    QCOMPARE(NewsWindow::texts(news.list(), 1), (QStringList{QString(), QStringLiteral("Second")}));
}

void TestHNewsgroupsPanel::aServerWithoutDescriptionsHasNewsgroupsAllTheSame()
{
    HostileNntpServer server(Scripts::answering(
        {wantsPassword, letsIn, "215 Here\r\nb.b 1 1 y\r\na.a 1 1 y\r\nb.b 1 1 y\r\n\x01 1 1 y\r\n.\r\n",
         "503 None\r\n"}));
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.names(), two());
}

void TestHNewsgroupsPanel::aListThatBreaksOffIsNotTaken()
{
    HostileNntpServer server([](Conversation &client) {
        client.say(greeting);
        for (const QByteArray &answer : {wantsPassword, letsIn}) {
            client.hear();
            client.say(answer);
        }
        client.hear();
        client.say("215 Here\r\na.a 1 1 y\r\nb.b 1");
        client.hangUp();
    });
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    keep(news, {"kept.group"}, QDateTime::currentDateTimeUtc().addDays(-2));
    QTRY_COMPARE(news.names().size(), 1);
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.problem(), QStringLiteral("The connection to the news server broke."));
    QCOMPARE(news.summary(), QStringLiteral("1 of 1 newsgroups"));
}

void TestHNewsgroupsPanel::loggingOutLeavesTheList()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
    const int count = news.names().size();
    news.account().connector().logOut();
    QCOMPARE(news.names().size(), count);
    QCOMPARE(news.problem(), QString());
    QVERIFY(!news.find<QAction>("refreshNewsgroups")->isEnabled());
}

void TestHNewsgroupsPanel::anotherUserDoesNotSeeTheList()
{
    NewsWindow news;
    news.account().connector().messages()->setAccount(QStringLiteral("reseller"));
    keep(news, {"kept.group"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.summary(), QStringLiteral("Log in to load the newsgroups."));
    QCOMPARE(news.names(), QStringList());
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
}

void TestHNewsgroupsPanel::aClearedListIsInNoFileAndComesWithTheNextLogin()
{
    NewsWindow news;
    keep(news, {"kept.group"}, QDateTime::currentDateTimeUtc());
    news.account().plugin().forgetNewsgroups(); // while it is read
    QVERIFY(!QFile::exists(news.cacheFile()));
    QCOMPARE(news.names(), QStringList());
    QVERIFY(news.logIn());
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
    QVERIFY(QFile::exists(news.cacheFile()));
    news.account().plugin().forgetNewsgroups();
    QVERIFY(!QFile::exists(news.cacheFile()));
    QCOMPARE(news.names(), QStringList());
    news.find<QAction>("refreshNewsgroups")->trigger();
    QTRY_VERIFY(news.names().contains(QStringLiteral("misc.test")));
}

void TestHNewsgroupsPanel::theReturnKeyOpensANewsgroup()
{
    NewsWindow news;
    keep(news, {"a.a", "misc.test"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 2);
    QTest::keyClick(news.list(), Qt::Key_Return);
    QCOMPARE(news.window().findChildren<QAbstractItemView *>(QStringLiteral("articleList")).size(), 0);
    news.list()->setCurrentIndex(news.list()->model()->index(1, 0));
    QTest::keyClick(news.list(), Qt::Key_Return);
    QCOMPARE(news.window().findChildren<QAbstractItemView *>(QStringLiteral("articleList")).size(), 1);
    QTest::keyClick(news.list(), Qt::Key_Enter);
    QCOMPARE(news.window().findChildren<QAbstractItemView *>(QStringLiteral("articleList")).size(), 1);
}

void TestHNewsgroupsPanel::aDoubleClickOpensANewsgroup()
{
    NewsWindow news;
    keep(news, {"a.a", "misc.test"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 2);
    const QPoint place = news.list()->visualRect(news.list()->model()->index(1, 0)).center();
    QTest::mouseClick(news.list()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(news.list()->viewport(), Qt::LeftButton, {}, place);
    const auto pages = news.window().findChildren<QAbstractItemView *>(QStringLiteral("articleList"));
    QCOMPARE(pages.size(), 1);
    QCOMPARE(pages.constFirst()->parentWidget()->windowTitle(), QStringLiteral("misc.test"));
}

void TestHNewsgroupsPanel::theMenuOffersWhatCanBeDone()
{
    NewsWindow news;
    keep(news, {"a.a"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 1);
    QVERIFY(!news.find<QAction>("openNewsgroup")->isEnabled());
    Q_EMIT news.list()->customContextMenuRequested(QPoint(5, 5));
    auto *menu = news.find<QMenu>("newsgroupMenu");
    QStringList entries;
    for (const QAction *action : menu->actions())
        entries.append(action->text());
    QCOMPARE(entries, (QStringList{QStringLiteral("Open"), QStringLiteral("Add to bookmarks…"), QString(),
                                   QStringLiteral("Refresh")}));
    menu->close();
    news.list()->setCurrentIndex(news.list()->model()->index(0, 0));
    QVERIFY(news.find<QAction>("openNewsgroup")->isEnabled());
    QVERIFY(!news.find<QAction>("addBookmarks")->isEnabled()); // nobody keeps bookmarks here
}

void TestHNewsgroupsPanel::keysLeadFromTheFieldToTheList()
{
    NewsWindow news;
    keep(news, {"a.a", "b.b"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 2);
    news.window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&news.window()));
    news.window().showNewsgroupsPanel();
    auto *field = news.find<QLineEdit>("newsgroupFilter");
    QVERIFY(field->hasFocus());
    QTest::keyClicks(field, QStringLiteral("b."));
    QTest::keyClick(field, Qt::Key_Down);
    QVERIFY(news.list()->hasFocus());
    QCOMPARE(news.list()->currentIndex().data().toString(), QStringLiteral("b.b"));
}

void TestHNewsgroupsPanel::everyPartHasANameForEverybody()
{
    NewsWindow news;
    const QList<QWidget *> widgets = news.panel()->findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || widget->inherits("DockTitleButton"))
            continue;
        QAccessibleInterface *face = QAccessible::queryAccessibleInterface(const_cast<QWidget *>(widget));
        QVERIFY2(!widget->objectName().isEmpty(), widget->metaObject()->className());
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
    }
}

void TestHNewsgroupsPanel::theTextsFollowTheLanguage()
{
    NewsWindow news;
    keep(news, {"a.a"}, QDateTime::currentDateTimeUtc());
    QTRY_COMPARE(news.names().size(), 1);
    Shouting shouting;
    QCoreApplication::installTranslator(&shouting);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
    QCoreApplication::processEvents();
    QCOMPARE(news.panel()->windowTitle(), QStringLiteral("NEWSGROUPS"));
    QCOMPARE(news.find<QLineEdit>("newsgroupFilter")->placeholderText(), QStringLiteral("FILTER BY WORDS"));
    QCOMPARE(news.find<QAction>("addBookmarks")->text(), QStringLiteral("ADD TO BOOKMARKS…"));
    QCOMPARE(news.summary(), QStringLiteral("1 OF 1 NEWSGROUPS"));
    QCOMPARE(news.list()->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("NEWSGROUP"));
    QCOMPARE(news.find<QPushButton>("tryAgain")->text(), QStringLiteral("TRY AGAIN"));
    QCoreApplication::removeTranslator(&shouting);
    QCoreApplication::processEvents();
    QCOMPARE(news.panel()->windowTitle(), QStringLiteral("Newsgroups"));
}

void TestHNewsgroupsPanel::thePanelCanNotBeClosedButFloats()
{
    NewsWindow news;
    QCOMPARE(news.find<QDockWidget>("NewsgroupsDock")->features(),
             QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
}

void TestHNewsgroupsPanel::quittingWhileTheListComesIsQuick()
{
    HostileNntpServer server(endlessList());
    QElapsedTimer timer;
    {
        NewsWindow news(newsScenario(plainServer(server.port()), {}));
        QVERIFY(news.logIn());
        // Waiting without the event loop would keep the list from being asked for.
        QTRY_VERIFY(server.isReached());
        timer.start();
    }
    qInfo("closed after %lld ms", timer.elapsed());
    QVERIFY(timer.elapsed() < 30'000); // ten times what is promised
}

void TestHNewsgroupsPanel::aPanelThatGoesLeavesItsConnection()
{
    HostileNntpServer server(endlessList());
    NewsWindow news(newsScenario(plainServer(server.port()), {}));
    QVERIFY(news.logIn());
    QTRY_VERIFY(server.isReached());
    news.closeWindow();
    QVERIFY(server.transcript().endsWith("LIST ACTIVE\r\n"));
}

QTEST_MAIN(TestHNewsgroupsPanel)
#include "tst_hnewsgroupspanel.moc"
