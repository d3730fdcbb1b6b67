// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "sqlstatement.h"

#include <QRegularExpression>
#include <QString>

#include <utility>

namespace {

constexpr std::pair<const char *, SqlStatement> firstWords[] = {
    {"SELECT", SqlStatement::Read},   {"BEGIN", SqlStatement::Begin},   {"COMMIT", SqlStatement::Commit},
    {"END", SqlStatement::Commit},    {"INSERT", SqlStatement::Insert}, {"REPLACE", SqlStatement::Insert},
    {"UPDATE", SqlStatement::Update}, {"DELETE", SqlStatement::Delete},
};

bool deletesAllRows(const QString &statement)
{
    static const QRegularExpression form(QStringLiteral("^DELETE\\s+FROM\\s+\\S+$"),
                                         QRegularExpression::CaseInsensitiveOption);
    return form.match(statement).hasMatch();
}

} // namespace

SqlStatement sqlstatement::kindOf(const QString &text)
{
    const QString statement = text.trimmed();
    if (statement.isEmpty())
        return SqlStatement::Unknown;
    for (const auto &[word, kind] : firstWords) {
        if (statement.startsWith(QLatin1String(word), Qt::CaseInsensitive))
            return kind == SqlStatement::Delete && deletesAllRows(statement) ? SqlStatement::Clear : kind;
    }
    return SqlStatement::Other;
}
