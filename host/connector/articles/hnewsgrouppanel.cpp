// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "hnewsgrouppanel.h"

#include "articlefiltermodel.h"
#include "articlelist.h"
#include "articlelistmodel.h"
#include "newsgroups/loadline.h"

#include <halvora/connectorplugin.h>
#include <halvora/extendedtreeview.h>
#include <halvora/stringformat.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QDateTime>
#include <QEvent>
#include <QHeaderView>
#include <QIcon>
#include <QLocale>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int mostInvisiblePieces = 3;

} // namespace

HNewsgroupPanel::HNewsgroupPanel(ConnectorPlugin *plugin, const QString &title,
                                 const QList<Newsgroup> &newsgroups)
    : m_newsgroups(newsgroups.size())
    , m_list(new ArticleList(plugin, newsgroups, this))
    , m_articles(new ArticleListModel(this))
    , m_shown(new ArticleFilterModel(this))
    , m_kind(new QComboBox(this))
    , m_refresh(new QToolButton(this))
    , m_view(new ExtendedTreeView(this))
    , m_line(new LoadLine(QBoxLayout::LeftToRight, this))
    , m_more(new QPushButton(this))
{
    setObjectName(pageName(title, newsgroups));
    setWindowTitle(title);
    m_shown->setSourceModel(m_articles);
    build(newsgroups.size() > 1);
    connectParts();
    retranslate();
    reload();
}

HNewsgroupPanel::~HNewsgroupPanel() = default;

QString HNewsgroupPanel::pageName(const QString &title, const QList<Newsgroup> &newsgroups)
{
    QString name = QStringLiteral("NewsgroupPage\n") + title;
    for (const Newsgroup &newsgroup : newsgroups)
        name += QLatin1Char('\n') + newsgroup.name();
    return name;
}

void HNewsgroupPanel::build(bool hasSeveral)
{
    m_kind->setObjectName(QStringLiteral("articleKind"));
    m_kind->view()->setObjectName(QStringLiteral("articleKinds"));
    m_kind->setSizeAdjustPolicy(QComboBox::AdjustToContents); // its texts change with the language
    for (int kind = 0; kind < 3; ++kind)
        m_kind->addItem(QString());
    m_refresh->setObjectName(QStringLiteral("refreshArticles"));
    m_refresh->setIcon(QIcon(QStringLiteral(":/icons/refresh.svg")));
    m_refresh->setAutoRaise(true);
    m_refresh->setFocusPolicy(Qt::StrongFocus);
    m_more->setObjectName(QStringLiteral("loadMore"));
    buildView(hasSeveral);
    setFocusProxy(m_view);

    auto *top = new QHBoxLayout;
    top->setSpacing(4);
    top->addWidget(m_kind);
    top->addStretch();
    top->addWidget(m_refresh);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(m_line, 1);
    bottom->addWidget(m_more, 0, Qt::AlignBottom);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    layout->addLayout(top);
    layout->addWidget(m_view, 1);
    layout->addLayout(bottom);
}

void HNewsgroupPanel::buildView(bool hasSeveral)
{
    m_view->setObjectName(QStringLiteral("articleList"));
    m_view->setRootIsDecorated(false);
    m_view->setItemsExpandable(false);
    m_view->setUniformRowHeights(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setAlternatingRowColors(true);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setSortingEnabled(true);
    m_view->sortByColumn(ArticleListModel::DateColumn, Qt::DescendingOrder);
    m_view->setModel(m_shown);
    QHeaderView *header = m_view->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    const QDateTime longDate(QDate(2000, 12, 30), QTime(20, 50, 50));
    resizeColumn(ArticleListModel::PosterColumn, QString(14, QLatin1Char('n')));
    resizeColumn(ArticleListModel::NewsgroupColumn, QString(14, QLatin1Char('n')));
    resizeColumn(ArticleListModel::DateColumn, StringFormat::dateTime(longDate, StringFormat::ShortDateTime));
    resizeColumn(ArticleListModel::SizeColumn, tr("1,000 bytes", "as wide as a size gets"));
    m_view->setColumnHidden(ArticleListModel::NewsgroupColumn, !hasSeveral);
}

// The subjects have what the other columns leave, but so much at least that they can be told apart.
void HNewsgroupPanel::arrangeColumns()
{
    QHeaderView *header = m_view->header();
    const int others = header->length() - header->sectionSize(ArticleListModel::SubjectColumn);
    const int least = fontMetrics().averageCharWidth() * 30;
    header->resizeSection(ArticleListModel::SubjectColumn, qMax(least, m_view->viewport()->width() - others));
}

void HNewsgroupPanel::resizeColumn(int column, const QString &widest)
{
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, m_view) + 1);
    m_view->header()->resizeSection(column, fontMetrics().horizontalAdvance(widest) + 2 * margin);
}

void HNewsgroupPanel::connectParts()
{
    connect(m_list, &ArticleList::restarted, m_articles, &ArticleListModel::setArticles);
    connect(m_list, &ArticleList::extended, m_articles, &ArticleListModel::addArticles);
    connect(m_list, &ArticleList::stateChanged, this, &HNewsgroupPanel::updateLine);
    connect(m_list, &ArticleList::restarted, this, [this] {
        m_view->scrollToTop();
        loadWhenNeeded();
    });
    connect(m_list, &ArticleList::extended, this, &HNewsgroupPanel::loadWhenNeeded);
    connect(m_view->verticalScrollBar(), &QScrollBar::valueChanged, this, [this] {
        m_invisiblePieces = 0;
        loadWhenNeeded();
    });
    // With the first articles too many for the page a scroll bar takes some of its width.
    connect(m_view->verticalScrollBar(), &QScrollBar::rangeChanged, this, &HNewsgroupPanel::arrangeColumns,
            Qt::QueuedConnection);
    connect(m_kind, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &HNewsgroupPanel::takeKind);
    connect(m_refresh, &QToolButton::clicked, this, &HNewsgroupPanel::reload);
    connect(m_more, &QPushButton::clicked, m_list, &ArticleList::loadMore);
    connect(m_line, &LoadLine::tryAgainRequested, m_list, &ArticleList::tryAgain);
}

void HNewsgroupPanel::setFacet(HIndex::MediaFacet facet)
{
    const auto kind = facet == HIndex::FileFacet   ? ArticleFilterModel::FilesOnly
                      : facet == HIndex::TextFacet ? ArticleFilterModel::TextsOnly
                                                   : ArticleFilterModel::AllArticles;
    m_kind->setCurrentIndex(kind);
}

void HNewsgroupPanel::reload()
{
    m_invisiblePieces = 0;
    m_list->reload();
}

void HNewsgroupPanel::reloadAfterFailure()
{
    if (m_list->state() == ArticleList::Failed)
        reload();
}

void HNewsgroupPanel::takeKind()
{
    m_shown->setKind(ArticleFilterModel::Kind(m_kind->currentIndex()));
    m_invisiblePieces = 0;
    updateLine();
    loadWhenNeeded();
}

// Within a page below what is seen. The view knows only where rows are once it was asked, and the scroll bar
// not even then.
bool HNewsgroupPanel::isEndInSight() const
{
    const QModelIndex last = m_shown->index(m_shown->rowCount() - 1, ArticleListModel::SubjectColumn);
    return !last.isValid() || m_view->visualRect(last).top() < 2 * m_view->viewport()->height();
}

// Whoever filters for what a newsgroup does not have would otherwise load all of it.
void HNewsgroupPanel::loadWhenNeeded()
{
    if (!isVisible() || m_list->state() != ArticleList::Idle || !m_list->hasMore() || !isEndInSight() ||
        m_invisiblePieces >= mostInvisiblePieces)
        return;
    ++m_invisiblePieces;
    m_list->loadMore();
}

void HNewsgroupPanel::updateLine()
{
    const QStringList problems = m_list->problems();
    const int progress = m_list->progress();
    if (m_list->state() == ArticleList::Failed)
        m_line->showProblem(m_list->message(), summary());
    else if (m_list->state() == ArticleList::Loading && !m_list->message().isEmpty())
        m_line->showProgress(m_list->message());
    else if (m_list->state() == ArticleList::Loading)
        m_line->showProgress(progress > 0 ? tr("%Ln articles loaded…", nullptr, progress)
                                          : tr("Loading articles…"));
    else if (!problems.isEmpty())
        m_line->showProblem(problems.join(QStringLiteral("; ")), summary());
    else
        m_line->showSummary(summary());
    m_more->setVisible(m_list->state() == ArticleList::Idle && m_list->hasMore());
}

QString HNewsgroupPanel::summary() const
{
    const int count = m_articles->rowCount();
    if (count > 0) {
        const QString shown =
            tr("%1 of %Ln articles shown", nullptr, count).arg(QLocale().toString(m_shown->rowCount()));
        return m_list->hasMore() ? tr("%1, older ones are on the server").arg(shown) : shown;
    }
    if (m_list->state() == ArticleList::Failed)
        return {};
    return m_newsgroups == 1 ? tr("There are no articles in this newsgroup.")
                             : tr("There are no articles in these newsgroups.");
}

void HNewsgroupPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        m_articles->retranslate();
    }
    QWidget::changeEvent(event);
}

void HNewsgroupPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    arrangeColumns();
    loadWhenNeeded();
}

// What was read while another page stood in front may fill less than this one.
void HNewsgroupPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    loadWhenNeeded();
}

void HNewsgroupPanel::retranslate()
{
    m_kind->setItemText(ArticleFilterModel::AllArticles, tr("All articles"));
    m_kind->setItemText(ArticleFilterModel::FilesOnly, tr("Files"));
    m_kind->setItemText(ArticleFilterModel::TextsOnly, tr("Texts"));
    m_kind->setAccessibleName(tr("Which articles are shown"));
    m_kind->view()->setAccessibleName(m_kind->accessibleName());
    m_view->setAccessibleName(tr("Articles"));
    m_refresh->setToolTip(tr("Load the newest articles again"));
    m_refresh->setAccessibleName(tr("Refresh"));
    m_more->setText(tr("Load More"));
    updateLine();
}
