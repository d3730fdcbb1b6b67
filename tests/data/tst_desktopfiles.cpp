// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <desktopentry.h>
#include <mimepackage.h>

#include <plugin/constants.h>

#include <QDomDocument>
#include <QPainter>
#include <QProcess>
#include <QSvgRenderer>
#include <QtTest>

/// What is installed for desktops beside what the program itself tells them.
class DesktopFilesTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void theValidatorHasNothingToSay_data();
    void theValidatorHasNothingToSay();
    void theEntryOffersWhatThePlugInOpens();
    void theEntrySaysWhatTheUsersOwnSays();
    void theEntrySpeaksGerman();
    void thePackageDescribesTheTypeAsTheUsersOwnDoes();
    void theMetadataNameWhatIsInstalled();
    void theNewestReleaseIsThisOne();
    void everyIconHasItsSize_data();
    void everyIconHasItsSize();
    void theDrawingsCanBeDrawn_data();
    void theDrawingsCanBeDrawn();
};

namespace {

constexpr int ToolWatchdogMs = 60000; // for programs that take far less than a second

QString path(const char *name)
{
    return QStringLiteral(DATA_FOLDER "/") + QString::fromLatin1(name);
}

QByteArray read(const QString &file)
{
    QFile source(file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

QByteArray lineOf(const QByteArray &entry, const QByteArray &key)
{
    const QList<QByteArray> lines = entry.split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key + '='))
            return line.mid(key.size() + 1);
    }
    return {};
}

QDomElement rootOf(const QByteArray &xml)
{
    QDomDocument document;
    document.setContent(xml);
    return document.documentElement();
}

QByteArray installedEntry()
{
    return read(path("org.halvora.Halvora.desktop"));
}

QDomElement metadata()
{
    return rootOf(read(path("org.halvora.Halvora.metainfo.xml")));
}

QStringList types()
{
    return {QStringLiteral("application/x-nzb"), QStringLiteral("x-scheme-handler/") + constants::productId};
}

/// @p element and all below it but the texts of people, each with its attributes, one a line.
QStringList outline(const QDomElement &element)
{
    if (element.tagName() == QLatin1String("comment"))
        return {};
    QStringList attributes;
    for (int i = 0; i < element.attributes().size(); ++i) {
        const QDomAttr attribute = element.attributes().item(i).toAttr();
        attributes.append(attribute.name() + QLatin1Char('=') + attribute.value());
    }
    attributes.sort();
    QStringList lines{element.tagName() + QLatin1Char(' ') + attributes.join(QLatin1Char(' '))};
    for (QDomElement child = element.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
        lines.append(outline(child));
    return lines;
}

} // namespace

void DesktopFilesTest::theValidatorHasNothingToSay_data()
{
    QTest::addColumn<QStringList>("command");
    const QString entry = path("org.halvora.Halvora.desktop");
    QTest::newRow("entry") << QStringList{QStringLiteral("desktop-file-validate"), entry};
    QTest::newRow("metadata") << QStringList{QStringLiteral("appstreamcli"), QStringLiteral("validate"),
                                             QStringLiteral("--no-net"), QStringLiteral("--no-color"),
                                             path("org.halvora.Halvora.metainfo.xml")};
    for (const char *xml :
         {"org.halvora.Halvora.metainfo.xml", "org.halvora.Halvora.mime.xml", "application-x-nzb.svg"})
        QTest::newRow(xml) << QStringList{QStringLiteral("xmllint"), QStringLiteral("--noout"), path(xml)};
}

void DesktopFilesTest::theValidatorHasNothingToSay()
{
    QFETCH(QStringList, command);
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(command.takeFirst(), command);
    QVERIFY2(validator.waitForFinished(ToolWatchdogMs), qPrintable(validator.errorString()));
    const QString said = QString::fromUtf8(validator.readAll()).trimmed();
    QCOMPARE(validator.exitCode(), 0);
    // One of them counts the remarks that it was told to keep to itself.
    QVERIFY2(said.isEmpty() || said.startsWith(QStringLiteral("✔ Validation was successful")),
             qPrintable(said));
    QVERIFY2(!said.contains(QLatin1Char('\n')), qPrintable(said));
}

void DesktopFilesTest::theEntryOffersWhatThePlugInOpens()
{
    QCOMPARE(DesktopEntry::mimeTypes(path("org.halvora.Halvora.desktop")), types());
    QCOMPARE(lineOf(installedEntry(), "Exec"), QByteArray(PUBLIC_PROGRAM " %u"));
    QCOMPARE(DesktopEntry::id(), QStringLiteral("org.halvora.Halvora.desktop"));
}

void DesktopFilesTest::theEntrySaysWhatTheUsersOwnSays()
{
    const QByteArray own =
        DesktopEntry::compose(QStringLiteral("Halvora"), QStringLiteral(PUBLIC_PROGRAM), types());
    const QList<QByteArray> lines = own.trimmed().split('\n');
    QVERIFY(lines.size() > 5);
    const QList<QByteArray> installed = installedEntry().split('\n');
    for (const QByteArray &line : lines)
        QVERIFY2(installed.contains(line), line.constData());
}

void DesktopFilesTest::theEntrySpeaksGerman()
{
    for (const char *key : {"GenericName", "Comment", "Keywords"}) {
        const QByteArray german = lineOf(installedEntry(), QByteArray(key) + "[de]");
        QVERIFY2(!german.isEmpty() && german != lineOf(installedEntry(), key), key);
    }
}

void DesktopFilesTest::thePackageDescribesTheTypeAsTheUsersOwnDoes()
{
    const QDomElement installed = rootOf(read(path("org.halvora.Halvora.mime.xml")));
    const QDomElement own = rootOf(MimePackage::compose(
        QStringLiteral("any"), {FileType(QStringLiteral("nzb"), QStringLiteral("application/x-nzb"))}));
    QVERIFY(outline(installed).size() > 5);
    QCOMPARE(outline(installed), outline(own));
}

void DesktopFilesTest::theMetadataNameWhatIsInstalled()
{
    const QDomElement component = metadata();
    const QDomElement provides = component.firstChildElement(QStringLiteral("provides"));
    QStringList offered;
    for (QDomElement type = provides.firstChildElement(QStringLiteral("mediatype")); !type.isNull();
         type = type.nextSiblingElement(QStringLiteral("mediatype")))
        offered.append(type.text());
    QCOMPARE(offered, types());
    QCOMPARE(provides.firstChildElement(QStringLiteral("binary")).text(), QStringLiteral(PUBLIC_PROGRAM));
    QCOMPARE(component.firstChildElement(QStringLiteral("launchable")).text(), DesktopEntry::id());
    QCOMPARE(component.firstChildElement(QStringLiteral("id")).text() + QStringLiteral(".desktop"),
             DesktopEntry::id());
    QCOMPARE(component.firstChildElement(QStringLiteral("icon")).text().toUtf8(),
             lineOf(installedEntry(), "Icon"));
}

void DesktopFilesTest::theNewestReleaseIsThisOne()
{
    const QDomElement release = metadata().firstChildElement(QStringLiteral("releases")).firstChildElement();
    QCOMPARE(release.attribute(QStringLiteral("version")), QStringLiteral(PROJECT_VERSION));
    QVERIFY(read(path("debian/changelog")).startsWith("halvora (" PROJECT_VERSION "-"));
}

void DesktopFilesTest::everyIconHasItsSize_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {16, 32, 48, 64, 128, 256})
        QTest::addRow("%d", size) << size;
}

void DesktopFilesTest::everyIconHasItsSize()
{
    QFETCH(int, size);
    const QImage icon(QStringLiteral(DRAWINGS_FOLDER "/app/%1x%1.png").arg(size));
    QCOMPARE(icon.size(), QSize(size, size));
}

void DesktopFilesTest::theDrawingsCanBeDrawn_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("application") << QStringLiteral(DRAWINGS_FOLDER "/org.halvora.Halvora.svg");
    QTest::newRow("file type") << path("application-x-nzb.svg");
}

void DesktopFilesTest::theDrawingsCanBeDrawn()
{
    QFETCH(QString, file);
    QSvgRenderer drawing(file);
    QVERIFY(drawing.isValid());
    QCOMPARE(drawing.defaultSize(), QSize(64, 64));
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    drawing.render(&painter);
    painter.end();
    QCOMPARE(image.pixelColor(0, 0).alpha(), 0);
    QVERIFY(image.pixelColor(32, 32).alpha() > 0);
}

QTEST_MAIN(DesktopFilesTest)
#include "tst_desktopfiles.moc"
