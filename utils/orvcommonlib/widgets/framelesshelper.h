#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QObject>

#include <memory>

class BaseMoveDialog;
class QWidget;
struct FramelessHelperState;

/// Lets the user drag top-level widgets that have no native frame by a title strip, and resize them by their
/// edges and corners.
///
/// \image html dialog-framelesshelper.png
///
/// The helper watches each widget it is activated on with an event filter. It shows the resize cursors over
/// the edges, and while the left button is held it moves or resizes the widget, or a rubber band that stands
/// for it. Every event still reaches the widget, after the helper has acted on it. The helper sets no window
/// flag itself: making the widget frameless is the client's part.
///
/// A drag ends with the release of the left button, or with whatever takes that release away: the widget is
/// hidden, closed or disabled, a modal window blocks it, or a popup opens. The widget then stays where it is;
/// a rubber band is hidden and leaves nothing behind.
///
/// Where a client asks for it, the window manager does the moving and resizing instead: setSystemMoveResize().
///
/// Movability, resizability, rubber bands, the window manager's part and the edges that can be dragged are set for
/// each helper. Border width, title height and the two settings of the bottom-right area are deliberately shared by
/// all helpers of the process: a setter of any instance changes them for all, also for widgets that are already
/// watched.
///
/// All lengths are in device-independent pixels. To be used in the GUI thread only. Neither emits nor logs.
///
/// A press that a child of the widget takes never reaches the helper: a child that covers an edge hides that edge.
/// Leave a margin as wide as borderWidth() around the children, as a layout has it, or make those that take no
/// presses of their own transparent for them (`Qt::WA_TransparentForMouseEvents`).
///
/// \par When to use it
/// For a main window or a dialog of your own that has no native frame. A dialog that derives from BaseMoveDialog has
/// a helper already; a window with the frame of the desktop needs none.
///
/// \par Example
/// \snippet frames.cpp FramelessHelper
///
/// \since 1.0
/// \sa BaseMoveDialog, \ref guide_frames, QWindow::startSystemMove(), QWindow::startSystemResize()
/// \ingroup frames
class ORVCOMMONLIB_EXPORT FramelessHelper : public QObject
{
    Q_OBJECT

public:
    /// Movable and resizable by all four edges, no rubber bands.
    /// \param parent the owner, or null
    explicit FramelessHelper(QObject *parent = nullptr);

    /// Deactivates the helper on every widget that it still watches, as removeFrom() does.
    ~FramelessHelper() override;

    /// Starts watching a widget: switches its mouse tracking and Qt::WA_Hover on, and remembers its flags.
    /// \param w the widget; not owned, and forgotten when it is destroyed while it is watched. Nothing
    ///          happens for one that is watched already, or for null.
    void activateOn(QWidget *w);

    /// Stops watching a widget: switches its mouse tracking and Qt::WA_Hover off and sets back the window
    /// flags that it had when the helper was activated. A shown widget whose flags have changed since is
    /// hidden by that, as QWidget::setWindowFlags() always does; this is deliberate.
    /// \param w the widget; nothing happens for one that is not watched, or for null
    void removeFrom(QWidget *w);

    /// \param movable whether a left press in the title strip drags the widget; true at first
    void setWidgetMovable(bool movable);
    /// \return what setWidgetMovable() has set
    bool widgetMovable() const;

    /// \param resizable whether a left press on an edge resizes the widget, and whether the cursor tells so;
    ///                  true at first
    void setWidgetResizable(bool resizable);
    /// \return what setWidgetResizable() has set
    bool widgetResizable() const;

    /// \param rubberBand whether a drag moves a rubber band, and the widget itself only at the release; false
    ///                   at first
    void setRubberBandOnMove(bool rubberBand);
    /// \return what setRubberBandOnMove() has set
    bool rubberBandOnMove() const;

    /// \param rubberBand whether a drag resizes a rubber band, and the widget itself only at the release;
    ///                   false at first
    void setRubberBandOnResize(bool rubberBand);
    /// \return what setRubberBandOnResize() has set. The misspelled name is the one that clients use.
    bool rubberBandOnResisze() const;

    /// Lets the window manager move and resize the widgets of this helper, so that snapping, shaking and tiling work as
    /// the desktop has them, also where an application may not place its windows.
    ///
    /// A left press that would start a drag of the helper is handed over: QWindow::startSystemMove() or
    /// startSystemResize(). With that the helper's own press is over, and no rubber band is shown. Where the platform
    /// or the window manager refuses, and for widgets that are not windows, the helper goes on by itself.
    /// \param enabled whether it does, false at first; counts from the next press on
    void setSystemMoveResize(bool enabled);
    /// \return what setSystemMoveResize() has set
    bool systemMoveResize() const;

    /// Process-wide: the thickness of the band along each edge that counts as that edge.
    /// \param width 5 at first; 0 is ignored. Edges are compared signed: above the largest int it stands for
    ///              a negative width, which leaves no band.
    void setBorderWidth(unsigned int width);
    /// \return what setBorderWidth() has set
    unsigned int borderWidth() const;

    /// Process-wide: a left press above this height, in the widget's coordinates, starts a move.
    /// \param height 50 at first; 0 is ignored. It is compared as the number that it is: above the largest
    ///               int the whole widget is title strip.
    void setTitleHeight(unsigned int height);
    /// \return what setTitleHeight() has set
    unsigned int titleHeight() const;

    /// Process-wide: by how much the bottom-right corner area exceeds the border width while it is enlarged.
    /// \param extra 10 at first; 0 is ignored. Compared signed, as the border width that it is added to.
    void setRightBottomAreaExtraPix(unsigned int extra);
    /// \return what setRightBottomAreaExtraPix() has set
    unsigned int rightBottomAreaExtraPix() const;

    /// Process-wide. The misspelled name is the one that clients use.
    /// \param enable whether the bottom-right corner area is enlarged; false at first. The enlarged area
    ///               resizes whatever the drag directions are, also where a negative border width leaves no
    ///               band, as long as its sum with rightBottomAreaExtraPix() is not negative.
    void setEnabelRightBottomAreaResize(bool enable);
    /// \return what setEnabelRightBottomAreaResize() has set
    bool enableRightBottomAreaResizeState() const;

    /// Which edges of this helper's widgets can be dragged; all at first. A corner needs both of its edges.
    /// \param left   whether the left one can
    /// \param top    whether the top one can
    /// \param right  whether the right one can
    /// \param bottom whether the bottom one can
    void setDragDirection(bool left, bool top, bool right, bool bottom);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(FramelessHelper)
    friend class BaseMoveDialog;

    bool takeHandedOver(QWidget *w);
    void forget(QWidget *destroyed);
    void updateRubberBands();

    std::unique_ptr<FramelessHelperState> m_state;
};
