// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hostlookup.h"
#include "waitbudget.h"

#include <halvora/core.h>

#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>

#include <netinet/in.h>

using namespace std::chrono_literals;

namespace {

// Ten times the 100 ms within which a stop has to be seen.
constexpr unsigned long WatchdogMs = 1000;

/// A resolver that answers only once it is released, as the system's does when its servers are out of reach.
/// Resolvers are plain functions, so what steers this one is shared by the whole program.
class SlowResolver {
public:
    static int resolve(const char *, const char *port, const addrinfo *hints, addrinfo **found)
    {
        State &now = state();
        std::unique_lock<std::mutex> lock(now.mutex);
        ++now.asked;
        now.changed.notify_all();
        now.changed.wait(lock, [&now] { return now.isReleased; });
        const int result = ::getaddrinfo("127.0.0.1", port, hints, found);
        ++now.answered;
        now.changed.notify_all();
        return result;
    }

    SlowResolver()
    {
        const std::lock_guard<std::mutex> lock(state().mutex);
        state().isReleased = false;
        state().asked = state().answered = 0;
    }
    ~SlowResolver() { release(); }
    Q_DISABLE_COPY(SlowResolver)

    void waitUntilAsked()
    {
        std::unique_lock<std::mutex> lock(state().mutex);
        state().changed.wait(lock, [] { return state().asked > 0; });
    }
    /// Returns when every question has its answer.
    void release()
    {
        std::unique_lock<std::mutex> lock(state().mutex);
        state().isReleased = true;
        state().changed.notify_all();
        state().changed.wait(lock, [] { return state().answered == state().asked; });
    }

private:
    struct State {
        std::mutex mutex;
        std::condition_variable changed;
        bool isReleased = false;
        int asked = 0;
        int answered = 0;
    };
    static State &state()
    {
        static State shared;
        return shared;
    }
};

class LookupThread final : public QThread {
public:
    explicit LookupThread(const Core &core)
        : m_core(core)
    {
    }
    int count() const { return m_count; }

protected:
    void run() override
    {
        const WaitBudget budget(m_core, 1min);
        m_count = HostLookup::find(QStringLiteral("news.corvia.example"), 119, budget, SlowResolver::resolve)
                      .size();
    }

private:
    const Core &m_core;
    std::atomic<int> m_count{-1};
};

} // namespace

class tst_HostLookup : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void anAddressInDigitsAsksNobody_data();
    void anAddressInDigitsAsksNobody();
    void aNameIsResolved();
    void aNameThatCannotBeOneIsNotAskedFor_data();
    void aNameThatCannotBeOneIsNotAskedFor();
    void aStopIsSeenWhileTheResolverIsSilent_data();
    void aStopIsSeenWhileTheResolverIsSilent();
    void aSpentBudgetEndsTheLookup();
    void anAnswerIsUsedWhenItComesInTime();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Core> m_core;
};

void tst_HostLookup::init()
{
    m_core.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_folder->path());
}

void tst_HostLookup::anAddressInDigitsAsksNobody_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("family");
    QTest::newRow("IPv4") << QStringLiteral("192.0.2.1") << AF_INET;
    QTest::newRow("IPv6") << QStringLiteral("2001:db8::1") << AF_INET6;
}

void tst_HostLookup::anAddressInDigitsAsksNobody()
{
    QFETCH(QString, host);
    QFETCH(int, family);
    const auto nobody = [](const char *, const char *, const addrinfo *, addrinfo **) { return EAI_FAIL; };
    const auto found = HostLookup::find(host, 119, WaitBudget(*m_core, 1min), nobody);
    QCOMPARE(found.size(), 1);
    QCOMPARE(int(found.first().storage.ss_family), family);
}

void tst_HostLookup::aNameIsResolved()
{
    const auto found = HostLookup::find(QStringLiteral("localhost"), 119, WaitBudget(*m_core, 1min));
    QVERIFY(!found.isEmpty());
    QVERIFY(found.size() <= 4);
}

void tst_HostLookup::aNameThatCannotBeOneIsNotAskedFor_data()
{
    QTest::addColumn<QString>("host");
    QTest::addColumn<quint16>("port");
    QTest::newRow("empty") << QString() << quint16(119);
    QTest::newRow("NUL") << QStringLiteral("news.corvia.example") + QChar(QChar::Null) << quint16(119);
    QTest::newRow("NUL after digits") << QStringLiteral("192.0.2.2") + QChar(QChar::Null) << quint16(119);
    QTest::newRow("no port") << QStringLiteral("192.0.2.1") << quint16(0);
}

void tst_HostLookup::aNameThatCannotBeOneIsNotAskedFor()
{
    QFETCH(QString, host);
    QFETCH(quint16, port);
    // It would find an address for any name at all.
    const auto anybody = [](const char *, const char *number, const addrinfo *hints, addrinfo **found) {
        return ::getaddrinfo("192.0.2.1", number, hints, found);
    };
    QVERIFY(HostLookup::find(host, port, WaitBudget(*m_core, 1min), anybody).isEmpty());
}

void tst_HostLookup::aStopIsSeenWhileTheResolverIsSilent_data()
{
    QTest::addColumn<bool>("isShutdown");
    QTest::newRow("interruption") << false;
    QTest::newRow("shutdown") << true;
}

void tst_HostLookup::aStopIsSeenWhileTheResolverIsSilent()
{
    QFETCH(bool, isShutdown);
    SlowResolver resolver;
    LookupThread thread(*m_core);
    thread.start();
    resolver.waitUntilAsked();
    if (isShutdown)
        m_core->stopRunning();
    else
        thread.requestInterruption();
    const bool hasEnded = thread.wait(WatchdogMs);
    resolver.release();
    thread.wait();
    QVERIFY(hasEnded);
    QCOMPARE(thread.count(), 0);
}

void tst_HostLookup::aSpentBudgetEndsTheLookup()
{
    SlowResolver resolver;
    const WaitBudget budget(*m_core, 100ms);
    const auto found =
        HostLookup::find(QStringLiteral("news.corvia.example"), 119, budget, SlowResolver::resolve);
    QVERIFY(found.isEmpty());
    QVERIFY(budget.isOver());
}

void tst_HostLookup::anAnswerIsUsedWhenItComesInTime()
{
    SlowResolver resolver;
    LookupThread thread(*m_core);
    thread.start();
    resolver.waitUntilAsked();
    resolver.release();
    QVERIFY(thread.wait(WatchdogMs * 10));
    QCOMPARE(thread.count(), 1);
}

QTEST_GUILESS_MAIN(tst_HostLookup)
#include "tst_hostlookup.moc"
