#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QRect>
#include <QtWidgets/QWidget>

#include <memory>

class FramelessHelper;

/// The base of every dialog of the library: a frameless top-level widget that the user can drag by its title
/// strip and, where asked for, resize by its edges.
///
/// Two layers run side by side. A FramelessHelper of the dialog's own moves and resizes the window; it sees
/// each mouse event first. The dialog's handlers then only report, through the signals below. Style sheets
/// paint the dialog as they would a widget of Qt's own.
///
/// Lengths and positions are in device-independent pixels. To be used in the GUI thread only. Logs nothing. A
/// slot of any of the signals may destroy the dialog.
class ORVCOMMONLIB_EXPORT BaseMoveDialog : public QWidget
{
    Q_OBJECT

public:
    /// \param parent      the window that this one belongs to, or null
    /// \param canMove     whether the user may drag the dialog
    /// \param translucent whether what the dialog does not paint lets the desktop through
    /// \param asDialog    whether the window is a Qt::Dialog; otherwise it keeps the plain flags of a widget,
    /// and is
    ///                    a window of its own only without a parent
    BaseMoveDialog(QWidget *parent, bool canMove, bool translucent, bool asDialog);
    ~BaseMoveDialog() override;

    /// Whether the user may drag the dialog by the title strip.
    void setCanMove(bool canMove);

    /// Limits the positions that sig_windowMoved() reports to those where the whole dialog lies inside
    /// `rect`, in screen coordinates. A dialog that is larger than the rectangle is pinned to its left and
    /// top. The rectangle is copied; null removes the limit.
    void setRectOfCanMove(QRect *rect);

    /// Limits to `rect`, in the dialog's own coordinates, where a press may start a drag that is reported,
    /// and where a double click is. The rectangle is copied. The limit cannot be removed again, only
    /// replaced.
    void setRectOfCanDrag(const QRect &rect);

    /// Sets the thickness of the resize borders, for every FramelessHelper of the process; 0 is ignored and a
    /// negative value leaves no border to press on. `rubberBand`, whether a rubber band is resized in place
    /// of the dialog, is taken over only if `applyRubberBand` is set.
    void setRectOfCanResize(bool rubberBand, int borderWidth, bool applyRubberBand);

    /// Whether the user may resize the dialog by its edges. Off at first.
    void setWidgetResizable(bool resizable);

    /// The height of the title strip, for every FramelessHelper of the process; 0 is ignored and a negative
    /// value leaves no strip.
    void setWidgetTitleHeight(int height);

    /// Whether the bottom-right corner area is enlarged, for every FramelessHelper of the process.
    void setEnableRightBottomResizeArea(bool enable);

    /// True from a press of any button to the next release. While the dialog cannot be moved, a release
    /// changes nothing, so that this stays true after the first press; clients rely on it.
    bool isMoving() const;

    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

Q_SIGNALS:
    /// The dialog is being dragged, and this is its new top-left corner, in screen coordinates. Emitted for
    /// each move of the pointer with the left button held, unless the press was outside the rectangle of
    /// setRectOfCanDrag() or on a resize border.
    void sig_windowMoved(QPoint oPos);
    /// The first release after at least one sig_windowMoved().
    void sig_windowMovefinished();
    /// The left button was released after a press on a resize border, at another position within the dialog
    /// than that of the press. Emitted after sig_windowMovefinished() where both are due.
    void sig_windowResizefinished();
    /// A double click inside the rectangle of setRectOfCanDrag(). Without such a rectangle it is never
    /// emitted.
    void sig_doubleclickCanDragRect();

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    Q_DISABLE_COPY(BaseMoveDialog)

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
};
