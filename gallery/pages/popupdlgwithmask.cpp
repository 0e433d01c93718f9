#include "popupdlgwithmask.h"
#include "pagebuilder.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

#include <memory>

namespace {

constexpr int kMaximumExtent = 1200;
constexpr int kMaximumMargin = 80;
constexpr int kMaximumPages = 6;
constexpr int kForceDelayMs = 2000;
constexpr QSize kPagesSize(332, 425);

/// What makes the dialog, as the controls have it, and the dialog that is open.
struct Arguments
{
    PopupMessage message;
    int pageCount = 0;
    bool unequal = false;
    bool forced = false;
    bool keys = true;
    QPointer<PopupDlgWithMask> dialog;
};

using SharedArguments = std::shared_ptr<Arguments>;

QVector<PopupPage> pages(int count)
{
    const PopupPage pages[] = {
        {QStringLiteral(":/surface/resources/surface/gallery/page1.png"), QStringLiteral("Choose a camera"),
         QStringLiteral("Every camera of the computer is in the list")},
        {QStringLiteral(":/surface/resources/surface/gallery/page2.png"), QStringLiteral("Make it yours"),
         QStringLiteral("Brightness, contrast and filters, live")},
        {QStringLiteral(":/surface/resources/surface/gallery/page3.png"), QStringLiteral("Go live"),
         QStringLiteral("One click, and the others can see you")},
    };
    QVector<PopupPage> result;
    for (int page = 0; page < count; ++page)
        result.append(pages[page % 3]);
    return result;
}

/// Only lists can be of unequal length.
PopupDlgWithMask *newUnequalPages(const PopupMessage &message, QWidget *mainWindow)
{
    QVector<QString> images{QString()};
    QVector<QString> titles{QStringLiteral("One title"), QStringLiteral("A title without a page")};
    QVector<QString> contents{QStringLiteral("One text")};
    return new PopupDlgWithMask(message.backgroundImage, message.size, message.border.left(),
                                message.border.top(), message.border.right(), message.border.bottom(),
                                message.title, images, titles, contents, message.noteText,
                                message.confirmText, message.useMask, message.deleteOnClose,
                                message.dialogWindow, message.modal, mainWindow);
}

PopupDlgWithMask *newDialog(const Arguments &arguments, QWidget *mainWindow)
{
    if (arguments.unequal)
        return newUnequalPages(arguments.message, mainWindow);
    PopupMessage message = arguments.message;
    message.pages = pages(arguments.pageCount);
    return new PopupDlgWithMask(message, mainWindow);
}

PopupDlgWithMask *prepared(const SharedArguments &arguments, QWidget *mainWindow)
{
    if (arguments->dialog != nullptr)
        arguments->dialog->deleteLater();
    PopupDlgWithMask *dialog = newDialog(*arguments, mainWindow);
    arguments->dialog = dialog;
    dialog->setKeyboardActions(arguments->keys);
    dialog->setWindowTitle(QStringLiteral("message"));
    reportSignal(dialog, &PopupDlgWithMask::closeMsgBox, "closeMsgBox");
    dialog->moveOver(mainWindow);
    if (arguments->forced)
        QTimer::singleShot(kForceDelayMs, dialog, &PopupDlgWithMask::forceToExit);
    return dialog;
}

void discard(const QPointer<PopupDlgWithMask> &dialog)
{
    if (dialog != nullptr)
        dialog->deleteLater();
}

void addButtons(PageBuilder &page, const SharedArguments &arguments, const char *name)
{
    QWidget *mainWindow = page.window();
    QPushButton *exec = page.primaryButton("exec()", [arguments, mainWindow] {
        const QPointer<PopupDlgWithMask> dialog = prepared(arguments, mainWindow);
        report(QStringLiteral("exec() returned %1").arg(dialog->exec()));
        discard(dialog);
    });
    exec->setObjectName(QStringLiteral("exec-%1").arg(QLatin1String(name)));
    page.button("execWithPos(window's corner)", [arguments, mainWindow] {
        const QPointer<PopupDlgWithMask> dialog = prepared(arguments, mainWindow);
        QPoint pos = mainWindow->pos();
        report(QStringLiteral("execWithPos() returned %1").arg(dialog->execWithPos(pos)));
        discard(dialog);
    });
    page.button("show(true)", [arguments, mainWindow] { prepared(arguments, mainWindow)->show(true); });
    page.shot(QStringLiteral("dialog-%1").arg(QLatin1String(name)), [arguments, mainWindow] {
        PopupDlgWithMask *dialog = prepared(arguments, mainWindow);
        dialog->show(true);
        return dialog;
    });
}

void addFrameControls(PageBuilder &page, const SharedArguments &arguments)
{
    PopupMessage &message = arguments->message;
    page.spinBox("Width", 0, kMaximumExtent, message.size.width(),
                 [arguments](int width) { arguments->message.size.setWidth(width); });
    page.spinBox("Height", 0, kMaximumExtent, message.size.height(),
                 [arguments](int height) { arguments->message.size.setHeight(height); });
    const auto margin = [&page, &arguments](const char *label, int initial, void (QMargins::*setter)(int)) {
        page.spinBox(label, 0, kMaximumMargin, initial,
                     [arguments, setter](int width) { (arguments->message.border.*setter)(width); });
    };
    margin("Left margin", message.border.left(), &QMargins::setLeft);
    margin("Right margin", message.border.right(), &QMargins::setRight);
    margin("Top margin", message.border.top(), &QMargins::setTop);
    margin("Bottom margin", message.border.bottom(), &QMargins::setBottom);
    const auto flag = [&page, &arguments](const char *label, bool PopupMessage::*member) {
        page.checkBox(label, arguments->message.*member,
                      [arguments, member](bool on) { arguments->message.*member = on; });
    };
    flag("Mask", &PopupMessage::useMask);
    flag("Modal", &PopupMessage::modal);
    flag("Delete on close", &PopupMessage::deleteOnClose);
    flag("Dialog window", &PopupMessage::dialogWindow);
}

void addTitleAndTexts(PageBuilder &page, const SharedArguments &arguments)
{
    PopupMessage &message = arguments->message;
    page.wideLineEdit("Background", message.backgroundImage,
                      [arguments](const QString &file) { arguments->message.backgroundImage = file; });
    page.lineEdit("Title", message.title, [arguments](const QString &title) {
        arguments->message.title = title;
        if (arguments->dialog != nullptr)
            arguments->dialog->setTitle(title);
    });
    page.lineEdit("Note", message.noteText,
                  [arguments](const QString &note) { arguments->message.noteText = note; });
    page.lineEdit("Confirm", message.confirmText, [arguments](const QString &text) {
        arguments->message.confirmText = text;
        if (arguments->dialog != nullptr)
            arguments->dialog->setConfirmBtnText(text);
    });
    page.checkBox("Forced after 2 s", arguments->forced, [arguments](bool on) { arguments->forced = on; });
    page.checkBox("Keyboard actions", arguments->keys, [arguments](bool on) { arguments->keys = on; });
}

void addMessage(PageBuilder &page)
{
    const auto arguments = std::make_shared<Arguments>();
    PopupMessage &message = arguments->message;
    message.title = QStringLiteral("Camera in use");
    message.content = QStringLiteral("Another application is using the camera. Close it first.");
    message.noteText = QStringLiteral("Tip 1");
    message.confirmText = QStringLiteral("Got it");
    page.section(
        "A message",
        "It stays where it is when it is pulled. The confirm button gives <b>0</b>, the close button "
        "<b>2</b>, whatever else hides it <b>-1</b>. Where neither mask nor modality is in the "
        "way, the open dialog follows the texts typed here. Without a background of the client's it has the "
        "library's card.");
    addButtons(page, arguments, "popupdlgwithmask");
    QWidget *mainWindow = page.window();
    page.button("message()", [arguments, mainWindow] {
        report(QStringLiteral("message() returned %1")
                   .arg(PopupDlgWithMask::message(mainWindow, arguments->message.title,
                                                  arguments->message.content)));
    });
    addTitleAndTexts(page, arguments);
    page.wideLineEdit("Content", message.content, [arguments](const QString &content) {
        arguments->message.content = content;
        if (arguments->dialog != nullptr)
            arguments->dialog->setContent(content);
    });
    addFrameControls(page, arguments);
}

void addPages(PageBuilder &page)
{
    const auto arguments = std::make_shared<Arguments>();
    PopupMessage &message = arguments->message;
    message.size = kPagesSize;
    message.title = QStringLiteral("What is new");
    message.noteText = QStringLiteral("1.0");
    message.confirmText = QStringLiteral("Got it");
    arguments->pageCount = 3;
    page.section("Several pages",
                 "The second form turns its pages by itself, every three seconds while it is visible. "
                 "Vectors of unequal length give no page at all.");
    addButtons(page, arguments, "popupdlgwithmask-pages");
    page.spinBox("Pages", 1, kMaximumPages, arguments->pageCount,
                 [arguments](int count) { arguments->pageCount = count; });
    page.checkBox("A title too many", false, [arguments](bool on) { arguments->unequal = on; });
    addTitleAndTexts(page, arguments);
    addFrameControls(page, arguments);
}

void build(PageBuilder &page)
{
    page.include("popupdlgwithmask.h");
    addMessage(page);
    addPages(page);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Dialogs, "PopupDlgWithMask",
                     "A message, or a sequence of pages, over the darkened main window.", build);

} // namespace
