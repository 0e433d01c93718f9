#include "lookkinds.h"

#include "basemovedialogwithbackimage.h"
#include "commonpopupdialog.h"
#include "custombidirectionslider.h"
#include "customcombox.h"
#include "customcomboxheader.h"
#include "customizeiconbutton.h"
#include "custompicturebtn.h"
#include "customshadowcombox.h"
#include "customsliderbarwidget.h"
#include "customtoolbutton.h"
#include "customwraptexttooltip.h"
#include "horizontalslider.h"
#include "newhorizontalslider.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "popuploadingdlgwithmask.h"
#include "popupmessage.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QMovie>
#include <QtGui/QPainter>
#include <QtWidgets/QLabel>

namespace {

using Made = std::unique_ptr<QWidget>;

const QString kText = QStringLiteral("text");

Made messageDialog()
{
    return std::make_unique<PopupDlgWithMask>(QString(), QSize(432, 232), 16, 16, 16, 16, kText, kText, kText,
                                              kText, false, false, true, false, nullptr);
}

Made pagesDialog()
{
    QVector<QString> texts{kText, kText};
    return std::make_unique<PopupDlgWithMask>(QString(), QSize(332, 425), 16, 16, 16, 16, kText, texts, texts,
                                              texts, kText, kText, false, false, true, false, nullptr);
}

Made tipsDialog()
{
    return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(400, 200), kText, kText, kText, kText);
}

Made tipsDialogWithLines()
{
    return std::make_unique<TipsDlgWithCheckbox>(nullptr, QSize(400, 240), kText,
                                                 QVector<QString>{kText, kText, kText, kText}, kText, kText);
}

Made updateDialog()
{
    return std::make_unique<OrvUpdateTipDlg>(QSize(420, 220), QString(), 10, 10, 10, 10, nullptr, kText,
                                             kText, false, true);
}

Made loadingDialog()
{
    auto dialog = std::make_unique<PopupLoadingDlgWithMask>(QSize(200, 160), QSize(96, 100), kText, nullptr);
    auto *label = dialog->findChild<QLabel *>();
    label->movie()->setParent(label); // is left to the client
    return dialog;
}

Made plainDialog()
{
    auto dialog = std::make_unique<BaseMoveDialogWithBackImage>(QString(), 8, true, true, nullptr);
    dialog->resize(200, 100);
    return dialog;
}

Made listPictureDialog()
{
    auto dialog = std::make_unique<BaseMoveDialogWithBackImage>(
        QStringLiteral(":/images/images/combox/popup_bg.png"), 8, true, true, nullptr);
    dialog->resize(200, 100);
    return dialog;
}

Made filledCombo(std::unique_ptr<CustomShadowCombox> combo)
{
    combo->resize(260, 48);
    for (int row = 0; row < 9; ++row)
        combo->addItem(kText);
    combo->addItem(kText, true, true);
    combo->addItem(kText, true, false);
    combo->addSmallStyleItem(kText);
    combo->setCurrentIndex(1);
    return combo;
}

Made combo()
{
    return filledCombo(std::make_unique<CustomShadowCombox>(nullptr));
}

Made smallCombo()
{
    return filledCombo(std::make_unique<CustomShadowCombox>(true, nullptr));
}

Made header()
{
    auto header = std::make_unique<CustomComboxHeader>(nullptr);
    header->setText(kText);
    return header;
}

Made headerWithArrowUp()
{
    auto header = std::make_unique<CustomComboxHeader>(nullptr);
    header->setIconState(true);
    return header;
}

Made toolButton()
{
    auto button = std::make_unique<CustomToolButton>(false, nullptr, Bottom);
    button->setCheckable(true);
    button->setChecked(true);
    button->resize(40, 40);
    button->updateImage(QStringLiteral(":/n.png"), QStringLiteral(":/c.png"), QStringLiteral(":/h.png"),
                        QStringLiteral(":/d.png"));
    return button;
}

Made pictureButton()
{
    auto button = std::make_unique<CustomPictureBtn>(QImage(), kText, 4, nullptr, false);
    button->setFlat(true);
    button->setCustomText(kText, QRect(0, 0, 60, 20));
    button->resize(60, 20);
    return button;
}

Made iconButton()
{
    auto button = std::make_unique<CustomizeIconButton>(QSize(24, 24), kText, 8, nullptr, true);
    button->resize(100, 30);
    return button;
}

Made plainSlider()
{
    auto slider = std::make_unique<HorizontalSlider>(nullptr, true, true);
    slider->setValue(80);
    return slider;
}

Made accentSlider()
{
    auto slider = std::make_unique<NewHorizontalSlider>(QSize(206, 14), QSize(14, 14), false, nullptr);
    slider->setValue(80);
    return slider;
}

Made disabledSlider()
{
    auto slider = std::make_unique<NewHorizontalSlider>(QSize(206, 14), QSize(14, 14), true, nullptr);
    slider->setSliderEnabled(false);
    slider->setValue(80);
    return slider;
}

Made bidirectionSlider()
{
    auto slider = std::make_unique<CustomBidirectionSlider>(6, 24, QColor(0x4B, 0x66, 0xEB), nullptr);
    slider->resize(200, 30);
    return slider;
}

Made bidirectionSliderOfTheLook()
{
    auto slider = std::make_unique<CustomBidirectionSlider>();
    slider->resize(200, 30);
    slider->setValue(80);
    return slider;
}

Made cardDialog()
{
    PopupMessage message;
    message.title = message.content = kText;
    message.useMask = message.modal = false;
    return std::make_unique<PopupDlgWithMask>(message);
}

Made stepBar()
{
    auto bar = std::make_unique<CustomSliderBarWidget>(nullptr);
    bar->setCount(4);
    bar->setCurrenIndex(2);
    return bar;
}

Made toolTip()
{
    auto tip = std::make_unique<customWrapTextToolTip>(customWrapTextToolTip::DirectionLeft, 120, nullptr, 8);
    tip->setText(kText);
    return tip;
}

Made popupDialog()
{
    return std::make_unique<CommonPopupDialog>(nullptr, kText, QSize(300, 200), true, true, true, false,
                                               true);
}

Made plainCombo()
{
    return std::make_unique<customcombox>(nullptr);
}

} // namespace

const QVector<LookKind> &lookKinds()
{
    static const QVector<LookKind> kinds{
        {"message", messageDialog, true},
        {"pages", pagesDialog, true},
        {"tips", tipsDialog, true},
        {"tips with lines", tipsDialogWithLines, true},
        {"update", updateDialog, true},
        {"loading", loadingDialog, true},
        {"plain dialog", plainDialog, true},
        {"dialog with the library's picture", listPictureDialog, true},
        {"combo box", combo, true},
        {"small combo box", smallCombo, true},
        {"header", header, true},
        {"header, arrow up", headerWithArrowUp, true},
        {"tool button", toolButton, true},
        {"picture button", pictureButton, true},
        {"icon button", iconButton, false},
        {"slider", plainSlider, true},
        {"new slider", accentSlider, true},
        {"new slider, disabled", disabledSlider, true},
        {"bidirectional slider", bidirectionSlider, true},
        {"bidirectional slider, made with a parent alone", bidirectionSliderOfTheLook, true},
        {"message on the library's card", cardDialog, true},
        {"step bar", stepBar, true},
        {"tooltip", toolTip, true},
        {"titled dialog", popupDialog, false},
        {"plain combo box", plainCombo, false},
    };
    return kinds;
}

QStringList sheetsOf(const QWidget &widget)
{
    QStringList sheets{widget.styleSheet()};
    const QList<QWidget *> parts = widget.findChildren<QWidget *>();
    for (const QWidget *part : parts)
        sheets << part->styleSheet();
    return sheets;
}

QImage pictureOf(QWidget *widget)
{
    QCoreApplication::sendPostedEvents();
    QImage picture(widget->size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    widget->render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}
