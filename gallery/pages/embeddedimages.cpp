#include "flowlayout.h"
#include "orvcommonlib.h"
#include "pagebuilder.h"
#include "slicepicture.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QImageReader>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <memory>

namespace {

const char *const kFolder = ":/images/images";
constexpr int kTileHeight = 64;
constexpr int kTilePadding = 12;
constexpr int kTileGap = 20;
constexpr int kMaximumExtent = 220;
constexpr QSize kSpinnerSize(64, 64);

enum class Ground { Grey, Light, Dark, Pattern };

QColor groundColor(Ground ground)
{
    switch (ground) {
    case Ground::Grey:
        return {0xD3, 0xD6, 0xDC};
    case Ground::Light:
        return {0xF5, 0xF6, 0xF7};
    case Ground::Dark:
        return {0x33, 0x33, 0x33};
    case Ground::Pattern:
        break;
    }
    return Qt::white;
}

/// One image at a multiple of its own size. Vectors are drawn for the size and ratio at which they are seen.
class Tile : public QWidget
{
public:
    Tile(const QString &file, QWidget *parent)
        : QWidget(parent)
        , m_file(file)
        , m_size(QImageReader(file).size())
    {
        show(1, Ground::Grey);
    }

    QString caption() const
    {
        return QStringLiteral("%1\n%2 x %3")
            .arg(QDir(QString::fromLatin1(kFolder)).relativeFilePath(m_file))
            .arg(m_size.width())
            .arg(m_size.height());
    }

    void show(int factor, Ground ground)
    {
        m_ground = ground;
        QSize size = m_size * factor;
        if (std::max(size.width(), size.height()) > kMaximumExtent)
            size.scale(kMaximumExtent, kMaximumExtent, Qt::KeepAspectRatio);
        m_shownSize = size;
        setFixedSize(size.width() + 2 * kTilePadding,
                     std::max(kTileHeight, size.height() + 2 * kTilePadding));
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        if (m_ground == Ground::Pattern)
            fillTransparencyPattern(painter, rect());
        else
            painter.fillRect(rect(), groundColor(m_ground));
        QImageReader reader(m_file);
        if (m_file.endsWith(QLatin1String(".svg")))
            reader.setScaledSize(m_shownSize * devicePixelRatioF());
        QRect place(QPoint(), m_shownSize);
        place.moveCenter(rect().center());
        painter.drawImage(place, reader.read());
    }

private:
    QString m_file;
    QSize m_size;
    QSize m_shownSize;
    Ground m_ground = Ground::Grey;
};

QWidget *withCaption(Tile *tile, QWidget *parent)
{
    auto *holder = new QWidget(parent);
    auto *layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    auto *caption = new QLabel(tile->caption(), holder);
    setGalleryRole(caption, "caption");
    layout->addWidget(tile, 0, Qt::AlignLeft);
    layout->addWidget(caption);
    return holder;
}

QVector<QString> imagesOf(const QString &folder)
{
    QVector<QString> files;
    orvcommonlib::getImageFromPath(folder, files, false);
    std::sort(files.begin(), files.end());
    return files;
}

void addImages(PageBuilder &page)
{
    page.section("Images",
                 "All of them stand under <b>:/images/images</b> as soon as the library is loaded.");
    auto *wall = new QWidget(page.widget());
    auto *flow = new FlowLayout(kTileGap, kTileGap, wall);
    flow->setContentsMargins(0, 0, 0, 0);
    QVector<Tile *> tiles;
    const QVector<QString> files = imagesOf(QString::fromLatin1(kFolder));
    for (const QString &file : files) {
        tiles.append(new Tile(file, wall));
        flow->addWidget(withCaption(tiles.last(), wall));
    }
    struct Look
    {
        int factor = 1;
        Ground ground = Ground::Grey;
    };
    const auto look = std::make_shared<Look>();
    const auto redo = [tiles, look] {
        for (Tile *tile : tiles)
            tile->show(look->factor, look->ground);
    };
    page.choice("Size", {QStringLiteral("100 %"), QStringLiteral("200 %"), QStringLiteral("400 %")}, 0,
                [look, redo](int index) {
                    look->factor = 1 << index;
                    redo();
                });
    page.choice(
        "Ground",
        {QStringLiteral("grey"), QStringLiteral("light"), QStringLiteral("dark"), QStringLiteral("pattern")},
        0, [look, redo](int index) {
            look->ground = static_cast<Ground>(index);
            redo();
        });
    page.wideExample(wall);
    page.button("Count them", [] {
        report(
            QStringLiteral("getImageFromPath: %1 images").arg(imagesOf(QString::fromLatin1(kFolder)).size()));
    });
}

void addSpinner(PageBuilder &page)
{
    page.section("Animation",
                 "<b>loading.gif</b> is there for the client: no class of the library plays it.");
    auto *spinner = new QLabel(page.widget());
    auto *movie = new QMovie(QStringLiteral(":/images/images/loading.gif"), QByteArray(), spinner);
    movie->setScaledSize(kSpinnerSize);
    spinner->setFixedSize(kSpinnerSize);
    spinner->setMovie(movie);
    movie->start();
    page.example(spinner, "loading.gif");
}

void addSheets(PageBuilder &page)
{
    page.section("Style sheets",
                 "They stand compressed under <b>:/qssFromResource</b> and read as plain text.");
    const QStringList names{QStringLiteral("global_QScrollBar.qss"), QStringLiteral("resourceGlobal.qss"),
                            QStringLiteral("resourceplugins.qss"),
                            QStringLiteral("resourceGeneratedStyle_BrixelCam.qss")};
    const auto read = [names](int index) {
        QFile file(QStringLiteral(":/qssFromResource/") + names.value(index));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : file.errorString();
    };
    QComboBox *choice = page.choice("Sheet", names, 0);
    QPlainTextEdit *text = page.textEdit("Text", read(0));
    text->setReadOnly(true);
    QObject::connect(choice, QOverload<int>::of(&QComboBox::currentIndexChanged), text,
                     [text, read](int index) { text->setPlainText(read(index)); });
}

void build(PageBuilder &page)
{
    addImages(page);
    addSpinner(page);
    addSheets(page);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Services, "Embedded images",
                     "The images and style sheets that the library carries in itself.", build);

} // namespace
