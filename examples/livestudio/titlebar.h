#pragma once

#include <QtWidgets/QWidget>

class QToolButton;

/// The strip at the top of a window without a frame: its icon and name, the switch of the look, and what every window
/// has. A press beside the buttons goes on to the window, which is moved by it.
class TitleBar : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kHeight = 48;

    explicit TitleBar(QWidget *window);

    void toggleMaximised();
    /// To be called when the window is maximised or restored.
    void followWindowState();

private:
    QToolButton *addButton(const char *picture, const QString &name);

    QToolButton *m_maximise;
};
