// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hmessage.h>

namespace {

constexpr int longestText = 2'000;

bool breaksLine(QChar unit)
{
    const QChar::Category category = unit.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

// A pair of units that make one character is not torn apart.
QString cut(const QString &text)
{
    if (text.size() <= longestText)
        return text;
    int length = longestText - 1;
    if (text.at(length - 1).isHighSurrogate())
        --length;
    return text.left(length) + QChar(0x2026);
}

QString oneLine(QString text)
{
    for (QChar &unit : text) {
        if (breaksLine(unit))
            unit = QLatin1Char(' ');
    }
    return cut(text.simplified());
}

} // namespace

HMessage::HMessage(const QString &uid, const QString &text, const QDateTime &date, const UrlInfo &url)
    : m_uid(uid)
    , m_text(oneLine(text))
    , m_date(date.toUTC())
    , m_url(url)
{
}

void HMessage::setDate(const QDateTime &date)
{
    m_date = date.toUTC();
}

bool HMessage::operator==(const HMessage &other) const
{
    return m_uid == other.m_uid && m_text == other.m_text && m_date == other.m_date &&
           m_url.url() == other.m_url.url() && m_read == other.m_read && m_deletable == other.m_deletable;
}
