#include "mouseevents.h"
#include "shadowcombotesting.h"

#include "testmain.h"
#include <QtWidgets/QDialog>

#include <QtTest/QSignalSpy>

using namespace ShadowComboTesting;

/// The ways in which the list closes, their signals, and what slots may do in them.
class tst_CustomShadowComboxClosing : public Fixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { makeWindow(); }
    void cleanup()
    {
        m_other.hide();
        deleteWindow();
    }

    void choosingAnotherRow();
    void choosingTheCurrentRow();
    void choosingAGrayRow();
    void draggingOnARow();
    void headerClickCloses();
    void headerClickClosesAnEmptyList();
    void headerPressIsLeftToTheHeader();
    void hidePopupReportsAlways();
    void outsidePressCloses_data();
    void outsidePressCloses();
    void pressInsideKeeps_data();
    void pressInsideKeeps();
    void deactivationCloses_data();
    void deactivationCloses();
    void deactivationOfAnotherWindowKeeps();
    void anyKeyCloses_data();
    void anyKeyCloses();
    void heldKeyThatQtHasNoNameForCloses();
    void movesOutsideAreReported();
    void movesThatAreConsumedAreReported();
    void listClosesWithWhatItBelongsTo_data();
    void listClosesWithWhatItBelongsTo();
    void destroyedWindowReportsNothing();
    void listClosesWithAMinimisedWindow();
    void closedListReportsNothing();
    void eventsAreNeverConsumed();
    void reopenedByItsOwnReport();
    void rowsChangeWhileOpen();
    void pressOnOneClosesTheOther();
    void destroyedWhileOpen_data();
    void destroyedWhileOpen();
    void destroyedInItsSignals_data();
    void destroyedInItsSignals();
    void windowDestroyedInItsSignals_data();
    void windowDestroyedInItsSignals();
    void dialogDestroyedByTheReport();
    void widgetDestroyedByAPressOnIt();
    void clearedInItsSignals_data();
    void clearedInItsSignals();

private:
    void openWithAGrayRow();
    void provoke(const QString &by);
    void inEachSignal(const std::function<void()> &slot);

    QWidget m_other;
};

void tst_CustomShadowComboxClosing::choosingAnotherRow()
{
    SignalLog log(m_combo);
    open();
    m_combo->clickRow(2);
    QTRY_COMPARE(m_combo->currentIndex(), 2);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 2"));
    // The row is current when the signal comes, and the list hides after it.
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(2) open")});
}

void tst_CustomShadowComboxClosing::choosingTheCurrentRow()
{
    m_combo->add(3);
    m_combo->setCurrentIndex(1);
    SignalLog log(m_combo);
    open();
    m_combo->clickRow(1);
    QTRY_VERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(m_combo->currentIndex(), 1);
}

void tst_CustomShadowComboxClosing::choosingAGrayRow()
{
    m_combo->addItem(QStringLiteral("a"), false, false);
    m_combo->addItem(QStringLiteral("b"), true, false);
    m_combo->setCurrentIndex(0);
    SignalLog log(m_combo);
    open();
    m_combo->clickRow(1);
    QTRY_VERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList{QStringLiteral("gray(1) closed")});
    QCOMPARE(m_combo->currentIndex(), 0);
    QCOMPARE(m_combo->headerText(), QStringLiteral("a"));
}

void tst_CustomShadowComboxClosing::draggingOnARow()
{
    SignalLog log(m_combo);
    open();
    const QPoint pos = m_combo->row(1)->mapToGlobal(QPoint(20, 20));
    QCursor::setPos(pos);
    MouseEvents::press(m_combo->row(1), pos);
    MouseEvents::release(m_combo->row(1), pos + QPoint(QApplication::startDragDistance(), 0));
    QVERIFY(m_combo->isOpen());
    QCOMPARE(m_combo->currentIndex(), -1);
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::headerClickCloses()
{
    SignalLog log(m_combo);
    open();
    QTRY_COMPARE(QApplication::activeWindow(), m_combo->popup());
    QCursor::setPos(m_combo->mapToGlobal(QPoint(100, 20)));
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::headerClickClosesAnEmptyList()
{
    open();
    m_combo->clear();
    QVERIFY(m_combo->isOpen());
    SignalLog log(m_combo);
    QCursor::setPos(m_combo->mapToGlobal(QPoint(100, 20)));
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::headerPressIsLeftToTheHeader()
{
    open();
    SignalLog log(m_combo);
    const QPoint pos = m_combo->mapToGlobal(QPoint(100, 20));
    QCursor::setPos(pos);
    MouseEvents::press(m_combo->header(), pos);
    QVERIFY(m_combo->isOpen());
    sendDeactivate(m_combo->popup()); // the press activates the window below
    QVERIFY(m_combo->isOpen());
    MouseEvents::release(m_combo->header(), pos);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::hidePopupReportsAlways()
{
    SignalLog log(m_combo);
    m_combo->hidePopup();
    QCOMPARE(log.take(), kHiddenOnce);
    open();
    m_combo->hidePopup();
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowComboxClosing::outsidePressCloses_data()
{
    QTest::addColumn<QPoint>("pos"); // in the window
    QTest::newRow("above") << QPoint(100, 30);
    QTest::newRow("left") << QPoint(19, 60);
    QTest::newRow("right") << QPoint(220, 60);
    QTest::newRow("beside the list") << QPoint(15, 100);
}

void tst_CustomShadowComboxClosing::outsidePressCloses()
{
    QFETCH(QPoint, pos);
    SignalLog log(m_combo);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        open();
        const QPoint globalPos = m_window->mapToGlobal(pos);
        QCursor::setPos(globalPos);
        MouseEvents::press(m_window.get(), globalPos, button);
        QVERIFY(!m_combo->isOpen());
        QCoreApplication::processEvents();
        QCOMPARE(log.take(), kHiddenOnce);
    }
}

void tst_CustomShadowComboxClosing::pressInsideKeeps_data()
{
    QTest::addColumn<QPoint>("pos"); // in the combo box
    QTest::newRow("header") << QPoint(100, 20);
    QTest::newRow("header's corner") << QPoint(0, 0);
    QTest::newRow("header's other corner") << QPoint(199, 47);
    QTest::newRow("shadow of the list") << QPoint(-4, 48);
    QTest::newRow("list") << QPoint(50, 100);
    QTest::newRow("list's corner") << QPoint(203, 48 + 167);
}

void tst_CustomShadowComboxClosing::pressInsideKeeps()
{
    QFETCH(QPoint, pos);
    SignalLog log(m_combo);
    open();
    const QPoint globalPos = m_combo->mapToGlobal(pos);
    QCursor::setPos(globalPos);
    MouseEvents::press(m_window.get(), globalPos); // where the pointer is counts, not who gets the event
    sendDeactivate(m_combo->popup());
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());

    // A part of the combo box that the header does not cover belongs to it, too.
    m_combo->header()->setFixedSize(50, 20);
    const QPoint besides = m_combo->mapToGlobal(QPoint(150, 40));
    QCursor::setPos(besides);
    MouseEvents::press(m_window.get(), besides);
    QVERIFY(m_combo->isOpen());
}

void tst_CustomShadowComboxClosing::deactivationCloses_data()
{
    QTest::addColumn<bool>("real");
    QTest::newRow("sent") << false;
    QTest::newRow("by another window") << true;
}

void tst_CustomShadowComboxClosing::deactivationCloses()
{
    QFETCH(bool, real);
    SignalLog log(m_combo);
    open();
    QTRY_COMPARE(QApplication::activeWindow(), m_combo->popup());
    QWidget other;
    if (real) {
        other.show();
        other.activateWindow();
    } else {
        sendDeactivate(m_combo->popup());
    }
    QTRY_VERIFY(!m_combo->isOpen());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowComboxClosing::deactivationOfAnotherWindowKeeps()
{
    SignalLog log(m_combo);
    open();
    sendDeactivate(m_window.get());
    sendDeactivate(m_combo);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::anyKeyCloses_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("inList");
    QTest::newRow("Escape") << int(Qt::Key_Escape) << true;
    QTest::newRow("letter") << int(Qt::Key_A) << true;
    QTest::newRow("Shift") << int(Qt::Key_Shift) << true;
    QTest::newRow("Down") << int(Qt::Key_Down) << true;
    QTest::newRow("elsewhere") << int(Qt::Key_A) << false;
}

void tst_CustomShadowComboxClosing::anyKeyCloses()
{
    QFETCH(int, key);
    QFETCH(bool, inList);
    SignalLog log(m_combo);
    open();
    QCursor::setPos(m_combo->mapToGlobal(QPoint(20, 20))); // on the header: does not matter for a key
    QTest::keyPress(inList ? m_combo->popup() : m_window.get(), Qt::Key(key));
    QVERIFY(!m_combo->isOpen());
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), kHiddenOnce);
    QTest::keyRelease(m_window.get(), Qt::Key(key));
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::heldKeyThatQtHasNoNameForCloses()
{
    SignalLog log(m_combo);
    open();
    QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(m_combo->popup(), &event);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowComboxClosing::movesOutsideAreReported()
{
    SignalLog log(m_combo);
    open();
    const QPoint outside = m_window->mapToGlobal(QPoint(250, 20));
    QCursor::setPos(outside);
    QCoreApplication::processEvents();
    log.moves.clear();
    MouseEvents::move(m_window.get(), outside);
    QCOMPARE(log.moves, QVector<QPoint>(1, outside));
    MouseEvents::move(m_window.get(), outside);
    QCOMPARE(log.moves, QVector<QPoint>(2, outside));
    MouseEvents::move(m_combo->popup(), outside); // dragged out of the list: once, too
    QCOMPARE(log.moves, QVector<QPoint>(3, outside));
    MouseEvents::move(m_combo->popup(), outside);
    QCOMPARE(log.moves, QVector<QPoint>(4, outside));

    QCursor::setPos(m_combo->popup()->geometry().center());
    QCoreApplication::processEvents();
    log.moves.clear();
    MouseEvents::move(m_window.get(), outside); // where the pointer is counts, not what the event says
    MouseEvents::move(m_combo->popup(), outside);
    QCOMPARE(log.moves, QVector<QPoint>());
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

// Each delivered move counts, also where equal ones follow one another and another filter takes them away.
void tst_CustomShadowComboxClosing::movesThatAreConsumedAreReported()
{
    class Consumer : public QObject
    {
        bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::MouseMove; }
    };
    Consumer consumer;
    qApp->installEventFilter(&consumer);
    makeWindow(); // its combo box asks before the consumer
    SignalLog log(m_combo);
    open();
    const QPoint outside = m_window->mapToGlobal(QPoint(250, 20));
    QCursor::setPos(outside);
    QCoreApplication::processEvents();
    log.moves.clear();
    QMouseEvent move(QEvent::MouseMove, QPointF(1, 1), outside, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    for (int count = 1; count <= 6; ++count) {
        QCoreApplication::sendEvent(m_combo->popup(), &move);
        QCOMPARE(log.moves, QVector<QPoint>(count, outside));
    }
}

void tst_CustomShadowComboxClosing::listClosesWithWhatItBelongsTo_data()
{
    QTest::addColumn<QString>("by");
    for (const char *by : {"hidden", "window hidden", "window closed"})
        QTest::newRow(by) << QString::fromLatin1(by);
}

void tst_CustomShadowComboxClosing::listClosesWithWhatItBelongsTo()
{
    QFETCH(QString, by);
    open();
    SignalLog log(m_combo);
    provoke(by);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
    QCoreApplication::processEvents();
    QCOMPARE(log.take(), QStringList());

    m_window->show();
    m_combo->show();
    QVERIFY(!m_combo->isOpen());
    open();
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::destroyedWindowReportsNothing()
{
    open();
    const QSignalSpy reports(m_combo, &Combo::signalPopWidHideWhenClickOtherPos);
    const QPointer<QWidget> popup(m_combo->popup());
    deleteWindow();
    QVERIFY(!m_combo);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!popup);
    QCOMPARE(reports.count(), 0);
}

// The window system hides what is in a minimised window: nobody's hide() is under way.
void tst_CustomShadowComboxClosing::listClosesWithAMinimisedWindow()
{
    open();
    const QSignalSpy reports(m_combo, &Combo::signalPopWidHideWhenClickOtherPos);
    QHideEvent hidden;
    QCoreApplication::sendEvent(m_combo, &hidden);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(reports.count(), 0);
    QTRY_COMPARE(reports.count(), 1);
}

void tst_CustomShadowComboxClosing::closedListReportsNothing()
{
    SignalLog log(m_combo);
    m_combo->add(3);
    const QPoint outside = m_window->mapToGlobal(QPoint(250, 20));
    QCursor::setPos(outside);
    MouseEvents::move(m_window.get(), outside);
    MouseEvents::press(m_window.get(), outside);
    QTest::keyClick(m_window.get(), Qt::Key_A);
    sendDeactivate(m_combo->popup());
    m_combo->slotCurrentGrayIndexChanged(1);
    m_combo->slotCurrentIndexChanged(1);
    QCOMPARE(log.take(),
             (QStringList{QStringLiteral("gray(1) closed"), QStringLiteral("current(1) closed")}));
    m_combo->slotHeaderClicked();
    QVERIFY(m_combo->isOpen());
    m_combo->slotHeaderClicked();
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
}

void tst_CustomShadowComboxClosing::eventsAreNeverConsumed()
{
    class Target : public QWidget
    {
    public:
        QVector<QEvent::Type> seen;

    protected:
        bool event(QEvent *event) override
        {
            seen << event->type();
            return QWidget::event(event);
        }
    };
    Target target;
    target.resize(50, 50);
    open();
    QCursor::setPos(m_window->mapToGlobal(QPoint(250, 20)));
    MouseEvents::move(&target, QPoint(10, 10));
    QVERIFY(m_combo->isOpen());
    QTest::keyPress(&target, Qt::Key_A);
    QVERIFY(!m_combo->isOpen());
    open();
    QCursor::setPos(m_window->mapToGlobal(QPoint(250, 20)));
    MouseEvents::press(&target, QPoint(10, 10));
    QVERIFY(!m_combo->isOpen());
    for (const QEvent::Type type : {QEvent::MouseMove, QEvent::KeyPress, QEvent::MouseButtonPress})
        QVERIFY(target.seen.contains(type));
}

void tst_CustomShadowComboxClosing::reopenedByItsOwnReport()
{
    SignalLog log(m_combo);
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, m_combo, &Combo::showPopup);
    open();
    QTest::keyPress(m_combo->popup(), Qt::Key_A);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowComboxClosing::rowsChangeWhileOpen()
{
    open();
    m_combo->addItem(QStringLiteral("added"), 16);
    QCOMPARE(m_combo->popup()->height(), 16 + 4 * 48 + 8);
    QTRY_VERIFY(m_combo->row(3)->isVisible() && m_combo->row(3)->y() >= 3 * 48);
    QVector<bool> states(4, false);
    states[3] = true;
    m_combo->setItemGrayState(states);
    SignalLog log(m_combo);
    m_combo->clickRow(3);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList{QStringLiteral("gray(3) closed")});

    open();
    m_combo->clear();
    QVERIFY(m_combo->isOpen());
    QCOMPARE(m_combo->popup()->height(), 24);
    m_combo->add(1);
    QTRY_VERIFY(m_combo->row(0)->isVisible() && m_combo->row(0)->height() == 48);
    m_combo->clickRow(0);
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(0) open")});
}

void tst_CustomShadowComboxClosing::pressOnOneClosesTheOther()
{
    Combo other(m_window.get());
    other.setGeometry(225, 40, 70, 48);
    other.show();
    other.add(2);
    SignalLog log(m_combo);
    SignalLog otherLog(&other);
    open();
    const QPoint onOther = other.mapToGlobal(QPoint(30, 20));
    QCursor::setPos(onOther);
    MouseEvents::press(other.header(), onOther);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
    MouseEvents::release(other.header(), onOther);
    QVERIFY(other.isOpen());
    QVERIFY(!m_combo->isOpen());
    const QPoint onFirst = m_combo->mapToGlobal(QPoint(30, 20));
    QCursor::setPos(onFirst);
    MouseEvents::press(m_combo->header(), onFirst);
    QVERIFY(!other.isOpen());
    MouseEvents::release(m_combo->header(), onFirst);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(otherLog.take(), kHiddenOnce);
}

void tst_CustomShadowComboxClosing::destroyedWhileOpen_data()
{
    QTest::addColumn<bool>("byParent");
    QTest::newRow("by itself") << false;
    QTest::newRow("by its parent") << true;
}

void tst_CustomShadowComboxClosing::destroyedWhileOpen()
{
    QFETCH(bool, byParent);
    open();
    const QPointer<QWidget> popup(m_combo->popup());
    if (byParent)
        m_window.reset();
    else
        delete m_combo;
    QVERIFY(!m_combo);
    QVERIFY(!popup);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Makes the combo box emit one of its signals from an event that goes all the way through Qt.
void tst_CustomShadowComboxClosing::provoke(const QString &by)
{
    const QPoint outside(250, 20);
    if (by == QLatin1String("row")) {
        m_combo->clickRow(0);
    } else if (by == QLatin1String("gray row")) {
        m_combo->clickRow(1);
    } else if (by == QLatin1String("outside press")) {
        QTest::mousePress(m_window->windowHandle(), Qt::LeftButton, Qt::NoModifier, outside);
    } else if (by == QLatin1String("key")) {
        QTest::keyPress(m_combo->popup()->windowHandle(), Qt::Key_A);
    } else if (by == QLatin1String("deactivation")) {
        sendDeactivate(m_combo->popup());
    } else if (by == QLatin1String("another window")) {
        QVERIFY(QTest::qWaitForWindowActive(m_combo->popup()));
        m_other.show();
        m_other.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&m_other));
    } else if (by == QLatin1String("move")) {
        QTest::mouseMove(m_window->windowHandle(), outside);
    } else if (by == QLatin1String("hidden")) {
        m_combo->hide();
    } else if (by == QLatin1String("window hidden")) {
        m_window->hide();
    } else if (by == QLatin1String("window closed")) {
        m_window->close();
    } else {
        m_combo->hidePopup();
    }
}

void tst_CustomShadowComboxClosing::openWithAGrayRow()
{
    m_combo->addItem(QStringLiteral("a"), false, false);
    m_combo->addItem(QStringLiteral("b"), true, false);
    open();
}

// What closes the list makes one of these signals.
void tst_CustomShadowComboxClosing::inEachSignal(const std::function<void()> &slot)
{
    connect(m_combo, &Combo::currentIndexChanged, this, slot);
    connect(m_combo, &Combo::currentGrayIndexChanged, this, slot);
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, this, slot);
    connect(m_combo, &Combo::signalMouseMoveLeavePopup, this, slot);
}

void tst_CustomShadowComboxClosing::destroyedInItsSignals_data()
{
    QTest::addColumn<QString>("by");
    for (const char *by : {"row", "gray row", "outside press", "key", "deactivation", "another window",
                           "move", "hidePopup", "hidden", "window hidden", "window closed"})
        QTest::newRow(by) << QString::fromLatin1(by);
}

void tst_CustomShadowComboxClosing::destroyedInItsSignals()
{
    QFETCH(QString, by);
    openWithAGrayRow();
    const QPointer<QWidget> popup(m_combo->popup());
    inEachSignal([this] { delete m_combo.data(); });
    provoke(by);
    QTRY_VERIFY(!m_combo);
    // The list has gone at the latest when the event has been delivered.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!popup);
}

void tst_CustomShadowComboxClosing::windowDestroyedInItsSignals_data()
{
    destroyedInItsSignals_data();
}

void tst_CustomShadowComboxClosing::windowDestroyedInItsSignals()
{
    // The window may be what the event was for.
    QFETCH(QString, by);
    openWithAGrayRow();
    inEachSignal([this] { deleteWindow(); });
    provoke(by);
    QTRY_VERIFY(!m_combo);
}

void tst_CustomShadowComboxClosing::dialogDestroyedByTheReport()
{
    // QDialog goes on with itself after it has been hidden: the report has to wait until it is done.
    const QPointer<QDialog> dialog(new QDialog);
    auto *combo = new Combo(dialog);
    combo->add(3);
    dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    combo->showPopup();
    bool inHide = true;
    bool reportedInHide = false;
    connect(combo, &Combo::signalPopWidHideWhenClickOtherPos, this,
            [dialog, now = &inHide, then = &reportedInHide] {
                *then = *now;
                delete dialog.data();
            });
    dialog->hide();
    inHide = false;
    QTRY_VERIFY(!dialog);
    QVERIFY(!reportedInHide);
}

void tst_CustomShadowComboxClosing::widgetDestroyedByAPressOnIt()
{
    // Whoever delivers the event would go on to use the widget.
    const QPointer<QWidget> target(new QWidget(m_window.get()));
    open();
    connect(m_combo, &Combo::signalPopWidHideWhenClickOtherPos, this, [target] { delete target.data(); });
    QTest::mousePress(target, Qt::LeftButton);
    QVERIFY(!target);
}

void tst_CustomShadowComboxClosing::clearedInItsSignals_data()
{
    destroyedInItsSignals_data();
}

void tst_CustomShadowComboxClosing::clearedInItsSignals()
{
    QFETCH(QString, by);
    openWithAGrayRow();
    inEachSignal([this] { m_combo->clear(); });
    provoke(by);
    QTRY_COMPARE(m_combo->count(), 0);
    m_combo->add(2);
    QCOMPARE(m_combo->count(), 2);
    QCOMPARE(m_combo->currentIndex(), by == QLatin1String("row") ? 0 : -1);
}

ORV_TEST_MAIN(tst_CustomShadowComboxClosing)

#include "tst_customshadowcombox_closing.moc"
