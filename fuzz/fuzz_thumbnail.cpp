#include "fuzzing.h"
#include "orvcommonlib.h"
#include "support/thumbnailrecipe.h"

using namespace Fuzzing;

namespace {

constexpr int kLargestResult = 120;
constexpr int kLargest = 400; // of what lies in between

bool isModest(qreal length)
{
    return length >= 1 && length <= kLargestResult;
}

QPixmap anyPixmap(Input &input)
{
    if (input.flag())
        return QPixmap::fromImage(anyImage(input));
    const char *suffix = nullptr;
    const QImage image = QImage::fromData(anyPicture(input, &suffix));
    return image.width() > 200 || image.height() > 200 ? QPixmap() : QPixmap::fromImage(image);
}

/// The steps need room for what they lay in between.
bool hasPlainResult(const QPixmap &source, QSizeF size)
{
    const qreal factor = qMax(size.width() / source.width(), size.height() / source.height());
    return isModest(size.width()) && isModest(size.height()) && source.width() * factor <= kLargest &&
           source.height() * factor <= kLargest;
}

void tryPlain(QPixmap source, QSize size, int radius)
{
    const QPixmap untouched(3, 3);
    QPixmap output = untouched;
    const bool done = orvcommonlib::scaleAndClipPixmap(source, size, radius, output);
    check(done == !source.isNull(), "the result is not whether there is a source");
    check(done || output.cacheKey() == untouched.cacheKey(), "the output of nothing");
    if (done && hasPlainResult(source, size))
        check(identical(output.toImage(), ThumbnailRecipe::plainThumbnail(source, size, radius).toImage()),
              "scaleAndClipPixmap() differs from its steps");
}

void trySmooth(QPixmap source, QSizeF size, double radius)
{
    const QPixmap untouched(3, 3);
    QPixmap output = untouched;
    const bool done = orvcommonlib::scaleAndClipPixmap2(source, size, radius, output);
    check(done == !source.isNull(), "the smooth result is not whether there is a source");
    if (!done || !hasPlainResult(source, size))
        return;
    const QPixmap expected = ThumbnailRecipe::plainSmoothThumbnail(source, size, radius);
    if (expected.isNull())
        check(output.isNull() || output.cacheKey() == untouched.cacheKey(), "the smooth output of nothing");
    else
        check(identical(output.toImage(), expected.toImage()),
              "scaleAndClipPixmap2() differs from its steps");
}

qreal atMost(qreal length)
{
    return length > kLargestResult ? kLargestResult : length; // which leaves what is no number
}

void tryThumbnail(Input &input)
{
    const quint8 kind = input.byte();
    if (kind % 2 == 0) {
        const int width = qMin(input.anyInt(), kLargestResult);
        const int height = qMin(input.anyInt(), kLargestResult);
        const int radius = input.anyInt();
        tryPlain(anyPixmap(input), QSize(width, height), radius);
        return;
    }
    qreal width = input.anyReal();
    qreal height = input.anyReal();
    const qreal radius = input.anyReal();
    width = atMost(width); // what is larger is made, if there is the memory and the time
    height = atMost(height);
    trySmooth(anyPixmap(input), QSizeF(width, height), radius);
}

const Target target("thumbnail", tryThumbnail);

} // namespace
