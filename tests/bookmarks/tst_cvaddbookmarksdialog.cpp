// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include "bookmarkstore.h"
#include "marking.h"
#include "words.h"

#include "bookmarks/cvaddbookmarksdialog.h"
#include "bookmarks/cvbookmarkprovider.h"
#include "bookmarks/cvbookmarkstoolwidget.h"

#include <halvora/extendedtreeview.h>
#include <halvora/mainwindow.h>

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMetaMethod>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStyledItemDelegate>
#include <QTest>
#include <QVBoxLayout>

class TestCVAddBookmarksDialog : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();
    void anEmptyListOpensNoDialog();
    void theDialogOpensInFrontOfTheWindowAndWaitsForNobody();
    void theDialogShowsTheWholeTree();
    void everythingStandsInItsOrder();
    void theDialogHasOneSlot();
    void okWithNothingPickedAddsNothing();
    void theKeysAloneDoNotPick();
    void aResetForgetsWhatWasPicked();
    void theKeysAloneDoNotPickAfterAReset();
    void bookmarksGoWhereTheyWerePicked_data();
    void bookmarksGoWhereTheyWerePicked();
    void theProgramIsToldOfEachBookmark();
    void cancelAddsNothingAndDestroysTheDialog_data();
    void cancelAddsNothingAndDestroysTheDialog();
    void dialogsAreIndependent();
    void whatWasPickedMayBeRemoved();
    void aDialogWithoutAModelAddsNothing();
    void theWindowTakesItsDialogsAlong();
    void anotherLanguageReachesEveryText();

private:
    QModelIndex at(const QVector<int> &rows) const { return m_store->at(rows); }
    QStringList names(const QVector<int> &rows = {}) const { return m_store->names(at(rows)); }
    CVAddBookmarksDialog *open(const char *newsgroups = "x y");
    static ExtendedTreeView *tree(const QDialog *dialog) { return dialog->findChild<ExtendedTreeView *>(); }
    /// Picks with the pointer.
    static void pick(const QDialog *dialog, const QModelIndex &index);
    static void press(const QDialog *dialog, QDialogButtonBox::StandardButton button);

    std::unique_ptr<BookmarkStore> m_store;
    std::unique_ptr<MainWindow> m_window;
};

void TestCVAddBookmarksDialog::init()
{
    m_store = std::make_unique<BookmarkStore>();
    m_store->model().addBookmarks(words("a b"), m_store->addFolder(QStringLiteral("one")));
    m_store->model().addBookmarks(words("c"), m_store->addFolder(QStringLiteral("inner"), at({0})));
    m_store->addFolder(QStringLiteral("two"));
    m_store->check();
    m_window = std::make_unique<MainWindow>(&m_store->core());
    m_store->core().setMainWindow(m_window.get());
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TestCVAddBookmarksDialog::cleanup()
{
    m_window.reset();
    m_store.reset();
}

CVAddBookmarksDialog *TestCVAddBookmarksDialog::open(const char *newsgroups)
{
    const QWidgetList before = QApplication::topLevelWidgets();
    m_store->model().provider()->addBookmarks(words(newsgroups));
    const QWidgetList after = QApplication::topLevelWidgets();
    for (QWidget *widget : after) {
        auto *dialog = qobject_cast<CVAddBookmarksDialog *>(widget);
        if (dialog && !before.contains(dialog)) {
            tree(dialog)->expandAll();
            return dialog;
        }
    }
    return nullptr;
}

void TestCVAddBookmarksDialog::pick(const QDialog *dialog, const QModelIndex &index)
{
    QTest::mouseClick(tree(dialog)->viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree(dialog)->visualRect(index).center());
}

void TestCVAddBookmarksDialog::press(const QDialog *dialog, QDialogButtonBox::StandardButton button)
{
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
}

void TestCVAddBookmarksDialog::anEmptyListOpensNoDialog()
{
    QVERIFY(!open(""));
}

void TestCVAddBookmarksDialog::theDialogOpensInFrontOfTheWindowAndWaitsForNobody()
{
    const CVAddBookmarksDialog *dialog = open();
    QVERIFY(dialog);
    QCOMPARE(dialog->parentWidget(), m_window.get());
    QVERIFY(dialog->isVisible());
    QVERIFY(!dialog->isModal());
    QVERIFY(dialog->testAttribute(Qt::WA_DeleteOnClose));
    QCOMPARE(dialog->windowFlags(), QDialog(m_window.get()).windowFlags());
    QCOMPARE(names({0}), words("inner a b"));
}

void TestCVAddBookmarksDialog::theDialogShowsTheWholeTree()
{
    const ExtendedTreeView *view = tree(open());
    QCOMPARE(view->model(), &m_store->model());
    QVERIFY(view->isHeaderHidden());
    QVERIFY(view->allColumnsShowFocus());
    QCOMPARE(view->minimumWidth(), 170);
    QCOMPARE(view->itemDelegate()->metaObject(), &QStyledItemDelegate::staticMetaObject);
    QVERIFY(!view->testAttribute(Qt::WA_SetStyle));
    QVERIFY(!view->currentIndex().isValid());
    QVERIFY(!view->selectionModel()->hasSelection());
    QVERIFY(!view->visualRect(at({0, 0, 0})).isEmpty());
}

void TestCVAddBookmarksDialog::everythingStandsInItsOrder()
{
    const CVAddBookmarksDialog *dialog = open();
    QCOMPARE(dialog->windowTitle(), QStringLiteral("Add Bookmarks"));
    const auto *layout = qobject_cast<QVBoxLayout *>(dialog->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 3);
    const auto *label = qobject_cast<QLabel *>(layout->itemAt(0)->widget());
    QVERIFY(label);
    QCOMPARE(label->text(), QStringLiteral("Select the location for the bookmarks:"));
    QCOMPARE(label->buddy(), tree(dialog));
    QCOMPARE(layout->itemAt(1)->widget(), tree(dialog));
    const auto *buttons = qobject_cast<QDialogButtonBox *>(layout->itemAt(2)->widget());
    QVERIFY(buttons);
    QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QVERIFY(buttons->button(QDialogButtonBox::Ok)->isEnabled());
}

void TestCVAddBookmarksDialog::theDialogHasOneSlot()
{
    const QMetaObject &type = CVAddBookmarksDialog::staticMetaObject;
    QCOMPARE(type.methodCount(), type.methodOffset() + 1);
    QCOMPARE(type.method(type.methodOffset()).methodSignature(), QByteArray("save()"));
    QCOMPARE(type.method(type.methodOffset()).methodType(), QMetaMethod::Slot);
}

void TestCVAddBookmarksDialog::okWithNothingPickedAddsNothing()
{
    const QPointer<CVAddBookmarksDialog> dialog = open();
    const int count = m_store->rows().size();
    press(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(m_store->rows().size(), count);
    pick(dialog, at({1}));
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(names({1}), words("x y"));
}

// The tree has the keys as soon as the dialog is there, or when somebody goes there with Tab.
void TestCVAddBookmarksDialog::theKeysAloneDoNotPick()
{
    CVAddBookmarksDialog *dialog = open();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel)->setFocus();
    tree(dialog)->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(tree(dialog)->hasFocus());
    QVERIFY(!tree(dialog)->currentIndex().isValid());
    press(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog->isVisible());
    QTest::keyClick(tree(dialog), Qt::Key_Down);
    QCOMPARE(tree(dialog)->currentIndex(), at({0}));
}

void TestCVAddBookmarksDialog::aResetForgetsWhatWasPicked()
{
    const QPointer<CVAddBookmarksDialog> dialog = open();
    pick(dialog, at({1}));
    m_store->model().load();
    const int count = m_store->rows().size();
    press(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(m_store->rows().size(), count);
}

void TestCVAddBookmarksDialog::theKeysAloneDoNotPickAfterAReset()
{
    CVAddBookmarksDialog *dialog = open();
    dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog));
    dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel)->setFocus();
    m_store->model().load();
    tree(dialog)->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(tree(dialog)->hasFocus());
    QVERIFY(!tree(dialog)->currentIndex().isValid());
}

void TestCVAddBookmarksDialog::bookmarksGoWhereTheyWerePicked_data()
{
    QTest::addColumn<QVector<int>>("place");
    QTest::addColumn<QVector<int>>("folder");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("a folder") << QVector<int>{0} << QVector<int>{0} << words("x y inner a b");
    QTest::newRow("an empty folder") << QVector<int>{1} << QVector<int>{1} << words("x y");
    QTest::newRow("a folder in a folder") << QVector<int>{0, 0} << QVector<int>{0, 0} << words("x y c");
    QTest::newRow("a bookmark") << QVector<int>{0, 1} << QVector<int>{0} << words("inner a x y b");
    QTest::newRow("the last bookmark") << QVector<int>{0, 2} << QVector<int>{0} << words("inner a b x y");
    QTest::newRow("a bookmark further in") << QVector<int>{0, 0, 0} << QVector<int>{0, 0} << words("c x y");
}

void TestCVAddBookmarksDialog::bookmarksGoWhereTheyWerePicked()
{
    QFETCH(QVector<int>, place);
    QFETCH(QVector<int>, folder);
    const QPointer<CVAddBookmarksDialog> dialog = open();
    QSignalSpy accepted(dialog.data(), &QDialog::accepted);
    pick(dialog, at(place));
    press(dialog, QDialogButtonBox::Ok);
    QTEST(names(folder), "after");
    QCOMPARE(accepted.count(), 1);
    QTRY_VERIFY(!dialog);
    m_store->model().load();
    QTEST(names(folder), "after");
}

void TestCVAddBookmarksDialog::theProgramIsToldOfEachBookmark()
{
    const CVAddBookmarksDialog *dialog = open("x b");
    CVBookmarkProvider *provider = m_store->model().provider();
    QSignalSpy added(provider, &BookmarkProvider::bookmarkAdded);
    QVERIFY(!provider->isBookmarked(QStringLiteral("x")));
    pick(dialog, at({1}));
    press(dialog, QDialogButtonBox::Ok);
    QCOMPARE(added.count(), 2);
    QCOMPARE(added.at(0).constFirst().toString(), QStringLiteral("x"));
    QCOMPARE(added.at(1).constFirst().toString(), QStringLiteral("b"));
    QVERIFY(provider->isBookmarked(QStringLiteral("x")));
    QCOMPARE(provider->bookmarkedNewsgroups().count(QStringLiteral("b")), 2);
}

void TestCVAddBookmarksDialog::cancelAddsNothingAndDestroysTheDialog_data()
{
    QTest::addColumn<QByteArray>("how");
    for (const char *how : {"the button", "the key", "the window"})
        QTest::newRow(how) << QByteArray(how);
}

void TestCVAddBookmarksDialog::cancelAddsNothingAndDestroysTheDialog()
{
    QFETCH(QByteArray, how);
    const QPointer<CVAddBookmarksDialog> dialog = open();
    const int count = m_store->rows().size();
    pick(dialog, at({0}));
    if (how == "the button")
        press(dialog, QDialogButtonBox::Cancel);
    else if (how == "the key")
        QTest::keyClick(dialog, Qt::Key_Escape);
    else
        dialog->close();
    QVERIFY(!dialog || !dialog->isVisible());
    QTRY_VERIFY(!dialog);
    QCOMPARE(m_store->rows().size(), count);
}

void TestCVAddBookmarksDialog::dialogsAreIndependent()
{
    const QPointer<CVAddBookmarksDialog> first = open("x");
    const QPointer<CVAddBookmarksDialog> second = open("y z");
    QVERIFY(first && second && first != second);
    pick(first, at({1}));
    QVERIFY(!tree(second)->currentIndex().isValid());
    pick(second, at({0, 0}));
    press(second, QDialogButtonBox::Ok);
    QTRY_VERIFY(!second);
    QVERIFY(first->isVisible());
    QCOMPARE(tree(first)->currentIndex(), at({1}));
    press(first, QDialogButtonBox::Ok);
    QTRY_VERIFY(!first);
    QCOMPARE(names({1}), words("x"));
    QCOMPARE(names({0, 0}), words("y z c"));
}

void TestCVAddBookmarksDialog::whatWasPickedMayBeRemoved()
{
    const QPointer<CVAddBookmarksDialog> dialog = open();
    pick(dialog, at({0, 0, 0}));
    m_store->model().removeBookmark(at({0}));
    m_store->model().removeBookmark(at({0}));
    press(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog && dialog->isVisible());
    QVERIFY(m_store->rows().isEmpty());
}

void TestCVAddBookmarksDialog::aDialogWithoutAModelAddsNothing()
{
    const QPointer<CVAddBookmarksDialog> dialog = open();
    pick(dialog, at({0}));
    m_store->close();
    press(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog->isVisible());
}

void TestCVAddBookmarksDialog::theWindowTakesItsDialogsAlong()
{
    const QPointer<CVAddBookmarksDialog> first = open();
    const QPointer<CVAddBookmarksDialog> second = open();
    pick(first, at({0}));
    const int count = m_store->rows().size();
    m_window.reset();
    QVERIFY(!first && !second);
    QCOMPARE(m_store->rows().size(), count);
    m_store->model().load();
    QCOMPARE(names(), words("one two"));
}

void TestCVAddBookmarksDialog::anotherLanguageReachesEveryText()
{
    const CVAddBookmarksDialog *dialog = open();
    const auto *label = dialog->findChild<QLabel *>();
    Marking marking;
    QVERIFY(QCoreApplication::installTranslator(&marking));
    QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("CVAddBookmarksDialog~Add Bookmarks"));
    QCOMPARE(label->text(), QStringLiteral("CVAddBookmarksDialog~Select the location for the bookmarks:"));
    QCoreApplication::removeTranslator(&marking);
    QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("Add Bookmarks"));
    QCOMPARE(label->text(), QStringLiteral("Select the location for the bookmarks:"));
}

QTEST_MAIN(TestCVAddBookmarksDialog)
#include "tst_cvaddbookmarksdialog.moc"
