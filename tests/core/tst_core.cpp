// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/benchmark.h>
#include <halvora/configuration.h>
#include <halvora/core.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/pluginmanager.h>

#include <QDir>
#include <QDomDocument>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

/// Writes down when it goes.
class Mortal final : public IPlugin {
public:
    Mortal(int number, QVector<int> *gone)
        : m_number(number)
        , m_gone(gone)
    {
    }
    ~Mortal() override { m_gone->append(m_number); }

private:
    const int m_number;
    QVector<int> *const m_gone;
};

} // namespace

class TestCore : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aProfileHoldsTheSettings();
    void withoutAProfileTheSettingsAreTheUsers();
    void unknownLinksAreNull();
    void anUpdateIsCopiedAndToldAtOnce();
    void anUpdateIsAsLongAsCanBeShown_data();
    void anUpdateIsAsLongAsCanBeShown();
    void theErrorReportIsToldOnlyOnChange();
    void shutdownEndsRunningForGood();
    void theMainWindowIsForgottenWhenItGoes();
    void pluginsKeepTheirOrderAndGoInReverse();
    void stagesAreMeasuredInTheirOrder();
    void textsForOtherThreadsAreKept();
};

void TestCore::aProfileHoldsTheSettings()
{
    const QTemporaryDir profile;
    {
        const Core core(profile.path());
        core.settings().setValue(QStringLiteral("Some/Key"), 7);
    }
    QVERIFY(QFile::exists(profile.filePath(QStringLiteral("halvora.ini"))));
    const Core core(profile.path());
    QCOMPARE(core.settings().value(QStringLiteral("Some/Key")).toInt(), 7);
}

void TestCore::withoutAProfileTheSettingsAreTheUsers()
{
    const Core core;
    QVERIFY2(core.settings().fileName().startsWith(QDir::homePath()), qPrintable(core.settings().fileName()));
    QVERIFY(core.settings().fileName().contains(Configuration::settingsApplication()));
    QCOMPARE(Configuration::settingsOrganization(), QStringLiteral("halvora"));
}

void TestCore::unknownLinksAreNull()
{
    const QTemporaryDir profile;
    Core core(profile.path());
    const QSignalSpy changed(&core, &Core::urlsChanged);
    QVERIFY(core.url(QStringLiteral("help")).isNull());
    core.setUrls(
        {{QStringLiteral("help"), UrlInfo(QUrl(QStringLiteral("https://www.corvia.example/help")))}});
    QCOMPARE(changed.count(), 1);
    QVERIFY(!core.url(QStringLiteral("help")).isNull());
    QVERIFY(core.url(QStringLiteral("Help")).isNull());
}

void TestCore::anUpdateIsCopiedAndToldAtOnce()
{
    const QTemporaryDir profile;
    Core core(profile.path());
    QString told;
    connect(&core, &Core::softwareUpdateOffered, this,
            [&told](const SoftwareUpdate &update) { told = update.version + update.url + update.note; });
    QDomDocument document;
    document.setContent(QStringLiteral("<software-update version='2' url='u'>note</software-update>"));
    core.performOnlineUpdate(document.documentElement());
    QCOMPARE(told, QStringLiteral("2unote"));
}

void TestCore::anUpdateIsAsLongAsCanBeShown_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("url");
    QTest::addColumn<int>("note");
    QTest::newRow("short") << 2'000 << 2'000 << 2'000;
    QTest::newRow("the longest address") << 2'048 << 2'048 << 2'000;
    QTest::newRow("too long") << 2'049 << 0 << 2'000;
}

void TestCore::anUpdateIsAsLongAsCanBeShown()
{
    QFETCH(int, length);
    const QTemporaryDir profile;
    Core core(profile.path());
    SoftwareUpdate told;
    connect(&core, &Core::softwareUpdateOffered, this,
            [&told](const SoftwareUpdate &update) { told = update; });
    const QString text(length, QLatin1Char('a'));
    QDomDocument document;
    document.setContent(
        QStringLiteral("<software-update version='%1' url='%1'>%1</software-update>").arg(text));
    core.performOnlineUpdate(document.documentElement());
    QTEST(told.url.size(), "url");
    QTEST(told.note.size(), "note");
    QCOMPARE(told.version.size(), 2'000);
}

void TestCore::theErrorReportIsToldOnlyOnChange()
{
    const QTemporaryDir profile;
    Core core(profile.path());
    const QSignalSpy changed(&core, &Core::errorReportVisibleChanged);
    core.setErrorReportVisible(true);
    core.setErrorReportVisible(true);
    QCOMPARE(changed.count(), 1);
    QVERIFY(core.isErrorReportVisible());
}

void TestCore::shutdownEndsRunningForGood()
{
    const QTemporaryDir profile;
    Core core(profile.path());
    QVERIFY(core.isRunning());
    core.stopRunning();
    QVERIFY(!core.isRunning());
}

void TestCore::theMainWindowIsForgottenWhenItGoes()
{
    const QTemporaryDir profile;
    Core core(profile.path());
    QCOMPARE(core.mainWindow(), nullptr);
    {
        MainWindow window(&core);
        core.setMainWindow(&window);
        QCOMPARE(core.mainWindow(), &window);
    }
    QCOMPARE(core.mainWindow(), nullptr);
}

void TestCore::pluginsKeepTheirOrderAndGoInReverse()
{
    QVector<int> gone;
    PluginManager plugins;
    auto *first = new Mortal(1, &gone);
    auto *second = new Mortal(2, &gone);
    plugins.registerPlugin(first);
    plugins.registerPlugin(second);
    QCOMPARE(plugins.plugins(), QList<IPlugin *>({first, second}));
    plugins.clear();
    QCOMPARE(gone, QVector<int>({2, 1}));
    QVERIFY(plugins.plugins().isEmpty());
}

void TestCore::stagesAreMeasuredInTheirOrder()
{
    Benchmark benchmark;
    benchmark.lap(QStringLiteral("one"));
    benchmark.lap(QStringLiteral("two"));
    QCOMPARE(benchmark.stages().size(), 2);
    QCOMPARE(benchmark.stages().at(0).name, QStringLiteral("one"));
    QVERIFY(benchmark.stages().at(1).nanoseconds >= 0);
}

void TestCore::textsForOtherThreadsAreKept()
{
    const QTemporaryDir profile;
    Core core(profile.path());
    core.setAuthorityFile(QStringLiteral("/a.pem"));
    core.setNewsServerReply(QStringLiteral("481 no"));
    QCOMPARE(core.authorityFile(), QStringLiteral("/a.pem"));
    QCOMPARE(core.newsServerReply(), QStringLiteral("481 no"));
    QCOMPARE(core.providerName(), QStringLiteral("provider"));
    core.setProviderName(QStringLiteral("pinegate"));
    QCOMPARE(core.providerName(), QStringLiteral("pinegate"));
}

QTEST_MAIN(TestCore)
#include "tst_core.moc"
