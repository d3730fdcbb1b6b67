// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "innserver.h"
#include "newswindow.h"

#include <halvora/connector.h>
#include <halvora/newsgroup.h>

#include <QAction>
#include <QtTest>

/// Panel and pages against a news server that other people wrote.
class TestNewsgroupsInn : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void theListHasTheServersNewsgroups();
    void aPageHasTheServersArticles();
    void severalNewsgroupsAreShownTogether();
    void aMissingNewsgroupIsToldInTheServersWords();
    void aWrongPasswordIsToldInTheServersWords();

private:
    QString summary() { return NewsWindow::label(page(), "summary"); }
    QAbstractItemView *articles() { return m_news->find<QAbstractItemView>("articleList"); }
    QWidget *page() { return articles()->parentWidget(); }
    void open(const QStringList &names);

    std::unique_ptr<InnServer> m_server;
    std::unique_ptr<NewsWindow> m_news;
};

void TestNewsgroupsInn::initTestCase()
{
    m_server = std::make_unique<InnServer>();
    QVERIFY2(m_server->problem().isEmpty(), qPrintable(m_server->problem()));
}

void TestNewsgroupsInn::cleanupTestCase()
{
    m_news.reset();
    m_server.reset();
}

void TestNewsgroupsInn::init()
{
    const std::string scenario = newsScenario(plainServer(m_server->port()), {}, QStringLiteral("alice"),
                                              QStringLiteral("wonderland"));
    m_news = std::make_unique<NewsWindow>(scenario);
    m_news->account().connector().setAccount(QStringLiteral("alice"), QStringLiteral("wonderland"));
    QVERIFY(m_news->logIn());
}

void TestNewsgroupsInn::open(const QStringList &names)
{
    QList<Newsgroup> newsgroups;
    for (const QString &name : names)
        newsgroups.append(Newsgroup(name));
    m_news->account().plugin().showNewsgroupPanel(QStringLiteral("INN"), newsgroups, HIndex::ListView,
                                                  HIndex::AnyFacet);
}

void TestNewsgroupsInn::theListHasTheServersNewsgroups()
{
    QTRY_COMPARE(m_news->summary(), QStringLiteral("3 of 3 newsgroups"));
    QCOMPARE(m_news->names(), (QStringList{QStringLiteral("misc.articles"), QStringLiteral("misc.stories"),
                                           QStringLiteral("misc.test")}));
    QCOMPARE(NewsWindow::texts(m_news->list(), 1),
             (QStringList{QStringLiteral("A few articles."), QStringLiteral("Stories, all the shorter."),
                          QStringLiteral("Does it arrive?")}));
}

void TestNewsgroupsInn::aPageHasTheServersArticles()
{
    open({QStringLiteral("misc.stories")});
    QTRY_COMPARE(summary(), QStringLiteral("3 of 3 articles shown"));
    QCOMPARE(NewsWindow::texts(articles(), 0),
             (QStringList{QStringLiteral("Café story 1"), QStringLiteral("Café story 2"),
                          QStringLiteral("Café story 3")}));
    QCOMPARE(NewsWindow::texts(articles(), 1).constFirst(), QStringLiteral("Alice"));
    QVERIFY(!NewsWindow::texts(articles(), 3).contains(QString()));
    QVERIFY(!NewsWindow::texts(articles(), 4).contains(QString()));
}

void TestNewsgroupsInn::severalNewsgroupsAreShownTogether()
{
    open({QStringLiteral("misc.test"), QStringLiteral("misc.stories")});
    QTRY_COMPARE(summary(), QStringLiteral("3 of 3 articles shown"));
    QCOMPARE(NewsWindow::texts(articles(), 2).count(QStringLiteral("misc.stories")), 3);
}

void TestNewsgroupsInn::aMissingNewsgroupIsToldInTheServersWords()
{
    open({QStringLiteral("misc.missing")});
    QTRY_VERIFY(!NewsWindow::label(page(), "problem").isEmpty());
    const QString problem = NewsWindow::label(page(), "problem");
    QVERIFY2(problem.startsWith(QStringLiteral("The news server said: 411 ")), qPrintable(problem));
}

void TestNewsgroupsInn::aWrongPasswordIsToldInTheServersWords()
{
    const std::string scenario =
        newsScenario(plainServer(m_server->port()), {}, QStringLiteral("alice"), QStringLiteral("mirror"));
    m_news = std::make_unique<NewsWindow>(scenario);
    m_news->account().connector().setAccount(QStringLiteral("alice"), QStringLiteral("mirror"));
    QVERIFY(m_news->logIn());
    QTRY_VERIFY(!m_news->problem().isEmpty());
    QVERIFY2(m_news->problem().startsWith(QStringLiteral("The news server said: 481 ")),
             qPrintable(m_news->problem()));
}

QTEST_MAIN(TestNewsgroupsInn)
#include "tst_newsgroups_inn.moc"
