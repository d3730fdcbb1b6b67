// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "catalogue.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

/// Holds the catalogues against the sources, and the translations against what they translate.
class TestTranslations : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void theCatalogueHasTheTextsOfTheSources_data() { addCatalogues(); }
    void theCatalogueHasTheTextsOfTheSources();
    void everyTextIsTranslated_data() { addCatalogues(); }
    void everyTextIsTranslated();
    void whatIsFilledInStandsInTheTranslationToo_data() { addCatalogues(); }
    void whatIsFilledInStandsInTheTranslationToo();
    void translationsAreShapedLikeTheirTexts_data() { addCatalogues(); }
    void translationsAreShapedLikeTheirTexts();
    void translationsUseTheSignsOfPrint_data() { addCatalogues(); }
    void translationsUseTheSignsOfPrint();
    void textsAreLookedUpWhereTheyStand_data() { addCatalogues(); }
    void textsAreLookedUpWhereTheyStand();

private:
    void addCatalogues() const;
    QVector<Message> messages() const;

    QTemporaryDir m_copies;
};

namespace {

QString projectFile(const QString &path)
{
    return QStringLiteral(PROJECT_FOLDER "/") + path;
}

QStringList keys(const QVector<Message> &messages)
{
    QStringList result;
    for (const Message &message : messages)
        result.append(message.key());
    result.sort();
    return result;
}

QStringList without(const QStringList &all, const QStringList &others)
{
    QStringList rest;
    std::set_difference(all.cbegin(), all.cend(), others.cbegin(), others.cend(), std::back_inserter(rest));
    return rest;
}

/// What @p pattern finds in @p text, sorted.
QStringList found(const QString &text, const char *pattern)
{
    QStringList result;
    QRegularExpressionMatchIterator matches = QRegularExpression(QLatin1String(pattern)).globalMatch(text);
    while (matches.hasNext())
        result.append(matches.next().captured());
    result.sort();
    return result;
}

/// The dots, colons and blanks at the end, and the blanks at the beginning.
QString ending(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("^(\\s*).*?([\\s.…:?!]*)$"),
                                            QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = pattern.match(text);
    return match.captured(1) + QLatin1Char('|') + match.captured(2);
}

/// The classes that look their texts up under their own name.
QStringList translatingClasses()
{
    static const QRegularExpression declared(QStringLiteral(
        "class (?:\\w+_EXPORT )?(\\w+)[^;{]*\\{\\s*(?:Q_OBJECT|Q_DECLARE_TR_FUNCTIONS\\(\\1\\))"));
    QStringList names;
    for (const char *room : {"host", "plugin", "connector", "requests", "bookmarks", "panels"}) {
        QDirIterator files(projectFile(QLatin1String(room)), {QStringLiteral("*.h")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile file(files.next());
            if (!file.open(QIODevice::ReadOnly))
                continue;
            QRegularExpressionMatchIterator matches = declared.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext())
                names.append(matches.next().captured(1));
        }
    }
    return names;
}

} // namespace

void TestTranslations::initTestCase()
{
    const QStringList files =
        QDir(projectFile(QStringLiteral("translations"))).entryList({QStringLiteral("*.ts")}, QDir::Files);
    QVERIFY(files.contains(QStringLiteral("halvora_de.ts")));
    QVERIFY(files.contains(QStringLiteral("pinegate_de.ts")));
    for (const QString &file : files)
        QVERIFY(QFile::copy(projectFile(QStringLiteral("translations/") + file), m_copies.filePath(file)));
    QProcess script;
    script.setProcessChannelMode(QProcess::MergedChannels);
    script.start(projectFile(QStringLiteral("scripts/translate.sh")), {m_copies.path()});
    QVERIFY(script.waitForFinished(120'000));
    QVERIFY2(script.exitCode() == 0, script.readAll().constData());
}

void TestTranslations::addCatalogues() const
{
    QTest::addColumn<QString>("file");
    const QStringList files = QDir(m_copies.path()).entryList({QStringLiteral("*.ts")});
    for (const QString &file : files)
        QTest::newRow(qPrintable(file)) << file;
}

QVector<Message> TestTranslations::messages() const
{
    QFETCH(QString, file);
    return Catalogue::read(projectFile(QStringLiteral("translations/") + file));
}

void TestTranslations::theCatalogueHasTheTextsOfTheSources()
{
    QFETCH(QString, file);
    const QStringList here = keys(messages());
    const QStringList wanted = keys(Catalogue::read(m_copies.filePath(file)));
    QVERIFY(!wanted.isEmpty());
    const QStringList missing = without(wanted, here);
    const QStringList gone = without(here, wanted);
    QVERIFY2(missing.isEmpty(), qPrintable(QStringLiteral("missing: ") + missing.join(QLatin1Char('\n'))));
    QVERIFY2(gone.isEmpty(), qPrintable(QStringLiteral("in no source: ") + gone.join(QLatin1Char('\n'))));
}

void TestTranslations::everyTextIsTranslated()
{
    const QVector<Message> all = messages();
    QVERIFY(!all.isEmpty());
    for (const Message &message : all) {
        QVERIFY2(message.isFinished, qPrintable(message.key()));
        QCOMPARE(message.translations.size(), message.counts ? 2 : 1);
        for (const QString &translation : message.translations)
            QVERIFY2(!translation.trimmed().isEmpty(), qPrintable(message.key()));
    }
}

void TestTranslations::whatIsFilledInStandsInTheTranslationToo()
{
    const char *const numbered = "%L?[1-9]";
    const char *const counted = "%L?n";
    const QVector<Message> all = messages();
    for (const Message &message : all) {
        for (const QString &translation : message.translations) {
            QCOMPARE(found(translation, numbered), found(message.source, numbered));
            QCOMPARE(found(translation, "<[^>]*>"), found(message.source, "<[^>]*>"));
        }
        // "One newsgroup" needs no figure; other numbers do.
        QCOMPARE(found(message.translations.last(), counted), found(message.source, counted));
    }
}

void TestTranslations::translationsAreShapedLikeTheirTexts()
{
    const QVector<Message> all = messages();
    for (const Message &message : all) {
        for (const QString &translation : message.translations) {
            QCOMPARE(found(translation, "&\\w").size(), found(message.source, "&\\w").size());
            QCOMPARE(found(translation, "\n").size(), found(message.source, "\n").size());
            QCOMPARE(ending(translation), ending(message.source));
        }
    }
}

void TestTranslations::translationsUseTheSignsOfPrint()
{
    QFETCH(QString, file);
    const QVector<Message> all = messages();
    for (const Message &message : all) {
        for (const QString &translation : message.translations) {
            // Between a tag's own quotes nobody reads.
            const QString read = QString(translation).remove(QRegularExpression(QStringLiteral("<[^>]*>")));
            QVERIFY2(found(read, "\\.\\.\\.|[\"'`]|“.*”").isEmpty(), qPrintable(translation));
            if (file.endsWith(QStringLiteral("_de.ts")))
                QCOMPARE(read.count(QChar(0x201E)), read.count(QChar(0x201C))); // „ and “
        }
    }
}

// A class without a macro of its own looks its texts up under the name of the one that it is made from, and
// does not find them.
void TestTranslations::textsAreLookedUpWhereTheyStand()
{
    const QStringList classes = translatingClasses();
    QVERIFY(classes.contains(QStringLiteral("MainWindow")));
    const QVector<Message> all = messages();
    for (const Message &message : all)
        QVERIFY2(classes.contains(message.context), qPrintable(message.key()));
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
