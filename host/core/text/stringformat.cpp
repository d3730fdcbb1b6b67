// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/stringformat.h>

#include <QDateTime>
#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Units = std::array<const char *, 6>;

const Units BinaryUnits = {
    QT_TRANSLATE_NOOP("StringFormat", "%1 KiB"), QT_TRANSLATE_NOOP("StringFormat", "%1 MiB"),
    QT_TRANSLATE_NOOP("StringFormat", "%1 GiB"), QT_TRANSLATE_NOOP("StringFormat", "%1 TiB"),
    QT_TRANSLATE_NOOP("StringFormat", "%1 PiB"), QT_TRANSLATE_NOOP("StringFormat", "%1 EiB")};

const Units DecimalUnits = {
    QT_TRANSLATE_NOOP("StringFormat", "%1 kB"), QT_TRANSLATE_NOOP("StringFormat", "%1 MB"),
    QT_TRANSLATE_NOOP("StringFormat", "%1 GB"), QT_TRANSLATE_NOOP("StringFormat", "%1 TB"),
    QT_TRANSLATE_NOOP("StringFormat", "%1 PB"), QT_TRANSLATE_NOOP("StringFormat", "%1 EB")};

constexpr int MaximumPrecision = 9;

int decimals(double value, int precision)
{
    if (precision >= 0)
        return std::min(precision, MaximumPrecision);
    if (value < 9.995)
        return 2;
    return value < 99.95 ? 1 : 0;
}

double rounded(double value, int digits)
{
    const double scale = std::pow(10.0, digits);
    return std::round(value * scale) / scale;
}

QString number(double value, int digits, bool dropZeros)
{
    while (dropZeros && digits > 0 && rounded(value, digits - 1) == rounded(value, digits))
        --digits;
    return QLocale().toString(value, 'f', digits);
}

QString scaled(bool negative, quint64 magnitude, StringFormat::ByteNotation notation, int precision)
{
    const bool binary = notation == StringFormat::BinaryNotation;
    const Units &units = binary ? BinaryUnits : DecimalUnits;
    const double base = binary ? 1024 : 1000;
    double value = double(magnitude) / base;
    std::size_t unit = 0;
    // What rounds up to a whole next unit is told in that unit: "1 MiB", never "1024 KiB".
    while (unit + 1 < units.size() && rounded(value, decimals(value, precision)) >= base) {
        value /= base;
        ++unit;
    }
    const QString figure = number(negative ? -value : value, decimals(value, precision), precision < 0);
    return StringFormat::tr(units.at(unit)).arg(figure);
}

// Half of a surrogate pair is no letter, and can not be written as UTF-8.
int firstLetterSize(const QString &text)
{
    const bool pair = text.size() > 1 && text.at(0).isHighSurrogate() && text.at(1).isLowSurrogate();
    return pair ? 2 : 1;
}

} // namespace

QString StringFormat::byteCount(qint64 bytes, ByteFormat format, ByteNotation notation, int precision)
{
    const quint64 magnitude = bytes < 0 ? 0 - quint64(bytes) : quint64(bytes);
    QString text;
    if (magnitude >= (notation == BinaryNotation ? 1024U : 1000U))
        text = scaled(bytes < 0, magnitude, notation, precision);
    else if (magnitude == 1)
        text = tr("%1 byte", "exactly one", 1).arg(QLocale().toString(bytes));
    else
        text = tr("%1 bytes", "any number but one", int(magnitude)).arg(QLocale().toString(bytes));
    return format == ByteFormatPerSecond ? tr("%1/s", "an amount each second").arg(text) : text;
}

QString StringFormat::dateTime(const QDateTime &dateTime, DateTimeFormat format)
{
    Q_UNUSED(format)
    return QLocale().toString(dateTime.toLocalTime(), QLocale::ShortFormat);
}

QString StringFormat::tinyNewsgroupName(const QString &name)
{
    if (!name.startsWith(QLatin1String("alt.binaries.")))
        return name;
    QStringList parts = name.split(QLatin1Char('.'));
    for (int i = 0; i + 1 < parts.size(); ++i)
        parts[i].truncate(firstLetterSize(parts.at(i)));
    return parts.join(QLatin1Char('.'));
}
