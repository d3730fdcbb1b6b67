// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "pagearea.h"

#include "pageclosebutton.h"
#include <halvora/plaintooltip.h>

#include <QEvent>
#include <QShortcut>
#include <QStyle>
#include <QTabBar>

namespace {

// More is never seen, and would be measured whenever the tabs are laid out.
constexpr int longestTitle = 200;

} // namespace

PageArea::PageArea(QWidget *parent)
    : QTabWidget(parent)
{
    setObjectName(QStringLiteral("halvora.pages"));
    setDocumentMode(true);
    setTabBarAutoHide(true);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideRight);
    const auto *shortcut = new QShortcut(QKeySequence::Close, this);
    connect(shortcut, &QShortcut::activated, this, [this] { closePage(currentIndex()); });
}

void PageArea::setHome(QWidget *page)
{
    delete m_home;
    m_home = page;
    insertTab(0, page, QString());
    setCurrentIndex(0);
    retranslate();
}

void PageArea::open(QWidget *page)
{
    if (indexOf(page) < 0) {
        addTab(page, QString());
        addCloseButton(page);
        followTitle(page);
        connect(page, &QWidget::windowTitleChanged, this, [this, page] { followTitle(page); });
    }
    setCurrentWidget(page); // the keys stay where they are, with what the page was opened from
}

void PageArea::addCloseButton(QWidget *page)
{
    auto *button = new PageCloseButton(tabBar());
    connect(button, &QAbstractButton::clicked, page, [this, page] { closePage(indexOf(page)); });
    const auto side = style()->styleHint(QStyle::SH_TabBar_CloseButtonPosition, nullptr, tabBar());
    tabBar()->setTabButton(indexOf(page), QTabBar::ButtonPosition(side), button);
}

QWidget *PageArea::find(const QString &name) const
{
    for (int i = 0; i < count(); ++i) {
        if (widget(i)->objectName() == name)
            return widget(i);
    }
    return nullptr;
}

void PageArea::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QTabWidget::changeEvent(event);
}

void PageArea::closePage(int index)
{
    QWidget *page = widget(index);
    if (!page || page == m_home)
        return;
    removeTab(index);
    page->deleteLater(); // it may be what asks for this
}

void PageArea::followTitle(QWidget *page)
{
    const int index = indexOf(page);
    if (index < 0)
        return;
    setTabToolTip(index, plainToolTip(page->windowTitle()));
    QString title = page->windowTitle().left(longestTitle);
    setTabText(index, title.replace(QLatin1Char('&'), QLatin1String("&&")));
}

void PageArea::retranslate()
{
    if (m_home)
        setTabText(indexOf(m_home), tr("Home"));
}
