// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "words.h"

#include "bookmarks/bookmarkitemdelegate.h"

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QTest>
#include <QWidget>

namespace {

constexpr QRect row(10, 10, 200, 20);
constexpr QPoint bare(190, 20); // behind the text

QColor blended(const QColor &color, const QColor &ground)
{
    const auto mix = [](int above, int below) { return (above * 200 + below * 55) / 255; };
    return {mix(color.red(), ground.red()), mix(color.green(), ground.green()),
            mix(color.blue(), ground.blue())};
}

bool isNear(const QColor &one, const QColor &other)
{
    return qAbs(one.red() - other.red()) <= 2 && qAbs(one.green() - other.green()) <= 2 &&
           qAbs(one.blue() - other.blue()) <= 2;
}

// Draws as the style of the program and notes what is asked of it, and what was painted by then.
class NotingStyle : public QProxyStyle {
public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_PanelItemViewItem && m_depth == 0)
            note("panel", painter);
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_ItemViewItem)
            note("row", painter);
        ++m_depth;
        QProxyStyle::drawControl(element, option, painter, widget);
        --m_depth;
    }

    mutable QByteArrayList steps;
    mutable QVector<QColor> colors;

private:
    void note(const char *step, const QPainter *painter) const
    {
        steps.append(step);
        colors.append(static_cast<const QImage *>(painter->device())->pixelColor(bare));
    }

    mutable int m_depth = 0;
};

} // namespace

class TestBookmarkItemDelegate : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void aRowWithoutColourIsTheStylesOwn_data();
    void aRowWithoutColourIsTheStylesOwn();
    void aBookmarkHasItsColourBehindIt_data();
    void aBookmarkHasItsColourBehindIt();
    void theColourHasRoundCorners();
    void iconAndTextAreAboveTheColour();
    void aFolderHasNoColourBehindIt();
    void theColourComesBetweenPanelAndRow_data();
    void theColourComesBetweenPanelAndRow();
    void aSelectionIsPaintedOverTheColour();
    void theStyleIsTheWidgetsOrElseTheApplications();
    void thePainterIsLeftAsItWas();
    void aRowIsAsHighAsTheModelSays();

private:
    QStyleOptionViewItem option(QStyle::State state = QStyle::State_Enabled) const;
    QImage paint(const QStyledItemDelegate &delegate, const QStyleOptionViewItem &option,
                 const QModelIndex &index) const;
    QImage paint(const QModelIndex &index, QStyle::State state = QStyle::State_Enabled) const
    {
        return paint(*m_delegate, option(state), index);
    }
    /// By Qt's own delegate.
    QImage plain(const QModelIndex &index, QStyle::State state = QStyle::State_Enabled) const
    {
        return paint(QStyledItemDelegate(), option(state), index);
    }
    QModelIndex folder() const { return m_store->at({0}); }
    QModelIndex bookmark() const { return m_store->at({0, 0}); }
    void setColor(const QModelIndex &index, const char *name) const
    {
        m_store->model().setItemColor(index, QString::fromLatin1(name));
    }

    std::unique_ptr<BookmarkStore> m_store;
    std::unique_ptr<BookmarkItemDelegate> m_delegate;
    QWidget m_widget;
};

void TestBookmarkItemDelegate::init()
{
    m_store = std::make_unique<BookmarkStore>();
    m_store->model().addBookmarks(words("alt.test"), m_store->addFolder(QStringLiteral("folder")));
    m_delegate = std::make_unique<BookmarkItemDelegate>(&m_store->model());
}

void TestBookmarkItemDelegate::cleanup()
{
    m_widget.setStyle(nullptr);
    m_delegate.reset();
    m_store.reset();
}

QStyleOptionViewItem TestBookmarkItemDelegate::option(QStyle::State state) const
{
    QStyleOptionViewItem option;
    option.initFrom(&m_widget);
    option.widget = &m_widget;
    option.rect = row;
    option.state = state | QStyle::State_Active;
    option.decorationSize = QSize(16, 16);
    option.showDecorationSelected = true;
    return option;
}

QImage TestBookmarkItemDelegate::paint(const QStyledItemDelegate &delegate,
                                       const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    QImage image(220, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    delegate.paint(&painter, option, index);
    return image;
}

void TestBookmarkItemDelegate::aRowWithoutColourIsTheStylesOwn_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("as it is") << int(QStyle::State_Enabled);
    QTest::newRow("selected") << int(QStyle::State_Enabled | QStyle::State_Selected);
    QTest::newRow("under the pointer") << int(QStyle::State_Enabled | QStyle::State_MouseOver);
    QTest::newRow("current") << int(QStyle::State_Enabled | QStyle::State_HasFocus);
    QTest::newRow("disabled") << int(QStyle::State_None);
}

void TestBookmarkItemDelegate::aRowWithoutColourIsTheStylesOwn()
{
    QFETCH(int, state);
    const QImage image = paint(bookmark(), QStyle::State(state));
    QCOMPARE(image, plain(bookmark(), QStyle::State(state)));
    QImage empty(image.size(), image.format());
    empty.fill(Qt::white);
    QVERIFY(image != empty);
    setColor(bookmark(), "red");
    setColor(bookmark(), "");
    QCOMPARE(paint(bookmark(), QStyle::State(state)), image);
}

void TestBookmarkItemDelegate::aBookmarkHasItsColourBehindIt_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QColor>("color");
    QTest::newRow("yellow") << QByteArray("yellow") << QColor(255, 255, 0);
    QTest::newRow("orange") << QByteArray("orange") << QColor(244, 155, 30);
    QTest::newRow("red") << QByteArray("red") << QColor(255, 0, 0);
    QTest::newRow("gray") << QByteArray("gray") << QColor(160, 160, 164);
    QTest::newRow("green") << QByteArray("green") << QColor(0, 255, 0);
    QTest::newRow("cyan") << QByteArray("cyan") << QColor(0, 255, 255);
    QTest::newRow("brown") << QByteArray("brown") << QColor(177, 148, 67);
    QTest::newRow("blue") << QByteArray("blue") << QColor(0, 0, 255);
}

void TestBookmarkItemDelegate::aBookmarkHasItsColourBehindIt()
{
    QFETCH(QByteArray, name);
    QFETCH(QColor, color);
    setColor(bookmark(), name.constData());
    const QImage image = paint(bookmark());
    const QColor expected = blended(color, Qt::white);
    for (const QPoint &point : {bare, row.center(), QPoint(row.left(), 20), QPoint(row.right(), 20),
                                QPoint(180, row.top()), QPoint(180, row.bottom())})
        QVERIFY2(isNear(image.pixelColor(point), expected), qPrintable(image.pixelColor(point).name()));
    for (const QPoint &point : {QPoint(row.left() - 1, 20), QPoint(row.right() + 1, 20),
                                QPoint(180, row.top() - 1), QPoint(180, row.bottom() + 1)})
        QCOMPARE(image.pixelColor(point), QColor(Qt::white));
}

// Of a radius of five: the fifth point of an edge is not quite full, the sixth is.
void TestBookmarkItemDelegate::theColourHasRoundCorners()
{
    setColor(bookmark(), "blue");
    const QImage image = paint(bookmark()).copy(row);
    const QVector<QImage> turned = {image, image.mirrored(true, false), image.mirrored(false, true),
                                    image.mirrored(true, true)};
    const QColor full = image.pixelColor(bare - row.topLeft());
    for (const QImage &side : turned) {
        QCOMPARE(side.pixelColor(0, 0), QColor(Qt::white));
        QVERIFY(side.pixelColor(1, 1).red() > full.red() && side.pixelColor(1, 1).red() < 255);
        QCOMPARE(side.pixelColor(3, 1), full);
        QVERIFY(side.pixelColor(4, 0).red() > full.red() && side.pixelColor(4, 0).red() < 90);
        QVERIFY(side.pixelColor(0, 4).red() > full.red() && side.pixelColor(0, 4).red() < 90);
        QCOMPARE(side.pixelColor(5, 0), full);
        QCOMPARE(side.pixelColor(0, 5), full);
    }
}

void TestBookmarkItemDelegate::iconAndTextAreAboveTheColour()
{
    const QImage before = paint(bookmark());
    setColor(bookmark(), "yellow");
    const QImage image = paint(bookmark());
    const QIcon icon(bookmark().data(Qt::DecorationRole).value<QPixmap>());
    const QImage drawing = icon.pixmap(16, 16).toImage();
    int opaque = 0;
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            opaque += drawing.pixelColor(x, y).alpha() == 255;
    }
    int same = 0;
    int text = 0;
    for (int y = row.top(); y <= row.bottom(); ++y) {
        for (int x = row.left(); x <= row.right(); ++x) {
            const QColor color = before.pixelColor(x, y);
            if (color == image.pixelColor(x, y) && color != QColor(Qt::white))
                ++(x < row.left() + 20 ? same : text);
        }
    }
    QVERIFY(opaque > 20);
    QVERIFY2(same >= opaque, qPrintable(QString::number(same)));
    QVERIFY(text > 5);
}

void TestBookmarkItemDelegate::aFolderHasNoColourBehindIt()
{
    setColor(folder(), "orange");
    QCOMPARE(paint(folder()), plain(folder()));
    QCOMPARE(paint(folder()).pixelColor(bare), QColor(Qt::white));
    const QStyle::State selected = QStyle::State_Enabled | QStyle::State_Selected;
    QCOMPARE(paint(folder(), selected), plain(folder(), selected));
}

void TestBookmarkItemDelegate::theColourComesBetweenPanelAndRow_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("as it is") << int(QStyle::State_Enabled);
    QTest::newRow("selected") << int(QStyle::State_Enabled | QStyle::State_Selected);
}

void TestBookmarkItemDelegate::theColourComesBetweenPanelAndRow()
{
    QFETCH(int, state);
    setColor(bookmark(), "orange");
    NotingStyle style;
    m_widget.setStyle(&style);
    const QStyleOptionViewItem shown = option(QStyle::State(state));
    paint(*m_delegate, shown, bookmark());
    QCOMPARE(style.steps, (QByteArrayList{"panel", "row"}));
    QCOMPARE(style.colors.first(), QColor(Qt::white));
    const bool selected = shown.state.testFlag(QStyle::State_Selected);
    const QColor ground = selected ? shown.palette.color(QPalette::Active, QPalette::Highlight) : Qt::white;
    const QColor color = style.colors.last();
    QVERIFY2(isNear(color, blended(QColor(244, 155, 30), ground)), qPrintable(color.name()));
    m_widget.setStyle(nullptr);
}

// The style fills a selected row once more before it draws icon and text.
void TestBookmarkItemDelegate::aSelectionIsPaintedOverTheColour()
{
    const QStyle::State selected = QStyle::State_Enabled | QStyle::State_Selected;
    setColor(bookmark(), "orange");
    QCOMPARE(paint(bookmark(), selected), plain(bookmark(), selected));
}

void TestBookmarkItemDelegate::theStyleIsTheWidgetsOrElseTheApplications()
{
    NotingStyle style;
    m_widget.setStyle(&style);
    paint(bookmark());
    QCOMPARE(style.steps.size(), 2);
    QStyleOptionViewItem alone = option();
    alone.widget = nullptr;
    const QImage image = paint(*m_delegate, alone, bookmark());
    QCOMPARE(style.steps.size(), 2);
    m_widget.setStyle(nullptr);
    QCOMPARE(image, paint(QStyledItemDelegate(), alone, bookmark()));
}

void TestBookmarkItemDelegate::thePainterIsLeftAsItWas()
{
    setColor(bookmark(), "red");
    QImage image(220, 40, QImage::Format_RGB32);
    QPainter painter(&image);
    const QPen pen(Qt::green, 3);
    painter.setPen(pen);
    painter.setBrush(Qt::Dense3Pattern);
    painter.setRenderHint(QPainter::Antialiasing, false);
    m_delegate->paint(&painter, option(), bookmark());
    QCOMPARE(painter.pen(), pen);
    QCOMPARE(painter.brush(), QBrush(Qt::Dense3Pattern));
    QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
}

void TestBookmarkItemDelegate::aRowIsAsHighAsTheModelSays()
{
    setColor(bookmark(), "red");
    QCOMPARE(m_delegate->sizeHint(option(), bookmark()), QSize(20, 20));
    QCOMPARE(m_delegate->sizeHint(option(), folder()), QSize(20, 20));
}

QTEST_MAIN(TestBookmarkItemDelegate)
#include "tst_bookmarkitemdelegate.moc"
