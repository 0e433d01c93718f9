#include "slicepicture.h"
#include "gallerystyle.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace {

constexpr int kWantedExtent = 192;
constexpr int kSquare = 8;

const QRgb kLightSquare = qRgb(0xF7, 0xF8, 0xFA);
const QRgb kDarkSquare = qRgb(0xE3, 0xE6, 0xEC);

} // namespace

SlicePicture::SlicePicture(QWidget *parent)
    : QWidget(parent)
{
}

void SlicePicture::setPicture(const QPixmap &picture, const QMargins &borders)
{
    m_picture = picture;
    m_borders = borders;
    m_factor = std::max(1, kWantedExtent / std::max({1, picture.width(), picture.height()}));
    setFixedSize(sizeHint());
    update();
}

QSize SlicePicture::sizeHint() const
{
    return m_picture.isNull() ? QSize(kWantedExtent, kWantedExtent) : m_picture.size() * m_factor;
}

void SlicePicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    fillTransparencyPattern(painter, rect());
    painter.drawPixmap(rect(), m_picture);
    painter.setPen(QPen(galleryColor("primary"), 1, Qt::DashLine));
    for (const int x : {m_borders.left() * m_factor, width() - m_borders.right() * m_factor})
        painter.drawLine(x, 0, x, height());
    for (const int y : {m_borders.top() * m_factor, height() - m_borders.bottom() * m_factor})
        painter.drawLine(0, y, width(), y);
}

void fillTransparencyPattern(QPainter &painter, const QRect &rect)
{
    painter.fillRect(rect, QColor(kLightSquare));
    for (int y = 0; y * kSquare < rect.height(); ++y) {
        for (int x = y % 2; x * kSquare < rect.width(); x += 2) {
            const QRect square(rect.topLeft() + QPoint(x, y) * kSquare, QSize(kSquare, kSquare));
            painter.fillRect(square & rect, QColor(kDarkSquare));
        }
    }
}
