#include "basemovedialog.h"
#include "basemovedialogwithbackimage.h"
#include "framelesshelper.h"
#include "orvmaskctrl.h"

#include <QtWidgets/QColorDialog>

namespace frames_snippets {

class MainWindow : public QWidget
{
public:
    void showFrameless();
    void showDialog(QWidget *window);
    void showCard(QWidget *window);
    void darken(QWidget *window);
    void resizeWithChildren(QWidget *window, FramelessHelper *helper);
};

void MainWindow::showFrameless()
{
    //! [FramelessHelper]
    auto *window = new QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint);
    auto *helper = new FramelessHelper(window);
    helper->setTitleHeight(38); // for every helper of the process
    helper->activateOn(window);
    window->show();
    //! [FramelessHelper]
}

void MainWindow::showDialog(QWidget *window)
{
    //! [BaseMoveDialog]
    auto *dialog = new BaseMoveDialog(window, /*canMove*/ true, /*translucent*/ false, /*asDialog*/ true);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->resize(320, 200);
    dialog->moveOver(window); // nothing places a dialog by itself
    dialog->show();
    //! [BaseMoveDialog]
}

void MainWindow::showCard(QWidget *window)
{
    //! [BaseMoveDialogWithBackImage]
    const QString ground = QStringLiteral(":/surface/resources/surface/common/dialog_bg.png");
    auto *dialog =
        new BaseMoveDialogWithBackImage(ground, 17, 14, 19, 22, /*canMove*/ true, /*asDialog*/ true, window);
    dialog->resize(420, 260); // shadow included
    dialog->moveOver(window);
    dialog->show();
    //! [BaseMoveDialogWithBackImage]
}

void MainWindow::darken(QWidget *window)
{
    //! [OrvMaskCtrl]
    QColorDialog dialog(window);
    OrvMaskCtrl::setFollowsWindow(true); // once, at the start
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(window);
    mask->showMasking(&dialog);
    dialog.exec();
    mask->hideMasking(&dialog);
    //! [OrvMaskCtrl]
}

void MainWindow::resizeWithChildren(QWidget *window, FramelessHelper *helper)
{
    //! [border for the helper]
    const int border = int(helper->borderWidth());
    window->setContentsMargins(border, border, border, border); // children leave the edges to the window
    //! [border for the helper]
    //! [by the desktop]
    helper->setSystemMoveResize(true); // snapping and tiling as the desktop has them
    //! [by the desktop]
}

} // namespace frames_snippets
