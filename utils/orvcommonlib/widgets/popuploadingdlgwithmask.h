#pragma once

#include "basemovedialog.h"
#include "orvcommonlib_global.h"

#include <QtCore/QPointer>
#include <QtCore/QSize>
#include <QtCore/QString>

class QLabel;
class QMovie;

/// A busy indicator over an area: a faint grey tint with a white rounded box in its middle, which shows a
/// spinner and one line of text.
///
/// \image html dialog-popuploadingdlgwithmask.png
///
/// It is its own mask and does not use OrvMaskCtrl. Show it over the area to cover and close it when the
/// work is done, which deletes it. The animation ":/surface/resources/surface/live/connecting.gif" belongs
/// to the application; where it is missing or broken, the box shows the text alone. GUI thread only. Sizes
/// are in device-independent pixels.
///
/// It is a window of its own, also with a parent: it is moved in global coordinates, does not follow the window that
/// it covers, and blocks nothing. For all of it to be as it looks, set a window modality and call moveOver() before
/// it is shown.
///
/// \par When to use it
/// While the application is busy for a time that nobody knows. Where it is known, a QProgressDialog tells more; where
/// the user can go on working, something smaller will do.
///
/// \par Example
/// \snippet dialogs.cpp PopupLoadingDlgWithMask
///
/// \since 1.0
/// \sa OrvMaskCtrl, \ref guide_dialogs
/// \ingroup dialogs
class ORVCOMMONLIB_EXPORT PopupLoadingDlgWithMask : public BaseMoveDialog
{
    Q_OBJECT
    Q_DISABLE_COPY(PopupLoadingDlgWithMask)

public:
    /// \param dialogSize the size of the area to cover
    /// \param boxSize the size of the white box; a box larger than the dialog is clipped
    /// \param text the caption, fixed for the life of the dialog
    /// \param parent the owner; may be null
    PopupLoadingDlgWithMask(QSize dialogSize, QSize boxSize, QString text, QWidget *parent);
    /// Stops the animation. The movie itself is deliberately not deleted; only a switch between a light and a dark look
    /// replaces it, where the dark one has a movie of its own (see OrvLook).
    ~PopupLoadingDlgWithMask() override;

protected:
    /// The tint, and what style sheets paint over it.
    /// \param event the area, which is not looked at
    void paintEvent(QPaintEvent *event) override;
    /// Starts the animation; it goes on while the dialog is hidden.
    /// \param event the showing
    void showEvent(QShowEvent *event) override;

private:
    void initWidget(QWidget *box);
    void setMovie(const QString &path);
    void followLook();

    QLabel *m_movieLabel = nullptr;
    QPointer<QMovie> m_movie; // a client can reach it through the label
    QString m_text;
};
