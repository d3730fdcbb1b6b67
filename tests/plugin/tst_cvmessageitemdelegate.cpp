// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "messagespanel.h"

#include "panels/cvmessageitemdelegate.h"
#include "panels/messagetreeview.h"

#include <halvora/hmessage.h>
#include <halvora/hmessagemanager.h>
#include <halvora/hpixmaps.h>

#include <QCursor>
#include <QPainter>
#include <QTest>

namespace {

constexpr int deleteColumn = 2;
constexpr QSize cellSize(20, 25); // an odd rest above and below the cross
constexpr int crossSide = 16;
constexpr int crossTop = 4;

QString drawing()
{
    return QStringLiteral(":/svg/delete.svg");
}

QPixmap hoverCross()
{
    return hSvgPixmap(drawing(), crossSide);
}

QPixmap normalCross()
{
    return hSvgPixmapExt(drawing(), crossSide, crossSide, false);
}

/// Knows the parts of a widget that were painted.
class PaintNotes final : public QObject {
public:
    explicit PaintNotes(QWidget *widget)
        : QObject(widget)
    {
        widget->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent *>(event)->region();
        return QObject::eventFilter(watched, event);
    }

    QRegion painted;
};

} // namespace

/// How the crosses of the messages panel are painted.
class TestCVMessageItemDelegate : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void theTwoCrossesDiffer();
    void theCrossStandsOutUnderThePointer_data();
    void theCrossStandsOutUnderThePointer();
    void theCrossIsInTheMiddleOfItsHeight_data();
    void theCrossIsInTheMiddleOfItsHeight();
    void aSelectionIsBehindTheCross();
    void aMessageThatCanNotBeDeletedHasNoCross();
    void otherColumnsAreTheBasesOwn_data();
    void otherColumnsAreTheBasesOwn();
    void theSizeIsTheBasesOwn();
    void thePointersWayPaintsTheCrossesAnew();

private:
    QRect cellArea(int height = cellSize.height()) const
    {
        return {QPoint(40, 30), QSize(cellSize.width(), height)};
    }
    QStyleOptionViewItem option(QStyle::State state = QStyle::State_Enabled,
                                int height = cellSize.height()) const;
    QImage blank() const;
    QImage paint(const QModelIndex &index, const QStyleOptionViewItem &option) const;
    QImage plain(const QModelIndex &index, const QStyleOptionViewItem &option) const;
    /// The style's panel with @p cross, at its place, on it.
    QImage drawn(const QStyleOptionViewItem &option, const QPixmap &cross, int top = crossTop) const;
    void point(const QPoint &inViewport) const
    {
        QCursor::setPos(m_panel->view()->viewport()->mapToGlobal(inViewport));
    }
    CVMessageItemDelegate *delegate() const
    {
        return qobject_cast<CVMessageItemDelegate *>(m_panel->view()->itemDelegate());
    }

    std::unique_ptr<MessagesPanel> m_panel;
};

void TestCVMessageItemDelegate::init()
{
    m_panel = std::make_unique<MessagesPanel>();
    QVERIFY2(m_panel->account().problem().isEmpty(), qPrintable(m_panel->account().problem()));
    m_panel->fill(3);
    point({5, 5});
}

void TestCVMessageItemDelegate::cleanup()
{
    m_panel.reset();
}

QStyleOptionViewItem TestCVMessageItemDelegate::option(QStyle::State state, int height) const
{
    QStyleOptionViewItem option;
    option.initFrom(m_panel->view());
    option.widget = m_panel->view();
    option.rect = cellArea(height);
    option.state = state | QStyle::State_Active;
    option.showDecorationSelected = true;
    return option;
}

QImage TestCVMessageItemDelegate::blank() const
{
    const qreal ratio = qApp->devicePixelRatio();
    QImage image(QSize(120, 100) * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    return image;
}

QImage TestCVMessageItemDelegate::paint(const QModelIndex &index, const QStyleOptionViewItem &option) const
{
    QImage image = blank();
    QPainter painter(&image);
    delegate()->paint(&painter, option, index);
    return image;
}

QImage TestCVMessageItemDelegate::plain(const QModelIndex &index, const QStyleOptionViewItem &option) const
{
    QImage image = blank();
    QPainter painter(&image);
    QStyledItemDelegate().paint(&painter, option, index);
    return image;
}

QImage TestCVMessageItemDelegate::drawn(const QStyleOptionViewItem &option, const QPixmap &cross,
                                        int top) const
{
    QImage image = blank();
    QPainter painter(&image);
    m_panel->view()->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, &painter, m_panel->view());
    painter.drawPixmap(option.rect.topLeft() + QPoint(0, top), cross);
    return image;
}

void TestCVMessageItemDelegate::theTwoCrossesDiffer()
{
    QVERIFY(!hoverCross().isNull());
    QVERIFY(hoverCross().toImage() != normalCross().toImage());
    QCOMPARE(hoverCross().size() / hoverCross().devicePixelRatio(), QSize(crossSide, crossSide));
}

void TestCVMessageItemDelegate::theCrossStandsOutUnderThePointer_data()
{
    QTest::addColumn<QPoint>("pointer");
    QTest::addColumn<bool>("hover");
    const QRect area = cellArea();
    QTest::newRow("in the middle") << area.center() << true;
    QTest::newRow("at the first point") << area.topLeft() << true;
    QTest::newRow("at the last point") << area.bottomRight() << true;
    QTest::newRow("beside the cross") << QPoint(area.right() - 1, area.top() + 1) << true;
    QTest::newRow("left of it") << QPoint(area.left() - 1, area.center().y()) << false;
    QTest::newRow("right of it") << QPoint(area.right() + 1, area.center().y()) << false;
    QTest::newRow("above") << QPoint(area.center().x(), area.top() - 1) << false;
    QTest::newRow("below") << QPoint(area.center().x(), area.bottom() + 1) << false;
}

void TestCVMessageItemDelegate::theCrossStandsOutUnderThePointer()
{
    QFETCH(QPoint, pointer);
    QFETCH(bool, hover);
    point(pointer);
    const QImage image = paint(m_panel->cell(0, deleteColumn), option());
    QCOMPARE(image, drawn(option(), hover ? hoverCross() : normalCross()));
    QVERIFY(image != blank());
}

void TestCVMessageItemDelegate::theCrossIsInTheMiddleOfItsHeight_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("top");
    QTest::newRow("as high as the cross") << 16 << 0;
    QTest::newRow("one more") << 17 << 0;
    QTest::newRow("two more") << 18 << 1;
    QTest::newRow("lower than the cross") << 12 << -2;
    QTest::newRow("lower by an odd number") << 13 << -1;
}

void TestCVMessageItemDelegate::theCrossIsInTheMiddleOfItsHeight()
{
    QFETCH(int, height);
    QFETCH(int, top);
    const QStyleOptionViewItem cell = option(QStyle::State_Enabled, height);
    QCOMPARE(paint(m_panel->cell(0, deleteColumn), cell), drawn(cell, normalCross(), top));
}

void TestCVMessageItemDelegate::aSelectionIsBehindTheCross()
{
    const QStyleOptionViewItem cell = option(QStyle::State_Enabled | QStyle::State_Selected);
    const QImage image = paint(m_panel->cell(0, deleteColumn), cell);
    QCOMPARE(image, drawn(cell, normalCross()));
    const qreal ratio = image.devicePixelRatio();
    const QPoint beside(cell.rect.right() - 1, cell.rect.top() + 2);
    QCOMPARE(image.pixelColor(beside * ratio), cell.palette.color(QPalette::Highlight));
}

void TestCVMessageItemDelegate::aMessageThatCanNotBeDeletedHasNoCross()
{
    m_panel->receive(numberedMessage(-1, false));
    const QModelIndex index = m_panel->cell(m_panel->uids().indexOf(QStringLiteral("m-1")), deleteColumn);
    QVERIFY(index.isValid());
    point(cellArea().center());
    QCOMPARE(paint(index, option()), plain(index, option()));
    QVERIFY(paint(index, option()) != drawn(option(), hoverCross()));
}

void TestCVMessageItemDelegate::otherColumnsAreTheBasesOwn_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("text") << 0;
    QTest::newRow("date") << 1;
}

void TestCVMessageItemDelegate::otherColumnsAreTheBasesOwn()
{
    QFETCH(int, column);
    const QModelIndex index = m_panel->cell(0, column);
    point(cellArea().center());
    QStyleOptionViewItem cell = option();
    cell.rect.setWidth(80);
    QCOMPARE(paint(index, cell), plain(index, cell));
    QVERIFY(paint(index, cell) != blank());
}

void TestCVMessageItemDelegate::theSizeIsTheBasesOwn()
{
    for (int column = 0; column <= deleteColumn; ++column) {
        const QModelIndex index = m_panel->cell(0, column);
        QCOMPARE(delegate()->sizeHint(option(), index), QStyledItemDelegate().sizeHint(option(), index));
    }
}

void TestCVMessageItemDelegate::thePointersWayPaintsTheCrossesAnew()
{
    QWidget *viewport = m_panel->view()->viewport();
    const QRect first = m_panel->view()->visualRect(m_panel->cell(0, deleteColumn));
    const QRect second = m_panel->view()->visualRect(m_panel->cell(1, deleteColumn));
    PaintNotes notes(viewport);
    QTest::mouseMove(viewport, first.center());
    QTRY_VERIFY_WITH_TIMEOUT(notes.painted.intersects(first), 60'000);
    notes.painted = QRegion();
    QTest::mouseMove(viewport, second.center());
    QTRY_VERIFY_WITH_TIMEOUT(notes.painted.intersects(first) && notes.painted.intersects(second), 60'000);
}

QTEST_MAIN(TestCVMessageItemDelegate)
#include "tst_cvmessageitemdelegate.moc"
