#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customcomboxitem.h"
#include "customizeiconbutton.h"
#include "customkeysequenceedit.h"
#include "custompicturebtn.h"
#include "customplaintextedit.h"
#include "customslider.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "scene.h"
#include "shadowpopupwidget.h"
#include "values.h"
#include "widgets/shadowcombotesting.h"

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>

namespace Driving {

namespace {

using ShadowComboTesting::Combo;
using Own = std::function<void(QWidget *, quint8, quint8)>;

template<typename Class, typename Function>
Own own(Function function)
{
    return [function](QWidget *widget, quint8 how, quint8 much) {
        function(static_cast<Class *>(widget), how, much);
    };
}

// The combo box with the list.

constexpr char kIndexIsKept[] = "drivenIndexIsKept"; // clear() keeps it, whatever there is to choose from

QString wrongInCombo(const QWidget *widget)
{
    const auto *combo = static_cast<const Combo *>(widget);
    const auto *list = static_cast<const ShadowPopupWidget *>(combo->popup());
    int checked = 0;
    int hovered = 0;
    for (const CustomComboxItem *row : list->rows()) {
        checked += row->isChecked() ? 1 : 0;
        hovered += row->isHovered() ? 1 : 0;
    }
    if (checked > 1)
        return QStringLiteral("%1 rows are current").arg(checked);
    if (hovered > 1 && list->isVisible())
        return QStringLiteral("%1 rows are under the pointer").arg(hovered);
    if (list->currentIndex() < -1)
        return QStringLiteral("index %1").arg(list->currentIndex());
    if (list->currentIndex() >= list->count() && !combo->property(kIndexIsKept).toBool())
        return QStringLiteral("index %1 of %2").arg(list->currentIndex()).arg(list->count());
    return {};
}

QVector<Own> comboDoings()
{
    return {
        own<Combo>([](auto *combo, quint8, quint8 much) { combo->addItem(Values::anyText(much)); }),
        own<Combo>([](auto *combo, quint8 how, quint8 much) {
            combo->addItem(Values::anyText(much), how % 2 == 0, how % 4 < 2);
        }),
        own<Combo>([](auto *combo, quint8, quint8 much) { combo->addSmallStyleItem(Values::anyText(much)); }),
        own<Combo>(
            [](auto *combo, quint8 how, quint8 much) { combo->insertItem(how, Values::anyText(much)); }),
        own<Combo>([](auto *combo, quint8, quint8 much) { combo->removeItem(Values::anyInt(much)); }),
        own<Combo>([](auto *combo, quint8, quint8 much) { combo->setCurrentIndex(Values::anyInt(much)); }),
        own<Combo>([](auto *combo, quint8, quint8) { combo->hidePopup(); }),
        own<Combo>([](auto *combo, quint8, quint8) {
            if (combo->isVisible())
                combo->showPopup();
        }),
        own<Combo>([](auto *combo, quint8, quint8) {
            if (combo->isVisible())
                combo->slotHeaderClicked();
        }),
        own<Combo>([](auto *combo, quint8 how, quint8 much) {
            if (how % 4 == 0) {
                combo->setProperty(kIndexIsKept, true);
                combo->clear();
            } else {
                QVector<bool> states(combo->count());
                for (int i = 0; i < states.size(); ++i)
                    states[i] = (much >> (i % 8)) % 2 != 0;
                combo->setItemGrayState(states);
            }
        }),
        own<Combo>([](auto *combo, quint8 how, quint8) {
            if (how % 4 == 0)
                combo->reset();
        }),
        own<Combo>([](auto *combo, quint8 how, quint8 much) {
            combo->setItemText(how, Values::anyText(much));
            combo->setItemData(how, much);
        }),
        own<Combo>([](auto *combo, quint8, quint8) { ShadowComboTesting::sendDeactivate(combo->popup()); }),
        own<Combo>([](auto *combo, quint8 how, quint8) {
            if (how < combo->count())
                combo->slotDeleteOneLiveOption(how);
            combo->slotAddOneLiveOption();
        }),
    };
}

Kind shadowCombo()
{
    return {"CustomShadowCombox",
            [](QWidget *parent, quint8 how) {
                auto *combo = how % 3 == 0   ? new Combo(parent)
                              : how % 3 == 1 ? new Combo(true, parent)
                                             : new Combo(true, how % 50, parent);
                combo->add(how % 14);
                return combo;
            },
            comboDoings(),
            {},
            &wrongInCombo,
            {}};
}

// The plain combo box.

class OpenCombo : public customcombox
{
public:
    using customcombox::customcombox;
    using customcombox::hidePopup;
    using customcombox::showPopup;
};

Kind plainCombo()
{
    return {"customcombox",
            [](QWidget *parent, quint8 how) {
                auto *combo = new OpenCombo(parent);
                for (int i = how % 12; i > 0; --i)
                    combo->addItem(Values::anyText(quint8(how + i)));
                return combo;
            },
            {own<OpenCombo>([](auto *combo, quint8, quint8) { combo->showPopup(); }),
             own<OpenCombo>([](auto *combo, quint8, quint8) { combo->hidePopup(); }),
             own<OpenCombo>([](auto *combo, quint8, quint8 much) { combo->addItem(Values::anyText(much)); }),
             own<OpenCombo>([](auto *combo, quint8 how, quint8) { combo->removeItem(how); }),
             own<OpenCombo>([](auto *combo, quint8 how, quint8) { combo->setEditable(how % 2 == 0); }),
             own<OpenCombo>([](auto *combo, quint8, quint8) {
                 combo->setEditable(false); // or the line that may be telling of its key is deleted at once
                 combo->setLineEdit(new QLineEdit);
             })},
            {},
            [](const QWidget *widget) {
                const auto *combo = static_cast<const QComboBox *>(widget);
                const bool isFine = combo->currentIndex() >= -1 && combo->currentIndex() < combo->count();
                return isFine ? QString() : QStringLiteral("index %1").arg(combo->currentIndex());
            },
            {}};
}

// The sliders.

template<typename Slider>
bool hasValueInRange(const QWidget *widget)
{
    const auto *slider = static_cast<const Slider *>(widget);
    return slider->minimum() <= slider->value() && slider->value() <= slider->maximum();
}

template<typename Slider>
QVector<Own> paintedSliderDoings()
{
    return {
        own<Slider>([](auto *slider, quint8, quint8 much) { slider->setValue(Values::anyInt(much)); }),
        own<Slider>([](auto *slider, quint8 how, quint8 much) { slider->setRange(-how, much); }),
        own<Slider>([](auto *slider, quint8, quint8 much) { slider->setMaximum(Values::anyInt(much)); }),
        own<Slider>(
            [](auto *slider, quint8 how, quint8 much) { slider->setHandleSize(QSize(much % 40, how)); }),
        own<Slider>([](auto *slider, quint8 how, quint8) {
            slider->setSkinPath(how % 3 == 0 ? QStringLiteral(":/none/")
                                             : QStringLiteral(":/images/images/hslider/"));
        }),
    };
}

template<typename Slider>
QString wrongInSlider(const QWidget *widget)
{
    return hasValueInRange<Slider>(widget)
               ? QString()
               : QStringLiteral("value %1").arg(static_cast<const Slider *>(widget)->value());
}

Kind oldSlider()
{
    return {"HorizontalSlider",
            [](QWidget *parent, quint8 how) {
                return new HorizontalSlider(parent, how % 2 == 0, how % 4 < 2, how % 8, QSize(how % 9, 4));
            },
            paintedSliderDoings<HorizontalSlider>(),
            {},
            {},
            &hasValueInRange<HorizontalSlider>};
}

Kind newSlider()
{
    return {"NewHorizontalSlider",
            [](QWidget *parent, quint8 how) {
                return new NewHorizontalSlider(QSize(60 + how, 20), QSize(how % 24, how % 18), how % 2 == 0,
                                               parent);
            },
            paintedSliderDoings<NewHorizontalSlider>(),
            {},
            {},
            &hasValueInRange<NewHorizontalSlider>};
}

Kind stepBar()
{
    return {"CustomSliderBarWidget",
            [](QWidget *parent, quint8 how) {
                auto *bar = new CustomSliderBarWidget(parent);
                bar->setCount(how % 30);
                return bar;
            },
            {own<CustomSliderBarWidget>(
                 [](auto *bar, quint8, quint8 much) { bar->setCount(Values::anyInt(much)); }),
             own<CustomSliderBarWidget>(
                 [](auto *bar, quint8, quint8 much) { bar->setCurrenIndex(much % bar->getCount()); })},
            {},
            {},
            [](const QWidget *widget) {
                const auto *bar = static_cast<const CustomSliderBarWidget *>(widget);
                return bar->getCurrentIndex() >= 0 && bar->getCurrentIndex() < bar->getCount();
            }};
}

// The buttons.

QWidget *newToolButton(QWidget *parent, quint8 how)
{
    auto *button = new CustomToolButton(how % 2 == 0, parent, SettingWidgetDirection(how / 2 % 4));
    button->setCheckable(true);
    const auto newPanel = [&](int number) {
        auto *panel = new QWidget(button->parentWidget(), (how >> number) % 4 == 0 ? Qt::Tool : Qt::Widget);
        panel->resize(50, 40);
        panel->hide();
        QObject::connect(button, &QObject::destroyed, panel, &QObject::deleteLater);
        return panel;
    };
    button->setClickWidget(newPanel(1), how % 4 < 2);
    button->setRightClickWidget(newPanel(2), how % 8 < 4);
    button->setHoverWidget(newPanel(3), how % 16 < 8);
    return button;
}

QVector<Own> toolButtonDoings()
{
    const auto panel = [](const CustomToolButton *button, quint8 how) {
        return how % 3 == 0   ? button->clickWidget()
               : how % 3 == 1 ? button->rightClickWidget()
                              : button->hoverWidget();
    };
    const auto tell = [panel](QEvent::Type type) {
        return own<CustomToolButton>([=](auto *button, quint8 how, quint8) {
            QEvent event(type);
            if (QWidget *told = panel(button, how))
                QCoreApplication::sendEvent(told, &event);
        });
    };
    return {
        tell(QEvent::Enter),
        tell(QEvent::Leave),
        own<CustomToolButton>([=](auto *button, quint8 how, quint8) {
            QFocusEvent event(QEvent::FocusOut);
            if (QWidget *told = panel(button, how))
                QCoreApplication::sendEvent(told, &event);
        }),
        own<CustomToolButton>([=](auto *button, quint8 how, quint8 much) {
            if (QWidget *told = panel(button, how))
                told->setVisible(much % 2 == 0);
        }),
        own<CustomToolButton>([](auto *button, quint8 how, quint8) {
            if (how % 4 == 0)
                button->setHoverWidget(nullptr, false);
            else
                button->setHoverWidget(button->clickWidget(), how % 2 == 0);
        }),
        own<CustomToolButton>([=](auto *button, quint8 how, quint8 much) {
            if (much % 8 == 0)
                delete panel(button, how);
        }),
        own<CustomToolButton>([](auto *button, quint8, quint8) { button->showRightClickWidget(); }),
        own<CustomToolButton>([](auto *button, quint8, quint8) { button->adjustWidgetPosition(); }),
        own<CustomToolButton>([](auto *button, quint8, quint8 much) {
            button->updateImage(Values::anyText(much), QString(), Values::anyText(4), QString());
        }),
    };
}

Kind pictureButton()
{
    return {"CustomPictureBtn",
            [](QWidget *parent, quint8 how) {
                QImage image(how % 40, 12, QImage::Format_ARGB32);
                image.fill(Qt::green);
                return how % 2 == 0 ? new CustomPictureBtn(Values::anyText(how), parent)
                                    : new CustomPictureBtn(image, Values::anyText(how), how % 20, parent,
                                                           how % 4 == 1);
            },
            {own<CustomPictureBtn>(
                 [](auto *button, quint8, quint8 much) { button->setSpan(Values::anyInt(much)); }),
             own<CustomPictureBtn>([](auto *button, quint8, quint8) { button->resizeWithIconAndText(); }),
             own<CustomPictureBtn>([](auto *button, quint8 how, quint8 much) {
                 button->setCustomText(Values::anyText(much), QRect(how - 3, how - 2, much, 20));
             }),
             own<CustomPictureBtn>([](auto *button, quint8, quint8 much) {
                 QImage image(much % 30, 10, QImage::Format_RGB32);
                 image.fill(Qt::blue);
                 button->setHoverIcon(image);
                 button->setDisabledIcon(image);
             })},
            {},
            {},
            {}};
}

Kind iconButton()
{
    return {
        "CustomizeIconButton",
        [](QWidget *parent, quint8 how) {
            return how % 4 == 0 ? new CustomizeIconButton(parent)
                                : new CustomizeIconButton(QSize(16, how % 30), Values::anyText(how), how % 9,
                                                          parent, how % 2 == 0);
        },
        {own<CustomizeIconButton>([](auto *button, quint8 how, quint8) { button->setEnabled(how % 2 == 0); }),
         own<CustomizeIconButton>([](auto *button, quint8, quint8 much) {
             button->setIconImage(Values::anyText(4), QString(), Values::anyText(much), QString());
         }),
         own<CustomizeIconButton>(
             [](auto *button, quint8 how, quint8) { button->setCentered(how % 2 == 0); })},
        {},
        {},
        {}};
}

} // namespace

QVector<Kind> controlKinds()
{
    return {
        shadowCombo(),
        plainCombo(),
        oldSlider(),
        newSlider(),
        stepBar(),
        {"CustomSlider",
         [](QWidget *parent, quint8 how) {
             auto *slider = new CustomSlider(how % 2 == 0 ? Qt::Horizontal : Qt::Vertical, parent);
             slider->setRange(-int(how), how);
             return slider;
         },
         {own<QSlider>([](auto *slider, quint8 how, quint8 much) { slider->setRange(how, much); })},
         {},
         &wrongInSlider<QSlider>,
         {}},
        {"CustomBidirectionSlider",
         [](QWidget *parent, quint8 how) {
             auto *slider = new CustomBidirectionSlider(how % 9, how % 30, QColor(Qt::red), parent);
             slider->setOrientation(Qt::Horizontal);
             return slider;
         },
         {own<QSlider>([](auto *slider, quint8 how, quint8 much) { slider->setRange(-how, much); })},
         {},
         &wrongInSlider<QSlider>,
         {}},
        {"CustomToolButton", &newToolButton, toolButtonDoings(), {}, {}, {}},
        pictureButton(),
        iconButton(),
        {"CustomComboxHeader",
         [](QWidget *parent, quint8 how) { return new CustomComboxHeader(how % 2 == 0, parent); },
         {own<CustomComboxHeader>(
              [](auto *header, quint8, quint8 much) { header->setText(Values::anyText(much)); }),
          own<CustomComboxHeader>(
              [](auto *header, quint8 how, quint8) { header->setIconState(how % 2 == 0); })},
         {},
         {},
         {}},
        {"CustomPlainTextEdit",
         [](QWidget *parent, quint8) { return new CustomPlainTextEdit(parent); },
         {own<CustomPlainTextEdit>([](auto *edit, quint8 how, quint8 much) {
             edit->adjustViewPortMargin(how, much % 20, how, 3);
         })},
         {},
         {},
         {}},
        {"CustomKeySequenceEdit",
         [](QWidget *parent, quint8 how) { return new CustomKeySequenceEdit(parent, Values::anyText(how)); },
         {own<CustomKeySequenceEdit>(
              [](auto *edit, quint8 how, quint8 much) { edit->setEditSize(QSize(much, how)); }),
          own<CustomKeySequenceEdit>(
              [](auto *edit, quint8 how, quint8) { edit->setNoContextMenu(how % 2 == 0); })},
         {},
         {},
         {}},
    };
}

} // namespace Driving
