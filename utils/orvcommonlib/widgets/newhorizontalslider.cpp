#include "newhorizontalslider.h"

#include "accessiblenotification.h"
#include "focusmark.h"
#include "horizontalsliderlogic.h"
#include "looktable.h"

#include <utility>

namespace {

constexpr QSize kDefaultSize(206, 14);
constexpr QSize kDefaultHandleSize(14, 14);

} // namespace

NewHorizontalSlider::NewHorizontalSlider(QWidget *parent)
    : NewHorizontalSlider(kDefaultSize, kDefaultHandleSize, false, parent)
{
}

NewHorizontalSlider::NewHorizontalSlider(QSize size, QSize handleSize, bool bidirectional, QWidget *parent)
    : QWidget(parent)
    , m_bidirectional(bidirectional)
    , m_skinPath(QStringLiteral(":/images/images/hslider2/"))
    , m_size(size)
    , m_logic(std::make_unique<HorizontalSliderLogic>(this, size, handleSize))
{
}

NewHorizontalSlider::~NewHorizontalSlider() = default;

void NewHorizontalSlider::setRange(int min, int max)
{
    m_logic->setRange(min, max);
}

int NewHorizontalSlider::minimum() const
{
    return m_logic->minimum();
}

void NewHorizontalSlider::setMinimum(int min)
{
    m_logic->setMinimum(min);
}

int NewHorizontalSlider::maximum() const
{
    return m_logic->maximum();
}

void NewHorizontalSlider::setMaximum(int max)
{
    m_logic->setMaximum(max);
}

int NewHorizontalSlider::value() const
{
    return m_logic->value();
}

void NewHorizontalSlider::setValue(int val)
{
    m_logic->setValue(val);
}

void NewHorizontalSlider::setSkinPath(QString skinPath)
{
    SkinPainter::forgetFiles();
    if (skinPath == m_skinPath)
        return;
    m_skinPath = std::move(skinPath);
    update();
}

void NewHorizontalSlider::setHandleSize(QSize size)
{
    m_logic->setHandleSize(size);
}

QSize NewHorizontalSlider::handleSize() const
{
    return m_logic->handleSize();
}

void NewHorizontalSlider::setValueColor(QColor color)
{
    if (color == m_valueColor)
        return;
    m_valueColor = color;
    update();
}

QColor NewHorizontalSlider::valueColor() const
{
    return m_valueColor ? *m_valueColor : lookColor(QStringLiteral("accentValue"));
}

void NewHorizontalSlider::setBidirectional(bool bidirectional)
{
    if (bidirectional == m_bidirectional)
        return;
    m_bidirectional = bidirectional;
    update();
}

void NewHorizontalSlider::setSliderEnabled(bool enabled)
{
    if (enabled == m_sliderEnabled)
        return;
    m_sliderEnabled = enabled;
    AccessibleNotification::disabledChanged(this);
    update();
}

void NewHorizontalSlider::updateState(QPoint point)
{
    m_logic->updateState(point);
}

void NewHorizontalSlider::updateValue()
{
    m_logic->updateValue();
}

QColor NewHorizontalSlider::colorOfGroove() const
{
    return m_sliderEnabled ? valueColor() : lookColor(QStringLiteral("disabledValue"));
}

void NewHorizontalSlider::paintEvent(QPaintEvent *)
{
    const QRectF area(QPointF(0, 0), QSizeF(m_size));
    m_logic->layOut(area, area.width() - 2 * m_logic->half());

    SkinPainter painter(this, m_skinPath);
    const QString suffix = m_sliderEnabled ? QStringLiteral(".svg") : QStringLiteral("_disabled.svg");
    const QString groove = m_bidirectional ? QStringLiteral("groove_bidirection") : QStringLiteral("groove");
    // On the positive side the colour deliberately ends where the handle begins; on the negative side it does
    // not.
    painter.paintColored(groove + suffix, area, m_size,
                         m_logic->valueColumns(m_bidirectional, 1, m_logic->half()), colorOfGroove());
    painter.paint(QStringLiteral("handle") + suffix, m_logic->handleRect());
}

void NewHorizontalSlider::mousePressEvent(QMouseEvent *event)
{
    if (!m_sliderEnabled || !m_logic->press(event))
        QWidget::mousePressEvent(event);
}

void NewHorizontalSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_logic->move(event))
        QWidget::mouseMoveEvent(event);
}

void NewHorizontalSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_sliderEnabled || m_logic->release(event))
        QWidget::mouseReleaseEvent(event);
}

void NewHorizontalSlider::keyPressEvent(QKeyEvent *event)
{
    if (!m_sliderEnabled || !m_logic->pressKey(event))
        QWidget::keyPressEvent(event);
}

bool NewHorizontalSlider::event(QEvent *event)
{
    FocusMark::follow(this, event);
    return QWidget::event(event);
}
