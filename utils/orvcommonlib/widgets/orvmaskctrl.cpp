#include "orvmaskctrl.h"

#include "masklabel.h"

#include <QtCore/QEvent>
#include <QtGui/QPixmap>

namespace {

QPixmap darkness(QSize size)
{
    return QPixmap(QStringLiteral(":/images/images/mask.png"))
        .scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QLabel *newMask(QWidget *window)
{
    const QSize size = window->size();
    auto *mask = new MaskLabel(window);
    mask->setAttribute(Qt::WA_TranslucentBackground, true);
    mask->setWindowFlags(Qt::FramelessWindowHint);
    mask->setPixmap(darkness(size));
    mask->resize(size);
    mask->move(0, 0);
    mask->hide();
    return mask;
}

} // namespace

OrvMaskCtrl *OrvMaskCtrl::m_pInstance = nullptr;
bool OrvMaskCtrl::m_followsWindow = false;

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
    if (parent && m_pInstance && (isFirstCall || (m_followsWindow && !m_pInstance->m_maskWidget)))
        m_pInstance->cover(parent);
    return m_pInstance;
}

void OrvMaskCtrl::setFollowsWindow(bool follows)
{
    m_followsWindow = follows;
    if (m_pInstance)
        m_pInstance->followOrNot();
}

bool OrvMaskCtrl::followsWindow()
{
    return m_followsWindow;
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

// The window is told of its new child, and may call any of these functions then.
void OrvMaskCtrl::cover(QWidget *window)
{
    if (m_isCovering)
        return;
    m_isCovering = true;
    const QPointer<OrvMaskCtrl> alive(this);
    const QPointer<QLabel> mask = newMask(window);
    if (!alive)
        return;
    m_isCovering = false;
    m_maskWidget = mask;
    followOrNot();
    if (alive && !m_owners.isEmpty())
        showMasking(*m_owners.cbegin());
}

void OrvMaskCtrl::followOrNot()
{
    QWidget *window = m_maskWidget ? m_maskWidget->parentWidget() : nullptr;
    if (!window)
        return;
    window->removeEventFilter(this);
    if (!m_followsWindow)
        return;
    window->installEventFilter(this);
    fitMask();
}

void OrvMaskCtrl::fitMask()
{
    const QWidget *window = m_maskWidget ? m_maskWidget->parentWidget() : nullptr;
    if (!window || m_maskWidget->size() == window->size())
        return;
    const QSize size = window->size();
    m_maskWidget->setPixmap(darkness(size));
    m_maskWidget->resize(size);
}

bool OrvMaskCtrl::eventFilter(QObject *, QEvent *event)
{
    if (event->type() == QEvent::Resize)
        fitMask();
    return false;
}

void OrvMaskCtrl::showMasking(void *owner)
{
    m_owners.insert(owner);
    if (!m_maskWidget)
        return;
    // The window is told of it, and may have it otherwise by then.
    const QPointer<OrvMaskCtrl> alive(this);
    if (m_followsWindow)
        fitMask(); // a hidden window is told of its new size no earlier than when it is shown
    if (alive && m_maskWidget)
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
    if (m_followsWindow)
        fitMask();
    return m_maskWidget;
}
