#include "basemovedialogwithbackimage.h"
#include "commonpopupdialog.h"
#include "events.h"
#include "kinds.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "tipsdlgwithcheckbox.h"

#include <QtGui/QMovie>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QLabel>

namespace Pictures {

namespace {

const QString kTitle = QStringLiteral("Camera 12");
const QString kContent = QStringLiteral("Stop the recording now?");

/// The buttons of a dialog, alone, under the pointer and held, in the order in which they were made.
QVector<State> buttonsOf(const QStringList &names)
{
    QVector<State> states;
    const auto add = [&states](const QString &name, int index, void (*act)(QWidget *)) {
        const auto button = [index](QWidget *dialog) -> QWidget * {
            return dialog->findChildren<QAbstractButton *>().at(index);
        };
        states << State{name, [=](QWidget *dialog) { act(button(dialog)); }, {}, false, button};
    };
    for (int index = 0; index < names.size(); ++index) {
        add(names[index] + QLatin1String(" hover"), index, &Events::hover);
        add(names[index] + QLatin1String(" pressed"), index, &Events::press);
    }
    return states;
}

QWidget *move(const QString &image)
{
    auto *dialog = new BaseMoveDialogWithBackImage(image, 8, true, true, nullptr);
    dialog->resize(160, 90);
    return dialog;
}

QWidget *pictureDialog()
{
    return move(QString());
}

QVector<State> statesOfPictureDialog()
{
    const QString cards = QStringLiteral(":/images/images/combox/popup_bg.png");
    return {
        asMade(),
        disabled(),
        rightToLeft(),
        {QStringLiteral("the library's picture"), [](QWidget *) {},
         [cards] {
             return move(cards);
         }},
        {QStringLiteral("own picture"), [](QWidget *) {},
         [] {
             return move(swatch("#4B66EB", 32));
         }},
        {QStringLiteral("missing picture"), [](QWidget *) {},
         [] {
             return move(QStringLiteral(":/none.png"));
         }},
    };
}

QWidget *commonDialogWith(const QString &title)
{
    return new CommonPopupDialog(nullptr, title, QSize(240, 120), true, true, false, false, true);
}

QVector<State> statesOfCommonDialog()
{
    QVector<State> states{asMade(), rightToLeft()};
    states << State{QStringLiteral("without close button"), [](QWidget *) {},
                    [] {
                        return new CommonPopupDialog(nullptr, kTitle, QSize(240, 120), false, true, true,
                                                     false, true);
                    }};
    return states + buttonsOf({QStringLiteral("close")}) + texts(&commonDialogWith);
}

QWidget *messageWith(const QString &text)
{
    PopupMessage message;
    message.size = QSize(280, 150);
    message.title = message.content = message.noteText = message.confirmText = text;
    message.useMask = message.modal = false;
    return new PopupDlgWithMask(message);
}

QWidget *message()
{
    PopupMessage message;
    message.size = QSize(280, 150);
    message.title = kTitle;
    message.content = kContent;
    message.noteText = QStringLiteral("It is kept.");
    message.confirmText = QStringLiteral("Stop");
    message.useMask = message.modal = false;
    return new PopupDlgWithMask(message);
}

QVector<State> statesOfMessage()
{
    return QVector<State>{asMade(), rightToLeft()} +
           buttonsOf({QStringLiteral("close"), QStringLiteral("confirm")}) + texts(&messageWith);
}

QWidget *pagesWith(const QString &text)
{
    PopupMessage message;
    message.size = QSize(332, 425);
    message.title = message.noteText = message.confirmText = text;
    for (const char *color : {"#4B66EB", "#40A060", "#E0A040"})
        message.pages.append({swatch(color, 64), text, text});
    message.useMask = message.modal = false;
    return new PopupDlgWithMask(message);
}

QWidget *pages()
{
    return pagesWith(QStringLiteral("Camera 12"));
}

QVector<State> statesOfPages()
{
    return QVector<State>{asMade(), rightToLeft()} + texts(&pagesWith);
}

QWidget *tipsWith(const QString &text)
{
    return new TipsDlgWithCheckbox(nullptr, QSize(300, 150), text, text, text, text);
}

QWidget *tips()
{
    return new TipsDlgWithCheckbox(nullptr, QSize(300, 150), kTitle, kContent,
                                   QStringLiteral("Do not ask again"), QStringLiteral("Stop"));
}

QWidget *tipsWithLines()
{
    return new TipsDlgWithCheckbox(
        nullptr, QSize(300, 200), kTitle,
        {kContent, QStringLiteral("First"), QStringLiteral("Second"), QStringLiteral("Third")},
        QStringLiteral("Do not ask again"), QStringLiteral("Stop"));
}

QVector<State> statesOfTips()
{
    QVector<State> states{asMade(), rightToLeft()};
    states << state<TipsDlgWithCheckbox>("checked", [](TipsDlgWithCheckbox *dialog) {
        dialog->setCheckboxState(true);
    }) << State{QStringLiteral("lines"), [](QWidget *) {}, &tipsWithLines, true};
    return states +
           buttonsOf({QStringLiteral("close"), QStringLiteral("check box"), QStringLiteral("confirm")}) +
           texts(&tipsWith);
}

OrvUpdateTipDlg *newUpdateDialog(const QString &confirm, const QString &cancel, bool compact)
{
    return new OrvUpdateTipDlg(QSize(400, 200), QString(), 8, 8, 8, 8, nullptr, confirm, cancel, compact,
                               true);
}

QWidget *updateWith(const QString &text)
{
    OrvUpdateTipDlg *dialog = newUpdateDialog(text, text, false);
    dialog->setTitle(text);
    dialog->setContentTips(text);
    dialog->setNewVersionLink(text);
    return dialog;
}

QWidget *filledUpdateDialog(bool compact)
{
    OrvUpdateTipDlg *dialog = newUpdateDialog(QStringLiteral("Update"), QStringLiteral("Later"), compact);
    dialog->setTitle(kTitle);
    dialog->setContentTips(QStringLiteral("Version 2 is there."));
    dialog->setNewVersionLink(QStringLiteral("What is new"));
    return dialog;
}

QWidget *updateDialog()
{
    return filledUpdateDialog(false);
}

QVector<State> statesOfUpdateDialog()
{
    QVector<State> states{asMade(), rightToLeft()};
    states << State{QStringLiteral("compact"), [](QWidget *) {}, [] { return filledUpdateDialog(true); },
                    true};
    return states + buttonsOf({QStringLiteral("close"), QStringLiteral("first"), QStringLiteral("second")}) +
           texts(&updateWith);
}

QWidget *loadingWith(const QString &text)
{
    auto *dialog = new PopupLoadingDlgWithMask(QSize(200, 150), QSize(110, 100), text, nullptr);
    auto *label = dialog->findChild<QLabel *>();
    label->movie()->setParent(label); // is left to the client
    return dialog;
}

QWidget *loading()
{
    return loadingWith(QStringLiteral("Loading"));
}

/// At the first of the moving picture's frames.
QVector<State> statesOfLoading()
{
    QVector<State> states = QVector<State>{asMade(), rightToLeft()} + texts(&loadingWith);
    for (State &state : states) {
        state.enter = [enter = state.enter](QWidget *dialog) {
            enter(dialog);
            QMovie *movie = dialog->findChild<QLabel *>()->movie();
            movie->stop();
            movie->jumpToFrame(0);
        };
    }
    return states;
}

QWidget *windowToMask()
{
    auto *window = new QWidget;
    window->resize(160, 90);
    auto *label = new QLabel(kTitle, window);
    label->move(20, 20);
    return window;
}

QVector<State> statesOfMask()
{
    return {
        asMade(),
        {QStringLiteral("masked"),
         [](QWidget *window) { OrvMaskCtrl::getInstance(window)->showMasking(window); },
         {}},
        {QStringLiteral("released"),
         [](QWidget *window) {
             OrvMaskCtrl::getInstance(window)->showMasking(window);
             OrvMaskCtrl::getInstance(window)->hideMasking(window);
         },
         {}},
    };
}

} // namespace

QVector<Kind> dialogKinds()
{
    return {
        {"basemovedialogwithbackimage", &pictureDialog, statesOfPictureDialog(), true, {}, true},
        {"commonpopupdialog",
         [] { return commonDialogWith(kTitle); },
         statesOfCommonDialog(),
         false,
         {},
         true},
        {"popupdlgwithmask", &message, statesOfMessage(), true, {}, true},
        {"popupdlgwithmask-pages", &pages, statesOfPages(), true, {}, true},
        {"tipsdlgwithcheckbox", &tips, statesOfTips(), true, {}, true},
        {"orvupdatetipdlg", &updateDialog, statesOfUpdateDialog(), true, {}, true},
        {"popuploadingdlgwithmask", &loading, statesOfLoading(), true, {}, true},
        {"orvmaskctrl", &windowToMask, statesOfMask(), true, {}, true},
    };
}

} // namespace Pictures
