// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "connector/cvconnectorplugin.h"
#include "plugin/constants.h"

#include <halvora/benchmark.h>
#include <halvora/core.h>
#include <halvora/pluginmanager.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>

#include <QSignalSpy>
#include <QSqlDatabase>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

class TestBookmarkRegistration : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void nothingIsThereBeforeTheConnectorIsInitialised();
    void theConnectorOwnsTheStoreAndTellsTheProgramOfIt();
    void theErrorReportIsShownOnceTheStoreIsKnown();
    void theStoreLoadsInTheNextTurnOfTheEventLoop();
    void theStoreGoesWithTheConnector();
    void clearingThroughTheRegistryReachesTheStore();

private:
    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
};

void TestBookmarkRegistration::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
}

void TestBookmarkRegistration::cleanup()
{
    m_plugin.reset();
    m_core.reset();
}

void TestBookmarkRegistration::nothingIsThereBeforeTheConnectorIsInitialised()
{
    QVERIFY(!m_core->plugin()->bookmarkProvider());
    QVERIFY(m_core->privateData()->parts().isEmpty());
    QVERIFY(m_core->settingsRegistry()->parts().isEmpty());
    QVERIFY(!QSqlDatabase::contains(constants::bookmarkManagerName));
    QVERIFY(!m_core->isErrorReportVisible());
}

void TestBookmarkRegistration::theConnectorOwnsTheStoreAndTellsTheProgramOfIt()
{
    Benchmark benchmark;
    m_plugin->init(benchmark);
    BookmarkProvider *provider = m_core->plugin()->bookmarkProvider();
    QVERIFY(qobject_cast<CVBookmarkProvider *>(provider));
    auto *model = qobject_cast<CVBookmarkManager *>(provider->parent());
    QVERIFY(model);
    QCOMPARE(static_cast<QObject *>(model)->parent(), static_cast<QObject *>(m_plugin.get()));
    QCOMPARE(m_core->privateData()->parts(), QList<IPrivateData *>{model});
    QCOMPARE(m_core->settingsRegistry()->parts(), QList<ISettings *>{model});
    QVERIFY(m_core->isErrorReportVisible());
}

void TestBookmarkRegistration::theErrorReportIsShownOnceTheStoreIsKnown()
{
    bool provider = false;
    bool privateData = false;
    connect(m_core.get(), &Core::errorReportVisibleChanged, this, [&] {
        provider = m_core->plugin()->bookmarkProvider() != nullptr;
        privateData = !m_core->privateData()->parts().isEmpty();
    });
    Benchmark benchmark;
    m_plugin->init(benchmark);
    QVERIFY(provider);
    QVERIFY(privateData);
}

void TestBookmarkRegistration::theStoreLoadsInTheNextTurnOfTheEventLoop()
{
    Benchmark benchmark;
    m_plugin->init(benchmark);
    QSignalSpy changed(m_core->plugin()->bookmarkProvider(), &BookmarkProvider::bookmarksChanged);
    QCOMPARE(changed.count(), 0);
    QTRY_COMPARE(changed.count(), 1);
}

void TestBookmarkRegistration::theStoreGoesWithTheConnector()
{
    Benchmark benchmark;
    m_plugin->init(benchmark);
    m_plugin.reset();
    QVERIFY(!m_core->plugin()->bookmarkProvider());
    QVERIFY(m_core->privateData()->parts().isEmpty());
    QVERIFY(m_core->settingsRegistry()->parts().isEmpty());
    QVERIFY(!QSqlDatabase::contains(constants::bookmarkManagerName));
}

void TestBookmarkRegistration::clearingThroughTheRegistryReachesTheStore()
{
    Benchmark benchmark;
    m_plugin->init(benchmark);
    auto *model = qobject_cast<CVBookmarkManager *>(m_core->plugin()->bookmarkProvider()->parent());
    model->addFolder(QModelIndex());
    QCOMPARE(model->rowCount(), 1);
    m_core->privateData()->parts().first()->clearPrivateData();
    QCOMPARE(model->rowCount(), 0);
}

QTEST_MAIN(TestBookmarkRegistration)
#include "tst_bookmarkregistration.moc"
