// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "plugin/constants.h"

#include <QRegularExpression>
#include <QTest>

class TestConstants : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void secondAndThirdServiceHostAreEmptyNotAbsent();
    void linkSchemeAndProductIdAreTwoConstants();
    void wordsKeepTheirSpelling_data();
    void wordsKeepTheirSpelling();
    void patternsAreComposedOfTheirPieces();
    void patternsMatchWhatTheyAreFor_data();
    void patternsMatchWhatTheyAreFor();
    void coloursAreOpaque();
};

void TestConstants::secondAndThirdServiceHostAreEmptyNotAbsent()
{
    QVERIFY(constants::primaryServiceHost.endsWith(QLatin1String(".example")));
    for (const QString &host : {constants::secondaryServiceHost, constants::tertiaryServiceHost}) {
        QVERIFY(host.isEmpty());
        QVERIFY(!host.isNull());
    }
}

void TestConstants::linkSchemeAndProductIdAreTwoConstants()
{
    QCOMPARE(constants::linkScheme, constants::productId);
    QVERIFY(&constants::linkScheme != &constants::productId);
    QVERIFY(&constants::jobSize != &constants::fieldSize);
}

void TestConstants::wordsKeepTheirSpelling_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    const auto row = [](const QString &word, const char *expected) {
        QTest::newRow(expected) << word << QString::fromLatin1(expected);
    };
    row(constants::productName, "Pinegate");
    row(constants::linkScheme, "pinegate");
    row(constants::productFileDescription, "Pinegate File");
    row(constants::productTag, "PG");
    row(constants::linkControlPanel, "control.panel");
    row(constants::linkHelp, "help");
    row(constants::linkHelpQuery, "help.query");
    row(constants::linkVlcInstaller, "vlc.installer");
    row(constants::linkHome, "home");
    row(constants::linkSignup, "signup");
    row(constants::linkSupport, "support");
    row(constants::linkLostPassword, "lost.password");
    row(constants::linkCustomerCenter, "customer.center");
    row(constants::linkFirstLaunch, "first.launch");
    row(constants::bookmarkManagerName, "CVBookmarkManager");
    row(constants::bookmarksPrivateDataName, "PDCVBookmarks");
    row(constants::bookmarkMimeType, "application/x-corvia.bookmark");
    row(constants::bookmarkColumns,
        "bookmark_id, parent_id, bookmark_name, bookmark_newsgroup, bookmark_color, bookmark_expanded, "
        "bookmark_order");
    row(constants::jobNzbGuid, "NzbGuid");
    row(constants::jobNzbLink, "NzbLink");
    row(constants::jobNzbPoster, "NzbPoster");
    row(constants::jobNzbNewsgroups, "NzbNewsgroups");
    row(constants::jobNzbMinDateTime, "NzbMinDateTime");
    row(constants::jobNzbMaxDateTime, "NzbMaxDateTime");
    row(constants::jobHash16k, "Hash16k");
    row(constants::jobArticleId, "ArticleId");
    row(constants::jobId, "id");
    row(constants::jobFiles, "files");
    row(constants::jobSize, "size");
    row(constants::jobAuto, "auto");
    row(constants::jobTabKey, "tab_key");
    row(constants::settingDeleteFolderOnExit, "DeleteFolderOnExit");
    row(constants::settingDeleteInvalidated, "DeleteInvalidated");
    row(constants::settingShowDisclaimer, "ShowDisclaimer");
    row(constants::settingAutoSearch, "AutoSearch");
    row(constants::settingPrivateAutoSearches, "PDAutoSearches");
    row(constants::settingConnector, "ConnectorSettings");
    row(constants::settingLimitEnabled, "LimitEnabled");
    row(constants::settingLimitInterval, "LimitInterval");
    row(constants::settingLimitMaxBytes, "LimitMaxBytes");
    row(constants::settingLimitCurrentBytes, "LimitCurrentBytes");
    row(constants::settingLastLimitUpdate, "LastLimitUpdate");
    row(constants::propertyUid, "__hv_r_uid");
    row(constants::propertyFileGroup, "__hv_fg");
    row(constants::propertyFileGroupId, "__hv_fg_id");
    row(constants::propertyFileGroupIndexId, "__hv_fg_idx_id");
    row(constants::propertyFileGroupFiles, "__hv_fg_files");
    row(constants::propertyFileGroupPreview, "__hv_fg_preview");
    row(constants::propertyFileGroupAutomaticPreview, "__hv_fg_automatic_preview");
    row(constants::propertyFileId, "__hv_f_id");
    row(constants::fieldTitle, "title");
    row(constants::fieldPoster, "poster");
    row(constants::fieldTimestamp, "timestamp");
    row(constants::fieldNewsgroup, "newsgroup");
    row(constants::fieldMediaCategory, "mediaCategory");
    row(constants::fieldLanguage, "language");
    row(constants::fieldRating, "rating");
    row(constants::fieldComments, "comments");
    row(constants::fieldPreview, "preview");
    row(constants::fieldNfo, "nfo");
    row(constants::fieldPixels, "pixels");
    QTest::newRow("size of a field") << constants::fieldSize << QStringLiteral("size");
    row(constants::panelDownload, "Download");
    row(constants::panelInfo, "Info");
    row(constants::videoExtensions, "avi|mkv|divx|xvid|mpg|mpeg|wmv|mov|ogm|ogv|ogg|flv|mp4");
    row(constants::audioExtensions, "wma|mp3|wav|oga");
    row(constants::imageExtensions, "jpg|jpeg|png|gif|bmp|tif|tiff");
    row(constants::rarFirstPartPattern, "(\\.part[0]+1\\.rar)|(\\.rar)$");
    row(constants::nfoFilePattern, "\\.nfo([\"' ]|$)");
    row(constants::quotedFilePattern, "\"([^\"]+\\.(?:[0-9a-z]{2,4}))\"");
}

void TestConstants::wordsKeepTheirSpelling()
{
    QFETCH(QString, word);
    QFETCH(QString, expected);
    QCOMPARE(word, expected);
}

void TestConstants::patternsAreComposedOfTheirPieces()
{
    QCOMPARE(constants::imageFilePattern, QStringLiteral("\\.(jpg|jpeg|png|gif|bmp|tif|tiff)([\"' ]|$)"));
    QCOMPARE(
        constants::sampleFilePattern,
        QStringLiteral("(.*)(^|\\W)sample(.*)\\.(avi|mkv|divx|xvid|mpg|mpeg|wmv|mov|ogm|ogv|ogg|flv|mp4)$"));
}

void TestConstants::patternsMatchWhatTheyAreFor_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matches");
    const QString rar = constants::rarFirstPartPattern;
    QTest::newRow("first part") << rar << QStringLiteral("a.part001.rar") << true;
    QTest::newRow("only part") << rar << QStringLiteral("a.rar") << true;
    QTest::newRow("no archive") << rar << QStringLiteral("a.r00") << false;
    QTest::newRow("nfo") << constants::nfoFilePattern << QStringLiteral("\"a.nfo\" (1/1)") << true;
    QTest::newRow("no nfo") << constants::nfoFilePattern << QStringLiteral("a.nfox") << false;
    QTest::newRow("quoted") << constants::quotedFilePattern << QStringLiteral("x \"a.jpg\" y") << true;
    QTest::newRow("image") << constants::imageFilePattern << QStringLiteral("a.tiff") << true;
    QTest::newRow("no image") << constants::imageFilePattern << QStringLiteral("a.tiffs") << false;
    QTest::newRow("sample") << constants::sampleFilePattern << QStringLiteral("film-sample.mkv") << true;
    QTest::newRow("no sample") << constants::sampleFilePattern << QStringLiteral("unsampled.mkv") << false;
}

void TestConstants::patternsMatchWhatTheyAreFor()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QFETCH(bool, matches);
    const QRegularExpression expression(pattern);
    QVERIFY(expression.isValid());
    QCOMPARE(expression.match(text).hasMatch(), matches);
}

void TestConstants::coloursAreOpaque()
{
    QCOMPARE(constants::colorAlert.name(QColor::HexArgb), QStringLiteral("#ff990000"));
    QCOMPARE(constants::colorPinkBackground.name(QColor::HexArgb), QStringLiteral("#fffbeff9"));
    QCOMPARE(constants::colorNoticeBackground.name(QColor::HexArgb), QStringLiteral("#fffffae3"));
    QCOMPARE(constants::colorNoticeHighlight.name(QColor::HexArgb), QStringLiteral("#fff9edbe"));
    QCOMPARE(constants::colorNoticeBorder.name(QColor::HexArgb), QStringLiteral("#fff0c36d"));
}

QTEST_GUILESS_MAIN(TestConstants)
#include "tst_constants.moc"
