// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "commandline.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QUrl>

#include <fcntl.h>
#include <unistd.h>

namespace {

bool parseService(const QString &value, Options &options)
{
    // QUrl knows how a port stands beside an IPv6 address.
    const QUrl url(QStringLiteral("https://") + value, QUrl::StrictMode);
    if (!url.isValid() || url.host().isEmpty() || url.port() <= 0 || url.authority() != value ||
        !url.userInfo().isEmpty())
        return false;
    options.serviceHost = url.host();
    options.servicePort = url.port();
    return true;
}

bool parseDescriptor(const QString &value, Options &options)
{
    bool ok = false;
    const int descriptor = value.toInt(&ok);
    const int flags = ok && descriptor >= 0 ? fcntl(descriptor, F_GETFD) : -1;
    // What was handed over has come through exec; a descriptor that closes there is one of the program's own.
    if (flags == -1 || (flags & FD_CLOEXEC) != 0 || (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_WRONLY)
        return false;
    // The programs that this one starts must not find the password there.
    if (descriptor > STDERR_FILENO)
        fcntl(descriptor, F_SETFD, flags | FD_CLOEXEC);
    options.passwordDescriptor = descriptor;
    return true;
}

} // namespace

CommandLine::Result CommandLine::parse(const QStringList &arguments, Options &options, QString &text)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("A Usenet client."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption service(QStringLiteral("account-service"),
                                     tr("Use this account service instead of the provider's."),
                                     tr("host:port"));
    const QCommandLineOption authority(QStringLiteral("account-ca"),
                                       tr("Trust the authorities in this PEM file."), tr("file"));
    const QCommandLineOption profile(QStringLiteral("profile"), tr("Keep settings and data in this folder."),
                                     tr("folder"));
    const QCommandLineOption plugins(QStringLiteral("plugins"), tr("Load the plug-ins of this folder."),
                                     tr("folder"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        tr("Save a picture of the window after the login and quit."),
                                        tr("file"));
    const QCommandLineOption user(QStringLiteral("user"), tr("Log in as this user."), tr("name"));
    const QCommandLineOption password(
        QStringLiteral("password-fd"),
        tr("Read the password from this open file descriptor, up to a line's end."), tr("number"));
    parser.addOptions({service, authority, profile, plugins, screenshot, user, password});
    parser.addPositionalArgument(QStringLiteral("link"), tr("A link or a file to open."),
                                 QStringLiteral("[link]"));

    const bool parsed = parser.parse(arguments);
    const auto misused = [&text](const QString &sentence) {
        text = sentence;
        return Misused;
    };
    if (!parsed)
        return misused(parser.errorText());
    // Qt offers the second one along with the first.
    if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all"))) {
        text = parser.helpText();
        return Done;
    }
    if (parser.isSet(version)) {
        text = QStringLiteral("%1 %2").arg(QCoreApplication::applicationName(),
                                           QCoreApplication::applicationVersion());
        return Done;
    }
    // An empty one is a shell variable that was forgotten, never a wish.
    for (const QCommandLineOption &option : {profile, plugins, screenshot, user}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return misused(tr("--%1 needs a value.").arg(option.names().constFirst()));
    }
    if (parser.isSet(service) && !parseService(parser.value(service), options))
        return misused(tr("--account-service needs a host and a port, for example localhost:5598."));
    if (parser.isSet(authority) && !QFileInfo(parser.value(authority)).isReadable())
        return misused(tr("The file %1 can not be read.").arg(parser.value(authority)));
    if (parser.isSet(password) && !parseDescriptor(parser.value(password), options))
        return misused(tr("--password-fd needs the number of an open file descriptor."));
    if (parser.positionalArguments().size() > 1)
        return misused(tr("Only one link or file can be opened at a time."));

    options.authorityFile = parser.value(authority);
    options.profile = parser.value(profile);
    options.pluginDirectory = parser.value(plugins);
    options.screenshot = parser.value(screenshot);
    options.user = parser.value(user);
    options.link = parser.positionalArguments().value(0);
    return Run;
}
