#include "assistance.h"

#include "customcomboxheader.h"
#include "customshadowcombox.h"
#include "testmain.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <memory>

using namespace Assistance;

class tst_AccessibleComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void isCalledByItsText();
    void opensAndCloses_data();
    void opensAndCloses();
    void tellsOfOpeningAndClosing();
    void tellsOfAnotherText();
    void showsItsListWhileThatIsOpen();
    void listConsistsOfTheRows();
    void rowsTellTheirText();
    void rowsAreChosen();
    void grayRowsAreReported();
    void rowsOutsideTheViewAreOffscreen();
    void rowsMayDieOfTheirPress();
    void mayDieOfItsChoice();
    void maySeeItsOwnEndWhileOpen();
    void doesNothingWhileDisabled();
    void emptyOneStaysClosed();
    void smallStyle();

private:
    QAccessibleInterface *list() const;
    QAccessibleInterface *row(int index) const { return list()->child(index); }
    static void press(QAccessibleInterface *interface)
    {
        interface->actionInterface()->doAction(pressAction());
    }

    std::unique_ptr<CustomShadowCombox> m_combo;
};

void tst_AccessibleComboBox::init()
{
    m_combo = std::make_unique<CustomShadowCombox>(nullptr);
    m_combo->addItem(QStringLiteral("720p"));
    m_combo->addItem(QStringLiteral("1080p"), false, false);
    m_combo->addItem(QStringLiteral("2160p"), true, false);
    m_combo->setCurrentIndex(0);
    m_combo->show();
}

void tst_AccessibleComboBox::cleanup()
{
    m_combo.reset();
}

// Only an open list is a child.
QAccessibleInterface *tst_AccessibleComboBox::list() const
{
    return interfaceOf(m_combo.get())->child(1);
}

void tst_AccessibleComboBox::isCalledByItsText()
{
    QCOMPARE(nameOf(m_combo.get()), QStringLiteral("720p"));
    m_combo->setCurrentIndex(1);
    QCOMPARE(m_combo->currentText(), QStringLiteral("1080p"));
    QCOMPARE(nameOf(m_combo.get()), QStringLiteral("1080p"));
    m_combo->clear();
    QCOMPARE(m_combo->currentText(), QStringLiteral("1080p"));
    QCOMPARE(nameOf(m_combo.get()), QStringLiteral("1080p"));
    // A name by which the client calls it leaves the text to be found as its value.
    m_combo->setAccessibleName(QStringLiteral("Resolution"));
    QCOMPARE(nameOf(m_combo.get()), QStringLiteral("Resolution"));
    QCOMPARE(interfaceOf(m_combo.get())->text(QAccessible::Value), QStringLiteral("1080p"));
}

void tst_AccessibleComboBox::opensAndCloses_data()
{
    QTest::addColumn<QString>("action");
    QTest::newRow("press") << pressAction();
    QTest::newRow("showMenu") << showMenuAction();
}

void tst_AccessibleComboBox::opensAndCloses()
{
    QFETCH(QString, action);
    QVERIFY(actionsOf(m_combo.get()).contains(action));
    QVERIFY(stateOf(m_combo.get()).expandable);
    QVERIFY(stateOf(m_combo.get()).collapsed);
    QVERIFY(!stateOf(m_combo.get()).expanded);
    act(m_combo.get(), action);
    QVERIFY(stateOf(m_combo.get()).expanded);
    QVERIFY(!stateOf(m_combo.get()).collapsed);
    act(m_combo.get(), action);
    QVERIFY(stateOf(m_combo.get()).collapsed);
    act(m_combo.get(), action);
    QVERIFY(stateOf(m_combo.get()).expanded);
    m_combo->hidePopup();
    QVERIFY(stateOf(m_combo.get()).collapsed);
}

void tst_AccessibleComboBox::tellsOfOpeningAndClosing()
{
    const Activity activity;
    const Listener listener;
    // The window tells, too, whether it is the active one.
    const auto told = [&] {
        int count = 0;
        const QVector<Listener::Told> changes = listener.of(m_combo.get(), QAccessible::StateChanged);
        for (const Listener::Told &change : changes)
            count += change.changed.expanded && change.changed.collapsed ? 1 : 0;
        return count;
    };
    act(m_combo.get(), pressAction());
    QCOMPARE(told(), 1);
    m_combo->hidePopup();
    QCOMPARE(told(), 2);
    m_combo->hidePopup();
    QCOMPARE(told(), 2);
    act(m_combo.get(), pressAction());
    press(row(1));
    QCOMPARE(told(), 4);
}

void tst_AccessibleComboBox::tellsOfAnotherText()
{
    const Activity activity;
    const Listener listener;
    m_combo->setCurrentIndex(1);
    QCOMPARE(listener.values(m_combo.get()), QVariantList{QStringLiteral("1080p")});
    m_combo->setCurrentIndex(7);
    QCOMPARE(listener.count(m_combo.get(), QAccessible::ValueChanged), 1);
}

void tst_AccessibleComboBox::showsItsListWhileThatIsOpen()
{
    QAccessibleInterface *combo = interfaceOf(m_combo.get());
    QCOMPARE(combo->childCount(), 1);
    QCOMPARE(combo->child(0), interfaceOf(m_combo->findChild<CustomComboxHeader *>()));
    QVERIFY(!combo->child(1));
    QVERIFY(!combo->child(-1));
    act(m_combo.get(), pressAction());
    QCOMPARE(combo->childCount(), 2);
    QVERIFY(list());
    QCOMPARE(list()->role(), QAccessible::List);
    QCOMPARE(list()->parent(), combo);
    QCOMPARE(combo->child(0)->parent(), combo);
    QCOMPARE(combo->indexOfChild(list()), 1);
    QCOMPARE(combo->indexOfChild(combo->child(0)), 0);
    QCOMPARE(combo->indexOfChild(combo), -1);
    QCOMPARE(combo->indexOfChild(nullptr), -1);
    m_combo->hidePopup();
    QCOMPARE(combo->childCount(), 1);
}

void tst_AccessibleComboBox::listConsistsOfTheRows()
{
    act(m_combo.get(), pressAction());
    QCOMPARE(list()->childCount(), 3);
    for (int index = 0; index < 3; ++index) {
        QCOMPARE(row(index)->role(), QAccessible::ListItem);
        QCOMPARE(row(index)->parent(), list());
        QCOMPARE(list()->indexOfChild(row(index)), index);
        QCOMPARE(row(index)->childCount(), 0);
    }
    QVERIFY(!row(3));
    QVERIFY(!row(-1));
    QCOMPARE(list()->indexOfChild(list()), -1);
    QCOMPARE(list()->indexOfChild(nullptr), -1);
    const QPoint middle = row(1)->rect().center();
    QCOMPARE(list()->childAt(middle.x(), middle.y()), row(1));
    m_combo->clear();
    QCOMPARE(list()->childCount(), 0);
}

void tst_AccessibleComboBox::rowsTellTheirText()
{
    const QString text(200, QLatin1Char('w'));
    m_combo->addItem(text);
    act(m_combo.get(), pressAction());
    QCOMPARE(row(0)->text(QAccessible::Name), QStringLiteral("720p"));
    QCOMPARE(row(3)->text(QAccessible::Name), text);
}

void tst_AccessibleComboBox::rowsAreChosen()
{
    QSignalSpy changed(m_combo.get(), &CustomShadowCombox::currentIndexChanged);
    act(m_combo.get(), pressAction());
    QVERIFY(row(0)->state().selectable);
    QVERIFY(row(0)->state().selected);
    QVERIFY(!row(1)->state().selected);
    QVERIFY(!row(1)->state().disabled);
    press(row(1));
    QCOMPARE(changed, (QList<QVariantList>{{1}}));
    QCOMPARE(m_combo->currentIndex(), 1);
    QVERIFY(stateOf(m_combo.get()).collapsed);

    act(m_combo.get(), pressAction());
    QVERIFY(!row(0)->state().selected);
    QVERIFY(row(1)->state().selected);
    press(row(1));
    QCOMPARE(changed.count(), 1);
    QVERIFY(stateOf(m_combo.get()).collapsed);
}

void tst_AccessibleComboBox::grayRowsAreReported()
{
    QSignalSpy changed(m_combo.get(), &CustomShadowCombox::currentIndexChanged);
    QSignalSpy gray(m_combo.get(), &CustomShadowCombox::currentGrayIndexChanged);
    act(m_combo.get(), pressAction());
    QVERIFY(row(2)->state().disabled);
    press(row(2));
    QCOMPARE(gray, (QList<QVariantList>{{2}}));
    QCOMPARE(changed.count(), 0);
    QVERIFY(stateOf(m_combo.get()).collapsed);

    QVector<bool> states(3, false);
    m_combo->setItemGrayState(states);
    act(m_combo.get(), pressAction());
    QVERIFY(!row(2)->state().disabled);
}

void tst_AccessibleComboBox::rowsOutsideTheViewAreOffscreen()
{
    for (int index = 3; index < 30; ++index)
        m_combo->addItem(QStringLiteral("Row %1").arg(index));
    act(m_combo.get(), pressAction());
    QVERIFY(!row(0)->state().offscreen);
    QVERIFY(row(29)->state().offscreen || row(29)->state().invisible);
    QCOMPARE(row(29)->text(QAccessible::Name), QStringLiteral("Row 29"));
    auto *const scrolling = m_combo->findChild<QScrollArea *>()->verticalScrollBar();
    scrolling->setValue(scrolling->maximum());
    QTRY_VERIFY(!row(29)->state().invisible);
    QVERIFY(!row(29)->state().offscreen);
    QVERIFY(row(0)->state().offscreen);
    QVERIFY(!row(0)->state().invisible);
    press(row(29));
    QCOMPARE(m_combo->currentIndex(), 29);
}

void tst_AccessibleComboBox::rowsMayDieOfTheirPress()
{
    connect(m_combo.get(), &CustomShadowCombox::currentIndexChanged, m_combo.get(),
            [this] { m_combo->clear(); });
    act(m_combo.get(), pressAction());
    press(row(1));
    QCOMPARE(m_combo->count(), 0);
}

void tst_AccessibleComboBox::mayDieOfItsChoice()
{
    connect(m_combo.get(), &CustomShadowCombox::currentIndexChanged, this, [this] { m_combo.reset(); });
    act(m_combo.get(), pressAction());
    press(row(1));
    QVERIFY(!m_combo);
}

// What closes with the combo box is told by one that is about to go.
void tst_AccessibleComboBox::maySeeItsOwnEndWhileOpen()
{
    const Activity activity;
    act(m_combo.get(), pressAction());
    const QAccessible::Id combo = QAccessible::uniqueId(interfaceOf(m_combo.get()));
    const QAccessible::Id list = QAccessible::uniqueId(this->list());
    const QAccessible::Id firstRow = QAccessible::uniqueId(row(0));
    m_combo.reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const QAccessible::Id id : {combo, list, firstRow})
        QVERIFY(!QAccessible::accessibleInterface(id));
}

void tst_AccessibleComboBox::doesNothingWhileDisabled()
{
    m_combo->setEnabled(false);
    QVERIFY(stateOf(m_combo.get()).disabled);
    QVERIFY(!actionsOf(m_combo.get()).contains(pressAction()));
    act(m_combo.get(), pressAction());
    act(m_combo.get(), showMenuAction());
    QVERIFY(stateOf(m_combo.get()).collapsed);
}

void tst_AccessibleComboBox::emptyOneStaysClosed()
{
    m_combo->clear();
    act(m_combo.get(), pressAction());
    QVERIFY(stateOf(m_combo.get()).collapsed);
}

void tst_AccessibleComboBox::smallStyle()
{
    const ExpectedWarnings arrow("downarrow.svg"); // the client's own picture
    m_combo = std::make_unique<CustomShadowCombox>(true, nullptr);
    m_combo->addSmallStyleItem(QStringLiteral("small"));
    m_combo->show();
    act(m_combo.get(), pressAction());
    QCOMPARE(list()->childCount(), 1);
    press(row(0));
    QCOMPARE(nameOf(m_combo.get()), QStringLiteral("small"));
}

ORV_TEST_MAIN(tst_AccessibleComboBox)
#include "tst_accessiblecombobox.moc"
