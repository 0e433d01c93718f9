#pragma once

#include <QtWidgets/QAccessibleWidget>

class QAbstractButton;

/// What Qt tells of its own buttons. Qt keeps the classes that do so to itself, and they answer only for a class
/// as a whole: one that has more to tell has to say the rest again.
class AccessibleButton : public QAccessibleWidget
{
public:
    explicit AccessibleButton(QAbstractButton *button);

    QString text(QAccessible::Text kind) const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString &actionName) override;
    QStringList keyBindingsForAction(const QString &actionName) const override;

protected:
    QAbstractButton *button() const;
};
