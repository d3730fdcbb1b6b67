// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagespanel.h"

#include "panels/cvmessageitemdelegate.h"
#include "panels/cvmessagestoolwidget.h"
#include "panels/cvmessagestoolwidgetprivate.h"
#include "panels/messagetreeview.h"

#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hpixmaps.h>
#include <halvora/linkopener.h>
#include <halvora/stringformat.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QLayout>
#include <QSignalSpy>
#include <QStringListModel>
#include <QTest>
#include <QTranslator>

/// How the messages panel looks and what it does with the pointer and the keys.
class TestCVMessagesToolWidget : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theDockCanBeMovedAndFloatedButNotClosed();
    void theContentHoldsTheViewAlone();
    void theViewIsAPlainListWithoutAHeader();
    void theTextStretchesBesideDateAndCross();
    void theTextTakesTheRoomThatIsLeft();
    void theTitleFollowsTheLanguage();
    void slotsAreKnownByTheirNames();
    void theReadTimerIsSetButDoesNotRunAtFirst();
    void aClickOpensTheMessage_data();
    void aClickOpensTheMessage();
    void aDoubleClickOpensTheMessageTwice();
    void openingStartsTheReadTimeAnew();
    void aRowWithoutAMessageOpensNothing();
    void aMessageWithoutALinkIsReadLikeOthers();
    void anInvalidIndexIsIgnored();
    void theMessageThatIsCurrentAtTheEndIsRead();
    void withoutACurrentMessageNothingIsRead();
    void aClickOnTheCrossDeletesWithoutOpening();
    void aDeletionEndsTheReadTime();
    void aMessageThatCanNotBeDeletedStays();
    void returnAndEnterOpenTheCurrentMessage_data();
    void returnAndEnterOpenTheCurrentMessage();
    void otherKeysOpenAndDeleteNothing_data();
    void otherKeysOpenAndDeleteNothing();
    void returnWithoutACurrentMessageIsLeftToTheView();
    void onlyKeyPressesOfTheViewAreTaken();
    void newMessagesShowAHiddenPanel();
    void newMessagesLeaveAVisiblePanelAlone();

private:
    std::unique_ptr<MessagesPanel> m_panel;
};

namespace {

constexpr int deleteColumn = 2;

class GermanTitle final : public QTranslator {
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        const bool isTitle =
            qstrcmp(context, "CVMessagesToolWidget") == 0 && qstrcmp(source, "Messages") == 0;
        return isTitle ? QStringLiteral("Nachrichten") : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

void TestCVMessagesToolWidget::init()
{
    m_panel = std::make_unique<MessagesPanel>();
    QVERIFY2(m_panel->account().problem().isEmpty(), qPrintable(m_panel->account().problem()));
}

void TestCVMessagesToolWidget::cleanup()
{
    m_panel.reset();
}

void TestCVMessagesToolWidget::theDockCanBeMovedAndFloatedButNotClosed()
{
    QCOMPARE(m_panel->dock()->objectName(), QStringLiteral("MessagesToolWidget"));
    QCOMPARE(m_panel->dock()->features(), QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    QCOMPARE(m_panel->dock()->windowTitle(), QStringLiteral("Messages"));
}

void TestCVMessagesToolWidget::theContentHoldsTheViewAlone()
{
    QWidget *content = m_panel->dock()->widget();
    QVERIFY(qobject_cast<CVMessagesToolWidgetPrivate *>(content));
    QCOMPARE(content->sizeHint(), QSize(200, hDockWidgetHeight()));
    QCOMPARE(content->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum));
    QVERIFY(qobject_cast<QVBoxLayout *>(content->layout()));
    QCOMPARE(content->layout()->contentsMargins(), QMargins());
    QCOMPARE(content->layout()->spacing(), 0);
    QCOMPARE(content->layout()->count(), 1);
    QCOMPARE(content->layout()->itemAt(0)->widget(), static_cast<QWidget *>(m_panel->view()));
}

void TestCVMessagesToolWidget::theViewIsAPlainListWithoutAHeader()
{
    const MessageTreeView *view = m_panel->view();
    QCOMPARE(view->style(), m_panel->account().core().systemStyle());
    QVERIFY(view->testAttribute(Qt::WA_SetStyle));
    QCOMPARE(view->frameShape(), QFrame::NoFrame);
    QVERIFY(view->isHeaderHidden());
    QCOMPARE(view->indentation(), 0);
    QVERIFY(view->alternatingRowColors());
    QVERIFY(view->uniformRowHeights());
    QCOMPARE(view->model(), static_cast<QAbstractItemModel *>(&m_panel->messages()));
    QVERIFY(qobject_cast<CVMessageItemDelegate *>(view->itemDelegate()));
}

void TestCVMessagesToolWidget::theTextStretchesBesideDateAndCross()
{
    const QHeaderView *header = m_panel->view()->header();
    QCOMPARE(header->count(), 3);
    QCOMPARE(header->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(header->sectionResizeMode(1), QHeaderView::Fixed);
    QCOMPARE(header->sectionResizeMode(2), QHeaderView::Fixed);
    QVERIFY(!header->stretchLastSection());
    QCOMPARE(header->sectionSize(2), 20);

    QFont font = m_panel->view()->font();
    font.setWeight(75);
    const QFontMetrics metrics(font);
    // The clock may have gone on since the panel was made.
    const QDateTime now = QDateTime::currentDateTime();
    QVector<int> widths;
    for (int minute = 0; minute <= 15; ++minute) {
        const QString text = StringFormat::dateTime(now.addSecs(-60 * minute), StringFormat::ShortDateTime);
        widths.append(metrics.horizontalAdvance(QStringLiteral("  %1  ").arg(text)));
    }
    QVERIFY(widths.contains(header->sectionSize(1)));
}

void TestCVMessagesToolWidget::theTextTakesTheRoomThatIsLeft()
{
    const QHeaderView *header = m_panel->view()->header();
    const int date = header->sectionSize(1);
    m_panel->fill(3);
    for (const int width : {500, 800}) {
        m_panel->window().resize(width, 600);
        QTRY_COMPARE(header->sectionSize(0), m_panel->view()->viewport()->width() - date - 20);
        QCOMPARE(header->sectionSize(1), date);
        QCOMPARE(header->sectionSize(2), 20);
    }
}

void TestCVMessagesToolWidget::theTitleFollowsTheLanguage()
{
    GermanTitle translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QTRY_COMPARE(m_panel->dock()->windowTitle(), QStringLiteral("Nachrichten"));
    QVERIFY(QCoreApplication::removeTranslator(&translator));
    QTRY_COMPARE(m_panel->dock()->windowTitle(), QStringLiteral("Messages"));
}

void TestCVMessagesToolWidget::slotsAreKnownByTheirNames()
{
    const QMetaObject *meta = m_panel->content()->metaObject();
    QStringList names;
    for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
        QCOMPARE(meta->method(i).methodType(), QMetaMethod::Slot);
        names.append(QString::fromLatin1(meta->method(i).methodSignature()));
    }
    const QStringList expected{
        QStringLiteral("newMessagesArrived()"),        QStringLiteral("showMessage(QModelIndex)"),
        QStringLiteral("messageClicked(QModelIndex)"), QStringLiteral("markCurrentMessageAsRead()"),
        QStringLiteral("deleteMessage(QModelIndex)"),  QStringLiteral("sendMessageStatus()"),
    };
    QCOMPARE(names, expected);
}

void TestCVMessagesToolWidget::theReadTimerIsSetButDoesNotRunAtFirst()
{
    QCOMPARE(m_panel->readTimer().interval(), 5'000);
    QVERIFY(!m_panel->readTimer().isSingleShot());
    m_panel->fill(2);
    QVERIFY(!m_panel->readTimer().isActive());
}

void TestCVMessagesToolWidget::aClickOpensTheMessage_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("on the text") << 0;
    QTest::newRow("on the date") << 1;
}

void TestCVMessagesToolWidget::aClickOpensTheMessage()
{
    QFETCH(int, column);
    m_panel->fill(3);
    m_panel->click(1, column);
    QCOMPARE(m_panel->opened(), QStringList{QStringLiteral("/1")});
    QVERIFY(m_panel->readTimer().isActive());
    QCOMPARE(m_panel->readTimer().interval(), 5'000);
    QCOMPARE(m_panel->uids().size(), 3);
    QVERIFY(!m_panel->message(1).isRead());
}

void TestCVMessagesToolWidget::aDoubleClickOpensTheMessageTwice()
{
    m_panel->fill(3);
    const QPoint place = m_panel->view()->visualRect(m_panel->cell(2)).center();
    QWidget *viewport = m_panel->view()->viewport();
    QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(m_panel->opened(), QStringList({QStringLiteral("/2"), QStringLiteral("/2")}));
}

// A timer that is started just before ends before, however slow the machine is.
void TestCVMessagesToolWidget::openingStartsTheReadTimeAnew()
{
    m_panel->fill(2);
    m_panel->readTimer().setTimerType(Qt::PreciseTimer);
    m_panel->content()->showMessage(m_panel->cell(0));
    QTRY_VERIFY_WITH_TIMEOUT(m_panel->readTimer().remainingTime() < 4'900, 60'000);
    QTimer other;
    other.setTimerType(Qt::PreciseTimer);
    other.start(5'000);
    m_panel->content()->showMessage(m_panel->cell(0));
    const int remaining = m_panel->readTimer().remainingTime();
    QVERIFY(remaining >= other.remainingTime());
}

void TestCVMessagesToolWidget::aRowWithoutAMessageOpensNothing()
{
    m_panel->fill(1);
    const QStringListModel longer({QString(), QString(), QString()});
    m_panel->content()->showMessage(longer.index(2));
    QVERIFY(m_panel->opened().isEmpty());
    QVERIFY(m_panel->readTimer().isActive());
}

void TestCVMessagesToolWidget::aMessageWithoutALinkIsReadLikeOthers()
{
    const QSignalSpy refused(&m_panel->account().core().links(), &LinkOpener::refused);
    m_panel->receive(numberedMessage(0, true, false));
    m_panel->click(0);
    QVERIFY(m_panel->opened().isEmpty());
    m_panel->endReadTime();
    QVERIFY(m_panel->message(0).isRead());
    QVERIFY(refused.isEmpty()); // nobody asked for a link
}

void TestCVMessagesToolWidget::anInvalidIndexIsIgnored()
{
    m_panel->fill(2);
    m_panel->content()->showMessage({});
    m_panel->content()->messageClicked({});
    QVERIFY(!m_panel->readTimer().isActive());
    m_panel->content()->showMessage(m_panel->cell(0));
    m_panel->content()->deleteMessage({});
    QVERIFY(m_panel->readTimer().isActive());
    QCOMPARE(m_panel->uids().size(), 2);
    QVERIFY(!m_panel->isReporting());
}

void TestCVMessagesToolWidget::theMessageThatIsCurrentAtTheEndIsRead()
{
    m_panel->fill(3);
    m_panel->click(0);
    m_panel->view()->setCurrentIndex(m_panel->cell(2));
    m_panel->endReadTime();
    QVERIFY(!m_panel->readTimer().isActive());
    QVERIFY(!m_panel->message(0).isRead());
    QVERIFY(!m_panel->message(1).isRead());
    QVERIFY(m_panel->message(2).isRead());
    QVERIFY(m_panel->isReporting());
}

void TestCVMessagesToolWidget::withoutACurrentMessageNothingIsRead()
{
    m_panel->fill(2);
    m_panel->content()->showMessage(m_panel->cell(0));
    m_panel->view()->setCurrentIndex({});
    m_panel->endReadTime();
    QVERIFY(!m_panel->readTimer().isActive());
    QVERIFY(!m_panel->message(0).isRead());
    QVERIFY(!m_panel->isReporting());
}

void TestCVMessagesToolWidget::aClickOnTheCrossDeletesWithoutOpening()
{
    m_panel->fill(3);
    m_panel->click(1, deleteColumn);
    QCOMPARE(m_panel->uids(), QStringList({QStringLiteral("m0"), QStringLiteral("m2")}));
    QVERIFY(m_panel->opened().isEmpty());
    QVERIFY(!m_panel->readTimer().isActive());
    QVERIFY(m_panel->isReporting());
}

void TestCVMessagesToolWidget::aDeletionEndsTheReadTime()
{
    m_panel->fill(3);
    m_panel->click(0);
    m_panel->click(2, deleteColumn);
    QVERIFY(!m_panel->readTimer().isActive());
    QVERIFY(!m_panel->message(0).isRead());
}

void TestCVMessagesToolWidget::aMessageThatCanNotBeDeletedStays()
{
    m_panel->receive(numberedMessage(0, false));
    m_panel->click(0, deleteColumn);
    QCOMPARE(m_panel->uids(), QStringList{QStringLiteral("m0")});
    QVERIFY(m_panel->opened().isEmpty());
}

void TestCVMessagesToolWidget::returnAndEnterOpenTheCurrentMessage_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("column");
    QTest::newRow("Return") << int(Qt::Key_Return) << 0;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << 0;
    QTest::newRow("Return on the cross") << int(Qt::Key_Return) << deleteColumn;
}

void TestCVMessagesToolWidget::returnAndEnterOpenTheCurrentMessage()
{
    QFETCH(int, key);
    QFETCH(int, column);
    m_panel->fill(3);
    m_panel->view()->setCurrentIndex(m_panel->cell(1, column));
    const QSignalSpy activated(m_panel->view(), &QAbstractItemView::activated);
    QTest::keyClick(m_panel->view(), Qt::Key(key));
    QCOMPARE(m_panel->opened(), QStringList{QStringLiteral("/1")});
    QVERIFY(m_panel->readTimer().isActive());
    // The view, which would tell of it, never sees the key.
    QCOMPARE(activated.count(), 0);
    QCOMPARE(m_panel->uids().size(), 3);
}

void TestCVMessagesToolWidget::otherKeysOpenAndDeleteNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Delete") << int(Qt::Key_Delete);
    QTest::newRow("Backspace") << int(Qt::Key_Backspace);
    QTest::newRow("Space") << int(Qt::Key_Space);
    QTest::newRow("F2") << int(Qt::Key_F2);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void TestCVMessagesToolWidget::otherKeysOpenAndDeleteNothing()
{
    QFETCH(int, key);
    m_panel->fill(3);
    for (const int column : {0, deleteColumn}) {
        m_panel->view()->setCurrentIndex(m_panel->cell(1, column));
        QTest::keyClick(m_panel->view(), Qt::Key(key));
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QVERIFY(!m_panel->content()->eventFilter(m_panel->view(), &event));
    }
    QVERIFY(m_panel->opened().isEmpty());
    QVERIFY(!m_panel->readTimer().isActive());
    QCOMPARE(m_panel->uids().size(), 3);
    QVERIFY(!m_panel->isReporting());
}

void TestCVMessagesToolWidget::returnWithoutACurrentMessageIsLeftToTheView()
{
    m_panel->fill(2);
    m_panel->view()->setCurrentIndex({});
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QVERIFY(!m_panel->content()->eventFilter(m_panel->view(), &event));
    QVERIFY(m_panel->opened().isEmpty());
}

void TestCVMessagesToolWidget::onlyKeyPressesOfTheViewAreTaken()
{
    m_panel->fill(2);
    m_panel->view()->setCurrentIndex(m_panel->cell(0));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
    QVERIFY(!m_panel->content()->eventFilter(m_panel->content(), &press));
    QVERIFY(!m_panel->content()->eventFilter(m_panel->view(), &release));
    QVERIFY(m_panel->opened().isEmpty());
    QVERIFY(m_panel->content()->eventFilter(m_panel->view(), &press));
}

void TestCVMessagesToolWidget::newMessagesShowAHiddenPanel()
{
    m_panel->dock()->hide();
    m_panel->fill(1);
    QVERIFY(m_panel->dock()->isVisible());
}

void TestCVMessagesToolWidget::newMessagesLeaveAVisiblePanelAlone()
{
    m_panel->dock()->setFloating(true);
    QTRY_VERIFY_WITH_TIMEOUT(m_panel->dock()->isVisible(), 60'000);
    const QSignalSpy visibility(m_panel->dock(), &QDockWidget::visibilityChanged);
    m_panel->fill(1);
    QVERIFY(m_panel->dock()->isVisible());
    QCOMPARE(visibility.count(), 0);
    QVERIFY(m_panel->opened().isEmpty());
}

QTEST_MAIN(TestCVMessagesToolWidget)
#include "tst_cvmessagestoolwidget.moc"
