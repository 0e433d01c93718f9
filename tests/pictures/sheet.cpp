#include "sheet.h"

#include "pictures.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtGui/QPainter>

#include <algorithm>

namespace Pictures {

namespace {

constexpr int kGap = 4;
constexpr int kRowWidth = 1600;
constexpr QRgb kPaper = qRgb(0x80, 0x80, 0x80);
const QString kPlaces = QStringLiteral("Places");

/// How far a channel of a pixel may be off, of 255: see expected/README.md for what was measured.
constexpr int kTolerance = 2;

/// The same picture with a table of its colours, which makes a smaller file, if it has few enough.
QImage withColorTable(const QImage &image)
{
    QHash<QRgb, int> indices;
    QVector<QRgb> table;
    QImage indexed(image.size(), QImage::Format_Indexed8);
    for (int y = 0; y < image.height(); ++y) {
        const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        uchar *line = indexed.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            int index = indices.value(pixels[x], -1);
            if (index < 0) {
                index = int(table.size());
                if (index == 256)
                    return image.convertToFormat(QImage::Format_RGB888);
                indices.insert(pixels[x], index);
                table << pixels[x];
            }
            line[x] = uchar(index);
        }
    }
    indexed.setColorTable(table);
    return indexed;
}

} // namespace

Sheet Sheet::load(const QString &path)
{
    Sheet sheet;
    const QImage image(path);
    const QStringList lines = image.text(kPlaces).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QStringList words = line.split(QLatin1Char(' '));
        if (words.size() < 5)
            continue;
        const QRect place(words[0].toInt(), words[1].toInt(), words[2].toInt(), words[3].toInt());
        sheet.add(words.mid(4).join(QLatin1Char(' ')), image.copy(place));
    }
    return sheet;
}

bool Sheet::save(const QString &path) const
{
    const QVector<QRect> places = this->places();
    QRect bounds;
    QStringList lines;
    for (int index = 0; index < places.size(); ++index) {
        const QRect &place = places[index];
        bounds |= place;
        lines << QStringLiteral("%1 %2 %3 %4 %5")
                     .arg(place.x())
                     .arg(place.y())
                     .arg(place.width())
                     .arg(place.height())
                     .arg(m_cells[index].name);
    }
    QImage image(bounds.right() + 1 + kGap, bounds.bottom() + 1 + kGap, QImage::Format_RGB32);
    image.fill(kPaper);
    QPainter painter(&image);
    for (int index = 0; index < places.size(); ++index)
        painter.drawImage(places[index].topLeft(), m_cells[index].picture);
    painter.end();
    QImage kept = withColorTable(image);
    kept.setText(kPlaces, lines.join(QLatin1Char('\n')));
    return kept.save(path, "PNG", 0); // as small as it goes
}

void Sheet::add(const QString &name, const QImage &picture)
{
    QImage plain = picture.convertToFormat(QImage::Format_RGB32);
    plain.setDevicePixelRatio(1);
    m_cells << Cell{name, plain};
}

QStringList Sheet::names() const
{
    QStringList names;
    for (const Cell &cell : m_cells)
        names << cell.name;
    return names;
}

QImage Sheet::picture(const QString &name) const
{
    const QVector<Cell>::const_iterator found =
        std::find_if(m_cells.begin(), m_cells.end(), [&name](const Cell &cell) { return cell.name == name; });
    return found == m_cells.end() ? QImage() : found->picture;
}

QVector<QRect> Sheet::places() const
{
    QVector<QRect> places;
    QPoint corner(kGap, kGap);
    int rowHeight = 0;
    for (const Cell &cell : m_cells) {
        const QVector<Cell>::const_iterator first =
            std::find_if(m_cells.begin(), m_cells.end(),
                         [&cell](const Cell &other) { return other.picture == cell.picture; });
        if (&*first != &cell) {
            places << places[int(first - m_cells.begin())];
            continue;
        }
        if (corner.x() > kGap && corner.x() + cell.picture.width() + kGap > kRowWidth) {
            corner = QPoint(kGap, corner.y() + rowHeight + kGap);
            rowHeight = 0;
        }
        places << QRect(corner, cell.picture.size());
        corner.rx() += cell.picture.width() + kGap;
        rowHeight = qMax(rowHeight, cell.picture.height());
    }
    return places;
}

QString difference(const QImage &expected, const QImage &actual)
{
    if (expected.isNull())
        return QStringLiteral("no picture of it is kept");
    if (actual.isNull())
        return QStringLiteral("is kept, but no longer painted");
    if (expected.size() != actual.size()) {
        return QStringLiteral("%1 x %2 pixels instead of %3 x %4")
            .arg(actual.width())
            .arg(actual.height())
            .arg(expected.width())
            .arg(expected.height());
    }
    const int pixels = differingPixels(expected, actual, kTolerance);
    return pixels == 0 ? QString() : QStringLiteral("%1 pixels differ").arg(pixels);
}

QImage differencePicture(const QImage &expected, const QImage &actual)
{
    if (expected.size() != actual.size())
        return {};
    QImage picture(expected);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb left = expected.pixel(x, y);
            const QRgb right = actual.pixel(x, y);
            const int off = std::max({qAbs(qRed(left) - qRed(right)), qAbs(qGreen(left) - qGreen(right)),
                                      qAbs(qBlue(left) - qBlue(right))});
            const int faint = 192 + qGray(left) / 4;
            picture.setPixel(x, y, off > kTolerance ? qRgb(255, 0, 0) : qRgb(faint, faint, faint));
        }
    }
    return picture;
}

QStringList differingNames(const Sheet &expected, const Sheet &actual)
{
    QStringList names = actual.names();
    const QStringList expectedNames = expected.names();
    for (const QString &name : expectedNames) {
        if (!names.contains(name))
            names << name;
    }
    names.erase(std::remove_if(names.begin(), names.end(),
                               [&](const QString &name) {
                                   return difference(expected.picture(name), actual.picture(name)).isEmpty();
                               }),
                names.end());
    return names;
}

} // namespace Pictures
