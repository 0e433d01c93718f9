#include "fuzzing.h"
#include "orvcommonlib.h"
#include "picturecanvas.h"
#include "support/memoryresource.h"
#include "support/ninepatchrecipe.h"

using namespace Fuzzing;

namespace {

constexpr int kFarthest = 100; // the recipe needs the memory for whatever is asked for

bool isModest(const NinePatchRecipe &recipe)
{
    for (const int measure : {recipe.left, recipe.top, recipe.right, recipe.bottom}) {
        if (qAbs(qint64(measure)) > kFarthest)
            return false;
    }
    return recipe.width > 0 && recipe.height > 0;
}

/// Pieces that the library makes, and that take their time.
bool hasLargePieces(const NinePatchRecipe &recipe)
{
    constexpr qint64 kLarge = 1 << 16;
    const auto sane = [](int border) {
        return qint64(qBound(-kMeasureLimit, border, kMeasureLimit));
    };
    const qint64 left = sane(recipe.left);
    const qint64 top = sane(recipe.top);
    const qint64 right = sane(recipe.right);
    const qint64 bottom = sane(recipe.bottom);
    for (const qint64 width : {left, kFarthest - left - right, right}) {
        for (const qint64 height : {top, kFarthest - top - bottom, bottom}) {
            if (width * height > kLarge && isPictureSize(width, height))
                return true;
        }
    }
    return false;
}

NinePatchRecipe anyRecipe(Input &input)
{
    NinePatchRecipe recipe{};
    for (int *border : {&recipe.left, &recipe.top, &recipe.right, &recipe.bottom})
        *border = input.anyInt();
    recipe.width = qMin(input.anyInt(), kFarthest);
    recipe.height = qMin(input.anyInt(), kFarthest);
    if (hasLargePieces(recipe)) {
        for (int *border : {&recipe.left, &recipe.top, &recipe.right, &recipe.bottom})
            *border %= kFarthest;
    }
    return recipe;
}

void tryPixmap(const QImage &image, const NinePatchRecipe &recipe)
{
    QPixmap source = QPixmap::fromImage(image);
    const QPixmap result = totalcommon::NinePatch(source, recipe.left, recipe.top, recipe.right,
                                                  recipe.bottom, recipe.width, recipe.height);
    if (isModest(recipe))
        check(identical(result.toImage(), recipe.ofPixmap(source).toImage()),
              "a pixmap differs from the recipe");
}

void tryFile(Input &input, const NinePatchRecipe &recipe)
{
    const char *suffix = nullptr;
    const QByteArray contents = anyPicture(input, &suffix);
    const QString name = QLatin1String("picture") + QLatin1String(suffix);
    const MemoryResource file(QStringLiteral("/fuzz"), {{name, contents}});
    QString path = QStringLiteral(":/fuzz/") + name;
    const QImage source(path);
    if (source.width() > kFarthest || source.height() > kFarthest)
        return;
    const QImage result = totalcommon::NinePatch(path, recipe.left, recipe.top, recipe.right, recipe.bottom,
                                                 recipe.width, recipe.height);
    if (isModest(recipe))
        check(identical(result, recipe.ofImage(path)), "a file differs from the recipe");
}

void tryNinePatch(Input &input)
{
    const NinePatchRecipe recipe = anyRecipe(input);
    if (input.flag())
        tryPixmap(anyImage(input), recipe);
    else
        tryFile(input, recipe);
}

const Target target("ninepatch", tryNinePatch);

} // namespace
