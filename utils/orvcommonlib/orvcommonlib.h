#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPixmap>

class QFont;
class QScreen;
class QWidget;

/// The library's own class: image helpers as static members. It holds no data.
///
/// All members work on pixmaps and belong to the GUI thread, except getImageFromPath(), which may run in any
/// thread.
class ORVCOMMONLIB_EXPORT orvcommonlib
{
public:
    orvcommonlib();
    // Declared, so that the library exports them: mingw-w64 exports nothing that a compiler adds by itself.
    orvcommonlib(const orvcommonlib &other);
    orvcommonlib(orvcommonlib &&other) noexcept;
    orvcommonlib &operator=(const orvcommonlib &other);
    orvcommonlib &operator=(orvcommonlib &&other) noexcept;
    ~orvcommonlib();

    /// Fills `output` with a picture of `size` (pixels) cut from the middle of `source`, its corners rounded
    /// by `radius` pixels. Returns false, with `output` untouched, only for a null source; a size that no
    /// picture can have makes `output` null.
    ///
    /// A source of another shape than `size` is deliberately not scaled down before it is cut: of a source
    /// that is larger than the target's shape at the target's scale, only the top-left part is seen. Use
    /// scaleAndClipPixmap2() for a thumbnail of the whole source.
    static bool scaleAndClipPixmap(QPixmap &source, QSize size, int radius, QPixmap &output);

    /// Fills `output` with the source smoothly scaled to cover `size`, cut to it around the middle, and its
    /// corners rounded by `radius`. Returns false, with `output` untouched, only for a null source.
    ///
    /// When the source already has the shape of `size` and `radius` is 0 or less, `output` is deliberately
    /// left alone although the result is true: there is nothing to cut, the caller keeps what it has.
    static bool scaleAndClipPixmap2(QPixmap &source, QSizeF size, double radius, QPixmap &output);

    /// Appends to `files` (never cleared) the paths of the images found under `folder`, in the order of the
    /// file system. With `animated` these are the folder's own files with the suffix webp or gif in any case;
    /// without it, those with the suffix jpg, bmp, png or svg in lower case. Sub-folders only ever contribute
    /// still images, whatever `animated` says. A folder that links back to one that contains it is not
    /// entered again.
    static void getImageFromPath(const QString &folder, QVector<QString> &files, bool animated);
};

/// Free helpers for the host application. None keeps state; none throws.
namespace totalcommon {

/// The image in `fileName`, stretched to `width` x `height` pixels without distorting its border: the four
/// corners keep their size, the four edges are stretched along themselves, the centre in both directions.
/// `left`, `top`, `right` and `bottom` are the sizes of the border in pixels of the image.
///
/// The result has the format QImage::Format_RGBA8888; what the image does not cover is transparent, as is all
/// of it when the file cannot be read. A target smaller than its borders has no edges and no centre, only
/// corners. A target size that is not positive, or that no image can have, gives a null image. `fileName` is
/// only read.
ORVCOMMONLIB_EXPORT QImage NinePatch(QString &fileName, int left, int top, int right, int bottom, int width,
                                     int height);

/// The same of a pixmap that is already loaded; the result is a pixmap with an alpha channel.
/// `pixmap` is only read.
ORVCOMMONLIB_EXPORT QPixmap NinePatch(QPixmap &pixmap, int left, int top, int right, int bottom, int width,
                                      int height);

/// The screen with this number, counted from left to right and, at the same left edge, from top to bottom. A
/// number past the end means the last screen; a negative one, or a session without screens, gives a null
/// pointer. Of screens that share one origin (mirrored ones) the one that Qt lists later counts first.
ORVCOMMONLIB_EXPORT QScreen *getScreen(int index);

/// The screen under this point of the desktop, or the primary screen when there is none. `found`, which may
/// be null, tells which of the two it was.
ORVCOMMONLIB_EXPORT QScreen *getScreen(QPoint point, bool *found);

/// Moves a widget without parent to the middle of the available part of the screen getScreen(index). Does
/// nothing for a null pointer, a widget that has a parent, or when there is no such screen.
ORVCOMMONLIB_EXPORT void moveToScreenCenter(QWidget *widget, int index);

/// The width of `text` in the product font plus 2 pixels. `font` is given that family, `pixelSize` and
/// `weight` (0 to 99, as QFont counts; others are brought into that range) and keeps them.
ORVCOMMONLIB_EXPORT int getFontWidth(int pixelSize, const QString &text, QFont &font, int weight);

/// Half-width characters to full-width ones: a blank becomes the ideographic space, a full stop the
/// ideographic full stop, and everything else below U+007F, control characters deliberately included, moves
/// up by 0xFEE0.
ORVCOMMONLIB_EXPORT QString HalfToFull(QString text);

/// Full-width characters to half-width ones: U+FF01 to U+FF5E, the ideographic space and the ideographic full
/// stop; everything else stays. Undoes HalfToFull() for printable ASCII.
ORVCOMMONLIB_EXPORT QString FullToHalf(QString text);

/// The MD5 digest of the text's UTF-8 bytes up to its first U+0000, as 32 lower-case hexadecimal digits. An
/// empty text gives an empty string and the info line "str info is empty".
ORVCOMMONLIB_EXPORT QString generateMd5(QString text);

/// A fingerprint of a file's head: the MD5 digest of its first 10240 bytes, followed by the UTF-8 bytes of
/// `extraText`, as 32 lower-case hexadecimal digits. Files that differ only further down have the same
/// fingerprint.
///
/// An empty path or a missing file gives an empty string and the info line "AAAAA--file not exist"; what
/// cannot be opened for reading, or is no regular file (a folder, a pipe, a device), gives an empty string.
/// Never blocks.
ORVCOMMONLIB_EXPORT QString FileMD5(QString path, QString extraText);

/// The bytes in all files under a folder, hidden ones excepted. Links count as what they lead to, each of them,
/// but for a link to a folder that is just being counted (the one that holds the link or one above), which adds
/// nothing: of two sibling folders with 100 and 1000 bytes that link each other, their parent holds 2200.
///
/// \param path the folder
/// \return the sum; 0 for a missing folder
ORVCOMMONLIB_EXPORT quint64 getDirSize(const QString &path);

/// Opens the system's file manager with this file selected or, where there is no such program, the folder
/// that contains it.
ORVCOMMONLIB_EXPORT void desktopShowInFolder(const QString &path);

} // namespace totalcommon
