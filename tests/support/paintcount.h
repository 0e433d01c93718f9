#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

/// The paints of a widget, and of all that stands in it.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget *widget)
        : m_widget(widget)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }
    int own = 0;
    int all = 0;

    /// Lets all that was asked for be painted, and what was asked for while that was.
    static void settle()
    {
        for (int turn = 0; turn < 5; ++turn) {
            QCoreApplication::processEvents();
            QCoreApplication::sendPostedEvents();
        }
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            own += watched == m_widget ? 1 : 0;
            all += watched == m_widget || isBelow(watched) ? 1 : 0;
        }
        return false;
    }

private:
    bool isBelow(QObject *object) const
    {
        return object->isWidgetType() && m_widget->isAncestorOf(static_cast<QWidget *>(object));
    }

    QWidget *m_widget;
};
