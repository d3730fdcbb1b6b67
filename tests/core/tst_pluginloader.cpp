// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/coreplugininterface.h>
#include <halvora/pluginloader.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(PluginResult::Failure)

class TestPluginLoader : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aPluginIsCastToTheInterfaceWhateverItsMetadataSays();
    void everyFailureHasAReasonAndTwoTexts_data();
    void everyFailureHasAReasonAndTwoTexts();
    void aDirectoryIsLoadedInTheOrderOfItsNames();
    void anEmptyOrMissingDirectoryGivesNothing();
    void aSecondLoadGivesTheSameObject();
};

void TestPluginLoader::aPluginIsCastToTheInterfaceWhateverItsMetadataSays()
{
    const PluginResult result = PluginLoader::load(QStringLiteral(GOOD_PLUGIN));
    QVERIFY2(result.plugin, qPrintable(result.logText));
    QCOMPARE(result.failure, PluginResult::Failure::None);
    QCOMPARE(result.plugin->name(), QStringLiteral("good"));
    QVERIFY(result.userText.isEmpty());
    QVERIFY(result.logText.isEmpty());
}

void TestPluginLoader::everyFailureHasAReasonAndTwoTexts_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<PluginResult::Failure>("failure");
    QTest::addColumn<QString>("userText");
    QTest::addColumn<QString>("logged");
    using Failure = PluginResult::Failure;
    QTest::newRow("missing") << QStringLiteral("/nowhere/lost.so") << Failure::FileMissing
                             << QStringLiteral("The plug-in lost.so is not there.")
                             << QStringLiteral("no such file");
    QTest::newRow("a folder") << QStringLiteral("/tmp") << Failure::FileMissing
                              << QStringLiteral("The plug-in tmp is not there.")
                              << QStringLiteral("no such file");
    QTest::newRow("not a plug-in") << QStringLiteral(TEXT_FILE) << Failure::NotAPlugin
                                   << QStringLiteral(
                                          "tst_pluginloader.cpp is not a plug-in that can be loaded.")
                                   << QString();
    QTest::newRow("wrong interface") << QStringLiteral(STRANGE_PLUGIN) << Failure::WrongInterface
                                     << QStringLiteral(
                                            "The plug-in strangeplugin.so was made for another version "
                                            "of Halvora.")
                                     << QStringLiteral("StrangePlugin does not offer "
                                                       "com.halvora.CorePluginInterface/1.0");
}

void TestPluginLoader::everyFailureHasAReasonAndTwoTexts()
{
    QFETCH(QString, file);
    QFETCH(QString, userText);
    QFETCH(QString, logged);
    const PluginResult result = PluginLoader::load(file);
    QTEST(result.failure, "failure");
    QCOMPARE(result.plugin, nullptr);
    QCOMPARE(result.userText, userText);
    QVERIFY2(result.logText.startsWith(file), qPrintable(result.logText));
    QVERIFY2(result.logText.size() > file.size() + 2, qPrintable(result.logText));
    QVERIFY2(result.logText.contains(logged), qPrintable(result.logText));
}

void TestPluginLoader::aDirectoryIsLoadedInTheOrderOfItsNames()
{
    const QTemporaryDir directory;
    const QDir dir(directory.path());
    QVERIFY(QFile::copy(QStringLiteral(GOOD_PLUGIN), dir.filePath(QStringLiteral("b.so"))));
    QVERIFY(QFile::copy(QStringLiteral(STRANGE_PLUGIN), dir.filePath(QStringLiteral("a.so"))));
    QVERIFY(QFile::copy(QStringLiteral(TEXT_FILE), dir.filePath(QStringLiteral("c.so"))));
    QVERIFY(QFile::copy(QStringLiteral(TEXT_FILE), dir.filePath(QStringLiteral("readme.txt"))));
    const QVector<PluginResult> results = PluginLoader::loadAll(directory.path());
    QCOMPARE(results.size(), 3);
    QCOMPARE(results.at(0).failure, PluginResult::Failure::WrongInterface);
    QCOMPARE(results.at(1).failure, PluginResult::Failure::None);
    QCOMPARE(results.at(2).failure, PluginResult::Failure::NotAPlugin);
}

void TestPluginLoader::anEmptyOrMissingDirectoryGivesNothing()
{
    const QTemporaryDir directory;
    QVERIFY(PluginLoader::loadAll(directory.path()).isEmpty());
    QVERIFY(PluginLoader::loadAll(QStringLiteral("/nowhere")).isEmpty());
}

void TestPluginLoader::aSecondLoadGivesTheSameObject()
{
    const PluginResult first = PluginLoader::load(QStringLiteral(GOOD_PLUGIN));
    const PluginResult second = PluginLoader::load(QStringLiteral(GOOD_PLUGIN));
    QCOMPARE(second.plugin, first.plugin);
}

QTEST_GUILESS_MAIN(TestPluginLoader)
#include "tst_pluginloader.moc"
