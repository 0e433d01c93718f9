#include "orvcommonlib.h"

#include "pictures.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <limits>

namespace {

/// What NinePatch() is measured by: nine cuts, five stretches and nine drawings, one after the other.
struct Recipe
{
    int left;
    int top;
    int right;
    int bottom;
    int width;
    int height;

    template<typename Picture, typename Draw>
    void run(const Picture &source, QPainter &painter, Draw &&draw) const
    {
        const int sourceWidth = source.width();
        const int sourceHeight = source.height();
        const int middle = sourceWidth - left - right;
        const int central = sourceHeight - top - bottom;
        const int wide = width - left - right;
        const int high = height - top - bottom;

        const Picture topLeft = source.copy(0, 0, left, top);
        const Picture topEdge = source.copy(left, 0, middle, top);
        const Picture topRight = source.copy(sourceWidth - right, 0, right, top);
        const Picture leftEdge = source.copy(0, top, left, central);
        const Picture centre = source.copy(left, top, middle, central);
        const Picture rightEdge = source.copy(sourceWidth - right, top, right, central);
        const Picture bottomLeft = source.copy(0, sourceHeight - bottom, left, bottom);
        const Picture bottomEdge = source.copy(left, sourceHeight - bottom, middle, bottom);
        const Picture bottomRight = source.copy(sourceWidth - right, sourceHeight - bottom, right, bottom);

        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.setRenderHint(QPainter::TextAntialiasing);
        draw(0, 0, topLeft);
        draw(left, 0, stretched(topEdge, wide, top));
        draw(width - right, 0, topRight);
        draw(0, top, stretched(leftEdge, left, high));
        draw(left, top, stretched(centre, wide, high));
        draw(width - right, top, stretched(rightEdge, right, high));
        draw(0, height - bottom, bottomLeft);
        draw(left, height - bottom, stretched(bottomEdge, wide, bottom));
        draw(width - right, height - bottom, bottomRight);
    }

    template<typename Picture>
    static Picture stretched(const Picture &piece, int w, int h)
    {
        if (piece.isNull())
            return piece;
        return piece.scaled(w, h, Qt::IgnoreAspectRatio, Qt::FastTransformation);
    }

    QImage ofImage(const QString &fileName) const
    {
        const QImage source(fileName);
        QImage canvas(width, height, QImage::Format_RGBA8888);
        if (canvas.isNull())
            return canvas;
        canvas.fill(Qt::transparent);
        QPainter painter(&canvas);
        run(source, painter,
            [&](int x, int y, const QImage &piece) { painter.drawPixmap(x, y, QPixmap::fromImage(piece)); });
        painter.end();
        return canvas;
    }

    QPixmap ofPixmap(const QPixmap &source) const
    {
        QPixmap canvas(width, height);
        if (canvas.isNull())
            return canvas;
        canvas.fill(QColor(Qt::transparent));
        QPainter painter(&canvas);
        run(source, painter, [&](int x, int y, const QPixmap &piece) { painter.drawPixmap(x, y, piece); });
        painter.end();
        return canvas;
    }

    QString text() const
    {
        return QStringLiteral("borders %1 %2 %3 %4, target %5 x %6")
            .arg(left)
            .arg(top)
            .arg(right)
            .arg(bottom)
            .arg(width)
            .arg(height);
    }
};

/// Equal to the last bit, in the same format.
bool identical(const QImage &left, const QImage &right)
{
    return left.format() == right.format() && left.size() == right.size() && left == right;
}

} // namespace

Q_DECLARE_METATYPE(Recipe)

class tst_ninepatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void equalsTheRecipe_data();
    void equalsTheRecipe();

private:
    QTemporaryDir m_folder;
};

void tst_ninepatch::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void tst_ninepatch::equalsTheRecipe_data()
{
    QTest::addColumn<Recipe>("recipe");
    QTest::newRow("larger") << Recipe{8, 9, 10, 11, 120, 90};
    QTest::newRow("same size") << Recipe{8, 9, 10, 11, 32, 32};
    QTest::newRow("smaller") << Recipe{8, 9, 10, 11, 25, 26};
    QTest::newRow("borders fill the target") << Recipe{8, 9, 10, 11, 18, 20};
    QTest::newRow("narrower than the borders") << Recipe{8, 9, 10, 11, 12, 90};
    QTest::newRow("lower than the borders") << Recipe{8, 9, 10, 11, 120, 13};
    QTest::newRow("smaller than the borders") << Recipe{8, 9, 10, 11, 5, 6};
    QTest::newRow("no borders") << Recipe{0, 0, 0, 0, 70, 60};
    QTest::newRow("no left border") << Recipe{0, 5, 6, 7, 70, 60};
    QTest::newRow("no top border") << Recipe{5, 0, 6, 7, 70, 60};
    QTest::newRow("no right border") << Recipe{5, 6, 0, 7, 70, 60};
    QTest::newRow("no bottom border") << Recipe{5, 6, 7, 0, 70, 60};
    QTest::newRow("borders fill the source") << Recipe{16, 16, 16, 16, 70, 60};
    QTest::newRow("borders larger than the source") << Recipe{40, 41, 42, 43, 200, 210};
    QTest::newRow("negative borders") << Recipe{-3, -4, -5, -6, 70, 60};
    QTest::newRow("no width") << Recipe{8, 9, 10, 11, 0, 60};
    QTest::newRow("no height") << Recipe{8, 9, 10, 11, 70, 0};
    QTest::newRow("negative width") << Recipe{8, 9, 10, 11, -1, 60};
    QTest::newRow("negative height") << Recipe{8, 9, 10, 11, 70, -1};
}

void tst_ninepatch::equalsTheRecipe()
{
    QFETCH(const Recipe, recipe);
    QImage translucent = gradientImage(32, 32).convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x)
            translucent.setPixel(x, y, (translucent.pixel(x, y) & 0xffffffU) | (uint(x * 8 + y) << 24));
    }
    const QImage opaque = gradientImage(32, 32).convertToFormat(QImage::Format_RGB32);
    for (const QImage &source : {translucent, opaque}) {
        QString path = savedImage(source, QStringLiteral("source.png"));
        const QImage image = totalcommon::NinePatch(path, recipe.left, recipe.top, recipe.right,
                                                    recipe.bottom, recipe.width, recipe.height);
        QVERIFY2(identical(image, recipe.ofImage(path)), qPrintable(recipe.text()));
        QPixmap pixmap = QPixmap::fromImage(source);
        const QPixmap stretched = totalcommon::NinePatch(pixmap, recipe.left, recipe.top, recipe.right,
                                                         recipe.bottom, recipe.width, recipe.height);
        QVERIFY2(identical(stretched.toImage(), recipe.ofPixmap(pixmap).toImage()),
                 qPrintable(recipe.text()));
    }
}

QTEST_MAIN(tst_ninepatch)

#include "tst_ninepatch.moc"
