#pragma once

#include <QtCore/QCoreApplication>

class QWidget;

/// The studio's dialogs, all over the middle of its window.
class Dialogs
{
    Q_DECLARE_TR_FUNCTIONS(Dialogs)

public:
    static void showTips(QWidget *window);
    static void showNews(QWidget *window);
    static void showUpdate(QWidget *window);
    static void explain(QWidget *window, const QString &title, const QString &text);
    static bool askToQuit(QWidget *window);
};
