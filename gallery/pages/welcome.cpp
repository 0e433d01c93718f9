#include "pagebuilder.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

void build(PageBuilder &page)
{
    page.section("Look around",
                 "Every class has a page: choose one on the left. A page shows the class in its states, "
                 "with the controls to change what its setters change. The panel below prints the "
                 "signals, the log lines and the results as they come; point at a log line to see the "
                 "function that wrote it.");

    page.section("Try the panel");
    QLineEdit *text = page.lineEdit("Text", "Hello");
    QSpinBox *times = page.spinBox("Times", 1, 100, 1);
    QCheckBox *warn = page.checkBox("As a warning", false);
    page.primaryButton("Print it", [text, times, warn] {
        for (int i = 0; i < times->value(); ++i) {
            if (warn->isChecked())
                qWarning("%s", qUtf8Printable(text->text()));
            else
                report(text->text());
        }
    });

    page.section("Add a page",
                 "A page is one file, <b>gallery/pages/&lt;class&gt;.cpp</b>, that registers itself; "
                 "<b>gallery/pagebuilder.h</b> shows a whole one. <b>gallery --shots FOLDER</b> writes "
                 "a picture of each, <b>--page NAME</b> opens at one, <b>--help</b> tells the rest.");
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Start, "Welcome",
                     "Ready-made Qt widgets for desktop clients, each at work in this window.", build);

} // namespace
