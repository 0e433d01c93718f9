#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QPixmap>

class QFont;
class QScreen;
class QWidget;

/// The library's own class: image helpers as static members. It holds no data.
///
/// \image html page-image-helpers.png
///
/// The members that work on pixmaps belong to the GUI thread, as pixmaps do; getImageFromPath() may run in any
/// thread. Sizes are in pixels.
///
/// \par When to use it
/// For thumbnails with round corners. To scale a picture alone, QPixmap::scaled() is enough.
///
/// \par Example
/// \snippet helpers.cpp orvcommonlib
///
/// \since 1.0
/// \sa totalcommon
/// \ingroup helpers
class ORVCOMMONLIB_EXPORT orvcommonlib
{
public:
    orvcommonlib();
    // Declared, so that the library exports them: mingw-w64 exports nothing that a compiler adds by itself.
    /// \cond the usual ones
    orvcommonlib(const orvcommonlib &other);
    orvcommonlib(orvcommonlib &&other) noexcept;
    orvcommonlib &operator=(const orvcommonlib &other);
    orvcommonlib &operator=(orvcommonlib &&other) noexcept;
    /// \endcond
    ~orvcommonlib();

    /// Makes a picture with round corners from the middle of another one.
    ///
    /// A source that has the shape of `size` is scaled to it. Any other is deliberately not scaled: it is laid
    /// into the top-left corner of a canvas of its own shape that covers `size`, and the middle of that canvas is
    /// cut out. Of a source larger than the canvas only the top-left part is seen, of a smaller one no more than
    /// what reaches into the middle, which may be nothing. Use scaleAndClipPixmap2() for a thumbnail of the whole
    /// source.
    ///
    /// \param source the picture; only read. A device pixel ratio other than 1 makes a source of another shape
    ///        than `size` that much smaller; give it one without.
    /// \param size the size of the result. One that no picture can have (2^29 pixels or more) makes `output` null;
    ///        a little less takes several gigabytes for a while.
    /// \param radius of the corners; 0 or less leaves them square
    /// \param output receives the result; may be the source itself
    /// \return false, with `output` untouched, only for a null source
    static bool scaleAndClipPixmap(QPixmap &source, QSize size, int radius, QPixmap &output);

    /// Makes a picture with round corners that the source, smoothly scaled, covers: what is too much in one
    /// direction is cut off on both sides.
    ///
    /// When the source already has the shape of `size` and `radius` is 0 or less, `output` is deliberately
    /// left alone although the result is true: there is nothing to cut, the caller keeps what it has.
    ///
    /// \param source the picture; only read
    /// \param size the size of the result, whose fractions are dropped. Only when the source has its shape they
    ///        are rounded, and the corners lie on the fractional size. A size that no picture can have (2^29 pixels
    ///        or more) makes `output` null; a little less takes several gigabytes for a while.
    /// \param radius of the corners; 0 or less leaves them square
    /// \param output receives the result; may be the source itself
    /// \return false, with `output` untouched, only for a null source
    static bool scaleAndClipPixmap2(QPixmap &source, QSizeF size, double radius, QPixmap &output);

    /// Appends the paths of the images found under a folder, in the order of the file system. Sub-folders only
    /// ever contribute still images, whatever `animated` says. A folder that links back to one that contains it
    /// is not entered again.
    ///
    /// \param folder where to look; an empty or missing one has no images
    /// \param files receives the paths; never cleared
    /// \param animated true for the folder's own files with the suffix webp or gif in any case, false for those
    ///        with the suffix jpg, bmp, png or svg in lower case
    static void getImageFromPath(const QString &folder, QVector<QString> &files, bool animated);
};

/// Free helpers for the host application. None keeps state; none throws. Those for pictures, screens, widgets and
/// fonts belong to the GUI thread, those for text and files may run in any thread.
///
/// \par Example
/// \snippet helpers.cpp totalcommon
///
/// \since 1.0
/// \sa orvcommonlib
/// \ingroup helpers
namespace totalcommon {

/// Stretches an image without distorting its border: the four corners keep their size, the four edges are
/// stretched along themselves, the centre in both directions.
///
/// What the image does not cover is transparent, as is all of it when the file cannot be read. A target smaller
/// than its borders has no edges and no centre, only corners. A target size that is not positive, or that no
/// image can have (2^29 pixels or more), gives a null image.
///
/// Borders are taken as they are, also those that lie outside of the image. Each piece is then as large as they say, and
/// is made whole, unless no image can have its size: negative borders of some thousand pixels take gigabytes for a
/// while, and so do large ones of an image with a device pixel ratio of its own. Check borders that come from elsewhere.
///
/// An image with a device pixel ratio of its own, as the name of a file `...@2x.png` gives it one, does not fill
/// the target: its pieces are cut in its own pixels and placed as always, but each is drawn that much smaller.
/// Give a file without such a name, or a pixmap whose ratio has been set to 1.
///
/// \param fileName the image's file or resource; only read
/// \param left,top,right,bottom the widths of the border, in pixels of the image
/// \param width,height the size of the result, in pixels
/// \return the image, in the format QImage::Format_RGBA8888, with a device pixel ratio of 1
ORVCOMMONLIB_EXPORT QImage NinePatch(QString &fileName, int left, int top, int right, int bottom, int width,
                                     int height);

/// The same of a pixmap that is already loaded.
///
/// \param pixmap the image; only read
/// \param left,top,right,bottom the widths of the border, in pixels of the image
/// \param width,height the size of the result, in pixels
/// \return a pixmap with an alpha channel, with a device pixel ratio of 1
ORVCOMMONLIB_EXPORT QPixmap NinePatch(QPixmap &pixmap, int left, int top, int right, int bottom, int width,
                                      int height);

/// The screen with this number, counted from left to right and, at the same left edge, from top to bottom. Of
/// screens that share one origin (mirrored ones) the one that Qt lists later counts first.
///
/// \param index from 0 on; a number past the end means the last screen
/// \return the screen, which Qt owns; a null pointer for a negative number or in a session without screens
ORVCOMMONLIB_EXPORT QScreen *getScreen(int index);

/// The screen under a point of the desktop, or the primary screen when there is none.
///
/// \param point in device-independent pixels
/// \param found receives which of the two it was; may be null
/// \return the screen, which Qt owns; a null pointer in a session without screens
ORVCOMMONLIB_EXPORT QScreen *getScreen(QPoint point, bool *found);

/// Moves a widget without parent to the middle of the available part of a screen. Does nothing for a widget that
/// has a parent, or when there is no such screen.
///
/// \param widget may be null
/// \param index of the screen, as for getScreen()
ORVCOMMONLIB_EXPORT void moveToScreenCenter(QWidget *widget, int index);

/// The width of a text in the product font plus 2 pixels.
///
/// \param pixelSize the size of the font; one that is not positive leaves the font's own
/// \param text is measured as one line
/// \param font is given the product's family, the size and the weight, and keeps them
/// \param weight as QFont counts, 0 to 99; others are brought into that range
/// \return the width, in device-independent pixels
ORVCOMMONLIB_EXPORT int getFontWidth(int pixelSize, const QString &text, QFont &font, int weight);

/// Half-width characters to full-width ones: a blank becomes the ideographic space, a full stop the
/// ideographic full stop, and everything else below U+007F, control characters deliberately included, moves
/// up by 0xFEE0.
///
/// \param text any text
/// \return the text, of the same length
ORVCOMMONLIB_EXPORT QString HalfToFull(QString text);

/// Full-width characters to half-width ones: U+FF01 to U+FF5E, the ideographic space and the ideographic full
/// stop; everything else stays. Undoes HalfToFull() for printable ASCII.
///
/// \param text any text
/// \return the text, of the same length
ORVCOMMONLIB_EXPORT QString FullToHalf(QString text);

/// The MD5 digest of a text's UTF-8 bytes up to its first U+0000.
///
/// \param text an empty one gives an empty string and the info line "str info is empty"
/// \return 32 lower-case hexadecimal digits
ORVCOMMONLIB_EXPORT QString generateMd5(QString text);

/// A fingerprint of a file's head: the MD5 digest of its first 10240 bytes, followed by a text. Files that
/// differ only further down have the same fingerprint. Never blocks.
///
/// \param path of the file. An empty path or a missing file gives an empty string and the info line
///        "AAAAA--file not exist"; what cannot be opened for reading, or is no regular file (a folder, a pipe, a
///        device), gives an empty string.
/// \param extraText its UTF-8 bytes are digested after those of the file
/// \return 32 lower-case hexadecimal digits
ORVCOMMONLIB_EXPORT QString FileMD5(QString path, QString extraText);

/// The version of the library that runs, which may be newer than the headers that a client was compiled with: those
/// say theirs in orvcommonlib_version.h. May be called from any thread.
///
/// \return three numbers with dots between them, as QVersionNumber::fromString() reads them
ORVCOMMONLIB_EXPORT QString version();

/// The bytes in all files under a folder, hidden ones excepted. Links count as what they lead to, each of
/// them, but for a link to a folder that is just being counted (the one that holds the link or one above),
/// which adds nothing: of two sibling folders with 100 and 1000 bytes that link each other, their parent holds
/// 2200.
///
/// \param path the folder
/// \return the sum; 0 for a missing folder
ORVCOMMONLIB_EXPORT quint64 getDirSize(const QString &path);

/// Opens the system's file manager with a file selected or, where there is no such program, the folder that
/// contains it. Returns at once; a failure is not told.
///
/// \param path of the file
ORVCOMMONLIB_EXPORT void desktopShowInFolder(const QString &path);

/// The pictures that the library's classes look for among the client's resources. What a class shows without one,
/// its header says. The library has drawings of its own of all of them: to link (the CMake target
/// orvcommonlib::client_pictures) or to register (the file orvcommonlib_client_pictures.rcc). Where a client has a
/// picture of its own at one of the paths, it leaves the library's drawings out: of two at one path Qt takes either.
///
/// \return the resource paths, sorted
ORVCOMMONLIB_EXPORT QStringList clientPictures();

/// Those of clientPictures() that nothing provides at the moment: for a check at the start of a client, or in its
/// tests.
///
/// \return the resource paths, sorted; empty when there is a picture at every path
ORVCOMMONLIB_EXPORT QStringList missingClientPictures();

} // namespace totalcommon
