#include "basemovedialog.h"

#include "framelesshelper.h"
#include "testmain.h"
#include "xpointer.h"

#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QDialog>

#include <memory>

namespace {

const QRect kGeometry(400, 300, 400, 300);
const QPoint kTitle(200, 30);
const QPoint kMiddle(200, 150);
const QRect kCanDrag(100, 20, 200, 100);
const QColor kBackground(0x4B, 0x66, 0xEB);

} // namespace

class tst_BaseMoveDialog_x11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void movesAndReports();
    void movesWithoutReportOutsideItsRectangle();
    void staysWhenItCannotMove();
    void reportsADoubleClick();
    void resizesAndReports_data();
    void resizesAndReports();
    void resizesByTheEnlargedCorner();
    void resizesARubberBand();
    void reportsNoResizeThatEndsWhereItStarted();
    void showsTheResizeCursorOnlyWhenResizable();
    void isPaintedAgainWhenShownAgain();
    void letsGoWhenAModalDialogOpens();

private:
    static QPoint at(const QPoint &local) { return kGeometry.topLeft() + local; }

    std::unique_ptr<BaseMoveDialog> m_dialog;
    std::unique_ptr<QSignalSpy> m_moved;
    std::unique_ptr<QSignalSpy> m_moveFinished;
    std::unique_ptr<QSignalSpy> m_resizeFinished;
    std::unique_ptr<QSignalSpy> m_doubleClicked;
};

void tst_BaseMoveDialog_x11::init()
{
    XPointer::moveTo({50, 50});
    m_dialog = std::make_unique<BaseMoveDialog>(nullptr, true, true, true);
    m_dialog->setGeometry(kGeometry);
    m_dialog->setStyleSheet(QStringLiteral("BaseMoveDialog{background-color:#4B66EB;}"));
    m_moved = std::make_unique<QSignalSpy>(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    m_moveFinished = std::make_unique<QSignalSpy>(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished);
    m_resizeFinished =
        std::make_unique<QSignalSpy>(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    m_doubleClicked =
        std::make_unique<QSignalSpy>(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect);
    QVERIFY(XPointer::showAndWait(m_dialog.get()));
    QTRY_COMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog_x11::cleanup()
{
    XPointer::release(); // where a test has failed in mid-drag
    m_dialog->setEnableRightBottomResizeArea(false);
    m_dialog->setRectOfCanResize(false, 5, false);
    m_dialog.reset();
}

void tst_BaseMoveDialog_x11::movesAndReports()
{
    XPointer::moveTo(at(kTitle));
    XPointer::press();
    QTRY_VERIFY(m_dialog->isMoving());
    XPointer::glideTo(at(kTitle) + QPoint(120, -90));
    QTRY_COMPARE(m_dialog->geometry(), kGeometry.translated(120, -90));
    QVERIFY(m_moved->count() > 1);
    QCOMPARE(m_moved->constLast().at(0).toPoint(), at({120, -90}));
    QCOMPARE(m_moveFinished->count(), 0);
    XPointer::release();
    QTRY_COMPARE(m_moveFinished->count(), 1);
    QVERIFY(!m_dialog->isMoving());
    QCOMPARE(m_resizeFinished->count(), 0);
}

void tst_BaseMoveDialog_x11::movesWithoutReportOutsideItsRectangle()
{
    m_dialog->setRectOfCanDrag(kCanDrag);
    XPointer::drag(at({50, 30}), at({90, 70}));
    QTRY_COMPARE(m_dialog->geometry(), kGeometry.translated(40, 40));
    QCOMPARE(m_moved->count(), 0);
    QCOMPARE(m_moveFinished->count(), 0);
    XPointer::drag(at(kTitle) + QPoint(40, 40), at(kTitle));
    QTRY_COMPARE(m_dialog->geometry(), kGeometry);
    QTRY_COMPARE(m_moveFinished->count(), 1);
}

void tst_BaseMoveDialog_x11::staysWhenItCannotMove()
{
    m_dialog->setCanMove(false);
    XPointer::drag(at(kTitle), at(kMiddle));
    QCOMPARE(m_dialog->geometry(), kGeometry);
    QCOMPARE(m_moved->count(), 0);
    QVERIFY(m_dialog->isMoving());
}

void tst_BaseMoveDialog_x11::reportsADoubleClick()
{
    m_dialog->setRectOfCanDrag(kCanDrag);
    const QStringList doubleClick{QStringLiteral("click"),   QStringLiteral("--repeat"), QStringLiteral("2"),
                                  QStringLiteral("--delay"), QStringLiteral("40"),       QStringLiteral("1")};
    XPointer::moveTo(at({50, 30}));
    XPointer::xdotool(doubleClick);
    XPointer::moveTo(at(kMiddle));
    XPointer::click(at(kMiddle));
    QCOMPARE(m_doubleClicked->count(), 0);
    XPointer::moveTo(at(kTitle));
    XPointer::xdotool(doubleClick);
    QTRY_COMPARE(m_doubleClicked->count(), 1);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog_x11::resizesAndReports_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("by");
    QTest::addColumn<QRect>("result");
    // The pulled edge comes to lie under the pointer.
    const QRect &g = kGeometry;
    QTest::newRow("left") << QPoint(2, 150) << QPoint(-30, 0) << g.adjusted(-28, 0, 0, 0);
    QTest::newRow("top") << QPoint(200, 2) << QPoint(0, -40) << g.adjusted(0, -38, 0, 0);
    QTest::newRow("right") << QPoint(397, 150) << QPoint(-30, 0) << g.adjusted(0, 0, -32, 0);
    QTest::newRow("bottom") << QPoint(200, 297) << QPoint(0, 40) << g.adjusted(0, 0, 0, 38);
    QTest::newRow("top left") << QPoint(2, 2) << QPoint(30, 40) << g.adjusted(32, 42, 0, 0);
    QTest::newRow("top right") << QPoint(397, 2) << QPoint(30, -40) << g.adjusted(0, -38, 28, 0);
    QTest::newRow("bottom left") << QPoint(2, 297) << QPoint(-30, 40) << g.adjusted(-28, 0, 0, 38);
    QTest::newRow("bottom right") << QPoint(397, 297) << QPoint(-30, -40) << g.adjusted(0, 0, -32, -42);
}

void tst_BaseMoveDialog_x11::resizesAndReports()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, by);
    QFETCH(QRect, result);
    m_dialog->setWidgetResizable(true);
    XPointer::drag(at(from), at(from + by));
    QTRY_COMPARE(m_dialog->geometry(), result);
    QTRY_COMPARE(m_resizeFinished->count(), 1);
    QCOMPARE(m_moved->count(), 0);
    QCOMPARE(m_moveFinished->count(), 0);
}

void tst_BaseMoveDialog_x11::resizesByTheEnlargedCorner()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setEnableRightBottomResizeArea(true);
    XPointer::drag(at({387, 287}), at({427, 317}));
    QTRY_COMPARE(m_dialog->size(), QSize(428, 318));
    QTRY_COMPARE(m_resizeFinished->count(), 1);
    QCOMPARE(m_moved->count(), 0);
}

void tst_BaseMoveDialog_x11::resizesARubberBand()
{
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanResize(true, 12, true);
    XPointer::moveTo(at({390, 150}));
    XPointer::press();
    XPointer::glideTo(at({450, 150}));
    QCOMPARE(m_dialog->geometry(), kGeometry);
    XPointer::release();
    QTRY_COMPARE(m_dialog->size(), QSize(451, 300));
    QTRY_COMPARE(m_resizeFinished->count(), 1);
}

void tst_BaseMoveDialog_x11::reportsNoResizeThatEndsWhereItStarted()
{
    m_dialog->setWidgetResizable(true);
    XPointer::click(at({398, 150}));
    QTRY_VERIFY(!m_dialog->isMoving());
    QCOMPARE(m_resizeFinished->count(), 0);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

void tst_BaseMoveDialog_x11::showsTheResizeCursorOnlyWhenResizable()
{
    XPointer::moveTo(at({2, 150}));
    QTRY_VERIFY(m_dialog->underMouse());
    QCOMPARE(m_dialog->cursor().shape(), Qt::ArrowCursor);
    m_dialog->setWidgetResizable(true);
    XPointer::moveTo(at({3, 151}));
    QTRY_COMPARE(m_dialog->cursor().shape(), Qt::SizeHorCursor);
    XPointer::moveTo(at(kMiddle));
    QTRY_COMPARE(m_dialog->cursor().shape(), Qt::ArrowCursor);
}

void tst_BaseMoveDialog_x11::isPaintedAgainWhenShownAgain()
{
    const auto colourOnScreen = [] {
        return XPointer::grabScreen().pixelColor(at(kMiddle));
    };
    QTRY_COMPARE(colourOnScreen(), kBackground);
    for (int i = 0; i < 3; ++i) {
        m_dialog->hide();
        QTRY_VERIFY(colourOnScreen() != kBackground);
        QVERIFY(XPointer::showAndWait(m_dialog.get()));
        QTRY_COMPARE(colourOnScreen(), kBackground);
    }
}

// A slot of the drag itself opens the dialog, and blocks in it.
void tst_BaseMoveDialog_x11::letsGoWhenAModalDialogOpens()
{
    QDialog modal;
    modal.setGeometry(20, 20, 150, 100);
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, &modal, [&](QPoint pos) {
        if (pos.x() < kGeometry.x() + 50 || modal.isVisible())
            return;
        QTimer::singleShot(0, &modal, [&] {
            QVERIFY(QTest::qWaitForWindowExposed(&modal));
            QTRY_COMPARE(m_moveFinished->count(), 1);
            XPointer::glideTo(at(kTitle) + QPoint(10, 90));
            XPointer::release();
            modal.accept();
        });
        modal.exec();
    });
    XPointer::moveTo(at(kTitle));
    XPointer::press();
    XPointer::glideTo(at(kTitle) + QPoint(60, 0));
    QTRY_COMPARE(modal.result(), int(QDialog::Accepted));
    const QRect left = m_dialog->geometry();
    const int moves = m_moved->count();
    QVERIFY(left.x() >= kGeometry.x() + 50);
    QVERIFY(!m_dialog->isMoving());

    QVERIFY(XPointer::showAndWait(m_dialog.get()));
    XPointer::glideTo(left.center());
    XPointer::glideTo(left.center() + QPoint(30, 40));
    QCOMPARE(m_dialog->geometry(), left);
    QCOMPARE(m_moved->count(), moves);
    QCOMPARE(m_moveFinished->count(), 1);
}

ORV_TEST_MAIN(tst_BaseMoveDialog_x11)

#include "tst_basemovedialog_x11.moc"
