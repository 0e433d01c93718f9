#pragma once

#include "shadowpopupwidget.h"

#include <QtWidgets/QAccessibleWidget>

/// The list of a combo box: its children are the rows, without what they scroll in.
class AccessibleComboList : public QAccessibleWidget
{
public:
    explicit AccessibleComboList(ShadowPopupWidget *list)
        : QAccessibleWidget(list, QAccessible::List)
    {
    }

    QAccessibleInterface *parent() const override;
    int childCount() const override { return list()->count(); }
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    ShadowPopupWidget *list() const { return static_cast<ShadowPopupWidget *>(widget()); }
};
