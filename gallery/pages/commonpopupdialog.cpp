#include "commonpopupdialog.h"
#include "pagebuilder.h"

#include <QtCore/QPointer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr int kMaximumExtent = 1200;
constexpr int kBodyMargin = 25;

/// The constructor's arguments as the controls have them, and the dialog that is open.
struct Arguments
{
    QString title = QStringLiteral("Camera settings");
    QSize size{420, 240};
    bool showCloseButton = true;
    bool movable = true;
    bool transparentBody = false;
    bool modal = true;
    bool translucentBackground = true;
    bool keys = true;
    QPointer<CommonPopupDialog> dialog;
};

/// The body is the client's to fill: it stands below the title line, in the layout of the body widget.
void fillBody(const CommonPopupDialog *dialog)
{
    auto *body = dialog->findChild<QWidget *>(QStringLiteral("CommonPopupDialog"));
    auto *text =
        new QLabel(QStringLiteral("The body is empty: the client fills it with whatever it needs."), body);
    setGalleryRole(text, "note");
    text->setWordWrap(true);
    text->setContentsMargins(kBodyMargin, kBodyMargin / 2, kBodyMargin, 0);
    body->layout()->addWidget(text);
}

CommonPopupDialog *newDialog(Arguments &arguments, QWidget *mainWindow)
{
    if (arguments.dialog != nullptr)
        arguments.dialog->deleteLater();
    auto *dialog = new CommonPopupDialog(
        mainWindow, arguments.title, arguments.size, arguments.showCloseButton, arguments.movable,
        arguments.transparentBody, arguments.modal, arguments.translucentBackground);
    arguments.dialog = dialog;
    dialog->setKeyboardActions(arguments.keys);
    fillBody(dialog);
    reportSignal(dialog, &CommonPopupDialog::sigClosed, "sigClosed");
    dialog->moveOver(mainWindow);
    return dialog;
}

void exec(Arguments &arguments, QWidget *mainWindow)
{
    const QPointer<CommonPopupDialog> dialog = newDialog(arguments, mainWindow);
    report(QStringLiteral("exec() returned %1").arg(dialog->exec()));
    if (dialog != nullptr)
        dialog->deleteLater();
}

void addArguments(PageBuilder &page, const std::shared_ptr<Arguments> &arguments)
{
    page.section("Construction");
    QWidget *mainWindow = page.window();
    page.primaryButton("exec()", [arguments, mainWindow] { exec(*arguments, mainWindow); });
    page.button("show()", [arguments, mainWindow] { newDialog(*arguments, mainWindow)->show(); });
    page.shot("dialog-commonpopupdialog", [arguments, mainWindow] {
        CommonPopupDialog *dialog = newDialog(*arguments, mainWindow);
        dialog->show();
        return dialog;
    });
    page.wideLineEdit("Title", arguments->title,
                      [arguments](const QString &title) { arguments->title = title; });
    page.spinBox("Width", 0, kMaximumExtent, arguments->size.width(),
                 [arguments](int width) { arguments->size.setWidth(width); });
    page.spinBox("Height", 0, kMaximumExtent, arguments->size.height(),
                 [arguments](int height) { arguments->size.setHeight(height); });
    page.checkBox("Close button", true, [arguments](bool on) { arguments->showCloseButton = on; });
    page.checkBox("Movable", true, [arguments](bool on) { arguments->movable = on; });
    page.checkBox("Transparent body", false, [arguments](bool on) { arguments->transparentBody = on; });
    page.checkBox("Translucent", true, [arguments](bool on) { arguments->translucentBackground = on; });
    page.checkBox("Modal", true, [arguments](bool on) { arguments->modal = on; });
    page.checkBox("Keyboard actions", true, [arguments](bool on) { arguments->keys = on; });
}

void addSetters(PageBuilder &page, const std::shared_ptr<Arguments> &arguments)
{
    page.section("While it is open",
                 "For a dialog that is not modal: a modal one keeps the user away from this page.");
    QLineEdit *title = page.wideLineEdit("New title", "A new title");
    const auto addButton = [&page, arguments](const char *text,
                                              std::function<void(CommonPopupDialog *)> clicked) {
        page.button(text, [arguments, clicked] {
            if (arguments->dialog == nullptr || !arguments->dialog->isVisible())
                report("no dialog is open");
            else
                clicked(arguments->dialog);
        });
    };
    addButton("setTitle", [title](CommonPopupDialog *dialog) { dialog->setTitle(title->text()); });
    addButton("setModal(true)", [](CommonPopupDialog *dialog) { dialog->setModal(true); });
    addButton("exitEventLoop()", [](CommonPopupDialog *dialog) { dialog->exitEventLoop(); });
    addButton("hide()", [](CommonPopupDialog *dialog) { dialog->hide(); });
}

void build(PageBuilder &page)
{
    page.include("commonpopupdialog.h");
    const auto arguments = std::make_shared<Arguments>();
    addArguments(page, arguments);
    addSetters(page, arguments);
    page.section(
        "Results",
        "The close button gives <b>2</b>, whatever else hides the dialog <b>-1</b>. The result is not "
        "reset: of a dialog that was closed once, every later exec() returns 2.");
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Dialogs, "CommonPopupDialog",
    "A plain titled popup with an empty body for the client to fill; its looks come from the client's theme.",
    build);

} // namespace
