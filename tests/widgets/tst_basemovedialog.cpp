#include "basemovedialog.h"

#include "mouseevents.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_BaseMoveDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportsADrag();
};

void tst_BaseMoveDialog::reportsADrag()
{
    BaseMoveDialog dialog(nullptr, true, false, false);
    dialog.setGeometry(100, 200, 300, 250);
    const QSignalSpy moved(&dialog, &BaseMoveDialog::sig_windowMoved);
    const QSignalSpy finished(&dialog, &BaseMoveDialog::sig_windowMovefinished);

    MouseEvents::press(&dialog, {150, 220});
    QVERIFY(dialog.isMoving());
    MouseEvents::move(&dialog, {160, 215});
    QCOMPARE(moved.count(), 1);
    QCOMPARE(moved.at(0).at(0).toPoint(), QPoint(110, 195));
    MouseEvents::release(&dialog, {160, 215});
    QCOMPARE(finished.count(), 1);
    QVERIFY(!dialog.isMoving());
    QCOMPARE(dialog.pos(), QPoint(110, 195));
}

QTEST_MAIN(tst_BaseMoveDialog)

#include "tst_basemovedialog.moc"
