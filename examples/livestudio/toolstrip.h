#pragma once

#include <QtWidgets/QWidget>

class CustomToolButton;
class Preview;

/// The tools below the live picture.
class ToolStrip : public QWidget
{
    Q_OBJECT

public:
    ToolStrip(Preview *preview, QWidget *parent);

Q_SIGNALS:
    void snapshotWanted();

private:
    CustomToolButton *addTool(const QString &picture, const QString &name);
    void addEffects();
    void addMirror();
    void addSnapshotButton();
    void addHelp();

    Preview *m_preview;
};
