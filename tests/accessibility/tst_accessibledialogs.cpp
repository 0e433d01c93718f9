#include "assistance.h"

#include "commonpopupdialog.h"
#include "customwraptexttooltip.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QPointer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

using namespace Assistance;

namespace {

const QString kTitle = QStringLiteral("Update");
const QString kContent = QStringLiteral("There is a new version.");
const QString kCaption = QStringLiteral("Connecting");

QString descriptionOf(QWidget *widget)
{
    return interfaceOf(widget)->text(QAccessible::Description);
}

std::unique_ptr<CommonPopupDialog> newPopup(bool modal = false)
{
    return std::make_unique<CommonPopupDialog>(nullptr, kTitle, QSize(300, 200), true, true, false, modal,
                                               false);
}

std::unique_ptr<PopupDlgWithMask> newMessage(bool modal = false)
{
    return std::make_unique<PopupDlgWithMask>(QString(), QSize(300, 200), 1, 1, 1, 1, kTitle, kContent,
                                              QStringLiteral("1/2"), QStringLiteral("OK"), false, false, true,
                                              modal, nullptr);
}

std::unique_ptr<PopupDlgWithMask> newPages(int count)
{
    QVector<QString> images;
    QVector<QString> titles;
    QVector<QString> contents;
    for (int page = 1; page <= count; ++page) {
        images << QString();
        titles << QStringLiteral("Title %1").arg(page);
        contents << QStringLiteral("Content %1").arg(page);
    }
    return std::make_unique<PopupDlgWithMask>(QString(), QSize(320, 460), 1, 1, 1, 1, kTitle, images, titles,
                                              contents, QString(), QStringLiteral("OK"), false, false, true,
                                              false, nullptr);
}

std::unique_ptr<TipsDlgWithCheckbox> newTips()
{
    return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(300, 200), kTitle, kContent,
                                                 QStringLiteral("Not again"), QStringLiteral("OK"));
}

std::unique_ptr<TipsDlgWithCheckbox> newTips(const QVector<QString> &lines)
{
    return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(300, 200), kTitle, lines,
                                                 QStringLiteral("Not again"), QStringLiteral("OK"));
}

std::unique_ptr<OrvUpdateTipDlg> newUpdateTips()
{
    return std::make_unique<OrvUpdateTipDlg>(QSize(440, 240), QString(), 1, 1, 1, 1, nullptr,
                                             QStringLiteral("Yes"), QStringLiteral("No"), false, true);
}

QVector<QPushButton *> buttonsCalled(const QWidget *dialog, const QString &name)
{
    QVector<QPushButton *> result;
    const QList<QPushButton *> buttons = dialog->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (nameOf(button) == name)
            result << button;
    }
    return result;
}

} // namespace

class tst_AccessibleDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void titlesAreNames();
    void clientsNamesComeFirst();
    void windowTitleServesTheBase();
    void contents();
    void contentsOfPages();
    void contentsOfLines();
    void richTextIsReadOutPlain();
    void hiddenContentsAreLeftOut();
    void modality();
    void closeButtons();
    void closeButtonsClose();
    void changesAreTold();
    void turnedPagesAreTold();
    void loading();
    void toolTip();
};

void tst_AccessibleDialogs::titlesAreNames()
{
    const auto popup = newPopup();
    QCOMPARE(popup->title(), kTitle);
    QCOMPARE(nameOf(popup.get()), kTitle);
    popup->setTitle(QStringLiteral("Other"));
    QCOMPARE(nameOf(popup.get()), QStringLiteral("Other"));
    const auto message = newMessage();
    QCOMPARE(message->title(), kTitle);
    QCOMPARE(nameOf(message.get()), kTitle);
    const auto pages = newPages(2);
    QCOMPARE(nameOf(pages.get()), kTitle);
    const auto tips = newTips();
    QCOMPARE(tips->title(), kTitle);
    QCOMPARE(nameOf(tips.get()), kTitle);
    const auto update = newUpdateTips();
    QCOMPARE(nameOf(update.get()), QStringLiteral("Update Tips"));
    update->setTitle(kTitle);
    QCOMPARE(update->title(), kTitle);
    QCOMPARE(nameOf(update.get()), kTitle);
}

void tst_AccessibleDialogs::clientsNamesComeFirst()
{
    const auto message = newMessage();
    message->setAccessibleName(QStringLiteral("Named"));
    message->setAccessibleDescription(QStringLiteral("Described"));
    QCOMPARE(nameOf(message.get()), QStringLiteral("Named"));
    QCOMPARE(descriptionOf(message.get()), QStringLiteral("Described"));
}

void tst_AccessibleDialogs::windowTitleServesTheBase()
{
    BaseMoveDialog dialog(nullptr, true, false, true);
    dialog.setWindowTitle(kTitle);
    QCOMPARE(nameOf(&dialog), kTitle);
    QCOMPARE(descriptionOf(&dialog), QString());
    // One with a title of its own has no other name: its window's title is for the system only.
    const auto popup = newPopup();
    popup->setTitle(QString());
    QVERIFY(!popup->windowTitle().isEmpty());
    QCOMPARE(nameOf(popup.get()), QString());

    // Embedded it is no window at all.
    QWidget window;
    BaseMoveDialog part(&window, true, false, false);
    QCOMPARE(interfaceOf(&part)->role(), QAccessible::Client);
}

void tst_AccessibleDialogs::contents()
{
    QCOMPARE(descriptionOf(newPopup().get()), QString());
    const auto message = newMessage();
    QCOMPARE(descriptionOf(message.get()), kContent);
    message->setContent(QStringLiteral("Other"));
    QCOMPARE(descriptionOf(message.get()), QStringLiteral("Other"));
    message->show(true);
    QCOMPARE(descriptionOf(message.get()), QStringLiteral("Other"));
    const auto tips = newTips();
    QCOMPARE(descriptionOf(tips.get()), kContent);
    const auto update = newUpdateTips();
    update->setContentTips(kContent);
    update->setNewVersionLink(QStringLiteral("<a href=\"https://example.com\">here</a>"));
    QCOMPARE(descriptionOf(update.get()), kContent);
}

void tst_AccessibleDialogs::contentsOfPages()
{
    const auto pages = newPages(3);
    QCOMPARE(descriptionOf(pages.get()), QStringLiteral("Content 1"));
    for (int page : {2, 3, 1}) {
        QVERIFY(QMetaObject::invokeMethod(pages.get(), "slot_timerFunc"));
        QCOMPARE(descriptionOf(pages.get()), QStringLiteral("Content %1").arg(page));
    }
    pages->show(true);
    QCOMPARE(descriptionOf(pages.get()), QStringLiteral("Content 1"));
    QCOMPARE(descriptionOf(newPages(0).get()), QString());
}

void tst_AccessibleDialogs::contentsOfLines()
{
    const auto four = newTips(
        {QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three"), QStringLiteral("Beware")});
    QCOMPARE(descriptionOf(four.get()), QStringLiteral("One\nTwo\nThree\nBeware"));
    QCOMPARE(descriptionOf(newTips({QStringLiteral("One")}).get()), QString());
}

void tst_AccessibleDialogs::richTextIsReadOutPlain()
{
    const auto message = newMessage();
    message->setTitle(QStringLiteral("<b>Bold</b> title"));
    message->setContent(QStringLiteral("<p>First</p><p>Second</p>"));
    QCOMPARE(nameOf(message.get()), QStringLiteral("Bold title"));
    QCOMPARE(descriptionOf(message.get()), QStringLiteral("First\nSecond"));
    message->setContent(QStringLiteral("1 < 2 & 3 > 2"));
    QCOMPARE(descriptionOf(message.get()), QStringLiteral("1 < 2 & 3 > 2"));
}

void tst_AccessibleDialogs::hiddenContentsAreLeftOut()
{
    const auto message = newMessage();
    const QList<QLabel *> labels = message->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->text() == kContent)
            label->hide();
    }
    QCOMPARE(descriptionOf(message.get()), QString());
}

void tst_AccessibleDialogs::modality()
{
    QVERIFY(!stateOf(newPopup(false).get()).modal);
    QVERIFY(stateOf(newPopup(true).get()).modal);
    QVERIFY(!stateOf(newMessage(false).get()).modal);
    QVERIFY(stateOf(newMessage(true).get()).modal);
    QVERIFY(stateOf(newTips().get()).modal);
    QVERIFY(stateOf(newUpdateTips().get()).modal);
    const auto popup = newPopup(true);
    popup->setModal(false);
    QVERIFY(!stateOf(popup.get()).modal);
}

void tst_AccessibleDialogs::closeButtons()
{
    const QString close = QStringLiteral("Close");
    const std::vector<std::shared_ptr<QWidget>> dialogs{newPopup(), newMessage(), newPages(2),
                                                        newTips(),  newTips({}),  newUpdateTips()};
    for (const auto &dialog : dialogs) {
        const QVector<QPushButton *> buttons = buttonsCalled(dialog.get(), close);
        QCOMPARE(buttons.size(), 1);
        QCOMPARE(interfaceOf(buttons.first())->role(), QAccessible::PushButton);
        // No other button is without a name.
        QVERIFY(buttonsCalled(dialog.get(), QString()).isEmpty());
    }
}

void tst_AccessibleDialogs::closeButtonsClose()
{
    const auto message = newMessage();
    message->show(true);
    QPushButton *button = buttonsCalled(message.get(), QStringLiteral("Close")).value(0);
    QVERIFY(button);
    act(button, pressAction());
    QTRY_VERIFY(!message->isVisible());
}

void tst_AccessibleDialogs::changesAreTold()
{
    const Activity activity;
    const auto message = newMessage();
    const auto tips = newTips();
    const auto update = newUpdateTips();
    const auto popup = newPopup();
    const Listener listener;
    message->setTitle(QStringLiteral("x"));
    tips->setTitle(QStringLiteral("x"));
    update->setTitle(QStringLiteral("x"));
    popup->setTitle(QStringLiteral("x"));
    for (QWidget *dialog :
         std::initializer_list<QWidget *>{message.get(), tips.get(), update.get(), popup.get()})
        QCOMPARE(listener.count(dialog, QAccessible::NameChanged), 1);
    message->setContent(QStringLiteral("x"));
    tips->setContent(QStringLiteral("x"));
    update->setContentTips(QStringLiteral("x"));
    for (QWidget *dialog : std::initializer_list<QWidget *>{message.get(), tips.get(), update.get()})
        QCOMPARE(listener.count(dialog, QAccessible::DescriptionChanged), 1);
}

void tst_AccessibleDialogs::turnedPagesAreTold()
{
    const Activity activity;
    const auto pages = newPages(2);
    const auto single = newPages(1);
    const Listener listener;
    QVERIFY(QMetaObject::invokeMethod(pages.get(), "slot_timerFunc"));
    QVERIFY(QMetaObject::invokeMethod(single.get(), "slot_timerFunc"));
    QCOMPARE(listener.count(pages.get(), QAccessible::DescriptionChanged), 1);
    QCOMPARE(listener.count(single.get(), QAccessible::DescriptionChanged), 0);
}

void tst_AccessibleDialogs::loading()
{
    PopupLoadingDlgWithMask dialog(QSize(300, 200), QSize(100, 100), kCaption, nullptr);
    QAccessibleInterface *interface = interfaceOf(&dialog);
    QCOMPARE(interface->role(), QAccessible::ProgressBar);
    QCOMPARE(nameOf(&dialog), kCaption);
    QVERIFY(stateOf(&dialog).busy);
    QVERIFY(!interface->valueInterface());
    QCOMPARE(interface->text(QAccessible::Value), QString());
    QCOMPARE(interface->childCount(), 0);
    dialog.show();
    QCOMPARE(nameOf(&dialog), kCaption);
    dialog.setAccessibleName(QStringLiteral("Named"));
    QCOMPARE(nameOf(&dialog), QStringLiteral("Named"));
    dialog.setAttribute(Qt::WA_DeleteOnClose, false);
}

void tst_AccessibleDialogs::toolTip()
{
    const Activity activity;
    auto *toolTip = new customWrapTextToolTip(customWrapTextToolTip::DirectionBottom, 200, nullptr, 8);
    const QPointer<QWidget> guard(toolTip);
    QCOMPARE(interfaceOf(toolTip)->role(), QAccessible::ToolTip);
    const Listener listener;
    toolTip->setText(kContent);
    QCOMPARE(nameOf(toolTip), kContent);
    QCOMPARE(listener.count(toolTip, QAccessible::NameChanged), 1);
    QCOMPARE(interfaceOf(toolTip)->childCount(), 0);
    toolTip->show();
    const QAccessible::Id id = QAccessible::uniqueId(interfaceOf(toolTip));
    toolTip->close();
    QTRY_VERIFY(!guard);
    QVERIFY(!QAccessible::accessibleInterface(id));

    customWrapTextToolTip::popup(QPoint(10, 10), QStringLiteral("Popped up"));
    QWidget *popped = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (interfaceOf(window)->role() == QAccessible::ToolTip)
            popped = window;
    }
    QVERIFY(popped);
    QCOMPARE(nameOf(popped), QStringLiteral("Popped up"));
    delete popped;
}

ORV_TEST_MAIN(tst_AccessibleDialogs)
#include "tst_accessibledialogs.moc"
