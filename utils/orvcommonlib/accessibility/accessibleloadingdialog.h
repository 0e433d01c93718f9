#pragma once

#include "accessiblecontent.h"
#include "accessibleleaf.h"
#include "popuploadingdlgwithmask.h"

/// Work of which nobody knows how far it is: without a value.
class AccessibleLoadingDialog : public AccessibleLeaf
{
public:
    explicit AccessibleLoadingDialog(PopupLoadingDlgWithMask *dialog)
        : AccessibleLeaf(dialog, QAccessible::ProgressBar)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleLeaf::state();
        state.busy = true;
        return state;
    }

protected:
    QString ownText() const override { return AccessibleContent::text(widget()); }
};
