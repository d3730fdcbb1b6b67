// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>
#include <QUrl>

class ElidedLabel;
class QPushButton;
struct SoftwareUpdate;

/// The slim bar above the panels that tells of a newer version until a person dismisses it. Everything it
/// shows came from the account service, so it is plain text, and only a web address can be opened.
class UpdateNotice final : public QToolBar {
    Q_OBJECT
public:
    explicit UpdateNotice(QWidget *parent);

    void offer(const SoftwareUpdate &update);

Q_SIGNALS:
    void linkRequested(const QUrl &url);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QPushButton *addButton(const QString &name);
    void retranslate();

    QString m_version;
    QString m_note;
    QUrl m_link;
    ElidedLabel *m_text;
    QPushButton *m_show;
    QPushButton *m_dismiss;
};
