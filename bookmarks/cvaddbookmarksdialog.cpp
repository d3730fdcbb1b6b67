// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvaddbookmarksdialog.h"

#include "bookmarks/cvbookmarkmanager.h"

#include <halvora/extendedtreeview.h>

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int narrowestTree = 170; // device-independent pixels

} // namespace

CVAddBookmarksDialog::CVAddBookmarksDialog(CVBookmarkManager *model, QWidget *parent)
    : QDialog(parent)
    , m_model(model)
    , m_label(new QLabel)
    , m_tree(new ExtendedTreeView)
{
    m_tree->setHeaderHidden(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setMinimumWidth(narrowestTree);
    m_tree->setModel(model);
    // A tree that nobody chose anything in makes its first row current when it gets the keys, and OK would
    // add there. A model that starts anew makes it forget that it was told not to.
    const auto chooseNothing = [this] { m_tree->setCurrentIndex(QModelIndex()); };
    connect(model, &QAbstractItemModel::modelReset, m_tree, chooseNothing);
    chooseNothing();
    m_label->setBuddy(m_tree);

    m_buttons = new QDialogButtonBox;
    m_buttons->addButton(QDialogButtonBox::Ok);
    m_buttons->addButton(QDialogButtonBox::Cancel);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_label);
    layout->addWidget(m_tree);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &CVAddBookmarksDialog::save);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QWidget::close);
    retranslate();
}

void CVAddBookmarksDialog::setNewsgroups(const QStringList &newsgroups)
{
    m_newsgroups = newsgroups;
}

void CVAddBookmarksDialog::save()
{
    const QModelIndex place = m_tree->currentIndex();
    if (!place.isValid())
        return;
    m_model->addBookmarks(m_newsgroups, place);
    accept();
}

void CVAddBookmarksDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void CVAddBookmarksDialog::retranslate()
{
    setWindowTitle(tr("Add Bookmarks"));
    m_label->setText(tr("Select the location for the bookmarks:"));
}
