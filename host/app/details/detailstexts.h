// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nzbfile.h>

#include <QCoreApplication>

/// How the details of an NZB file are put into words, in the language of the moment. GUI thread.
class DetailsTexts {
    Q_DECLARE_TR_FUNCTIONS(DetailsTexts)
public:
    /// The last part of @p path on one line, so short that it fits into a sentence.
    static QString fileName(const QString &path);
    /// Empty when nothing is known of the size.
    static QString size(qint64 bytes, bool hasAllSizes);
    /// In local time; empty for NzbEntry::noDate.
    static QString date(qint64 posted);
    /// One line about all of @p files files.
    static QString summary(int files, const NzbFile::Totals &totals);

private:
    static QString span(const NzbFile::Totals &totals);
    static QString newsgroups(const QStringList &names);
};
