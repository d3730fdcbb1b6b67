// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/nntpsession.h>

#include "nntpdialogue.h"
#include "waitbudget.h"

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

namespace {

// RFC 3977 sections 3.2.1, 6.1.1; RFC 4643 section 2.
enum ReplyCode {
    GroupSelected = 211,
    ServiceDiscontinued = 400,
    LoginRequired = 480,
    ServiceUnavailable = 502,
};

constexpr int LongestCommand = 510;    // bytes; RFC 3977 section 3.1, without the line end
constexpr int LongestName = 497;       // bytes, of an argument
constexpr int LongestLine = 16 * 1024; // bytes; far more than any overview line that was ever seen

bool isWithdrawal(const NntpReply &reply)
{
    return reply.code() == ServiceDiscontinued || reply.code() == ServiceUnavailable;
}

bool isSendable(const QByteArray &command)
{
    return !command.isEmpty() && command.size() <= LongestCommand && !command.contains('\r') &&
           !command.contains('\n') && !command.contains('\0');
}

bool isName(const QByteArray &name)
{
    const auto isForeign = [](char character) { return uchar(character) <= ' ' || character == '\x7F'; };
    return !name.isEmpty() && name.size() <= LongestName &&
           std::none_of(name.cbegin(), name.cend(), isForeign);
}

} // namespace

NntpSession::NntpSession(Core *core)
    : m_core(core)
    , m_dialogue(std::make_unique<NntpDialogue>(*core, LongestLine))
{
}

NntpSession::~NntpSession() = default;

bool NntpSession::open(const NntpAccount &account, const NntpLimits &limits)
{
    m_limits = limits;
    m_dialogue->setConnectBudget(limits.connect);
    m_dialogue->setReplyDeadline(limits.silence);
    m_receivedBefore = m_dialogue->connection().received();
    m_refusal.clear();
    m_trouble = Trouble::None;
    m_hadEnough = false;
    // What a server says unasked is that it has done with this connection.
    m_isReused = account == m_account && !m_dialogue->connection().hasUnread() && isOpen();
    if (m_isReused)
        return true;
    m_account = account;
    return connectAnew();
}

bool NntpSession::isOpen() const
{
    return m_dialogue->connection().isOpen();
}

void NntpSession::quit()
{
    m_dialogue->connection().send(QByteArrayLiteral("QUIT\r\n"));
    close();
}

void NntpSession::close()
{
    m_dialogue->connection().close();
}

// A password that one host refuses is not tried on the next: enough wrong ones lock an account.
bool NntpSession::connectAnew()
{
    Trouble gravest = Trouble::Unreachable;
    for (const NntpHost &host : qAsConst(m_account.hosts)) {
        if (isStopped())
            return fail(Trouble::Stopped);
        const bool isGreeted = greet(host);
        if (isGreeted && logIn())
            return true;
        const bool mayNextHelp = m_trouble == Trouble::Unreachable || m_trouble == Trouble::Broken ||
                                 (m_trouble == Trouble::Refused && !isGreeted);
        if (!mayNextHelp)
            return false;
        gravest = std::max(gravest, m_trouble);
    }
    return fail(gravest);
}

bool NntpSession::greet(const NntpHost &host)
{
    m_trouble = Trouble::None;
    if (m_dialogue->connectTo(host))
        return true;
    const NntpReply reply = m_dialogue->lastReply();
    if (isStopped())
        return fail(Trouble::Stopped);
    if (reply.code() == 0)
        return fail(reply.text().isEmpty() ? Trouble::Unreachable : Trouble::Broken);
    return refuse(reply);
}

bool NntpSession::logIn()
{
    const NntpReply reply = m_dialogue->logIn(m_account.user, m_account.password);
    if (reply.code() == NntpDialogue::LoggedIn)
        return true;
    const bool wasSent = !isOpen() || !reply.text().isEmpty();
    close();
    if (reply.code() != 0)
        return refuse(reply);
    return wasSent ? lose() : fail(Trouble::Refused);
}

bool NntpSession::lines(const QByteArray &command, int code, const LineSink &sink)
{
    ask(command, code);
    return m_trouble == Trouble::None && readBlock(sink);
}

std::optional<NntpGroup> NntpSession::group(const QByteArray &name)
{
    if (!isName(name)) {
        m_refusal.clear();
        fail(Trouble::Refused);
        return std::nullopt;
    }
    const NntpReply reply = ask(QByteArrayLiteral("GROUP ") + name, GroupSelected);
    if (m_trouble != Trouble::None)
        return std::nullopt;
    const auto group = NntpGroup::fromReply(reply.text().toUtf8());
    if (!group)
        lose();
    return group;
}

/// Whether @p command may go now.
bool NntpSession::prepare(const QByteArray &command)
{
    m_trouble = Trouble::None;
    if (!isSendable(command)) {
        m_refusal.clear();
        return fail(Trouble::Refused);
    }
    if (isOpen())
        return true;
    return std::exchange(m_hadEnough, false) ? connectAnew() : lose();
}

/// The reply with @p code, or trouble.
NntpReply NntpSession::ask(const QByteArray &command, int code)
{
    NntpReply reply = prepare(command) ? exchange(command) : NntpReply();
    // The work has begun, so it can not wait for a connection and begin once more.
    if (m_trouble == Trouble::TooManyConnections)
        m_trouble = Trouble::Refused;
    if (m_trouble != Trouble::None || reply.code() == code)
        return reply;
    // Anything but a refusal may be followed by lines that answer nobody.
    if (reply.code() < ServiceDiscontinued) {
        lose();
    } else {
        m_refusal = reply.text();
        fail(Trouble::Refused);
        if (isWithdrawal(reply))
            close();
    }
    return reply;
}

NntpReply NntpSession::exchange(const QByteArray &command)
{
    const bool wasReused = std::exchange(m_isReused, false);
    const qint64 before = m_dialogue->connection().received();
    NntpReply reply = exchangeOnce(command);
    // The server may have left while the connection lay idle and nobody was told.
    if (wasReused && !isOpen() && !isStopped() && m_dialogue->connection().received() == before) {
        if (!connectAnew())
            return {};
        reply = exchangeOnce(command);
    }
    if (reply.code() == LoginRequired && logIn())
        reply = exchangeOnce(command);
    return reply;
}

NntpReply NntpSession::exchangeOnce(const QByteArray &command)
{
    m_trouble = Trouble::None;
    const QByteArray secret = m_account.password.toUtf8();
    NntpConnection &connection = m_dialogue->connection();
    // What comes unasked can only be a goodbye.
    if (connection.hasUnread()) {
        const NntpReply reply = m_dialogue->hear(WaitBudget(*m_core, m_limits.silence), secret);
        return isWithdrawal(reply) ? reply : NntpReply();
    }
    return m_dialogue->ask(command + QByteArrayLiteral("\r\n"), secret);
}

bool NntpSession::readBlock(const LineSink &sink)
{
    NntpConnection &connection = m_dialogue->connection();
    const auto end = Clock::now() + m_limits.block;
    // A short block has come as a whole with its reply.
    if (isTooMuch())
        return lose();
    do {
        while (auto line = connection.nextLine()) {
            const bool startsWithDot = !line->empty() && line->front() == '.';
            if (startsWithDot && line->size() == 1)
                return true;
            line->remove_prefix(startsWithDot ? 1 : 0);
            if (!sink(line->data(), static_cast<int>(line->size()))) {
                close();
                m_hadEnough = true;
                return true;
            }
        }
    } while (receiveMore(end));
    return lose();
}

/// False when the block can not go on.
bool NntpSession::receiveMore(Clock::time_point end)
{
    NntpConnection &connection = m_dialogue->connection();
    const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now());
    const auto time = std::clamp(left, milliseconds(0), m_limits.silence);
    return connection.receive(WaitBudget(*m_core, time)) && !isTooMuch();
}

bool NntpSession::isTooMuch() const
{
    return m_dialogue->connection().received() - m_receivedBefore > m_limits.bytes;
}

bool NntpSession::fail(Trouble trouble)
{
    m_trouble = trouble;
    return false;
}

/// Nothing that comes on this connection can be trusted any more.
bool NntpSession::lose()
{
    close();
    return fail(isStopped() ? Trouble::Stopped : Trouble::Broken);
}

bool NntpSession::refuse(const NntpReply &reply)
{
    m_refusal = reply.text();
    return fail(reply.isTooManyConnections() ? Trouble::TooManyConnections : Trouble::Refused);
}

bool NntpSession::isStopped() const
{
    return WaitBudget(*m_core, milliseconds(0)).isStopped();
}
