#include "tipsdlgwithcheckbox.h"
#include "pagebuilder.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

constexpr int kMaximumExtent = 1200;
constexpr int kMaximumLines = 6;
constexpr int kForceDelayMs = 2000;

/// What both constructors and the setters take, as the controls have it.
struct Arguments
{
    QSize size{400, 200};
    QString title = QStringLiteral("Improve the picture");
    QString content =
        QStringLiteral("The room is rather dark. Switch a lamp on, or let the camera lighten the picture "
                       "by itself.");
    int lineCount = 4;
    QString checkBox = QStringLiteral("Do not show this again");
    QString button = QStringLiteral("Got it");
    bool ticked = false;
    bool forced = false;
    bool keys = true;
};

using SharedArguments = std::shared_ptr<Arguments>;
using NewDialog = TipsDlgWithCheckbox *(*)(const Arguments &arguments, QWidget *mainWindow);

TipsDlgWithCheckbox *newParagraph(const Arguments &arguments, QWidget *mainWindow)
{
    return new TipsDlgWithCheckbox(mainWindow, arguments.size, arguments.title, arguments.content,
                                   arguments.checkBox, arguments.button);
}

TipsDlgWithCheckbox *newList(const Arguments &arguments, QWidget *mainWindow)
{
    const QStringList texts{QStringLiteral("1. Put the camera at the height of your eyes."),
                            QStringLiteral("2. Let the light come from the front."),
                            QStringLiteral("3. Sit an arm's length away."),
                            QStringLiteral("Other programs cannot use the camera meanwhile."),
                            QStringLiteral("A fifth line."),
                            QStringLiteral("A sixth line.")};
    return new TipsDlgWithCheckbox(mainWindow, arguments.size, arguments.title,
                                   texts.mid(0, arguments.lineCount).toVector(), arguments.checkBox,
                                   arguments.button);
}

TipsDlgWithCheckbox *prepared(const Arguments &arguments, NewDialog newDialog, QWidget *mainWindow)
{
    TipsDlgWithCheckbox *dialog = newDialog(arguments, mainWindow);
    reportSignal(dialog, &TipsDlgWithCheckbox::closeMsgBox, "closeMsgBox");
    reportSignal(dialog, &TipsDlgWithCheckbox::sig_BtnClicked, "sig_BtnClicked");
    reportSignal(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged, "sig_checkboxStateChanged");
    dialog->setCheckboxState(arguments.ticked);
    dialog->setKeyboardActions(arguments.keys);
    dialog->moveOver(mainWindow);
    if (arguments.forced)
        QTimer::singleShot(kForceDelayMs, dialog, &TipsDlgWithCheckbox::forceToExit);
    return dialog;
}

void addForm(PageBuilder &page, const SharedArguments &arguments, NewDialog newDialog, const char *name)
{
    QWidget *mainWindow = page.window();
    page.primaryButton("exec()", [arguments, newDialog, mainWindow] {
        prepared(*arguments, newDialog, mainWindow)->exec();
        report("exec() returned");
    });
    page.button("show()",
                [arguments, newDialog, mainWindow] { prepared(*arguments, newDialog, mainWindow)->show(); });
    page.shot(QStringLiteral("dialog-%1").arg(QLatin1String(name)), [arguments, newDialog, mainWindow] {
        TipsDlgWithCheckbox *dialog = prepared(*arguments, newDialog, mainWindow);
        dialog->show();
        return dialog;
    });
    page.spinBox("Width", 0, kMaximumExtent, arguments->size.width(),
                 [arguments](int width) { arguments->size.setWidth(width); });
    page.spinBox("Height", 0, kMaximumExtent, arguments->size.height(),
                 [arguments](int height) { arguments->size.setHeight(height); });
    page.lineEdit("Title", arguments->title, [arguments](const QString &text) { arguments->title = text; });
    page.lineEdit("Button", arguments->button,
                  [arguments](const QString &text) { arguments->button = text; });
    page.lineEdit("Check box", arguments->checkBox,
                  [arguments](const QString &text) { arguments->checkBox = text; });
    page.checkBox("Ticked", arguments->ticked, [arguments](bool on) { arguments->ticked = on; });
    page.checkBox("Forced after 2 s", arguments->forced, [arguments](bool on) { arguments->forced = on; });
    page.checkBox("Keyboard actions", arguments->keys, [arguments](bool on) { arguments->keys = on; });
}

void build(PageBuilder &page)
{
    page.include("tipsdlgwithcheckbox.h");

    const auto paragraph = std::make_shared<Arguments>();
    page.section("One paragraph",
                 "The button reports the box only when it is ticked; the close button reports nothing "
                 "about it. The dialog deletes itself.");
    addForm(page, paragraph, newParagraph, "tipsdlgwithcheckbox");
    page.wideLineEdit("Content", paragraph->content,
                      [paragraph](const QString &text) { paragraph->content = text; });

    const auto list = std::make_shared<Arguments>();
    list->title = QStringLiteral("Before we start");
    list->size = QSize(400, 240);
    page.section("Three paragraphs and a warning",
                 "The second form takes exactly four lines: with any other number it "
                 "stays empty.");
    addForm(page, list, newList, "tipsdlgwithcheckbox-list");
    page.spinBox("Lines", 0, kMaximumLines, list->lineCount, [list](int count) { list->lineCount = count; });
}

const GalleryPage &page = GalleryPage::add(
    GalleryFamily::Dialogs, "TipsDlgWithCheckbox",
    "A tip that stays on top, with a box to tick, such as \"do not show this again\".", build);

} // namespace
