#include "accessibletree.h"
#include "pagebuilder.h"

#include <QtCore/QMetaEnum>
#include <QtGui/QAccessible>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QScrollBar>

#include <utility>

namespace {

constexpr int kIntervalMs = 250;
constexpr int kHeight = 380;
constexpr int kIndentation = 14;
constexpr int kIdRole = Qt::UserRole;

enum Column { Role, Name, Value, States, Actions, ColumnCount };
constexpr int kWidths[ColumnCount] = {180, 190, 50, 100, 90};

QString roleName(QAccessible::Role role)
{
    const char *name = QMetaEnum::fromType<QAccessible::Role>().valueToKey(role);
    return name == nullptr ? QString::number(role) : QString::fromLatin1(name);
}

QString valueOf(QAccessibleInterface *interface)
{
    if (QAccessibleValueInterface *value = interface->valueInterface())
        return value->currentValue().toString();
    return interface->text(QAccessible::Value);
}

QString actionsOf(QAccessibleInterface *interface)
{
    QAccessibleActionInterface *actions = interface->actionInterface();
    return actions == nullptr ? QString() : actions->actionNames().join(QLatin1String(", "));
}

} // namespace

AccessibleTree::AccessibleTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setGalleryRole(this, "tree");
    setGalleryRole(verticalScrollBar(), "scroll");
    setGalleryRole(horizontalScrollBar(), "scroll");
    setAccessibleName(QStringLiteral("Tree"));
    setMinimumHeight(kHeight);
    setIndentation(kIndentation);
    setUniformRowHeights(true);
    setColumnCount(ColumnCount);
    setHeaderLabels({QStringLiteral("Role"), QStringLiteral("Name"), QStringLiteral("Value"),
                     QStringLiteral("States"), QStringLiteral("Actions")});
    for (int column = 0; column < ColumnCount; ++column)
        setColumnWidth(column, kWidths[column]);
    m_timer.setInterval(kIntervalMs);
    connect(&m_timer, &QTimer::timeout, this, &AccessibleTree::refresh);
}

void AccessibleTree::setRoot(QWidget *root)
{
    clear();
    m_root = root;
    refresh();
}

QAccessibleInterface *AccessibleTree::currentInterface() const
{
    const QTreeWidgetItem *row = currentItem();
    return row == nullptr ? nullptr : QAccessible::accessibleInterface(row->data(Role, kIdRole).toUInt());
}

void AccessibleTree::refresh()
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(m_root);
    if (interface == nullptr) {
        clear();
        return;
    }
    if (topLevelItemCount() == 0)
        (new QTreeWidgetItem(this))->setExpanded(true);
    fill(topLevelItem(0), interface);
}

void AccessibleTree::showEvent(QShowEvent *event)
{
    QTreeWidget::showEvent(event);
    refresh();
    m_timer.start();
}

void AccessibleTree::hideEvent(QHideEvent *event)
{
    QTreeWidget::hideEvent(event);
    m_timer.stop();
}

void AccessibleTree::fill(QTreeWidgetItem *row, QAccessibleInterface *interface)
{
    row->setText(Role, roleName(interface->role()));
    row->setText(Name, interface->text(QAccessible::Name));
    row->setText(Value, valueOf(interface));
    row->setText(States, statesOf(interface));
    row->setText(Actions, actionsOf(interface));
    row->setToolTip(Name, interface->text(QAccessible::Description));
    row->setData(Role, kIdRole, QAccessible::uniqueId(interface));

    // What stands in a tree like this one stands there because of what stands there.
    const bool isTree = qobject_cast<AccessibleTree *>(interface->object()) != nullptr;
    const int count = isTree ? 0 : interface->childCount();
    for (int index = 0; index < count; ++index) {
        QAccessibleInterface *child = interface->child(index);
        if (index == row->childCount())
            (new QTreeWidgetItem(row))->setExpanded(true);
        if (child != nullptr)
            fill(row->child(index), child);
    }
    while (row->childCount() > count)
        delete row->takeChild(count);
}

QString AccessibleTree::statesOf(QAccessibleInterface *interface) const
{
    const QAccessible::State state = interface->state();
    const std::pair<bool, const char *> states[] = {
        {state.disabled, "disabled"},
        {state.invisible && m_root->isVisible(), "invisible"}, // a page that is not open is so as a whole
        {state.offscreen, "offscreen"},
        {state.focused, "focused"},
        {state.selected, "selected"},
        {state.checked, "checked"},
        {state.pressed, "pressed"},
        {state.expanded, "expanded"},
        {state.collapsed, "collapsed"},
        {state.hasPopup, "hasPopup"},
        {state.modal, "modal"},
        {state.busy, "busy"},
        {state.readOnly, "readOnly"},
    };
    QStringList names;
    for (const auto &[isSet, name] : states) {
        if (isSet)
            names.append(QString::fromLatin1(name));
    }
    return names.join(QLatin1String(", "));
}
