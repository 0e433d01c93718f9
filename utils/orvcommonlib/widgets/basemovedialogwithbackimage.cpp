#include "basemovedialogwithbackimage.h"

#include "lookpictures.h"
#include "looktable.h"
#include "orvcommonlib.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QMargins>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtGui/QPixmapCache>

namespace {

/// The sliced image, which all dialogs of one size share as long as QPixmapCache has room for it. It belongs to
/// what the file holds now; the path decides with it, as one that ends in "@2x" is read in another way.
QPixmap sharedBackground(QString path, const QMargins &borders, QSize size)
{
    QPixmap background;
    QString key;
    QFile file(path);
    QCryptographicHash content(QCryptographicHash::Md5);
    if (file.open(QIODevice::ReadOnly) && content.addData(&file)) {
        QDebug(&key) << "orvcommonlib" << path << content.result().toHex() << borders << size;
        if (QPixmapCache::find(key, &background))
            return background;
    }
    background = QPixmap::fromImage(totalcommon::NinePatch(
        path, borders.left(), borders.top(), borders.right(), borders.bottom(), size.width(), size.height()));
    if (!key.isEmpty())
        QPixmapCache::insert(key, background);
    return background;
}

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
    painter.fillPath(outline, lookColor(QStringLiteral("dialogGround")));
}

void BaseMoveDialogWithBackImage::paintImage()
{
    const QString path = LookPictures::path(m_imagePath);
    if (m_background.size() != size() || m_backgroundPath != path) {
        m_backgroundPath = path;
        m_background = sharedBackground(path, QMargins(m_left, m_top, m_right, m_bottom), size());
    }
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), m_background);
}
