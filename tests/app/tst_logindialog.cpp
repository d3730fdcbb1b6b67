// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "logindialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

class TestLoginDialog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void bothFieldsAreNeeded();
    void nothingCanBeChangedWhileALoginIsUnderWay();
    void whatWentWrongIsPlainText();
    void aReplyWithoutAnySpaceLeavesTheDialogItsSize();
    void afterAFailureThePasswordCanBeTypedAtOnce();
    void onlyTypingCountsAsFillingIn();

private:
    QLineEdit *field(const char *name) { return m_dialog->findChild<QLineEdit *>(QLatin1String(name)); }
    QLabel *label(const char *name) { return m_dialog->findChild<QLabel *>(QLatin1String(name)); }
    QPushButton *button() { return m_dialog->findChild<QPushButton *>(QStringLiteral("logIn")); }

    std::unique_ptr<LoginDialog> m_dialog;
};

void TestLoginDialog::init()
{
    QPixmap banner(450, 100);
    banner.fill(Qt::blue);
    m_dialog = std::make_unique<LoginDialog>(banner, nullptr);
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

void TestLoginDialog::bothFieldsAreNeeded()
{
    QVERIFY(!button()->isEnabled());
    m_dialog->setAccount(QStringLiteral("demo"), QString());
    QVERIFY(!button()->isEnabled());
    m_dialog->setAccount(QString(), QStringLiteral("pinegate"));
    QVERIFY(!button()->isEnabled());
    m_dialog->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QVERIFY(button()->isEnabled());
    const QSignalSpy asked(m_dialog.get(), &LoginDialog::loginRequested);
    button()->click();
    QCOMPARE(asked.count(), 1);
    QCOMPARE(asked.at(0), (QVariantList{QStringLiteral("demo"), QStringLiteral("pinegate")}));
}

void TestLoginDialog::nothingCanBeChangedWhileALoginIsUnderWay()
{
    m_dialog->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    m_dialog->setBusy(true);
    QVERIFY(!field("user")->isEnabled() && !field("password")->isEnabled() && !button()->isEnabled());
    m_dialog->setBusy(false);
    QVERIFY(field("user")->isEnabled() && field("password")->isEnabled() && button()->isEnabled());
}

void TestLoginDialog::whatWentWrongIsPlainText()
{
    m_dialog->setFailure(QStringLiteral("<b>no</b>"), QStringLiteral("<img src=file:/dev/zero>"));
    for (const char *name : {"failure", "reply", "replyCaption"}) {
        QVERIFY2(label(name)->isVisible(), name);
        QCOMPARE(label(name)->textFormat(), Qt::PlainText);
    }
    m_dialog->setFailure(QStringLiteral("no"), QString());
    QVERIFY(!label("reply")->isVisible() && !label("replyCaption")->isVisible());
}

void TestLoginDialog::aReplyWithoutAnySpaceLeavesTheDialogItsSize()
{
    m_dialog->setFailure(QString(300, QLatin1Char('m')), QString(4000, QLatin1Char('m')));
    QCoreApplication::processEvents();
    QVERIFY2(m_dialog->width() <= 600, qPrintable(QString::number(m_dialog->width())));
    m_dialog->setFailure(QStringLiteral("no"), QStringLiteral("a word ").repeated(600));
    QCoreApplication::processEvents();
    QVERIFY2(m_dialog->height() <= 600, qPrintable(QString::number(m_dialog->height())));
}

void TestLoginDialog::afterAFailureThePasswordCanBeTypedAtOnce()
{
    m_dialog->setAccount(QStringLiteral("demo"), QStringLiteral("wrong"));
    m_dialog->setBusy(true);
    m_dialog->setBusy(false);
    m_dialog->setFailure(QStringLiteral("no"), QString());
    QCOMPARE(m_dialog->focusWidget(), field("password"));
    QTest::keyClicks(m_dialog->focusWidget(), QStringLiteral("right"));
    QCOMPARE(field("password")->text(), QStringLiteral("right"));
}

void TestLoginDialog::onlyTypingCountsAsFillingIn()
{
    m_dialog->setAccount(QStringLiteral("demo"), QStringLiteral("pinegate"));
    QVERIFY(!m_dialog->isBeingFilledIn());
    QTest::keyClicks(field("user"), QStringLiteral("s"));
    QVERIFY(m_dialog->isBeingFilledIn());
    button()->click();
    QVERIFY(!m_dialog->isBeingFilledIn());
}

QTEST_MAIN(TestLoginDialog)
#include "tst_logindialog.moc"
