#pragma once

#include "toolpanel.h"

class CustomKeySequenceEdit;
class QHotkey;

/// Where the user chooses the hotkey that takes a snapshot while any program has the focus.
class HotkeyPanel : public ToolPanel
{
    Q_OBJECT

public:
    explicit HotkeyPanel(CustomToolButton *button);

Q_SIGNALS:
    void pressed();

private:
    void choose(const QKeySequence &sequence);

    QHotkey *m_hotkey;
    CustomKeySequenceEdit *m_edit;
    QLabel *m_note;
};
