#pragma once

#include <QtWidgets/QAccessibleWidget>

class BaseMoveDialog;

/// A dialog, or the window that a client has made of its base.
class AccessibleDialog : public QAccessibleWidget
{
public:
    explicit AccessibleDialog(BaseMoveDialog *dialog);

    QAccessible::Role role() const override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

protected:
    /// What stands in the dialog as its title; empty for a dialog that has only the window's.
    virtual QString title() const;
};

/// A dialog with a title of its own.
template<typename Dialog>
class AccessibleTitledDialog : public AccessibleDialog
{
public:
    using AccessibleDialog::AccessibleDialog;

    QAccessible::Role role() const override { return QAccessible::Dialog; }

protected:
    QString title() const override { return static_cast<Dialog *>(widget())->title(); }
};
