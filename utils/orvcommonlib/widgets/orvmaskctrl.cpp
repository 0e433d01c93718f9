#include "orvmaskctrl.h"

#include "masklabel.h"

#include <QtGui/QPixmap>

namespace {

QLabel *newMask(QWidget *window)
{
    const QSize size = window->size();
    auto *mask = new MaskLabel(window);
    mask->setAttribute(Qt::WA_TranslucentBackground, true);
    mask->setWindowFlags(Qt::FramelessWindowHint);
    mask->setPixmap(QPixmap(QStringLiteral(":/images/images/mask.png"))
                        .scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation));
    mask->resize(size);
    mask->move(0, 0);
    mask->hide();
    return mask;
}

} // namespace

OrvMaskCtrl *OrvMaskCtrl::m_pInstance = nullptr;

OrvMaskCtrl *OrvMaskCtrl::getInstance(QWidget *parent)
{
    // Initialised once, by one thread, and never again: the instance does not come back after
    // deleteInstance().
    bool isFirstCall = false;
    static const bool created = [&isFirstCall] {
        m_pInstance = new OrvMaskCtrl;
        isFirstCall = true;
        return true;
    }();
    Q_UNUSED(created)
    if (!isFirstCall || !parent)
        return m_pInstance;

    // The window is told of its new child, and may call this function and the others then.
    const QPointer<QLabel> mask = newMask(parent);
    if (m_pInstance) {
        m_pInstance->m_maskWidget = mask;
        if (!m_pInstance->m_owners.isEmpty())
            m_pInstance->showMasking(*m_pInstance->m_owners.cbegin());
    }
    return m_pInstance;
}

void OrvMaskCtrl::deleteInstance()
{
    delete m_pInstance;
    m_pInstance = nullptr;
}

OrvMaskCtrl::OrvMaskCtrl()
    : QObject(nullptr)
{
}

OrvMaskCtrl::~OrvMaskCtrl() = default;

void OrvMaskCtrl::showMasking(void *owner)
{
    m_owners.insert(owner);
    if (!m_maskWidget)
        return;
    // The window is told of it, and may have it otherwise by then.
    const QPointer<OrvMaskCtrl> alive(this);
    m_maskWidget->raise();
    if (alive && m_maskWidget && m_owners.contains(owner))
        m_maskWidget->show();
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
