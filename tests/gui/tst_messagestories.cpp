// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "stage.h"

#include <halvora/linkopener.h>

#include <QDialog>
#include <QDockWidget>
#include <QTest>
#include <QTreeView>

/// A person looks at what the account service wrote.
class TestMessageStories : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aMessageIsOpenedAndReadAfterAWhile();
    void aDeletedMessageStaysAway();
};

namespace {

QString maintenance()
{
    return QStringLiteral("maintenance-2026-11");
}

/// The messages panel on the screen. Spots and what a person does are for the person's thread, everything
/// else is for the GUI thread.
class Panel {
public:
    explicit Panel(Stage &stage)
        : m_stage(stage)
    {
    }

    void logIn(Person &person) const
    {
        person.ask([this] { m_stage.program().logIn(QStringLiteral("demo"), QStringLiteral("pinegate")); });
        person.sees(QStringLiteral("the messages"),
                    [this] { return !m_stage.program().find<QDialog>("LoginDialog") && row(words()) >= 0; });
    }

    /// Of the message about the maintenance.
    static QString words() { return QStringLiteral("The news servers rest"); }
    Spot text() const { return cell(QStringLiteral("the message"), 0); }
    Spot cross() const { return cell(QStringLiteral("the cross"), 2); }

    int row(const QString &start) const
    {
        for (int row = 0; row < view()->model()->rowCount(); ++row) {
            if (view()->model()->index(row, 0).data().toString().startsWith(start))
                return row;
        }
        return -1;
    }
    bool isBold() const
    {
        return view()->model()->index(row(words()), 0).data(Qt::FontRole).value<QFont>().bold();
    }

    /// What the account service has: "" when the message is gone there.
    QString servicesCopy() const
    {
        for (const corvia::Message &message : m_stage.program().service().messages("demo")) {
            if (QString::fromStdString(message.uid) == maintenance())
                return message.read ? QStringLiteral("read") : QStringLiteral("unread");
        }
        return {};
    }

private:
    QTreeView *view() const
    {
        return m_stage.program().find<QDockWidget>("MessagesToolWidget")->findChild<QTreeView *>();
    }
    Spot cell(const QString &name, int column) const
    {
        return rowOf(
            name, [this] { return view(); },
            [this, column] { return view()->model()->index(row(words()), column); });
    }

    Stage &m_stage;
};

} // namespace

void TestMessageStories::aMessageIsOpenedAndReadAfterAWhile()
{
    Stage stage;
    const Panel panel(stage);
    QStringList opened;
    stage.program().application().core()->links().setOpener([&opened](const QUrl &url) {
        opened.append(url.toString());
        return true;
    });
    stage.play([&panel, &opened](Person &person) {
        panel.logIn(person);
        person.sees(QStringLiteral("an unread message"), [&panel] { return panel.isBold(); });
        person.shoot(QStringLiteral("messages-unread"));
        person.clickOn(panel.text());
        person.sees(QStringLiteral("the message's page"), [&opened] {
            return opened == QStringList{QStringLiteral("https://status.corvia.example/")};
        });
        // It is as new as before until the person had time to read it.
        person.sees(QStringLiteral("the message as read"), [&panel] { return !panel.isBold(); });
        person.sees(QStringLiteral("the service's copy as read"),
                    [&panel] { return panel.servicesCopy() == QStringLiteral("read"); });
        person.shoot(QStringLiteral("messages-read"));
    });
}

void TestMessageStories::aDeletedMessageStaysAway()
{
    Stage stage;
    const Panel panel(stage);
    stage.play([&panel](Person &person) {
        panel.logIn(person);
        person.pointAt(panel.cross());
        person.shoot(QStringLiteral("messages-cross"));
        person.clickOn(panel.cross());
        person.sees(QStringLiteral("the message is gone"),
                    [&panel] { return panel.row(Panel::words()) < 0; });
        person.sees(QStringLiteral("the service's copy is gone"),
                    [&panel] { return panel.servicesCopy().isEmpty(); });
        person.shoot(QStringLiteral("messages-deleted"));
    });
    stage.restart();
    stage.play([&panel](Person &person) {
        person.sees(QStringLiteral("the other messages"),
                    [&panel] { return panel.row(QStringLiteral("Articles now stay")) >= 0; });
        person.sees(QStringLiteral("that it is still gone"),
                    [&panel] { return panel.row(Panel::words()) < 0; });
    });
}

QTEST_MAIN(TestMessageStories)
#include "tst_messagestories.moc"
