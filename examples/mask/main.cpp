// A message in the middle of the window, which is dark meanwhile.
#include <orvmaskctrl.h>
#include <popupdlgwithmask.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    OrvMaskCtrl::setFollowsWindow(true); // the mask keeps the size of the window

    QWidget window;
    auto *button = new QPushButton("Delete", &window);
    QObject::connect(button, &QPushButton::clicked, &window, [&] {
        if (PopupDlgWithMask::message(&window, "Delete the recording?", "This cannot be undone.", "Delete") ==
            PopupDlgWithMask::Confirmed)
            button->setText("Deleted");
    });

    QVBoxLayout layout(&window);
    layout.addWidget(button, 0, Qt::AlignCenter);
    window.resize(640, 480);
    window.show();
    return application.exec();
}
