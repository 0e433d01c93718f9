#include "hotkeypanel.h"

#include <customkeysequenceedit.h>
#include <orvqtcompat.h>
#include <qhotkey.h>

// A key that the whole desktop loses must not be one that people type: it needs a modifier beside Shift, unless it is a
// function key. Escape stays what it is everywhere.
static bool isFitForTheDesktop(const QKeySequence &sequence)
{
    const int combination = orvqt::firstCombination(sequence);
    const int key = combination & ~int(Qt::KeyboardModifierMask);
    const bool modified = combination & int(Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return key != Qt::Key_Escape && (modified || (key >= Qt::Key_F1 && key <= Qt::Key_F35));
}

HotkeyPanel::HotkeyPanel(CustomToolButton *button)
    : ToolPanel(button)
    , m_hotkey(new QHotkey(this))
    , m_edit(new CustomKeySequenceEdit(this, tr("Press the keys")))
    , m_note(new QLabel(this))
{
    m_edit->setAccessibleName(accessibleName());
    m_edit->setEditSize(QSize(240, 34));
    m_edit->setNoContextMenu(true);
    m_note->setWordWrap(true);
    m_note->setFixedSize(240, 34);
    layout()->addWidget(m_edit);
    layout()->addWidget(m_note);
    connect(m_edit, &QKeySequenceEdit::editingFinished, this, [this] { choose(m_edit->keySequence()); });
    connect(m_hotkey, &QHotkey::activated, this, &HotkeyPanel::pressed);
    choose(QKeySequence::fromString(QSettings().value("hotkey", "Ctrl+Shift+F9").toString()));
}

void HotkeyPanel::choose(const QKeySequence &sequence)
{
    const QKeySequence before = m_hotkey->shortcut();
    if (!sequence.isEmpty() && !isFitForTheDesktop(sequence)) {
        m_note->setText(tr("Add Ctrl or Alt to it: the hotkey is taken from all programs."));
    } else if (m_hotkey->setShortcut(sequence, true)) {
        m_note->setText(sequence.isEmpty() ? tr("There is no hotkey now.")
                                           : tr("Works while any program has the focus."));
        QSettings().setValue("hotkey", sequence.toString());
    } else {
        m_note->setText(tr("Another program holds this one."));
        m_hotkey->setShortcut(before, true);
    }
    m_edit->setKeySequence(m_hotkey->shortcut());
}
