#include "basemovedialog.h"
#include "fakescreens.h"
#include "popupdlgwithmask.h"
#include "testmain.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

// A screen left of the first one and higher than it, with bars at its left and its bottom.
const QRect kScreen(-1024, -300, 1024, 700);
const QRect kAvailable(-964, -300, 964, 660);

} // namespace

/// Where a dialog stands over its window, on one screen and on two.
class tst_BaseMoveDialogMoveOver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void centresOverTheWindow_data();
    void centresOverTheWindow();
    void takesAnyWidgetOfTheWindow();
    void centresOnItsScreenWithoutWindow();
    void adjustsWhatWasNeverSized();
    void adjustsAgainWhenShown();
    void movesNothingAfterwards();
    void countsTheFrame();
    void movesAnEmbeddedDialogWithinItsParent();
    void movesAFixedDialog();

private:
    std::unique_ptr<FakeScreens> m_screens;
};

void tst_BaseMoveDialogMoveOver::init()
{
    m_screens = std::make_unique<FakeScreens>(QVector<QRect>());
    m_screens->add(kScreen, kAvailable);
    QCOMPARE(QGuiApplication::primaryScreen()->availableGeometry(), QRect(0, 0, 800, 600));
}

void tst_BaseMoveDialogMoveOver::cleanup()
{
    m_screens.reset();
}

void tst_BaseMoveDialogMoveOver::centresOverTheWindow_data()
{
    QTest::addColumn<QRect>("window");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("expected");
    QTest::newRow("in the middle") << QRect(100, 100, 600, 500) << QSize(300, 200) << QPoint(250, 250);
    QTest::newRow("half a pixel") << QRect(100, 100, 601, 501) << QSize(300, 200) << QPoint(250, 250);
    QTest::newRow("larger than the window")
        << QRect(300, 300, 100, 100) << QSize(300, 200) << QPoint(200, 250);
    QTest::newRow("window at the left edge") << QRect(20, 300, 100, 100) << QSize(300, 200) << QPoint(0, 250);
    QTest::newRow("window at the top") << QRect(300, 20, 100, 100) << QSize(300, 200) << QPoint(200, 0);
    QTest::newRow("window at the right edge")
        << QRect(700, 300, 90, 100) << QSize(300, 200) << QPoint(500, 250);
    QTest::newRow("window at the bottom") << QRect(300, 500, 100, 90) << QSize(300, 200) << QPoint(200, 400);
    QTest::newRow("wider than the screen") << QRect(300, 300, 100, 100) << QSize(900, 200) << QPoint(0, 250);
    QTest::newRow("higher than the screen") << QRect(300, 300, 100, 100) << QSize(300, 900) << QPoint(200, 0);
    QTest::newRow("other screen") << QRect(-600, -100, 400, 300) << QSize(200, 100) << QPoint(-500, 0);
    QTest::newRow("other screen, its bars")
        << QRect(-1020, 300, 100, 100) << QSize(200, 100) << QPoint(-964, 260);
    QTest::newRow("other screen, too large")
        << QRect(-600, -100, 400, 300) << QSize(1000, 690) << QPoint(-964, -300);
    QTest::newRow("across the edge, most of it there")
        << QRect(-300, 100, 400, 200) << QSize(300, 100) << QPoint(-300, 150);
    QTest::newRow("across the edge, most of it here")
        << QRect(-100, 100, 400, 200) << QSize(300, 100) << QPoint(0, 150);
}

void tst_BaseMoveDialogMoveOver::centresOverTheWindow()
{
    QFETCH(QRect, window);
    QFETCH(QSize, size);
    QFETCH(QPoint, expected);
    QWidget main(nullptr, Qt::FramelessWindowHint);
    main.setGeometry(window);
    for (const bool shown : {false, true}) {
        main.setVisible(shown);
        BaseMoveDialog dialog(&main, true, false, true);
        dialog.resize(size);
        dialog.moveOver(&main);
        QCOMPARE(dialog.geometry(), QRect(expected, size));
        dialog.move(1, 2);
        dialog.show();
        dialog.moveOver(&main);
        QCOMPARE(dialog.geometry(), QRect(expected, size));
    }
}

void tst_BaseMoveDialogMoveOver::takesAnyWidgetOfTheWindow()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    auto *panel = new QWidget(&main);
    panel->setGeometry(500, 400, 10, 10);
    BaseMoveDialog dialog(nullptr, true, false, true);
    dialog.resize(300, 200);
    dialog.moveOver(new QLabel(panel));
    QCOMPARE(dialog.pos(), QPoint(250, 250));
}

void tst_BaseMoveDialogMoveOver::centresOnItsScreenWithoutWindow()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    dialog.resize(300, 200);
    dialog.moveOver(nullptr);
    QCOMPARE(dialog.pos(), QPoint(250, 200));
    dialog.move(-500, 0);
    dialog.moveOver(nullptr);
    QCOMPARE(dialog.pos(), kAvailable.topLeft() + QPoint((964 - 300) / 2, (660 - 200) / 2));
}

void tst_BaseMoveDialogMoveOver::adjustsWhatWasNeverSized()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    BaseMoveDialog dialog(&main, true, false, true);
    auto *content = new QWidget;
    content->setFixedSize(200, 100);
    auto *layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(10, 10, 10, 10);
    layout->addWidget(content);
    dialog.moveOver(&main);
    QCOMPARE(dialog.geometry(), QRect(290, 290, 220, 120));
    dialog.show();
    QCOMPARE(dialog.geometry(), QRect(290, 290, 220, 120));
}

// As a dialog that was only moved: content that comes before it is shown counts.
void tst_BaseMoveDialogMoveOver::adjustsAgainWhenShown()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    BaseMoveDialog dialog(&main, true, false, true);
    auto *layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    dialog.moveOver(&main);
    const QPoint pos = dialog.pos();
    auto *content = new QWidget;
    content->setFixedSize(200, 100);
    layout->addWidget(content);
    dialog.show();
    QCOMPARE(dialog.geometry(), QRect(pos, QSize(200, 100)));
}

void tst_BaseMoveDialogMoveOver::movesNothingAfterwards()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    main.show();
    BaseMoveDialog dialog(&main, true, false, true);
    dialog.resize(300, 200);
    dialog.moveOver(&main);
    dialog.show();
    main.move(0, 0);
    QCOMPARE(dialog.pos(), QPoint(250, 250));
    dialog.move(7, 8);
    dialog.hide();
    dialog.show();
    QCOMPARE(dialog.pos(), QPoint(7, 8));
}

void tst_BaseMoveDialogMoveOver::countsTheFrame()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    main.show();
    BaseMoveDialog dialog(&main, true, false, true);
    dialog.setWindowFlag(Qt::FramelessWindowHint, false); // as a client may want it
    dialog.resize(300, 200);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.moveOver(&main);
    const QPoint distance = dialog.frameGeometry().center() - main.frameGeometry().center();
    QVERIFY2(distance.manhattanLength() <= 2,
             qPrintable(QStringLiteral("%1").arg(distance.manhattanLength())));
    main.move(-5, 590);
    dialog.moveOver(&main);
    QCOMPARE(dialog.frameGeometry().bottom(), 599);
}

void tst_BaseMoveDialogMoveOver::movesAnEmbeddedDialogWithinItsParent()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    auto *panel = new QWidget(&main);
    panel->setGeometry(50, 60, 500, 400);
    auto *dialog = new BaseMoveDialog(panel, true, false, false);
    QVERIFY(!dialog->isWindow());
    dialog->resize(300, 200);
    dialog->moveOver(&main);
    QCOMPARE(dialog->mapTo(&main, QPoint(0, 0)), QPoint(150, 150));
}

void tst_BaseMoveDialogMoveOver::movesAFixedDialog()
{
    QWidget main;
    main.setGeometry(100, 100, 600, 500);
    PopupDlgWithMask dialog(QString(), QSize(400, 300), 8, 8, 8, 8, QString(), QString(), QString(),
                            QString(), false, false, true, false, &main);
    dialog.moveOver(&main);
    QCOMPARE(dialog.geometry(), QRect(200, 200, 400, 300));
}

ORV_TEST_MAIN(tst_BaseMoveDialogMoveOver)

#include "tst_basemovedialog_moveover.moc"
