#include "customcomboxheader.h"
#include "mouseevents.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

const QString kUpArrow = QStringLiteral("QLabel{border-image:url(:/images/images/combox/up.png);}");
const QString kDownArrow = QStringLiteral("QLabel{border-image:url(:/images/images/combox/down.png);}");
const QString kSmallDownArrow = QStringLiteral(
    "QLabel{background:transparent; image:url(:/graffiti/resources/graffiti/fontbox/downarrow.svg);}");

// The labels in the order of the header's layout.
struct Labels
{
    explicit Labels(const QWidget *header)
    {
        const QList<QLabel *> all = header->findChildren<QLabel *>();
        text = all.value(0);
        icon = all.value(1);
        count = all.size();
    }
    QLabel *text;
    QLabel *icon;
    int count;
};

} // namespace

class tst_CustomComboxHeader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buildsTheNormalStyle_data();
    void buildsTheNormalStyle();
    void buildsTheSmallStyle();
    void showsTheArrow_data();
    void showsTheArrow();
    void paintsTheArrow_data();
    void paintsTheArrow();
    void elidesLongText_data();
    void elidesLongText();
    void asksForTheFullText();
    void takesCustomStyles();
    void paintsItsStyleSheet();
    void pointsWithAHand();

    void reportsClicks_data();
    void reportsClicks();
    void onlyTheLeftButtonClicks();
    void secondPressDoesNotCount();
    void strayReleaseIsNoClick();
    void lostPressIsNoClick_data();
    void lostPressIsNoClick();
    void doubleClickIsTwoClicks();
    void letsEventsThrough();
    void destroyedByItsOwnClick();
    void hiddenByItsOwnClick();
};

void tst_CustomComboxHeader::buildsTheNormalStyle_data()
{
    QTest::addColumn<bool>("byFlag");
    QTest::newRow("by default") << false;
    QTest::newRow("by its flag") << true;
}

void tst_CustomComboxHeader::buildsTheNormalStyle()
{
    QFETCH(bool, byFlag);
    QWidget parent;
    const auto *header = byFlag ? new CustomComboxHeader(false, &parent) : new CustomComboxHeader(&parent);
    QCOMPARE(header->parentWidget(), &parent);
    QCOMPARE(header->objectName(), QStringLiteral("CustomComboxHeader"));
    QCOMPARE(header->minimumSize(), QSize(260, 48));
    QCOMPARE(header->maximumSize(), QSize(260, 48));

    const auto *layout = qobject_cast<QHBoxLayout *>(header->layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(16, 0, 14, 0));
    QCOMPARE(layout->spacing(), 16);
    const Labels labels(header);
    QCOMPARE(labels.count, 2);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), labels.text);
    QCOMPARE(layout->itemAt(2)->widget(), labels.icon);
    const QSpacerItem *spacer = layout->itemAt(1)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(1, 1));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));

    QCOMPARE(labels.text->text(), QString());
    QCOMPARE(labels.text->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(labels.text->styleSheet(),
             QStringLiteral(
                 "QLabel{background:transparent; color: #1F1F22; font-size:16px; font-weight:Normal;}"));
    QCOMPARE(labels.icon->minimumSize(), QSize(20, 20));
    QCOMPARE(labels.icon->maximumSize(), QSize(20, 20));
    QCOMPARE(labels.icon->styleSheet(), kDownArrow);
}

void tst_CustomComboxHeader::buildsTheSmallStyle()
{
    const CustomComboxHeader header(true, nullptr);
    QCOMPARE(header.objectName(), QStringLiteral("CustomComboxHeader"));
    QCOMPARE(header.minimumSize(), QSize(0, 0));
    QCOMPARE(header.maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));

    const auto *layout = qobject_cast<QHBoxLayout *>(header.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(8, 4, 4, 4));
    QCOMPARE(layout->spacing(), 4);
    const Labels labels(&header);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), labels.text);
    QVERIFY(layout->itemAt(1)->spacerItem());
    QCOMPARE(layout->itemAt(2)->widget(), labels.icon);
    QCOMPARE(labels.text->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(labels.text->styleSheet(),
             QStringLiteral(
                 "QLabel{background:transparent; color: #1F1F22; font-size:14px; font-weight:Normal;}"));
    QCOMPARE(labels.icon->minimumSize(), QSize(16, 16));
    QCOMPARE(labels.icon->maximumSize(), QSize(16, 16));
    QCOMPARE(labels.icon->styleSheet(), kSmallDownArrow);
}

void tst_CustomComboxHeader::showsTheArrow_data()
{
    QTest::addColumn<bool>("small");
    QTest::addColumn<QString>("down");
    QTest::newRow("normal") << false << kDownArrow;
    QTest::newRow("small") << true << kSmallDownArrow;
}

void tst_CustomComboxHeader::showsTheArrow()
{
    QFETCH(bool, small);
    QFETCH(QString, down);
    CustomComboxHeader header(small, nullptr);
    const QLabel *icon = Labels(&header).icon;
    for (const bool up : {true, true, false, false, true}) {
        header.setIconState(up);
        QCOMPARE(icon->styleSheet(), up ? kUpArrow : down);
    }
}

void tst_CustomComboxHeader::paintsTheArrow_data()
{
    QTest::addColumn<bool>("small");
    QTest::addColumn<bool>("up");
    QTest::newRow("down") << false << false;
    QTest::newRow("up") << false << true;
    QTest::newRow("small up") << true << true;
}

void tst_CustomComboxHeader::paintsTheArrow()
{
    QFETCH(bool, small);
    QFETCH(bool, up);
    CustomComboxHeader header(small, nullptr);
    header.setAttribute(Qt::WA_TranslucentBackground);
    header.resize(260, small ? 28 : 48);
    header.show();
    QVERIFY(QTest::qWaitForWindowExposed(&header));
    header.setIconState(up);
    const QLabel *icon = Labels(&header).icon;
    QCOMPARE(icon->geometry().right(), header.width() - 1 - (small ? 4 : 14));
    const QImage drawn = renderWidget(const_cast<QLabel *>(icon));
    int weightAbove = 0; // of the arrow's ink against its mirror image
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x)
            weightAbove += (2 * y < drawn.height() ? 1 : -1) * qAlpha(drawn.pixel(x, y)) *
                           (qAbs(2 * x - drawn.width()) < drawn.width() / 4 ? 1 : 0);
    }
    // The tip, in the middle, is where the arrow points.
    QVERIFY2(up ? weightAbove > 0 : weightAbove < 0, qPrintable(QString::number(weightAbove)));
}

void tst_CustomComboxHeader::elidesLongText_data()
{
    QTest::addColumn<bool>("small");
    QTest::newRow("normal") << false;
    QTest::newRow("small") << true;
}

void tst_CustomComboxHeader::elidesLongText()
{
    QFETCH(bool, small);
    const QString longText = QStringLiteral("A device whose name is much longer than its header is wide");
    const QString ellipsis(QChar(0x2026));
    CustomComboxHeader header(small, nullptr);
    header.setFixedSize(150, 48);
    QLabel *label = Labels(&header).text;
    header.setText(longText);
    QCOMPARE(label->text(), longText); // nobody has laid it out yet
    header.show();
    QVERIFY(label->text().endsWith(ellipsis));
    QVERIFY(label->text().size() < longText.size());
    QVERIFY(label->sizeHint().width() > label->width());
    QVERIFY(label->geometry().right() < Labels(&header).icon->x());
    QCOMPARE(header.text(), longText);
    const QString otherText = QStringLiteral("Another one, whose name has no room in its header either");
    header.setText(otherText); // at the same width
    QVERIFY(label->text().endsWith(ellipsis));
    QCOMPARE(header.text(), otherText);
    header.setText(longText);

    const QString before = label->text();
    header.setFixedWidth(220);
    QTRY_VERIFY(label->text().size() > before.size());
    header.setFixedWidth(900);
    QTRY_COMPARE(label->text(), longText);
    header.setFixedWidth(150);
    QTRY_COMPARE(label->text(), before);
    header.setCustomTextStyle(QStringLiteral("QLabel{font-size:24px;}"));
    QTRY_VERIFY(label->text().size() < before.size());
    QCOMPARE(header.text(), longText);

    header.setText(QStringLiteral("Short"));
    QCOMPARE(label->text(), QStringLiteral("Short"));
    label->setText(QStringLiteral("of the client's")); // found by findChild()
    QCOMPARE(header.text(), QStringLiteral("of the client's"));
    const QString rich = QStringLiteral("<b>Rich</b> text that is too long for the little room that it has");
    header.setText(rich);
    header.setFixedWidth(140);
    QTRY_COMPARE(header.width(), 140);
    QCOMPARE(label->text(), rich);
}

void tst_CustomComboxHeader::asksForTheFullText()
{
    CustomComboxHeader header(true, nullptr);
    QLabel *label = Labels(&header).text;
    header.setText(QStringLiteral("A text of some length"));
    const QSize hint = header.sizeHint();
    const QSize minimum = header.minimumSizeHint();
    header.resize(60, 28);
    header.show();
    header.setFixedSize(60, 28);
    QTRY_VERIFY(label->text().size() < header.text().size());
    QVERIFY(qAbs(header.layout()->sizeHint().width() - hint.width()) <= 1);
    QVERIFY(qAbs(header.layout()->minimumSize().width() - minimum.width()) <= 1);
    QCOMPARE(header.layout()->sizeHint().height(), hint.height());
}

void tst_CustomComboxHeader::takesCustomStyles()
{
    CustomComboxHeader header(nullptr);
    header.setCustomStyle(QStringLiteral("QWidget#%1{background:#123456;}"));
    QCOMPARE(header.styleSheet(), QStringLiteral("QWidget#CustomComboxHeader{background:#123456;}"));
    header.setObjectName(QStringLiteral("Other"));
    header.setCustomStyle(QStringLiteral("#%1{color:red;} #%1:hover{color:blue;}"));
    QCOMPARE(header.styleSheet(), QStringLiteral("#Other{color:red;} #Other:hover{color:blue;}"));
    header.setCustomTextStyle(QStringLiteral("QLabel{color:#4B66EB;}"));
    QCOMPARE(Labels(&header).text->styleSheet(), QStringLiteral("QLabel{color:#4B66EB;}"));
    header.setText(QStringLiteral("Camera"));
    QCOMPARE(Labels(&header).text->text(), QStringLiteral("Camera"));
    header.setText(QString());
    QCOMPARE(Labels(&header).text->text(), QString());
}

void tst_CustomComboxHeader::paintsItsStyleSheet()
{
    CustomComboxHeader header(nullptr);
    header.show();
    QVERIFY(QTest::qWaitForWindowExposed(&header));
    header.setCustomStyle(QStringLiteral("QWidget#%1{background:#123456; border:2px solid #FF0000;}"));
    const QImage image = renderWidget(&header);
    const qreal ratio = image.devicePixelRatio();
    QCOMPARE(image.pixelColor((QPointF(130, 24) * ratio).toPoint()), QColor(0x12, 0x34, 0x56));
    QCOMPARE(image.pixelColor(0, image.height() / 2), QColor(Qt::red));
    header.setCustomStyle(QStringLiteral("QWidget#%1{background:#654321;}"));
    QCOMPARE(renderWidget(&header).pixelColor((QPointF(130, 24) * ratio).toPoint()),
             QColor(0x65, 0x43, 0x21));
}

void tst_CustomComboxHeader::pointsWithAHand()
{
    CustomComboxHeader header(nullptr);
    MouseEvents::enter(&header);
    QCOMPARE(header.cursor().shape(), Qt::PointingHandCursor);
    MouseEvents::leave(&header);
    QCOMPARE(header.cursor().shape(), Qt::ArrowCursor);
}

void tst_CustomComboxHeader::reportsClicks_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<bool>("isClick");
    const int distance = QApplication::startDragDistance();
    QTest::newRow("at rest") << QPoint(0, 0) << true;
    QTest::newRow("just below") << QPoint(distance - 1, 0) << true;
    QTest::newRow("the distance") << QPoint(0, -distance) << false;
    QTest::newRow("both ways") << QPoint(distance / 2, distance - distance / 2) << false;
    QTest::newRow("far") << QPoint(150, 10) << false;
}

void tst_CustomComboxHeader::reportsClicks()
{
    QFETCH(QPoint, way);
    QFETCH(bool, isClick);
    CustomComboxHeader header(nullptr);
    const QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    const QPoint start = header.mapToGlobal(QPoint(130, 24));
    for (int round = 1; round <= 2; ++round) {
        MouseEvents::press(&header, start);
        QCOMPARE(clicked.count(), isClick ? round - 1 : 0);
        MouseEvents::release(&header, start + way);
        QCOMPARE(clicked.count(), isClick ? round : 0);
    }
}

void tst_CustomComboxHeader::onlyTheLeftButtonClicks()
{
    CustomComboxHeader header(nullptr);
    const QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    QTest::mouseClick(&header, Qt::RightButton);
    QTest::mouseClick(&header, Qt::MiddleButton);
    QCOMPARE(clicked.count(), 0);
    // The next release counts, of whatever button.
    const QPoint pos = header.mapToGlobal(QPoint(10, 10));
    MouseEvents::press(&header, pos);
    MouseEvents::release(&header, pos, Qt::RightButton);
    QCOMPARE(clicked.count(), 1);
    MouseEvents::release(&header, pos);
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomComboxHeader::secondPressDoesNotCount()
{
    CustomComboxHeader header(nullptr);
    const QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    const QPoint pos = header.mapToGlobal(QPoint(10, 10));
    MouseEvents::press(&header, pos);
    MouseEvents::press(&header, pos + QPoint(200, 0));
    MouseEvents::release(&header, pos + QPoint(200, 0));
    QCOMPARE(clicked.count(), 0);
    QTest::mouseClick(&header, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomComboxHeader::strayReleaseIsNoClick()
{
    CustomComboxHeader header(nullptr);
    const QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    MouseEvents::release(&header, header.mapToGlobal(QPoint(0, 0)));
    QCOMPARE(clicked.count(), 0);
}

void tst_CustomComboxHeader::lostPressIsNoClick_data()
{
    QTest::addColumn<QEvent::Type>("end");
    QTest::newRow("hidden") << QEvent::Hide;
    QTest::newRow("closed") << QEvent::Close;
    QTest::newRow("a modal window") << QEvent::WindowBlocked;
    QTest::newRow("the mouse is taken") << QEvent::UngrabMouse;
}

void tst_CustomComboxHeader::lostPressIsNoClick()
{
    QFETCH(QEvent::Type, end);
    CustomComboxHeader header(nullptr);
    const QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    const QPoint pos = header.mapToGlobal(QPoint(20, 20));
    MouseEvents::press(&header, pos);
    QEvent event(end);
    QCoreApplication::sendEvent(&header, &event);
    MouseEvents::release(&header, pos);
    QCOMPARE(clicked.count(), 0);
    // The next press starts afresh, where it is.
    MouseEvents::press(&header, pos + QPoint(100, 0));
    MouseEvents::release(&header, pos + QPoint(100, 0));
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomComboxHeader::doubleClickIsTwoClicks()
{
    CustomComboxHeader header(nullptr);
    const QSignalSpy clicked(&header, &CustomComboxHeader::signalClicked);
    const QPoint pos = header.mapToGlobal(QPoint(10, 10));
    MouseEvents::press(&header, pos);
    MouseEvents::release(&header, pos);
    MouseEvents::doubleClick(&header, pos);
    MouseEvents::release(&header, pos);
    QCOMPARE(clicked.count(), 2);
}

void tst_CustomComboxHeader::letsEventsThrough()
{
    // The base handlers run: a press and a release that nobody takes reach the parent.
    class Parent : public QWidget
    {
    public:
        int presses = 0;
        int releases = 0;

    protected:
        void mousePressEvent(QMouseEvent *) override { ++presses; }
        void mouseReleaseEvent(QMouseEvent *) override { ++releases; }
    };
    Parent parent;
    CustomComboxHeader header(&parent);
    QTest::mouseClick(&header, Qt::LeftButton);
    QCOMPARE(parent.presses, 1);
    QCOMPARE(parent.releases, 1);
}

void tst_CustomComboxHeader::destroyedByItsOwnClick()
{
    QWidget parent;
    const QPointer<CustomComboxHeader> header(new CustomComboxHeader(&parent));
    connect(header, &CustomComboxHeader::signalClicked, this, [header] { delete header.data(); });
    parent.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parent));
    QTest::mouseClick(parent.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(20, 20));
    QTRY_VERIFY(!header);
}

void tst_CustomComboxHeader::hiddenByItsOwnClick()
{
    CustomComboxHeader header(nullptr);
    header.show();
    connect(&header, &CustomComboxHeader::signalClicked, &header, &QWidget::hide);
    QTest::mouseClick(&header, Qt::LeftButton);
    QVERIFY(!header.isVisible());
    QTest::mouseClick(&header, Qt::LeftButton);
}

ORV_TEST_MAIN(tst_CustomComboxHeader)

#include "tst_customcomboxheader.moc"
