#include "testpicture.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <cmath>
#include <random>

namespace {

constexpr QSizeF kScene(1280, 720); // what is drawn is measured in these units
constexpr QSize kGrainSize(256, 256);

QImage makeGrain()
{
    std::minstd_rand numbers(1);
    QImage grain(kGrainSize, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < grain.height(); ++y) {
        for (int x = 0; x < grain.width(); ++x) {
            const int alpha = int(numbers() % 16);
            grain.setPixel(x, y,
                           qPremultiply(numbers() % 2 ? qRgba(255, 255, 255, alpha) : qRgba(0, 0, 0, alpha)));
        }
    }
    return grain;
}

void drawRoom(QPainter &painter, double seconds, int hue)
{
    QLinearGradient wall(0, 0, kScene.width(), kScene.height());
    wall.setColorAt(0, QColor::fromHsv(hue, 150, 82));
    wall.setColorAt(0.55, QColor::fromHsv((hue + 20) % 360, 140, 130));
    wall.setColorAt(1, QColor::fromHsv((hue + 70) % 360, 120, 150));
    painter.fillRect(QRectF(QPointF(), kScene), wall);
    for (int light = 0; light < 14; ++light) {
        const double way = seconds * (6 + light % 4) + light * 137;
        const QPointF centre(std::fmod(way, 1480) - 100,
                             110 + (light * 83) % 420 + 18 * std::sin(seconds + light));
        const double radius = 26 + (light * 29) % 64;
        QRadialGradient glow(centre, radius);
        const QColor color = QColor::fromHsv((hue + 160 + light * 11) % 360, 90, 255);
        glow.setColorAt(0, QColor(color.red(), color.green(), color.blue(), 70));
        glow.setColorAt(0.9, QColor(color.red(), color.green(), color.blue(), 50));
        glow.setColorAt(1, Qt::transparent);
        painter.setBrush(glow);
        painter.drawEllipse(centre, radius, radius);
    }
}

void drawHead(QPainter &painter, bool eyesShut)
{
    painter.setBrush(QColor("#3A2A2E")); // hair behind
    painter.drawEllipse(QPointF(0, -18), 152, 172);
    painter.drawRoundedRect(QRectF(-150, -20, 300, 210), 90, 90);
    painter.setBrush(QColor("#D99E80")); // neck
    painter.drawRoundedRect(QRectF(-52, 90, 104, 150), 44, 44);
    QRadialGradient skin(QPointF(-40, -40), 230);
    skin.setColorAt(0, QColor("#FBD3B8"));
    skin.setColorAt(1, QColor("#E8AE8C"));
    painter.setBrush(skin);
    painter.drawEllipse(QPointF(), 118, 146);
    painter.setBrush(QColor(240, 120, 110, 70)); // cheeks
    painter.drawEllipse(QPointF(-66, 48), 30, 20);
    painter.drawEllipse(QPointF(66, 48), 30, 20);
    QPainterPath fringe(QPointF(-122, 8));
    fringe.cubicTo(-140, -150, -40, -176, 20, -158);
    fringe.cubicTo(120, -150, 138, -60, 122, 8);
    fringe.cubicTo(112, -60, 70, -86, 40, -104);
    fringe.cubicTo(0, -70, -100, -60, -122, 8);
    painter.setBrush(QColor("#4A353A"));
    painter.drawPath(fringe);

    painter.setBrush(QColor("#2B2430"));
    for (const int side : {-1, 1})
        painter.drawEllipse(QPointF(side * 46, 2), 12, eyesShut ? 2 : 14);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor("#B4574F"), 7, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(-38, 36, 76, 58), 205 * 16, 130 * 16);
    painter.setPen(Qt::NoPen);
}

void drawPerson(QPainter &painter, double seconds)
{
    painter.save();
    painter.translate(640 + 26 * std::sin(seconds * 0.8), 356 + 6 * std::sin(seconds * 1.7));
    QPainterPath shoulders(QPointF(-330, 420));
    shoulders.cubicTo(-320, 220, -160, 190, 0, 190);
    shoulders.cubicTo(160, 190, 320, 220, 330, 420);
    painter.setBrush(QColor("#F2F3F8"));
    painter.drawPath(shoulders);
    painter.rotate(3 * std::sin(seconds * 0.8 + 0.6));
    drawHead(painter, std::fmod(seconds, 3.2) > 3.05);
    painter.restore();
}

} // namespace

QImage TestPicture::draw(QSize size, double seconds, int camera)
{
    static const QImage grain = makeGrain();
    QImage picture(size, QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.scale(size.width() / kScene.width(), size.height() / kScene.height());
    drawRoom(painter, seconds, (232 + camera * 67) % 360);
    drawPerson(painter, seconds);
    painter.resetTransform();
    const int shift = int(seconds * 997) % kGrainSize.width();
    painter.drawTiledPixmap(picture.rect(), QPixmap::fromImage(grain), QPoint(shift, shift / 2));
    return picture;
}
