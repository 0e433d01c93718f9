#include "customtoolbutton.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QSlider>
#include <QtWidgets/QVBoxLayout>

namespace {

QString icon(const char *name, const char *state)
{
    return QStringLiteral(":/surface/resources/surface/gallery/tool_%1%2.png")
        .arg(QString::fromUtf8(name), QString::fromUtf8(state));
}

CustomToolButton *newButton(QWidget *parent, const char *name, SettingWidgetDirection direction)
{
    auto *button = new CustomToolButton(false, parent, direction);
    button->updateImage(icon(name, ""), icon(name, "_checked"), icon(name, "_hover"),
                        icon(name, "_disabled"));
    button->setAccessibleName(QString::fromUtf8(name));
    button->setFixedSize(40, 40);
    button->setCheckable(true);
    reportSignal(button, &QToolButton::toggled, "toggled");
    return button;
}

// A small panel, as an application would attach it: here of the main window, so that it may lie anywhere over
// the page.
QWidget *newPanel(QWidget *window, const QString &text)
{
    auto *panel = new QWidget(window);
    panel->setObjectName(QStringLiteral("settingPanel"));
    panel->setAttribute(Qt::WA_StyledBackground);
    followLook(panel, [panel] {
        panel->setStyleSheet(gallerySheet(QStringLiteral(
            "QWidget#settingPanel{background:@paper;border:1px solid @outline;border-radius:8px;}"
            "QLabel{font-size:13px;color:@ink;}")));
    });
    panel->setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(14, 10, 14, 12);
    layout->addWidget(new QLabel(text, panel));
    auto *slider = new QSlider(Qt::Horizontal, panel);
    layout->addWidget(slider);
    panel->setAccessibleName(text);
    slider->setAccessibleName(text);
    panel->resize(panel->sizeHint());
    panel->hide();
    return panel;
}

void build(PageBuilder &page)
{
    page.include("customtoolbutton.h");
    QWidget *window = page.window();

    page.section("Attached panels", "Each opens beside its button, on the side chosen at construction.");
    CustomToolButton *click = newButton(page.widget(), "camera", Bottom);
    click->setClickWidget(newPanel(window, QStringLiteral("Opened by a click")), true);
    page.example(click, "click it");
    CustomToolButton *hover = newButton(page.widget(), "microphone", Bottom);
    hover->setHoverWidget(newPanel(window, QStringLiteral("Opened by hovering")), false);
    page.example(hover, "point at it");
    CustomToolButton *rightClick = newButton(page.widget(), "effects", Bottom);
    rightClick->setRightClickWidget(
        newPanel(window, QStringLiteral("Opened by a right click or a long press")), true);
    page.example(rightClick, "right click or press long");

    page.section("Directions", "Panels of the four directions; the one above stays inside the window.");
    const auto inDirection = [&](const char *name, SettingWidgetDirection direction, const char *caption) {
        CustomToolButton *button = newButton(page.widget(), name, direction);
        button->setHoverWidget(newPanel(window, QString::fromUtf8(caption)), false);
        page.example(button, caption);
    };
    inDirection("text", Bottom, "Bottom");
    inDirection("brush", Left, "Left");
    inDirection("settings", Top, "Top");
    inDirection("effects", Right, "Right");

    page.section("States", "updateImage() builds one sheet from four pictures.");
    CustomToolButton *checked = newButton(page.widget(), "camera", Bottom);
    checked->setChecked(true);
    page.example(checked, "checked");
    CustomToolButton *disabled = newButton(page.widget(), "microphone", Bottom);
    disabled->setEnabled(false);
    page.example(disabled, "disabled");
    CustomToolButton *current = newButton(page.widget(), "brush", Bottom);
    current->setProperty("current", true);
    page.example(current, "property current");

    page.section("Setters", "They act on the first button.");
    page.checkBox("Enabled", true, [click](bool on) { click->setEnabled(on); });
    page.spinBox("setSettingWidgetOffset", -20, 60, 6, [click](int offset) {
        click->setSettingWidgetOffset(offset);
        click->adjustWidgetPosition();
    });

    page.shot("popup-customtoolbutton", [click, window]() -> QWidget * {
        auto *panel = newPanel(window, QStringLiteral("Opened by a click"));
        click->setClickWidget(panel, false);
        panel->show();
        panel->raise();
        return panel;
    });
    page.properties(click);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Buttons, "CustomToolButton",
    "A tool button that opens attached panels by click, by hovering, by right click or long press.", build);

} // namespace
