// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "envelope.h"
#include "journal.h"
#include "recordingrequest.h"
#include "relaxngschema.h"
#include "serviceaccount.h"
#include "testlogin.h"

#include <halvora/connector.h>
#include <halvora/hserver.h>

#include <QDomDocument>
#include <QtTest>

using Kind = RequestFailure::Kind;

Q_DECLARE_METATYPE(RequestFailure::Kind)

class EnvelopeTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void aLoginIsValidWhateverTheUserIsCalled_data();
    void aLoginIsValidWhateverTheUserIsCalled();
    void aLoginCarriesNoSession();
    void anyOtherRequestCarriesTheSessionAndNoPassword();
    void whatXmlCannotCarryIsNotWritten_data();
    void whatXmlCannotCarryIsNotWritten();
    void nothingIsSentOfWhatCannotBeWritten();
    void theFirstChildIsTheReplysOwnElement_data();
    void theFirstChildIsTheReplysOwnElement();
    void refusalsAreToldApartByTheirCode_data();
    void refusalsAreToldApartByTheirCode();
    void everyReplyOfTheServiceIsRead();

private:
    QByteArray write(HRequest &request, RequestFailure *failure, const QString &session = QString());

    std::unique_ptr<ServiceAccount> m_account;
    Journal m_journal;
};

void EnvelopeTest::init()
{
    QCoreApplication::setApplicationVersion(QStringLiteral("0.1.0"));
    m_account = std::make_unique<ServiceAccount>();
    QCOMPARE(m_account->problem(), QString());
}

QByteArray EnvelopeTest::write(HRequest &request, RequestFailure *failure, const QString &session)
{
    QByteArray document;
    *failure = Envelope::write(request, session, document);
    return document;
}

void EnvelopeTest::aLoginIsValidWhateverTheUserIsCalled_data()
{
    QTest::addColumn<QString>("user");
    QTest::newRow("plain") << QStringLiteral("demo");
    QTest::newRow("markup") << QStringLiteral("<b a=\"c\">&amp;]]>'");
    QTest::newRow("white space") << QStringLiteral("  two\twords\n ");
    QTest::newRow("other letters") << QString::fromUtf8("gr\xC3\xBC\xC3\x9F \xE2\x82\xAC \xF0\x9F\x90\xA6");
    QTest::newRow("as long as may be") << QString(1024, QLatin1Char('x'));
    QTest::newRow("last of its plane") << QString(QChar(0xFFFD));
}

void EnvelopeTest::aLoginIsValidWhateverTheUserIsCalled()
{
    QFETCH(QString, user);
    const RelaxNgSchema schema(REQUEST_SCHEMA);
    QVERIFY(schema.isValid());
    m_account->connector().setAccount(user, user);
    TestLogin login(&m_account->connector());
    RequestFailure failure;
    const QByteArray text = write(login, &failure);
    QVERIFY(failure.isNull());
    QCOMPARE(schema.firstProblem(text), QString());

    QDomDocument document;
    QVERIFY(document.setContent(text));
    const QDomElement element = document.documentElement().firstChildElement();
    if (user != user.trimmed())
        return; // this reader drops white space at the ends
    QCOMPARE(element.firstChildElement(QStringLiteral("user-name")).text(), user);
    QCOMPARE(element.firstChildElement(QStringLiteral("password")).text(), user);
}

void EnvelopeTest::aLoginCarriesNoSession()
{
    TestLogin login(&m_account->connector());
    RequestFailure failure;
    const QByteArray text = write(login, &failure, QStringLiteral("word"));
    QVERIFY(!text.contains("session"));
    QVERIFY(text.contains("pinegate"));
}

void EnvelopeTest::anyOtherRequestCarriesTheSessionAndNoPassword()
{
    const RelaxNgSchema schema(REQUEST_SCHEMA);
    RecordingRequest request(&m_account->connector(), QStringLiteral("one"), &m_journal);
    RequestFailure failure;
    const QByteArray text = write(request, &failure, QStringLiteral("a-word.1"));
    QVERIFY(failure.isNull());
    QCOMPARE(schema.firstProblem(text), QString());
    QDomDocument document;
    QVERIFY(document.setContent(text));
    QCOMPARE(document.documentElement().attribute(QStringLiteral("session")), QStringLiteral("a-word.1"));
    QVERIFY(!text.contains("pinegate"));
}

void EnvelopeTest::whatXmlCannotCarryIsNotWritten_data()
{
    QTest::addColumn<QString>("text");
    for (const int code : {0x0, 0x1, 0x8, 0xB, 0xC, 0xD, 0x1B, 0x1F, 0xFFFE, 0xFFFF, 0xD800, 0xDFFF})
        QTest::addRow("U+%04X", uint(code)) << QString(QChar(ushort(code)));
    QTest::newRow("surrogates the wrong way round") << QString(QChar(0xDC00)) + QChar(0xD800);
}

void EnvelopeTest::whatXmlCannotCarryIsNotWritten()
{
    QFETCH(QString, text);
    for (const QString &word : {text, QStringLiteral("a") + text + QStringLiteral("b")}) {
        for (const bool inPassword : {false, true}) {
            const QString good = QStringLiteral("good");
            m_account->connector().setAccount(inPassword ? good : word, inPassword ? word : good);
            TestLogin login(&m_account->connector());
            RequestFailure failure;
            const QByteArray document = write(login, &failure);
            QCOMPARE(failure.kind(), Kind::Unwritable);
            QVERIFY(document.isEmpty());
        }
    }
    RecordingRequest request(&m_account->connector(), QStringLiteral("one"), &m_journal);
    RequestFailure failure;
    QVERIFY(write(request, &failure, QStringLiteral("a\x01")).isEmpty());
    QCOMPARE(failure.kind(), Kind::UnwritableRequest);
}

void EnvelopeTest::nothingIsSentOfWhatCannotBeWritten()
{
    m_account->connector().setAccount(QStringLiteral("de\x01mo"), QStringLiteral("pinegate"));
    const QSharedPointer<TestLogin> login(new TestLogin(&m_account->connector()));
    QSignalSpy finished(login.data(), &HRequest::requestFinished);
    m_account->server().prependRequestToQueue(login);
    QVERIFY(finished.wait(30'000));
    QCOMPARE(login->failure().kind(), Kind::Unwritable);
    QCOMPARE(m_account->server().connectorState(), HServer::Disconnected);
    QCOMPARE(m_account->service().connections(), 0);
}

void EnvelopeTest::theFirstChildIsTheReplysOwnElement_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("tag");
    QTest::newRow("alone") << QByteArray("<reply version=\"1\"><status/></reply>") << "status";
    QTest::newRow("before messages") << QByteArray("<reply version=\"1\"> <success/><messages/></reply>")
                                     << "success";
    QTest::newRow("after a comment") << QByteArray("<reply version=\"1\"><!-- a --><moon/></reply>")
                                     << "moon";
}

void EnvelopeTest::theFirstChildIsTheReplysOwnElement()
{
    QFETCH(QByteArray, text);
    QDomDocument document;
    QDomElement element;
    QVERIFY(Envelope::read(text, document, element).isNull());
    QTEST(element.tagName(), "tag");
}

void EnvelopeTest::refusalsAreToldApartByTheirCode_data()
{
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<RequestFailure::Kind>("kind");
    QTest::newRow("credentials") << QByteArray("credentials") << Kind::RefusedCredentials;
    QTest::newRow("session") << QByteArray("session") << Kind::RefusedSession;
    QTest::newRow("request") << QByteArray("request") << Kind::Refused;
    QTest::newRow("unavailable") << QByteArray("unavailable") << Kind::Refused;
    QTest::newRow("another") << QByteArray("another") << Kind::Refused;
}

void EnvelopeTest::refusalsAreToldApartByTheirCode()
{
    QFETCH(QByteArray, code);
    QFETCH(RequestFailure::Kind, kind);
    QDomDocument document;
    QDomElement element;
    const RequestFailure failure =
        Envelope::read("<reply version=\"1\"><error code=\"" + code + "\"> Not\n today. </error></reply>",
                       document, element);
    QCOMPARE(failure.kind(), kind);
    QCOMPARE(failure.detail(), QStringLiteral("Not today."));
}

void EnvelopeTest::everyReplyOfTheServiceIsRead()
{
    QVERIFY(m_account->logIn());
    const QSharedPointer<RecordingRequest> status(
        new RecordingRequest(&m_account->connector(), QStringLiteral("one"), &m_journal));
    m_account->server().addRequestToQueue(status);
    QTRY_COMPARE(status->deliveries(), 1);
    QVERIFY(status->isSuccessful());
    const RelaxNgSchema schema(REQUEST_SCHEMA);
    const std::vector<std::string> requests = m_account->service().requests();
    QCOMPARE(requests.size(), std::size_t(2));
    for (const std::string &request : requests)
        QCOMPARE(schema.firstProblem(QByteArray::fromStdString(request)), QString());
}

QTEST_MAIN(EnvelopeTest)
#include "tst_envelope.moc"
