// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/extendedtreeview.h>

#include <QHelpEvent>
#include <QLabel>
#include <QSet>
#include <QStandardItemModel>
#include <QTextDocument>
#include <QThread>
#include <QToolTip>
#include <QtTest>

namespace {

/// A model that takes its time to say whether a row has children: one that reads a large file.
class SlowModel : public QStandardItemModel {
public:
    explicit SlowModel(int rows)
    {
        for (int row = 0; row < rows; ++row)
            appendRow(new QStandardItem(QString::number(row)));
    }
    bool hasChildren(const QModelIndex &parent) const override
    {
        const bool isFirst = parent.isValid() && !m_asked.contains(parent.row());
        if (isFirst) {
            m_asked.insert(parent.row());
            QThread::msleep(5);
        }
        return QStandardItemModel::hasChildren(parent);
    }
    int askedCount() const { return m_asked.size(); }

private:
    mutable QSet<int> m_asked;
};

class InTurns : public ExtendedTreeView {
public:
    explicit InTurns(bool inTurns) { setAskingInTurns(inTurns); }
};

} // namespace

class TestExtendedTreeView : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void markupInAToolTipIsShownAsItIs();
    void linesAndBlanksInAToolTipAreKept();
    void theToolTipOfNestedTablesIsCutOff();
    void withoutAToolTipNoneIsShown_data();
    void withoutAToolTipNoneIsShown();
    void keysDoWhatTheyDoInATree();
    void slowFoldersAreAskedInSeveralTurns_data();
    void slowFoldersAreAskedInSeveralTurns();

private:
    QString toolTipAt(const QPoint &position);
    QPoint middle() { return m_view->visualRect(m_model->index(0, 0)).center(); }

    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<ExtendedTreeView> m_view;
};

void TestExtendedTreeView::init()
{
    m_model = std::make_unique<QStandardItemModel>();
    m_model->appendRow(new QStandardItem(QStringLiteral("name")));
    m_model->appendRow(new QStandardItem(QStringLiteral("other")));
    m_view = std::make_unique<ExtendedTreeView>();
    m_view->setModel(m_model.get());
    m_view->resize(300, 200);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void TestExtendedTreeView::cleanup()
{
    QToolTip::hideText();
    m_view.reset();
    m_model.reset();
}

/// The tool tip that hovering brings up, as a person reads it.
QString TestExtendedTreeView::toolTipAt(const QPoint &position)
{
    QWidget *viewport = m_view->viewport();
    QHelpEvent event(QEvent::ToolTip, position, viewport->mapToGlobal(position));
    QApplication::sendEvent(viewport, &event);
    QTextDocument document;
    document.setHtml(QToolTip::text());
    return document.toPlainText();
}

void TestExtendedTreeView::markupInAToolTipIsShownAsItIs()
{
    const QString name = QStringLiteral("<b>bold</b> & <img src=x>");
    m_model->item(0)->setToolTip(name);
    QCOMPARE(toolTipAt(middle()), name);
}

void TestExtendedTreeView::linesAndBlanksInAToolTipAreKept()
{
    const auto shown = [this](const char *text) {
        m_model->item(0)->setToolTip(QString::fromLatin1(text));
        QToolTip::hideText();
        toolTipAt(middle());
        return QLabel(QToolTip::text()).sizeHint();
    };
    QVERIFY(shown("a\nb").height() > shown("a b").height());
    QVERIFY(shown("a   b").width() > shown("a b").width());
}

void TestExtendedTreeView::theToolTipOfNestedTablesIsCutOff()
{
    m_model->item(0)->setToolTip(QStringLiteral("<table><tr><td>").repeated(10'000));
    const QString shown = toolTipAt(middle());
    QVERIFY(shown.startsWith(QLatin1String("<table><tr><td>")));
    QVERIFY(shown.endsWith(QChar(0x2026)));
    QVERIFY(shown.size() < 3000);
}

void TestExtendedTreeView::withoutAToolTipNoneIsShown_data()
{
    QTest::addColumn<bool>("onRow");
    QTest::newRow("a row without one") << true;
    QTest::newRow("the empty area") << false;
}

void TestExtendedTreeView::withoutAToolTipNoneIsShown()
{
    QFETCH(bool, onRow);
    if (!onRow)
        m_model->item(0)->setToolTip(QStringLiteral("elsewhere"));
    const QPoint below = m_view->viewport()->rect().bottomRight() - QPoint(5, 5);
    QCOMPARE(toolTipAt(onRow ? middle() : below), QString());
}

void TestExtendedTreeView::keysDoWhatTheyDoInATree()
{
    m_view->setCurrentIndex(m_model->index(0, 0));
    QTest::keyClick(m_view.get(), Qt::Key_Down);
    QCOMPARE(m_view->currentIndex().row(), 1);
}

void TestExtendedTreeView::slowFoldersAreAskedInSeveralTurns_data()
{
    QTest::addColumn<bool>("inTurns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<bool>("isOneTurn");
    QTest::newRow("in turns") << true << 100 << false;
    QTest::newRow("a few rows") << true << 8 << true;
    QTest::newRow("at once") << false << 100 << true;
}

void TestExtendedTreeView::slowFoldersAreAskedInSeveralTurns()
{
    QFETCH(bool, inTurns);
    QFETCH(int, rows);
    QFETCH(bool, isOneTurn);
    SlowModel model(rows);
    InTurns view(inTurns);
    view.setModel(&model);
    view.show();
    view.doItemsLayout();
    QCOMPARE(model.askedCount() == rows, isOneTurn);
    QVERIFY(model.askedCount() >= 8);
    QTRY_COMPARE(model.askedCount(), rows);
    QTRY_VERIFY(view.visualRect(model.index(0, 0)).isValid());
}

QTEST_MAIN(TestExtendedTreeView)
#include "tst_extendedtreeview.moc"
