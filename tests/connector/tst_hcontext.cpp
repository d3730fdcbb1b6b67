// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/hcontext.h>
#include <halvora/hcontextholder.h>
#include <halvora/hserver.h>

#include <QtTest>

class HContextTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theHolderHoldsWhatItWasGiven();
    void aLoginUpdatesTheContext();
};

void HContextTest::theHolderHoldsWhatItWasGiven()
{
    QCOMPARE(HContextHolder::context(), nullptr);
    HContext context;
    HContextHolder::init(&context);
    QCOMPARE(HContextHolder::context(), &context);
    HContextHolder::init(nullptr);
}

void HContextTest::aLoginUpdatesTheContext()
{
    ServiceAccount account;
    HContext context;
    QSignalSpy changes(&context, &HContext::changed);
    QVERIFY(context.lastLogin().isNull());
    QCOMPARE(context.nntpHostCount(), 0);

    const QSharedPointer<TestLogin> login(new TestLogin(&account.connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    account.server().prependRequestToQueue(login);
    QVERIFY(finished.wait(30'000));
    const QDateTime before = QDateTime::currentDateTime();
    context.updateFromLogin(login.data());
    QCOMPARE(changes.size(), 1);
    QCOMPARE(context.nntpHostCount(), 2);
    QVERIFY(context.lastLogin() >= before);
}

QTEST_MAIN(HContextTest)
#include "tst_hcontext.moc"
