// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"

#include <halvora/core.h>
#include <halvora/haboutdialog.h>

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>

// What the macros declare has to be in the global namespace.
static void dropTheDrawing()
{
    Q_CLEANUP_RESOURCE(pinegate);
}

static void bringTheDrawingBack()
{
    Q_INIT_RESOURCE(pinegate);
}

/// The pictures on a screen of two pixels a point, also in a build without the drawing of the banner.
class TestLoginBanner : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void withTheDrawingTheBannerIsDrawn();
    void withoutTheDrawingTheBannerIsThePictureForTheScreen();
    void theAboutDialogShowsThePictureForTheScreen();

private:
    QTemporaryDir m_profile;
    Core m_core{m_profile.path()};
};

void TestLoginBanner::withTheDrawingTheBannerIsDrawn()
{
    const CVConnectorPlugin plugin(&m_core);
    const QPixmap banner = plugin.loginPixmap();
    QCOMPARE(banner.size(), QSize(900, 200));
    QVERIFY(banner.toImage() != QImage(QStringLiteral(":/corvia/images/login200.png")));
}

void TestLoginBanner::withoutTheDrawingTheBannerIsThePictureForTheScreen()
{
    const CVConnectorPlugin plugin(&m_core);
    dropTheDrawing();
    QVERIFY(!QFile::exists(QStringLiteral(":/corvia/images/login.svg")));
    const QPixmap banner = plugin.loginPixmap();
    bringTheDrawingBack();
    QCOMPARE(banner.devicePixelRatio(), 2.0);
    QCOMPARE(banner.size(), QSize(900, 200));
    QPixmap expected(QStringLiteral(":/corvia/images/login200.png"));
    expected.setDevicePixelRatio(2);
    QCOMPARE(banner.toImage(), expected.toImage());
}

void TestLoginBanner::theAboutDialogShowsThePictureForTheScreen()
{
    CVConnectorPlugin plugin(&m_core);
    plugin.showAboutDialog();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto about = std::find_if(windows.begin(), windows.end(), [](const QWidget *window) {
        return qobject_cast<const HAboutDialog *>(window) != nullptr;
    });
    QVERIFY(about != windows.end());
    const std::unique_ptr<QWidget> dialog(*about); // there is no main window that owns it
    const QList<QLabel *> labels = dialog->findChildren<QLabel *>();
    QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
        return pixmap.size() == QSize(256, 256) && pixmap.devicePixelRatio() == 2.0;
    }));
}

int main(int argc, char *argv[])
{
    qputenv("QT_SCALE_FACTOR", "2");
    const QApplication application(argc, argv);
    TestLoginBanner test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_loginbanner.moc"
