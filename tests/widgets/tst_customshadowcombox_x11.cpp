#include "shadowcombotesting.h"
#include "testmain.h"
#include "xpointer.h"

#include <QtCore/QPointer>
#include <QtGui/QScreen>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QFocusFrame>
#include <QtWidgets/QScrollBar>

#include <memory>

namespace {

QPoint centerOf(const QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

// The combo box, and how often each way to close was reported.
class Combo : public ShadowComboTesting::Combo
{
public:
    using ShadowComboTesting::Combo::Combo;

    QScrollArea *area() const { return popup()->findChild<QScrollArea *>(); }
    bool isHovered(int index) const { return row(index)->styleSheet().contains(QLatin1String("#F4F4F4")); }
    void add(int rows)
    {
        for (int index = 0; index < rows; ++index)
            addItem(QStringLiteral("Camera %1").arg(count() + 1), 16);
    }

    QSignalSpy chosen{this, &CustomShadowCombox::currentIndexChanged};
    QSignalSpy grayChosen{this, &CustomShadowCombox::currentGrayIndexChanged};
    QSignalSpy hidden{this, &CustomShadowCombox::signalPopWidHideWhenClickOtherPos};
    QSignalSpy left{this, &CustomShadowCombox::signalMouseMoveLeavePopup};
};

} // namespace

/// The shadow combo box under a real pointer and keyboard.
class tst_CustomShadowComboxX11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void opensAndChooses();
    void grayRowIsReported();
    void highlightsTheRowUnderThePointer();
    void dragSelectsNothing();
    void outsidePressCloses();
    void keyCloses();
    void keysOpenAndChoose();
    void headerClickClosesAndStaysClosed();
    void doubleClickOnTheHeader();
    void anotherWindowCloses();
    void reportsThePointerThatLeaves();
    void opensAboveAtTheBottomEdge();
    void wheelScrollsALongList();
    void rowsChangeWhileOpen();
    void twoSideBySide();
    void destroyedByAClick_data();
    void destroyedByAClick();

private:
    void open(Combo *combo);
    void waitForList(const Combo *combo);

    std::unique_ptr<QWidget> m_window;
    QPointer<Combo> m_combo;
};

void tst_CustomShadowComboxX11::init()
{
    XPointer::moveTo(QPoint(5, 5));
    m_window = std::make_unique<QWidget>();
    m_window->setGeometry(60, 30, 420, 120);
    m_combo = new Combo(m_window.get());
    m_combo->setGeometry(20, 10, 200, 48);
    m_combo->add(3);
    QVERIFY(XPointer::showAndWait(m_window.get()));
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_CustomShadowComboxX11::cleanup()
{
    m_window.reset();
}

void tst_CustomShadowComboxX11::open(Combo *combo)
{
    XPointer::click(centerOf(combo->header()));
    waitForList(combo);
}

// Qt believes the list in the corner of the screen between two events of the window manager, which frames it there and
// then moves the frame.
void tst_CustomShadowComboxX11::waitForList(const Combo *combo)
{
    QTRY_VERIFY(combo->isOpen());
    QVERIFY(QTest::qWaitForWindowActive(combo->popup()));
    QTRY_COMPARE(combo->popup()->x(), combo->mapToGlobal(QPoint(-4, 0)).x());
}

void tst_CustomShadowComboxX11::opensAndChooses()
{
    open(m_combo);
    QCOMPARE(m_combo->popup()->pos(), m_combo->mapToGlobal(QPoint(-4, 48)));
    QCOMPARE(m_combo->popup()->size(), QSize(208, 168));
    XPointer::click(centerOf(m_combo->row(1)));
    QTRY_COMPARE(m_combo->chosen.count(), 1);
    QTRY_VERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->currentIndex(), 1);
    QCOMPARE(m_combo->header()->findChild<QLabel *>()->text(), QStringLiteral("Camera 2"));
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));

    open(m_combo);
    QVERIFY(m_combo->row(1)->findChildren<QLabel *>().at(1)->isVisible()); // the check mark
    XPointer::click(centerOf(m_combo->row(1)));
    QTRY_VERIFY(!m_combo->isOpen());
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QCOMPARE(m_combo->chosen.count(), 1);
    QCOMPARE(m_combo->hidden.count(), 0);
}

void tst_CustomShadowComboxX11::grayRowIsReported()
{
    m_combo->addItem(QStringLiteral("Not available"), true, false);
    open(m_combo);
    const QWidget *badge = m_combo->row(3)->findChildren<QLabel *>().at(2);
    QVERIFY(badge->isVisible());
    XPointer::click(centerOf(badge));
    QTRY_COMPARE(m_combo->grayChosen.count(), 1);
    QCOMPARE(m_combo->grayChosen.first().first().toInt(), 3);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->currentIndex(), -1);
    QCOMPARE(m_combo->chosen.count(), 0);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QCOMPARE(m_combo->hidden.count(), 0);
}

void tst_CustomShadowComboxX11::highlightsTheRowUnderThePointer()
{
    open(m_combo);
    for (const int row : {0, 2}) {
        XPointer::moveTo(centerOf(m_combo->row(row)) + QPoint(40, 0));
        for (int index = 0; index < 3; ++index)
            QTRY_COMPARE(m_combo->isHovered(index), index == row);
    }
    const QPoint pixel = (QPointF(centerOf(m_combo->row(2))) * m_window->devicePixelRatioF()).toPoint();
    QTRY_COMPARE(XPointer::grabScreen().pixelColor(pixel), QColor(0xF4, 0xF4, 0xF4));
    QCOMPARE(m_combo->row(0)->cursor().shape(), Qt::PointingHandCursor);
    XPointer::key(QStringLiteral("Escape"));
    QTRY_VERIFY(!m_combo->isOpen());
    for (int index = 0; index < 3; ++index)
        QVERIFY(!m_combo->isHovered(index));
}

void tst_CustomShadowComboxX11::dragSelectsNothing()
{
    open(m_combo);
    const QPoint start = centerOf(m_combo->row(1));
    XPointer::drag(start, start + QPoint(QApplication::startDragDistance() + 1, 0));
    XPointer::drag(start, start + QPoint(0, 60));
    QVERIFY(m_combo->isOpen());
    XPointer::click(start, 3);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(m_combo->currentIndex(), -1);
}

void tst_CustomShadowComboxX11::outsidePressCloses()
{
    open(m_combo);
    XPointer::moveTo(m_window->mapToGlobal(QPoint(350, 60)));
    XPointer::press();
    QTRY_VERIFY(!m_combo->isOpen());
    QTRY_COMPARE(m_combo->hidden.count(), 1);
    XPointer::release();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QCOMPARE(m_combo->hidden.count(), 1);
}

void tst_CustomShadowComboxX11::keyCloses()
{
    for (const char *key : {"Escape", "a", "shift"}) {
        m_combo->hidden.clear();
        open(m_combo);
        XPointer::key(QString::fromLatin1(key));
        QTRY_VERIFY(!m_combo->isOpen());
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QCOMPARE(m_combo->hidden.count(), 1);
    }
}

// The focus, and its mark, come back from the list by themselves.
void tst_CustomShadowComboxX11::keysOpenAndChoose()
{
    m_combo->setFocusPolicy(Qt::StrongFocus);
    XPointer::key(QStringLiteral("Tab"));
    QTRY_VERIFY(m_combo->hasFocus());
    const auto isMarked = [this] {
        const auto *mark = m_combo->findChild<QFocusFrame *>();
        return mark && mark->isVisible();
    };
    for (const char *key : {"space", "alt+Down", "F4", "KP_Enter"}) {
        QVERIFY(isMarked());
        XPointer::key(QString::fromLatin1(key));
        waitForList(m_combo);
        QTRY_VERIFY(!isMarked());
        XPointer::key(QStringLiteral("Down"));
        QTRY_VERIFY(!m_combo->isOpen());
        QCOMPARE(m_combo->chosen.count(), 0);
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTRY_VERIFY(m_combo->hasFocus());
    }
    QCOMPARE(m_combo->hidden.count(), 4);
    XPointer::key(QStringLiteral("Down"));
    QTRY_COMPARE(m_combo->chosen.count(), 1);
    XPointer::key(QStringLiteral("End"));
    QTRY_COMPARE(m_combo->currentIndex(), 2);
    QCOMPARE(m_combo->hidden.count(), 4);
}

void tst_CustomShadowComboxX11::headerClickClosesAndStaysClosed()
{
    for (int round = 0; round < 2; ++round) {
        open(m_combo);
        XPointer::moveTo(centerOf(m_combo->header()));
        XPointer::press();
        QVERIFY(m_combo->isOpen()); // the press, and the activation that comes with it, are the header's
        XPointer::release();
        QTRY_VERIFY(!m_combo->isOpen());
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QVERIFY(!m_combo->isOpen());
    }
    QCOMPARE(m_combo->hidden.count(), 0);
}

void tst_CustomShadowComboxX11::doubleClickOnTheHeader()
{
    XPointer::moveTo(centerOf(m_combo->header()));
    const QString click = QStringLiteral("click");
    XPointer::xdotool({click, QStringLiteral("--repeat"), QStringLiteral("2"), QStringLiteral("--delay"),
                       QStringLiteral("40"), QStringLiteral("1")});
    QTRY_VERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->hidden.count(), 0);
}

void tst_CustomShadowComboxX11::anotherWindowCloses()
{
    open(m_combo);
    QWidget other;
    other.setGeometry(560, 60, 120, 100);
    QVERIFY(XPointer::showAndWait(&other)); // activates it, with the pointer on the header
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QVERIFY(m_combo->isOpen());
    XPointer::moveTo(QPoint(5, 5));
    m_combo->popup()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_combo->popup()));
    other.activateWindow();
    QTRY_VERIFY(!m_combo->isOpen());
    QTRY_COMPARE(m_combo->hidden.count(), 1);
    QVERIFY(QTest::qWaitForWindowActive(&other));
    QCOMPARE(m_combo->hidden.count(), 1);
}

void tst_CustomShadowComboxX11::reportsThePointerThatLeaves()
{
    open(m_combo);
    XPointer::moveTo(centerOf(m_combo->row(0)));
    m_combo->left.clear();
    XPointer::moveTo(centerOf(m_combo->row(2)));
    QCOMPARE(m_combo->left.count(), 0);
    const QPoint outside = m_window->mapToGlobal(QPoint(300, 60));
    XPointer::moveTo(outside);
    QTRY_VERIFY(m_combo->left.count() > 0);
    const QPoint reported = m_combo->left.last().first().toPoint();
    QVERIFY((reported - outside).manhattanLength() <= 1); // rounding at other ratios
    QVERIFY(m_combo->isOpen());
}

void tst_CustomShadowComboxX11::opensAboveAtTheBottomEdge()
{
    const QRect available = m_window->screen()->availableGeometry();
    m_window->move(60, available.bottom() - 180);
    QTRY_VERIFY(m_window->y() > available.bottom() - 220);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    open(m_combo);
    QTRY_COMPARE(m_combo->popup()->geometry().bottom() + 1, m_combo->mapToGlobal(QPoint(0, 0)).y());
    QCOMPARE(m_combo->popup()->x(), m_combo->mapToGlobal(QPoint(0, 0)).x() - 4);
    const QLabel *arrow = m_combo->header()->findChildren<QLabel *>().at(1);
    QVERIFY(arrow->styleSheet().contains(QLatin1String("up.png")));
    XPointer::click(centerOf(m_combo->row(2)));
    QTRY_COMPARE(m_combo->currentIndex(), 2);
    QVERIFY(!m_combo->isOpen());
}

void tst_CustomShadowComboxX11::wheelScrollsALongList()
{
    m_combo->add(5000);
    open(m_combo);
    const QScrollBar *bar = m_combo->area()->verticalScrollBar();
    QTRY_VERIFY(bar->isVisible());
    QCOMPARE(m_combo->popup()->height(), 504);
    XPointer::moveTo(centerOf(m_combo->row(2)));
    XPointer::xdotool({QStringLiteral("click"), QStringLiteral("--repeat"), QStringLiteral("3"),
                       QStringLiteral("--delay"), QStringLiteral("20"), QStringLiteral("5")});
    QTRY_VERIFY(bar->value() > 0);
    QVERIFY(m_combo->isOpen());
    // Drag the handle to the end.
    const QPoint top = bar->mapToGlobal(QPoint(bar->width() / 2, 15));
    XPointer::drag(top, bar->mapToGlobal(QPoint(bar->width() / 2, bar->height() + 40)));
    QTRY_COMPARE(bar->value(), bar->maximum());
    QVERIFY(m_combo->isOpen());
    QTRY_VERIFY(m_combo->row(5002)->isVisible());
    XPointer::click(centerOf(m_combo->row(5002)));
    QTRY_COMPARE(m_combo->currentIndex(), 5002);
}

void tst_CustomShadowComboxX11::rowsChangeWhileOpen()
{
    open(m_combo);
    m_combo->add(1);
    QTRY_COMPARE(m_combo->popup()->height(), 216);
    QVector<bool> states{false, false, false, true};
    m_combo->setItemGrayState(states);
    QTRY_VERIFY(m_combo->row(3)->isVisible());
    XPointer::click(centerOf(m_combo->row(3)));
    QTRY_COMPARE(m_combo->grayChosen.count(), 1);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    open(m_combo);
    XPointer::moveTo(centerOf(m_combo->row(1)));
    m_combo->clear(); // under the pointer
    m_combo->add(2);
    QTRY_VERIFY(m_combo->row(1)->isVisible() && m_combo->row(1)->y() > 0);
    XPointer::click(centerOf(m_combo->row(1)));
    QTRY_COMPARE(m_combo->currentIndex(), 1);
}

void tst_CustomShadowComboxX11::twoSideBySide()
{
    auto *other = new Combo(m_window.get());
    other->setGeometry(230, 10, 170, 48);
    other->add(2);
    other->show();
    open(m_combo);
    open(other);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->hidden.count(), 1);
    open(m_combo);
    QVERIFY(!other->isOpen());
    QCOMPARE(other->hidden.count(), 1);
    XPointer::click(centerOf(m_combo->row(2)));
    QTRY_COMPARE(m_combo->currentIndex(), 2);
    QCOMPARE(other->currentIndex(), -1);
}

void tst_CustomShadowComboxX11::destroyedByAClick_data()
{
    QTest::addColumn<int>("row"); // -1: a press outside
    QTest::newRow("row") << 1;
    QTest::newRow("gray row") << 3;
    QTest::newRow("outside") << -1;
    QTest::newRow("key") << -2;
}

void tst_CustomShadowComboxX11::destroyedByAClick()
{
    QFETCH(int, row);
    m_combo->addItem(QStringLiteral("Not available"), true, false);
    const auto destroy = [this] {
        delete m_combo.data();
    };
    connect(m_combo, &Combo::currentIndexChanged, this, destroy);
    connect(m_combo, &Combo::currentGrayIndexChanged, this, destroy);
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, this, destroy);
    open(m_combo);
    if (row >= 0)
        XPointer::click(centerOf(m_combo->row(row)));
    else if (row == -1)
        XPointer::click(m_window->mapToGlobal(QPoint(350, 60)));
    else
        XPointer::key(QStringLiteral("a"));
    QTRY_VERIFY(!m_combo);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

ORV_TEST_MAIN(tst_CustomShadowComboxX11)

#include "tst_customshadowcombox_x11.moc"
