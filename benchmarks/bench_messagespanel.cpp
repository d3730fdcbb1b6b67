// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "figures.h"
#include "loopbackaccount.h"
#include "testconnectorplugin.h"

#include "panels/cvmessagestoolwidget.h"
#include "panels/messagetreeview.h"

#include <halvora/connector.h>
#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>

#include <QApplication>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QTreeView>

#include <cstdio>

// How the panel scrolls through many messages, beside a plain tree with the same texts in the same font, in
// turns. Each figure is the median of its rounds.
namespace {

constexpr int rounds = 5;
constexpr int messages = 10'000;
constexpr QSize panelSize(900, 400);

void fill(HMessageManager &manager, bool read)
{
    const QDateTime oldest(QDate(2020, 1, 1), QTime(0, 0), Qt::UTC);
    QVector<HMessage> all;
    for (int number = 0; number < messages; ++number) {
        const QUrl link(QStringLiteral("https://www.corvia.example/%1").arg(number));
        HMessage message(
            QStringLiteral("m%1").arg(number),
            QStringLiteral("Message %1: the news servers rest on Sunday from 04:00 to 04:30.").arg(number),
            oldest.addSecs(7'200 * number), UrlInfo(link));
        message.setRead(read);
        message.setDeletable(number % 10 != 0);
        all.append(message);
    }
    manager.receive(all);
}

/// The same texts and nothing else: for unread messages the whole plain tree is bold.
void copyTexts(const QAbstractItemModel &from, QStandardItemModel &to)
{
    for (int row = 0; row < from.rowCount(); ++row) {
        QList<QStandardItem *> items;
        for (int column = 0; column < from.columnCount(); ++column)
            items.append(new QStandardItem(from.index(row, column).data().toString()));
        to.appendRow(items);
    }
}

double pages(QTreeView *view)
{
    QScrollBar *bar = view->verticalScrollBar();
    bar->setValue(bar->minimum());
    QApplication::processEvents();
    return milliseconds([view, bar] {
        while (bar->value() < bar->maximum()) {
            bar->setValue(bar->value() + bar->pageStep());
            view->viewport()->repaint();
        }
    });
}

/// Line by line, a hundred of them.
double lines(QTreeView *view)
{
    QScrollBar *bar = view->verticalScrollBar();
    bar->setValue(bar->minimum());
    QApplication::processEvents();
    return milliseconds([view, bar] {
        for (int line = 1; line <= 100; ++line) {
            bar->setValue(line);
            view->viewport()->repaint();
        }
    });
}

void print(const char *what, const QVector<double> &ours, const QVector<double> &plain)
{
    std::printf("%-48s %9.2f %9.2f %8.2f x   %s\n", what, median(ours), median(plain),
                median(ours) / median(plain), "at most 1.2 x");
}

void scroll(bool read, const char *what)
{
    LoopbackAccount account;
    TestConnectorPlugin plugin(&account.core());
    HMessageManager *manager = plugin.connector()->messages();
    manager->setAccount(QStringLiteral("demo"));
    fill(*manager, read);
    CVMessagesToolWidget dock(plugin.connector(), nullptr);
    auto *ours = dock.findChild<MessageTreeView *>();
    dock.resize(panelSize);
    dock.show();

    QStandardItemModel texts;
    copyTexts(*manager, texts);
    QTreeView plain;
    plain.setHeaderHidden(true);
    plain.setModel(&texts);
    QFont font = plain.font();
    font.setBold(!read);
    plain.setFont(font);
    plain.resize(panelSize);
    plain.show();
    for (int column = 0; column < texts.columnCount(); ++column)
        plain.setColumnWidth(column, ours->columnWidth(column));

    QVector<double> oursByPages;
    QVector<double> oursByLines;
    QVector<double> plainByPages;
    QVector<double> plainByLines;
    for (int round = 0; round < rounds; ++round) {
        oursByPages.append(pages(ours));
        plainByPages.append(pages(&plain));
        oursByLines.append(lines(ours));
        plainByLines.append(lines(&plain));
    }
    std::printf("%s, %d rows\n", what, texts.rowCount());
    print("  through all rows by pages", oursByPages, plainByPages);
    print("  through a hundred rows by lines", oursByLines, plainByLines);
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::printf("%-48s %9s %9s %10s   %s\n", "messages panel, ms", "ours", "plain", "ratio", "reach");
    scroll(true, "10,000 messages, all read");
    scroll(false, "10,000 messages, all unread");
    return 0;
}
