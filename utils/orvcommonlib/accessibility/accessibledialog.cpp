#include "accessibledialog.h"

#include "accessiblecontent.h"
#include "basemovedialog.h"

AccessibleDialog::AccessibleDialog(BaseMoveDialog *dialog)
    : QAccessibleWidget(dialog, QAccessible::Dialog)
{
}

// Without a dialog's window flags the base is what a client makes of it: a main window, or a part of one.
QAccessible::Role AccessibleDialog::role() const
{
    if (!widget()->isWindow())
        return QAccessible::Client;
    return widget()->windowType() == Qt::Window ? QAccessible::Window : QAccessible::Dialog;
}

QString AccessibleDialog::text(QAccessible::Text kind) const
{
    QString own;
    if (kind == QAccessible::Name && widget()->accessibleName().isEmpty())
        own = AccessibleContent::plain(title());
    else if (kind == QAccessible::Description && widget()->accessibleDescription().isEmpty())
        own = AccessibleContent::text(widget());
    return own.isEmpty() ? QAccessibleWidget::text(kind) : own;
}

QAccessible::State AccessibleDialog::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = widget()->isModal();
    return state;
}

QString AccessibleDialog::title() const
{
    return {};
}
