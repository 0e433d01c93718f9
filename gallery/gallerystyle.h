#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>

#include <functional>

class QObject;

/// The gallery's own style sheet and colours, which go with the library's look: theme.ini in a light one,
/// theme-dark.ini in a dark one.

/// Styles the application, now and whenever the look changes. The look is dark at first where the desktop's
/// colours are.
void setUpGalleryStyle();

/// A colour of the gallery's theme by its name there.
QColor galleryColor(const char *name);

/// A sheet of a page with the colours that it names as "@name".
QString gallerySheet(QString sheet);

/// Calls `apply` now, and at each change of the look as long as `context` lives.
void followLook(QObject *context, const std::function<void()> &apply);
