// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/cvbookmarkmanager.h"
#include "plugin/constants.h"

#include <halvora/configuration.h>

#include <QCheckBox>
#include <QSettings>

namespace {

QCheckBox *onlyCheckBox(const QList<QWidget *> &widgets)
{
    return widgets.size() == 1 ? qobject_cast<QCheckBox *>(widgets.first()) : nullptr;
}

} // namespace

void CVBookmarkManager::readOptions()
{
    const QSettings settings(Configuration::settingsOrganization(), Configuration::settingsApplication());
    m_privateDataEnabled = settings.value(constants::bookmarksPrivateDataName, true).toBool();
}

QList<QWidget *> CVBookmarkManager::createOptionWidgets()
{
    auto *option = new QCheckBox(tr("Bookmarks"));
    option->setAccessibleDescription(
        tr("All folders and what is in them, their dated copies and files put aside as damaged. "
           "While you are logged in, the account's own bookmarks are loaded again."));
    option->setChecked(m_privateDataEnabled);
    return {option};
}

// What is not stored is enabled.
void CVBookmarkManager::saveOptions(const QList<QWidget *> &widgets)
{
    const QCheckBox *option = onlyCheckBox(widgets);
    if (!option)
        return;
    m_privateDataEnabled = option->isChecked();
    QSettings settings(Configuration::settingsOrganization(), Configuration::settingsApplication());
    if (m_privateDataEnabled)
        settings.remove(constants::bookmarksPrivateDataName);
    else
        settings.setValue(constants::bookmarksPrivateDataName, false);
}

void CVBookmarkManager::clearPrivateData()
{
    if (m_privateDataEnabled)
        clearBookmarks();
}

void CVBookmarkManager::clearPrivateData(const QList<QWidget *> &widgets)
{
    const QCheckBox *option = onlyCheckBox(widgets);
    if (option && option->isChecked())
        clearBookmarks();
}

void CVBookmarkManager::resetSettings()
{
    QSettings settings(Configuration::settingsOrganization(), Configuration::settingsApplication());
    settings.remove(constants::bookmarksPrivateDataName);
    m_privateDataEnabled = true;
}
