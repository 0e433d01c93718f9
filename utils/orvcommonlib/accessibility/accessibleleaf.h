#pragma once

#include <QtWidgets/QAccessibleWidget>

/// A widget that is one thing to its user, whatever it is made of: it has no children, and its name is the one
/// that the client has given it, else a text of its own.
class AccessibleLeaf : public QAccessibleWidget
{
public:
    using QAccessibleWidget::QAccessibleWidget;

    QString text(QAccessible::Text kind) const override;
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }

protected:
    virtual QString ownText() const = 0;
};
