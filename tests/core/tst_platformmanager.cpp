// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/platformmanager.h>

#include <QDirIterator>
#include <QMap>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

#include <sys/stat.h>

class PlatformManagerTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void initTestCase() { m_path = qgetenv("PATH"); }
    void init();
    void theDesktopAgrees();
    void theEntryOffersBoth_data();
    void theEntryOffersBoth();
    void thePackageIsSoundWhateverTheDescription_data();
    void thePackageIsSoundWhateverTheDescription();
    void extensionsOfOneTypeStandTogether();
    void aSecondCallWritesNothing();
    void theDesktopsCachesAreRenewedOnlyAfterAChange();
    void theUsersDefaultStands_data();
    void theUsersDefaultStands();
    void ourOwnDefaultIsSeen_data();
    void ourOwnDefaultIsSeen();
    void theUsersListKeepsItsBytes_data();
    void theUsersListKeepsItsBytes();
    void theTargetOfALinkIsWritten();
    void whatIsNoSchemeIsRefused_data();
    void whatIsNoSchemeIsRefused();
    void whatIsNoFileTypeIsRefused_data();
    void whatIsNoFileTypeIsRefused();
    void whatCannotBeWrittenAnswersFalse_data();
    void whatCannotBeWrittenAnswersFalse();
    void theInstalledEntryAnswersForTheSystem_data();
    void theInstalledEntryAnswersForTheSystem();
    void theUsersEntryIsNoneOfTheSystem();
    void theUsersEntryOffersWhatItHides();
    void anEntryThatLeadsNowhereDoesNotHideTheInstalledOne();
    void anEntryOfTheUsersOwnStaysBesideTheInstalledOne_data();
    void anEntryOfTheUsersOwnStaysBesideTheInstalledOne();
    void anEntryThatLeadsNowhereIsMendedWhereNothingIsInstalled();
    void aRelativeFolderInTheEnvironmentIsNone();

private:
    QString path(const QString &name) const { return m_home->filePath(name); }
    QString entryFile() const
    {
        return path(QStringLiteral("data/applications/org.halvora.Halvora.desktop"));
    }
    QString installedEntryFile() const
    {
        return path(QStringLiteral("system/applications/org.halvora.Halvora.desktop"));
    }
    QString packageFile() const { return path(QStringLiteral("data/mime/packages/org.halvora.Halvora.xml")); }
    QString listFile() const { return path(QStringLiteral("config/mimeapps.list")); }
    QByteArray read(const QString &file) const;
    void write(const QString &file, const QByteArray &bytes) const;
    QMap<QString, QDateTime> files() const;
    bool registerScheme() const;
    bool registerNzb() const;

    QByteArray m_path;
    std::unique_ptr<QTemporaryDir> m_home;
};

namespace {

constexpr int ToolWatchdogMs = 60000; // for programs that take far less than a second

/// What a program says, which for a validator is nothing when all is well; the reason when it cannot run.
QString output(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return process.errorString();
    return QString::fromUtf8(process.readAll()).trimmed();
}

QByteArray mimeTypeLine(const QByteArray &entry)
{
    const QList<QByteArray> lines = entry.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith("MimeType="))
            return line;
    }
    return {};
}

const QString &ours()
{
    static const QString id = QStringLiteral("org.halvora.Halvora.desktop");
    return id;
}

const QString &schemeType()
{
    static const QString type = QStringLiteral("x-scheme-handler/pinegate");
    return type;
}

QByteArray installedEntry()
{
    return "[Desktop Entry]\nExec=halvora %u\nMimeType=application/x-nzb;x-scheme-handler/pinegate;\n";
}

QList<FileType> nzb()
{
    return {FileType(QStringLiteral("nzb"), QStringLiteral("application/x-nzb"))};
}

} // namespace

void PlatformManagerTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", QFile::encodeName(path(QStringLiteral("data"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(path(QStringLiteral("config"))));
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path(QStringLiteral("system"))));
    qunsetenv("XDG_CURRENT_DESKTOP");
    // Only the tests that want the desktop's tools find them: they go on after the test is over.
    qputenv("PATH", QFile::encodeName(path(QStringLiteral("bin"))));
}

QByteArray PlatformManagerTest::read(const QString &file) const
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

void PlatformManagerTest::write(const QString &file, const QByteArray &bytes) const
{
    QVERIFY(QDir().mkpath(QFileInfo(file).path()));
    QFile target(file);
    QVERIFY(target.open(QIODevice::WriteOnly));
    QCOMPARE(target.write(bytes), qint64(bytes.size()));
}

QMap<QString, QDateTime> PlatformManagerTest::files() const
{
    QMap<QString, QDateTime> found;
    QDirIterator all(m_home->path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString file = all.next();
        found.insert(file, all.fileInfo().lastModified());
    }
    return found;
}

bool PlatformManagerTest::registerScheme() const
{
    return PlatformManager().registerProtocolForUser(QStringLiteral("pinegate"), QStringLiteral("Corvia"));
}

bool PlatformManagerTest::registerNzb() const
{
    return PlatformManager().registerFileTypesForUser(QStringLiteral("Pinegate File"),
                                                      QStringLiteral("Corvia"), nzb());
}

void PlatformManagerTest::theDesktopAgrees()
{
    qputenv("PATH", m_path);
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path(QStringLiteral("system"))) + ":/usr/share");
    for (const char *tool : {"xdg-mime", "update-mime-database", "update-desktop-database"})
        QVERIFY2(!QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty(), tool);
    QVERIFY(registerScheme());
    QVERIFY(registerNzb());

    const auto ask = [](const QString &what, const QString &argument) {
        return output(QStringLiteral("xdg-mime"), {QStringLiteral("query"), what, argument});
    };
    QTRY_COMPARE_WITH_TIMEOUT(ask(QStringLiteral("default"), schemeType()), ours(), ToolWatchdogMs);
    QTRY_COMPARE_WITH_TIMEOUT(ask(QStringLiteral("default"), QStringLiteral("application/x-nzb")), ours(),
                              ToolWatchdogMs);
    const QString file = path(QStringLiteral("demo.nzb"));
    write(file, "<?xml version=\"1.0\"?>\n<nzb xmlns=\"http://www.newzbin.com/DTD/2003/nzb\"/>\n");
    QTRY_COMPARE_WITH_TIMEOUT(ask(QStringLiteral("filetype"), file), QStringLiteral("application/x-nzb"),
                              ToolWatchdogMs);
    // Both tools have ended when the caches that they write last are there.
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(path(QStringLiteral("data/mime/mime.cache"))), ToolWatchdogMs);
    QTRY_VERIFY_WITH_TIMEOUT(
        read(path(QStringLiteral("data/applications/mimeinfo.cache"))).contains("application/x-nzb"),
        ToolWatchdogMs);
}

void PlatformManagerTest::theEntryOffersBoth_data()
{
    QTest::addColumn<bool>("schemeFirst");
    QTest::newRow("scheme first") << true;
    QTest::newRow("file type first") << false;
}

void PlatformManagerTest::theEntryOffersBoth()
{
    QFETCH(bool, schemeFirst);
    QVERIFY(schemeFirst ? registerScheme() : registerNzb());
    QVERIFY(schemeFirst ? registerNzb() : registerScheme());
    const QByteArray entry = read(entryFile());
    QCOMPARE(mimeTypeLine(entry), schemeFirst
                                      ? QByteArray("MimeType=x-scheme-handler/pinegate;application/x-nzb;")
                                      : QByteArray("MimeType=application/x-nzb;x-scheme-handler/pinegate;"));
    QVERIFY(entry.contains("\nName=Corvia\n"));
    QVERIFY(entry.contains("\nExec=" + QCoreApplication::applicationFilePath().toUtf8() + " %u\n"));
    qputenv("PATH", m_path);
    QCOMPARE(output(QStringLiteral("desktop-file-validate"), {entryFile()}), QString());
}

void PlatformManagerTest::thePackageIsSoundWhateverTheDescription_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QByteArray>("comment");
    QTest::newRow("plain") << QStringLiteral("Pinegate File")
                           << QByteArray("<comment>Pinegate File</comment>");
    QTest::newRow("mark-up") << QStringLiteral("</comment><a b=\"&c;\">]]>")
                             << QByteArray("&lt;/comment&gt;");
    QTest::newRow("control") << QStringLiteral("A\n\u0001\uffffB") << QByteArray("<comment>A B</comment>");
    QTest::newRow("emoji") << QStringLiteral("\U0001F426")
                           << QByteArray("<comment>\xf0\x9f\x90\xa6</comment>");
    QTest::newRow("nothing") << QString() << QByteArray("<glob pattern=\"*.nzb\"/>");
}

void PlatformManagerTest::thePackageIsSoundWhateverTheDescription()
{
    QFETCH(QString, description);
    QFETCH(QByteArray, comment);
    QVERIFY(PlatformManager().registerFileTypesForUser(description, QStringLiteral("Corvia"), nzb()));
    const QByteArray package = read(packageFile());
    QVERIFY2(package.contains(comment), package.constData());
    QVERIFY(package.contains("<glob pattern=\"*.nzb\"/>"));
    QVERIFY(package.contains("localName=\"nzb\""));
    qputenv("PATH", m_path);
    QCOMPARE(output(QStringLiteral("xmllint"), {QStringLiteral("--noout"), packageFile()}), QString());
}

void PlatformManagerTest::extensionsOfOneTypeStandTogether()
{
    const QList<FileType> types{FileType(QStringLiteral("one"), QStringLiteral("application/x-demo")),
                                FileType(QStringLiteral("two"), QStringLiteral("Application/X-Demo")),
                                FileType(QStringLiteral("tar.gz"), QStringLiteral("application/x-other"))};
    QVERIFY(
        PlatformManager().registerFileTypesForUser(QStringLiteral("Demo"), QStringLiteral("Demo"), types));
    const QByteArray package = read(packageFile());
    QCOMPARE(package.count("<mime-type "), 2);
    QVERIFY(package.contains("<glob pattern=\"*.one\"/>") && package.contains("<glob pattern=\"*.two\"/>"));
    QVERIFY(package.contains("<glob pattern=\"*.tar.gz\"/>"));
    QVERIFY(!package.contains("root-XML"));
    QCOMPARE(mimeTypeLine(read(entryFile())), QByteArray("MimeType=application/x-demo;application/x-other;"));
}

void PlatformManagerTest::aSecondCallWritesNothing()
{
    QVERIFY(registerScheme());
    QVERIFY(registerNzb());
    const QStringList written = files().keys();
    QCOMPARE(written.size(), 3);
    for (const QString &name : written) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(
            file.setFileTime(QDateTime(QDate(2001, 1, 1), QTime(0, 0)), QFileDevice::FileModificationTime));
    }
    const QMap<QString, QDateTime> before = files();
    QVERIFY(registerScheme());
    QVERIFY(registerNzb());
    QCOMPARE(files(), before);
}

void PlatformManagerTest::theDesktopsCachesAreRenewedOnlyAfterAChange()
{
    const QString log = path(QStringLiteral("log"));
    for (const char *tool : {"update-mime-database", "update-desktop-database"}) {
        const QString script = path(QStringLiteral("bin/") + QString::fromLatin1(tool));
        write(script, "#!/bin/sh\necho \"${0##*/} $1\" >> " + QFile::encodeName(log) + '\n');
        QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner));
    }
    const auto lines = [&] {
        QList<QByteArray> all = read(log).trimmed().split('\n');
        std::sort(all.begin(), all.end());
        return all;
    };
    const QByteArray data = QFile::encodeName(path(QStringLiteral("data")));
    const QByteArray desktop = "update-desktop-database " + data + "/applications";
    const QByteArray mime = "update-mime-database " + data + "/mime";

    QVERIFY(registerScheme());
    QTRY_COMPARE_WITH_TIMEOUT(lines(), QList<QByteArray>({desktop}), ToolWatchdogMs);
    QVERIFY(registerScheme());
    QVERIFY(registerNzb());
    QTRY_COMPARE_WITH_TIMEOUT(lines(), QList<QByteArray>({desktop, desktop, mime}), ToolWatchdogMs);
    QVERIFY(registerNzb());
    QVERIFY(registerScheme());
    QVERIFY(PlatformManager().registerProtocolForUser(QStringLiteral("other"), QStringLiteral("Corvia")));
    QTRY_COMPARE_WITH_TIMEOUT(lines(), QList<QByteArray>({desktop, desktop, desktop, mime}), ToolWatchdogMs);
}

void PlatformManagerTest::theUsersDefaultStands_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("list");
    const QByteArray other = "[Default Applications]\nx-scheme-handler/pinegate=other.desktop;\n";
    QTest::newRow("own list") << QStringLiteral("config/mimeapps.list") << other;
    QTest::newRow("old place") << QStringLiteral("data/applications/mimeapps.list") << other;
    QTest::newRow("list of the desktop") << QStringLiteral("config/gnome-mimeapps.list") << other;
    QTest::newRow("list of the desktop's family") << QStringLiteral("config/unity-mimeapps.list") << other;
    QTest::newRow("blanks and line ends")
        << QStringLiteral("config/mimeapps.list")
        << QByteArray("  [Default Applications] \r\n x-scheme-handler/pinegate = other.desktop\r\n");
    QTest::newRow("ours second")
        << QStringLiteral("config/mimeapps.list")
        << QByteArray("[Default Applications]\n"
                      "x-scheme-handler/pinegate=other.desktop;org.halvora.Halvora.desktop;\n");
    QTest::newRow("taken away") << QStringLiteral("config/mimeapps.list")
                                << QByteArray("[Removed Associations]\n"
                                              "x-scheme-handler/pinegate=org.halvora.Halvora.desktop;\n");
    QTest::newRow("program is gone")
        << QStringLiteral("config/mimeapps.list")
        << QByteArray("[Default Applications]\nx-scheme-handler/pinegate=gone.desktop\n");
}

void PlatformManagerTest::theUsersDefaultStands()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, list);
    qputenv("XDG_CURRENT_DESKTOP", "Unity:GNOME");
    write(path(QStringLiteral("system/applications/other.desktop")), "[Desktop Entry]\n");
    write(path(file), list);
    QVERIFY(!registerScheme());
    QCOMPARE(read(path(file)), list);
    QVERIFY(file == QStringLiteral("config/mimeapps.list") || !QFileInfo::exists(listFile()));
    // The program is still offered beside the other one.
    QCOMPARE(mimeTypeLine(read(entryFile())), QByteArray("MimeType=x-scheme-handler/pinegate;"));
}

void PlatformManagerTest::ourOwnDefaultIsSeen_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("alone") << QByteArray("org.halvora.Halvora.desktop");
    QTest::newRow("first") << QByteArray("org.halvora.Halvora.desktop;other.desktop;");
    QTest::newRow("after one that is gone") << QByteArray("gone.desktop;org.halvora.Halvora.desktop;");
}

void PlatformManagerTest::ourOwnDefaultIsSeen()
{
    QFETCH(QByteArray, value);
    write(path(QStringLiteral("system/applications/other.desktop")), "[Desktop Entry]\n");
    const QByteArray list = "[Default Applications]\nx-scheme-handler/pinegate=" + value + '\n';
    write(listFile(), list);
    QVERIFY(registerScheme());
    QCOMPARE(read(listFile()), list);
}

void PlatformManagerTest::theUsersListKeepsItsBytes_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray line = "x-scheme-handler/pinegate=org.halvora.Halvora.desktop";
    QTest::newRow("no list") << QByteArray() << "[Default Applications]\n" + line + '\n';
    QTest::newRow("group") << QByteArray(
                                  "# mine\n\n[Default Applications]\ntext/plain=a.desktop\n\n[X]\nb=c\n")
                           << "# mine\n\n[Default Applications]\n" + line +
                                  "\ntext/plain=a.desktop\n\n[X]\nb=c\n";
    QTest::newRow("no group") << QByteArray("[X]\nb=c\n")
                              << "[X]\nb=c\n[Default Applications]\n" + line + '\n';
    QTest::newRow("no last line end")
        << QByteArray("[X]\nb=c") << "[X]\nb=c\n[Default Applications]\n" + line + '\n';
    QTest::newRow("header without line end")
        << QByteArray("[Default Applications]") << "[Default Applications]\n" + line + '\n';
    QTest::newRow("other line ends") << QByteArray("[Default Applications]\r\na/b=c\r\n")
                                     << "[Default Applications]\r\n" + line + "\r\na/b=c\r\n";
    QTest::newRow("no UTF-8") << QByteArray("[Default Applications]\n\xff\xfe=\x80\n")
                              << "[Default Applications]\n" + line + "\n\xff\xfe=\x80\n";
    QTest::newRow("empty default") << QByteArray(
                                          "[Default Applications]\na/b=c\nx-scheme-handler/pinegate=;\n[X]\n")
                                   << "[Default Applications]\n" + line + "\na/b=c\n[X]\n";
    QTest::newRow("default in another group")
        << QByteArray("[Added Associations]\nx-scheme-handler/pinegate=other.desktop;\n")
        << "[Added Associations]\nx-scheme-handler/pinegate=other.desktop;\n[Default Applications]\n" + line +
               '\n';
    QTest::newRow("similar key") << QByteArray(
                                        "[Default Applications]\nx-scheme-handler/pinegate2=other.desktop\n")
                                 << "[Default Applications]\n" + line +
                                        "\nx-scheme-handler/pinegate2=other.desktop\n";
}

void PlatformManagerTest::theUsersListKeepsItsBytes()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    if (!before.isEmpty())
        write(listFile(), before);
    QVERIFY(registerScheme());
    QCOMPARE(read(listFile()), after);
}

void PlatformManagerTest::theTargetOfALinkIsWritten()
{
    const QString target = path(QStringLiteral("dotfiles/mimeapps.list"));
    write(target, "[X]\n");
    QVERIFY(QDir().mkpath(path(QStringLiteral("config"))));
    QVERIFY(QFile::link(target, listFile()));
    QVERIFY(registerScheme());
    QVERIFY(QFileInfo(listFile()).isSymLink());
    QVERIFY(read(target).contains("pinegate"));
}

void PlatformManagerTest::whatIsNoSchemeIsRefused_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::newRow("nothing") << QString();
    QTest::newRow("digit first") << QStringLiteral("1a");
    QTest::newRow("colon") << QStringLiteral("a:b");
    QTest::newRow("slash") << QStringLiteral("a/b");
    QTest::newRow("list") << QStringLiteral("a;b");
    QTest::newRow("key") << QStringLiteral("a=b");
    QTest::newRow("line break") << QStringLiteral("a\n");
    QTest::newRow("umlaut") << QStringLiteral("ä");
    QTest::newRow("very long") << QString(1000, QLatin1Char('a'));
}

void PlatformManagerTest::whatIsNoSchemeIsRefused()
{
    QFETCH(QString, scheme);
    QVERIFY(!PlatformManager().registerProtocolForUser(scheme, QStringLiteral("Corvia")));
    QVERIFY(!PlatformManager().registerProtocolForSystem(scheme, QStringLiteral("Corvia")));
    QVERIFY(files().isEmpty());
}

void PlatformManagerTest::whatIsNoFileTypeIsRefused_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("mimeType");
    const auto row = [](const char *name, const char *extension, const char *mimeType) {
        QTest::newRow(name) << QString::fromUtf8(extension) << QString::fromUtf8(mimeType);
    };
    row("no extension", "", "application/x-nzb");
    row("pattern", "*", "application/x-nzb");
    row("path", "../x", "application/x-nzb");
    row("no type", "nzb", "");
    row("half a type", "nzb", "application");
    row("half a type and slash", "nzb", "application/");
    row("way out", "nzb", "application/../../x");
    row("list", "nzb", "a/b;c/d");
    row("key", "nzb", "a/b=c");
    row("line break", "nzb", "a/b\n");
}

void PlatformManagerTest::whatIsNoFileTypeIsRefused()
{
    QFETCH(QString, extension);
    QFETCH(QString, mimeType);
    PlatformManager platform;
    // One bad type spoils the whole list, so that nothing is half registered.
    const QList<FileType> types = nzb() + QList<FileType>{FileType(extension, mimeType)};
    QVERIFY(!platform.registerFileTypesForUser(QStringLiteral("A"), QStringLiteral("B"), types));
    QVERIFY(!platform.registerFileTypesForSystem(QStringLiteral("A"), QStringLiteral("B"), types));
    QVERIFY(!platform.registerFileTypesForUser(QStringLiteral("A"), QStringLiteral("B"), {}));
    QVERIFY(files().isEmpty());
}

void PlatformManagerTest::whatCannotBeWrittenAnswersFalse_data()
{
    QTest::addColumn<QString>("obstacle");
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("no data folder") << QStringLiteral("data") << false;
    QTest::newRow("no folder for packages") << QStringLiteral("data/mime") << false;
    QTest::newRow("no folder for entries") << QStringLiteral("data/applications") << false;
    QTest::newRow("no configuration folder") << QStringLiteral("config") << false;
    QTest::newRow("folder for the list") << QStringLiteral("config/mimeapps.list") << true;
    QTest::newRow("folder for the package")
        << QStringLiteral("data/mime/packages/org.halvora.Halvora.xml") << true;
    QTest::newRow("folder for the entry")
        << QStringLiteral("data/applications/org.halvora.Halvora.desktop") << true;
}

void PlatformManagerTest::whatCannotBeWrittenAnswersFalse()
{
    QFETCH(QString, obstacle);
    QFETCH(bool, isFolder);
    if (isFolder)
        QVERIFY(QDir().mkpath(path(obstacle)));
    else
        write(path(obstacle), "in the way");
    QVERIFY(!registerNzb());
    // No default may name an entry that is not there.
    QVERIFY(QFileInfo(entryFile()).isFile() || !QFileInfo::exists(listFile()));

    if (isFolder) {
        QVERIFY(QDir().rmdir(path(obstacle)));
        QVERIFY(::mkfifo(QFile::encodeName(path(obstacle)).constData(), 0600) == 0);
        QVERIFY(!registerNzb());
    }
}

void PlatformManagerTest::theInstalledEntryAnswersForTheSystem_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<bool>("scheme");
    QTest::addColumn<bool>("type");
    const QString right = QStringLiteral("system/applications/org.halvora.Halvora.desktop");
    const QByteArray head = "[Desktop Entry]\nType=Application\n";
    const QByteArray both = "MimeType=application/x-nzb;x-scheme-handler/pinegate;\n";
    QTest::newRow("both") << right << head + both << true << true;
    QTest::newRow("scheme only") << right << head + "MimeType=x-scheme-handler/pinegate\n" << true << false;
    QTest::newRow("type only") << right << head + "MimeType=application/x-nzb;\n" << false << true;
    QTest::newRow("neither") << right << head << false << false;
    QTest::newRow("longer names") << right
                                  << head + "MimeType=application/x-nzb2;x-scheme-handler/pinegate2;\n"
                                  << false << false;
    QTest::newRow("hidden") << right << head + both + "Hidden=true\n" << false << false;
    QTest::newRow("another program") << QStringLiteral("system/applications/other.desktop") << head + both
                                     << false << false;
    QTest::newRow("second folder") << QStringLiteral("second/applications/org.halvora.Halvora.desktop")
                                   << head + both << true << true;
}

void PlatformManagerTest::theInstalledEntryAnswersForTheSystem()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, entry);
    QFETCH(bool, scheme);
    QFETCH(bool, type);
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path(QStringLiteral("system")) + QLatin1Char(':') +
                                               path(QStringLiteral("second"))));
    write(path(file), entry);
    const QMap<QString, QDateTime> before = files();
    PlatformManager platform;
    QCOMPARE(platform.registerProtocolForSystem(QStringLiteral("Pinegate"), QStringLiteral("Corvia")),
             scheme);
    QCOMPARE(platform.registerFileTypesForSystem(QStringLiteral("A"), QStringLiteral("B"), nzb()), type);
    const QList<FileType> two =
        nzb() + QList<FileType>{FileType(QStringLiteral("x"), QStringLiteral("application/x-two"))};
    QVERIFY(!platform.registerFileTypesForSystem(QStringLiteral("A"), QStringLiteral("B"), two));
    QCOMPARE(files(), before);
}

void PlatformManagerTest::theUsersEntryIsNoneOfTheSystem()
{
    QVERIFY(registerScheme());
    qputenv("XDG_DATA_DIRS", QFile::encodeName(path(QStringLiteral("data"))));
    QVERIFY(
        !PlatformManager().registerProtocolForSystem(QStringLiteral("pinegate"), QStringLiteral("Corvia")));
}

void PlatformManagerTest::theUsersEntryOffersWhatItHides()
{
    write(path(QStringLiteral("system/applications/org.halvora.Halvora.desktop")),
          "[Desktop Entry]\nMimeType=application/x-nzb;no type;\n");
    QVERIFY(registerScheme());
    QCOMPARE(mimeTypeLine(read(entryFile())),
             QByteArray("MimeType=application/x-nzb;x-scheme-handler/pinegate;"));
}

void PlatformManagerTest::anEntryThatLeadsNowhereDoesNotHideTheInstalledOne()
{
    write(installedEntryFile(), installedEntry());
    write(entryFile(), "[Desktop Entry]\nExec=/gone/halvora %u\n");
    const QMap<QString, QDateTime> before = files();
    PlatformManager platform;
    QVERIFY(!platform.registerProtocolForSystem(QStringLiteral("pinegate"), QStringLiteral("Corvia")));
    QVERIFY(!platform.registerFileTypesForSystem(QStringLiteral("A"), QStringLiteral("B"), nzb()));
    QCOMPARE(files(), before);

    QVERIFY(registerScheme());
    QVERIFY(!QFileInfo::exists(entryFile()));
    QVERIFY(platform.registerProtocolForSystem(QStringLiteral("pinegate"), QStringLiteral("Corvia")));
    QVERIFY(platform.registerFileTypesForSystem(QStringLiteral("A"), QStringLiteral("B"), nzb()));
}

void PlatformManagerTest::anEntryOfTheUsersOwnStaysBesideTheInstalledOne_data()
{
    QTest::addColumn<QByteArray>("entry");
    QTest::newRow("of a program that is there") << QByteArray("[Desktop Entry]\nExec=/bin/sh %u\n");
    QTest::newRow("of a name") << QByteArray("[Desktop Entry]\nExec=halvora %u\n");
    QTest::newRow("of no program") << QByteArray("[Desktop Entry]\nDBusActivatable=true\n");
    QTest::newRow("of another group") << QByteArray("[Desktop Action a]\nExec=/gone/halvora\n");
    QTest::newRow("empty") << QByteArray();
}

void PlatformManagerTest::anEntryOfTheUsersOwnStaysBesideTheInstalledOne()
{
    QFETCH(QByteArray, entry);
    write(installedEntryFile(), installedEntry());
    write(entryFile(), entry);
    PlatformManager platform;
    QVERIFY(platform.registerProtocolForSystem(QStringLiteral("pinegate"), QStringLiteral("Corvia")));
    QVERIFY(platform.registerFileTypesForSystem(QStringLiteral("A"), QStringLiteral("B"), nzb()));
    QCOMPARE(read(entryFile()), entry);
}

void PlatformManagerTest::anEntryThatLeadsNowhereIsMendedWhereNothingIsInstalled()
{
    write(entryFile(), "[Desktop Entry]\nExec=/gone/halvora %u\nMimeType=application/x-nzb;\n");
    QVERIFY(registerScheme());
    const QByteArray entry = read(entryFile());
    QVERIFY(entry.contains("\nExec=" + QCoreApplication::applicationFilePath().toUtf8() + " %u\n"));
    QCOMPARE(mimeTypeLine(entry), QByteArray("MimeType=application/x-nzb;x-scheme-handler/pinegate;"));
}

void PlatformManagerTest::aRelativeFolderInTheEnvironmentIsNone()
{
    qputenv("XDG_DATA_HOME", "data");
    qputenv("XDG_CONFIG_HOME", "config");
    QVERIFY(QDir::setCurrent(m_home->path()));
    QVERIFY(registerScheme());
    QVERIFY(files().isEmpty());
    QVERIFY(QFileInfo::exists(QDir::home().filePath(QStringLiteral(".config/mimeapps.list"))));
    QVERIFY(QDir::setCurrent(QStringLiteral("/")));
}

QTEST_GUILESS_MAIN(PlatformManagerTest)
#include "tst_platformmanager.moc"
