#include "customcombox.h"
#include "customtoolbuttontest.h"
#include "logcapture.h"
#include "randomdesktop.h"
#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>

using namespace MixedScreens;
using ShadowComboTesting::Combo;
using ShadowComboTesting::kHiddenOnce;
using ShadowComboTesting::SignalLog;

namespace {

constexpr int kKeptSize = 16;

/// What happens to a desktop while something is open on it.
enum class Change { Shape, Order, Unplug, Leave };

void addChanges()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("another ratio and size") << Change::Shape;
    QTest::newRow("another order") << Change::Order;
    QTest::newRow("unplugged") << Change::Unplug;
    QTest::newRow("window moved to another screen") << Change::Leave;
}

/// Happens to the screen of the window, the one at `index`. The system brings the window back to where it can be seen.
void happen(RandomDesktop &desktop, Change change, int index, QWidget *window)
{
    switch (change) {
    case Change::Shape:
        desktop.change(index);
        window->move(desktop.placeOn(desktop.screen(index), kWindow).topLeft());
        RandomDesktop::settle();
        break;
    case Change::Order:
        for (int i = 0; i < desktop.count(); ++i)
            desktop.makePrimary(i);
        break;
    case Change::Unplug:
        desktop.unplug(index);
        break;
    case Change::Leave:
        const int other = (index + 1) % desktop.count();
        window->move(desktop.placeOn(desktop.screen(other), kWindow).topLeft());
        RandomDesktop::settle();
        break;
    }
}

/// Whether the list stands where it opens: below its header or above it.
bool isAtHeader(const Combo &combo)
{
    const QRect header = globalRect(combo.header());
    const QRect list = combo.popup()->geometry();
    return list.x() == header.x() - 4 && (list.y() == header.bottom() + 1 || list.bottom() + 1 == header.y());
}

/// A combo box of Qt's kind, with three rows.
template<typename ComboBox>
class OpenCombo : public ComboBox
{
public:
    explicit OpenCombo(QWidget *window)
        : ComboBox(window)
    {
        this->setEditable(true);
        this->setGeometry(20, 20, 200, 48);
        this->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        this->show();
    }

    using ComboBox::hidePopup;
    using ComboBox::showPopup;

    /// Where its list opens.
    QRect openedList()
    {
        showPopup();
        RandomDesktop::settle();
        const QWidget *list = this->view()->window();
        const QRect geometry = list->isVisible() ? list->geometry() : QRect();
        hidePopup();
        return geometry;
    }
};

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(SettingWidgetDirection)

/// Lists and panels that are open while the screen under them changes.
class tst_MixedScreensLists : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsStayAtTheirHeaders_data();
    void listsStayAtTheirHeaders();
    void listsThatAreChangedWhileTheScreenIs();
    void destroyedWhenTheScreenChanges();
    void plainListsOpenAtTheirLineEdit_data();
    void plainListsOpenAtTheirLineEdit();
    void panelsOpenAtTheirButton_data();
    void panelsOpenAtTheirButton();
};

void tst_MixedScreensLists::listsStayAtTheirHeaders_data()
{
    addChanges();
}

// A list whose window has come to another screen, or to another shape of its screen, has lost its header: it closes as
// by a press elsewhere, once. A screen that only becomes the first one leaves it open.
void tst_MixedScreensLists::listsStayAtTheirHeaders()
{
    QFETCH(const Change, change);
    onDesktops([change](RandomDesktop &desktop) {
        for (int round = 0; round < 3; ++round) {
            const int index = desktop.below(desktop.count());
            const auto window = shownWindow(desktop.placeOn(desktop.screen(index), kWindow));
            Combo combo(window.get());
            combo.setGeometry(desktop.below(140), desktop.below(190), 200, 48);
            combo.add(1 + desktop.below(4));
            combo.show();
            SignalLog log(&combo);
            combo.showPopup();
            RandomDesktop::settle();
            QVERIFY(combo.isOpen());
            happen(desktop, change, index, window.get());
            QCOMPARE(combo.isOpen(), change == Change::Order);
            QCOMPARE(log.take(), change == Change::Order ? QStringList() : kHiddenOnce);
            combo.showPopup();
            RandomDesktop::settle();
            QVERIFY(combo.isOpen() && isAtHeader(combo));
            QVERIFY(isOnSomeScreen(combo.popup()->geometry()));
            QCOMPARE(combo.popup()->grab().devicePixelRatio(), window->screen()->devicePixelRatio());
            QCOMPARE(log.take(), QStringList());
            if (change == Change::Unplug)
                return;
        }
    });
}

void tst_MixedScreensLists::listsThatAreChangedWhileTheScreenIs()
{
    onDesktops([](RandomDesktop &desktop) {
        const int index = desktop.below(desktop.count());
        const auto window = shownWindow(desktop.placeOn(desktop.screen(index), kWindow));
        auto *combo = new Combo(window.get());
        combo->setGeometry(20, 20, 200, 48);
        combo->add(3);
        combo->show();
        combo->showPopup();
        RandomDesktop::settle();
        // What is told of the screen comes before the closing.
        connect(desktop.screen(index), &QScreen::logicalDotsPerInchChanged, combo, [combo] {
            combo->insertItem(0, QStringLiteral("new"));
            combo->removeItem(1);
        });
        desktop.change(index);
        QVERIFY(!combo->isOpen() || isAtHeader(*combo));
        combo->showPopup();
        RandomDesktop::settle();
        QVERIFY(isAtHeader(*combo));
    });
}

void tst_MixedScreensLists::destroyedWhenTheScreenChanges()
{
    onDesktops([](RandomDesktop &desktop) {
        const int index = desktop.below(desktop.count());
        auto *window = shownWindow(desktop.placeOn(desktop.screen(index), kWindow)).release();
        const QPointer<Combo> combo(new Combo(window));
        combo->setGeometry(20, 20, 200, 48);
        combo->add(3);
        combo->show();
        combo->showPopup();
        RandomDesktop::settle();
        connect(combo, &Combo::signalPopWidHideWhenClickOtherPos, window, [window] { delete window; });
        desktop.unplug(index);
        QVERIFY(!combo);
    });
}

void tst_MixedScreensLists::plainListsOpenAtTheirLineEdit_data()
{
    addChanges();
}

// Its list is Qt's, and stands where Qt's own combo box opens one.
void tst_MixedScreensLists::plainListsOpenAtTheirLineEdit()
{
    QFETCH(const Change, change);
    onDesktops([change](RandomDesktop &desktop) {
        const int index = desktop.below(desktop.count());
        const auto window = shownWindow(desktop.placeOn(desktop.screen(index), kWindow));
        OpenCombo<customcombox> combo(window.get());
        OpenCombo<QComboBox> stock(window.get());
        const QRect list = combo.openedList();
        QVERIFY(window->screen()->geometry().contains(list));
        QCOMPARE(list, stock.openedList());
        combo.showPopup();
        RandomDesktop::settle();
        happen(desktop, change, index, window.get());
        combo.hidePopup();
        QVERIFY(isOnSomeScreen(combo.openedList()));
    });
}

void tst_MixedScreensLists::panelsOpenAtTheirButton_data()
{
    QTest::addColumn<SettingWidgetDirection>("direction");
    QTest::addColumn<bool>("isWindow");
    for (const SettingWidgetDirection direction : {Bottom, Left, Top, Right}) {
        QTest::addRow("panel %d", int(direction)) << direction << false;
        QTest::addRow("window %d", int(direction)) << direction << true;
    }
}

void tst_MixedScreensLists::panelsOpenAtTheirButton()
{
    QFETCH(const SettingWidgetDirection, direction);
    QFETCH(const bool, isWindow);
    onDesktops([direction, isWindow](RandomDesktop &desktop) {
        const LogCapture quiet;
        for (const Change change : {Change::Order, Change::Shape, Change::Leave, Change::Unplug}) {
            const int index = desktop.below(desktop.count());
            const auto window = shownWindow(desktop.placeOn(desktop.screen(index), kWindow));
            CustomToolButton button(false, window.get(), direction);
            button.setGeometry(150, 100, 40, 40);
            button.show();
            const std::unique_ptr<Panel> panel(isWindow ? new Panel(nullptr, Qt::Tool)
                                                        : new Panel(window.get()));
            panel->resize(panel->hint);
            button.setClickWidget(panel.get(), false);
            const auto offset = [&] {
                button.click();
                sendMouse(&button, QEvent::MouseButtonRelease, Qt::LeftButton);
                RandomDesktop::settle();
                return panel->mapToGlobal(QPoint()) - button.mapToGlobal(QPoint());
            };
            const QPoint before = offset();
            QVERIFY(panel->isVisible());
            QVERIFY(qAbs(before.x()) < 120 && qAbs(before.y()) < 120);
            happen(desktop, change, index, window.get());
            panel->hide();
            // A window that was hidden has kept its size in the pixels of the screen that it was on.
            QVERIFY((offset() - before).manhattanLength() <= (isWindow ? kKeptSize : 0));
            QCOMPARE(panel->grab().devicePixelRatio(), window->screen()->devicePixelRatio());
            panel->hide();
        }
    });
}

ORV_TEST_MAIN(tst_MixedScreensLists)

#include "tst_mixedscreens_lists.moc"
