// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsgroupspanel.h"

#include "stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QDockWidget>
#include <QLineEdit>
#include <QTabWidget>
#include <QTreeView>

namespace {

QModelIndex topIndex(const QAbstractItemView *view, const QString &name)
{
    const QAbstractItemModel *model = view ? view->model() : nullptr;
    for (int row = 0; model && row < model->rowCount(); ++row) {
        if (model->index(row, 0).data().toString() == name)
            return model->index(row, 0);
    }
    return {};
}

QTabWidget *pages(Stage &stage)
{
    return stage.program().find<QTabWidget>("halvora.pages");
}

} // namespace

NewsgroupsPanel::NewsgroupsPanel(Stage &stage)
    : m_stage(stage)
{
}

QAbstractItemView *NewsgroupsPanel::view() const
{
    return m_stage.program().find<QTreeView>("newsgroupList");
}

bool NewsgroupsPanel::isInFront() const
{
    const auto *dock = m_stage.program().find<QDockWidget>("NewsgroupsDock");
    return dock && dock->isVisible() && !dock->visibleRegion().isEmpty();
}

bool NewsgroupsPanel::isFilterFocused() const
{
    const QWidget *focused = QApplication::focusWidget();
    return focused && focused->objectName() == QLatin1String("newsgroupFilter");
}

void NewsgroupsPanel::lookFor(Person &person, const QString &words, const QString &name) const
{
    person.sees(QStringLiteral("the list of newsgroups"),
                [this] { return view() && view()->model()->rowCount() > 0; });
    person.clickOn(m_stage.widget(QStringLiteral("newsgroupFilter")));
    person.pressKey(QStringLiteral("ctrl+a"));
    person.type(words);
    person.sees(QStringLiteral("%1 is among the newsgroups with “%2”").arg(name, words), [this, &name] {
        return topIndex(view(), name).isValid() && view()->model()->rowCount() < 10;
    });
}

Spot NewsgroupsPanel::row(const QString &name) const
{
    return rowOf(
        name, [this] { return view(); }, [this, name] { return topIndex(view(), name); });
}

QString NewsgroupsPanel::pageTitle() const
{
    return pages(m_stage)->tabText(pages(m_stage)->currentIndex());
}

QStringList NewsgroupsPanel::pageTitles() const
{
    QStringList titles;
    for (int i = 0; i < pages(m_stage)->count(); ++i)
        titles.append(pages(m_stage)->tabText(i));
    return titles;
}

int NewsgroupsPanel::articles() const
{
    const auto *list = pages(m_stage)->currentWidget()->findChild<QTreeView *>(QStringLiteral("articleList"));
    return list ? list->model()->rowCount() : 0;
}

QDialog *NewsgroupsPanel::dialog() const
{
    const QList<QDialog *> dialogs = m_stage.program().window().findChildren<QDialog *>();
    for (QDialog *dialog : dialogs) {
        if (dialog->inherits("CVAddBookmarksDialog") && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

QString NewsgroupsPanel::dialogChoice() const
{
    const auto *tree = dialog() ? dialog()->findChild<QTreeView *>() : nullptr;
    return tree ? tree->currentIndex().data().toString() : QString();
}

Spot NewsgroupsPanel::dialogRow(const QString &name) const
{
    const auto tree = [this] { return dialog() ? dialog()->findChild<QTreeView *>() : nullptr; };
    return rowOf(name, tree, [tree, name] { return topIndex(tree(), name); });
}

Spot NewsgroupsPanel::dialogButton(const QString &text) const
{
    const auto find = [this, text]() -> std::optional<QPoint> {
        const QDialog *shown = dialog();
        if (!shown)
            return std::nullopt;
        const QList<QAbstractButton *> buttons = shown->findChildren<QAbstractButton *>();
        for (const QAbstractButton *button : buttons) {
            if (button->text().remove(QLatin1Char('&')) == text)
                return button->mapToGlobal(button->rect().center());
        }
        return std::nullopt;
    };
    return {QStringLiteral("the button “%1”").arg(text), find};
}
