#include "popupdlgwithmask.h"
#include "pagebuilder.h"
#include "samplewindow.h"

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
constexpr int kBorder = 16;
constexpr QSize kMessageSize(432, 232);
constexpr QSize kPagesSize(332, 425);

/// What both constructors take, as the controls have it, and the dialog that is open.
struct Arguments
{
    QString background = QStringLiteral(":/surface/resources/surface/gallery/message_bg.png");
    QSize size = kMessageSize;
    QMargins margins{kBorder, kBorder, kBorder, kBorder};
    QString title = QStringLiteral("Camera in use");
    QString content = QStringLiteral("Another application is using the camera. Close it first.");
    int pageCount = 3;
    bool unequal = false;
    QString note = QStringLiteral("Tip 1");
    QString confirm = QStringLiteral("Got it");
    bool useMask = true;
    bool deleteOnClose = false;
    bool dialogWindow = true;
    bool modal = true;
    bool forced = false;
    QPointer<PopupDlgWithMask> dialog;
};

using SharedArguments = std::shared_ptr<Arguments>;
using NewDialog = PopupDlgWithMask *(*)(const Arguments &arguments, QWidget *mainWindow);

PopupDlgWithMask *newMessage(const Arguments &arguments, QWidget *mainWindow)
{
    return new PopupDlgWithMask(arguments.background, arguments.size, arguments.margins.left(),
                                arguments.margins.top(), arguments.margins.right(),
                                arguments.margins.bottom(), arguments.title, arguments.content,
                                arguments.note, arguments.confirm, arguments.useMask, arguments.deleteOnClose,
                                arguments.dialogWindow, arguments.modal, mainWindow);
}

PopupDlgWithMask *newPages(const Arguments &arguments, QWidget *mainWindow)
{
    const QString texts[][2] = {
        {QStringLiteral("Choose a camera"), QStringLiteral("Every camera of the computer is in the list")},
        {QStringLiteral("Make it yours"), QStringLiteral("Brightness, contrast and filters, live")},
        {QStringLiteral("Go live"), QStringLiteral("One click, and the others can see you")},
    };
    constexpr int kTextCount = 3;
    QVector<QString> images;
    QVector<QString> titles;
    QVector<QString> contents;
    for (int page = 0; page < arguments.pageCount; ++page) {
        images.append(
            QStringLiteral(":/surface/resources/surface/gallery/page%1.png").arg(page % kTextCount + 1));
        titles.append(texts[page % kTextCount][0]);
        contents.append(texts[page % kTextCount][1]);
    }
    if (arguments.unequal)
        titles.append(QStringLiteral("A title without a page"));
    return new PopupDlgWithMask(arguments.background, arguments.size, arguments.margins.left(),
                                arguments.margins.top(), arguments.margins.right(),
                                arguments.margins.bottom(), arguments.title, images, titles, contents,
                                arguments.note, arguments.confirm, arguments.useMask, arguments.deleteOnClose,
                                arguments.dialogWindow, arguments.modal, mainWindow);
}

PopupDlgWithMask *prepared(const SharedArguments &arguments, NewDialog newDialog, QWidget *mainWindow)
{
    if (arguments->dialog != nullptr)
        arguments->dialog->deleteLater();
    PopupDlgWithMask *dialog = newDialog(*arguments, mainWindow);
    arguments->dialog = dialog;
    dialog->setWindowTitle(QStringLiteral("message"));
    reportSignal(dialog, &PopupDlgWithMask::closeMsgBox, "closeMsgBox");
    placeOver(dialog, mainWindow);
    if (arguments->forced)
        QTimer::singleShot(kForceDelayMs, dialog, &PopupDlgWithMask::forceToExit);
    return dialog;
}

void discard(const QPointer<PopupDlgWithMask> &dialog)
{
    if (dialog != nullptr)
        dialog->deleteLater();
}

void addButtons(PageBuilder &page, const SharedArguments &arguments, NewDialog newDialog, const char *name)
{
    QWidget *mainWindow = page.window();
    QPushButton *exec = page.primaryButton("exec()", [arguments, newDialog, mainWindow] {
        const QPointer<PopupDlgWithMask> dialog = prepared(arguments, newDialog, mainWindow);
        report(QStringLiteral("exec() returned %1").arg(dialog->exec()));
        discard(dialog);
    });
    exec->setObjectName(QStringLiteral("exec-%1").arg(QLatin1String(name)));
    page.button("execWithPos(window's corner)", [arguments, newDialog, mainWindow] {
        const QPointer<PopupDlgWithMask> dialog = prepared(arguments, newDialog, mainWindow);
        QPoint pos = mainWindow->pos();
        report(QStringLiteral("execWithPos() returned %1").arg(dialog->execWithPos(pos)));
        discard(dialog);
    });
    page.button("show(true)", [arguments, newDialog, mainWindow] {
        prepared(arguments, newDialog, mainWindow)->show(true);
    });
    page.shot(QStringLiteral("dialog-%1").arg(QLatin1String(name)), [arguments, newDialog, mainWindow] {
        PopupDlgWithMask *dialog = prepared(arguments, newDialog, mainWindow);
        dialog->show(true);
        return dialog;
    });
}

void addFrameControls(PageBuilder &page, const SharedArguments &arguments)
{
    page.spinBox("Width", 0, kMaximumExtent, arguments->size.width(),
                 [arguments](int width) { arguments->size.setWidth(width); });
    page.spinBox("Height", 0, kMaximumExtent, arguments->size.height(),
                 [arguments](int height) { arguments->size.setHeight(height); });
    const auto margin = [&page, &arguments](const char *label, void (QMargins::*setter)(int)) {
        page.spinBox(label, 0, kMaximumMargin, kBorder,
                     [arguments, setter](int width) { (arguments->margins.*setter)(width); });
    };
    margin("Left margin", &QMargins::setLeft);
    margin("Right margin", &QMargins::setRight);
    margin("Top margin", &QMargins::setTop);
    margin("Bottom margin", &QMargins::setBottom);
    page.checkBox("Mask", arguments->useMask, [arguments](bool on) { arguments->useMask = on; });
    page.checkBox("Modal", arguments->modal, [arguments](bool on) { arguments->modal = on; });
    page.checkBox("Delete on close", arguments->deleteOnClose,
                  [arguments](bool on) { arguments->deleteOnClose = on; });
    page.checkBox("Dialog window", arguments->dialogWindow,
                  [arguments](bool on) { arguments->dialogWindow = on; });
}

void addTitleAndTexts(PageBuilder &page, const SharedArguments &arguments)
{
    page.wideLineEdit("Background", arguments->background,
                      [arguments](const QString &file) { arguments->background = file; });
    page.lineEdit("Title", arguments->title, [arguments](const QString &title) {
        arguments->title = title;
        if (arguments->dialog != nullptr)
            arguments->dialog->setTitle(title);
    });
    page.lineEdit("Note", arguments->note, [arguments](const QString &note) { arguments->note = note; });
    page.lineEdit("Confirm", arguments->confirm, [arguments](const QString &text) {
        arguments->confirm = text;
        if (arguments->dialog != nullptr)
            arguments->dialog->setConfirmBtnText(text);
    });
    page.checkBox("Forced after 2 s", arguments->forced, [arguments](bool on) { arguments->forced = on; });
}

void addMessage(PageBuilder &page)
{
    const auto arguments = std::make_shared<Arguments>();
    page.section(
        "A message",
        "It stays where it is when it is pulled. The confirm button gives <b>0</b>, the close button "
        "<b>2</b>, whatever else hides it <b>-1</b>. Where neither mask nor modality is in the "
        "way, the open dialog follows the texts typed here.");
    addButtons(page, arguments, newMessage, "popupdlgwithmask");
    addTitleAndTexts(page, arguments);
    page.wideLineEdit("Content", arguments->content, [arguments](const QString &content) {
        arguments->content = content;
        if (arguments->dialog != nullptr)
            arguments->dialog->setContent(content);
    });
    addFrameControls(page, arguments);
}

void addPages(PageBuilder &page)
{
    const auto arguments = std::make_shared<Arguments>();
    arguments->background = QStringLiteral(":/surface/resources/surface/gallery/pages_bg.png");
    arguments->size = kPagesSize;
    arguments->title = QStringLiteral("What is new");
    arguments->note = QStringLiteral("1.0");
    page.section("Several pages",
                 "The second form turns its pages by itself, every three seconds while it is visible. "
                 "Vectors of unequal length give no page at all.");
    addButtons(page, arguments, newPages, "popupdlgwithmask-pages");
    page.spinBox("Pages", 0, kMaximumPages, arguments->pageCount,
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

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Dialogs, "PopupDlgWithMask",
    "A message, or a sequence of pages, on a picture of the client's, over the darkened main window.", build);

} // namespace
