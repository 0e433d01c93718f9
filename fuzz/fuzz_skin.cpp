#include "fuzzing.h"
#include "internal/skintesting.h"
#include "support/memoryresource.h"

#include <QtCore/QMap>
#include <QtSvg/QSvgRenderer>

using namespace Fuzzing;

namespace {

const QString kFolder = QStringLiteral(":/fuzz/");

QByteArray anyNumber(Input &input)
{
    const quint8 kind = input.byte();
    if (kind == 0xff)
        return "1e308";
    if (kind == 0xfe)
        return "nan";
    if (kind == 0xfd)
        return "-";
    return kind < 0xa0 ? QByteArray::number(kind / 4.0) : QByteArray::number(kind * 5 - 900);
}

QByteArray anyColor(Input &input)
{
    static const char *const kColors[] = {"none",    "red",     "#0f8",          "#12345678",
                                          "url(#a)", "url(#b)", "rgb(300,-1,2%)"};
    return kColors[input.byte() % std::size(kColors)];
}

/// An element whose attributes may hold anything.
QByteArray anyElement(Input &input, int depth)
{
    static const char *const kNames[] = {
        "rect",           "circle",         "ellipse", "line",  "path",  "polygon", "g",    "use",
        "linearGradient", "radialGradient", "text",    "image", "style", "symbol",  "defs", "stop"};
    static const char *const kAttributes[] = {
        "x", "y",      "width",     "height", "rx", "r",    "cx",     "cy",    "opacity",    "stroke-width",
        "d", "points", "transform", "href",   "id", "fill", "stroke", "style", "stop-color", "offset"};
    const QByteArray name = kNames[input.byte() % std::size(kNames)];
    QByteArray element = '<' + name;
    for (int i = input.byte() % 6; i > 0; --i) {
        const QByteArray attribute = kAttributes[input.byte() % std::size(kAttributes)];
        QByteArray value = anyNumber(input);
        if (attribute == "d" || attribute == "points")
            value = (attribute == "d" ? "M " : "") + value + ' ' + anyNumber(input) + " L 3 " +
                    anyNumber(input) + " a 4 4 0 1 1 " + anyNumber(input) + " 2 z";
        else if (attribute == "fill" || attribute == "stroke" || attribute == "stop-color")
            value = anyColor(input);
        else if (attribute == "transform")
            value = (input.flag() ? "rotate(" : "scale(") + value + ')';
        else if (attribute == "id")
            value = input.flag() ? "a" : "b";
        if (attribute == "href") // to what stands before alone: a loop of uses is no picture
            element += " xlink:href='#c'";
        else
            element += ' ' + attribute + "='" + value + '\'';
    }
    element += '>';
    for (int i = depth > 0 ? input.byte() % 4 : 0; i > 0; --i)
        element += anyElement(input, depth - 1);
    return element + "</" + name + '>';
}

QByteArray anyDocument(Input &input)
{
    const quint8 kind = input.byte();
    if (kind < 0x40)
        return input.until('\xff');
    QByteArray document =
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='" +
        anyNumber(input) + "' height='20'" +
        (kind % 2 == 0 ? " viewBox='0 0 20 " + anyNumber(input) + '\'' : QByteArray()) + "><g id='c'/>";
    for (int i = input.byte() % 5; i > 0; --i)
        document += anyElement(input, 3);
    document += "</svg>";
    if (kind > 0xe0)
        document.truncate(input.below(document.size()));
    return document;
}

QRectF anyRect(Input &input)
{
    const qreal x = input.byte() / 2.0 - 30;
    const qreal y = input.byte() / 2.0 - 30;
    return {x, y, input.byte() / 3.0, input.byte() / 3.0};
}

QImage ground(qreal ratio)
{
    static QMap<qreal, QImage> grounds; // to fill one takes longer than most documents
    QImage &image = grounds[ratio];
    if (image.isNull()) {
        image = SkinTesting::blank(QSize(40, 30), ratio);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, 0xff000000U | uint(x) * 0x123457U | uint(y) * 0x3571U);
        }
    }
    return image;
}

/// One level of rounding in a channel, and one more where the ground shines through.
bool isAlike(const QImage &image, const QImage &expected, bool isTranslucent)
{
    return image == expected || differingPixels(image, expected, isTranslucent ? 2 : 1) == 0;
}

/// Qt divides by the sides of the view box: what comes of nothing depends on where it is painted.
bool hasUsableViewBox(const QByteArray &document)
{
    const QRectF viewBox = QSvgRenderer(document).viewBoxF();
    return viewBox.isNull() || !viewBox.isEmpty();
}

void tryPiece(const QRectF &target, qreal ratio, bool isComparable)
{
    QImage expected = ground(ratio);
    {
        QPainter painter(&expected);
        SkinTesting::prepare(&painter);
        if (!target.isEmpty()) // for which Qt would take the whole canvas
            SkinTesting::renderSvg(&painter, kFolder + QStringLiteral("groove.svg"), target);
    }
    for (int time = 0; time < 2; ++time) { // what is kept is made by the first time
        QImage image = ground(ratio);
        SkinPainter(&image, kFolder).paint(QStringLiteral("groove.svg"), target);
        check(!isComparable || isAlike(image, expected, false), "a piece differs from the recipe");
    }
}

void tryGroove(const SkinTesting::Groove &groove, qreal ratio, bool isTranslucent)
{
    QImage expected = ground(ratio);
    {
        QPainter painter(&expected);
        SkinTesting::prepare(&painter);
        SkinTesting::paintGroove(&painter, kFolder + QStringLiteral("groove.svg"), groove);
    }
    for (int time = 0; time < 2; ++time) {
        QImage image = ground(ratio);
        SkinPainter(&image, kFolder)
            .paintColored(QStringLiteral("groove.svg"), groove.area, groove.pixels, groove.columns,
                          groove.color);
        check(isAlike(image, expected, isTranslucent), "a groove differs from the recipe");
    }
}

void trySkin(Input &input)
{
    SkinPainter::forgetFiles();
    const qreal ratio = 1 + input.byte() % 5 / 4.0;
    const QRectF target = anyRect(input);
    const SkinTesting::Groove groove{target,
                                     QSize(1 + input.byte() % 40, 1 + input.byte() % 20),
                                     {double(input.byte() % 50), double(input.byte() % 50)},
                                     QColor::fromRgba(0x80ff2040U * (1U + input.byte()))};
    const bool isGroove = input.flag();
    const QByteArray document = anyDocument(input);
    const MemoryResource file(QStringLiteral("/fuzz"), {{QStringLiteral("groove.svg"), document}});
    if (isGroove)
        tryGroove(groove, ratio, groove.color.alpha() < 255 || document.contains("opacity"));
    else
        tryPiece(target, ratio, hasUsableViewBox(document));
}

const Target target("skin", trySkin);

} // namespace
