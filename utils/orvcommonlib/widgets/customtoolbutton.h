#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QToolButton>

class QTimer;

/// The side of a CustomToolButton on which its attached panels open.
enum SettingWidgetDirection : int {
    Bottom = 0, ///< centred under the button, the offset below it
    Left = 1,   ///< left of the button with a gap of 14, vertically centred
    Top = 2,    ///< above the button with a gap of 25, centred, kept inside the top-level window
    Right = 3,  ///< right of the button, overlapping it by 14, vertically centred
};

/// A tool button that carries up to three attached panels: one opened by a click, one by hovering, and one by
/// a right click or a long press.
///
/// The panels belong to the application; the button only watches them, and a panel that is destroyed is
/// forgotten. It places each panel beside itself whenever the panel is shown: in the coordinates of the
/// panel's parent widget, or in global ones for a panel without a parent. The button consumes no events,
/// neither its own nor the panels'.
///
/// - A click opens the click panel and never closes it; it closes when it loses the focus while the pointer
/// is not on the
///   button.
/// - The right-click panel opens on a right click, or on the release of any button that was held for 1001
/// milliseconds or
///   longer.
/// - The hover panel opens under the pointer and closes 200 milliseconds after the pointer has left both it
/// and the
///   button.
///
/// A disabled button opens nothing. While the button is checked it ignores keyboard shortcuts. All distances
/// are in device-independent pixels. GUI thread only.
class ORVCOMMONLIB_EXPORT CustomToolButton : public QToolButton
{
    Q_OBJECT

public:
    /// With `uncheckOnHide` the button becomes unchecked when an attached panel hides, and the click panel
    /// does not take the focus when the pointer enters it. A `direction` other than the four places no panel.
    CustomToolButton(bool uncheckOnHide, QWidget *parent, SettingWidgetDirection direction);
    ~CustomToolButton() override;

    /// Attaches a panel; with `takeFocus` it gets the focus when it opens. Null detaches the panel.
    void setClickWidget(QWidget *panel, bool takeFocus);
    void setRightClickWidget(QWidget *panel, bool takeFocus);
    void setHoverWidget(QWidget *panel, bool takeFocus);
    /// The attached panels, null where there is none.
    QWidget *clickWidget() const { return m_clickPanel; }
    QWidget *rightClickWidget() const { return m_rightClickPanel; }
    QWidget *hoverWidget() const { return m_hoverPanel; }
    /// Opens the right-click panel, if there is one, as a right click does.
    void showRightClickWidget();

    /// The distance between the button and a panel under it; 6 at first.
    void setSettingWidgetOffset(int offset);

    /// Places all panels anew: to be called after the button has moved.
    void adjustWidgetPosition();

    /// Builds the button's style sheet from the paths of four pictures. The dynamic property `current`, which
    /// the sheet selects on, is the application's to set.
    void updateImage(const QString &normal, const QString &checked, const QString &hover,
                     const QString &disabled);

protected:
    /// The clock that long presses are measured with, in milliseconds since the epoch.
    virtual qint64 currentMSecs() const;

private:
    Q_DISABLE_COPY(CustomToolButton)

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    bool processClickWidget(QObject *watched, QEvent *event);
    bool processRightClickWidget(QObject *watched, QEvent *event);
    bool processHoverWidget(QObject *watched, QEvent *event);
    void openOnRelease(Qt::MouseButton button);
    void closeClickPanel();
    void uncheckAfterHide();
    void stopHoverTimer();

    void adjustWidget(QWidget *panel);
    QPoint toPanelParent(const QWidget *panel, QPoint ownPos) const;
    QRect keptInsideWindow(const QWidget *panel, QRect geometry) const;

    bool m_uncheckOnHide = false;
    QPointer<QWidget> m_rightClickPanel;
    bool m_rightClickTakesFocus = false;
    qint64 m_pressTime = 0;
    QPointer<QWidget> m_clickPanel;
    bool m_clickTakesFocus = false;
    QPointer<QWidget> m_hoverPanel;
    bool m_hoverTakesFocus = false;
    SettingWidgetDirection m_direction = Bottom;
    int m_offset = 6;
    QTimer *m_hoverTimer = nullptr;
};
