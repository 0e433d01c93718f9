#include "orvmaskctrl.h"

#include "masklabel.h"

#include <QtGui/QPixmap>

OrvMaskCtrl *OrvMaskCtrl::m_pInstance = nullptr;

OrvMaskCtrl *OrvMaskCtrl::getInstance(QWidget *parent)
{
    // Initialised once, by one thread, and never again: the instance does not come back after
    // deleteInstance().
    static const bool created = [parent] {
        m_pInstance = new OrvMaskCtrl(parent);
        return true;
    }();
    Q_UNUSED(created)
    return m_pInstance;
}

void OrvMaskCtrl::deleteInstance()
{
    delete m_pInstance;
    m_pInstance = nullptr;
}

OrvMaskCtrl::OrvMaskCtrl(QWidget *parent)
    : QObject(nullptr)
{
    if (!parent)
        return;
    const QSize size = parent->size();
    m_maskWidget = new MaskLabel(parent);
    m_maskWidget->setAttribute(Qt::WA_TranslucentBackground, true);
    m_maskWidget->setWindowFlags(Qt::FramelessWindowHint);
    m_maskWidget->setPixmap(QPixmap(QStringLiteral(":/images/images/mask.png"))
                                .scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    m_maskWidget->resize(size);
    m_maskWidget->move(0, 0);
    m_maskWidget->hide();
}

OrvMaskCtrl::~OrvMaskCtrl() = default;

void OrvMaskCtrl::showMasking(void *owner)
{
    m_owners.insert(owner);
    if (m_maskWidget) {
        m_maskWidget->raise();
        m_maskWidget->show();
    }
}

void OrvMaskCtrl::hideMasking(void *owner)
{
    m_owners.remove(owner);
    if (owner && !m_owners.isEmpty())
        return;
    if (m_maskWidget)
        m_maskWidget->hide();
}

QWidget *OrvMaskCtrl::getMaskWidget()
{
    return m_maskWidget;
}
