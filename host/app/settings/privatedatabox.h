// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/iprivatedata.h>

#include <functional>

class QCheckBox;
class QSettings;

/// One kind of private data: a check box that is checked unless the settings say otherwise.
class PrivateDataBox final : public IPrivateData {
public:
    struct Kind {
        const char *key;               ///< of the box's name and of its setting
        std::function<QString()> name; ///< beside the box, in the language of the program
        /// What goes and what stays; the box's accessible description.
        std::function<QString()> sentence;
        std::function<void()> clear;
    };

    /// @p settings outlives this object.
    PrivateDataBox(QSettings *settings, Kind kind);

    QList<QWidget *> createOptionWidgets() override;
    void saveOptions(const QList<QWidget *> &widgets) override;
    void clearPrivateData() override;
    void clearPrivateData(const QList<QWidget *> &widgets) override;

private:
    QString settingsKey() const;
    bool isWanted() const;

    QSettings *const m_settings;
    const Kind m_kind;
};
