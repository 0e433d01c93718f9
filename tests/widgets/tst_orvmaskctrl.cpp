#include "orvmaskctrl.h"

#include <QtTest/QTest>
#include <QtWidgets/QWidget>

class tst_OrvMaskCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void staysUntilTheLastOwnerLetsGo();
};

void tst_OrvMaskCtrl::staysUntilTheLastOwnerLetsGo()
{
    QWidget window;
    window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&window);
    QVERIFY(mask->getMaskWidget()->isHidden());
    int first = 0;
    int second = 0;
    mask->showMasking(&first);
    mask->showMasking(&second);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&first);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&second);
    QVERIFY(mask->getMaskWidget()->isHidden());
}

QTEST_MAIN(tst_OrvMaskCtrl)

#include "tst_orvmaskctrl.moc"
