#pragma once

#include <QtCore/QMargins>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>

/// One page of a PopupMessage.
///
/// \since 1.0
/// \sa PopupMessage
/// \ingroup dialogs
struct PopupPage
{
    /// The picture, 268 x 204 device-independent pixels: a file name or resource path, under the same
    /// restrictions as PopupMessage::backgroundImage.
    QString image;
    /// The line below the picture, at most 268 wide.
    QString title;
    /// The smaller line below that, at most 268 wide.
    QString content;
};

/// All that a PopupDlgWithMask is made of, with defaults for a message box that a client need only give its
/// texts. Lengths are in device-independent pixels.
///
/// \par Example
/// \snippet dialogs.cpp PopupMessage
///
/// \since 1.0
/// \sa PopupDlgWithMask
/// \ingroup dialogs
struct PopupMessage
{
    /// A file name or resource path; empty for the library's own card,
    /// ":/orvcommonlib/pictures/message_bg.png", whose corners and shadow keep their shape in any size. Another
    /// image is stretched over the whole dialog; its path becomes part of a style sheet, where one with a quote,
    /// a comma, a parenthesis, a percent sign or a backslash does not work: no image is shown then.
    QString backgroundImage;
    /// The fixed size of the dialog, including the transparent border of the image. Pages want 332 x 425.
    QSize size{432, 232};
    /// The widths of that transparent border, which the library's card fills with its shadow; the contents keep
    /// 16 pixels more.
    QMargins border{16, 16, 16, 16};
    /// The text above the message or the pages.
    QString title;
    /// The message, of at most two lines; a dialog with pages has none.
    QString content;
    /// A short text at the bottom left, at most 50 wide, such as "1/3".
    QString noteText;
    /// The text of the confirm button, which is 68 wide; empty for a translated "OK".
    QString confirmText;
    /// What is shown instead of `content`, one page after the other, where there are any.
    QVector<PopupPage> pages;
    bool useMask = true;        ///< darken the main window while the dialog is visible
    bool deleteOnClose = false; ///< the dialog deletes itself when it is closed
    bool dialogWindow = true;   ///< for the base class; the window is a tool window either way
    bool modal = true;          ///< block input to every other window of the application
};
