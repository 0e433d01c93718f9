#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

#include <memory>
#include <optional>

class HorizontalSliderLogic;

/// A painted horizontal slider of a size of its own, with a look for the times when it is not to be used.
///
/// \image html class-newhorizontalslider.png
///
/// Drags, clicks and keys, the colour of the groove, the skin and the signals are those of HorizontalSlider, except
/// for what is said here. There is no centre mark. The skin's files are "groove.svg" or
/// "groove_bidirection.svg", "handle.svg", and each with "_disabled" before the suffix.
///
/// Lengths are device-independent pixels. To be used in the GUI thread only. Logs nothing. A slot of any of
/// the signals may destroy the slider.
///
/// QWidget::setEnabled() with `false` does not change the look: setSliderEnabled() does.
///
/// \par When to use it
/// For a value on a light ground, in a size of your own, that can be switched off. Ticks, a vertical slider or the
/// style of the platform are a QSlider's.
///
/// \par Example
/// \snippet sliders.cpp NewHorizontalSlider
///
/// \since 1.0
/// \sa HorizontalSlider, \ref guide_sliders
/// \ingroup sliders
class ORVCOMMONLIB_EXPORT NewHorizontalSlider : public QWidget
{
    Q_OBJECT
    /// The value at the left end.
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum)
    /// The value at the right end.
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    /// The value, which may lie outside the range.
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged USER true)
    /// The folder of the skin.
    Q_PROPERTY(QString skinPath READ getSkinPath WRITE setSkinPath)
    /// The height of the groove, which is not used.
    Q_PROPERTY(int grooveHeight READ grooveHeight WRITE setGrooveHeight)
    /// The size of the handle.
    Q_PROPERTY(QSize handleSize READ handleSize WRITE setHandleSize)
    /// The colour of the groove up to the value while the slider is enabled.
    Q_PROPERTY(QColor valueColor READ valueColor WRITE setValueColor)
    /// Whether the colour starts at the centre of the range.
    Q_PROPERTY(bool bidirectional READ isBidirectional WRITE setBidirectional)
    /// Whether the slider takes presses and wears its colours. Not QWidget::enabled.
    Q_PROPERTY(bool sliderEnabled READ isSliderEnabled WRITE setSliderEnabled)

public:
    /// Of the measures that a HorizontalSlider has: 206 x 14 with a handle of 14 x 14, coloured from the left end.
    /// \param parent the parent widget, or null
    explicit NewHorizontalSlider(QWidget *parent = nullptr);
    /// \param size          the fixed size of the slider; the groove image is rendered at that many pixels
    /// \param handleSize    the size of the handle
    /// \param bidirectional whether the colour starts at the centre of the range
    /// \param parent        the parent widget, or null
    NewHorizontalSlider(QSize size, QSize handleSize, bool bidirectional, QWidget *parent);
    ~NewHorizontalSlider() override;

    /// \copydoc HorizontalSlider::setRange
    void setRange(int min, int max);
    /// \return the value at the left end
    int minimum() const;
    /// \copydoc HorizontalSlider::setMinimum
    void setMinimum(int min);
    /// \return the value at the right end
    int maximum() const;
    /// \copydoc HorizontalSlider::setMaximum
    void setMaximum(int max);

    /// \return the value, 0 at first
    int value() const;
    /// \copydoc HorizontalSlider::setValue
    void setValue(int val);

    /// As HorizontalSlider::setSkinPath().
    /// \param skinPath the folder of the skin, ":/images/images/hslider2/" at first
    void setSkinPath(QString skinPath);
    /// \copydoc HorizontalSlider::getSkinPath
    QString getSkinPath() const { return m_skinPath; }

    /// Kept for clients of HorizontalSlider.
    /// \param height not used: the groove fills the slider
    void setGrooveHeight(int height) { m_grooveHeight = height; }
    /// \return what setGrooveHeight() has set, 10 at first
    int grooveHeight() const { return m_grooveHeight; }
    /// \param size the size of the handle
    void setHandleSize(QSize size);
    /// \return the size of the handle
    QSize handleSize() const;
    /// \param color the colour of the groove up to the value while the slider is enabled, at first that of the
    ///        look in force, "#4B66EB" in the light one, see OrvLook
    void setValueColor(QColor color);
    /// \return the colour of the groove up to the value while the slider is enabled
    QColor valueColor() const;

    /// \copydoc HorizontalSlider::setBidirectional
    void setBidirectional(bool bidirectional);
    /// \copydoc HorizontalSlider::isBidirectional
    bool isBidirectional() const { return m_bidirectional; }

    /// This is not QWidget::setEnabled(). A drag in progress goes on following the pointer while the slider is
    /// disabled; its release is not seen, so that it ends with the first release after the slider is enabled
    /// again.
    /// \param enabled whether the slider takes presses and wears its colours, true at first; while it is false
    ///                the slider leaves presses, releases and keys to QWidget, and so to its parent
    void setSliderEnabled(bool enabled);
    /// \return what setSliderEnabled() has set
    bool isSliderEnabled() const { return m_sliderEnabled; }

Q_SIGNALS:
    /// \copydoc HorizontalSlider::valueChanged
    void valueChanged(int val);
    /// \copydoc HorizontalSlider::sliderMoved
    void sliderMoved(int val);
    /// \copydoc HorizontalSlider::sliderMoving
    void sliderMoving(bool bMoving);

protected:
    /// \copydoc HorizontalSlider::updateState
    void updateState(QPoint point);
    /// \copydoc HorizontalSlider::updateValue
    void updateValue();

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    Q_DISABLE_COPY(NewHorizontalSlider)

    QColor colorOfGroove() const;

    bool m_bidirectional;
    QString m_skinPath;
    QSize m_size;
    std::unique_ptr<HorizontalSliderLogic> m_logic; // range, value, handle and gestures
    int m_grooveHeight = 10;
    std::optional<QColor> m_valueColor; // otherwise the look's
    bool m_sliderEnabled = true;
};
