#include "colorbutton.h"

#include <QtGui/QPainter>
#include <QtWidgets/QColorDialog>

namespace {

constexpr int kSwatchSize = 16;
constexpr qreal kSwatchRadius = 3;

QIcon swatch(const QColor &color, qreal ratio)
{
    QPixmap pixmap(QSize(kSwatchSize, kSwatchSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0, 0, 0, 40));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(0.5, 0.5, kSwatchSize - 1, kSwatchSize - 1), kSwatchRadius, kSwatchRadius);
    painter.end();
    return {pixmap};
}

} // namespace

ColorButton::ColorButton(const QColor &color, QWidget *parent)
    : QPushButton(parent)
{
    setColor(color);
    connect(this, &QPushButton::clicked, this, &ColorButton::choose);
}

void ColorButton::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    const bool opaque = color.alpha() == 255;
    setText(color.name(opaque ? QColor::HexRgb : QColor::HexArgb).toUpper());
    setAccessibleDescription(text());
    setIcon(swatch(color, devicePixelRatioF()));
    Q_EMIT colorChanged(color);
}

void ColorButton::choose()
{
    const QColor color = QColorDialog::getColor(m_color, window(), {}, QColorDialog::ShowAlphaChannel);
    if (color.isValid())
        setColor(color);
}
