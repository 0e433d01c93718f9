#include "customwraptexttooltip.h"

#include "accessiblecontent.h"
#include "accessiblefactory.h"
#include "accessiblenotification.h"
#include "looksheets.h"
#include "looktable.h"

#include <QtCore/QEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

constexpr int kOneLineHeight = 30;
constexpr int kCornerRadius = 4;
constexpr int kArrowLength = 6; // also half the arrow's width
constexpr int kArrowTipFromRight = 44;

constexpr char kLabelStyle[] = "background:transparent;font-size: 13px;font-weight: 400;color: @bubbleText;"
                               "line-height: 18px;qproperty-wordWrap: true;text-align: left;";

} // namespace

customWrapTextToolTip::customWrapTextToolTip(QWidget *parent)
    : QDialog(parent)
    , m_textLabel(new QLabel(this))
{
    initWindow();
    setFixedHeight(kOneLineHeight);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_textLabel->setFixedHeight(kOneLineHeight);
    m_textLabel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(14, 0, 8, 0);
    layout->addWidget(m_textLabel, 0, Qt::AlignHCenter);
}

customWrapTextToolTip::customWrapTextToolTip(directionType direction, int width, QWidget *parent,
                                             int rightMargin)
    : QDialog(parent)
    , m_textLabel(new QLabel(this))
    , m_direction(direction)
{
    initWindow();
    auto *layout = new QHBoxLayout(this);
    applyWidth(layout, width, rightMargin);
    m_textLabel->setFixedWidth(width);
    m_textLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_textLabel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    layout->addWidget(m_textLabel);
}

customWrapTextToolTip::~customWrapTextToolTip() = default;

void customWrapTextToolTip::setText(const QString &text)
{
    m_textLabel->setText(text);
    AccessibleNotification::nameChanged(this);
    adjustSize();
}

void customWrapTextToolTip::popup(QPoint pos, const QString &text)
{
    auto *toolTip = new customWrapTextToolTip;
    toolTip->setText(text);
    toolTip->show();
    toolTip->move(pos);
    // Not every window manager does that for a new tool window, and what was never active is never left.
    toolTip->activateWindow();
}

bool customWrapTextToolTip::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == this && event->type() == QEvent::WindowDeactivate) {
        close();
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void customWrapTextToolTip::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);

    const QSize pixelSize = (QSizeF(size()) * devicePixelRatioF()).toSize();
    const QColor color = lookColor(QStringLiteral("bubbleGround"));
    if (m_background.size() != pixelSize || m_background.devicePixelRatioF() != devicePixelRatioF() ||
        m_backgroundColor != color) {
        m_backgroundColor = color;
        m_background = paintedBackground(pixelSize);
    }
    if (!m_background.isNull())
        QPainter(this).drawPixmap(0, 0, m_background);
}

// Box and arrow change with the window's size and the look only, while the text above them is painted more often.
QPixmap customWrapTextToolTip::paintedBackground(QSize pixelSize) const
{
    QPixmap background(pixelSize);
    if (background.isNull())
        return background;
    background.setDevicePixelRatio(devicePixelRatioF());
    background.fill(Qt::transparent);

    QPainter painter(&background);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_backgroundColor);
    painter.setBrush(m_backgroundColor);
    QRect box = rect();
    QPolygon arrow;
    if (m_direction == DirectionLeft) {
        const int tip = height() / 2;
        box.setLeft(kArrowLength);
        arrow << QPoint(kArrowLength, tip - kArrowLength) << QPoint(0, tip)
              << QPoint(kArrowLength, tip + kArrowLength);
    } else if (m_direction == DirectionBottom) {
        const int tip = width() - kArrowTipFromRight;
        box.setHeight(height() - kArrowLength);
        arrow << QPoint(tip - kArrowLength, box.height()) << QPoint(tip, height())
              << QPoint(tip + kArrowLength, box.height());
    } else {
        return background;
    }
    painter.drawRoundedRect(box, kCornerRadius, kCornerRadius);
    painter.drawPolygon(arrow);
    return background;
}

void customWrapTextToolTip::initWindow()
{
    setWindowFlags(Qt::FramelessWindowHint | Qt::Dialog | Qt::Tool);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_TranslucentBackground);
    LookSheets::apply(m_textLabel, kLabelStyle);
    AccessibleContent::mark(m_textLabel);
    AccessibleFactory::askForTypesFirst();
    installEventFilter(this);
}

void customWrapTextToolTip::applyWidth(QHBoxLayout *layout, int width, int rightMargin)
{
    switch (m_direction) {
    case DirectionLeft:
        layout->setContentsMargins(14, 4, 8, 4);
        setFixedWidth(width + 28);
        break;
    case DirectionBottom:
        layout->setContentsMargins(8, 4, rightMargin, 10);
        setFixedWidth(width + 16);
        break;
    }
}
