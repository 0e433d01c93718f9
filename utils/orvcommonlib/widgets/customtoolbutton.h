#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QEvent>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtWidgets/QToolButton>

#include <memory>

class PressGesture;
class QTimer;

/// The side of a CustomToolButton on which its attached panels open.
/// \ingroup buttons
enum SettingWidgetDirection : int {
    Bottom = 0, ///< centred under the button, the offset below it
    Left = 1,   ///< left of the button with a gap of 14, vertically centred
    Top = 2,    ///< above the button with a gap of 25, centred, kept inside the top-level window
    Right = 3,  ///< right of the button, overlapping it by 14, vertically centred
};

/// A tool button that carries up to three attached panels: one opened by a click, one by hovering, and one by
/// a right click or a long press.
///
/// \image html class-customtoolbutton.png
///
/// The panels belong to the application; the button only watches them, and forgets one that is destroyed,
/// replaced or detached. It places each panel beside itself whenever the panel is shown: in the coordinates
/// of the panel's parent widget, or in global ones for a panel without a parent. The button consumes no
/// events, neither its own nor the panels'.
///
/// - The click panel opens at the release of any mouse button. A click never closes it. One that takes the
///   focus closes when it loses it, also to a control within it, while the pointer is not on the button; any
///   other stays open.
/// - The right-click panel opens at the release of the right mouse button, or of any that was held for 1001
///   milliseconds or longer. A press that loses its release (the button is hidden, closed or disabled
///   meanwhile, a modal window blocks it, or a popup opens) is no long one. The panel never closes by itself.
/// - The hover panel opens under the pointer and closes 200 milliseconds after the pointer has left both it
///   and the button.
///
/// A panel is made the active window when the pointer enters it. A disabled button opens nothing, and ignores
/// that the pointer leaves it. While the button is checked it ignores keyboard shortcuts. All distances are
/// in device-independent pixels. GUI thread only. Placing a panel logs its rectangle.
///
/// \par When to use it
/// For a button with panels of controls. A menu is a QToolButton with QToolButton::setMenu().
///
/// \par Example
/// \snippet buttons.cpp CustomToolButton
///
/// \since 1.0
/// \sa QToolButton, \ref guide_buttons, \ref guide_logging
/// \ingroup buttons
class ORVCOMMONLIB_EXPORT CustomToolButton : public QToolButton
{
    Q_OBJECT
    /// Whether the button becomes unchecked when a panel is hidden.
    Q_PROPERTY(bool uncheckOnHide READ uncheckOnHide WRITE setUncheckOnHide)
    /// The distance between the button and a panel under it.
    Q_PROPERTY(int settingWidgetOffset READ settingWidgetOffset WRITE setSettingWidgetOffset)
    /// The side on which the panels open.
    Q_PROPERTY(SettingWidgetDirection settingWidgetDirection READ settingWidgetDirection WRITE
                   setSettingWidgetDirection)

public:
#ifndef Q_MOC_RUN
    using SettingWidgetDirection = ::SettingWidgetDirection;   ///< for generated form code
    static constexpr SettingWidgetDirection Bottom = ::Bottom; ///< for generated form code
    static constexpr SettingWidgetDirection Left = ::Left;     ///< for generated form code
    static constexpr SettingWidgetDirection Top = ::Top;       ///< for generated form code
    static constexpr SettingWidgetDirection Right = ::Right;   ///< for generated form code
#else
    // The meta-object has the directions as the button's own, which form code and Designer name them by.
    enum SettingWidgetDirection { Bottom = 0, Left = 1, Top = 2, Right = 3 };
    Q_ENUM(SettingWidgetDirection)
#endif

    /// A button that stays checked when a panel is hidden, and whose panels open under it.
    /// \param parent the parent widget, or null
    explicit CustomToolButton(QWidget *parent = nullptr);
    /// \param uncheckOnHide whether the button becomes unchecked when the right-click panel or the hover
    ///                      panel is hidden, by whomever, and when the click panel closes by losing the
    ///                      focus. The click panel then does not take the focus when the pointer enters it,
    ///                      as it otherwise does.
    /// \param parent        the parent widget, or null
    /// \param direction     where the panels open; a value other than the four places no panel
    CustomToolButton(bool uncheckOnHide, QWidget *parent, SettingWidgetDirection direction);
    ~CustomToolButton() override;

    /// Attaches the panel that a click opens, in place of the one before.
    /// \param panel     the panel, not owned; null detaches
    /// \param takeFocus whether the panel becomes active and gets the focus when it opens, and closes when it
    ///                  loses it
    void setClickWidget(QWidget *panel, bool takeFocus);

    /// Attaches the panel that a right click or a long press opens, in place of the one before.
    /// \param panel     the panel, not owned; null detaches
    /// \param takeFocus whether the panel becomes active and gets the focus when it opens, and the focus when
    ///                  the pointer enters it
    void setRightClickWidget(QWidget *panel, bool takeFocus);

    /// Attaches the panel that hovering opens, in place of the one before.
    /// \param panel     the panel, not owned; null detaches
    /// \param takeFocus whether the panel gets the focus when it opens and when the pointer enters it
    void setHoverWidget(QWidget *panel, bool takeFocus);

    /// \return the panel that a click opens, or null
    QWidget *clickWidget() const
    {
        return m_clickPanel.widget;
    }
    /// \return the panel that a right click opens, or null
    QWidget *rightClickWidget() const
    {
        return m_rightClickPanel.widget;
    }
    /// \return the panel that hovering opens, or null
    QWidget *hoverWidget() const
    {
        return m_hoverPanel.widget;
    }
    /// Opens the right-click panel, if there is one, as a right click does.
    void showRightClickWidget();

    /// \return whether the button becomes unchecked when a panel is hidden
    bool uncheckOnHide() const
    {
        return m_uncheckOnHide;
    }
    /// \param uncheck whether the button becomes unchecked when a panel is hidden, as the constructor has it
    void setUncheckOnHide(bool uncheck)
    {
        m_uncheckOnHide = uncheck;
    }

    /// \param offset the distance between the button and a panel under it; 6 at first. Panels that are shown stay
    ///               where they are until adjustWidgetPosition().
    void setSettingWidgetOffset(int offset)
    {
        m_offset = offset;
    }
    /// \return the distance between the button and a panel under it
    int settingWidgetOffset() const
    {
        return m_offset;
    }

    /// \return the side on which the panels open
    SettingWidgetDirection settingWidgetDirection() const
    {
        return m_direction;
    }
    /// \param direction the side on which the panels open; a value other than the four places no panel. Panels
    ///                  that are shown stay where they are until adjustWidgetPosition().
    void setSettingWidgetDirection(SettingWidgetDirection direction)
    {
        m_direction = direction;
    }

    /// Places all panels anew: to be called after the button has moved.
    void adjustWidgetPosition();

    /// Builds the button's style sheet from the paths of four pictures. The dynamic property `current`, which
    /// the sheet selects on, is the application's to set.
    /// \param normal   the picture of the button at rest
    /// \param checked  that of the checked button
    /// \param hover    that under the pointer
    /// \param disabled that of the disabled button
    void updateImage(const QString &normal, const QString &checked, const QString &hover,
                     const QString &disabled);

private:
    Q_DISABLE_COPY(CustomToolButton)

    struct AttachedPanel
    {
        QPointer<QWidget> widget;
        bool takesFocus = false;
    };

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    bool processClickWidget(QObject *watched, QEvent *event);
    bool processRightClickWidget(QObject *watched, QEvent *event);
    bool processHoverWidget(QObject *watched, QEvent *event);
    void processPanel(const AttachedPanel &panel, QEvent::Type type);
    void attach(AttachedPanel *place, QWidget *panel, bool takeFocus);
    void closeClickPanel();
    void uncheckAfterHide();

    void adjustWidget(QWidget *panel);
    QPoint toPanelParent(const QWidget *panel, QPoint ownPos) const;
    QRect keptInsideWindow(const QWidget *panel, QRect geometry) const;

    bool m_uncheckOnHide = false;
    AttachedPanel m_rightClickPanel;
    std::unique_ptr<PressGesture> m_press;
    bool m_longPress = false; // the release that is being handled ends one
    AttachedPanel m_clickPanel;
    AttachedPanel m_hoverPanel;
    SettingWidgetDirection m_direction = Bottom;
    int m_offset = 6;
    QTimer *m_hoverTimer = nullptr; // of the present hover panel
};

/// The same for QMetaEnum::fromType() and QVariant::fromValue(), as Q_ENUM does it inside a class.
inline const QMetaObject *qt_getEnumMetaObject(SettingWidgetDirection)
{
    return &CustomToolButton::staticMetaObject;
}
constexpr const char *qt_getEnumName(SettingWidgetDirection)
{
    return "SettingWidgetDirection";
}
