#include "customizeiconbutton.h"
#include "customshadowcombox.h"
#include "customsliderbarwidget.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QKeyEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <functional>
#include <limits>
#include <memory>

namespace {

constexpr int kLeast = std::numeric_limits<int>::min();
constexpr int kMost = std::numeric_limits<int>::max();

// Notes the keys that the control in it leaves alone.
class Surroundings : public QWidget
{
public:
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent *) override { ++keys; }
};

bool sendKey(QWidget *widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool repeats = false)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), repeats);
    QCoreApplication::sendEvent(widget, &event);
    return event.isAccepted();
}

// A control of one of the classes, what it shows as text, and how often it has told of a change by the user.
struct Control
{
    template<typename Widget, typename Signal>
    Control(Widget *control, Signal changed, std::function<QString()> show)
        : widget(control)
        , told(std::make_shared<QSignalSpy>(control, changed))
        , shown(std::move(show))
    {
    }

    QPointer<QWidget> widget;
    std::shared_ptr<QSignalSpy> told;
    std::function<QString()> shown;
};

template<typename Slider>
Control sliderAt(Slider *slider, int minimum, int maximum, int value)
{
    slider->setRange(minimum, maximum);
    slider->setValue(value);
    return {slider, &Slider::valueChanged, [slider] {
                return QString::number(slider->value());
            }};
}

Control horizontalSlider(QWidget *parent)
{
    return sliderAt(new HorizontalSlider(parent), 0, 10, 5);
}

Control newHorizontalSlider(QWidget *parent)
{
    return sliderAt(new NewHorizontalSlider(parent), 0, 10, 5);
}

Control sliderBar(QWidget *parent)
{
    auto *bar = new CustomSliderBarWidget(parent);
    bar->setCount(5);
    bar->setCurrenIndex(2);
    return {bar, &CustomSliderBarWidget::selectFinish, [bar] {
                return QString::number(bar->getCurrentIndex());
            }};
}

Control iconButton(QWidget *parent)
{
    auto *button = new CustomizeIconButton(parent);
    return {button, &CustomizeIconButton::clicked, [] {
                return QString();
            }};
}

Control comboBox(QWidget *parent)
{
    auto *combo = new CustomShadowCombox(parent);
    for (const char *text : {"a", "b", "c"})
        combo->addItem(QString::fromLatin1(text), 16);
    combo->setCurrentIndex(1);
    return {combo, &CustomShadowCombox::currentIndexChanged, [combo] {
                return QString::number(combo->currentIndex());
            }};
}

using Maker = Control (*)(QWidget *parent);

} // namespace
Q_DECLARE_METATYPE(Maker)

/// What the controls do with keys, once a client has given them a focus policy.
class tst_ControlKeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void sliders_data();
    void sliders();
    void slidersThatRunBackwards();
    void sliderBar_data();
    void sliderBar();
    void iconButton_data();
    void iconButton();

    void keysThatMeanNothingPassOn_data();
    void keysThatMeanNothingPassOn();
    void nothingWithoutAFocusPolicy_data() { controls(); }
    void nothingWithoutAFocusPolicy();
    void nothingWhileDisabled_data() { controls(); }
    void nothingWhileDisabled();
    void ownFlagsCountAsDisabled();
    void rightToLeftSwapsNothing_data() { controls(); }
    void rightToLeftSwapsNothing();
    void slotsMayDestroyTheControl_data() { controls(); }
    void slotsMayDestroyTheControl();

private:
    static void controls();
    Control make(Maker maker);

    std::unique_ptr<Surroundings> m_surroundings;
};

void tst_ControlKeys::init()
{
    m_surroundings = std::make_unique<Surroundings>();
}

void tst_ControlKeys::cleanup()
{
    m_surroundings.reset();
}

Control tst_ControlKeys::make(Maker maker)
{
    Control control = maker(m_surroundings.get());
    control.widget->setFocusPolicy(Qt::StrongFocus);
    control.told->clear();
    return control;
}

void tst_ControlKeys::controls()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<int>("key"); // one that means something to it
    QTest::newRow("HorizontalSlider") << Maker(horizontalSlider) << int(Qt::Key_Right);
    QTest::newRow("NewHorizontalSlider") << Maker(newHorizontalSlider) << int(Qt::Key_Right);
    QTest::newRow("CustomSliderBarWidget") << Maker(::sliderBar) << int(Qt::Key_Right);
    QTest::newRow("CustomizeIconButton") << Maker(::iconButton) << int(Qt::Key_Space);
    QTest::newRow("CustomShadowCombox") << Maker(comboBox) << int(Qt::Key_Down);
}

void tst_ControlKeys::sliders_data()
{
    QTest::addColumn<int>("minimum");
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, int minimum, int maximum, int value, Qt::Key key, int expected) {
        QTest::newRow(name) << minimum << maximum << value << int(key) << expected;
    };
    row("left", 0, 100, 50, Qt::Key_Left, 49);
    row("down", 0, 100, 50, Qt::Key_Down, 49);
    row("right", 0, 100, 50, Qt::Key_Right, 51);
    row("up", 0, 100, 50, Qt::Key_Up, 51);
    row("page down", 0, 100, 50, Qt::Key_PageDown, 40);
    row("page up", 0, 100, 50, Qt::Key_PageUp, 60);
    row("home", -7, 100, 50, Qt::Key_Home, -7);
    row("end", 0, 107, 50, Qt::Key_End, 107);
    row("a tenth is rounded down", 0, 29, 10, Qt::Key_PageUp, 12);
    row("a tenth is at least one", 0, 9, 5, Qt::Key_PageDown, 4);
    row("a tenth of nothing", 4, 4, 4, Qt::Key_PageDown, 4);
    row("not below the minimum", -3, 3, -3, Qt::Key_Left, -3);
    row("not above the maximum", -3, 3, 3, Qt::Key_Right, 3);
    row("a page that does not fit", 0, 100, 95, Qt::Key_PageUp, 100);
    row("back into the range from above", 0, 100, 150, Qt::Key_Left, 100);
    row("back into the range from below", 0, 100, -9, Qt::Key_Right, 0);
    row("widest range, a page up", kLeast, kMost, 0, Qt::Key_PageUp, 429496729);
    row("widest range, up at the end", kLeast, kMost, kMost, Qt::Key_Up, kMost);
    row("widest range, a page down at the end", kLeast, kMost, kLeast + 1, Qt::Key_PageDown, kLeast);
    row("value far above the range", 0, 5, kMost, Qt::Key_Right, 5);
    row("value far below the range", 0, 5, kLeast, Qt::Key_PageDown, 0);
}

void tst_ControlKeys::sliders()
{
    QFETCH(int, minimum);
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(int, key);
    QFETCH(int, expected);

    const auto check = [&](auto *slider) {
        using Slider = std::remove_pointer_t<decltype(slider)>;
        slider->setFocusPolicy(Qt::StrongFocus);
        slider->setRange(minimum, maximum);
        slider->setValue(value);
        QSignalSpy changed(slider, &Slider::valueChanged);
        QSignalSpy moved(slider, &Slider::sliderMoved);
        QSignalSpy moving(slider, &Slider::sliderMoving);
        const bool changes = expected != value;
        QVERIFY(sendKey(slider, key));
        QCOMPARE(slider->value(), expected);
        QCOMPARE(changed.count(), int(changes));
        if (changes)
            QCOMPARE(changed.first().first().toInt(), expected);
        QCOMPARE(moved.count() + moving.count(), 0);
        // The keypad's keys carry a modifier.
        slider->setValue(value);
        QVERIFY(sendKey(slider, key, Qt::KeypadModifier, true));
        QCOMPARE(slider->value(), expected);
    };
    HorizontalSlider slider;
    check(&slider);
    NewHorizontalSlider newSlider;
    check(&newSlider);
}

// No value lies within such a range: the keys are anybody else's.
void tst_ControlKeys::slidersThatRunBackwards()
{
    const Control slider{sliderAt(new HorizontalSlider(m_surroundings.get()), 10, 0, 5)};
    slider.widget->setFocusPolicy(Qt::StrongFocus);
    slider.told->clear();
    for (const int key : {Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End})
        sendKey(slider.widget, key);
    QCOMPARE(m_surroundings->keys, 4);
    QCOMPARE(slider.shown(), QStringLiteral("5"));
    QCOMPARE(slider.told->count(), 0);
}

void tst_ControlKeys::sliderBar_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expected");
    QTest::newRow("left") << 5 << 2 << int(Qt::Key_Left) << 1;
    QTest::newRow("right") << 5 << 2 << int(Qt::Key_Right) << 3;
    QTest::newRow("home") << 5 << 2 << int(Qt::Key_Home) << 0;
    QTest::newRow("end") << 5 << 2 << int(Qt::Key_End) << 4;
    QTest::newRow("left of the first") << 5 << 0 << int(Qt::Key_Left) << 0;
    QTest::newRow("right of the last") << 5 << 4 << int(Qt::Key_Right) << 4;
    QTest::newRow("beyond the last") << 5 << kMost << int(Qt::Key_Right) << 4;
    QTest::newRow("before the first") << 5 << kLeast << int(Qt::Key_Left) << 0;
    QTest::newRow("as many as there can be") << kMost << 2 << int(Qt::Key_End) << kMost - 1;
}

void tst_ControlKeys::sliderBar()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QFETCH(int, key);
    QFETCH(int, expected);

    CustomSliderBarWidget bar;
    bar.setFocusPolicy(Qt::TabFocus);
    bar.setCount(count);
    bar.setCurrenIndex(index);
    QSignalSpy finished(&bar, &CustomSliderBarWidget::selectFinish);
    QVERIFY(sendKey(&bar, key));
    QCOMPARE(bar.getCurrentIndex(), expected);
    QCOMPARE(finished.count(), int(expected != index));
    if (expected != index)
        QCOMPARE(finished.first().first().toInt(), expected);
    bar.setCurrenIndex(index);
    QVERIFY(sendKey(&bar, key, Qt::KeypadModifier, true));
    QCOMPARE(bar.getCurrentIndex(), expected);
}

void tst_ControlKeys::iconButton_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("space") << int(Qt::Key_Space) << int(Qt::NoModifier);
    QTest::newRow("return") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
}

void tst_ControlKeys::iconButton()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);

    const Control button = make(&::iconButton);
    QVERIFY(sendKey(button.widget, key, Qt::KeyboardModifiers(modifiers)));
    QCOMPARE(button.told->count(), 1);
    // Held down it is one click, and nobody else's key either.
    QVERIFY(sendKey(button.widget, key, Qt::KeyboardModifiers(modifiers), true));
    QKeyEvent release(QEvent::KeyRelease, key, Qt::KeyboardModifiers(modifiers));
    QCoreApplication::sendEvent(button.widget, &release);
    QCOMPARE(button.told->count(), 1);
    QCOMPARE(m_surroundings->keys, 0);
}

void tst_ControlKeys::keysThatMeanNothingPassOn_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    const struct
    {
        const char *name;
        Maker maker;
        QVector<int> strange;
        QVector<int> own;
    } kinds[] = {
        {"HorizontalSlider", &horizontalSlider, {Qt::Key_Space, Qt::Key_Return}, {Qt::Key_Left, Qt::Key_End}},
        {"NewHorizontalSlider", &newHorizontalSlider, {Qt::Key_Space, Qt::Key_Return}, {Qt::Key_PageUp}},
        {"CustomSliderBarWidget", &::sliderBar, {Qt::Key_Up, Qt::Key_PageUp}, {Qt::Key_Right, Qt::Key_Home}},
        {"CustomizeIconButton", &::iconButton, {Qt::Key_Left}, {Qt::Key_Space, Qt::Key_Return}},
        {"CustomShadowCombox", &comboBox, {Qt::Key_Left, Qt::Key_PageUp}, {Qt::Key_Space, Qt::Key_F4}},
    };
    for (const auto &kind : kinds) {
        const QVector<int> strange = QVector<int>{Qt::Key_A, Qt::Key_Escape, Qt::Key_F2} + kind.strange;
        for (int key : strange)
            QTest::addRow("%s %x", kind.name, key) << kind.maker << key << int(Qt::NoModifier);
        for (int key : kind.own) {
            for (Qt::KeyboardModifier modifier :
                 {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier, Qt::MetaModifier})
                QTest::addRow("%s %x+%x", kind.name, int(modifier), key)
                    << kind.maker << key << int(modifier);
        }
    }
}

void tst_ControlKeys::keysThatMeanNothingPassOn()
{
    QFETCH(Maker, maker);
    QFETCH(int, key);
    QFETCH(int, modifiers);

    const Control control = make(maker);
    const QString before = control.shown();
    sendKey(control.widget, key, Qt::KeyboardModifiers(modifiers));
    QCOMPARE(m_surroundings->keys, 1);
    QCOMPARE(control.shown(), before);
    QCOMPARE(control.told->count(), 0);
}

void tst_ControlKeys::nothingWithoutAFocusPolicy()
{
    QFETCH(Maker, maker);
    QFETCH(int, key);

    const Control control = maker(m_surroundings.get());
    QCOMPARE(control.widget->focusPolicy(), Qt::NoFocus);
    control.told->clear();
    const QString before = control.shown();
    sendKey(control.widget, key);
    QCOMPARE(m_surroundings->keys, 1);
    QCOMPARE(control.shown(), before);
    QCOMPARE(control.told->count(), 0);
}

void tst_ControlKeys::nothingWhileDisabled()
{
    QFETCH(Maker, maker);
    QFETCH(int, key);

    const Control control = make(maker);
    control.widget->setDisabled(true);
    const QString before = control.shown();
    sendKey(control.widget, key);
    QCOMPARE(m_surroundings->keys, 1);
    QCOMPARE(control.shown(), before);
    QCOMPARE(control.told->count(), 0);
}

void tst_ControlKeys::ownFlagsCountAsDisabled()
{
    const Control slider = make(&newHorizontalSlider);
    qobject_cast<NewHorizontalSlider *>(slider.widget)->setSliderEnabled(false);
    sendKey(slider.widget, Qt::Key_Right);
    QCOMPARE(m_surroundings->keys, 1);
    QCOMPARE(slider.told->count(), 0);

    const Control button = make(&::iconButton);
    qobject_cast<CustomizeIconButton *>(button.widget)->setEnabled(false);
    sendKey(button.widget, Qt::Key_Space);
    QCOMPARE(m_surroundings->keys, 2);
    QCOMPARE(button.told->count(), 0);
}

void tst_ControlKeys::rightToLeftSwapsNothing()
{
    QFETCH(Maker, maker);
    QFETCH(int, key);

    const Control leftToRight = make(maker);
    sendKey(leftToRight.widget, key);
    const Control rightToLeft = make(maker);
    rightToLeft.widget->setLayoutDirection(Qt::RightToLeft);
    sendKey(rightToLeft.widget, key);
    QCOMPARE(rightToLeft.shown(), leftToRight.shown());
    QCOMPARE(rightToLeft.told->count(), 1);
}

void tst_ControlKeys::slotsMayDestroyTheControl()
{
    QFETCH(Maker, maker);
    QFETCH(int, key);

    const Control control = make(maker);
    const auto destroy = [&control] {
        delete control.widget;
    };
    if (auto *slider = qobject_cast<HorizontalSlider *>(control.widget))
        connect(slider, &HorizontalSlider::valueChanged, m_surroundings.get(), destroy);
    else if (auto *newSlider = qobject_cast<NewHorizontalSlider *>(control.widget))
        connect(newSlider, &NewHorizontalSlider::valueChanged, m_surroundings.get(), destroy);
    else if (auto *bar = qobject_cast<CustomSliderBarWidget *>(control.widget))
        connect(bar, &CustomSliderBarWidget::selectFinish, m_surroundings.get(), destroy);
    else if (auto *button = qobject_cast<CustomizeIconButton *>(control.widget))
        connect(button, &CustomizeIconButton::clicked, m_surroundings.get(), destroy);
    else if (auto *combo = qobject_cast<CustomShadowCombox *>(control.widget))
        connect(combo, &CustomShadowCombox::currentIndexChanged, m_surroundings.get(), destroy);
    sendKey(control.widget, key);
    QVERIFY(!control.widget);
    QCOMPARE(m_surroundings->keys, 0);
}

ORV_TEST_MAIN(tst_ControlKeys)
#include "tst_controlkeys.moc"
