#include "custompicturebtn.h"

#include "accessiblenotification.h"
#include "looktable.h"

#include <QtCore/QtMath>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

namespace {

constexpr int kTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;

} // namespace

CustomPictureBtn::CustomPictureBtn(QWidget *parent)
    : QPushButton(parent)
{
}

CustomPictureBtn::CustomPictureBtn(const QString &text, QWidget *parent)
    : CustomPictureBtn(QIcon(), text, parent)
{
    m_text = text;
}

CustomPictureBtn::CustomPictureBtn(const QIcon &icon, const QString &text, QWidget *parent)
    : CustomPictureBtn(parent)
{
    // Not through the base's constructor: assistive technology is told of a new text, asks who that is, and
    // remembers the answer, which would be that of a plain push button.
    setIcon(icon);
    setText(text);
}

CustomPictureBtn::CustomPictureBtn(const QImage &image, const QString &text, int span, QWidget *parent,
                                   bool autoResize)
    : CustomPictureBtn(parent)
{
    m_normalImage = m_disabledImage = m_checkedImage = image;
    m_text = text;
    m_span = span;
    if (!m_text.isEmpty() && autoResize)
        resizeWithIconAndText();
}

CustomPictureBtn::~CustomPictureBtn() = default;

void CustomPictureBtn::setFont(const QFont &font)
{
    setFont(font, font, font, font);
}

void CustomPictureBtn::setFont(const QFont &normal, const QFont &hover, const QFont &checked,
                               const QFont &disabled)
{
    m_normalFont = normal;
    m_hoverFont = hover;
    m_checkedFont = checked;
    m_disabledFont = disabled;
    update();
}

void CustomPictureBtn::setFontColor(const QColor &color)
{
    setFontColor(color, color, color, color);
}

void CustomPictureBtn::setFontColor(const QColor &normal, const QColor &hover, const QColor &checked,
                                    const QColor &disabled)
{
    m_normalColor = normal;
    m_hoverColor = hover;
    m_checkedColor = checked;
    m_disabledColor = disabled;
    m_hasOwnColors = true;
    update();
}

void CustomPictureBtn::setHoverIcon(QImage &image)
{
    m_hoverImage = image;
    update();
}

void CustomPictureBtn::setCheckedIcon(QImage &image)
{
    m_checkedImage = image;
    update();
}

void CustomPictureBtn::setDisabledIcon(QImage &image)
{
    m_disabledImage = image;
    update();
}

void CustomPictureBtn::setCustomImg(QString path, QRect rect)
{
    if (!path.isEmpty())
        m_normalImage = QImage(path);
    m_iconRect = rect;
}

void CustomPictureBtn::setCustomText(QString text, QRect rect)
{
    m_text = text;
    m_textRect = rect;
    AccessibleNotification::nameChanged(this);
}

void CustomPictureBtn::adjustIconRect(QRect rect)
{
    m_iconRect = rect;
    update();
}

void CustomPictureBtn::resizeWithIconAndText()
{
    const QFont &font = stateFont();
    const int imageHeight = m_normalImage.height();
    const int height = imageHeight <= font.pixelSize() ? font.pixelSize() : imageHeight;
    const int textWidth = qCeil(QFontMetricsF(font).boundingRect(m_text).width());
    setFixedSize(m_normalImage.width() + m_span + textWidth, height);
    update();
}

void CustomPictureBtn::enterEvent(orvqt::EnterEvent *event)
{
    m_hovered = true;
    update();
    QPushButton::enterEvent(event);
}

void CustomPictureBtn::leaveEvent(QEvent *event)
{
    m_hovered = false;
    update();
    QPushButton::leaveEvent(event);
}

void CustomPictureBtn::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QFont &font = stateFont();
    painter.setFont(font);
    layOut(font);

    if (!m_normalImage.isNull() && m_iconRect.isValid())
        painter.drawImage(m_iconRect, stateImage());
    if (!m_text.isEmpty() && !m_textRect.isNull()) {
        painter.setPen(stateTextColor());
        painter.drawText(m_textRect, kTextAlignment, m_text);
    }
}

const QFont &CustomPictureBtn::stateFont() const
{
    if (isChecked())
        return m_checkedFont;
    return isEnabled() ? m_normalFont : m_disabledFont;
}

const QImage &CustomPictureBtn::stateImage() const
{
    if (isChecked())
        return m_checkedImage;
    if (!isEnabled() && !m_disabledImage.isNull())
        return m_disabledImage;
    if (m_hovered && !m_hoverImage.isNull())
        return m_hoverImage;
    return m_normalImage;
}

QColor CustomPictureBtn::stateTextColor() const
{
    if (!m_hasOwnColors)
        return lookColor(QStringLiteral("pictureText"));
    if (isChecked())
        return m_checkedColor;
    if (!isEnabled())
        return m_disabledColor;
    return m_hovered ? m_hoverColor : m_normalColor;
}

// Fills in the rectangles that are not valid yet. What is computed here stays until a setter replaces it.
void CustomPictureBtn::layOut(const QFont &font)
{
    if (m_textRect.isValid())
        return;

    int textWidth = 0;
    if (m_iconRect.isValid()) {
        textWidth = qCeil(QFontMetricsF(font).boundingRect(m_text).width());
    } else {
        textWidth =
            QFontMetricsF(font).boundingRect(QRectF(m_textRect), kTextAlignment, m_text).toRect().width();
        const QSize imageSize = m_normalImage.size();
        const int totalWidth = imageSize.width() + m_span + textWidth;
        m_iconRect =
            QRect(QPoint((width() - totalWidth) / 2, (height() - imageSize.height()) / 2), imageSize);
    }
    m_textRect = QRect(m_iconRect.left() + m_iconRect.width() + m_span, 0, textWidth, height());
}
