// The sizes of the classes that a client puts on the stack or derives from. This program knows them from its headers: a library
// whose objects are larger would write beyond the place that they have here.
#include <basemovedialog.h>
#include <basemovedialogwithbackimage.h>
#include <commonpopupdialog.h>
#include <custombidirectionslider.h>
#include <customcombox.h>
#include <customcomboxheader.h>
#include <customizeiconbutton.h>
#include <customkeysequenceedit.h>
#include <custompicturebtn.h>
#include <customplaintextedit.h>
#include <customshadowcombox.h>
#include <customslider.h>
#include <customsliderbarwidget.h>
#include <customtoolbutton.h>
#include <customwraptexttooltip.h>
#include <framelesshelper.h>
#include <horizontalslider.h>
#include <newhorizontalslider.h>
#include <orvcommonlib.h>
#include <orvresloader.h>
#include <orvupdatetipdlg.h>
#include <popupdlgwithmask.h>
#include <popuploadingdlgwithmask.h>
#include <popupmessage.h>
#include <qhotkey.h>
#include <tipsdlgwithcheckbox.h>

#include <algorithm>
#include <array>
#include <new>

namespace {

constexpr unsigned char kUntouched = 0xA5;

/// Whether an object of the library lives and dies without a trace beyond its own place.
template<typename T, typename... Arguments>
bool staysInside(const char *name, Arguments... arguments)
{
    struct Place
    {
        alignas(T) std::array<unsigned char, sizeof(T)> object;
        std::array<unsigned char, 256> beyond;
    };
    Place place;
    place.beyond.fill(kUntouched);
    T *object = new (place.object.data()) T(arguments...);
    object->~T();
    const bool untouched = std::all_of(place.beyond.cbegin(), place.beyond.cend(),
                                       [](unsigned char byte) { return byte == kUntouched; });
    if (!untouched)
        qCritical("%s is larger in the library", name);
    return untouched;
}

bool controlsStayInside()
{
    QWidget *none = nullptr;
    bool good = staysInside<CustomBidirectionSlider>("CustomBidirectionSlider", none);
    good &= staysInside<customcombox>("customcombox", none);
    good &= staysInside<CustomComboxHeader>("CustomComboxHeader", none);
    good &= staysInside<CustomizeIconButton>("CustomizeIconButton", none);
    good &= staysInside<CustomKeySequenceEdit>("CustomKeySequenceEdit", none);
    good &= staysInside<CustomPictureBtn>("CustomPictureBtn", none);
    good &= staysInside<CustomPlainTextEdit>("CustomPlainTextEdit", none);
    good &= staysInside<CustomShadowCombox>("CustomShadowCombox", none);
    good &= staysInside<CustomSlider>("CustomSlider", none);
    good &= staysInside<CustomSliderBarWidget>("CustomSliderBarWidget", none);
    good &= staysInside<CustomToolButton>("CustomToolButton", none);
    good &= staysInside<customWrapTextToolTip>("customWrapTextToolTip", none);
    good &= staysInside<HorizontalSlider>("HorizontalSlider", none);
    good &= staysInside<NewHorizontalSlider>("NewHorizontalSlider", none);
    return good;
}

bool dialogsStayInside()
{
    QWidget *none = nullptr;
    const QSize size(400, 300);
    const QString text = QStringLiteral("text");
    bool good = staysInside<BaseMoveDialog>("BaseMoveDialog", none, true, true, false);
    good &= staysInside<BaseMoveDialogWithBackImage>("BaseMoveDialogWithBackImage", QString(), 8, true, false,
                                                     none);
    good &=
        staysInside<CommonPopupDialog>("CommonPopupDialog", none, text, size, true, true, false, false, true);
    good &= staysInside<OrvUpdateTipDlg>("OrvUpdateTipDlg", size, QString(), 8, 8, 8, 8, none, text, text,
                                         false, true);
    good &= staysInside<PopupDlgWithMask>("PopupDlgWithMask", PopupMessage(), none);
    good &= staysInside<PopupLoadingDlgWithMask>("PopupLoadingDlgWithMask", size, size, text, none);
    good &= staysInside<TipsDlgWithCheckbox>("TipsDlgWithCheckbox", none, size, text, text, text, text);
    return good;
}

bool servicesStayInside()
{
    QObject *none = nullptr;
    bool good = staysInside<FramelessHelper>("FramelessHelper", none);
    good &= staysInside<QHotkey>("QHotkey", none);
    good &= staysInside<QHotkey::NativeShortcut>("QHotkey::NativeShortcut");
    good &= staysInside<OrvResourceLoader>("OrvResourceLoader");
    good &= staysInside<orvcommonlib>("orvcommonlib");
    return good;
}

} // namespace

bool layoutsHold()
{
    const bool controls = controlsStayInside();
    const bool dialogs = dialogsStayInside();
    const bool services = servicesStayInside();
    return controls && dialogs && services;
}
