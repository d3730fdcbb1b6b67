// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/core.h>
#include <halvora/mainwindow.h>

#include <QLabel>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTimer>
#include <QtTest>

#include <cmath>

/// The line that says what is wrong for as long as it is.
class StatusLineTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void theLineIsThereUntilItIsPutRight();
    void aNoticeComesAndGoesBesideIt();
    void aLongLineIsCutOffAndToldWholeByItsToolTip();
    void aLineIsPlainText();
    void theLineIsReadEasily();

private:
    template <typename T> T *part(const char *name) const
    {
        return m_window->findChild<T *>(QString::fromLatin1(name));
    }
    QLabel *line() const { return part<QLabel>("halvora.lastingNotice"); }

    QTemporaryDir m_profile;
    std::unique_ptr<Core> m_core;
    std::unique_ptr<MainWindow> m_window;
};

namespace {

QString full()
{
    return QStringLiteral("Bookmarks are not being saved: the disk is full");
}

double luminance(const QColor &color)
{
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

} // namespace

void StatusLineTest::init()
{
    m_window.reset();
    m_core = std::make_unique<Core>(m_profile.path());
    m_window = std::make_unique<MainWindow>(m_core.get());
    m_window->resize(900, 500);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
}

void StatusLineTest::theLineIsThereUntilItIsPutRight()
{
    QVERIFY(!line()->isVisible());
    m_window->showLastingNotice(full());
    QVERIFY(line()->isVisible());
    QCOMPARE(line()->text(), full());
    m_window->showLastingNotice(QStringLiteral("Something else is wrong."));
    QCOMPARE(line()->text(), QStringLiteral("Something else is wrong."));
    m_window->showLastingNotice(QString());
    QVERIFY(!line()->isVisible());
}

void StatusLineTest::aNoticeComesAndGoesBesideIt()
{
    m_window->showLastingNotice(full());
    m_window->showNotice(QStringLiteral("The report was saved."));
    QVERIFY(line()->isVisible());
    QCOMPARE(part<QLabel>("halvora.notice")->text(), QStringLiteral("The report was saved."));
    part<QTimer>("halvora.noticeTimer")->start(0);
    QTRY_VERIFY(part<QLabel>("halvora.notice")->text().isEmpty());
    QVERIFY(line()->isVisible());
    QCOMPARE(line()->text(), full());
    m_window->showNotice(QStringLiteral("The report was saved."));
    m_window->showLastingNotice(QString());
    QCOMPARE(part<QLabel>("halvora.notice")->text(), QStringLiteral("The report was saved."));
}

void StatusLineTest::aLongLineIsCutOffAndToldWholeByItsToolTip()
{
    const int least = m_window->minimumSizeHint().width();
    const QString sentence = QStringLiteral("word ").repeated(200).trimmed();
    m_window->showLastingNotice(sentence);
    m_window->showNotice(sentence);
    QCoreApplication::processEvents();
    QVERIFY(m_window->minimumSizeHint().width() <= least + 200);
    QCOMPARE(m_window->width(), 900);
    for (const char *name : {"halvora.stateText", "halvora.lastingNotice", "halvora.connectionGraph"}) {
        const auto *widget = part<QWidget>(name);
        QVERIFY2(widget->isVisible() && widget->width() > 20, name);
        QVERIFY2(m_window->rect().contains(widget->mapTo(m_window.get(), widget->rect().bottomRight())),
                 name);
    }
    const auto *state = part<QLabel>("halvora.stateText");
    QTRY_VERIFY(state->width() >= state->fontMetrics().horizontalAdvance(state->text()));
    QTextDocument document;
    document.setHtml(line()->toolTip());
    QCOMPARE(document.toPlainText(), sentence);
}

void StatusLineTest::aLineIsPlainText()
{
    const QString evil = QStringLiteral("<h1>Disk</h1><img src=\"/etc/passwd\">");
    m_window->showLastingNotice(evil);
    QCOMPARE(line()->textFormat(), Qt::PlainText);
    QTextDocument document;
    document.setHtml(line()->toolTip());
    QCOMPARE(document.toPlainText(), evil);
}

void StatusLineTest::theLineIsReadEasily()
{
    m_window->showLastingNotice(full());
    QVERIFY(line()->autoFillBackground());
    const double text = luminance(line()->palette().color(line()->foregroundRole()));
    const double ground = luminance(line()->palette().color(line()->backgroundRole()));
    QVERIFY((text + 0.05) / (ground + 0.05) >= 4.5);
    QVERIFY(line()->width() >= line()->fontMetrics().horizontalAdvance(full()));
    const QImage picture = line()->grab().toImage();
    QCOMPARE(picture.pixelColor(1, 1), line()->palette().color(line()->backgroundRole()));
}

QTEST_MAIN(StatusLineTest)
#include "tst_statusline.moc"
