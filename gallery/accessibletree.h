#pragma once

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QTreeWidget>

class QAccessibleInterface;

/// The tree that assistive technology sees below a widget. While it is shown it looks again several times a
/// second: lists that open, values that change and widgets that go are seen as they do.
class AccessibleTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit AccessibleTree(QWidget *parent = nullptr);

    void setRoot(QWidget *root);
    /// What the current row stands for; null without one, and when that is gone.
    QAccessibleInterface *currentInterface() const;

    void refresh();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void fill(QTreeWidgetItem *row, QAccessibleInterface *interface);
    QString statesOf(QAccessibleInterface *interface) const;

    QPointer<QWidget> m_root;
    QTimer m_timer;
};
