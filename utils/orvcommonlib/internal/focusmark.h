#pragma once

#include <QtWidgets/QFocusFrame>

class QFocusEvent;

/// Shows that a control has the focus from the keyboard: the style's focus rectangle along the control's edges, above
/// whatever stands in the control.
///
/// Being a focus frame keeps it out of what assistive technology is told. It is made when it is needed first, as a
/// child of the control.
class FocusMark : public QFocusFrame
{
    Q_OBJECT

public:
    /// To be called from the event() of `control` with every event, before it calls the base.
    static void follow(QWidget *control, const QEvent *event);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    explicit FocusMark(QWidget *control);

    void apply(const QFocusEvent *event);

    bool m_fromKeyboard = false;
};
