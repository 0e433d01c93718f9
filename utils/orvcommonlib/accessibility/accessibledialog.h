#pragma once

#include "accessiblecontent.h"

#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QWidget>

class BaseMoveDialog;

/// A dialog, or the window that a client has made of its base.
class AccessibleDialog : public QAccessibleWidget
{
public:
    explicit AccessibleDialog(BaseMoveDialog *dialog);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
};

/// A dialog whose title stands in itself and not in the window's frame.
template<typename Dialog>
class AccessibleTitledDialog : public AccessibleDialog
{
public:
    using AccessibleDialog::AccessibleDialog;

    QAccessible::Role role() const override { return QAccessible::Dialog; }
    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name && widget()->accessibleName().isEmpty())
            return AccessibleContent::plain(static_cast<Dialog *>(widget())->title());
        return AccessibleDialog::text(kind);
    }
};
