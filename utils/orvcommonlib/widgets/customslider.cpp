#include "customslider.h"

#include "pressgesture.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>

namespace {

constexpr int kClickTravel = 5;

} // namespace

CustomSlider::CustomSlider(QWidget *parent)
    : QSlider(parent)
    , m_press(std::make_unique<PressGesture>(this))
{
}

CustomSlider::CustomSlider(Qt::Orientation orientation, QWidget *parent)
    : QSlider(orientation, parent)
    , m_press(std::make_unique<PressGesture>(this))
{
}

CustomSlider::~CustomSlider() = default;

// Slots of the base class's signals may take the press its end, or destroy the slider.
void CustomSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        m_press->begin();
        m_pressPosition = event->pos();
    }
    QSlider::mousePressEvent(event);
}

void CustomSlider::mouseReleaseEvent(QMouseEvent *event)
{
    const QPointer<CustomSlider> alive(this);
    const bool pressed = event->button() == Qt::LeftButton && m_press->end();
    QSlider::mouseReleaseEvent(event);
    if (!alive || !pressed)
        return;
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
