// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "bookmarkstore.h"
#include "connector/cvconnectorplugin.h"
#include "loopbackaccount.h"
#include "requests/cvstatusrequest.h"

#include <halvora/benchmark.h>
#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/pluginmanager.h>
#include <halvora/storagemanager.h>

#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <functional>

/// The account's bookmarks on their way from the account service into the tree.
class TestBookmarkImport : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aLoginFillsTheEmptyTree();
    void theRowsAreThoseOfNewCollapsedFoldersWithoutColour();
    void theTreeStartsAnewOnceAndIsConsistent();
    void aTreeThatHoldsAnythingIsNotAskedFor_data();
    void aTreeThatHoldsAnythingIsNotAskedFor();
    void onlyTheConnectedStateAsks_data();
    void onlyTheConnectedStateAsks();
    void whileOneRequestIsOutNoOtherIsMade();
    void aStateThatComesBeforeTheFirstLoadAsksOverAFullStore();
    void theProvidersListHoldsExactlyWhatWasImported();
    void aReplyWithoutFoldersChangesNothing_data();
    void aReplyWithoutFoldersChangesNothing();
    void aFailedRequestIsRepeatedAtTheNextState();
    void whatALogoutOvertookIsNotImported();
    void strangeRepliesAreImportedAsTheyAre_data();
    void strangeRepliesAreImportedAsTheyAre();
    void namesThatAreTooLongAreNotImported();
    void tenThousandFoldersAreImported();
    void aFolderWithoutANameEndsTheRequestAtItsDeadline_data();
    void aFolderWithoutANameEndsTheRequestAtItsDeadline();
    void clearingWhileConnectedImportsAgain();
    void clearingWhileNotConnectedAsksNobody();
    void clearingWhileARequestIsOutDoesNotAskAgain();
    void finishingWithoutARequestDoesNothing();
    void destroyingItWithARequestOutIsHarmless();

private:
    void answerWith(const std::string &folders);
    void setFault(corvia::Fault::Kind kind, const std::string &text = {});
    void logIn();
    void logInAndImport();
    /// Runs @p action at the next login, when the request was made and before it is sent.
    void atTheLogin(const std::function<void()> &action);
    /// Everything that was asked before has been answered then.
    void waitForTheQueue();
    int asked() const { return m_account->requestNames().count(QStringLiteral("bookmarks")); }
    QStringList names(const QModelIndex &parent = QModelIndex()) const;
    BookmarkProvider &provider() const { return *m_account->core().plugin()->bookmarkProvider(); }
    HServer &server() const { return *m_plugin->connector()->server(); }
    QVector<BookmarkRow> rows() const;

    std::unique_ptr<LoopbackAccount> m_account;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
    CVBookmarkManager *m_model = nullptr;
    int m_failures = 0;
};

namespace {

// A login takes seconds where every allocation is followed to its caller.
constexpr int patience = 60'000; // milliseconds

std::string folder(const std::string &name, std::initializer_list<const char *> newsgroups)
{
    std::string text = "<folder><name>" + name + "</name>";
    for (const char *newsgroup : newsgroups)
        text += std::string("<newsgroup>") + newsgroup + "</newsgroup>";
    return text + "</folder>";
}

std::string twoFolders()
{
    return folder("One", {"a.a", "a.b", "a.c"}) + folder("Two", {"b.a", "b.b", "b.c"});
}

} // namespace

void TestBookmarkImport::init()
{
    m_account = std::make_unique<LoopbackAccount>();
    QVERIFY(m_account->isRunning());
    m_plugin = std::make_unique<CVConnectorPlugin>(&m_account->core());
    Benchmark benchmark;
    m_plugin->init(benchmark);
    m_model = m_plugin->findChild<CVBookmarkManager *>();
    m_account->useDemo(*m_plugin);
    m_failures = 0;
    connect(&server(), &HServer::requestFailed, m_model, [this] { ++m_failures; });
    answerWith(twoFolders());
    QCoreApplication::processEvents(); // the first load
}

void TestBookmarkImport::cleanup()
{
    m_plugin.reset();
    m_account.reset();
}

void TestBookmarkImport::answerWith(const std::string &folders)
{
    setFault(corvia::Fault::Kind::Element, "<bookmarks>" + folders + "</bookmarks>");
}

void TestBookmarkImport::setFault(corvia::Fault::Kind kind, const std::string &text)
{
    corvia::Fault fault;
    fault.kind = kind;
    fault.text = text;
    fault.request = "bookmarks";
    m_account->service().setFault(fault);
}

void TestBookmarkImport::logIn()
{
    m_plugin->startLogin();
    QTRY_COMPARE_WITH_TIMEOUT(server().connectorState(), HServer::Connected, patience);
}

void TestBookmarkImport::atTheLogin(const std::function<void()> &action)
{
    connect(&server(), &HServer::stateChanged, m_model, [action](HServer::State state) {
        if (state == HServer::Connected)
            action();
    });
}

void TestBookmarkImport::waitForTheQueue()
{
    // What the service received is still on its way; requests are delivered in the order they were sent.
    const QSharedPointer<HRequest> last(new CVStatusRequest(m_plugin->connector()));
    const QSignalSpy delivered(last.data(), &HRequest::requestFinished);
    server().addRequestToQueue(last);
    QTRY_COMPARE_WITH_TIMEOUT(delivered.count(), 1, patience);
}

void TestBookmarkImport::logInAndImport()
{
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), 2, patience);
}

QStringList TestBookmarkImport::names(const QModelIndex &parent) const
{
    QStringList names;
    for (int row = 0; row < m_model->rowCount(parent); ++row)
        names.append(m_model->index(row, 0, parent).data(Qt::EditRole).toString());
    return names;
}

QVector<BookmarkRow> TestBookmarkImport::rows() const
{
    return BookmarkStore::rows(m_account->core().storage()->databasePath(m_plugin->configName()));
}

void TestBookmarkImport::aLoginFillsTheEmptyTree()
{
    logInAndImport();
    QCOMPARE(names(), QStringList({QStringLiteral("One"), QStringLiteral("Two")}));
    QCOMPARE(names(m_model->index(0, 0)),
             QStringList({QStringLiteral("a.a"), QStringLiteral("a.b"), QStringLiteral("a.c")}));
    QCOMPARE(names(m_model->index(1, 0)),
             QStringList({QStringLiteral("b.a"), QStringLiteral("b.b"), QStringLiteral("b.c")}));
    QCOMPARE(asked(), 1);
}

void TestBookmarkImport::theRowsAreThoseOfNewCollapsedFoldersWithoutColour()
{
    logInAndImport();
    const QString none = QStringLiteral("NULL");
    const auto row = [&none](int id, const QString &parent, const QString &name, const QString &newsgroup,
                             int order) {
        return BookmarkRow{QString::number(id),   parent, name, newsgroup, none, QStringLiteral("0"),
                           QString::number(order)};
    };
    const QString one = QStringLiteral("1");
    const QString five = QStringLiteral("5");
    const QVector<BookmarkRow> expected{
        row(1, none, QStringLiteral("One"), none, 0), row(2, one, none, QStringLiteral("a.a"), 0),
        row(3, one, none, QStringLiteral("a.b"), 1),  row(4, one, none, QStringLiteral("a.c"), 2),
        row(5, none, QStringLiteral("Two"), none, 1), row(6, five, none, QStringLiteral("b.a"), 0),
        row(7, five, none, QStringLiteral("b.b"), 1), row(8, five, none, QStringLiteral("b.c"), 2)};
    QCOMPARE(rows(), expected);
}

void TestBookmarkImport::theTreeStartsAnewOnceAndIsConsistent()
{
    const QAbstractItemModelTester tester(m_model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy reset(m_model, &QAbstractItemModel::modelReset);
    const QSignalSpy changed(&provider(), &BookmarkProvider::bookmarksChanged);
    logInAndImport();
    QCOMPARE(reset.count(), 1);
    QCOMPARE(changed.count(), 1);
}

void TestBookmarkImport::aTreeThatHoldsAnythingIsNotAskedFor_data()
{
    QTest::addColumn<bool>("withFolder");
    QTest::newRow("a folder") << true;
    QTest::newRow("a bookmark") << false;
}

void TestBookmarkImport::aTreeThatHoldsAnythingIsNotAskedFor()
{
    QFETCH(bool, withFolder);
    if (withFolder)
        m_model->addFolder({});
    else
        m_model->addBookmarks({QStringLiteral("own.group")}, {});
    logIn();
    waitForTheQueue();
    QCOMPARE(asked(), 0);
    QCOMPARE(m_model->rowCount(), 1);
}

void TestBookmarkImport::onlyTheConnectedStateAsks_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("asked");
    for (const int state : {0, 1, 2, 3})
        QTest::addRow("%d", state) << state << (state == 2 ? 1 : 0);
}

void TestBookmarkImport::onlyTheConnectedStateAsks()
{
    QFETCH(int, state);
    answerWith({});
    logIn(); // nothing comes, so the tree stays empty
    waitForTheQueue();
    const int before = asked();
    m_model->connectorStateChanged(HServer::State(state));
    waitForTheQueue();
    QTEST(asked() - before, "asked");
}

void TestBookmarkImport::whileOneRequestIsOutNoOtherIsMade()
{
    answerWith({});
    atTheLogin([this] {
        m_model->connectorStateChanged(HServer::Connected);
        m_model->connectorStateChanged(HServer::Connected);
    });
    logIn();
    waitForTheQueue();
    QCOMPARE(asked(), 1);
}

void TestBookmarkImport::aStateThatComesBeforeTheFirstLoadAsksOverAFullStore()
{
    m_model->addFolder({});
    m_plugin.reset();
    m_plugin = std::make_unique<CVConnectorPlugin>(&m_account->core());
    Benchmark benchmark;
    m_plugin->init(benchmark);
    m_model = m_plugin->findChild<CVBookmarkManager *>();
    m_model->connectorStateChanged(HServer::Connected); // no event was handled yet
    m_account->useDemo(*m_plugin);
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(
        names(), QStringList({QStringLiteral("New Folder"), QStringLiteral("One"), QStringLiteral("Two")}),
        patience);
}

void TestBookmarkImport::theProvidersListHoldsExactlyWhatWasImported()
{
    answerWith(folder("One", {"a.a", "a.a", "a.b"}));
    atTheLogin([this] { m_model->addBookmarks({QStringLiteral("own.group")}, {}); });
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(names(), QStringList({QStringLiteral("own.group"), QStringLiteral("One")}),
                              patience);
    QCOMPARE(provider().bookmarkedNewsgroups(),
             QStringList({QStringLiteral("a.a"), QStringLiteral("a.a"), QStringLiteral("a.b")}));
    QVERIFY(!provider().isBookmarked(QStringLiteral("own.group")));
}

void TestBookmarkImport::aReplyWithoutFoldersChangesNothing_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("no folders") << int(corvia::Fault::Kind::Element) << QStringLiteral("<bookmarks/>");
    QTest::newRow("an error") << int(corvia::Fault::Kind::Element)
                              << QStringLiteral("<error code='unavailable'>later</error>");
    QTest::newRow("no document") << int(corvia::Fault::Kind::Body) << QStringLiteral("nothing");
    QTest::newRow("cut off") << int(corvia::Fault::Kind::Truncate) << QString();
}

void TestBookmarkImport::aReplyWithoutFoldersChangesNothing()
{
    QFETCH(int, kind);
    QFETCH(QString, text);
    setFault(corvia::Fault::Kind(kind), text.toStdString());
    const QSignalSpy reset(m_model, &QAbstractItemModel::modelReset);
    const QSignalSpy changed(&provider(), &BookmarkProvider::bookmarksChanged);
    logIn();
    if (text != QLatin1String("<bookmarks/>"))
        QTRY_COMPARE_WITH_TIMEOUT(m_failures, 1, patience);
    else
        waitForTheQueue();
    QCOMPARE(asked(), 1);
    QCOMPARE(reset.count(), 0);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(m_model->rowCount(), 0);
}

void TestBookmarkImport::aFailedRequestIsRepeatedAtTheNextState()
{
    answerWith({});
    logIn();
    waitForTheQueue();
    answerWith(twoFolders());
    waitForTheQueue();
    QCOMPARE(asked(), 1); // not by itself
    server().logOut();
    m_account->useDemo(*m_plugin);
    logInAndImport();
    QCOMPARE(asked(), 2);
}

// The reply is read, and waits for the event loop to be delivered.
void TestBookmarkImport::whatALogoutOvertookIsNotImported()
{
    bool wasRead = false;
    atTheLogin([this, &wasRead] {
        for (int i = 0; i < 30'000 && asked() == 0; ++i)
            QThread::msleep(1);
        QThread::msleep(200);
        wasRead = asked() == 1;
        server().logOut();
    });
    m_plugin->startLogin();
    QTRY_VERIFY_WITH_TIMEOUT(wasRead, patience);
    QTRY_COMPARE_WITH_TIMEOUT(m_failures, 1, patience);
    QCOMPARE(server().connectorState(), HServer::Disconnected);
    QCOMPARE(m_model->rowCount(), 0);
}

void TestBookmarkImport::strangeRepliesAreImportedAsTheyAre_data()
{
    QTest::addColumn<QString>("folders");
    QTest::addColumn<QStringList>("top");
    QTest::addColumn<QStringList>("first");
    const auto row = [](const char *name, const std::string &folders, const QStringList &top,
                        const QStringList &first) {
        QTest::newRow(name) << QString::fromStdString(folders) << top << first;
    };
    const QString a = QStringLiteral("A");
    const QString b = QStringLiteral("B");
    row("an empty folder", folder("A", {}), {a}, {});
    row("a newsgroup twice in a folder", folder("A", {"a", "a"}), {a},
        {QStringLiteral("a"), QStringLiteral("a")});
    row("two folders of one name", folder("A", {"a"}) + folder("A", {}), {a, a}, {QStringLiteral("a")});
    row("empty and blank newsgroups", folder("A", {"", "a", " ", "b", "\n"}), {a},
        {QStringLiteral("a"), QStringLiteral("b")});
    row("a newsgroup at the top", "<newsgroup>a</newsgroup>" + folder("B", {}), {b}, {});
    row("a folder in a folder",
        "<folder><name>A</name>" + folder("B", {"b"}) + "<newsgroup>a</newsgroup></folder>", {a},
        {QStringLiteral("a")});
    row("markup", folder("&lt;table&gt;&lt;b&gt;", {"&lt;i&gt;"}), {QStringLiteral("<table><b>")},
        {QStringLiteral("<i>")});
    row("right to left", folder(u8"مجموعات", {u8"אחת.שתיים"}), {QString::fromUtf8("مجموعات")},
        {QString::fromUtf8("אחת.שתיים")});
    const std::string length(512, 'x');
    row("512 characters", folder(length, {length.c_str()}), {QString::fromStdString(length)},
        {QString::fromStdString(length)});
}

void TestBookmarkImport::strangeRepliesAreImportedAsTheyAre()
{
    QFETCH(QString, folders);
    QFETCH(QStringList, top);
    answerWith(folders.toStdString());
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(names(), top, patience);
    QTEST(names(m_model->index(0, 0)), "first");
}

void TestBookmarkImport::namesThatAreTooLongAreNotImported()
{
    const std::string length(513, 'x');
    answerWith(folder("A", {"a"}) + folder("B", {length.c_str()}));
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(m_failures, 1, patience);
    QCOMPARE(m_model->rowCount(), 0);
}

void TestBookmarkImport::tenThousandFoldersAreImported()
{
    std::string folders;
    for (int i = 0; i < 10'000; ++i)
        folders += folder("F" + std::to_string(i), {});
    answerWith(folders);
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), 10'000, 60'000);
    QCOMPARE(m_model->index(9'999, 0).data().toString(), QStringLiteral("F9999"));
    QCOMPARE(rows().size(), 10'000);
}

// White space alone is no name either: the document keeps none of it.
void TestBookmarkImport::aFolderWithoutANameEndsTheRequestAtItsDeadline_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << QStringLiteral("<name/>");
    QTest::newRow("blank") << QStringLiteral("<name>  </name>");
    QTest::newRow("none") << QString();
}

void TestBookmarkImport::aFolderWithoutANameEndsTheRequestAtItsDeadline()
{
    QFETCH(QString, name);
    answerWith({});
    logIn();
    waitForTheQueue();
    answerWith(folder("One", {"a.a"}) + "<folder>" + name.toStdString() +
               "<newsgroup>b</newsgroup></folder>");
    server().setRequestDeadline(1000);
    m_model->connectorStateChanged(HServer::Connected);
    QTRY_COMPARE_WITH_TIMEOUT(m_failures, 1, patience);
    QCOMPARE(m_model->rowCount(), 0);
    QCOMPARE(server().connectorState(), HServer::Connected);
    server().setRequestDeadline(30'000);
    waitForTheQueue(); // the worker works again
    answerWith(twoFolders());
    m_model->connectorStateChanged(HServer::Connected);
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), 2, patience);
}

void TestBookmarkImport::clearingWhileConnectedImportsAgain()
{
    logInAndImport();
    m_model->setItemColor(m_model->index(0, 0), QStringLiteral("red"));
    m_model->clearBookmarks();
    QCOMPARE(m_model->rowCount(), 0);
    // The list of the provider is that of the last import until the next one.
    QVERIFY(provider().isBookmarked(QStringLiteral("a.a")));
    QTRY_COMPARE_WITH_TIMEOUT(m_model->rowCount(), 2, patience);
    QVERIFY(m_model->itemFromIndex(m_model->index(0, 0))->color().isEmpty());
    QCOMPARE(asked(), 2);
}

void TestBookmarkImport::clearingWhileNotConnectedAsksNobody()
{
    m_model->addFolder({});
    m_model->clearBookmarks();
    m_model->addFolder({});
    logIn();
    waitForTheQueue();
    QCOMPARE(asked(), 0);
}

void TestBookmarkImport::clearingWhileARequestIsOutDoesNotAskAgain()
{
    answerWith({});
    atTheLogin([this] { m_model->clearBookmarks(); });
    logIn();
    waitForTheQueue();
    QCOMPARE(asked(), 1);
}

void TestBookmarkImport::finishingWithoutARequestDoesNothing()
{
    const QSignalSpy reset(m_model, &QAbstractItemModel::modelReset);
    m_model->bookmarksRequestFinished();
    QCOMPARE(reset.count(), 0);
}

void TestBookmarkImport::destroyingItWithARequestOutIsHarmless()
{
    setFault(corvia::Fault::Kind::Stall);
    logIn();
    QTRY_COMPARE_WITH_TIMEOUT(asked(), 1, patience);
    m_plugin.reset();
    QVERIFY(!m_account->core().plugin()->bookmarkProvider());
}

QTEST_MAIN(TestBookmarkImport)
#include "tst_bookmarkimport.moc"
