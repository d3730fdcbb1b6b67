// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "desktopentry.h"

#include "fileupdate.h"

#include <QFileInfo>
#include <QList>

#include <algorithm>

namespace {

/// The value of @p key in the group "Desktop Entry".
QByteArray entryValue(const QByteArray &file, const QByteArray &key)
{
    bool inside = false;
    const QList<QByteArray> lines = file.split('\n');
    for (const QByteArray &line : lines) {
        const QByteArray text = line.trimmed();
        if (text.startsWith('['))
            inside = text == "[Desktop Entry]";
        const int equals = text.indexOf('=');
        if (inside && equals > 0 && text.left(equals).trimmed() == key)
            return text.mid(equals + 1).trimmed();
    }
    return {};
}

/// What a value stands for: the inverse of DesktopEntry::escaped.
QString unescaped(const QString &value)
{
    QString text;
    for (int i = 0; i < value.size(); ++i) {
        if (value.at(i) != QLatin1Char('\\') || i + 1 == value.size()) {
            text += value.at(i);
            continue;
        }
        const QChar next = value.at(++i);
        const int known = QStringLiteral("sntr").indexOf(next);
        text += known < 0 ? next : QStringLiteral(" \n\t\r").at(known);
    }
    return text;
}

} // namespace

QString DesktopEntry::id()
{
    return QStringLiteral("org.halvora.Halvora.desktop");
}

QString DesktopEntry::path(const QString &dataFolder)
{
    return dataFolder + QStringLiteral("/applications/") + id();
}

QStringList DesktopEntry::mimeTypes(const QString &file)
{
    QByteArray bytes;
    if (!FileUpdate::read(file, &bytes) || entryValue(bytes, "Hidden") == "true")
        return {};
    QStringList types;
    const QList<QByteArray> values = entryValue(bytes, "MimeType").split(';');
    for (const QByteArray &value : values) {
        const QString type = QString::fromUtf8(value).trimmed();
        if (!type.isEmpty())
            types.append(type);
    }
    return types;
}

bool DesktopEntry::startsWhatIsGone(const QString &file)
{
    QByteArray bytes;
    if (!FileUpdate::read(file, &bytes))
        return false;
    const QString program = firstArgument(unescaped(QString::fromUtf8(entryValue(bytes, "Exec"))));
    return QFileInfo(program).isAbsolute() && !QFileInfo(program).isExecutable();
}

QByteArray DesktopEntry::compose(const QString &title, const QString &program, const QStringList &mimeTypes)
{
    const auto line = [](const QString &text) { return escaped(singleLine(text)); };
    const QString name = singleLine(title);
    const QStringList lines = {
        QStringLiteral("[Desktop Entry]"),
        QStringLiteral("Type=Application"),
        QStringLiteral("Version=1.4"),
        QStringLiteral("Name=") + (name.isEmpty() ? QStringLiteral("Halvora") : escaped(name)),
        QStringLiteral("GenericName=") + line(tr("Usenet Client")),
        QStringLiteral("Comment=") + line(tr("Browse newsgroups and download from Usenet")),
        QStringLiteral("Exec=") + escaped(quotedArgument(program)) + QStringLiteral(" %u"),
        QStringLiteral("Icon=org.halvora.Halvora"),
        QStringLiteral("Terminal=false"),
        QStringLiteral("Categories=Network;News;FileTransfer;Qt;"),
        QStringLiteral("MimeType=") + mimeTypes.join(QLatin1Char(';')) + QLatin1Char(';'),
        QStringLiteral("StartupWMClass=halvora"),
    };
    return lines.join(QLatin1Char('\n')).toUtf8() + '\n';
}

QString DesktopEntry::singleLine(const QString &text)
{
    QString line;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        const QChar::Category category = QChar::category(character);
        const bool breaks = category == QChar::Other_Control || category == QChar::Separator_Line ||
                            category == QChar::Separator_Paragraph;
        const bool none = category == QChar::Other_Surrogate || (character & 0xfffe) == 0xfffe;
        if (!none)
            line += breaks ? QStringLiteral(" ") : QString::fromUcs4(&character, 1);
    }
    return line.simplified();
}

QString DesktopEntry::escaped(const QString &text)
{
    QString value = text;
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    value.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    value.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    value.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return value;
}

QString DesktopEntry::firstArgument(const QString &command)
{
    QString argument;
    const bool quoted = command.startsWith(QLatin1Char('"'));
    for (int i = quoted ? 1 : 0; i < command.size(); ++i) {
        if (command.at(i) == (quoted ? QLatin1Char('"') : QLatin1Char(' ')))
            break;
        if (quoted && command.at(i) == QLatin1Char('\\') && i + 1 < command.size())
            ++i;
        argument += command.at(i);
    }
    return argument.replace(QLatin1String("%%"), QLatin1String("%"));
}

QString DesktopEntry::quotedArgument(const QString &text)
{
    static const QString reserved = QStringLiteral(" \t\n\r\"'\\><~|&;$*?#()`");
    QString argument = text;
    argument.replace(QLatin1Char('%'), QLatin1String("%%"));
    // Quotes only where they are needed: the plainer of the programs that open links look the word up as it
    // is.
    const bool plain = std::none_of(argument.cbegin(), argument.cend(),
                                    [](QChar character) { return reserved.contains(character); });
    if (plain)
        return argument;
    QString quoted;
    for (const QChar character : qAsConst(argument)) {
        if (QStringLiteral("\"`$\\").contains(character))
            quoted += QLatin1Char('\\');
        quoted += character;
    }
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}
