#include "orvlook.h"
#include "orvresloader.h"

#include <QtCore/QSettings>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

namespace looks_snippets {

class MainWindow : public QWidget
{
public:
    void chooseLook();
    void loadTheme();
    void loadSheets();
    void loadNamedStyles();
    void nameStyles(QPushButton *button);
    void keepChoice(QSettings &settings, bool dark);
    void change(QWidget *dialog);

private:
    void followLook() {}
};

void MainWindow::chooseLook()
{
    //! [OrvLook]
    OrvLook::setDark(true); // all widgets follow, and all that are made later
    OrvLook::setTheme(QStringLiteral(":/client/corporate.ini")); // or a theme of the client's own
    connect(OrvLook::instance(), &OrvLook::changed, this, &MainWindow::followLook);
    //! [OrvLook]
}

void MainWindow::loadTheme()
{
    //! [OrvResourceLoader]
    OrvResourceLoader loader;
    loader.loadThemeFile(QStringLiteral("dark.ini"));        // true even when there is no such file
    loader.loadQssFile(QStringLiteral(":/client/base.qss")); // may say color: @accent or @{accent}
    qApp->setStyleSheet(loader.appendQssFile(QStringLiteral(":/qssFromResource/global_QScrollBar.qss")));
    //! [OrvResourceLoader]
}

void MainWindow::loadSheets()
{
    //! [sheets of a look]
    OrvResourceLoader loader;
    loader.loadThemeFile(OrvLook::isDark() ? QStringLiteral(":/orvcommonlib/themes/dark.ini")
                                           : QStringLiteral(":/orvcommonlib/themes/light.ini"));
    qApp->setStyleSheet(
        loader.loadQssFile(QStringLiteral(":/orvcommonlib/sheets/resourceGeneratedStyle_BrixelCam.qss")));
    //! [sheets of a look]
}

void MainWindow::loadNamedStyles()
{
    //! [named styles]
    OrvResourceLoader loader;
    qApp->setStyleSheet(
        loader.loadQssFile(QStringLiteral(":/qssFromResource/resourceGeneratedStyle_BrixelCam.qss")));
    //! [named styles]
}

void MainWindow::nameStyles(QPushButton *button)
{
    //! [a named style]
    button->setProperty("PropertyStyle_BrixelCam", QStringLiteral("QPushButton_NormalGreenBg"));
    //! [a named style]
}

void MainWindow::change(QWidget *dialog)
{
    //! [a sheet of one's own]
    dialog->setStyleSheet(
        QStringLiteral("QLabel { color: %1; }").arg(OrvLook::color(QStringLiteral("titleText")).name()));
    //! [a sheet of one's own]
}

void MainWindow::keepChoice(QSettings &settings, bool dark)
{
    //! [kept]
    OrvLook::setDark(dark);
    settings.setValue(QStringLiteral("look/dark"), dark);
    //! [kept]
}

} // namespace looks_snippets
