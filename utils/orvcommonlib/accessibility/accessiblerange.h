#pragma once

#include <QtWidgets/QAccessibleWidget>

/// A painted control that holds a whole number between two others and goes in steps of one.
class AccessibleRange
    : public QAccessibleWidget
    , public QAccessibleValueInterface
{
public:
    explicit AccessibleRange(QWidget *widget);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    QVariant currentValue() const override { return value(); }
    QVariant minimumValue() const override { return minimum(); }
    QVariant maximumValue() const override { return maximum(); }
    QVariant minimumStepSize() const override { return 1; }
    void setCurrentValue(const QVariant &value) override;

protected:
    virtual int value() const = 0;
    virtual int minimum() const = 0;
    virtual int maximum() const = 0;
    /// Whether the user can choose a value.
    virtual bool isChoosable() const;
    /// Does what a click at the place of `value`, which lies within the range, does. A slot may destroy the
    /// widget, and this object with it.
    virtual void choose(int value) = 0;
};
