// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvmessagestoolwidgetprivate.h"

#include "panels/cvmessageitemdelegate.h"
#include "panels/messagetreeview.h"
#include "requests/cvmessagerequest.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hpixmaps.h>
#include <halvora/hserver.h>
#include <halvora/stringformat.h>

#include <QDateTime>
#include <QDockWidget>
#include <QHeaderView>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace {

constexpr int readDelay = 5'000;      // milliseconds
constexpr int deleteColumnWidth = 20; // device-independent pixels

// Of unread messages, whose dates are the widest.
int dateColumnWidth(const QWidget &view)
{
    QFont font = view.font();
    font.setWeight(QFont::Bold);
    const QString now = StringFormat::dateTime(QDateTime::currentDateTime(), StringFormat::ShortDateTime);
    return QFontMetrics(font).horizontalAdvance(QLatin1String("  ") + now + QLatin1String("  "));
}

bool isOpeningKey(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

CVMessagesToolWidgetPrivate::CVMessagesToolWidgetPrivate(Connector *accountConnector, QDockWidget *dock)
    : QWidget(dock)
    , connector(accountConnector)
    , view(new MessageTreeView(accountConnector->core(), this))
    , m_dock(dock)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    setUpView();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(view);
    readTimer.setInterval(readDelay);
    view->installEventFilter(this);
    connect(&readTimer, &QTimer::timeout, this, &CVMessagesToolWidgetPrivate::markCurrentMessageAsRead);
    connect(view, &QAbstractItemView::clicked, this, &CVMessagesToolWidgetPrivate::messageClicked);
    connect(view, &QAbstractItemView::doubleClicked, this, &CVMessagesToolWidgetPrivate::showMessage);
    connect(connector->messages(), &HMessageManager::newMessagesArrived, this,
            &CVMessagesToolWidgetPrivate::newMessagesArrived);
}

QSize CVMessagesToolWidgetPrivate::sizeHint() const
{
    return {200, hDockWidgetHeight()};
}

void CVMessagesToolWidgetPrivate::setUpView()
{
    view->setModel(connector->messages());
    view->setItemDelegate(new CVMessageItemDelegate(view));
    setUpColumns();
}

// The header knows its sections only with a model, and makes none narrower than its minimum, which is that of
// a text.
void CVMessagesToolWidgetPrivate::setUpColumns()
{
    QHeaderView *header = view->header();
    header->setMinimumSectionSize(deleteColumnWidth);
    header->setStretchLastSection(false);
    header->setSectionResizeMode(HMessageManager::TextColumn, QHeaderView::Stretch);
    header->setSectionResizeMode(HMessageManager::DateColumn, QHeaderView::Fixed);
    header->setSectionResizeMode(HMessageManager::DeleteColumn, QHeaderView::Fixed);
    header->resizeSection(HMessageManager::DateColumn, dateColumnWidth(*view));
    header->resizeSection(HMessageManager::DeleteColumn, deleteColumnWidth);
}

void CVMessagesToolWidgetPrivate::newMessagesArrived()
{
    if (!m_dock->isVisible())
        m_dock->show();
}

void CVMessagesToolWidgetPrivate::showMessage(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    readTimer.start(); // from now on, also when it runs already
    const HMessage message = connector->messages()->messageAt(index.row());
    if (!message.isNull())
        connector->plugin()->openUrl(message.url());
}

void CVMessagesToolWidgetPrivate::messageClicked(const QModelIndex &index)
{
    if (index.isValid() && index.column() == HMessageManager::DeleteColumn)
        deleteMessage(index);
    else
        showMessage(index);
}

void CVMessagesToolWidgetPrivate::markCurrentMessageAsRead()
{
    readTimer.stop();
    const QModelIndex index = view->currentIndex();
    if (!index.isValid())
        return;
    HMessageManager *messages = connector->messages();
    messages->markMessageAsRead(index.row());
    pendingRead.append(messages->messageAt(index.row()).uid());
    sendMessageStatus();
}

void CVMessagesToolWidgetPrivate::deleteMessage(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    readTimer.stop();
    HMessageManager *messages = connector->messages();
    pendingDeleted.append(messages->messageAt(index.row()).uid());
    messages->deleteMessage(index.row());
    sendMessageStatus();
}

void CVMessagesToolWidgetPrivate::sendMessageStatus()
{
    if (request || (pendingRead.isEmpty() && pendingDeleted.isEmpty()))
        return;
    request = QSharedPointer<CVMessageRequest>::create(connector);
    while (!pendingRead.isEmpty())
        request->addReadMessage(pendingRead.takeFirst());
    while (!pendingDeleted.isEmpty())
        request->addDeletedMessage(pendingDeleted.takeFirst());
    connect(request.data(), &HRequest::requestFinished, this,
            &CVMessagesToolWidgetPrivate::messageRequestFinished);
    connector->server()->addRequestToQueue(request);
}

// Reports are not repeated: what the service did not take is lost to it, as it is when the program ends.
void CVMessagesToolWidgetPrivate::messageRequestFinished()
{
    request.reset();
    sendMessageStatus();
}

bool CVMessagesToolWidgetPrivate::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view && isOpeningKey(*event)) {
        const QModelIndex index = view->currentIndex();
        if (index.isValid()) {
            showMessage(index);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
