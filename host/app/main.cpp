// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "application.h"
#include "commandline.h"
#include "instanceserver.h"
#include "outsidelink.h"
#include "singleinstance.h"

#include <halvora/hlog.h>
#include <halvora/storagemanager.h>

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QMessageBox>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int misused = 2;
// How long a program that runs may take to answer before it is said that it does not.
constexpr std::chrono::seconds patience(10);

void nameProgram()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HALVORA_VERSION));
    QCoreApplication::setOrganizationName(QStringLiteral("halvora"));
}

// Needs no display, so that --help and --version work everywhere.
CommandLine::Result readCommandLine(int argc, char **argv, Options &options)
{
    const QCoreApplication application(argc, argv);
    QString text;
    const CommandLine::Result result = CommandLine::parse(QCoreApplication::arguments(), options, text);
    if (result != CommandLine::Run)
        std::fprintf(result == CommandLine::Done ? stdout : stderr, "%s\n", qUtf8Printable(text.trimmed()));
    return result;
}

bool makeProfile(const QString &profile)
{
    if (profile.isEmpty() || QDir(profile).exists())
        return true;
    if (!QDir().mkpath(profile)) {
        std::fprintf(stderr, "The folder %s can not be made.\n", qUtf8Printable(profile));
        return false;
    }
    QFile::setPermissions(profile, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return true;
}

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/app/icon/%1x%1.png").arg(size));
    return icon;
}

// A picture is taken where nobody sits who could close a message.
void refuse(const QString &sentence, const Options &options)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(sentence));
    if (!options.screenshot.isEmpty())
        return;
    QMessageBox message(QMessageBox::Warning, QCoreApplication::applicationName(), sentence,
                        QMessageBox::Close);
    message.setTextFormat(Qt::PlainText);
    message.exec();
}

SingleInstance::Outcome startInstance(SingleInstance &instance, const Options &options)
{
    if (!options.screenshot.isEmpty())
        return instance.take();
    return instance.takeOrHandOver(OutsideLink::absolute(options.link), patience);
}

int run(const Options &options, const QString &folder)
{
    Application application(options);
    application.start();
    // Gone before the profile is free again, so that nobody else's socket is taken away.
    InstanceServer server;
    QObject::connect(&server, &InstanceServer::called, &application, &Application::answerCall);
    // A picture is of what one run does by itself.
    if (options.screenshot.isEmpty() && !server.listen(InstanceServer::socketPath(folder)))
        qWarning("Later starts of the program can not reach this one: %s",
                 qUtf8Printable(server.errorString()));
    const int exitCode = QApplication::exec();
    application.shutDown(exitCode);
    return exitCode;
}

} // namespace

int main(int argc, char **argv)
{
    nameProgram();
    Options options;
    switch (readCommandLine(argc, argv, options)) {
    case CommandLine::Done:
        return EXIT_SUCCESS;
    case CommandLine::Misused:
        return misused;
    case CommandLine::Run:
        break;
    }
    if (!makeProfile(options.profile))
        return EXIT_FAILURE;

    HLog::install();
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication qtApplication(argc, argv);
    QApplication::setDesktopFileName(QStringLiteral("org.halvora.Halvora"));
    QApplication::setWindowIcon(programIcon());
    const QString folder = StorageManager(options.profile).dataDirectory();
    SingleInstance instance(folder);
    switch (startInstance(instance, options)) {
    case SingleInstance::Taken:
        break;
    case SingleInstance::HandedOver:
        return EXIT_SUCCESS;
    case SingleInstance::Refused:
        refuse(instance.refusal(), options);
        return EXIT_FAILURE;
    }
    return run(options, folder);
}
