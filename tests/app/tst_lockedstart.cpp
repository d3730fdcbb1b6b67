// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "obstacles.h"
#include "runningprogram.h"

#include <halvora/connectorplugin.h>
#include <halvora/localemanager.h>
#include <halvora/storagemanager.h>

#include <QAbstractItemView>
#include <QAction>
#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <unistd.h>

namespace {

constexpr int aMinute = 60'000;

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray oneFile()
{
    return QByteArrayLiteral("<?xml version='1.0' encoding='UTF-8'?><nzb>"
                             "<file poster='a@corvia.example' date='1700000000' subject='A photo of the sea'>"
                             "<groups><group>alt.binaries.pictures</group></groups><segments>"
                             "<segment bytes='1000' number='1'>one@corvia.example</segment>"
                             "</segments></file></nzb>");
}

} // namespace

/// Another program holds the bookmarks file when this one starts, or while it runs.
class TestLockedStart : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theWindowComesFirstAndTheRestWhenTheLockGoes();
    void aProgramThatOnlyReadsIsNotWaitedFor();
    void closingTheWindowEndsTheProgram();
    void theWindowIsWhereItWas();
    void whatArrivesMeanwhileIsOpenedAfterwards();
    void asManyCallsAreKeptAsAreNamed();
    void theLanguageAndTheSettingsCanBeChangedMeanwhile();
    void aPictureIsTakenWhenTheLockGoes();
    void aChangeThatALockKeepsBackIsReportedUntilItIsSaved();
    void aChangeThatALockRefusesIsReportedUntilTheEnd();
    void aLockAtTheEndOfTheProgramEndsItWell();

private:
    void lock(ForeignLock::Kind kind = ForeignLock::Writes);
    bool isWaiting();
    bool isReady();
    /// Opens the program with the bookmarks of the account.
    void openWithBookmarks();
    bool rename(const QString &name);
    QString line();
    QAbstractItemView *bookmarks();
    QString notice() { return m_program->find<QLabel>("halvora.notice")->text(); }

    std::unique_ptr<RunningProgram> m_program;
    std::unique_ptr<ForeignLock> m_lock;
    QString m_database;
};

// A profile that was in use before.
void TestLockedStart::init()
{
    m_program = std::make_unique<RunningProgram>();
    m_program->open();
    Application &application = m_program->application();
    m_database = application.core()->storage()->databasePath(application.connectorPlugin()->configName());
    m_program->window().resize(751, 552);
    m_program->window().close();
    m_program->close();
    QVERIFY(QFile::exists(m_database));
}

void TestLockedStart::cleanup()
{
    m_lock.reset();
    m_program->close();
    m_program.reset();
}

void TestLockedStart::lock(ForeignLock::Kind kind)
{
    m_lock = std::make_unique<ForeignLock>(m_database, kind);
    QVERIFY(m_lock->isHeld());
}

bool TestLockedStart::isWaiting()
{
    const auto *line = m_program->find<QLabel>("halvora.lastingNotice");
    return m_program->window().isVisible() && line->isVisible() &&
           line->text() == QStringLiteral("Waiting for another program that uses the bookmarks file…") &&
           !m_program->application().login() && !m_program->find<QDockWidget>("DetailsDock");
}

/// Null before its panel is there.
QAbstractItemView *TestLockedStart::bookmarks()
{
    const auto *panel = m_program->find<QDockWidget>("CVBookmarksDock");
    return panel ? panel->findChild<QAbstractItemView *>() : nullptr;
}

bool TestLockedStart::isReady()
{
    const QAbstractItemView *tree = bookmarks();
    return m_program->window().isVisible() && tree && tree->isVisible() &&
           !m_program->find<QLabel>("halvora.lastingNotice")->isVisible();
}

void TestLockedStart::openWithBookmarks()
{
    m_program->open();
    m_program->logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_VERIFY_WITH_TIMEOUT(bookmarks()->model()->rowCount() > 0, aMinute);
}

bool TestLockedStart::rename(const QString &name)
{
    QAbstractItemModel *model = bookmarks()->model();
    return model->setData(model->index(0, 0), name);
}

QString TestLockedStart::line()
{
    const auto *label = m_program->find<QLabel>("halvora.lastingNotice");
    return label->isVisible() ? label->text() : QString();
}

void TestLockedStart::theWindowComesFirstAndTheRestWhenTheLockGoes()
{
    lock();
    m_program->open();
    QVERIFY(isWaiting());
    QVERIFY(!m_program->find<QAction>("halvora.login")->isEnabled());
    const QSignalSpy retries(
        m_program->application().findChild<QTimer *>(QStringLiteral("halvora.storeTimer")), &QTimer::timeout);
    QTRY_VERIFY_WITH_TIMEOUT(retries.size() >= 2, aMinute);
    QVERIFY(isWaiting());
    m_lock.reset();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), aMinute);
    QVERIFY(m_program->find<QAction>("halvora.login")->isEnabled());
    m_program->logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(m_program->server().connectorState(), HServer::Connected, aMinute);
    QTRY_VERIFY_WITH_TIMEOUT(bookmarks()->model()->rowCount() > 0, aMinute);
    QVERIFY(m_program->application().core()->storage()->writeProblem().isEmpty());
}

void TestLockedStart::aProgramThatOnlyReadsIsNotWaitedFor()
{
    lock(ForeignLock::Reads);
    m_program->open();
    QVERIFY(isReady());
}

void TestLockedStart::closingTheWindowEndsTheProgram()
{
    QSettings settings(m_program->profile() + QStringLiteral("/halvora.ini"), QSettings::IniFormat);
    const QVariant panels = settings.value(QStringLiteral("MainWindow/State"));
    QVERIFY(panels.isValid());
    lock();
    m_program->open();
    const QSignalSpy quits(&m_program->window(), &MainWindow::closing);
    QTimer::singleShot(0, &m_program->window(), &QWidget::close);
    QCOMPARE(QCoreApplication::exec(), 0);
    QCOMPARE(quits.size(), 1);
    m_program->close();
    settings.sync();
    QCOMPARE(settings.value(QStringLiteral("MainWindow/State")), panels);
    m_lock.reset();
    m_program->open();
    QVERIFY(isReady());
}

void TestLockedStart::theWindowIsWhereItWas()
{
    lock();
    m_program->open();
    QCOMPARE(m_program->window().height(), 552);
    m_program->window().resize(760, 570);
    m_lock.reset();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), aMinute);
    QCOMPARE(m_program->window().height(), 570);
}

void TestLockedStart::whatArrivesMeanwhileIsOpenedAfterwards()
{
    const QString file = m_program->profile() + QStringLiteral("/sea.nzb");
    QVERIFY(writeFile(file, oneFile()));
    lock();
    m_program->open();
    m_program->application().answerCall(QStringLiteral("https://www.corvia.example/"));
    m_program->application().answerCall(file);
    QCOMPARE(notice(), QString());
    QVERIFY(isWaiting());
    m_lock.reset();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), aMinute);
    QTRY_VERIFY_WITH_TIMEOUT(m_program->find<QDockWidget>("DetailsDock")->isVisible(), aMinute);
    QTRY_COMPARE_WITH_TIMEOUT(m_program->find<QAbstractItemView>("detailsList")->model()->rowCount(), 1,
                              aMinute);
    QVERIFY2(notice().contains(QLatin1String("was not opened")), qPrintable(notice()));
}

void TestLockedStart::asManyCallsAreKeptAsAreNamed()
{
    lock();
    m_program->open();
    for (int i = 0; i < Application::maxKeptCalls; ++i)
        m_program->application().answerCall(QStringLiteral("https://www.corvia.example/"));
    QCOMPARE(notice(), QString());
    m_program->application().answerCall(QStringLiteral("https://www.corvia.example/"));
    QVERIFY2(notice().startsWith(QLatin1String("Too many links and files")), qPrintable(notice()));
    m_lock.reset();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), aMinute);
    QTRY_VERIFY_WITH_TIMEOUT(notice().contains(QLatin1String("was not opened")), aMinute);
}

void TestLockedStart::theLanguageAndTheSettingsCanBeChangedMeanwhile()
{
    lock();
    m_program->open();
    Q_EMIT m_program->application().core()->locale()->languageChanged(QStringLiteral("eo"));
    QVERIFY(isWaiting());
    Q_EMIT m_program->window().settingsRequested();
    auto *dialog = m_program->find<QDialog>("SettingsDialog");
    QVERIFY(dialog);
    m_lock.reset();
    QTRY_VERIFY_WITH_TIMEOUT(isReady(), aMinute);
    dialog->accept();
}

void TestLockedStart::aPictureIsTakenWhenTheLockGoes()
{
    int ends[2] = {};
    QVERIFY(::pipe(ends) == 0);
    QVERIFY(::write(ends[1], "pinegate\n", 9) == 9);
    ::close(ends[1]);
    Options options;
    options.serviceHost = QStringLiteral("localhost");
    options.servicePort = m_program->service().accountPort();
    options.authorityFile = QString::fromStdString(m_program->service().authorityFile());
    options.profile = m_program->profile();
    options.pluginDirectory = QStringLiteral(PLUGIN_DIRECTORY);
    options.screenshot = m_program->profile() + QStringLiteral("/window.png");
    options.user = QStringLiteral("demo");
    options.passwordDescriptor = ends[0];
    lock();
    {
        Application application(options);
        application.start();
        QVERIFY(application.window()->isVisible());
        QVERIFY(!application.login());
        QTimer::singleShot(0, this, [this] { m_lock.reset(); });
        QCOMPARE(QCoreApplication::exec(), EXIT_SUCCESS);
        application.shutDown(0);
    }
    QVERIFY(QImage(options.screenshot).width() >= 300);
    m_program->open(); // for cleanup()
}

void TestLockedStart::aChangeThatALockKeepsBackIsReportedUntilItIsSaved()
{
    openWithBookmarks();
    lock(ForeignLock::Reads);
    QVERIFY(rename(QStringLiteral("kept back")));
    QVERIFY2(line().contains(QLatin1String("locked. Changes made since ")), qPrintable(line()));
    m_lock.reset();
    QVERIFY(rename(QStringLiteral("saved")));
    QTRY_COMPARE_WITH_TIMEOUT(line(), QString(), aMinute);
}

void TestLockedStart::aChangeThatALockRefusesIsReportedUntilTheEnd()
{
    openWithBookmarks();
    lock(ForeignLock::Writes);
    QVERIFY(rename(QStringLiteral("refused")));
    QVERIFY2(line().contains(QLatin1String("locked. Changes made since ")), qPrintable(line()));
    m_lock.reset();
    m_program->application().core()->storage()->checkNow();
    QTRY_VERIFY_WITH_TIMEOUT(line().startsWith(QLatin1String("Changes made since ")), aMinute);
    m_program->close();
    m_program->open();
    QCOMPARE(line(), QString());
}

void TestLockedStart::aLockAtTheEndOfTheProgramEndsItWell()
{
    openWithBookmarks();
    lock(ForeignLock::Reads);
    QVERIFY(rename(QStringLiteral("kept back")));
    m_program->application().core()->storage()->checkNow();
    QTRY_VERIFY_WITH_TIMEOUT(line().startsWith(QLatin1String("Changes made since ")), aMinute);
    m_program->close(); // tries the COMMIT once more, without a window
    m_lock.reset();
    m_program->open();
    QVERIFY(isReady());
}

QTEST_MAIN(TestLockedStart)
#include "tst_lockedstart.moc"
