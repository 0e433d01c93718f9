#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QObject>

#include <memory>

class QWidget;
struct FramelessHelperState;

/// Lets the user drag top-level widgets that have no native frame by a title strip, and resize them by their
/// edges and corners.
///
/// The helper watches each widget it is activated on with an event filter. It shows the resize cursors over
/// the edges, and while the left button is held it moves or resizes the widget, or a rubber band that stands
/// for it. Every event still reaches the widget, after the helper has acted on it. The helper sets no window
/// flag itself: making the widget frameless is the client's part.
///
/// Movability, resizability, rubber bands and the edges that can be dragged are set for each helper. Border
/// width, title height and the two settings of the bottom-right area are deliberately shared by all helpers
/// of the process: a setter of any instance changes them for all, also for widgets that are already watched.
///
/// All lengths are in device-independent pixels. To be used in the GUI thread only. Emits nothing and logs
/// nothing.
class ORVCOMMONLIB_EXPORT FramelessHelper : public QObject
{
    Q_OBJECT

public:
    /// Movable and resizable by all four edges, no rubber bands.
    explicit FramelessHelper(QObject *parent = nullptr);

    /// Deactivates the helper on every widget that it still watches, as removeFrom() does.
    ~FramelessHelper() override;

    /// Starts watching `w`, switches its mouse tracking and Qt::WA_Hover on, and remembers its window flags.
    /// Does nothing for a widget that is watched already, or for null. The widget is not owned; one that is
    /// destroyed while it is watched is forgotten.
    void activateOn(QWidget *w);

    /// Stops watching `w`: switches its mouse tracking and Qt::WA_Hover off and sets back the window flags
    /// that it had when the helper was activated. A shown widget whose flags have changed since is hidden by
    /// that, as QWidget::setWindowFlags() always does; this is deliberate. Does nothing for a widget that is
    /// not watched, or for null.
    void removeFrom(QWidget *w);

    /// Whether a left press in the title strip drags the widget. Default: true.
    void setWidgetMovable(bool movable);
    bool widgetMovable() const;

    /// Whether a left press on an edge resizes the widget, and whether the cursor tells so. Default: true.
    void setWidgetResizable(bool resizable);
    bool widgetResizable() const;

    /// Whether a drag moves a rubber band, and the widget itself only at the release. Default: false.
    void setRubberBandOnMove(bool rubberBand);
    bool rubberBandOnMove() const;

    /// Whether a drag resizes a rubber band, and the widget itself only at the release. Default: false.
    void setRubberBandOnResize(bool rubberBand);
    bool rubberBandOnResisze() const; ///< The misspelled name is the one that clients use.

    /// Process-wide: the thickness of the band along each edge that counts as that edge. Default: 5; 0 is
    /// ignored. It takes part in signed comparisons, so a value above the largest int leaves no band at all.
    void setBorderWidth(unsigned int width);
    unsigned int borderWidth() const;

    /// Process-wide: a left press above this height, in the widget's coordinates, starts a move. Default: 50;
    /// 0 is ignored. It takes part in signed comparisons, so a value above the largest int leaves no title
    /// strip at all.
    void setTitleHeight(unsigned int height);
    unsigned int titleHeight() const;

    /// Process-wide: by how much the bottom-right corner area is widened while it is enlarged. Default: 10; 0
    /// is ignored.
    void setRightBottomAreaExtraPix(unsigned int extra);
    unsigned int rightBottomAreaExtraPix() const;

    /// Process-wide: whether the bottom-right corner area is enlarged. The enlarged area resizes whatever the
    /// drag directions are. Default: false. The misspelled name is the one that clients use.
    void setEnabelRightBottomAreaResize(bool enable);
    bool enableRightBottomAreaResizeState() const;

    /// Which edges of this helper's widgets can be dragged. Default: all. A corner needs both of its edges.
    void setDragDirection(bool left, bool top, bool right, bool bottom);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(FramelessHelper)

    void forget(QWidget *destroyed);
    void updateRubberBands();

    std::unique_ptr<FramelessHelperState> m_state;
};
