#include "customkeysequenceedit.h"
#include "customplaintextedit.h"
#include "customwraptexttooltip.h"
#include "kinds.h"
#include "steps.h"

namespace Destruction {

namespace {

QVector<Step> editing()
{
    return {
        step<QPlainTextEdit>("text", [](auto *edit) { edit->setPlainText(QStringLiteral("a\nb")); }),
        step<QPlainTextEdit>("insert", [](auto *edit) { edit->insertPlainText(QStringLiteral("c")); }),
        step<QPlainTextEdit>("undo", [](auto *edit) { edit->undo(); }),
        step<QPlainTextEdit>("redo", [](auto *edit) { edit->redo(); }),
        step<QPlainTextEdit>("select", [](auto *edit) { edit->selectAll(); }),
        step<CustomPlainTextEdit>("margins", [](auto *edit) { edit->adjustViewPortMargin(1, 2, 3, 4); }),
    };
}

QVector<Step> typingChords()
{
    const auto keySequence = [](const char *name, const QKeySequence &sequence) {
        return step<CustomKeySequenceEdit>(name, [=](auto *edit) { edit->setKeySequence(sequence); });
    };
    return {
        key(Qt::Key_B, Qt::ControlModifier),
        key(Qt::Key_C, Qt::ControlModifier),
        keySequence("set", QKeySequence(Qt::Key_F5)),
        keySequence("set to nothing", QKeySequence()),
        keySequence("set", QKeySequence(Qt::Key_F5)),
        step<QWidget>(
            "backspace",
            [](QWidget *w) { send(w, QKeyEvent(QEvent::KeyPress, Qt::Key_Backspace, Qt::NoModifier)); }),
        keySequence("set", QKeySequence(Qt::Key_F5)),
        step<CustomKeySequenceEdit>("clear", [](auto *edit) { edit->clear(); }),
    };
}

QVector<Step> tipping()
{
    return {
        step<customWrapTextToolTip>("text", [](auto *tip) { tip->setText(QStringLiteral("text")); }),
        plainEvent("deactivate", QEvent::WindowDeactivate),
        show(),
        step<QDialog>("accept", [](QDialog *tip) { tip->accept(); }),
        show(),
        step<QDialog>("reject", [](QDialog *tip) { tip->reject(); }),
    };
}

FakeRegistry *registryOf(const QObject *hotkey)
{
    return static_cast<FakeRegistry *>(hotkey->property("registry").value<QObject *>());
}

} // namespace

QVector<Kind> textKinds()
{
    const auto newToolTip = [](Surroundings &in) {
        auto *tip = new customWrapTextToolTip(in.parent);
        tip->setAttribute(Qt::WA_DeleteOnClose, false); // it would not see its second closing
        return tip;
    };
    return {
        {"CustomPlainTextEdit",
         [](Surroundings &in) { return new CustomPlainTextEdit(in.parent); },
         life(editing()),
         {}},
        {"CustomKeySequenceEdit",
         [](Surroundings &in) { return new CustomKeySequenceEdit(in.parent); },
         life(typingChords()),
         {}},
        {"customWrapTextToolTip", newToolTip, life(tipping()), {}},
    };
}

QVector<Kind> hotkeyKinds()
{
    const QHotkey::NativeShortcut shortcut(65, 2);
    const auto newHotkey = [=](Surroundings &in) {
        in.registry = std::make_unique<FakeRegistry>();
        auto *hotkey = new QHotkey(shortcut, false, in.parent);
        hotkey->setProperty("registry", QVariant::fromValue<QObject *>(in.registry.get()));
        return hotkey;
    };
    return {
        {"QHotkey",
         newHotkey,
         {step<QHotkey>("name", [](QHotkey *hotkey) { hotkey->setObjectName(QStringLiteral("name")); }),
          step<QHotkey>("add", [](QHotkey *hotkey) { registryOf(hotkey)->addShortcut(hotkey); }),
          step<QHotkey>("press", [=](QHotkey *hotkey) { registryOf(hotkey)->press(shortcut); }), turn(),
          step<QHotkey>("remove", [](QHotkey *hotkey) { registryOf(hotkey)->removeShortcut(hotkey); })},
         {}},
    };
}

} // namespace Destruction
