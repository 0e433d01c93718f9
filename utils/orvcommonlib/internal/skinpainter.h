#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QPainter>
#include <QtGui/QTransform>

/// Paints a widget out of the pieces of its skin, which are SVG files in one folder.
///
/// What a piece looks like is kept by what its file contains, as one image for each size in pixels of the
/// device and each place within the pixel. Drawing the images differs from drawing the shapes by what rounding
/// makes of it: one level of 255 in a channel, two where the skin is translucent. Pieces of which the image would
/// differ by more, and those of which an edge cuts off more than a pixel, are drawn as shapes. Which contents lie
/// at a path is remembered until forgetFiles() is called: looking that up takes longer than painting the piece. All
/// stores are bounded and shared.
///
/// A file that does not exist, cannot be read or is no SVG document paints nothing and logs nothing; a missing
/// one is looked for again the next time.
///
/// To be used in the GUI thread only.
class SkinPainter
{
public:
    /// Columns of an image, from one edge to the other, in either order.
    struct Columns
    {
        qreal from;
        qreal to;
    };

    /// How much was made since the process began, for tests of what is kept.
    struct Made
    {
        int documents = 0; ///< files parsed
        int images = 0;    ///< images drawn, out of shapes or of other images
    };

    /// Begins to paint on the device, with smooth edges, smooth images and no pen. A folder of the library stands for
    /// the one of the look in force.
    SkinPainter(QPaintDevice *device, const QString &folder);

    /// Paints a piece, which is named by its file, into `target`, in the device's coordinates.
    void paint(const QString &piece, const QRectF &target);

    /// Renders a piece into the whole of an image of that size in pixels, fills the columns, rounded to whole
    /// ones, so that only the piece's own pixels take the colour, and draws the image into `area`, in the
    /// device's coordinates.
    void paintColored(const QString &piece, const QRectF &area, const QSize &pixels, const Columns &columns,
                      const QColor &color);

    /// A size in pixels, each side rounded; sides beyond what an image can have are cut.
    static QSize pixelSize(const QSize &size, qreal ratio);

    /// Has every file, embedded or not, read again when it is painted the next time.
    static void forgetFiles();

    static Made made();

private:
    Q_DISABLE_COPY(SkinPainter)

    template<typename Draw>
    void drawPlainly(Draw draw);

    QPainter m_painter;
    QString m_folder;
    QTransform m_toPixels;
    bool m_drawsImages; // the painter's coordinates are then the device's pixels
    QRect m_shown; // where Qt does not cut shapes, which it does in a way of its own before it draws them
};
