// Every ready-made dialog of the library over the middle of its window. The client has no pictures but those that its pages
// show, and places nothing by itself.
#include <orvmaskctrl.h>
#include <orvupdatetipdlg.h>
#include <popupdlgwithmask.h>
#include <popuploadingdlgwithmask.h>
#include <tipsdlgwithcheckbox.h>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

static void showMessage(QWidget *window)
{
    PopupDlgWithMask::message(window, "Camera in use", "Another application has it. Close it first.");
}

static void showPages(QWidget *window)
{
    PopupMessage message;
    message.size = QSize(332, 425);
    message.title = "What is new";
    message.pages = {{":/messages/page1.png", "Steadier pictures", "Also where there is little light"},
                     {":/messages/page2.png", "A faster start", "The camera is there before you are"}};
    PopupDlgWithMask dialog(message, window);
    dialog.moveOver(window);
    dialog.exec();
}

// Deletes itself, as the next two do.
static void showTips(QWidget *window)
{
    auto *dialog = new TipsDlgWithCheckbox(window, QSize(420, 210), "Before you start",
                                           "Let the light come from the front.", "Do not show again", "OK");
    dialog->moveOver(window);
    dialog->exec();
}

static void showUpdate(QWidget *window)
{
    auto *dialog = new OrvUpdateTipDlg(QSize(436, 242), ":/surface/resources/surface/common/dialog_bg.png",
                                       17, 14, 19, 22, window, "Update", "Later", true, true);
    dialog->setTitle("A new version is here");
    dialog->setContentTips("Version 2.0 brings steadier pictures and a faster start.");
    dialog->setNewVersionLink("What is new");
    dialog->moveOver(window);
    dialog->show();
}

static void showLoading(QWidget *window)
{
    auto *dialog = new PopupLoadingDlgWithMask(window->frameSize(), QSize(96, 120), "Loading", window);
    dialog->moveOver(window);
    dialog->show();
    QTimer::singleShot(3000, dialog, &QWidget::close);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    OrvMaskCtrl::setFollowsWindow(true);
    QWidget window;
    QVBoxLayout layout(&window);
    for (auto [text, show] :
         {std::pair("message", showMessage), std::pair("pages", showPages), std::pair("tips", showTips),
          std::pair("update", showUpdate), std::pair("loading", showLoading)}) {
        auto *button = new QPushButton(text);
        layout.addWidget(button);
        QObject::connect(button, &QPushButton::clicked, &window, [show = show, &window] { show(&window); });
    }
    window.resize(800, 600);
    window.show();
    return application.exec();
}
