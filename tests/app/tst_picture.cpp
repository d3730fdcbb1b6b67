// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "picture.h"
#include "runningprogram.h"

#include <QImage>
#include <QTest>
#include <QTimer>

class TestPicture : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void afterTheLoginThereIsAPicture();
    void aFailedLoginEndsTheProgram();
    void aPictureThatCanNotBeSavedIsAnError();
    void withoutAUserTheProgramEnds();
    void aLoginThatNeverEndsEndsTheProgramToo();

private:
    int run(const QString &file, const QString &password, int patience = 200'000);

    RunningProgram m_program;
};

namespace {

constexpr int hung = 77; // no exit code of the program's

}

// The exit code; the program begins anew, with its first login. No password: nobody says who logs in.
int TestPicture::run(const QString &file, const QString &password, int patience)
{
    m_program.open();
    Picture picture(file, &m_program.window(), &m_program.server(), m_program.application().login(), nullptr);
    picture.setPatience(patience);
    m_program.server().setRequestDeadline(300'000); // only the picture's own patience ends what hangs
    QTimer::singleShot(0, this, [this, password] {
        m_program.application().login()->start(password.isEmpty() ? QString() : QStringLiteral("demo"),
                                               password);
    });
    QTimer watchdog;
    watchdog.start(100'000);
    connect(&watchdog, &QTimer::timeout, this, [] { QCoreApplication::exit(hung); });
    const int exitCode = QCoreApplication::exec();
    Q_EMIT m_program.window().logoutRequested();
    m_program.close();
    return exitCode;
}

void TestPicture::afterTheLoginThereIsAPicture()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("window.png"));
    QCOMPARE(run(file, QStringLiteral("pinegate")), EXIT_SUCCESS);
    QVERIFY(QImage(file).width() >= 300);
}

void TestPicture::aFailedLoginEndsTheProgram()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("window.png"));
    QCOMPARE(run(file, QStringLiteral("wrong")), EXIT_FAILURE);
    QVERIFY(!QFile::exists(file));
}

void TestPicture::aPictureThatCanNotBeSavedIsAnError()
{
    QCOMPARE(run(QStringLiteral("/nowhere/window.png"), QStringLiteral("pinegate")), EXIT_FAILURE);
}

void TestPicture::withoutAUserTheProgramEnds()
{
    QCOMPARE(run(QStringLiteral("/nowhere/window.png"), QString()), EXIT_FAILURE);
}

void TestPicture::aLoginThatNeverEndsEndsTheProgramToo()
{
    corvia::Fault stall;
    stall.kind = corvia::Fault::Kind::Stall;
    m_program.service().setFault(stall);
    QCOMPARE(run(QStringLiteral("/nowhere/window.png"), QStringLiteral("pinegate"), 300), EXIT_FAILURE);
    m_program.service().setFault({});
}

QTEST_MAIN(TestPicture)
#include "tst_picture.moc"
