// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "mimeappslist.h"

namespace {

constexpr char DefaultsHeader[] = "[Default Applications]";

/// The value in @p line when its key is @p key, a null array otherwise.
QByteArray valueOf(const QByteArray &line, const QByteArray &key)
{
    const int equals = line.indexOf('=');
    if (equals < 0 || line.left(equals).trimmed() != key)
        return {};
    const QByteArray value = line.mid(equals + 1).trimmed();
    return value.isNull() ? QByteArrayLiteral("") : value;
}

QStringList entriesIn(const QByteArray &value)
{
    QStringList entries;
    const QList<QByteArray> parts = value.split(';');
    for (const QByteArray &part : parts) {
        const QString entry = QString::fromUtf8(part).trimmed();
        if (!entry.isEmpty())
            entries.append(entry);
    }
    return entries;
}

} // namespace

MimeAppsList::MimeAppsList(const QByteArray &bytes)
{
    for (int start = 0; start < bytes.size();) {
        const int end = bytes.indexOf('\n', start);
        const int length = end < 0 ? bytes.size() - start : end + 1 - start;
        m_lines.append(bytes.mid(start, length));
        start += length;
    }
}

QStringList MimeAppsList::entries(const QByteArray &group, const QString &mimeType) const
{
    const QByteArray header = '[' + group + ']';
    const QByteArray key = mimeType.toUtf8();
    QStringList found;
    bool inside = false;
    for (const QByteArray &line : m_lines) {
        if (line.trimmed().startsWith('['))
            inside = line.trimmed() == header;
        else if (inside)
            found.append(entriesIn(valueOf(line, key)));
    }
    return found;
}

void MimeAppsList::setDefault(const QString &mimeType, const QString &entry)
{
    const QByteArray line = mimeType.toUtf8() + '=' + entry.toUtf8() + lineEnd();
    if (!m_lines.isEmpty() && !m_lines.last().endsWith('\n'))
        m_lines.last().append(lineEnd());
    int place = lineAfterHeader(DefaultsHeader);
    if (place < 0) {
        m_lines.append(QByteArray(DefaultsHeader) + lineEnd());
        place = m_lines.size();
    }
    m_lines.insert(place, line);
    // A key may stand only once in its group; one without a value would hide the new line from some readers.
    for (int row = place + 1; row < m_lines.size() && !m_lines.at(row).trimmed().startsWith('['); ++row) {
        if (!valueOf(m_lines.at(row), mimeType.toUtf8()).isNull())
            m_lines.removeAt(row--);
    }
}

QByteArray MimeAppsList::bytes() const
{
    return m_lines.join();
}

int MimeAppsList::lineAfterHeader(const QByteArray &header) const
{
    for (int row = 0; row < m_lines.size(); ++row) {
        if (m_lines.at(row).trimmed() == header)
            return row + 1;
    }
    return -1;
}

QByteArray MimeAppsList::lineEnd() const
{
    return !m_lines.isEmpty() && m_lines.first().endsWith("\r\n") ? QByteArrayLiteral("\r\n")
                                                                  : QByteArrayLiteral("\n");
}
