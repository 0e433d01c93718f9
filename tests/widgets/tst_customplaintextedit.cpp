#include "customplaintextedit.h"
#include "testmain.h"

#include <QtTest/QTest>

class tst_CustomPlainTextEdit : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setsTheViewportMargins();
    void negativeMarginsLetTheViewportGrow();
};

void tst_CustomPlainTextEdit::setsTheViewportMargins()
{
    CustomPlainTextEdit edit;
    edit.setFrameShape(QFrame::NoFrame);
    edit.resize(200, 100);
    edit.show();
    QCOMPARE(edit.viewport()->geometry(), QRect(0, 0, 200, 100));

    edit.adjustViewPortMargin(1, 2, 30, 40);
    QCOMPARE(edit.viewport()->geometry(), QRect(1, 2, 200 - 31, 100 - 42));
    edit.adjustViewPortMargin(0, 0, 0, 0);
    QCOMPARE(edit.viewport()->geometry(), QRect(0, 0, 200, 100));
}

void tst_CustomPlainTextEdit::negativeMarginsLetTheViewportGrow()
{
    CustomPlainTextEdit edit;
    edit.setFrameShape(QFrame::NoFrame);
    edit.resize(200, 100);
    edit.show();
    edit.adjustViewPortMargin(-5, 0, -5, 0);
    QCOMPARE(edit.viewport()->geometry(), QRect(-5, 0, 210, 100));
}

ORV_TEST_MAIN(tst_CustomPlainTextEdit)

#include "tst_customplaintextedit.moc"
