// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/iprivatedata.h>

#include <QPointer>
#include <QStringList>
#include <QVector>

class QCheckBox;
class QSpinBox;

/// A part of the program with a check box for each of its kinds of private data and one number, the days to
/// keep. It writes down what it is asked to do.
class RecordingPrivateData : public IPrivateData {
public:
    using Widgets = QList<QWidget *>;

    /// The kinds are worded in the language that the program has when the widgets are made.
    explicit RecordingPrivateData(const QVector<const char *> &kinds);
    ~RecordingPrivateData() override;

    QList<QWidget *> createOptionWidgets() override;
    void saveOptions(const QList<QWidget *> &widgets) override;
    void clearPrivateData() override;
    void clearPrivateData(const QList<QWidget *> &widgets) override;

    /// The box of kind @p kind, and the number, in the widgets that were made last or @p ago times before.
    QCheckBox *box(int kind, int ago = 0) const;
    QSpinBox *days(int ago = 0) const;
    /// How many of all the widgets that it made are still there.
    int alive() const;

    QVector<Widgets> made;
    QVector<Widgets> saved;
    QVector<Widgets> cleared;
    QVector<bool> remembered;   ///< for each kind
    QVector<bool> deletedKinds; ///< for each kind, at the last clearing
    int clearedAsRemembered = 0;

private:
    static QVector<bool> choices(const Widgets &widgets);

    const QVector<const char *> m_kinds;
    QVector<QPointer<QWidget>> m_everMade;
};
