#pragma once

#include "pressgesture.h"
#include "skinpainter.h"

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QSize>

class QKeyEvent;
class QMouseEvent;
class QWidget;
struct SliderTravel;

/// What HorizontalSlider and NewHorizontalSlider have in common: range and value, where the handle stands, its
/// drags, clicks on the groove, and the order of the signals.
///
/// A slot may destroy the slider, and this with it: functions that emit return false when that has happened.
class HorizontalSliderLogic
{
public:
    /// \param slider     whose member this is, and whose signals it emits
    /// \param size       the size that the slider gets
    /// \param handleSize the size of its handle
    template<typename Slider>
    HorizontalSliderLogic(Slider *slider, const QSize &size, const QSize &handleSize)
        : m_slider(slider)
        , m_valueChanged([](QWidget *s, int val) { Q_EMIT static_cast<Slider *>(s)->valueChanged(val); })
        , m_sliderMoved([](QWidget *s, int val) { Q_EMIT static_cast<Slider *>(s)->sliderMoved(val); })
        , m_sliderMoving(
              [](QWidget *s, int moving) { Q_EMIT static_cast<Slider *>(s)->sliderMoving(moving != 0); })
        , m_handleSize(handleSize)
        , m_press(slider, [this] { losePress(); })
    {
        setUp(size);
    }

    void setRange(int min, int max);
    void setMinimum(int min);
    void setMaximum(int max);
    int minimum() const { return m_minimum; }
    int maximum() const { return m_maximum; }
    int value() const { return m_value; }
    bool setValue(int val);
    QSize handleSize() const { return m_handleSize; }
    void setHandleSize(const QSize &size);

    /// False if the press is none of ours and belongs to the base class.
    bool press(QMouseEvent *event);
    bool move(QMouseEvent *event);
    bool release(QMouseEvent *event);
    /// False if the key is none of ours and belongs to the base class.
    bool pressKey(const QKeyEvent *event);
    bool updateState(QPoint point);
    bool updateValue();

    /// Takes over the travel for this paint; the handle goes where the value is, unless it is being dragged.
    void layOut(const QRectF &grooveArea, double rangeLength);
    QRectF handleRect() const;
    /// Half a handle width, in whole pixels.
    int half() const { return m_handleSize.width() / 2; }
    /// Where the centre of the range lies.
    double zeroX() const;
    /// The columns of the groove's image that take the colour. `shortening` is what they lack at the handle on
    /// the positive side of a bidirectional slider.
    SkinPainter::Columns valueColumns(bool bidirectional, double ratio, double shortening) const;

private:
    Q_DISABLE_COPY(HorizontalSliderLogic)

    using Signal = void (*)(QWidget *slider, int number);
    enum Pressed { Nothing, Groove, Handle };

    void setUp(const QSize &size);
    bool tell(Signal signal, int number) const;
    void losePress();
    bool clickGroove(int x);
    void moveHandle(double position);
    SliderTravel travel() const;

    QWidget *const m_slider;
    const Signal m_valueChanged;
    const Signal m_sliderMoved;
    const Signal m_sliderMoving;

    int m_minimum = 0;
    int m_maximum = 100;
    int m_value = 0;
    QSize m_handleSize;
    Pressed m_pressed = Nothing;
    bool m_moving = false;
    QPoint m_lastPosition;
    double m_step = 1.0;         // pixels per value, as last painted
    double m_handlePosition = 0; // the handle's centre
    QRectF m_grooveRect;         // the travel of the handle's centre, as last painted
    PressGesture m_press;
};
