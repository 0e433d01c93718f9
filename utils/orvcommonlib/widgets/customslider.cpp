#include "customslider.h"

#include <QtGui/QMouseEvent>

namespace {

constexpr int kClickTravel = 5;

} // namespace

CustomSlider::CustomSlider(QWidget *parent)
    : QSlider(parent)
{
}

CustomSlider::CustomSlider(Qt::Orientation orientation, QWidget *parent)
    : QSlider(orientation, parent)
{
}

CustomSlider::~CustomSlider() = default;

void CustomSlider::mousePressEvent(QMouseEvent *event)
{
    QSlider::mousePressEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    m_pressPosition = event->pos();
    m_pressed = true;
}

void CustomSlider::mouseReleaseEvent(QMouseEvent *event)
{
    QSlider::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    m_pressed = false;
    m_releasePosition = event->pos();
    if ((m_releasePosition - m_pressPosition).manhattanLength() < kClickTravel)
        Q_EMIT signalClickValue(clickedValue());
}

int CustomSlider::clickedValue() const
{
    // A slider without width ends where it begins: everything right of it lies past its end.
    if (width() <= 0)
        return m_releasePosition.x() > 0 ? maximum() : minimum();
    const double share = double(m_releasePosition.x()) / width();
    const double value = share * (double(maximum()) - minimum()) + minimum();
    if (value > maximum())
        return maximum();
    if (value < minimum())
        return minimum();
    const double raised = value + 0.5;
    return int(raised); // truncated, deliberately: -2.6 becomes -2
}
