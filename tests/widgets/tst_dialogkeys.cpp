#include "commonpopupdialog.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtTest/QTest>
#include <QtTest/qtestspontaneevent.h>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <functional>
#include <memory>

namespace {

const QStringList kNothing;

// A dialog of one of the classes, and its signals in the order in which they come, with whether it was visible then.
struct Dialog
{
    QPointer<QWidget> widget;
    std::function<void(bool)> setKeyboardActions;
    std::function<bool()> keyboardActions;
    std::shared_ptr<QStringList> log = std::make_shared<QStringList>();

    template<typename Class>
    explicit Dialog(Class *dialog)
        : widget(dialog)
        , setKeyboardActions([dialog](bool on) { dialog->setKeyboardActions(on); })
        , keyboardActions([dialog] { return dialog->keyboardActions(); })
    {
        dialog->setAttribute(Qt::WA_DeleteOnClose, false);
    }
    template<typename Class, typename Signal>
    Dialog &noting(Class *dialog, Signal signal, const char *name)
    {
        QObject::connect(dialog, signal, dialog, [this_ = log, dialog, name] {
            *this_ << QLatin1String(name) + QLatin1String(dialog->isVisible() ? " visible" : " hidden");
        });
        return *this;
    }
    QPushButton *button(int index) const { return widget->findChildren<QPushButton *>().value(index); }
    QStringList takeLog() const
    {
        QStringList lines;
        lines.swap(*log);
        return lines;
    }
};

Dialog commonPopup(bool hasButton)
{
    auto *dialog = new CommonPopupDialog(nullptr, QStringLiteral("Title"), QSize(300, 200), hasButton, false,
                                         false, false, false);
    return Dialog(dialog).noting(dialog, &CommonPopupDialog::sigClosed, "sigClosed");
}

Dialog masked(bool hasButtons)
{
    QVector<QString> images(hasButtons ? 2 : 1);
    QVector<QString> texts(2);
    auto *dialog =
        new PopupDlgWithMask(QString(), QSize(320, 460), 1, 2, 3, 4, QString(), images, texts, texts,
                             QString(), QStringLiteral("OK"), false, false, true, false, nullptr);
    return Dialog(dialog).noting(dialog, &PopupDlgWithMask::closeMsgBox, "closeMsgBox");
}

Dialog message()
{
    auto *dialog = new PopupDlgWithMask(QString(), QSize(320, 200), 1, 2, 3, 4, QString(), QString(),
                                        QString(), QStringLiteral("OK"), false, false, true, false, nullptr);
    return Dialog(dialog).noting(dialog, &PopupDlgWithMask::closeMsgBox, "closeMsgBox");
}

Dialog tips()
{
    auto *dialog = new TipsDlgWithCheckbox(nullptr, QSize(400, 200), QString(), QString(), QString(),
                                           QStringLiteral("OK"));
    dialog->setCheckboxState(true);
    return Dialog(dialog)
        .noting(dialog, &TipsDlgWithCheckbox::closeMsgBox, "closeMsgBox")
        .noting(dialog, &TipsDlgWithCheckbox::sig_BtnClicked, "sig_BtnClicked")
        .noting(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged, "sig_checkboxStateChanged");
}

Dialog updateTip()
{
    auto *dialog = new OrvUpdateTipDlg(QSize(420, 220), QString(), 10, 10, 10, 10, nullptr,
                                       QStringLiteral("Update"), QStringLiteral("Later"), false, true);
    return Dialog(dialog)
        .noting(dialog, &OrvUpdateTipDlg::sig_closeMsgBox, "sig_closeMsgBox")
        .noting(dialog, &OrvUpdateTipDlg::sig_cancelBtnClicked, "sig_cancelBtnClicked")
        .noting(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked, "sig_confirmBtnClicked");
}

using Maker = Dialog (*)();

bool sendKey(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool repeats = false)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), repeats);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

} // namespace
Q_DECLARE_METATYPE(Maker)

/// Escape, Return and Enter in the message dialogs.
class tst_DialogKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingUnlessAskedFor_data() { dialogs(); }
    void nothingUnlessAskedFor();
    void actLikeTheButtons_data() { dialogs(); }
    void actLikeTheButtons();
    void shownDialogGetsTheKeys_data() { dialogs(); }
    void shownDialogGetsTheKeys();
    void leavesTheKeysWhenAsked_data() { dialogs(); }
    void leavesTheKeysWhenAsked();
    void nothingWithoutAButton();
    void hiddenAndDisabledButtons_data() { dialogs(); }
    void hiddenAndDisabledButtons();
    void otherKeysPassOn_data() { dialogs(); }
    void otherKeysPassOn();
    void heldKeysDoNothing_data() { dialogs(); }
    void heldKeysDoNothing();
    void keysOfTheContent();
    void resultsOfRuns();
    void slotsMayDestroyTheDialog_data() { dialogs(); }
    void slotsMayDestroyTheDialog();

private:
    static void dialogs();
};

void tst_DialogKeys::dialogs()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<int>("closeButton");   // the place among the push buttons
    QTest::addColumn<int>("confirmButton"); // -1: none
    QTest::newRow("CommonPopupDialog") << Maker([] { return commonPopup(true); }) << 0 << -1;
    QTest::newRow("PopupDlgWithMask") << Maker(message) << 0 << 1;
    QTest::newRow("PopupDlgWithMask with pages") << Maker([] { return masked(true); }) << 0 << 1;
    QTest::newRow("TipsDlgWithCheckbox") << Maker(tips) << 0 << 1;
    QTest::newRow("OrvUpdateTipDlg") << Maker(updateTip) << 0 << 2;
}

void tst_DialogKeys::nothingUnlessAskedFor()
{
    QFETCH(Maker, maker);

    const Dialog dialog = maker();
    QVERIFY(!dialog.keyboardActions());
    dialog.widget->show();
    for (int round = 0; round < 2; ++round) {
        for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
            QVERIFY(!sendKey(dialog.widget, key));
        QVERIFY(dialog.widget->isVisible());
        QCOMPARE(dialog.takeLog(), kNothing);
        dialog.setKeyboardActions(true);
        QVERIFY(dialog.keyboardActions());
        dialog.setKeyboardActions(false);
        QVERIFY(!dialog.keyboardActions());
    }
    delete dialog.widget;
}

void tst_DialogKeys::actLikeTheButtons()
{
    QFETCH(Maker, maker);
    QFETCH(int, closeButton);
    QFETCH(int, confirmButton);

    const auto check = [&](int key, Qt::KeyboardModifiers modifiers, int button) {
        const Dialog clicked = maker();
        clicked.widget->show();
        QTest::mouseClick(clicked.button(button), Qt::LeftButton);
        const Dialog keyed = maker();
        keyed.setKeyboardActions(true);
        keyed.widget->show();
        QVERIFY(sendKey(keyed.widget, key, modifiers));
        const QStringList log = keyed.takeLog();
        QVERIFY(!log.isEmpty());
        QCOMPARE(log, clicked.takeLog());
        QVERIFY(!keyed.widget->isVisible());
        delete clicked.widget;
        delete keyed.widget;
    };
    check(Qt::Key_Escape, Qt::NoModifier, closeButton);
    if (confirmButton >= 0) {
        check(Qt::Key_Return, Qt::NoModifier, confirmButton);
        check(Qt::Key_Enter, Qt::KeypadModifier, confirmButton);
    }
}

// As a tool window, which Windows does not activate by itself.
void tst_DialogKeys::shownDialogGetsTheKeys()
{
    QFETCH(Maker, maker);
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const Dialog dialog = maker();
    dialog.setKeyboardActions(true);
    dialog.widget->show();
    QTRY_COMPARE(QApplication::activeWindow(), dialog.widget.data());
    delete dialog.widget;
}

void tst_DialogKeys::leavesTheKeysWhenAsked()
{
    QFETCH(Maker, maker);
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const Dialog dialog = maker();
    dialog.setKeyboardActions(true);
    const auto keepsThem = [&window] {
        window.activateWindow();
        bool isLater = false;
        QTimer::singleShot(0, &window, [&isLater] { isLater = true; });
        return QTest::qWaitFor([&isLater] { return isLater; }) && QTest::qWaitForWindowActive(&window);
    };
    dialog.widget->setAttribute(Qt::WA_ShowWithoutActivating);
    dialog.widget->show();
    QVERIFY(keepsThem());
    dialog.widget->setAttribute(Qt::WA_ShowWithoutActivating, false);
    QShowEvent ofTheWindowManager;
    QSpontaneKeyEvent::setSpontaneous(&ofTheWindowManager);
    qApp->notify(dialog.widget, &ofTheWindowManager); // sendEvent() would make it the program's
    QVERIFY(keepsThem());
    delete dialog.widget;
}

void tst_DialogKeys::nothingWithoutAButton()
{
    for (const Dialog &dialog : {commonPopup(false), masked(false)}) {
        dialog.setKeyboardActions(true);
        dialog.widget->show();
        for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
            sendKey(dialog.widget, key);
        const bool hasButtons = dialog.widget->findChildren<QPushButton *>().size() > 1;
        QCOMPARE(dialog.widget->isVisible(), !hasButtons);
        delete dialog.widget;
    }
}

void tst_DialogKeys::hiddenAndDisabledButtons()
{
    QFETCH(Maker, maker);

    const Dialog dialog = maker();
    dialog.setKeyboardActions(true);
    dialog.widget->show();
    const auto buttons = dialog.widget->findChildren<QPushButton *>();
    for (const auto setOff : {&QWidget::setHidden, &QWidget::setDisabled}) {
        for (QPushButton *button : buttons)
            (button->*setOff)(true);
        // The key is still the dialog's: what it may stand in must not act in its place.
        for (const int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
            QVERIFY(sendKey(dialog.widget, key));
        QVERIFY(dialog.widget->isVisible());
        QCOMPARE(dialog.takeLog(), kNothing);
        for (QPushButton *button : buttons)
            (button->*setOff)(false);
    }
    delete dialog.widget;
}

void tst_DialogKeys::otherKeysPassOn()
{
    QFETCH(Maker, maker);

    const Dialog dialog = maker();
    dialog.setKeyboardActions(true);
    dialog.widget->show();
    QVERIFY(!sendKey(dialog.widget, Qt::Key_Space));
    QVERIFY(!sendKey(dialog.widget, Qt::Key_F4));
    for (const Qt::KeyboardModifier modifier :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        QVERIFY(!sendKey(dialog.widget, Qt::Key_Escape, modifier));
        QVERIFY(!sendKey(dialog.widget, Qt::Key_Return, modifier));
    }
    QVERIFY(dialog.widget->isVisible());
    QCOMPARE(dialog.takeLog(), kNothing);
    delete dialog.widget;
}

// The key may be held down since it opened the dialog.
void tst_DialogKeys::heldKeysDoNothing()
{
    QFETCH(Maker, maker);

    const Dialog dialog = maker();
    dialog.setKeyboardActions(true);
    dialog.widget->show();
    QVERIFY(sendKey(dialog.widget, Qt::Key_Return, Qt::NoModifier, true));
    QVERIFY(sendKey(dialog.widget, Qt::Key_Escape, Qt::NoModifier, true));
    QVERIFY(dialog.widget->isVisible());
    QCOMPARE(dialog.takeLog(), kNothing);
    delete dialog.widget;
}

// What the content uses itself does not come to the dialog; what it leaves alone does.
void tst_DialogKeys::keysOfTheContent()
{
    const Dialog dialog = tips();
    dialog.setKeyboardActions(true);
    QLineEdit edit(dialog.widget);
    dialog.widget->show();
    QTest::keyClick(&edit, Qt::Key_Space);
    QCOMPARE(edit.text(), QStringLiteral(" "));
    auto *box = dialog.widget->findChild<QCheckBox *>();
    QTest::keyClick(box, Qt::Key_Space);
    QVERIFY(!box->isChecked());
    QVERIFY(dialog.widget->isVisible());
    QTest::keyClick(box, Qt::Key_Return);
    QVERIFY(!dialog.widget->isVisible());
    QCOMPARE(dialog.takeLog(), QStringList{QStringLiteral("sig_BtnClicked hidden")});
    edit.setParent(nullptr);
    delete dialog.widget;
}

void tst_DialogKeys::resultsOfRuns()
{
    PopupDlgWithMask dialog(QString(), QSize(320, 200), 1, 2, 3, 4, QString(), QString(), QString(),
                            QStringLiteral("OK"), false, false, true, true, nullptr);
    dialog.setKeyboardActions(true);
    QTimer::singleShot(0, &dialog, [&dialog] { sendKey(&dialog, Qt::Key_Return); });
    QCOMPARE(dialog.exec(), PopupDlgWithMask::Confirmed);
    QTimer::singleShot(0, &dialog, [&dialog] { sendKey(&dialog, Qt::Key_Escape); });
    QCOMPARE(dialog.exec(), PopupDlgWithMask::Closed);

    CommonPopupDialog popup(nullptr, QString(), QSize(300, 200), true, false, false, true, false);
    popup.setKeyboardActions(true);
    QTimer::singleShot(0, &popup, [&popup] { sendKey(&popup, Qt::Key_Escape); });
    QCOMPARE(popup.exec(), CommonPopupDialog::Closed);
}

void tst_DialogKeys::slotsMayDestroyTheDialog()
{
    QFETCH(Maker, maker);
    QFETCH(int, closeButton);

    const Dialog dialog = maker();
    dialog.setKeyboardActions(true);
    dialog.widget->show();
    connect(dialog.button(closeButton), &QPushButton::clicked, this, [&dialog] { delete dialog.widget; });
    sendKey(dialog.widget, Qt::Key_Escape);
    QVERIFY(!dialog.widget);
}

ORV_TEST_MAIN(tst_DialogKeys)
#include "tst_dialogkeys.moc"
