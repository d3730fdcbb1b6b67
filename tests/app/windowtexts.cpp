// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "windowtexts.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

#include <set>

namespace {

using Words = std::set<QString>;

QStringList listOf(const Words &words)
{
    return {words.cbegin(), words.cend()};
}

/// The window and all in it that can be seen.
QList<const QWidget *> shownWidgets(const QWidget &window)
{
    QList<const QWidget *> shown{&window};
    const QList<QWidget *> children = window.findChildren<QWidget *>();
    for (const QWidget *child : children) {
        if (child->isVisible() && child->window() == &window)
            shown.append(child);
    }
    return shown;
}

void addActions(const QWidget &widget, Words *words)
{
    const QList<QAction *> actions = widget.actions();
    for (const QAction *action : actions) {
        if (action->isVisible() && !action->isSeparator())
            words->insert({action->text(), action->toolTip(), action->statusTip()});
        if (action->menu())
            addActions(*action->menu(), words);
    }
}

void addItems(const QWidget &widget, Words *words)
{
    if (const auto *box = qobject_cast<const QComboBox *>(&widget)) {
        for (int i = 0; i < box->count(); ++i)
            words->insert(box->itemText(i));
    }
    if (const auto *tabs = qobject_cast<const QTabBar *>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i)
            words->insert({tabs->tabText(i), tabs->tabToolTip(i)});
    }
    const auto *header = qobject_cast<const QHeaderView *>(&widget);
    for (int i = 0; header && header->model() && i < header->count(); ++i)
        words->insert(header->model()->headerData(i, header->orientation()).toString());
}

bool isLine(const QLabel &label)
{
    return !label.wordWrap() && !label.inherits("ElidedLabel") && !label.text().contains(QLatin1Char('\n'));
}

bool isCutOff(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        if (label->text().isEmpty() || label->inherits("ElidedLabel"))
            return false;
        return isLine(*label) ? label->width() < label->sizeHint().width()
                              : label->height() < label->heightForWidth(label->width());
    }
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget))
        return !button->text().isEmpty() && button->width() < button->sizeHint().width();
    if (const auto *dock = qobject_cast<const QDockWidget *>(&widget))
        return dock->width() < dock->fontMetrics().horizontalAdvance(dock->windowTitle());
    return qobject_cast<const QMenuBar *>(&widget) && widget.width() < widget.sizeHint().width();
}

void addCutTabs(const QTabBar &tabs, Words *words)
{
    // One that stands alone is not shown.
    for (int i = 0; tabs.count() > 1 && i < tabs.count(); ++i) {
        const QRect tab = tabs.tabRect(i);
        const int needed = tabs.fontMetrics().size(Qt::TextShowMnemonic, tabs.tabText(i)).width();
        if (tab.width() < needed || tab.right() >= tabs.width())
            words->insert(tabs.tabText(i));
    }
}

void addCutSections(const QHeaderView &header, Words *words)
{
    for (int i = 0; i < header.count(); ++i) {
        const QString text = header.model()->headerData(i, header.orientation()).toString();
        if (!header.isSectionHidden(i) &&
            header.sectionSize(i) < header.fontMetrics().horizontalAdvance(text))
            words->insert(text);
    }
}

/// The texts of one menu or dialog, which are reached by one key each.
class Mnemonics {
public:
    void add(const QString &text)
    {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty() && !m_keys.insert(key).second)
            m_shared.insert(text);
    }
    const Words &shared() const { return m_shared; }

private:
    std::set<QKeySequence> m_keys;
    Words m_shared;
};

void addMenus(const QWidget &menu, Words *shared)
{
    Mnemonics mnemonics;
    const QList<QAction *> actions = menu.actions();
    for (const QAction *action : actions) {
        if (action->isVisible())
            mnemonics.add(action->text());
        if (action->menu())
            addMenus(*action->menu(), shared);
    }
    shared->insert(mnemonics.shared().cbegin(), mnemonics.shared().cend());
}

} // namespace

QStringList WindowTexts::all(const QWidget &window)
{
    Words words;
    const QList<const QWidget *> widgets = shownWidgets(window);
    for (const QWidget *widget : widgets) {
        for (const char *name : {"windowTitle", "text", "title", "placeholderText", "toolTip", "statusTip",
                                 "accessibleName", "accessibleDescription", "prefix", "suffix"}) {
            const bool typed = qstrcmp(name, "text") == 0 && qobject_cast<const QLineEdit *>(widget);
            if (!typed)
                words.insert(widget->property(name).toString());
        }
        addActions(*widget, &words);
        addItems(*widget, &words);
    }
    words.erase(QString());
    return listOf(words);
}

QStringList WindowTexts::cutOff(const QWidget &window)
{
    Words words;
    const QList<const QWidget *> widgets = shownWidgets(window);
    for (const QWidget *widget : widgets) {
        if (isCutOff(*widget))
            words.insert(QStringLiteral("%1 %2: %3")
                             .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                                  widget->property("text").toString()));
        if (const auto *tabs = qobject_cast<const QTabBar *>(widget))
            addCutTabs(*tabs, &words);
        if (const auto *header = qobject_cast<const QHeaderView *>(widget))
            addCutSections(*header, &words);
    }
    return listOf(words);
}

QStringList WindowTexts::sharedMnemonics(const QWidget &window)
{
    Words shared;
    Mnemonics mnemonics;
    const QList<const QWidget *> widgets = shownWidgets(window);
    for (const QWidget *widget : widgets) {
        if (qobject_cast<const QMenuBar *>(widget))
            addMenus(*widget, &shared);
        const auto *label = qobject_cast<const QLabel *>(widget);
        if ((label && label->buddy()) || qobject_cast<const QAbstractButton *>(widget))
            mnemonics.add(widget->property("text").toString());
        const auto *tabs = qobject_cast<const QTabBar *>(widget);
        for (int i = 0; tabs && i < tabs->count(); ++i)
            mnemonics.add(tabs->tabText(i));
    }
    shared.insert(mnemonics.shared().cbegin(), mnemonics.shared().cend());
    return listOf(shared);
}
