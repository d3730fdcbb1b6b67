// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#pragma once

#include <halvora/hindex.h>
#include <halvora/newsgroup.h>

#include <QList>
#include <QWidget>

class ArticleFilterModel;
class ArticleList;
class ArticleListModel;
class ConnectorPlugin;
class ExtendedTreeView;
class LoadLine;
class QComboBox;
class QPushButton;
class QToolButton;

/// A page with the articles of one newsgroup, or of several together, the newest first; older ones are loaded
/// as one scrolls. GUI thread.
class HNewsgroupPanel final : public QWidget {
    Q_OBJECT
public:
    /// @p plugin outlives the page. Loads the newest articles at once.
    HNewsgroupPanel(ConnectorPlugin *plugin, const QString &title, const QList<Newsgroup> &newsgroups);
    ~HNewsgroupPanel() override;

    /// The object name of the page for these newsgroups under this title.
    static QString pageName(const QString &title, const QList<Newsgroup> &newsgroups);

    /// Begins with the articles that @p facet stands for; the others are a choice away.
    void setFacet(HIndex::MediaFacet facet);
    void reload();
    /// The same, if the last attempt failed.
    void reloadAfterFailure();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void build(bool hasSeveral);
    void buildView(bool hasSeveral);
    void arrangeColumns();
    void resizeColumn(int column, const QString &widest);
    void connectParts();
    void takeKind();
    void loadWhenNeeded();
    bool isEndInSight() const;
    void updateLine();
    QString summary() const;
    void retranslate();

    const int m_newsgroups;
    ArticleList *m_list;
    ArticleListModel *m_articles;
    ArticleFilterModel *m_shown;
    QComboBox *m_kind;
    QToolButton *m_refresh;
    ExtendedTreeView *m_view;
    LoadLine *m_line;
    QPushButton *m_more;
    int m_invisiblePieces = 0; ///< loaded in a row without anything to see in them
};
