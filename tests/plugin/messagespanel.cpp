// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagespanel.h"

#include "panels/cvmessagestoolwidget.h"
#include "panels/cvmessagestoolwidgetprivate.h"
#include "panels/messagetreeview.h"

#include <halvora/connector.h>
#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/linkopener.h>

#include <QDomDocument>
#include <QtTest>

HMessage numberedMessage(int number, bool deletable, bool linked)
{
    const QDateTime newest(QDate(2026, 11, 20), QTime(12, 0), Qt::UTC);
    const QUrl link(QStringLiteral("https://www.corvia.example/%1").arg(number));
    HMessage message(QStringLiteral("m%1").arg(number), QStringLiteral("Message %1").arg(number),
                     newest.addSecs(-60 * number), linked ? UrlInfo(link) : UrlInfo());
    message.setDeletable(deletable);
    return message;
}

std::string MessagesPanel::silentScenario()
{
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<scenario version="1"><account user="demo" password="pinegate"/>
<account user="another" password="pinegate"/></scenario>)";
}

MessagesPanel::MessagesPanel(const std::string &scenario)
    : m_account(corvia::Options(), scenario)
{
    open();
    messages().setAccount(QStringLiteral("demo"));
}

void MessagesPanel::open()
{
    m_window = std::make_unique<MainWindow>(&m_account.core());
    m_dock = new CVMessagesToolWidget(&m_account.connector(), m_window.get());
    m_account.core().links().setOpener([this](const QUrl &url) {
        m_opened.append(url.path());
        return true;
    });
    m_account.core().setMainWindow(m_window.get());
    m_window->addToolWidget(Qt::BottomDockWidgetArea, m_dock);
    m_window->resize(900, 700);
    m_window->show();
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("the window does not show");
}

MessagesPanel::~MessagesPanel()
{
    close();
}

void MessagesPanel::close()
{
    m_account.core().setMainWindow(nullptr);
    m_window.reset();
    m_dock = nullptr;
}

void MessagesPanel::restart()
{
    close();
    m_account.restart();
    open();
}

CVMessagesToolWidgetPrivate *MessagesPanel::content() const
{
    return qobject_cast<CVMessagesToolWidgetPrivate *>(m_dock->widget());
}

MessageTreeView *MessagesPanel::view() const
{
    return content()->view;
}

QTimer &MessagesPanel::readTimer() const
{
    return content()->readTimer;
}

HMessageManager &MessagesPanel::messages()
{
    return *m_account.connector().messages();
}

// The service tells the oldest first.
void MessagesPanel::fill(int count)
{
    QVector<HMessage> all;
    for (int number = count - 1; number >= 0; --number)
        all.append(numberedMessage(number));
    messages().receive(all);
}

void MessagesPanel::receive(const HMessage &message)
{
    messages().receive({message});
}

QStringList MessagesPanel::uids()
{
    QStringList uids;
    for (int row = 0; row < messages().rowCount(); ++row)
        uids.append(messages().messageAt(row).uid());
    return uids;
}

HMessage MessagesPanel::message(int number)
{
    return messages().messageAt(uids().indexOf(QStringLiteral("m%1").arg(number)));
}

QModelIndex MessagesPanel::cell(int row, int column)
{
    return messages().index(row, column);
}

void MessagesPanel::click(int row, int column)
{
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view()->visualRect(cell(row, column)).center());
}

void MessagesPanel::endReadTime()
{
    if (!readTimer().isActive())
        return;
    QTimerEvent event(readTimer().timerId());
    QCoreApplication::sendEvent(&readTimer(), &event);
}

QStringList MessagesPanel::reports()
{
    QStringList reports;
    const std::vector<std::string> requests = m_account.service().requests();
    for (const std::string &text : requests) {
        QDomDocument document;
        document.setContent(QByteArray::fromStdString(text));
        const QDomElement request = document.documentElement().firstChildElement(QStringLiteral("message"));
        if (request.isNull())
            continue;
        QStringList words;
        for (auto list = request.firstChildElement(); !list.isNull(); list = list.nextSiblingElement()) {
            words.append(list.tagName());
            for (auto item = list.firstChildElement(); !item.isNull(); item = item.nextSiblingElement())
                words.append(item.attribute(QStringLiteral("uid")));
        }
        reports.append(words.join(QLatin1Char(' ')));
    }
    return reports;
}

bool MessagesPanel::isReporting() const
{
    return !content()->request.isNull();
}
