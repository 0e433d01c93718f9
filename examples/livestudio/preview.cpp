#include "preview.h"

#include <cmath>

constexpr QRectF kScene(-640, -360, 1280, 720); // what is painted is measured in these units
constexpr int kInset = 16;
constexpr int kFrameMs = 40;

Preview::Preview(QWidget *parent)
    : QWidget(parent)
    , m_person(":/studio/person.svg")
{
    setAccessibleName(tr("Live picture"));
    set("resolution", QSettings().value("resolution", QSize(960, 540)));
    set("tint", QSettings().value("tint", "white"));
    for (const char *name : {"camera", "brightness", "contrast", "beauty", "zoom"})
        set(name, QSettings().value(name, 0));
    connect(&m_timer, &QTimer::timeout, this, [this] { takePicture(m_seconds + kFrameMs / 1000.); });
    m_timer.start(kFrameMs);
}

void Preview::set(const char *name, const QVariant &value)
{
    setProperty(name, value);
    QSettings().setValue(name, value);
}

void Preview::freezeAt(double seconds)
{
    m_timer.stop();
    takePicture(seconds);
}

void Preview::takePicture(double seconds)
{
    m_seconds = seconds;
    m_picture = QImage(property("resolution").toSize(), QImage::Format_RGB32);
    QPainter painter(&m_picture);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setPen(Qt::NoPen);
    painter.translate(QRectF(m_picture.rect()).center());
    const double scale = zoomFactor(number("zoom")) * m_picture.width() / kScene.width();
    painter.scale(scale, scale);
    paintScene(painter);
    painter.end();
    treatPicture();
    update();
}

// Each camera sees the room in a light of its own.
void Preview::paintScene(QPainter &painter) const
{
    const int hue = 232 + number("camera") * 67;
    QLinearGradient wall(kScene.topLeft(), kScene.bottomRight());
    wall.setColorAt(0, QColor::fromHsv(hue % 360, 150, 82));
    wall.setColorAt(1, QColor::fromHsv((hue + 70) % 360, 120, 150));
    painter.fillRect(kScene, wall);
    for (int light = 0; light < 14; ++light) {
        const double radius = 26 + (light * 29) % 64;
        const double x = std::fmod(m_seconds * (6 + light % 4) + light * 137, 1480) - 740;
        painter.setBrush(QColor::fromHsv((hue + 160 + light * 11) % 360, 90, 255, 60));
        painter.drawEllipse(QPointF(x, (light * 83) % 420 - 250 + 18 * std::sin(m_seconds + light)), radius,
                            radius);
    }
    painter.translate(26 * std::sin(m_seconds * 0.8), 60 + 6 * std::sin(m_seconds * 1.7));
    painter.rotate(1.5 * std::sin(m_seconds * 0.8 + 0.6));
    painter.drawPixmap(QPointF(-m_person.width() / 2., -220), m_person);
}

// Beauty is a soft copy of it; light, shade, gray or the picture itself lie over it, and all is seen through coloured glass.
void Preview::treatPicture()
{
    const QRect all = m_picture.rect();
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(number("beauty") / 130.);
    painter.drawImage(all, m_picture.scaled(all.size() / 8, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    painter.setOpacity(qAbs(number("brightness")) / 80.);
    painter.fillRect(all, number("brightness") > 0 ? Qt::white : Qt::black);
    painter.setOpacity(qAbs(number("contrast")) / 60.);
    if (number("contrast") < 0) {
        painter.fillRect(all, Qt::gray);
    } else {
        painter.setCompositionMode(QPainter::CompositionMode_Overlay);
        painter.drawImage(all, m_picture.copy());
    }
    painter.setOpacity(1);
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    painter.fillRect(all, QColor(property("tint").toString()));
}

void Preview::paintEvent(QPaintEvent *)
{
    const QRect room = rect().adjusted(kInset, kInset, -kInset, -kInset);
    QRect place(QPoint(), m_picture.size().scaled(room.size(), Qt::KeepAspectRatio));
    place.moveCenter(room.center());
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawImage(place, m_picture);

    const QRect badge(place.topLeft() + QPoint(kInset, kInset), QSize(70, 26));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor("#D92D3A"));
    painter.drawRoundedRect(badge, 13, 13);
    painter.setPen(Qt::white);
    painter.drawText(badge, Qt::AlignCenter, tr("LIVE"));
}
