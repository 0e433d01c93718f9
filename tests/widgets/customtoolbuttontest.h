#pragma once

#include "customtoolbutton.h"
#include "hoverevent.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

// What the test programs of CustomToolButton share.

// A panel of a fixed size that it takes only when asked for it. It notes in which order things happen to it.
class Panel : public QWidget
{
public:
    explicit Panel(QWidget *parent, Qt::WindowFlags flags = Qt::WindowFlags())
        : QWidget(parent, flags)
    {
        setFocusPolicy(Qt::StrongFocus);
        resize(60, 40);
        hide();
    }
    QSize sizeHint() const override { return hint; }

    QSize hint = QSize(60, 40);
    QStringList order;

protected:
    void showEvent(QShowEvent *) override { order << QStringLiteral("show at %1,%2").arg(x()).arg(y()); }
    void resizeEvent(QResizeEvent *) override { order << QStringLiteral("resize"); }
    void focusOutEvent(QFocusEvent *) override { order << QStringLiteral("focus out"); }
};

inline void sendPlain(QObject *object, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(object, &event);
}

inline void sendMouse(QWidget *widget, QEvent::Type type, Qt::MouseButton button)
{
    const QPoint pos = widget->rect().center();
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

inline void sendHover(QWidget *widget, QEvent::Type type)
{
    HoverEvent event(type, QPointF(1, 1), QPointF(-1, -1));
    QCoreApplication::sendEvent(widget, &event);
}

// Destroys a button when something happens to what it watches.
class ButtonKiller : public QObject
{
public:
    ButtonKiller(QPointer<CustomToolButton> victim, QEvent::Type type)
        : m_victim(victim)
        , m_type(type)
    {
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == m_type)
            delete m_victim;
        return false;
    }

private:
    QPointer<CustomToolButton> m_victim;
    QEvent::Type m_type;
};

const QRect kButtonRect(200, 150, 31, 25);

/// A window with one panel and, on demand, one button in it.
class CustomToolButtonTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

protected:
    Panel *panel() const { return m_panel; }
    CustomToolButton *newButton(bool uncheckOnHide, SettingWidgetDirection direction = Bottom);

    QWidget *m_window = nullptr;
    QPointer<Panel> m_panel;
    QPointer<CustomToolButton> m_button;
};

inline void CustomToolButtonTest::init()
{
    m_window = new QWidget;
    m_window->setGeometry(100, 80, 500, 400);
    m_panel = new Panel(m_window);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
    QCursor::setPos(m_window->mapToGlobal(QPoint(490, 390)));
}

inline void CustomToolButtonTest::cleanup()
{
    delete m_window;
}

inline CustomToolButton *CustomToolButtonTest::newButton(bool uncheckOnHide, SettingWidgetDirection direction)
{
    m_button = new CustomToolButton(uncheckOnHide, m_window, direction);
    m_button->setGeometry(kButtonRect);
    m_button->setCheckable(true);
    m_button->show();
    return m_button;
}
