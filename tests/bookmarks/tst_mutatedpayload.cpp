// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarks/bookmarkitem.h"
#include "bookmarks/bookmarkpayload.h"
#include "bookmarkstore.h"
#include "literalpayload.h"
#include "plugin/constants.h"
#include "tests/support/sanitized.h"

#include <QDataStream>
#include <QMimeData>
#include <QTest>

#include <algorithm>
#include <memory>
#include <random>

namespace {

constexpr int rounds = 1600 / sanitizedShare;

/// The rows that every round begins with: two folders at the top and eleven items, some of one name.
QString startingRows()
{
    return QStringLiteral(
        "PRAGMA synchronous = OFF; BEGIN; DELETE FROM bookmarks; INSERT INTO bookmarks VALUES "
        "(1, NULL, 'Folder', NULL, NULL, 1, 0), (2, NULL, 'Other', NULL, 'red', 0, 1), "
        "(3, NULL, NULL, 'alt.a', NULL, 0, 2), (4, 1, NULL, 'alt.a', NULL, 0, 0), "
        "(5, 1, NULL, 'alt.b', NULL, 0, 1), (6, 1, 'Inner', NULL, NULL, 0, 2), "
        "(7, 2, NULL, 'alt.c', NULL, 0, 0), (8, 2, NULL, 'alt.d', NULL, 0, 1), "
        "(9, 2, 'Inner', NULL, NULL, 0, 2), (10, 6, NULL, 'alt.e', NULL, 0, 0), "
        "(11, 9, NULL, 'alt.f', NULL, 0, 0); COMMIT");
}

/// Drags as the model makes them, and what may become of one on its way.
class Payloads {
public:
    explicit Payloads(quint32 seed)
        : m_random(seed)
    {
    }

    quint32 below(quint32 end) { return quint32(m_random()) % end; }

    QByteArray next(BookmarkStore &store)
    {
        QByteArray bytes = below(3) == 0 ? invented() : dragged(store);
        for (quint32 left = below(4); left > 0 && !bytes.isEmpty(); --left)
            mutate(bytes);
        return bytes;
    }

private:
    static QVector<QModelIndex> all(BookmarkStore &store)
    {
        QVector<QModelIndex> found{QModelIndex()};
        for (int i = 0; i < found.size(); ++i) {
            const QModelIndex parent = found.at(i);
            for (int row = 0; row < store.model().rowCount(parent); ++row)
                found.append(store.model().index(row, 0, parent));
        }
        return found;
    }

    QByteArray dragged(BookmarkStore &store)
    {
        const QVector<QModelIndex> indexes = all(store);
        QModelIndexList chosen;
        for (quint32 left = below(5); left > 0; --left)
            chosen.append(indexes.at(int(below(quint32(indexes.size())))));
        const std::unique_ptr<QMimeData> data(store.model().mimeData(chosen));
        return data->data(constants::bookmarkMimeType);
    }

    // Records of few values, so that they often meet those of the store.
    QByteArray invented()
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << qint32(below(4));
        for (quint32 left = below(6); left > 0; --left) {
            stream << qint32(m_random()) << qint32(below(3)) << qint64(below(13)) << qint64(1 + below(2))
                   << QStringLiteral("alt.") + QLatin1Char(char('a' + below(8)))
                   << qint32(below(8) == 0 ? below(3) : 0);
        }
        return bytes;
    }

    void mutate(QByteArray &bytes)
    {
        static constexpr quint32 numbers[] = {0, 1, 2, 7, 32, 0x7FFFFFFF, 0xFFFFFFFE, 0xFFFFFFFF};
        const int place = int(below(quint32(bytes.size())));
        switch (below(5)) {
        case 0:
            bytes[place] = char(m_random());
            break;
        case 1:
            bytes.truncate(place);
            break;
        case 2:
            bytes.insert(place, bytes.mid(int(below(quint32(bytes.size()))), int(below(40))));
            break;
        case 3:
            bytes.remove(place, int(below(12)));
            break;
        default: {
            QByteArray number;
            QDataStream(&number, QIODevice::WriteOnly) << numbers[below(std::size(numbers))];
            bytes.replace(place / 4 * 4, 4, number);
        }
        }
    }

    std::mt19937 m_random;
};

bool isDropAllowed(const QVector<BookmarkRecord> &records, const BookmarkItem &folder)
{
    const bool isReordering =
        std::all_of(records.cbegin(), records.cend(),
                    [&](const BookmarkRecord &record) { return record.parentId == folder.id(); });
    return isReordering || std::none_of(records.cbegin(), records.cend(), [&](const BookmarkRecord &record) {
               return folder.hasChildNamed(record.name);
           });
}

/// The names of the rows that the records tell of, one for each record whose row there is.
QStringList namesOfRows(const QVector<BookmarkRecord> &records, const QVector<BookmarkRow> &rows)
{
    QStringList names;
    for (const BookmarkRecord &record : records) {
        for (const BookmarkRow &row : rows) {
            if (row.at(0) == QString::number(record.id))
                names.append(row.at(3) == QLatin1String("NULL") ? row.at(2) : row.at(3));
        }
    }
    return names;
}

QStringList inserted(QStringList names, int row, const QStringList &added)
{
    for (int i = 0; i < added.size(); ++i)
        names.insert(row + i, added.at(i));
    return names;
}

} // namespace

class TestMutatedPayload : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void everyAnswerIsThatOfTheLiteralReader();
};

void TestMutatedPayload::everyAnswerIsThatOfTheLiteralReader()
{
    BookmarkStore store;
    store.execute(startingRows());
    const QVector<BookmarkRow> rows = store.rows();
    Payloads payloads(20);
    int allowed = 0;
    int dropped = 0;
    for (int round = 0; round < rounds; ++round) {
        store.model().load();
        const QModelIndex target = store.at({int(payloads.below(2))});
        const QByteArray bytes = payloads.next(store);
        const QVector<BookmarkRecord> records = literalpayload::read(bytes);
        QMimeData data;
        data.setData(constants::bookmarkMimeType, bytes);
        const QByteArray told = QByteArray::number(round) + ": " + bytes.toHex();

        const bool isAllowed = isDropAllowed(records, *store.model().itemFromIndex(target));
        QVERIFY2(store.model().canDropMimeData(&data, Qt::MoveAction, 0, 0, target) == isAllowed,
                 told.constData());
        allowed += isAllowed ? 1 : 0;

        const QStringList before = store.names(target);
        const int row = int(payloads.below(quint32(before.size() + 1)));
        const QStringList fresh = namesOfRows(records, rows);
        store.check();
        QVERIFY2(store.model().dropMimeData(&data, Qt::MoveAction, row, 0, target) == !fresh.isEmpty(),
                 told.constData());
        store.leave();
        QVERIFY2(store.names(target) == inserted(before, row, fresh), told.constData());
        if (fresh.isEmpty())
            continue;
        ++dropped;
        store.execute(startingRows());
    }
    // Both answers have to be common, or nothing was compared.
    QVERIFY(allowed > rounds / 5 && allowed < rounds - rounds / 5);
    QVERIFY(dropped > rounds / 5 && dropped < rounds - rounds / 5);
}

QTEST_MAIN(TestMutatedPayload)
#include "tst_mutatedpayload.moc"
