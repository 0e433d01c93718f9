#include "basemovedialog.h"
#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "customkeysequenceedit.h"
#include "custompicturebtn.h"
#include "customshadowcombox.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "testmain.h"

#include <QtTest/QSignalSpy>

#include <functional>

namespace {

using Make = std::function<QWidget *()>;
using Set = std::function<void(QWidget *)>;

template<typename Widget, typename Setter>
void addRow(const char *name, Widget *(*make)(), Setter set, int emissions)
{
    QTest::newRow(name) << Make(make) << Set([set](QWidget *widget) { set(static_cast<Widget *>(widget)); })
                        << emissions;
}

NewHorizontalSlider *newSlider()
{
    return new NewHorizontalSlider(QSize(142, 10), QSize(10, 10), false, nullptr);
}

HorizontalSlider *oldSlider()
{
    return new HorizontalSlider;
}

CustomShadowCombox *combo()
{
    auto *box = new CustomShadowCombox(false, nullptr);
    for (const char *text : {"One", "Two", "Three"})
        box->addItem(QString::fromLatin1(text), 16);
    return box;
}

} // namespace

Q_DECLARE_METATYPE(Make)
Q_DECLARE_METATYPE(Set)

/// What the setters of the first interface emit: those that properties write with emit no more than they did.
class tst_firstsetters : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emitAsBefore_data();
    void emitAsBefore();
    void indexThatIsEqualStillPaints();
};

void tst_firstsetters::emitAsBefore_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<Set>("set");
    QTest::addColumn<int>("emissions");
    addRow(
        "setValue", &oldSlider, [](auto *s) { s->setValue(7); }, 1);
    addRow(
        "setValue, as it is", &oldSlider, [](auto *s) { s->setValue(0); }, 0);
    addRow(
        "setRange", &oldSlider, [](auto *s) { s->setRange(50, 60); }, 0);
    addRow(
        "setSkinPath", &oldSlider, [](auto *s) { s->setSkinPath(QStringLiteral(":/none/")); }, 0);
    addRow(
        "setGrooveHeight", &oldSlider, [](auto *s) { s->setGrooveHeight(3); }, 0);
    addRow(
        "setHandleSize", &oldSlider, [](auto *s) { s->setHandleSize(QSize(3, 3)); }, 0);
    addRow(
        "setValueColor", &oldSlider, [](auto *s) { s->setValueColor(Qt::red); }, 0);
    addRow(
        "showZeroFlag", &oldSlider, [](auto *s) { s->showZeroFlag(); }, 0);
    addRow(
        "new: setValue", &newSlider, [](auto *s) { s->setValue(7); }, 1);
    addRow(
        "new: setRange", &newSlider, [](auto *s) { s->setRange(50, 60); }, 0);
    addRow(
        "new: setSliderEnabled", &newSlider, [](auto *s) { s->setSliderEnabled(false); }, 0);
    addRow(
        "setCurrenIndex", +[] { return new CustomSliderBarWidget; }, [](auto *b) { b->setCurrenIndex(1); },
        0);
    addRow(
        "setCount", +[] { return new CustomSliderBarWidget; }, [](auto *b) { b->setCount(4); }, 0);
    addRow(
        "setCurrentIndex", &combo, [](auto *b) { b->setCurrentIndex(1); }, 0);
    addRow(
        "addItem", &combo, [](auto *b) { b->addItem(QStringLiteral("Four")); }, 0);
    addRow(
        "clear", &combo, [](auto *b) { b->clear(); }, 0);
    addRow(
        "setText", +[] { return new CustomComboxHeader(nullptr); },
        [](auto *h) { h->setText(QStringLiteral("Text")); }, 0);
    addRow(
        "setSpan", +[] { return new CustomPictureBtn; }, [](auto *b) { b->setSpan(7); }, 0);
    addRow(
        "setEnabled of the icon button",
        +[] { return new CustomizeIconButton(QSize(16, 16), QStringLiteral("Text"), 4, nullptr, true); },
        [](auto *b) { b->setEnabled(false); }, 0);
    addRow(
        "setSettingWidgetOffset", +[] { return new CustomToolButton(true, nullptr, Left); },
        [](auto *b) { b->setSettingWidgetOffset(20); }, 0);
    addRow(
        "setVisableCount", +[] { return new customcombox(nullptr); }, [](auto *b) { b->setVisableCount(3); },
        0);
    addRow(
        "setLineEditWidth", +[] { return new customcombox(nullptr); },
        [](auto *b) { b->setLineEditWidth(50); }, 0);
    addRow(
        "setPlaceHolderText", +[] { return new CustomKeySequenceEdit; },
        [](auto *e) { e->setPlaceHolderText(QStringLiteral("Text")); }, 0);
    addRow(
        "setKeySequence", +[] { return new CustomKeySequenceEdit; },
        [](auto *e) { e->setKeySequence(QKeySequence(Qt::Key_A)); }, 1);
    addRow(
        "enableWheel", +[] { return new CustomBidirectionSlider(2, 10, Qt::red, nullptr); },
        [](auto *s) { s->enableWheel(true); }, 0);
    addRow(
        "setCanMove", +[] { return new BaseMoveDialog(nullptr, true, false, true); },
        [](auto *d) { d->setCanMove(false); }, 0);
}

void tst_firstsetters::emitAsBefore()
{
    QFETCH(const Make, make);
    QFETCH(const Set, set);
    QFETCH(const int, emissions);
    const std::unique_ptr<QWidget> widget(make());
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    const QMetaObject *meta = widget->metaObject();
    for (int index = QWidget::staticMetaObject.methodCount(); index < meta->methodCount(); ++index) {
        if (meta->method(index).methodType() == QMetaMethod::Signal)
            spies.emplace_back(std::make_unique<QSignalSpy>(widget.get(), meta->method(index)));
    }
    set(widget.get());
    int emitted = 0;
    for (const auto &spy : spies)
        emitted += spy->size();
    QCOMPARE(emitted, emissions);
}

// Unlike the property, whose value is compared first.
void tst_firstsetters::indexThatIsEqualStillPaints()
{
    class Bar : public CustomSliderBarWidget
    {
    public:
        int paints = 0;

    protected:
        void paintEvent(QPaintEvent *event) override
        {
            ++paints;
            CustomSliderBarWidget::paintEvent(event);
        }
    } bar;
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    QTRY_VERIFY(bar.paints > 0);
    const int before = bar.paints;
    bar.setCurrenIndex(0);
    QTRY_VERIFY(bar.paints > before);
}

ORV_TEST_MAIN(tst_firstsetters)
#include "tst_firstsetters.moc"
