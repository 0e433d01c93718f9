#include "customcomboxheader.h"
#include "gallerystyle.h"
#include "pagebuilder.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>

namespace {

constexpr QSize kSmallSize(180, 28);

QString frameStyle()
{
    return gallerySheet(
        QStringLiteral("QWidget#%1{background:@paper;border:1px solid @outline;border-radius:6px;}"));
}

CustomComboxHeader *newHeader(QWidget *parent, bool small)
{
    auto *header = new CustomComboxHeader(small, parent);
    if (small)
        header->setFixedSize(kSmallSize);
    header->setText(QStringLiteral("Front camera"));
    reportSignal(header, &CustomComboxHeader::signalClicked, "signalClicked");
    return header;
}

void build(PageBuilder &page)
{
    page.include("customcomboxheader.h");

    page.section("Two styles",
                 "A click is a press and its release close by; a longer way in between is none.");
    CustomComboxHeader *normal = newHeader(page.widget(), false);
    page.example(normal, "normal");
    CustomComboxHeader *small = newHeader(page.widget(), true);
    page.example(small, "small");
    CustomComboxHeader *framed = newHeader(page.widget(), false);
    followLook(framed, [framed] { framed->setCustomStyle(frameStyle()); });
    framed->setIconState(true);
    page.example(framed, "with a frame of the client's, arrow up");

    page.section("Setters", "They act on the first two.");
    page.checkBox("setIconState", false, [normal, small](bool up) {
        normal->setIconState(up);
        small->setIconState(up);
    });
    page.lineEdit("setText", "Front camera", [normal, small](const QString &text) {
        normal->setText(text);
        small->setText(text);
    });
    page.wideLineEdit("setCustomStyle", "", [normal, small](const QString &style) {
        normal->setCustomStyle(style);
        small->setCustomStyle(style);
    });
    page.wideLineEdit("setCustomTextStyle", "", [normal, small](const QString &style) {
        normal->setCustomTextStyle(style);
        small->setCustomTextStyle(style);
    });
    page.properties(normal);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::ComboBoxes, "CustomComboxHeader",
                     "The part of the shadow combo box that is always seen: its text and the arrow.", build);

} // namespace
