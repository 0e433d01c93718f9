#pragma once

#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QImage>

class QWidget;

/// What the widget paints into a transparent image at its own device pixel ratio.
QImage renderWidget(QWidget *widget);

/// The number of pixels in which two images differ by more than `tolerance` in any channel; -1 when sizes
/// differ.
int differingPixels(const QImage &left, const QImage &right, int tolerance = 0);

/// A picture whose every pixel has a colour of its own (up to 256 x 256), so that a piece put in the wrong
/// place shows.
QImage gradientImage(int width, int height);

/// Saves the image as PNG into a file of a temporary folder that lives as long as the process, and returns
/// its path.
QString savedImage(const QImage &image, const QString &name);
