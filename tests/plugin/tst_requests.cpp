// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "loopbackaccount.h"

#include "connector/cvconnectorplugin.h"
#include "requests/cvcontext.h"
#include "requests/cvloginrequest.h"
#include "requests/cvstatusrequest.h"

#include <halvora/connector.h>
#include <halvora/hcontextholder.h>

#include <QDomDocument>
#include <QSignalSpy>
#include <QTest>
#include <QXmlStreamWriter>

namespace {

QString written(HRequest &request)
{
    QString text;
    QXmlStreamWriter writer(&text);
    request.buildRequestInternal(writer);
    return text;
}

void answer(HRequest &request, const QString &xml)
{
    QDomDocument document;
    document.setContent(xml);
    request.buildResponseInternal(document.documentElement());
}

} // namespace

class TestRequests : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void thereIsOneContext();
    void theContextHasItsBasesMetaObject();
    void theContextTakesAFinishedLogin();
    void requestsHaveNoParentAndTheirOwnMetaObjects();
    void aStatusRequestWritesOneEmptyElement();
    void aStatusRequestReadsAnyElement();
    void aStatusRequestNeedsAReadyServerAndALogin();
    void aLoginRequestReturnsItsFirstFlag();
    void aLoginReplyWithAStatusBlockIsRead();
    void aLoginReplyWithoutAStatusBlockIsParsedAndEmpty();
    void aReplyOfAnotherNameLeavesTheStatusAlone_data();
    void aReplyOfAnotherNameLeavesTheStatusAlone();
    void theHostsPartIsFilledWhateverFollows();
    void unansweredRequestsHoldTheDefaults();

private:
    std::unique_ptr<Core> m_core;
    std::unique_ptr<QTemporaryDir> m_profile;
    std::unique_ptr<CVConnectorPlugin> m_plugin;
};

void TestRequests::init()
{
    m_profile = std::make_unique<QTemporaryDir>();
    m_core = std::make_unique<Core>(m_profile->path());
    m_plugin = std::make_unique<CVConnectorPlugin>(m_core.get());
}

void TestRequests::cleanup()
{
    m_plugin.reset();
    m_core.reset();
}

void TestRequests::thereIsOneContext()
{
    CVContext *context = CVContext::instance();
    QVERIFY(context);
    QCOMPARE(CVContext::instance(), context);
    HContextHolder::init(context);
    QCOMPARE(HContextHolder::context(), static_cast<HContext *>(context));
}

void TestRequests::theContextHasItsBasesMetaObject()
{
    QCOMPARE(CVContext::instance()->metaObject(), &HContext::staticMetaObject);
}

void TestRequests::theContextTakesAFinishedLogin()
{
    CVLoginRequest login(m_plugin->connector());
    answer(login, QStringLiteral("<login session='s'><nntp-servers><server host='a.example' port='563'/>"
                                 "</nntp-servers></login>"));
    const QSignalSpy changed(CVContext::instance(), &HContext::changed);
    CVContext::instance()->updateFromLogin(&login);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(CVContext::instance()->nntpHostCount(), 1);
    QVERIFY(CVContext::instance()->lastLogin().isValid());
}

void TestRequests::requestsHaveNoParentAndTheirOwnMetaObjects()
{
    const CVLoginRequest login(m_plugin->connector());
    const CVStatusRequest status(m_plugin->connector());
    QCOMPARE(login.parent(), nullptr);
    QCOMPARE(status.parent(), nullptr);
    QCOMPARE(login.metaObject()->className(), "CVLoginRequest");
    QCOMPARE(status.metaObject()->className(), "CVStatusRequest");
    for (const QMetaObject *meta : {login.metaObject(), status.metaObject()})
        QCOMPARE(meta->methodCount(), meta->methodOffset());
}

void TestRequests::aStatusRequestWritesOneEmptyElement()
{
    CVStatusRequest status(m_plugin->connector());
    QCOMPARE(written(status), QStringLiteral("<status/>"));
}

void TestRequests::aStatusRequestReadsAnyElement()
{
    CVStatusRequest status(m_plugin->connector());
    answer(status, QStringLiteral("<other supported='true'><nntp max-connections='12'/></other>"));
    QVERIFY(status.accountStatus().supported());
    QCOMPARE(status.accountStatus().maxConnections(), 12);
}

void TestRequests::aStatusRequestNeedsAReadyServerAndALogin()
{
    const CVStatusRequest status(m_plugin->connector());
    QVERIFY(status.isAllowedToSend(true, true));
    QVERIFY(!status.isAllowedToSend(true, false));
    QVERIFY(!status.isAllowedToSend(false, true));
    QVERIFY(!status.isLoginRequest());
}

void TestRequests::aLoginRequestReturnsItsFirstFlag()
{
    const CVLoginRequest login(m_plugin->connector());
    QVERIFY(!login.isAllowedToSend(false, true));
    QVERIFY(login.isAllowedToSend(true, false));
    QVERIFY(login.isAllowedToSend(true, true));
    QVERIFY(!login.isAllowedToSend(false, false));
    QVERIFY(login.isLoginRequest());
}

void TestRequests::aLoginReplyWithAStatusBlockIsRead()
{
    CVLoginRequest login(m_plugin->connector());
    answer(login, QStringLiteral("<login session='s'><status><nntp max-connections='20'/></status>"
                                 "<status><nntp max-connections='30'/></status></login>"));
    QCOMPARE(login.accountStatus().maxConnections(), 20);
}

void TestRequests::aLoginReplyWithoutAStatusBlockIsParsedAndEmpty()
{
    CVLoginRequest login(m_plugin->connector());
    answer(login, QStringLiteral("<login session='s'/>"));
    QVERIFY(login.accountStatus().isEmpty());
    QVERIFY(!login.accountStatus().supported());
    QCOMPARE(login.accountStatus().nextUpdateMillis(), 0);
}

void TestRequests::aReplyOfAnotherNameLeavesTheStatusAlone_data()
{
    QTest::addColumn<QString>("xml");
    QTest::newRow("capital") << QStringLiteral("<Login session='s'><status supported='true'/></Login>");
    QTest::newRow("status itself") << QStringLiteral(
        "<status supported='true'><status supported='true'/></status>");
    QTest::newRow("deeper") << QStringLiteral("<reply><login><status supported='true'/></login></reply>");
}

void TestRequests::aReplyOfAnotherNameLeavesTheStatusAlone()
{
    QFETCH(QString, xml);
    CVLoginRequest login(m_plugin->connector());
    answer(login, xml);
    QVERIFY(!login.accountStatus().supported());
    QVERIFY(login.accountStatus().isEmpty());
}

void TestRequests::theHostsPartIsFilledWhateverFollows()
{
    CVLoginRequest login(m_plugin->connector());
    answer(login, QStringLiteral("<login session='word' auto-search-interval='900'><nntp-servers>"
                                 "<server host='a.example' port='563' ssl='true'/></nntp-servers>"
                                 "<software-update version='2'/></login>"));
    QCOMPARE(login.session(), QStringLiteral("word"));
    QCOMPARE(login.autoSearchCheckInterval(), 900);
    QCOMPARE(login.nntpHosts().size(), 1);
    QCOMPARE(login.softwareUpdateElement().attribute(QStringLiteral("version")), QStringLiteral("2"));
    QVERIFY(!login.isSuccessful()); // nobody delivered it
}

void TestRequests::unansweredRequestsHoldTheDefaults()
{
    const CVLoginRequest login(m_plugin->connector());
    const CVStatusRequest status(m_plugin->connector());
    QVERIFY(login.accountStatus().isEmpty());
    QVERIFY(status.accountStatus().isEmpty());
    QVERIFY(login.softwareUpdateElement().isNull());
    QVERIFY(!login.isSuccessful());
    QVERIFY(!status.isSuccessful());
}

QTEST_MAIN(TestRequests)
#include "tst_requests.moc"
