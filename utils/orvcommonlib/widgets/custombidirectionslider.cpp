#include "custombidirectionslider.h"

#include "looksheets.h"
#include "looktable.h"

#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

namespace {

const char kStyleSheet[] =
    "QSlider::groove:horizontal{height: 6px; left: 0px; right: 0px; border: 0px; "
    "border-radius: 3px; background: @grooveGround;}"
    "QSlider::handle:horizontal{width: 24px; height: 24px; margin-top: -9px; margin-left: -4px; "
    "margin-bottom: -9px; margin-right: -4px; "
    "border-image: url(:/resources/channels/slider_handle.png);}";

constexpr int kDefaultLineWidth = 6;
constexpr int kDefaultHandleWidth = 24;
constexpr int kHandleHeight = 24; // in the style sheet
constexpr int kTickHeight = 4;
constexpr int kWidestPen = 32767; // Qt warns about wider ones

int penWidth(int lineWidth)
{
    return qBound(0, lineWidth, kWidestPen);
}

// With the square ends of a pen a line covers a rectangle. If these are whole pixels, no edge need be smoothed.
void drawLine(QPainter *painter, const QLine &line, int width, const QColor &color)
{
    const qreal half = width / 2.0;
    const QRectF covered = QRectF(line.p1(), line.p2()).normalized().adjusted(-half, -half, half, half);
    const QRectF pixels = painter->deviceTransform().mapRect(covered);
    const bool isSharp = width > 0 && pixels == QRectF(pixels.toRect());
    painter->setRenderHint(QPainter::Antialiasing, !isSharp);
    if (isSharp) {
        painter->fillRect(covered, color);
    } else {
        painter->setPen(QPen(color, width));
        painter->drawLine(line);
    }
}

} // namespace

CustomBidirectionSlider::CustomBidirectionSlider(QWidget *parent)
    : CustomBidirectionSlider(kDefaultLineWidth, kDefaultHandleWidth, QColor(), parent)
{
    m_lineColor.reset();
}

CustomBidirectionSlider::CustomBidirectionSlider(int lineWidth, int handleWidth, QColor lineColor,
                                                 QWidget *parent)
    : QSlider(parent)
    , m_lineWidth(lineWidth)
    , m_handleWidth(handleWidth)
    , m_lineColor(lineColor)
{
    setOrientation(Qt::Horizontal);
    LookSheets::apply(this, kStyleSheet);
}

CustomBidirectionSlider::~CustomBidirectionSlider() = default;

void CustomBidirectionSlider::setLineWidth(int width)
{
    if (width == m_lineWidth)
        return;
    m_lineWidth = width;
    update();
}

void CustomBidirectionSlider::setHandleWidth(int width)
{
    if (width == m_handleWidth)
        return;
    m_handleWidth = width;
    update();
}

void CustomBidirectionSlider::setLineColor(const QColor &color)
{
    if (color == m_lineColor)
        return;
    m_lineColor = color;
    update();
}

QColor CustomBidirectionSlider::lineColor() const
{
    return m_lineColor ? *m_lineColor : lookColor(QStringLiteral("accentValue"));
}

// Of the handle, which its negative margins let overlap the groove, Qt's hint knows nothing.
QSize CustomBidirectionSlider::sizeHint() const
{
    return QSlider::sizeHint().expandedTo(QSize(0, kHandleHeight));
}

QSize CustomBidirectionSlider::minimumSizeHint() const
{
    return QSlider::minimumSizeHint().expandedTo(QSize(0, kHandleHeight));
}

int CustomBidirectionSlider::middle() const
{
    return int((qint64(maximum()) + minimum()) / 2);
}

// How far into the range a value lies, 0 to 1. A range of a single value has nothing but its beginning.
double CustomBidirectionSlider::share(int value) const
{
    if (maximum() == minimum())
        return 0;
    return (double(value) - minimum()) / (double(maximum()) - minimum());
}

int CustomBidirectionSlider::centerX() const
{
    return int(share(middle()) * width());
}

// The handle's way is shorter than the slider by the handle's width; the offset, in single precision, makes
// up for it. A line that ends farther outside than its pen is wide looks the same wherever it ends.
int CustomBidirectionSlider::valueX() const
{
    const qint64 fromMiddle = qint64(value()) - middle();
    const qint64 toMaximum = qint64(maximum()) - middle();
    const float perValue = toMaximum == 0 ? 0.0F : float(m_handleWidth) / 2 / float(toMaximum);
    const qint64 sign = fromMiddle >= 0 ? 1 : -1;
    const qint64 halfHandle = sign * m_handleWidth / 2;
    const float offset = float(fromMiddle) * perValue + float(halfHandle);
    const double x = share(value()) * width() - double(offset);
    const double beyond = penWidth(m_lineWidth);
    return int(qBound(-beyond, x, width() + beyond));
}

void CustomBidirectionSlider::paintEvent(QPaintEvent *event)
{
    QSlider::paintEvent(event);

    QPainter painter(this);
    const int center = centerX();
    drawLine(&painter, QLine(center, height() - kTickHeight, center, height()), 1,
             lookColor(QStringLiteral("centreTick")));
    if (value() == middle())
        return;
    const int end = valueX();
    // A line that would have to run away from the handle is none.
    if (value() > middle() ? end > center : end < center)
        drawLine(&painter, QLine(end, height() / 2, center, height() / 2), penWidth(m_lineWidth),
                 lineColor());
}

void CustomBidirectionSlider::wheelEvent(QWheelEvent *event)
{
    if (m_wheelEnabled)
        QAbstractSlider::wheelEvent(event);
    else
        event->ignore();
}
