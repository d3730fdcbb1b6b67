// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"

#include <halvora/configuration.h>
#include <halvora/core.h>
#include <halvora/dbutils.h>
#include <halvora/localemanager.h>
#include <halvora/mainwindow.h>
#include <halvora/storagemanager.h>

#include <QFile>
#include <QLabel>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

/// What the program makes of its data and of what goes wrong with them.
class ApplicationStorageTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aDamagedFileIsToldAtTheStart();
    void aDamagedFileIsToldLater();
    void whatIsNotSavedIsToldUntilItIs();
    void theLineSpeaksTheUsersLanguage();
    void settingsOfPluginsLiveInTheProfile();

private:
    QString path(const char *name) const
    {
        return m_options.pluginDirectory + QStringLiteral("/profile/%1.sqlite").arg(QLatin1String(name));
    }
    QLabel *label(const char *name) const
    {
        return m_application->window()->findChild<QLabel *>(QLatin1String(name));
    }
    StorageManager &storage() const { return *m_application->core()->storage(); }
    void damage(const char *name) const;
    static void fail();

    std::unique_ptr<QTemporaryDir> m_folder;
    Options m_options;
    std::unique_ptr<Application> m_application;
};

namespace {

class Marking : public QTranslator {
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return QLatin1Char('~') + QString::fromUtf8(text);
    }
};

} // namespace

void ApplicationStorageTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_options.pluginDirectory = m_folder->path(); // there are none
    m_options.profile = m_folder->filePath(QStringLiteral("profile"));
    QVERIFY(QDir().mkdir(m_options.profile));
    m_application = std::make_unique<Application>(m_options);
}

void ApplicationStorageTest::cleanup()
{
    m_application.reset();
}

void ApplicationStorageTest::damage(const char *name) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.write("no bookmarks") > 0);
}

void ApplicationStorageTest::fail()
{
    QSqlQuery query((QSqlDatabase()));
    QVERIFY(!query.exec(QStringLiteral("SELECT 1")));
    DBUtils::checkForErrors(query);
}

void ApplicationStorageTest::aDamagedFileIsToldAtTheStart()
{
    damage("early");
    storage().databasePath(QStringLiteral("early")); // as a plug-in does in its init()
    m_application->start();
    QVERIFY2(label("halvora.notice")->text().contains(QLatin1String("early-damaged-")),
             qPrintable(label("halvora.notice")->text()));
    QCOMPARE(storage().takeNotices(), QStringList());
}

void ApplicationStorageTest::aDamagedFileIsToldLater()
{
    m_application->start();
    damage("late");
    storage().databasePath(QStringLiteral("late"));
    QVERIFY2(label("halvora.notice")->text().contains(QLatin1String("late-damaged-")),
             qPrintable(label("halvora.notice")->text()));
}

void ApplicationStorageTest::whatIsNotSavedIsToldUntilItIs()
{
    m_application->start();
    storage().databasePath(QStringLiteral("corvia"));
    QVERIFY(!label("halvora.lastingNotice")->isVisible());
    fail();
    QVERIFY(label("halvora.lastingNotice")->isVisible());
    QCOMPARE(label("halvora.lastingNotice")->text(), storage().writeProblem());
    storage().checkNow();
    QTRY_VERIFY(!label("halvora.lastingNotice")->isVisible());
}

void ApplicationStorageTest::theLineSpeaksTheUsersLanguage()
{
    m_application->start();
    fail();
    Marking marking;
    QVERIFY(QCoreApplication::installTranslator(&marking));
    Q_EMIT m_application->core()->locale()->languageChanged(QStringLiteral("eo"));
    QVERIFY2(label("halvora.lastingNotice")->text().startsWith(QLatin1Char('~')),
             qPrintable(label("halvora.lastingNotice")->text()));
    QCoreApplication::removeTranslator(&marking);
}

void ApplicationStorageTest::settingsOfPluginsLiveInTheProfile()
{
    QSettings settings(Configuration::settingsOrganization(), Configuration::settingsApplication());
    QVERIFY2(settings.fileName().startsWith(m_options.profile + QLatin1Char('/')),
             qPrintable(settings.fileName()));
    settings.setValue(QStringLiteral("Bookmarks/Sorted"), true);
    settings.sync();
    QVERIFY(QFile::exists(settings.fileName()));
}

QTEST_MAIN(ApplicationStorageTest)
#include "tst_applicationstorage.moc"
