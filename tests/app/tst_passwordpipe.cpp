// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "passwordpipe.h"

#include <QSignalSpy>
#include <QTest>

#include <unistd.h>

class TestPasswordPipe : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aLineIsThePassword();
    void theEndOfTheDataEndsThePasswordToo();
    void piecesAreJoined();
    void aCarriageReturnAtTheEndIsNotPartOfIt();
    void nothingGivesAnEmptyPassword();
    void whatNeverEndsIsNoPassword();

private:
    void say(const QByteArray &bytes)
    {
        QCOMPARE(::write(m_ends[1], bytes.constData(), size_t(bytes.size())), ssize_t(bytes.size()));
    }
    void hangUp()
    {
        ::close(m_ends[1]);
        m_ends[1] = -1;
    }

    int m_ends[2] = {-1, -1};
    std::unique_ptr<PasswordPipe> m_pipe;
    QString m_password;
    int m_finished = 0;
};

void TestPasswordPipe::init()
{
    QCOMPARE(::pipe(m_ends), 0);
    m_finished = 0;
    m_pipe = std::make_unique<PasswordPipe>(m_ends[0]);
    connect(m_pipe.get(), &PasswordPipe::finished, this, [this](const QString &password) {
        ++m_finished;
        m_password = password;
    });
}

void TestPasswordPipe::cleanup()
{
    m_pipe.reset();
    for (const int end : m_ends) {
        if (end >= 0)
            ::close(end);
    }
}

void TestPasswordPipe::aLineIsThePassword()
{
    say("pinegate\nmore");
    QTRY_COMPARE(m_finished, 1);
    QCOMPARE(m_password, QStringLiteral("pinegate"));
    hangUp();
    QCoreApplication::processEvents();
    QCOMPARE(m_finished, 1);
}

void TestPasswordPipe::theEndOfTheDataEndsThePasswordToo()
{
    say("pinegate");
    hangUp();
    QTRY_COMPARE(m_finished, 1);
    QCOMPARE(m_password, QStringLiteral("pinegate"));
}

void TestPasswordPipe::piecesAreJoined()
{
    say("pine");
    QCoreApplication::processEvents();
    QCOMPARE(m_finished, 0);
    say("gäte\n");
    QTRY_COMPARE(m_finished, 1);
    QCOMPARE(m_password, QStringLiteral("pinegäte"));
}

void TestPasswordPipe::aCarriageReturnAtTheEndIsNotPartOfIt()
{
    say("pinegate\r\n");
    QTRY_COMPARE(m_finished, 1);
    QCOMPARE(m_password, QStringLiteral("pinegate"));
}

void TestPasswordPipe::nothingGivesAnEmptyPassword()
{
    hangUp();
    QTRY_COMPARE(m_finished, 1);
    QVERIFY(m_password.isEmpty());
}

void TestPasswordPipe::whatNeverEndsIsNoPassword()
{
    say(QByteArray(6000, 'x'));
    QTRY_COMPARE(m_finished, 1);
    QVERIFY(m_password.isEmpty());
}

QTEST_GUILESS_MAIN(TestPasswordPipe)
#include "tst_passwordpipe.moc"
