#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QMetaType>
#include <QtTest/QTest>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QWidget>

#include <functional>

/// What may happen to a pressed widget so that its release never comes. Each leaves the widget as it was:
/// shown, enabled and not blocked.
using Loss = std::function<void(QWidget *)>;
Q_DECLARE_METATYPE(Loss)

namespace LostPresses {

inline void blockByModalDialog(QWidget *widget)
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.hide();
    Q_UNUSED(widget)
}

/// Adds the column "loss", and a row for each.
inline void addRows()
{
    QTest::addColumn<Loss>("loss");
    QTest::newRow("hidden and shown") << Loss([](QWidget *widget) {
        widget->hide();
        widget->show();
    });
    QTest::newRow("window hidden and shown") << Loss([](QWidget *widget) {
        widget->window()->hide();
        widget->window()->show();
    });
    QTest::newRow("disabled and enabled") << Loss([](QWidget *widget) {
        widget->setEnabled(false);
        widget->setEnabled(true);
    });
    QTest::newRow("modal dialog") << Loss(&blockByModalDialog);
    QTest::newRow("menu") << Loss([](QWidget *) {
        QMenu menu;
        menu.addAction(QStringLiteral("action"));
        menu.popup(QPoint(0, 0));
        menu.close();
    });
    QTest::newRow("mouse lost") << Loss([](QWidget *widget) {
        QEvent event(QEvent::UngrabMouse);
        QCoreApplication::sendEvent(widget, &event);
    });
}

} // namespace LostPresses
