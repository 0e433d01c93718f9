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
#include <QtWidgets/QPushButton>
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
    void passingThroughKeepsTheChord();
    void toolTipClosesWhenAnotherWindowIsClicked();
    void poppedUpToolTipIsActiveAndCloses_data();
    void poppedUpToolTipIsActiveAndCloses();
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
    QTRY_COMPARE(edit.keySequence(), QKeySequence(Qt::CTRL | Qt::Key_A));
    XPointer::key(QStringLiteral("ctrl+shift+F5"));
    QTRY_COMPARE(edit.keySequence(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F5));
    const QSignalSpy finished(&edit, &QKeySequenceEdit::editingFinished);
    XPointer::key(QStringLiteral("BackSpace"));
    QTRY_VERIFY(edit.keySequence().isEmpty());
    QCOMPARE(finished.count(), 1);
    QCOMPARE(edit.findChild<QLineEdit *>()->placeholderText(), QStringLiteral("Type a shortcut"));
}

void tst_TextWidgetsX11::passingThroughKeepsTheChord()
{
    QWidget window;
    QLineEdit before(&window);
    CustomKeySequenceEdit edit(QKeySequence(Qt::CTRL | Qt::Key_A), &window, QString());
    edit.move(0, 40);
    QSignalSpy changed(&edit, &QKeySequenceEdit::keySequenceChanged);
    QVERIFY(XPointer::showAndWait(&window));
    QVERIFY(QTest::qWaitForWindowActive(&window));
    before.setFocus();
    XPointer::key(QStringLiteral("Tab"));
    QTRY_VERIFY(edit.hasFocus());
    XPointer::key(QStringLiteral("shift+Tab"));
    QTRY_VERIFY(before.hasFocus());
    QCOMPARE(edit.keySequence(), QKeySequence(Qt::CTRL | Qt::Key_A));
    for (const QVariantList &arguments : qAsConst(changed))
        QCOMPARE(arguments.constFirst().value<QKeySequence>(), QKeySequence(Qt::CTRL | Qt::Key_A));
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

// In its application's active window, by a click of the user or by itself.
void tst_TextWidgetsX11::poppedUpToolTipIsActiveAndCloses_data()
{
    QTest::addColumn<bool>("byClick");
    QTest::newRow("by a click") << true;
    QTest::newRow("by itself") << false;
}

void tst_TextWidgetsX11::poppedUpToolTipIsActiveAndCloses()
{
    QFETCH(bool, byClick);

    QWidget window;
    window.setGeometry(100, 100, 300, 200);
    QPushButton button(QStringLiteral("What is this?"), &window);
    button.setGeometry(20, 20, 160, 40);
    connect(&button, &QPushButton::clicked, &window,
            [] { customWrapTextToolTip::popup(QPoint(600, 400), QStringLiteral("A tip")); });
    QVERIFY(XPointer::showAndWait(&window));
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const auto toolTips = [] {
        QVector<QWidget *> found;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *one : windows) {
            if (dynamic_cast<customWrapTextToolTip *>(one))
                found << one;
        }
        return found;
    };
    for (int round = 0; round < 2; ++round) {
        if (byClick)
            XPointer::click(centerOf(&button));
        else
            button.click();
        QTRY_COMPARE(toolTips().size(), 1);
        QTRY_VERIFY(toolTips().constFirst()->isActiveWindow());
        // The window manager puts it in the middle first, and then where it was asked to.
        QTRY_COMPARE(toolTips().constFirst()->pos(), QPoint(600, 400));
        XPointer::click(window.mapToGlobal(QPoint(280, 180)));
        QTRY_COMPARE(toolTips().size(), 0);
        QTRY_VERIFY(window.isActiveWindow());
    }
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
