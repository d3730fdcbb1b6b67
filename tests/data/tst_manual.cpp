// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

/// The manual page beside the very program.
class ManualTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theManualIsSound();
    void theManualAndTheProgramKnowTheSameOptions();
    void theSynopsisNamesEveryOption();
};

namespace {

constexpr int ToolWatchdogMs = 60000; // for programs that take far less than a second

QString manual()
{
    QFile file(QStringLiteral(MANUAL));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Every first part that @p pattern finds in @p text, sorted, each once.
QStringList found(const QString &text, const QString &pattern)
{
    QStringList names;
    QRegularExpressionMatchIterator matches =
        QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
    while (matches.hasNext())
        names.append(matches.next().captured(1));
    names.removeDuplicates();
    names.sort();
    return names;
}

/// The long options that the program itself tells; the one that tells of Qt's own options is not among them.
QStringList programOptions()
{
    QProcess program;
    program.start(QStringLiteral(HALVORA_PROGRAM), {QStringLiteral("--help")});
    if (!program.waitForFinished(ToolWatchdogMs))
        return {};
    return found(QString::fromUtf8(program.readAllStandardOutput()),
                 QStringLiteral("^  (?:-\\w, )?--([a-z-]+)"));
}

} // namespace

void ManualTest::theManualIsSound()
{
    QProcess man;
    man.setProcessChannelMode(QProcess::SeparateChannels);
    man.start(QStringLiteral("man"),
              {QStringLiteral("--warnings"), QStringLiteral("-E"), QStringLiteral("UTF-8"),
               QStringLiteral("-l"), QStringLiteral("-Tutf8"), QStringLiteral("-Z"), QStringLiteral(MANUAL)});
    QVERIFY2(man.waitForFinished(ToolWatchdogMs), qPrintable(man.errorString()));
    QCOMPARE(QString::fromUtf8(man.readAllStandardError()), QString());
    QCOMPARE(man.exitCode(), 0);
    QVERIFY(!man.readAllStandardOutput().isEmpty());
}

void ManualTest::theManualAndTheProgramKnowTheSameOptions()
{
    const QStringList known = programOptions();
    QVERIFY(known.contains(QStringLiteral("profile")));
    const QStringList items =
        manual().split(QLatin1Char('\n')).filter(QRegularExpression(QStringLiteral("^\\.It Fl")));
    QCOMPARE(found(items.join(QLatin1Char('\n')), QStringLiteral("Fl Fl ([a-z-]+)")), known);
}

void ManualTest::theSynopsisNamesEveryOption()
{
    const QString synopsis =
        manual().section(QStringLiteral(".Sh SYNOPSIS"), 1).section(QStringLiteral(".Sh "), 0, 0);
    QCOMPARE(found(synopsis, QStringLiteral("Fl Fl ([a-z-]+)")), programOptions());
}

QTEST_GUILESS_MAIN(ManualTest)
#include "tst_manual.moc"
