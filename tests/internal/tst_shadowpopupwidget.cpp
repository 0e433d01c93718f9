#include "mouseevents.h"
#include "pictures.h"
#include "shadowpopuptesting.h"
#include "testmain.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtGui/QCursor>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QVBoxLayout>

using namespace ShadowPopupTesting;

namespace {

QString withoutBlanks(QString text)
{
    static const QRegularExpression blanks(QStringLiteral("\\s"));
    return text.remove(blanks);
}

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

/// What the list is made of, its sizes and its rows.
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
    void slicesItsImage();
    void fitsItsHeight_data();
    void fitsItsHeight();
    void heightFollowsTheRows();
    void widthFollowsThePopup_data();
    void widthFollowsThePopup();
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
    void forgetsRowsOfOthers_data();
    void forgetsRowsOfOthers();
    void hidingEndsTheHovering();
    void clearedByAClick();
    void destroyedByAClick();
    void takesItsRowsAlong();
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
    QCOMPARE(area->focusPolicy(), Qt::NoFocus); // keys go to the combo box, while the list is open too
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
    QCursor::setPos(0, 0); // not on a row
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

// By its margins and the shadow, which is as wide as the margin of the small one.
void tst_ShadowPopupWidget::slicesItsImage()
{
    const QString path = savedImage(gradientImage(64, 48), QStringLiteral("list.png"));
    const auto hasSlices = [&path](ShadowPopupWidget *list, const QMargins &slices) {
        list->setFixedSize(200, 120);
        list->findChild<QScrollArea *>()->hide();
        BaseMoveDialogWithBackImage dialog(path, slices.left(), slices.top(), slices.right(), slices.bottom(),
                                           false, false, nullptr);
        dialog.resize(list->size());
        return differingPixels(renderWidget(list), renderWidget(&dialog)) == 0;
    };
    ShadowPopupWidget normal(path, 1, 2, 3, 4, 6, nullptr);
    QVERIFY(hasSlices(&normal, QMargins(7, 8, 9, 10)));
    ShadowPopupWidget small(path, 5, 28, nullptr);
    QVERIFY(hasSlices(&small, QMargins(10, 10, 10, 10)));
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

    List single;
    single.add(1);
    states = {true};
    single.setItemGrayState(states);
    QVERIFY(isGray(single.row(0)));
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

void tst_ShadowPopupWidget::forgetsRowsOfOthers_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isDestroyed");
    QTest::addColumn<int>("current");
    for (const bool isDestroyed : {true, false}) {
        const char *how = isDestroyed ? "destroyed" : "moved away";
        QTest::addRow("%s before the current one", how) << 0 << isDestroyed << 0;
        QTest::addRow("the current one, %s", how) << 1 << isDestroyed << -1;
        QTest::addRow("%s after the current one", how) << 2 << isDestroyed << 1;
    }
}

void tst_ShadowPopupWidget::forgetsRowsOfOthers()
{
    QFETCH(int, row);
    QFETCH(bool, isDestroyed);
    QWidget elsewhere;
    List list;
    list.add(3);
    list.setCurrentIndex(1);
    QVERIFY(list.showAndWait());
    const QPointer<CustomComboxItem> gone(list.row(row));
    if (isDestroyed)
        delete gone;
    else
        gone->setParent(&elsewhere);
    QCOMPARE(list.count(), 2);
    QTEST(list.currentIndex(), "current");
    QCOMPARE(list.height(), 24 + 2 * 48);
    QCOMPARE(list.itemText(row), row < 2 ? QStringLiteral("Row %1").arg(row + 1) : QString());
    const QSignalSpy chosen(&list, &ShadowPopupWidget::currentIndexChanged);
    QTest::mouseClick(list.row(1), Qt::LeftButton);
    if (gone)
        QTest::mouseClick(gone.data(), Qt::LeftButton);
    QCOMPARE(QList<QVariantList>(chosen), (QList<QVariantList>{{1}}));
    list.clear();
    QCOMPARE(gone.isNull(), isDestroyed);
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

ORV_TEST_MAIN(tst_ShadowPopupWidget)

#include "tst_shadowpopupwidget.moc"
