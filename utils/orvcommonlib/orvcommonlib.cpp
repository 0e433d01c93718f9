#include "orvcommonlib.h"

#include "orvcommonlib_version.h"
#include "orvqtcompat.h"
#include "picturecanvas.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QDebug>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QProcess>
#include <QtCore/QSet>
#include <QtCore/QStringList>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainterPath>
#include <QtGui/QScreen>
#include <QtWidgets/QWidget>

#include <cmath>

namespace {

/// Shapes that differ by no more than this count as one shape.
constexpr double kSameShape = 1e-6;

double saneMeasure(double measure)
{
    return std::isnan(measure) ? 0.0 : qBound(-double(kMeasureLimit), measure, double(kMeasureLimit));
}

void clipRounded(QPainter &painter, const QRectF &rect, double radius)
{
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius, Qt::AbsoluteSize);
    painter.setClipPath(path, Qt::ReplaceClip);
}

/// The picture drawn into a canvas of this size through a rounded clip.
QPixmap roundedPixmap(const QPixmap &picture, QSize size, double radius)
{
    QImage canvas = transparentCanvas(size);
    if (canvas.isNull())
        return {};
    const QRect rect(QPoint(0, 0), size);
    QPainter painter(&canvas);
    setSmoothHints(painter);
    clipRounded(painter, rect, radius);
    painter.drawPixmap(rect, picture);
    painter.end();
    return QPixmap::fromImage(canvas);
}

/// The middle of the source, as much of it as has the target's shape. Nothing is scaled here, deliberately.
QPixmap middleOf(const QPixmap &source, QSize target)
{
    const qint64 sourceWidth = source.width();
    const qint64 sourceHeight = source.height();
    const bool wide = double(sourceWidth) / target.width() > double(sourceHeight) / target.height();
    const qint64 width = wide ? sourceWidth * target.height() / sourceHeight : target.width();
    const qint64 height = wide ? target.height() : sourceHeight * target.width() / sourceWidth;
    if (!isPictureSize(width, height))
        return {};

    QImage canvas = transparentCanvas(QSize(int(width), int(height)));
    QPainter painter(&canvas);
    setSmoothHints(painter);
    painter.drawPixmap(QPoint(0, 0), source);
    painter.end();
    const QPoint corner((canvas.width() - target.width()) / 2, (canvas.height() - target.height()) / 2);
    return QPixmap::fromImage(canvas.size() == target ? canvas : canvas.copy(QRect(corner, target)));
}

/// The source smoothly scaled to cover the target, and cut to it around the middle.
QPixmap coveringPixmap(const QPixmap &source, QSizeF size)
{
    const QSize target(int(size.width()), int(size.height()));
    const qint64 sourceWidth = source.width();
    const qint64 sourceHeight = source.height();
    const bool wide = double(sourceWidth) / size.width() > double(sourceHeight) / size.height();
    const qint64 width = wide ? sourceWidth * target.height() / sourceHeight : target.width();
    const qint64 height = wide ? target.height() : sourceHeight * target.width() / sourceWidth;
    if (!isPictureSize(width, height))
        return {};

    const QPixmap scaled =
        source.scaled(int(width), int(height), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    if (wide && size.width() != double(width))
        return scaled.copy(QRect(QPoint(int((double(width) - size.width()) / 2.0), 0), target));
    if (!wide && size.height() != double(height))
        return scaled.copy(QRect(QPoint(0, int((double(height) - size.height()) / 2.0)), target));
    return scaled;
}

bool hasShapeOf(const QPixmap &source, QSizeF size)
{
    if (size.width() == source.width() && size.height() == source.height())
        return true;
    const double wanted = size.width() / size.height();
    const double present = double(source.width()) / source.height();
    return std::abs(wanted - present) <= kSameShape;
}

/// `enclosing` holds the canonical paths of the folders that are being listed: a link back to one of them
/// would otherwise list it for ever.
void appendImages(const QString &folder, QVector<QString> &files, bool animated, QStringList &enclosing)
{
    const QString canonicalPath = QDir(folder).canonicalPath();
    if (!canonicalPath.isEmpty() && enclosing.contains(canonicalPath))
        return;
    enclosing.append(canonicalPath);
    QDirIterator entries(folder, QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QFileInfo info = entries.fileInfo();
        const QString suffix = info.suffix();
        if (info.isDir()) {
            // Only the folder that the caller named is asked for animated images.
            appendImages(path, files, false, enclosing);
        } else if (animated) {
            if (suffix.compare(QLatin1String("webp"), Qt::CaseInsensitive) == 0 ||
                suffix.compare(QLatin1String("gif"), Qt::CaseInsensitive) == 0)
                files.append(path);
        } else if (suffix == QLatin1String("jpg") || suffix == QLatin1String("bmp") ||
                   suffix == QLatin1String("png") || suffix == QLatin1String("svg")) {
            files.append(path);
        }
    }
    enclosing.removeLast();
}

} // namespace

orvcommonlib::orvcommonlib() = default;
orvcommonlib::orvcommonlib(const orvcommonlib &) = default;
orvcommonlib::orvcommonlib(orvcommonlib &&) noexcept = default;
orvcommonlib &orvcommonlib::operator=(const orvcommonlib &) = default;
orvcommonlib &orvcommonlib::operator=(orvcommonlib &&) noexcept = default;
orvcommonlib::~orvcommonlib() = default;

bool orvcommonlib::scaleAndClipPixmap(QPixmap &source, QSize size, int radius, QPixmap &output)
{
    if (source.isNull())
        return false;
    if (!isPictureSize(size))
        output = QPixmap();
    else if (hasShapeOf(source, size))
        output = roundedPixmap(source, size, radius);
    else
        output = roundedPixmap(middleOf(source, size), size, radius);
    return true;
}

bool orvcommonlib::scaleAndClipPixmap2(QPixmap &source, QSizeF size, double radius, QPixmap &output)
{
    if (source.isNull())
        return false;
    const QSizeF target(saneMeasure(size.width()), saneMeasure(size.height()));
    const QSize wholeTarget(int(target.width()), int(target.height()));
    if (!hasShapeOf(source, target)) {
        if (isPictureSize(wholeTarget))
            output = roundedPixmap(coveringPixmap(source, target), wholeTarget, radius);
        else
            output = QPixmap();
        return true;
    }
    if (!(radius > 0))
        return true;

    QImage canvas = transparentCanvas(target.toSize());
    if (!canvas.isNull()) {
        const QRectF rect(QPointF(0, 0), target);
        QPainter painter(&canvas);
        clipRounded(painter, rect, radius);
        painter.drawPixmap(rect.toRect(),
                           source.scaled(wholeTarget, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        painter.end();
    }
    output = QPixmap::fromImage(canvas);
    return true;
}

void orvcommonlib::getImageFromPath(const QString &folder, QVector<QString> &files, bool animated)
{
    // QDirIterator takes no name for an empty folder on some systems and for the root of the drive on others.
    if (folder.isEmpty())
        return;
    QStringList enclosing;
    appendImages(folder, files, animated, enclosing);
}

namespace totalcommon {

namespace {

const QString &productFontFamily()
{
    static const QString family = QStringLiteral("Microsoft Yahei");
    return family;
}

/// FileMD5() reads no more of a file than this.
constexpr qint64 kDigestedBytes = 10240;

constexpr ushort kWidthOffset = 0xFEE0;
constexpr ushort kIdeographicSpace = 0x3000;
constexpr ushort kIdeographicFullStop = 0x3002;

/// At equal x a screen with the same origin counts as coming before, in both directions: this is no strict
/// weak ordering and must not be given to an algorithm that relies on one.
bool comesBefore(const QScreen *left, const QScreen *right)
{
    const QRect a = left->geometry();
    const QRect b = right->geometry();
    return a.x() < b.x() || (a.x() == b.x() && a.y() <= b.y());
}

QString hexDigits(const QCryptographicHash &hash)
{
    return QString::fromLatin1(hash.result().toHex());
}

ushort halfToFull(ushort unit)
{
    if (unit == ' ')
        return kIdeographicSpace;
    if (unit == '.')
        return kIdeographicFullStop;
    return unit < 0x7F ? ushort(unit + kWidthOffset) : unit;
}

ushort fullToHalf(ushort unit)
{
    if (unit == kIdeographicSpace)
        return ' ';
    if (unit == kIdeographicFullStop)
        return '.';
    return unit > 0xFF00 && unit < 0xFF5F ? ushort(unit - kWidthOffset) : unit;
}

/// Sums up the files in folders and in those that links lead to, each time, but no folder within itself.
class FolderSizes
{
public:
    /// What was found in a folder. The same is found there again, wherever it is met, while of the folders that are
    /// being counted around it none is among `counted` and all of `leftOut` are.
    struct Count
    {
        quint64 size = 0;
        QSet<int> counted;
        QSet<int> leftOut;
    };

    Count count(const QString &path, const QString &canonicalPath, bool isLink);

private:
    bool isValidHere(const Count &earlier) const;

    QHash<QString, int> m_numbers; ///< of the folders, by their canonical paths
    QSet<int> m_open;              ///< those that are just being counted
    QHash<int, QVector<Count>> m_linked;
};

bool FolderSizes::isValidHere(const Count &earlier) const
{
    return m_open.contains(earlier.leftOut) && !m_open.intersects(earlier.counted);
}

/// The sum of the files of a folder; `folders` receives its folders.
quint64 sizeOfFiles(const QString &path, QVector<QFileInfo> &folders)
{
    quint64 size = 0;
    QDirIterator entries(path, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo info = entries.fileInfo();
        if (info.isDir())
            folders.append(info);
        else
            size += quint64(info.size());
    }
    return size;
}

FolderSizes::Count FolderSizes::count(const QString &path, const QString &canonicalPath, bool isLink)
{
    const int number = *m_numbers.insert(canonicalPath, m_numbers.value(canonicalPath, m_numbers.size()));
    if (m_open.contains(number))
        return {0, {}, {number}};
    // Many ways may lead to what is linked.
    for (const Count &earlier : m_linked.value(number)) {
        if (isValidHere(earlier))
            return earlier;
    }

    Count sum;
    QVector<QFileInfo>
        folders; // entered when the list is closed: there are levels beyond the number of open files
    sum.size = sizeOfFiles(path, folders);
    m_open.insert(number);
    const QString prefix =
        canonicalPath.endsWith(QLatin1Char('/')) ? canonicalPath : canonicalPath + QLatin1Char('/');
    for (const QFileInfo &folder : qAsConst(folders)) {
        const bool isLinked = folder.isSymLink() || folder.isJunction();
        Count inner = count(folder.filePath(),
                            isLinked ? folder.canonicalFilePath() : prefix + folder.fileName(), isLinked);
        sum.size += inner.size;
        if (sum.counted.size() < inner.counted.size())
            sum.counted.swap(inner.counted);
        sum.counted.unite(inner.counted);
        sum.leftOut.unite(inner.leftOut);
    }
    m_open.remove(number);
    sum.counted.insert(number);
    sum.leftOut.remove(number);
    if (isLink)
        m_linked[number].append(sum);
    return sum;
}

} // namespace

QScreen *getScreen(int index)
{
    if (index < 0)
        return nullptr;
    // Insertion from the back asks the comparison one question at a time and never leaves the list, whatever
    // the answers are; screens with one origin end up in reverse order.
    QList<QScreen *> ordered;
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        int position = ordered.size();
        while (position > 0 && comesBefore(screen, ordered.at(position - 1)))
            --position;
        ordered.insert(position, screen);
    }
    return ordered.isEmpty() ? nullptr : ordered.at(qMin(index, ordered.size() - 1));
}

QScreen *getScreen(QPoint point, bool *found)
{
    QScreen *screen = QGuiApplication::screenAt(point);
    if (found)
        *found = screen != nullptr;
    return screen ? screen : QGuiApplication::primaryScreen();
}

void moveToScreenCenter(QWidget *widget, int index)
{
    if (!widget || widget->parentWidget())
        return;
    const QScreen *screen = getScreen(index);
    if (!screen)
        return;
    const QRect available = screen->availableGeometry();
    const double x = available.x() + (available.width() - widget->width()) / 2.0;
    const double y = available.y() + (available.height() - widget->height()) / 2.0;
    widget->move(int(x), int(y));
}

int getFontWidth(int pixelSize, const QString &text, QFont &font, int weight)
{
    constexpr int kSpare = 2;
    font.setFamily(productFontFamily());
    font.setPixelSize(pixelSize);
    font.setWeight(QFont::Weight(qBound(orvqt::kLightestFont, weight, orvqt::kHeaviestFont)));
    return QFontMetrics(font).boundingRect(text).width() + kSpare;
}

QString HalfToFull(QString text)
{
    for (QChar &unit : text)
        unit = QChar(halfToFull(unit.unicode()));
    return text;
}

QString FullToHalf(QString text)
{
    for (QChar &unit : text)
        unit = QChar(fullToHalf(unit.unicode()));
    return text;
}

QString generateMd5(QString text)
{
    if (text.isEmpty()) {
        qInfo() << "str info is empty";
        return {};
    }
    const std::string bytes = text.toStdString();
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(QByteArray(bytes.c_str())); // up to the first NUL
    return hexDigits(hash);
}

QString FileMD5(QString path, QString extraText)
{
    if (path.isEmpty() || !QFile::exists(path)) {
        qInfo() << "AAAAA--file not exist";
        return {};
    }
    // Opening a pipe would wait for its writer.
    if (!QFileInfo(path).isFile())
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QCryptographicHash hash(QCryptographicHash::Md5);
    hash.addData(file.read(qMin(kDigestedBytes, file.size())));
    if (!extraText.isEmpty())
        hash.addData(extraText.toUtf8());
    return hexDigits(hash);
}

quint64 getDirSize(const QString &path)
{
    const QDir folder(path);
    return FolderSizes().count(folder.path(), folder.canonicalPath(), false).size;
}

void desktopShowInFolder(const QString &path)
{
    const QStringList arguments{QStringLiteral("/select,"), QDir::toNativeSeparators(path)};
    if (!QProcess::startDetached(QStringLiteral("explorer.exe"), arguments))
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).dir().absolutePath()));
}

QString version()
{
    return QStringLiteral(ORVCOMMONLIB_VERSION_STRING);
}

} // namespace totalcommon
