#include "popuploadingdlgwithmask.h"
#include "pagebuilder.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QMovie>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

constexpr int kMaximumExtent = 600;
constexpr int kMaximumSeconds = 30;
constexpr int kMsPerSecond = 1000;

struct Arguments
{
    QSize box{96, 120};
    QString text = QStringLiteral("Loading");
    int seconds = 3;
};

/// The dialog leaves its animation to the client when it goes.
void freeAnimationWith(PopupLoadingDlgWithMask *dialog)
{
    const auto labels = dialog->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->movie() != nullptr)
            QObject::connect(dialog, &QObject::destroyed, label->movie(), &QObject::deleteLater);
    }
}

PopupLoadingDlgWithMask *open(const Arguments &arguments, QWidget *mainWindow)
{
    auto *dialog = new PopupLoadingDlgWithMask(mainWindow->size(), arguments.box, arguments.text, mainWindow);
    freeAnimationWith(dialog);
    dialog->move(mainWindow->mapToGlobal(QPoint()));
    dialog->show();
    return dialog;
}

void build(PageBuilder &page)
{
    page.include("popuploadingdlgwithmask.h");
    const auto arguments = std::make_shared<Arguments>();
    QWidget *mainWindow = page.window();
    page.section(
        "Busy",
        "It is as large as what it covers and tints it faintly; the client closes it when the work is done, "
        "here after some seconds. It deletes itself then.");
    page.primaryButton("show()", [arguments, mainWindow] {
        PopupLoadingDlgWithMask *dialog = open(*arguments, mainWindow);
        QTimer::singleShot(arguments->seconds * kMsPerSecond, dialog, [dialog] {
            report("the work is done");
            dialog->close();
        });
    });
    page.shot("dialog-popuploadingdlgwithmask",
              [arguments, mainWindow] { return open(*arguments, mainWindow); });
    page.lineEdit("Text", arguments->text, [arguments](const QString &text) { arguments->text = text; });
    page.spinBox("Seconds", 1, kMaximumSeconds, arguments->seconds,
                 [arguments](int seconds) { arguments->seconds = seconds; });
    page.spinBox("Box width", 0, kMaximumExtent, arguments->box.width(),
                 [arguments](int width) { arguments->box.setWidth(width); });
    page.spinBox("Box height", 0, kMaximumExtent, arguments->box.height(),
                 [arguments](int height) { arguments->box.setHeight(height); });
}

const GalleryPage &page = GalleryPage::add(GalleryFamily::Dialogs, "PopupLoadingDlgWithMask",
                                           "An animation and one line of text over what has to wait.", build);

} // namespace
