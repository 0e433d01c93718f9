#pragma once

#include "skinpainter.h"
#include "slidertravel.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

/// What HorizontalSlider and NewHorizontalSlider do alike, on the members that both have under the same
/// names: finding values, moving the handle, and the order of the signals. A friend of both.
///
/// A slot may destroy the slider: functions that emit return false when that has happened.
template<typename Slider>
class HorizontalSliderLogic
{
public:
    explicit HorizontalSliderLogic(Slider *slider)
        : m_slider(slider)
    {
    }

    void setUp(const QSize &size);
    void setRange(int min, int max);
    void setValue(int val);

    /// False if the press is none of ours and belongs to the base class.
    bool press(QMouseEvent *event);
    bool move(QMouseEvent *event);
    bool release(QMouseEvent *event);
    bool updateState(QPoint point);
    bool updateValue();

    /// Takes over the travel for this paint; the handle goes where the value is, unless it is being dragged.
    void layOut(const QRectF &grooveArea, double rangeLength);
    QRectF handleRect() const;
    /// Half a handle width, in whole pixels.
    int half() const { return m_slider->m_handleSize.width() / 2; }
    /// Where the centre of the range lies.
    double zeroX() const;
    /// The columns of the groove's image that take the colour. `shortening` is what it lacks at the handle on
    /// the positive side of a bidirectional slider.
    SkinPainter::Columns valueColumns(double ratio, double shortening) const;

private:
    SliderTravel travel() const;
    bool clickGroove(int x);
    void moveHandle(double position);

    Slider *const m_slider;
};

template<typename Slider>
void HorizontalSliderLogic<Slider>::setUp(const QSize &size)
{
    m_slider->setAttribute(Qt::WA_TranslucentBackground, true);
    m_slider->setWindowFlags(m_slider->windowFlags() | Qt::FramelessWindowHint);
    m_slider->setCursor(Qt::PointingHandCursor);
    m_slider->setContentsMargins(0, 0, 0, 0);
    m_slider->setFixedSize(size);
    SkinPainter::forgetFiles();
}

template<typename Slider>
void HorizontalSliderLogic<Slider>::setRange(int min, int max)
{
    m_slider->m_minimum = min;
    m_slider->m_maximum = max;
    m_slider->update();
}

template<typename Slider>
void HorizontalSliderLogic<Slider>::setValue(int val)
{
    if (val == m_slider->m_value)
        return;
    m_slider->m_value = val;
    m_slider->update();
    Q_EMIT m_slider->valueChanged(val);
}

template<typename Slider>
bool HorizontalSliderLogic<Slider>::press(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    m_slider->m_lastPosition = event->pos();
    const bool onHandle = handleRect().contains(event->pos());
    m_slider->m_pressedOnHandle = m_slider->m_pressedOnHandle || onHandle;
    m_slider->m_pressedOnGroove = !onHandle;
    event->accept();
    return true;
}

template<typename Slider>
bool HorizontalSliderLogic<Slider>::move(QMouseEvent *event)
{
    if (!m_slider->m_pressedOnHandle)
        return true;
    const QPointer<Slider> guard(m_slider);
    Q_EMIT m_slider->sliderMoving(true);
    if (!guard)
        return false;
    m_slider->m_moving = true;
    // Beyond the edges the drag rests until the pointer is back inside.
    if (event->x() < 0 || event->x() > m_slider->width())
        return true;
    if (!updateState(event->pos()))
        return false;
    m_slider->m_lastPosition = event->pos();
    return true;
}

template<typename Slider>
bool HorizontalSliderLogic<Slider>::release(QMouseEvent *event)
{
    const QPointer<Slider> guard(m_slider);
    if (m_slider->m_pressedOnHandle) {
        if (m_slider->m_moving) {
            if (!updateState(event->pos()))
                return false;
            m_slider->m_moving = false;
            Q_EMIT m_slider->sliderMoving(false);
            if (!guard)
                return false;
        }
        m_slider->m_pressedOnHandle = false;
    } else if (m_slider->m_pressedOnGroove && event->button() == Qt::LeftButton) {
        m_slider->m_pressedOnGroove = false;
        return clickGroove(event->x());
    }
    return true;
}

// The travel is signed on purpose: however far the pointer went to the left, it was a click.
template<typename Slider>
bool HorizontalSliderLogic<Slider>::clickGroove(int x)
{
    if (qint64(x) - m_slider->m_lastPosition.x() >= QApplication::startDragDistance())
        return true;
    moveHandle(x);
    if (!updateValue())
        return false;
    m_slider->update();
    return true;
}

template<typename Slider>
bool HorizontalSliderLogic<Slider>::updateState(QPoint point)
{
    moveHandle(m_slider->m_handlePosition + (double(point.x()) - m_slider->m_lastPosition.x()));
    if (!updateValue())
        return false;
    m_slider->update();
    return true;
}

template<typename Slider>
bool HorizontalSliderLogic<Slider>::updateValue()
{
    int found = 0;
    if (!travel().valueAt(m_slider->m_handlePosition, &found) || found == m_slider->m_value)
        return true;
    const QPointer<Slider> guard(m_slider);
    m_slider->m_value = found;
    Q_EMIT m_slider->valueChanged(found);
    if (guard && guard->m_moving)
        Q_EMIT guard->sliderMoved(found);
    return !guard.isNull();
}

template<typename Slider>
void HorizontalSliderLogic<Slider>::moveHandle(double position)
{
    m_slider->m_handlePosition =
        qBound(m_slider->m_grooveRect.left(), position, m_slider->m_grooveRect.right());
}

template<typename Slider>
void HorizontalSliderLogic<Slider>::layOut(const QRectF &grooveArea, double rangeLength)
{
    m_slider->m_grooveRect = grooveArea.adjusted(half(), 0, -half(), 0);
    m_slider->m_step = SliderTravel::stepFor(rangeLength, m_slider->m_minimum, m_slider->m_maximum);
    if (!m_slider->m_moving)
        m_slider->m_handlePosition = travel().position(m_slider->m_value);
}

template<typename Slider>
SliderTravel HorizontalSliderLogic<Slider>::travel() const
{
    return {m_slider->m_minimum, m_slider->m_maximum, double(half()), m_slider->m_step};
}

template<typename Slider>
QRectF HorizontalSliderLogic<Slider>::handleRect() const
{
    QRectF rect(QPointF(0, 0), QSizeF(m_slider->m_handleSize));
    rect.moveCenter(QPointF(m_slider->m_handlePosition, rect.height() / 2));
    return rect;
}

template<typename Slider>
double HorizontalSliderLogic<Slider>::zeroX() const
{
    return travel().position(travel().middle());
}

template<typename Slider>
SkinPainter::Columns HorizontalSliderLogic<Slider>::valueColumns(double ratio, double shortening) const
{
    const double handleX = m_slider->m_handlePosition;
    if (!m_slider->m_bidirectional)
        return {0, handleX * ratio};
    if (m_slider->m_value >= travel().middle())
        return {zeroX() * ratio, (handleX - shortening) * ratio};
    return {handleX * ratio, zeroX() * ratio};
}
