// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/coreplugininterface.h>
#include <halvora/pluginloader.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

namespace {

QString module()
{
    return QStringLiteral(PINEGATE_MODULE);
}

#ifdef RELEASE_MODULE
QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished();
    return QString::fromLocal8Bit(process.readAllStandardOutput());
}
#endif

} // namespace

class TestModule : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theHostsLoaderFindsTheInterface();
    void theEntryPointReturnsOneObjectAndAfterItsEndANewOne();
    void theMetadataNamesTheProvider();
#ifdef RELEASE_MODULE
    void theMetadataBlockHasItsExactBytes();
    void onlyTheTwoEntryPointsAreExported();
    void nothingButQtAndTheHostIsNeeded();
#endif
};

void TestModule::theHostsLoaderFindsTheInterface()
{
    const PluginResult result = PluginLoader::load(module());
    QVERIFY2(result.plugin, qPrintable(result.logText));
    QCOMPARE(result.instance->metaObject()->className(), "Corvia");
    QCOMPARE(result.instance->qt_metacast("com.halvora.CorePluginInterface/1.0"),
             static_cast<void *>(result.plugin));
    QVERIFY(static_cast<void *>(result.plugin) != static_cast<void *>(result.instance));
    QCOMPARE(result.instance->qt_metacast("com.halvora.Other/1.0"), nullptr);
}

void TestModule::theEntryPointReturnsOneObjectAndAfterItsEndANewOne()
{
    QLibrary library(module());
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto instance = reinterpret_cast<QObject *(*)()>(library.resolve("qt_plugin_instance"));
    QVERIFY(instance);
    QPointer<QObject> first = instance();
    QVERIFY(first);
    QCOMPARE(instance(), first.data());
    delete first;
    QPointer<QObject> second = instance();
    QVERIFY(second);
    QCOMPARE(second->metaObject()->className(), "Corvia");
    QCOMPARE(instance(), second.data());
}

void TestModule::theMetadataNamesTheProvider()
{
    const QJsonObject data = QPluginLoader(module()).metaData();
    QCOMPARE(data.value(QStringLiteral("IID")).toString(), QStringLiteral("Corvia"));
    QCOMPARE(data.value(QStringLiteral("className")).toString(), QStringLiteral("Corvia"));
    const QJsonObject user = data.value(QStringLiteral("MetaData")).toObject();
    QCOMPARE(user.keys(), QStringList{QStringLiteral("Keys")});
    QCOMPARE(user.value(QStringLiteral("Keys")).toArray(), QJsonArray{QStringLiteral("Pinegate")});
}

#ifdef RELEASE_MODULE
void TestModule::theMetadataBlockHasItsExactBytes()
{
    const QByteArray expected = QByteArrayLiteral("QTMETADATA !") + QByteArray::fromHex("00050f00") +
                                QByteArray::fromHex("bf0266") + "Corvia" + QByteArray::fromHex("0366") +
                                "Corvia" + QByteArray::fromHex("04a164") + "Keys" +
                                QByteArray::fromHex("8168") + "Pinegate" + QByteArray::fromHex("ff");
    QFile file(module());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(bytes.count("QTMETADATA !"), 1);
    const QByteArray block = bytes.mid(bytes.indexOf("QTMETADATA !"), expected.size());
    QCOMPARE(block.toHex(), expected.toHex());
}

void TestModule::onlyTheTwoEntryPointsAreExported()
{
    const QString symbols =
        outputOf(QStringLiteral("nm"), {QStringLiteral("-D"), QStringLiteral("--defined-only"), module()});
    QStringList names;
    const QStringList lines = symbols.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines)
        names.append(line.section(QLatin1Char(' '), -1));
    names.sort();
    QCOMPARE(names,
             QStringList({QStringLiteral("qt_plugin_instance"), QStringLiteral("qt_plugin_query_metadata")}));
}

void TestModule::nothingButQtAndTheHostIsNeeded()
{
    const QString sections = outputOf(QStringLiteral("readelf"), {QStringLiteral("-d"), module()});
    const QRegularExpression needed(QStringLiteral("NEEDED.*\\[(.*)\\]"));
    const QRegularExpression allowed(QStringLiteral(
        "^lib(Qt5(Core|Gui|Widgets|Xml|Sql)|halvora-(core|connector)|stdc\\+\\+|gcc_s|c|m)\\.so"));
    int count = 0;
    auto matches = needed.globalMatch(sections);
    while (matches.hasNext()) {
        const QString library = matches.next().captured(1);
        QVERIFY2(allowed.match(library).hasMatch(), qPrintable(library));
        ++count;
    }
    QVERIFY(count > 0);
}
#endif

QTEST_MAIN(TestModule)
#include "tst_module.moc"
