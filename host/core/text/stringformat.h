// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/coreexport.h>

#include <QCoreApplication>
#include <QString>

class QDateTime;

/// Figures as people read them, in the language of the program and with the number format of QLocale's
/// default. Any thread, no state.
class HALVORA_CORE_EXPORT StringFormat {
    Q_DECLARE_TR_FUNCTIONS(StringFormat)
public:
    enum ByteFormat {
        ByteFormatDefault = 0,  ///< "1.5 GiB"
        ByteFormatPerSecond = 1 ///< "1.5 GiB/s"
    };
    enum ByteNotation {
        DecimalNotation = 0, ///< steps of 1000: kB, MB, GB (SI)
        BinaryNotation = 1   ///< steps of 1024: KiB, MiB, GiB (IEC 80000-13)
    };
    enum DateTimeFormat {
        ShortDateTime = 0 ///< QLocale::ShortFormat
    };

    /// @p bytes in the largest unit that leaves at least one whole, with @p precision decimals (at most 9).
    /// A negative precision gives three significant digits without trailing zeros. Less than one kilobyte is
    /// told in whole bytes.
    static QString byteCount(qint64 bytes, ByteFormat format, ByteNotation notation, int precision);

    /// @p dateTime in local time; empty when it is not valid.
    static QString dateTime(const QDateTime &dateTime, DateTimeFormat format);

    /// A newsgroup's name for narrow places: below alt.binaries, all parts but the last shrink to their first
    /// letters ("a.b.p.nature" for alt.binaries.pictures.nature), and empty parts stay empty. Other names
    /// stay as they are, alt.binaries itself and names in capitals among them. Takes time in proportion to
    /// the name's length.
    static QString tinyNewsgroupName(const QString &name);
};
