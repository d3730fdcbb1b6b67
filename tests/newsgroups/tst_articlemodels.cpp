// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "articlefiltermodel.h"
#include "articlelistmodel.h"

#include <halvora/stringformat.h>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QtTest>

class TestArticleModels : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void theNewestArticleComesFirst();
    void olderArticlesAreMergedByTheirDates();
    void articlesOfTheSameDateKeepTheirOrder();
    void onlyTheChosenKindIsShown();
    void aRowSaysWhatIsKnown();
    void aRowSaysNothingOfWhatIsNotKnown();
    void sizesAreSortedAsNumbers();
    void articlesThatAreReplacedAreGone();

private:
    static Article article(const QString &subject, qint64 date, qint64 number = 1);
    QStringList subjects() const;

    std::unique_ptr<ArticleListModel> m_articles;
    std::unique_ptr<ArticleFilterModel> m_shown;
    std::unique_ptr<QAbstractItemModelTester> m_articlesTester;
    std::unique_ptr<QAbstractItemModelTester> m_shownTester;
};

void TestArticleModels::init()
{
    m_shownTester.reset();
    m_articlesTester.reset();
    m_shown = std::make_unique<ArticleFilterModel>();
    m_articles = std::make_unique<ArticleListModel>();
    m_shown->setSourceModel(m_articles.get());
    const auto mode = QAbstractItemModelTester::FailureReportingMode::Fatal;
    m_articlesTester = std::make_unique<QAbstractItemModelTester>(m_articles.get(), mode);
    m_shownTester = std::make_unique<QAbstractItemModelTester>(m_shown.get(), mode);
}

Article TestArticleModels::article(const QString &subject, qint64 date, qint64 number)
{
    Article article;
    article.subject = subject;
    article.date = date;
    article.number = number;
    return article;
}

QStringList TestArticleModels::subjects() const
{
    QStringList texts;
    for (int row = 0; row < m_shown->rowCount(); ++row)
        texts.append(m_shown->index(row, ArticleListModel::SubjectColumn).data().toString());
    return texts;
}

void TestArticleModels::theNewestArticleComesFirst()
{
    m_articles->setArticles({article(QStringLiteral("b"), 20),
                             article(QStringLiteral("none"), Article::noDate),
                             article(QStringLiteral("c"), 30), article(QStringLiteral("a"), 10)});
    QCOMPARE(subjects(), (QStringList{QStringLiteral("c"), QStringLiteral("b"), QStringLiteral("a"),
                                      QStringLiteral("none")}));
}

void TestArticleModels::olderArticlesAreMergedByTheirDates()
{
    m_articles->setArticles({article(QStringLiteral("d"), 40), article(QStringLiteral("b"), 20)});
    m_articles->addArticles({});
    m_articles->addArticles({article(QStringLiteral("c"), 30), article(QStringLiteral("a"), 10)});
    QCOMPARE(subjects().join(QString()), QStringLiteral("dcba"));
}

void TestArticleModels::articlesOfTheSameDateKeepTheirOrder()
{
    m_articles->setArticles({article(QStringLiteral("2"), 10, 2), article(QStringLiteral("3"), 10, 3),
                             article(QStringLiteral("1"), 10, 1)});
    QCOMPARE(subjects().join(QString()), QStringLiteral("321"));
}

void TestArticleModels::onlyTheChosenKindIsShown()
{
    m_articles->setArticles({article(QStringLiteral("a \"a.jpg\" yEnc (1/2)"), 30),
                             article(QStringLiteral("text"), 20), article(QStringLiteral("b (1/2)"), 10)});
    QCOMPARE(m_shown->rowCount(), 3);
    m_shown->setKind(ArticleFilterModel::FilesOnly);
    QCOMPARE(m_shown->rowCount(), 2);
    m_shown->setKind(ArticleFilterModel::TextsOnly);
    QCOMPARE(subjects(), QStringList{QStringLiteral("text")});
    m_articles->addArticles({article(QStringLiteral("older"), 5), article(QStringLiteral("c (1/2)"), 4)});
    QCOMPARE(subjects(), (QStringList{QStringLiteral("text"), QStringLiteral("older")}));
    m_shown->setKind(ArticleFilterModel::AllArticles);
    QCOMPARE(m_shown->rowCount(), 5);
}

void TestArticleModels::aRowSaysWhatIsKnown()
{
    Article one = article(QStringLiteral("<b>subject</b>"), 1'707'209'377);
    one.poster = QStringLiteral("Ines");
    one.newsgroup = QStringLiteral("alt.binaries.pictures.nature");
    one.bytes = 1536;
    m_articles->setArticles({one});
    const auto text = [this](int column) { return m_articles->index(0, column).data().toString(); };
    QCOMPARE(text(ArticleListModel::SubjectColumn), one.subject);
    QCOMPARE(text(ArticleListModel::PosterColumn), one.poster);
    QCOMPARE(text(ArticleListModel::NewsgroupColumn), QStringLiteral("a.b.p.nature"));
    QCOMPARE(text(ArticleListModel::DateColumn),
             StringFormat::dateTime(QDateTime::fromSecsSinceEpoch(one.date), StringFormat::ShortDateTime));
    QCOMPARE(text(ArticleListModel::SizeColumn), QStringLiteral("1.5 KiB"));
    const QString toolTip = m_articles->index(0, 0).data(Qt::ToolTipRole).toString();
    QCOMPARE(toolTip.section(QLatin1Char('\n'), 0, 2),
             QStringLiteral("<b>subject</b>\nInes\nalt.binaries.pictures.nature"));
}

void TestArticleModels::aRowSaysNothingOfWhatIsNotKnown()
{
    m_articles->setArticles({Article()});
    QCOMPARE(m_articles->index(0, ArticleListModel::SubjectColumn).data().toString(),
             QStringLiteral("(no subject)"));
    for (const int column : {ArticleListModel::PosterColumn, ArticleListModel::NewsgroupColumn,
                             ArticleListModel::DateColumn, ArticleListModel::SizeColumn})
        QCOMPARE(m_articles->index(0, column).data().toString(), QString());
}

void TestArticleModels::sizesAreSortedAsNumbers()
{
    QVector<Article> articles{article(QStringLiteral("b"), 1), article(QStringLiteral("c"), 2),
                              article(QStringLiteral("a"), 3)};
    articles[0].bytes = 9000;
    articles[1].bytes = 10'000'000;
    articles[2].bytes = 90;
    m_articles->setArticles(articles);
    m_shown->sort(ArticleListModel::SizeColumn, Qt::AscendingOrder);
    QCOMPARE(subjects().join(QString()), QStringLiteral("abc"));
}

void TestArticleModels::articlesThatAreReplacedAreGone()
{
    m_articles->setArticles({article(QStringLiteral("a"), 1), article(QStringLiteral("b"), 2)});
    m_articles->setArticles({article(QStringLiteral("c"), 3)});
    QCOMPARE(subjects(), QStringList{QStringLiteral("c")});
}

QTEST_MAIN(TestArticleModels)
#include "tst_articlemodels.moc"
