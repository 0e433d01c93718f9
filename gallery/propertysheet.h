#pragma once

#include <QtCore/QMetaProperty>
#include <QtCore/QObject>
#include <QtCore/QVariant>
#include <QtCore/QVector>

#include <functional>

class PageBuilder;
class QWidget;

/// A card with an editor for each property of a widget's class, made from the meta-object alone; for a class without
/// properties of its own they are those of the class that it derives from. The editors show what the properties read,
/// whoever changes them, and each change is reported. What cannot be written, or has no editor, is shown as a text.
class PropertySheet : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the widget.
    PropertySheet(PageBuilder *page, QWidget *widget);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    using Show = std::function<void(const QVariant &)>;

    struct Entry
    {
        QMetaProperty property;
        Show show;
        QVariant last;
    };

    Show newEditor(PageBuilder *page, int index);
    Show newSizeEditor(PageBuilder *page, int index);
    Show newListEditor(PageBuilder *page, int index);
    Show newChoice(PageBuilder *page, int index);
    Show newText(PageBuilder *page, int index);
    void write(int index, const QVariant &value);
    void refresh();

    QWidget *m_widget;
    QVector<Entry> m_entries;
    bool m_refreshIsDue = false;
    bool m_isLaidOut = false; ///< what the layout made of sizes is no change
};
