// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "desktopnotifier.h"
#include "notificationtext.h"
#include "privatebus.h"
#include "recordingdesktop.h"

#include <QDBusConnection>
#include <QSignalSpy>
#include <QTest>
#include <QTextDocumentFragment>

#include <memory>

/// The program's notifications on a real bus, with a desktop that writes down what it gets.
class TestDesktopNotifier : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aNotificationSaysWhoseItIs();
    void textsArePlain_data();
    void textsArePlain();
    void markupIsShownAndNeverRead_data();
    void markupIsShownAndNeverRead();
    void theNextNotificationReplacesTheOneBefore();
    void aClosedNotificationIsNotReplaced();
    void aClickActivates();
    void nobodyElseCanTellOfAClick();
    void withoutActionsNoneIsOffered();
    void anErrorIsPassedOver_data();
    void anErrorIsPassedOver();
    void theNewestTextIsShownWhenASlowDesktopAnswers();
    void withoutADesktopNothingHappens();
    void withoutABusNothingHappens();

private:
    QDBusConnection connection(const char *name) { return m_bus->connectAs(QString::fromLatin1(name)); }

    std::unique_ptr<PrivateBus> m_bus;
    std::unique_ptr<RecordingDesktop> m_desktop;
    std::unique_ptr<DesktopNotifier> m_notifier;
};

namespace {

constexpr int patience = 60'000; // milliseconds

QString title()
{
    return QStringLiteral("New message");
}

} // namespace

void TestDesktopNotifier::init()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    m_bus = std::make_unique<PrivateBus>();
    QVERIFY(!m_bus->address().isEmpty());
    m_desktop = std::make_unique<RecordingDesktop>(connection("desktop"));
    m_notifier = std::make_unique<DesktopNotifier>(connection("program"));
}

void TestDesktopNotifier::cleanup()
{
    m_notifier.reset();
    m_desktop.reset();
    m_bus.reset();
}

void TestDesktopNotifier::aNotificationSaysWhoseItIs()
{
    m_notifier->notify(title(), QStringLiteral("Welcome"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    const RecordingDesktop::Notification &shown = m_desktop->shown.first();
    QCOMPARE(shown.application, QStringLiteral("Halvora"));
    QCOMPARE(shown.icon, QStringLiteral("org.halvora.Halvora"));
    QCOMPARE(shown.hints.value(QStringLiteral("desktop-entry")).toString(),
             QStringLiteral("org.halvora.Halvora"));
    QCOMPARE(shown.title, title());
    QCOMPARE(shown.body, QStringLiteral("Welcome"));
    QCOMPARE(shown.replaced, 0U);
    QCOMPARE(shown.timeout, -1); // as the desktop likes
}

void TestDesktopNotifier::textsArePlain_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    const QString ellipsis(QChar(0x2026));
    const auto many = [](int count) { return QString(count, QLatin1Char('x')); };
    QTest::newRow("plain") << QStringLiteral("Grüße") << QStringLiteral("Grüße");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("blanks only") << QStringLiteral(" \n\t ") << QString();
    QTest::newRow("line ends") << QStringLiteral("one\r\ntwo\u2028three") << QStringLiteral("one two three");
    QTest::newRow("controls") << QStringLiteral("a\001\007b\033[31m") << QStringLiteral("a b [31m");
    QTest::newRow("nothing") << QString::fromUtf8("a\0b", 3) << QStringLiteral("a b");
    QTest::newRow("turned around") << QStringLiteral("exe\u202egnp\u2066") << QStringLiteral("exegnp");
    QTest::newRow("half a letter") << QStringLiteral("a") + QChar(0xd83d) + QLatin1Char('b')
                                   << QStringLiteral("a\ufffdb");
    QTest::newRow("no character") << QStringLiteral("a\uffffb") << QStringLiteral("ab");
    QTest::newRow("just fits") << many(20) << many(20);
    QTest::newRow("too long") << many(21) << many(19) + ellipsis;
    QTest::newRow("cut at a blank") << many(18) + QStringLiteral(" xxx") << many(18) + ellipsis;
    QTest::newRow("cut in a letter") << many(18) + QStringLiteral("\U0001F600x") << many(18) + ellipsis;
    QTest::newRow("a million") << many(1'000'000) << many(19) + ellipsis;
    QTest::newRow("a million blanks") << QString(1'000'000, QLatin1Char(' ')) << ellipsis;
}

void TestDesktopNotifier::textsArePlain()
{
    QFETCH(QString, text);
    QFETCH(QString, line);
    QCOMPARE(NotificationText::plainLine(text, 20), line);
    m_notifier->notify(text, text); // as long as it likes, it arrives
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QVERIFY(m_desktop->shown.first().title.size() <= 100);
    QVERIFY(m_desktop->shown.first().body.size() <= 300);
}

void TestDesktopNotifier::markupIsShownAndNeverRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("bold") << QStringLiteral("<b>bold</b>");
    QTest::newRow("link") << QStringLiteral("<a href=\"http://evil.example/\">here</a>");
    QTest::newRow("picture") << QStringLiteral("<img src='file:///etc/passwd' alt='x'/>");
    QTest::newRow("entity") << QStringLiteral("R&amp;D & more &#60;b&#62;");
    QTest::newRow("broken") << QStringLiteral("a < b > c & <");
}

void TestDesktopNotifier::markupIsShownAndNeverRead()
{
    QFETCH(QString, text);
    m_notifier->notify(text, text);
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    const QString body = m_desktop->shown.first().body;
    QVERIFY(!body.contains(QLatin1Char('<')));
    QCOMPARE(QTextDocumentFragment::fromHtml(body).toPlainText(), text);
    QCOMPARE(m_desktop->shown.first().title, text); // in which there is never any
    // A desktop that knows no markup shows what it gets.
    m_desktop->capabilities = QStringList{QStringLiteral("body")};
    m_notifier->notify(text, text);
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 2, patience);
    QCOMPARE(m_desktop->shown.last().body, text);
}

void TestDesktopNotifier::theNextNotificationReplacesTheOneBefore()
{
    const uint number = m_desktop->nextNumber();
    m_notifier->notify(title(), QStringLiteral("one"));
    m_notifier->notify(title(), QStringLiteral("two"));
    m_notifier->notify(title(), QStringLiteral("three"));
    QTRY_VERIFY_WITH_TIMEOUT(
        !m_desktop->shown.isEmpty() && m_desktop->shown.last().body == QStringLiteral("three"), patience);
    // What would be shown again has been by the time that another one has had two answers.
    DesktopNotifier other(connection("other program"));
    for (const QString &text : {QStringLiteral("other"), QStringLiteral("another")}) {
        other.notify(title(), text);
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.last().body, text, patience);
    }
    QCOMPARE(m_desktop->shown.size(), 3);
    m_notifier->notify(title(), QStringLiteral("four"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.last().body, QStringLiteral("four"), patience);
    QCOMPARE(m_desktop->shown.last().replaced, number);
    QCOMPARE(m_desktop->nextNumber(), number + 2); // one of each
}

void TestDesktopNotifier::aClosedNotificationIsNotReplaced()
{
    const uint number = m_desktop->nextNumber();
    m_notifier->notify(title(), QStringLiteral("one"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->nextNumber(), number + 1, patience);
    // In the order of the bus: the answer, what was closed, and the question that follows.
    Q_EMIT m_desktop->NotificationClosed(number + 100, 2);
    m_notifier->notify(title(), QStringLiteral("two"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 2, patience);
    QCOMPARE(m_desktop->shown.last().replaced, number);
    Q_EMIT m_desktop->NotificationClosed(number, 2);
    const QSignalSpy clicked(m_notifier.get(), &DesktopNotifier::activated);
    Q_EMIT m_desktop->ActionInvoked(number, QStringLiteral("default")); // of what is not there any more
    m_notifier->notify(title(), QStringLiteral("three"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 3, patience);
    QCOMPARE(m_desktop->shown.last().replaced, 0U);
    QCOMPARE(clicked.count(), 0);
}

void TestDesktopNotifier::aClickActivates()
{
    const QSignalSpy clicked(m_notifier.get(), &DesktopNotifier::activated);
    const uint number = m_desktop->nextNumber();
    m_notifier->notify(title(), QStringLiteral("one"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().actions.first(), QStringLiteral("default"));
    Q_EMIT m_desktop->ActionInvoked(number + 1, QStringLiteral("default"));
    Q_EMIT m_desktop->ActionInvoked(number, QStringLiteral("settings"));
    Q_EMIT m_desktop->ActionInvoked(number, QStringLiteral("default"));
    QTRY_COMPARE_WITH_TIMEOUT(clicked.count(), 1, patience);
    Q_EMIT m_desktop->ActionInvoked(number, QStringLiteral("default"));
    QTRY_COMPARE_WITH_TIMEOUT(clicked.count(), 2, patience);
}

void TestDesktopNotifier::nobodyElseCanTellOfAClick()
{
    const QSignalSpy clicked(m_notifier.get(), &DesktopNotifier::activated);
    const uint number = m_desktop->nextNumber();
    m_notifier->notify(title(), QStringLiteral("one"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QDBusConnection stranger = connection("stranger");
    QDBusMessage click = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/Notifications"),
                                                    QStringLiteral("org.freedesktop.Notifications"),
                                                    QStringLiteral("ActionInvoked"));
    click << number << QStringLiteral("default");
    QVERIFY(stranger.send(click));
    // The bus has handed it to everybody before it answers this.
    const QDBusMessage ping =
        QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                                       QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    QCOMPARE(stranger.call(ping).type(), QDBusMessage::ReplyMessage);
    Q_EMIT m_desktop->ActionInvoked(number, QStringLiteral("default"));
    // Both have been here when the desktop is asked for the next one.
    m_notifier->notify(title(), QStringLiteral("two"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 2, patience);
    QCOMPARE(clicked.count(), 1);
}

void TestDesktopNotifier::withoutActionsNoneIsOffered()
{
    m_desktop->capabilities = QStringList{QStringLiteral("body")};
    m_notifier->notify(title(), QStringLiteral("one"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QVERIFY(m_desktop->shown.first().actions.isEmpty());
}

void TestDesktopNotifier::anErrorIsPassedOver_data()
{
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("to the question") << true;
    QTest::newRow("to the notification") << false;
}

void TestDesktopNotifier::anErrorIsPassedOver()
{
    QFETCH(bool, atOnce);
    m_desktop->mood = atOnce ? RecordingDesktop::Refusing : RecordingDesktop::Silent;
    m_notifier->notify(title(), QStringLiteral("one"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->questions, 1, patience);
    m_desktop->mood = RecordingDesktop::Refusing;
    if (!atOnce) {
        m_desktop->answer();
        QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    }
    m_desktop->mood = RecordingDesktop::Helpful;
    m_notifier->notify(title(), QStringLiteral("two"));
    QTRY_VERIFY_WITH_TIMEOUT(
        !m_desktop->shown.isEmpty() && m_desktop->shown.last().body == QStringLiteral("two"), patience);
    QCOMPARE(m_desktop->shown.last().replaced, 0U);
}

void TestDesktopNotifier::theNewestTextIsShownWhenASlowDesktopAnswers()
{
    m_desktop->mood = RecordingDesktop::Silent;
    m_notifier->notify(title(), QStringLiteral("one"));
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->unanswered.size(), 1, patience);
    m_notifier->notify(title(), QStringLiteral("two"));
    m_desktop->answer();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 1, patience);
    QCOMPARE(m_desktop->shown.first().body, QStringLiteral("two"));
    m_notifier->notify(title(), QStringLiteral("three"));
    m_notifier->notify(title(), QStringLiteral("four"));
    m_desktop->mood = RecordingDesktop::Helpful;
    const uint number = m_desktop->nextNumber();
    m_desktop->answer();
    QTRY_COMPARE_WITH_TIMEOUT(m_desktop->shown.size(), 2, patience);
    QCOMPARE(m_desktop->shown.last().body, QStringLiteral("four"));
    QCOMPARE(m_desktop->shown.last().replaced, number);
    QCOMPARE(m_desktop->questions, 2);
}

// It may come later, as the desktop's panel does after a crash.
void TestDesktopNotifier::withoutADesktopNothingHappens()
{
    m_desktop.reset();
    m_notifier->notify(title(), QStringLiteral("one"));
    m_desktop = std::make_unique<RecordingDesktop>(connection("desktop again"));
    m_notifier->notify(title(), QStringLiteral("two"));
    QTRY_VERIFY_WITH_TIMEOUT(!m_desktop->shown.isEmpty(), patience);
    QCOMPARE(m_desktop->shown.last().body, QStringLiteral("two"));
}

void TestDesktopNotifier::withoutABusNothingHappens()
{
    const QDBusConnection none =
        QDBusConnection::connectToBus(QStringLiteral("disabled:"), QStringLiteral("none"));
    QVERIFY(!none.isConnected());
    DesktopNotifier notifier(none);
    const QSignalSpy clicked(&notifier, &DesktopNotifier::activated);
    notifier.notify(title(), QStringLiteral("one"));
    QCoreApplication::processEvents();
    notifier.notify(title(), QStringLiteral("two"));
    QCoreApplication::processEvents();
    QCOMPARE(clicked.count(), 0);
    QVERIFY(m_desktop->shown.isEmpty());
    // When the bus goes while there is one, it is the same.
    m_desktop.reset();
    m_bus.reset();
    m_notifier->notify(title(), QStringLiteral("three"));
    QCoreApplication::processEvents();
}

QTEST_MAIN(TestDesktopNotifier)
#include "tst_desktopnotifier.moc"
