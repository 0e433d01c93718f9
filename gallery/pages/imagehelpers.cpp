#include "orvcommonlib.h"
#include "pagebuilder.h"
#include "slicepicture.h"

#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>

#include <memory>

namespace {

constexpr int kMaximumBorder = 24;
constexpr int kMaximumTarget = 400;

struct Patch
{
    QString image = QStringLiteral(":/images/images/combox/popup_bg.png");
    QMargins borders{12, 12, 12, 12};
    QSize target{240, 120};
};

struct Thumbnail
{
    QSize source{240, 150};
    QSize target{120, 120};
    int radius = 16;
};

/// A picture from which one can tell which part of it is seen: a hill, a sun and a numbered ruler of squares.
QPixmap landscape(const QSize &size)
{
    QPixmap picture(size);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, size.height());
    sky.setColorAt(0, QColor(0x6A, 0x8D, 0xFF));
    sky.setColorAt(1, QColor(0xFF, 0xE3, 0xC2));
    painter.fillRect(picture.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0xFF, 0xF3, 0xB0));
    painter.drawEllipse(QPointF(size.width() * 0.72, size.height() * 0.3), 22, 22);
    painter.setBrush(QColor(0x3E, 0xA3, 0x7C));
    painter.drawEllipse(QPointF(size.width() * 0.2, size.height() * 1.1), size.width() * 0.6,
                        size.height() * 0.5);
    painter.setBrush(QColor(0x2B, 0x83, 0x66));
    painter.drawEllipse(QPointF(size.width() * 0.85, size.height() * 1.15), size.width() * 0.5,
                        size.height() * 0.45);
    painter.setPen(QColor(255, 255, 255, 130));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(picture.rect().adjusted(4, 4, -5, -5));
    painter.end();
    return picture;
}

QLabel *newPicture(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    return label;
}

void addNinePatch(PageBuilder &page)
{
    page.section("totalcommon::NinePatch", "Stretches a picture without distorting its border.");
    const auto patch = std::make_shared<Patch>();
    auto *source = new SlicePicture(page.widget());
    QLabel *result = newPicture(page.widget());
    setGalleryRole(result, "ground");
    const auto redo = [patch, source, result] {
        source->setPicture(QPixmap(patch->image), patch->borders);
        QString file = patch->image;
        const QMargins &borders = patch->borders;
        const QImage image =
            totalcommon::NinePatch(file, borders.left(), borders.top(), borders.right(), borders.bottom(),
                                   patch->target.width(), patch->target.height());
        result->setPixmap(QPixmap::fromImage(image));
        result->setFixedSize(patch->target);
    };
    redo();
    page.example(source, "the picture, magnified");
    page.example(result, "the result");

    const auto border = [patch, redo](void (QMargins::*setter)(int)) {
        return [patch, redo, setter](int width) {
            (patch->borders.*setter)(width);
            redo();
        };
    };
    const auto extent = [patch, redo](void (QSize::*setter)(int)) {
        return [patch, redo, setter](int value) {
            (patch->target.*setter)(value);
            redo();
        };
    };
    page.spinBox("Left", 0, kMaximumBorder, patch->borders.left(), border(&QMargins::setLeft));
    page.spinBox("Right", 0, kMaximumBorder, patch->borders.right(), border(&QMargins::setRight));
    page.spinBox("Top", 0, kMaximumBorder, patch->borders.top(), border(&QMargins::setTop));
    page.spinBox("Bottom", 0, kMaximumBorder, patch->borders.bottom(), border(&QMargins::setBottom));
    page.spinBox("Width", 1, kMaximumTarget, patch->target.width(), extent(&QSize::setWidth));
    page.spinBox("Height", 1, kMaximumTarget, patch->target.height(), extent(&QSize::setHeight));
}

void addThumbnails(PageBuilder &page)
{
    page.section("Thumbnails",
                 "<b>scaleAndClipPixmap2</b> scales the picture to cover the thumbnail and cuts it around "
                 "the middle. <b>scaleAndClipPixmap</b> cuts without scaling: of a larger picture it shows "
                 "the upper left part. Both round the corners.");
    const auto settings = std::make_shared<Thumbnail>();
    QLabel *source = newPicture(page.widget());
    QLabel *cut = newPicture(page.widget());
    QLabel *scaled = newPicture(page.widget());
    const auto redo = [settings, source, cut, scaled] {
        QPixmap picture = landscape(settings->source);
        QPixmap cutPicture = picture;
        QPixmap scaledPicture = picture;
        orvcommonlib::scaleAndClipPixmap(picture, settings->target, settings->radius, cutPicture);
        orvcommonlib::scaleAndClipPixmap2(picture, settings->target, settings->radius, scaledPicture);
        source->setPixmap(picture);
        source->setFixedSize(picture.size());
        cut->setPixmap(cutPicture);
        cut->setFixedSize(cutPicture.size());
        scaled->setPixmap(scaledPicture);
        scaled->setFixedSize(scaledPicture.size());
    };
    redo();
    page.example(source, "the picture");
    page.example(scaled, "scaleAndClipPixmap2");
    page.example(cut, "scaleAndClipPixmap");

    page.choice("Shape",
                {QStringLiteral("wide, 240 x 150"), QStringLiteral("tall, 150 x 220"),
                 QStringLiteral("square, 180 x 180")},
                0, [settings, redo](int index) {
                    const QSize sizes[] = {{240, 150}, {150, 220}, {180, 180}};
                    settings->source = sizes[index];
                    redo();
                });
    page.spinBox("Radius", 0, 100, settings->radius, [settings, redo](int radius) {
        settings->radius = radius;
        redo();
    });
    page.spinBox("Width", 1, kMaximumTarget / 2, settings->target.width(), [settings, redo](int width) {
        settings->target.setWidth(width);
        redo();
    });
    page.spinBox("Height", 1, kMaximumTarget / 2, settings->target.height(), [settings, redo](int height) {
        settings->target.setHeight(height);
        redo();
    });
}

void addList(PageBuilder &page)
{
    page.section("getImageFromPath",
                 "Lists the images of a folder: its animations, or its still images; sub-folders "
                 "only ever contribute still images.");
    struct Query
    {
        QString folder = QStringLiteral(":/images/images");
        bool animated = true;
    };
    const auto query = std::make_shared<Query>();
    page.lineEdit("Folder", query->folder, [query](const QString &folder) { query->folder = folder; });
    page.checkBox("Animated", query->animated, [query](bool on) { query->animated = on; });
    QPlainTextEdit *list = page.textEdit("Found", QString());
    list->setReadOnly(true);
    const auto look = [query, list] {
        QVector<QString> files;
        orvcommonlib::getImageFromPath(query->folder, files, query->animated);
        list->setPlainText(QStringList(files.cbegin(), files.cend()).join(QLatin1Char('\n')));
        return files.size();
    };
    look();
    page.primaryButton("Look", [look] { report(QStringLiteral("getImageFromPath: %1 files").arg(look())); });
}

void build(PageBuilder &page)
{
    page.include("orvcommonlib.h");
    addNinePatch(page);
    addThumbnails(page);
    addList(page);
}

const GalleryPage &page =
    GalleryPage::add(GalleryFamily::Services, "Image helpers",
                     "Nine-patch stretching, rounded thumbnails, and the images of a folder.", build);

} // namespace
