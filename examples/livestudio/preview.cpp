#include "preview.h"
#include "testpicture.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

#include <array>

namespace {

constexpr int kFrameMs = 40;
constexpr int kInset = 16;
constexpr double kCorner = 8;

using Levels = std::array<uchar, 256>;

Levels levels(double brightness, double contrast, double gain)
{
    Levels levels;
    for (int level = 0; level < 256; ++level)
        levels[size_t(level)] = uchar(qBound(0., ((level - 128) * contrast + 128 + brightness) * gain, 255.));
    return levels;
}

} // namespace

Preview::Preview(QWidget *parent)
    : QWidget(parent)
{
    setAccessibleName(tr("Live picture"));
    setMinimumSize(400, 240);
    connect(&m_timer, &QTimer::timeout, this, [this] { show(m_clock.elapsed() / 1000.); });
    m_timer.start(kFrameMs);
    m_clock.start();
}

void Preview::freezeAt(double seconds)
{
    m_timer.stop();
    show(seconds);
}

void Preview::show(double seconds)
{
    m_seconds = seconds;
    m_picture = zoomed(TestPicture::draw(m_resolution, seconds, m_camera));
    if (m_mirrored)
        m_picture = m_picture.mirrored(true, false);
    soften(&m_picture);
    colour(&m_picture);
    update();
}

QImage Preview::zoomed(const QImage &picture) const
{
    QRect part(QPoint(), (QSizeF(picture.size()) / m_zoom).toSize());
    part.moveCenter(picture.rect().center());
    return m_zoom > 1
               ? picture.copy(part).scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
               : picture;
}

void Preview::soften(QImage *picture) const
{
    if (m_beauty == 0)
        return;
    const QImage soft = picture->scaled(picture->size() / 8, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter painter(picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(m_beauty / 130.);
    painter.drawImage(picture->rect(), soft);
}

void Preview::colour(QImage *picture) const
{
    const double brightness = m_brightness * 1.6;
    const double contrast = 1 + m_contrast / 60.;
    const Levels red = levels(brightness, contrast, m_effect == Cool ? 0.86 : 1);
    const Levels green = levels(brightness, contrast, 1);
    const Levels blue = levels(brightness, contrast, m_effect == Warm ? 0.78 : 1);
    for (int y = 0; y < picture->height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture->scanLine(y));
        for (int x = 0; x < picture->width(); ++x) {
            const int gray = m_effect == Mono ? qGray(line[x]) : -1;
            line[x] = gray < 0 ? qRgb(red[size_t(qRed(line[x]))], green[size_t(qGreen(line[x]))],
                                      blue[size_t(qBlue(line[x]))])
                               : qRgb(green[size_t(gray)], green[size_t(gray)], green[size_t(gray)]);
        }
    }
}

void Preview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QRectF place(QPointF(),
                 QSizeF(m_resolution).scaled(size() - QSize(2 * kInset, 2 * kInset), Qt::KeepAspectRatio));
    place.moveCenter(QRectF(rect()).center());
    QPainterPath frame;
    frame.addRoundedRect(place, kCorner, kCorner);
    painter.setClipPath(frame);
    painter.drawImage(place, m_picture);
    paintBadge(painter, place);
}

void Preview::paintBadge(QPainter &painter, const QRectF &place) const
{
    const int seconds = int(m_seconds);
    const QString text = tr("LIVE  %1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QChar('0'));
    const QRectF badge(place.topLeft() + QPointF(kInset, kInset),
                       QSizeF(fontMetrics().horizontalAdvance(text) + 38, 26));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 130));
    painter.drawRoundedRect(badge, 13, 13);
    painter.setBrush(QColor("#FF4D5E"));
    painter.drawEllipse(badge.topLeft() + QPointF(15, 13), 4, 4);
    painter.setPen(Qt::white);
    painter.drawText(badge.adjusted(26, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text);
}
