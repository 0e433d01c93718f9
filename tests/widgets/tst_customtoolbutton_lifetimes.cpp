#include "customtoolbuttontest.h"
#include "logcapture.h"
#include "testmain.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>

using Setter = void (CustomToolButton::*)(QWidget *, bool);
Q_DECLARE_METATYPE(Setter)

/// Panels that are replaced, detached or destroyed, and buttons that are.
class tst_CustomToolButton_Lifetimes : public CustomToolButtonTest
{
    Q_OBJECT

private Q_SLOTS:
    void forgetsAReplacedPanel_data();
    void forgetsAReplacedPanel();
    void watchesAPanelAsLongAsItHasAPlace();
    void destroyedPanelsAreForgotten();
    void panelDestroyedWhileItOpens();
    void panelDestroyedWhileItLosesTheFocus();
    void buttonDestroyedWhileThePanelLosesTheFocus();
    void buttonDestroyedWhileAPanelOpens();
    void nullPanels();
};

void tst_CustomToolButton_Lifetimes::forgetsAReplacedPanel_data()
{
    QTest::addColumn<Setter>("setter");
    QTest::addColumn<bool>("detached");
    const QPair<const char *, Setter> places[] = {{"click", &CustomToolButton::setClickWidget},
                                                  {"right click", &CustomToolButton::setRightClickWidget},
                                                  {"hover", &CustomToolButton::setHoverWidget}};
    for (const auto &place : places) {
        QTest::addRow("%s, replaced", place.first) << place.second << false;
        QTest::addRow("%s, detached", place.first) << place.second << true;
    }
}

void tst_CustomToolButton_Lifetimes::forgetsAReplacedPanel()
{
    QFETCH(Setter, setter);
    QFETCH(bool, detached);
    class FilteringButton : public CustomToolButton
    {
    public:
        using CustomToolButton::CustomToolButton;
        bool eventFilter(QObject *watched, QEvent *) override
        {
            seen << watched;
            return false;
        }
        QVector<QObject *> seen;
    };
    Panel other(m_window);
    FilteringButton watching(true, m_window, Bottom);
    (watching.*setter)(panel(), true);
    sendPlain(panel(), QEvent::User);
    QVERIFY(watching.seen.contains(panel()));
    (watching.*setter)(detached ? nullptr : &other, true);
    watching.seen.clear();
    sendPlain(panel(), QEvent::User);
    QVERIFY(!watching.seen.contains(panel()));

    newButton(true);
    (m_button->*setter)(panel(), true);
    (m_button->*setter)(detached ? nullptr : &other, true);
    m_button->setChecked(true);
    panel()->move(0, 0);
    panel()->show();
    QCOMPARE(panel()->pos(), QPoint(0, 0));
    sendPlain(panel(), QEvent::FocusOut);
    QVERIFY(panel()->isVisible());
    panel()->hide();
    QVERIFY(m_button->isChecked());
}

void tst_CustomToolButton_Lifetimes::watchesAPanelAsLongAsItHasAPlace()
{
    newButton(true)->setClickWidget(panel(), true);
    m_button->setRightClickWidget(panel(), true);
    m_button->setClickWidget(nullptr, false);
    m_button->setChecked(true);
    panel()->show();
    panel()->hide();
    QVERIFY(!m_button->isChecked());

    // The button always watches itself.
    m_button->setClickWidget(m_button, false);
    m_button->setClickWidget(panel(), false);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(panel()->isVisible());
}

void tst_CustomToolButton_Lifetimes::destroyedPanelsAreForgotten()
{
    auto *rightPanel = new Panel(m_window);
    auto *hoverPanel = new Panel(m_window);
    newButton(true)->setClickWidget(panel(), true);
    m_button->setRightClickWidget(rightPanel, true);
    m_button->setHoverWidget(hoverPanel, true);
    for (Panel *each : {panel(), rightPanel, hoverPanel})
        each->show();
    delete panel();
    delete rightPanel;
    delete hoverPanel;
    sendHover(m_button, QEvent::HoverEnter);
    sendMouse(m_button, QEvent::MouseButtonPress, Qt::RightButton);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::RightButton);
    sendHover(m_button, QEvent::HoverLeave);
    const LogCapture log;
    m_button->adjustWidgetPosition();
    QCOMPARE(log.texts(), QStringList()); // nothing was placed
    QVERIFY(!m_button->clickWidget() && !m_button->rightClickWidget() && !m_button->hoverWidget());

    // Others take their places.
    auto *other = new Panel(m_window);
    m_button->setClickWidget(other, false);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(other->isVisible());
}

void tst_CustomToolButton_Lifetimes::panelDestroyedWhileItOpens()
{
    // Raising a panel ends with the news of it, which a filter may take for its end.
    class RaiseKiller : public QObject
    {
    public:
        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() != QEvent::ZOrderChange)
                return false;
            delete watched;
            return true;
        }
    };
    new QWidget(m_window); // above the panel, so that raising it changes something
    newButton(false)->setClickWidget(panel(), true);
    RaiseKiller killer;
    panel()->installEventFilter(&killer);
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    QVERIFY(!panel());
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
}

void tst_CustomToolButton_Lifetimes::panelDestroyedWhileItLosesTheFocus()
{
    newButton(true)->setClickWidget(panel(), true);
    m_button->setChecked(true);
    panel()->show();
    connect(m_button, &QToolButton::toggled, this, [this] { delete m_panel; });
    sendPlain(panel(), QEvent::FocusOut);
    QVERIFY(!panel());
}

void tst_CustomToolButton_Lifetimes::buttonDestroyedWhileThePanelLosesTheFocus()
{
    newButton(true)->setClickWidget(panel(), true);
    m_button->setChecked(true);
    panel()->show();
    ButtonKiller killer(m_button, QEvent::Hide);
    panel()->installEventFilter(&killer);
    panel()->order.clear();
    QFocusEvent event(QEvent::FocusOut);
    QCoreApplication::sendEvent(panel(), &event);
    QVERIFY(!m_button);
    QCOMPARE(panel()->order,
             QStringList{QStringLiteral("focus out")}); // the event is the panel's all the same
}

void tst_CustomToolButton_Lifetimes::buttonDestroyedWhileAPanelOpens()
{
    newButton(false)->setClickWidget(panel(), true);
    m_button->setRightClickWidget(panel(), true);
    ButtonKiller killer(m_button, QEvent::Show);
    panel()->installEventFilter(&killer);
    QMouseEvent event(QEvent::MouseButtonRelease, QPointF(5, 5), m_button->mapToGlobal(QPoint(5, 5)),
                      Qt::RightButton, Qt::NoButton, Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(m_button, &event);
    QVERIFY(!m_button);
    QVERIFY(event.isAccepted()); // or else Qt would ask the button for its parent
    QVERIFY(panel()->isVisible());
}

void tst_CustomToolButton_Lifetimes::nullPanels()
{
    newButton(true)->setClickWidget(nullptr, true);
    m_button->setRightClickWidget(nullptr, true);
    m_button->setHoverWidget(nullptr, true);
    const LogCapture log;
    sendHover(m_button, QEvent::HoverEnter);
    sendHover(m_button, QEvent::HoverLeave);
    QTest::mouseClick(m_button, Qt::RightButton);
    m_button->showRightClickWidget();
    m_button->adjustWidgetPosition();
    QTRY_VERIFY(!m_button->findChild<QTimer *>()->isActive());
    QCOMPARE(log.texts(), QStringList());
    QVERIFY(!panel()->isVisible());
}

ORV_TEST_MAIN(tst_CustomToolButton_Lifetimes)

#include "moc_customtoolbuttontest.cpp"
#include "tst_customtoolbutton_lifetimes.moc"
