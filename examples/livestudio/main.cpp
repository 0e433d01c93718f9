// A studio with a live picture: the kind of program that the library is made for. Each file shows one topic.
#include "mainwindow.h"
#include "studiostyle.h"

#include <orvqtcompat.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QLoggingCategory>
#include <QtCore/QSettings>
#include <QtGui/QFont>
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

    QCommandLineParser parser;
    const QCommandLineOption shot("shot", "Write a picture of the window, as it is at first, and exit.",
                                  "file");
    const QCommandLineOption dark("dark", "Start in the dark look.");
    parser.addHelpOption();
    parser.addOptions({shot, dark});
    parser.process(application);
    if (parser.isSet(shot)) {
        QApplication::setApplicationName("livestudio-shot"); // nothing of the user's in the picture
        QSettings().clear();
        QSettings().setValue("contrast", 14);
        QSettings().setValue("beauty", 45);
    }
    if (parser.isSet(dark))
        QSettings().setValue("dark", true);

    QFont font = QApplication::font();
    font.setFamilies({"Segoe UI", "Microsoft YaHei", "Noto Sans CJK SC", "Noto Sans", "DejaVu Sans"});
    font.setPixelSize(13);
    QApplication::setFont(font);
    StudioStyle::followLook();

    MainWindow window;
    if (parser.isSet(shot))
        return window.writeShot(parser.value(shot)) ? 0 : 1;
    window.start();
    return QApplication::exec();
}
