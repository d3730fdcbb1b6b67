// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"
#include "panels/cvinfotoolwidget.h"
#include "panels/cvinfotoolwidget_p.h"

#include <halvora/connector.h>
#include <halvora/core.h>
#include <halvora/hpixmaps.h>
#include <halvora/hserver.h>
#include <halvora/linkopener.h>
#include <halvora/mainwindow.h>
#include <halvora/statsplugin.h>
#include <halvora/stringformat.h>
#include <halvora/trafficmeter.h>

#include <QAction>
#include <QApplication>
#include <QDomDocument>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <algorithm>

namespace {

CVAccountStatus record(const QString &plan, const QString &nntp,
                       const QString &supported = QStringLiteral("true"))
{
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("status"));
    root.setAttribute(QStringLiteral("supported"), supported);
    QDomElement planElement = document.createElement(QStringLiteral("plan"));
    planElement.setAttribute(QStringLiteral("name"), plan);
    root.appendChild(planElement);
    QDomDocument values;
    values.setContent(QStringLiteral("<nntp %1/>").arg(nntp));
    root.appendChild(document.importNode(values.documentElement(), true));
    CVAccountStatus status;
    status.parse(root);
    return status;
}

CVAccountStatus filledRecord()
{
    return record(
        QStringLiteral("Unlimited"),
        QStringLiteral(
            "max-connections='20' billing-bytes='2048' mtd-bytes='1024' usage-updated-timestamp='1'"));
}

QString bytes(qint64 count)
{
    return StringFormat::byteCount(count, StringFormat::ByteFormatDefault, StringFormat::BinaryNotation, -1);
}

} // namespace

class TestCVInfoToolWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theDockCanBeMovedAndFloatedButNotClosed();
    void theContentIsAsHighAsPanelsAre();
    void everyPartHasItsText();
    void beforeAnyRecordTheEmptyPageShows();
    void anUnsupportedEmptyRecordShowsTheLoginPage();
    void aSupportedEmptyRecordShowsTheEmptyPage();
    void aFilledRecordShowsTheAccountPage();
    void withoutAnAccountTheEmptyPageShows();
    void theLimitIsAPlainDecimalNumber();
    void aRecordWithoutAPlanNameNeverShowsTheAccountPage_data();
    void aRecordWithoutAPlanNameNeverShowsTheAccountPage();
    void negativeCountsAreHidden_data();
    void negativeCountsAreHidden();
    void aHiddenCountComesBack();
    void anAbsentCountIsShownAsZero();
    void theControlPanelRowShowsOnlyWithoutALinkOfTheHost();
    void onlyTheLoginPageNotesTheTime();
    void theUsageTimerRunsFromTheStart();
    void theUsageTimerRunsAndDoesNothingOnTheLoginPage();
    void theUsageTimerBringsTheCountsUpToDate();
    void localTrafficIsAddedToTheCounts();
    void onlyTrafficAfterTheServicesCountIsAdded();
    void todaysAndThisMonthsTrafficFollowTheStatistics();
    void todayAndThisMonthAreToldApart();
    void everyRecordRefreshesTheTexts();
    void withoutStatisticsTheTrafficPartsDoNotExist();
    void withoutStatisticsTheCountsAreTheServices();
    void theControlPanelLinkOpensTheHostsAddress();
    void theStatsLinkShowsTheStatistics();
    void otherLinksAreIgnored();
    void aLanguageChangeAppliesTheTextsAgain();
    void markupFromTheServiceIsShownAsText();
    void slotsAreKnownByTheirNames();
    void theTrafficStandsInFiveColumns();
    void theLoginPageStandsFromTheUserToTheLinks();
    void theLoginPageWithoutStatisticsHoldsUserAndControlPanel();
    void theAccountPageIsAFormInTheMiddle();
    void theIconsAreTheirs();

private:
    template <typename T> T *find(const char *name) const
    {
        return m_panel->findChild<T *>(QLatin1String(name));
    }
    QString text(const char *name) const { return find<QLabel>(name)->text(); }
    QStackedWidget *pages() const { return m_panel->findChild<QStackedWidget *>(); }
    int page() const { return pages()->currentIndex(); }
    void makePanel(StatsPlugin *stats);
    void setControlPanel(const QString &url);

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<StatsPlugin> m_stats;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
    std::unique_ptr<CVInfoToolWidget> m_panel;
};

void TestCVInfoToolWidget::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
    m_plugin->connector()->setAccount(QStringLiteral("alice"), QStringLiteral("secret"));
    m_stats = std::make_unique<StatsPlugin>(m_core.get(), QStringLiteral("test"));
    makePanel(m_stats.get());
}

void TestCVInfoToolWidget::cleanup()
{
    m_panel.reset();
    m_plugin.reset();
    m_stats.reset();
    m_core.reset();
}

void TestCVInfoToolWidget::makePanel(StatsPlugin *stats)
{
    m_panel = std::make_unique<CVInfoToolWidget>(nullptr, m_plugin.get(), stats);
    m_panel->show();
}

void TestCVInfoToolWidget::setControlPanel(const QString &url)
{
    m_core->setUrls({{QStringLiteral("control.panel"), UrlInfo(QUrl(url))}});
}

void TestCVInfoToolWidget::theDockCanBeMovedAndFloatedButNotClosed()
{
    QCOMPARE(m_panel->objectName(), QStringLiteral("InfoToolWidget"));
    QCOMPARE(m_panel->features(), QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    QCOMPARE(m_panel->toggleViewAction()->text(), QStringLiteral("Your Account")); // events go on to the base
}

void TestCVInfoToolWidget::theContentIsAsHighAsPanelsAre()
{
    const QWidget *content = m_panel->widget();
    QCOMPARE(content->metaObject()->className(), "CVInfoToolCustomWidget");
    QCOMPARE(content->sizeHint(), QSize(150, hDockWidgetHeight()));
    QCOMPARE(content->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(content->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
}

void TestCVInfoToolWidget::everyPartHasItsText()
{
    QCOMPARE(m_panel->windowTitle(), QStringLiteral("Your Account"));
    QCOMPARE(text("todayCaption"), QStringLiteral("Today"));
    QCOMPARE(text("monthCaption"), QStringLiteral("This Month"));
    QCOMPARE(text("statsLink"), QStringLiteral("<a href='#stats'>Traffic Stats</a>"));
    QCOMPARE(text("billingCaption"), QStringLiteral("Used bytes (billing cycle):"));
    QCOMPARE(text("mtdCaption"), QStringLiteral("Used bytes (this month):"));
    QCOMPARE(text("connectionsCaption"), QStringLiteral("Max connections:"));
    QCOMPARE(text("planCaption"), QStringLiteral("Plan:"));
    QCOMPARE(text("controlPanelLink"), QStringLiteral("<a href='#cp'>Control Panel</a>"));
    QCOMPARE(text("user"), QStringLiteral("Logged in as: alice"));
}

void TestCVInfoToolWidget::beforeAnyRecordTheEmptyPageShows()
{
    QCOMPARE(page(), 0);
}

void TestCVInfoToolWidget::anUnsupportedEmptyRecordShowsTheLoginPage()
{
    m_plugin->connector()->setAccount(QStringLiteral("bob"), QStringLiteral("secret"));
    m_panel->updateAccountStatus(CVAccountStatus());
    QCOMPARE(page(), 1);
    QCOMPARE(text("user"), QStringLiteral("Logged in as: bob"));
}

void TestCVInfoToolWidget::aSupportedEmptyRecordShowsTheEmptyPage()
{
    m_panel->updateAccountStatus(CVAccountStatus());
    m_panel->updateAccountStatus(record(QString(), QString()));
    QCOMPARE(page(), 0);
}

void TestCVInfoToolWidget::aFilledRecordShowsTheAccountPage()
{
    m_panel->updateAccountStatus(filledRecord());
    QCOMPARE(page(), 2);
    QCOMPARE(text("connections"), QStringLiteral("20"));
    QCOMPARE(text("plan"), QStringLiteral("Unlimited"));
    QCOMPARE(text("billing"), bytes(2048));
    QCOMPARE(text("mtd"), bytes(1024));
}

void TestCVInfoToolWidget::withoutAnAccountTheEmptyPageShows()
{
    m_panel->updateAccountStatus(CVAccountStatus()); // notes the time
    m_panel->updateAccountStatus(filledRecord());
    m_panel->showNoAccount();
    QCOMPARE(page(), 0);
    for (const char *value : {"billing", "mtd", "connections", "plan"})
        QCOMPARE(text(value), QString());
    m_panel->updateUsage();
    QCOMPARE(text("billing"), QString());
    m_panel->updateAccountStatus(filledRecord());
    QCOMPARE(page(), 2);
}

void TestCVInfoToolWidget::theLimitIsAPlainDecimalNumber()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    m_panel->updateAccountStatus(
        record(QStringLiteral("Demo"), QStringLiteral("max-connections='1500' billing-bytes='1'")));
    QLocale::setDefault(before);
    QCOMPARE(text("connections"), QStringLiteral("1500"));
}

void TestCVInfoToolWidget::aRecordWithoutAPlanNameNeverShowsTheAccountPage_data()
{
    QTest::addColumn<QString>("supported");
    QTest::addColumn<int>("page");
    QTest::newRow("supported") << QStringLiteral("true") << 0;
    QTest::newRow("not supported") << QStringLiteral("false") << 1;
}

void TestCVInfoToolWidget::aRecordWithoutAPlanNameNeverShowsTheAccountPage()
{
    QFETCH(QString, supported);
    m_panel->updateAccountStatus(record(
        QString(), QStringLiteral("max-connections='20' billing-bytes='2048' mtd-bytes='1024'"), supported));
    QTEST(page(), "page");
}

void TestCVInfoToolWidget::negativeCountsAreHidden_data()
{
    QTest::addColumn<qint64>("billing");
    QTest::addColumn<qint64>("month");
    QTest::newRow("billing cycle") << qint64(-1) << qint64(5000);
    QTest::newRow("month") << qint64(5000) << qint64(-1);
    QTest::newRow("none") << qint64(0) << qint64(5000);
}

void TestCVInfoToolWidget::negativeCountsAreHidden()
{
    QFETCH(qint64, billing);
    QFETCH(qint64, month);
    m_panel->updateAccountStatus(filledRecord()); // which leaves texts to be cleared
    m_panel->updateAccountStatus(record(
        QStringLiteral("Demo"),
        QStringLiteral("max-connections='1' billing-bytes='%1' mtd-bytes='%2'").arg(billing).arg(month)));
    QCOMPARE(find<QLabel>("billing")->isVisible(), billing >= 0);
    QCOMPARE(find<QLabel>("billingCaption")->isVisible(), billing >= 0);
    QCOMPARE(text("billing"), billing < 0 ? QString() : bytes(billing));
    QCOMPARE(find<QLabel>("mtd")->isVisible(), month >= 0);
    QCOMPARE(find<QLabel>("mtdCaption")->isVisible(), month >= 0);
    QCOMPARE(text("mtd"), month < 0 ? QString() : bytes(month));
}

void TestCVInfoToolWidget::aHiddenCountComesBack()
{
    m_panel->updateAccountStatus(record(
        QStringLiteral("Demo"), QStringLiteral("max-connections='1' billing-bytes='x' mtd-bytes='1'")));
    QVERIFY(!find<QLabel>("billing")->isVisible());
    m_panel->updateAccountStatus(filledRecord());
    QVERIFY(find<QLabel>("billing")->isVisible());
    QVERIFY(find<QLabel>("billingCaption")->isVisible());
}

void TestCVInfoToolWidget::anAbsentCountIsShownAsZero()
{
    m_panel->updateAccountStatus(
        record(QStringLiteral("Demo"), QStringLiteral("max-connections='1' mtd-bytes='1'")));
    QVERIFY(find<QLabel>("billing")->isVisible());
    QCOMPARE(text("billing"), bytes(0));
}

void TestCVInfoToolWidget::theControlPanelRowShowsOnlyWithoutALinkOfTheHost()
{
    QVERIFY(find<QWidget>("controlPanelRow")->isHidden());
    m_panel->updateAccountStatus(CVAccountStatus());
    QVERIFY(find<QWidget>("controlPanelRow")->isVisible());
    setControlPanel(QStringLiteral("https://my.corvia.example/"));
    m_panel->updateAccountStatus(CVAccountStatus());
    QVERIFY(!find<QWidget>("controlPanelRow")->isVisible());
}

void TestCVInfoToolWidget::onlyTheLoginPageNotesTheTime()
{
    CVInfoToolWidgetPrivate state(m_panel.get(), m_plugin.get(), m_stats.get());
    state.build();
    QVERIFY(state.lastLogin.isNull());
    for (const CVAccountStatus &status : {filledRecord(), record(QString(), QString())}) {
        state.status = status;
        state.showRecord();
        QVERIFY(state.lastLogin.isNull());
    }
    state.status = CVAccountStatus();
    const QDateTime early(QDate(2001, 2, 3), QTime(4, 5));
    state.lastLogin = early;
    state.showRecord();
    QVERIFY(state.lastLogin.isValid());
    QVERIFY(state.lastLogin != early);
}

void TestCVInfoToolWidget::theUsageTimerRunsFromTheStart()
{
    const auto *timer = m_panel->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 10000);
}

void TestCVInfoToolWidget::theUsageTimerRunsAndDoesNothingOnTheLoginPage()
{
    m_panel->updateAccountStatus(filledRecord());
    m_panel->updateAccountStatus(CVAccountStatus());
    QCOMPARE(page(), 1);
    const auto *timer = m_panel->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer->isActive());
    QVERIFY(!timer->isSingleShot());
    QCOMPARE(timer->interval(), 10000);
    m_core->traffic().addNntpDown(1 << 20);
    m_stats->poll();
    m_panel->updateUsage();
    QCOMPARE(text("billing"), bytes(2048));
    QCOMPARE(text("mtd"), bytes(1024));
}

void TestCVInfoToolWidget::theUsageTimerBringsTheCountsUpToDate()
{
    m_panel->updateAccountStatus(filledRecord());
    m_core->traffic().addNntpDown(4096);
    m_stats->poll();
    m_panel->findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly)->setInterval(1);
    QTRY_COMPARE(text("billing"), bytes(2048 + 4096));
}

void TestCVInfoToolWidget::localTrafficIsAddedToTheCounts()
{
    m_panel->updateAccountStatus(filledRecord());
    m_core->traffic().addNntpDown(4096);
    m_stats->poll();
    QCOMPARE(text("billing"), bytes(2048));
    m_panel->updateUsage();
    QCOMPARE(text("billing"), bytes(2048 + 4096));
    QCOMPARE(text("mtd"), bytes(1024 + 4096));
}

void TestCVInfoToolWidget::onlyTrafficAfterTheServicesCountIsAdded()
{
    qint64 now = QDateTime(QDate(2026, 11, 20), QTime(12, 0)).toMSecsSinceEpoch();
    const qint64 counted = now + 1000;
    m_stats->setClock([&now] { return now; });
    m_core->traffic().addNntpDown(512);
    m_stats->poll();
    now = counted + 1000;
    m_core->traffic().addNntpDown(4096);
    m_stats->poll();
    m_panel->updateAccountStatus(
        record(QStringLiteral("Demo"),
               QStringLiteral(
                   "max-connections='1' billing-bytes='2048' mtd-bytes='1024' usage-updated-timestamp='%1'")
                   .arg(counted)));
    QCOMPARE(text("billing"), bytes(2048 + 4096));
    QCOMPARE(text("mtd"), bytes(1024 + 4096));
    m_stats->setClock({});
}

void TestCVInfoToolWidget::todaysAndThisMonthsTrafficFollowTheStatistics()
{
    QCOMPARE(text("today"), bytes(0));
    m_core->traffic().addNntpDown(3000);
    m_stats->poll();
    QCOMPARE(text("today"), bytes(3000));
    QCOMPARE(text("month"), bytes(3000));
}

void TestCVInfoToolWidget::todayAndThisMonthAreToldApart()
{
    qint64 now = QDateTime(QDate(2026, 11, 19), QTime(12, 0)).toMSecsSinceEpoch();
    m_stats->setClock([&now] { return now; });
    m_core->traffic().addNntpDown(2000);
    m_stats->poll();
    now = QDateTime(QDate(2026, 11, 20), QTime(12, 0)).toMSecsSinceEpoch();
    m_core->traffic().addNntpDown(500);
    m_stats->poll();
    QCOMPARE(text("today"), bytes(500));
    QCOMPARE(text("month"), bytes(2500));
    m_stats->setClock({});
}

void TestCVInfoToolWidget::everyRecordRefreshesTheTexts()
{
    m_plugin->connector()->setAccount(QStringLiteral("bob"), QStringLiteral("secret"));
    for (const char *name : {"today", "month", "planCaption"})
        find<QLabel>(name)->setText(QStringLiteral("x"));
    m_panel->updateAccountStatus(filledRecord());
    QCOMPARE(text("user"), QStringLiteral("Logged in as: bob"));
    QCOMPARE(text("today"), bytes(0));
    QCOMPARE(text("month"), bytes(0));
    QCOMPARE(text("planCaption"), QStringLiteral("Plan:"));
}

void TestCVInfoToolWidget::withoutStatisticsTheTrafficPartsDoNotExist()
{
    makePanel(nullptr);
    for (const char *name : {"todayCaption", "today", "monthCaption", "month", "statsLink"})
        QVERIFY2(!find<QLabel>(name), name);
    QVERIFY(find<QLabel>("user"));
    QVERIFY(find<QWidget>("controlPanelRow"));
    m_panel->quickStatsUpdated();
    m_panel->linkActivated(QStringLiteral("#stats"));
}

void TestCVInfoToolWidget::withoutStatisticsTheCountsAreTheServices()
{
    makePanel(nullptr);
    m_panel->updateAccountStatus(filledRecord());
    m_core->traffic().addNntpDown(4096);
    m_panel->updateUsage();
    QCOMPARE(text("billing"), bytes(2048));
    QCOMPARE(text("mtd"), bytes(1024));
}

void TestCVInfoToolWidget::theControlPanelLinkOpensTheHostsAddress()
{
    QList<QUrl> opened;
    m_core->links().setOpener([&opened](const QUrl &url) {
        opened.append(url);
        return true;
    });
    m_panel->linkActivated(QStringLiteral("#cp"));
    QVERIFY(opened.isEmpty());
    setControlPanel(QStringLiteral("https://my.corvia.example/"));
    Q_EMIT find<QLabel>("controlPanelLink")->linkActivated(QStringLiteral("#cp"));
    QCOMPARE(opened, QList<QUrl>{QUrl(QStringLiteral("https://my.corvia.example/"))});
}

void TestCVInfoToolWidget::theStatsLinkShowsTheStatistics()
{
    const int before = QApplication::topLevelWidgets().size();
    Q_EMIT find<QLabel>("statsLink")->linkActivated(QStringLiteral("#stats"));
    QVERIFY(QApplication::topLevelWidgets().size() > before);
}

void TestCVInfoToolWidget::otherLinksAreIgnored()
{
    const int before = QApplication::topLevelWidgets().size();
    for (const char *link : {"", "#", "#CP", "#stats ", "https://my.corvia.example/"})
        m_panel->linkActivated(QLatin1String(link));
    QCOMPARE(QApplication::topLevelWidgets().size(), before);
}

void TestCVInfoToolWidget::aLanguageChangeAppliesTheTextsAgain()
{
    m_panel->setWindowTitle(QStringLiteral("x"));
    find<QLabel>("planCaption")->setText(QStringLiteral("x"));
    find<QLabel>("user")->setText(QStringLiteral("x"));
    QEvent event(QEvent::LanguageChange);
    QCoreApplication::sendEvent(m_panel.get(), &event);
    everyPartHasItsText();
}

void TestCVInfoToolWidget::markupFromTheServiceIsShownAsText()
{
    const QString markup = QStringLiteral("<img src=file:/etc/passwd><table><tr><td>");
    m_panel->updateAccountStatus(record(markup, QStringLiteral("max-connections='1' billing-bytes='1'")));
    QCOMPARE(text("plan"), markup);
    const QList<QLabel *> labels = m_panel->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const bool isLink = label->objectName().endsWith(QLatin1String("Link"));
        if (!label->objectName().isEmpty() && !label->objectName().startsWith(QLatin1String("qt_")))
            QCOMPARE(label->textFormat(), isLink ? Qt::RichText : Qt::PlainText);
    }
}

void TestCVInfoToolWidget::slotsAreKnownByTheirNames()
{
    const QMetaObject *meta = m_panel->metaObject();
    QStringList names;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i)
        names.append(QString::fromLatin1(meta->method(i).methodSignature()));
    const QStringList expected{QStringLiteral("updateAccountStatus(CVAccountStatus)"),
                               QStringLiteral("updateUsage()"), QStringLiteral("quickStatsUpdated()"),
                               QStringLiteral("linkActivated(QString)")};
    QCOMPARE(names, expected);
    qRegisterMetaType<CVAccountStatus>("CVAccountStatus");
    QVERIFY(QMetaObject::invokeMethod(m_panel.get(), "updateAccountStatus", Qt::DirectConnection,
                                      Q_ARG(CVAccountStatus, filledRecord())));
    QCOMPARE(page(), 2);
}

void TestCVInfoToolWidget::theTrafficStandsInFiveColumns()
{
    QGridLayout *grid = nullptr;
    const QList<QGridLayout *> grids = m_panel->findChildren<QGridLayout *>();
    for (QGridLayout *candidate : grids) {
        if (candidate->indexOf(find<QLabel>("today")) >= 0)
            grid = candidate;
    }
    QVERIFY(grid);
    QCOMPARE(grid->spacing(), 6);
    QCOMPARE(grid->columnMinimumWidth(1), 10);
    QCOMPARE(grid->columnMinimumWidth(3), 5);
    QCOMPARE(grid->itemAtPosition(0, 2)->widget(), find<QLabel>("todayCaption"));
    QCOMPARE(grid->itemAtPosition(0, 4)->widget(), find<QLabel>("monthCaption"));
    QCOMPARE(grid->itemAtPosition(1, 2)->widget(), find<QLabel>("today"));
    QCOMPARE(grid->itemAtPosition(1, 4)->widget(), find<QLabel>("month"));
    QCOMPARE(grid->itemAtPosition(0, 0), grid->itemAtPosition(1, 0));
    QCOMPARE(grid->itemAtPosition(0, 0)->alignment(), Qt::AlignHCenter | Qt::AlignTop | Qt::AlignVCenter);
    const auto *form = m_panel->findChild<QFormLayout *>();
    QCOMPARE(form->spacing(), 4);
    QCOMPARE(form->labelAlignment(), Qt::AlignRight);
    QCOMPARE(form->rowCount(), 4);
}

void TestCVInfoToolWidget::theLoginPageStandsFromTheUserToTheLinks()
{
    const auto *layout = qobject_cast<QVBoxLayout *>(pages()->widget(1)->layout());
    QCOMPARE(layout->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(layout->count(), 5);
    QCOMPARE(layout->itemAt(0)->widget(), find<QLabel>("user"));
    QVERIFY(layout->itemAt(1)->spacerItem());
    QVERIFY(layout->itemAt(3)->spacerItem());

    const QLayout *traffic = layout->itemAt(2)->layout();
    QCOMPARE(traffic->count(), 3);
    QVERIFY(traffic->itemAt(0)->spacerItem());
    QVERIFY(traffic->itemAt(1)->layout()->indexOf(find<QLabel>("today")) >= 0);
    QVERIFY(traffic->itemAt(2)->spacerItem());

    const QLayout *links = layout->itemAt(4)->layout();
    QCOMPARE(links->count(), 3);
    QCOMPARE(links->itemAt(0)->widget(), find<QWidget>("controlPanelRow"));
    QCOMPARE(find<QWidget>("controlPanelRow")->layout()->itemAt(1)->widget(),
             find<QLabel>("controlPanelLink"));
    QVERIFY(links->itemAt(1)->spacerItem());
    QCOMPARE(links->itemAt(2)->widget()->layout()->itemAt(1)->widget(), find<QLabel>("statsLink"));
}

void TestCVInfoToolWidget::theLoginPageWithoutStatisticsHoldsUserAndControlPanel()
{
    makePanel(nullptr);
    const QLayout *layout = pages()->widget(1)->layout();
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), find<QLabel>("user"));
    QVERIFY(layout->itemAt(1)->spacerItem());
    const QLayout *links = layout->itemAt(2)->layout();
    QCOMPARE(links->count(), 2);
    QCOMPARE(links->itemAt(0)->widget(), find<QWidget>("controlPanelRow"));
}

void TestCVInfoToolWidget::theAccountPageIsAFormInTheMiddle()
{
    const auto *form = m_panel->findChild<QFormLayout *>();
    int row = 0;
    for (const char *name : {"billing", "mtd", "connections", "plan"}) {
        const QLabel *value = find<QLabel>(name);
        const QLabel *caption = find<QLabel>(qPrintable(QLatin1String(name) + QStringLiteral("Caption")));
        QCOMPARE(form->itemAt(row, QFormLayout::LabelRole)->widget(), caption);
        QCOMPARE(form->itemAt(row, QFormLayout::FieldRole)->widget(), value);
        ++row;
    }
    const auto *layout = qobject_cast<QVBoxLayout *>(pages()->widget(2)->layout());
    QCOMPARE(layout->count(), 2);
    QVERIFY(layout->itemAt(1)->spacerItem());
    const QLayout *centred = layout->itemAt(0)->layout();
    QCOMPARE(centred->count(), 3);
    QVERIFY(centred->itemAt(0)->spacerItem());
    QCOMPARE(centred->itemAt(1)->layout(), form);
    QVERIFY(centred->itemAt(2)->spacerItem());
    QCOMPARE(pages()->count(), 3);
    QVERIFY(pages()->widget(0)->children().isEmpty());
}

void TestCVInfoToolWidget::theIconsAreTheirs()
{
    const auto hasIcon = [](const QWidget *widget, const char *path, int size) {
        const QImage expected = hSvgPixmap(QLatin1String(path), size).toImage();
        const QList<QLabel *> labels = widget->findChildren<QLabel *>();
        return !expected.isNull() &&
               std::any_of(labels.begin(), labels.end(), [&expected](const QLabel *label) {
                   return label->pixmap(Qt::ReturnByValue).toImage() == expected;
               });
    };
    QVERIFY(hasIcon(pages()->widget(1), ":/svg/gauge.svg", 32));
    QVERIFY(hasIcon(find<QWidget>("controlPanelRow"), ":/svg/lock.svg", 16));
    QVERIFY(hasIcon(find<QLabel>("statsLink")->parentWidget(), ":/svg/chart_area.svg", 16));
}

QTEST_MAIN(TestCVInfoToolWidget)
#include "tst_cvinfotoolwidget.moc"
