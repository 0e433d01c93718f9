#pragma once

#include <QtCore/QVariant>

class QWidget;

/// What a widget tells assistive technology about itself, at the moment at which it happens. While nobody
/// listens each of these is one question and nothing else.
namespace AccessibleNotification {

void nameChanged(QWidget *widget);
void descriptionChanged(QWidget *widget);
void valueChanged(QWidget *widget, const QVariant &value);
/// The list of a combo box has opened or closed.
void expandedChanged(QWidget *widget);
/// The widget's own flag has changed, of which Qt knows nothing.
void disabledChanged(QWidget *widget);

} // namespace AccessibleNotification
