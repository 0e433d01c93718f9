// A studio with a live picture: the kind of program that the library is made for. Each file shows one topic, this one how
// such a program starts and what it wears.
#include "mainwindow.h"
#include "preview.h"

#include <orvlook.h>
#include <orvqtcompat.h>
#include <orvresloader.h>

#include <QtWidgets>

// The studio's own style sheet beside the library's look, now and after each switch of it.
static void followLook()
{
    const QString look = OrvLook::isDark() ? "dark" : "light";
    OrvResourceLoader loader;
    loader.loadThemeFile(":/orvcommonlib/themes/" + look + ".ini"); // what the library's scroll bars refer to
    loader.loadThemeFile(":/studio/" + look + ".ini");
    loader.loadQssFile(":/orvcommonlib/sheets/global_QScrollBar.qss");
    qApp->setStyleSheet(loader.appendQssFile(":/studio/studio.qss"));
    QSettings().setValue("dark", OrvLook::isDark());
}

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
    OrvLook::setDark(QSettings().value("dark").toBool());
    QObject::connect(OrvLook::instance(), &OrvLook::changed, qApp, followLook);
    followLook();

    MainWindow window;
    window.show();
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) != "--shot")
        return QApplication::exec();
    window.findChild<Preview *>()->freezeAt(42);
    QApplication::processEvents();
    return window.grab().save(arguments.value(2)) ? 0 : 1;
}
