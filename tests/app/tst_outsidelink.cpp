// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "outsidelink.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

class TestOutsideLink : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void whatComesFromOutsideIsAGroupOfFilesOrAFile_data();
    void whatComesFromOutsideIsAGroupOfFilesOrAFile();
    void withoutAProviderNoSchemeIsOwn_data();
    void withoutAProviderNoSchemeIsOwn();
    void anArgumentMeansTheSameInAnyFolder_data();
    void anArgumentMeansTheSameInAnyFolder();

private:
    QTemporaryDir m_folder;
};

namespace {

constexpr int longestId = 200;

QString letters(int size)
{
    return QString(size, QLatin1Char('a'));
}

} // namespace

void TestOutsideLink::initTestCase()
{
    QVERIFY(QDir::setCurrent(m_folder.path()));
    for (const char *name : {"a.nzb", "a:b.nzb"})
        QVERIFY(QFile(m_folder.filePath(QLatin1String(name))).open(QIODevice::WriteOnly));
}

void TestOutsideLink::whatComesFromOutsideIsAGroupOfFilesOrAFile_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("file");
    const auto row = [](const QString &text, const char *group, const char *file) {
        const QByteArray name = QUrl::toPercentEncoding(text.left(80), ":/?#@%&=\\ ");
        QTest::addRow("%s (%d)", name.constData(), text.size())
            << text << QString::fromUtf8(group) << QString::fromUtf8(file);
    };
    const auto refused = [&row](const QString &text) { row(text, "", ""); };
    const QString details = QStringLiteral("pinegate://details?filegroup=");
    row(details + QStringLiteral("abc"), "abc", "");
    row(details + QStringLiteral("A-1_b.2"), "A-1_b.2", "");
    row(QStringLiteral("PINEGATE://Details?filegroup=abc"), "abc", "");
    row(QStringLiteral("pinegate://details/?filegroup=abc"), "abc", "");
    row(QStringLiteral("pinegate://details?filegroup=%61bc"), "abc", "");
    row(details + letters(longestId), letters(longestId).toUtf8().constData(), "");
    refused(details);
    refused(details + letters(longestId + 1));
    refused(details + QStringLiteral("a b"));
    refused(details + QStringLiteral("a%0Ab"));
    refused(details + QStringLiteral("a%00"));
    refused(details + QStringLiteral("a\nb"));
    refused(details + QStringLiteral("abc\n"));
    refused(details + QStringLiteral("abc%0A"));
    refused(details + QStringLiteral("../a"));
    refused(details + QStringLiteral("%22/><x"));
    refused(details + QStringLiteral("\u00e4"));
    refused(details + QStringLiteral("a&filegroup=b"));
    refused(details + QStringLiteral("a&other=b"));
    refused(details + QStringLiteral("a#b"));
    refused(QStringLiteral("pinegate://details"));
    refused(QStringLiteral("pinegate://details?other=abc"));
    refused(QStringLiteral("pinegate://details/more?filegroup=abc"));
    refused(QStringLiteral("pinegate://details:80?filegroup=abc"));
    refused(QStringLiteral("pinegate://user@details?filegroup=abc"));
    refused(QStringLiteral("pinegate://settings?filegroup=abc"));
    refused(QStringLiteral("pinegate:details?filegroup=abc"));
    refused(QStringLiteral("pinegate:"));
    refused(QStringLiteral("pinegates://details?filegroup=abc"));
    refused(QStringLiteral(" pinegate://details?filegroup=abc"));

    row(QStringLiteral("/tmp/a.nzb"), "", "/tmp/a.nzb");
    row(QStringLiteral("/tmp/x/../a b%20?#.nzb"), "", "/tmp/a b%20?#.nzb");
    row(QStringLiteral("/tmp/\u00e4.nzb"), "", "/tmp/\xc3\xa4.nzb");
    row(QStringLiteral("/tmp/--profile"), "", "/tmp/--profile");
    row(QStringLiteral("file:///tmp/a%20b%3F.nzb"), "", "/tmp/a b?.nzb");
    row(QStringLiteral("FILE:///tmp/a.nzb"), "", "/tmp/a.nzb");
    row(QStringLiteral("file://localhost/tmp/a.nzb"), "", "/tmp/a.nzb");
    row(QStringLiteral("file:/tmp/a.nzb"), "", "/tmp/a.nzb");
    refused(QString());
    refused(QStringLiteral("a.nzb"));
    refused(QStringLiteral("file:a.nzb"));
    refused(QStringLiteral("file://"));
    refused(QStringLiteral("file://server/tmp/a.nzb"));
    refused(QStringLiteral("file:///tmp/a.nzb?x"));
    refused(QStringLiteral("file:///tmp/a.nzb#x"));
    refused(QStringLiteral("file:///tmp/a%00.nzb"));
    refused(QStringLiteral("file:///tmp/a%0A.nzb"));
    refused(QStringLiteral("/tmp/a\n.nzb"));
    refused(QStringLiteral("/tmp/a\x1b[2J.nzb"));
    refused(QLatin1Char('/') + letters(OutsideLink::longest));
    refused(QLatin1Char('/') + QString(OutsideLink::longest / 2, QChar(0x4e00)));
    row(QLatin1Char('/') + letters(OutsideLink::longest - 1), "",
        ('/' + QByteArray(OutsideLink::longest - 1, 'a')).constData());

    for (const char *link :
         {"https://www.corvia.example/", "http://www.corvia.example/a.nzb", "javascript:alert(1)",
          "data:text/html,x", "smb://server/share/a.nzb", "ssh://server", "ftp://server/a.nzb",
          "view-source:file:///tmp/a.nzb", "mailto:a@corvia.example", "about:blank", "qrc:/app/a.nzb"})
        refused(QLatin1String(link));
}

void TestOutsideLink::whatComesFromOutsideIsAGroupOfFilesOrAFile()
{
    QFETCH(QString, text);
    QFETCH(QString, group);
    QFETCH(QString, file);
    const OutsideLink link = OutsideLink::parse(text, QStringLiteral("pinegate"));
    const bool isRefused = group.isEmpty() && file.isEmpty();
    const auto other = file.isEmpty() ? OutsideLink::FileGroup : OutsideLink::File;
    QCOMPARE(link.kind(), isRefused ? OutsideLink::Refused : other);
    QCOMPARE(link.fileGroup().toString(), group);
    QCOMPARE(link.file(), file);
    QCOMPARE(link.refusal().isEmpty(), !isRefused);
    QVERIFY(link.refusal().isEmpty() || link.refusal().endsWith(QLatin1Char('.')));
}

void TestOutsideLink::withoutAProviderNoSchemeIsOwn_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("with a scheme") << QStringLiteral("pinegate://details?filegroup=abc");
    QTest::newRow("without") << QStringLiteral("//details?filegroup=abc");
    QTest::newRow("with an empty one") << QStringLiteral("://details?filegroup=abc");
}

void TestOutsideLink::withoutAProviderNoSchemeIsOwn()
{
    QFETCH(QString, text);
    QVERIFY(OutsideLink::parse(text, QString()).kind() != OutsideLink::FileGroup);
}

void TestOutsideLink::anArgumentMeansTheSameInAnyFolder_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("meaning");
    const auto same = [](const char *argument) {
        QTest::newRow(argument) << QString::fromUtf8(argument) << QString::fromUtf8(argument);
    };
    const auto below = [](const char *argument, const char *path) {
        QTest::newRow(argument) << QString::fromUtf8(argument)
                                << QDir::current().absoluteFilePath(QString::fromUtf8(path));
    };
    same("");
    same("/tmp/a.nzb");
    same("file:///tmp/a.nzb");
    same("pinegate://details?filegroup=abc");
    same("javascript:alert(1)");
    below("a.nzb", "a.nzb");
    below("./a.nzb", "./a.nzb");
    below("missing.nzb", "missing.nzb");
    below("a:b.nzb", "a:b.nzb");
}

void TestOutsideLink::anArgumentMeansTheSameInAnyFolder()
{
    QFETCH(QString, argument);
    QFETCH(QString, meaning);
    QCOMPARE(QDir::cleanPath(OutsideLink::absolute(argument)), QDir::cleanPath(meaning));
}

QTEST_GUILESS_MAIN(TestOutsideLink)
#include "tst_outsidelink.moc"
