// A hotkey of the whole desktop, which the user chooses: it counts while any program has the focus.
#include <customkeysequenceedit.h>
#include <orvqtcompat.h>
#include <qhotkey.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

// All programs lose the key: it may be none that people type. Escape stays what it is everywhere.
static bool isFitForTheDesktop(const QKeySequence &sequence)
{
    const int combination = orvqt::firstCombination(sequence);
    const int key = combination & ~int(Qt::KeyboardModifierMask);
    return key != Qt::Key_Escape &&
           combination & int(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QHotkey hotkey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F9), /*autoRegister*/ true);

    QWidget window;
    auto *edit = new CustomKeySequenceEdit(hotkey.shortcut(), &window, "Press the keys");
    auto *state = new QLabel(&window);
    const auto tell = [&] {
        state->setText(hotkey.isRegistered() ? "Not pressed yet" : "Not to be had");
    };
    tell();

    int count = 0;
    QObject::connect(&hotkey, &QHotkey::activated, state,
                     [&] { state->setText(QString("Pressed %1 times").arg(++count)); });
    QObject::connect(edit, &QKeySequenceEdit::editingFinished, edit, [&] {
        const QKeySequence chosen = edit->keySequence();
        if (chosen == hotkey.shortcut())
            return;
        if (chosen.isEmpty() || isFitForTheDesktop(chosen))
            hotkey.setShortcut(chosen, /*autoRegister*/ true);
        edit->setKeySequence(hotkey.shortcut());
        tell();
    });

    edit->setAccessibleName("Hotkey");
    QVBoxLayout layout(&window);
    layout.setContentsMargins(24, 24, 24, 24);
    layout.addWidget(edit);
    layout.addWidget(state);
    window.resize(320, 120);
    window.show();
    return application.exec();
}
