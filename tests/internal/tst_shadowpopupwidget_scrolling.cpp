#include "shadowpopuptesting.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>

using namespace ShadowPopupTesting;

namespace {

// Counts the events of one type that reach some widgets.
class EventCounter : public QObject
{
public:
    EventCounter(QEvent::Type type, const QList<QWidget *> &widgets)
        : m_type(type)
    {
        for (QWidget *widget : widgets)
            widget->installEventFilter(this);
    }
    int count = 0;

    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == m_type ? 1 : 0;
        return false;
    }

private:
    QEvent::Type m_type;
};

} // namespace

/// Lists that are longer than what is seen of them.
class tst_ShadowPopupWidgetScrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void scrollsWhatDoesNotFit();
    void scrollBarAppearsForRowsAddedWhileOpen();
    void scrollBarAppearsForRowsOfOtherHeights();
    void rowsAreShownWhenTheyComeIntoView();
    void rowsAreShownOfWhichALineIsInView();
    void lowRowsFillTheView();
    void rowsInViewAreShownWhenOpenedAgain();
    void longTextsFollowTheWidth();
    void rowsAreNotPolishedBeforeTheyAreSeen();
    void looksOfARowLeaveTheOthersWhereTheyAre();
    void manyRows();
};

void tst_ShadowPopupWidgetScrolling::scrollsWhatDoesNotFit()
{
    List list;
    list.add(10);
    QVERIFY(list.showAndWait());
    QVERIFY(!list.bar()->isVisible());
    QCOMPARE(list.bar()->maximum(), 0);
    list.hide();
    list.add(5);
    list.show();
    QTRY_VERIFY(list.bar()->isVisible());
    QCOMPARE(list.height(), 504);
    QTRY_COMPARE(list.bar()->maximum(), 8 + 15 * 48 - 496);
    list.bar()->setValue(list.bar()->maximum());
    const QRect last(list.row(14)->mapTo(&list, QPoint(0, 0)), list.row(14)->size());
    QCOMPARE(last.bottom() + 1, 504 - 4 - 4);
    list.clear();
    QTRY_VERIFY(!list.bar()->isVisible());
}

void tst_ShadowPopupWidgetScrolling::scrollBarAppearsForRowsAddedWhileOpen()
{
    List list;
    list.add(10);
    QVERIFY(list.showAndWait());
    QVERIFY(!list.bar()->isVisible());
    list.add(1);
    QTRY_VERIFY(list.bar()->isVisible());
    QTRY_VERIFY(list.bar()->maximum() > 0);
}

void tst_ShadowPopupWidgetScrolling::scrollBarAppearsForRowsOfOtherHeights()
{
    // Rows are counted as 28 high, whatever they are.
    List list(4, 28);
    list.addItem(new CustomComboxItem(true, QStringLiteral("high"), 60, 12, 12, nullptr));
    list.addItem(new CustomComboxItem(true, QStringLiteral("high"), 60, 12, 12, nullptr));
    QCOMPARE(list.height(), 8 + 2 * 28 + 8);
    QVERIFY(list.showAndWait());
    QTRY_VERIFY(list.bar()->isVisible());
    QTRY_COMPARE(list.bar()->maximum(), 8 + 2 * 60 - (8 + 2 * 28));
}

void tst_ShadowPopupWidgetScrolling::rowsAreShownWhenTheyComeIntoView()
{
    const QString text = QStringLiteral("A camera with a name that is far too long for the list");
    List list;
    list.add(100);
    for (int row = 0; row < 100; ++row)
        list.addItem(new CustomComboxItem(text, list.rowParent()));
    QVector<bool> states(200, false);
    states[151] = true;
    list.setItemGrayState(states);
    list.setCurrentIndex(150);
    QVERIFY(list.showAndWait());
    QCoreApplication::processEvents();
    QVERIFY(list.row(0)->isVisible() && list.row(9)->isVisible());
    QVERIFY(!list.row(150)->isVisible());
    QCOMPARE(list.row(150)->height(), 48); // it keeps its place
    QCOMPARE(list.row(150)->y(), 4 + 150 * 48);

    list.bar()->setValue(150 * 48);
    for (int row = 150; row < 160; ++row)
        QVERIFY(list.row(row)->isVisible());
    QVERIFY(!list.row(148)->isVisible() && !list.row(161)->isVisible());
    QVERIFY(list.row(0)->isVisible()); // what was seen once stays
    QCoreApplication::processEvents();
    QVERIFY(isChecked(list.row(150)));
    QVERIFY(isGray(list.row(151)));
    QVERIFY(list.row(150)->findChildren<QLabel *>().at(1)->isVisible());
    const auto *label = list.row(152)->findChild<QLabel *>();
    QVERIFY(label->text().endsWith(QChar(0x2026)));
    QCOMPARE(label->text(), QFontMetrics(label->font()).elidedText(text, Qt::ElideRight, label->width()));
    QCOMPARE(label->font().pixelSize(), 16);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(0x33, 0x33, 0x33));
}

void tst_ShadowPopupWidgetScrolling::rowsAreShownOfWhichALineIsInView()
{
    List list;
    list.add(200);
    QVERIFY(list.showAndWait());
    QTRY_VERIFY(list.bar()->maximum() > 0);
    list.bar()->setValue(list.row(150)->geometry().bottom()); // its last line
    QVERIFY(list.row(150)->isVisible() && !list.row(149)->isVisible());
    list.bar()->setValue(list.row(100)->y() - list.bar()->pageStep() + 1); // its first line
    QVERIFY(list.row(100)->isVisible() && !list.row(101)->isVisible());
}

void tst_ShadowPopupWidgetScrolling::lowRowsFillTheView()
{
    // Ten rows of 48 have room for seventeen of 28.
    List list;
    for (int row = 0; row < 17; ++row)
        list.addItem(new CustomComboxItem(true, QString::number(row), list.rowParent()));
    QVERIFY(list.showAndWait());
    for (int row = 0; row < 17; ++row)
        QTRY_VERIFY(list.row(row)->isVisible());
    QVERIFY(!list.bar()->isVisible());
    list.clear();
    for (int row = 0; row < 16; ++row) // while it is open
        list.addItem(new CustomComboxItem(true, QString::number(row), list.rowParent()));
    for (int row = 0; row < 16; ++row)
        QTRY_VERIFY(list.row(row)->isVisible());
}

void tst_ShadowPopupWidgetScrolling::rowsInViewAreShownWhenOpenedAgain()
{
    List list;
    list.add(200);
    QVERIFY(list.showAndWait());
    QTRY_VERIFY(list.bar()->maximum() > 0);
    list.hide();
    list.bar()->setValue(100 * 48);
    QVERIFY(!list.row(101)->isVisible());
    list.show();
    QTRY_VERIFY(list.row(101)->isVisible() && list.row(108)->isVisible());
}

void tst_ShadowPopupWidgetScrolling::longTextsFollowTheWidth()
{
    const QString text = QStringLiteral("A camera with a name that is far too long for the list");
    List list;
    list.addItem(new CustomComboxItem(text, nullptr));
    QVERIFY(list.showAndWait());
    const auto *label = list.row(0)->findChild<QLabel *>();
    for (const int width : {268, 150, 220, 800}) {
        list.setFixedWidth(width);
        QTRY_COMPARE(label->width(), width - 16 - 20);
        QCOMPARE(label->text(), QFontMetrics(label->font()).elidedText(text, Qt::ElideRight, label->width()));
    }
    QCOMPARE(label->text(), text);
}

void tst_ShadowPopupWidgetScrolling::rowsAreNotPolishedBeforeTheyAreSeen()
{
    // Polishing is what parses style sheets: a list of thousands must not pay for rows that nobody sees.
    QWidget owner;
    List list(&owner);
    for (int row = 0; row < 40; ++row)
        list.addItem(new CustomComboxItem(QString::number(row), list.rowParent()));
    QList<QWidget *> seen = list.row(0)->findChildren<QWidget *>() << list.row(0);
    QList<QWidget *> unseen = list.row(30)->findChildren<QWidget *>() << list.row(30);
    const EventCounter seenPolished(QEvent::Polish, seen);
    const EventCounter unseenPolished(QEvent::Polish, unseen);
    owner.show();
    QVERIFY(QTest::qWaitForWindowExposed(&owner));
    QCoreApplication::processEvents();
    QCOMPARE(seenPolished.count, 0);
    QVERIFY(list.showAndWait());
    QCoreApplication::processEvents();
    QVERIFY(seenPolished.count > 0);
    QCOMPARE(unseenPolished.count, 0);
    list.setCurrentIndex(2);
    list.bar()->setValue(list.bar()->maximum());
    QVERIFY(unseenPolished.count > 0);
}

void tst_ShadowPopupWidgetScrolling::looksOfARowLeaveTheOthersWhereTheyAre()
{
    List list;
    list.add(20);
    QVERIFY(list.showAndWait());
    QTRY_COMPARE(list.row(0)->width(), 268 - 16);
    QCoreApplication::processEvents();
    const EventCounter layouts(QEvent::LayoutRequest, {list.content()});
    list.row(0)->setHovered(true);
    list.row(1)->setGrayState(true);
    list.setCurrentIndex(2);
    list.setCurrentIndex(0);
    for (int turn = 0; turn < 3; ++turn)
        QCoreApplication::processEvents();
    QCOMPARE(layouts.count, 0);
    list.add(1);
    QTRY_VERIFY(layouts.count > 0);
}

void tst_ShadowPopupWidgetScrolling::manyRows()
{
    constexpr int kRows = 5000;
    List list(4, 28);
    for (int index = 0; index < kRows; ++index)
        list.addItem(new CustomComboxItem(true, QString::number(index), nullptr));
    QCOMPARE(list.count(), kRows);
    QVERIFY(list.showAndWait());
    QCOMPARE(list.height(), 296);
    QTRY_COMPARE(list.bar()->maximum(), 8 + kRows * 28 - 288);
    list.bar()->setValue(list.bar()->maximum());
    QCoreApplication::processEvents();
    CustomComboxItem *last = list.row(kRows - 1);
    QCOMPARE(last->mapTo(&list, QPoint(0, last->height())).y(), 296 - 4 - 4);
    QTRY_VERIFY(last->isVisible());
    QCOMPARE(last->findChild<QLabel *>()->text(), QString::number(kRows - 1));
    const QSignalSpy chosen(&list, &ShadowPopupWidget::currentIndexChanged);
    QTest::mouseClick(list.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      last->mapTo(&list, last->rect().center()));
    QTRY_COMPARE(chosen.count(), 1);
    QCOMPARE(chosen.first().first().toInt(), kRows - 1);
    list.hide();
    list.clear();
    QCOMPARE(list.count(), 0);
}

ORV_TEST_MAIN(tst_ShadowPopupWidgetScrolling)

#include "tst_shadowpopupwidget_scrolling.moc"
