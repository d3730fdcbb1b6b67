// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "connector/cvconnectorplugin.h"
#include "requests/cvmessagerequest.h"

#include <halvora/core.h>

#include <QDomDocument>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamWriter>

#include <memory>

class TestCVMessageRequest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void itWritesItsUidsInTheirOrder_data();
    void itWritesItsUidsInTheirOrder();
    void aUidIsWrittenAsItIs_data();
    void aUidIsWrittenAsItIs();
    void aThousandUidsAreWrittenOnceEach();
    void onlyTheElementSuccessIsSuccess_data();
    void onlyTheElementSuccessIsSuccess();
    void beforeAReplyThereIsNoSuccess();
    void itSharesItsBasesMetaObject();
    void itNeedsAReadyServerAndALogin();

private:
    QString written();
    void answer(const QString &xml);

    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
    std::unique_ptr<CVMessageRequest> m_request;
};

void TestCVMessageRequest::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
    m_request = std::make_unique<CVMessageRequest>(m_plugin->connector());
}

void TestCVMessageRequest::cleanup()
{
    m_request.reset();
    m_plugin.reset();
    m_core.reset();
}

QString TestCVMessageRequest::written()
{
    QString text;
    QXmlStreamWriter writer(&text);
    m_request->buildRequestInternal(writer);
    return text;
}

void TestCVMessageRequest::answer(const QString &xml)
{
    QDomDocument document;
    QVERIFY(document.setContent(xml));
    m_request->buildResponseInternal(document.documentElement());
}

void TestCVMessageRequest::itWritesItsUidsInTheirOrder_data()
{
    QTest::addColumn<QStringList>("read");
    QTest::addColumn<QStringList>("deleted");
    QTest::addColumn<QString>("document");
    const auto row = [](const char *name, const char *read, const char *deleted, const char *document) {
        const auto list = [](const char *uids) {
            return QString::fromUtf8(uids).split(QLatin1Char(' '), Qt::SkipEmptyParts);
        };
        QTest::newRow(name) << list(read) << list(deleted) << QString::fromUtf8(document);
    };
    row("neither", "", "", "<message/>");
    row("one was read", "a", "", R"(<message><read><message uid="a"/></read></message>)");
    row("only deletions", "", "z a",
        R"(<message><deleted><message uid="z"/><message uid="a"/></deleted></message>)");
    row("both", "r2 r1", "d",
        R"(<message><read><message uid="r2"/><message uid="r1"/></read>)"
        R"(<deleted><message uid="d"/></deleted></message>)");
    row("the same one twice in each list", "a b a", "c c d",
        R"(<message><read><message uid="a"/><message uid="b"/></read>)"
        R"(<deleted><message uid="c"/><message uid="d"/></deleted></message>)");
    row("the same one in both lists", "a", "a",
        R"(<message><read><message uid="a"/></read><deleted><message uid="a"/></deleted></message>)");
    row("letter case", "a A", "", R"(<message><read><message uid="a"/><message uid="A"/></read></message>)");
}

void TestCVMessageRequest::itWritesItsUidsInTheirOrder()
{
    QFETCH(QStringList, read);
    QFETCH(QStringList, deleted);
    // Deletions first: the document has its own order.
    for (const QString &uid : deleted)
        m_request->addDeletedMessage(uid);
    for (const QString &uid : read)
        m_request->addReadMessage(uid);
    QTEST(written(), "document");
}

void TestCVMessageRequest::aUidIsWrittenAsItIs_data()
{
    QTest::addColumn<QString>("uid");
    QTest::newRow("markup") << QStringLiteral("<a href=\"x\">&amp;</a>");
    QTest::newRow("blanks") << QStringLiteral("  a \t\n b  ");
    QTest::newRow("right to left") << QString::fromUtf8("رسالة");
    QTest::newRow("none") << QString();
    QTest::newRow("100,000 characters") << QString(100'000, QLatin1Char('x'));
}

void TestCVMessageRequest::aUidIsWrittenAsItIs()
{
    QFETCH(QString, uid);
    m_request->addReadMessage(uid);
    m_request->addDeletedMessage(uid);
    QDomDocument document;
    QVERIFY(document.setContent(written()));
    for (const QString &list : {QStringLiteral("read"), QStringLiteral("deleted")}) {
        const QDomElement message = document.documentElement().firstChildElement(list).firstChildElement();
        QCOMPARE(message.tagName(), QStringLiteral("message"));
        QCOMPARE(message.attribute(QStringLiteral("uid"), QStringLiteral("no attribute")), uid);
    }
}

void TestCVMessageRequest::aThousandUidsAreWrittenOnceEach()
{
    constexpr int count = 1'000;
    QStringList uids;
    for (int number = 0; number < count; ++number)
        uids.append(QString::number(number));
    for (const QString &uid : uids + uids)
        m_request->addReadMessage(uid);
    QDomDocument document;
    QVERIFY(document.setContent(written()));
    QStringList told;
    const QDomElement read = document.documentElement().firstChildElement(QStringLiteral("read"));
    for (auto message = read.firstChildElement(); !message.isNull(); message = message.nextSiblingElement())
        told.append(message.attribute(QStringLiteral("uid")));
    QCOMPARE(told, uids);
}

void TestCVMessageRequest::onlyTheElementSuccessIsSuccess_data()
{
    QTest::addColumn<QString>("reply");
    QTest::addColumn<bool>("success");
    QTest::newRow("success") << QStringLiteral("<success/>") << true;
    QTest::newRow("with more in it") << QStringLiteral("<success a='1'><error/></success>") << true;
    QTest::newRow("an error") << QStringLiteral("<error>no</error>") << false;
    QTest::newRow("capital") << QStringLiteral("<Success/>") << false;
    QTest::newRow("deeper") << QStringLiteral("<reply><success/></reply>") << false;
    QTest::newRow("longer") << QStringLiteral("<successful/>") << false;
}

void TestCVMessageRequest::onlyTheElementSuccessIsSuccess()
{
    QFETCH(QString, reply);
    answer(reply);
    QTEST(m_request->hasSucceeded(), "success");
}

void TestCVMessageRequest::beforeAReplyThereIsNoSuccess()
{
    QVERIFY(!m_request->hasSucceeded());
    QVERIFY(!m_request->isSuccessful());
}

void TestCVMessageRequest::itSharesItsBasesMetaObject()
{
    QCOMPARE(m_request->metaObject(), &HRequest::staticMetaObject);
    QCOMPARE(m_request->parent(), nullptr);
}

void TestCVMessageRequest::itNeedsAReadyServerAndALogin()
{
    QVERIFY(m_request->isAllowedToSend(true, true));
    QVERIFY(!m_request->isAllowedToSend(true, false));
    QVERIFY(!m_request->isAllowedToSend(false, true));
    QVERIFY(!m_request->isLoginRequest());
}

QTEST_GUILESS_MAIN(TestCVMessageRequest)
#include "tst_cvmessagerequest.moc"
