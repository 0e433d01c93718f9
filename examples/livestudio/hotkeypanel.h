#pragma once

#include "toolpanel.h"

#include <QtGui/QKeySequence>

class CustomKeySequenceEdit;
class QHotkey;
class QLabel;

/// Where the user chooses the hotkey that takes a snapshot while any program has the focus.
class HotkeyPanel : public ToolPanel
{
    Q_OBJECT

public:
    explicit HotkeyPanel(CustomToolButton *button);

Q_SIGNALS:
    void pressed();

private:
    void choose();
    void take(const QKeySequence &sequence);

    QHotkey *m_hotkey;
    CustomKeySequenceEdit *m_edit;
    QLabel *m_note;
};
