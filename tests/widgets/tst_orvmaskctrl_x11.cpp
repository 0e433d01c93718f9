#include "orvmaskctrl.h"

#include "testmain.h"
#include "xpointer.h"

#include <QtGui/QImage>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QWidget>

namespace {

const QRect kWindow(300, 200, 500, 400);
const QRect kButton(150, 150, 120, 40);

/// The lightness of the screen, from 0 to 255, at a place of the window where nothing is drawn but its
/// background.
int lightnessAt(const QPoint &local)
{
    return XPointer::grabScreen().pixelColor(kWindow.topLeft() + local).lightness();
}

} // namespace

/// The instance of the process lives through all of these functions, in the order in which they stand.
class tst_OrvMaskCtrl_x11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void darkensTheWholeWindowWhileAnOwnerRemains();
    void liesAboveTheWindowsChildren();
    void coversOnlyTheSizeOfItsBeginning();

private:
    QWidget m_window;
    QPushButton m_button{&m_window};
    QWidget m_firstDialog;
    QWidget m_secondDialog;
};

void tst_OrvMaskCtrl_x11::initTestCase()
{
    m_window.setWindowFlag(Qt::FramelessWindowHint);
    m_window.setGeometry(kWindow);
    m_window.setStyleSheet(QStringLiteral("QWidget{background-color:white;}"));
    m_button.setGeometry(kButton);
    QVERIFY(XPointer::showAndWait(&m_window));
    QTRY_COMPARE(m_window.geometry(), kWindow);
}

void tst_OrvMaskCtrl_x11::darkensTheWholeWindowWhileAnOwnerRemains()
{
    QTRY_COMPARE(lightnessAt({250, 300}), 255);
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(&m_firstDialog);
    mask->showMasking(&m_secondDialog);
    const QPoint places[] = {{0, 0},     {499, 0},   {0, 399},
                             {499, 399}, {250, 300}, kButton.topLeft() + QPoint(3, 3)};
    for (const QPoint &place : places) {
        QTRY_VERIFY(lightnessAt(place) < 200);
        QVERIFY(lightnessAt(place) > 20);
    }
    mask->hideMasking(&m_firstDialog);
    QVERIFY(mask->getMaskWidget()->isVisible());
    QVERIFY(lightnessAt({250, 300}) < 200);
    mask->hideMasking(&m_secondDialog);
    QTRY_COMPARE(lightnessAt({250, 300}), 255);
}

void tst_OrvMaskCtrl_x11::liesAboveTheWindowsChildren()
{
    const QPoint button = kWindow.topLeft() + kButton.center();
    const QSignalSpy clicked(&m_button, &QPushButton::clicked);
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(nullptr);
    mask->showMasking(&m_firstDialog);
    XPointer::click(button);
    QCOMPARE(clicked.count(), 0);
    mask->hideMasking(nullptr);
    XPointer::click(button);
    QTRY_COMPARE(clicked.count(), 1);
    mask->hideMasking(&m_firstDialog);
}

void tst_OrvMaskCtrl_x11::coversOnlyTheSizeOfItsBeginning()
{
    m_window.resize(kWindow.size() + QSize(100, 100));
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(&m_firstDialog);
    QTRY_VERIFY(lightnessAt({499, 399}) < 200);
    QTRY_COMPARE(lightnessAt({500, 399}), 255);
    QTRY_COMPARE(lightnessAt({499, 400}), 255);
    OrvMaskCtrl::deleteInstance();
    QVERIFY(!OrvMaskCtrl::getInstance(&m_window));
    QVERIFY(lightnessAt({499, 399}) < 200); // the label is the window's
}

ORV_TEST_MAIN(tst_OrvMaskCtrl_x11)

#include "tst_orvmaskctrl_x11.moc"
