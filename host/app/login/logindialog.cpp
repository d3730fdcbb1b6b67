// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "logindialog.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int longestReply = 500; // characters; a longer one would leave no room for the buttons

QLabel *textLabel(const char *objectName, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(objectName));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    // The text comes from somebody else, who may not break it into words.
    QSizePolicy policy = label->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Ignored);
    label->setSizePolicy(policy);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->hide();
    return label;
}

} // namespace

LoginDialog::LoginDialog(const QPixmap &banner, QWidget *parent)
    : QDialog(parent)
    , m_user(new QLineEdit(this))
    , m_password(new QLineEdit(this))
    , m_userCaption(new QLabel(this))
    , m_passwordCaption(new QLabel(this))
    , m_failure(textLabel("failure", this))
    , m_replyCaption(textLabel("replyCaption", this))
    , m_reply(textLabel("reply", this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Cancel, this))
    , m_logIn(m_buttons->addButton(QString(), QDialogButtonBox::AcceptRole))
{
    setObjectName(QStringLiteral("LoginDialog"));
    m_user->setObjectName(QStringLiteral("user"));
    m_password->setObjectName(QStringLiteral("password"));
    m_logIn->setObjectName(QStringLiteral("logIn"));
    m_password->setEchoMode(QLineEdit::Password);
    build(banner);
    connect(m_user, &QLineEdit::textChanged, this, &LoginDialog::updateButton);
    connect(m_password, &QLineEdit::textChanged, this, &LoginDialog::updateButton);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    for (const QLineEdit *edit : {m_user, m_password})
        connect(edit, &QLineEdit::textEdited, this, [this] { m_edited = true; });
    connect(m_buttons, &QDialogButtonBox::accepted, this, [this] {
        m_edited = false;
        Q_EMIT loginRequested(m_user->text(), m_password->text());
    });
    retranslate();
    updateButton();
}

void LoginDialog::build(const QPixmap &banner)
{
    auto *picture = new QLabel(this);
    picture->setPixmap(banner);
    m_buttons->button(QDialogButtonBox::Cancel)->setAutoDefault(false);
    m_userCaption->setBuddy(m_user);
    m_passwordCaption->setBuddy(m_password);
    QFont font = m_failure->font();
    font.setBold(true);
    m_failure->setFont(font);
    m_reply->setFrameShape(QFrame::StyledPanel);
    m_reply->setMargin(6);

    auto *form = new QFormLayout;
    form->addRow(m_userCaption, m_user);
    form->addRow(m_passwordCaption, m_password);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(12);
    layout->setSizeConstraint(QLayout::SetMinAndMaxSize);
    layout->addWidget(picture, 0, Qt::AlignHCenter);
    layout->addLayout(form);
    for (QLabel *label : {m_failure, m_replyCaption, m_reply})
        layout->addWidget(label);
    layout->addWidget(m_buttons);
}

void LoginDialog::setAccount(const QString &user, const QString &password)
{
    m_user->setText(user);
    m_password->setText(password);
    (user.isEmpty() ? m_user : m_password)->setFocus();
}

void LoginDialog::setBusy(bool busy)
{
    m_busy = busy;
    m_user->setEnabled(!busy);
    m_password->setEnabled(!busy);
    retranslate();
    updateButton();
}

void LoginDialog::setFailure(const QString &sentence, const QString &serverReply)
{
    m_failure->setText(sentence);
    m_failure->setVisible(!sentence.isEmpty());
    m_reply->setText(serverReply.left(longestReply));
    m_replyCaption->setVisible(!serverReply.isEmpty());
    m_reply->setVisible(!serverReply.isEmpty());
    m_password->selectAll();
    m_password->setFocus();
}

bool LoginDialog::isBeingFilledIn() const
{
    return m_edited;
}

void LoginDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void LoginDialog::retranslate()
{
    setWindowTitle(tr("Log In"));
    m_userCaption->setText(tr("&User name:"));
    m_passwordCaption->setText(tr("&Password:"));
    m_replyCaption->setText(tr("The news server's reply:"));
    m_logIn->setText(m_busy ? tr("Logging in…") : tr("Log In"));
}

void LoginDialog::updateButton()
{
    m_logIn->setEnabled(!m_busy && !m_user->text().isEmpty() && !m_password->text().isEmpty());
    m_logIn->setDefault(true);
}
