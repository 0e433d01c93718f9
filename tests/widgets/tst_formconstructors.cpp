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
#include "customwraptexttooltip.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "testmain.h"

#include <QtGui/QImage>
#include <QtWidgets/QBoxLayout>

#include <type_traits>

namespace {

using Factory = QWidget *(*)(QWidget *parent);

template<typename Widget>
QWidget *make(QWidget *parent)
{
    static_assert(std::is_default_constructible_v<Widget>, "the parent has a default");
    static_assert(!std::is_convertible_v<QWidget *, Widget>, "explicit");
    return new Widget(parent);
}

template<typename Widget>
void addRow(const char *name)
{
    QTest::newRow(name) << Factory(&make<Widget>);
}

QImage picture(QWidget *widget)
{
    QImage image(widget->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    widget->render(&image);
    return image;
}

} // namespace

Q_DECLARE_METATYPE(Factory)

/// What generated form code writes: a parent, and nothing else.
class tst_formconstructors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takeAParentAlone_data();
    void takeAParentAlone();

    void newHorizontalSlider();
    void bidirectionSlider();
    void iconButton();
    void toolButton();
    void boxes();
};

void tst_formconstructors::takeAParentAlone_data()
{
    QTest::addColumn<Factory>("make");
    addRow<HorizontalSlider>("HorizontalSlider");
    addRow<NewHorizontalSlider>("NewHorizontalSlider");
    addRow<CustomSlider>("CustomSlider");
    addRow<CustomBidirectionSlider>("CustomBidirectionSlider");
    addRow<CustomSliderBarWidget>("CustomSliderBarWidget");
    addRow<CustomPictureBtn>("CustomPictureBtn");
    addRow<CustomizeIconButton>("CustomizeIconButton");
    addRow<CustomToolButton>("CustomToolButton");
    addRow<CustomShadowCombox>("CustomShadowCombox");
    addRow<CustomComboxHeader>("CustomComboxHeader");
    addRow<customcombox>("customcombox");
    addRow<CustomKeySequenceEdit>("CustomKeySequenceEdit");
    addRow<CustomPlainTextEdit>("CustomPlainTextEdit");
    addRow<customWrapTextToolTip>("customWrapTextToolTip");
}

void tst_formconstructors::takeAParentAlone()
{
    QFETCH(const Factory, make);
    QWidget window;
    QCOMPARE(make(&window)->parentWidget(), &window);
    const std::unique_ptr<QWidget> alone(make(nullptr));
    QVERIFY(!alone->parentWidget());
}

void tst_formconstructors::newHorizontalSlider()
{
    NewHorizontalSlider slider;
    NewHorizontalSlider same(QSize(206, 14), QSize(14, 14), false, nullptr);
    QCOMPARE(slider.size(), QSize(206, 14));
    QCOMPARE(slider.minimumSize(), slider.maximumSize());
    slider.setValue(50);
    same.setValue(50);
    QCOMPARE(picture(&slider), picture(&same));
}

void tst_formconstructors::bidirectionSlider()
{
    // The handle's picture is the application's own.
    CustomBidirectionSlider slider;
    CustomBidirectionSlider same(6, 24, QColor(QStringLiteral("#4B66EB")), nullptr);
    for (CustomBidirectionSlider *one : {&slider, &same}) {
        one->resize(200, 30);
        one->setValue(80);
    }
    QCOMPARE(picture(&slider), picture(&same));
}

void tst_formconstructors::iconButton()
{
    CustomizeIconButton button;
    CustomizeIconButton same(QSize(24, 24), QString(), 8, nullptr, true);
    QCOMPARE(button.text(), QString());
    QCOMPARE(button.layout()->count(), 4); // room on both sides
    QCOMPARE(button.layout()->spacing(), 8);
    QCOMPARE(button.sizeHint(), same.sizeHint());
}

void tst_formconstructors::toolButton()
{
    QWidget window;
    CustomToolButton button(&window);
    button.setCheckable(true);
    button.setChecked(true);
    button.setGeometry(100, 10, 40, 20);
    QWidget panel(&window);
    panel.resize(20, 10);
    button.setRightClickWidget(&panel, false);
    window.resize(300, 200);
    window.show();
    panel.show();
    QCOMPARE(panel.geometry().top(), 10 + 20 + 6); // under the button, 6 below it
    panel.hide();
    QVERIFY(button.isChecked());
}

void tst_formconstructors::boxes()
{
    CustomComboxHeader header;
    QCOMPARE(header.size(), QSize(260, 48));
    CustomShadowCombox shadow;
    QCOMPARE(shadow.count(), 0);
    QCOMPARE(shadow.currentIndex(), -1);
    QVERIFY(customcombox().isEditable());
}

ORV_TEST_MAIN(tst_formconstructors)
#include "tst_formconstructors.moc"
