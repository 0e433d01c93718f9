#include "colorbutton.h"
#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "customkeysequenceedit.h"
#include "custompicturebtn.h"
#include "customplaintextedit.h"
#include "customshadowcombox.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "pagebuilder.h"
#include "reportlog.h"
#include "testmain.h"

#include <QtCore/QMetaProperty>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QVBoxLayout>

namespace {

using Factory = QWidget *(*)();

template<typename Widget>
void addRow()
{
    QTest::newRow(Widget::staticMetaObject.className()) << Factory([]() -> QWidget * { return new Widget; });
}

/// A page with nothing but the card, and the widget beside it.
struct Page
{
    explicit Page(Factory make)
        : widget(make())
    {
        layout = new QVBoxLayout(&content);
        PageBuilder builder(&content, &content, &shots);
        builder.example(widget);
        builder.properties(widget);
    }

    template<typename Editor>
    Editor *editor(const QString &name) const
    {
        const QList<Editor *> editors = content.findChildren<Editor *>();
        for (Editor *one : editors) {
            if (one->accessibleName() == name)
                return one;
        }
        return nullptr;
    }

    QWidget content;
    QVBoxLayout *layout;
    QVector<PageShot> shots;
    QWidget *widget;
};

// What the gallery's panel was told.
QStringList told(const QSignalSpy &arrived)
{
    QStringList texts;
    for (const QList<QVariant> &delivery : arrived) {
        const auto lines = delivery.first().value<QVector<ReportLine>>();
        for (const ReportLine &line : lines)
            texts << line.text;
    }
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(Factory)
Q_DECLARE_METATYPE(QVector<ReportLine>)

/// The gallery's editors of properties, made from the meta-object alone.
class tst_propertysheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyPropertyHasAnEditor_data();
    void everyPropertyHasAnEditor();
    void editorsWriteAndReport();
    void editorsFollow();
    void editorsShowWhatWasNotTakenOver();
    void whatTheLayoutDoesIsNotReported();

private:
    ReportLog m_log;
};

void tst_propertysheet::initTestCase()
{
    qRegisterMetaType<QVector<ReportLine>>();
}

void tst_propertysheet::everyPropertyHasAnEditor_data()
{
    QTest::addColumn<Factory>("make");
    addRow<HorizontalSlider>();
    addRow<NewHorizontalSlider>();
    addRow<CustomSlider>();
    addRow<CustomBidirectionSlider>();
    addRow<CustomSliderBarWidget>();
    addRow<CustomPictureBtn>();
    addRow<CustomizeIconButton>();
    addRow<CustomToolButton>();
    addRow<CustomShadowCombox>();
    addRow<CustomComboxHeader>();
    addRow<customcombox>();
    addRow<CustomKeySequenceEdit>();
    addRow<CustomPlainTextEdit>();
}

void tst_propertysheet::everyPropertyHasAnEditor()
{
    QFETCH(const Factory, make);
    const Page page(make);
    const QMetaObject *meta = page.widget->metaObject();
    if (meta->propertyOffset() == meta->propertyCount())
        meta = meta->superClass();
    for (int at = meta->propertyOffset(); at < meta->propertyCount(); ++at) {
        const QMetaProperty property = meta->property(at);
        const QVariant value = property.read(page.widget);
        const QString name = QString::fromLatin1(property.name());
        if (property.isWritable() && property.isEnumType() && !property.isFlagType())
            QCOMPARE(page.editor<QComboBox>(name)->count(), property.enumerator().keyCount());
        else if (property.isWritable() && value.userType() == QMetaType::Bool)
            QCOMPARE(page.editor<QCheckBox>(name)->isChecked(), value.toBool());
        else if (property.isWritable() && value.userType() == QMetaType::Int && !property.isFlagType())
            QCOMPARE(page.editor<QSpinBox>(name)->value(), value.toInt());
        else if (property.isWritable() && value.userType() == QMetaType::Double)
            QCOMPARE(page.editor<QDoubleSpinBox>(name)->value(), value.toDouble());
        else if (value.userType() == QMetaType::QColor)
            QCOMPARE(page.editor<ColorButton>(name)->color(), value.value<QColor>());
        else if (value.userType() == QMetaType::QSize)
            QCOMPARE(page.editor<QSpinBox>(name + QStringLiteral(": height"))->value(),
                     value.toSize().height());
        else
            QCOMPARE(page.editor<QLineEdit>(name)->isReadOnly(),
                     !property.isWritable() || property.isFlagType());
    }
}

void tst_propertysheet::editorsWriteAndReport()
{
    const Page sliderPage([]() -> QWidget * { return new HorizontalSlider; });
    const Page buttonPage([]() -> QWidget * { return new CustomToolButton; });
    const Page comboPage([]() -> QWidget * { return new CustomShadowCombox; });
    for (const Page *page : {&sliderPage, &buttonPage, &comboPage})
        page->widget->grab(); // the first painting tells what the layout made of sizes
    QCoreApplication::processEvents();

    QSignalSpy arrived(&m_log, &ReportLog::arrived);
    sliderPage.editor<QSpinBox>(QStringLiteral("maximum"))->setValue(500);
    sliderPage.editor<QSpinBox>(QStringLiteral("handleSize: width"))->setValue(20);
    sliderPage.editor<QCheckBox>(QStringLiteral("bidirectional"))->click();
    sliderPage.editor<ColorButton>(QStringLiteral("valueColor"))->setColor(Qt::red);
    sliderPage.editor<QLineEdit>(QStringLiteral("skinPath"))->setText(QStringLiteral(":/none/"));
    buttonPage.editor<QComboBox>(QStringLiteral("settingWidgetDirection"))->setCurrentIndex(2);
    auto *items = comboPage.editor<QLineEdit>(QStringLiteral("items"));
    items->setText(QStringLiteral("One; Two"));
    QTest::keyClick(items, Qt::Key_Return);

    QCOMPARE(sliderPage.widget->property("maximum").toInt(), 500);
    QCOMPARE(sliderPage.widget->property("handleSize").toSize(), QSize(20, 14));
    QVERIFY(sliderPage.widget->property("bidirectional").toBool());
    QCOMPARE(sliderPage.widget->property("valueColor").value<QColor>(), QColor(Qt::red));
    QCOMPARE(sliderPage.widget->property("skinPath").toString(), QStringLiteral(":/none/"));
    QCOMPARE(buttonPage.widget->property("settingWidgetDirection").toInt(), 2);
    QCOMPARE(comboPage.widget->property("count").toInt(), 2);
    QCOMPARE(comboPage.editor<QLineEdit>(QStringLiteral("count"))->text(), QStringLiteral("2"));
    const QStringList expected{
        QStringLiteral("maximum is 500"),
        QStringLiteral("handleSize is 20 x 14"),
        QStringLiteral("bidirectional is true"),
        QStringLiteral("valueColor is #ffff0000"),
        QStringLiteral("skinPath is :/none/"),
        QStringLiteral("settingWidgetDirection is Top"),
        QStringLiteral("count is 2"),
        QStringLiteral("items is One; Two"),
    };
    QTRY_COMPARE(told(arrived), expected);
}

void tst_propertysheet::editorsFollow()
{
    Page page([]() -> QWidget * { return new CustomSliderBarWidget; });
    page.content.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.content));
    QSignalSpy arrived(&m_log, &ReportLog::arrived);
    QTRY_VERIFY(page.widget->isVisible());
    page.widget->repaint();
    QCoreApplication::processEvents();
    static_cast<CustomSliderBarWidget *>(page.widget)->setCurrenIndex(1);
    QTRY_COMPARE(page.editor<QSpinBox>(QStringLiteral("currentIndex"))->value(), 1);
    QTRY_COMPARE(told(arrived), QStringList(QStringLiteral("currentIndex is 1")));
}

void tst_propertysheet::editorsShowWhatWasNotTakenOver()
{
    const Page page([]() -> QWidget * { return new CustomKeySequenceEdit; });
    auto *box = page.editor<QCheckBox>(QStringLiteral("noContextMenu"));
    box->click();
    QVERIFY(box->isChecked());
    box->click();
    QVERIFY(box->isChecked());
}

void tst_propertysheet::whatTheLayoutDoesIsNotReported()
{
    Page page([]() -> QWidget * { return new customcombox; });
    QSignalSpy arrived(&m_log, &ReportLog::arrived);
    const int before = page.widget->property("lineEditWidth").toInt();
    page.content.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page.content));
    QTRY_VERIFY(page.widget->property("lineEditWidth").toInt() != before);
    QTRY_COMPARE(page.editor<QSpinBox>(QStringLiteral("lineEditWidth"))->value(),
                 page.widget->property("lineEditWidth").toInt());
    QCOMPARE(told(arrived), QStringList());
}

ORV_TEST_MAIN(tst_propertysheet)
#include "tst_propertysheet.moc"
