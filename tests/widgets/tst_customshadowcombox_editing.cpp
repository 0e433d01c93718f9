#include "logcapture.h"
#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtGui/QScreen>
#include <QtWidgets/QScrollBar>

using namespace ShadowComboTesting;

namespace {

const QString kA = QStringLiteral("a");
const QString kB = QStringLiteral("b");
const QString kC = QStringLiteral("c");
const QString kNew = QStringLiteral("new");

QString ellipsis()
{
    return {QChar(0x2026)};
}

} // namespace

/// Rows that are looked for, changed, inserted and removed.
class tst_CustomShadowComboxEditing : public Fixture
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        makeWindow();
        for (const QString &text : {kA, kB, kC})
            m_combo->addItem(text, 16);
        m_combo->setCurrentIndex(1);
        m_log = std::make_unique<SignalLog>(m_combo);
    }
    void cleanup()
    {
        if (m_combo)
            QCOMPARE(m_log->take(), QStringList()); // nothing here emits
        deleteWindow();
    }

    void tellsTexts();
    void findsTexts();
    void findsData();
    void changesTexts_data();
    void changesTexts();
    void elidesChangedText();
    void inserts_data();
    void inserts();
    void insertsRowsOfItsStyle_data();
    void insertsRowsOfItsStyle();
    void removes_data();
    void removes();
    void resets();
    void noRowIsCurrentAfterClear();
    void rowsReportTheirNewPlace();
    void aChosenRowMayRemoveItself_data();
    void aChosenRowMayRemoveItself();
    void openListFollows();
    void openListAboveKeepsItsLowerEnd();
    void openListMayBecomeEmpty();
    void rowsFromFarDownAreSeen();
    void withoutPopupOrHeader();

private:
    QStringList texts() const
    {
        QStringList texts;
        for (int row = 0; row < m_combo->count(); ++row)
            texts << m_combo->itemText(row);
        return texts;
    }
    // The row with the look of the current one, -1 when there is none, -2 when there are several.
    int checkedRow() const
    {
        int checked = -1;
        for (int row = 0; row < m_combo->count(); ++row) {
            if (m_combo->rowLabel(row, 0)->styleSheet().contains(QLatin1String("#4B66EB")))
                checked = checked == -1 ? row : -2;
        }
        return checked;
    }

    std::unique_ptr<SignalLog> m_log;
};

void tst_CustomShadowComboxEditing::tellsTexts()
{
    QCOMPARE(texts(), QStringList({kA, kB, kC}));
    QCOMPARE(m_combo->itemText(-1), QString());
    QCOMPARE(m_combo->itemText(3), QString());
    const QString longText(200, QLatin1Char('x'));
    m_combo->addItem(longText, 16);
    open();
    QTRY_VERIFY(m_combo->rowLabel(3, 0)->text().endsWith(ellipsis()));
    QCOMPARE(m_combo->itemText(3), longText);
}

void tst_CustomShadowComboxEditing::findsTexts()
{
    m_combo->addItem(kB, 16);
    QCOMPARE(m_combo->findText(kA), 0);
    QCOMPARE(m_combo->findText(kB), 1);
    QCOMPARE(m_combo->findText(QStringLiteral("B")), -1);
    QCOMPARE(m_combo->findText(QString()), -1);
    m_combo->addItem(QString(), 16);
    QCOMPARE(m_combo->findText(QString()), 4);
}

void tst_CustomShadowComboxEditing::findsData()
{
    QCOMPARE(m_combo->findData(7), -1);
    QCOMPARE(m_combo->findData(QVariant()), 0); // rows that were never given any
    m_combo->setItemData(1, 7);
    m_combo->setItemData(2, 7);
    QCOMPARE(m_combo->findData(7), 1);
    m_combo->setItemData(0, QStringLiteral("data"));
    QCOMPARE(m_combo->findData(QStringLiteral("data")), 0);
    QCOMPARE(m_combo->findData(QVariant()), -1);
}

void tst_CustomShadowComboxEditing::changesTexts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<QString>("header");
    QTest::newRow("before the current row") << 0 << QStringList({kNew, kB, kC}) << kB;
    QTest::newRow("the current row") << 1 << QStringList({kA, kNew, kC}) << kNew;
    QTest::newRow("below range") << -1 << QStringList({kA, kB, kC}) << kB;
    QTest::newRow("above range") << 3 << QStringList({kA, kB, kC}) << kB;
}

void tst_CustomShadowComboxEditing::changesTexts()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    QFETCH(QString, header);
    m_combo->setItemData(1, 5);
    const LogCapture lines;
    m_combo->setItemText(index, kNew);
    QCOMPARE(lines.texts(), QStringList());
    QCOMPARE(texts(), expected);
    QCOMPARE(m_combo->headerText(), header);
    QCOMPARE(m_combo->currentText(), header);
    QCOMPARE(m_combo->currentIndex(), 1);
    QCOMPARE(checkedRow(), 1);
    QCOMPARE(m_combo->itemData(1).toInt(), 5);
}

void tst_CustomShadowComboxEditing::elidesChangedText()
{
    open();
    m_combo->setItemText(0, QString(200, QLatin1Char('x')));
    QVERIFY(m_combo->rowLabel(0, 0)->text().endsWith(ellipsis()));
    m_combo->setItemText(0, kNew);
    QCOMPARE(m_combo->rowLabel(0, 0)->text(), kNew);
    m_combo->hidePopup();
    m_log->take();
}

void tst_CustomShadowComboxEditing::inserts_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("current");
    QTest::newRow("first") << 0 << QStringList({kNew, kA, kB, kC}) << 2;
    QTest::newRow("before the current row") << 1 << QStringList({kA, kNew, kB, kC}) << 2;
    QTest::newRow("behind it") << 2 << QStringList({kA, kB, kNew, kC}) << 1;
    QTest::newRow("last") << 3 << QStringList({kA, kB, kC, kNew}) << 1;
    QTest::newRow("above range") << 9 << QStringList({kA, kB, kC, kNew}) << 1;
    QTest::newRow("below range") << -4 << QStringList({kNew, kA, kB, kC}) << 2;
}

void tst_CustomShadowComboxEditing::inserts()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    QFETCH(int, current);
    const LogCapture lines;
    m_combo->insertItem(index, kNew);
    QCOMPARE(lines.texts(), QStringList());
    QCOMPARE(texts(), expected);
    QCOMPARE(m_combo->currentIndex(), current);
    QCOMPARE(checkedRow(), current);
    QCOMPARE(m_combo->headerText(), kB);
    QCOMPARE(m_combo->rowLabel(expected.indexOf(kNew), 0)->text(), kNew);
    QCOMPARE(m_combo->popup()->height(), 16 + 4 * 48 + 8);
}

void tst_CustomShadowComboxEditing::insertsRowsOfItsStyle_data()
{
    QTest::addColumn<bool>("small");
    QTest::addColumn<int>("rowHeight"); // that the combo box is given
    QTest::addColumn<int>("expectedHeight");
    QTest::addColumn<QString>("font");
    QTest::addColumn<QString>("radius");
    QTest::newRow("normal") << false << 33 << 48 << "font-size:16px"
                            << "border-radius:8px";
    QTest::newRow("small") << true << 28 << 28 << "font-size:12px"
                           << "border-radius:3px";
    QTest::newRow("small, higher rows") << true << 33 << 33 << "font-size:12px"
                                        << "border-radius:3px";
}

void tst_CustomShadowComboxEditing::insertsRowsOfItsStyle()
{
    QFETCH(bool, small);
    QFETCH(int, rowHeight);
    QFETCH(int, expectedHeight);
    QFETCH(QString, font);
    QFETCH(QString, radius);
    Combo combo(small, rowHeight, m_window.get());
    combo.insertItem(0, kB);
    combo.insertItem(0, kA);
    for (const int row : {0, 1}) {
        QCOMPARE(combo.row(row)->minimumHeight(), expectedHeight);
        QCOMPARE(combo.row(row)->maximumHeight(), expectedHeight);
        QVERIFY(combo.row(row)->styleSheet().contains(radius));
        QVERIFY(combo.rowLabel(row, 0)->styleSheet().contains(font));
        QCOMPARE(combo.rowLabel(row, 1)->size(), small ? QSize(12, 12) : QSize(20, 20));
    }
    QCOMPARE(combo.currentIndex(), -1);
    QCOMPARE(combo.headerText(), QString());
    QCOMPARE(combo.popup()->height(), (small ? 8 : 16) + 2 * expectedHeight + 8);
}

void tst_CustomShadowComboxEditing::removes_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<int>("current");
    QTest::addColumn<QString>("header");
    QTest::newRow("before the current row") << 0 << QStringList({kB, kC}) << 0 << kB;
    QTest::newRow("the current row") << 1 << QStringList({kA, kC}) << -1 << QString();
    QTest::newRow("behind it") << 2 << QStringList({kA, kB}) << 1 << kB;
    QTest::newRow("above range") << 3 << QStringList({kA, kB, kC}) << 1 << kB;
    QTest::newRow("below range") << -1 << QStringList({kA, kB, kC}) << 1 << kB;
}

void tst_CustomShadowComboxEditing::removes()
{
    QFETCH(int, index);
    QFETCH(QStringList, expected);
    QFETCH(int, current);
    QFETCH(QString, header);
    const LogCapture lines;
    m_combo->removeItem(index);
    QCOMPARE(lines.texts(), QStringList());
    QCOMPARE(texts(), expected);
    QCOMPARE(m_combo->currentIndex(), current);
    QCOMPARE(checkedRow(), current);
    QCOMPARE(m_combo->headerText(), header);
    QCOMPARE(m_combo->popup()->height(), 16 + expected.size() * 48 + 8);
}

void tst_CustomShadowComboxEditing::resets()
{
    const LogCapture lines;
    m_combo->reset();
    QCOMPARE(lines.texts(), QStringList());
    QCOMPARE(m_combo->count(), 0);
    QCOMPARE(m_combo->currentIndex(), -1);
    QCOMPARE(m_combo->headerText(), QString());
    QCOMPARE(m_combo->popup()->height(), 24);
    m_combo->insertItem(0, kNew);
    QCOMPARE(m_combo->currentIndex(), -1);
    // An index that clear() has kept is forgotten as well.
    m_combo->setCurrentIndex(0);
    m_combo->clear();
    m_combo->reset();
    QCOMPARE(m_combo->currentIndex(), -1);
    QCOMPARE(m_combo->headerText(), QString());
    // So is one that was written ahead of its rows.
    m_combo->setProperty("currentIndex", 1);
    m_combo->reset();
    m_combo->setProperty("items", QStringList({kA, kB}));
    QCOMPARE(m_combo->currentIndex(), -1);
}

void tst_CustomShadowComboxEditing::noRowIsCurrentAfterClear()
{
    m_combo->clear();
    for (const QString &text : {kA, kB, kC})
        m_combo->insertItem(m_combo->count(), text);
    const auto isUntouched = [this] {
        return m_combo->currentIndex() == 1 && m_combo->headerText() == kB && checkedRow() == -1;
    };
    QVERIFY(isUntouched());
    m_combo->insertItem(0, kNew);
    QVERIFY(isUntouched());
    m_combo->removeItem(0);
    QVERIFY(isUntouched());
    m_combo->setItemText(1, kNew);
    QVERIFY(isUntouched());
    m_combo->removeItem(1);
    QVERIFY(isUntouched());
    m_combo->setCurrentIndex(1);
    m_combo->removeItem(0);
    QCOMPARE(m_combo->currentIndex(), 0);
    QCOMPARE(m_combo->headerText(), kC);
}

void tst_CustomShadowComboxEditing::rowsReportTheirNewPlace()
{
    m_combo->insertItem(0, kNew);
    m_combo->removeItem(1);
    open();
    m_combo->clickRow(2);
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("current(2) open")});
    QCOMPARE(m_combo->headerText(), kC);
    open();
    m_combo->clickRow(0);
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("current(0) open")});
    QCOMPARE(m_combo->headerText(), kNew);
}

void tst_CustomShadowComboxEditing::aChosenRowMayRemoveItself_data()
{
    QTest::addColumn<bool>("gray");
    QTest::newRow("plain") << false;
    QTest::newRow("gray") << true;
}

void tst_CustomShadowComboxEditing::aChosenRowMayRemoveItself()
{
    QFETCH(bool, gray);
    QVector<bool> states{false, false, gray};
    m_combo->setItemGrayState(states);
    connect(m_combo, gray ? &Combo::currentGrayIndexChanged : &Combo::currentIndexChanged, m_combo,
            &Combo::removeItem);
    open();
    m_combo->clickRow(2);
    QCOMPARE(m_log->take().size(), 1);
    QCOMPARE(texts(), QStringList({kA, kB}));
    QCOMPARE(m_combo->currentIndex(), gray ? 1 : -1);
    QCOMPARE(m_combo->headerText(), gray ? kB : QString());
    QVERIFY(!m_combo->isOpen());
}

void tst_CustomShadowComboxEditing::openListFollows()
{
    open();
    const QPoint pos = m_combo->popup()->pos();
    m_combo->insertItem(1, kNew);
    QCOMPARE(m_combo->popup()->geometry(), QRect(pos, QSize(208, 216)));
    QTRY_VERIFY(m_combo->row(1)->isVisible());
    QTRY_VERIFY(m_combo->row(1)->y() >= m_combo->row(0)->y() + 48);
    QVERIFY(m_combo->row(2)->y() >= m_combo->row(1)->y() + 48);
    QCOMPARE(m_combo->row(1)->size(), QSize(192, 48));
    m_combo->removeItem(0);
    QCOMPARE(m_combo->popup()->geometry(), QRect(pos, QSize(208, 168)));
    QTRY_VERIFY(m_combo->row(0)->y() < 48);
    m_combo->clickRow(0);
    QCOMPARE(m_log->take(), QStringList{QStringLiteral("current(0) open")});
    QCOMPARE(m_combo->headerText(), kNew);
}

void tst_CustomShadowComboxEditing::openListAboveKeepsItsLowerEnd()
{
    m_window->move(100, m_window->screen()->availableGeometry().bottom() - 150);
    open();
    QCOMPARE(m_combo->arrow(), kUpArrow);
    const auto lowerEnd = [this] {
        return m_combo->popup()->y() + m_combo->popup()->height();
    };
    const int header = m_combo->mapToGlobal(QPoint(0, 0)).y();
    QCOMPARE(lowerEnd(), header);
    m_combo->insertItem(0, kNew);
    QCOMPARE(lowerEnd(), header);
    m_combo->removeItem(0);
    m_combo->removeItem(0);
    QCOMPARE(lowerEnd(), header);
    m_combo->reset();
    QCOMPARE(lowerEnd(), header);
    QCOMPARE(m_combo->arrow(), kUpArrow);
}

void tst_CustomShadowComboxEditing::openListMayBecomeEmpty()
{
    open();
    while (m_combo->count() > 0)
        m_combo->removeItem(0);
    QVERIFY(m_combo->isOpen());
    m_combo->insertItem(0, kNew);
    QTRY_VERIFY(m_combo->row(0)->isVisible());
    m_combo->reset();
    QVERIFY(m_combo->isOpen());
    m_combo->clickHeader();
    QVERIFY(!m_combo->isOpen());
}

void tst_CustomShadowComboxEditing::rowsFromFarDownAreSeen()
{
    m_combo->add(20);
    for (int row = 0; row < 14; ++row)
        m_combo->removeItem(3);
    QCOMPARE(m_combo->count(), 9);
    open();
    for (int row = 0; row < m_combo->count(); ++row)
        QTRY_VERIFY2(m_combo->row(row)->isVisible(), qPrintable(QString::number(row)));
    // And while it is open, scrolled to its end.
    m_combo->add(20);
    auto *area = m_combo->popup()->findChild<QScrollArea *>();
    QTRY_VERIFY(area->verticalScrollBar()->maximum() > 0);
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    while (m_combo->count() > 12)
        m_combo->removeItem(0);
    QTRY_VERIFY(m_combo->row(11)->isVisible() && !m_combo->row(11)->visibleRegion().isEmpty());
    for (int row = 2; row < 12; ++row)
        QTRY_VERIFY2(m_combo->row(row)->isVisible(), qPrintable(QString::number(row)));
    m_combo->insertItem(11, kNew);
    m_combo->insertItem(0, kNew);
    area->verticalScrollBar()->setValue(0);
    QTRY_VERIFY(m_combo->row(0)->isVisible());
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    QTRY_VERIFY(m_combo->row(12)->isVisible() && !m_combo->row(12)->visibleRegion().isEmpty());
}

void tst_CustomShadowComboxEditing::withoutPopupOrHeader()
{
    delete m_combo->header();
    m_combo->setItemText(1, kNew);
    m_combo->insertItem(0, kNew);
    QCOMPARE(m_combo->currentIndex(), 2);
    m_combo->removeItem(2);
    QCOMPARE(m_combo->currentIndex(), -1);
    m_combo->reset();
    QCOMPARE(m_combo->count(), 0);

    delete m_combo->popup();
    m_combo->insertItem(0, kNew);
    m_combo->setItemText(0, kA);
    m_combo->removeItem(0);
    m_combo->reset();
    QCOMPARE(m_combo->itemText(0), QString());
    QCOMPARE(m_combo->findText(QString()), -1);
    QCOMPARE(m_combo->findData(QVariant()), -1);
    QCOMPARE(m_combo->count(), 0);
}

ORV_TEST_MAIN(tst_CustomShadowComboxEditing)

#include "tst_customshadowcombox_editing.moc"
