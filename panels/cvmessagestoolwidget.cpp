// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvmessagestoolwidget.h"

#include "panels/cvmessagestoolwidgetprivate.h"
#include "panels/messagetreeview.h"
#include "requests/cvmessagerequest.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>
#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hserver.h>
#include <halvora/mainwindow.h>

#include <QKeyEvent>

namespace {

bool isOpeningKey(const QEvent &event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

CVMessagesToolWidget::CVMessagesToolWidget(Connector *connector, MainWindow *parent)
    : FancyDockWidget(parent)
    , d(new CVMessagesToolWidgetPrivate(connector, this))
{
    setObjectName(QStringLiteral("MessagesToolWidget"));
    setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    setWidget(d);
    d->view->installEventFilter(this);
    connect(&d->readTimer, &QTimer::timeout, this, &CVMessagesToolWidget::markCurrentMessageAsRead);
    connect(d->view, &QAbstractItemView::clicked, this, &CVMessagesToolWidget::messageClicked);
    connect(d->view, &QAbstractItemView::doubleClicked, this, &CVMessagesToolWidget::showMessage);
    connect(connector->messages(), &HMessageManager::newMessagesArrived, this,
            &CVMessagesToolWidget::newMessagesArrived);
    setWindowTitle(tr("Messages"));
}

CVMessagesToolWidget::~CVMessagesToolWidget() = default;

void CVMessagesToolWidget::newMessagesArrived()
{
    if (!isVisible())
        show();
}

void CVMessagesToolWidget::showMessage(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    d->readTimer.start(); // from now on, also when it runs already
    const HMessage message = d->connector->messages()->messageAt(index.row());
    if (!message.isNull())
        d->connector->plugin()->openUrl(message.url());
}

void CVMessagesToolWidget::messageClicked(const QModelIndex &index)
{
    if (index.isValid() && index.column() == HMessageManager::DeleteColumn)
        deleteMessage(index);
    else
        showMessage(index);
}

void CVMessagesToolWidget::markCurrentMessageAsRead()
{
    d->readTimer.stop();
    const QModelIndex index = d->view->currentIndex();
    if (!index.isValid())
        return;
    HMessageManager *messages = d->connector->messages();
    messages->markMessageAsRead(index.row());
    d->pendingRead.append(messages->messageAt(index.row()).uid());
    sendMessageStatus();
}

void CVMessagesToolWidget::deleteMessage(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    d->readTimer.stop();
    HMessageManager *messages = d->connector->messages();
    d->pendingDeleted.append(messages->messageAt(index.row()).uid());
    messages->deleteMessage(index.row());
    sendMessageStatus();
}

void CVMessagesToolWidget::sendMessageStatus()
{
    if (d->request || (d->pendingRead.isEmpty() && d->pendingDeleted.isEmpty()))
        return;
    d->request = QSharedPointer<CVMessageRequest>::create(d->connector);
    while (!d->pendingRead.isEmpty())
        d->request->addReadMessage(d->pendingRead.takeFirst());
    while (!d->pendingDeleted.isEmpty())
        d->request->addDeletedMessage(d->pendingDeleted.takeFirst());
    connect(d->request.data(), &HRequest::requestFinished, this,
            &CVMessagesToolWidget::messageRequestFinished);
    d->connector->server()->addRequestToQueue(d->request);
}

// Reports are not repeated: what the service did not take is lost to it, as it is when the program ends.
void CVMessagesToolWidget::messageRequestFinished()
{
    d->request.reset();
    sendMessageStatus();
}

bool CVMessagesToolWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == d->view && isOpeningKey(*event)) {
        const QModelIndex index = d->view->currentIndex();
        if (index.isValid()) {
            showMessage(index);
            return true;
        }
    }
    return FancyDockWidget::eventFilter(watched, event);
}

void CVMessagesToolWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        setWindowTitle(tr("Messages"));
    FancyDockWidget::changeEvent(event);
}
