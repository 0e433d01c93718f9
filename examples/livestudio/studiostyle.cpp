#include "studiostyle.h"

#include <orvlook.h>
#include <orvresloader.h>

#include <QtCore/QSettings>
#include <QtCore/QVariant>
#include <QtWidgets/QApplication>
#include <QtWidgets/QPushButton>

static void apply()
{
    const QString look = OrvLook::isDark() ? "dark" : "light";
    OrvResourceLoader loader;
    loader.loadThemeFile(":/orvcommonlib/themes/" + look + ".ini"); // what the library's scroll bars refer to
    loader.loadThemeFile(":/studio/" + look + ".ini");
    loader.loadQssFile(":/orvcommonlib/sheets/global_QScrollBar.qss");
    qApp->setStyleSheet(loader.appendQssFile(":/studio/studio.qss"));
    QSettings().setValue("dark", OrvLook::isDark());
}

void StudioStyle::followLook()
{
    OrvLook::setDark(QSettings().value("dark").toBool());
    QObject::connect(OrvLook::instance(), &OrvLook::changed, qApp, apply);
    apply();
}

QPushButton *StudioStyle::newButton(const char *kind, const QString &text, QWidget *parent)
{
    auto *button = new QPushButton(text, parent);
    button->setProperty("kind", kind);
    return button;
}
