// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "connector/cvconnectorplugin.h"
#include "requests/cvbookmarksrequest.h"

#include <halvora/core.h>

#include <QDomDocument>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QXmlStreamWriter>

#include <memory>

class TestCVBookmarksRequest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void itWritesOneEmptyElement();
    void nothingIsThereBeforeAReply();
    void itAnswersWithItsBasesMetaObject();
    void itIsSentAsAnyOtherRequest();
    void repliesAreRead_data();
    void repliesAreRead();
    void itemsBelongToTheirFolderAndAreNothingButNamed();
    void namesAreTakenExactly_data();
    void namesAreTakenExactly();
    void tenThousandFoldersAreRead();
    void aFolderWithoutANameIsNotPassedUntilTheInterruption_data();
    void aFolderWithoutANameIsNotPassedUntilTheInterruption();
    void anInterruptionBeforeTheFirstFolderLeavesNothing();

private:
    QStringList read(const QString &reply);

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
    std::unique_ptr<CVBookmarksRequest> m_request;
};

namespace {

QDomElement element(const QString &xml)
{
    QDomDocument document;
    QString problem;
    if (!document.setContent(xml, &problem))
        qFatal("%s", qUtf8Printable(problem));
    return document.documentElement();
}

/// Reads a reply as the server's worker does, on a thread that can be interrupted.
class Reader final : public QThread {
public:
    Reader(CVBookmarksRequest *request, QDomElement reply)
        : m_request(request)
        , m_reply(std::move(reply))
    {
    }

protected:
    void run() override { m_request->buildResponseInternal(m_reply); }

private:
    CVBookmarksRequest *const m_request;
    const QDomElement m_reply;
};

} // namespace

void TestCVBookmarksRequest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
    m_request = std::make_unique<CVBookmarksRequest>(m_plugin->connector());
}

void TestCVBookmarksRequest::cleanup()
{
    m_request.reset();
    m_plugin.reset();
    m_core.reset();
}

/// The folders of @p reply, each as "name: newsgroup,newsgroup".
QStringList TestCVBookmarksRequest::read(const QString &reply)
{
    m_request->buildResponseInternal(element(reply));
    QStringList folders;
    const QList<BookmarkItem *> items = m_request->folders();
    for (const BookmarkItem *folder : items) {
        QStringList newsgroups;
        for (const BookmarkItem *bookmark : folder->children())
            newsgroups.append(bookmark->name());
        folders.append(folder->name() + QLatin1String(": ") + newsgroups.join(QLatin1Char(',')));
    }
    return folders;
}

void TestCVBookmarksRequest::itWritesOneEmptyElement()
{
    QString text;
    QXmlStreamWriter writer(&text);
    m_request->buildRequestInternal(writer);
    QCOMPARE(text, QStringLiteral("<bookmarks/>"));
}

void TestCVBookmarksRequest::nothingIsThereBeforeAReply()
{
    QVERIFY(m_request->folders().isEmpty());
    QVERIFY(!m_request->isSuccessful());
}

void TestCVBookmarksRequest::itAnswersWithItsBasesMetaObject()
{
    QCOMPARE(m_request->metaObject(), &HRequest::staticMetaObject);
    QCOMPARE(m_request->parent(), nullptr);
}

void TestCVBookmarksRequest::itIsSentAsAnyOtherRequest()
{
    QVERIFY(m_request->isAllowedToSend(true, true));
    QVERIFY(!m_request->isAllowedToSend(true, false));
    QVERIFY(!m_request->isAllowedToSend(false, true));
    QVERIFY(!m_request->isLoginRequest());
    QVERIFY(m_request->prepare());
}

void TestCVBookmarksRequest::repliesAreRead_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<QString>("folders");
    const auto row = [](const char *name, const char *reply, const char *folders) {
        QTest::newRow(name) << QString::fromUtf8(reply) << QString::fromUtf8(folders);
    };
    row("no folders", "<bookmarks/>", "");
    row("two folders, the second empty",
        "<bookmarks><folder><name>A</name><newsgroup>a.b</newsgroup></folder>"
        "<folder><name>B</name></folder></bookmarks>",
        "A: a.b|B: ");
    row("an empty element between two newsgroups",
        "<bookmarks><folder><name>A</name><newsgroup>a</newsgroup><newsgroup/>"
        "<newsgroup></newsgroup><newsgroup>b</newsgroup></folder></bookmarks>",
        "A: a,b");
    row("duplicates",
        "<bookmarks><folder><name>A</name><newsgroup>a</newsgroup><newsgroup>a</newsgroup></folder>"
        "<folder><name>A</name><newsgroup>a</newsgroup></folder></bookmarks>",
        "A: a,a|A: a");
    row("the order of the reply",
        "<bookmarks><folder><newsgroup>z</newsgroup><name>B</name><newsgroup>y</newsgroup></folder>"
        "<folder><name>A</name></folder></bookmarks>",
        "B: z,y|A: ");
    row("another name of the reply", "<anything><folder><name>A</name></folder></anything>", "A: ");
    row("only the first name counts", "<r><folder><name>A</name><name>B</name></folder></r>", "A: ");
    row("a newsgroup outside of a folder", "<r><newsgroup>a</newsgroup><folder><name>A</name></folder></r>",
        "A: ");
    row("a folder in a folder",
        "<r><folder><name>A</name><newsgroup>a</newsgroup><folder><name>B</name>"
        "<newsgroup>b</newsgroup></folder></folder></r>",
        "A: a");
    row("what nobody knows",
        "<r x='1'><other/><folder colour='red'><name>A</name><icon/>"
        "<newsgroup id='7'>a</newsgroup></folder></r>",
        "A: a");
}

void TestCVBookmarksRequest::repliesAreRead()
{
    QFETCH(QString, reply);
    QTEST(read(reply).join(QLatin1Char('|')), "folders");
}

void TestCVBookmarksRequest::itemsBelongToTheirFolderAndAreNothingButNamed()
{
    read(QStringLiteral("<r><folder><name>A</name><newsgroup>a</newsgroup></folder></r>"));
    const BookmarkItem *folder = m_request->folders().constFirst();
    const BookmarkItem *bookmark = folder->child(0);
    QVERIFY(folder->isFolder());
    QVERIFY(!folder->parent());
    QVERIFY(!bookmark->isFolder());
    QCOMPARE(bookmark->parent(), folder);
    for (const BookmarkItem *item : {folder, bookmark}) {
        QVERIFY(!item->hasId());
        QVERIFY(item->color().isNull());
        QVERIFY(!item->isExpanded());
    }
}

void TestCVBookmarksRequest::namesAreTakenExactly_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("blanks around it") << QStringLiteral("  My Folder ");
    QTest::newRow("letter case") << QStringLiteral("lINUX");
    QTest::newRow("markup") << QStringLiteral("<b>bold</b> & <table>");
    QTest::newRow("right to left") << QString::fromUtf8("مجموعات الأخبار");
    QTest::newRow("100,000 characters") << QString(100'000, QLatin1Char('x'));
}

void TestCVBookmarksRequest::namesAreTakenExactly()
{
    QFETCH(QString, name);
    const QString text = name.toHtmlEscaped();
    const QString reply =
        QStringLiteral("<r><folder><name>%1</name><newsgroup>%1</newsgroup></folder></r>").arg(text);
    QCOMPARE(read(reply), QStringList{name + QLatin1String(": ") + name});
}

void TestCVBookmarksRequest::tenThousandFoldersAreRead()
{
    const QString folder = QStringLiteral("<folder><name>A</name></folder>");
    QCOMPARE(read(QLatin1String("<r>") + folder.repeated(10'000) + QLatin1String("</r>")).size(), 10'000);
}

void TestCVBookmarksRequest::aFolderWithoutANameIsNotPassedUntilTheInterruption_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no element") << QString();
    QTest::newRow("an empty element") << QStringLiteral("<name/>");
    QTest::newRow("no text") << QStringLiteral("<name></name>");
    QTest::newRow("the second one has a text") << QStringLiteral("<name/><name>B</name>");
}

void TestCVBookmarksRequest::aFolderWithoutANameIsNotPassedUntilTheInterruption()
{
    QFETCH(QString, name);
    const QString reply = QStringLiteral("<r><folder><name>A</name><newsgroup>a</newsgroup></folder>"
                                         "<folder>%1<newsgroup>b</newsgroup></folder>"
                                         "<folder><name>C</name></folder></r>")
                              .arg(name);
    Reader reader(m_request.get(), element(reply));
    reader.start();
    // That it does not end can only be seen by waiting; a reader that ends is caught in the first moment.
    QVERIFY(!reader.wait(50));
    reader.requestInterruption();
    QVERIFY(reader.wait(60'000));
    QVERIFY(m_request->folders().isEmpty());
}

void TestCVBookmarksRequest::anInterruptionBeforeTheFirstFolderLeavesNothing()
{
    class Interrupted final : public QThread {
    public:
        explicit Interrupted(CVBookmarksRequest *request)
            : m_request(request)
        {
        }

    protected:
        void run() override
        {
            requestInterruption();
            m_request->buildResponseInternal(
                element(QStringLiteral("<r><folder><name>A</name></folder></r>")));
        }

    private:
        CVBookmarksRequest *const m_request;
    };
    Interrupted thread(m_request.get());
    thread.start();
    QVERIFY(thread.wait(60'000));
    QVERIFY(m_request->folders().isEmpty());
}

QTEST_GUILESS_MAIN(TestCVBookmarksRequest)
#include "tst_cvbookmarksrequest.moc"
