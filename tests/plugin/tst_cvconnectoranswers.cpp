// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"

#include <halvora/benchmark.h>
#include <halvora/core.h>
#include <halvora/haboutdialog.h>
#include <halvora/hpixmaps.h>
#include <halvora/hstorageid.h>
#include <halvora/linkopener.h>
#include <halvora/mainwindow.h>

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

#include <algorithm>

namespace {

/// Another provider's link scheme, to see who is asked.
class OtherScheme final : public CVConnectorPlugin {
public:
    using CVConnectorPlugin::CVConnectorPlugin;
    QString urlScheme() const override { return QStringLiteral("other"); }
};

/// Keeps what it is to open.
class KeepingPlugin final : public CVConnectorPlugin {
public:
    using CVConnectorPlugin::CVConnectorPlugin;
    QStringList links;
    void openUrl(const UrlInfo &url) override { links.append(url.url().toString()); }
};

/// Puts a text of its own where "About" stands in the class's context.
class AboutTranslator final : public QTranslator {
public:
    QString translate(const char *context, const char *sourceText, const char *, int) const override
    {
        const bool wanted = qstrcmp(context, "CVConnectorPlugin") == 0 && qstrcmp(sourceText, "About") == 0;
        return wanted ? QStringLiteral("Über") : QString();
    }
    bool isEmpty() const override { return false; }
};

bool showsTheProgramsPicture(const QWidget &dialog)
{
    const QPixmap expected = hRetinaPixmap3(QStringLiteral(":/app/icon/%1x%1.png"), 128, true);
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    return !expected.isNull() && std::any_of(labels.begin(), labels.end(), [&expected](const QLabel *label) {
        return label->pixmap(Qt::ReturnByValue).toImage() == expected.toImage();
    });
}

} // namespace

class TestCVConnectorAnswers : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void textsNameProgramAndProduct();
    void yesAndNoAreFalseTrueFalse();
    void defaultsAreTheHosts();
    void initShowsTheErrorReport();
    void theBannerComesFromTheDrawing();
    void aDetailsLinkNamesTheFileGroup_data();
    void aDetailsLinkNamesTheFileGroup();
    void aDetailsLinkAsksForTheSchemeVirtually();
    void theAboutActionHasNoTextBeforeTheFirstTranslation();
    void theAboutTextIsTranslatedInItsContext();
    void aboutTwiceShowsTheSameDialogAndAfterClosingANewOne();
    void theControlPanelOpensOnlyWhenTheHostKnowsIt();
    void theControlPanelIsOpenedByWhoeverOpensLinks();

private:
    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
};

void TestCVConnectorAnswers::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
}

void TestCVConnectorAnswers::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_core->setProviderName(QStringLiteral("pinegate"));
    m_window = std::make_unique<MainWindow>(m_core.get());
    m_core->setMainWindow(m_window.get());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
}

void TestCVConnectorAnswers::cleanup()
{
    m_window.reset();
    m_plugin.reset();
    m_core.reset();
}

void TestCVConnectorAnswers::textsNameProgramAndProduct()
{
    QCOMPARE(m_plugin->statsConfigName(), m_plugin->configName());
    QCOMPARE(m_plugin->displayName(), QStringLiteral("Halvora"));
    QCOMPARE(m_plugin->platformDisplayName(), QStringLiteral("Halvora x64"));
    QCOMPARE(m_plugin->productName(), QStringLiteral("pinegate"));
    QCOMPARE(m_plugin->productTag(), QStringLiteral("PG"));
    QCOMPARE(m_plugin->emptyText(), QString());
    QCOMPARE(m_plugin->urlScheme(), QStringLiteral("pinegate"));
    QVERIFY(m_plugin->addressFlag());
}

void TestCVConnectorAnswers::yesAndNoAreFalseTrueFalse()
{
    QCOMPARE(m_plugin->isPreviewSupported(), false);
    QCOMPARE(m_plugin->isAccountRequired(), true);
    QCOMPARE(m_plugin->isTrialSupported(), false);
}

void TestCVConnectorAnswers::defaultsAreTheHosts()
{
    QVERIFY(!m_plugin->providesNntpProfiles());
    QVERIFY(!m_plugin->providesBookmarkManager());
    QVERIFY(!m_plugin->handlesFile(QStringLiteral("a.nzb")));
    QVERIFY(!m_plugin->isAnonymousLoginSupported());
    QVERIFY(m_plugin->isSearchAllowed());
    QCOMPARE(m_plugin->statusAction(), nullptr);
}

void TestCVConnectorAnswers::initShowsTheErrorReport()
{
    QVERIFY(!m_core->isErrorReportVisible());
    Benchmark benchmark;
    m_plugin->init(benchmark);
    QVERIFY(m_core->isErrorReportVisible());
}

void TestCVConnectorAnswers::theBannerComesFromTheDrawing()
{
    QVERIFY(QFile::exists(QStringLiteral(":/corvia/images/login.svg")));
    const QPixmap banner = m_plugin->loginPixmap();
    QCOMPARE(banner.size() / banner.devicePixelRatio(), QSize(450, 100));
}

void TestCVConnectorAnswers::aDetailsLinkNamesTheFileGroup_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("abc") << QStringLiteral("abc");
    QTest::newRow("empty") << QString();
    QTest::newRow("placeholders") << QStringLiteral("%1%2");
}

void TestCVConnectorAnswers::aDetailsLinkNamesTheFileGroup()
{
    QFETCH(QString, id);
    QCOMPARE(m_plugin->detailsUrl(HStorageId(id)), QStringLiteral("pinegate://details?filegroup=") + id);
}

void TestCVConnectorAnswers::aDetailsLinkAsksForTheSchemeVirtually()
{
    const OtherScheme other(m_core.get());
    QCOMPARE(other.detailsUrl(HStorageId(QStringLiteral("abc"))),
             QStringLiteral("other://details?filegroup=abc"));
}

void TestCVConnectorAnswers::theAboutActionHasNoTextBeforeTheFirstTranslation()
{
    QVERIFY(m_plugin->aboutAction()->text().isEmpty());
    m_plugin->retranslateUi();
    QCOMPARE(m_plugin->aboutAction()->text(), QStringLiteral("About"));
}

void TestCVConnectorAnswers::theAboutTextIsTranslatedInItsContext()
{
    AboutTranslator translator;
    QCoreApplication::installTranslator(&translator);
    m_plugin->retranslateUi();
    QCOMPARE(m_plugin->aboutAction()->text(), QStringLiteral("Über"));
    QCoreApplication::removeTranslator(&translator);
}

void TestCVConnectorAnswers::aboutTwiceShowsTheSameDialogAndAfterClosingANewOne()
{
    m_plugin->aboutAction()->trigger();
    const QPointer<HAboutDialog> first = m_window->findChild<HAboutDialog *>();
    QVERIFY(first);
    QVERIFY(first->isVisible());
    QVERIFY(first->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(showsTheProgramsPicture(*first));
    first->hide();
    m_plugin->aboutAction()->trigger();
    QCOMPARE(m_window->findChildren<HAboutDialog *>().size(), 1);
    QVERIFY(first->isVisible());

    first->close();
    QTRY_VERIFY(!first);
    m_plugin->showAboutDialog();
    QVERIFY(m_window->findChild<HAboutDialog *>()->isVisible());
}

void TestCVConnectorAnswers::theControlPanelOpensOnlyWhenTheHostKnowsIt()
{
    QStringList opened;
    m_core->links().setOpener([&opened](const QUrl &url) {
        opened.append(url.toString());
        return true;
    });
    m_plugin->showControlPanel();
    QVERIFY(opened.isEmpty());
    m_core->setUrls(
        {{QStringLiteral("control.panel"), UrlInfo(QUrl(QStringLiteral("https://my.corvia.example/")))}});
    m_plugin->showControlPanel();
    QCOMPARE(opened, QStringList{QStringLiteral("https://my.corvia.example/")});
}

void TestCVConnectorAnswers::theControlPanelIsOpenedByWhoeverOpensLinks()
{
    KeepingPlugin plugin(m_core.get());
    plugin.showControlPanel();
    QVERIFY(plugin.links.isEmpty());
    m_core->setUrls(
        {{QStringLiteral("control.panel"), UrlInfo(QUrl(QStringLiteral("https://my.corvia.example/")))}});
    plugin.showControlPanel();
    QCOMPARE(plugin.links, QStringList{QStringLiteral("https://my.corvia.example/")});
}

QTEST_MAIN(TestCVConnectorAnswers)
#include "tst_cvconnectoranswers.moc"
