// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "passwordpipe.h"

#include <cerrno>

#include <unistd.h>

namespace {

constexpr int longestPassword = 4096;

}

PasswordPipe::PasswordPipe(int descriptor, QObject *parent)
    : QObject(parent)
    , m_descriptor(descriptor)
    , m_notifier(descriptor, QSocketNotifier::Read)
{
    connect(&m_notifier, &QSocketNotifier::activated, this, &PasswordPipe::read);
}

void PasswordPipe::read()
{
    char buffer[512];
    const ssize_t size = ::read(m_descriptor, buffer, sizeof buffer);
    if (size < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (size > 0)
        m_data.append(buffer, int(size));
    const int end = m_data.indexOf('\n');
    if (end >= 0)
        finish(m_data.left(end));
    else if (size <= 0)
        finish(m_data);
    else if (m_data.size() > longestPassword)
        finish({});
}

void PasswordPipe::finish(const QByteArray &password)
{
    m_notifier.setEnabled(false);
    const QByteArray line = password.endsWith('\r') ? password.chopped(1) : password;
    Q_EMIT finished(QString::fromUtf8(line));
}
