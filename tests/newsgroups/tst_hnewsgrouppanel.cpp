// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostilenntpserver.h"
#include "newswindow.h"

#include <halvora/connector.h>
#include <halvora/newsgroup.h>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QTranslator>
#include <QTreeView>
#include <QtTest>

/// The pages of articles as a person uses them, beside a loopback service or a server that misbehaves.
class TestHNewsgroupPanel : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aNewsgroupOpensAsAPage();
    void withoutAWindowNothingHappens();
    void openedAgainThePageComesToTheFront();
    void openedAgainThePageIsAsItWasLeft();
    void openedAgainAfterAFailureThePageLoads();
    void severalNewsgroupsAreMergedByDate();
    void oneNewsgroupNeedsNoColumnForItsName();
    void scrollingLoadsOlderArticles();
    void theButtonLoadsOlderArticles();
    void olderArticlesOfSeveralNewsgroupsLeaveNoHoles();
    void theFacetChoosesWhatIsShownFirst_data();
    void theFacetChoosesWhatIsShownFirst();
    void anEmptyNewsgroupSaysSo();
    void noNewsgroupsHaveNoArticles();
    void aMissingNewsgroupIsToldInTheServersWords();
    void oneMissingNewsgroupDoesNotHideTheOthers();
    void withoutALoginThePageWaitsForOne();
    void afterARefusalItCanBeTriedAgain();
    void whatTheServerRepeatsOrInventsIsDropped();
    void aStretchWithoutArticlesIsPassedOver();
    void anOldServerIsAskedInItsOwnWay();
    void aPageCanBeClosedWhileItLoads();
    void everyPartHasANameForEverybody();
    void theTextsFollowTheLanguage();

private:
    static void open(NewsWindow &news, const QString &name, HIndex::MediaFacet facet = HIndex::AnyFacet);
    static QTreeView *view(NewsWindow &news) { return news.find<QTreeView>("articleList"); }
    static QWidget *page(NewsWindow &news) { return view(news)->parentWidget(); }
    static QString summary(NewsWindow &news) { return NewsWindow::label(page(news), "summary"); }
    static QString problem(NewsWindow &news) { return NewsWindow::label(page(news), "problem"); }
    static QStringList subjects(NewsWindow &news) { return NewsWindow::texts(view(news), 0); }
    static std::string seriesScenario(const QStringList &groups);
};

namespace {

constexpr int newsgroupColumn = 2;
constexpr int dateColumn = 3;
constexpr int sortRole = Qt::UserRole;

QString series(const QString &name, int count, int minutesAgo, int minutesApart)
{
    return QStringLiteral(
               "<group name=\"%1\" first=\"1000\"><series count=\"%2\" minutes-ago=\"%3\" "
               "minutes-apart=\"%4\"><article id=\"%1-{n}@x.example\" from=\"Ines &lt;i@x.example&gt;\" "
               "subject=\"Article {n}\">text</article></series></group>")
        .arg(name)
        .arg(count)
        .arg(minutesAgo)
        .arg(minutesApart);
}

/// A server that lets in and then gives @p replies.
HostileNntpServer::Script server(const QList<QByteArray> &replies)
{
    return Scripts::answering(QList<QByteArray>{"381 Go on\r\n", "281 Welcome\r\n"} + replies);
}

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

} // namespace

std::string TestHNewsgroupPanel::seriesScenario(const QStringList &groups)
{
    // The service's own two ports.
    return newsScenario(QString(), groups.join(QString()));
}

void TestHNewsgroupPanel::open(NewsWindow &news, const QString &name, HIndex::MediaFacet facet)
{
    news.account().plugin().showNewsgroupPanel(Newsgroup(name), HIndex::ListView, facet);
}

void TestHNewsgroupPanel::aNewsgroupOpensAsAPage()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    open(news, QStringLiteral("misc.test"));
    const QAbstractItemModelTester tester(view(news)->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    QCOMPARE(page(news)->windowTitle(), QStringLiteral("misc.test"));
    QVERIFY(page(news)->isVisible());
    QTRY_COMPARE(summary(news), QStringLiteral("3 of 3 articles shown"));
    QCOMPARE(subjects(news), (QStringList{QStringLiteral("ignore"), QStringLiteral("Does this arrive?"),
                                          QStringLiteral("test")}));
    QCOMPARE(NewsWindow::texts(view(news), 1).constFirst(), QStringLiteral("Paul Dunmore"));
    QVERIFY(!NewsWindow::texts(view(news), 4).constFirst().isEmpty());
    QVERIFY(NewsWindow::find<QPushButton>(page(news), "loadMore")->isHidden());
}

void TestHNewsgroupPanel::withoutAWindowNothingHappens()
{
    ServiceAccount account;
    account.plugin().showNewsgroupPanel(Newsgroup(QStringLiteral("misc.test")), HIndex::ListView,
                                        HIndex::AnyFacet);
    account.plugin().showNewsgroupPanel(QStringLiteral("Tests"), {Newsgroup(QStringLiteral("misc.test"))},
                                        HIndex::ListView, HIndex::AnyFacet);
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void TestHNewsgroupPanel::openedAgainThePageComesToTheFront()
{
    NewsWindow news;
    const auto pages = [&news] {
        return news.window().findChildren<QTreeView *>(QStringLiteral("articleList")).size();
    };
    open(news, QStringLiteral("misc.test"));
    const QWidget *first = page(news);
    open(news, QStringLiteral("misc.rural"));
    QCOMPARE(pages(), 2);
    QVERIFY(!first->isVisible());
    open(news, QStringLiteral("misc.test"));
    QCOMPARE(pages(), 2);
    QVERIFY(first->isVisible());
    ConnectorPlugin &plugin = news.account().plugin();
    const QList<Newsgroup> one{Newsgroup(QStringLiteral("misc.test"))};
    plugin.showNewsgroupPanel(QStringLiteral("misc.test"), one, HIndex::ListView, HIndex::AnyFacet);
    QCOMPARE(pages(), 2);
    plugin.showNewsgroupPanel(QStringLiteral("Tests"), one, HIndex::ListView, HIndex::AnyFacet);
    QCOMPARE(pages(), 3);
    plugin.showNewsgroupPanel(QStringLiteral("Tests"), one + one, HIndex::ListView, HIndex::AnyFacet);
    QCOMPARE(pages(), 4);
}

void TestHNewsgroupPanel::openedAgainThePageIsAsItWasLeft()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    open(news, QStringLiteral("misc.test"));
    QTRY_VERIFY(!subjects(news).isEmpty());
    auto *kind = NewsWindow::find<QComboBox>(page(news), "articleKind");
    kind->setCurrentIndex(1);
    open(news, QStringLiteral("misc.test"));
    QCOMPARE(kind->currentIndex(), 1);
    kind->setCurrentIndex(0);
    QVERIFY(!subjects(news).isEmpty()); // nothing is on its way either
}

void TestHNewsgroupPanel::openedAgainAfterAFailureThePageLoads()
{
    HostileNntpServer other(server({"215 Here\r\n.\r\n", "503 None\r\n", "411 not now\r\n",
                                    "211 1 1 2 a.b\r\n", "224 Here\r\n1\tfirst\r\n2\tsecond\r\n.\r\n"}));
    NewsWindow news(newsScenario(plainServer(other.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.summary(), QStringLiteral("The news server has no newsgroups."));
    open(news, QStringLiteral("a.b"));
    QTRY_VERIFY(!NewsWindow::label(page(news), "problem").isEmpty());
    open(news, QStringLiteral("a.b"));
    QTRY_COMPARE(subjects(news).size(), 2);
}

void TestHNewsgroupPanel::severalNewsgroupsAreMergedByDate()
{
    NewsWindow news(
        seriesScenario({series(QStringLiteral("a.a"), 5, 1, 10), series(QStringLiteral("b.b"), 5, 6, 10)}));
    QVERIFY(news.logIn());
    const QList<Newsgroup> groups{Newsgroup(QStringLiteral("a.a")), Newsgroup(QStringLiteral("b.b")),
                                  Newsgroup(QStringLiteral("a.a"))};
    news.account().plugin().showNewsgroupPanel(QStringLiteral("Both"), groups, HIndex::ListView,
                                               HIndex::AnyFacet);
    QCOMPARE(page(news)->windowTitle(), QStringLiteral("Both"));
    QTRY_COMPARE(summary(news), QStringLiteral("10 of 10 articles shown"));
    QVERIFY(!view(news)->isColumnHidden(newsgroupColumn));
    QCOMPARE(NewsWindow::texts(view(news), newsgroupColumn).join(QLatin1Char(' ')),
             QStringLiteral("a.a b.b a.a b.b a.a b.b a.a b.b a.a b.b"));
}

void TestHNewsgroupPanel::oneNewsgroupNeedsNoColumnForItsName()
{
    NewsWindow news;
    open(news, QStringLiteral("misc.test"));
    QVERIFY(view(news)->isColumnHidden(newsgroupColumn));
}

void TestHNewsgroupPanel::scrollingLoadsOlderArticles()
{
    NewsWindow news(seriesScenario({series(QStringLiteral("a.a"), 1200, 1, 10)}));
    QVERIFY(news.logIn());
    open(news, QStringLiteral("a.a"));
    const QString more = QStringLiteral(", older ones are on the server");
    QTRY_COMPARE(summary(news), QStringLiteral("500 of 500 articles shown") + more);
    QCOMPARE(subjects(news).constFirst(), QStringLiteral("Article 1200"));
    QTRY_VERIFY(view(news)->verticalScrollBar()->maximum() > 0);
    view(news)->scrollToBottom();
    QTRY_COMPARE(summary(news), QStringLiteral("1,000 of 1,000 articles shown") + more);
    QTRY_VERIFY(view(news)->verticalScrollBar()->value() < view(news)->verticalScrollBar()->maximum());
    view(news)->scrollToBottom();
    QTRY_COMPARE(summary(news), QStringLiteral("1,200 of 1,200 articles shown"));
    QCOMPARE(subjects(news).constLast(), QStringLiteral("Article 1"));
    QSet<QString> distinct;
    for (const QString &subject : subjects(news))
        distinct.insert(subject);
    QCOMPARE(distinct.size(), 1200);
}

void TestHNewsgroupPanel::theButtonLoadsOlderArticles()
{
    NewsWindow news(seriesScenario({series(QStringLiteral("a.a"), 600, 1, 10)}));
    QVERIFY(news.logIn());
    open(news, QStringLiteral("a.a"));
    auto *more = NewsWindow::find<QPushButton>(page(news), "loadMore");
    QTRY_VERIFY(more->isVisible());
    more->click();
    QTRY_COMPARE(summary(news), QStringLiteral("600 of 600 articles shown"));
    QVERIFY(more->isHidden());
}

// The quiet newsgroup reaches far back at once; the busy one has to catch up first.
void TestHNewsgroupPanel::olderArticlesOfSeveralNewsgroupsLeaveNoHoles()
{
    NewsWindow news(seriesScenario(
        {series(QStringLiteral("busy"), 1100, 1, 1), series(QStringLiteral("quiet"), 1100, 1, 1000)}));
    QVERIFY(news.logIn());
    const QList<Newsgroup> groups{Newsgroup(QStringLiteral("busy")), Newsgroup(QStringLiteral("quiet"))};
    news.account().plugin().showNewsgroupPanel(QStringLiteral("Both"), groups, HIndex::ListView,
                                               HIndex::AnyFacet);
    auto *more = NewsWindow::find<QPushButton>(page(news), "loadMore");
    for (const int expected : {1000, 1500, 1600}) {
        QTRY_COMPARE(subjects(news).size(), expected);
        QCOMPARE(NewsWindow::texts(view(news), newsgroupColumn).count(QStringLiteral("quiet")), 500);
        QTRY_VERIFY(more->isVisible());
        more->click();
    }
    QTRY_COMPARE(subjects(news).size(), 2100);
    const QAbstractItemModel *model = view(news)->model();
    for (int row = 1; row < model->rowCount(); ++row)
        QVERIFY(model->index(row, dateColumn).data(sortRole).toLongLong() <=
                model->index(row - 1, dateColumn).data(sortRole).toLongLong());
}

void TestHNewsgroupPanel::theFacetChoosesWhatIsShownFirst_data()
{
    QTest::addColumn<int>("facet");
    QTest::addColumn<QString>("summary");
    QTest::newRow("any") << int(HIndex::AnyFacet) << "4 of 4 articles shown";
    QTest::newRow("files") << int(HIndex::FileFacet) << "1 of 4 articles shown";
    QTest::newRow("texts") << int(HIndex::TextFacet) << "3 of 4 articles shown";
}

void TestHNewsgroupPanel::theFacetChoosesWhatIsShownFirst()
{
    QFETCH(int, facet);
    const QString file =
        QStringLiteral("<group name=\"a.a\"><article id=\"f@x.example\" from=\"i@x.example\" "
                       "subject=\"&quot;lake.jpg&quot; yEnc (1/2)\">x</article>"
                       "<series count=\"3\"><article id=\"{n}@x.example\" from=\"i@x.example\" "
                       "subject=\"Text {n}\">x</article></series></group>");
    NewsWindow news(seriesScenario({file}));
    QVERIFY(news.logIn());
    open(news, QStringLiteral("a.a"), HIndex::MediaFacet(facet));
    QTRY_COMPARE(subjects(news).isEmpty(), false);
    QTEST(summary(news), "summary");
    auto *kind = NewsWindow::find<QComboBox>(page(news), "articleKind");
    kind->setCurrentIndex(0);
    QCOMPARE(summary(news), QStringLiteral("4 of 4 articles shown"));
}

void TestHNewsgroupPanel::anEmptyNewsgroupSaysSo()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    open(news, QStringLiteral("misc.rural"));
    QTRY_COMPARE(summary(news), QStringLiteral("There are no articles in this newsgroup."));
    QCOMPARE(problem(news), QString());
}

void TestHNewsgroupPanel::noNewsgroupsHaveNoArticles()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    news.account().plugin().showNewsgroupPanel(QStringLiteral("None"), {}, HIndex::ListView,
                                               HIndex::AnyFacet);
    QTRY_COMPARE(summary(news), QStringLiteral("There are no articles in these newsgroups."));
    QCOMPARE(problem(news), QString());
}

void TestHNewsgroupPanel::aMissingNewsgroupIsToldInTheServersWords()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    open(news, QStringLiteral("not.there"));
    QTRY_COMPARE(problem(news), QStringLiteral("The news server said: 411 There is no such group"));
    QCOMPARE(summary(news), QString());
    QVERIFY(NewsWindow::find<QPushButton>(page(news), "tryAgain")->isVisible());
}

void TestHNewsgroupPanel::oneMissingNewsgroupDoesNotHideTheOthers()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    const QList<Newsgroup> groups{Newsgroup(QStringLiteral("not.there")),
                                  Newsgroup(QStringLiteral("misc.test"))};
    news.account().plugin().showNewsgroupPanel(QStringLiteral("Two"), groups, HIndex::ListView,
                                               HIndex::AnyFacet);
    QTRY_COMPARE(summary(news), QStringLiteral("3 of 3 articles shown"));
    QCOMPARE(problem(news), QStringLiteral("not.there: 411 There is no such group"));
}

void TestHNewsgroupPanel::withoutALoginThePageWaitsForOne()
{
    NewsWindow news;
    open(news, QStringLiteral("misc.test"));
    QTRY_COMPARE(problem(news), QStringLiteral("You are not logged in."));
    QVERIFY(news.logIn());
    QTRY_COMPARE(summary(news), QStringLiteral("3 of 3 articles shown"));
    QCOMPARE(problem(news), QString());
}

void TestHNewsgroupPanel::afterARefusalItCanBeTriedAgain()
{
    HostileNntpServer other(
        server({"215 Here\r\n.\r\n", "503 None\r\n", "211 2 1 2 a.b\r\n", "403 Overview is away\r\n",
                "211 2 1 2 a.b\r\n", "224 Here\r\n1\tfirst\r\n.\r\n"}));
    NewsWindow news(newsScenario(plainServer(other.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.summary(), QStringLiteral("The news server has no newsgroups."));
    open(news, QStringLiteral("a.b"));
    QTRY_COMPARE(problem(news), QStringLiteral("The news server said: 403 Overview is away"));
    NewsWindow::find<QPushButton>(page(news), "tryAgain")->click();
    QTRY_COMPARE(subjects(news), QStringList{QStringLiteral("first")});
    QCOMPARE(problem(news), QString());
}

void TestHNewsgroupPanel::whatTheServerRepeatsOrInventsIsDropped()
{
    HostileNntpServer other(server({"215 Here\r\n.\r\n", "503 None\r\n", "211 3 10 12 a.b\r\n",
                                    "224 Here\r\n9\tbefore\r\n10\tten\r\n10\tagain\r\n13\tbehind\r\n"
                                    "-11\tnegative\r\nnonsense\r\n\r\n12\ttwelve\r\n.\r\n"}));
    NewsWindow news(newsScenario(plainServer(other.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.summary(), QStringLiteral("The news server has no newsgroups."));
    open(news, QStringLiteral("a.b"));
    QTRY_COMPARE(summary(news), QStringLiteral("2 of 2 articles shown"));
    QCOMPARE(subjects(news), (QStringList{QStringLiteral("twelve"), QStringLiteral("ten")}));
}

void TestHNewsgroupPanel::aStretchWithoutArticlesIsPassedOver()
{
    HostileNntpServer other(server({"215 Here\r\n.\r\n", "503 None\r\n", "211 1 1 1500 a.b\r\n",
                                    "423 None there\r\n", "224 Here\r\n7\tseventh\r\n.\r\n"}));
    {
        NewsWindow news(newsScenario(plainServer(other.port()), {}));
        QVERIFY(news.logIn());
        QTRY_COMPARE(news.summary(), QStringLiteral("The news server has no newsgroups."));
        open(news, QStringLiteral("a.b"));
        QTRY_COMPARE(summary(news), QStringLiteral("1 of 1 articles shown"));
    }
    QVERIFY(other.transcript().contains("OVER 1001-1500\r\nOVER 1-1000\r\n"));
}

void TestHNewsgroupPanel::anOldServerIsAskedInItsOwnWay()
{
    HostileNntpServer other(server({"215 Here\r\n.\r\n", "503 None\r\n", "211 1 1 1 a.b\r\n", "500 What?\r\n",
                                    "224 Here\r\n1\tfirst\r\n.\r\n"}));
    {
        NewsWindow news(newsScenario(plainServer(other.port()), {}));
        QVERIFY(news.logIn());
        QTRY_COMPARE(news.summary(), QStringLiteral("The news server has no newsgroups."));
        open(news, QStringLiteral("a.b"));
        QTRY_COMPARE(subjects(news), QStringList{QStringLiteral("first")});
    }
    QVERIFY(other.transcript().contains("OVER 1-1\r\nXOVER 1-1\r\n"));
}

void TestHNewsgroupPanel::aPageCanBeClosedWhileItLoads()
{
    HostileNntpServer other([](Conversation &client) {
        client.say("200 Welcome\r\n");
        for (const char *answer : {"381 Go on\r\n", "281 Welcome\r\n", "215 Here\r\n.\r\n", "503 None\r\n"}) {
            client.hear();
            client.say(answer);
        }
        client.hear();
        client.say("211 9 1 9 a.b\r\n");
        client.hear();
        client.reached();
        client.drip("224 Here\r\n1\tfirst\r\n");
    });
    NewsWindow news(newsScenario(plainServer(other.port()), {}));
    QVERIFY(news.logIn());
    QTRY_COMPARE(news.summary(), QStringLiteral("The news server has no newsgroups."));
    open(news, QStringLiteral("a.b"));
    QVERIFY(other.waitUntilReached());
    QCOMPARE(summary(news), QStringLiteral("Loading articles…"));
    delete page(news);
    QVERIFY(other.transcript().endsWith("OVER 1-9\r\n")); // and the connection is left
}

void TestHNewsgroupPanel::everyPartHasANameForEverybody()
{
    NewsWindow news;
    open(news, QStringLiteral("misc.test"));
    const QList<QWidget *> widgets = page(news)->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (!(widget->focusPolicy() & Qt::TabFocus))
            continue;
        const QAccessibleInterface *face = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(!widget->objectName().isEmpty(), widget->metaObject()->className());
        QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
    }
}

void TestHNewsgroupPanel::theTextsFollowTheLanguage()
{
    NewsWindow news;
    QVERIFY(news.logIn());
    open(news, QStringLiteral("misc.test"));
    QTRY_COMPARE(subjects(news).size(), 3);
    Shouting shouting;
    QCoreApplication::installTranslator(&shouting);
    QCoreApplication::processEvents();
    QCOMPARE(summary(news), QStringLiteral("3 OF 3 ARTICLES SHOWN"));
    QCOMPARE(view(news)->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("SUBJECT"));
    QCOMPARE(NewsWindow::find<QComboBox>(page(news), "articleKind")->itemText(1), QStringLiteral("FILES"));
    QCOMPARE(NewsWindow::find<QPushButton>(page(news), "loadMore")->text(), QStringLiteral("LOAD MORE"));
    QCoreApplication::removeTranslator(&shouting);
}

QTEST_MAIN(TestHNewsgroupPanel)
#include "tst_hnewsgrouppanel.moc"
