#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "hoverevent.h"
#include "kinds.h"
#include "newhorizontalslider.h"
#include "steps.h"
#include "widgets/shadowcombotesting.h"

#include <QAction> // of another module in each Qt
#include <QtGui/QCursor>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>

namespace Destruction {

namespace {

using ShadowComboTesting::Combo;

template<typename Widget>
Widget *resized(Widget *widget)
{
    widget->resize(200, 30);
    return widget;
}

/// Makes a painted control answer keys, and show that it has the focus.
QVector<Step> focused()
{
    return {step<QWidget>("focus policy", [](QWidget *widget) { widget->setFocusPolicy(Qt::StrongFocus); }),
            step<QWidget>("focus by a key", [](QWidget *widget) {
                send(widget, QFocusEvent(QEvent::FocusIn, Qt::TabFocusReason));
            })};
}

QVector<Step> checking()
{
    return {step<QAbstractButton>("checkable", [](QAbstractButton *button) { button->setCheckable(true); }),
            step<QAbstractButton>("click", [](QAbstractButton *button) { button->click(); })};
}

// The tool button with its panels, which lie beside it.

QWidget *panelOf(const QObject *button, const char *name)
{
    return button->parent()->findChild<QWidget *>(QLatin1String(name));
}

constexpr const char *kPanels[] = {"click panel", "right click panel", "hover panel"};

QObject *newToolButton(Surroundings &in)
{
    auto *button = resized(new CustomToolButton(true, in.parent, Bottom));
    const auto newPanel = [&in](const char *name) {
        auto *panel = new QWidget(in.parent);
        panel->setObjectName(QLatin1String(name));
        panel->hide();
        return panel;
    };
    button->setClickWidget(newPanel(kPanels[0]), true);
    button->setRightClickWidget(newPanel(kPanels[1]), true);
    button->setHoverWidget(newPanel(kPanels[2]), true);
    return button;
}

QObjectList panelsOf(const QObject *button)
{
    QObjectList panels;
    for (const char *name : kPanels)
        panels << panelOf(button, name);
    return panels;
}

QVector<Step> toolButtonLife()
{
    const auto hover = [](QEvent::Type type) {
        return step<QObject>("hover", [=](QObject *button) {
            send(button, HoverEvent(type, QPointF(1, 1), QPointF(-1, -1)));
        });
    };
    QVector<Step> steps = checking();
    steps << hover(QEvent::HoverEnter) << hover(QEvent::HoverLeave);
    for (const char *name : kPanels) {
        steps << step<QObject>("panel", [=](QObject *button) {
            send(panelOf(button, name), QEvent(QEvent::Enter));
        }) << step<QObject>("panel", [=](QObject *button) {
            send(panelOf(button, name), QEvent(QEvent::Leave));
        }) << step<QObject>("panel without focus", [=](QObject *button) {
            send(panelOf(button, name), QFocusEvent(QEvent::FocusOut));
        }) << step<QObject>("panel", [=](QObject *button) {
            panelOf(button, name)->show();
        }) << step<QObject>("panel", [=](QObject *button) { panelOf(button, name)->hide(); });
    }
    steps << step<CustomToolButton>("place", [](auto *button) { button->adjustWidgetPosition(); })
          << step<QToolButton>("action", [](auto *button) { button->setDefaultAction(new QAction(button)); })
          << step<QToolButton>("click", [](auto *button) { button->click(); });
    return life(steps);
}

// The combo boxes.

QVector<Step> shadowComboLife()
{
    const auto outside = [](const Combo *combo) {
        return combo->window()->mapToGlobal(QPoint(290, 190));
    };
    const Step pressHeader = step<Combo>("press the header", [](Combo *combo) {
        QCursor::setPos(combo->header()->mapToGlobal(QPoint(9, 9)));
        MouseEvents::press(combo->header(), QCursor::pos());
    });
    const Step releaseHeader = step<Combo>(
        "release the header", [](Combo *combo) { MouseEvents::release(combo->header(), QCursor::pos()); });
    const auto pressRow = [](int row) {
        return step<Combo>("press a row", [=](Combo *combo) {
            QCursor::setPos(combo->row(row)->mapToGlobal(QPoint(9, 9)));
            MouseEvents::press(combo->row(row), QCursor::pos());
        });
    };
    const auto releaseRow = [](int row) {
        return step<Combo>("release a row",
                           [=](Combo *combo) { MouseEvents::release(combo->row(row), QCursor::pos()); });
    };
    const QVector<Step> opening{pressHeader, releaseHeader, turn()};
    return life(
        opening +
        QVector<Step>{
            step<Combo>("move outside",
                        [=](Combo *combo) {
                            QCursor::setPos(outside(combo));
                            MouseEvents::move(combo->window(), outside(combo), Qt::NoButton);
                        }),
            step<Combo>("press outside",
                        [=](Combo *combo) { MouseEvents::press(combo->window(), outside(combo)); })} +
        opening + QVector<Step>{pressRow(1), releaseRow(1), turn()} + opening +
        QVector<Step>{pressRow(2), releaseRow(2), turn()} + opening +
        QVector<Step>{step<Combo>("deactivate",
                                  [](Combo *combo) { ShadowComboTesting::sendDeactivate(combo->popup()); }),
                      step<Combo>("hidePopup()", [](Combo *combo) { combo->hidePopup(); }),
                      step<Combo>("add", [](Combo *combo) { combo->slotAddOneLiveOption(); }),
                      step<Combo>("delete", [](Combo *combo) { combo->slotDeleteOneLiveOption(0); }),
                      step<Combo>("current", [](Combo *combo) { combo->setCurrentIndex(0); })} +
        focused() +
        QVector<Step>{
            key(Qt::Key_End), key(Qt::Key_Space), turn(), key(Qt::Key_Space), key(Qt::Key_Space), turn(),
            step<Combo>("key in the list",
                        [](Combo *combo) {
                            send(combo->popup(), QKeyEvent(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier));
                        })} +
        opening);
}

/// Opens what is meant for subclasses.
class OpenCombo : public customcombox
{
public:
    using customcombox::customcombox;
    using customcombox::hidePopup;
    using customcombox::showPopup;
};

QVector<Step> comboLife()
{
    const auto inList = [](int code) {
        return step<OpenCombo>("key in the list", [=](OpenCombo *combo) {
            send(combo->view(), QKeyEvent(QEvent::KeyPress, code, Qt::NoModifier));
        });
    };
    return life({
        step<OpenCombo>("press the line edit",
                        [](OpenCombo *combo) {
                            const QPoint pos = combo->lineEdit()->mapToGlobal(QPoint(9, 9));
                            MouseEvents::press(combo->lineEdit(), pos);
                        }),
        turn(),
        step<OpenCombo>("hidePopup()", [](OpenCombo *combo) { combo->hidePopup(); }),
        step<OpenCombo>("showPopup()", [](OpenCombo *combo) { combo->showPopup(); }),
        inList(Qt::Key_Down),
        inList(Qt::Key_Enter),
        step<OpenCombo>("text", [](OpenCombo *combo) { combo->setEditText(QStringLiteral("other")); }),
        step<OpenCombo>("index", [](OpenCombo *combo) { combo->setCurrentIndex(2); }),
        step<OpenCombo>("another line edit", [](OpenCombo *combo) { combo->setLineEdit(new QLineEdit); }),
        step<OpenCombo>("no line edit", [](OpenCombo *combo) { combo->setEditable(false); }),
    });
}

// The sliders.

QVector<Step> draggingAHandle()
{
    return {press(QPoint(7, 15)),    move(QPoint(60, 15)),   move(QPoint(61, 15)),
            release(QPoint(61, 15)), press(QPoint(150, 15)), release(QPoint(150, 15))};
}

QVector<Step> sliderLife()
{
    return life(draggingAHandle() +
                QVector<Step>{step<QSlider>("range", [](QSlider *slider) { slider->setRange(0, 50); }),
                              step<QSlider>("value", [](QSlider *slider) { slider->setValue(20); }),
                              key(Qt::Key_Right)});
}

template<typename Slider>
QVector<Step> paintedSliderLife()
{
    return life(draggingAHandle() +
                QVector<Step>{step<Slider>("value", [](Slider *slider) { slider->setValue(3); })} +
                focused() + QVector<Step>{key(Qt::Key_Right), key(Qt::Key_End)});
}

} // namespace

QVector<Kind> buttonKinds()
{
    const auto newIconButton = [](Surroundings &in) {
        return resized(new CustomizeIconButton(QSize(16, 16), QString(), 4, in.parent, true));
    };
    return {
        {"CustomPictureBtn",
         [](Surroundings &in) { return resized(new CustomPictureBtn(in.parent)); },
         life(checking()),
         {}},
        {"CustomizeIconButton", newIconButton, life(focused() + QVector<Step>{key(Qt::Key_Space)}), {}},
        {"CustomToolButton", &newToolButton, toolButtonLife(), &panelsOf},
    };
}

QVector<Kind> comboBoxKinds()
{
    const auto newShadowCombo = [](Surroundings &in) {
        auto *combo = resized(new Combo(in.parent));
        combo->add(2);
        combo->addItem(QStringLiteral("gray"), true, false);
        return combo;
    };
    const auto newCombo = [](Surroundings &in) {
        auto *combo = resized(new OpenCombo(in.parent));
        combo->addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        return combo;
    };
    const auto popupOf = [](const QObject *combo) -> QObjectList {
        return {static_cast<const Combo *>(combo)->popup()};
    };
    const auto lineEditOf = [](const QObject *combo) -> QObjectList {
        return {static_cast<const QComboBox *>(combo)->lineEdit()};
    };
    return {
        {"CustomComboxHeader",
         [](Surroundings &in) { return resized(new CustomComboxHeader(in.parent)); },
         life({}),
         {}},
        {"CustomShadowCombox", newShadowCombo, shadowComboLife(), popupOf},
        {"customcombox", newCombo, comboLife(), lineEditOf},
    };
}

QVector<Kind> sliderKinds()
{
    const auto newBidirection = [](Surroundings &in) {
        auto *slider = resized(new CustomBidirectionSlider(2, 14, QColor(Qt::red), in.parent));
        slider->setOrientation(Qt::Horizontal);
        slider->enableWheel(true);
        return slider;
    };
    const auto newBar = [](Surroundings &in) {
        auto *bar = resized(new CustomSliderBarWidget(in.parent));
        bar->setCount(4);
        return bar;
    };
    const Step index = step<CustomSliderBarWidget>("index", [](auto *bar) { bar->setCurrenIndex(2); });
    return {
        {"HorizontalSlider",
         [](Surroundings &in) { return resized(new HorizontalSlider(in.parent)); },
         paintedSliderLife<HorizontalSlider>(),
         {}},
        {"NewHorizontalSlider",
         [](Surroundings &in) {
             return new NewHorizontalSlider(QSize(200, 30), QSize(14, 14), false, in.parent);
         },
         paintedSliderLife<NewHorizontalSlider>(),
         {}},
        {"CustomSlider",
         [](Surroundings &in) { return resized(new CustomSlider(Qt::Horizontal, in.parent)); },
         sliderLife(),
         {}},
        {"CustomBidirectionSlider", newBidirection, sliderLife(), {}},
        {"CustomSliderBarWidget",
         newBar,
         life(draggingAHandle() + QVector<Step>{index} + focused() + QVector<Step>{key(Qt::Key_End)}),
         {}},
    };
}

} // namespace Destruction
