#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QPixmap>
#include <QtWidgets/QDialog>

class QHBoxLayout;
class QLabel;

/// A dark, word-wrapping tooltip window with a small arrow. It closes and deletes itself when it loses
/// activation.
///
/// \image html class-customwraptexttooltip.png
///
/// The window has `Qt::WA_DeleteOnClose`: create it with `new`, and do not touch it after it has closed. It
/// carries no meta-object of its own. GUI thread only; all sizes are in device-independent pixels.
///
/// \par When to use it
/// For a hint that stays until the user goes on, at a place of its own. A text that comes and goes with the pointer
/// is QWidget::setToolTip().
///
/// \par Example
/// \snippet text.cpp customWrapTextToolTip
///
/// \since 1.0
/// \sa QToolTip
/// \ingroup text
class ORVCOMMONLIB_EXPORT customWrapTextToolTip : public QDialog
{
public:
    /// Where the arrow is.
    enum directionType : int {
        DirectionLeft = 0,   ///< arrow on the left edge, pointing left
        DirectionBottom = 1, ///< arrow on the bottom edge near the right, pointing down
    };

    /// The form that is 30 high, with the arrow on the left: room for one line. A longer text wraps, too, and
    /// what does not fit into that height is cut off.
    /// \param parent the owner; may be null
    explicit customWrapTextToolTip(QWidget *parent = nullptr);

    /// The form of a fixed width, with a text over as many lines as it takes.
    /// \param direction where the arrow is; a value other than the two paints no background
    /// \param width the width of the text
    /// \param parent the owner; may be null
    /// \param rightMargin the room to the right of the text in the form with the arrow at the bottom
    customWrapTextToolTip(directionType direction, int width, QWidget *parent, int rightMargin);
    ~customWrapTextToolTip() override;

    /// Fits the window to a new text.
    /// \param text the text, which wraps
    void setText(const QString &text);

    /// Shows and activates a tooltip of the first form, which owns itself.
    /// \param pos the global position of its top-left corner
    /// \param text the text
    static void popup(QPoint pos, const QString &text);

protected:
    /// Closes the tooltip when it loses activation, which it watches as a filter of its own.
    /// \param watched the tooltip
    /// \param event   what it is told
    /// \return false: it always gets the event
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(customWrapTextToolTip)

    void initWindow();
    QPixmap paintedBackground(QSize pixelSize) const;
    void applyWidth(QHBoxLayout *layout, int width, int rightMargin);

    QLabel *m_textLabel = nullptr;
    directionType m_direction = DirectionLeft;
    QPixmap m_background;
    QColor m_backgroundColor;
};
