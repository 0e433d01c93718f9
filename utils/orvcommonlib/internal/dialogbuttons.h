#pragma once

#include <QtCore/QLatin1String>
#include <QtCore/QSize>
#include <QtCore/QString>

class QPushButton;
class QWidget;

/// The buttons that the message dialogs have in common. Neither kind ever takes the keyboard focus.
namespace DialogButtons {

/// A button that is nothing but the image of its style sheet.
QPushButton *createCloseButton(QWidget *dialog, QSize size, QLatin1String styleSheet);

/// A coloured button with a text; the caller gives it its size.
QPushButton *createActionButton(QWidget *dialog, const QString &text, QLatin1String styleSheet);

} // namespace DialogButtons
