#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtWidgets/QWidget>

#include <memory>

class FramelessHelper;
class PressGesture;
class SystemGesture;

/// The base of every dialog of the library: a frameless top-level widget that the user can drag by its title
/// strip and, where asked for, resize by its edges.
///
/// \image html dialog-basemovedialog.png
///
/// Two layers run side by side. A FramelessHelper of the dialog's own moves and resizes the window; it sees
/// each mouse event first. The dialog's handlers then only report, through the signals below. Style sheets
/// paint the dialog as they would a widget of Qt's own.
///
/// Where setSystemMoveResize() lets the window manager do that, the signals tell what it has done: sig_windowMoved()
/// each place that it has given the dialog (some window managers tell the last one only), and the finishing signals
/// that the gesture is over. Not every platform tells that: where none does, it shows when the pointer is next seen
/// over the dialog without the button, at the latest with the next press.
///
/// A press ends with its release, or with whatever takes that release away: the dialog is hidden, closed or
/// disabled, a modal window blocks it, or a popup opens. A move that has been reported is then reported as
/// finished, at the latest when control is back in the event loop; nothing else is emitted.
///
/// Lengths and positions are in device-independent pixels. To be used in the GUI thread only. Logs nothing. A
/// slot of any of the signals may destroy the dialog.
///
/// Nothing places a dialog by itself: unless moveOver() is called before it is shown, it stands where the window
/// system puts it, which is not over its parent.
///
/// \par When to use it
/// As the base of a dialog of your own that paints itself. With a picture as its ground it is a
/// BaseMoveDialogWithBackImage, with a title and a close button a CommonPopupDialog. A dialog that has the frame of
/// the desktop is a QDialog.
///
/// \par Example
/// \snippet frames.cpp BaseMoveDialog
///
/// \since 1.0
/// \sa FramelessHelper, BaseMoveDialogWithBackImage, CommonPopupDialog, \ref guide_dialogs
/// \ingroup frames
class ORVCOMMONLIB_EXPORT BaseMoveDialog : public QWidget
{
    Q_OBJECT
    /// Whether the user may drag the dialog.
    Q_PROPERTY(bool widgetMovable READ widgetMovable WRITE setWidgetMovable)
    /// Whether the user may resize the dialog.
    Q_PROPERTY(bool widgetResizable READ widgetResizable WRITE setWidgetResizable)

public:
    /// \param parent      the window that this one belongs to, or null
    /// \param canMove     whether the user may drag the dialog
    /// \param translucent whether what the dialog does not paint lets the desktop through
    /// \param asDialog    whether the window is a Qt::Dialog; otherwise it keeps the plain flags of a widget,
    ///                    and is a window of its own only without a parent
    BaseMoveDialog(QWidget *parent, bool canMove, bool translucent, bool asDialog);
    ~BaseMoveDialog() override;

    /// \param canMove whether the user may drag the dialog by the title strip
    void setCanMove(bool canMove);
    /// The same as setCanMove().
    /// \param movable whether the user may drag the dialog by the title strip
    void setWidgetMovable(bool movable) { setCanMove(movable); }
    /// \return whether the user may drag the dialog by the title strip
    bool widgetMovable() const { return m_canMove; }

    /// Limits the positions that sig_windowMoved() reports to those where the whole dialog lies inside a
    /// rectangle. A dialog that is larger than the rectangle is pinned to its left and top.
    /// \param rect the rectangle in screen coordinates, which is copied; null removes the limit
    void setRectOfCanMove(QRect *rect);

    /// Limits where a press may start a drag that is reported, and where a double click is. The limit cannot
    /// be removed again, only replaced.
    /// \param rect the rectangle in the dialog's own coordinates
    void setRectOfCanDrag(const QRect &rect);

    /// Sets how the borders of the dialog resize it.
    /// \param rubberBand      whether a rubber band is resized in place of the dialog
    /// \param borderWidth     the thickness of the borders, for every FramelessHelper of the process; 0 is
    ///                        ignored. A negative one leaves no border to press on; of the enlarged
    ///                        bottom-right corner, whose side is the border width plus
    ///                        FramelessHelper::rightBottomAreaExtraPix(), it leaves what that sum comes to.
    /// \param applyRubberBand whether `rubberBand` is taken over
    void setRectOfCanResize(bool rubberBand, int borderWidth, bool applyRubberBand);

    /// \param resizable whether the user may resize the dialog by its edges; false at first
    void setWidgetResizable(bool resizable);
    /// \return whether the user may resize the dialog by its edges
    bool widgetResizable() const { return m_resizable; }

    /// Lets the window manager move and resize the dialog, see FramelessHelper::setSystemMoveResize().
    /// \param enabled whether it does, false at first
    void setSystemMoveResize(bool enabled);

    /// \param height the height of the title strip, for every FramelessHelper of the process; 0 is ignored,
    ///               and with a negative one the whole widget is title strip
    void setWidgetTitleHeight(int height);

    /// \param enable whether the bottom-right corner area is enlarged, for every FramelessHelper of the
    ///               process
    void setEnableRightBottomResizeArea(bool enable);

    /// Centres the dialog's frame over that of a window, then brings it into the available area of that
    /// window's screen. A dialog larger than the area is pinned to its left and top. One that was never given
    /// a size is adjusted to its content first. Nothing moves the dialog when it is shown later, or when the
    /// window moves: call this right before showing it.
    /// \param window any widget of the window; null stands for the available area of the dialog's own screen
    void moveOver(const QWidget *window);

    /// \return whether a press of any button is under way. While the dialog cannot be moved, the end of a
    ///         press changes nothing, so that this stays true after the first one; clients rely on it.
    bool isMoving() const { return m_isMoving; }

    /// Starts what the signals below report. A press of any button counts for isMoving(), one of the left
    /// button for the rest. The event is left to the parent, as QWidget does it.
    /// \param event the press
    void mousePressEvent(QMouseEvent *event) override;
    /// Emits sig_windowMoved() where that is due, and leaves the event to the parent.
    /// \param event the move
    void mouseMoveEvent(QMouseEvent *event) override;
    /// Emits sig_windowMovefinished() and sig_windowResizefinished() where they are due, and leaves the event
    /// to the parent.
    /// \param event the release, of any button
    void mouseReleaseEvent(QMouseEvent *event) override;
    /// Counts as a press; then emits sig_doubleclickCanDragRect() where that is due.
    /// \param event the double click, of any button
    void mouseDoubleClickEvent(QMouseEvent *event) override;

Q_SIGNALS:
    /// The dialog is being dragged. Emitted for each move of the pointer with the left button held, or for each place
    /// that the window manager gives the dialog, unless the press was outside the rectangle of setRectOfCanDrag() or
    /// on a resize border.
    /// \param oPos the new top-left corner, in screen coordinates
    void sig_windowMoved(QPoint oPos);
    /// The first release after at least one sig_windowMoved(), or the loss of that release.
    void sig_windowMovefinished();
    /// The left button was released after a press on a resize border, at another position within the dialog
    /// than that of the press. Or the window manager has ended a resize that gave the dialog another size. Emitted
    /// after sig_windowMovefinished() where both are due.
    void sig_windowResizefinished();
    /// A double click inside the rectangle of setRectOfCanDrag(); never emitted without such a rectangle.
    void sig_doubleclickCanDragRect();

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(BaseMoveDialog)

    void reportMove(const QPoint &pos);
    void endPress(bool isElsewhere);
    void followSystemMove();
    void endSystemGesture();
    void losePress();
    bool isOnResizeBorder(const QPoint &pos) const;
    QPoint keptInRectOfCanMove(const QPoint &pos) const;

    bool m_canMove;
    std::unique_ptr<QRect> m_rectOfCanMove;
    std::unique_ptr<QRect> m_rectOfCanDrag;
    bool m_dragAllowedNow = true;
    bool m_isMoving = false;
    QPointer<FramelessHelper> m_framelessHelper;
    QPoint m_dragOffset;
    bool m_movedSincePress = false;
    bool m_resizable = false;
    bool m_resizing = false;
    QPoint m_pressPosition;
    bool m_reportingMove = false; // sig_windowMoved() is being emitted
    std::unique_ptr<PressGesture> m_press;
    std::unique_ptr<SystemGesture> m_systemGesture;
    QSize m_pressSize;
};
