// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "stage.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEventLoop>
#include <QTest>
#include <QThread>
#include <QTimer>

Stage::Stage()
{
    QCoreApplication::setApplicationName(QStringLiteral("Halvora"));
    QGuiApplication::setApplicationDisplayName(QStringLiteral("Halvora"));
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    open();
}

Stage::~Stage()
{
    m_program.close();
}

void Stage::open()
{
    m_program.open();
    m_program.window().resize(1000, 680);
    QVERIFY2(QTest::qWaitForWindowActive(&m_program.window(), 10000),
             "The window does not come to the front.");
}

void Stage::restart()
{
    m_program.close();
    open();
}

void Stage::play(const std::function<void(Person &)> &story)
{
    if (QTest::currentTestFailed()) // it is of no use to go on with a story that went wrong
        return;
    Person person(&m_program.window());
    QString sentence;
    const auto tell = [&person, &story, &sentence] {
        try {
            story(person);
        } catch (const Disappointment &disappointment) {
            sentence = QString::fromUtf8(disappointment.what());
        }
    };
    const auto tellAndShow = [&tell, &person, &sentence] {
        tell();
        if (sentence.isEmpty())
            return;
        try {
            person.shoot(QStringLiteral("failed-%1").arg(QLatin1String(QTest::currentTestFunction())));
            person.giveUp();
        } catch (const Disappointment &disappointment) {
            sentence += QLatin1Char('\n') + QString::fromUtf8(disappointment.what());
        }
    };
    const std::unique_ptr<QThread> thread(QThread::create(tellAndShow));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, [this, &loop] {
        recover();
        loop.quit();
    });
    thread->start();
    loop.exec();
    thread->wait();
    QVERIFY2(sentence.isEmpty(), qPrintable(sentence));
}

// A menu or a dialog that stays open would keep this story's loop from ending.
void Stage::recover()
{
    constexpr int most = 10; // a window may refuse
    for (int i = 0; i < most; ++i) {
        if (QWidget *popup = QApplication::activePopupWidget())
            popup->close();
        if (QWidget *dialog = QApplication::activeModalWidget())
            dialog->close();
    }
}

Spot Stage::widget(const QString &objectName)
{
    const auto find = [this, objectName]() -> std::optional<QPoint> {
        const QList<QWidget *> found = m_program.window().findChildren<QWidget *>(objectName);
        for (const QWidget *widget : found) {
            if (widget->isVisible() && widget->isEnabled())
                return widget->mapToGlobal(widget->rect().center());
        }
        return std::nullopt;
    };
    return {QStringLiteral("“%1”").arg(objectName), find};
}

Spot rowOf(const QString &name, const std::function<QAbstractItemView *()> &view,
           const std::function<QModelIndex()> &index, double part)
{
    const auto find = [view, index, part]() -> std::optional<QPoint> {
        const QModelIndex wanted = index();
        QAbstractItemView *seen = view();
        const QRect row = wanted.isValid() && seen ? seen->visualRect(wanted) : QRect();
        if (row.isEmpty() || !seen->isVisible() || !seen->viewport()->rect().intersects(row))
            return std::nullopt;
        const int y = row.top() + qRound((row.height() - 1) * part);
        return seen->viewport()->mapToGlobal(QPoint(row.left() + qMin(40, row.width() / 2), y));
    };
    return {name, find};
}
