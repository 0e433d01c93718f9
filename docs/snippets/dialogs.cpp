#include "commonpopupdialog.h"
#include "orvcommonlib.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QDebug>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>

namespace dialogs_snippets {

class MainWindow : public QWidget
{
public:
    void tellThatTheCameraIsInUse(QWidget *mainWindow);
    void remove();
    void retry() {}
    void proceed() {}
    void proceed(QWidget *mainWindow, const QString &title, const QString &text);
    void showPages(QWidget *window);
    void openSettings(QWidget *window);
    void showTip(QWidget *window);
    void tellOfUpdate(QWidget *window);
    void wait(QWidget *window);
    void place(QWidget *window, const QString &title, const QString &text);
    void check();
    void keepTipsSwitchedOff(bool) {}
};

void MainWindow::remove()
{
    QWidget *window = this;
    //! [PopupDlgWithMask]
    const auto answer =
        PopupDlgWithMask::message(window, tr("Delete?"), tr("This cannot be undone."), tr("Delete"));
    if (answer == PopupDlgWithMask::Confirmed)
        proceed();
    //! [PopupDlgWithMask]
}

void MainWindow::tellThatTheCameraIsInUse(QWidget *mainWindow)
{
    //! [first message]
    OrvMaskCtrl::setFollowsWindow(true); // once, at the start: the mask keeps the size of the window

    if (PopupDlgWithMask::message(mainWindow, tr("Camera in use"),
                                  tr("Another application is using the camera."),
                                  tr("Got it")) == PopupDlgWithMask::Confirmed)
        retry();
    //! [first message]
}

void MainWindow::proceed(QWidget *mainWindow, const QString &title, const QString &text)
{
    //! [readme]
    if (PopupDlgWithMask::message(mainWindow, title, text) == PopupDlgWithMask::Confirmed)
        proceed();
    //! [readme]
}

void MainWindow::showPages(QWidget *window)
{
    //! [PopupMessage]
    PopupMessage news;
    news.size = QSize(332, 425);
    news.title = tr("What is new");
    news.pages = {{QStringLiteral(":/news/1.png"), tr("Two cameras"), tr("Show both at once.")},
                  {QStringLiteral(":/news/2.png"), tr("Hotkeys"), tr("Take a photo from anywhere.")}};
    PopupDlgWithMask dialog(news, window);
    dialog.moveOver(window);
    dialog.exec();
    //! [PopupMessage]
}

void MainWindow::openSettings(QWidget *window)
{
    //! [CommonPopupDialog]
    CommonPopupDialog dialog(window, tr("Settings"), QSize(420, 300), true, true, false, true, true);
    auto *body = dialog.findChild<QWidget *>(QStringLiteral("CommonPopupDialog"));
    body->layout()->addWidget(new QLabel(tr("Below the title, in the layout that is there already.")));
    dialog.moveOver(window);
    dialog.exec();
    //! [CommonPopupDialog]
}

void MainWindow::showTip(QWidget *window)
{
    //! [TipsDlgWithCheckbox]
    auto *tip = new TipsDlgWithCheckbox(window, QSize(420, 210), tr("Tip"), tr("Hold Space to talk."),
                                        tr("Do not show again"), tr("Got it"));
    connect(tip, &TipsDlgWithCheckbox::sig_checkboxStateChanged, this, &MainWindow::keepTipsSwitchedOff);
    tip->moveOver(window);
    tip->exec(); // and deletes itself
    //! [TipsDlgWithCheckbox]
}

void MainWindow::tellOfUpdate(QWidget *window)
{
    //! [OrvUpdateTipDlg]
    auto *update =
        new OrvUpdateTipDlg(QSize(436, 242), QString(), 18, 18, 18, 18, window, tr("Update"), tr("Later"),
                            /*compactButtons*/ true, /*showCancelButton*/ true);
    update->setTitle(tr("Version 2.4 is there"));
    update->setContentTips(tr("It starts twice as fast."));
    update->setNewVersionLink(
        QStringLiteral("<a href='https://example.org/2.4'>%1</a>").arg(tr("What is new")));
    update->moveOver(window);
    update->show(); // and deletes itself when it is closed
    //! [OrvUpdateTipDlg]
}

void MainWindow::wait(QWidget *window)
{
    //! [PopupLoadingDlgWithMask]
    auto *loading = new PopupLoadingDlgWithMask(window->frameSize(), QSize(96, 120), tr("Exporting"), window);
    loading->setWindowModality(Qt::ApplicationModal); // it blocks nothing by itself
    loading->moveOver(window);                        // nor lies over the window by itself
    loading->show();
    //! [PopupLoadingDlgWithMask]
    //! [loading ends]
    loading->close(); // deletes it
    //! [loading ends]
}

void MainWindow::place(QWidget *window, const QString &title, const QString &text)
{
    //! [place]
    OrvMaskCtrl::setFollowsWindow(true); // once, at the start

    PopupDlgWithMask::message(window, title, text); // in the middle of the window, over the mask

    auto *dialog =
        new TipsDlgWithCheckbox(window, QSize(420, 210), title, text, tr("Do not show again"), tr("Got it"));
    dialog->moveOver(window); // any other dialog: before it is shown
    dialog->exec();
    //! [place]
}

void MainWindow::check()
{
    //! [missing pictures]
    const QStringList missing = totalcommon::missingClientPictures();
    if (!missing.isEmpty())
        qWarning() << "no picture at" << missing;
    //! [missing pictures]
}

} // namespace dialogs_snippets
