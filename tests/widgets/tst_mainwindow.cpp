// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/connectiongraphwidget.h>
#include <halvora/core.h>
#include <halvora/mainwindow.h>

#include <QAction>
#include <QDomDocument>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTextDocument>
#include <QTimer>
#include <QToolBar>
#include <QTranslator>
#include <QtTest>

namespace {

// Every text of the program, marked.
class Marking : public QTranslator {
public:
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return QLatin1Char('~') + QString::fromUtf8(text);
    }
    bool isEmpty() const override { return false; }
};

QString evil()
{
    return QStringLiteral("<img src=\"file:///etc/hostname\"><b>bold</b> &amp; %1");
}

QString nested()
{
    return QStringLiteral("<table><tr><td>").repeated(3000);
}

} // namespace

class TestMainWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theMenusAreThere();
    void everyEntryAsksByItsSignal_data();
    void everyEntryAsksByItsSignal();
    void quitClosesTheWindow();
    void quitAndSettingsHaveShortcuts();
    void theAccountEntriesFollowTheState();
    void theReportIsOfferedOnlyWhenTheCoreSaysSo();
    void theProvidersAboutEntryIsReplaced();
    void anAboutEntryThatIsGoneIsForgotten();
    void theStateIsToldInWordsAndColour_data();
    void theStateIsToldInWordsAndColour();
    void anUnknownStateIsOffline();
    void aNoticeIsReplacedByTheNext();
    void aNoticeGoesByItself();
    void serviceTextsArePlain_data();
    void serviceTextsArePlain();
    void aLongNoticeDoesNotWidenTheWindow();
    void aLongNoticeLeavesTheStateReadable();
    void aNewerVersionIsOfferedAndDismissed();
    void onlyAWebAddressCanBeOpened_data();
    void onlyAWebAddressCanBeOpened();
    void anOfferWithoutAVersionIsASentenceToo();
    void theDownloadRateIsInTheStatusBar();
    void everythingForTheSavedLayoutHasAName();
    void theWindowHasItsIcon();
    void anotherLanguageReachesEveryText();

private:
    template <typename T> T *part(const char *name) const
    {
        return m_window->findChild<T *>(QString::fromLatin1(name));
    }
    void offer(const QString &version, const QString &url, const QString &note);
    QStringList texts() const;

    QTemporaryDir m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<MainWindow> m_window;
};

void TestMainWindow::init()
{
    m_window.reset();
    m_core = std::make_unique<Core>(m_profile.path());
    m_window = std::make_unique<MainWindow>(m_core.get());
    m_window->resize(700, 500);
}

void TestMainWindow::offer(const QString &version, const QString &url, const QString &note)
{
    QDomDocument document;
    QDomElement element = document.createElement(QStringLiteral("update"));
    element.setAttribute(QStringLiteral("version"), version);
    element.setAttribute(QStringLiteral("url"), url);
    element.appendChild(document.createTextNode(note));
    m_core->performOnlineUpdate(element);
}

void TestMainWindow::theMenusAreThere()
{
    QStringList titles;
    const auto actions = m_window->menuBar()->actions();
    for (const QAction *action : actions)
        titles.append(action->text().remove(QLatin1Char('&')));
    QCOMPARE(titles, (QStringList{QStringLiteral("Halvora"), QStringLiteral("Account"),
                                  QStringLiteral("View"), QStringLiteral("Help")}));
}

void TestMainWindow::everyEntryAsksByItsSignal_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("signal");
    QTest::newRow("open") << QStringLiteral("halvora.open") << QByteArray(SIGNAL(fileRequested()));
    QTest::newRow("login") << QStringLiteral("halvora.login") << QByteArray(SIGNAL(loginRequested()));
    QTest::newRow("logout") << QStringLiteral("halvora.logout") << QByteArray(SIGNAL(logoutRequested()));
    QTest::newRow("settings") << QStringLiteral("halvora.settings")
                              << QByteArray(SIGNAL(settingsRequested()));
    QTest::newRow("report") << QStringLiteral("halvora.report") << QByteArray(SIGNAL(reportRequested()));
}

void TestMainWindow::everyEntryAsksByItsSignal()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, signal);
    m_window->setLoginPossible(true, true);
    m_core->setErrorReportVisible(true);
    QSignalSpy spy(m_window.get(), signal.constData());
    auto *action = m_window->findChild<QAction *>(entry);
    QVERIFY(action);
    QVERIFY(action->isVisible());
    action->trigger();
    QCOMPARE(spy.count(), 1);
}

void TestMainWindow::quitClosesTheWindow()
{
    m_window->show();
    QSignalSpy spy(m_window.get(), &MainWindow::closing);
    part<QAction>("halvora.quit")->trigger();
    QVERIFY(!m_window->isVisible());
    QCOMPARE(spy.count(), 1);
}

void TestMainWindow::quitAndSettingsHaveShortcuts()
{
    QVERIFY(part<QAction>("halvora.quit")->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_Q)));
    QVERIFY(!part<QAction>("halvora.settings")->shortcut().isEmpty());
    QVERIFY(part<QAction>("halvora.open")->shortcuts().contains(QKeySequence(Qt::CTRL | Qt::Key_O)));
}

void TestMainWindow::theAccountEntriesFollowTheState()
{
    QVERIFY(part<QAction>("halvora.login")->isEnabled());
    QVERIFY(!part<QAction>("halvora.logout")->isEnabled());
    m_window->setLoginPossible(false, true);
    QVERIFY(!part<QAction>("halvora.login")->isEnabled());
    QVERIFY(part<QAction>("halvora.logout")->isEnabled());
    m_window->setLoginPossible(false, false);
    QVERIFY(!part<QAction>("halvora.logout")->isEnabled());
}

void TestMainWindow::theReportIsOfferedOnlyWhenTheCoreSaysSo()
{
    QVERIFY(!part<QAction>("halvora.report")->isVisible());
    m_core->setErrorReportVisible(true);
    QVERIFY(part<QAction>("halvora.report")->isVisible());
    m_core->setErrorReportVisible(false);
    QVERIFY(!part<QAction>("halvora.report")->isVisible());

    m_core->setErrorReportVisible(true);
    const MainWindow later(m_core.get());
    QVERIFY(later.findChild<QAction *>(QStringLiteral("halvora.report"))->isVisible());
}

void TestMainWindow::theProvidersAboutEntryIsReplaced()
{
    QAction one(QStringLiteral("About One"), nullptr);
    QAction two(QStringLiteral("About Two"), nullptr);
    const auto *help = part<QMenu>("halvora.helpMenu");
    m_window->setAboutAction(&one);
    QVERIFY(help->actions().contains(&one));
    m_window->setAboutAction(&two);
    QVERIFY(!help->actions().contains(&one));
    QVERIFY(help->actions().contains(&two));
    m_window->setAboutAction(nullptr);
    QVERIFY(!help->actions().contains(&two));
}

void TestMainWindow::anAboutEntryThatIsGoneIsForgotten()
{
    auto action = std::make_unique<QAction>(QStringLiteral("About One"), nullptr);
    m_window->setAboutAction(action.get());
    const int count = part<QMenu>("halvora.helpMenu")->actions().size();
    action.reset();
    QCOMPARE(part<QMenu>("halvora.helpMenu")->actions().size(), count - 1);
    QAction next(QStringLiteral("About Two"), nullptr);
    m_window->setAboutAction(&next);
    QCOMPARE(part<QMenu>("halvora.helpMenu")->actions().size(), count);
}

void TestMainWindow::theStateIsToldInWordsAndColour_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("word");
    QTest::newRow("offline") << int(MainWindow::Offline) << QStringLiteral("Offline");
    QTest::newRow("connecting") << int(MainWindow::Connecting) << QStringLiteral("Connecting…");
    QTest::newRow("connected") << int(MainWindow::Connected) << QStringLiteral("Connected");
    QTest::newRow("lost") << int(MainWindow::Lost) << QStringLiteral("Connection lost");
}

void TestMainWindow::theStateIsToldInWordsAndColour()
{
    QFETCH(int, state);
    QFETCH(QString, word);
    auto *dot = part<QWidget>("halvora.stateDot");
    m_window->setOnlineState(state);
    QCOMPARE(part<QLabel>("halvora.stateText")->text(), word);
    const QImage mine = dot->grab().toImage();
    for (int other = 0; other < 4; ++other) {
        m_window->setOnlineState(other);
        QCOMPARE(dot->grab().toImage() == mine, other == state);
    }
    m_window->setOnlineState(state, QStringLiteral("As it is"));
    QCOMPARE(part<QLabel>("halvora.stateText")->text(), QStringLiteral("As it is"));
}

void TestMainWindow::anUnknownStateIsOffline()
{
    for (const int state : {-1, 4, std::numeric_limits<int>::max()}) {
        m_window->setOnlineState(MainWindow::Connected);
        m_window->setOnlineState(state);
        QCOMPARE(part<QLabel>("halvora.stateText")->text(), QStringLiteral("Offline"));
    }
}

void TestMainWindow::aNoticeIsReplacedByTheNext()
{
    m_window->showNotice(QStringLiteral("The bookmarks were saved."));
    QCOMPARE(part<QLabel>("halvora.notice")->text(), QStringLiteral("The bookmarks were saved."));
    m_window->showNotice(QStringLiteral("The login was\nrefused."));
    QCOMPARE(part<QLabel>("halvora.notice")->text(), QStringLiteral("The login was refused."));
}

void TestMainWindow::aNoticeGoesByItself()
{
    auto *timer = part<QTimer>("halvora.noticeTimer");
    QVERIFY(!timer->isActive());
    m_window->showNotice(QStringLiteral("The bookmarks were saved."));
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 30000);
    timer->start(0);
    QTRY_VERIFY(part<QLabel>("halvora.notice")->text().isEmpty());
    QVERIFY(!timer->isActive());
    QVERIFY(part<QLabel>("halvora.notice")->toolTip().isEmpty());
    m_window->showNotice(QStringLiteral("Again."));
    QCOMPARE(timer->interval(), 30000);
}

void TestMainWindow::serviceTextsArePlain_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a picture from the disk") << evil();
    QTest::newRow("nested tables") << nested();
    QTest::newRow("an entity") << QStringLiteral("&lt;b&gt;");
    QTest::newRow("a line and a tag") << QStringLiteral("first\n<h1>second</h1>");
    QTest::newRow("megabytes") << QString(1 << 22, QLatin1Char('<'));
}

void TestMainWindow::serviceTextsArePlain()
{
    QFETCH(QString, text);
    m_window->show();
    m_window->showNotice(text);
    m_window->setOnlineState(MainWindow::Lost, text);
    offer(text.left(200), QStringLiteral("https://halvora.example/"), text);
    for (const char *name : {"halvora.notice", "halvora.stateText", "halvora.updateText"}) {
        const auto *label = part<QLabel>(name);
        QVERIFY(label);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(label->text().size() <= 4000);
        const QString tip = label->toolTip();
        QVERIFY(Qt::mightBeRichText(tip));
        QVERIFY(tip.startsWith(QLatin1String("<p ")) && tip.endsWith(QLatin1String("</p>")));
        QCOMPARE(tip.count(QLatin1Char('<')), 2);
        QTextDocument document;
        document.setHtml(tip);
        QCOMPARE(document.toPlainText().simplified(), label->text());
    }
    QVERIFY(!m_window->grab().isNull());
}

void TestMainWindow::aLongNoticeDoesNotWidenTheWindow()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    const int least = m_window->minimumSizeHint().width();
    m_window->showNotice(QStringLiteral("word ").repeated(300));
    m_window->setOnlineState(MainWindow::Lost, QStringLiteral("word ").repeated(300));
    offer(QStringLiteral("9"), QString(), QStringLiteral("word ").repeated(300));
    QCoreApplication::processEvents();
    QVERIFY(m_window->minimumSizeHint().width() <= least + 200);
    QVERIFY(part<QWidget>("halvora.updateDismiss")->isVisible());
    QVERIFY(m_window->rect().contains(part<QWidget>("halvora.updateDismiss")->mapTo(m_window.get(), {})));
    QVERIFY(m_window->rect().contains(part<QWidget>("halvora.connectionGraph")->mapTo(m_window.get(), {})));
}

void TestMainWindow::aLongNoticeLeavesTheStateReadable()
{
    m_window->setOnlineState(MainWindow::Lost);
    m_window->showNotice(QStringLiteral("word ").repeated(300));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    const auto *state = part<QLabel>("halvora.stateText");
    QTRY_VERIFY(state->width() >= state->fontMetrics().horizontalAdvance(state->text()));
}

void TestMainWindow::aNewerVersionIsOfferedAndDismissed()
{
    m_window->show();
    auto *bar = part<QWidget>("halvora.updateNotice");
    QVERIFY(!bar->isVisible());
    offer(QStringLiteral("2.1"), QStringLiteral("https://halvora.example/new?a=1"),
          QStringLiteral("Faster."));
    QVERIFY(bar->isVisible());
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(part<QLabel>("halvora.updateText")->text(), QStringLiteral("Version 2.1 is available. Faster."));

    QSignalSpy spy(m_window.get(), &MainWindow::linkRequested);
    part<QPushButton>("halvora.updateShow")->click();
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.constFirst().constFirst().toUrl(), QUrl(QStringLiteral("https://halvora.example/new?a=1")));
    part<QPushButton>("halvora.updateDismiss")->click();
    QVERIFY(!bar->isVisible());
    offer(QStringLiteral("2.2"), QString(), QString());
    QVERIFY(bar->isVisible());
}

void TestMainWindow::onlyAWebAddressCanBeOpened_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("web");
    QTest::newRow("https") << QStringLiteral("https://halvora.example/") << true;
    QTest::newRow("http") << QStringLiteral("http://halvora.example") << true;
    QTest::newRow("capitals") << QStringLiteral("HTTPS://Halvora.Example/") << true;
    QTest::newRow("empty") << QString() << false;
    QTest::newRow("a file") << QStringLiteral("file:///etc/passwd") << false;
    QTest::newRow("a script") << QStringLiteral("javascript:alert(1)") << false;
    QTest::newRow("no host") << QStringLiteral("https:///new") << false;
    QTest::newRow("no scheme") << QStringLiteral("halvora.example/new") << false;
    QTest::newRow("not an address") << QStringLiteral("https://exa mple/<b>") << false;
    QTest::newRow("another scheme") << QStringLiteral("smb://halvora.example/share") << false;
}

void TestMainWindow::onlyAWebAddressCanBeOpened()
{
    QFETCH(QString, url);
    m_window->show();
    offer(QStringLiteral("2.1"), url, QString());
    QTEST(part<QPushButton>("halvora.updateShow")->isVisible(), "web");
}

void TestMainWindow::anOfferWithoutAVersionIsASentenceToo()
{
    offer(QString(), QString(), QStringLiteral("Please update."));
    QCOMPARE(part<QLabel>("halvora.updateText")->text(),
             QStringLiteral("A newer version is available. Please update."));
    offer(QStringLiteral("%1 %2"), QString(), QStringLiteral("%1"));
    QCOMPARE(part<QLabel>("halvora.updateText")->text(), QStringLiteral("Version %1 %2 is available. %1"));
}

void TestMainWindow::theDownloadRateIsInTheStatusBar()
{
    QVERIFY(m_window->statusBar()->findChild<ConnectionGraphWidget *>());
}

void TestMainWindow::everythingForTheSavedLayoutHasAName()
{
    QVERIFY(m_window->objectName().startsWith(QLatin1String("halvora.")));
    const auto bars = m_window->findChildren<QToolBar *>();
    QVERIFY(!bars.isEmpty());
    for (const QToolBar *bar : bars)
        QVERIFY(bar->objectName().startsWith(QLatin1String("halvora.")));
}

void TestMainWindow::theWindowHasItsIcon()
{
    QVERIFY(m_window->windowIcon().availableSizes().contains(QSize(256, 256)));
}

QStringList TestMainWindow::texts() const
{
    QStringList list;
    const auto actions = m_window->findChildren<QAction *>();
    for (const QAction *action : actions) {
        if (action->objectName().startsWith(QLatin1String("halvora.")))
            list.append(action->text());
    }
    const auto menus = m_window->findChildren<QMenu *>();
    for (const QMenu *menu : menus)
        list.append(menu->title());
    list.append(part<QLabel>("halvora.stateText")->text());
    list.append(part<QLabel>("halvora.updateText")->text());
    list.append(part<QPushButton>("halvora.updateShow")->text());
    list.append(part<QPushButton>("halvora.updateShow")->accessibleName());
    list.append(part<QPushButton>("halvora.updateDismiss")->text());
    list.append(part<QWidget>("halvora.updateNotice")->windowTitle());
    list.append(part<QWidget>("halvora.connectionGraph")->accessibleName());
    list.append(part<QWidget>("halvora.connectionGraph")->accessibleDescription());
    list.removeAll(QString());
    return list;
}

void TestMainWindow::anotherLanguageReachesEveryText()
{
    offer(QStringLiteral("2.1"), QString(), QString());
    const QStringList before = texts();
    QVERIFY(before.size() > 15);
    Marking marking;
    QVERIFY(QCoreApplication::installTranslator(&marking));
    QTRY_VERIFY(part<QLabel>("halvora.stateText")->text().startsWith(QLatin1Char('~')));
    QStringList expected = before;
    for (QString &text : expected)
        text.prepend(QLatin1Char('~'));
    QCOMPARE(texts(), expected);
    QCoreApplication::removeTranslator(&marking);
    QTRY_VERIFY(texts() == before);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
