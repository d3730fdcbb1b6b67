// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "darkpalette.h"
#include "recordingprivatedata.h"
#include "runningprogram.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/mainwindow.h>
#include <halvora/privatedataregistry.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QStyle>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTest>

#include <cmath>

/// Shows the program's windows as people see them, in a light and a dark palette and at the scale of this
/// run, keeps the pictures beside the build and sees that every text stands out from what is behind it.
class TestLook : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void everyWindowIsReadable_data();
    void everyWindowIsReadable();

private:
    void keep(QWidget *widget, const QString &name);
    void keepSettings(RunningProgram &program);
    static void look(QWidget *widget);
    static void lookAt(QWidget *text, const QString &words);
};

namespace {

// The relative luminance and contrast of WCAG 2.1.
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

// Between the most frequent colour of a picture and the one that stands out most from it.
double contrast(const QImage &image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    }
    QRgb background = 0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        if (it.value() > counts.value(background))
            background = it.key();
    }
    const double behind = luminance(QColor(background));
    double best = 1;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it) {
        const double front = luminance(QColor(it.key()));
        best = std::max(best, (std::max(front, behind) + 0.05) / (std::min(front, behind) + 0.05));
    }
    return best;
}

} // namespace

void TestLook::initTestCase()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QCoreApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

void TestLook::keep(QWidget *widget, const QString &name)
{
    const QString folder = QStringLiteral(PICTURE_FOLDER);
    QDir().mkpath(folder);
    const QString file = QStringLiteral("%1/%2-%3-x%4.png")
                             .arg(folder, name, QString::fromLatin1(QTest::currentDataTag()))
                             .arg(widget->devicePixelRatioF());
    QVERIFY2(widget->grab().save(file), qPrintable(file));
}

void TestLook::look(QWidget *widget)
{
    const QList<QLabel *> labels = widget->findChildren<QLabel *>();
    for (QLabel *label : labels)
        lookAt(label, label->text());
    const QList<QCheckBox *> boxes = widget->findChildren<QCheckBox *>();
    for (QCheckBox *box : boxes)
        lookAt(box, box->text());
}

void TestLook::lookAt(QWidget *text, const QString &words)
{
    if (!text->isVisible() || words.isEmpty())
        return;
    const QRect area(text->mapTo(text->window(), QPoint()), text->size());
    const double value = contrast(text->window()->grab(area).toImage());
    QVERIFY2(value >= 4.5, qPrintable(QStringLiteral("%1: %2").arg(words).arg(value)));
}

void TestLook::keepSettings(RunningProgram &program)
{
    RecordingPrivateData bookmarks({"Bookmarks of newsgroups"});
    RecordingPrivateData search({"Words searched for", "Names of files that were opened"});
    PrivateDataRegistry *registry = program.application().core()->privateData();
    registry->registerPrivateData(&bookmarks);
    registry->registerPrivateData(&search);
    Q_EMIT program.window().settingsRequested();
    auto *settings = program.find<QDialog>("SettingsDialog");
    keep(settings, QStringLiteral("settings"));
    look(settings);
    program.find<QTabWidget>("pages")->setCurrentIndex(1);
    keep(settings, QStringLiteral("privacy"));
    look(settings);
    program.find<QPushButton>("clearPrivateData")->click();
    keep(program.find<QDialog>("ClearDataDialog"), QStringLiteral("clear-data"));
    look(program.find<QDialog>("ClearDataDialog"));
    program.find<QDialog>("ClearDataDialog")->close();
    program.find<QPushButton>("resetSettings")->click();
    keep(program.find<QMessageBox>("ResetQuestion"), QStringLiteral("reset-question"));
    look(program.find<QMessageBox>("ResetQuestion"));
    program.find<QMessageBox>("ResetQuestion")->close();
    settings->close();
    registry->clear();
}

void TestLook::everyWindowIsReadable_data()
{
    QTest::addColumn<QPalette>("palette");
    QTest::newRow("light") << QApplication::style()->standardPalette();
    QTest::newRow("dark") << darkPalette();
}

void TestLook::everyWindowIsReadable()
{
    QFETCH(QPalette, palette);
    QApplication::setPalette(palette);
    RunningProgram program;
    program.open();
    program.window().resize(1000, 680);
    keep(&program.window(), QStringLiteral("logged-out"));
    look(&program.window());

    program.logIn(QStringLiteral("demo"), QStringLiteral("wrong"));
    QTRY_VERIFY(program.find<QLabel>("failure")->isVisible());
    keep(program.find<QDialog>("LoginDialog"), QStringLiteral("login"));
    look(program.find<QDialog>("LoginDialog"));

    program.logIn(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QTRY_COMPARE(program.server().connectorState(), HServer::Connected);
    QTRY_VERIFY(!program.find<QDialog>("LoginDialog"));
    keep(&program.window(), QStringLiteral("account"));
    look(&program.window());

    keepSettings(program);
    program.application().connectorPlugin()->aboutAction()->trigger();
    keep(program.find<QDialog>("AboutDialog"), QStringLiteral("about"));
    look(program.find<QDialog>("AboutDialog"));
    program.find<QDialog>("AboutDialog")->close();

    // An account that the service keeps no status for.
    Q_EMIT program.window().logoutRequested();
    program.logIn(QStringLiteral("reseller"), QStringLiteral("pinegate"));
    QTRY_VERIFY(program.find<QLabel>("user")->isVisible());
    keep(&program.window(), QStringLiteral("traffic"));
    look(&program.window());
    program.close();
}

QTEST_MAIN(TestLook)
#include "tst_look.moc"
