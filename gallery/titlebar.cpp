#include "titlebar.h"
#include "gallerystyle.h"
#include "orvlook.h"
#include "pagebuilder.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

constexpr int kHeight = 50;
constexpr int kLeftMargin = 16;
constexpr QSize kLogoSize(24, 24);
constexpr int kRightMargin = 9;
constexpr QSize kButtonSize(34, 30);
constexpr qreal kButtonRadius = 6;
constexpr qreal kGlyphSize = 10;
constexpr qreal kGlyphWidth = 1.2;
constexpr qreal kRestoreOffset = 2.5;
constexpr qreal kMoonShift = 3.5; // of the disc that the moon lacks

QPainterPath moon(const QRectF &box)
{
    QPainterPath disc;
    disc.addEllipse(box);
    QPainterPath missing;
    missing.addEllipse(box.translated(kMoonShift, -kMoonShift));
    return disc.subtracted(missing);
}

} // namespace

TitleButton::TitleButton(Glyph glyph, const QString &toolTip, QWidget *parent)
    : QAbstractButton(parent)
    , m_glyph(glyph)
{
    setFixedSize(kButtonSize);
    setFocusPolicy(Qt::TabFocus); // a click leaves the focus where it was
    setObjectName(toolTip.toLower());
    setToolTip(toolTip);
    setAccessibleName(toolTip);
}

void TitleButton::setGlyph(Glyph glyph)
{
    m_glyph = glyph;
    update();
}

QSize TitleButton::sizeHint() const
{
    return kButtonSize;
}

void TitleButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const bool close = m_glyph == Close;
    QColor glyphColor = galleryColor("text");
    if (underMouse()) {
        const QColor hover = galleryColor(close ? "closeHover" : "hairline");
        const QColor pressed = galleryColor(close ? "closePressed" : "dent");
        painter.setPen(Qt::NoPen);
        painter.setBrush(isDown() ? pressed : hover);
        painter.drawRoundedRect(rect(), kButtonRadius, kButtonRadius);
        if (close)
            glyphColor = Qt::white;
    }
    if (hasFocus()) {
        painter.setPen(QPen(galleryColor("primary"), kGlyphWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kButtonRadius, kButtonRadius);
    }
    painter.setPen(QPen(glyphColor, kGlyphWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    drawGlyph(painter);
}

void TitleButton::drawGlyph(QPainter &painter) const
{
    const QPointF centre = QRectF(rect()).center();
    const QRectF box(centre.x() - kGlyphSize / 2, centre.y() - kGlyphSize / 2, kGlyphSize, kGlyphSize);
    switch (m_glyph) {
    case Minimise:
        painter.drawLine(QPointF(box.left(), centre.y() + 0.5), QPointF(box.right(), centre.y() + 0.5));
        break;
    case Maximise:
        painter.drawRoundedRect(box, 1.5, 1.5);
        break;
    case Restore:
        painter.drawRoundedRect(box.adjusted(0, kRestoreOffset, -kRestoreOffset, 0), 1.5, 1.5);
        painter.drawPolyline(
            QPolygonF({QPointF(box.left() + kRestoreOffset, box.top()), QPointF(box.right(), box.top()),
                       QPointF(box.right(), box.bottom() - kRestoreOffset)}));
        break;
    case Dark:
        if (isChecked())
            painter.setBrush(painter.pen().color());
        painter.drawPath(moon(box));
        break;
    case Close:
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    }
}

void TitleButton::enterEvent(orvqt::EnterEvent *event)
{
    update();
    QAbstractButton::enterEvent(event);
}

void TitleButton::leaveEvent(QEvent *event)
{
    update();
    QAbstractButton::leaveEvent(event);
}

TitleBar::TitleBar(QWidget *parent)
    : QWidget(parent)
    , m_maximise(new TitleButton(TitleButton::Maximise, QStringLiteral("Maximise"), this))
{
    setFixedHeight(kHeight);
    setGalleryRole(this, "titleBar");
    setAttribute(Qt::WA_StyledBackground);

    auto *logo = new QLabel(this);
    logo->setPixmap(QGuiApplication::windowIcon().pixmap(kLogoSize));
    auto *name = new QLabel(QStringLiteral("orvcommonlib"), this);
    setGalleryRole(name, "titleName");
    auto *what = new QLabel(QStringLiteral("gallery"), this);
    setGalleryRole(what, "titleWhat");
    auto *dark = new TitleButton(TitleButton::Dark, QStringLiteral("Dark look"), this);
    dark->setCheckable(true);
    followLook(dark, [dark] { dark->setChecked(OrvLook::isDark()); });
    auto *minimise = new TitleButton(TitleButton::Minimise, QStringLiteral("Minimise"), this);
    auto *close = new TitleButton(TitleButton::Close, QStringLiteral("Close"), this);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kLeftMargin, 0, kRightMargin, 0);
    layout->setSpacing(6);
    layout->addWidget(logo);
    layout->addSpacing(4);
    layout->addWidget(name);
    layout->addWidget(what);
    layout->addStretch();
    layout->addWidget(dark);
    layout->addWidget(minimise);
    layout->addWidget(m_maximise);
    layout->addWidget(close);

    connect(dark, &TitleButton::clicked, dark, &OrvLook::setDark);
    connect(minimise, &TitleButton::clicked, this, &TitleBar::minimiseClicked);
    connect(m_maximise, &TitleButton::clicked, this, &TitleBar::maximiseClicked);
    connect(close, &TitleButton::clicked, this, &TitleBar::closeClicked);
}

void TitleBar::setMaximised(bool maximised)
{
    m_maximise->setGlyph(maximised ? TitleButton::Restore : TitleButton::Maximise);
    m_maximise->setToolTip(maximised ? QStringLiteral("Restore") : QStringLiteral("Maximise"));
    m_maximise->setAccessibleName(m_maximise->toolTip());
}
