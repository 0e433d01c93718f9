#include "customkeysequenceedit.h"
#include "pagebuilder.h"

namespace {

void build(PageBuilder &page)
{
    page.include("customkeysequenceedit.h");

    page.section(
        "One chord at a time",
        "Click into the editor and press a combination: it replaces the old one and ends the editing at "
        "once. Backspace clears it.");
    auto *edit = new CustomKeySequenceEdit(page.widget(), QStringLiteral("Press a shortcut"));
    edit->setEditSize(QSize(220, 32));
    page.example(edit, "empty, with its placeholder");
    auto *filled = new CustomKeySequenceEdit(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), page.widget(),
                                             QStringLiteral("Press a shortcut"));
    filled->setEditSize(QSize(220, 32));
    page.example(filled, "constructed with a sequence");
    for (CustomKeySequenceEdit *each : {edit, filled}) {
        reportSignal(each, &QKeySequenceEdit::keySequenceChanged, "keySequenceChanged");
        reportSignal(each, &QKeySequenceEdit::editingFinished, "editingFinished");
    }

    page.section("Setters", "They act on the first editor.");
    page.lineEdit("setPlaceHolderText", "Press a shortcut",
                  [edit](const QString &text) { edit->setPlaceHolderText(text); });
    page.lineEdit("setCustomObjectName", "",
                  [edit](const QString &name) { edit->setCustomObjectName(name); });
    page.spinBox("setEditSize: width", 80, 400, 220,
                 [edit](int width) { edit->setEditSize(QSize(width, 32)); });
    page.button("clear()", [edit] { edit->clear(); });
    page.button("setKeySequence(Ctrl+Alt+G)",
                [edit] { edit->setKeySequence(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_G)); });
    page.button("setNoContextMenu(true)", [edit] { edit->setNoContextMenu(true); });
    page.properties(edit);
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Text, "CustomKeySequenceEdit",
    "An editor for one key combination, with a placeholder and a line edit that sheets can style.", build);

} // namespace
