// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "corviaservice.h"

#include "accountconversation.h"
#include "authority.h"
#include "channel.h"
#include "embedded.h"
#include "listener.h"
#include "newssession.h"
#include "scenario.h"

namespace corvia {

// Whatever threads use stands before the listeners, so it is still there while they end.
struct CorviaService::Parts {
    Options options;
    Scenario scenario;
    std::string scenarioProblem;
    bool started = false;

    KeyDirectory directory;
    Authority authority;
    FaultSwitch faults;
    Records records;
    std::unique_ptr<AccountBook> book;
    std::unique_ptr<NewsStore> store;
    std::unique_ptr<AccountDesk> desk;
    StopSignal stop;
    Listener accountPort{stop};
    Listener newsPort{stop};
    Listener newsTlsPort{stop};

    bool listen(std::string *why);
    void run();
    void serveAccount(int socket);
    void serveNews(int socket, bool tls);
};

bool CorviaService::Parts::listen(std::string *why)
{
    return accountPort.open(options.accountPort, why) && newsPort.open(options.nntpPort, why) &&
           newsTlsPort.open(options.nntpTlsPort, why);
}

void CorviaService::Parts::run()
{
    const std::vector<NewsServer> ownServers = {{"localhost", newsTlsPort.port(), true},
                                                {"localhost", newsPort.port(), false}};
    desk = std::make_unique<AccountDesk>(*book, scenario.autoSearchInterval, ownServers, scenario.fileGroups);
    accountPort.run([this](int socket) { serveAccount(socket); });
    newsPort.run([this](int socket) { serveNews(socket, false); });
    newsTlsPort.run([this](int socket) { serveNews(socket, true); });
}

void CorviaService::Parts::serveAccount(int socket)
{
    Channel channel(socket, stop);
    if (options.plainHttp) {
        channel.setTap([this](std::string_view bytes) { records.addRawBytes(bytes); });
    } else if (!channel.startTls(authority.context())) {
        return;
    }
    converse(channel, {*desk, faults, records});
}

void CorviaService::Parts::serveNews(int socket, bool tls)
{
    Channel channel(socket, stop);
    if (!tls || channel.startTls(authority.context())) {
        NewsSession(*store, *book, records).run(channel);
    }
}

CorviaService::CorviaService(const std::string &scenarioXml, const Options &options)
    : parts_(std::make_unique<Parts>())
{
    parts_->options = options;
    if (readScenario(scenarioXml, &parts_->scenario, &parts_->scenarioProblem)) {
        parts_->book = std::make_unique<AccountBook>(parts_->scenario.accounts);
        parts_->store = std::make_unique<NewsStore>(std::move(parts_->scenario.groups));
        parts_->faults.set(parts_->scenario.fault);
    }
}

CorviaService::~CorviaService()
{
    stop();
}

bool CorviaService::start(std::string *why)
{
    if (!parts_->scenarioProblem.empty() || parts_->started) {
        *why = parts_->started ? "A service is started only once." : parts_->scenarioProblem;
        return false;
    }
    parts_->started = true;
    if (!parts_->directory.open(parts_->options.directory, why) ||
        !parts_->authority.issue(parts_->options.certificate, parts_->directory, why) ||
        !parts_->listen(why)) {
        return false;
    }
    parts_->run();
    return true;
}

void CorviaService::stop()
{
    parts_->stop.raise();
    parts_->accountPort.join();
    parts_->newsPort.join();
    parts_->newsTlsPort.join();
}

int CorviaService::accountPort() const
{
    return parts_->accountPort.port();
}

int CorviaService::nntpPort() const
{
    return parts_->newsPort.port();
}

int CorviaService::nntpTlsPort() const
{
    return parts_->newsTlsPort.port();
}

std::string CorviaService::authorityFile() const
{
    return parts_->authority.file();
}

void CorviaService::setFault(const Fault &fault)
{
    parts_->faults.set(fault);
}

void CorviaService::setPlan(const std::string &user, int maxConnections, std::int64_t billingBytes,
                            std::int64_t mtdBytes)
{
    if (parts_->book) {
        parts_->book->setPlan(user, maxConnections, billingBytes, mtdBytes);
    }
}

void CorviaService::addMessage(const std::string &user, const Message &message)
{
    if (parts_->book) {
        parts_->book->addMessage(user, message);
    }
}

std::vector<Message> CorviaService::messages(const std::string &user) const
{
    return parts_->book ? parts_->book->messages(user) : std::vector<Message>();
}

std::vector<std::string> CorviaService::requests() const
{
    return parts_->records.requests();
}

std::string CorviaService::rawBytes() const
{
    return parts_->records.rawBytes();
}

int CorviaService::connections() const
{
    return parts_->accountPort.accepted();
}

std::vector<std::string> CorviaService::nntpCommands() const
{
    return parts_->records.newsCommands();
}

std::string demoScenario()
{
    return demoScenarioText();
}

} // namespace corvia
