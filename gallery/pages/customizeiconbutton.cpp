#include "customizeiconbutton.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

namespace {

QString icon(const char *name, const char *state)
{
    return QStringLiteral(":/surface/resources/surface/gallery/icon_%1%2.png")
        .arg(QString::fromUtf8(name), QString::fromUtf8(state));
}

void wearSheets(CustomizeIconButton *button)
{
    const auto label = [](const char *color) {
        return QStringLiteral("QLabel{background:transparent;font-size:14px;color:%1;}")
            .arg(galleryColor(color).name());
    };
    button->setTextStyle(label("ink"), label("primary"), label("pressed"), label("off"));
    const auto box = [](const char *border, const char *ground) {
        return QStringLiteral("QWidget#iconButton{border:1px solid %1;border-radius:8px;background:%2;}")
            .arg(galleryColor(border).name(), galleryColor(ground).name());
    };
    button->setOveralStyle(box("hairline", "paper"), box("glow", "ground"), box("glow", "hairline"),
                           box("hairline", "ground"));
}

CustomizeIconButton *newButton(QWidget *parent, const char *name, const QString &text, bool isCenter)
{
    auto *button = new CustomizeIconButton(QSize(20, 20), text, 6, parent, isCenter);
    button->setObjectName(QStringLiteral("iconButton"));
    button->setIconImage(icon(name, ""), icon(name, "_hover"), icon(name, "_pressed"),
                         icon(name, "_disabled"));
    followLook(button, [button] { wearSheets(button); });
    button->setFixedSize(150, 40);
    reportSignal(button, &CustomizeIconButton::clicked, "clicked");
    return button;
}

void build(PageBuilder &page)
{
    page.include("customizeiconbutton.h");

    page.section("States", "Twelve sheets: for the button, its icon and its text in four states each.");
    auto *button = newButton(page.widget(), "add", QStringLiteral("Add a camera"), true);
    page.example(button, "centred: point at it and press it");
    page.example(newButton(page.widget(), "share", QStringLiteral("Share"), false), "not centred");
    CustomizeIconButton *disabled = newButton(page.widget(), "refresh", QStringLiteral("Refresh"), true);
    disabled->setEnabled(false);
    page.example(disabled, "not enabled");

    page.section("Setters", "setEnabled() is this class's own flag: the widget itself stays enabled.");
    page.checkBox("setEnabled", true, [button](bool on) { button->setEnabled(on); });
    page.choice("setIconImage", {QStringLiteral("add"), QStringLiteral("share"), QStringLiteral("refresh")},
                0, [button](int index) {
                    static const char *const names[] = {"add", "share", "refresh"};
                    const char *name = names[index];
                    button->setIconImage(icon(name, ""), icon(name, "_hover"), icon(name, "_pressed"),
                                         icon(name, "_disabled"));
                });
    page.color("setTextStyle: normal colour", QColor(0x1F, 0x1F, 0x22), [button](const QColor &color) {
        button->setTextStyle(
            QStringLiteral("QLabel{background:transparent;font-size:14px;color:%1;}").arg(color.name()),
            QString(), QString(), QString());
    });
    page.color("setOveralStyle: background", QColor(Qt::white), [button](const QColor &color) {
        button->setOveralStyle(QStringLiteral("QWidget#iconButton{border:1px solid #EBECED;border-radius:8px;"
                                              "background:%1;}")
                                   .arg(color.name()),
                               QString(), QString(), QString());
    });
    page.properties(button);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Buttons, "CustomizeIconButton",
                     "A light button of an icon and a text whose whole look is style sheets.", build);

} // namespace
