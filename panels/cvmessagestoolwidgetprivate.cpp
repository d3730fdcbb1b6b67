// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "panels/cvmessagestoolwidgetprivate.h"

#include "panels/cvmessageitemdelegate.h"
#include "panels/messagetreeview.h"
#include "requests/cvmessagerequest.h"

#include <halvora/connector.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hpixmaps.h>
#include <halvora/stringformat.h>

#include <QDateTime>
#include <QHeaderView>
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

} // namespace

CVMessagesToolWidgetPrivate::CVMessagesToolWidgetPrivate(Connector *accountConnector, QWidget *parent)
    : QWidget(parent)
    , connector(accountConnector)
    , view(new MessageTreeView(accountConnector->core(), this))
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    setUpView();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(view);
    readTimer.setInterval(readDelay);
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
