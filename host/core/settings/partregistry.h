// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

/// Parts of the program that offer the interface @p Part, in the order of their registration. It owns none:
/// one that is a QObject is forgotten when it goes, any other has to live until clear(). GUI thread.
template <class Part> class PartRegistry {
public:
    QList<Part *> parts() const
    {
        QList<Part *> alive;
        for (const Entry &entry : m_entries) {
            if (!entry.isObject || entry.object)
                alive.append(entry.part);
        }
        return alive;
    }
    /// Forgets every part.
    void clear() { m_entries.clear(); }

protected:
    PartRegistry() = default;
    ~PartRegistry() = default;
    Q_DISABLE_COPY(PartRegistry)

    /// Registering again does nothing.
    void add(Part *part)
    {
        if (!part || parts().contains(part))
            return;
        auto *object = dynamic_cast<QObject *>(part);
        m_entries.append({part, object, object != nullptr});
    }

private:
    struct Entry {
        Part *part;
        QPointer<QObject> object;
        bool isObject;
    };
    QList<Entry> m_entries;
};
