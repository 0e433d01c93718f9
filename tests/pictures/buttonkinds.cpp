#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customtoolbutton.h"
#include "events.h"
#include "kinds.h"

#include <QtGui/QImage>

namespace Pictures {

namespace {

State checkedByClick()
{
    return {QStringLiteral("checked"),
            [](QWidget *widget) {
                static_cast<QAbstractButton *>(widget)->setCheckable(true);
                Events::click(widget);
                Events::moveAway(widget);
            },
            {}};
}

QVector<State> buttonStates()
{
    return {asMade(), hovered(), pressed(), checkedByClick(), disabled(), focused(), rightToLeft()};
}

QWidget *toolButton()
{
    auto *button = new CustomToolButton;
    button->updateImage(swatch("#505156", 24), swatch("#4257FF", 24), swatch("#1F1F22", 24),
                        swatch("#C8C9CC", 24));
    button->resize(40, 40);
    return button;
}

QWidget *pictureButton()
{
    auto *button =
        new CustomPictureBtn(QImage(swatch("#505156", 20)), QStringLiteral("Record"), 6, nullptr, false);
    QImage hover(swatch("#4B66EB", 20));
    QImage checked(swatch("#3B4EE5", 20));
    QImage disabled(swatch("#C8C9CC", 20));
    button->setHoverIcon(hover);
    button->setCheckedIcon(checked);
    button->setDisabledIcon(disabled);
    button->setFlat(true);
    button->resize(110, 32);
    return button;
}

QWidget *pictureButtonWith(const QString &text)
{
    auto *button = new CustomPictureBtn(QImage(swatch("#505156", 20)), text, 6, nullptr, false);
    button->resize(110, 32);
    return button;
}

QWidget *pictureButtonAsLarge(const QString &text)
{
    auto *button = new CustomPictureBtn(QImage(swatch("#505156", 20)), text, 6, nullptr, true);
    button->setFlat(true);
    return button;
}

QVector<State> statesOfPictureButton()
{
    QVector<State> states = buttonStates() + texts(&pictureButtonWith);
    QVector<State> sizes = texts(&pictureButtonAsLarge);
    sizes.removeFirst(); // without a text it keeps the size that it has
    for (State &state : sizes)
        state.name += QLatin1String(", own size");
    states += sizes;
    states << state<CustomPictureBtn>("text below", [](CustomPictureBtn *button) {
        button->resize(80, 64);
        button->adjustIconRect(QRect(30, 8, 20, 20));
        button->setCustomText(QStringLiteral("Below"), QRect(20, 36, 60, 20));
    });
    return states;
}

QWidget *iconButton()
{
    auto *button = new CustomizeIconButton(QSize(20, 20), QStringLiteral("Share"), 6, nullptr, true);
    button->setObjectName(QStringLiteral("iconButton"));
    button->setIconImage(swatch("#505156", 20), swatch("#4B66EB", 20), swatch("#3B4EE5", 20),
                         swatch("#C8C9CC", 20));
    const auto label = [](const char *color) {
        return QStringLiteral("QLabel{background:transparent;font-size:13px;color:%1;}")
            .arg(QLatin1String(color));
    };
    button->setTextStyle(label("#1F1F22"), label("#4B66EB"), label("#3B4EE5"), label("#C8C9CC"));
    const auto box = [](const char *border, const char *ground) {
        return QStringLiteral("QWidget#iconButton{border:1px solid %1;border-radius:8px;background:%2;}")
            .arg(QLatin1String(border), QLatin1String(ground));
    };
    button->setOveralStyle(box("#C8C9CC", "#FFFFFF"), box("#4B66EB", "#F5F6FA"), box("#3B4EE5", "#E0E4F5"),
                           box("#EBECED", "#FAFAFA"));
    button->resize(120, 36);
    return button;
}

QVector<State> statesOfIconButton()
{
    QVector<State> states{asMade(), hovered(), pressed(), focused(), rightToLeft()};
    states << state<CustomizeIconButton>("disabled",
                                         [](CustomizeIconButton *button) { button->setEnabled(false); })
           << state<CustomizeIconButton>("not centred",
                                         [](CustomizeIconButton *button) { button->setCentered(false); })
           << State{QStringLiteral("without sheets"), [](QWidget *) {},
                    [] {
                        auto *button = new CustomizeIconButton(QSize(20, 20), QStringLiteral("Share"), 6,
                                                               nullptr, false);
                        button->resize(120, 36);
                        return button;
                    }};
    return states + texts<CustomizeIconButton>(
                        [](CustomizeIconButton *button, const QString &text) { button->setText(text); });
}

} // namespace

QVector<Kind> buttonKinds()
{
    return {
        {"customtoolbutton", &toolButton, buttonStates(), true, {}},
        {"custompicturebtn", &pictureButton, statesOfPictureButton(), true, {}},
        {"customizeiconbutton", &iconButton, statesOfIconButton(), false, {}},
    };
}

} // namespace Pictures
