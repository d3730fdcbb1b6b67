// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/nzbfailure.h>
#include <halvora/nzbfile.h>

#include <QSet>
#include <QVector>
#include <QXmlStreamReader>

#include <memory>

class QTextDecoder;

/// Reads an NZB document as it comes in, piece by piece, and keeps only what is shown of it. Bounded in all
/// that the document could make it keep. Any thread, one at a time.
///
/// Elements count by their names, whatever their namespace is; unknown ones are skipped with all that is in
/// them. What is missing or makes no sense stays unknown: a subject, a date, the size of a segment. What
/// follows the end of the root element is not looked at. A byte that is wrong in the document's encoding
/// costs a letter, not the document.
class NzbParser {
public:
    static constexpr int mostFiles = 100'000;
    static constexpr int mostSegments = 1'000'000;
    static constexpr int mostNewsgroups = 50; ///< of one file; further ones are left out
    static constexpr int longestText = 1000;  ///< characters; what is longer is cut off

    NzbParser();
    ~NzbParser();
    Q_DISABLE_COPY(NzbParser)

    /// Takes more of the document; false when no more is needed, see finish().
    bool add(const QByteArray &bytes);
    /// What is wrong with the document, now that all of it was added.
    NzbFailure finish();
    /// What the document lists; to be called once, after a finish() without a failure.
    NzbFile takeFile();

private:
    enum class Place { Document, Nzb, Head, Meta, File, Groups, Group, Segments, Segment, Elsewhere };

    bool parse();
    void startElement();
    void endElement();
    void startFile();
    void startSegment();
    bool chooseDecoder();
    void fail(NzbFailure::Kind kind);
    QString shared(const QString &text);
    static Place placeOf(Place parent, const QStringRef &name);

    QXmlStreamReader m_reader;
    QByteArray m_head;                       ///< what was held back until the prologue is known
    std::unique_ptr<QTextDecoder> m_decoder; ///< once it is known
    int m_unfinished = 0;                    ///< bytes since the last whole piece of XML
    bool m_isDone = false;
    NzbFailure m_failure;
    NzbFile m_file;
    QVector<Place> m_places;
    QString m_type; ///< of the meta element that is open
    QString m_text; ///< of the element that is open
    int m_segments = 0;
    QSet<QString> m_shared; ///< the same newsgroups and posters come again and again
};
