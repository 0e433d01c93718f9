#include "basemovedialog.h"
#include "pagebuilder.h"
#include "samplewindow.h"

#include <QtCore/QPointer>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

constexpr QSize kDialogSize(420, 240);
constexpr QSize kMinimumSize(260, 160);
constexpr QRect kDragRect(0, 0, 210, 50);

/// What the controls say; the open dialog follows them, and the next one starts with them.
struct Settings
{
    bool canMove = true;
    bool translucent = true;
    bool asDialog = true;
    bool resizable = true;
    bool keptInWindow = false;
    bool leftHalfOnly = false;
    bool systemMoves = false;
    QPointer<BaseMoveDialog> dialog;
};

void keepInWindow(BaseMoveDialog *dialog, const QWidget *mainWindow, bool keep)
{
    QRect area(mainWindow->mapToGlobal(QPoint()), mainWindow->size());
    dialog->setRectOfCanMove(keep ? &area : nullptr);
}

BaseMoveDialog *openDialog(Settings &settings, QWidget *mainWindow)
{
    if (settings.dialog != nullptr)
        settings.dialog->close();
    auto *dialog = new BaseMoveDialog(mainWindow, settings.canMove, settings.translucent, settings.asDialog);
    if (!settings.asDialog)
        dialog->setWindowFlag(Qt::Window);
    settings.dialog = dialog;
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->resize(kDialogSize);
    dialog->setMinimumSize(kMinimumSize);
    fillSampleWindow(
        dialog, QStringLiteral("BaseMoveDialog"),
        QStringLiteral("Drag me by my upper part, resize me by my edges, and see the signals below. My "
                       "round corners are those of a style sheet."));
    dialog->setWidgetResizable(settings.resizable);
    dialog->setSystemMoveResize(settings.systemMoves);
    keepInWindow(dialog, mainWindow, settings.keptInWindow);
    if (settings.leftHalfOnly)
        dialog->setRectOfCanDrag(kDragRect);
    reportSignal(dialog, &BaseMoveDialog::sig_windowMoved, "sig_windowMoved");
    reportSignal(dialog, &BaseMoveDialog::sig_windowMovefinished, "sig_windowMovefinished");
    reportSignal(dialog, &BaseMoveDialog::sig_windowResizefinished, "sig_windowResizefinished");
    reportSignal(dialog, &BaseMoveDialog::sig_doubleclickCanDragRect, "sig_doubleclickCanDragRect");
    dialog->moveOver(mainWindow);
    dialog->show();
    return dialog;
}

void addConstructor(PageBuilder &page, const std::shared_ptr<Settings> &settings)
{
    QWidget *mainWindow = page.window();
    page.section("Construction");
    page.checkBox("Can move", true, [settings](bool on) { settings->canMove = on; });
    page.checkBox("Translucent", true, [settings](bool on) { settings->translucent = on; });
    page.checkBox("As dialog", true, [settings](bool on) { settings->asDialog = on; });
    page.primaryButton("Open it", [settings, mainWindow] { openDialog(*settings, mainWindow); });
    page.shot("dialog-basemovedialog", [settings, mainWindow] { return openDialog(*settings, mainWindow); });
}

void addSetters(PageBuilder &page, const std::shared_ptr<Settings> &settings)
{
    const QWidget *mainWindow = page.window();
    page.section("Setters",
                 "The open dialog follows at once. A limited drag area also makes a double click in it "
                 "count; it can be replaced but not removed, so it starts with the next dialog.");
    page.checkBox("setCanMove", true, [settings](bool on) {
        if (settings->dialog != nullptr)
            settings->dialog->setCanMove(on);
    });
    page.checkBox("Resizable", true, [settings](bool on) {
        settings->resizable = on;
        if (settings->dialog != nullptr)
            settings->dialog->setWidgetResizable(on);
    });
    page.checkBox("By the desktop", false, [settings](bool on) {
        settings->systemMoves = on;
        if (settings->dialog != nullptr)
            settings->dialog->setSystemMoveResize(on);
    });
    page.checkBox("Inside the gallery", false, [settings, mainWindow](bool on) {
        settings->keptInWindow = on;
        if (settings->dialog != nullptr)
            keepInWindow(settings->dialog, mainWindow, on);
    });
    page.checkBox("Left half only", false, [settings](bool on) { settings->leftHalfOnly = on; });
    page.button("isMoving()", [settings] {
        if (settings->dialog == nullptr)
            report("isMoving(): no dialog is open");
        else
            report(settings->dialog->isMoving() ? "isMoving(): true" : "isMoving(): false");
    });
}

void build(PageBuilder &page)
{
    page.include("basemovedialog.h");
    const auto settings = std::make_shared<Settings>();
    addConstructor(page, settings);
    addSetters(page, settings);
    page.section("Two layers",
                 "A <b>FramelessHelper</b> moves and resizes the window; the dialog's own handlers only "
                 "report. So a limit of the reported positions, as \"Inside the gallery\", changes "
                 "<b>sig_windowMoved</b> and not the drag itself. Border width and title height are on "
                 "the page of the helper: they hold for the whole process.");
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::WindowFrame, "BaseMoveDialog",
    "The base of every dialog: a frameless window that reports how the user drags and resizes it.", build);

} // namespace
