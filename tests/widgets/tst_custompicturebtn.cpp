#include "custompicturebtn.h"
#include "mouseevents.h"
#include "paintcount.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QtMath>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>

using Action = std::function<void(CustomPictureBtn &)>;
Q_DECLARE_METATYPE(Action)

namespace {

constexpr int kAlignment = Qt::AlignLeft | Qt::AlignVCenter;
const QColor kDefaultColor(QRgb(0xFF4D4D));

QImage filled(QSize size, Qt::GlobalColor color)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

// A base that paints nothing, so that only the picture and the text of the class itself are left.
void emptyBase(CustomPictureBtn &button)
{
    button.setStyleSheet(QStringLiteral("QPushButton{border:none;background:transparent;}"));
}

QFont pixelFont(int pixelSize)
{
    QFont font;
    font.setPixelSize(pixelSize);
    return font;
}

struct Drawing
{
    QImage image;
    QRect imageRect;
    QString text;
    QRect textRect;
    QColor color;
    QFont font;
};

QImage expected(const QWidget &button, const Drawing &drawing)
{
    const qreal ratio = button.devicePixelRatioF();
    QImage canvas((QSizeF(button.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setFont(drawing.font);
    if (!drawing.image.isNull())
        painter.drawImage(drawing.imageRect, drawing.image);
    if (!drawing.text.isEmpty()) {
        painter.setPen(drawing.color);
        painter.drawText(drawing.textRect, kAlignment, drawing.text);
    }
    return canvas;
}

} // namespace

class tst_CustomPictureBtn : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void centresPictureGapAndTextAsOneGroup();
    void keepsTheRectanglesAfterTheFirstPaint();
    void keepsTheTextRectangleAfterTheFirstPaint();
    void placesTheTextBesideAGivenPicture();
    void drawsNoPictureWhenOnlyTheTextIsPlaced();
    void pictureByState_data();
    void pictureByState();
    void disabledWithoutADisabledPicture();
    void invalidRectangleShowsNoPicture();
    void textColorByState_data();
    void textColorByState();
    void fontByState();
    void constructorsWithoutAPicture();
    void fixesTheSizeOfPictureAndText_data();
    void fixesTheSizeOfPictureAndText();
    void autoResizeNeedsAText();
    void emptyPathOnlyMovesThePicture();
    void missingFileTakesThePictureAway();
    void loadsHighDpiPictures();
    void spanTakesEffectAtTheNextComputation();
    void paintsTheBaseFirst();
    void repaintsWhenASetterSaysSo_data();
    void repaintsWhenASetterSaysSo();
};

void tst_CustomPictureBtn::centresPictureGapAndTextAsOneGroup()
{
    const QImage image = gradientImage(20, 20);
    const QFont font = pixelFont(14);
    const QString text = QStringLiteral("Caption");
    CustomPictureBtn button(image, text, 8, nullptr, false);
    emptyBase(button);
    button.setFont(font);
    button.resize(100, 30);

    const int textWidth = QFontMetricsF(font).boundingRect(QRectF(), kAlignment, text).toRect().width();
    const int left = (100 - (20 + 8 + textWidth)) / 2;
    const QImage picture = expected(button, {image, QRect(left, 5, 20, 20), text,
                                             QRect(left + 28, 0, textWidth, 30), kDefaultColor, font});
    QCOMPARE(differingPixels(renderWidget(&button), picture), 0);
}

void tst_CustomPictureBtn::keepsTheRectanglesAfterTheFirstPaint()
{
    const QImage image = gradientImage(20, 20);
    CustomPictureBtn button(image, QString(), 8, nullptr, false);
    emptyBase(button);
    button.resize(100, 30);
    renderWidget(&button);
    button.resize(200, 60);
    // Without a text the group is picture and gap: (100 - 28) / 2, at the size of the first paint.
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {image, QRect(36, 5, 20, 20), {}, {}, {}, {}})),
             0);

    button.adjustIconRect(QRect(1, 2, 20, 20));
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {image, QRect(1, 2, 20, 20), {}, {}, {}, {}})),
             0);
}

void tst_CustomPictureBtn::keepsTheTextRectangleAfterTheFirstPaint()
{
    const QImage image = gradientImage(20, 20);
    const QFont font = pixelFont(14);
    const QString text = QStringLiteral("Kept");
    CustomPictureBtn button(image, text, 8, nullptr, false);
    emptyBase(button);
    button.setFont(font);
    button.resize(100, 30);
    renderWidget(&button);
    const int textWidth = QFontMetricsF(font).boundingRect(QRectF(), kAlignment, text).toRect().width();
    const int left = (100 - (28 + textWidth)) / 2;
    button.resize(200, 60);
    button.setSpan(50);
    const Drawing drawing = {
        image, QRect(left, 5, 20, 20), text, QRect(left + 28, 0, textWidth, 30), kDefaultColor, font};
    QCOMPARE(differingPixels(renderWidget(&button), expected(button, drawing)), 0);
}

void tst_CustomPictureBtn::placesTheTextBesideAGivenPicture()
{
    const QImage image = gradientImage(16, 16);
    const QFont font = pixelFont(13);
    const QString text = QStringLiteral("Beside");
    CustomPictureBtn button(image, text, 5, nullptr, false);
    emptyBase(button);
    button.setFont(font);
    button.resize(120, 40);
    button.adjustIconRect(QRect(10, 3, 32, 32)); // scaled into it
    const QRect textRect(47, 0, qCeil(QFontMetricsF(font).boundingRect(text).width()), 40);
    QCOMPARE(differingPixels(renderWidget(&button), expected(button, {image, QRect(10, 3, 32, 32), text,
                                                                      textRect, kDefaultColor, font})),
             0);
}

void tst_CustomPictureBtn::drawsNoPictureWhenOnlyTheTextIsPlaced()
{
    const QFont font = pixelFont(13);
    CustomPictureBtn button(gradientImage(16, 16), QString(), 5, nullptr, false);
    emptyBase(button);
    button.setFont(font);
    button.resize(120, 40);
    button.setCustomText(QStringLiteral("Alone"), QRect(20, 0, 80, 40));
    QCOMPARE(
        differingPixels(
            renderWidget(&button),
            expected(button, {{}, {}, QStringLiteral("Alone"), QRect(20, 0, 80, 40), kDefaultColor, font})),
        0);
}

void tst_CustomPictureBtn::pictureByState_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<bool>("ownPictures");
    QTest::addColumn<QColor>("color");
    const QColor normal(Qt::black);
    const QColor checked(Qt::red);
    const QColor disabled(Qt::green);
    const QColor hover(Qt::blue);
    QTest::newRow("normal") << false << true << false << true << normal;
    QTest::newRow("hovered") << false << true << true << true << hover;
    QTest::newRow("disabled") << false << false << false << true << disabled;
    QTest::newRow("disabled before hovered") << false << false << true << true << disabled;
    QTest::newRow("checked") << true << true << false << true << checked;
    QTest::newRow("checked before hovered") << true << true << true << true << checked;
    QTest::newRow("checked before disabled") << true << false << false << true << checked;
    QTest::newRow("hovered without a hover picture") << false << true << true << false << normal;
    QTest::newRow("disabled with the constructor's picture") << false << false << true << false << normal;
    QTest::newRow("checked with the constructor's picture") << true << true << false << false << normal;
}

void tst_CustomPictureBtn::pictureByState()
{
    QFETCH(bool, checked);
    QFETCH(bool, enabled);
    QFETCH(bool, hovered);
    QFETCH(bool, ownPictures);
    QFETCH(QColor, color);
    const QSize size(20, 20);
    CustomPictureBtn button(filled(size, Qt::black), QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(20, 20);
    button.setCheckable(true);
    if (ownPictures) {
        QImage checkedImage = filled(size, Qt::red);
        QImage disabledImage = filled(size, Qt::green);
        QImage hoverImage = filled(size, Qt::blue);
        button.setCheckedIcon(checkedImage);
        button.setDisabledIcon(disabledImage);
        button.setHoverIcon(hoverImage);
    }
    button.setChecked(checked);
    button.setEnabled(enabled);
    QEvent enterOrLeave(hovered ? QEvent::Enter : QEvent::Leave);
    QCoreApplication::sendEvent(&button, &enterOrLeave);
    QCOMPARE(renderWidget(&button).pixelColor(10, 10), color);

    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&button, &leave);
    if (hovered && ownPictures && enabled && !checked)
        QCOMPARE(renderWidget(&button).pixelColor(10, 10), QColor(Qt::black));
}

void tst_CustomPictureBtn::disabledWithoutADisabledPicture()
{
    QImage none;
    QImage hover = filled(QSize(20, 20), Qt::blue);
    CustomPictureBtn button(filled(QSize(20, 20), Qt::black), QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(20, 20);
    button.setDisabledIcon(none);
    button.setHoverIcon(hover);
    button.setEnabled(false);
    MouseEvents::enter(&button);
    QCOMPARE(renderWidget(&button).pixelColor(10, 10), QColor(Qt::blue));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&button, &leave);
    QCOMPARE(renderWidget(&button).pixelColor(10, 10), QColor(Qt::black));
}

void tst_CustomPictureBtn::invalidRectangleShowsNoPicture()
{
    CustomPictureBtn button(filled(QSize(20, 20), Qt::black), QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(60, 30);
    button.setCustomText(QString(), QRect(0, 0, 60, 30));
    button.adjustIconRect(QRect(10, 10, -5, -5));
    QCOMPARE(differingPixels(renderWidget(&button), expected(button, {})), 0);
}

void tst_CustomPictureBtn::textColorByState_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("hovered");
    QTest::addColumn<QColor>("color");
    QTest::newRow("normal") << false << true << false << QColor(Qt::black);
    QTest::newRow("hovered") << false << true << true << QColor(Qt::blue);
    QTest::newRow("checked") << true << true << true << QColor(Qt::red);
    QTest::newRow("checked, disabled") << true << false << false << QColor(Qt::red);
    QTest::newRow("disabled") << false << false << true << QColor(Qt::green);
}

void tst_CustomPictureBtn::textColorByState()
{
    QFETCH(bool, checked);
    QFETCH(bool, enabled);
    QFETCH(bool, hovered);
    QFETCH(QColor, color);
    const QFont font = pixelFont(20);
    const QRect textRect(0, 0, 60, 30);
    CustomPictureBtn button(QImage(), QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(60, 30);
    button.setFont(font);
    button.setCustomText(QStringLiteral("MMM"), textRect);
    button.setFontColor(Qt::black, Qt::blue, Qt::red, Qt::green);
    button.setCheckable(true);
    button.setChecked(checked);
    button.setEnabled(enabled);
    QEvent enterOrLeave(hovered ? QEvent::Enter : QEvent::Leave);
    QCoreApplication::sendEvent(&button, &enterOrLeave);
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {{}, {}, QStringLiteral("MMM"), textRect, color, font})),
             0);
}

void tst_CustomPictureBtn::fontByState()
{
    const QFont normal = pixelFont(10);
    const QFont hover = pixelFont(12);
    const QFont checked = pixelFont(14);
    const QFont disabled = pixelFont(16);
    const QRect textRect(0, 0, 80, 30);
    const QString text = QStringLiteral("Font");
    CustomPictureBtn button(QImage(), QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(80, 30);
    button.setCheckable(true);
    button.setFont(normal, hover, checked, disabled);
    button.setCustomText(text, textRect);
    const auto painted = [&](const QFont &font) {
        return differingPixels(renderWidget(&button),
                               expected(button, {{}, {}, text, textRect, kDefaultColor, font})) == 0;
    };
    QVERIFY(painted(normal));
    QVERIFY(!painted(hover));
    MouseEvents::enter(&button);
    QVERIFY(painted(normal)); // the hover font is never drawn with
    button.setEnabled(false);
    QVERIFY(painted(disabled));
    button.setChecked(true);
    QVERIFY(painted(checked));
}

void tst_CustomPictureBtn::constructorsWithoutAPicture()
{
    CustomPictureBtn plain;
    CustomPictureBtn texted(QStringLiteral("Text"), nullptr);
    CustomPictureBtn iconed(QIcon(QPixmap::fromImage(filled(QSize(16, 16), Qt::red))), QStringLiteral("Text"),
                            nullptr);
    QCOMPARE(texted.text(), QStringLiteral("Text"));
    QCOMPARE(iconed.text(), QStringLiteral("Text"));
    QVERIFY(!iconed.icon().isNull());

    // The second paints its text once more itself, the other two paint what the base paints.
    QPushButton basePlain;
    QPushButton baseIconed(iconed.icon(), QStringLiteral("Text"));
    QPushButton baseTexted(QStringLiteral("Text"));
    for (QPushButton *button : {static_cast<QPushButton *>(&plain), static_cast<QPushButton *>(&texted),
                                static_cast<QPushButton *>(&iconed), &basePlain, &baseIconed, &baseTexted})
        button->resize(100, 30);
    QCOMPARE(differingPixels(renderWidget(&plain), renderWidget(&basePlain)), 0);
    QCOMPARE(differingPixels(renderWidget(&iconed), renderWidget(&baseIconed)), 0);
    QVERIFY(differingPixels(renderWidget(&texted), renderWidget(&baseTexted)) > 0);

    // Checked, there is no checked picture: none is drawn, even after a normal one was set.
    emptyBase(plain);
    plain.setCheckable(true);
    plain.setChecked(true);
    plain.setCustomImg(savedImage(filled(QSize(20, 20), Qt::red), QStringLiteral("red.png")),
                       QRect(0, 0, 20, 20));
    QCOMPARE(renderWidget(&plain).pixelColor(10, 10).alpha(), 0);
    plain.setChecked(false);
    QCOMPARE(renderWidget(&plain).pixelColor(10, 10), QColor(Qt::red));
}

void tst_CustomPictureBtn::fixesTheSizeOfPictureAndText_data()
{
    QTest::addColumn<int>("imageHeight");
    QTest::addColumn<QFont>("font");
    QTest::addColumn<int>("height");
    QFont pointFont;
    pointFont.setPointSize(12);
    QTest::newRow("font lower than the picture") << 20 << pixelFont(14) << 20;
    QTest::newRow("font higher than the picture") << 20 << pixelFont(33) << 33;
    QTest::newRow("equal") << 20 << pixelFont(20) << 20;
    QTest::newRow("font in points") << 20 << pointFont << 20;
}

void tst_CustomPictureBtn::fixesTheSizeOfPictureAndText()
{
    QFETCH(int, imageHeight);
    QFETCH(QFont, font);
    QFETCH(int, height);
    const QString text = QStringLiteral("Some text");
    CustomPictureBtn button(filled(QSize(30, imageHeight), Qt::red), text, 7, nullptr, false);
    button.setFont(font);
    button.resizeWithIconAndText();
    const int width = 37 + qCeil(QFontMetricsF(font).boundingRect(text).width());
    QCOMPARE(button.minimumSize(), QSize(width, height));
    QCOMPARE(button.maximumSize(), QSize(width, height));

    // The font of the state counts.
    button.setFont(font, font, pixelFont(50), pixelFont(60));
    button.setEnabled(false);
    button.resizeWithIconAndText();
    QCOMPARE(button.height(), 60);
    button.setCheckable(true);
    button.setChecked(true);
    button.resizeWithIconAndText();
    QCOMPARE(button.height(), 50);
}

void tst_CustomPictureBtn::autoResizeNeedsAText()
{
    const QImage image = filled(QSize(30, 30), Qt::red);
    const CustomPictureBtn fitted(image, QStringLiteral("Text"), 7, nullptr, true);
    QCOMPARE(fitted.minimumHeight(), 30);
    QCOMPARE(fitted.maximumWidth(),
             37 + qCeil(QFontMetricsF(QFont()).boundingRect(QStringLiteral("Text")).width()));
    const CustomPictureBtn withoutText(image, QString(), 7, nullptr, true);
    QCOMPARE(withoutText.maximumWidth(), QWIDGETSIZE_MAX);
    const CustomPictureBtn notAsked(image, QStringLiteral("Text"), 7, nullptr, false);
    QCOMPARE(notAsked.maximumWidth(), QWIDGETSIZE_MAX);
}

void tst_CustomPictureBtn::emptyPathOnlyMovesThePicture()
{
    const QImage image = gradientImage(20, 20);
    CustomPictureBtn button(image, QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(100, 30);
    button.setCustomImg(QString(), QRect(70, 4, 20, 20));
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {image, QRect(70, 4, 20, 20), {}, {}, {}, {}})),
             0);
}

void tst_CustomPictureBtn::missingFileTakesThePictureAway()
{
    CustomPictureBtn button(gradientImage(20, 20), QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(40, 30);
    button.setCustomImg(QStringLiteral("/no/such/picture.png"), QRect(0, 0, 20, 20));
    QCOMPARE(renderWidget(&button).pixelColor(10, 10).alpha(), 0);
}

void tst_CustomPictureBtn::loadsHighDpiPictures()
{
    // A picture of twice the size in a rectangle of the plain one shows all of its pixels at ratio 2.
    const QImage image = gradientImage(40, 40);
    CustomPictureBtn button;
    emptyBase(button);
    button.resize(30, 30);
    button.setCustomImg(savedImage(image, QStringLiteral("icon@2x.png")), QRect(5, 5, 20, 20));
    QImage loaded(savedImage(image, QStringLiteral("icon@2x.png")));
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {loaded, QRect(5, 5, 20, 20), {}, {}, {}, {}})),
             0);
}

void tst_CustomPictureBtn::spanTakesEffectAtTheNextComputation()
{
    const QImage image = gradientImage(20, 20);
    CustomPictureBtn button(image, QString(), 0, nullptr, false);
    emptyBase(button);
    button.resize(100, 20);
    button.setSpan(30);
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {image, QRect(25, 0, 20, 20), {}, {}, {}, {}})),
             0);
    button.setSpan(0);
    QCOMPARE(differingPixels(renderWidget(&button),
                             expected(button, {image, QRect(25, 0, 20, 20), {}, {}, {}, {}})),
             0);
}

void tst_CustomPictureBtn::paintsTheBaseFirst()
{
    CustomPictureBtn button(filled(QSize(10, 10), Qt::red), QString(), 0, nullptr, false);
    button.setStyleSheet(QStringLiteral("QPushButton{border:none;background:#00ff00;}"));
    button.resize(30, 30);
    const QImage picture = renderWidget(&button);
    QCOMPARE(picture.pixelColor(2, 2), QColor(Qt::green));
    QCOMPARE(picture.pixelColor(picture.rect().center()), QColor(Qt::red));
}

void tst_CustomPictureBtn::repaintsWhenASetterSaysSo_data()
{
    QTest::addColumn<Action>("change");
    QTest::addColumn<int>("paints");
    static QImage image = filled(QSize(10, 10), Qt::blue);
    const QString text = QStringLiteral("B");
    const QRect rect(1, 2, 20, 20);
    const QFont font = pixelFont(9);
    const QColor color(Qt::blue);
    const auto row = [](const char *name, int paints, const Action &change) {
        QTest::newRow(name) << change << paints;
    };
    row("a font", 1, [=](CustomPictureBtn &button) { button.setFont(font); });
    row("four fonts", 1, [=](CustomPictureBtn &button) { button.setFont(font, font, font, font); });
    row("a colour", 1, [=](CustomPictureBtn &button) { button.setFontColor(color); });
    row("four colours", 1,
        [=](CustomPictureBtn &button) { button.setFontColor(color, color, color, color); });
    row("hover", 1, [](CustomPictureBtn &button) { button.setHoverIcon(image); });
    row("checked", 1, [](CustomPictureBtn &button) { button.setCheckedIcon(image); });
    row("disabled", 1, [](CustomPictureBtn &button) { button.setDisabledIcon(image); });
    row("the picture's place", 1, [=](CustomPictureBtn &button) { button.adjustIconRect(rect); });
    row("a picture", 0, [=](CustomPictureBtn &button) { button.setCustomImg(QString(), rect); });
    row("a text", 0, [=](CustomPictureBtn &button) { button.setCustomText(text, rect); });
    row("a span", 0, [](CustomPictureBtn &button) { button.setSpan(3); });
    row("a size that is its own", 1, [](CustomPictureBtn &button) { button.resizeWithIconAndText(); });
    row("the pointer's arrival", 1, [](CustomPictureBtn &button) { MouseEvents::enter(&button); });
}

void tst_CustomPictureBtn::repaintsWhenASetterSaysSo()
{
    QFETCH(const Action, change);
    QFETCH(const int, paints);
    const QImage image = filled(QSize(30, 30), Qt::red);
    QWidget window;
    CustomPictureBtn button(image, QStringLiteral("A"), 0, &window, true);
    window.resize(200, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    PaintCount::settle();
    const PaintCount counted(&button);
    change(button);
    QTRY_COMPARE(counted.own, paints);
    PaintCount::settle();
    QCOMPARE(counted.own, paints);
}

ORV_TEST_MAIN(tst_CustomPictureBtn)

#include "tst_custompicturebtn.moc"
