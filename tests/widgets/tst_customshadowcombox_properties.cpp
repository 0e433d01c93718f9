#include "logcapture.h"
#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>

using namespace ShadowComboTesting;

/// The rows as a list of texts, and the index as form code and item delegates write it.
class tst_customshadowcombox_properties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itemsAreTheTextsOfAllRows();
    void itemsComeBeforeTheIndex();
    void writingReplacesAllRows();
    void rowsAreOfTheComboBoxesStyle_data();
    void rowsAreOfTheComboBoxesStyle();
    void theIndexStaysWhereItCan_data();
    void theIndexStaysWhereItCan();
    void theIndexWaitsForTheItems();
    void theFunctionWaitsForNothing();
    void nothingIsEmittedOrLogged();
    void replacedWhileOpen();
    void replacedInASlot();
};

namespace {

const QStringList kThree{QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three")};

} // namespace

void tst_customshadowcombox_properties::itemsAreTheTextsOfAllRows()
{
    Combo combo;
    QCOMPARE(combo.items(), QStringList());
    combo.addItem(QStringLiteral("Plain"), 16);
    combo.addItem(QStringLiteral("Gray"), true, true);
    combo.addSmallStyleItem(QStringLiteral("Small"));
    QCOMPARE(combo.property("items").toStringList(),
             QStringList({QStringLiteral("Plain"), QStringLiteral("Gray"), QStringLiteral("Small")}));
}

void tst_customshadowcombox_properties::itemsComeBeforeTheIndex()
{
    const QMetaObject &meta = CustomShadowCombox::staticMetaObject;
    QVERIFY(meta.indexOfProperty("items") < meta.indexOfProperty("currentIndex"));
}

void tst_customshadowcombox_properties::writingReplacesAllRows()
{
    Combo combo;
    combo.add(5);
    combo.setItemData(1, 42);
    QVector<bool> gray{false, true, false, false, false};
    combo.setItemGrayState(gray);
    combo.setItems(kThree);
    QCOMPARE(combo.count(), 3);
    QCOMPARE(combo.items(), kThree);
    QVERIFY(!combo.itemData(1).isValid());

    QSignalSpy chosen(&combo, &CustomShadowCombox::currentIndexChanged);
    combo.show();
    combo.clickHeader();
    QTRY_VERIFY(combo.isOpen());
    combo.clickRow(1); // not gray any more
    QCOMPARE(chosen.size(), 1);
    QCOMPARE(combo.currentText(), QStringLiteral("Two"));

    combo.setItems({});
    QCOMPARE(combo.count(), 0);
    QCOMPARE(combo.currentIndex(), -1);
    QCOMPARE(combo.currentText(), QString());
}

void tst_customshadowcombox_properties::rowsAreOfTheComboBoxesStyle_data()
{
    QTest::addColumn<bool>("small");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("expectedHeight");
    QTest::newRow("normal") << false << 48 << 48;
    QTest::newRow("normal, another height") << false << 30 << 48;
    QTest::newRow("small") << true << 28 << 28;
    QTest::newRow("small, another height") << true << 36 << 36;
}

void tst_customshadowcombox_properties::rowsAreOfTheComboBoxesStyle()
{
    QFETCH(const bool, small);
    QFETCH(const int, height);
    QFETCH(const int, expectedHeight);
    Combo combo(small, height, nullptr);
    combo.setItems({QStringLiteral("Written")});
    if (small)
        combo.addSmallStyleItem(QStringLiteral("Added"));
    else
        combo.addItem(QStringLiteral("Added"), 16);
    QCOMPARE(combo.row(0)->height(), expectedHeight);
    QCOMPARE(combo.row(0)->styleSheet(), combo.row(1)->styleSheet());
    for (int label = 0; label < 2; ++label) {
        QCOMPARE(combo.rowLabel(0, label)->styleSheet(), combo.rowLabel(1, label)->styleSheet());
        QCOMPARE(combo.rowLabel(0, label)->maximumSize(), combo.rowLabel(1, label)->maximumSize());
    }
}

void tst_customshadowcombox_properties::theIndexStaysWhereItCan_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QStringList>("items");
    QTest::addColumn<int>("after");
    QTest::newRow("none") << -1 << kThree << -1;
    QTest::newRow("still there") << 1 << kThree << 1;
    QTest::newRow("the last one") << 2 << kThree << 2;
    QTest::newRow("beyond") << 3 << kThree << -1;
    QTest::newRow("nothing there") << 0 << QStringList() << -1;
}

void tst_customshadowcombox_properties::theIndexStaysWhereItCan()
{
    QFETCH(const int, before);
    QFETCH(const QStringList, items);
    QFETCH(const int, after);
    Combo combo;
    combo.add(5);
    combo.setCurrentIndex(before);
    for (int time = 0; time < 2; ++time) {
        combo.setItems(items);
        QCOMPARE(combo.currentIndex(), after);
        QCOMPARE(combo.currentText(), items.value(after));
        for (int row = 0; row < combo.count(); ++row) // the check mark
            QCOMPARE(combo.rowLabel(row, 1)->isVisibleTo(combo.row(row)), row == after);
    }
}

void tst_customshadowcombox_properties::theIndexWaitsForTheItems()
{
    Combo combo;
    combo.setProperty("currentIndex", 1);
    QCOMPARE(combo.property("currentIndex").toInt(), -1);
    combo.setProperty("items", QStringList()); // brings no row yet
    QCOMPARE(combo.currentIndex(), -1);
    combo.setProperty("items", kThree);
    QCOMPARE(combo.property("currentIndex").toInt(), 1);
    QCOMPARE(combo.property("currentText").toString(), QStringLiteral("Two"));

    // That was it: later items keep the selection of their time.
    combo.setProperty("currentIndex", 2);
    combo.setProperty("items", kThree);
    QCOMPARE(combo.currentIndex(), 2);

    combo.setProperty("currentIndex", 7);
    QCOMPARE(combo.currentIndex(), 2);

    Combo first;
    first.setProperty("currentIndex", 0);
    first.setProperty("items", kThree);
    QCOMPARE(first.currentIndex(), 0);
}

void tst_customshadowcombox_properties::theFunctionWaitsForNothing()
{
    Combo combo;
    combo.setCurrentIndex(1);
    combo.setItems(kThree);
    QCOMPARE(combo.currentIndex(), -1);

    combo.setCurrentIndex(1);
    combo.clear();
    QCOMPARE(combo.property("currentText").toString(), QStringLiteral("Two"));
}

void tst_customshadowcombox_properties::nothingIsEmittedOrLogged()
{
    Combo combo;
    combo.add(2);
    SignalLog log(&combo);
    const LogCapture lines;
    combo.setItems(kThree);
    QCOMPARE(lines.texts(), QStringList());
    combo.setProperty("currentIndex", 2);
    QCOMPARE(log.take(), QStringList());
}

void tst_customshadowcombox_properties::replacedWhileOpen()
{
    Combo combo;
    combo.add(5);
    combo.show();
    combo.clickHeader();
    QTRY_VERIFY(combo.isOpen());
    const int height = combo.popup()->height();
    combo.setItems(kThree);
    QVERIFY(combo.isOpen());
    QCOMPARE(combo.popup()->height(), height - 2 * 48);
    QTRY_VERIFY(combo.row(2)->isVisible());
    combo.clickRow(2);
    QCOMPARE(combo.currentText(), QStringLiteral("Three"));
}

void tst_customshadowcombox_properties::replacedInASlot()
{
    Combo combo;
    combo.add(5);
    combo.show();
    connect(&combo, &CustomShadowCombox::currentIndexChanged, &combo, [&combo] { combo.setItems(kThree); });
    combo.clickHeader();
    QTRY_VERIFY(combo.isOpen());
    combo.clickRow(4);
    QCOMPARE(combo.items(), kThree);
    QCOMPARE(combo.currentIndex(), -1);
    QVERIFY(!combo.isOpen());
}

ORV_TEST_MAIN(tst_customshadowcombox_properties)
#include "tst_customshadowcombox_properties.moc"
