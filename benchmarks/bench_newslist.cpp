// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "figures.h"
#include "newsgrouptablebuilder.h"
#include "hostilenntpserver.h"

#include <halvora/core.h>
#include <halvora/nntpsession.h>

#include <QCoreApplication>
#include <QTemporaryDir>

#include <cstdio>
#include <cstring>

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

// A list of every newsgroup that a large server carries: as bare bytes from the socket, and as lines that are
// taken apart.
namespace {

constexpr int groups = 110'000;
constexpr int rounds = 21;

QByteArray listOfGroups()
{
    QByteArray list = "215 list follows\r\n";
    for (int i = 0; i < groups; ++i) {
        const QByteArray number = QByteArray::number(i);
        list += "alt.binaries.hierarchy" + QByteArray::number(i % 97) + ".topic." + number + ' ' +
                QByteArray::number(1'000'000'000 + i) + ' ' + number + (i % 2 ? " m" : " y") + "\r\n";
    }
    return list + ".\r\n";
}

HostileNntpServer::Script servingList(const QByteArray &list)
{
    return [list](Conversation &client) {
        client.say("200 welcome\r\n");
        client.hear();
        client.say("381 more\r\n");
        client.hear();
        client.say("281 welcome\r\n");
        client.hear();
        client.say(list);
    };
}

class RawClient {
public:
    explicit RawClient(quint16 port)
        : m_descriptor(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        ::connect(m_descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address);
    }
    ~RawClient() { ::close(m_descriptor); }
    Q_DISABLE_COPY(RawClient)

    void say(const char *line) { ::send(m_descriptor, line, std::strlen(line), 0); }
    /// Reads @p size bytes; false when fewer come.
    bool read(qint64 size)
    {
        char bytes[64 * 1024];
        for (qint64 left = size; left > 0;) {
            const auto come = ::recv(m_descriptor, bytes, size_t(qMin(left, qint64(sizeof bytes))), 0);
            if (come <= 0)
                return false;
            left -= come;
        }
        return true;
    }

private:
    int m_descriptor;
};

double rawTime(quint16 port, qint64 size)
{
    RawClient client(port);
    client.read(qint64(std::strlen("200 welcome\r\n")));
    client.say("AUTHINFO USER a\r\n");
    client.read(qint64(std::strlen("381 more\r\n")));
    client.say("AUTHINFO PASS b\r\n");
    client.read(qint64(std::strlen("281 welcome\r\n")));
    return milliseconds([&] {
        client.say("LIST ACTIVE\r\n");
        if (!client.read(size))
            std::puts("the list did not come");
    });
}

/// What is looked at in every line; to keep it is the business of whoever shows it.
struct Parsed {
    int groups = 0;
    int moderated = 0;
    qint64 nameBytes = 0;

    bool add(const char *line, int length)
    {
        const auto *space = static_cast<const char *>(std::memchr(line, ' ', size_t(length)));
        groups += space ? 1 : 0;
        nameBytes += space ? space - line : 0;
        moderated += length > 0 && line[length - 1] == 'm' ? 1 : 0;
        return true;
    }
};

/// One LIST ACTIVE, each line of which goes to @p add.
double sessionTime(Core &core, quint16 port, const NntpSession::LineSink &add)
{
    NntpSession session(&core);
    NntpAccount account;
    account.hosts = {NntpHost(QStringLiteral("127.0.0.1"), port, false)};
    account.user = QStringLiteral("a");
    account.password = QStringLiteral("b");
    if (!session.open(account))
        std::puts("no login");
    return milliseconds([&] { session.lines(QByteArrayLiteral("LIST ACTIVE"), 215, add); });
}

double parseTime(Core &core, quint16 port)
{
    Parsed parsed;
    const double time =
        sessionTime(core, port, [&parsed](const char *line, int length) { return parsed.add(line, length); });
    if (parsed.groups != groups || parsed.moderated != groups / 2 || parsed.nameBytes < groups)
        std::printf("only %d groups came\n", parsed.groups);
    return time;
}

/// The same into the sorted table that the panel shows.
double tableTime(Core &core, quint16 port)
{
    NewsgroupTableBuilder builder;
    const double listing = sessionTime(core, port, [&builder](const char *line, int length) {
        builder.addGroup(line, length);
        return true;
    });
    NewsgroupTable table;
    const double sorting = milliseconds([&] { table = builder.take(); });
    if (table.count() != groups)
        std::printf("only %d groups were kept\n", table.count());
    return listing + sorting;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QTemporaryDir profile;
    Core core(profile.path());
    const QByteArray list = listOfGroups();
    HostileNntpServer server(servingList(list));
    QVector<double> raw;
    QVector<double> parsed;
    QVector<double> kept;
    for (int round = 0; round < rounds; ++round) {
        raw.append(rawTime(server.port(), list.size()));
        parsed.append(parseTime(core, server.port()));
        kept.append(tableTime(core, server.port()));
    }
    std::printf("%-34s %10s\n", "list of 110,000 newsgroups", "ms");
    std::printf("  %-32s %10.2f\n", "bytes from the socket", median(raw));
    std::printf("  %-32s %10.2f\n", "lines, taken apart", median(parsed));
    std::printf("  %-32s %10.2f\n", "kept and sorted, on a worker", median(kept));
    std::printf("%-34s %10.2f   reach at least 0.5\n", "lines against the bare bytes",
                median(raw) / median(parsed));
    return 0;
}
