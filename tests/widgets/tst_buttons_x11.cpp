#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customtoolbutton.h"
#include "testmain.h"
#include "xpointer.h"

#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

QPoint centerOf(const QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

} // namespace

/// The buttons under a real pointer.
class tst_ButtonsX11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void pictureFollowsThePointer();
    void iconButtonReportsClicksNotDrags();
    void rightClickAndLongPressOpenThePanel();
    void hoverPanelSurvivesTheWayToIt();
    void clickPanelClosesWhenItLosesTheFocus();

private:
    QWidget *m_window = nullptr;
};

void tst_ButtonsX11::init()
{
    m_window = new QWidget;
    m_window->setGeometry(150, 150, 400, 300);
    XPointer::moveTo(QPoint(20, 20));
}

void tst_ButtonsX11::cleanup()
{
    delete m_window;
}

void tst_ButtonsX11::pictureFollowsThePointer()
{
    QImage normal(20, 20, QImage::Format_RGB32);
    normal.fill(Qt::red);
    QImage hover(20, 20, QImage::Format_RGB32);
    hover.fill(Qt::blue);
    auto *button = new CustomPictureBtn(normal, QString(), 0, m_window, false);
    button->setHoverIcon(hover);
    button->setGeometry(50, 50, 60, 40);
    QVERIFY(XPointer::showAndWait(m_window));
    const QPoint center = centerOf(button);
    QTRY_COMPARE(XPointer::grabScreen().pixelColor(center), QColor(Qt::red));
    XPointer::moveTo(center + QPoint(20, 0));
    QTRY_COMPARE(XPointer::grabScreen().pixelColor(center), QColor(Qt::blue));
    XPointer::moveTo(QPoint(20, 20));
    QTRY_COMPARE(XPointer::grabScreen().pixelColor(center), QColor(Qt::red));
}

void tst_ButtonsX11::iconButtonReportsClicksNotDrags()
{
    auto *button = new CustomizeIconButton(QSize(16, 16), QStringLiteral("Click"), 4, m_window, true);
    button->setGeometry(50, 50, 120, 40);
    button->setTextStyle(QStringLiteral("QLabel{color:black;}"), QStringLiteral("QLabel{color:blue;}"),
                         QString(), QString());
    QVERIFY(XPointer::showAndWait(m_window));
    const QSignalSpy clicked(button, &CustomizeIconButton::clicked);
    XPointer::click(centerOf(button));
    QTRY_COMPARE(clicked.count(), 1);
    XPointer::drag(centerOf(button), centerOf(button) + QPoint(QApplication::startDragDistance() + 2, 0));
    XPointer::click(centerOf(button), 3);
    XPointer::click(centerOf(button));
    QTRY_COMPARE(clicked.count(), 2);
}

void tst_ButtonsX11::rightClickAndLongPressOpenThePanel()
{
    auto *button = new CustomToolButton(false, m_window, Bottom);
    button->setGeometry(180, 50, 32, 32);
    auto *panel = new QWidget(m_window);
    panel->setMinimumSize(80, 40);
    panel->hide();
    button->setRightClickWidget(panel, false);
    QVERIFY(XPointer::showAndWait(m_window));

    XPointer::click(centerOf(button), 3);
    QTRY_VERIFY(panel->isVisible());
    panel->hide();
    XPointer::press();
    QTest::qWait(1050); // the one place where the real clock counts
    QVERIFY(!panel->isVisible());
    XPointer::release();
    QTRY_VERIFY(panel->isVisible());

    panel->hide();
    XPointer::click(centerOf(button));
    QVERIFY(!panel->isVisible());
}

void tst_ButtonsX11::hoverPanelSurvivesTheWayToIt()
{
    auto *button = new CustomToolButton(false, m_window, Bottom);
    button->setGeometry(180, 50, 32, 32);
    auto *panel = new QWidget(m_window);
    panel->setMinimumSize(80, 40);
    panel->hide();
    button->setHoverWidget(panel, false);
    QVERIFY(XPointer::showAndWait(m_window));
    XPointer::moveTo(centerOf(button));
    QTRY_VERIFY(panel->isVisible());
    const QSignalSpy destroyed(panel, &QObject::destroyed);
    XPointer::moveTo(centerOf(panel));
    QTest::qWait(300); // longer than the delay with which leaving both would close it
    QVERIFY(panel->isVisible());
    XPointer::moveTo(QPoint(20, 20));
    QTRY_VERIFY(!panel->isVisible());
    QCOMPARE(destroyed.count(), 0);
}

void tst_ButtonsX11::clickPanelClosesWhenItLosesTheFocus()
{
    auto *button = new CustomToolButton(true, m_window, Bottom);
    button->setGeometry(180, 50, 32, 32);
    button->setCheckable(true);
    auto *panel = new QWidget(m_window);
    panel->setMinimumSize(80, 40);
    panel->setFocusPolicy(Qt::StrongFocus);
    panel->hide();
    button->setClickWidget(panel, true);
    auto *elsewhere = new QWidget(m_window);
    elsewhere->setFocusPolicy(Qt::StrongFocus);
    elsewhere->setGeometry(10, 200, 60, 60);
    QVERIFY(XPointer::showAndWait(m_window));
    QVERIFY(QTest::qWaitForWindowActive(m_window));

    XPointer::click(centerOf(button));
    QTRY_VERIFY(panel->hasFocus());
    XPointer::click(centerOf(button));
    QTRY_VERIFY(panel->isVisible());
    button->setChecked(true);
    XPointer::click(centerOf(elsewhere));
    QTRY_VERIFY(!panel->isVisible());
    QVERIFY(!button->isChecked());
}

ORV_TEST_MAIN(tst_ButtonsX11)

#include "tst_buttons_x11.moc"
