// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT

#include "commandline.h"

#include <getopt.h>

namespace corvia {

namespace {

enum Option { Scenario = 1, AccountPort, NntpPort, NntpTlsPort, Directory, ReadyFile, Help, Version };

const option known[] = {
    {"scenario", required_argument, nullptr, Scenario},
    {"account-port", required_argument, nullptr, AccountPort},
    {"nntp-port", required_argument, nullptr, NntpPort},
    {"nntp-tls-port", required_argument, nullptr, NntpTlsPort},
    {"directory", required_argument, nullptr, Directory},
    {"ready-file", required_argument, nullptr, ReadyFile},
    {"help", no_argument, nullptr, Help},
    {"version", no_argument, nullptr, Version},
    {nullptr, 0, nullptr, 0},
};

bool readPort(const std::string &text, int *port, std::string *why)
{
    const bool digits =
        !text.empty() && text.size() <= 5 && text.find_first_not_of("0123456789") == text.npos;
    if (!digits || std::stoi(text) > 65535) {
        *why = "\"" + text + "\" is no port number.";
        return false;
    }
    *port = std::stoi(text);
    return true;
}

bool readOption(CommandLine *line, int option, const std::string &value, std::string *why)
{
    switch (option) {
    case Scenario:
        line->scenarioFile = value;
        return true;
    case AccountPort:
        return readPort(value, &line->options.accountPort, why);
    case NntpPort:
        return readPort(value, &line->options.nntpPort, why);
    case NntpTlsPort:
        return readPort(value, &line->options.nntpTlsPort, why);
    case Directory:
        line->options.directory = value;
        return true;
    case ReadyFile:
        line->readyFile = value;
        return true;
    case Help:
        line->help = true;
        return true;
    case Version:
        line->version = true;
        return true;
    default:
        return false;
    }
}

} // namespace

bool CommandLine::read(int argc, char **argv, std::string *why)
{
    opterr = 0;
    for (;;) {
        const int option = ::getopt_long(argc, argv, ":", known, nullptr);
        if (option == -1) {
            break;
        }
        if (option == '?' || option == ':') {
            const std::string word = argv[optind - 1];
            *why = option == ':' ? word + " needs a value." : "There is no option " + word + ".";
            return false;
        }
        if (!readOption(this, option, optarg != nullptr ? optarg : "", why)) {
            return false;
        }
    }
    if (optind < argc) {
        *why = "\"" + std::string(argv[optind]) + "\" is not expected; try --help.";
        return false;
    }
    return true;
}

std::string CommandLine::usage()
{
    return "Usage: corvia-service [options]\n"
           "Plays an account service and its news servers on 127.0.0.1 until it is interrupted.\n"
           "\n"
           "  --scenario FILE       accounts, groups and faults; a demo without it\n"
           "  --account-port N      port of the account service; any free one without it\n"
           "  --nntp-port N         port of the news server in the clear\n"
           "  --nntp-tls-port N     port of the news server under TLS\n"
           "  --directory DIR       where certificates and keys are written; temporary without it\n"
           "  --ready-file FILE     is written once everything listens\n"
           "  --help                shows this\n"
           "  --version             shows the version\n";
}

} // namespace corvia
