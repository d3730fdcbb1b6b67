// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "nzbtext.h"
#include "sanitized.h"

#include <halvora/nzbloader.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

/// NZB files read beside the thread that asks for them.
class TestNzbLoader : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void aFileIsToldOnceItIsRead();
    void aFailureIsTold();
    void ofTwoFilesOnlyTheLastIsTold();
    void nothingIsToldOfWhatIsCancelled();
    void aPipeHoldsNobodyUp();
    void aLoaderMayGoWhileItReads();
    void aLoaderMayGoInsideItsOwnNews();

private:
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

namespace {

constexpr int longest = 60'000; // milliseconds

} // namespace

void TestNzbLoader::initTestCase()
{
    const QList<QPair<const char *, QByteArray>> files{
        {"one.nzb", nzbtext::document(nzbtext::file("one"))},
        {"many.nzb", nzbtext::many(1000 / sanitizedShare, 100)},
    };
    for (const auto &file : files) {
        QFile device(path(file.first));
        QVERIFY(device.open(QIODevice::WriteOnly));
        QCOMPARE(device.write(file.second), qint64(file.second.size()));
    }
}

void TestNzbLoader::aFileIsToldOnceItIsRead()
{
    NzbLoader loader;
    QStringList subjects;
    connect(&loader, &NzbLoader::loaded, &loader, [&subjects](const NzbFile &file) {
        QCOMPARE(QThread::currentThread(), QCoreApplication::instance()->thread());
        subjects.append(file.entries.value(0).subject);
    });
    loader.load(path("one.nzb"));
    QVERIFY(subjects.isEmpty());
    QTRY_COMPARE_WITH_TIMEOUT(subjects, QStringList{QStringLiteral("one")}, longest);
}

void TestNzbLoader::aFailureIsTold()
{
    NzbLoader loader;
    QVector<NzbFailure::Kind> kinds;
    connect(&loader, &NzbLoader::failed, &loader,
            [&kinds](const NzbFailure &failure) { kinds.append(failure.kind()); });
    loader.load(path("none.nzb"));
    QTRY_COMPARE_WITH_TIMEOUT(kinds, QVector<NzbFailure::Kind>{NzbFailure::Kind::Missing}, longest);
}

void TestNzbLoader::ofTwoFilesOnlyTheLastIsTold()
{
    NzbLoader loader;
    QStringList subjects;
    connect(&loader, &NzbLoader::loaded, &loader,
            [&subjects](const NzbFile &file) { subjects.append(file.entries.value(0).subject); });
    connect(&loader, &NzbLoader::failed, &loader, [&subjects] { subjects.append(QStringLiteral("failed")); });
    for (int i = 0; i < 20; ++i) {
        loader.load(path("many.nzb"));
        loader.load(path("none.nzb"));
    }
    loader.load(path("one.nzb"));
    QTRY_VERIFY_WITH_TIMEOUT(!subjects.isEmpty(), longest);
    loader.load(path("many.nzb"));
    QTRY_COMPARE_WITH_TIMEOUT(subjects, (QStringList{QStringLiteral("one"), QStringLiteral("Part 1")}),
                              longest);
}

void TestNzbLoader::nothingIsToldOfWhatIsCancelled()
{
    NzbLoader loader;
    QStringList subjects;
    connect(&loader, &NzbLoader::loaded, &loader,
            [&subjects](const NzbFile &file) { subjects.append(file.entries.value(0).subject); });
    loader.load(path("many.nzb"));
    loader.cancel();
    loader.cancel();
    NzbLoader other;
    QSignalSpy otherLoaded(&other, &NzbLoader::loaded);
    other.load(path("many.nzb"));
    QTRY_COMPARE_WITH_TIMEOUT(otherLoaded.size(), 1, longest);
    loader.load(path("one.nzb"));
    QTRY_COMPARE_WITH_TIMEOUT(subjects, QStringList{QStringLiteral("one")}, longest);
}

void TestNzbLoader::aPipeHoldsNobodyUp()
{
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe.nzb")).constData(), 0600), 0);
    NzbLoader loader;
    QVector<NzbFailure::Kind> kinds;
    connect(&loader, &NzbLoader::failed, &loader,
            [&kinds](const NzbFailure &failure) { kinds.append(failure.kind()); });
    loader.load(path("pipe.nzb"));
    QTRY_COMPARE_WITH_TIMEOUT(kinds, QVector<NzbFailure::Kind>{NzbFailure::Kind::NotOrdinary}, longest);
}

void TestNzbLoader::aLoaderMayGoWhileItReads()
{
    int told = 0;
    for (int i = 0; i < 20; ++i) {
        NzbLoader loader;
        connect(&loader, &NzbLoader::loaded, this, [&told] { ++told; });
        connect(&loader, &NzbLoader::failed, this, [&told] { ++told; });
        loader.load(path("many.nzb"));
        loader.load(path("many.nzb"));
    }
    QCoreApplication::processEvents();
    QCOMPARE(told, 0);
}

void TestNzbLoader::aLoaderMayGoInsideItsOwnNews()
{
    auto *loader = new NzbLoader;
    QPointer<NzbLoader> watch(loader);
    connect(loader, &NzbLoader::loaded, loader, [loader] { delete loader; });
    loader->load(path("one.nzb"));
    QTRY_VERIFY_WITH_TIMEOUT(!watch, longest);
}

QTEST_GUILESS_MAIN(TestNzbLoader)
#include "tst_nzbloader.moc"
