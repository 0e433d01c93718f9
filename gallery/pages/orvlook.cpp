#include "orvlook.h"
#include "colorbutton.h"
#include "customshadowcombox.h"
#include "customsliderbarwidget.h"
#include "gallerystyle.h"
#include "newhorizontalslider.h"
#include "pagebuilder.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

QString textOf(const QColor &color)
{
    return color.name(color.alpha() == 255 ? QColor::HexRgb : QColor::HexArgb).toUpper();
}

/// The look in force as a theme file.
bool writeTheme(const QString &file)
{
    QFile::remove(file);
    QSettings theme(file, QSettings::IniFormat);
    theme.setValue(QStringLiteral("ThemeName"), QStringLiteral("edited in the gallery"));
    const QStringList names = OrvLook::names();
    for (const QString &name : names)
        theme.setValue(name, textOf(OrvLook::color(name)));
    theme.sync();
    return theme.status() == QSettings::NoError;
}

/// Puts the look in force, with another value for one colour.
void setColor(const QString &name, const QColor &color)
{
    if (color == OrvLook::color(name))
        return;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("theme.ini"));
    if (!writeTheme(file))
        return;
    QSettings(file, QSettings::IniFormat).setValue(name, textOf(color));
    OrvLook::setTheme(file);
    report(QStringLiteral("%1 is %2").arg(name, textOf(color)));
}

void addSamples(PageBuilder &page)
{
    page.section("What follows", "These, all other pages, open lists and dialogs follow a change at once.");
    auto *combo = new CustomShadowCombox(page.widget());
    combo->setFixedSize(260, 48);
    combo->setAccessibleName(QStringLiteral("Camera"));
    followLook(combo, [combo] {
        combo->setHeaderStyle(gallerySheet(
            QStringLiteral("QWidget#%1{background:@paper;border:1px solid @outline;border-radius:8px;}")));
    });
    for (const char *row : {"Front camera", "Desk camera", "Screen"})
        combo->addItem(QString::fromUtf8(row), 16);
    combo->setCurrentIndex(0);
    page.example(combo, "CustomShadowCombox");
    auto *slider = new NewHorizontalSlider(QSize(206, 14), QSize(14, 14), false, page.widget());
    slider->setValue(60);
    page.example(slider, "NewHorizontalSlider");
    auto *steps = new CustomSliderBarWidget(page.widget());
    steps->setCount(4);
    steps->setCurrenIndex(2);
    page.example(steps, "CustomSliderBarWidget");
}

void addEditor(PageBuilder &page)
{
    page.section("Theme editor",
                 "Every colour of the library has a name. Choose one and give it another value.");
    QComboBox *names =
        page.choice("Colour", OrvLook::names(), OrvLook::names().indexOf(QStringLiteral("rowGround")));
    const auto current = [names] {
        return names->currentText();
    };
    ColorButton *value = page.color("Value", OrvLook::color(current()),
                                    [current](const QColor &color) { setColor(current(), color); });
    const auto showValue = [value, current] {
        value->setColor(OrvLook::color(current()));
    };
    QObject::connect(names, &QComboBox::currentTextChanged, value, showValue);
    followLook(value, showValue);

    QLineEdit *file =
        page.wideLineEdit("Theme file", QDir(QDir::tempPath()).filePath(QStringLiteral("theme.ini")));
    page.button("Save", [file] {
        report(QStringLiteral("%1 %2").arg(writeTheme(file->text()) ? QStringLiteral("wrote")
                                                                    : QStringLiteral("cannot write"),
                                           QDir::toNativeSeparators(file->text())));
    });
    page.button("setTheme()", [file] {
        const bool set = OrvLook::setTheme(file->text());
        report(QStringLiteral("setTheme() = %1").arg(set ? QStringLiteral("true") : QStringLiteral("false")));
    });
}

void build(PageBuilder &page)
{
    page.include("orvlook.h");

    page.section("Looks", "The light look and the dark one are the library's own.");
    QCheckBox *dark = page.checkBox("setDark()", OrvLook::isDark(), [](bool on) {
        if (on != OrvLook::isDark())
            OrvLook::setDark(on);
    });
    followLook(dark, [dark] { dark->setChecked(OrvLook::isDark()); });
    reportSignal(OrvLook::instance(), &OrvLook::changed, "changed");

    addSamples(page);
    addEditor(page);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Services, "OrvLook",
                     "The library's colours by name: a light look, a dark one, and your own.", build);

} // namespace
