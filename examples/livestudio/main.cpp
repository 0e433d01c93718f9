// A studio with a live picture: the kind of program that the library is made for. Each file shows one topic.
#include "mainwindow.h"
#include "studiostyle.h"

#include <orvqtcompat.h>

#include <QtCore/QLoggingCategory>
#include <QtGui/QIcon>
#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    orvqt::enableHighDpi();
    QApplication application(argc, argv);
    QApplication::setApplicationName("livestudio");
    QApplication::setOrganizationName("livestudio");
    QApplication::setApplicationDisplayName(MainWindow::tr("Live Studio"));
    QApplication::setWindowIcon(QIcon(":/studio/logo.svg"));
    QLoggingCategory::setFilterRules(
        "default.debug=false\ndefault.info=false"); // what the library tells support
    QFont font;
    font.setFamilies({"Segoe UI", "Microsoft YaHei", "Noto Sans CJK SC", "Noto Sans", "DejaVu Sans"});
    font.setPixelSize(13);
    QApplication::setFont(font);
    StudioStyle::followLook();

    MainWindow window;
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == "--shot")
        return window.grabAt(42).save(arguments.value(2)) ? 0 : 1;
    return QApplication::exec();
}
