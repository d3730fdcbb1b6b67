// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "detailsdock.h"
#include "nzbtext.h"
#include "sanitized.h"
#include "serviceaccount.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>
#include <halvora/nzbloader.h>

#include <QAbstractItemModelTester>
#include <QAccessible>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QTemporaryDir>
#include <QTranslator>
#include <QTreeView>
#include <QtTest>

Q_DECLARE_METATYPE(corvia::Fault)

/// The details panel as a person sees it, with real files and beside a loopback account service.
class TestDetailsDock : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void thePanelSaysWhatItIsFor();
    void aFileIsShownWithAllThatIsInIt();
    void whatIsNotKnownIsLeftOut();
    void theTitleOfTheDocumentComesBeforeItsFileName();
    void aHiddenPanelIsShownForAFile();
    void whatCanNotBeShownIsToldWithTheNameOfTheFile_data();
    void whatCanNotBeShownIsToldWithTheNameOfTheFile();
    void aFailureReplacesWhatWasThere();
    void anotherFileTakesThePlaceOfOneThatIsRead();
    void aGroupTakesThePlaceOfAFileThatIsRead();
    void aFileFollowsAFailure();
    void columnsSort_data();
    void columnsSort();
    void aSelectionStaysWithItsFileWhenSorting();
    void anotherFileComesInItsOwnOrder();
    void whatLooksLikeMarkupIsPlainText();
    void aLongNameLeavesTheWindowAlone();
    void tenThousandFilesAreShown();
    void thePanelMayGoWhileItReads();
    void aGroupOfFilesIsAskedForAndShown();
    void aGroupOfFilesWaitsForALogin();
    void anotherRequestEndsTheWaiting();
    void aGroupThatCanNotBeShownIsToldInASentence_data();
    void aGroupThatCanNotBeShownIsToldInASentence();
    void anIdThatCanNotBeOneIsNotSent_data();
    void anIdThatCanNotBeOneIsNotSent();
    void aFileTakesThePlaceOfAGroupThatIsAskedFor();
    void aLogoutEndsTheAsking();
    void withoutAServiceAGroupIsRefused();
    void everyPartHasANameForEverybody();
    void theTextsFollowTheLanguage();

private:
    QString write(const QByteArray &document, const QString &name = QStringLiteral("file.nzb")) const;
    void open(const QByteArray &document);
    void useService();
    void make(Connector *connector);
    QString label(const char *name) const;
    QString message() const { return label("detailsMessage"); }
    QTreeView *view() const { return m_dock->findChild<QTreeView *>(QStringLiteral("detailsList")); }
    QStringList column(int column) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<ServiceAccount> m_account;
    std::unique_ptr<QMainWindow> m_window;
    std::unique_ptr<DetailsDock> m_dock;
};

namespace {

constexpr int longest = 60'000; // milliseconds
const HStorageId moon(QStringLiteral("moon-and-halcyon"));

class Shouting : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *text, const char *, int) const override
    {
        return QByteArray(context).startsWith('Q') ? QString() : QString::fromUtf8(text).toUpper();
    }
};

} // namespace

void TestDetailsDock::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
}

void TestDetailsDock::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_window = std::make_unique<QMainWindow>();
    m_window->resize(900, 500);
    m_window->show();
    make(nullptr);
}

void TestDetailsDock::make(Connector *connector)
{
    m_dock = std::make_unique<DetailsDock>(connector);
    m_window->addDockWidget(Qt::BottomDockWidgetArea, m_dock.get());
}

void TestDetailsDock::cleanup()
{
    m_dock.reset();
    m_window.reset();
    m_account.reset();
}

void TestDetailsDock::useService()
{
    m_account = std::make_unique<ServiceAccount>();
    QCOMPARE(m_account->problem(), QString());
    make(&m_account->connector());
}

QString TestDetailsDock::write(const QByteArray &document, const QString &name) const
{
    QFile file(m_folder->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size())
        qFatal("The test can not write its file.");
    return file.fileName();
}

void TestDetailsDock::open(const QByteArray &document)
{
    m_dock->showFile(write(document));
    QTRY_VERIFY_WITH_TIMEOUT(!message().startsWith(QLatin1String("Reading")), longest);
}

QString TestDetailsDock::label(const char *name) const
{
    const auto *label = m_dock->findChild<QLabel *>(QLatin1String(name));
    return label->isVisibleTo(m_dock.get()) ? label->text() : QString();
}

QStringList TestDetailsDock::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < view()->model()->rowCount(); ++row)
        texts.append(view()->model()->index(row, column).data().toString());
    return texts;
}

void TestDetailsDock::thePanelSaysWhatItIsFor()
{
    QCOMPARE(m_dock->objectName(), QStringLiteral("DetailsDock"));
    QCOMPARE(m_dock->windowTitle(), QStringLiteral("Details"));
    QCOMPARE(message(), QStringLiteral("Open an NZB file to see what is in it."));
    QVERIFY(!view()->isVisibleTo(m_dock.get()));
}

void TestDetailsDock::aFileIsShownWithAllThatIsInIt()
{
    open(nzbtext::document("<file subject='moon' date='1700000000' "
                           "poster='Ada'><groups><group>alt.binaries.pictures.nature</group>"
                           "<group>misc.test</group></groups><segments><segment bytes='1048576'/><segment "
                           "bytes='524288'/></segments>"
                           "</file>" +
                           nzbtext::file("sun", 524'288, 1'700'086'400)));
    const QAbstractItemModelTester tester(view()->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto date = [](qint64 seconds) {
        return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds), QLocale::ShortFormat);
    };
    const auto day = [](qint64 seconds) {
        return QLocale().toString(QDateTime::fromSecsSinceEpoch(seconds).date(), QLocale::ShortFormat);
    };
    QCOMPARE(message(), QString());
    QCOMPARE(label("detailsTitle"), QStringLiteral("file.nzb"));
    QCOMPARE(label("detailsSummary"),
             QStringLiteral("Files: 2  ·  Segments: 3  ·  Size: 2 MiB  ·  Posted: %1 – %2  ·  "
                            "Newsgroups: alt.binaries.pictures.nature, misc.test")
                 .arg(day(1'700'000'000), day(1'700'086'400)));
    QCOMPARE(column(0), (QStringList{QStringLiteral("moon"), QStringLiteral("sun")}));
    QCOMPARE(column(1), (QStringList{QStringLiteral("1.5 MiB"), QStringLiteral("512 KiB")}));
    QCOMPARE(column(2), (QStringList{QStringLiteral("2"), QStringLiteral("1")}));
    QCOMPARE(column(3),
             (QStringList{QStringLiteral("a.b.p.nature, misc.test"), QStringLiteral("misc.test")}));
    QCOMPARE(column(4), (QStringList{date(1'700'000'000), date(1'700'086'400)}));
    QCOMPARE(view()->model()->index(0, 0).data(Qt::ToolTipRole).toString(),
             QStringLiteral("moon\nAda\n1.5 MiB\n%1\nalt.binaries.pictures.nature\nmisc.test")
                 .arg(date(1'700'000'000)));
}

void TestDetailsDock::whatIsNotKnownIsLeftOut()
{
    open(nzbtext::document(nzbtext::file("a") + nzbtext::file("b")));
    QVERIFY(label("detailsSummary").contains(QLatin1String("Posted: ")));
    QVERIFY(!label("detailsSummary").contains(QString::fromUtf8(" – "))); // the same day
    open("<nzb><file><segments><segment bytes='-1'/></segments></file></nzb>");
    QCOMPARE(label("detailsSummary"), QStringLiteral("Files: 1  ·  Segments: 1"));
    QCOMPARE(column(0), QStringList{QStringLiteral("(no subject)")});
    QCOMPARE(column(1), QStringList{QString()});
    QCOMPARE(column(4), QStringList{QString()});
    open("<nzb><file><groups><group>a</group><group>b</group><group>c</group><group>d</group><group>e</group>"
         "</groups><segments><segment bytes='1024'/><segment/></segments></file></nzb>");
    QCOMPARE(label("detailsSummary"),
             QStringLiteral(
                 "Files: 1  ·  Segments: 2  ·  Size: at least 1 KiB  ·  Newsgroups: a, b, c and 2 more"));
    QCOMPARE(column(1), QStringList{QStringLiteral("at least 1 KiB")});
}

void TestDetailsDock::theTitleOfTheDocumentComesBeforeItsFileName()
{
    open(nzbtext::document("<head><meta type='title'>The moon</meta></head>" + nzbtext::file("one")));
    QCOMPARE(label("detailsTitle"), QStringLiteral("The moon"));
}

void TestDetailsDock::aHiddenPanelIsShownForAFile()
{
    m_dock->hide();
    m_dock->showFile(write(nzbtext::document(nzbtext::file("one"))));
    QVERIFY(m_dock->isVisible());
    m_dock->hide();
    m_dock->showFileGroup(moon);
    QVERIFY(m_dock->isVisible());
}

void TestDetailsDock::whatCanNotBeShownIsToldWithTheNameOfTheFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *name, const QByteArray &document, const char *sentence) {
        QTest::newRow(sentence) << QString::fromUtf8(name) << document << QString::fromUtf8(sentence);
    };
    row("empty.nzb", "", "empty.nzb is empty; download it again.");
    row("page.nzb", "<html/>", "page.nzb is not an NZB file.");
    row("cut.nzb", "<nzb>\n<file>\n", "cut.nzb breaks off in line 3; download it again.");
    row("bad.nzb", "<nzb>\n</x>", "bad.nzb is damaged in line 2; download it again.");
    row("none.nzb", "<nzb/>", "none.nzb is an NZB file, but it lists no files.");
    row("bomb.nzb", "<!DOCTYPE nzb [<!ENTITY a 'b'>]><nzb/>",
        "bomb.nzb has declarations that no NZB file needs and that may do harm, so it was not read.");
    row("<b>%1 &amp;\n%2</b>.nzb", "", "b>.nzb is empty; download it again.");
    row("%1 &amp;\n\t%2\x01<i>.nzb", "", "%1 &amp; %2 <i>.nzb is empty; download it again.");
}

void TestDetailsDock::whatCanNotBeShownIsToldWithTheNameOfTheFile()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, document);
    QFETCH(QString, sentence);
    QVERIFY(QDir(m_folder->path()).mkpath(QFileInfo(name).path()));
    m_dock->showFile(write(document, name));
    QTRY_COMPARE_WITH_TIMEOUT(message(), sentence, longest);
    QCOMPARE(m_dock->findChild<QLabel *>(QStringLiteral("detailsMessage"))->textFormat(), Qt::PlainText);
}

void TestDetailsDock::aFailureReplacesWhatWasThere()
{
    open(nzbtext::document(nzbtext::file("one")));
    QVERIFY(view()->isVisible());
    m_dock->showFile(m_folder->path() + QLatin1Char('/'));
    QVERIFY(!view()->isVisible());
    const QString sentence = QFileInfo(m_folder->path()).fileName() +
                             QStringLiteral(" is a folder; open one of the NZB files in it.");
    QTRY_COMPARE_WITH_TIMEOUT(message(), sentence, longest);
    QCOMPARE(label("detailsTitle"), QString());
    QCOMPARE(label("detailsSummary"), QString());
    QCOMPARE(view()->model()->rowCount(), 0);
    m_dock->showFile(QString());
    QTRY_VERIFY_WITH_TIMEOUT(message().startsWith(QLatin1String("There is no file")), longest);
}

void TestDetailsDock::anotherFileTakesThePlaceOfOneThatIsRead()
{
    const QString many = write(nzbtext::many(1000 / sanitizedShare, 100), QStringLiteral("many.nzb"));
    const QString one = write(nzbtext::document(nzbtext::file("one")), QStringLiteral("one.nzb"));
    m_dock->showFile(many);
    QCOMPARE(message(), QStringLiteral("Reading many.nzb…"));
    m_dock->showFile(one);
    QCOMPARE(message(), QStringLiteral("Reading one.nzb…"));
    QTRY_COMPARE_WITH_TIMEOUT(label("detailsTitle"), QStringLiteral("one.nzb"), longest);
    m_dock->showFile(many);
    QTRY_COMPARE_WITH_TIMEOUT(label("detailsTitle"), QStringLiteral("many.nzb"), longest);
    QCOMPARE(view()->model()->rowCount(), 1000 / sanitizedShare);
}

void TestDetailsDock::aGroupTakesThePlaceOfAFileThatIsRead()
{
    const QString many = write(nzbtext::many(1000 / sanitizedShare, 100));
    m_dock->showFile(many);
    m_dock->showFileGroup(HStorageId());
    int read = 0;
    NzbLoader other;
    connect(&other, &NzbLoader::loaded, this, [&read] { ++read; });
    for (int times = 1; times <= 3; ++times) {
        other.load(many);
        QTRY_COMPARE_WITH_TIMEOUT(read, times, longest);
    }
    QCOMPARE(message(), QStringLiteral("The link names no group of files."));
}

void TestDetailsDock::aFileFollowsAFailure()
{
    open("");
    QVERIFY(!message().isEmpty());
    open(nzbtext::document(nzbtext::file("one")));
    QCOMPARE(message(), QString());
    QVERIFY(view()->isVisible());
    QCOMPARE(column(0), QStringList{QStringLiteral("one")});
}

void TestDetailsDock::columnsSort_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QString>("ascending");
    QTest::addColumn<QString>("descending");
    const auto row = [](const char *name, int section, const char *ascending, const char *descending) {
        QTest::newRow(name) << section << QString::fromUtf8(ascending) << QString::fromUtf8(descending);
    };
    row("subject", 0, "Ärger, part 2, part 10, zoo", "zoo, part 10, part 2, Ärger");
    row("size", 1, "zoo, part 2, part 10, Ärger", "Ärger, part 10, part 2, zoo");
    row("segments, the equal ones as they were", 2, "zoo, part 2, Ärger, part 10",
        "part 10, zoo, part 2, Ärger");
    row("newsgroups", 3, "zoo, part 2, Ärger, part 10", "part 10, Ärger, part 2, zoo");
    row("posted, the unknown first", 4, "Ärger, part 2, zoo, part 10", "part 10, zoo, part 2, Ärger");
}

void TestDetailsDock::columnsSort()
{
    QFETCH(int, section);
    const auto file = [](const char *subject, const char *date, const char *group, const char *segments) {
        return QByteArray("<file subject='") + subject + "' date='" + date + "'><groups><group>" + group +
               "</group></groups><segments>" + segments + "</segments></file>";
    };
    open(nzbtext::document(file("zoo", "300", "a", "<segment bytes='1'/>") +
                           file("part 2", "200", "b", "<segment bytes='2'/>") +
                           file("part 10", "400", "d", "<segment bytes='3'/><segment bytes='0'/>") +
                           file("\xC3\x84rger", "", "c", "<segment bytes='1048576'/>")));
    const QAbstractItemModelTester tester(view()->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QStringList before = column(0);
    view()->sortByColumn(section, Qt::AscendingOrder);
    QTEST(column(0).join(QLatin1String(", ")), "ascending");
    view()->sortByColumn(section, Qt::DescendingOrder);
    QTEST(column(0).join(QLatin1String(", ")), "descending");
    view()->sortByColumn(-1, Qt::AscendingOrder);
    QCOMPARE(column(0), before);
}

void TestDetailsDock::aSelectionStaysWithItsFileWhenSorting()
{
    open(nzbtext::document(nzbtext::file("b") + nzbtext::file("c") + nzbtext::file("a")));
    view()->setCurrentIndex(view()->model()->index(2, 0));
    view()->sortByColumn(0, Qt::AscendingOrder);
    QCOMPARE(view()->currentIndex().row(), 0);
    QCOMPARE(view()->currentIndex().data().toString(), QStringLiteral("a"));
}

void TestDetailsDock::anotherFileComesInItsOwnOrder()
{
    open(nzbtext::document(nzbtext::file("b") + nzbtext::file("a")));
    QCOMPARE(column(0), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
    view()->header()->setSortIndicator(0, Qt::AscendingOrder);
    QCOMPARE(column(0), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    open(nzbtext::document(nzbtext::file("d") + nzbtext::file("c")));
    QCOMPARE(column(0), (QStringList{QStringLiteral("d"), QStringLiteral("c")}));
    QCOMPARE(view()->header()->sortIndicatorSection(), -1);
}

void TestDetailsDock::whatLooksLikeMarkupIsPlainText()
{
    open(nzbtext::document("<head><meta type='title'>&lt;h1&gt;big&lt;/h1&gt;</meta></head>" +
                           nzbtext::file("&lt;b&gt;bold&lt;/b&gt;")));
    QCOMPARE(label("detailsTitle"), QStringLiteral("<h1>big</h1>"));
    const QList<QLabel *> labels = m_dock->widget()->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 3);
    for (const QLabel *one : labels)
        QCOMPARE(one->textFormat(), Qt::PlainText);
    QCOMPARE(column(0), QStringList{QStringLiteral("<b>bold</b>")});
}

void TestDetailsDock::aLongNameLeavesTheWindowAlone()
{
    const int least = m_dock->minimumSizeHint().width();
    open(nzbtext::document("<head><meta type='title'>" + QByteArray(1000, 'x') + "</meta></head>" +
                           nzbtext::file(QByteArray(1000, 'y'))));
    QVERIFY(m_dock->minimumSizeHint().width() <= qMax(least, 400));
    m_dock->showFile(m_folder->filePath(QString(250, QLatin1Char('n'))));
    QTRY_VERIFY_WITH_TIMEOUT(message().startsWith(QLatin1String("There is no file")), longest);
    QVERIFY(message().size() < 200);
    QVERIFY(m_dock->minimumSizeHint().width() <= qMax(least, 400));
}

void TestDetailsDock::tenThousandFilesAreShown()
{
    const int files = 10'000 / sanitizedShare;
    open(nzbtext::many(files, 10));
    QCOMPARE(view()->model()->rowCount(), files);
    view()->sortByColumn(0, Qt::DescendingOrder);
    QCOMPARE(view()->model()->index(0, 0).data().toString(), QStringLiteral("Part %1").arg(files));
}

void TestDetailsDock::thePanelMayGoWhileItReads()
{
    m_dock->showFile(write(nzbtext::many(1000 / sanitizedShare, 100)));
    m_dock.reset();
    QCoreApplication::processEvents();
}

void TestDetailsDock::aGroupOfFilesIsAskedForAndShown()
{
    useService();
    QVERIFY(m_account->logIn());
    m_dock->showFileGroup(moon);
    QCOMPARE(message(), QStringLiteral("Reading moon-and-halcyon…"));
    QTRY_COMPARE_WITH_TIMEOUT(label("detailsTitle"),
                              QStringLiteral("A full moon and how to start from a stick"), longest);
    QCOMPARE(message(), QString());
    QCOMPARE(column(2), (QStringList{QStringLiteral("2"), QStringLiteral("1")}));
    QVERIFY(column(0).constFirst().contains(QLatin1String("\"moon.pgm\" (1/2)")));
}

void TestDetailsDock::aGroupOfFilesWaitsForALogin()
{
    useService();
    m_dock->showFileGroup(moon);
    QCOMPARE(message(), QStringLiteral("Log in to see what is in moon-and-halcyon."));
    QCOMPARE(m_account->requestCount(), 0);
    QVERIFY(m_account->logIn());
    QTRY_COMPARE_WITH_TIMEOUT(view()->model()->rowCount(), 2, longest);
    QCOMPARE(m_account->requestCount(), 2);
}

void TestDetailsDock::anotherRequestEndsTheWaiting()
{
    useService();
    m_dock->showFileGroup(moon);
    open(nzbtext::document(nzbtext::file("one")));
    QVERIFY(m_account->logIn());
    QCOMPARE(column(0), QStringList{QStringLiteral("one")});
    m_dock->showFileGroup(HStorageId(QStringLiteral("other")));
    QTRY_VERIFY_WITH_TIMEOUT(message().startsWith(QLatin1String("other can not be shown")), longest);
    QCOMPARE(m_account->requestCount(), 2);
}

void TestDetailsDock::aGroupThatCanNotBeShownIsToldInASentence_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<corvia::Fault>("fault");
    QTest::addColumn<QString>("sentence");
    const auto element = [](const char *text) {
        corvia::Fault fault;
        fault.kind = corvia::Fault::Kind::Element;
        fault.text = text;
        return fault;
    };
    const QString unreadable = QStringLiteral("The account service's reply cannot be read.");
    const auto row = [](const char *name, const corvia::Fault &fault, const QString &sentence) {
        QTest::newRow(name) << QStringLiteral("moon-and-halcyon") << fault << sentence;
    };
    QTest::newRow("unknown") << QStringLiteral("sun") << corvia::Fault()
                             << QStringLiteral("The service does not know this group of files.");
    row("another element", element("<success/>"), unreadable);
    row("no document", element("<details/>"), unreadable);
    row("another document", element("<details><rss/></details>"), unreadable);
    row("no files", element("<details><nzb/></details>"), unreadable);
    row("another element with a document", element("<detail><nzb><file/></nzb></detail>"), unreadable);
    corvia::Fault fault;
    fault.kind = corvia::Fault::Kind::Close;
    row("no answer", fault, QStringLiteral("The account service can not be reached."));
    fault.kind = corvia::Fault::Kind::Status;
    fault.number = 500;
    row("status", fault,
        QStringLiteral("The account service answered with status 500 and could not be used."));
}

void TestDetailsDock::aGroupThatCanNotBeShownIsToldInASentence()
{
    QFETCH(QString, id);
    QFETCH(corvia::Fault, fault);
    QFETCH(QString, sentence);
    useService();
    QVERIFY(m_account->logIn());
    fault.request = "details";
    m_account->service().setFault(fault);
    m_dock->showFileGroup(HStorageId(id));
    QTRY_COMPARE_WITH_TIMEOUT(message(), QStringLiteral("%1 can not be shown: %2").arg(id, sentence),
                              longest);
    QCOMPARE(view()->model()->rowCount(), 0);
}

void TestDetailsDock::anIdThatCanNotBeOneIsNotSent_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char *name, const QString &id, const QString &shown) {
        QTest::newRow(name) << id << shown;
    };
    row("blank inside", QStringLiteral("a b"), QStringLiteral("a b"));
    row("slash", QStringLiteral("a/b"), QStringLiteral("b"));
    row("umlaut", QString::fromUtf8("\xC3\xBC"), QString::fromUtf8("\xC3\xBC"));
    row("markup", QStringLiteral("<b>x"), QStringLiteral("<b>x"));
    row("line end", QStringLiteral("a\n"), QStringLiteral("a"));
    row("too long", QString(201, QLatin1Char('x')),
        QString(50, QLatin1Char('x')) + QChar(0x2026) + QString(50, QLatin1Char('x')));
    row("empty", QString(), QString());
}

void TestDetailsDock::anIdThatCanNotBeOneIsNotSent()
{
    QFETCH(QString, id);
    QFETCH(QString, shown);
    useService();
    QVERIFY(m_account->logIn());
    m_dock->showFileGroup(HStorageId(id));
    QCOMPARE(message(), shown.isEmpty()
                            ? QStringLiteral("The link names no group of files.")
                            : shown + QStringLiteral(" can not be the name of a group of files."));
    m_dock->showFileGroup(HStorageId(QString(200, QLatin1Char('x'))));
    QTRY_VERIFY_WITH_TIMEOUT(message().contains(QLatin1String("does not know")), longest);
    QCOMPARE(m_account->requestCount(), 2);
}

void TestDetailsDock::aFileTakesThePlaceOfAGroupThatIsAskedFor()
{
    useService();
    QVERIFY(m_account->logIn());
    m_dock->showFileGroup(moon);
    open(nzbtext::document(nzbtext::file("one")));
    m_dock->showFileGroup(HStorageId(QStringLiteral("sun")));
    m_dock->showFileGroup(moon);
    m_dock->showFile(write(nzbtext::document(nzbtext::file("two"))));
    QTRY_COMPARE_WITH_TIMEOUT(m_account->requestCount(), 4, longest);
    QTRY_COMPARE_WITH_TIMEOUT(column(0), QStringList{QStringLiteral("two")}, longest);
}

void TestDetailsDock::aLogoutEndsTheAsking()
{
    useService();
    QVERIFY(m_account->logIn());
    m_account->setFault(corvia::Fault::Kind::Stall, 0, {}, "details");
    m_dock->showFileGroup(moon);
    QTRY_COMPARE_WITH_TIMEOUT(m_account->requestCount(), 2, longest);
    m_account->connector().logOut();
    QTRY_COMPARE_WITH_TIMEOUT(
        message(), QStringLiteral("moon-and-halcyon can not be shown: The account was logged out."), longest);
}

void TestDetailsDock::withoutAServiceAGroupIsRefused()
{
    m_dock->showFileGroup(moon);
    QCOMPARE(message(),
             QStringLiteral("No provider plug-in is loaded that could be asked for moon-and-halcyon."));
}

void TestDetailsDock::everyPartHasANameForEverybody()
{
    open(nzbtext::document(nzbtext::file("one")));
    QVERIFY(!QAccessible::queryAccessibleInterface(view())->text(QAccessible::Name).isEmpty());
    QCOMPARE(m_dock->focusProxy(), view());
}

void TestDetailsDock::theTextsFollowTheLanguage()
{
    Shouting shouting;
    open("<nzb><file/></nzb>");
    QCoreApplication::installTranslator(&shouting);
    QTRY_COMPARE_WITH_TIMEOUT(m_dock->windowTitle(), QStringLiteral("DETAILS"), longest);
    QCOMPARE(column(0), QStringList{QStringLiteral("(NO SUBJECT)")});
    QVERIFY(label("detailsSummary").startsWith(QLatin1String("FILES: 1")));
    QCOMPARE(view()->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("SUBJECT"));
    m_dock->showFile(write(""));
    QTRY_COMPARE_WITH_TIMEOUT(message(),
                              QStringLiteral("FILE.NZB IS EMPTY; DOWNLOAD IT AGAIN.")
                                  .replace(QLatin1String("FILE.NZB"), QLatin1String("file.nzb")),
                              longest);
    QCoreApplication::removeTranslator(&shouting);
    QTRY_COMPARE_WITH_TIMEOUT(message(), QStringLiteral("file.nzb is empty; download it again."), longest);
}

QTEST_MAIN(TestDetailsDock)
#include "tst_detailsdock.moc"
