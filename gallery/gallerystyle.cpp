#include "gallerystyle.h"
#include "orvlook.h"
#include "orvresloader.h"

#include <QtCore/QEvent>
#include <QtCore/QMap>
#include <QtCore/QSettings>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>

namespace {

QString themeFile()
{
    return OrvLook::isDark() ? QStringLiteral(":/gallery/theme-dark.ini")
                             : QStringLiteral(":/gallery/theme.ini");
}

bool settingPalette = false; // by ourselves, not by the desktop

QMap<QString, QString> &values()
{
    static QMap<QString, QString> values;
    return values;
}

void readTheme()
{
    values().clear();
    QSettings theme(themeFile(), QSettings::IniFormat);
    const QStringList keys = theme.allKeys();
    for (const QString &key : keys)
        values().insert(key.section(QLatin1Char('/'), -1), theme.value(key).toString());
}

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::WindowText).lightness() > palette.color(QPalette::Window).lightness();
}

// What no sheet styles: the desktop's own colours, unless they do not go with a dark look.
QPalette paletteOfTheLook()
{
    if (!OrvLook::isDark())
        return {};
    QPalette palette(galleryColor("text"), galleryColor("outline"), galleryColor("rim"),
                     galleryColor("shade"), galleryColor("outline"), galleryColor("ink"), galleryColor("ink"),
                     galleryColor("ground"), galleryColor("paper"));
    palette.setColor(QPalette::Button, galleryColor("plate"));
    palette.setColor(QPalette::Highlight, galleryColor("primary"));
    palette.setColor(QPalette::HighlightedText, galleryColor("paper"));
    palette.setColor(QPalette::Link, galleryColor("primary"));
    palette.setColor(QPalette::ToolTipBase, galleryColor("plate"));
    palette.setColor(QPalette::ToolTipText, galleryColor("ink"));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, galleryColor("faint"));
    return palette;
}

void styleApplication()
{
    readTheme();
    settingPalette = true;
    QApplication::setPalette(paletteOfTheLook());
    settingPalette = false;
    OrvResourceLoader loader;
    loader.loadThemeFile(themeFile());
    qApp->setStyleSheet(loader.loadQssFile(QStringLiteral(":/gallery/gallery.qss")));
}

/// Follows a desktop that turns dark or light.
class SystemLook : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (watched == qApp && event->type() == QEvent::ApplicationPaletteChange && !settingPalette)
            OrvLook::setDark(isDark(QApplication::palette()));
        return false;
    }
};

} // namespace

void setUpGalleryStyle()
{
    OrvLook::setDark(isDark(QApplication::palette()));
    followLook(OrvLook::instance(), styleApplication);
    qApp->installEventFilter(new SystemLook(qApp));
}

QColor galleryColor(const char *name)
{
    return {values().value(QString::fromLatin1(name))};
}

QString gallerySheet(QString sheet)
{
    for (auto value = values().cbegin(); value != values().cend(); ++value)
        sheet.replace(QLatin1Char('@') + value.key(), value.value());
    return sheet;
}

void followLook(QObject *context, const std::function<void()> &apply)
{
    apply();
    QObject::connect(OrvLook::instance(), &OrvLook::changed, context, apply);
}
