// A client that a test loads and unloads, and the library with it.
#include "custompicturebtn.h"
#include "customwraptexttooltip.h"
#include "orvmaskctrl.h"

extern "C" {

Q_DECL_EXPORT QWidget *newButton()
{
    return new CustomPictureBtn;
}

Q_DECL_EXPORT QWidget *newToolTip()
{
    return new customWrapTextToolTip;
}

Q_DECL_EXPORT QWidget *maskOver(QWidget *window)
{
    return OrvMaskCtrl::getInstance(window)->getMaskWidget();
}
}
