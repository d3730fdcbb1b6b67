// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newswindow.h"

#include <halvora/storagemanager.h>

#include <QDir>

NewsWindow::NewsWindow(const std::string &scenario)
    : m_account(corvia::Options(), scenario)
{
    open();
}

NewsWindow::~NewsWindow()
{
    m_window.reset();
}

void NewsWindow::open()
{
    m_window = std::make_unique<MainWindow>(&m_account.core());
    m_account.core().setMainWindow(m_window.get());
    m_account.plugin().polish(m_window.get());
    m_window->setHomePage(m_account.plugin().homeWidget());
    m_window->resize(1000, 600);
    m_window->show();
}

void NewsWindow::restart()
{
    m_window.reset();
    m_account.restart();
    open();
}

QString NewsWindow::cacheFile()
{
    const QString name = m_account.plugin().configName() + QStringLiteral("-newsgroups.cache");
    return QDir(m_account.core().storage()->dataDirectory()).filePath(name);
}

QStringList NewsWindow::texts(const QAbstractItemView *view, int column)
{
    QStringList texts;
    const QAbstractItemModel *model = view->model();
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, column).data().toString());
    return texts;
}

QString NewsWindow::label(const QWidget *parent, const char *name)
{
    const auto *label = find<QLabel>(parent, name);
    return label->isHidden() ? QString() : label->text();
}

std::string newsScenario(const QString &servers, const QString &groups, const QString &user,
                         const QString &password)
{
    const QString text = QStringLiteral("<scenario version=\"1\"><account user=\"%1\" password=\"%2\">"
                                        "<servers>%3</servers></account><groups>%4</groups></scenario>");
    return text.arg(user, password, servers, groups).toStdString();
}

QString plainServer(quint16 port)
{
    return QStringLiteral("<server host=\"127.0.0.1\" port=\"%1\" ssl=\"false\"/>").arg(port);
}
