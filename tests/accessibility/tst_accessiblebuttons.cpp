#include "assistance.h"

#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customtoolbutton.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>

#include <cstring>
#include <functional>
#include <memory>

using namespace Assistance;
using Prepare = std::function<void(QAbstractButton *)>;
Q_DECLARE_METATYPE(Prepare)

namespace {

const QString kText = QStringLiteral("A&dd");

std::unique_ptr<CustomizeIconButton> newIconButton()
{
    return std::make_unique<CustomizeIconButton>(QSize(20, 20), QStringLiteral("Add"), 4, nullptr, true);
}

// Counts how often it opens, and closes again by itself.
class PassingMenu : public QMenu
{
public:
    PassingMenu()
    {
        addAction(QStringLiteral("Entry"));
        connect(this, &QMenu::aboutToShow, this, [this] {
            ++opened;
            QMetaObject::invokeMethod(this, &QMenu::close, Qt::QueuedConnection);
        });
    }

    int opened = 0;
};

// Everything that Qt tells of a button, as text.
QStringList told(QAbstractButton *button)
{
    QAccessibleInterface *interface = interfaceOf(button);
    QStringList result{QString::number(interface->role())};
    for (int kind = QAccessible::Name; kind <= QAccessible::Accelerator; ++kind)
        result << interface->text(QAccessible::Text(kind));
    quint64 state = 0;
    const QAccessible::State states = interface->state();
    static_assert(sizeof state == sizeof states, "the states are the bits of one number");
    std::memcpy(&state, &states, sizeof state);
    result << QString::number(state, 16) << actionsOf(button) << QString::number(interface->childCount());
    const QStringList actions = actionsOf(button);
    for (const QString &action : actions)
        result << interface->actionInterface()->keyBindingsForAction(action);
    return result;
}

} // namespace

class tst_AccessibleButtons : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pictureButtonIsToldLikeAPushButton_data();
    void pictureButtonIsToldLikeAPushButton();
    void pictureButtonActsLikeAPushButton();
    void pictureButtonOpensItsMenu();
    void pictureButtonIsCalledByItsOwnText();
    void pictureButtonMadeWhileActiveIsNoPlainOne();
    void toolButtonIsToldLikeAToolButton_data();
    void toolButtonIsToldLikeAToolButton();
    void toolButtonHasTheMenuBesideItAsAChild();
    void toolButtonHasAPopup();
    void toolButtonOpensTheRightClickPanel();
    void toolButtonOpensItsMenuWithoutAPanel();
    void iconButton();
    void iconButtonHasAFlagOfItsOwn();
    void iconButtonMayDieOfItsPress();
    void header();

private:
    void addStates(bool push);
};

void tst_AccessibleButtons::addStates(bool push)
{
    QTest::addColumn<Prepare>("prepare");
    const auto row = [](const char *name, const Prepare &prepare) {
        QTest::newRow(name) << prepare;
    };
    row("plain", [](QAbstractButton *) {});
    row("checkable", [](QAbstractButton *button) { button->setCheckable(true); });
    row("checked", [](QAbstractButton *button) {
        button->setCheckable(true);
        button->setChecked(true);
    });
    row("one of several", [](QAbstractButton *button) {
        button->setCheckable(true);
        button->setAutoExclusive(true);
    });
    row("down", [](QAbstractButton *button) { button->setDown(true); });
    row("disabled", [](QAbstractButton *button) { button->setEnabled(false); });
    row("without focus", [](QAbstractButton *button) { button->setFocusPolicy(Qt::NoFocus); });
    row("shortcut",
        [](QAbstractButton *button) { button->setShortcut(QKeySequence(QStringLiteral("Ctrl+K"))); });
    row("named by the client", [](QAbstractButton *button) {
        button->setAccessibleName(QStringLiteral("Named"));
        button->setAccessibleDescription(QStringLiteral("Described"));
    });
    row("tool tip", [](QAbstractButton *button) { button->setToolTip(QStringLiteral("Tip")); });
    row("without a text", [](QAbstractButton *button) { button->setText(QString()); });
    for (const char *text : {"&Add", "Ad&d", "Add &", "a && b & c &"})
        row(text, [text](QAbstractButton *button) { button->setText(QString::fromLatin1(text)); });
    if (push) {
        row("default", [](QAbstractButton *button) { static_cast<QPushButton *>(button)->setDefault(true); });
        row("menu",
            [](QAbstractButton *button) { static_cast<QPushButton *>(button)->setMenu(new QMenu(button)); });
        row("menu, disabled", [](QAbstractButton *button) {
            static_cast<QPushButton *>(button)->setMenu(new QMenu(button));
            button->setEnabled(false);
        });
    } else {
        row("raised",
            [](QAbstractButton *button) { static_cast<QToolButton *>(button)->setAutoRaise(true); });
        for (const auto mode :
             {QToolButton::DelayedPopup, QToolButton::MenuButtonPopup, QToolButton::InstantPopup}) {
            row(qPrintable(QStringLiteral("menu %1").arg(mode)), [mode](QAbstractButton *button) {
                static_cast<QToolButton *>(button)->setPopupMode(mode);
                static_cast<QToolButton *>(button)->setMenu(new QMenu(button));
            });
        }
    }
}

void tst_AccessibleButtons::pictureButtonIsToldLikeAPushButton_data()
{
    addStates(true);
}

void tst_AccessibleButtons::pictureButtonIsToldLikeAPushButton()
{
    QFETCH(Prepare, prepare);
    QPushButton stock(kText);
    CustomPictureBtn button;
    button.setText(kText);
    prepare(&stock);
    prepare(&button);
    QCOMPARE(told(&button), told(&stock));
}

void tst_AccessibleButtons::pictureButtonActsLikeAPushButton()
{
    CustomPictureBtn button(QStringLiteral("Record"), nullptr);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    act(&button, pressAction());
    QTRY_COMPARE(clicked.count(), 1);
    button.setCheckable(true);
    act(&button, QAccessibleActionInterface::toggleAction());
    QVERIFY(button.isChecked());
    QVERIFY(stateOf(&button).checked);
    button.setEnabled(false);
    act(&button, QAccessibleActionInterface::toggleAction());
    act(&button, pressAction());
    QVERIFY(button.isChecked());
    QVERIFY(!button.isDown());

    button.setEnabled(true);
    button.show();
    button.activateWindow();
    act(&button, QAccessibleActionInterface::setFocusAction());
    QTRY_VERIFY(stateOf(&button).focused);
}

void tst_AccessibleButtons::pictureButtonOpensItsMenu()
{
    CustomPictureBtn button(QStringLiteral("Record"), nullptr);
    PassingMenu menu;
    button.setMenu(&menu);
    button.show();
    act(&button, showMenuAction());
    QCOMPARE(menu.opened, 1);
    act(&button, pressAction());
    QCOMPARE(menu.opened, 2);
    button.setEnabled(false);
    act(&button, showMenuAction());
    QCOMPARE(menu.opened, 2);
}

void tst_AccessibleButtons::pictureButtonIsCalledByItsOwnText()
{
    const Activity activity;
    CustomPictureBtn button(QImage(), QStringLiteral("Painted & seen"), 4, nullptr, false);
    QCOMPARE(nameOf(&button), QStringLiteral("Painted & seen"));
    button.setText(QStringLiteral("Base"));
    QCOMPARE(nameOf(&button), QStringLiteral("Painted & seen"));
    const Listener listener;
    button.setCustomText(QStringLiteral("Other"), QRect(0, 0, 10, 10));
    QCOMPARE(nameOf(&button), QStringLiteral("Other"));
    QCOMPARE(button.customText(), QStringLiteral("Other"));
    QCOMPARE(listener.count(&button, QAccessible::NameChanged), 1);
    button.setCustomText(QString(), QRect());
    QCOMPARE(nameOf(&button), QStringLiteral("Base"));
    button.setAccessibleName(QStringLiteral("Named"));
    QCOMPARE(nameOf(&button), QStringLiteral("Named"));
}

// A base class that tells of its text in its constructor leaves its own answer behind.
void tst_AccessibleButtons::pictureButtonMadeWhileActiveIsNoPlainOne()
{
    const Activity activity;
    CustomPictureBtn text(QStringLiteral("Base"), nullptr);
    QCOMPARE(text.text(), QStringLiteral("Base"));
    CustomPictureBtn iconAndText(QIcon(QPixmap(8, 8)), QStringLiteral("Base"), nullptr);
    QCOMPARE(iconAndText.text(), QStringLiteral("Base"));
    QVERIFY(!iconAndText.icon().isNull());
    for (CustomPictureBtn *button : {&text, &iconAndText}) {
        QCOMPARE(nameOf(button), QStringLiteral("Base"));
        button->setCustomText(QStringLiteral("Painted"), QRect());
        QCOMPARE(nameOf(button), QStringLiteral("Painted"));
    }
}

void tst_AccessibleButtons::toolButtonIsToldLikeAToolButton_data()
{
    addStates(false);
}

void tst_AccessibleButtons::toolButtonIsToldLikeAToolButton()
{
    QFETCH(Prepare, prepare);
    QToolButton stock;
    stock.setText(kText);
    CustomToolButton button(false, nullptr, Bottom);
    button.setText(kText);
    prepare(&stock);
    prepare(&button);
    QCOMPARE(told(&button), told(&stock));
}

void tst_AccessibleButtons::toolButtonHasTheMenuBesideItAsAChild()
{
    CustomToolButton button(false, nullptr, Bottom);
    QMenu menu;
    button.setMenu(&menu);
    button.setPopupMode(QToolButton::MenuButtonPopup);
    QCOMPARE(interfaceOf(&button)->childCount(), 1);
    QCOMPARE(interfaceOf(&button)->child(0), interfaceOf(&menu));
    QVERIFY(!interfaceOf(&button)->child(1));
    QVERIFY(!interfaceOf(&button)->child(-1));
    button.setPopupMode(QToolButton::InstantPopup);
    QCOMPARE(interfaceOf(&button)->childCount(), 0);
    QVERIFY(!interfaceOf(&button)->child(0));
}

void tst_AccessibleButtons::toolButtonHasAPopup()
{
    QWidget panel;
    const auto hasPopup = [&](void (CustomToolButton::*attach)(QWidget *, bool)) {
        CustomToolButton button(false, nullptr, Bottom);
        if (stateOf(&button).hasPopup)
            return false;
        (button.*attach)(&panel, false);
        const bool result = stateOf(&button).hasPopup;
        (button.*attach)(nullptr, false);
        return result && !stateOf(&button).hasPopup;
    };
    QVERIFY(hasPopup(&CustomToolButton::setClickWidget));
    QVERIFY(hasPopup(&CustomToolButton::setRightClickWidget));
    QVERIFY(hasPopup(&CustomToolButton::setHoverWidget));
}

void tst_AccessibleButtons::toolButtonOpensTheRightClickPanel()
{
    QWidget click;
    QWidget right;
    CustomToolButton button(false, nullptr, Bottom);
    button.setClickWidget(&click, false);
    button.setRightClickWidget(&right, false);
    QCOMPARE(button.clickWidget(), &click);
    QCOMPARE(button.rightClickWidget(), &right);
    QCOMPARE(button.hoverWidget(), nullptr);
    QVERIFY(actionsOf(&button).contains(showMenuAction()));

    button.setEnabled(false);
    QVERIFY(!actionsOf(&button).contains(showMenuAction()));
    act(&button, showMenuAction());
    QVERIFY(!right.isVisible());

    button.setEnabled(true);
    act(&button, showMenuAction());
    QVERIFY(right.isVisible());
    QVERIFY(!click.isVisible());
    right.hide();

    button.setRightClickWidget(nullptr, false);
    QVERIFY(!actionsOf(&button).contains(showMenuAction()));
    act(&button, showMenuAction());
    QVERIFY(!right.isVisible());
}

void tst_AccessibleButtons::toolButtonOpensItsMenuWithoutAPanel()
{
    CustomToolButton button(false, nullptr, Bottom);
    PassingMenu menu;
    button.setMenu(&menu);
    button.show();
    act(&button, showMenuAction());
    QCOMPARE(menu.opened, 1);
}

void tst_AccessibleButtons::iconButton()
{
    const auto button = newIconButton();
    QSignalSpy clicked(button.get(), &CustomizeIconButton::clicked);
    QCOMPARE(button->text(), QStringLiteral("Add"));
    QCOMPARE(nameOf(button.get()), QStringLiteral("Add"));
    QCOMPARE(interfaceOf(button.get())->childCount(), 0);
    QCOMPARE(actionsOf(button.get()), QStringList(pressAction()));
    act(button.get(), pressAction());
    QCOMPARE(clicked.count(), 1);
    act(button.get(), showMenuAction());
    QCOMPARE(clicked.count(), 1);
    button->setAccessibleName(QStringLiteral("Named"));
    QCOMPARE(nameOf(button.get()), QStringLiteral("Named"));
}

void tst_AccessibleButtons::iconButtonHasAFlagOfItsOwn()
{
    const Activity activity;
    const auto button = newIconButton();
    QSignalSpy clicked(button.get(), &CustomizeIconButton::clicked);
    QVERIFY(!stateOf(button.get()).disabled);
    const Listener listener;
    button->setEnabled(false);
    button->setEnabled(false);
    QVERIFY(!button->isButtonEnabled());
    QVERIFY(button->isEnabled());
    QVERIFY(stateOf(button.get()).disabled);
    QCOMPARE(listener.count(button.get(), QAccessible::StateChanged), 1);
    QVERIFY(actionsOf(button.get()).isEmpty());
    act(button.get(), pressAction());

    button->setEnabled(true);
    button->QWidget::setEnabled(false);
    QVERIFY(button->isButtonEnabled());
    QVERIFY(stateOf(button.get()).disabled);
    act(button.get(), pressAction());
    QCOMPARE(clicked.count(), 0);
}

void tst_AccessibleButtons::iconButtonMayDieOfItsPress()
{
    CustomizeIconButton *button = newIconButton().release();
    const QPointer<CustomizeIconButton> guard(button);
    connect(button, &CustomizeIconButton::clicked, this, [button] { delete button; });
    act(button, pressAction());
    QVERIFY(!guard);
}

void tst_AccessibleButtons::header()
{
    const Activity activity;
    CustomComboxHeader header(nullptr);
    QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    QCOMPARE(header.text(), QString());
    const Listener listener;
    header.setText(QStringLiteral("Camera 1"));
    header.setText(QStringLiteral("Camera 1"));
    QCOMPARE(header.text(), QStringLiteral("Camera 1"));
    QCOMPARE(nameOf(&header), QStringLiteral("Camera 1"));
    QCOMPARE(listener.count(&header, QAccessible::NameChanged), 1);
    QCOMPARE(interfaceOf(&header)->childCount(), 0);
    act(&header, pressAction());
    QCOMPARE(clicked.count(), 1);
    header.setEnabled(false);
    act(&header, pressAction());
    QCOMPARE(clicked.count(), 1);
}

ORV_TEST_MAIN(tst_AccessibleButtons)
#include "tst_accessiblebuttons.moc"
