#pragma once

#include <QtCore/QVector>
#include <QtWidgets/QAccessibleWidget>

class CustomComboxHeader;
class CustomShadowCombox;
class ShadowPopupWidget;

/// The combo box as a whole: its header always, and its list while that is open.
class AccessibleComboBox : public QAccessibleWidget
{
public:
    explicit AccessibleComboBox(CustomShadowCombox *combo);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    int childCount() const override { return children().size(); }
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;

private:
    CustomShadowCombox *combo() const;
    CustomComboxHeader *header() const;
    ShadowPopupWidget *openList() const;
    QVector<QWidget *> children() const;
};
