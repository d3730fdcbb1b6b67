// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "docktitlebar.h"

#include <halvora/stylehelper.h>

#include "docktitlebutton.h"
#include <halvora/plaintooltip.h>

#include <QDockWidget>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int leastTitleWidth = 40;

} // namespace

DockTitleBar::DockTitleBar(QDockWidget *dock)
    : QWidget(dock)
    , m_dock(dock)
    , m_space(new QSpacerItem(leastTitleWidth, 0, QSizePolicy::Expanding))
    , m_float(new DockTitleButton(DockTitleButton::Float, this))
    , m_close(new DockTitleButton(DockTitleButton::Close, this))
{
    setObjectName(QStringLiteral("halvora.dockTitle"));
    m_float->setObjectName(QStringLiteral("halvora.dockFloat"));
    m_close->setObjectName(QStringLiteral("halvora.dockClose"));

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 3, 3);
    layout->setSpacing(1);
    layout->addItem(m_space);
    layout->addWidget(m_float);
    layout->addWidget(m_close);

    connect(dock, &QWidget::windowTitleChanged, this, &DockTitleBar::followTitle);
    connect(dock, &QDockWidget::featuresChanged, this, &DockTitleBar::followFeatures);
    connect(dock, &QDockWidget::topLevelChanged, this, &DockTitleBar::describeButtons);
    // A panel that was made without a parent begins as a window, and is docked without topLevelChanged.
    connect(dock, &QDockWidget::dockLocationChanged, this, &DockTitleBar::describeButtons);
    connect(m_float, &QAbstractButton::clicked, dock, [dock] { dock->setFloating(!dock->isFloating()); });
    connect(m_close, &QAbstractButton::clicked, dock, &QWidget::close);
    followFeatures();
    followTitle();
}

QSize DockTitleBar::sizeHint() const
{
    const QSize buttons = layout()->sizeHint();
    const int text = fontMetrics().horizontalAdvance(m_dock->windowTitle());
    return {buttons.width() + qMax(0, text - leastTitleWidth),
            qMax(minimumSizeHint().height(), fontMetrics().height() + 8)};
}

void DockTitleBar::followTitle()
{
    setAccessibleName(m_dock->windowTitle());
    describeButtons();
    tellCutOffTitle();
    updateGeometry();
    update();
}

void DockTitleBar::followFeatures()
{
    m_float->setVisible(m_dock->features().testFlag(QDockWidget::DockWidgetFloatable));
    m_close->setVisible(m_dock->features().testFlag(QDockWidget::DockWidgetClosable));
}

void DockTitleBar::describeButtons()
{
    const QString title = m_dock->windowTitle();
    m_float->describe((m_dock->isFloating() ? tr("Dock %1") : tr("Float %1")).arg(title));
    m_close->describe(tr("Close %1").arg(title));
}

void DockTitleBar::tellCutOffTitle()
{
    const QString title = m_dock->windowTitle();
    setToolTip(elidedTitle() == title ? QString() : plainToolTip(title));
}

QRect DockTitleBar::titleArea() const
{
    const QRect space = m_space->geometry();
    return {space.left(), 0, space.width(), height() - 1};
}

QString DockTitleBar::elidedTitle() const
{
    return fontMetrics().elidedText(m_dock->windowTitle(), Qt::ElideRight, titleArea().width());
}

void DockTitleBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), StyleHelper::baseColor());
    painter.fillRect(0, height() - 1, width(), 1, StyleHelper::edgeColor());
    painter.setPen(StyleHelper::titleColor());
    painter.drawText(titleArea(),
                     int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter) |
                         Qt::TextSingleLine,
                     elidedTitle());
}

void DockTitleBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    tellCutOffTitle();
}

void DockTitleBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        describeButtons();
    QWidget::changeEvent(event);
}
