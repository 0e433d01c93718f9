#include "customcombox.h"
#include "customkeysequenceedit.h"
#include "customwraptexttooltip.h"
#include "testmain.h"
#include "xpointer.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QVBoxLayout>

namespace {

QPoint centerOf(QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

} // namespace

/// The text widgets and the plain combo box under a real pointer and keyboard.
class tst_TextWidgetsX11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typedChordsReplaceEachOther();
    void toolTipClosesWhenAnotherWindowIsClicked();
    void comboOpensFromItsTextAndStaysClosedAfterAnOutsideClick();
    void rightClickOnTheComboChangesNothing();
};

void tst_TextWidgetsX11::typedChordsReplaceEachOther()
{
    CustomKeySequenceEdit edit(nullptr, QStringLiteral("Type a shortcut"));
    edit.resize(220, 40);
    edit.move(100, 100);
    QVERIFY(XPointer::showAndWait(&edit));
    QVERIFY(QTest::qWaitForWindowActive(&edit));
    XPointer::click(centerOf(&edit));
    XPointer::key(QStringLiteral("ctrl+a"));
    QTRY_COMPARE(edit.keySequence(), QKeySequence(Qt::CTRL + Qt::Key_A));
    XPointer::key(QStringLiteral("ctrl+shift+F5"));
    QTRY_COMPARE(edit.keySequence(), QKeySequence(Qt::CTRL + Qt::SHIFT + Qt::Key_F5));
    const QSignalSpy finished(&edit, &QKeySequenceEdit::editingFinished);
    XPointer::key(QStringLiteral("BackSpace"));
    QTRY_VERIFY(edit.keySequence().isEmpty());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(edit.findChild<QLineEdit *>()->placeholderText(), QStringLiteral("Type a shortcut"));
}

void tst_TextWidgetsX11::toolTipClosesWhenAnotherWindowIsClicked()
{
    QWidget window;
    window.setGeometry(100, 100, 300, 200);
    QVERIFY(XPointer::showAndWait(&window));
    auto *toolTip = new customWrapTextToolTip;
    toolTip->setText(QStringLiteral("Click elsewhere"));
    toolTip->move(600, 400);
    const QPointer<QWidget> guard(toolTip);
    QVERIFY(XPointer::showAndWait(toolTip));
    QVERIFY(QTest::qWaitForWindowActive(toolTip));
    XPointer::click(centerOf(&window));
    QTRY_VERIFY(!guard);
}

void tst_TextWidgetsX11::comboOpensFromItsTextAndStaysClosedAfterAnOutsideClick()
{
    QWidget window;
    window.setGeometry(100, 100, 400, 300);
    customcombox combo(&window);
    combo.setGeometry(20, 20, 200, 30);
    combo.addItems({QStringLiteral("first"), QStringLiteral("second"), QStringLiteral("third")});
    QVERIFY(XPointer::showAndWait(&window));
    XPointer::click(combo.lineEdit()->mapToGlobal(QPoint(5, 5)));
    QTRY_VERIFY(combo.view()->isVisible());
    XPointer::click(window.mapToGlobal(QPoint(380, 280)));
    QTRY_VERIFY(!combo.view()->isVisible());

    // Once the guard has elapsed, the text opens the list again, and a row of it can be chosen.
    auto *guard = combo.findChild<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QTRY_VERIFY(!guard->isActive());
    XPointer::click(combo.lineEdit()->mapToGlobal(QPoint(5, 5)));
    QTRY_VERIFY(combo.view()->isVisible());
    QTRY_VERIFY(!guard->isActive());
    const QModelIndex row = combo.model()->index(2, 0);
    XPointer::click(combo.view()->viewport()->mapToGlobal(combo.view()->visualRect(row).center()));
    QTRY_COMPARE(combo.currentIndex(), 2);
    QTRY_VERIFY(!combo.view()->isVisible());
}

void tst_TextWidgetsX11::rightClickOnTheComboChangesNothing()
{
    QWidget window;
    window.setGeometry(100, 100, 400, 300);
    customcombox combo(&window);
    combo.setGeometry(20, 20, 200, 30);
    combo.addItems({QStringLiteral("first"), QStringLiteral("second")});
    QVERIFY(XPointer::showAndWait(&window));
    XPointer::click(combo.lineEdit()->mapToGlobal(QPoint(5, 5)), 3);
    QVERIFY(!combo.view()->isVisible());
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(combo.currentIndex(), 0);
}

ORV_TEST_MAIN(tst_TextWidgetsX11)

#include "tst_textwidgets_x11.moc"
