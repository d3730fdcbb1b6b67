// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "keyring.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDir>
#include <QTest>

namespace {

constexpr int maxWait = 60'000; // milliseconds

QString keyringName()
{
    return QStringLiteral("org.freedesktop.secrets");
}

QString keyringPath()
{
    return QStringLiteral("/org/freedesktop/secrets");
}

QString prompterName()
{
    return QStringLiteral("org.gnome.keyring.SystemPrompter");
}

// With the name of QtKeychain's schema: a keyring takes an item without it for another one beside it.
QStringList attributes(const QString &user)
{
    return {QStringLiteral("xdg:schema"), QStringLiteral("org.qt.keychain"),
            QStringLiteral("user"),       user,
            QStringLiteral("server"),     QStringLiteral("halvora"),
            QStringLiteral("type"),       QStringLiteral("plaintext")};
}

} // namespace

Keyring::Keyring(const QString &busAddress)
    : m_environment(QProcessEnvironment::systemEnvironment())
    , m_bus(QDBusConnection::connectToBus(busAddress, QStringLiteral("keyring watch")))
{
    const QString runtime = m_home.filePath(QStringLiteral("run"));
    QDir().mkdir(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("HOME"), m_home.path());
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress);
    m_daemon.setProcessEnvironment(m_environment);
    m_daemon.setProcessChannelMode(QProcess::MergedChannels);
    qputenv("DBUS_SESSION_BUS_ADDRESS", busAddress.toUtf8());
}

Keyring::~Keyring()
{
    stop();
    QDBusConnection::disconnectFromBus(m_bus.name());
}

bool Keyring::start()
{
    // A test that crashes takes its keyring along.
    m_daemon.start(QStringLiteral("setpriv"),
                   {QStringLiteral("--pdeathsig"), QStringLiteral("TERM"),
                    QStringLiteral("gnome-keyring-daemon"), QStringLiteral("--foreground"),
                    QStringLiteral("--components=secrets"), QStringLiteral("--unlock")});
    m_daemon.write("the keyring's own password");
    m_daemon.closeWriteChannel();
    return QTest::qWaitFor([this] { return m_bus.interface()->isServiceRegistered(keyringName()).value(); },
                           maxWait);
}

void Keyring::lock()
{
    QDBusMessage call = QDBusMessage::createMethodCall(keyringName(), keyringPath(),
                                                       QStringLiteral("org.freedesktop.Secret.Service"),
                                                       QStringLiteral("Lock"));
    const QDBusObjectPath login(QStringLiteral("/org/freedesktop/secrets/collection/login"));
    call << QVariant::fromValue(QList<QDBusObjectPath>{login});
    const QDBusMessage reply = m_bus.call(call);
    QVERIFY2(reply.type() == QDBusMessage::ReplyMessage, qPrintable(reply.errorMessage()));
}

void Keyring::stop()
{
    m_daemon.terminate();
    if (m_daemon.state() != QProcess::NotRunning && !m_daemon.waitForFinished(maxWait))
        m_daemon.kill();
}

bool Keyring::store(const QString &user, const QString &password)
{
    tool(QStringList{QStringLiteral("store"), QStringLiteral("--label=test")} + attributes(user),
         password.toUtf8());
    return lookup(user) == password;
}

QString Keyring::lookup(const QString &user)
{
    return QString::fromUtf8(tool(QStringList{QStringLiteral("lookup")} + attributes(user)));
}

int Keyring::count(const QString &user)
{
    const QByteArray found =
        tool(QStringList{QStringLiteral("search"), QStringLiteral("--all")} + attributes(user));
    return found.count("\nsecret = ");
}

QByteArray Keyring::tool(const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(QStringLiteral("secret-tool"), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(maxWait);
    return process.readAllStandardOutput();
}

SilentKeyring::SilentKeyring(const QDBusConnection &bus)
    : m_bus(bus)
{
    if (!m_bus.registerVirtualObject(keyringPath(), this, QDBusConnection::SubPath) ||
        !m_bus.registerService(keyringName()))
        QTest::qFail("The bus takes no service.", __FILE__, __LINE__);
}

SilentKeyring::~SilentKeyring()
{
    refuseAll();
    m_bus.unregisterService(keyringName());
    m_bus.unregisterObject(keyringPath(), QDBusConnection::UnregisterTree);
}

QString SilentKeyring::introspect(const QString &path) const
{
    Q_UNUSED(path)
    return {};
}

bool SilentKeyring::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    Q_UNUSED(connection)
    message.setDelayedReply(true);
    calls.append(message);
    return true;
}

void SilentKeyring::refuseAll()
{
    for (const QDBusMessage &call : qAsConst(calls))
        m_bus.send(call.createErrorReply(QDBusError::Failed, QStringLiteral("not today")));
    calls.clear();
}

Prompter::Prompter(const QDBusConnection &bus)
    : m_bus(bus)
{
    if (!m_bus.registerVirtualObject(QStringLiteral("/org/gnome/keyring/Prompter"), this) ||
        !m_bus.registerService(prompterName()))
        QTest::qFail("The bus takes no service.", __FILE__, __LINE__);
}

Prompter::~Prompter()
{
    m_bus.unregisterService(prompterName());
    m_bus.unregisterObject(QStringLiteral("/org/gnome/keyring/Prompter"));
}

QString Prompter::introspect(const QString &path) const
{
    Q_UNUSED(path)
    return {};
}

bool Prompter::handleMessage(const QDBusMessage &message, const QDBusConnection &connection)
{
    if (message.member() == QLatin1String("BeginPrompting")) {
        ++prompts;
        m_open = message;
    }
    connection.send(message.createReply());
    return true;
}

// The first argument is where the keyring hears what has become of its prompt.
void Prompter::cancel()
{
    const QString path = m_open.arguments().constFirst().value<QDBusObjectPath>().path();
    m_bus.send(QDBusMessage::createMethodCall(m_open.service(), path,
                                              QStringLiteral("org.gnome.keyring.internal.Prompter.Callback"),
                                              QStringLiteral("PromptDone")));
    m_open = QDBusMessage();
}
