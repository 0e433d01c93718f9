#include "customwraptexttooltip.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

using Direction = customWrapTextToolTip::directionType;

Q_DECLARE_METATYPE(QMargins)

namespace {

const QString kLongText = QStringLiteral("A tooltip that is much too long for one line and therefore wraps");

QLabel *label(const customWrapTextToolTip &toolTip)
{
    return toolTip.findChild<QLabel *>();
}

// The background, written down once more from the design: a rounded box and a triangle in one translucent
// colour.
QImage expectedBackground(const QWidget &window, int direction)
{
    const qreal ratio = window.devicePixelRatioF();
    QImage image((QSizeF(window.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QColor color(31, 31, 34);
    color.setAlphaF(0.9);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(color);
    painter.setBrush(QBrush(color, Qt::SolidPattern));
    const int w = window.width();
    const int h = window.height();
    QPolygon triangle;
    if (direction == 0) {
        painter.drawRoundedRect(6, 0, w - 6, h, 4, 4);
        triangle << QPoint(6, h / 2 - 6) << QPoint(0, h / 2) << QPoint(6, h / 2 + 6);
    } else if (direction == 1) {
        painter.drawRoundedRect(0, 0, w, h - 6, 4, 4);
        triangle << QPoint(w - 50, h - 6) << QPoint(w - 44, h) << QPoint(w - 38, h - 6);
    } else {
        return image;
    }
    painter.drawPolygon(triangle);
    return image;
}

// Stands on a screen of any ratio.
class ToolTipWithRatio : public customWrapTextToolTip
{
public:
    ToolTipWithRatio()
        : customWrapTextToolTip(Direction(0), 160, nullptr, 8)
    {
    }

    int ratio = 1;

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        return metric == PdmDevicePixelRatio         ? ratio
               : metric == PdmDevicePixelRatioScaled ? int(ratio * devicePixelRatioFScale())
                                                     : customWrapTextToolTip::metric(metric);
    }
};

} // namespace

class tst_customWrapTextToolTip : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void directionsHaveTheirNumbers();
    void windowFlagsAndAttributes_data();
    void windowFlagsAndAttributes();
    void oneLineForm();
    void wrappingForm_data();
    void wrappingForm();
    void unknownDirectionSetsNeitherMarginsNorWidth();
    void setTextFitsTheWindow();
    void paintsBoxAndArrow_data();
    void paintsBoxAndArrow();
    void paintsAnewAtAnotherRatio();
    void closesAndDeletesItselfOnDeactivation();
    void otherEventsPassTheFilter();
    void popupShowsAtThePoint();
    void hasNoMetaObjectOfItsOwn();
    void survivesAbsurdSizes();
    void paintsNothingWithoutRoom();
};

void tst_customWrapTextToolTip::directionsHaveTheirNumbers()
{
    QCOMPARE(int(customWrapTextToolTip::DirectionLeft), 0);
    QCOMPARE(int(customWrapTextToolTip::DirectionBottom), 1);
}

void tst_customWrapTextToolTip::windowFlagsAndAttributes_data()
{
    QTest::addColumn<bool>("wrapping");
    QTest::newRow("one line") << false;
    QTest::newRow("wrapping") << true;
}

void tst_customWrapTextToolTip::windowFlagsAndAttributes()
{
    QFETCH(bool, wrapping);
    const QScopedPointer<customWrapTextToolTip> toolTip(
        wrapping ? new customWrapTextToolTip(customWrapTextToolTip::DirectionBottom, 100, nullptr, 8)
                 : new customWrapTextToolTip);
    QCOMPARE(toolTip->windowFlags() & Qt::WindowType_Mask, Qt::Tool);
    QVERIFY(toolTip->windowFlags().testFlag(Qt::FramelessWindowHint));
    QVERIFY(toolTip->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(toolTip->testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(
        label(*toolTip)->styleSheet(),
        QStringLiteral("background:transparent;font-size: 13px;font-weight: 400;color: #FFFFFF;line-height: "
                       "18px;qproperty-wordWrap: true;text-align: left;"));
    toolTip->ensurePolished();
    label(*toolTip)->ensurePolished();
    QVERIFY(label(*toolTip)->wordWrap());
}

void tst_customWrapTextToolTip::oneLineForm()
{
    const customWrapTextToolTip toolTip;
    QCOMPARE(toolTip.minimumHeight(), 30);
    QCOMPARE(toolTip.maximumHeight(), 30);
    QCOMPARE(toolTip.sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
    QCOMPARE(label(toolTip)->minimumHeight(), 30);
    QCOMPARE(label(toolTip)->maximumHeight(), 30);
    QCOMPARE(label(toolTip)->sizePolicy(), QSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed));
    auto *layout = qobject_cast<QHBoxLayout *>(toolTip.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(14, 0, 8, 0));
    QCOMPARE(layout->itemAt(0)->widget(), label(toolTip));
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment(Qt::AlignHCenter));
}

void tst_customWrapTextToolTip::wrappingForm_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QMargins>("margins");
    QTest::addColumn<int>("extraWidth");
    QTest::newRow("left") << 0 << QMargins(14, 4, 8, 4) << 28;
    QTest::newRow("bottom") << 1 << QMargins(8, 4, 33, 10) << 16;
}

void tst_customWrapTextToolTip::wrappingForm()
{
    QFETCH(int, direction);
    QFETCH(QMargins, margins);
    QFETCH(int, extraWidth);
    const customWrapTextToolTip toolTip(Direction(direction), 180, nullptr, 33);
    QCOMPARE(toolTip.minimumWidth(), 180 + extraWidth);
    QCOMPARE(toolTip.maximumWidth(), 180 + extraWidth);
    QCOMPARE(toolTip.layout()->contentsMargins(), margins);
    QCOMPARE(label(toolTip)->minimumWidth(), 180);
    QCOMPARE(label(toolTip)->maximumWidth(), 180);
    QCOMPARE(label(toolTip)->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label(toolTip)->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred));
    QCOMPARE(toolTip.layout()->itemAt(0)->alignment(), Qt::Alignment());
}

void tst_customWrapTextToolTip::unknownDirectionSetsNeitherMarginsNorWidth()
{
    const customWrapTextToolTip toolTip(Direction(7), 180, nullptr, 33);
    QWidget plain;
    const QHBoxLayout plainLayout(&plain);
    QCOMPARE(toolTip.layout()->contentsMargins(), plainLayout.contentsMargins());
    QCOMPARE(toolTip.maximumWidth(), QWIDGETSIZE_MAX);
    QCOMPARE(label(toolTip)->maximumWidth(), 180);
}

void tst_customWrapTextToolTip::setTextFitsTheWindow()
{
    customWrapTextToolTip oneLine;
    oneLine.setText(QStringLiteral("Short"));
    QCOMPARE(label(oneLine)->text(), QStringLiteral("Short"));
    QCOMPARE(oneLine.height(), 30);
    const int shortWidth = oneLine.width();
    QCOMPARE(shortWidth, oneLine.sizeHint().width());
    oneLine.setText(QStringLiteral("Rather longer"));
    QVERIFY(oneLine.width() > shortWidth);
    QCOMPARE(oneLine.width(), oneLine.sizeHint().width());
    oneLine.setText(QStringLiteral("Short"));
    QCOMPARE(oneLine.width(), shortWidth);

    customWrapTextToolTip wrapping(customWrapTextToolTip::DirectionLeft, 120, nullptr, 0);
    wrapping.setText(QStringLiteral("Short"));
    const int oneLineHeight = wrapping.height();
    wrapping.setText(kLongText);
    QCOMPARE(wrapping.width(), 148);
    QVERIFY(wrapping.height() > oneLineHeight);
    wrapping.show();
    QVERIFY(label(wrapping)->height() >= label(wrapping)->heightForWidth(120)); // nothing is cut off
    wrapping.setText(QStringLiteral("Short"));
    QCOMPARE(wrapping.height(), oneLineHeight);
}

void tst_customWrapTextToolTip::paintsBoxAndArrow_data()
{
    QTest::addColumn<int>("direction");
    QTest::addColumn<QSize>("size");
    QTest::newRow("left") << 0 << QSize(148, 60);
    QTest::newRow("left, odd") << 0 << QSize(148, 31);
    QTest::newRow("bottom") << 1 << QSize(136, 60);
    QTest::newRow("bottom, narrower than the arrow's place") << 1 << QSize(30, 60);
    QTest::newRow("unknown direction") << 7 << QSize(120, 40);
}

void tst_customWrapTextToolTip::paintsBoxAndArrow()
{
    QFETCH(int, direction);
    QFETCH(QSize, size);
    customWrapTextToolTip toolTip(Direction(direction), size.width(), nullptr, 8);
    label(toolTip)->hide();
    toolTip.setFixedSize(size);
    QCOMPARE(differingPixels(renderWidget(&toolTip), expectedBackground(toolTip, direction)), 0);
    toolTip.setFixedSize(size + QSize(21, 8));
    QCOMPARE(differingPixels(renderWidget(&toolTip), expectedBackground(toolTip, direction)), 0);
}

// Of a window that has as many pixels as before, too.
void tst_customWrapTextToolTip::paintsAnewAtAnotherRatio()
{
    ToolTipWithRatio toolTip;
    label(toolTip)->hide();
    toolTip.ratio = 1;
    toolTip.setFixedSize(160, 80);
    QCOMPARE(differingPixels(renderWidget(&toolTip), expectedBackground(toolTip, 0)), 0);
    toolTip.ratio = 2;
    toolTip.setFixedSize(80, 40);
    QCOMPARE(differingPixels(renderWidget(&toolTip), expectedBackground(toolTip, 0)), 0);
}

void tst_customWrapTextToolTip::closesAndDeletesItselfOnDeactivation()
{
    QPointer<customWrapTextToolTip> toolTip(new customWrapTextToolTip);
    toolTip->setText(QStringLiteral("Short"));
    toolTip->show();
    QVERIFY(toolTip->isVisible());
    QEvent event(QEvent::WindowDeactivate);
    event.ignore();
    QVERIFY(QCoreApplication::sendEvent(toolTip, &event)); // consumed
    QVERIFY(event.isAccepted());
    QVERIFY(toolTip);
    QVERIFY(!toolTip->isVisible());
    QTRY_VERIFY(!toolTip);
}

void tst_customWrapTextToolTip::otherEventsPassTheFilter()
{
    // The deactivation of another object that the same filter watches is none of its business.
    const QScopedPointer<customWrapTextToolTip> toolTip(new customWrapTextToolTip);
    QWidget other;
    other.installEventFilter(toolTip.data());
    toolTip->show();
    QEvent event(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(&other, &event);
    QVERIFY(toolTip->isVisible());
}

void tst_customWrapTextToolTip::popupShowsAtThePoint()
{
    customWrapTextToolTip::popup(QPoint(123, 45), QStringLiteral("Here"));
    customWrapTextToolTip *found = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *toolTip = dynamic_cast<customWrapTextToolTip *>(window))
            found = toolTip;
    }
    QVERIFY(found);
    QVERIFY(found->isVisible());
    QVERIFY(!found->parent());
    QCOMPARE(found->pos(), QPoint(123, 45));
    QCOMPARE(label(*found)->text(), QStringLiteral("Here"));
    QPointer<QWidget> guard(found);
    found->close();
    QTRY_VERIFY(!guard);
}

void tst_customWrapTextToolTip::hasNoMetaObjectOfItsOwn()
{
    const customWrapTextToolTip toolTip;
    QCOMPARE(toolTip.metaObject(), &QDialog::staticMetaObject);
}

void tst_customWrapTextToolTip::survivesAbsurdSizes()
{
    const ExpectedWarnings negativeSizes("Negative sizes");
    customWrapTextToolTip narrow(customWrapTextToolTip::DirectionBottom, 0, nullptr, -50);
    narrow.setText(kLongText);
    QCOMPARE(narrow.width(), 16);
    QCOMPARE(label(narrow)->text(), kLongText);
    QVERIFY(!renderWidget(&narrow).isNull());
    customWrapTextToolTip negative(customWrapTextToolTip::DirectionLeft, -100, nullptr, 0);
    negative.setText(QString());
    negative.show();
    QVERIFY(negative.isVisible());
    QCOMPARE(negative.width(), 0);
}

// Qt asks none of its widgets to paint nothing, but a subclass may.
void tst_customWrapTextToolTip::paintsNothingWithoutRoom()
{
    class Open : public customWrapTextToolTip
    {
    public:
        using customWrapTextToolTip::customWrapTextToolTip;
        using customWrapTextToolTip::paintEvent;
    };
    Open flat(customWrapTextToolTip::DirectionLeft, 10, nullptr, 0);
    flat.setFixedWidth(0);
    QCOMPARE(flat.width(), 0);
    QPaintEvent event(flat.rect());
    flat.paintEvent(&event); // and no painter complains
}

ORV_TEST_MAIN(tst_customWrapTextToolTip)

#include "tst_customwraptexttooltip.moc"
