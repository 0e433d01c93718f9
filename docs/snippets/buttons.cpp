#include "samples.h"

#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customtoolbutton.h"

#include <QtWidgets/QSlider>

QWidget *customPictureBtn(QWidget *page)
{
    const QImage camera(QStringLiteral(":/surface/resources/surface/gallery/picture_snapshot.png"));
    //! [CustomPictureBtn]
    auto *button =
        new CustomPictureBtn(camera, QStringLiteral("Take a photo"), /*span*/ 8, page, /*autoResize*/ true);
    button->setFlat(true);
    button->setFontColor(QColor(0x1F, 0x1F, 0x22)); // red until it is set
    //! [CustomPictureBtn]
    return button;
}

QWidget *customizeIconButton(QWidget *page)
{
    const QString normal = QStringLiteral(":/surface/resources/surface/gallery/icon_add.png");
    const QString hover = QStringLiteral(":/surface/resources/surface/gallery/icon_add_hover.png");
    const QString pressed = QStringLiteral(":/surface/resources/surface/gallery/icon_add_pressed.png");
    const QString disabled = QStringLiteral(":/surface/resources/surface/gallery/icon_add_disabled.png");
    //! [CustomizeIconButton]
    auto *button =
        new CustomizeIconButton(QSize(24, 24), QStringLiteral("Add a camera"), /*spacing*/ 8, page, true);
    button->setIconImage(normal, hover, pressed, disabled);
    button->setTextStyle(QStringLiteral("color:#1F1F22;"), QStringLiteral("color:#4257FF;"),
                         QStringLiteral("color:#3B4EE5;"), QStringLiteral("color:#B1B1B2;"));
    QObject::connect(button, &CustomizeIconButton::clicked, page, [button] { button->setEnabled(false); });
    //! [CustomizeIconButton]
    return button;
}

QWidget *customToolButton(QWidget *page)
{
    const QString normal = QStringLiteral(":/surface/resources/surface/gallery/tool_microphone.png");
    const QString checked = QStringLiteral(":/surface/resources/surface/gallery/tool_microphone_checked.png");
    const QString hover = QStringLiteral(":/surface/resources/surface/gallery/tool_microphone_hover.png");
    const QString disabled =
        QStringLiteral(":/surface/resources/surface/gallery/tool_microphone_disabled.png");
    auto *panel = new QSlider(Qt::Horizontal, page->window());
    //! [CustomToolButton]
    auto *button = new CustomToolButton(/*uncheckOnHide*/ false, page, Bottom);
    button->updateImage(normal, checked, hover, disabled);
    button->setFixedSize(40, 40);
    button->setClickWidget(panel, /*takeFocus*/ true); // opens below the button
    //! [CustomToolButton]
    panel->setObjectName(QStringLiteral("panel"));
    panel->hide();
    return button;
}
