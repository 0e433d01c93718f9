#include "customtoolbuttontest.h"
#include "logcapture.h"
#include "lostpresses.h"
#include "pressgesture.h"
#include "testmain.h"

#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

namespace {

qint64 now = 1000000; // what the clock shows that presses are measured with

} // namespace

class tst_CustomToolButton : public CustomToolButtonTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        PressGesture::clock = [] {
            return now;
        };
    }
    void directionsHaveTheirNumbers();
    void buildsItsStyleSheetFromFourPictures();
    void checkedButtonIgnoresShortcuts();
    void clickOpensTheClickPanel_data();
    void clickOpensTheClickPanel();
    void clickNeverClosesThePanel();
    void focusOutClosesTheClickPanel_data();
    void focusOutClosesTheClickPanel();
    void focusOutWithThePointerOnTheButtonKeepsThePanel();
    void clickPanelTakesTheFocusOnEntry_data();
    void clickPanelTakesTheFocusOnEntry();
    void rightClickOpensAtOnce();
    void longPressOpensOnRelease_data();
    void longPressOpensOnRelease();
    void secondReleaseOfADoubleClickIsNoLongPress();
    void pressTimeIsForgottenAtTheRelease();
    void aPressThatLosesItsEndIsNoLongPress_data();
    void aPressThatLosesItsEndIsNoLongPress();
    void aLongPressOpensTheClickPanelToo_data();
    void aLongPressOpensTheClickPanelToo();
    void carriesThreePanelsAtOnce();
    void hoverOpensAndLeavingClosesLater();
    void travellingToTheHoverPanelKeepsItOpen();
    void eachHoverPanelGetsATimerOfItsOwn();
    void anOldHoverTimerLeavesTheNewPanelAlone_data();
    void anOldHoverTimerLeavesTheNewPanelAlone();
    void hoverPanelReplacedWhileItsTimerHidesIt();
    void hidingUnchecks_data();
    void hidingUnchecks();
    void disabledButtonOpensNothing();
    void panelsAreWatchedWhileTheButtonIsDisabled();
    void eventsAreNeverConsumed();
    void otherPanelsTakeTheFocusOnEntry_data();
    void otherPanelsTakeTheFocusOnEntry();
};

void tst_CustomToolButton::directionsHaveTheirNumbers()
{
    QCOMPARE(int(Bottom), 0);
    QCOMPARE(int(Left), 1);
    QCOMPARE(int(Top), 2);
    QCOMPARE(int(Right), 3);
}

void tst_CustomToolButton::buildsItsStyleSheetFromFourPictures()
{
    const ExpectedWarnings percentSign("Could not parse stylesheet");
    newButton(false)->updateImage(QStringLiteral(":/n%1.png"), QStringLiteral(":/c.png"),
                                  QStringLiteral(":/h.png"), QStringLiteral(":/d.png"));
    QCOMPARE(
        m_button->styleSheet(),
        QStringLiteral(
            "QToolButton{background: transparent;padding:0px;margin:0px;border-radius: 4px; "
            "image:url(:/n%1.png);}"
            "QToolButton:hover{image:url(:/h.png);background: "
            "#F5F6F7;}QToolButton:disabled{image:url(:/d.png);}"
            "QToolButton:checked{background: #F5F6F7;image:url(:/c.png);}"
            "QToolButton:checked:hover{background: #F5F6F7;image:url(:/c.png);}"
            "QToolButton:checked:disabled{image:url(:/d.png);}"
            "QToolButton[current=true]{background: #F5F6F7; border-radius: 4px;}"
            "QToolButton[current=true]:checked{background: #F5F6F7;border-radius: 4px;image:url(:/c.png);}"));
}

void tst_CustomToolButton::checkedButtonIgnoresShortcuts()
{
    newButton(false)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_K));
    const QSignalSpy clicked(m_button.data(), &QToolButton::clicked);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window));
    QTest::keyClick(m_window, Qt::Key_K, Qt::ControlModifier);
    QTRY_COMPARE(clicked.count(), 1);
    QTRY_VERIFY(m_button->isChecked() && !m_button->isDown());
    QTest::keyClick(m_window, Qt::Key_K, Qt::ControlModifier);
    QVERIFY(m_button->isChecked());
    QVERIFY(!m_button->isDown());

    QShortcutEvent shortcut(QKeySequence(Qt::CTRL | Qt::Key_K), 1);
    shortcut.accept();
    QVERIFY(QCoreApplication::sendEvent(m_button, &shortcut)); // reported handled
    QVERIFY(!shortcut.isAccepted());
    QCOMPARE(clicked.count(), 1);
    QVERIFY(m_button->isChecked());
}

void tst_CustomToolButton::clickOpensTheClickPanel_data()
{
    QTest::addColumn<bool>("takeFocus");
    QTest::addColumn<int>("mouseButton");
    QTest::newRow("without focus") << false << int(Qt::LeftButton);
    QTest::newRow("with focus") << true << int(Qt::LeftButton);
    QTest::newRow("any button") << true << int(Qt::MiddleButton);
}

void tst_CustomToolButton::clickOpensTheClickPanel()
{
    QFETCH(bool, takeFocus);
    QFETCH(int, mouseButton);
    newButton(false)->setClickWidget(panel(), takeFocus);
    m_button->setFocus();
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::MouseButton(mouseButton));
    QVERIFY(!panel()->isVisible());
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::MouseButton(mouseButton));
    QVERIFY(panel()->isVisible());
    QCOMPARE(m_window->focusWidget() == panel(), takeFocus);
    QCOMPARE(m_window->children().last(), panel()); // raised
}

void tst_CustomToolButton::clickNeverClosesThePanel()
{
    newButton(false)->setClickWidget(panel(), false);
    for (int click = 0; click < 3; ++click) {
        QTest::mouseClick(m_button, Qt::LeftButton);
        QVERIFY(panel()->isVisible());
    }
}

void tst_CustomToolButton::focusOutClosesTheClickPanel_data()
{
    QTest::addColumn<bool>("takeFocus");
    QTest::addColumn<bool>("uncheckOnHide");
    QTest::newRow("plain") << true << false;
    QTest::newRow("unchecking") << true << true;
    QTest::newRow("panel without focus stays") << false << true;
}

void tst_CustomToolButton::focusOutClosesTheClickPanel()
{
    QFETCH(bool, takeFocus);
    QFETCH(bool, uncheckOnHide);
    newButton(uncheckOnHide)->setClickWidget(panel(), takeFocus);
    m_button->setChecked(true);
    panel()->show();
    LogCapture log;
    sendPlain(panel(), QEvent::FocusOut);
    QCOMPARE(panel()->isVisible(), !takeFocus);
    QCOMPARE(m_button->isChecked(), !(takeFocus && uncheckOnHide));
    if (!takeFocus) {
        QCOMPARE(log.count(), 0);
        return;
    }
    QCOMPARE(log.texts(), QStringList{QStringLiteral("==isHideClickWidget== true")});
    QCOMPARE(log.lines().constFirst().type, QtDebugMsg);
    QVERIFY(
        log.lines().constFirst().function.contains(QStringLiteral("CustomToolButton::processClickWidget(")));
    QVERIFY(log.lines().constFirst().file.endsWith(QStringLiteral("customtoolbutton.cpp")));
}

void tst_CustomToolButton::focusOutWithThePointerOnTheButtonKeepsThePanel()
{
    newButton(true)->setClickWidget(panel(), true);
    m_button->setChecked(true);
    panel()->show();
    QCursor::setPos(m_button->mapToGlobal(QPoint(3, 3)));
    LogCapture log;
    sendPlain(panel(), QEvent::FocusOut);
    QVERIFY(panel()->isVisible());
    QVERIFY(m_button->isChecked());
    QCOMPARE(log.texts(), QStringList{QStringLiteral("==isHideClickWidget== false")});
}

void tst_CustomToolButton::clickPanelTakesTheFocusOnEntry_data()
{
    QTest::addColumn<bool>("uncheckOnHide");
    QTest::newRow("plain") << false;
    QTest::newRow("unchecking") << true;
}

void tst_CustomToolButton::clickPanelTakesTheFocusOnEntry()
{
    // Whether it takes the focus on opening does not matter here.
    QFETCH(bool, uncheckOnHide);
    newButton(uncheckOnHide)->setClickWidget(panel(), false);
    panel()->show();
    m_button->setFocus();
    sendPlain(panel(), QEvent::Enter);
    QCOMPARE(m_window->focusWidget() == panel(), !uncheckOnHide);
}

void tst_CustomToolButton::rightClickOpensAtOnce()
{
    newButton(false)->setRightClickWidget(panel(), true);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::RightButton);
    QVERIFY(!panel()->isVisible());
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::RightButton);
    QVERIFY(panel()->isVisible());
    QCOMPARE(m_window->focusWidget(), panel());
}

void tst_CustomToolButton::longPressOpensOnRelease_data()
{
    QTest::addColumn<int>("mouseButton");
    QTest::addColumn<int>("duration");
    QTest::addColumn<bool>("opens");
    QTest::newRow("left, short") << int(Qt::LeftButton) << 0 << false;
    QTest::newRow("left, 1000") << int(Qt::LeftButton) << 1000 << false;
    QTest::newRow("left, 1001") << int(Qt::LeftButton) << 1001 << true;
    QTest::newRow("middle, 1000") << int(Qt::MiddleButton) << 1000 << false;
    QTest::newRow("middle, 1001") << int(Qt::MiddleButton) << 1001 << true;
    QTest::newRow("right, 0") << int(Qt::RightButton) << 0 << true;
}

void tst_CustomToolButton::longPressOpensOnRelease()
{
    QFETCH(int, mouseButton);
    QFETCH(int, duration);
    QFETCH(bool, opens);
    newButton(false)->setRightClickWidget(panel(), false);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::MouseButton(mouseButton));
    now += duration;
    QVERIFY(!panel()->isVisible());
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::MouseButton(mouseButton));
    QCOMPARE(panel()->isVisible(), opens);
}

void tst_CustomToolButton::secondReleaseOfADoubleClickIsNoLongPress()
{
    newButton(false)->setRightClickWidget(panel(), false);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::LeftButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    sendMouse(m_button, QEvent::MouseButtonDblClick, Qt::LeftButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(!panel()->isVisible());
}

void tst_CustomToolButton::pressTimeIsForgottenAtTheRelease()
{
    newButton(false)->setRightClickWidget(panel(), false);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::LeftButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    now += 5000;
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(!panel()->isVisible());
}

void tst_CustomToolButton::aPressThatLosesItsEndIsNoLongPress_data()
{
    LostPresses::addRows();
}

void tst_CustomToolButton::aPressThatLosesItsEndIsNoLongPress()
{
    QFETCH(Loss, loss);
    newButton(false)->setRightClickWidget(panel(), false);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::LeftButton);
    now += 2000;
    loss(m_button);
    now += 2000;
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(!panel()->isVisible());

    sendMouse(m_button, QEvent::MouseButtonPress, Qt::LeftButton);
    now += 1001;
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(panel()->isVisible());
}

void tst_CustomToolButton::aLongPressOpensTheClickPanelToo_data()
{
    QTest::addColumn<bool>("popup");
    QTest::newRow("panel in the window") << false;
    QTest::newRow("panel that is a popup") << true;
}

void tst_CustomToolButton::aLongPressOpensTheClickPanelToo()
{
    QFETCH(bool, popup);
    const LogCapture log; // the platform's remarks on popups
    Panel clickPanel(m_window, popup ? Qt::Popup : Qt::Widget);
    newButton(false)->setClickWidget(&clickPanel, false);
    m_button->setRightClickWidget(panel(), false);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::LeftButton);
    now += 1001;
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(clickPanel.isVisible());
    QVERIFY(panel()->isVisible());
}

void tst_CustomToolButton::carriesThreePanelsAtOnce()
{
    Panel rightPanel(m_window);
    Panel hoverPanel(m_window);
    newButton(false)->setClickWidget(panel(), false);
    m_button->setRightClickWidget(&rightPanel, false);
    m_button->setHoverWidget(&hoverPanel, false);

    sendHover(m_button, QEvent::HoverEnter);
    QVERIFY(hoverPanel.isVisible());
    QVERIFY(!panel()->isVisible() && !rightPanel.isVisible());
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::LeftButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(panel()->isVisible());
    QVERIFY(!rightPanel.isVisible());
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::RightButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::RightButton);
    QVERIFY(rightPanel.isVisible());

    // The timer goes by the hover panel alone, in whichever panel the pointer is.
    auto *timer = m_button->findChild<QTimer *>();
    for (Panel *each : {panel(), &rightPanel}) {
        sendPlain(each, QEvent::Leave);
        QVERIFY(!timer->isActive());
        sendPlain(&hoverPanel, QEvent::Leave);
        QVERIFY(timer->isActive());
        sendPlain(each, QEvent::Enter);
        QVERIFY(timer->isActive());
        sendPlain(&hoverPanel, QEvent::Enter);
        QVERIFY(!timer->isActive());
    }
}

void tst_CustomToolButton::hoverOpensAndLeavingClosesLater()
{
    newButton(false)->setHoverWidget(panel(), true);
    auto *timer = m_button->findChild<QTimer *>();
    QVERIFY(timer);
    QVERIFY(timer->isSingleShot());
    QCOMPARE(timer->interval(), 200);
    sendHover(m_button, QEvent::HoverEnter);
    QVERIFY(panel()->isVisible());
    QCOMPARE(m_window->focusWidget(), panel());
    QVERIFY(!timer->isActive());
    sendHover(m_button, QEvent::HoverLeave);
    QVERIFY(timer->isActive());
    QVERIFY(panel()->isVisible());
    QTRY_VERIFY(!panel()->isVisible());
}

void tst_CustomToolButton::travellingToTheHoverPanelKeepsItOpen()
{
    newButton(false)->setHoverWidget(panel(), false);
    auto *timer = m_button->findChild<QTimer *>();
    sendHover(m_button, QEvent::HoverEnter);
    QVERIFY(m_window->focusWidget() != panel());
    sendHover(m_button, QEvent::HoverLeave);
    sendPlain(panel(), QEvent::Enter);
    QVERIFY(!timer->isActive());
    QVERIFY(panel()->isVisible());
    sendPlain(panel(), QEvent::Leave);
    QVERIFY(timer->isActive());
    sendHover(m_button, QEvent::HoverEnter);
    QVERIFY(!timer->isActive());
    sendHover(m_button, QEvent::HoverLeave);
    QTRY_VERIFY(!panel()->isVisible());
}

void tst_CustomToolButton::eachHoverPanelGetsATimerOfItsOwn()
{
    newButton(false)->setHoverWidget(panel(), false);
    const QPointer<QTimer> first = m_button->findChild<QTimer *>();
    m_button->setHoverWidget(panel(), true);
    QVERIFY(!first);
    QCOMPARE(m_button->findChildren<QTimer *>().size(), 1);
}

void tst_CustomToolButton::anOldHoverTimerLeavesTheNewPanelAlone_data()
{
    QTest::addColumn<bool>("samePanel");
    QTest::newRow("another panel") << false;
    QTest::newRow("the same panel again") << true;
}

void tst_CustomToolButton::anOldHoverTimerLeavesTheNewPanelAlone()
{
    QFETCH(bool, samePanel);
    Panel other(m_window);
    Panel *const next = samePanel ? panel() : &other;
    newButton(false)->setHoverWidget(panel(), false);
    sendHover(m_button, QEvent::HoverEnter);
    sendHover(m_button, QEvent::HoverLeave);
    m_button->setHoverWidget(next, false);
    sendHover(m_button, QEvent::HoverEnter);
    QTimer running;
    running.setSingleShot(true);
    running.start(m_button->findChild<QTimer *>()->interval() + 1); // ends after the old one
    QTRY_VERIFY(!running.isActive());
    QVERIFY(next->isVisible());
    sendHover(m_button, QEvent::HoverLeave);
    QTRY_VERIFY(!next->isVisible());
    QCOMPARE(panel()->isVisible(), !samePanel); // and the old panel is nobody's any more
}

void tst_CustomToolButton::hoverPanelReplacedWhileItsTimerHidesIt()
{
    Panel other(m_window);
    newButton(true)->setHoverWidget(panel(), false);
    m_button->setChecked(true);
    connect(m_button, &QToolButton::toggled, &other, [&] { m_button->setHoverWidget(&other, false); });
    panel()->show();
    sendHover(m_button, QEvent::HoverLeave);
    QTRY_VERIFY(!panel()->isVisible());
    sendHover(m_button, QEvent::HoverEnter);
    QVERIFY(other.isVisible());
}

void tst_CustomToolButton::hidingUnchecks_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("uncheckOnHide");
    QTest::addColumn<bool>("unchecks");
    // The click panel unchecks only when it closes by losing the focus.
    QTest::newRow("click") << QStringLiteral("click") << true << false;
    QTest::newRow("right click") << QStringLiteral("right") << true << true;
    QTest::newRow("hover") << QStringLiteral("hover") << true << true;
    QTest::newRow("right click, plain") << QStringLiteral("right") << false << false;
    QTest::newRow("hover, plain") << QStringLiteral("hover") << false << false;
}

void tst_CustomToolButton::hidingUnchecks()
{
    QFETCH(QString, kind);
    QFETCH(bool, uncheckOnHide);
    QFETCH(bool, unchecks);
    newButton(uncheckOnHide);
    if (kind == QLatin1String("click"))
        m_button->setClickWidget(panel(), false);
    else if (kind == QLatin1String("right"))
        m_button->setRightClickWidget(panel(), false);
    else
        m_button->setHoverWidget(panel(), false);
    m_button->setChecked(true);
    panel()->show();
    panel()->hide();
    QCOMPARE(m_button->isChecked(), !unchecks);
}

void tst_CustomToolButton::disabledButtonOpensNothing()
{
    Panel rightPanel(m_window);
    Panel hoverPanel(m_window);
    newButton(false)->setClickWidget(panel(), false);
    m_button->setRightClickWidget(&rightPanel, false);
    m_button->setHoverWidget(&hoverPanel, false);
    m_button->setEnabled(false);
    sendHover(m_button, QEvent::HoverEnter);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::RightButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::RightButton);
    QVERIFY(!panel()->isVisible());
    QVERIFY(!rightPanel.isVisible());
    QVERIFY(!hoverPanel.isVisible());
    m_button->setClickWidget(nullptr, false);
    m_button->setRightClickWidget(nullptr, false);
    sendHover(m_button, QEvent::HoverEnter);
    QVERIFY(!hoverPanel.isVisible());
}

void tst_CustomToolButton::panelsAreWatchedWhileTheButtonIsDisabled()
{
    newButton(true)->setHoverWidget(panel(), false);
    m_button->setChecked(true);
    m_button->setEnabled(false);
    panel()->move(0, 0);
    panel()->show();
    QVERIFY(panel()->pos() != QPoint(0, 0));
    panel()->hide();
    QVERIFY(!m_button->isChecked());
}

void tst_CustomToolButton::eventsAreNeverConsumed()
{
    newButton(false)->setClickWidget(panel(), true);
    const QSignalSpy pressed(m_button.data(), &QToolButton::pressed);
    const QSignalSpy clicked(m_button.data(), &QToolButton::clicked);
    QTest::mouseClick(m_button, Qt::LeftButton);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(clicked.count(), 1);
    QVERIFY(panel()->order.join(QLatin1Char(' ')).contains(QStringLiteral("show")));
}

void tst_CustomToolButton::otherPanelsTakeTheFocusOnEntry_data()
{
    QTest::addColumn<bool>("hover");
    QTest::addColumn<bool>("takeFocus");
    QTest::addColumn<bool>("uncheckOnHide");
    for (const bool hover : {false, true}) {
        for (const bool takeFocus : {false, true}) {
            for (const bool uncheckOnHide : {false, true})
                QTest::addRow("%s%s%s", hover ? "hover" : "right click", takeFocus ? ", takes the focus" : "",
                              uncheckOnHide ? ", unchecks" : "")
                    << hover << takeFocus << uncheckOnHide;
        }
    }
}

void tst_CustomToolButton::otherPanelsTakeTheFocusOnEntry()
{
    QFETCH(bool, hover);
    QFETCH(bool, takeFocus);
    QFETCH(bool, uncheckOnHide);
    newButton(uncheckOnHide);
    if (hover)
        m_button->setHoverWidget(panel(), takeFocus);
    else
        m_button->setRightClickWidget(panel(), takeFocus);
    panel()->show();
    m_button->setFocus();
    sendPlain(panel(), QEvent::Enter);
    QCOMPARE(m_window->focusWidget() == panel(), takeFocus);
}

ORV_TEST_MAIN(tst_CustomToolButton)

#include "moc_customtoolbuttontest.cpp"
#include "tst_customtoolbutton.moc"
