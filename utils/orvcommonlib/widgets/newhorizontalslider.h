#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

template<typename Slider>
class HorizontalSliderLogic;

/// A painted horizontal slider of a size of its own, with a look for the times when it is not to be used.
///
/// A drag of the handle moves it by pixels and picks the value nearest to it, halfway between two the upper
/// one; a click on the groove, which is a left press beside the handle and its release, moves the handle
/// there. A bidirectional slider colours from the centre of the range to the handle instead of from the left
/// end.
///
/// The looks are SVG files in a folder, the skin: "groove.svg" or "groove_bidirection.svg", "handle.svg", and
/// each with "_disabled" before the suffix. One that is missing or broken paints nothing.
///
/// Lengths are device-independent pixels. To be used in the GUI thread only. Logs nothing. A slot of any of
/// the signals may destroy the slider.
class ORVCOMMONLIB_EXPORT NewHorizontalSlider : public QWidget
{
    Q_OBJECT

public:
    /// \param size          the fixed size of the slider; the groove image is rendered at that many pixels
    /// \param handleSize    the size of the handle
    /// \param bidirectional whether the colour starts at the centre of the range
    NewHorizontalSlider(QSize size, QSize handleSize, bool bidirectional, QWidget *parent);
    ~NewHorizontalSlider() override;

    /// 0 to 100 at first. The value is left alone, even outside the range. With `max` equal to `min` the
    /// handle rests at the left end; with `max` below `min` the slider paints backwards and the pointer
    /// changes no value.
    void setRange(int min, int max);

    /// 0 at first.
    int value() const;
    /// Emits valueChanged() if the value is another one. It is deliberately not brought into the range: the
    /// handle then stands outside.
    void setValue(int val);

    /// The folder of the skin, ":/images/images/hslider2/" at first. Shows at the next paint; with the folder
    /// that it is already, what has changed in there since shows then, in all sliders.
    void setSkinPath(QString skinPath);
    QString getSkinPath() const;

    /// Kept for clients of HorizontalSlider: the groove fills the slider, and the height is not used.
    void setGrooveHeight(int height);
    /// Shows at the next paint, as does the following.
    void setHandleSize(QSize size);
    /// The colour of the groove up to the value while the slider is enabled, "#4B66EB" at first.
    void setValueColor(QColor color);

    /// Whether the slider takes presses and wears its colours; true at first. This is not
    /// QWidget::setEnabled(): while it is false the slider leaves presses and releases to QWidget, and so to
    /// its parent. A drag in progress goes on following the pointer; its release is not seen, so that
    /// it ends with the first release after the slider is enabled again.
    void setSliderEnabled(bool enabled);

Q_SIGNALS:
    /// The value is another one, by setValue() or by the user.
    void valueChanged(int val);
    /// A drag has changed the value; follows valueChanged().
    void sliderMoved(int val);
    /// True for every move of the pointer with the handle held, before the value follows; false when a drag
    /// has ended, after its last value.
    void sliderMoving(bool bMoving);

protected:
    /// Moves the handle by the horizontal way from the last pointer position to `point`, within the groove,
    /// and takes over the value there.
    void updateState(QPoint point);
    /// Takes over the value nearest to the handle. A handle outside its travel changes nothing.
    void updateValue();

    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Q_DISABLE_COPY(NewHorizontalSlider)
    friend class HorizontalSliderLogic<NewHorizontalSlider>;

    bool m_bidirectional;
    QString m_skinPath;
    int m_minimum = 0;
    int m_maximum = 100;
    int m_value = 0;
    QSize m_size;
    QSize m_handleSize;
    int m_grooveHeight = 10;
    QColor m_valueColor;
    QColor m_disabledValueColor;
    bool m_pressedOnHandle = false;
    bool m_moving = false;
    QPoint m_lastPosition;
    double m_step = 1.0;         // pixels per value, as last painted
    double m_handlePosition = 0; // the handle's centre
    QRectF m_grooveRect;         // the travel of the handle's centre, as last painted
    bool m_sliderEnabled = true;
    bool m_pressedOnGroove = false;
};
