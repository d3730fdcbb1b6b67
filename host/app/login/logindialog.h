// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPixmap>

class QDialogButtonBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

/// Asks for user name and password and tells how the login goes. It decides nothing. GUI thread.
class LoginDialog final : public QDialog {
    Q_OBJECT
public:
    LoginDialog(const QPixmap &banner, QWidget *parent);

    void setAccount(const QString &user, const QString &password);
    /// While a login is under way nothing can be changed.
    void setBusy(bool busy);
    /// Both plain text; @p serverReply is what a news server said, empty when it said nothing.
    void setFailure(const QString &sentence, const QString &serverReply);
    /// Whether somebody has typed since the last request for a login.
    bool isBeingFilledIn() const;

Q_SIGNALS:
    void loginRequested(const QString &user, const QString &password);

protected:
    void changeEvent(QEvent *event) override;

private:
    void build(const QPixmap &banner);
    void retranslate();
    void updateButton();

    QLineEdit *m_user;
    QLineEdit *m_password;
    QLabel *m_userCaption;
    QLabel *m_passwordCaption;
    QLabel *m_failure;
    QLabel *m_replyCaption;
    QLabel *m_reply;
    QDialogButtonBox *m_buttons;
    QPushButton *m_logIn;
    bool m_busy = false;
    bool m_edited = false;
};
