#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>

class QWidget;
class QWindow;

/// A move or resize of a window with the left button that the window manager has taken over: from begin() to what shows
/// that it is over.
///
/// The window manager keeps the release to itself on some platforms, so that the gesture counts as over as soon as the
/// pointer is seen in the window without the button, or with a press. On others the release comes first, and then the
/// place where the window has been left: a release before which nothing happened to the window is not the end. What the
/// program does to the window meanwhile is not the gesture's. GUI thread only.
class SystemGesture : public QObject
{
public:
    /// \param widget the widget whose window is moved or resized; not owned
    /// \param moved  called by the event loop after the window manager has given the window another place, and before
    ///               `ended` at the latest; may destroy anything
    /// \param ended  called once when the gesture is over; may destroy anything
    SystemGesture(QWidget *widget, std::function<void()> moved, std::function<void()> ended);

    /// Nothing happens for a widget without a native window.
    void begin();
    /// Forgets the gesture: `ended` is not called any more.
    void end();
    bool isUnderWay() const { return !m_window.isNull(); }

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    Q_DISABLE_COPY(SystemGesture)

    void tellMove();
    bool isOver(QObject *receiver, QEvent *event) const;

    QWidget *const m_widget;
    QPointer<QWindow> m_window; // while the gesture is under way
    bool m_moveIsDue = false;
    bool m_hasHappened = false; // a move or a resize since its begin
    std::function<void()> m_moved;
    std::function<void()> m_ended;
};
