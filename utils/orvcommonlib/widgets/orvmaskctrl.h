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
    /// The one instance. The first call of the process creates it, with a mask over `parent` in the size that
    /// `parent` has at that moment: the mask follows no later change of size. Later calls ignore `parent`, also
    /// one from within the first, where the mask is still to come. After deleteInstance() the result is null
    /// for good. Without a `parent`, and after it is gone, there is no mask: nothing is shown.
    static OrvMaskCtrl *getInstance(QWidget *parent);

    /// Deletes the instance, as a step of shutting down. The mask label stays with its window, as it is.
    static void deleteInstance();

    /// Registers `owner`, an opaque token; registering it again changes nothing. Raises and shows the mask.
    void showMasking(void *owner);

    /// Removes `owner`, and hides the mask if no owner remains. A null `owner` hides the mask at once; the
    /// owners stay registered, so that the next showMasking() shows it again.
    void hideMasking(void *owner);

    /// The mask label, owned by the window that it covers; null if there is no such window.
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
