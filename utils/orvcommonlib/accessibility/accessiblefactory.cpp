#include "accessiblefactory.h"

#include "accessiblecombobox.h"
#include "accessiblecomboheader.h"
#include "accessiblecombolist.h"
#include "accessiblecomborow.h"
#include "accessibledialog.h"
#include "accessiblehorizontalslider.h"
#include "accessibleiconbutton.h"
#include "accessibleloadingdialog.h"
#include "accessiblemask.h"
#include "accessiblepicturebutton.h"
#include "accessiblestepbar.h"
#include "accessibletoolbutton.h"
#include "accessibletooltip.h"
#include "commonpopupdialog.h"
#include "custompicturebtn.h"
#include "customshadowcombox.h"
#include "customtoolbutton.h"
#include "orvupdatetipdlg.h"
#include "popupdlgwithmask.h"
#include "tipsdlgwithcheckbox.h"

namespace {

struct Kind
{
    const QMetaObject *metaObject;
    QAccessibleInterface *(*create)(QObject *object);
};

template<typename Interface, typename Widget>
QAccessibleInterface *createFor(Widget *widget)
{
    return widget ? new Interface(widget) : nullptr;
}

// A client may have a class of the same name: the meta-object decides.
template<typename Widget, typename Interface>
QAccessibleInterface *create(QObject *object)
{
    return createFor<Interface>(qobject_cast<Widget *>(object));
}

template<typename Widget, typename Interface>
constexpr Kind kind()
{
    return {&Widget::staticMetaObject, &create<Widget, Interface>};
}

constexpr Kind kKinds[] = {
    kind<CustomShadowCombox, AccessibleComboBox>(),
    kind<CustomComboxHeader, AccessibleComboHeader>(),
    kind<ShadowPopupWidget, AccessibleComboList>(),
    kind<CustomComboxItem, AccessibleComboRow>(),
    kind<HorizontalSlider, AccessibleHorizontalSlider<HorizontalSlider>>(),
    kind<NewHorizontalSlider, AccessibleNewHorizontalSlider>(),
    kind<CustomSliderBarWidget, AccessibleStepBar>(),
    kind<CustomizeIconButton, AccessibleIconButton>(),
    kind<CustomPictureBtn, AccessiblePictureButton>(),
    kind<CustomToolButton, AccessibleToolButton>(),
    kind<CommonPopupDialog, AccessibleTitledDialog<CommonPopupDialog>>(),
    kind<PopupDlgWithMask, AccessibleTitledDialog<PopupDlgWithMask>>(),
    kind<TipsDlgWithCheckbox, AccessibleTitledDialog<TipsDlgWithCheckbox>>(),
    kind<OrvUpdateTipDlg, AccessibleTitledDialog<OrvUpdateTipDlg>>(),
    kind<PopupLoadingDlgWithMask, AccessibleLoadingDialog>(),
    kind<BaseMoveDialog, AccessibleDialog>(),
};

QAccessibleInterface *createForClass(const QString &className, QObject *object)
{
    for (const Kind &kind : kKinds) {
        if (className == QLatin1String(kind.metaObject->className()))
            return kind.create(object);
    }
    return nullptr;
}

QAccessibleInterface *createForType(const QString &className, QObject *object)
{
    if (className == QLatin1String("QDialog"))
        return createFor<AccessibleToolTip>(dynamic_cast<customWrapTextToolTip *>(object));
    if (className == QLatin1String("QLabel"))
        return createFor<AccessibleMask>(dynamic_cast<MaskLabel *>(object));
    return nullptr;
}

void installFactory()
{
    QAccessible::installFactory(createForClass);
}
Q_CONSTRUCTOR_FUNCTION(installFactory)

void removeFactories()
{
    QAccessible::removeFactory(createForClass);
    QAccessible::removeFactory(createForType);
}
Q_DESTRUCTOR_FUNCTION(removeFactories)

} // namespace

void AccessibleFactory::askForTypesFirst()
{
    QAccessible::removeFactory(createForType);
    QAccessible::installFactory(createForType);
}
