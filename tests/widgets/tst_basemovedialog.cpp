#include "basemovedialog.h"

#include "framelesshelper.h"
#include "logcapture.h"
#include "mouseevents.h"
#include "pictures.h"

#include <QtGui/QMouseEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QRubberBand>

#include <climits>
#include <functional>
#include <memory>

namespace {

const QRect kGeometry(100, 200, 300, 250);
const QPoint kTitle(150, 30);
const QPoint kMiddle(150, 130);

} // namespace

class tst_BaseMoveDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void hasItsSignals();
    void isFrameless_data();
    void isFrameless();
    void ownsOneHelper_data();
    void ownsOneHelper();
    void handsItsSettingsToTheHelper();
    void setsBorderAndRubberBand_data();
    void setsBorderAndRubberBand();
    void survivesNegativeMeasures();

    void isMovingFromPressToRelease_data();
    void isMovingFromPressToRelease();
    void staysMovingWhenItCannotMove();
    void reportsADrag();
    void reportsADragFromAnyPlace();
    void reportsNoDragWithoutItsConditions();
    void reportsADragInsideItsRectangleOnly_data();
    void reportsADragInsideItsRectangleOnly();
    void allowsTheNextDragAtTheRelease();
    void forgetsTheMovesBeforeAPress();
    void countsAMoveAfterItsReport();
    void keepsReportsInsideItsRectangle_data();
    void keepsReportsInsideItsRectangle();
    void copiesAndRemovesTheRectangleOfMoves();

    void detectsAResize_data();
    void detectsAResize();
    void detectsNoResizeUnlessResizable();
    void detectsResizesByTheLeftButtonOnly();
    void comparesPositionsWithinTheDialog();
    void reportsNoDragWhileResizing();
    void staysForbiddenToDragAfterAResizeWhenItCannotMove();
    void reportsTheMoveBeforeTheResize();

    void reportsADoubleClick_data();
    void reportsADoubleClick();
    void countsADoubleClickAsAPress();

    void passesItsEventsToTheBase();
    void paintsItsStyleSheet();
    void isMappedWhenShown();

    void survivesDestructionInItsSlots_data();
    void survivesDestructionInItsSlots();
    void survivesDestructionInTheMiddleOfAGesture();
    void survivesTheLossOfItsHelper();

private:
    QPoint at(const QPoint &local) const { return kGeometry.topLeft() + local; }
    void press(const QPoint &local) { MouseEvents::press(m_dialog.get(), at(local)); }
    void moveTo(const QPoint &local) { MouseEvents::move(m_dialog.get(), at(local)); }
    void release(const QPoint &local) { MouseEvents::release(m_dialog.get(), at(local)); }
    FramelessHelper *helper() const { return m_dialog->findChild<FramelessHelper *>(); }

    std::unique_ptr<BaseMoveDialog> m_dialog;
    QVector<QPoint> m_positions; // what slots have seen
    QStringList m_notes;
};

void tst_BaseMoveDialog::init()
{
    m_dialog = std::make_unique<BaseMoveDialog>(nullptr, true, false, false);
    m_dialog->setGeometry(kGeometry);
    m_positions.clear();
    m_notes.clear();
}

void tst_BaseMoveDialog::cleanup()
{
    m_dialog.reset();
    FramelessHelper shared;
    shared.setBorderWidth(5);
    shared.setTitleHeight(50);
    shared.setRightBottomAreaExtraPix(10);
    shared.setEnabelRightBottomAreaResize(false);
}

void tst_BaseMoveDialog::hasItsSignals()
{
    const QMetaObject &meta = BaseMoveDialog::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Signal);
        names << QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(names, QStringList({QStringLiteral("sig_windowMoved(QPoint)"),
                                 QStringLiteral("sig_windowMovefinished()"),
                                 QStringLiteral("sig_windowResizefinished()"),
                                 QStringLiteral("sig_doubleclickCanDragRect()")}));
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
}

void tst_BaseMoveDialog::isFrameless_data()
{
    QTest::addColumn<bool>("withParent");
    QTest::addColumn<bool>("translucent");
    QTest::addColumn<bool>("asDialog");
    for (int bits = 0; bits < 8; ++bits)
        QTest::addRow("%d", bits) << bool(bits & 1) << bool(bits & 2) << bool(bits & 4);
}

void tst_BaseMoveDialog::isFrameless()
{
    QFETCH(bool, withParent);
    QFETCH(bool, translucent);
    QFETCH(bool, asDialog);
    QWidget parent;
    auto dialog =
        std::make_unique<BaseMoveDialog>(withParent ? &parent : nullptr, true, translucent, asDialog);
    const QWidget plain(withParent ? &parent : nullptr);
    Qt::WindowFlags expected = plain.windowFlags() | Qt::FramelessWindowHint;
    if (asDialog)
        expected |= Qt::Dialog;
    QCOMPARE(dialog->windowFlags(), expected);
    QCOMPARE(dialog->isWindow(), asDialog || !withParent);
    QCOMPARE(dialog->parentWidget(), withParent ? &parent : nullptr);
    QCOMPARE(dialog->testAttribute(Qt::WA_TranslucentBackground), translucent);
    QVERIFY(dialog->isHidden() || !dialog->isVisible());
}

void tst_BaseMoveDialog::ownsOneHelper_data()
{
    QTest::addColumn<bool>("canMove");
    QTest::newRow("movable") << true;
    QTest::newRow("fixed") << false;
}

void tst_BaseMoveDialog::ownsOneHelper()
{
    QFETCH(bool, canMove);
    const BaseMoveDialog dialog(nullptr, canMove, false, true);
    const auto helpers = dialog.findChildren<FramelessHelper *>();
    QCOMPARE(helpers.size(), 1);
    QCOMPARE(helpers.constFirst()->parent(), &dialog);
    QCOMPARE(helpers.constFirst()->widgetMovable(), canMove);
    QVERIFY(!helpers.constFirst()->widgetResizable());
    QVERIFY(dialog.hasMouseTracking()); // the helper is active
    QVERIFY(!dialog.isMoving());
}

void tst_BaseMoveDialog::handsItsSettingsToTheHelper()
{
    m_dialog->setCanMove(false);
    QVERIFY(!helper()->widgetMovable());
    m_dialog->setCanMove(true);
    QVERIFY(helper()->widgetMovable());
    m_dialog->setWidgetResizable(true);
    QVERIFY(helper()->widgetResizable());
    m_dialog->setWidgetResizable(false);
    QVERIFY(!helper()->widgetResizable());

    // These two hold for every dialog of the process.
    BaseMoveDialog other(nullptr, true, false, true);
    m_dialog->setWidgetTitleHeight(140);
    m_dialog->setEnableRightBottomResizeArea(true);
    QCOMPARE(other.findChild<FramelessHelper *>()->titleHeight(), 140U);
    QVERIFY(other.findChild<FramelessHelper *>()->enableRightBottomAreaResizeState());
    other.setGeometry(kGeometry);
    MouseEvents::press(&other, at({150, 139}));
    MouseEvents::move(&other, at({151, 140}));
    QCOMPARE(other.geometry(), kGeometry.translated(1, 1));
    m_dialog->setEnableRightBottomResizeArea(false);
    QVERIFY(!helper()->enableRightBottomAreaResizeState());
    m_dialog->setWidgetTitleHeight(0);
    QCOMPARE(helper()->titleHeight(), 140U);
}

void tst_BaseMoveDialog::setsBorderAndRubberBand_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("rubberBand");
    QTest::addColumn<int>("border");
    QTest::addColumn<bool>("apply");
    QTest::addColumn<bool>("bandAfter");
    QTest::addColumn<unsigned int>("borderAfter");
    QTest::newRow("on") << false << true << 8 << true << true << 8U;
    QTest::newRow("off") << true << false << 8 << true << false << 8U;
    QTest::newRow("on, not applied") << false << true << 8 << false << false << 8U;
    QTest::newRow("off, not applied") << true << false << 8 << false << true << 8U;
    QTest::newRow("no border") << false << true << 0 << true << true << 5U;
    QTest::newRow("negative border") << false << true << -1 << true << true << UINT_MAX;
}

void tst_BaseMoveDialog::setsBorderAndRubberBand()
{
    QFETCH(bool, before);
    QFETCH(bool, rubberBand);
    QFETCH(int, border);
    QFETCH(bool, apply);
    QFETCH(bool, bandAfter);
    QFETCH(unsigned int, borderAfter);
    helper()->setRubberBandOnResize(before);
    m_dialog->setRectOfCanResize(rubberBand, border, apply);
    QCOMPARE(helper()->rubberBandOnResisze(), bandAfter);
    QCOMPARE(helper()->borderWidth(), borderAfter);
    QVERIFY(!helper()->rubberBandOnMove());
}

void tst_BaseMoveDialog::survivesNegativeMeasures()
{
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    m_dialog->setWidgetResizable(true);
    for (const int measure : {-1, -10, INT_MIN}) {
        m_dialog->setRectOfCanResize(false, measure, false);
        m_dialog->setWidgetTitleHeight(measure);
        for (const QPoint &from : {QPoint(0, 0), QPoint(0, 130), kTitle, kMiddle, QPoint(299, 249)}) {
            press(from);
            moveTo(from - QPoint(5, 5));
            release(from - QPoint(5, 5));
            QCOMPARE(m_dialog->geometry(), kGeometry);
            QCOMPARE(resized.count(), 0);
        }
    }
    m_dialog->setRectOfCanResize(false, INT_MAX, false);
    helper()->setRightBottomAreaExtraPix(INT_MAX);
    m_dialog->setEnableRightBottomResizeArea(true);
    press(kMiddle);
    moveTo(kMiddle + QPoint(100, 100));
    release(kMiddle + QPoint(1, 1));
    QCOMPARE(resized.count(), 1);
}

void tst_BaseMoveDialog::isMovingFromPressToRelease_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("left") << int(Qt::LeftButton);
    QTest::newRow("right") << int(Qt::RightButton);
    QTest::newRow("middle") << int(Qt::MiddleButton);
}

void tst_BaseMoveDialog::isMovingFromPressToRelease()
{
    QFETCH(int, button);
    MouseEvents::move(m_dialog.get(), at(kMiddle), Qt::NoButton);
    QVERIFY(!m_dialog->isMoving());
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::MouseButton(button));
    QVERIFY(m_dialog->isMoving());
    MouseEvents::release(m_dialog.get(), at(kMiddle), Qt::MouseButton(button));
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog::staysMovingWhenItCannotMove()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_dialog->setCanMove(false);
    QVERIFY(!m_dialog->isMoving());
    press(kTitle);
    moveTo(kMiddle);
    release(kMiddle);
    QVERIFY(m_dialog->isMoving());
    QCOMPARE(moved.count(), 0);
    QCOMPARE(m_dialog->geometry(), kGeometry);

    m_dialog->setCanMove(true);
    QVERIFY(m_dialog->isMoving());
    release(kMiddle);
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog::reportsADrag()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);

    // The helper has moved the window before the dialog reports it.
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this,
            [this] { m_positions << m_dialog->pos(); });
    press(kTitle);
    QCOMPARE(moved.count(), 0);
    moveTo(kTitle + QPoint(10, -5));
    moveTo(kTitle + QPoint(-20, 30));
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.at(0).at(0).toPoint(), at({10, -5}));
    QCOMPARE(moved.at(1).at(0).toPoint(), at({-20, 30}));
    QCOMPARE(m_positions, (QVector<QPoint>{at({10, -5}), at({-20, 30})}));
    QCOMPARE(finished.count(), 0);
    release(kTitle + QPoint(-20, 30));
    QCOMPARE(finished.count(), 1);
    release(kTitle);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(resized.count(), 0);
    QCOMPARE(m_dialog->pos(), at({-20, 30}));
}

void tst_BaseMoveDialog::reportsADragFromAnyPlace()
{
    // Below the title strip nothing moves the window, yet the drag is reported.
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 2));
    release(kMiddle + QPoint(1, 2));
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).toPoint(), at({1, 2}));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog::reportsNoDragWithoutItsConditions()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    moveTo(kMiddle); // not pressed
    press(kMiddle);
    MouseEvents::move(m_dialog.get(), at(kTitle), Qt::NoButton);
    MouseEvents::move(m_dialog.get(), at(kTitle), Qt::RightButton);
    m_dialog->setCanMove(false);
    moveTo(kTitle);
    m_dialog->setCanMove(true);
    QCOMPARE(moved.count(), 0);
    release(kTitle);
    QCOMPARE(finished.count(), 0);

    // A press of another button starts no drag of its own, but the left button held does.
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::RightButton);
    MouseEvents::move(m_dialog.get(), at(kTitle), Qt::LeftButton | Qt::RightButton);
    QCOMPARE(moved.count(), 1);
    MouseEvents::release(m_dialog.get(), at(kTitle), Qt::RightButton);
    QCOMPARE(finished.count(), 1);
}

void tst_BaseMoveDialog::reportsADragInsideItsRectangleOnly_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("reported");
    QTest::addColumn<bool>("moves");
    QTest::newRow("inside, title strip") << QPoint(60, 45) << true << true;
    QTest::newRow("inside, below the strip") << QPoint(60, 60) << true << false;
    QTest::newRow("outside, title strip") << QPoint(60, 39) << false << true;
    QTest::newRow("outside, below the strip") << QPoint(160, 130) << false << false;
    QTest::newRow("last pixel") << QPoint(149, 69) << true << false;
    QTest::newRow("one past the last pixel") << QPoint(150, 69) << false << false;
}

void tst_BaseMoveDialog::reportsADragInsideItsRectangleOnly()
{
    QFETCH(QPoint, from);
    QFETCH(bool, reported);
    QFETCH(bool, moves);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    QRect rect;
    m_dialog->setRectOfCanDrag(rect);
    rect = QRect(50, 40, 100, 30);
    m_dialog->setRectOfCanDrag(rect);
    rect = QRect();

    press(from);
    moveTo(from + QPoint(2, 3));
    release(from + QPoint(2, 3));
    QCOMPARE(moved.count(), reported ? 1 : 0);
    QCOMPARE(finished.count(), reported ? 1 : 0);
    QCOMPARE(m_dialog->geometry(), moves ? kGeometry.translated(2, 3) : kGeometry);
}

void tst_BaseMoveDialog::allowsTheNextDragAtTheRelease()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_dialog->setRectOfCanDrag({0, 0, 10, 10});
    press(kMiddle);
    // A right press does not look at the rectangle, so the drag stays forbidden.
    MouseEvents::press(m_dialog.get(), at({5, 5}), Qt::RightButton);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 0);
    release(kMiddle);
    // And it stays allowed after a release, where the next press does not look at the rectangle either.
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::RightButton);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
}

void tst_BaseMoveDialog::forgetsTheMovesBeforeAPress()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
    MouseEvents::press(m_dialog.get(), at(kMiddle), Qt::RightButton);
    release(kMiddle);
    QCOMPARE(finished.count(), 0);
}

void tst_BaseMoveDialog::countsAMoveAfterItsReport()
{
    // A release inside the first report finds no move that it could finish.
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this, [this] { release(kMiddle); });
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(finished.count(), 0);
    release(kMiddle);
    QCOMPARE(finished.count(), 1);
}

void tst_BaseMoveDialog::keepsReportsInsideItsRectangle_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QPoint>("reported");
    // The dialog measures 300 x 250.
    const QRect wide(-500, -400, 2000, 1500); // ends before 1500, 1100
    QTest::newRow("inside") << wide << QPoint(700, 600) << QPoint(700, 600);
    QTest::newRow("left") << wide << QPoint(-501, 0) << QPoint(-500, 0);
    QTest::newRow("top") << wide << QPoint(0, -800) << QPoint(0, -400);
    QTest::newRow("right, just inside") << wide << QPoint(1200, 0) << QPoint(1200, 0);
    QTest::newRow("right") << wide << QPoint(1201, 0) << QPoint(1200, 0);
    QTest::newRow("bottom, just inside") << wide << QPoint(0, 850) << QPoint(0, 850);
    QTest::newRow("bottom") << wide << QPoint(0, 851) << QPoint(0, 850);
    QTest::newRow("both") << wide << QPoint(5000, -5000) << QPoint(1200, -400);
    QTest::newRow("too narrow") << QRect(20, 30, 299, 1000) << QPoint(50, 60) << QPoint(20, 60);
    QTest::newRow("too low") << QRect(20, 30, 1000, 10) << QPoint(50, 60) << QPoint(50, 30);
    QTest::newRow("exactly its size") << QRect(20, 30, 300, 250) << QPoint(50, 60) << QPoint(20, 30);
    QTest::newRow("null rectangle") << QRect() << QPoint(50, 60) << QPoint(0, 0);
    QTest::newRow("everything") << QRect(QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)) << QPoint(50, 60)
                                << QPoint(50, 60);
    QTest::newRow("inside out") << QRect(QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN)) << QPoint(50, 60)
                                << QPoint(INT_MAX, INT_MAX);
}

void tst_BaseMoveDialog::keepsReportsInsideItsRectangle()
{
    QFETCH(QRect, rect);
    QFETCH(QPoint, to);
    QFETCH(QPoint, reported);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_dialog->setRectOfCanMove(&rect);
    press(kTitle);
    MouseEvents::move(m_dialog.get(), to + kTitle);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).toPoint(), reported);
    // The helper, which moves the window, knows nothing of the rectangle.
    QCOMPARE(m_dialog->pos(), to);
}

void tst_BaseMoveDialog::copiesAndRemovesTheRectangleOfMoves()
{
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const auto reported = [&](const QPoint &to) {
        MouseEvents::move(m_dialog.get(), to + kTitle);
        return moved.constLast().at(0).toPoint();
    };
    press(kTitle);
    m_dialog->setRectOfCanMove(nullptr);
    QRect rect(0, 0, 400, 400);
    m_dialog->setRectOfCanMove(&rect);
    rect = QRect(0, 0, 4000, 4000);
    QCOMPARE(reported({500, 500}), QPoint(100, 150));
    m_dialog->setRectOfCanMove(&rect);
    QCOMPARE(reported({500, 501}), QPoint(500, 501));
    rect = QRect(0, 0, 400, 400);
    m_dialog->setRectOfCanMove(&rect);
    QCOMPARE(reported({500, 502}), QPoint(100, 150));
    m_dialog->setRectOfCanMove(nullptr);
    QCOMPARE(reported({500, 503}), QPoint(500, 503));
    m_dialog->setRectOfCanMove(nullptr);
}

void tst_BaseMoveDialog::detectsAResize_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<bool>("enlarged");
    QTest::addColumn<bool>("resizes");
    // Unlike the helper's edges, these borders are as thick as the border width, and end with the dialog.
    QTest::newRow("left") << QPoint(4, 130) << false << true;
    QTest::newRow("beside the left") << QPoint(5, 130) << false << false;
    QTest::newRow("top") << QPoint(150, 4) << false << true;
    QTest::newRow("below the top") << QPoint(150, 5) << false << false;
    QTest::newRow("right") << QPoint(295, 130) << false << true;
    QTest::newRow("beside the right") << QPoint(294, 130) << false << false;
    QTest::newRow("past the right") << QPoint(300, 130) << false << false;
    QTest::newRow("bottom") << QPoint(150, 245) << false << true;
    QTest::newRow("above the bottom") << QPoint(150, 244) << false << false;
    QTest::newRow("past the bottom") << QPoint(150, 250) << false << false;
    QTest::newRow("corner") << QPoint(295, 245) << false << true;
    QTest::newRow("near the corner") << QPoint(294, 244) << false << false;
    QTest::newRow("enlarged corner") << QPoint(285, 235) << true << true;
    QTest::newRow("beside the enlarged corner") << QPoint(284, 235) << true << false;
    QTest::newRow("above the enlarged corner") << QPoint(285, 234) << true << false;
}

void tst_BaseMoveDialog::detectsAResize()
{
    QFETCH(QPoint, from);
    QFETCH(bool, enlarged);
    QFETCH(bool, resizes);
    m_dialog->setWidgetResizable(true);
    m_dialog->setEnableRightBottomResizeArea(enlarged);
    helper()->setWidgetResizable(false); // the dialog's own detection alone
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);

    press(from);
    release(from);
    QCOMPARE(resized.count(), 0); // it ended where it started
    press(from);
    release(from + QPoint(1, 0));
    QCOMPARE(resized.count(), resizes ? 1 : 0);
    release(from + QPoint(2, 0));
    QCOMPARE(resized.count(), resizes ? 1 : 0);
    m_dialog->setCanMove(false);
    press(from);
    release(from + QPoint(0, 1));
    QCOMPARE(resized.count(), resizes ? 2 : 0);
}

void tst_BaseMoveDialog::detectsNoResizeUnlessResizable()
{
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    press({0, 130});
    release({9, 130});
    m_dialog->setWidgetResizable(true);
    m_dialog->setWidgetResizable(false);
    press({0, 130});
    release({9, 130});
    QCOMPARE(resized.count(), 0);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog::detectsResizesByTheLeftButtonOnly()
{
    m_dialog->setWidgetResizable(true);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    MouseEvents::press(m_dialog.get(), at({0, 130}), Qt::RightButton);
    release({9, 130});
    QCOMPARE(resized.count(), 0);
    // Another button's release ends the gesture without a report.
    press({0, 130});
    MouseEvents::release(m_dialog.get(), at({9, 130}), Qt::RightButton);
    release({9, 130});
    QCOMPARE(resized.count(), 0);
}

void tst_BaseMoveDialog::comparesPositionsWithinTheDialog()
{
    // Pulled by its outermost pixel the left edge stays under the pointer, which so has not moved within the
    // dialog.
    m_dialog->setWidgetResizable(true);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    press({0, 130});
    moveTo({-20, 130});
    release({-20, 130});
    QCOMPARE(m_dialog->geometry(), kGeometry.adjusted(-20, 0, 0, 0));
    QCOMPARE(resized.count(), 0);
}

void tst_BaseMoveDialog::reportsNoDragWhileResizing()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    press({150, 2});
    moveTo({150, -20});
    QCOMPARE(m_dialog->geometry(), kGeometry.adjusted(0, -20, 0, 0));
    release({150, -20});
    QCOMPARE(moved.count(), 0);
    QCOMPARE(finished.count(), 0);
    QCOMPARE(resized.count(), 1);
}

void tst_BaseMoveDialog::staysForbiddenToDragAfterAResizeWhenItCannotMove()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setCanMove(false);
    press({0, 130});
    release({0, 130});
    m_dialog->setCanMove(true);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 0);
    release(kMiddle);
    press(kMiddle);
    moveTo(kMiddle + QPoint(1, 1));
    QCOMPARE(moved.count(), 1);
}

void tst_BaseMoveDialog::reportsTheMoveBeforeTheResize()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished, this, [this] {
        m_notes << QStringLiteral("move");
        QVERIFY(!m_dialog->isMoving());
    });
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished, this,
            [this] { m_notes << QStringLiteral("resize"); });
    press({2, 130});
    press(kMiddle); // without a release, so that both are under way
    moveTo(kMiddle + QPoint(1, 1));
    release(kMiddle + QPoint(1, 1));
    QCOMPARE(m_notes, QStringList({QStringLiteral("move"), QStringLiteral("resize")}));
}

void tst_BaseMoveDialog::reportsADoubleClick_data()
{
    QTest::addColumn<bool>("withRect");
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("count");
    QTest::newRow("without rectangle") << false << QRect() << int(Qt::LeftButton) << 0;
    QTest::newRow("null rectangle") << true << QRect(150, 130, 0, 0) << int(Qt::LeftButton) << 0;
    QTest::newRow("inside") << true << QRect(150, 130, 1, 1) << int(Qt::LeftButton) << 1;
    QTest::newRow("inside, right button") << true << QRect(100, 100, 100, 100) << int(Qt::RightButton) << 1;
    QTest::newRow("outside") << true << QRect(0, 0, 150, 130) << int(Qt::LeftButton) << 0;
}

void tst_BaseMoveDialog::reportsADoubleClick()
{
    QFETCH(bool, withRect);
    QFETCH(QRect, rect);
    QFETCH(int, button);
    QFETCH(int, count);
    if (withRect)
        m_dialog->setRectOfCanDrag(rect);
    const QSignalSpy clicked(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect);
    MouseEvents::doubleClick(m_dialog.get(), at(kMiddle), Qt::MouseButton(button));
    QCOMPARE(clicked.count(), count);
    press(kMiddle);
    release(kMiddle);
    QCOMPARE(clicked.count(), count);
}

void tst_BaseMoveDialog::countsADoubleClickAsAPress()
{
    // Qt's default double-click handler presses; the report comes after that.
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    connect(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect, this, [this] {
        if (m_dialog->isMoving())
            m_notes << QStringLiteral("pressed");
    });
    MouseEvents::doubleClick(m_dialog.get(), at(kMiddle));
    QCOMPARE(m_notes, QStringList{QStringLiteral("pressed")});
    release(kMiddle);
    QVERIFY(!m_dialog->isMoving());
}

void tst_BaseMoveDialog::passesItsEventsToTheBase()
{
    // QWidget's own handlers leave mouse events to the parent.
    const auto passes = [this](QEvent::Type type, Qt::MouseButtons buttons,
                               void (BaseMoveDialog::*handler)(QMouseEvent *)) {
        QMouseEvent event(type, kMiddle, at(kMiddle),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        event.accept();
        (m_dialog.get()->*handler)(&event);
        return !event.isAccepted();
    };
    for (const bool canMove : {true, false}) {
        for (const bool resizable : {true, false}) {
            m_dialog->setCanMove(canMove);
            m_dialog->setWidgetResizable(resizable);
            QVERIFY(passes(QEvent::MouseMove, Qt::NoButton, &BaseMoveDialog::mouseMoveEvent));
            QVERIFY(passes(QEvent::MouseButtonPress, Qt::LeftButton, &BaseMoveDialog::mousePressEvent));
            QVERIFY(passes(QEvent::MouseMove, Qt::LeftButton, &BaseMoveDialog::mouseMoveEvent));
            QVERIFY(passes(QEvent::MouseMove, Qt::RightButton, &BaseMoveDialog::mouseMoveEvent));
            QVERIFY(passes(QEvent::MouseButtonRelease, Qt::NoButton, &BaseMoveDialog::mouseReleaseEvent));
            QVERIFY(
                passes(QEvent::MouseButtonDblClick, Qt::LeftButton, &BaseMoveDialog::mouseDoubleClickEvent));
        }
    }
}

void tst_BaseMoveDialog::paintsItsStyleSheet()
{
    m_dialog->setStyleSheet(QStringLiteral("BaseMoveDialog{background-color:#4B66EB;border:2px solid #1F1F22;"
                                           "border-radius:8px;}"));
    const QImage picture = renderWidget(m_dialog.get());
    QCOMPARE(picture.pixelColor(kMiddle), QColor(0x4B, 0x66, 0xEB));
    QCOMPARE(picture.pixelColor(0, 130), QColor(0x1F, 0x1F, 0x22));
    QCOMPARE(picture.pixelColor(298, 130), QColor(0x1F, 0x1F, 0x22));
    QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
    m_dialog->setStyleSheet(QString());
    QCOMPARE(renderWidget(m_dialog.get()).pixelColor(kMiddle).alpha(), 0);
}

void tst_BaseMoveDialog::isMappedWhenShown()
{
    m_dialog->setAttribute(Qt::WA_Mapped, false);
    QShowEvent event;
    QCoreApplication::sendEvent(m_dialog.get(), &event);
    QVERIFY(m_dialog->testAttribute(Qt::WA_Mapped));
}

void tst_BaseMoveDialog::survivesDestructionInItsSlots_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("moved") << 0;
    QTest::newRow("move finished") << 1;
    QTest::newRow("resize finished") << 2;
    QTest::newRow("double click") << 3;
}

void tst_BaseMoveDialog::survivesDestructionInItsSlots()
{
    QFETCH(int, signal);
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    m_dialog->show();
    const auto strike = [this] {
        m_dialog.reset();
    };
    switch (signal) {
    case 0:
        connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this, strike);
        press(kTitle);
        moveTo(kTitle + QPoint(1, 1));
        break;
    case 1:
        connect(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished, this, strike);
        press({2, 130}); // a resize is due as well
        press(kMiddle);
        moveTo(kMiddle + QPoint(1, 1));
        release(kMiddle + QPoint(1, 1));
        break;
    case 2:
        connect(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished, this, strike);
        press({2, 130});
        release({20, 130});
        break;
    default:
        connect(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect, this, strike);
        MouseEvents::doubleClick(m_dialog.get(), at(kMiddle));
        break;
    }
    QVERIFY(!m_dialog);
}

void tst_BaseMoveDialog::survivesDestructionInTheMiddleOfAGesture()
{
    const LogCapture log;
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanResize(true, 5, true);
    QRect rect(0, 0, 1000, 1000);
    m_dialog->setRectOfCanMove(&rect);
    m_dialog->setRectOfCanDrag(rect);
    press({2, 130});
    m_dialog.reset();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows)
        QVERIFY(!qobject_cast<const QRubberBand *>(window));
}

void tst_BaseMoveDialog::survivesTheLossOfItsHelper()
{
    delete helper();
    m_dialog->setCanMove(true);
    m_dialog->setWidgetResizable(true);
    m_dialog->setWidgetTitleHeight(20);
    m_dialog->setEnableRightBottomResizeArea(true);
    m_dialog->setRectOfCanResize(true, 9, true);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    press({2, 30});
    moveTo({4, 30});
    release({4, 30});
    QCOMPARE(moved.count(), 1);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

QTEST_MAIN(tst_BaseMoveDialog)

#include "tst_basemovedialog.moc"
