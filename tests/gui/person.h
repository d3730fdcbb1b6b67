// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <stdexcept>

class QWidget;

/// Why a person's story can not go on: one sentence.
class Disappointment : public std::runtime_error {
public:
    explicit Disappointment(const QString &sentence)
        : std::runtime_error(sentence.toStdString())
    {
    }
};

/// A place of the screen that a person looks for. It is looked up on the GUI thread each time somebody goes
/// there.
struct Spot {
    QString name; ///< As in "looked in vain for …".
    /// The global position, or nothing while it can not be seen.
    std::function<std::optional<QPoint>()> find;
};

/// A person in front of the screen: moves the real pointer and presses real keys. Lives on a thread of its
/// own, so that the program may sit in a menu, a drag or a dialog meanwhile; all that is asked about the
/// program is asked on the GUI thread. What a person waits for in vain throws a Disappointment.
class Person {
public:
    /// @p window is what the pictures show; it outlives the person.
    explicit Person(QWidget *window);

    void pointAt(const Spot &spot);
    /// With the key @p held, if it is given, held down.
    void clickOn(const Spot &spot, const QString &held = QString());
    void rightClickOn(const Spot &spot);
    void doubleClickOn(const Spot &spot);

    /// Presses the button on a thing and moves until the program drags it.
    void pickUp(const Spot &spot);
    void carryTo(const Spot &spot);
    /// Releases the button and waits until the program has taken the thing, or not.
    void letGo();
    void drag(const Spot &from, const Spot &to);

    /// @p key as xdotool calls it: "Down", "Return", "ctrl+a".
    void pressKey(const QString &key);
    void type(const QString &text);

    /// Goes through a menu that has been opened and its submenus with the pointer.
    void choose(const QStringList &entries);
    /// The same with the arrow keys.
    void chooseByKeys(const QStringList &entries);

    /// Waits until the GUI thread says that @p condition holds.
    void sees(const QString &what, const std::function<bool()> &condition);
    /// Runs @p question on the GUI thread, wherever that is, and waits for it.
    void ask(const std::function<void()> &question) const;
    template <typename T> T learns(const std::function<T()> &question) const
    {
        T answer{};
        ask([&answer, &question] { answer = question(); });
        return answer;
    }

    /// Lets everything go, after a disappointment.
    void giveUp();

    /// Keeps a picture of the window and what is in front of it, once it stands still.
    void shoot(const QString &name);

private:
    QPoint lookFor(const Spot &spot) const;
    void moveTo(const QPoint &point);
    void press(const QStringList &clicks);
    void waitOutDoubleClick();
    bool isDragging() const;
    static void use(const QStringList &xdotool);

    QWidget *m_window;
    QPoint m_pointer;
    QElapsedTimer m_sinceClick;
};
