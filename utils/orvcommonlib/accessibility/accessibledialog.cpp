#include "accessibledialog.h"

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
    if (kind == QAccessible::Description && widget()->accessibleDescription().isEmpty()) {
        QString content = AccessibleContent::text(widget());
        if (!content.isEmpty())
            return content;
    }
    return QAccessibleWidget::text(kind);
}

QAccessible::State AccessibleDialog::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.modal = widget()->isModal();
    return state;
}
