#include "customwraptexttooltip.h"
#include "pagebuilder.h"

#include <QtWidgets/QPushButton>

#include <memory>

namespace {

const char kShortText[] = "Recording to the cloud";
const char kLongText[] =
    "The microphone picks up the room as well. Move closer to it, or switch the noise filter on.";

customWrapTextToolTip *newToolTip(QWidget *parent, int direction, int width, const QString &text)
{
    auto *toolTip = direction < 0 ? new customWrapTextToolTip(parent)
                                  : new customWrapTextToolTip(customWrapTextToolTip::directionType(direction),
                                                              width, parent, 8);
    toolTip->setText(text);
    return toolTip;
}

void build(PageBuilder &page)
{
    page.include("customwraptexttooltip.h");

    struct Settings
    {
        int direction = -1;
        int width = 180;
        QString text = QString::fromUtf8(kLongText);
    };
    auto settings = std::make_shared<Settings>();

    page.section("Show one", "A tooltip closes and deletes itself when another window becomes active.");
    page.choice("Form",
                {QStringLiteral("one line, arrow left"), QStringLiteral("wrapping, arrow left"),
                 QStringLiteral("wrapping, arrow at the bottom")},
                0, [settings](int index) { settings->direction = index - 1; });
    page.spinBox("Width of the text", 60, 360, 180, [settings](int width) { settings->width = width; });
    page.lineEdit("Text", settings->text, [settings](const QString &text) { settings->text = text; });
    QWidget *window = page.window();
    page.primaryButton("Show", [settings, window] {
        QWidget *toolTip = newToolTip(window, settings->direction, settings->width, settings->text);
        toolTip->show();
        toolTip->move(window->mapToGlobal(window->rect().center()) - toolTip->rect().center());
        report("a tooltip is open");
    });
    page.button("popup() at the pointer",
                [settings] { customWrapTextToolTip::popup(QCursor::pos(), settings->text); });

    const auto shot = [&page, window](const char *name, int direction, const char *text) {
        page.shot(name, [window, direction, text]() -> QWidget * {
            QWidget *toolTip = newToolTip(window, direction, 180, QString::fromUtf8(text));
            toolTip->show();
            return toolTip;
        });
    };
    shot("popup-customwraptexttooltip", -1, kShortText);
    shot("popup-customwraptexttooltip-left", 0, kLongText);
    shot("popup-customwraptexttooltip-bottom", 1, kLongText);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Text, "customWrapTextToolTip",
    "A dark tooltip window with a small arrow that wraps its text and closes itself.", build);

} // namespace
