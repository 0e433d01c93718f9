#include "systemgesture.h"
#include "testmain.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>

namespace {

constexpr QRect kStart(100, 100, 300, 200);

void send(QWindow *window, QEvent::Type type, Qt::MouseButtons buttons)
{
    const QPoint pos(20, 20);
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pos, pos, window->mapToGlobal(pos), button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

class Widget : public QWidget
{
public:
    using QWidget::QWidget;
    void destroyWindow() { destroy(); }

    std::function<void()> moved;

protected:
    void moveEvent(QMoveEvent *) override
    {
        if (moved)
            moved();
    }
};

} // namespace

/// The window manager is played by the QWindow: what is done to it the widget hears as from outside.
class tst_SystemGesture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void tellsMovesOfTheWindowManager();
    void ignoresWhatTheProgramDoes();
    void ends_data();
    void ends();
    void tellsTheLastMoveBeforeTheEnd();
    void beginsOverAndOver();
    void needsANativeWindow();
    void isLostWithTheNativeWindow();

private:
    QWindow *window() const { return m_widget->windowHandle(); }

    std::unique_ptr<Widget> m_widget;
    std::unique_ptr<SystemGesture> m_gesture;
    int m_moves = 0;
    int m_ends = 0;
    int m_movesBeforeTheEnd = 0;
};

void tst_SystemGesture::init()
{
    m_gesture.reset();
    m_widget = std::make_unique<Widget>(nullptr, Qt::FramelessWindowHint);
    m_widget->setGeometry(kStart);
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget.get()));
    m_gesture = std::make_unique<SystemGesture>(
        m_widget.get(), [this] { ++m_moves; },
        [this] {
            ++m_ends;
            m_movesBeforeTheEnd = m_moves;
        });
    m_moves = m_ends = m_movesBeforeTheEnd = 0;
    m_gesture->begin();
    QVERIFY(m_gesture->isUnderWay());
}

void tst_SystemGesture::tellsMovesOfTheWindowManager()
{
    window()->setPosition(kStart.topLeft() + QPoint(5, 5));
    QTRY_COMPARE(m_widget->pos(), kStart.topLeft() + QPoint(5, 5));
    QTRY_COMPARE(m_moves, 1);
    window()->resize(320, 220);
    QTRY_COMPARE(m_widget->size(), QSize(320, 220));
    QCoreApplication::processEvents();
    QCOMPARE(m_moves, 1);
    window()->setPosition(kStart.topLeft());
    QTRY_COMPARE(m_moves, 2);
    QCOMPARE(m_ends, 0);
}

void tst_SystemGesture::ignoresWhatTheProgramDoes()
{
    m_widget->move(kStart.topLeft() + QPoint(9, 9));
    m_widget->resize(330, 230);
    QTRY_COMPARE(window()->geometry(), QRect(kStart.topLeft() + QPoint(9, 9), QSize(330, 230)));
    QCoreApplication::processEvents();
    QCOMPARE(m_moves, 0);
    // Nothing has happened as far as the gesture goes, which the release does not end.
    send(window(), QEvent::MouseButtonRelease, Qt::NoButton);
    QVERIFY(m_gesture->isUnderWay());
    window()->setPosition(kStart.topLeft());
    QTRY_COMPARE(m_moves, 1);
}

void tst_SystemGesture::ends_data()
{
    QTest::addColumn<QEvent::Type>("type");
    QTest::addColumn<Qt::MouseButtons>("buttons");
    QTest::addColumn<bool>("isMoved");
    QTest::addColumn<bool>("isEnd");
    const Qt::MouseButtons none;
    const Qt::MouseButtons left = Qt::LeftButton;
    const Qt::MouseButtons right = Qt::RightButton;
    for (const bool isMoved : {false, true}) {
        const char *state = isMoved ? "moved" : "not moved";
        QTest::addRow("press, %s", state) << QEvent::MouseButtonPress << left << isMoved << true;
        QTest::addRow("double click, %s", state) << QEvent::MouseButtonDblClick << left << isMoved << true;
        QTest::addRow("hover, %s", state) << QEvent::MouseMove << none << isMoved << true;
        QTest::addRow("another button's drag, %s", state) << QEvent::MouseMove << right << isMoved << true;
        QTest::addRow("drag, %s", state) << QEvent::MouseMove << left << isMoved << false;
        QTest::addRow("release, %s", state) << QEvent::MouseButtonRelease << none << isMoved << isMoved;
        QTest::addRow("another button's release, %s", state)
            << QEvent::MouseButtonRelease << left << isMoved << false;
    }
}

void tst_SystemGesture::ends()
{
    QFETCH(QEvent::Type, type);
    QFETCH(Qt::MouseButtons, buttons);
    QFETCH(bool, isMoved);
    QFETCH(bool, isEnd);
    if (isMoved) {
        window()->setPosition(kStart.topLeft() + QPoint(5, 5));
        QTRY_COMPARE(m_widget->pos(), kStart.topLeft() + QPoint(5, 5));
    }
    send(window(), type, buttons);
    QCOMPARE(m_ends, int(isEnd));
    QCOMPARE(m_gesture->isUnderWay(), !isEnd);
    if (isEnd)
        QCOMPARE(m_moves, int(isMoved)); // told before the end
    QTRY_COMPARE(m_moves, int(isMoved));
    send(window(), QEvent::MouseMove, Qt::NoButton);
    QCOMPARE(m_ends, 1);
}

// Although the event loop has not been reached since the move.
void tst_SystemGesture::tellsTheLastMoveBeforeTheEnd()
{
    m_widget->moved = [this] {
        send(window(), QEvent::MouseMove, Qt::NoButton);
    };
    window()->setPosition(kStart.topLeft() + QPoint(5, 5));
    QTRY_COMPARE(m_ends, 1);
    QCOMPARE(m_movesBeforeTheEnd, 1);
    QCoreApplication::processEvents();
    QCOMPARE(m_moves, 1);
}

void tst_SystemGesture::beginsOverAndOver()
{
    m_gesture->begin();
    send(window(), QEvent::MouseMove, Qt::NoButton);
    QCOMPARE(m_ends, 1);
    m_gesture->begin();
    m_gesture->end();
    QVERIFY(!m_gesture->isUnderWay());
    send(window(), QEvent::MouseMove, Qt::NoButton);
    window()->setPosition(kStart.topLeft() + QPoint(5, 5));
    QTRY_COMPARE(m_widget->pos(), kStart.topLeft() + QPoint(5, 5));
    QCoreApplication::processEvents();
    QCOMPARE(m_ends, 1);
    QCOMPARE(m_moves, 0);
}

void tst_SystemGesture::needsANativeWindow()
{
    QWidget hidden;
    SystemGesture gesture(
        &hidden, [] {}, [] {});
    gesture.begin();
    QVERIFY(!gesture.isUnderWay());
}

void tst_SystemGesture::isLostWithTheNativeWindow()
{
    m_widget->destroyWindow();
    QVERIFY(!m_gesture->isUnderWay());
    m_widget->show();
    m_widget->winId();
    window()->setPosition(kStart.topLeft() + QPoint(5, 5));
    QTRY_COMPARE(m_widget->pos(), kStart.topLeft() + QPoint(5, 5));
    QCoreApplication::processEvents();
    QCOMPARE(m_moves, 0);
    QCOMPARE(m_ends, 0);
}

ORV_TEST_MAIN(tst_SystemGesture)
#include "tst_systemgesture.moc"
