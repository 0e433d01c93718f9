#include "dialogs.h"

#include <orvupdatetipdlg.h>
#include <popupdlgwithmask.h>
#include <tipsdlgwithcheckbox.h>

static bool isConfirmed(const PopupMessage &message, QWidget *window)
{
    PopupDlgWithMask dialog(message, window);
    dialog.setKeyboardActions(true);
    dialog.moveOver(window);
    return dialog.exec() == PopupDlgWithMask::Confirmed;
}

bool Dialogs::ask(QWidget *window, const QString &title, const QString &text, const QString &button)
{
    PopupMessage message;
    message.title = title;
    message.content = text;
    message.confirmText = button;
    return isConfirmed(message, window);
}

void Dialogs::showTips(QWidget *window)
{
    const QString text =
        tr("Let the light come from the front, and look into the camera. The hotkey takes a snapshot "
           "while any program has the focus.");
    auto *dialog = new TipsDlgWithCheckbox(window, QSize(420, 210), tr("Before you go live"), text,
                                           tr("Do not show again"), tr("Got it"));
    dialog->setKeyboardActions(true);
    QObject::connect(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged, window,
                     [](bool enough) { QSettings().setValue("noTips", enough); });
    dialog->moveOver(window);
    dialog->exec(); // deletes itself
}

void Dialogs::showNews(QWidget *window)
{
    PopupMessage news;
    news.size = QSize(332, 425);
    news.title = tr("What is new");
    news.pages = {
        {":/studio/news1.svg", tr("Beauty that stays natural"), tr("One slider, and it is still you")},
        {":/studio/news2.svg", tr("A hotkey of your own"), tr("Snapshots from within any program")}};
    isConfirmed(news, window);
}

void Dialogs::showUpdate(QWidget *window)
{
    auto *dialog = new OrvUpdateTipDlg(QSize(436, 242), ":/surface/resources/surface/common/dialog_bg.png",
                                       17, 14, 19, 22, window, tr("Update"), tr("Later"), true, true);
    dialog->setTitle(tr("A new version is here"));
    dialog->setContentTips(tr("Version 2.1 brings steadier pictures and a faster start."));
    dialog->setNewVersionLink(tr("What is new"));
    dialog->setKeyboardActions(true);
    const auto update = [window] {
        ask(window, tr("Updates"), tr("A real client would fetch it now."));
    };
    QObject::connect(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked, window, update,
                     Qt::QueuedConnection); // when the dialog has gone
    dialog->moveOver(window);
    dialog->show();
}
