#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtGui/QPixmap>
#include <QtWidgets/QDialog>

class QHBoxLayout;
class QLabel;

/// A dark, word-wrapping tooltip window with a small arrow. It closes and deletes itself when it loses
/// activation.
///
/// The window has `Qt::WA_DeleteOnClose`: create it with `new`, and do not touch it after it has closed. It
/// carries no meta-object of its own. GUI thread only; all sizes are in device-independent pixels.
class ORVCOMMONLIB_EXPORT customWrapTextToolTip : public QDialog
{
public:
    enum directionType : int {
        DirectionLeft = 0,   ///< arrow on the left edge, pointing left
        DirectionBottom = 1, ///< arrow on the bottom edge near the right, pointing down
    };

    /// One line, 30 high, with the arrow on the left.
    explicit customWrapTextToolTip(QWidget *parent = nullptr);

    /// Text of the fixed `width`, wrapped over as many lines as it takes. `rightMargin` is the room to the
    /// right of the text in the form with the arrow at the bottom. A direction other than the two paints no
    /// background.
    customWrapTextToolTip(directionType direction, int width, QWidget *parent, int rightMargin);
    ~customWrapTextToolTip() override;

    /// Sets the text and fits the window to it.
    void setText(const QString &text);

    /// Shows `text` in a one-line tooltip whose top-left corner is at the global point `pos`. The tooltip
    /// owns itself.
    static void popup(QPoint pos, const QString &text);

protected:
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
};
