// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "instanceline.h"

namespace {

// The number is for the day on which a program of another version has something else to say.
QByteArray opening()
{
    return QByteArrayLiteral("halvora 1 ");
}

} // namespace

QByteArray InstanceLine::write(const QString &argument)
{
    const QByteArray line = opening() + argument.toUtf8() + '\n';
    return line.size() <= longest && line.count('\n') == 1 ? line : QByteArray();
}

std::optional<QString> InstanceLine::read(const QByteArray &line)
{
    if (line.size() > longest || !line.startsWith(opening()) || !line.endsWith('\n'))
        return std::nullopt;
    const QByteArray text = line.mid(opening().size(), line.size() - opening().size() - 1);
    const QString argument = QString::fromUtf8(text);
    // What is not UTF-8 would name another file than the one that was meant.
    return argument.toUtf8() == text ? std::optional<QString>(argument) : std::nullopt;
}
