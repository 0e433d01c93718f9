#include "basemovedialogwithbackimage.h"

#include "orvcommonlib.h"

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace {

constexpr QRgb kPlainBackground = qRgb(0xFF, 0xFF, 0xFF);

} // namespace

BaseMoveDialogWithBackImage::BaseMoveDialogWithBackImage(QString imagePath, int border, bool canMove,
                                                         bool asDialog, QWidget *parent)
    : BaseMoveDialogWithBackImage(std::move(imagePath), border, border, border, border, canMove, asDialog,
                                  parent)
{
}

BaseMoveDialogWithBackImage::BaseMoveDialogWithBackImage(QString imagePath, int left, int top, int right,
                                                         int bottom, bool canMove, bool asDialog,
                                                         QWidget *parent)
    : BaseMoveDialog(parent, canMove, true, asDialog)
    , m_imagePath(std::move(imagePath))
    , m_top(top)
    , m_left(left)
    , m_right(right)
    , m_bottom(bottom)
{
}

BaseMoveDialogWithBackImage::~BaseMoveDialogWithBackImage() = default;

void BaseMoveDialogWithBackImage::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    if (m_imagePath.isEmpty())
        paintRoundedRect();
    else
        paintImage();
}

void BaseMoveDialogWithBackImage::paintRoundedRect()
{
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath outline;
    outline.addRoundedRect(QRectF(rect()), m_top, m_top);
    painter.fillPath(outline, QColor(kPlainBackground));
}

void BaseMoveDialogWithBackImage::paintImage()
{
    if (m_background.size() != size()) {
        m_background = QPixmap::fromImage(
            totalcommon::NinePatch(m_imagePath, m_left, m_top, m_right, m_bottom, width(), height()));
    }
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), m_background);
}
