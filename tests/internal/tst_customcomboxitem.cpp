#include "customcomboxitem.h"
#include "mouseevents.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <functional>

#include <functional>

using Make = std::function<CustomComboxItem *()>;
Q_DECLARE_METATYPE(Make)

namespace {

QString rowSheet(bool hovered, int radius)
{
    // Two blanks when the row is not hovered.
    return hovered
               ? QStringLiteral("QWidget#CustomComboxItem{border-radius:%1px; background-color:#F4F4F4; }")
                     .arg(radius)
               : QStringLiteral("QWidget#CustomComboxItem{border-radius:%1px;  background-color:#FFFFFF; }")
                     .arg(radius);
}

QString textSheet(const char *color, int fontSize, const char *weight)
{
    return QStringLiteral("QLabel{ background:transparent; color: %1; font-size:%2px; font-weight:%3; }")
        .arg(QLatin1String(color))
        .arg(fontSize)
        .arg(QLatin1String(weight));
}

QString plainText(int fontSize)
{
    return textSheet("#333333", fontSize, "Normal");
}

QString checkedText(int fontSize)
{
    return textSheet("#4B66EB", fontSize, "Medium");
}

QString grayText()
{
    return textSheet("#B1B1B2", 16, "Medium");
}

// The labels of a row in the order of its layout.
struct Labels
{
    explicit Labels(const CustomComboxItem *row)
    {
        const QList<QLabel *> all = row->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        text = all.value(0);
        check = all.value(1);
        badge = all.value(2);
        count = all.size();
    }
    QLabel *text = nullptr;
    QLabel *check = nullptr;
    QLabel *badge = nullptr;
    int count = 0;
};

const QString kLongText =
    QStringLiteral("A camera with a name that is far too long for the list it stands in");

} // namespace

Q_DECLARE_METATYPE(std::function<void(CustomComboxItem *)>)

class tst_CustomComboxItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void signalsStandInOrder();
    void constructs_data();
    void constructs();
    void laysOutItsLabels();
    void looksFollowTheState_data();
    void looksFollowTheState();
    void checkMarkOfAGrayRowStays();
    void badgeIsOnlyForRowsThatStartGray_data();
    void badgeIsOnlyForRowsThatStartGray();
    void hoversWithThePointer();
    void changesApplyAnUnchangedSheet_data();
    void changesApplyAnUnchangedSheet();
    void paintsItsStyleSheet_data();
    void paintsItsStyleSheet();
    void elidesItsText();
    void elidesAgainWhenTheTextChangesItsSize();
    void odd_texts_data();
    void odd_texts();
    void styledWhenSeen();
    void keepsData();
    void reportsClicks_data();
    void reportsClicks();
    void dragIsNoClick_data();
    void dragIsNoClick();
    void otherButtonsAreNoClick();
    void strayReleaseIsNoClick();
    void pressThatTheListDidNotOutliveIsForgotten();
    void doubleClickIsTwoClicks();
    void destroyedByItsOwnClick_data();
    void destroyedByItsOwnClick();
};

void tst_CustomComboxItem::signalsStandInOrder()
{
    const QMetaObject &meta = CustomComboxItem::staticMetaObject;
    const int first = meta.methodOffset();
    QCOMPARE(meta.method(first).methodSignature(), QByteArray("signalClickItem(int)"));
    QCOMPARE(meta.method(first + 1).methodSignature(), QByteArray("signalClickGrayItem(int)"));
}

void tst_CustomComboxItem::constructs_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("radius");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("fontSize");
    QTest::addColumn<int>("iconSize");
    QTest::addColumn<QSize>("badge");
    const QString text = QStringLiteral("Row");
    const QSize none;
    QTest::newRow("text") << Make([=] { return new CustomComboxItem(text, nullptr); }) << 8 << 48 << 16 << 20
                          << none;
    QTest::newRow("small") << Make([=] { return new CustomComboxItem(true, text, nullptr); }) << 3 << 28 << 12
                           << 12 << none;
    QTest::newRow("not small") << Make([=] { return new CustomComboxItem(false, text, nullptr); }) << 8 << 28
                               << 12 << 12 << none;
    QTest::newRow("small with measures")
        << Make([=] { return new CustomComboxItem(true, text, 36, 14, 18, nullptr); }) << 3 << 36 << 14 << 18
        << none;
    QTest::newRow("with measures") << Make([=] {
        return new CustomComboxItem(false, text, 40, 11, 9, nullptr);
    }) << 8 << 40 << 11 << 9 << none;
    QTest::newRow("gray, Chinese") << Make([=] { return new CustomComboxItem(text, nullptr, true, true); })
                                   << 8 << 48 << 16 << 20 << QSize(67, 18);
    QTest::newRow("gray") << Make([=] { return new CustomComboxItem(text, nullptr, true, false); }) << 8 << 48
                          << 16 << 20 << QSize(56, 18);
    QTest::newRow("not gray") << Make([=] { return new CustomComboxItem(text, nullptr, false, true); }) << 8
                              << 48 << 16 << 20 << none;
    QTest::newRow("text size") << Make([=] { return new CustomComboxItem(text, 22, nullptr); }) << 8 << 48
                               << 22 << 20 << none;
}

void tst_CustomComboxItem::constructs()
{
    QFETCH(Make, make);
    QFETCH(int, radius);
    QFETCH(int, height);
    QFETCH(int, fontSize);
    QFETCH(int, iconSize);
    QFETCH(QSize, badge);
    const QScopedPointer<CustomComboxItem> row(make());
    QVERIFY(!row->parent());
    QCOMPARE(row->objectName(), QStringLiteral("CustomComboxItem"));
    QCOMPARE(row->cursor().shape(), Qt::PointingHandCursor);
    QCOMPARE(row->minimumHeight(), height);
    QCOMPARE(row->maximumHeight(), height);
    QCOMPARE(row->text(), QStringLiteral("Row"));
    QVERIFY(!row->data().isValid());
    QCOMPARE(row->styleSheet(), rowSheet(false, radius));

    const Labels labels(row.data());
    QCOMPARE(labels.text->text(), QStringLiteral("Row"));
    QCOMPARE(labels.text->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(labels.text->styleSheet(), badge.isValid() ? grayText() : plainText(fontSize));
    QCOMPARE(labels.check->minimumSize(), QSize(iconSize, iconSize));
    QCOMPARE(labels.check->maximumSize(), QSize(iconSize, iconSize));
    QCOMPARE(labels.check->styleSheet(),
             QStringLiteral("QLabel{border-image:url(:/images/images/combox/checked.png);}"));
    QVERIFY(labels.check->isHidden());
    QCOMPARE(labels.count, badge.isValid() ? 3 : 2);
    if (labels.badge) {
        QCOMPARE(labels.badge->minimumSize(), badge);
        QCOMPARE(labels.badge->maximumSize(), badge);
        const QString image = badge.width() == 67 ? QStringLiteral("novip_zh") : QStringLiteral("novip");
        QCOMPARE(labels.badge->styleSheet(),
                 QStringLiteral("QLabel{border-image:url(:/images/images/combox/%1.png);}").arg(image));
    }

    const QSignalSpy clicked(row.data(), &CustomComboxItem::signalClickItem);
    const QSignalSpy grayClicked(row.data(), &CustomComboxItem::signalClickGrayItem);
    QTest::mouseClick(row.data(), Qt::LeftButton);
    QCOMPARE(clicked.count(), badge.isValid() ? 0 : 1);
    QCOMPARE(grayClicked.count(), badge.isValid() ? 1 : 0);
    QCOMPARE((clicked + grayClicked).constFirst().constFirst().toInt(), -1); // until a list numbers it
}

void tst_CustomComboxItem::laysOutItsLabels()
{
    const CustomComboxItem row(QStringLiteral("Row"), nullptr, true, false);
    const auto *layout = qobject_cast<QHBoxLayout *>(row.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins(8, 0, 6, 0));
    QCOMPARE(layout->spacing(), 0);
    const Labels labels(&row);
    QCOMPARE(layout->count(), 4);
    QCOMPARE(layout->itemAt(0)->widget(), labels.text);
    const QSpacerItem *spacer = layout->itemAt(1)->spacerItem();
    QVERIFY(spacer);
    QCOMPARE(spacer->sizeHint(), QSize(6, 6));
    QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(layout->itemAt(2)->widget(), labels.check);
    QCOMPARE(layout->itemAt(3)->widget(), labels.badge);
}

void tst_CustomComboxItem::looksFollowTheState_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("gray");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("text");
    for (const bool shown : {false, true}) {
        const char *where = shown ? "shown" : "never shown";
        QTest::addRow("plain, %s", where) << false << false << shown << plainText(12);
        QTest::addRow("checked, %s", where) << true << false << shown << checkedText(12);
        QTest::addRow("gray, %s", where) << false << true << shown << grayText();
        QTest::addRow("checked gray, %s", where) << true << true << shown << grayText();
    }
}

void tst_CustomComboxItem::looksFollowTheState()
{
    QFETCH(bool, checked);
    QFETCH(bool, gray);
    QFETCH(bool, shown);
    QFETCH(QString, text);
    CustomComboxItem row(true, QStringLiteral("Row"), nullptr);
    const Labels labels(&row);
    if (shown) {
        row.show();
        QVERIFY(QTest::qWaitForWindowExposed(&row));
    }
    for (const bool hovered : {true, false, true}) {
        row.setHovered(hovered);
        row.setGrayState(gray);
        row.setChecked(checked);
        QCOMPARE(row.styleSheet(), rowSheet(hovered, 3));
        QCOMPARE(labels.text->styleSheet(), text);
        QCOMPARE(labels.check->isHidden(), gray || !checked);
        if (shown) {
            const QColor color = labels.text->palette().color(QPalette::WindowText);
            QCOMPARE(color, gray ? QColor(0xB1, 0xB1, 0xB2)
                                 : (checked ? QColor(0x4B, 0x66, 0xEB) : QColor(0x33, 0x33, 0x33)));
            QCOMPARE(labels.text->font().pixelSize(), gray ? 16 : 12);
        }
        row.setChecked(false);
        row.setGrayState(false);
        QCOMPARE(labels.text->styleSheet(), plainText(12));
        QVERIFY(labels.check->isHidden());
    }
}

void tst_CustomComboxItem::checkMarkOfAGrayRowStays()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    const Labels labels(&row);
    row.setChecked(true);
    row.setGrayState(true);
    QVERIFY(!labels.check->isHidden());
    row.setChecked(false);
    QVERIFY(!labels.check->isHidden());
    row.setGrayState(false);
    QVERIFY(labels.check->isHidden());

    row.setGrayState(true);
    row.setChecked(true);
    QVERIFY(labels.check->isHidden());
    row.setGrayState(false);
    QVERIFY(!labels.check->isHidden());
}

void tst_CustomComboxItem::badgeIsOnlyForRowsThatStartGray_data()
{
    QTest::addColumn<bool>("chinese");
    QTest::newRow("Chinese") << true;
    QTest::newRow("other") << false;
}

void tst_CustomComboxItem::badgeIsOnlyForRowsThatStartGray()
{
    QFETCH(bool, chinese);
    CustomComboxItem startsGray(QStringLiteral("Row"), nullptr, true, chinese);
    const Labels labels(&startsGray);
    QVERIFY(!labels.badge->isHidden());
    startsGray.setGrayState(false);
    QVERIFY(labels.badge->isHidden());
    startsGray.setGrayState(true);
    QVERIFY(!labels.badge->isHidden());

    CustomComboxItem becomesGray(QStringLiteral("Row"), nullptr, false, chinese);
    becomesGray.setGrayState(true);
    QVERIFY(!Labels(&becomesGray).badge);
    QCOMPARE(Labels(&becomesGray).text->styleSheet(), grayText());
}

void tst_CustomComboxItem::hoversWithThePointer()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    MouseEvents::enter(&row);
    QCOMPARE(row.styleSheet(), rowSheet(true, 8));
    MouseEvents::leave(&row);
    QCOMPARE(row.styleSheet(), rowSheet(false, 8));
}

void tst_CustomComboxItem::changesApplyAnUnchangedSheet_data()
{
    QTest::addColumn<std::function<void(CustomComboxItem *)>>("change");
    using Change = std::function<void(CustomComboxItem *)>;
    QTest::newRow("checked") << Change([](CustomComboxItem *row) { row->setChecked(false); });
    QTest::newRow("gray") << Change([](CustomComboxItem *row) { row->setGrayState(false); });
    QTest::newRow("hovered") << Change([](CustomComboxItem *row) { row->setHovered(false); });
    QTest::newRow("resized") << Change(
        [](CustomComboxItem *row) { row->resize(row->width() + 1, row->height()); });
}

// What a sheet selects on may have changed since.
void tst_CustomComboxItem::changesApplyAnUnchangedSheet()
{
    QFETCH(std::function<void(CustomComboxItem *)>, change);
    QWidget list;
    list.setStyleSheet(QStringLiteral("QWidget[current=true]{font-family:\"Loud\";}"));
    auto *row = new CustomComboxItem(QStringLiteral("Row"), &list);
    list.show();
    QVERIFY(QTest::qWaitForWindowExposed(&list));
    row->setProperty("current", true);
    QVERIFY(row->font().family() != QLatin1String("Loud"));
    change(row);
    QCOMPARE(row->font().family(), QStringLiteral("Loud"));
}

void tst_CustomComboxItem::paintsItsStyleSheet_data()
{
    QTest::addColumn<bool>("small");
    QTest::addColumn<bool>("hovered");
    QTest::newRow("plain") << false << false;
    QTest::newRow("hovered") << false << true;
    QTest::newRow("small") << true << false;
    QTest::newRow("small hovered") << true << true;
}

void tst_CustomComboxItem::paintsItsStyleSheet()
{
    QFETCH(bool, small);
    QFETCH(bool, hovered);
    CustomComboxItem row(small, QString(), nullptr);
    // As in the list: below another widget, with nothing of its own below the round corners.
    row.setAttribute(Qt::WA_TranslucentBackground);
    row.resize(200, 28);
    row.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row));
    row.setHovered(hovered);
    const QImage image = renderWidget(&row);
    const QColor color = hovered ? QColor(0xF4, 0xF4, 0xF4) : QColor(Qt::white);
    QCOMPARE(image.pixelColor(100, 14), color);
    QCOMPARE(image.pixelColor(100, 0), color);
    QCOMPARE(image.pixelColor(0, 14), color);
    QVERIFY(image.pixelColor(0, 0).alpha() < 128);
    // Inside a corner of radius 3, outside one of radius 8.
    QCOMPARE(image.pixelColor(1, 2).alpha() > 200, small);
}

void tst_CustomComboxItem::elidesItsText()
{
    QWidget window;
    CustomComboxItem row(kLongText, &window);
    const QLabel *label = Labels(&row).text;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const int width : {260, 180, 320, 40, 1200}) {
        row.resize(width, 48);
        QTRY_COMPARE(label->width(), width - 8 - 6 - 6);
        const QFontMetrics metrics(label->font());
        QCOMPARE(label->text(), metrics.elidedText(kLongText, Qt::ElideRight, label->width()));
        QCOMPARE(row.text(), kLongText);
    }
    QCOMPARE(label->text(), kLongText);
    // The check mark takes its place from the text.
    row.resize(260, 48);
    row.setChecked(true);
    QTRY_COMPARE(label->width(), 260 - 8 - 6 - 20 - 6);
    QVERIFY(label->text().endsWith(QChar(0x2026)));
    QCOMPARE(label->text(),
             QFontMetrics(label->font()).elidedText(kLongText, Qt::ElideRight, label->width()));
}

void tst_CustomComboxItem::elidesAgainWhenTheTextChangesItsSize()
{
    CustomComboxItem row(true, kLongText, nullptr);
    const QLabel *label = Labels(&row).text;
    row.resize(260, 28);
    row.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row));
    const QString atTwelve = label->text();
    row.setGrayState(true); // 16 pixels
    QVERIFY(label->text().size() < atTwelve.size());
    QCOMPARE(label->text(),
             QFontMetrics(label->font()).elidedText(kLongText, Qt::ElideRight, label->width()));
    row.setGrayState(false);
    QCOMPARE(label->text(), atTwelve);
}

void tst_CustomComboxItem::odd_texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QString(QLatin1String(""));
    QTest::newRow("placeholders") << QStringLiteral("%1 %2 %");
    QTest::newRow("lines") << QStringLiteral("one\ntwo");
    QTest::newRow("very long") << QString(100000, QLatin1Char('m'));
    QTest::newRow("surrogates") << QStringLiteral("\U0001F4F7 camera");
}

void tst_CustomComboxItem::odd_texts()
{
    QFETCH(QString, text);
    CustomComboxItem row(text, nullptr);
    row.resize(200, 48);
    row.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row));
    QCOMPARE(row.text(), text);
    const QLabel *label = Labels(&row).text;
    QCOMPARE(label->text(), QFontMetrics(label->font()).elidedText(text, Qt::ElideRight, label->width()));
}

void tst_CustomComboxItem::styledWhenSeen()
{
    // Style sheets cost most of a row: neither it nor a mark that nobody sees has its own resolved.
    QWidget window;
    window.ensurePolished(); // as a list is before it has rows
    auto *row = new CustomComboxItem(QStringLiteral("Row"), &window);
    const Labels labels(row);
    QCoreApplication::processEvents();
    for (const QWidget *widget : {static_cast<QWidget *>(row), static_cast<QWidget *>(labels.text)})
        QVERIFY(!widget->testAttribute(Qt::WA_WState_Polished));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    for (const QWidget *widget : {static_cast<QWidget *>(row), static_cast<QWidget *>(labels.text)})
        QVERIFY(widget->testAttribute(Qt::WA_WState_Polished));
    QVERIFY(!labels.check->testAttribute(Qt::WA_WState_Polished));
    row->setChecked(true);
    QVERIFY(labels.check->testAttribute(Qt::WA_WState_Polished));

    // What a sheet says of the frame of a label holds for one that was not polished when it was set.
    window.setStyleSheet(QStringLiteral("QLabel{border:3px solid red;}"));
    auto *other = new CustomComboxItem(QStringLiteral("Other"), &window);
    other->show();
    QCOMPARE(Labels(other).text->frameWidth(), 3);
    QCOMPARE(Labels(other).text->contentsRect().left(), 3);
}

void tst_CustomComboxItem::keepsData()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    row.setData(42);
    QCOMPARE(row.data(), QVariant(42));
    row.setData(QVariant());
    QVERIFY(!row.data().isValid());
}

void tst_CustomComboxItem::reportsClicks_data()
{
    QTest::addColumn<bool>("gray");
    QTest::newRow("normal") << false;
    QTest::newRow("gray") << true;
}

void tst_CustomComboxItem::reportsClicks()
{
    QFETCH(bool, gray);
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    row.setGrayState(gray);
    row.setIndex(7);
    const QSignalSpy clicked(&row, &CustomComboxItem::signalClickItem);
    const QSignalSpy grayClicked(&row, &CustomComboxItem::signalClickGrayItem);
    QTest::mouseClick(&row, Qt::LeftButton);
    const QList<QVariantList> expected{{7}};
    QCOMPARE(QList<QVariantList>(clicked), gray ? QList<QVariantList>() : expected);
    QCOMPARE(QList<QVariantList>(grayClicked), gray ? expected : QList<QVariantList>());
}

void tst_CustomComboxItem::dragIsNoClick_data()
{
    QTest::addColumn<QPoint>("way");
    QTest::addColumn<bool>("isClick");
    const int distance = QApplication::startDragDistance();
    QTest::newRow("just below") << QPoint(distance - 1, 0) << true;
    QTest::newRow("just below, backwards") << QPoint(0, 1 - distance) << true;
    QTest::newRow("the distance") << QPoint(0, distance) << false;
    QTest::newRow("both ways") << QPoint(distance / 2, distance - distance / 2) << false;
    QTest::newRow("far") << QPoint(-100, 3) << false;
}

void tst_CustomComboxItem::dragIsNoClick()
{
    QFETCH(QPoint, way);
    QFETCH(bool, isClick);
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    const QSignalSpy clicked(&row, &CustomComboxItem::signalClickItem);
    const QPoint start = row.mapToGlobal(QPoint(120, 24));
    MouseEvents::press(&row, start);
    MouseEvents::release(&row, start + way);
    QCOMPARE(clicked.count(), isClick ? 1 : 0);
}

void tst_CustomComboxItem::otherButtonsAreNoClick()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    const QSignalSpy clicked(&row, &CustomComboxItem::signalClickItem);
    QTest::mouseClick(&row, Qt::RightButton);
    QTest::mouseClick(&row, Qt::MiddleButton);
    QCOMPARE(clicked.count(), 0);
    const QPoint pos = row.mapToGlobal(QPoint(20, 20));
    MouseEvents::press(&row, pos);
    MouseEvents::press(&row, pos + QPoint(100, 0), Qt::RightButton);
    MouseEvents::release(&row, pos, Qt::RightButton);
    QCOMPARE(clicked.count(), 0);
    MouseEvents::release(&row, pos);
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomComboxItem::strayReleaseIsNoClick()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    const QSignalSpy clicked(&row, &CustomComboxItem::signalClickItem);
    const QPoint origin = row.mapToGlobal(QPoint(0, 0)); // where an unset press position lies
    MouseEvents::release(&row, origin);
    MouseEvents::press(&row, origin);
    MouseEvents::release(&row, origin);
    MouseEvents::release(&row, origin);
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomComboxItem::pressThatTheListDidNotOutliveIsForgotten()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    row.show();
    QVERIFY(QTest::qWaitForWindowExposed(&row));
    const QSignalSpy clicked(&row, &CustomComboxItem::signalClickItem);
    const QPoint pos = row.mapToGlobal(QPoint(20, 20));
    MouseEvents::press(&row, pos);
    row.hide();
    row.show();
    MouseEvents::release(&row, pos);
    QCOMPARE(clicked.count(), 0);
}

void tst_CustomComboxItem::doubleClickIsTwoClicks()
{
    CustomComboxItem row(QStringLiteral("Row"), nullptr);
    const QSignalSpy clicked(&row, &CustomComboxItem::signalClickItem);
    const QPoint pos = row.mapToGlobal(QPoint(20, 20));
    MouseEvents::press(&row, pos);
    MouseEvents::release(&row, pos);
    MouseEvents::doubleClick(&row, pos);
    MouseEvents::release(&row, pos);
    QCOMPARE(clicked.count(), 2);
}

void tst_CustomComboxItem::destroyedByItsOwnClick_data()
{
    reportsClicks_data();
}

void tst_CustomComboxItem::destroyedByItsOwnClick()
{
    QFETCH(bool, gray);
    QWidget parent;
    QPointer<CustomComboxItem> row(new CustomComboxItem(QStringLiteral("Row"), &parent));
    row->setGrayState(gray);
    const auto destroy = [row] {
        delete row.data();
    };
    connect(row, &CustomComboxItem::signalClickItem, this, destroy);
    connect(row, &CustomComboxItem::signalClickGrayItem, this, destroy);
    parent.show();
    QTest::mousePress(row, Qt::LeftButton);
    QTest::mouseRelease(row, Qt::LeftButton);
    QVERIFY(!row);
}

ORV_TEST_MAIN(tst_CustomComboxItem)

#include "tst_customcomboxitem.moc"
