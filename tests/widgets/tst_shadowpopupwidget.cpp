#include "customcomboxitem.h"
#include "mouseevents.h"
#include "pictures.h"
#include "shadowpopupwidget.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

namespace {

// The list with what it is made of.
class List : public ShadowPopupWidget
{
public:
    explicit List(QWidget *parent = nullptr)
        : ShadowPopupWidget(QStringLiteral(":/images/images/combox/popup_bg.png"), 4, 4, 4, 4, 4, parent)
    {
    }
    List(int margin, int rowHeight, QWidget *parent = nullptr)
        : ShadowPopupWidget(QStringLiteral(":/images/images/combox/popup_small.png"), margin, rowHeight,
                            parent)
    {
    }

    QScrollArea *area() const { return findChild<QScrollArea *>(); }
    QScrollBar *bar() const { return area()->verticalScrollBar(); }
    QWidget *content() const { return area()->widget(); }
    // In display order.
    CustomComboxItem *row(int index) const
    {
        return qobject_cast<CustomComboxItem *>(content()->layout()->itemAt(index)->widget());
    }
    void add(int rows)
    {
        for (int index = 0; index < rows; ++index)
            addItem(new CustomComboxItem(QStringLiteral("Row %1").arg(count()), nullptr));
    }
    bool showAndWait()
    {
        setFixedWidth(268);
        show();
        return QTest::qWaitForWindowExposed(this);
    }
};

bool isChecked(const CustomComboxItem *row)
{
    const QString sheet = row->findChild<QLabel *>()->styleSheet();
    return sheet.contains(QLatin1String("#4B66EB"));
}

bool isGray(const CustomComboxItem *row)
{
    return row->findChild<QLabel *>()->styleSheet().contains(QLatin1String("#B1B1B2"));
}

bool isHovered(const CustomComboxItem *row)
{
    return row->styleSheet().contains(QLatin1String("#F4F4F4"));
}

QString withoutBlanks(QString text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s"));
    return text.remove(blanks);
}

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

void compareSheet(const QString &sheet, const QStringList &rules)
{
    QString rest = withoutBlanks(sheet);
    for (const QString &rule : rules) {
        QVERIFY2(rest.contains(withoutBlanks(rule)), qPrintable(rule));
        rest.remove(withoutBlanks(rule));
    }
    QCOMPARE(rest, QString());
}

} // namespace

class tst_ShadowPopupWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalsStandInOrder();
    void isAToolWindowThatStaysWhereItIs_data();
    void isAToolWindowThatStaysWhereItIs();
    void buildsTheNormalLook();
    void buildsTheSmallLook();
    void stylesItsScrollBar_data();
    void stylesItsScrollBar();
    void paintsItsShadow_data();
    void paintsItsShadow();

    void fitsItsHeight_data();
    void fitsItsHeight();
    void heightFollowsTheRows();
    void widthFollowsThePopup_data();
    void widthFollowsThePopup();
    void scrollsWhatDoesNotFit();
    void scrollBarAppearsForRowsAddedWhileOpen();
    void scrollBarAppearsForRowsOfOtherHeights();
    void rowsAreShownWhenTheyComeIntoView();
    void lowRowsFillTheView();
    void rowsInViewAreShownWhenOpenedAgain();
    void longTextsFollowTheWidth();
    void rowsAreNotPolishedBeforeTheyAreSeen();
    void looksOfARowLeaveTheOthersWhereTheyAre();

    void numbersAndRelaysItsRows();
    void selectsOneRow();
    void ignoresIndexesOutOfRange();
    void tellsTheCurrentText();
    void keepsDataPerRow();
    void graysRows();
    void grayStatesMustFitTheRows_data();
    void grayStatesMustFitTheRows();
    void clears();
    void clearedListStartsOver();
    void hidingEndsTheHovering();

    void clearedByAClick();
    void destroyedByAClick();
    void takesItsRowsAlong();
    void manyRows();
};

void tst_ShadowPopupWidget::signalsStandInOrder()
{
    const QMetaObject &meta = ShadowPopupWidget::staticMetaObject;
    const int first = meta.methodOffset();
    QCOMPARE(meta.method(first).methodSignature(), QByteArray("currentIndexChanged(int)"));
    QCOMPARE(meta.method(first + 1).methodSignature(), QByteArray("currentGrayIndexChanged(int)"));
}

void tst_ShadowPopupWidget::isAToolWindowThatStaysWhereItIs_data()
{
    QTest::addColumn<bool>("small");
    QTest::newRow("normal") << false;
    QTest::newRow("small") << true;
}

void tst_ShadowPopupWidget::isAToolWindowThatStaysWhereItIs()
{
    QFETCH(bool, small);
    QWidget owner;
    const QScopedPointer<List> list(small ? new List(4, 28, &owner) : new List(&owner));
    QCOMPARE(list->parentWidget(), &owner);
    QVERIFY(list->isWindow());
    QCOMPARE(list->windowType(), Qt::Tool);
    QVERIFY(list->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(list->testAttribute(Qt::WA_TranslucentBackground));

    list->add(3);
    list->move(300, 200);
    QVERIFY(list->showAndWait());
    const QPoint pos = list->mapToGlobal(QPoint(1, 1));
    MouseEvents::press(list.data(), pos);
    MouseEvents::move(list.data(), pos + QPoint(60, 60));
    MouseEvents::release(list.data(), pos + QPoint(60, 60));
    QCOMPARE(list->pos(), QPoint(300, 200));
}

void tst_ShadowPopupWidget::buildsTheNormalLook()
{
    // Four margins that differ tell which is used for what.
    ShadowPopupWidget list(QString(), 1, 2, 3, 5, 4, nullptr);
    const auto *outer = qobject_cast<QVBoxLayout *>(list.layout());
    QVERIFY(outer);
    QCOMPARE(outer->contentsMargins(), QMargins(1, 2, 3, 5));
    QCOMPARE(outer->spacing(), 0);
    auto *area = list.findChild<QScrollArea *>();
    QCOMPARE(outer->count(), 1);
    QCOMPARE(outer->itemAt(0)->widget(), area);
    QCOMPARE(area->parentWidget(), &list);
    QCOMPARE(area->styleSheet(),
             QStringLiteral("QScrollArea{background:#FFFFFF; border:none; border-radius:4px; }"));
    QVERIFY(area->widgetResizable());
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(area->verticalScrollBar()->isHidden());
    QCOMPARE(area->widget()->styleSheet(),
             QStringLiteral("QWidget{background: transparent; border:none; border-radius:4px; }"));
    const auto *rows = qobject_cast<QVBoxLayout *>(area->widget()->layout());
    QVERIFY(rows);
    QCOMPARE(rows->contentsMargins(), QMargins(4, 4, 4, 4));
    QCOMPARE(rows->spacing(), 0);
    list.updateHeight();
    QCOMPARE(area->height(), 16);
    QCOMPARE(list.height(), 16 + 2 + 5);
    list.resize(200, list.height());
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    QCOMPARE(area->width(), 200 - 1 - 3);
}

void tst_ShadowPopupWidget::buildsTheSmallLook()
{
    const List list(6, 28);
    const auto *outer = qobject_cast<QVBoxLayout *>(list.layout());
    QVERIFY(outer);
    QCOMPARE(outer->contentsMargins(), QMargins(6, 6, 6, 6));
    QCOMPARE(outer->spacing(), 0);
    const QScrollArea *area = list.area();
    QCOMPARE(area->objectName(), QStringLiteral("ScrollArea"));
    QCOMPARE(area->styleSheet(),
             QStringLiteral("QScrollArea#ScrollArea{background:#FFFFFF; border:none; border-radius:6px; }"));
    QVERIFY(area->widgetResizable());
    QCOMPARE(area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(area->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(list.bar()->isHidden());
    QCOMPARE(list.content()->objectName(), QStringLiteral("ScrollContentWidget"));
    QCOMPARE(list.content()->styleSheet(),
             QStringLiteral("QWidget#ScrollContentWidget{background: transparent; border:none; "
                            "border-radius:6px; }"));
    const auto *rows = qobject_cast<QVBoxLayout *>(list.content()->layout());
    QVERIFY(rows);
    QCOMPARE(rows->contentsMargins(), QMargins(6, 6, 6, 6));
    QCOMPARE(rows->spacing(), 0);
}

void tst_ShadowPopupWidget::stylesItsScrollBar_data()
{
    isAToolWindowThatStaysWhereItIs_data();
}

void tst_ShadowPopupWidget::stylesItsScrollBar()
{
    QFETCH(bool, small);
    const QScopedPointer<List> list(small ? new List(4, 28) : new List);
    compareSheet(list->bar()->styleSheet(),
                 {QStringLiteral("QScrollBar:vertical{border:none;background:transparent;width:6px;"
                                 "margin:0px 0 0px 0;}"),
                  QStringLiteral("QScrollBar::handle:vertical{background:#797979;min-height:30px;"
                                 "border-radius:3px;border:none;}"),
                  QStringLiteral("QScrollBar::add-line:vertical{border:0px solid;background:none;height:0px;"
                                 "subcontrol-position:bottom;subcontrol-origin:margin;}"),
                  QStringLiteral("QScrollBar::sub-line:vertical{border:0px solid;background:none;height:0px;"
                                 "subcontrol-position:top;subcontrol-origin:margin;}"),
                  QStringLiteral("QScrollBar::add-page:vertical,QScrollBar::sub-page:vertical{"
                                 "background:none;width:0px;height:0px;}")});
    list->add(12);
    QVERIFY(list->showAndWait());
    QTRY_VERIFY(list->bar()->isVisible());
    QCOMPARE(list->bar()->width(), 6);
}

void tst_ShadowPopupWidget::paintsItsShadow_data()
{
    isAToolWindowThatStaysWhereItIs_data();
}

void tst_ShadowPopupWidget::paintsItsShadow()
{
    QFETCH(bool, small);
    const QScopedPointer<List> list(small ? new List(4, 28) : new List);
    list->add(2);
    QVERIFY(list->showAndWait());
    const QImage image = renderWidget(list.data());
    const QPoint middle = image.rect().center();
    QVERIFY(image.pixelColor(0, 0).alpha() < 16);
    const int edge = image.pixelColor(middle.x(), image.height() - 2).alpha();
    QVERIFY2(edge > 0 && edge < 128, qPrintable(QString::number(edge)));
    QCOMPARE(image.pixelColor(middle), QColor(Qt::white));
    QCOMPARE(image.pixelColor(middle.x(), 5), QColor(Qt::white));
}

void tst_ShadowPopupWidget::fitsItsHeight_data()
{
    QTest::addColumn<int>("margin"); // 0: the normal look
    QTest::addColumn<int>("rowHeight");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("areaHeight");
    QTest::addColumn<int>("height");
    QTest::newRow("one") << 0 << 48 << 1 << 64 << 72;
    QTest::newRow("three") << 0 << 48 << 3 << 160 << 168;
    QTest::newRow("ten") << 0 << 48 << 10 << 496 << 504;
    QTest::newRow("eleven") << 0 << 48 << 11 << 496 << 504;
    QTest::newRow("twelve") << 0 << 48 << 12 << 496 << 504;
    QTest::newRow("small one") << 4 << 28 << 1 << 36 << 44;
    QTest::newRow("small three") << 4 << 28 << 3 << 92 << 100;
    QTest::newRow("small twelve") << 4 << 28 << 12 << 288 << 296;
    QTest::newRow("small, other measures") << 6 << 20 << 2 << 52 << 64;
}

void tst_ShadowPopupWidget::fitsItsHeight()
{
    QFETCH(int, margin);
    QFETCH(int, rowHeight);
    QFETCH(int, rows);
    QFETCH(int, areaHeight);
    QFETCH(int, height);
    const QScopedPointer<List> list(margin ? new List(margin, rowHeight) : new List);
    list->add(rows);
    QCOMPARE(list->area()->minimumHeight(), areaHeight);
    QCOMPARE(list->area()->maximumHeight(), areaHeight);
    QCOMPARE(list->minimumHeight(), height);
    QCOMPARE(list->maximumHeight(), height);
    QCOMPARE(list->height(), height);
    QVERIFY(list->showAndWait());
    QCOMPARE(list->area()->height(), areaHeight);
    QCOMPARE(list->height(), height);
}

void tst_ShadowPopupWidget::heightFollowsTheRows()
{
    List list;
    list.add(1);
    QVERIFY(list.showAndWait());
    QCOMPARE(list.height(), 72);
    list.add(1);
    QCOMPARE(list.height(), 120);
    QTRY_VERIFY(list.row(1)->isVisible());
    QTRY_VERIFY(list.row(1)->y() >= list.row(0)->geometry().bottom() + 1);
    QVERIFY(list.content()->rect().contains(list.row(1)->geometry()));
    list.clear();
    QCOMPARE(list.height(), 24);
}

void tst_ShadowPopupWidget::widthFollowsThePopup_data()
{
    isAToolWindowThatStaysWhereItIs_data();
}

void tst_ShadowPopupWidget::widthFollowsThePopup()
{
    QFETCH(bool, small);
    const QScopedPointer<List> list(small ? new List(6, 28) : new List);
    const int margins = small ? 12 : 8;
    list->add(2);
    QVERIFY(list->showAndWait());
    for (const int width : {300, 120, 508}) {
        list->setFixedWidth(width);
        QTRY_COMPARE(list->area()->width(), width - margins);
        QCOMPARE(list->area()->minimumWidth(), width - margins);
        QCOMPARE(list->area()->maximumWidth(), width - margins);
        QTRY_COMPARE(list->content()->width(), width - margins);
        QCOMPARE(list->content()->minimumWidth(), width - margins);
        QCOMPARE(list->content()->maximumWidth(), width - margins);
        QTRY_COMPARE(list->row(0)->width(), width - 2 * margins);
    }
}

void tst_ShadowPopupWidget::scrollsWhatDoesNotFit()
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

void tst_ShadowPopupWidget::scrollBarAppearsForRowsAddedWhileOpen()
{
    List list;
    list.add(10);
    QVERIFY(list.showAndWait());
    QVERIFY(!list.bar()->isVisible());
    list.add(1);
    QTRY_VERIFY(list.bar()->isVisible());
    QTRY_VERIFY(list.bar()->maximum() > 0);
}

void tst_ShadowPopupWidget::scrollBarAppearsForRowsOfOtherHeights()
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

void tst_ShadowPopupWidget::rowsAreShownWhenTheyComeIntoView()
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

void tst_ShadowPopupWidget::lowRowsFillTheView()
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

void tst_ShadowPopupWidget::rowsInViewAreShownWhenOpenedAgain()
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

void tst_ShadowPopupWidget::longTextsFollowTheWidth()
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

void tst_ShadowPopupWidget::rowsAreNotPolishedBeforeTheyAreSeen()
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

void tst_ShadowPopupWidget::looksOfARowLeaveTheOthersWhereTheyAre()
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

void tst_ShadowPopupWidget::numbersAndRelaysItsRows()
{
    List list;
    QVERIFY(!list.hasItems());
    QCOMPARE(list.count(), 0);
    list.addItem(nullptr);
    QCOMPARE(list.count(), 0);
    list.add(3);
    QVERIFY(list.hasItems());
    QCOMPARE(list.count(), 3);
    const QSignalSpy chosen(&list, &ShadowPopupWidget::currentIndexChanged);
    const QSignalSpy grayChosen(&list, &ShadowPopupWidget::currentGrayIndexChanged);
    QVector<bool> states{false, true, false};
    list.setItemGrayState(states);
    for (const int index : {2, 1, 0}) {
        QCOMPARE(list.row(index)->text(), QStringLiteral("Row %1").arg(index));
        QCOMPARE(list.row(index)->parentWidget(), list.content());
        QTest::mouseClick(list.row(index), Qt::LeftButton);
    }
    QCOMPARE(QList<QVariantList>(chosen), (QList<QVariantList>{{2}, {0}}));
    QCOMPARE(QList<QVariantList>(grayChosen), (QList<QVariantList>{{1}}));
    QCOMPARE(list.currentIndex(), -1); // the combo box decides
}

void tst_ShadowPopupWidget::selectsOneRow()
{
    List list;
    list.add(3);
    QCOMPARE(list.currentIndex(), -1);
    for (const int index : {1, 0, 0, 2}) {
        list.setCurrentIndex(index);
        QCOMPARE(list.currentIndex(), index);
        for (int row = 0; row < 3; ++row)
            QCOMPARE(isChecked(list.row(row)), row == index);
    }
}

void tst_ShadowPopupWidget::ignoresIndexesOutOfRange()
{
    List list;
    list.setCurrentIndex(0);
    QCOMPARE(list.currentIndex(), -1);
    list.add(3);
    list.setCurrentIndex(1);
    for (const int index : {-1, 3, 5, INT_MIN, INT_MAX}) {
        list.setCurrentIndex(index);
        QCOMPARE(list.currentIndex(), 1);
        QVERIFY(isChecked(list.row(1)));
        list.setItemData(index, 1);
        QVERIFY(!list.itemData(index).isValid());
    }
}

void tst_ShadowPopupWidget::tellsTheCurrentText()
{
    List list;
    QCOMPARE(list.currentText(), QString());
    list.add(3);
    QCOMPARE(list.currentText(), QString());
    list.setCurrentIndex(2);
    QCOMPARE(list.currentText(), QStringLiteral("Row 2"));
    list.clear();
    QCOMPARE(list.currentText(), QString());
}

void tst_ShadowPopupWidget::keepsDataPerRow()
{
    List list;
    list.add(2);
    QVERIFY(!list.itemData(0).isValid());
    list.setItemData(1, QStringLiteral("data"));
    QCOMPARE(list.itemData(1).toString(), QStringLiteral("data"));
    QVERIFY(!list.itemData(0).isValid());
}

void tst_ShadowPopupWidget::graysRows()
{
    List list;
    list.add(3);
    list.addItem(new CustomComboxItem(QStringLiteral("starts gray"), nullptr, true, false));
    QVector<bool> states{true, false, true, false};
    list.setItemGrayState(states);
    QCOMPARE(states, (QVector<bool>{true, false, true, false}));
    for (int index = 0; index < 4; ++index)
        QCOMPARE(isGray(list.row(index)), states.at(index));
    // Of the gray rows only that which started gray has a badge, hidden now.
    QCOMPARE(list.row(0)->findChildren<QLabel *>().size(), 2);
    QVERIFY(list.row(3)->findChildren<QLabel *>().at(2)->isHidden());
}

void tst_ShadowPopupWidget::grayStatesMustFitTheRows_data()
{
    QTest::addColumn<int>("states");
    QTest::newRow("none") << 0;
    QTest::newRow("one too few") << 2;
    QTest::newRow("one too many") << 4;
}

void tst_ShadowPopupWidget::grayStatesMustFitTheRows()
{
    QFETCH(int, states);
    QVector<bool> gray(states, true);
    List list;
    list.setItemGrayState(gray);
    list.add(3);
    list.setItemGrayState(gray);
    for (int index = 0; index < 3; ++index)
        QVERIFY(!isGray(list.row(index)));
}

void tst_ShadowPopupWidget::clears()
{
    List list;
    list.clear();
    list.add(3);
    list.setCurrentIndex(1);
    const QPointer<CustomComboxItem> row(list.row(1));
    list.clear();
    QVERIFY(!row);
    QCOMPARE(list.count(), 0);
    QVERIFY(!list.hasItems());
    QCOMPARE(list.content()->layout()->count(), 0);
    QCOMPARE(list.currentIndex(), 1); // kept
    QCOMPARE(list.height(), 24);
}

void tst_ShadowPopupWidget::clearedListStartsOver()
{
    List list;
    list.add(3);
    list.setCurrentIndex(1);
    list.clear();
    list.add(2);
    // The index that was kept names a new row, which nobody has checked.
    QCOMPARE(list.currentIndex(), 1);
    QVERIFY(!isChecked(list.row(1)));
    QCOMPARE(list.currentText(), QStringLiteral("Row 1"));
    const QSignalSpy chosen(&list, &ShadowPopupWidget::currentIndexChanged);
    QTest::mouseClick(list.row(0), Qt::LeftButton);
    QCOMPARE(QList<QVariantList>(chosen), (QList<QVariantList>{{0}}));
    list.setCurrentIndex(0);
    QVERIFY(isChecked(list.row(0)));
    QVERIFY(!isChecked(list.row(1)));
}

void tst_ShadowPopupWidget::hidingEndsTheHovering()
{
    List list;
    list.add(3);
    QVERIFY(list.showAndWait());
    list.row(0)->setHovered(true);
    list.row(2)->setHovered(true);
    list.hide();
    for (int index = 0; index < 3; ++index)
        QVERIFY(!isHovered(list.row(index)));
}

void tst_ShadowPopupWidget::clearedByAClick()
{
    List list;
    list.add(3);
    QVERIFY(list.showAndWait());
    connect(&list, &ShadowPopupWidget::currentIndexChanged, &list, &ShadowPopupWidget::clear);
    const QPointer<CustomComboxItem> row(list.row(1));
    QTest::mouseClick(list.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      row->mapTo(&list, row->rect().center()));
    QTRY_VERIFY(!row);
    QCOMPARE(list.count(), 0);
    list.add(1);
    QCOMPARE(list.count(), 1);
}

void tst_ShadowPopupWidget::destroyedByAClick()
{
    const QPointer<List> list(new List);
    list->add(3);
    QVERIFY(list->showAndWait());
    connect(list, &ShadowPopupWidget::currentIndexChanged, this, [list] { delete list.data(); });
    QTest::mouseClick(list->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      list->row(1)->mapTo(list, list->row(1)->rect().center()));
    QTRY_VERIFY(!list);
}

void tst_ShadowPopupWidget::takesItsRowsAlong()
{
    auto *list = new List;
    list->add(1);
    const QPointer<CustomComboxItem> row(list->row(0));
    QVERIFY(list->showAndWait()); // destroyed while it is shown
    delete list;
    QVERIFY(!row);
}

void tst_ShadowPopupWidget::manyRows()
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

QTEST_MAIN(tst_ShadowPopupWidget)

#include "tst_shadowpopupwidget.moc"
