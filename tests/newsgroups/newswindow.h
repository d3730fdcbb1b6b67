// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include "serviceaccount.h"

#include <halvora/mainwindow.h>

#include <QAbstractItemView>
#include <QLabel>

/// A main window with the newsgroups panel of a provider that is pointed at a loopback service, as the
/// program puts them together.
class NewsWindow {
public:
    explicit NewsWindow(const std::string &scenario = corvia::demoScenario());
    ~NewsWindow();
    Q_DISABLE_COPY(NewsWindow)

    ServiceAccount &account() { return m_account; }
    MainWindow &window() { return *m_window; }
    /// Destroys the window; the provider stays.
    void closeWindow() { m_window.reset(); }
    /// Ends the program and starts it again over the same profile; the service goes on.
    void restart();
    bool logIn() { return m_account.logIn(); }

    /// The file in which the list of newsgroups is kept.
    QString cacheFile();

    template <typename T> static T *find(const QWidget *parent, const char *name)
    {
        return parent->findChild<T *>(QLatin1String(name));
    }
    template <typename T> T *find(const char *name) { return find<T>(m_window.get(), name); }
    QWidget *panel() { return find<QWidget>("NewsgroupsDock"); }
    QAbstractItemView *list() { return find<QAbstractItemView>("newsgroupList"); }
    QStringList names() { return texts(list(), 0); }
    QString summary() { return label(panel(), "summary"); }
    QString problem() { return label(panel(), "problem"); }

    /// The texts of a column, row by row.
    static QStringList texts(const QAbstractItemView *view, int column);
    /// What a label of @p parent says; nothing when it is hidden.
    static QString label(const QWidget *parent, const char *name);

private:
    void open();

    ServiceAccount m_account;
    std::unique_ptr<MainWindow> m_window;
};

/// A scenario of one account: @p servers and @p groups are what stands in these elements.
std::string newsScenario(const QString &servers, const QString &groups,
                         const QString &user = QStringLiteral("demo"),
                         const QString &password = QStringLiteral("pinegate"));
/// The element of a news server at @p port of this machine, without TLS.
QString plainServer(quint16 port);
