#include "framelesshelper.h"

#include "testmain.h"
#include "xpointer.h"

#include <QtCore/QVector>
#include <QtGui/QMouseEvent>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>
#include <QtWidgets/QRubberBand>
#include <QtWidgets/QWidget>

#include <memory>

Q_DECLARE_METATYPE(Qt::Edges)

namespace {

const QRect kFrame(400, 300, 400, 300);
const QPoint kTitle(200, 30);
const QPoint kMiddle(200, 150);
const QPoint kOutside(50, 50);

/// A frameless window that notes its geometry whenever a move of the pointer reaches it.
class Window : public QWidget
{
public:
    Window()
        : QWidget(nullptr, Qt::FramelessWindowHint)
    {
        QWidget::setGeometry(kFrame);
    }

    QRect geometryAtMove;

protected:
    void mouseMoveEvent(QMouseEvent *event) override
    {
        geometryAtMove = geometry();
        QWidget::mouseMoveEvent(event);
    }
};

struct Place
{
    const char *name;
    QPoint local;
    Qt::CursorShape cursor;
    Qt::Edges pulled;
};

QVector<Place> places()
{
    const int right = kFrame.width() - 1;
    const int bottom = kFrame.height() - 1;
    return {
        {"left", {2, 150}, Qt::SizeHorCursor, Qt::LeftEdge},
        {"top", {200, 2}, Qt::SizeVerCursor, Qt::TopEdge},
        {"right", {right - 2, 150}, Qt::SizeHorCursor, Qt::RightEdge},
        {"bottom", {200, bottom - 2}, Qt::SizeVerCursor, Qt::BottomEdge},
        {"top left", {2, 2}, Qt::SizeFDiagCursor, Qt::LeftEdge | Qt::TopEdge},
        {"top right", {right - 2, 2}, Qt::SizeBDiagCursor, Qt::RightEdge | Qt::TopEdge},
        {"bottom left", {2, bottom - 2}, Qt::SizeBDiagCursor, Qt::LeftEdge | Qt::BottomEdge},
        {"bottom right", {right - 2, bottom - 2}, Qt::SizeFDiagCursor, Qt::RightEdge | Qt::BottomEdge},
    };
}

/// The frame after the pulled edges have come to lie under the pointer.
QRect pulledTo(Qt::Edges pulled, const QPoint &pointer)
{
    QRect rect = kFrame;
    if (pulled.testFlag(Qt::LeftEdge))
        rect.setLeft(pointer.x());
    if (pulled.testFlag(Qt::TopEdge))
        rect.setTop(pointer.y());
    if (pulled.testFlag(Qt::RightEdge))
        rect.setRight(pointer.x());
    if (pulled.testFlag(Qt::BottomEdge))
        rect.setBottom(pointer.y());
    return rect;
}

void addPlaces()
{
    QTest::addColumn<QPoint>("local");
    QTest::addColumn<int>("cursor");
    QTest::addColumn<Qt::Edges>("pulled");
    const QVector<Place> all = places();
    for (const Place &place : all)
        QTest::newRow(place.name) << place.local << int(place.cursor) << place.pulled;
}

QRubberBand *rubberBand()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *band = qobject_cast<QRubberBand *>(window))
            return band;
    }
    return nullptr;
}

} // namespace

class tst_FramelessHelper_x11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dragsByTheTitleStrip();
    void dragsPastTheEdgeOfTheScreen();
    void staysWhenPulledElsewhere();
    void resizes_data() { addPlaces(); }
    void resizes();
    void doesNotCreep();
    void resizesByTheEnlargedCorner();
    void keepsTheMinimumSize();
    void movesARubberBand();
    void resizesARubberBand_data() { addPlaces(); }
    void resizesARubberBand();
    void showsTheCursor_data() { addPlaces(); }
    void showsTheCursor();
    void unsetsTheCursor();
    void showsNoCursorWhenItFillsTheScreen_data();
    void showsNoCursorWhenItFillsTheScreen();
    void ignoresOtherButtons();
    void letsGoOfTheWindowWhenAModalDialogOpens_data();
    void letsGoOfTheWindowWhenAModalDialogOpens();
    void letsGoOfTheWindowWhenItIsHidden();

private:
    static QPoint at(const QPoint &local) { return kFrame.topLeft() + local; }

    std::unique_ptr<Window> m_window;
    std::unique_ptr<FramelessHelper> m_helper;
};

void tst_FramelessHelper_x11::init()
{
    XPointer::moveTo(kOutside);
    m_window = std::make_unique<Window>();
    m_helper = std::make_unique<FramelessHelper>();
    m_helper->activateOn(m_window.get());
    QVERIFY(XPointer::showAndWait(m_window.get()));
    QTRY_COMPARE(m_window->geometry(), kFrame);
}

void tst_FramelessHelper_x11::cleanup()
{
    XPointer::release(); // where a test has failed in mid-drag
    m_helper->setEnabelRightBottomAreaResize(false);
    m_helper.reset();
    m_window.reset();
}

void tst_FramelessHelper_x11::dragsByTheTitleStrip()
{
    XPointer::drag(at(kTitle), at(kTitle) + QPoint(57, -43));
    QTRY_COMPARE(m_window->geometry(), kFrame.translated(57, -43));
    XPointer::moveTo(at(kMiddle));
    QCOMPARE(m_window->geometry(), kFrame.translated(57, -43));
}

void tst_FramelessHelper_x11::dragsPastTheEdgeOfTheScreen()
{
    XPointer::drag(at(kTitle), {10, 10});
    QTRY_COMPARE(m_window->pos(), QPoint(10, 10) - kTitle);
    XPointer::drag({10, 10}, at(kTitle));
    QTRY_COMPARE(m_window->geometry(), kFrame);
}

void tst_FramelessHelper_x11::staysWhenPulledElsewhere()
{
    XPointer::drag(at(kMiddle), at(kMiddle) + QPoint(40, 40));
    QCOMPARE(m_window->geometry(), kFrame);
    m_helper->setWidgetMovable(false);
    XPointer::drag(at(kTitle), at(kTitle) + QPoint(40, 40));
    QCOMPARE(m_window->geometry(), kFrame);
}

void tst_FramelessHelper_x11::resizes()
{
    QFETCH(QPoint, local);
    QFETCH(Qt::Edges, pulled);
    const QPoint outwards =
        at(local) + QPoint(pulled.testFlag(Qt::LeftEdge) ? -50 : 50, pulled.testFlag(Qt::TopEdge) ? -40 : 40);
    XPointer::drag(at(local), outwards);
    QTRY_COMPARE(m_window->geometry(), pulledTo(pulled, outwards));
    m_window->setGeometry(kFrame);
    QTRY_COMPARE(m_window->geometry(), kFrame);
    const QPoint inwards =
        at(local) - QPoint(pulled.testFlag(Qt::LeftEdge) ? -50 : 50, pulled.testFlag(Qt::TopEdge) ? -40 : 40);
    XPointer::drag(at(local), inwards);
    QTRY_COMPARE(m_window->geometry(), pulledTo(pulled, inwards));
}

// However often it goes to and fro: at a fractional ratio not every place is one of the screen's own pixels.
void tst_FramelessHelper_x11::doesNotCreep()
{
    const QPoint corner(kFrame.width() - 3, kFrame.height() - 3);
    QRect expected = kFrame;
    for (int round = 1; round <= 4; ++round) {
        const QPoint there(7 * round, -3 * round);
        XPointer::drag(at(kTitle), at(kTitle) + there);
        XPointer::drag(at(kTitle) + there, at(kTitle));
        QTRY_COMPARE(m_window->geometry(), expected);
        XPointer::drag(at(corner), at(corner) + there);
        XPointer::drag(at(corner) + there, at(corner));
        expected = pulledTo(Qt::RightEdge | Qt::BottomEdge, at(corner));
        QTRY_COMPARE(m_window->geometry(), expected);
    }
}

void tst_FramelessHelper_x11::resizesByTheEnlargedCorner()
{
    const QPoint corner = kFrame.bottomRight() - QPoint(12, 12);
    XPointer::drag(corner, corner + QPoint(30, 30));
    QCOMPARE(m_window->geometry(), kFrame);
    m_helper->setEnabelRightBottomAreaResize(true);
    m_helper->setDragDirection(false, false, false, false);
    XPointer::moveTo(corner - QPoint(5, 5));
    XPointer::moveTo(corner);
    QTRY_COMPARE(m_window->cursor().shape(), Qt::SizeFDiagCursor);
    XPointer::drag(corner, corner + QPoint(30, 20));
    QTRY_COMPARE(m_window->geometry(), QRect(kFrame.topLeft(), corner + QPoint(30, 20)));
}

void tst_FramelessHelper_x11::keepsTheMinimumSize()
{
    m_window->setMinimumSize(300, 250);
    const QPoint right = at({398, 150});
    XPointer::moveTo(right);
    XPointer::press();
    XPointer::moveTo(right - QPoint(50, 0));
    QTRY_COMPARE(m_window->width(), 349);
    XPointer::moveTo(right - QPoint(150, 0)); // too far: the edge goes back to where it was
    QTRY_COMPARE(m_window->geometryAtMove.width(), 349);
    QCOMPARE(m_window->width(), 349);
    XPointer::release();

    const QPoint top = at({200, 1});
    XPointer::drag(top, top + QPoint(0, 200));
    QTRY_VERIFY(m_window->height() >= 250);
    QCOMPARE(m_window->geometry().bottom(), kFrame.bottom());
}

void tst_FramelessHelper_x11::movesARubberBand()
{
    m_helper->setRubberBandOnMove(true);
    XPointer::moveTo(at(kTitle));
    XPointer::press();
    QTRY_VERIFY(rubberBand()->isVisible());
    QCOMPARE(rubberBand()->geometry(), kFrame);
    XPointer::glideTo(at(kTitle) + QPoint(-250, 160));
    QTRY_COMPARE(rubberBand()->geometry(), kFrame.translated(-250, 160));
    QCOMPARE(m_window->geometry(), kFrame);
    XPointer::release();
    QTRY_VERIFY(!rubberBand()->isVisible());
    QTRY_COMPARE(m_window->geometry(), kFrame.translated(-250, 160));
}

void tst_FramelessHelper_x11::resizesARubberBand()
{
    QFETCH(QPoint, local);
    QFETCH(Qt::Edges, pulled);
    m_helper->setRubberBandOnResize(true);
    const QPoint to =
        at(local) + QPoint(pulled.testFlag(Qt::LeftEdge) ? -60 : 60, pulled.testFlag(Qt::TopEdge) ? -70 : 70);
    XPointer::moveTo(at(local));
    XPointer::press();
    QTRY_VERIFY(rubberBand()->isVisible());
    XPointer::glideTo(to);
    QTRY_COMPARE(rubberBand()->geometry(), pulledTo(pulled, to));
    QCOMPARE(m_window->geometry(), kFrame);
    XPointer::release();
    QTRY_VERIFY(!rubberBand()->isVisible());
    QTRY_COMPARE(m_window->geometry(), pulledTo(pulled, to));
}

void tst_FramelessHelper_x11::showsTheCursor()
{
    QFETCH(QPoint, local);
    QFETCH(int, cursor);
    XPointer::moveTo(at(kMiddle));
    QTRY_COMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
    XPointer::moveTo(at(local));
    QTRY_COMPARE(int(m_window->cursor().shape()), cursor);
    XPointer::moveTo(at(kMiddle));
    QTRY_COMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
    m_helper->setWidgetResizable(false);
    XPointer::moveTo(at(local));
    QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
}

void tst_FramelessHelper_x11::unsetsTheCursor()
{
    XPointer::moveTo(at({2, 150}));
    QTRY_COMPARE(m_window->cursor().shape(), Qt::SizeHorCursor);
    XPointer::moveTo(kOutside);
    QTRY_COMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
}

void tst_FramelessHelper_x11::showsNoCursorWhenItFillsTheScreen_data()
{
    QTest::addColumn<int>("state");
    QTest::newRow("maximised") << int(Qt::WindowMaximized);
    QTest::newRow("full screen") << int(Qt::WindowFullScreen);
}

void tst_FramelessHelper_x11::showsNoCursorWhenItFillsTheScreen()
{
    QFETCH(int, state);
    m_window->setWindowState(Qt::WindowState(state));
    const QRect filled = m_window->screen()->geometry();
    QTRY_COMPARE(m_window->geometry(), filled); // the size may be there before the place
    for (const QPoint &edge : {filled.topLeft(), filled.center(), QPoint(filled.left(), filled.center().y()),
                               filled.bottomRight(), QPoint(filled.center().x(), filled.bottom())}) {
        XPointer::moveTo(edge);
        QTRY_VERIFY(m_window->underMouse());
        QCOMPARE(m_window->cursor().shape(), Qt::ArrowCursor);
    }

    // Pulled at an edge it is resized all the same. What the window manager makes of that is its own affair.
    const QPoint from(filled.right(), filled.center().y());
    XPointer::moveTo(from);
    XPointer::press();
    m_window->geometryAtMove = QRect();
    XPointer::moveTo(from - QPoint(200, 0));
    QTRY_VERIFY(m_window->geometryAtMove.isValid());
    QCOMPARE(m_window->geometryAtMove, filled.adjusted(0, 0, -200, 0));
    XPointer::release();
}

void tst_FramelessHelper_x11::ignoresOtherButtons()
{
    for (const int button : {2, 3}) {
        XPointer::drag(at(kTitle), at(kTitle) + QPoint(20, 20), button);
        XPointer::drag(at({2, 2}), at({-20, -20}), button);
        QCOMPARE(m_window->geometry(), kFrame);
    }
}

void tst_FramelessHelper_x11::letsGoOfTheWindowWhenAModalDialogOpens_data()
{
    QTest::addColumn<bool>("rubberBand");
    QTest::addColumn<QPoint>("from");
    for (const bool rubberBand : {false, true}) {
        QTest::addRow("move%s", rubberBand ? " of a rubber band" : "") << rubberBand << kTitle;
        QTest::addRow("resize%s", rubberBand ? " of a rubber band" : "") << rubberBand << QPoint(2, 150);
    }
}

// The pointer is really held down, and really released while the dialog is there.
void tst_FramelessHelper_x11::letsGoOfTheWindowWhenAModalDialogOpens()
{
    QFETCH(bool, rubberBand);
    QFETCH(QPoint, from);
    m_helper->setRubberBandOnMove(rubberBand);
    m_helper->setRubberBandOnResize(rubberBand);
    XPointer::moveTo(at(from));
    XPointer::press();
    XPointer::glideTo(at(from) - QPoint(60, 0));
    const QRect pulled = from == kTitle ? kFrame.translated(-60, 0) : kFrame.adjusted(-58, 0, 0, 0);
    const QRect frame = rubberBand ? kFrame : pulled;
    QTRY_COMPARE(rubberBand ? ::rubberBand()->geometry() : m_window->geometry(), pulled);
    QCOMPARE(m_window->geometry(), frame);

    QDialog dialog;
    dialog.setModal(true);
    dialog.setGeometry(20, 20, 150, 100);
    QVERIFY(XPointer::showAndWait(&dialog));
    QVERIFY(!rubberBand || !::rubberBand()->isVisible());
    XPointer::glideTo(at(from) + QPoint(20, 90));
    XPointer::release();
    QCOMPARE(m_window->geometry(), frame);
    dialog.hide();
    QVERIFY(XPointer::showAndWait(m_window.get()));
    XPointer::glideTo(frame.center());
    XPointer::glideTo(frame.center() + QPoint(30, 40));
    QCOMPARE(m_window->geometry(), frame);
    QVERIFY(!rubberBand || !::rubberBand()->isVisible());

    XPointer::drag(frame.topLeft() + kTitle, frame.topLeft() + kTitle + QPoint(50, 60));
    QTRY_COMPARE(m_window->geometry(), frame.translated(50, 60));
}

void tst_FramelessHelper_x11::letsGoOfTheWindowWhenItIsHidden()
{
    XPointer::moveTo(at(kTitle));
    XPointer::press();
    XPointer::glideTo(at(kTitle) + QPoint(40, 0));
    QTRY_COMPARE(m_window->geometry(), kFrame.translated(40, 0));
    m_window->hide();
    XPointer::release();
    QVERIFY(XPointer::showAndWait(m_window.get()));
    const QRect frame = m_window->geometry();
    XPointer::glideTo(frame.center());
    XPointer::glideTo(frame.center() + QPoint(30, 40));
    QCOMPARE(m_window->geometry(), frame);
}

ORV_TEST_MAIN(tst_FramelessHelper_x11)

#include "tst_framelesshelper_x11.moc"
