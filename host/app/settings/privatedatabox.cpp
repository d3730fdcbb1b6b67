// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "privatedatabox.h"

#include <QCheckBox>
#include <QSettings>

#include <utility>

namespace {

const QCheckBox *onlyBox(const QList<QWidget *> &widgets)
{
    return widgets.size() == 1 ? qobject_cast<QCheckBox *>(widgets.first()) : nullptr;
}

} // namespace

PrivateDataBox::PrivateDataBox(QSettings *settings, Kind kind)
    : m_settings(settings)
    , m_kind(std::move(kind))
{
}

QList<QWidget *> PrivateDataBox::createOptionWidgets()
{
    auto *box = new QCheckBox(m_kind.name());
    box->setObjectName(QLatin1String(m_kind.key));
    box->setAccessibleDescription(m_kind.sentence());
    box->setChecked(isWanted());
    return {box};
}

// What is not stored is wanted.
void PrivateDataBox::saveOptions(const QList<QWidget *> &widgets)
{
    const QCheckBox *box = onlyBox(widgets);
    if (box && box->isChecked())
        m_settings->remove(settingsKey());
    else if (box)
        m_settings->setValue(settingsKey(), false);
}

void PrivateDataBox::clearPrivateData()
{
    if (isWanted())
        m_kind.clear();
}

void PrivateDataBox::clearPrivateData(const QList<QWidget *> &widgets)
{
    const QCheckBox *box = onlyBox(widgets);
    if (box && box->isChecked())
        m_kind.clear();
}

QString PrivateDataBox::settingsKey() const
{
    return QStringLiteral("PrivateData/%1").arg(QLatin1String(m_kind.key));
}

bool PrivateDataBox::isWanted() const
{
    return m_settings->value(settingsKey(), true).toBool();
}
