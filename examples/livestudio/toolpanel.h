#pragma once

#include <QtWidgets/QFrame>

class CustomToolButton;
class QPushButton;

/// A panel above a tool button, which opens it by mouse or key. It closes with Escape, with another click on the button, and
/// when the focus goes elsewhere. What is added to its layout() stands below the button's name.
class ToolPanel : public QFrame
{
    Q_OBJECT

public:
    explicit ToolPanel(CustomToolButton *button);

    QPushButton *addButton(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void setOpen(bool open);

    CustomToolButton *m_button;
};
