#include "customplaintextedit.h"
#include "pagebuilder.h"

#include <memory>

namespace {

void build(PageBuilder &page)
{
    page.include("customplaintextedit.h");

    page.section("Viewport margins", "The room between the frame and the text, set from outside.");
    auto *edit = new CustomPlainTextEdit(page.widget());
    edit->setPlainText(
        QStringLiteral("Notes keep their distance from the frame.\nChange the margins below."));
    edit->setFixedHeight(120);
    reportSignal(edit, &QPlainTextEdit::textChanged, "textChanged");
    edit->adjustViewPortMargin(16, 12, 16, 12);
    page.wideExample(edit);

    struct Margins
    {
        int left = 16, top = 12, right = 16, bottom = 12;
    };
    auto margins = std::make_shared<Margins>();
    const auto apply = [edit, margins] {
        edit->adjustViewPortMargin(margins->left, margins->top, margins->right, margins->bottom);
    };
    const auto side = [&](const char *label, int Margins::*member) {
        page.spinBox(label, 0, 60, (*margins).*member, [margins, member, apply](int value) {
            (*margins).*member = value;
            apply();
        });
    };
    side("Left", &Margins::left);
    side("Top", &Margins::top);
    side("Right", &Margins::right);
    side("Bottom", &Margins::bottom);
    page.properties(edit);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Text, "CustomPlainTextEdit",
                     "A plain text edit whose viewport margins can be set from outside.", build);

} // namespace
