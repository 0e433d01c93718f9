#include "basemovedialog.h"
#include "framelesshelper.h"
#include "testmain.h"
#include "xpointer.h"

#include <QtCore/QMargins>
#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRubberBand>

#include <algorithm>
#include <memory>

namespace {

const QRect kFrame(400, 300, 400, 300);
const QPoint kTitle(200, 30);
const QPoint kMiddle(200, 150);

class Window : public QWidget
{
public:
    Window()
        : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        QWidget::setGeometry(kFrame);
    }

    int presses = 0;
    int movesWithButton = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        movesWithButton += int(event->buttons() != Qt::NoButton);
    }
};

bool anyBandVisible()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget *window) {
        return window->isVisible() && qobject_cast<const QRubberBand *>(window);
    });
}

// What the server says, not what Qt has been told.
QRect geometryOnTheServer(const QWidget *window)
{
    const QStringList lines = XPointer::xdotool({QStringLiteral("getwindowgeometry"),
                                                 QStringLiteral("--shell"), QString::number(window->winId())})
                                  .split(QLatin1Char('\n'));
    const auto number = [&lines](const QString &name) {
        return lines.filter(name).value(0).section(QLatin1Char('='), 1).toInt();
    };
    return {number(QStringLiteral("X=")), number(QStringLiteral("Y=")), number(QStringLiteral("WIDTH=")),
            number(QStringLiteral("HEIGHT="))};
}

void pressAt(QPoint globalPos)
{
    XPointer::moveTo(globalPos);
    XPointer::press();
}

} // namespace
Q_DECLARE_METATYPE(QMargins)

/// Windows that the window manager moves and resizes for the helper, under a real pointer.
class tst_SystemMovesX11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowFollowsThePointer_data();
    void windowFollowsThePointer();
    void nothingElseIsHandedOver();
    void offAgain();
    void resizes_data();
    void resizes();
    void dialogTellsMoves();
    void dialogTellsResizes();
    void dialogTellsNothingOfAClick();
    void dialogThatIsHiddenMeanwhile();
    void slotsMayDestroyTheDialog_data();
    void slotsMayDestroyTheDialog();
    void childrenArePressedAfterwards();

private:
    static void showDialog(BaseMoveDialog *dialog);
};

void tst_SystemMovesX11::windowFollowsThePointer_data()
{
    QTest::addColumn<bool>("rubberBand");
    QTest::newRow("plain") << false;
    QTest::newRow("rubber band") << true;
}

void tst_SystemMovesX11::windowFollowsThePointer()
{
    QFETCH(bool, rubberBand);

    Window window;
    FramelessHelper helper;
    helper.activateOn(&window);
    helper.setRubberBandOnMove(rubberBand);
    helper.setSystemMoveResize(true);
    QVERIFY(XPointer::showAndWait(&window));

    // Each press works afresh.
    QPoint start = kFrame.topLeft();
    for (int round = 1; round <= 2; ++round) {
        pressAt(start + kTitle);
        XPointer::glideTo(start + kTitle + QPoint(60, 40));
        QVERIFY(!anyBandVisible());
        QTRY_COMPARE(geometryOnTheServer(&window).topLeft(), start + QPoint(60, 40));
        XPointer::release();
        QTRY_COMPARE(window.geometry(), kFrame.translated(QPoint(60, 40) * round));
        start += QPoint(60, 40);
        // The release has ended it, and no press of the helper is left.
        XPointer::glideTo(start + kMiddle);
        QCOMPARE(geometryOnTheServer(&window).topLeft(), start);
        QCOMPARE(window.geometry().topLeft(), start);
        QCOMPARE(window.presses, round);
    }
}

void tst_SystemMovesX11::nothingElseIsHandedOver()
{
    Window window;
    FramelessHelper helper;
    helper.activateOn(&window);
    helper.setSystemMoveResize(true);
    QVERIFY(XPointer::showAndWait(&window));
    const auto drag = [](QPoint local) {
        XPointer::drag(kFrame.topLeft() + local, kFrame.topLeft() + local + QPoint(30, 30));
    };
    drag(kMiddle);
    QTRY_VERIFY(window.movesWithButton > 0);
    helper.setWidgetMovable(false);
    drag(kTitle);
    helper.setWidgetMovable(true);
    XPointer::drag(kFrame.topLeft() + kTitle, kFrame.topLeft() + kTitle + QPoint(30, 30), 3);
    QCOMPARE(geometryOnTheServer(&window), kFrame);
}

void tst_SystemMovesX11::offAgain()
{
    Window window;
    FramelessHelper helper;
    helper.activateOn(&window);
    helper.setSystemMoveResize(true);
    helper.setSystemMoveResize(false);
    helper.setRubberBandOnMove(true);
    QVERIFY(XPointer::showAndWait(&window));
    pressAt(kFrame.topLeft() + kTitle);
    QTRY_VERIFY(anyBandVisible());
    XPointer::release();
}

void tst_SystemMovesX11::resizes_data()
{
    QTest::addColumn<QPoint>("local");
    QTest::addColumn<QMargins>("change"); // outwards, for a pointer that goes 40 right and 30 down
    const int right = kFrame.width() - 2;
    const int bottom = kFrame.height() - 2;
    QTest::newRow("left") << QPoint(2, 150) << QMargins(-40, 0, 0, 0);
    QTest::newRow("top") << QPoint(200, 2) << QMargins(0, -30, 0, 0);
    QTest::newRow("right") << QPoint(right, 150) << QMargins(0, 0, 40, 0);
    QTest::newRow("bottom") << QPoint(200, bottom) << QMargins(0, 0, 0, 30);
    QTest::newRow("top left") << QPoint(2, 2) << QMargins(-40, -30, 0, 0);
    QTest::newRow("top right") << QPoint(right, 2) << QMargins(0, -30, 40, 0);
    QTest::newRow("bottom left") << QPoint(2, bottom) << QMargins(-40, 0, 0, 30);
    QTest::newRow("bottom right") << QPoint(right, bottom) << QMargins(0, 0, 40, 30);
}

void tst_SystemMovesX11::resizes()
{
    QFETCH(QPoint, local);
    QFETCH(QMargins, change);

    Window window;
    FramelessHelper helper;
    helper.activateOn(&window);
    helper.setRubberBandOnResize(true);
    helper.setSystemMoveResize(true);
    QVERIFY(XPointer::showAndWait(&window));
    const QPoint start = kFrame.topLeft() + local;
    pressAt(start);
    XPointer::glideTo(start + QPoint(40, 30));
    QVERIFY(!anyBandVisible());
    XPointer::release();
    QTRY_COMPARE(window.geometry(), kFrame.marginsAdded(change));
}

void tst_SystemMovesX11::showDialog(BaseMoveDialog *dialog)
{
    dialog->setGeometry(kFrame);
    dialog->setWidgetResizable(true);
    dialog->setSystemMoveResize(true);
    QVERIFY(XPointer::showAndWait(dialog));
    QTRY_COMPARE(dialog->geometry(), kFrame);
}

void tst_SystemMovesX11::dialogTellsMoves()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    showDialog(&dialog);
    QStringList log;
    connect(&dialog, &BaseMoveDialog::sig_windowMoved, &dialog, [&](QPoint pos) {
        log << (pos == dialog.pos() && dialog.isMoving() ? QStringLiteral("moved") : QStringLiteral("wrong"));
    });
    connect(&dialog, &BaseMoveDialog::sig_windowMovefinished, &dialog,
            [&] { log << (dialog.isMoving() ? QStringLiteral("wrong") : QStringLiteral("finished")); });
    connect(&dialog, &BaseMoveDialog::sig_windowResizefinished, &dialog,
            [&] { log << QStringLiteral("resized"); });

    QPoint start = kFrame.topLeft();
    for (int round = 0; round < 2; ++round) {
        log.clear();
        pressAt(start + kTitle);
        XPointer::glideTo(start + kTitle + QPoint(50, 20));
        QVERIFY(dialog.isMoving());
        XPointer::release();
        start += QPoint(50, 20);
        QTRY_COMPARE(dialog.pos(), start);
        XPointer::moveTo(start + kTitle + QPoint(1, 1)); // where the pointer is seen without the button
        QTRY_COMPARE(log.value(log.size() - 1), QStringLiteral("finished"));
        log.removeDuplicates();
        QCOMPARE(log, (QStringList{QStringLiteral("moved"), QStringLiteral("finished")}));
        QVERIFY(!dialog.isMoving());
    }
    log.clear();
    dialog.move(100, 100);
    QTRY_COMPARE(dialog.pos(), QPoint(100, 100));
    QCOMPARE(log, QStringList());
}

void tst_SystemMovesX11::dialogTellsResizes()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    showDialog(&dialog);
    QSignalSpy moved(&dialog, &BaseMoveDialog::sig_windowMoved);
    QSignalSpy resized(&dialog, &BaseMoveDialog::sig_windowResizefinished);

    const QPoint edge = kFrame.topLeft() + QPoint(2, 150);
    pressAt(edge);
    XPointer::glideTo(edge - QPoint(40, 0));
    XPointer::release();
    QTRY_COMPARE(dialog.geometry(), kFrame.adjusted(-40, 0, 0, 0));
    XPointer::moveTo(kFrame.topLeft() + kMiddle);
    QTRY_COMPARE(resized.count(), 1);

    // Back where it started it has been none.
    const QPoint newEdge = edge - QPoint(40, 0);
    pressAt(newEdge);
    XPointer::glideTo(newEdge - QPoint(20, 0));
    XPointer::glideTo(newEdge);
    XPointer::release();
    XPointer::moveTo(kFrame.topLeft() + kMiddle);
    QTRY_VERIFY(!dialog.isMoving());
    QCOMPARE(resized.count(), 1);
    QCOMPARE(moved.count(), 0);
}

void tst_SystemMovesX11::dialogTellsNothingOfAClick()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    showDialog(&dialog);
    QSignalSpy moved(&dialog, &BaseMoveDialog::sig_windowMoved);
    QSignalSpy finished(&dialog, &BaseMoveDialog::sig_windowMovefinished);
    XPointer::click(kFrame.topLeft() + kTitle);
    QVERIFY(dialog.isMoving()); // nobody has told of the release yet
    // Nor is it a move that the program now makes, or that the window manager has done as it was asked.
    const QPoint aside(5, 5);
    dialog.move(kFrame.topLeft() + aside);
    QTRY_COMPARE(geometryOnTheServer(&dialog).topLeft(), kFrame.topLeft() + aside);
    XPointer::moveTo(kFrame.topLeft() + aside + kTitle);
    QTRY_VERIFY(!dialog.isMoving());
    QCOMPARE(moved.count() + finished.count(), 0);
}

void tst_SystemMovesX11::dialogThatIsHiddenMeanwhile()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    showDialog(&dialog);
    QSignalSpy finished(&dialog, &BaseMoveDialog::sig_windowMovefinished);
    pressAt(kFrame.topLeft() + kTitle);
    XPointer::glideTo(kFrame.topLeft() + kTitle + QPoint(50, 20));
    dialog.hide();
    QVERIFY(!dialog.isMoving());
    XPointer::release();
    const int afterHiding = finished.count();
    showDialog(&dialog);
    XPointer::moveTo(dialog.geometry().topLeft() + kMiddle);
    QCOMPARE(finished.count(), afterHiding);
}

void tst_SystemMovesX11::slotsMayDestroyTheDialog_data()
{
    QTest::addColumn<bool>("atTheEnd");
    QTest::newRow("moved") << false;
    QTest::newRow("finished") << true;
}

void tst_SystemMovesX11::slotsMayDestroyTheDialog()
{
    QFETCH(bool, atTheEnd);

    const QPointer<BaseMoveDialog> dialog = new BaseMoveDialog(nullptr, true, false, true);
    showDialog(dialog);
    const auto destroy = [&dialog] {
        delete dialog;
    };
    if (atTheEnd)
        connect(dialog, &BaseMoveDialog::sig_windowMovefinished, this, destroy);
    else
        connect(dialog, &BaseMoveDialog::sig_windowMoved, this, destroy);
    pressAt(kFrame.topLeft() + kTitle);
    XPointer::glideTo(kFrame.topLeft() + kTitle + QPoint(50, 20));
    XPointer::release();
    XPointer::moveTo(kFrame.topLeft() + kTitle + QPoint(51, 21));
    QTRY_VERIFY(!dialog);
}

// Qt has missed the release: that must not make the dialog take what its children are pressed with.
void tst_SystemMovesX11::childrenArePressedAfterwards()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    QPushButton button(&dialog);
    button.setGeometry(300, 200, 80, 60);
    QLabel caption(QStringLiteral("Title"), &dialog); // which leaves the press to the dialog
    caption.setGeometry(100, 10, 200, 40);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    QSignalSpy finished(&dialog, &BaseMoveDialog::sig_windowMovefinished);
    showDialog(&dialog);
    pressAt(kFrame.topLeft() + kTitle);
    XPointer::glideTo(kFrame.topLeft() + kTitle + QPoint(50, 20));
    XPointer::release();
    QTRY_COMPARE(dialog.pos(), kFrame.topLeft() + QPoint(50, 20));
    XPointer::moveTo(dialog.pos() + kTitle + QPoint(1, 1));
    QTRY_COMPARE(finished.count(), 1);
    XPointer::click(button.mapToGlobal(button.rect().center()));
    QTRY_COMPARE(clicked.count(), 1);
}

ORV_TEST_MAIN(tst_SystemMovesX11)
#include "tst_systemmoves_x11.moc"
