// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "newsscripts.h"

#include <halvora/nntpsession.h>

#include <QtTest>

#include <chrono>
#include <memory>

using namespace std::chrono_literals;

void Gate::open()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isOpen = true;
    m_changed.notify_all();
}

void Gate::pass()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, 20s, [this] { return m_isOpen; });
}

NewsScripts::Script NewsScripts::dialogue(const QList<QByteArray> &replies, const Script &ending)
{
    const auto answers = Scripts::answering(QList<QByteArray>{"381 Go on\r\n", "281 Welcome\r\n"} + replies);
    return [answers, ending](Conversation &client) {
        answers(client);
        if (ending)
            ending(client);
    };
}

NewsScripts::Script NewsScripts::brokenDialogue(const QList<QByteArray> &replies)
{
    return dialogue(replies, [](Conversation &client) { client.hangUp(); });
}

NewsScripts::Script NewsScripts::inTurn(const QList<Script> &scripts)
{
    const auto count = std::make_shared<int>(0);
    return
        [scripts, count](Conversation &client) { scripts.at(qMin((*count)++, scripts.size() - 1))(client); };
}

void NewsScripts::addEndlessBlocks(const QByteArray &start)
{
    QTest::addColumn<Script>("ending");
    QTest::newRow("nothing comes") << Script([start](Conversation &client) { client.say(start); });
    QTest::newRow("a line comes letter by letter")
        << Script([start](Conversation &client) { client.drip(start); });
    QTest::newRow("a line without end") << Script([start](Conversation &client) { client.flood(start); });
    QTest::newRow("lines come one by one") << Script([start](Conversation &client) {
        for (bool isTaken = client.say(start); isTaken; isTaken = client.say("1 1 1 y\r\n"))
            client.pause();
    });
    QTest::newRow("lines without end") << Script([start](Conversation &client) {
        const QByteArray many = QByteArray("1 1 1 y\r\n").repeated(1000);
        for (bool isTaken = client.say(start); isTaken;)
            isTaken = client.say(many);
    });
}

NntpLimits NewsScripts::narrowLimits()
{
    NntpLimits limits;
    limits.silence = 1s;
    limits.block = 1s;
    limits.bytes = qint64(1024) * 1024;
    return limits;
}

QByteArray NewsScripts::overview(int first, int last)
{
    QByteArray block = "224 Here\r\n";
    for (int article = first; article <= last; ++article)
        block += QByteArray::number(article) + "\tArticle " + QByteArray::number(article) + "\r\n";
    return block + ".\r\n";
}
