#include "horizontalslider.h"

#include "horizontalsliderlogic.h"

#include <utility>

namespace {

constexpr int kWidth = 206;
constexpr int kHandleHeight = 14;

// A client's measures may be anything; a widget's height may not.
int fixedHeight(bool zeroFlag, int zeroSpacing, int zeroHeight)
{
    const qint64 height = kHandleHeight + (zeroFlag ? qint64(zeroSpacing) + zeroHeight : 0);
    return int(qBound<qint64>(0, height, QWIDGETSIZE_MAX));
}

} // namespace

using Logic = HorizontalSliderLogic<HorizontalSlider>;

HorizontalSlider::HorizontalSlider(QWidget *parent, bool bidirectional, bool zeroFlag, int zeroSpacing,
                                   QSize zeroSize)
    : QWidget(parent)
    , m_bidirectional(bidirectional)
    , m_zeroFlag(zeroFlag)
    , m_skinPath(QStringLiteral(":/images/images/hslider/"))
    , m_zeroSpacing(zeroSpacing)
    , m_zeroSize(zeroSize)
    , m_valueColor(0xAB, 0xAD, 0xBF)
{
    Logic(this).setUp(QSize(kWidth, fixedHeight(zeroFlag, zeroSpacing, zeroSize.height())));
}

HorizontalSlider::~HorizontalSlider() = default;

void HorizontalSlider::setRange(int min, int max)
{
    Logic(this).setRange(min, max);
}

int HorizontalSlider::value() const
{
    return m_value;
}

void HorizontalSlider::setValue(int val)
{
    Logic(this).setValue(val);
}

void HorizontalSlider::setSkinPath(QString skinPath)
{
    m_skinPath = std::move(skinPath);
    SkinPainter::forgetFiles();
}

QString HorizontalSlider::getSkinPath() const
{
    return m_skinPath;
}

void HorizontalSlider::setGrooveHeight(int height)
{
    m_grooveHeight = height;
}

void HorizontalSlider::setHandleSize(QSize size)
{
    m_handleSize = size;
}

void HorizontalSlider::setValueColor(QColor color)
{
    m_valueColor = color;
}

void HorizontalSlider::showZeroFlag()
{
    m_zeroFlag = true;
}

void HorizontalSlider::updateState(QPoint point)
{
    Logic(this).updateState(point);
}

void HorizontalSlider::updateValue()
{
    Logic(this).updateValue();
}

QRectF HorizontalSlider::grooveArea() const
{
    const int baseHeight = m_zeroFlag ? m_handleSize.height() : height();
    const qint64 top = (qint64(baseHeight) - m_grooveHeight) / 2;
    return {0, qreal(top), qreal(width()), qreal(m_grooveHeight)};
}

QRectF HorizontalSlider::zeroRect()
{
    QRectF rect(QPointF(0, 0), QSizeF(m_zeroSize));
    rect.moveCenter(
        QPointF(Logic(this).zeroX(), double(m_handleSize.height()) + m_zeroSpacing + rect.height() / 2));
    return rect;
}

void HorizontalSlider::paintEvent(QPaintEvent *)
{
    Logic logic(this);
    const QRectF area = grooveArea();
    logic.layOut(area, area.width() - m_handleSize.width());

    SkinPainter painter(this, m_skinPath);
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = SkinPainter::pixelSize(QSize(width(), m_grooveHeight), ratio);
    painter.paintColored(QStringLiteral("groove.svg"), area, pixels, logic.valueColumns(ratio, 0),
                         m_valueColor);
    painter.paint(QStringLiteral("handle.svg"), logic.handleRect());
    if (m_zeroFlag)
        painter.paint(QStringLiteral("zero.svg"), zeroRect());
}

void HorizontalSlider::mousePressEvent(QMouseEvent *event)
{
    if (!Logic(this).press(event))
        QWidget::mousePressEvent(event);
}

void HorizontalSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (Logic(this).move(event))
        QWidget::mouseMoveEvent(event);
}

void HorizontalSlider::mouseReleaseEvent(QMouseEvent *event)
{
    if (Logic(this).release(event))
        QWidget::mouseReleaseEvent(event);
}
