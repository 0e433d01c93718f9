#include "custompicturebtn.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtGui/QImage>

namespace {

QImage picture(const char *name)
{
    return QImage(
        QStringLiteral(":/surface/resources/surface/gallery/picture_%1.png").arg(QString::fromUtf8(name)));
}

CustomPictureBtn *newButton(QWidget *parent, const char *name, const QString &text)
{
    auto *button = new CustomPictureBtn(picture(name), text, 8, parent, false);
    const QByteArray base(name);
    QImage hover = picture((base + "_hover").constData());
    QImage pressed = picture((base + "_pressed").constData());
    QImage disabled = picture((base + "_disabled").constData());
    button->setHoverIcon(hover);
    button->setCheckedIcon(pressed);
    button->setDisabledIcon(disabled);
    QFont font = button->QWidget::font();
    font.setPixelSize(14);
    button->setFont(font);
    followLook(button, [button] {
        button->setFontColor(galleryColor("ink"), galleryColor("primary"), galleryColor("pressed"),
                             galleryColor("off"));
        button->setStyleSheet(gallerySheet(
            QStringLiteral("QPushButton{border:1px solid @hairline;border-radius:8px;background:@paper;}"
                           "QPushButton:hover{background:@ground;}")));
    });
    button->setFixedSize(150, 56);
    reportSignal(button, &QPushButton::clicked, "clicked");
    reportSignal(button, &QPushButton::toggled, "toggled");
    return button;
}

void build(PageBuilder &page)
{
    page.include("custompicturebtn.h");

    page.section("States",
                 "Picture and text change with the state; the sheet behind them is QPushButton's own.");
    auto *button = newButton(page.widget(), "record", QStringLiteral("Record"));
    page.example(button, "normal: point at it");
    CustomPictureBtn *checked = newButton(page.widget(), "play", QStringLiteral("Play"));
    checked->setCheckable(true);
    checked->setChecked(true);
    page.example(checked, "checked");
    CustomPictureBtn *disabled = newButton(page.widget(), "snapshot", QStringLiteral("Snapshot"));
    disabled->setEnabled(false);
    page.example(disabled, "disabled");

    page.section("Sizes",
                 "With autoResize the button takes the size of picture and text; rectangles place them.");
    auto *fitted =
        new CustomPictureBtn(picture("play"), QStringLiteral("As large as needed"), 8, page.widget(), true);
    fitted->setFlat(true);
    page.example(fitted, "autoResize");
    CustomPictureBtn *placed = newButton(page.widget(), "play", QString());
    placed->setFixedSize(110, 80);
    placed->adjustIconRect(QRect(35, 8, 40, 40));
    placed->setCustomText(QStringLiteral("Below"), QRect(34, 50, 70, 24));
    page.example(placed, "text under the picture");

    page.section("Setters", "They act on the first button.");
    page.checkBox("Enabled", true, [button](bool on) { button->setEnabled(on); });
    page.checkBox("Checkable", false, [button](bool on) { button->setCheckable(on); });
    page.color("setFontColor, all states", QColor(0x1F, 0x1F, 0x22),
               [button](const QColor &color) { button->setFontColor(color); });
    page.spinBox("setFont: pixel size", 8, 24, 14, [button](int size) {
        QFont font = button->QWidget::font();
        font.setPixelSize(size);
        button->setFont(font);
    });
    page.spinBox("adjustIconRect: x", 0, 110, 10,
                 [button](int x) { button->adjustIconRect(QRect(x, 8, 40, 40)); });
    page.spinBox("setCustomText: x", 0, 140, 60, [button](int x) {
        button->setCustomText(QStringLiteral("Record"), QRect(x, 0, 80, 56));
        button->update();
    });
    page.spinBox("setSpan", 0, 40, 8, [button](int span) { button->setSpan(span); });
    page.button("resizeWithIconAndText()", [button] { button->resizeWithIconAndText(); });
    page.properties(button);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Buttons, "CustomPictureBtn",
                     "A push button with a picture and a text of its own for each state.", build);

} // namespace
