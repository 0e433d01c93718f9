#pragma once

#include <QtCore/QString>

class QVBoxLayout;
class QWidget;

/// Fills a frameless window that a page opens: a row with its title and a button that closes it, and a text
/// below. The layout is returned for what the page adds.
QVBoxLayout *fillSampleWindow(QWidget *window, const QString &title, const QString &text);

/// Places a window that is not shown yet over the middle of another one.
void placeOver(QWidget *shown, const QWidget *host);
