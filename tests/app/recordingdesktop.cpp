// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "recordingdesktop.h"

#include <QDBusError>
#include <QTest>

namespace {

QString name()
{
    return QStringLiteral("org.freedesktop.Notifications");
}

QString path()
{
    return QStringLiteral("/org/freedesktop/Notifications");
}

} // namespace

RecordingDesktop::RecordingDesktop(const QDBusConnection &bus)
    : m_bus(bus)
{
    if (!m_bus.registerObject(path(), this,
                              QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals) ||
        !m_bus.registerService(name()))
        QTest::qFail("The bus takes no service.", __FILE__, __LINE__);
}

RecordingDesktop::~RecordingDesktop()
{
    m_bus.unregisterService(name());
    m_bus.unregisterObject(path());
}

bool RecordingDesktop::leave()
{
    if (mood == Refusing)
        sendErrorReply(QDBusError::Failed, QStringLiteral("not today"));
    if (mood == Silent) {
        setDelayedReply(true);
        unanswered.append(message());
    }
    return mood != Helpful;
}

void RecordingDesktop::answer()
{
    const QDBusMessage call = unanswered.takeFirst();
    const bool asks = call.member() == QLatin1String("GetCapabilities");
    m_bus.send(call.createReply(asks ? QVariant(capabilities) : QVariant(m_next++)));
}

QStringList RecordingDesktop::GetCapabilities()
{
    ++questions;
    return leave() ? QStringList() : capabilities;
}

uint RecordingDesktop::Notify(const QString &application, uint replaced, const QString &icon,
                              const QString &title, const QString &body, const QStringList &actions,
                              const QVariantMap &hints, int timeout)
{
    shown.append({application, replaced, icon, title, body, actions, hints, timeout});
    if (leave())
        return 0;
    return replaced != 0 ? replaced : m_next++;
}
