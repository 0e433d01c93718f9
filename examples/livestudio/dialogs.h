#pragma once

#include <QtWidgets>

/// The studio's dialogs, all over the middle of its window.
class Dialogs
{
    Q_DECLARE_TR_FUNCTIONS(Dialogs)

public:
    /// \return whether the user has pressed the button, which says "OK" unless it is given another text
    static bool ask(QWidget *window, const QString &title, const QString &text, const QString &button = {});
    static void showTips(QWidget *window);
    static void showNews(QWidget *window);
    static void showUpdate(QWidget *window);
};
