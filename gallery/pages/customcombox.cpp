#include "customcombox.h"
#include "pagebuilder.h"

namespace {

customcombox *newCombo(QWidget *parent, const QStringList &texts)
{
    auto *combo = new customcombox(parent);
    combo->addItems(texts);
    combo->setFixedSize(240, 32);
    reportSignal(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), "currentIndexChanged");
    return combo;
}

void build(PageBuilder &page)
{
    page.include("customcombox.h");

    page.section(
        "Opens wherever it is clicked",
        "The text is a read-only line edit; a left click on it opens the list, and for 100 ms after the list "
        "has closed nothing opens it again.");
    QStringList cameras;
    for (int camera = 1; camera <= 12; ++camera)
        cameras << QStringLiteral("Camera %1").arg(camera);
    auto *combo = newCombo(page.widget(), cameras);
    page.example(combo, "twelve rows");
    page.example(
        newCombo(page.widget(), {QStringLiteral("A device whose name is much longer than its combo box is"),
                                 QStringLiteral("Another one")}),
        "the start of a long text stays in view");
    customcombox *disabled = newCombo(page.widget(), {QStringLiteral("Not available")});
    disabled->setEnabled(false);
    page.example(disabled, "disabled");

    page.section("Setters", "They act on the first combo box.");
    page.spinBox("setVisableCount", 1, 20, combo->maxVisibleItems(),
                 [combo](int count) { combo->setVisableCount(count); });
    page.spinBox("setLineEditWidth", 40, 240, 180, [combo](int width) { combo->setLineEditWidth(width); });
    page.spinBox("Gap for subclasses", 0, 20, 4,
                 [combo](int spacing) { combo->setSpacingBetweenComboxAndPopupWidget(spacing); });
    page.properties(combo);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::ComboBoxes, "customcombox",
                     "A combo box that looks editable but is not: its whole text opens the list.", build);

} // namespace
