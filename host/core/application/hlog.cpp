// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/hlog.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QSysInfo>

#include <algorithm>
#include <mutex>

namespace {

constexpr int mostLines = 2000;
constexpr int longestLine = 2000;
constexpr int shortestSecret = 3;

struct Store {
    std::mutex mutex;
    QStringList lines;
    QStringList secrets;
    QtMessageHandler next = nullptr;
};

// Qt's message handler is a plain function, so what it writes to has to be found without an object.
Store &store()
{
    static Store theStore;
    return theStore;
}

void keep(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    Store &log = store();
    const QString line = QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs) + QLatin1Char(' ') +
                         QLatin1String(context.category ? context.category : "default") +
                         QLatin1String(": ") + message.left(longestLine);
    {
        const std::lock_guard lock(log.mutex);
        log.lines.append(line);
        if (log.lines.size() > mostLines)
            log.lines.removeFirst();
    }
    if (log.next)
        log.next(type, context, message);
}

} // namespace

void HLog::install()
{
    store().next = qInstallMessageHandler(&keep);
}

void HLog::addSecret(const QString &secret)
{
    if (secret.size() < shortestSecret)
        return;
    Store &log = store();
    const std::lock_guard lock(log.mutex);
    if (log.secrets.contains(secret))
        return;
    log.secrets.append(secret);
    // The longest first, so that a secret inside another leaves no rest of it.
    std::sort(log.secrets.begin(), log.secrets.end(),
              [](const QString &one, const QString &other) { return one.size() > other.size(); });
}

QString HLog::report()
{
    Store &log = store();
    const std::lock_guard lock(log.mutex);
    QString text = QStringLiteral("%1 %2, Qt %3, %4\n\n")
                       .arg(QCoreApplication::applicationName(), QCoreApplication::applicationVersion(),
                            QString::fromLatin1(qVersion()), QSysInfo::prettyProductName());
    text += log.lines.join(QLatin1Char('\n')) + QLatin1Char('\n');
    for (const QString &secret : qAsConst(log.secrets))
        text.replace(secret, QStringLiteral("***"));
    return text;
}
