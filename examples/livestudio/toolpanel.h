#pragma once

#include <QtWidgets/QFrame>

class CustomToolButton;
class QVBoxLayout;

/// A panel above a tool button, which opens it by mouse or key. It closes with Escape, with another click on the button,
/// and when the focus goes elsewhere.
class ToolPanel : public QFrame
{
    Q_OBJECT

public:
    ToolPanel(const QString &title, CustomToolButton *button);

    /// Where the content goes.
    QVBoxLayout *column() const { return m_column; }

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void setOpen(bool open);

    QVBoxLayout *m_column;
    CustomToolButton *m_button;
};
