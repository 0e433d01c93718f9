#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>

class QWidget;

/// A press on a widget that is under way: from begin(), at the press, to end(), at the release, or to
/// whatever makes sure that the release never comes.
///
/// A press loses its end when, before the release,
/// - the widget is hidden, by itself or with anything that it lies in, a minimised window included,
/// - the widget or its window is asked to close, also where the window refuses to,
/// - the widget is disabled, by itself or with anything that it lies in,
/// - a modal window blocks the widget's window,
/// - the widget is told that it has lost the mouse (QEvent::UngrabMouse),
/// - a popup opens anywhere in the application, such as a context menu: it takes all that follows.
///
/// From then on isUnderWay() and end() answer false, so that a flag of the class's own is not needed:
///
/// \code
/// void X::mousePressEvent(QMouseEvent *event)   { m_press->begin(); ... }
/// void X::mouseMoveEvent(QMouseEvent *event)    { if (m_press->isUnderWay()) ... }
/// void X::mouseReleaseEvent(QMouseEvent *event) { if (m_press->end()) ... }
/// \endcode
///
/// Nothing is watched, and no event costs anything, while no press is under way. The object that holds the
/// gesture need not be the widget; a widget that is destroyed has no press under way any more, and nobody is
/// told. The gesture itself may be destroyed at any time, also within its own calls. GUI thread only.
class PressGesture : public QObject
{
public:
    /// \param widget the widget that is pressed; not owned
    /// \param lost   called once each time that a press loses its end, before the event that takes it is
    ///               delivered; isUnderWay() is false by then. It puts the state of its class in order and
    ///               emits nothing: Qt goes on using the widgets that it is hiding, disabling or blocking, so
    ///               that a slot that destroys one of them would crash. What is to be emitted goes through
    ///               announce().
    explicit PressGesture(QWidget *widget, std::function<void()> lost = {});

    /// Starts a press, afresh if one is under way. What is still to be announced is announced first.
    /// \return false if that has destroyed the gesture, and most likely its owner: touch nothing then
    bool begin();

    /// Ends the press, as its release does. The `lost` of this press is not called any more.
    /// \return whether a press was under way
    bool end();

    /// Whether a press is under way that has not lost its end.
    bool isUnderWay() const;

    /// For how many milliseconds the press has been under way by now; 0 when none is.
    qint64 duration() const;

    /// To be called by `lost`: runs `announcement`, which may emit and may destroy anything, as soon as Qt
    /// needs none of the widgets any more. That is before a hide(), a setEnabled() or the like of the widget
    /// itself returns, otherwise when control is back in the event loop, and in any case before the next
    /// press begins. A gesture that is destroyed before that announces nothing.
    /// \param announcement what the class tells its clients; may destroy the gesture and its owner
    void announce(std::function<void()> announcement);

    /// What durations are measured with, in milliseconds. Tests turn it.
    static qint64 (*clock)();

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override;

private:
    Q_DISABLE_COPY(PressGesture)

    bool takesTheEnd(QObject *receiver, QEvent *event) const;
    bool leavesTheWidgetAlone(QObject *receiver, QEvent *event) const;
    void lose();
    bool announceNow();
    void watchWhileNeeded();

    QPointer<QWidget> m_widget;
    std::function<void()> m_lost;
    std::function<void()> m_announcement;
    qint64 m_begin = 0;
    bool m_underWay = false;
    bool m_watching = false;
};
