#include "horizontalsliderlogic.h"

#include "accessiblenotification.h"
#include "bounded.h"
#include "plainkey.h"
#include "slidertravel.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <utility>

void HorizontalSliderLogic::setUp(const QSize &size)
{
    m_slider->setAttribute(Qt::WA_TranslucentBackground, true);
    m_slider->setWindowFlags(m_slider->windowFlags() | Qt::FramelessWindowHint);
    m_slider->setCursor(Qt::PointingHandCursor);
    m_slider->setContentsMargins(0, 0, 0, 0);
    m_slider->setFixedSize(size);
    SkinPainter::forgetFiles();
}

bool HorizontalSliderLogic::tell(Signal signal, int number) const
{
    const QPointer<QWidget> alive(m_slider);
    signal(m_slider, number);
    return !alive.isNull();
}

void HorizontalSliderLogic::setRange(int min, int max)
{
    m_minimum = min;
    m_maximum = max;
    m_slider->update();
}

void HorizontalSliderLogic::setMinimum(int min)
{
    if (min != m_minimum)
        setRange(min, m_maximum);
}

void HorizontalSliderLogic::setMaximum(int max)
{
    if (max != m_maximum)
        setRange(m_minimum, max);
}

void HorizontalSliderLogic::setHandleSize(const QSize &size)
{
    if (size == m_handleSize)
        return;
    m_handleSize = size;
    m_slider->update();
}

bool HorizontalSliderLogic::setValue(int val)
{
    if (val == m_value)
        return true;
    m_value = val;
    AccessibleNotification::valueChanged(m_slider, val);
    m_slider->update();
    return tell(m_valueChanged, val);
}

bool HorizontalSliderLogic::press(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return false;
    event->accept();
    if (!m_press.begin())
        return true;
    m_lastPosition = event->pos();
    // A press that is still under way, since a release was ignored, goes on.
    if (m_pressed != Handle)
        m_pressed = handleRect().contains(event->pos()) ? Handle : Groove;
    return true;
}

// The slots may take the press its end; then the pointer moves nothing any more.
bool HorizontalSliderLogic::move(QMouseEvent *event)
{
    if (m_pressed != Handle)
        return true;
    m_moving = true;
    if (!tell(m_sliderMoving, true))
        return false;
    // Beyond the edges the drag rests until the pointer is back inside.
    if (!m_moving || event->pos().x() < 0 || event->pos().x() > m_slider->width())
        return true;
    if (!updateState(event->pos()))
        return false;
    m_lastPosition = event->pos();
    return true;
}

bool HorizontalSliderLogic::release(QMouseEvent *event)
{
    // A click ends with the button that it began with; a handle is let go by any.
    if (m_pressed == Nothing || (m_pressed == Groove && event->button() != Qt::LeftButton))
        return true;
    m_press.end();
    if (std::exchange(m_pressed, Nothing) == Groove)
        return clickGroove(event->pos().x());
    if (!m_moving)
        return true;
    if (!updateState(event->pos()))
        return false;
    m_moving = false;
    return tell(m_sliderMoving, false);
}

bool HorizontalSliderLogic::pressKey(const QKeyEvent *event)
{
    if (m_minimum > m_maximum)
        return false;
    const qint64 page = qMax<qint64>(1, (qint64(m_maximum) - m_minimum) / 10);
    qint64 wanted = m_value;
    switch (plainKey(m_slider, event)) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        wanted -= 1;
        break;
    case Qt::Key_Right:
    case Qt::Key_Up:
        wanted += 1;
        break;
    case Qt::Key_PageDown:
        wanted -= page;
        break;
    case Qt::Key_PageUp:
        wanted += page;
        break;
    case Qt::Key_Home:
        wanted = m_minimum;
        break;
    case Qt::Key_End:
        wanted = m_maximum;
        break;
    default:
        return false;
    }
    setValue(int(bounded<qint64>(m_minimum, wanted, m_maximum)));
    return true;
}

// The handle goes back to where the value is.
void HorizontalSliderLogic::losePress()
{
    m_pressed = Nothing;
    m_slider->update();
    if (std::exchange(m_moving, false))
        m_press.announce([this] { tell(m_sliderMoving, false); });
}

// The travel is signed on purpose: however far the pointer went to the left, it was a click.
bool HorizontalSliderLogic::clickGroove(int x)
{
    if (qint64(x) - m_lastPosition.x() >= QApplication::startDragDistance())
        return true;
    moveHandle(x);
    if (!updateValue())
        return false;
    m_slider->update();
    return true;
}

bool HorizontalSliderLogic::updateState(QPoint point)
{
    moveHandle(m_handlePosition + (double(point.x()) - m_lastPosition.x()));
    if (!updateValue())
        return false;
    m_slider->update();
    return true;
}

bool HorizontalSliderLogic::updateValue()
{
    int found = 0;
    if (!travel().valueAt(m_handlePosition, &found) || found == m_value)
        return true;
    m_value = found;
    AccessibleNotification::valueChanged(m_slider, found);
    return tell(m_valueChanged, found) && (!m_moving || tell(m_sliderMoved, found));
}

void HorizontalSliderLogic::moveHandle(double position)
{
    m_handlePosition = bounded(m_grooveRect.left(), position, m_grooveRect.right());
}

void HorizontalSliderLogic::layOut(const QRectF &grooveArea, double rangeLength)
{
    m_grooveRect = grooveArea.adjusted(half(), 0, -half(), 0);
    m_step = SliderTravel::stepFor(rangeLength, m_minimum, m_maximum);
    if (!m_moving)
        m_handlePosition = travel().position(m_value);
}

SliderTravel HorizontalSliderLogic::travel() const
{
    return {m_minimum, m_maximum, double(half()), m_step};
}

QRectF HorizontalSliderLogic::handleRect() const
{
    QRectF rect(QPointF(0, 0), QSizeF(m_handleSize));
    rect.moveCenter(QPointF(m_handlePosition, rect.height() / 2));
    return rect;
}

double HorizontalSliderLogic::zeroX() const
{
    return travel().position(travel().middle());
}

SkinPainter::Columns HorizontalSliderLogic::valueColumns(bool bidirectional, double ratio,
                                                         double shortening) const
{
    if (!bidirectional)
        return {0, m_handlePosition * ratio};
    if (m_value >= travel().middle())
        return {zeroX() * ratio, (m_handlePosition - shortening) * ratio};
    return {m_handlePosition * ratio, zeroX() * ratio};
}
