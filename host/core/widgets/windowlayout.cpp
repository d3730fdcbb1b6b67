// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "windowlayout.h"

#include <halvora/hpixmaps.h>

#include <QCryptographicHash>
#include <QDockWidget>
#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSettings>

#include <algorithm>

namespace {

// Goes up when saved arrangements no longer fit the window.
constexpr int version = 1;

QString geometryKey()
{
    return QStringLiteral("MainWindow/Geometry");
}

QString stateKey()
{
    return QStringLiteral("MainWindow/State");
}

// QMainWindow trusts what it reads: a state with a few bytes changed, as a damaged disk or an editor leaves
// it, can end the program. So only what was written here is handed to it.
QByteArray digest(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
}

QByteArray sealed(const QByteArray &bytes)
{
    return digest(bytes) + bytes;
}

QByteArray unsealed(const QVariant &value)
{
    const QByteArray all = value.toByteArray();
    const int length = QCryptographicHash::hashLength(QCryptographicHash::Sha256);
    const QByteArray bytes = all.mid(length);
    return digest(bytes) == all.left(length) ? bytes : QByteArray();
}

// Whether enough of the upper edge is on a screen to take hold of it.
bool canBeDragged(const QWidget &window)
{
    const QRect grip(window.pos(), QSize(window.width(), 30));
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.cbegin(), screens.cend(), [&grip](const QScreen *screen) {
        const QRect seen = screen->availableGeometry() & grip;
        return seen.width() >= 100 && seen.height() >= 20;
    });
}

// What the panel asks for, unless that is next to nothing or would leave nothing of the middle.
int sidebarWidth(const QDockWidget &dock)
{
    const int asked = dock.widget() ? dock.widget()->sizeHint().width() : 0;
    return qBound(hSidebarWidth(), asked, 2 * hSidebarWidth());
}

} // namespace

WindowLayout::WindowLayout(QMainWindow *window, QSettings &settings)
    : m_window(window)
    , m_settings(settings)
{
}

void WindowLayout::save() const
{
    if (m_defaults.isEmpty())
        return;
    m_settings.setValue(geometryKey(), sealed(m_window->saveGeometry()));
    m_settings.setValue(stateKey(), sealed(m_window->saveState(version)));
}

void WindowLayout::restorePlace()
{
    m_isPlaced = true;
    if (!m_window->restoreGeometry(unsealed(m_settings.value(geometryKey()))))
        applyDefaultSize();
    bringOnScreen();
}

void WindowLayout::restore()
{
    if (m_defaults.isEmpty())
        m_defaults = m_window->saveState(version);
    if (!m_isPlaced)
        restorePlace();
    m_isPlaced = false; // a later call goes back to what was saved then
    if (!m_window->restoreState(unsealed(m_settings.value(stateKey())), version))
        applyDefaultPanels();
}

void WindowLayout::reset()
{
    if (!m_defaults.isEmpty())
        applyDefaultPanels();
}

void WindowLayout::applyDefaultSize()
{
    m_window->resize(QSize(1200, 760).boundedTo(m_window->screen()->availableSize() * 0.9));
}

void WindowLayout::applyDefaultPanels()
{
    m_window->restoreState(m_defaults, version);
    const auto docks = m_window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QDockWidget *dock : docks) {
        const Qt::DockWidgetArea area = m_window->dockWidgetArea(dock);
        if (area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea)
            m_window->resizeDocks({dock}, {sidebarWidth(*dock)}, Qt::Horizontal);
        else
            m_window->resizeDocks({dock}, {hDockWidgetHeight()}, Qt::Vertical);
    }
}

void WindowLayout::bringOnScreen()
{
    if (m_window->isMaximized() || m_window->isFullScreen())
        return;
    const QSize size = m_window->size().boundedTo(m_window->screen()->availableVirtualSize());
    if (size == m_window->size() && canBeDragged(*m_window))
        return;
    m_window->resize(size);
    m_window->move(m_window->screen()->availableGeometry().center() - m_window->rect().center());
}
