// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "recordingprivatedata.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QSpinBox>

#include <algorithm>

RecordingPrivateData::RecordingPrivateData(const QVector<const char *> &kinds)
    : remembered(kinds.size(), true)
    , m_kinds(kinds)
{
}

RecordingPrivateData::~RecordingPrivateData() = default;

QList<QWidget *> RecordingPrivateData::createOptionWidgets()
{
    Widgets widgets;
    for (int kind = 0; kind < m_kinds.size(); ++kind) {
        auto *box = new QCheckBox(QCoreApplication::translate("RecordingPrivateData", m_kinds.at(kind)));
        box->setChecked(remembered.at(kind));
        widgets.append(box);
    }
    auto *days = new QSpinBox;
    days->setSuffix(QStringLiteral(" days are kept"));
    widgets.append(days);
    for (QWidget *widget : qAsConst(widgets))
        m_everMade.append(widget);
    made.append(widgets);
    return widgets;
}

void RecordingPrivateData::saveOptions(const QList<QWidget *> &widgets)
{
    saved.append(widgets);
    remembered = choices(widgets);
}

void RecordingPrivateData::clearPrivateData()
{
    ++clearedAsRemembered;
}

void RecordingPrivateData::clearPrivateData(const QList<QWidget *> &widgets)
{
    cleared.append(widgets);
    deletedKinds = choices(widgets);
}

QCheckBox *RecordingPrivateData::box(int kind, int ago) const
{
    return qobject_cast<QCheckBox *>(made.at(made.size() - 1 - ago).at(kind));
}

QSpinBox *RecordingPrivateData::days(int ago) const
{
    return qobject_cast<QSpinBox *>(made.at(made.size() - 1 - ago).last());
}

int RecordingPrivateData::alive() const
{
    return int(std::count_if(m_everMade.cbegin(), m_everMade.cend(),
                             [](const QPointer<QWidget> &widget) { return !widget.isNull(); }));
}

QVector<bool> RecordingPrivateData::choices(const Widgets &widgets)
{
    QVector<bool> result;
    for (QWidget *widget : widgets) {
        if (const auto *box = qobject_cast<QCheckBox *>(widget))
            result.append(box->isChecked());
    }
    return result;
}
