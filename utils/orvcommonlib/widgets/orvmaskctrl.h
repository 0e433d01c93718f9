#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

class QLabel;
class QWidget;

/// Darkens the client's main window while at least one masked dialog is open.
///
/// The one instance of the process lays a translucent label over one window. Each dialog that wants the mask
/// registers itself as an owner; the mask goes when the last owner has let go.
///
/// To be used in the GUI thread only, except that concurrent first calls of getInstance() create one
/// instance. Logs nothing.
class ORVCOMMONLIB_EXPORT OrvMaskCtrl : public QObject
{
public:
    /// The one instance, which the first call of the process creates.
    /// \param parent the window that the mask covers, in the size that it has at the first call: the mask
    ///        follows no later change of size. Without one, and after it is gone, there is no mask: nothing is
    ///        shown. Later calls ignore it, also one from within the first, where the mask is still to come.
    /// \return null for good after deleteInstance()
    static OrvMaskCtrl *getInstance(QWidget *parent);

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

private:
    Q_DISABLE_COPY(OrvMaskCtrl)
    friend class PopupDlgWithMask;

    OrvMaskCtrl();
    ~OrvMaskCtrl() override;

    QPointer<QLabel> m_maskWidget;
    QSet<void *> m_owners;

    static OrvMaskCtrl *m_pInstance;
};
