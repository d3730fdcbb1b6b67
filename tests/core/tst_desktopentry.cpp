// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <desktopentry.h>

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

class DesktopEntryTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theProgramIsOneWordForWhoeverStartsIt_data();
    void theProgramIsOneWordForWhoeverStartsIt();
    void aNameStaysOnItsLine_data();
    void aNameStaysOnItsLine();
    void typesAreReadFromTheRightGroup();
    void aHiddenEntryOffersNothing();
    void aProgramIsFoundAgainInItsEntry_data();
    void aProgramIsFoundAgainInItsEntry();

private:
    QByteArray validated(const QByteArray &entry);
    QString write(const QByteArray &entry);

    QTemporaryDir m_folder;
};

namespace {

QByteArray lineOf(const QByteArray &entry, const QByteArray &key)
{
    const QList<QByteArray> lines = entry.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key + '='))
            return line.mid(key.size() + 1);
    }
    return {};
}

QByteArray composed(const QString &title, const QString &program)
{
    return DesktopEntry::compose(title, program, {QStringLiteral("x-scheme-handler/demo")});
}

} // namespace

QString DesktopEntryTest::write(const QByteArray &entry)
{
    QFile file(m_folder.filePath(QStringLiteral("entry.desktop")));
    return file.open(QIODevice::WriteOnly) && file.write(entry) == entry.size() ? file.fileName() : QString();
}

/// What the validator has to say, which is nothing for a sound entry.
QByteArray DesktopEntryTest::validated(const QByteArray &entry)
{
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(QStringLiteral("desktop-file-validate"), {write(entry)});
    if (!validator.waitForFinished())
        return validator.errorString().toUtf8();
    return validator.readAll();
}

void DesktopEntryTest::theProgramIsOneWordForWhoeverStartsIt_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QByteArray>("exec");
    const auto row = [](const char *name, const char *program, const char *exec) {
        QTest::newRow(name) << QString::fromUtf8(program) << QByteArray(exec);
    };
    row("plain", "/usr/bin/halvora", "/usr/bin/halvora %u");
    row("blank", "/opt/my programs/halvora", "\"/opt/my programs/halvora\" %u");
    row("dollar and backquote", "/opt/$a`b", R"("/opt/\\$a\\`b" %u)");
    row("quote", "/opt/a\"b", R"("/opt/a\\"b" %u)");
    row("backslash", "/opt/a\\b", R"("/opt/a\\\\b" %u)");
    row("per cent", "/opt/100%", "/opt/100%% %u");
    row("line break", "/opt/a\nb", "\"/opt/a\\nb\" %u");
    row("umlaut", "/opt/hä", "/opt/hä %u");
}

void DesktopEntryTest::theProgramIsOneWordForWhoeverStartsIt()
{
    QFETCH(QString, program);
    QFETCH(QByteArray, exec);
    const QByteArray entry = composed(QStringLiteral("Demo"), program);
    QCOMPARE(lineOf(entry, "Exec"), exec);
    QCOMPARE(validated(entry), QByteArray());
}

void DesktopEntryTest::aNameStaysOnItsLine_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("plain") << QStringLiteral("Corvia") << QByteArray("Corvia");
    QTest::newRow("line break") << QStringLiteral("A\nExec=b\r\n[c]") << QByteArray("A Exec=b [c]");
    QTest::newRow("unicode line break") << QStringLiteral("A\u2028B\u0085C") << QByteArray("A B C");
    QTest::newRow("control") << QStringLiteral("A\u0001\u001bB") << QByteArray("A B");
    QTest::newRow("backslash") << QStringLiteral("A\\nB") << QByteArray("A\\\\nB");
    QTest::newRow("blanks") << QStringLiteral("  A  ") << QByteArray("A");
    QTest::newRow("nothing") << QString() << QByteArray("Halvora");
    QTest::newRow("half a pair") << (QStringLiteral("A") + QChar(0xd800)) << QByteArray("A\xef\xbf\xbd");
    QTest::newRow("emoji") << QStringLiteral("\U0001F426") << QByteArray("\xf0\x9f\x90\xa6");
}

void DesktopEntryTest::aNameStaysOnItsLine()
{
    QFETCH(QString, title);
    QFETCH(QByteArray, name);
    const QByteArray entry = composed(title, QStringLiteral("/usr/bin/halvora"));
    QCOMPARE(lineOf(entry, "Name"), name);
    QCOMPARE(entry.count('\n'), composed(QStringLiteral("A"), QStringLiteral("b")).count('\n'));
    QCOMPARE(validated(entry), QByteArray());
}

void DesktopEntryTest::typesAreReadFromTheRightGroup()
{
    const QString file = write("[Other]\nMimeType=a/a;\n[Desktop Entry]\nMimeType = b/b; c/c ;;\n"
                               "[Desktop Action x]\nMimeType=d/d;\n");
    QCOMPARE(DesktopEntry::mimeTypes(file), QStringList({QStringLiteral("b/b"), QStringLiteral("c/c")}));
}

void DesktopEntryTest::aHiddenEntryOffersNothing()
{
    const QString file = write("[Desktop Entry]\nMimeType=b/b;\nHidden=true\n");
    QCOMPARE(DesktopEntry::mimeTypes(file), QStringList());
}

void DesktopEntryTest::aProgramIsFoundAgainInItsEntry_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
         {"plain", "a blank", "$a`b", "a\"b", "a\\b", "100%", "a%%b", "a\nb", "a\tb", "hä"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void DesktopEntryTest::aProgramIsFoundAgainInItsEntry()
{
    QFETCH(QString, name);
    const QString program = m_folder.filePath(name);
    const QString entry = write(composed(QStringLiteral("Demo"), program));
    QVERIFY(DesktopEntry::startsWhatIsGone(entry));
    QFile file(program);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(DesktopEntry::startsWhatIsGone(entry)); // nobody can start it
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    QVERIFY(!DesktopEntry::startsWhatIsGone(entry));
}

QTEST_GUILESS_MAIN(DesktopEntryTest)
#include "tst_desktopentry.moc"
