#include "framelesshelper.h"

#include "mouseevents.h"

#include <QtTest/QTest>
#include <QtWidgets/QWidget>

namespace {

const QRect kFrame(100, 200, 300, 250);

} // namespace

class tst_FramelessHelper : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void startsWithItsDefaults();
    void dragsByTheTitleStrip();

private:
    std::unique_ptr<QWidget> m_widget;
    std::unique_ptr<FramelessHelper> m_helper;
};

void tst_FramelessHelper::init()
{
    m_widget = std::make_unique<QWidget>(nullptr, Qt::FramelessWindowHint);
    m_widget->setGeometry(kFrame);
    m_helper = std::make_unique<FramelessHelper>();
    m_helper->activateOn(m_widget.get());
}

void tst_FramelessHelper::cleanup()
{
    m_helper->setBorderWidth(5);
    m_helper->setTitleHeight(50);
    m_helper->setRightBottomAreaExtraPix(10);
    m_helper->setEnabelRightBottomAreaResize(false);
    m_helper.reset();
    m_widget.reset();
}

void tst_FramelessHelper::startsWithItsDefaults()
{
    QVERIFY(m_helper->widgetMovable());
    QVERIFY(m_helper->widgetResizable());
    QVERIFY(!m_helper->rubberBandOnMove());
    QVERIFY(!m_helper->rubberBandOnResisze());
    QCOMPARE(m_helper->borderWidth(), 5U);
    QCOMPARE(m_helper->titleHeight(), 50U);
    QCOMPARE(m_helper->rightBottomAreaExtraPix(), 10U);
    QVERIFY(!m_helper->enableRightBottomAreaResizeState());
}

void tst_FramelessHelper::dragsByTheTitleStrip()
{
    MouseEvents::press(m_widget.get(), kFrame.topLeft() + QPoint(150, 49));
    MouseEvents::move(m_widget.get(), kFrame.topLeft() + QPoint(157, 38));
    MouseEvents::release(m_widget.get(), kFrame.topLeft() + QPoint(157, 38));
    QCOMPARE(m_widget->geometry(), kFrame.translated(7, -11));
}

QTEST_MAIN(tst_FramelessHelper)

#include "tst_framelesshelper.moc"
