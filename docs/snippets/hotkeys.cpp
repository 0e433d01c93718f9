#include "customkeysequenceedit.h"
#include "orvqtcompat.h"
#include "qhotkey.h"

#include <QtWidgets/QWidget>

namespace hotkeys_snippets {

class MainWindow : public QWidget
{
public:
    void listen();
    void offerChoice();
    void takeHotkey();
    void watch(QHotkey *hotkey);
    void show(bool) {}

private:
    void toggleMute() {}
    void tellThatItIsTaken(const QKeySequence &) {}

    CustomKeySequenceEdit *m_editor = nullptr;
    QHotkey *m_hotkey = nullptr;
};

void MainWindow::listen()
{
    //! [QHotkey]
    auto *hotkey = new QHotkey(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F9), /*autoRegister*/ true, this);
    if (hotkey->isRegistered())
        connect(hotkey, &QHotkey::activated, this, &MainWindow::toggleMute);
    //! [QHotkey]
}

void MainWindow::watch(QHotkey *hotkey)
{
    //! [registered]
    connect(hotkey, &QHotkey::registeredChanged, this, [this, hotkey] { show(hotkey->isRegistered()); });
    //! [registered]
}

void MainWindow::offerChoice()
{
    //! [editor]
    m_editor = new CustomKeySequenceEdit(this, tr("Press a combination"));
    m_editor->setKeySequence(m_hotkey->shortcut());
    connect(m_editor, &QKeySequenceEdit::editingFinished, this, &MainWindow::takeHotkey);
    //! [editor]
}

//! [choice]
void MainWindow::takeHotkey()
{
    const QKeySequence chosen = m_editor->keySequence();
    const int chord = chosen.isEmpty() ? 0 : orvqt::firstCombination(chosen);
    const int key = chord & ~int(Qt::KeyboardModifierMask);
    const bool isFunctionKey = key >= Qt::Key_F1 && key <= Qt::Key_F35;
    // Escape, a letter or Shift with a letter would be taken from every program of the desktop.
    const bool isAllowed = isFunctionKey || (chord & int(Qt::CTRL | Qt::ALT | Qt::META)) != 0;

    if (chosen.isEmpty())
        m_hotkey->resetShortcut();
    else if (isAllowed && chosen != m_hotkey->shortcut() &&
             !m_hotkey->setShortcut(chosen, /*autoRegister*/ true))
        tellThatItIsTaken(chosen);
    if (!chosen.isEmpty() && !isAllowed)
        m_editor->setKeySequence(m_hotkey->shortcut());
}
//! [choice]

} // namespace hotkeys_snippets
