#include "horizontalslider.h"

#include "bounded.h"
#include "focusmark.h"
#include "horizontalsliderlogic.h"
#include "looktable.h"

#include <utility>

namespace {

constexpr int kWidth = 206;
constexpr QSize kHandleSize(14, 14);

// A client's measures may be anything; a widget's height may not.
QSize fixedSize(bool zeroFlag, int zeroSpacing, int zeroHeight)
{
    const qint64 height = kHandleSize.height() + (zeroFlag ? qint64(zeroSpacing) + zeroHeight : 0);
    return {kWidth, int(bounded<qint64>(0, height, QWIDGETSIZE_MAX))};
}

} // namespace

HorizontalSlider::HorizontalSlider(QWidget *parent, bool bidirectional, bool zeroFlag, int zeroSpacing,
                                   QSize zeroSize)
    : QWidget(parent)
    , m_bidirectional(bidirectional)
    , m_zeroFlag(zeroFlag)
    , m_skinPath(QStringLiteral(":/images/images/hslider/"))
    , m_zeroSpacing(zeroSpacing)
    , m_zeroSize(zeroSize)
    , m_logic(std::make_unique<HorizontalSliderLogic>(
          this, fixedSize(zeroFlag, zeroSpacing, zeroSize.height()), kHandleSize))
{
}

HorizontalSlider::~HorizontalSlider() = default;

void HorizontalSlider::setRange(int min, int max)
{
    m_logic->setRange(min, max);
}

int HorizontalSlider::minimum() const
{
    return m_logic->minimum();
}

void HorizontalSlider::setMinimum(int min)
{
    m_logic->setMinimum(min);
}

int HorizontalSlider::maximum() const
{
    return m_logic->maximum();
}

void HorizontalSlider::setMaximum(int max)
{
    m_logic->setMaximum(max);
}

int HorizontalSlider::value() const
{
    return m_logic->value();
}

void HorizontalSlider::setValue(int val)
{
    m_logic->setValue(val);
}

void HorizontalSlider::setSkinPath(QString skinPath)
{
    SkinPainter::forgetFiles();
    if (skinPath == m_skinPath)
        return;
    m_skinPath = std::move(skinPath);
    update();
}

void HorizontalSlider::setGrooveHeight(int height)
{
    if (height == m_grooveHeight)
        return;
    m_grooveHeight = height;
    update();
}

void HorizontalSlider::setHandleSize(QSize size)
{
    m_logic->setHandleSize(size);
}

QSize HorizontalSlider::handleSize() const
{
    return m_logic->handleSize();
}

void HorizontalSlider::setValueColor(QColor color)
{
    if (color == m_valueColor)
        return;
    m_valueColor = color;
    update();
}

QColor HorizontalSlider::valueColor() const
{
    return m_valueColor ? *m_valueColor : lookColor(QStringLiteral("plainValue"));
}

void HorizontalSlider::setBidirectional(bool bidirectional)
{
    if (bidirectional == m_bidirectional)
        return;
    m_bidirectional = bidirectional;
    update();
}

void HorizontalSlider::updateState(QPoint point)
{
    m_logic->updateState(point);
}

void HorizontalSlider::updateValue()
{
    m_logic->updateValue();
}

QRectF HorizontalSlider::grooveArea() const
{
    const int baseHeight = m_zeroFlag ? m_logic->handleSize().height() : height();
    const qint64 top = (qint64(baseHeight) - m_grooveHeight) / 2;
    return {0, qreal(top), qreal(width()), qreal(m_grooveHeight)};
}

QRectF HorizontalSlider::zeroRect() const
{
    QRectF rect(QPointF(0, 0), QSizeF(m_zeroSize));
    const double centerY = double(m_logic->handleSize().height()) + m_zeroSpacing + rect.height() / 2;
    rect.moveCenter(QPointF(m_logic->zeroX(), centerY));
    return rect;
}

void HorizontalSlider::paintEvent(QPaintEvent *)
{
    const QRectF area = grooveArea();
    m_logic->layOut(area, area.width() - m_logic->handleSize().width());

    SkinPainter painter(this, m_skinPath);
    const qreal ratio = devicePixelRatioF();
    painter.paintColored(QStringLiteral("groove.svg"), area,
                         SkinPainter::pixelSize(QSize(width(), m_grooveHeight), ratio),
                         m_logic->valueColumns(m_bidirectional, ratio, 0), valueColor());
    painter.paint(QStringLiteral("handle.svg"), m_logic->handleRect());
    if (m_zeroFlag)
        painter.paint(QStringLiteral("zero.svg"), zeroRect());
}

void HorizontalSlider::mousePressEvent(QMouseEvent *event)
{
    if (!m_logic->press(event))
        QWidget::mousePressEvent(event);
}

void HorizontalSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (m_logic->move(event))
        QWidget::mouseMoveEvent(event);
}

void HorizontalSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_logic->release(event))
        QWidget::mouseReleaseEvent(event);
}

void HorizontalSlider::keyPressEvent(QKeyEvent *event)
{
    if (!m_logic->pressKey(event))
        QWidget::keyPressEvent(event);
}

bool HorizontalSlider::event(QEvent *event)
{
    FocusMark::follow(this, event);
    return QWidget::event(event);
}
