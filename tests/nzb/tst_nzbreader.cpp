// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nzbtext.h"
#include "sanitized.h"

#include <halvora/nzbreader.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

Q_DECLARE_METATYPE(NzbFailure::Kind)

/// NZB files as people are given them: good, strange, broken and malicious ones.
class TestNzbReader : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void everythingThatIsShownIsRead();
    void theHeadTellsTheTitle_data();
    void theHeadTellsTheTitle();
    void aDocumentIsRecognised_data();
    void aDocumentIsRecognised();
    void whatIsMissingStaysUnknown_data();
    void whatIsMissingStaysUnknown();
    void totalsCoverAllFiles();
    void unknownElementsAreSkippedWithTheirContents();
    void textsAreOneLineAndBounded();
    void aNewsgroupCountsOncePerFile();
    void whatIsNoGoodDocumentIsToldByItsKind_data();
    void whatIsNoGoodDocumentIsToldByItsKind();
    void everyCutIsNoticed();
    void aDocumentReadsTheSameInWhateverPiecesItComes();
    void whatFollowsTheDocumentIsOfNoInterest();
    void aFileIsRead();
    void whatIsNoReadableFileIsToldByItsKind_data();
    void whatIsNoReadableFileIsToldByItsKind();
    void aFileWithoutPermissionIsToldSo();
    void aFileOfManySegmentsIsRead();
    void moreThanCanBeShownIsRefused_data();
    void moreThanCanBeShownIsRefused();
    void aFileBeyondTheLimitIsNotRead();
    void aReadingThatIsStoppedSaysSo();
    void everyFailureIsOneSentenceWithTheName();

private:
    using Kind = NzbFailure::Kind;

    QString path(const char *name = "file.nzb") const { return m_folder->filePath(QLatin1String(name)); }
    void write(const QByteArray &bytes) const;
    static NzbReader::Result read(const QByteArray &document) { return NzbReader::readDocument(document); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QByteArray repeated(const QByteArray &text, int times)
{
    QByteArray all;
    all.reserve(text.size() * times);
    for (int i = 0; i < times; ++i)
        all += text;
    return all;
}

} // namespace

void TestNzbReader::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void TestNzbReader::write(const QByteArray &bytes) const
{
    QFile file(path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

void TestNzbReader::everythingThatIsShownIsRead()
{
    const NzbReader::Result result =
        read(nzbtext::document("<head><meta type=\"title\">The moon</meta></head>\n"
                               "<file poster=\"Rika &lt;rika@x.example&gt;\" date=\"1700000000\" "
                               "subject=\"&quot;moon.pgm&quot; (1/2)\">"
                               "<groups><group>misc.test</group><group> alt.test\n</group></groups>"
                               "<segments><segment bytes=\"700\" number=\"1\">a@x</segment><segment "
                               "bytes=\"22\" number=\"2\">b@x</segment>"
                               "</segments></file>"));
    QCOMPARE(result.failure.kind(), Kind::None);
    QCOMPARE(result.file.title(), QStringLiteral("The moon"));
    QCOMPARE(result.file.entries.size(), 1);
    const NzbEntry &entry = result.file.entries.constFirst();
    QCOMPARE(entry.subject, QStringLiteral("\"moon.pgm\" (1/2)"));
    QCOMPARE(entry.poster, QStringLiteral("Rika <rika@x.example>"));
    QCOMPARE(entry.posted, qint64(1'700'000'000));
    QCOMPARE(entry.newsgroups, (QStringList{QStringLiteral("misc.test"), QStringLiteral("alt.test")}));
    QCOMPARE(entry.segments, 2);
    QCOMPARE(entry.bytes, qint64(722));
    QVERIFY(entry.hasAllSizes);
}

void TestNzbReader::theHeadTellsTheTitle_data()
{
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QString>("title");
    const auto row = [](const char *head, const char *title) {
        QTest::newRow(head) << QByteArray(head) << QString::fromUtf8(title);
    };
    row("<head><meta type='title'>A &amp; B</meta></head>", "A & B");
    row("<head><meta type='name'>N</meta></head>", "N");
    row("<head><meta type='name'>N</meta><meta type='title'>T</meta></head>", "T");
    row("<head><meta type='Title'>T</meta></head>", "T");
    row("<head><meta type='title'> two\n lines </meta></head>", "two lines");
    row("<head><meta type='title'><![CDATA[<b>bold</b>]]></meta></head>", "<b>bold</b>");
    row("<head><meta type='password'>secret</meta></head>", "");
    row("<head><meta>T</meta></head>", "");
    row("<head/>", "");
    row("", "");
}

void TestNzbReader::theHeadTellsTheTitle()
{
    QFETCH(QByteArray, head);
    QFETCH(QString, title);
    const NzbReader::Result result = read(nzbtext::document(head + nzbtext::file("one")));
    QVERIFY(result.failure.isNull());
    QCOMPARE(result.file.title(), title);
}

void TestNzbReader::aDocumentIsRecognised_data()
{
    QTest::addColumn<QByteArray>("document");
    const QByteArray file = nzbtext::file("sj\xC3\xB3");
    const auto row = [&file](const char *name, const QByteArray &before, const QByteArray &root) {
        QTest::newRow(name) << before + "<" + root + ">" + file + "</" + root.left(root.indexOf(' ')) + ">";
    };
    row("bare", "", "nzb ");
    row("declared", "<?xml version=\"1.0\" encoding=\"utf-8\"?>", "nzb ");
    row("byte order mark", "\xEF\xBB\xBF<?xml version=\"1.0\"?>\r\n", "nzb ");
    row("the usual document type",
        "<!DOCTYPE nzb PUBLIC \"-//newzBin//DTD NZB 1.1//EN\" "
        "\"http://www.newzbin.com/DTD/nzb/nzb-1.1.dtd\">\n",
        "nzb xmlns=\"http://www.newzbin.com/DTD/2003/nzb\"");
    row("the older document type",
        "<!DOCTYPE nzb PUBLIC \"-//newzBin//DTD NZB 0.9//EN\" "
        "\"http://www.newzbin.com/DTD/nzb/nzb-0.9.dtd\">\n",
        "nzb xmlns=\"http://www.newzbin.com/DTD/2002/nzb\"");
    row("a document type with a bracket in its name", "<!DOCTYPE nzb SYSTEM \"a[b]c>.dtd\">", "nzb ");
    row("a document type of one word", "<!DOCTYPE nzb>", "nzb ");
    row("comments", "<?xml version=\"1.0\"?><!-- <!DOCTYPE x [ ]> --><?go on?>\n<!---->", "nzb ");
    QTest::newRow("a prefix") << "<n:nzb xmlns:n=\"urn:x\">" +
                                     QByteArray(file).replace("<", "<n:").replace("<n:/", "</n:") +
                                     "</n:nzb>";
    row("a byte that is not in the encoding", "<!--\xF3-->", "nzb title=\"\xF3\"");
    QTest::newRow("latin-1") << "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><nzb>" +
                                    QByteArray(file).replace("\xC3\xB3", "\xF3") + "</nzb>";
}

void TestNzbReader::aDocumentIsRecognised()
{
    QFETCH(QByteArray, document);
    const NzbReader::Result result = read(document);
    QCOMPARE(result.failure.kind(), Kind::None);
    QCOMPARE(result.file.entries.size(), 1);
    QCOMPARE(result.file.entries.constFirst().subject, QString::fromUtf8("sj\xC3\xB3"));
    QCOMPARE(result.file.entries.constFirst().segments, 1);
}

void TestNzbReader::whatIsMissingStaysUnknown_data()
{
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QByteArray>("segment");
    QTest::addColumn<QString>("subject");
    QTest::addColumn<qint64>("posted");
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<bool>("hasAllSizes");
    const auto row = [](const char *attributes, const char *segment, const char *subject, qint64 posted,
                        qint64 bytes, bool hasAllSizes) {
        QTest::addRow("%s / %s", attributes, segment)
            << QByteArray(attributes) << QByteArray(segment) << QString::fromUtf8(subject) << posted << bytes
            << hasAllSizes;
    };
    row("subject='s' date='5'", "bytes='7'", "s", 5, 10, true);
    row("", "", "", -1, 3, false);
    row("subject=' ' date=''", "bytes=''", "", -1, 3, false);
    row("date='-1'", "bytes='-7'", "", -1, 3, false);
    row("date='-5'", "bytes='-1'", "", -1, 3, false);
    row("date='soon'", "bytes='7 KB'", "", -1, 3, false);
    row("date='1.5'", "bytes='0x10'", "", -1, 3, false);
    row("date='99999999999999999999'", "bytes='99999999999999999999'", "", -1, 3, false);
    row("date='9223372036854775807'", "bytes='9223372036854775807'", "", -1, 3, false);
    row("date='0'", "bytes='0'", "", 0, 3, true);
}

void TestNzbReader::whatIsMissingStaysUnknown()
{
    QFETCH(QByteArray, attributes);
    QFETCH(QByteArray, segment);
    const NzbReader::Result result = read("<nzb><file " + attributes + "><segments><segment " + segment +
                                          "/><segment bytes='3'>a@x</segment></segments></file></nzb>");
    QCOMPARE(result.failure.kind(), Kind::None);
    const NzbEntry entry = result.file.entries.value(0);
    QTEST(entry.subject, "subject");
    QTEST(entry.posted, "posted");
    QTEST(entry.bytes, "bytes");
    QTEST(entry.hasAllSizes, "hasAllSizes");
    QCOMPARE(entry.segments, 2);
    QVERIFY(entry.poster.isEmpty());
    QVERIFY(entry.newsgroups.isEmpty());
}

void TestNzbReader::totalsCoverAllFiles()
{
    const NzbReader::Result result =
        read(nzbtext::document(nzbtext::file("a", 10, 500) +
                               "<file><groups><group>b.b</group><group>misc.test</group></groups></file>" +
                               nzbtext::file("c", 20, 300) + nzbtext::file("d", 30, 400)));
    NzbFile::Totals totals = result.file.totals();
    QCOMPARE(totals.segments, 3);
    QCOMPARE(totals.bytes, qint64(60));
    QVERIFY(totals.hasAllSizes);
    QCOMPARE(totals.firstPosted, qint64(300));
    QCOMPARE(totals.lastPosted, qint64(500));
    QCOMPARE(totals.newsgroups, (QStringList{QStringLiteral("misc.test"), QStringLiteral("b.b")}));
    totals = read("<nzb><file><segments><segment/></segments></file></nzb>").file.totals();
    QVERIFY(!totals.hasAllSizes);
    QCOMPARE(totals.firstPosted, NzbEntry::noDate);
}

void TestNzbReader::unknownElementsAreSkippedWithTheirContents()
{
    const NzbReader::Result result =
        read("<nzb><x><file subject='no'/></x><file subject='yes'><file "
             "subject='no'/><groups><x><group>no</group></x>"
             "<group>misc.<x>no</x>test</group></groups><segments><x><segment/></x></segments></file>"
             "<segments><segment/></segments><head><x><meta type='title'>no</meta></x></head></nzb>");
    QCOMPARE(result.failure.kind(), Kind::None);
    QCOMPARE(result.file.entries.size(), 1);
    QCOMPARE(result.file.entries.constFirst().subject, QStringLiteral("yes"));
    QCOMPARE(result.file.entries.constFirst().segments, 0);
    QVERIFY(result.file.title().isEmpty());
}

void TestNzbReader::textsAreOneLineAndBounded()
{
    const QByteArray longText(100'000, 'x');
    const QByteArray pair =
        QString(QStringLiteral("x") + QString::fromUtf8("\xF0\x9F\x8C\x95").repeated(600)).toUtf8();
    const NzbReader::Result result =
        read("<nzb><head><meta type='title'>" + longText +
             "</meta></head><file subject='a&#10;b&#9;c\nd' poster='" + longText + "'><groups><group>" +
             longText + "</group></groups></file><file subject='" + pair + "'/></nzb>");
    QCOMPARE(result.failure.kind(), Kind::None);
    QCOMPARE(result.file.title().size(), 1000);
    const NzbEntry &entry = result.file.entries.constFirst();
    QCOMPARE(entry.subject, QStringLiteral("a b c d"));
    QCOMPARE(entry.poster.size(), 1000);
    QCOMPARE(entry.newsgroups.constFirst().size(), 1000);
    QCOMPARE(result.file.entries.at(1).subject.size(), 999);
}

void TestNzbReader::aNewsgroupCountsOncePerFile()
{
    QByteArray groups = "<group>a.a</group><group>a.a</group><group> </group><group/>";
    for (int i = 0; i < 200; ++i)
        groups += "<group>b." + QByteArray::number(i) + "</group>";
    const QStringList names =
        read("<nzb><file><groups>" + groups + "</groups></file></nzb>").file.entries.value(0).newsgroups;
    QCOMPARE(names.size(), 50);
    QCOMPARE(names.mid(0, 2), (QStringList{QStringLiteral("a.a"), QStringLiteral("b.0")}));
}

void TestNzbReader::whatIsNoGoodDocumentIsToldByItsKind_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<NzbFailure::Kind>("kind");
    QTest::addColumn<int>("line");
    const QByteArray file = nzbtext::file("one");
    const auto row = [](const char *name, const QByteArray &document, Kind kind, int line = 0) {
        QTest::newRow(name) << document << kind << line;
    };
    row("nothing", "", Kind::Empty);
    row("blanks", "  \n\n", Kind::NotNzb);
    row("a byte order mark", "\xEF\xBB\xBF", Kind::NotNzb);
    row("text", "Hello\n", Kind::NotNzb);
    row("a picture", QByteArray("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16), Kind::NotNzb);
    row("packed", QByteArray("\x1F\x8B\x08\0\0\0\0\0\0\x03", 10), Kind::NotNzb);
    row("zeros", QByteArray(1000, '\0'), Kind::NotNzb);
    row("a web page", "<!DOCTYPE html><html><body><p>No such file<br></body></html>", Kind::NotNzb);
    row("other XML", "<?xml version=\"1.0\"?>\n<rss version=\"2.0\"><nzb/></rss>", Kind::NotNzb);
    row("capitals", "<NZB>" + file + "</NZB>", Kind::NotNzb);
    row("sixteen bits", QByteArray("\xFF\xFE<\0n\0z\0b\0/\0>\0", 14), Kind::NotNzb);
    row("sixteen bits the other way", QByteArray("\xFE\xFF\0<\0n\0z\0b\0/\0>", 14), Kind::NotNzb);
    row("an encoding that hides",
        "<?xml version=\"1.0\" encoding=\"UTF-7\"?>+ADwAIQ-DOCTYPE nzb [<!ENTITY a 'b'>]>"
        "<nzb/>",
        Kind::NotNzb);
    row("an encoding without ASCII", "<?xml version=\"1.0\" encoding=\"cp037\"?><nzb><file/></nzb>",
        Kind::NotNzb);
    row("an encoding nobody knows", "<?xml version=\"1.0\" encoding=\"klingon\"?><nzb/>", Kind::NotNzb);
    row("a comment without end", "<!--" + QByteArray(100'000, 'x'), Kind::NotNzb);
    row("no files", nzbtext::document(""), Kind::NoFiles);
    row("only a head", nzbtext::document("<head><meta type='title'>T</meta></head>"), Kind::NoFiles);
    row("cut off", "<nzb>\n" + file + "<file subject='x'>\n<gro", Kind::CutOff, 4);
    row("cut off before the end", "<nzb>\n" + file, Kind::CutOff, 3);
    row("crossed tags", "<nzb>\n<file>\n</nzb></file>", Kind::Damaged, 3);
    row("an attribute without quotes", "<nzb>\n\n<file subject=x/></nzb>", Kind::Damaged, 3);
    row("an attribute twice", "<nzb><file subject='a' subject='b'/></nzb>", Kind::Damaged, 1);
    row("a control character", "<nzb>\n<file subject='a\x01'/></nzb>", Kind::Damaged, 2);
    row("a zero in between", QByteArray("<nzb>\n<file subject='a\0'/></nzb>", 30), Kind::NotNzb);
    row("an unknown entity", "<nzb>\n<file subject='&bomb;'/></nzb>", Kind::Damaged, 2);
    row("very deep", repeated("<nzb>", 50'000), Kind::Damaged, 1);
    row("an endless tag", "<nzb><file subject='" + QByteArray(3'000'000, 'x') + "'/></nzb>", Kind::Damaged,
        1);
    row("an endless comment", "<nzb><!--" + QByteArray(3'000'000, 'x') + "--></nzb>", Kind::Damaged, 1);
    row("an entity", "<!DOCTYPE nzb [<!ENTITY a 'b'>]><nzb><file subject='&a;'/></nzb>", Kind::Declares);
    row("an entity in a file",
        "<!DOCTYPE nzb [<!ENTITY a SYSTEM 'file:///etc/passwd'>]><nzb><file>&a;</file></nzb>",
        Kind::Declares);
    row("an entity of a public type",
        "<!DOCTYPE nzb PUBLIC \"-//newzBin//DTD NZB 1.1//EN\" \"x\" [<!ENTITY a 'b'>]><nzb/>",
        Kind::Declares);
    QByteArray bomb = "<?xml version=\"1.0\"?>\n<!-- -->\n<!DOCTYPE nzb [\n<!ENTITY l0 \"lol\">\n";
    QByteArray parameters = "<!DOCTYPE nzb [<!ENTITY % p0 ' '>";
    for (int i = 1; i < 40; ++i) {
        const QByteArray last = QByteArray::number(i - 1);
        bomb += "<!ENTITY l" + QByteArray::number(i) + " \"" + repeated("&l" + last + ";", 10) + "\">\n";
        parameters +=
            "<!ENTITY % p" + QByteArray::number(i) + " '" + repeated("&#37;p" + last + ";", 10) + "'>";
    }
    row("a bomb", bomb + "]><nzb><file subject='&l39;'/></nzb>", Kind::Declares);
    row("a bomb of parameters", parameters + " %p39; ]><nzb/>", Kind::Declares);
    row("nothing declared", "<!DOCTYPE nzb []><nzb/>", Kind::Declares);
}

void TestNzbReader::whatIsNoGoodDocumentIsToldByItsKind()
{
    QFETCH(QByteArray, document);
    QFETCH(NzbFailure::Kind, kind);
    QFETCH(int, line);
    const NzbReader::Result result = read(document);
    QCOMPARE(result.failure.kind(), kind);
    if (line > 0)
        QCOMPARE(result.failure.line(), line);
    QVERIFY(result.file.entries.isEmpty());
    QVERIFY(result.file.meta.isEmpty());
    write(document);
    QCOMPARE(NzbReader::readFile(path()).failure.kind(), kind);
}

void TestNzbReader::everyCutIsNoticed()
{
    const QByteArray whole =
        nzbtext::document("<head><meta type='title'>T</meta></head>" + nzbtext::file("one")).trimmed();
    for (int size = 0; size < whole.size(); ++size) {
        const NzbReader::Result result = read(whole.left(size));
        QVERIFY2(!result.failure.isNull() && result.file.entries.isEmpty(),
                 qPrintable(QString::number(size)));
    }
    QVERIFY(read(whole).failure.isNull());
}

// A file comes in pieces whose ends fall anywhere.
void TestNzbReader::aDocumentReadsTheSameInWhateverPiecesItComes()
{
    const QByteArray wide =
        QString::fromUtf8("sj\xC3\xB3 \xF0\x9F\x8C\x95 &lt;&#x1F315;&gt; ").repeated(40).toUtf8();
    QByteArray content;
    for (int i = 0; content.size() < 300'000; ++i)
        content +=
            nzbtext::file(QByteArray::number(i) + wide.left(i % wide.indexOf(' ') + 1).trimmed() + wide, i);
    for (int shift = 0; shift < 8; ++shift) {
        write("<?xml version=\"1.0\"?>" + QByteArray(shift, ' ') + "<nzb>" + content + "</nzb>");
        const NzbReader::Result result = NzbReader::readFile(path());
        QCOMPARE(result.failure.kind(), Kind::None);
        QCOMPARE(result.file.entries.size(), content.count("<file "));
        for (const NzbEntry &entry : result.file.entries)
            QVERIFY(
                entry.subject.endsWith(QString::fromUtf8("sj\xC3\xB3 \xF0\x9F\x8C\x95 <\xF0\x9F\x8C\x95>")));
    }
}

void TestNzbReader::whatFollowsTheDocumentIsOfNoInterest()
{
    QCOMPARE(read(nzbtext::document(nzbtext::file("one")) + "<nzb>\n\x01 more").file.entries.size(), 1);
}

void TestNzbReader::aFileIsRead()
{
    write(nzbtext::document(nzbtext::file("one")));
    QCOMPARE(NzbReader::readFile(path()).file.entries.size(), 1);
    QVERIFY(QFile::link(path(), path("link")));
    QCOMPARE(NzbReader::readFile(path("link")).file.entries.size(), 1);
}

void TestNzbReader::whatIsNoReadableFileIsToldByItsKind_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<NzbFailure::Kind>("kind");
    QTest::newRow("missing") << QStringLiteral("missing.nzb") << Kind::Missing;
    QTest::newRow("a file as a folder") << QStringLiteral("file.nzb/x.nzb") << Kind::Missing;
    QTest::newRow("a zero in its name") << QString(QStringLiteral("file.nzb") + QChar(0)) << Kind::Missing;
    QTest::newRow("a folder") << QStringLiteral("folder") << Kind::Folder;
    QTest::newRow("a pipe") << QStringLiteral("pipe") << Kind::NotOrdinary;
    QTest::newRow("a socket") << QStringLiteral("socket") << Kind::NotOrdinary;
    QTest::newRow("a link to a device") << QStringLiteral("device") << Kind::NotOrdinary;
    QTest::newRow("a link to itself") << QStringLiteral("loop") << Kind::Unreadable;
    QTest::newRow("a name that is too long") << QString(5000, QLatin1Char('x')) << Kind::Unreadable;
    QTest::newRow("what the system makes up") << QStringLiteral("memory") << Kind::Empty;
}

void TestNzbReader::whatIsNoReadableFileIsToldByItsKind()
{
    QFETCH(QString, file);
    QFETCH(NzbFailure::Kind, kind);
    write(nzbtext::document(nzbtext::file("one")));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), path("device")));
    QVERIFY(QFile::link(path("loop"), path("loop")));
    QVERIFY(QFile::link(QStringLiteral("/proc/self/maps"), path("memory")));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, QFile::encodeName(path("socket")).constData(), sizeof address.sun_path);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    QCOMPARE(::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);

    const NzbReader::Result result = NzbReader::readFile(m_folder->path() + QLatin1Char('/') + file);
    ::close(socket);
    QCOMPARE(result.failure.kind(), kind);
    QVERIFY(result.file.entries.isEmpty());
}

void TestNzbReader::aFileWithoutPermissionIsToldSo()
{
    write(nzbtext::document(nzbtext::file("one")));
    QCOMPARE(::chmod(QFile::encodeName(path()).constData(), 0), 0);
    const uid_t user = ::geteuid();
    if (user == 0) // may read everything
        QCOMPARE(::seteuid(65534), 0);
    const NzbReader::Result result = NzbReader::readFile(path());
    if (user == 0)
        QCOMPARE(::seteuid(user), 0);
    QCOMPARE(result.failure.kind(), Kind::NotPermitted);
}

void TestNzbReader::aFileOfManySegmentsIsRead()
{
    const int files = 1000 / sanitizedShare;
    write(nzbtext::many(files, 100));
    const NzbReader::Result result = NzbReader::readFile(path());
    QCOMPARE(result.failure.kind(), Kind::None);
    QCOMPARE(result.file.entries.size(), files);
    QCOMPARE(result.file.totals().segments, files * 100);
    QCOMPARE(result.file.totals().bytes, qint64(files) * 100 * 700'000);
}

void TestNzbReader::moreThanCanBeShownIsRefused_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("piece");
    QTest::addColumn<int>("most");
    QTest::newRow("files") << QByteArray() << QByteArray("<file/>") << 100'000;
    QTest::newRow("segments") << QByteArray("<file><segments>") << QByteArray("<segment/>") << 1'000'000;
}

void TestNzbReader::moreThanCanBeShownIsRefused()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, piece);
    QFETCH(int, most);
    const QByteArray after = before.isEmpty() ? QByteArray() : QByteArray("</segments></file>");
    const auto document = [&](int count) {
        return "<nzb>" + before + repeated(piece, count) + after + "</nzb>";
    };
    QCOMPARE(read(document(most)).failure.kind(), Kind::None);
    QCOMPARE(read(document(most + 1)).failure.kind(), Kind::TooMuch);
}

void TestNzbReader::aFileBeyondTheLimitIsNotRead()
{
    write(nzbtext::document(nzbtext::file("one")));
    QVERIFY(QFile::resize(path(), NzbReader::mostBytes + 1));
    QCOMPARE(NzbReader::readFile(path()).failure.kind(), Kind::TooLarge);
}

void TestNzbReader::aReadingThatIsStoppedSaysSo()
{
    write(nzbtext::document(nzbtext::file("one")));
    std::atomic_bool stop = false;
    QCOMPARE(NzbReader::readFile(path(), &stop).failure.kind(), Kind::None);
    stop = true;
    const NzbReader::Result result = NzbReader::readFile(path(), &stop);
    QCOMPARE(result.failure.kind(), Kind::Interrupted);
    QVERIFY(result.file.entries.isEmpty());
}

void TestNzbReader::everyFailureIsOneSentenceWithTheName()
{
    QStringList sentences;
    for (int kind = int(Kind::Missing); kind <= int(Kind::NoFiles); ++kind) {
        const QString sentence = NzbFailure(Kind(kind)).sentence(QStringLiteral("%2.nzb"));
        QVERIFY2(sentence.contains(QLatin1String("%2.nzb")), qPrintable(sentence));
        QVERIFY2(!sentences.contains(sentence), qPrintable(sentence));
        sentences.append(sentence);
    }
    QCOMPARE(NzbFailure(Kind::CutOff, 1234).sentence(QStringLiteral("a.nzb")),
             QStringLiteral("a.nzb breaks off in line 1234; download it again."));
    QVERIFY(NzbFailure().sentence(QStringLiteral("a.nzb")).isEmpty());
    QVERIFY(NzbFailure(Kind::Interrupted).sentence(QStringLiteral("a.nzb")).isEmpty());
}

QTEST_GUILESS_MAIN(TestNzbReader)
#include "tst_nzbreader.moc"
