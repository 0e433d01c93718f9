#include "fuzzing.h"
#include "orvcommonlib.h"
#include "support/memoryresource.h"
#include "support/ninepatchrecipe.h"

#include <QtCore/QScopedPointer>

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

NinePatchRecipe anyRecipe(Input &input)
{
    NinePatchRecipe recipe{};
    for (int *border : {&recipe.left, &recipe.top, &recipe.right, &recipe.bottom})
        *border =
            qMax(input.anyInt(), -kFarthest * 10); // a piece that far outside takes the memory for itself
    recipe.width = input.anyInt();
    recipe.height = input.anyInt();
    // No more memory than there is, nor more time.
    recipe.width = qMin(recipe.width, kFarthest);
    recipe.height = qMin(recipe.height, kFarthest);
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
