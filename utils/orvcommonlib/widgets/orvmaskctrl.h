#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

class QLabel;
class QWidget;

/// Darkens the client's main window while at least one masked dialog is open.
///
/// \image html dialog-orvmaskctrl.png
///
/// The one instance of the process lays a translucent label over one window. Each dialog that wants the mask
/// registers itself as an owner; the mask goes when the last owner has let go.
///
/// To be used in the GUI thread only, except that concurrent first calls of getInstance() create one
/// instance. Logs nothing.
///
/// \par When to use it
/// Around a dialog that does not ask for the mask itself, as PopupDlgWithMask does. Where dimming the window is not
/// part of the design, a modal dialog is enough.
///
/// \par Example
/// \snippet frames.cpp OrvMaskCtrl
///
/// \since 1.0
/// \sa PopupDlgWithMask, PopupLoadingDlgWithMask, \ref guide_mask
/// \ingroup dialogs
class ORVCOMMONLIB_EXPORT OrvMaskCtrl : public QObject
{
public:
    /// The one instance, which the first call of the process creates.
    /// \param parent the window that the mask covers, in the size that it has at the first call: without
    ///        setFollowsWindow() the mask follows no later change of size. Without a window, and after it is
    ///        gone, there is no mask: nothing is shown. Later calls ignore it, also one from within the first,
    ///        where the mask is still to come; with setFollowsWindow() they take it where there is no mask.
    /// \return null for good after deleteInstance()
    static OrvMaskCtrl *getInstance(QWidget *parent);

    /// Lets the mask follow its window. While this is on the mask has the window's size whenever that changes,
    /// and the first getInstance() with a window after the old one has died covers the new one, at once where
    /// owners are registered. May be set at any time, also before there is a mask.
    /// \param follows false at first; setting it back leaves the mask in the size that it has
    static void setFollowsWindow(bool follows);
    /// \return what setFollowsWindow() set
    static bool followsWindow();

    /// Deletes the instance, as a step of shutting down. The mask label stays with its window, as it is.
    static void deleteInstance();

    /// Registers an owner, then raises and shows the mask.
    /// \param owner an opaque token; registering it again changes nothing
    void showMasking(void *owner);

    /// Removes an owner, and hides the mask if none remains.
    /// \param owner what was registered, anything else is ignored. Null hides the mask at once; the owners stay
    ///        registered, so that the next showMasking() shows it again.
    void hideMasking(void *owner);

    /// \return the mask label, owned by the window that it covers; null if there is no such window
    QWidget *getMaskWidget();

protected:
    /// Watches the window for changes of its size while the mask follows it.
    /// \param watched the window
    /// \param event   what it is told, which it always gets
    /// \return false
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(OrvMaskCtrl)
    friend class PopupDlgWithMask;

    OrvMaskCtrl();
    ~OrvMaskCtrl() override;

    void cover(QWidget *window);
    void followOrNot();
    void fitMask();

    QPointer<QLabel> m_maskWidget;
    QSet<void *> m_owners;
    bool m_isCovering = false;

    static OrvMaskCtrl *m_pInstance;
    static bool m_followsWindow;
};
