#include "orvupdatetipdlg.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtWidgets/QPushButton>

#include <memory>

namespace {

constexpr int kMaximumExtent = 1200;
constexpr int kMaximumBorder = 80;

/// What the constructor and the setters take, as the controls have it.
struct Arguments
{
    QString background = QStringLiteral(":/surface/resources/surface/common/dialog_bg.png");
    QMargins borders{17, 14, 19, 22};
    QSize size{436, 242};
    QString confirm = QStringLiteral("Update");
    QString cancel = QStringLiteral("Later");
    bool compact = true;
    bool showCancel = true;
    bool keys = true;
    QString title = QStringLiteral("A new version is here");
    QString content = QStringLiteral("Version 2.0 brings steadier pictures and a faster start.");
    QString link =
        QStringLiteral("<a href=\"https://www.example.com/\" style=\"color:@primary\">What is new</a>");
};

OrvUpdateTipDlg *open(const Arguments &arguments, QWidget *mainWindow)
{
    auto *dialog = new OrvUpdateTipDlg(arguments.size, arguments.background, arguments.borders.left(),
                                       arguments.borders.top(), arguments.borders.right(),
                                       arguments.borders.bottom(), mainWindow, arguments.confirm,
                                       arguments.cancel, arguments.compact, arguments.showCancel);
    dialog->setKeyboardActions(arguments.keys);
    dialog->setTitle(arguments.title);
    dialog->setContentTips(arguments.content);
    dialog->setNewVersionLink(gallerySheet(arguments.link));
    reportSignal(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked, "sig_confirmBtnClicked");
    reportSignal(dialog, &OrvUpdateTipDlg::sig_cancelBtnClicked, "sig_cancelBtnClicked");
    reportSignal(dialog, &OrvUpdateTipDlg::sig_closeMsgBox, "sig_closeMsgBox");
    dialog->moveOver(mainWindow);
    dialog->show();
    return dialog;
}

void addTexts(PageBuilder &page, const std::shared_ptr<Arguments> &arguments)
{
    const auto line = [&page, arguments](const char *label, QString Arguments::*text) {
        page.wideLineEdit(label, (*arguments).*text,
                          [arguments, text](const QString &value) { (*arguments).*text = value; });
    };
    line("Title", &Arguments::title);
    line("Content", &Arguments::content);
    line("Link", &Arguments::link);
    line("Background", &Arguments::background);
    page.lineEdit("Confirm", arguments->confirm,
                  [arguments](const QString &text) { arguments->confirm = text; });
    page.lineEdit("Cancel", arguments->cancel,
                  [arguments](const QString &text) { arguments->cancel = text; });
}

void addFrame(PageBuilder &page, const std::shared_ptr<Arguments> &arguments)
{
    page.checkBox("Compact buttons", arguments->compact, [arguments](bool on) { arguments->compact = on; });
    page.checkBox("Cancel button", arguments->showCancel,
                  [arguments](bool on) { arguments->showCancel = on; });
    page.checkBox("Keyboard actions", arguments->keys, [arguments](bool on) { arguments->keys = on; });
    page.spinBox("Width", 0, kMaximumExtent, arguments->size.width(),
                 [arguments](int width) { arguments->size.setWidth(width); });
    page.spinBox("Height", 0, kMaximumExtent, arguments->size.height(),
                 [arguments](int height) { arguments->size.setHeight(height); });
    const auto border = [&page, arguments](const char *label, int width, void (QMargins::*setter)(int)) {
        page.spinBox(label, 0, kMaximumBorder, width,
                     [arguments, setter](int value) { (arguments->borders.*setter)(value); });
    };
    border("Left border", arguments->borders.left(), &QMargins::setLeft);
    border("Right border", arguments->borders.right(), &QMargins::setRight);
    border("Top border", arguments->borders.top(), &QMargins::setTop);
    border("Bottom border", arguments->borders.bottom(), &QMargins::setBottom);
}

void build(PageBuilder &page)
{
    page.include("orvupdatetipdlg.h");
    const auto arguments = std::make_shared<Arguments>();
    QWidget *mainWindow = page.window();
    page.section("Construction and setters",
                 "Each button emits its signal and closes the dialog, which deletes itself. The "
                 "link opens in the browser.");
    page.primaryButton("show()", [arguments, mainWindow] { open(*arguments, mainWindow); });
    page.shot("dialog-orvupdatetipdlg", [arguments, mainWindow] { return open(*arguments, mainWindow); });
    addTexts(page, arguments);
    addFrame(page, arguments);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Dialogs, "OrvUpdateTipDlg",
    "Tells the user that there is a new version, and leaves it to the client what follows.", build);

} // namespace
