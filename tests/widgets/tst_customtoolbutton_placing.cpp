#include "customtoolbuttontest.h"
#include "logcapture.h"
#include "testmain.h"

#include <QtTest/QTest>

/// Where CustomToolButton places its panels.
class tst_CustomToolButtonPlacing : public CustomToolButtonTest
{
    Q_OBJECT

private Q_SLOTS:
    void panelIsShownBeforeItGetsItsSize();
    void placesThePanel_data();
    void placesThePanel();
    void placesATopLevelPanelInGlobalCoordinates();
    void unknownDirectionPlacesNothing();
    void topStaysInsideTheWindow_data();
    void topStaysInsideTheWindow();
    void topNarrowsAPanelLeftOfItsParent();
    void placesAgainOnDemandAndOnEachShowing();
    void logsEachPlacing_data();
    void logsEachPlacing();
};

void tst_CustomToolButtonPlacing::panelIsShownBeforeItGetsItsSize()
{
    // It is placed with the size that it has. The size that it wants comes afterwards, and places it no more.
    newButton(false)->setClickWidget(panel(), false);
    panel()->hint = QSize(90, 70);
    panel()->order.clear();
    sendMouse(m_button, QEvent::MouseButtonRelease, Qt::LeftButton);
    const QPoint center = kButtonRect.topLeft() + QRect(QPoint(), kButtonRect.size()).center();
    QRect placed(0, 0, 60, 40);
    placed.moveCenter(QPoint(center.x(), int(center.y() + (25 + 40) / 2.0 + 6)));
    QCOMPARE(panel()->pos(), placed.topLeft());
    QCOMPARE(panel()->size(), QSize(90, 70));
    QCOMPARE(panel()->order.first(), QStringLiteral("resize")); // the size it had, delivered on showing
    QCOMPARE(panel()->order.at(1), QStringLiteral("show at %1,%2").arg(placed.x()).arg(placed.y()));
    QCOMPARE(panel()->order.last(), QStringLiteral("resize"));
}

void tst_CustomToolButtonPlacing::placesThePanel_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QSize>("panelSize");
    QTest::addColumn<QPoint>("topLeft");
    // The button's centre is at (215, 162): the centre of a QRect of 31 x 25 is (15, 12).
    const auto topLeftOf = [](QPoint center, QSize size) {
        QRect rect(QPoint(), size);
        rect.moveCenter(center);
        return rect.topLeft();
    };
    const QSize even(60, 40);
    const QSize odd(61, 41);
    QTest::newRow("bottom") << 0 << even
                            << topLeftOf(QPoint(215, 162 + 32 + 9), even); // 162 + 32.5 + 9, truncated
    QTest::newRow("bottom, odd") << 0 << odd << topLeftOf(QPoint(215, 162 + 33 + 9), odd);
    QTest::newRow("left") << 1 << even << topLeftOf(QPoint(155, 162), even);     // 215 - 45.5 - 14 = 155.5
    QTest::newRow("left, odd") << 1 << odd << topLeftOf(QPoint(155, 162), odd);  // 215 - 46 - 14
    QTest::newRow("right") << 3 << even << topLeftOf(QPoint(246, 162), even);    // 215 + 45.5 - 14 = 246.5
    QTest::newRow("right, odd") << 3 << odd << topLeftOf(QPoint(247, 162), odd); // 215 + 46 - 14
    QTest::newRow("top") << 2 << even << QPoint(185, 150 - 40 - 25);
    QTest::newRow("top, odd") << 2 << odd << QPoint(184, 150 - 41 - 25); // 215 - 30.5, truncated
}

void tst_CustomToolButtonPlacing::placesThePanel()
{
    QFETCH(int, direction);
    QFETCH(QSize, panelSize);
    QFETCH(QPoint, topLeft);
    newButton(false, SettingWidgetDirection(direction))->setClickWidget(panel(), false);
    m_button->setSettingWidgetOffset(9);
    panel()->resize(panelSize);
    panel()->show();
    QCOMPARE(panel()->geometry(), QRect(topLeft, panelSize));
}

void tst_CustomToolButtonPlacing::placesATopLevelPanelInGlobalCoordinates()
{
    Panel topLevel(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    newButton(false, Bottom)->setClickWidget(&topLevel, false);
    topLevel.show();
    const QPoint center = m_button->mapToGlobal(m_button->rect().center());
    QRect expected(0, 0, 60, 40);
    expected.moveCenter(QPoint(center.x(), int(center.y() + (25 + 40) / 2.0 + 6)));
    QCOMPARE(topLevel.geometry(), expected);

    // Above, a panel without a parent is not kept inside anything.
    delete m_button;
    topLevel.hide();
    newButton(false, Top)->setClickWidget(&topLevel, false);
    m_button->move(2, 2);
    topLevel.show();
    const QPoint topCenter = m_button->mapToGlobal(QPoint(15, 0));
    QCOMPARE(topLevel.pos(), QPoint(topCenter.x() - 30, topCenter.y() - 40 - 25));
}

void tst_CustomToolButtonPlacing::unknownDirectionPlacesNothing()
{
    LogCapture log;
    newButton(false, SettingWidgetDirection(17))->setClickWidget(panel(), false);
    panel()->move(7, 8);
    panel()->show();
    QCOMPARE(panel()->pos(), QPoint(7, 8));
    QCOMPARE(log.count(), 0);
}

void tst_CustomToolButtonPlacing::topStaysInsideTheWindow_data()
{
    QTest::addColumn<int>("buttonX");
    QTest::addColumn<int>("panelX");
    // The window is 500 wide. A moved panel's right edge lies on x = 486, its left edge then on 486 - 59.
    QTest::newRow("inside") << 200 << 185;
    QTest::newRow("right edge just inside") << 456 << 441; // top-right at 500
    QTest::newRow("right edge outside") << 457 << 427;
    QTest::newRow("far right") << 469 << 427;
    QTest::newRow("left edge just inside") << 15 << 0;
    QTest::newRow("left edge outside") << 14 << 14;
    QTest::newRow("far left") << 0 << 14;
}

void tst_CustomToolButtonPlacing::topStaysInsideTheWindow()
{
    QFETCH(int, buttonX);
    QFETCH(int, panelX);
    newButton(false, Top)->setClickWidget(panel(), false);
    m_button->move(buttonX, 150);
    panel()->show();
    QCOMPARE(panel()->geometry(), QRect(panelX, 150 - 40 - 25, 60, 40));
}

void tst_CustomToolButtonPlacing::topNarrowsAPanelLeftOfItsParent()
{
    // The parent of the panel starts at x = 100 of the window: a panel over a button left of it is inside the
    // window but left of its parent. Its left edge goes to 14 and its right edge stays.
    QWidget area(m_window);
    area.setGeometry(100, 0, 300, 300);
    area.show();
    auto *inner = new Panel(&area);
    newButton(false, Top)->setClickWidget(inner, false);
    m_button->move(90, 150);
    inner->show();
    const int left = 90 + 15 - 30 - 100;
    QCOMPARE(inner->geometry(), QRect(QPoint(14, 85), QPoint(left + 59, 85 + 39)));
}

void tst_CustomToolButtonPlacing::placesAgainOnDemandAndOnEachShowing()
{
    Panel rightPanel(m_window);
    Panel hoverPanel(m_window);
    newButton(false)->setClickWidget(panel(), false);
    m_button->setRightClickWidget(&rightPanel, false);
    m_button->setHoverWidget(&hoverPanel, false);
    for (Panel *each : {panel(), &rightPanel, &hoverPanel})
        each->show();
    const QPoint before = panel()->pos();
    m_button->move(m_button->pos() + QPoint(10, 20));
    QCOMPARE(panel()->pos(), before);
    m_button->adjustWidgetPosition();
    for (Panel *each : {panel(), &rightPanel, &hoverPanel})
        QCOMPARE(each->pos(), before + QPoint(10, 20));

    panel()->hide();
    m_button->move(m_button->pos() - QPoint(10, 20));
    panel()->show();
    QCOMPARE(panel()->pos(), before);
}

void tst_CustomToolButtonPlacing::logsEachPlacing_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("bottom") << 0 << QStringList{QStringLiteral("QRect(438,181 60x40)")};
    QTest::newRow("left") << 1 << QStringList{QStringLiteral("QRect(378,143 60x40)")};
    QTest::newRow("right") << 3 << QStringList{QStringLiteral("QRect(469,143 60x40)")};
    QTest::newRow("top") << 2
                         << QStringList{QStringLiteral("QRect(437,85 60x40)"),
                                        QStringLiteral("QRect(437,85 60x40)")};
    QTest::newRow("top, clamped") << 102
                                  << QStringList{QStringLiteral("QRect(447,85 60x40)"),
                                                 QStringLiteral("QRect(427,85 60x40)")};
}

void tst_CustomToolButtonPlacing::logsEachPlacing()
{
    QFETCH(int, direction);
    QFETCH(QStringList, texts);
    newButton(false, SettingWidgetDirection(direction % 100))->setClickWidget(panel(), false);
    m_button->move(direction >= 100 ? 462 : 452, 150);
    LogCapture log;
    m_button->adjustWidgetPosition();
    QCOMPARE(log.texts(), texts);
    const QVector<LogLine> lines = log.lines();
    for (const LogLine &line : lines) {
        QCOMPARE(line.type, QtInfoMsg);
        QVERIFY(line.function.contains(QStringLiteral("CustomToolButton::adjustWidget(")));
        QVERIFY(line.file.endsWith(QStringLiteral("customtoolbutton.cpp")));
        QVERIFY(line.line > 0);
    }
}

ORV_TEST_MAIN(tst_CustomToolButtonPlacing)

#include "moc_customtoolbuttontest.cpp"
#include "tst_customtoolbutton_placing.moc"
