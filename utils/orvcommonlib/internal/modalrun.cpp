#include "modalrun.h"

#include <QtCore/QEventLoop>
#include <QtWidgets/QWidget>

namespace {

ModalRun *innermostRun = nullptr;

} // namespace

ModalRun::ModalRun(QWidget *dialog, QEventLoop *&recordedLoop)
    : m_outer(innermostRun)
    , m_dialog(dialog)
    , m_recordedLoop(&recordedLoop)
{
    innermostRun = this;
    // With Qt 6 such a window counts as shown, and is not shown again.
    if (!dialog->isHidden() && isHidden(dialog))
        dialog->setAttribute(Qt::WA_WState_Hidden);
}

ModalRun::~ModalRun()
{
    innermostRun = m_outer;
}

void ModalRun::enter(QEventLoop &loop)
{
    if (!m_dialog || (m_wasHidden && isHidden(m_dialog)))
        return;
    m_loop = &loop;
    loop.exec(QEventLoop::AllEvents);
    m_loop = nullptr;
}

void ModalRun::enterOwnLoop()
{
    if (!m_dialog)
        return;
    QEventLoop loop;
    *m_recordedLoop = &loop;
    enter(loop);
    if (m_dialog)
        *m_recordedLoop = nullptr;
}

void ModalRun::end(QEventLoop *&recordedLoop)
{
    if (!recordedLoop)
        return;
    recordedLoop->exit(0);
    recordedLoop = nullptr;
}

bool ModalRun::isHidden(const QWidget *dialog)
{
    return dialog->isHidden() || (dialog->isWindow() && !dialog->isVisible());
}

void ModalRun::dialogHidden(const QWidget *dialog, QEventLoop *&recordedLoop)
{
    for (ModalRun *run = innermostRun; run; run = run->m_outer)
        run->m_wasHidden = run->m_wasHidden || run->m_dialog == dialog;
    end(recordedLoop);
}

void ModalRun::dialogDestroyed(const QWidget *dialog, qint32 result)
{
    for (ModalRun *run = innermostRun; run; run = run->m_outer) {
        if (run->m_dialog != dialog)
            continue;
        run->m_dialog = nullptr;
        run->m_lastResult = result;
        if (run->m_loop)
            run->m_loop->exit(0);
    }
}
