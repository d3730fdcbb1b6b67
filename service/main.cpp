// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "commandline.h"
#include "corviaservice.h"

#include <csignal>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>

namespace {

const char *const version = "0.1.0";

int fail(const std::string &sentence, int code)
{
    std::cerr << "corvia-service: " << sentence << std::endl;
    return code;
}

bool readFile(const std::string &path, std::string *text)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    *text = content.str();
    return file.good() && content.good();
}

void announce(const corvia::CorviaService &service)
{
    std::cout << "account-service localhost:" << service.accountPort() << '\n'
              << "account-ca " << service.authorityFile() << '\n'
              << "nntp localhost:" << service.nntpPort() << '\n'
              << "nntp-tls localhost:" << service.nntpTlsPort() << std::endl;
}

// Whoever waits for the file finds it either missing or complete.
bool writeReadyFile(const std::string &path, const corvia::CorviaService &service)
{
    const std::string unfinished = path + ".new";
    std::ofstream file(unfinished, std::ios::trunc);
    file << "ACCOUNT_SERVICE=localhost:" << service.accountPort() << '\n'
         << "ACCOUNT_CA=" << service.authorityFile() << '\n'
         << "NNTP_PORT=" << service.nntpPort() << '\n'
         << "NNTP_TLS_PORT=" << service.nntpTlsPort() << '\n';
    file.close();
    return file.good() && std::rename(unfinished.c_str(), path.c_str()) == 0;
}

// Blocked before any thread starts, so the signals reach nobody but the wait at the end.
sigset_t blockedEndSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    return signals;
}

int serve(const corvia::CommandLine &line, const std::string &scenario)
{
    const sigset_t signals = blockedEndSignals();
    corvia::CorviaService service(scenario, line.options);
    std::string why;
    if (!service.start(&why)) {
        return fail(why, 1);
    }
    announce(service);
    if (!line.readyFile.empty() && !writeReadyFile(line.readyFile, service)) {
        return fail("Cannot write the file " + line.readyFile + ".", 1);
    }
    int signal = 0;
    sigwait(&signals, &signal);
    service.stop();
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    corvia::CommandLine line;
    std::string why;
    if (!line.read(argc, argv, &why)) {
        return fail(why, 2);
    }
    if (line.help || line.version) {
        std::cout << (line.help ? corvia::CommandLine::usage()
                                : std::string("corvia-service ") + version + '\n');
        return 0;
    }
    std::string scenario = corvia::demoScenario();
    if (!line.scenarioFile.empty() && !readFile(line.scenarioFile, &scenario)) {
        return fail("Cannot read the file " + line.scenarioFile + ".", 1);
    }
    return serve(line, scenario);
}
