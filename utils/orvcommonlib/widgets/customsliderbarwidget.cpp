#include "customsliderbarwidget.h"

#include "accessiblenotification.h"
#include "bounded.h"
#include "focusmark.h"
#include "looktable.h"
#include "plainkey.h"
#include "pressgesture.h"
#include "skinpainter.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>

#include <cmath>

namespace {

constexpr QSize kSize(117, 12);
constexpr int kSideMargin = 4; // of the background within the widget
constexpr int kFirstMarkX = 8;
constexpr int kKnobMargin = 4; // what the knob keeps from the background's ends while it is dragged
constexpr int kMarkSide = 12;
constexpr int kKnobSide = 16;
constexpr int kFewestSteps = 2;

// Painting one translucent mark over itself changes a pixel's channels steadily in one direction, at most
// this often.
constexpr qint64 kMostVisibleLayers = 256;

// The bar that was pressed last, until a button is released on any bar. As long as it is pressed, all bars
// follow the pointer.
const CustomSliderBarWidget *pressedBar = nullptr;

} // namespace

CustomSliderBarWidget::CustomSliderBarWidget(QWidget *parent)
    : QWidget(parent)
    , m_press(std::make_unique<PressGesture>(this, [this] { update(); }))
    , m_skinPath(QStringLiteral(":/images/images/slider/"))
{
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setMouseTracking(true);
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_AcceptTouchEvents);
    setContentsMargins(0, 0, 0, 0);
    setFixedSize(kSize);
}

CustomSliderBarWidget::~CustomSliderBarWidget()
{
    if (pressedBar == this)
        pressedBar = nullptr;
}

void CustomSliderBarWidget::setCount(int count)
{
    if (count < kFewestSteps) {
        qInfo() << "error,set current count:" << count;
        return;
    }
    if (count == m_count)
        return;
    m_count = count;
    update();
}

void CustomSliderBarWidget::setCurrenIndex(int index)
{
    if (index != m_currentIndex) {
        m_currentIndex = index;
        AccessibleNotification::valueChanged(this, index);
    }
    update();
}

void CustomSliderBarWidget::setCurrentIndex(int index)
{
    if (index != m_currentIndex)
        setCurrenIndex(index);
}

bool CustomSliderBarWidget::event(QEvent *event)
{
    FocusMark::follow(this, event);
    const QPointer<CustomSliderBarWidget> guard(this);
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        pressedBar = this;
        follow(static_cast<QMouseEvent *>(event)->pos());
        break;
    case QEvent::MouseButtonRelease:
        pressedBar = nullptr;
        m_press->end();
        update();
        Q_EMIT selectFinish(m_currentIndex);
        break;
    case QEvent::MouseMove:
        if (pressedBar && pressedBar->m_press->isUnderWay())
            follow(static_cast<QMouseEvent *>(event)->pos());
        break;
    default:
        break;
    }
    return !guard || QWidget::event(event);
}

void CustomSliderBarWidget::keyPressEvent(QKeyEvent *event)
{
    switch (plainKey(this, event)) {
    case Qt::Key_Left:
        choose(qint64(m_currentIndex) - 1);
        break;
    case Qt::Key_Right:
        choose(qint64(m_currentIndex) + 1);
        break;
    case Qt::Key_Home:
        choose(0);
        break;
    case Qt::Key_End:
        choose(m_count - 1);
        break;
    default:
        QWidget::keyPressEvent(event);
        break;
    }
}

void CustomSliderBarWidget::choose(qint64 wanted)
{
    const int index = int(bounded<qint64>(0, wanted, qint64(m_count) - 1));
    if (index == m_currentIndex)
        return;
    setCurrenIndex(index);
    Q_EMIT selectFinish(index);
}

// A bar that another one's drag has come to looks pressed, too.
void CustomSliderBarWidget::follow(QPoint point)
{
    m_press->begin();
    updateState(point);
}

// Step i reaches from i * step to (i + 1) * step, both included, of which the first one that fits is taken.
// Steps without width, of which there are more than pixels, all lie at 0.
void CustomSliderBarWidget::updateState(QPoint point)
{
    m_lastPosition = point;
    const qint64 step = width() / (m_count - 1);
    const qint64 x = point.x() + step / 2;
    const qint64 index = x == 0 || step == 0 ? 0 : (x - 1) / step;
    const bool isOnStep = step == 0 ? x == 0 : x >= 0 && index < m_count;
    if (isOnStep)
        setCurrenIndex(int(index));
    update();
}

QRect CustomSliderBarWidget::area() const
{
    return {kSideMargin, 0, width() - 2 * kSideMargin, height()};
}

int CustomSliderBarWidget::markDistance() const
{
    return (area().width() - kFirstMarkX) / (m_count - 1);
}

qint64 CustomSliderBarWidget::markX(qint64 index) const
{
    return markDistance() * index + kFirstMarkX;
}

qint64 CustomSliderBarWidget::fillX() const
{
    if (!m_press->isUnderWay())
        return markX(m_currentIndex);
    return bounded(area().left() + kKnobMargin, m_lastPosition.x(), area().right() - kKnobMargin);
}

void CustomSliderBarWidget::paintEvent(QPaintEvent *)
{
    SkinPainter painter(this, m_skinPath);
    const qreal ratio = devicePixelRatioF();
    // The column that the fill reaches belongs to it.
    painter.paintColored(
        QStringLiteral("background.svg"), area(), SkinPainter::pixelSize(area().size(), ratio),
        {0, std::trunc(double(fillX()) * ratio) + 1}, lookColor(QStringLiteral("stepsValue")));
    const auto reached = bounded<qint64>(0, qint64(m_currentIndex) + 1, m_count);
    paintMarks(&painter, QStringLiteral("item_active.svg"), 0, reached);
    paintMarks(&painter, QStringLiteral("item.svg"), reached, m_count);
    painter.paint(QStringLiteral("select.svg"), squareAt(fillX(), kKnobSide));
}

void CustomSliderBarWidget::paintMarks(SkinPainter *painter, const QString &piece, qint64 from,
                                       qint64 to) const
{
    if (markDistance() == 0)
        to = qMin(to, from + kMostVisibleLayers);
    for (qint64 index = from; index < to; ++index)
        painter->paint(piece, squareAt(markX(index), kMarkSide));
}

QRectF CustomSliderBarWidget::squareAt(qint64 centerX, int side) const
{
    QRectF square(0, 0, side, side);
    square.moveCenter(QPointF(qreal(centerX), height() / 2.0));
    return square;
}
