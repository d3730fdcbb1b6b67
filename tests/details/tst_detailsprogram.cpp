// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "darkpalette.h"
#include "detailsdock.h"
#include "nzbtext.h"
#include "runningprogram.h"
#include "sanitized.h"

#include <halvora/connectorplugin.h>
#include <halvora/hstorageid.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

/// The details panel in the whole program, with the real plug-in.
class TestDetailsProgram : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void itIsClosedUntilSomethingIsOpened();
    void openedItStandsBeforeItsNeighbour();
    void aLowPanelStillHasRowsToSee();
    void openAtTheEndItIsOpenAtTheStart();
    void anArrangementFromBeforeThereWasOneLeavesItClosed();
    void resettingTheLayoutClosesIt();
    void aLinkIsShownAfterTheLogin();
    void theProgramEndsWhileAFileIsRead();
    void itIsReadable_data();
    void itIsReadable();

private:
    DetailsDock *dock() const { return m_program->find<DetailsDock>("DetailsDock"); }
    QString message() const { return m_program->find<QLabel>("detailsMessage")->text(); }
    int rows() const { return m_program->find<QTreeView>("detailsList")->model()->rowCount(); }
    void restart(const QString &directory = QStringLiteral(PLUGIN_DIRECTORY));
    QString write(const QByteArray &document) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<RunningProgram> m_program;
};

namespace {

constexpr int longest = 60'000; // milliseconds

} // namespace

void TestDetailsProgram::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QCoreApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

void TestDetailsProgram::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_program = std::make_unique<RunningProgram>();
    m_program->open();
}

void TestDetailsProgram::cleanup()
{
    m_program.reset();
}

// As a person does: what the window looked like is kept.
void TestDetailsProgram::restart(const QString &directory)
{
    m_program->window().close();
    m_program->close();
    m_program->open(directory);
}

QString TestDetailsProgram::write(const QByteArray &document) const
{
    QFile file(m_folder->filePath(QStringLiteral("file.nzb")));
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size())
        qFatal("The test can not write its file.");
    return file.fileName();
}

void TestDetailsProgram::itIsClosedUntilSomethingIsOpened()
{
    QVERIFY(dock());
    QVERIFY(!dock()->isVisible());
    auto *entry = m_program->find<QAction>("halvora.view.DetailsDock");
    QCOMPARE(entry->text(), QStringLiteral("Details"));
    QVERIFY(!entry->isChecked());
    restart();
    QVERIFY(!dock()->isVisible());
    dock()->showFile(write(nzbtext::document(nzbtext::file("one"))));
    QVERIFY(dock()->isVisible());
    QVERIFY(m_program->find<QAction>("halvora.view.DetailsDock")->isChecked());
}

void TestDetailsProgram::openedItStandsBeforeItsNeighbour()
{
    const auto isSeen = [this] { return !dock()->visibleRegion().isEmpty(); };
    dock()->showFile(write(nzbtext::document(nzbtext::file("one"))));
    QTRY_VERIFY_WITH_TIMEOUT(isSeen(), longest);
    const QList<QDockWidget *> neighbours = m_program->window().tabifiedDockWidgets(dock());
    QCOMPARE(neighbours.size(), 1);
    neighbours.constFirst()->raise();
    QTRY_VERIFY_WITH_TIMEOUT(!isSeen(), longest);
    dock()->showFile(write(nzbtext::document(nzbtext::file("two"))));
    QTRY_VERIFY_WITH_TIMEOUT(isSeen(), longest);
}

void TestDetailsProgram::aLowPanelStillHasRowsToSee()
{
    m_program->window().resize(1200, 760);
    dock()->showFile(write(nzbtext::many(40, 3)));
    QTRY_COMPARE_WITH_TIMEOUT(rows(), 40, longest);
    const auto *view = m_program->find<QTreeView>("detailsList");
    QTRY_VERIFY_WITH_TIMEOUT(view->viewport()->height() >= 5 * view->sizeHintForRow(0), longest);
}

void TestDetailsProgram::openAtTheEndItIsOpenAtTheStart()
{
    dock()->showFile(write(nzbtext::document(nzbtext::file("one"))));
    restart();
    QVERIFY(dock()->isVisible());
    QCOMPARE(message(), QStringLiteral("Open an NZB file to see what is in it."));
    dock()->close();
    restart();
    QVERIFY(!dock()->isVisible());
}

void TestDetailsProgram::anArrangementFromBeforeThereWasOneLeavesItClosed()
{
    m_program->window().removeDockWidget(dock());
    std::unique_ptr<DetailsDock> removed(dock());
    removed->setParent(nullptr);
    restart();
    QVERIFY(dock());
    QVERIFY(!dock()->isVisible());
    dock()->showFile(write(nzbtext::document(nzbtext::file("one"))));
    QTRY_VERIFY_WITH_TIMEOUT(!dock()->visibleRegion().isEmpty(), longest);
    QVERIFY(!dock()->isFloating());
    removed.reset();
}

void TestDetailsProgram::resettingTheLayoutClosesIt()
{
    dock()->showFile(write(nzbtext::document(nzbtext::file("one"))));
    dock()->setFloating(true);
    m_program->find<QAction>("halvora.resetLayout")->trigger();
    QVERIFY(!dock()->isVisible());
    QVERIFY(!dock()->isFloating());
}

void TestDetailsProgram::aLinkIsShownAfterTheLogin()
{
    const ConnectorPlugin *plugin = m_program->application().connectorPlugin();
    m_program->application().openFromOutside(
        plugin->detailsUrl(HStorageId(QStringLiteral("moon-and-halcyon"))));
    QVERIFY(dock()->isVisible());
    QCOMPARE(message(), QStringLiteral("Log in to see what is in moon-and-halcyon."));
    m_program->logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE_WITH_TIMEOUT(rows(), 2, longest);
    m_program->application().openFromOutside(plugin->detailsUrl(HStorageId(QStringLiteral("sun"))));
    QTRY_COMPARE_WITH_TIMEOUT(
        message(), QStringLiteral("sun can not be shown: The service does not know this group of files."),
        longest);
}

void TestDetailsProgram::theProgramEndsWhileAFileIsRead()
{
    dock()->showFile(write(nzbtext::many(1000 / sanitizedShare, 100)));
    m_program->close();
    m_program->open();
    QCOMPARE(rows(), 0);
}

void TestDetailsProgram::itIsReadable_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::style()->standardPalette();
    QTest::newRow("dark") << darkPalette();
}

// Keeps pictures beside the build, to be looked at.
void TestDetailsProgram::itIsReadable()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    m_program->window().resize(1200, 760);
    const QString folder = QStringLiteral(PICTURE_FOLDER);
    QDir().mkpath(folder);
    const QString name =
        folder + QStringLiteral("/details-%1-") + QString::fromLatin1(QTest::currentDataTag());
    dock()->showFile(write(nzbtext::many(40, 3)));
    QTRY_COMPARE_WITH_TIMEOUT(rows(), 40, longest);
    QCOMPARE(m_program->find<QTreeView>("detailsList")->palette().color(QPalette::Base),
             palette.color(QPalette::Base));
    QVERIFY(m_program->window().grab().save(name.arg(QStringLiteral("list")) + QStringLiteral(".png")));
    dock()->showFile(m_folder->path());
    QTRY_VERIFY_WITH_TIMEOUT(message().contains(QLatin1String("is a folder")), longest);
    QCOMPARE(m_program->find<QLabel>("detailsMessage")->palette().color(QPalette::WindowText),
             palette.color(QPalette::WindowText));
    QVERIFY(m_program->window().grab().save(name.arg(QStringLiteral("problem")) + QStringLiteral(".png")));
    QApplication::setPalette(QApplication::style()->standardPalette());
}

QTEST_MAIN(TestDetailsProgram)
#include "tst_detailsprogram.moc"
