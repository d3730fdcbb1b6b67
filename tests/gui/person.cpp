// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "person.h"

#include "menus.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QDrag>
#include <QMenu>
#include <QProcess>
#include <QScreen>
#include <QThread>
#include <QWidget>

namespace {

constexpr int patience = 10000; // ms
constexpr int glance = 15;      // ms between two looks
constexpr int steps = 8;        // of a pointer on its way
constexpr int stepPause = 20;   // ms; a drag that jumps is no drag

bool becomesTrue(const std::function<bool()> &condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.hasExpired(patience))
            return false;
        QThread::msleep(glance);
    }
    return true;
}

QStringList moveCommand(const QPoint &point)
{
    return {QStringLiteral("mousemove"), QString::number(point.x()), QString::number(point.y())};
}

} // namespace

Person::Person(QWidget *window)
    : m_window(window)
{
}

void Person::ask(const std::function<void()> &question) const
{
    if (!QMetaObject::invokeMethod(qApp, question, Qt::BlockingQueuedConnection))
        throw Disappointment(QStringLiteral("The program does not answer."));
}

void Person::sees(const QString &what, const std::function<bool()> &condition)
{
    if (!becomesTrue([this, &condition] { return learns<bool>(condition); }))
        throw Disappointment(QStringLiteral("The person waited in vain for this: %1.").arg(what));
}

// Waits for a place that stays where it is; what has just been opened may still be moved by the window
// manager.
QPoint Person::lookFor(const Spot &spot) const
{
    std::optional<QPoint> before;
    const auto standsStill = [this, &spot, &before] {
        const auto now = learns<std::optional<QPoint>>([this, &spot] {
            std::optional<QPoint> point = spot.find();
            if (point)
                *point *= m_window->devicePixelRatioF();
            return point;
        });
        const bool still = now && now == before;
        before = now;
        return still;
    };
    if (!becomesTrue(standsStill))
        throw Disappointment(QStringLiteral("The person looked in vain for %1.").arg(spot.name));
    return *before;
}

void Person::use(const QStringList &xdotool)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral("xdotool"), xdotool);
    const bool finished = process.waitForFinished(patience);
    if (!finished || process.exitCode() != 0)
        throw Disappointment(QStringLiteral("xdotool %1 failed: %2")
                                 .arg(xdotool.join(QLatin1Char(' ')), QString::fromUtf8(process.readAll())));
}

void Person::moveTo(const QPoint &point)
{
    QStringList commands;
    for (int i = 1; i <= steps; ++i) {
        commands += moveCommand(m_pointer + (point - m_pointer) * i / steps);
        commands += {QStringLiteral("sleep"), QString::number(stepPause / 1000.)};
    }
    use(commands);
    m_pointer = point;
}

void Person::pointAt(const Spot &spot)
{
    moveTo(lookFor(spot));
}

// Two clicks that follow each other at once would be a double click.
void Person::waitOutDoubleClick()
{
    const int interval = learns<int>([] { return QApplication::doubleClickInterval(); });
    while (m_sinceClick.isValid() && !m_sinceClick.hasExpired(interval + 50))
        QThread::msleep(glance);
}

void Person::press(const QStringList &clicks)
{
    waitOutDoubleClick();
    use(QStringList{QStringLiteral("click")} + clicks);
    m_sinceClick.start();
}

void Person::clickOn(const Spot &spot, const QString &held)
{
    pointAt(spot);
    if (!held.isEmpty())
        use({QStringLiteral("keydown"), held});
    press({QStringLiteral("1")});
    if (!held.isEmpty())
        use({QStringLiteral("keyup"), held});
}

void Person::rightClickOn(const Spot &spot)
{
    pointAt(spot);
    press({QStringLiteral("3")});
}

void Person::doubleClickOn(const Spot &spot)
{
    pointAt(spot);
    press({QStringLiteral("--repeat"), QStringLiteral("2"), QStringLiteral("--delay"), QStringLiteral("60"),
           QStringLiteral("1")});
}

bool Person::isDragging() const
{
    return learns<bool>([this] { return m_window->findChild<QDrag *>() != nullptr; });
}

void Person::pickUp(const Spot &spot)
{
    pointAt(spot);
    waitOutDoubleClick();
    use({QStringLiteral("mousedown"), QStringLiteral("1")});
    const QPoint start = m_pointer;
    moveTo(start + QPoint(6, 3) * m_window->devicePixelRatioF() * 4);
    if (!becomesTrue([this] { return isDragging(); }))
        throw Disappointment(QStringLiteral("%1 can not be dragged.").arg(spot.name));
}

void Person::carryTo(const Spot &spot)
{
    pointAt(spot);
}

void Person::letGo()
{
    use({QStringLiteral("mouseup"), QStringLiteral("1")});
    m_sinceClick.start();
    if (!becomesTrue([this] { return !isDragging(); }))
        throw Disappointment(QStringLiteral("The drag does not end."));
}

void Person::drag(const Spot &from, const Spot &to)
{
    pickUp(from);
    carryTo(to);
    letGo();
}

// A menu or a drag that stays open would hold the program back for ever.
void Person::giveUp()
{
    use({QStringLiteral("keyup"), QStringLiteral("ctrl"), QStringLiteral("mouseup"), QStringLiteral("1"),
         QStringLiteral("key"), QStringLiteral("Escape")});
}

void Person::pressKey(const QString &key)
{
    use({QStringLiteral("key"), key});
}

void Person::type(const QString &text)
{
    use({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("12"), text});
}

void Person::choose(const QStringList &entries)
{
    for (const QString &entry : entries)
        clickOn(menus::entry(entry));
}

void Person::chooseByKeys(const QStringList &entries)
{
    for (const QString &entry : entries) {
        sees(QStringLiteral("a menu with %1").arg(entry),
             [&entry] { return menus::front(entry) != nullptr; });
        const int most = learns<int>([&entry] { return menus::front(entry)->actions().size(); });
        const auto current = [&entry] { return menus::current(menus::front(entry)); };
        for (int i = 0; learns<QString>(current) != entry; ++i) {
            if (i == most)
                throw Disappointment(QStringLiteral("The arrow keys do not come to %1.").arg(entry));
            const auto before = learns<QString>(current);
            pressKey(QStringLiteral("Down"));
            sees(QStringLiteral("the next entry"), [&current, &before] { return current() != before; });
        }
        pressKey(entry == entries.last() ? QStringLiteral("Return") : QStringLiteral("Right"));
    }
}

void Person::shoot(const QString &name)
{
    QImage picture;
    const auto standsStill = [this, &picture] {
        const auto now = learns<QImage>([this] {
            const QRect area = m_window->frameGeometry();
            return m_window->screen()
                ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                .toImage();
        });
        const bool still = now == picture;
        picture = now;
        return still;
    };
    if (!becomesTrue(standsStill))
        throw Disappointment(QStringLiteral("The window does not come to rest."));
    const QString file = QStringLiteral("%1/%2-x%3.png")
                             .arg(QStringLiteral(PICTURE_FOLDER), name)
                             .arg(picture.devicePixelRatio());
    if (!QDir().mkpath(QStringLiteral(PICTURE_FOLDER)) || !picture.save(file))
        throw Disappointment(QStringLiteral("The picture %1 can not be kept.").arg(file));
}
