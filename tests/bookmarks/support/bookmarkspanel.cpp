// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkspanel.h"

#include "words.h"

#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarktreeview.h"
#include "bookmarks/cvbookmarkstoolwidget.h"
#include "bookmarks/cvbookmarkstoolwidgetprivate.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QTimer>

namespace {

// The plug-in makes its panel when the program has its window.
CVBookmarksToolWidget *makeDock(BookmarkStore &store, MainWindow *window)
{
    store.core().setMainWindow(window);
    return new CVBookmarksToolWidget(&store.model(), store.plugin(), window);
}

bool chooseIn(QMenu *menu, QStringList path)
{
    QAction *entry = menuEntry(*menu, path.takeFirst());
    if (!entry)
        return false;
    menu->setActiveAction(entry);
    if (!path.isEmpty())
        return entry->menu() && chooseIn(entry->menu(), path);
    QTest::keyClick(menu, Qt::Key_Return);
    return true;
}

} // namespace

BookmarksPanel::BookmarksPanel()
    : m_window(&m_store.core())
    , m_dock(makeDock(m_store, &m_window))
{
    m_window.addToolWidget(Qt::LeftDockWidgetArea, m_dock);
    m_window.resize(700, 600);
    m_window.show();
    if (!QTest::qWaitForWindowActive(&m_window))
        qFatal("The window does not come up.");
}

BookmarksPanel::~BookmarksPanel() = default;

CVBookmarksToolWidgetPrivate *BookmarksPanel::content() const
{
    return static_cast<CVBookmarksToolWidgetPrivate *>(m_dock->widget());
}

BookmarkTreeView *BookmarksPanel::view() const
{
    return m_dock->findChild<BookmarkTreeView *>();
}

QModelIndex BookmarksPanel::addFolder(const char *name, const char *newsgroups, const QModelIndex &parent)
{
    const QModelIndex folder = m_store.addFolder(QString::fromLatin1(name), parent);
    m_store.model().addBookmarks(words(newsgroups), folder);
    view()->expand(folder);
    return folder;
}

QString BookmarksPanel::color(const QModelIndex &index) const
{
    return static_cast<const BookmarkItem *>(index.internalPointer())->color();
}

QWidget *BookmarksPanel::editor() const
{
    return view()->viewport()->findChild<QLineEdit *>();
}

QPoint BookmarksPanel::place(const QModelIndex &index) const
{
    const QRect rows = view()->viewport()->rect();
    return index.isValid() ? view()->visualRect(index).center() : rows.bottomLeft() + QPoint(20, -5);
}

void BookmarksPanel::click(const QModelIndex &index, Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, modifiers, place(index));
}

bool BookmarksPanel::openMenu(const QModelIndex &index, const std::function<void(QMenu &)> &look)
{
    bool came = false;
    QTimer::singleShot(0, &m_window, [&came, &look] {
        const QPointer<QMenu> menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        // The window system tells late who has the keys, and what opens meanwhile would lose them again.
        came = QTest::qWaitFor(
            [&menu] { return !menu || QGuiApplication::focusWindow() == menu->windowHandle(); });
        if (menu)
            look(*menu);
        if (menu)
            menu->close();
    });
    const QPoint point = view()->viewport()->mapToGlobal(place(index));
    QCursor::setPos(point);
    QTest::mouseClick(m_window.windowHandle(), Qt::RightButton, Qt::NoModifier,
                      m_window.mapFromGlobal(point));
    return came;
}

bool BookmarksPanel::choose(const QModelIndex &index, const QStringList &path)
{
    bool chosen = false;
    openMenu(index, [&chosen, &path](QMenu &menu) { chosen = chooseIn(&menu, path); });
    return chosen;
}

QStringList BookmarksPanel::menuTexts(const QModelIndex &index)
{
    QStringList texts;
    openMenu(index, [&texts](const QMenu &menu) { texts = ::menuTexts(menu); });
    return texts;
}

QAction *menuEntry(const QMenu &menu, const QString &text)
{
    const QList<QAction *> entries = menu.actions();
    for (QAction *entry : entries) {
        if (!entry->isSeparator() && entry->text() == text)
            return entry;
    }
    return nullptr;
}

QStringList menuTexts(const QMenu &menu)
{
    QStringList texts;
    const QList<QAction *> entries = menu.actions();
    for (const QAction *entry : entries)
        texts.append(entry->isSeparator() ? QString() : entry->text());
    return texts;
}
