// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "menus.h"
#include "stage.h"

#include <halvora/connector.h>
#include <halvora/connectorplugin.h>

#include <QDialog>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QTest>

/// A person logs in, and chooses from the menus of the window.
class TestLoginStory : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void aPasswordIsMistypedAndThenRight();
    void theKeyboardAloneHidesAPanel();
};

namespace {

Spot menuTitle(Stage &stage, const QString &name)
{
    const auto find = [&stage, name]() -> std::optional<QPoint> {
        const auto *menu = stage.program().find<QMenu>(name.toLatin1().constData());
        const QMenuBar *bar = stage.program().window().menuBar();
        return bar->mapToGlobal(bar->actionGeometry(menu->menuAction()).center());
    };
    return {name, find};
}

} // namespace

void TestLoginStory::aPasswordIsMistypedAndThenRight()
{
    Stage stage;
    stage.play([&stage](Person &person) {
        person.clickOn(menuTitle(stage, QStringLiteral("halvora.accountMenu")));
        person.shoot(QStringLiteral("story-account-menu"));
        person.choose({QStringLiteral("Log In…")});
        person.clickOn(stage.widget(QStringLiteral("user")));
        person.type(QStringLiteral("demo"));
        person.pressKey(QStringLiteral("Tab"));
        person.type(QStringLiteral("pinegatE"));
        person.pressKey(QStringLiteral("Return"));
        person.sees(QStringLiteral("what was wrong with the password"), [&stage] {
            const auto *failure = stage.program().find<QLabel>("failure");
            return failure && failure->isVisible() && !failure->text().isEmpty();
        });
        person.shoot(QStringLiteral("story-login-refused"));
        person.type(QStringLiteral("pinegate")); // over the selected one
        person.clickOn(stage.widget(QStringLiteral("logIn")));
        person.sees(QStringLiteral("the account"), [&stage] {
            return stage.program().server().connectorState() == HServer::Connected &&
                   !stage.program().find<QDialog>("LoginDialog");
        });
        person.shoot(QStringLiteral("story-logged-in"));
    });
}

void TestLoginStory::theKeyboardAloneHidesAPanel()
{
    Stage stage;
    stage.play([&stage](Person &person) {
        const auto isHidden = [&stage] {
            return stage.program().find<QDockWidget>("InfoToolWidget")->isHidden();
        };
        person.pressKey(QStringLiteral("alt+v"));
        person.chooseByKeys({QStringLiteral("Your Account")});
        person.sees(QStringLiteral("the panel is gone"), isHidden);
        person.shoot(QStringLiteral("story-panel-hidden"));
        person.pressKey(QStringLiteral("alt+v"));
        person.chooseByKeys({QStringLiteral("Your Account")});
        person.sees(QStringLiteral("the panel is back"), [&isHidden] { return !isHidden(); });
    });
}

QTEST_MAIN(TestLoginStory)
#include "tst_loginstory.moc"
