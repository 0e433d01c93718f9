#pragma once

#include <QtWidgets/QWidget>

class CustomToolButton;
class HotkeyPanel;
class Preview;

/// The tools below the live picture. The settings keep what they set.
class ToolStrip : public QWidget
{
    Q_OBJECT

public:
    ToolStrip(Preview *preview, QWidget *parent);

    /// Registers the hotkey.
    void start();

Q_SIGNALS:
    void snapshotWanted();

private:
    CustomToolButton *addTool(const QString &picture, const QString &name);
    void addEffects();
    void addMirror();
    void addSnapshotButton();
    void addHotkey();
    void addHelp();

    Preview *m_preview;
    HotkeyPanel *m_hotkey;
};
