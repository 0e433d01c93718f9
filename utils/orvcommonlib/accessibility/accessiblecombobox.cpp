#include "accessiblecombobox.h"

#include "customcomboxheader.h"
#include "customshadowcombox.h"
#include "shadowpopupwidget.h"

AccessibleComboBox::AccessibleComboBox(CustomShadowCombox *combo)
    : QAccessibleWidget(combo, QAccessible::ComboBox)
{
}

QString AccessibleComboBox::text(QAccessible::Text kind) const
{
    const bool isNamed = !widget()->accessibleName().isEmpty();
    if (kind == QAccessible::Value || (kind == QAccessible::Name && !isNamed))
        return combo()->currentText();
    return QAccessibleWidget::text(kind);
}

QAccessible::State AccessibleComboBox::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const bool isOpen = openList() != nullptr;
    state.expandable = true;
    state.expanded = isOpen;
    state.collapsed = !isOpen;
    return state;
}

QAccessibleInterface *AccessibleComboBox::child(int index) const
{
    return QAccessible::queryAccessibleInterface(children().value(index));
}

int AccessibleComboBox::indexOfChild(const QAccessibleInterface *child) const
{
    return child ? children().indexOf(qobject_cast<QWidget *>(child->object())) : -1;
}

QStringList AccessibleComboBox::actionNames() const
{
    QStringList names = QAccessibleWidget::actionNames();
    if (widget()->isEnabled())
        names = QStringList{showMenuAction(), pressAction()} + names;
    return names;
}

void AccessibleComboBox::doAction(const QString &actionName)
{
    if (actionName != pressAction() && actionName != showMenuAction()) {
        QAccessibleWidget::doAction(actionName);
    } else if (widget()->isEnabled()) {
        if (CustomComboxHeader *header = this->header())
            Q_EMIT header->signalClicked();
    }
}

CustomShadowCombox *AccessibleComboBox::combo() const
{
    return static_cast<CustomShadowCombox *>(widget());
}

CustomComboxHeader *AccessibleComboBox::header() const
{
    return widget()->findChild<CustomComboxHeader *>(QString(), Qt::FindDirectChildrenOnly);
}

ShadowPopupWidget *AccessibleComboBox::openList() const
{
    auto *list = widget()->findChild<ShadowPopupWidget *>(QString(), Qt::FindDirectChildrenOnly);
    return list && list->isVisible() ? list : nullptr;
}

QVector<QWidget *> AccessibleComboBox::children() const
{
    QVector<QWidget *> children{header(), openList()};
    children.removeAll(nullptr);
    return children;
}
