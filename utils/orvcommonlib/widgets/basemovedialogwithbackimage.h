#pragma once

#include "basemovedialog.h"

#include <QtCore/QString>
#include <QtGui/QPixmap>

/// A movable dialog with a background of its own: a nine-patch image stretched to the dialog's size, or a
/// white rectangle with round corners where no image is named. In a dark look the rectangle is dark, and the
/// image is the one whose name ends in "_dark" if there is one, see OrvLook.
///
/// \image html dialog-basemovedialogwithbackimage.png
///
/// The background is translucent. It is sliced from the image file when it is painted for the first time and
/// after each change of size or look, never in between: a file that changes meanwhile is not noticed by this
/// dialog, only by the next one. Dialogs that show the same image in the same size share the picture, within the
/// limit of QPixmapCache. A file that is missing leaves the background transparent. Style sheets do not paint
/// this dialog.
///
/// The borders are what keeps its shape: with borders of 0 the whole picture is stretched, corners and shadow too.
/// Borders that are together wider than the dialog leave nothing but the corners. What the picture does not paint,
/// its shadow, is part of the dialog: the layout of the contents has to keep it free.
///
/// \par When to use it
/// For a dialog of your own with a shadow or round corners that come from a picture. A plain rectangle with a frame
/// of the desktop is a QDialog.
///
/// \par Example
/// \snippet frames.cpp BaseMoveDialogWithBackImage
///
/// \since 1.0
/// \sa totalcommon::NinePatch(), OrvLook, \ref guide_frames
/// \ingroup frames
class ORVCOMMONLIB_EXPORT BaseMoveDialogWithBackImage : public BaseMoveDialog
{
    Q_OBJECT

public:
    /// \param imagePath the image file, or an empty path for the white rectangle
    /// \param border    the width of all four borders of the nine-patch, in pixels of the image; also the
    ///                  corner radius of the white rectangle
    /// \param canMove   whether the user may drag the dialog
    /// \param asDialog  whether the window is a Qt::Dialog; otherwise it keeps the plain flags of a widget
    /// \param parent    the window that this one belongs to, or null
    BaseMoveDialogWithBackImage(QString imagePath, int border, bool canMove, bool asDialog, QWidget *parent);

    /// The same with a width for each border of the nine-patch, in pixels of the image.
    /// \param imagePath the image file, or an empty path for the white rectangle
    /// \param left      the width of the left border
    /// \param top       the height of the top border; also the corner radius of the white rectangle
    /// \param right     the width of the right border
    /// \param bottom    the height of the bottom border
    /// \param canMove   whether the user may drag the dialog
    /// \param asDialog  whether the window is a Qt::Dialog; otherwise it keeps the plain flags of a widget
    /// \param parent    the window that this one belongs to, or null
    BaseMoveDialogWithBackImage(QString imagePath, int left, int top, int right, int bottom, bool canMove,
                                bool asDialog, QWidget *parent);
    ~BaseMoveDialogWithBackImage() override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(BaseMoveDialogWithBackImage)

    void paintRoundedRect();
    void paintImage();

    QString m_imagePath;
    int m_top; // also the corner radius of the white rectangle
    int m_left;
    int m_right;
    int m_bottom;
    QPixmap m_background;
    QString m_backgroundPath; // where it was read
};
